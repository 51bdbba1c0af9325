// Whether two paths lead to one file.
#pragma once

#include <QString>

/**
 * True when both paths lead to one file: by links, other spellings or another letter case. False,
 * too, when one of them leads nowhere.
 */
bool isSameFile(const QString &first, const QString &second);
