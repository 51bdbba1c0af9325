// The language of the messages.
#pragma once

#include <QTranslator>

/**
 * German or Italian where LC_ALL, LC_MESSAGES or LANG (the first of them that is set) asks for it;
 * any other language gets English.
 */
class Language
{
public:
    /** Installs the texts; they go with the object. */
    Language();

private:
    QTranslator m_translator;
};
