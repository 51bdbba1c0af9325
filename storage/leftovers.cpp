#include "storage/leftovers.h"

#include "storage/diagnostics.h"
#include "storage/safefile.h"
#include "storage/songlayout.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <optional>

namespace
{

/** Of files that are of no use without the program that made them. */
constexpr QLatin1String suffixes[] = {Leftovers::partSuffix, Leftovers::temporarySuffix};

/**
 * Where the audio of an MP3 begins, behind its tag; 0 when it has none. Nothing when the tag is cut
 * off or cannot be read.
 */
std::optional<qint64> startOfAudio(QFile &file)
{
    using namespace songlayout;
    const QByteArray head = file.read(id3HeaderSize);
    if (!head.startsWith(id3Magic))
        return 0;
    if (head.size() < id3HeaderSize)
        return std::nullopt;
    qint64 start = 0;
    for (qsizetype pos = id3SizePos; pos < id3HeaderSize; ++pos) {
        if (head.at(pos) < 0) // seven bits at most
            return std::nullopt;
        start = (start << 7) + head.at(pos);
    }
    start += id3HeaderSize;
    constexpr char versionWithFooters = 4;
    if (head.at(id3VersionPos) == versionWithFooters && (head.at(id3FlagsPos) & id3HasFooter) != 0)
        start += id3HeaderSize;
    return start <= file.size() ? std::optional(start) : std::nullopt;
}

/** True when what is left of the first file is what comes next in the second one. */
bool isBeginningOf(QFile &part, QFile &whole)
{
    constexpr qint64 chunkSize = 100000;
    while (true) {
        const QByteArray bytes = part.read(chunkSize);
        if (bytes.isEmpty())
            return part.error() == QFile::NoError && part.atEnd();
        if (whole.read(bytes.size()) != bytes)
            return false;
    }
}

/** True for an unfinished or finished new version of the song, with a tag as the program writes it.
 */
bool isNewVersionOf(const QString &song, QFile &file)
{
    constexpr char oldestWrittenVersion = 3;
    constexpr char newestWrittenVersion = 4;
    if (!file.seek(0))
        return false;
    const QByteArray head = file.peek(songlayout::id3HeaderSize);
    if (head.size() < songlayout::id3HeaderSize || !head.startsWith(songlayout::id3Magic) ||
        head.at(songlayout::id3VersionPos) < oldestWrittenVersion ||
        head.at(songlayout::id3VersionPos) > newestWrittenVersion)
        return false;
    QFile whole(song);
    // Those of the system's files that look empty may wait for ever when they are read.
    const QFileInfo info(song);
    if (!info.isFile() || info.size() == 0 || !whole.open(QFile::ReadOnly))
        return false;
    const auto start = startOfAudio(file);
    const auto startInSong = startOfAudio(whole);
    return start && startInSong && file.seek(*start) && whole.seek(*startInSong) &&
           isBeginningOf(file, whole);
}

/** The MP3s whose new version has the path for a time. */
QStringList songsOf(const QString &temporary)
{
    const QFileInfo info(temporary);
    const QString stem = info.fileName().chopped(Leftovers::usualTemporarySuffix.size());
    QStringList songs;
    QDirIterator it(info.path(), QDir::Files | QDir::Hidden);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString name = it.fileName();
        if (name.size() == stem.size() + 4 && name.startsWith(stem) &&
            name.endsWith(QLatin1String(".mp3"), Qt::CaseInsensitive))
            songs.append(path);
    }
    return songs;
}

bool isSomeNewVersion(QFile &file, const QString &path)
{
    // Most files of that name are no MP3, and the folder need not be searched.
    if (file.peek(songlayout::magicSize).startsWith(songlayout::id3Magic)) {
        const QStringList songs = songsOf(path);
        return std::any_of(songs.cbegin(), songs.cend(),
                           [&file](const QString &song) { return isNewVersionOf(song, file); });
    }
    return false;
}

} // namespace

bool Leftovers::isLeftover(const QString &name)
{
    return name.startsWith(QLatin1Char('.')) &&
           std::any_of(std::cbegin(suffixes), std::cend(suffixes), [&name](QLatin1String suffix) {
               return name.endsWith(suffix) &&
                      name.chopped(suffix.size()).endsWith(QLatin1Char('.'));
           });
}

bool Leftovers::mayBeLeftover(const QString &name)
{
    return name.endsWith(usualTemporarySuffix) || isLeftover(name);
}

void Leftovers::remove(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    MayGo mayGo;
    if (!isLeftover(name))
        mayGo = [&path](QFile &file) { return isSomeNewVersion(file, path); };
    if (mayBeLeftover(name) && removeUnheld(path, mayGo))
        logDebug() << "[Leftovers::remove] Removed, it was left behind:" << path;
}

void Leftovers::tidy(const QString &folder)
{
    if (m_tidied.contains(folder))
        return;
    m_tidied.insert(folder);
    QStringList found;
    QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    while (it.hasNext()) {
        const QString path = it.next();
        if (mayBeLeftover(it.fileName()))
            found.append(path);
    }
    for (const QString &path : std::as_const(found))
        remove(path);
}

void Leftovers::tidyBeside(const QString &song)
{
    tidy(QFileInfo(song).path());
}
