// The names that song files have.
#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace songnames
{
/** "*.mid" and so on. */
QStringList patterns();

/** True for the suffix of a song file, without its dot, in any case. */
bool isSongSuffix(QStringView suffix);

/** True when the name, or path, ends in a song's suffix, in any case. */
bool isSongName(const QString &name);

/**
 * The title that a file's name makes: what stands after the last "/" and before the last "." behind
 * it; without a dot, everything after the "/".
 */
QString titleFromFileName(const QString &path);
} // namespace songnames
