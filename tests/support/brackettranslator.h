// A translation of everything: each text in angle brackets.
#pragma once

#include <QTranslator>

/** Shows which texts a window takes from the translation, and when it does so. */
class BracketTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *source, const char *, int) const override
    {
        return QLatin1Char('<') + QString::fromUtf8(source) + QLatin1Char('>');
    }
};
