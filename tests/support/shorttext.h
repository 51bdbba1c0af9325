// Texts of tests, which need a short way to be written.
#pragma once

#include <QString>

/** The UTF-8 text. */
inline QString s(const char *text)
{
    return QString::fromUtf8(text);
}
