// File names and suffixes of songs.
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
 * The title made from a file's name: the text after the last "/", up to the last dot in it if there
 * is one.
 */
QString titleFromFileName(const QString &path);
} // namespace songnames
