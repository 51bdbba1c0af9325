#include "formats/mp3song.h"

#include "formats/mp3length.h"
#include "formats/songitems.h"
#include "formats/songreading.h"
#include "formats/songsaving.h"
#include "storage/diagnostics.h"
#include "storage/songlayout.h"

#include <algorithm>

namespace
{

/** How much of an MP3 file is searched for its tag. */
constexpr qint64 startSize = 1000000;

/** The second byte of an MP3 frame has to be greater than this, both taken as signed. */
constexpr auto syncLimit = static_cast<qint8>(0xF2);

/** Loads the tag of an MP3 file, which stands at its start. */
bool loadTag(QFile &file, Mp3Header &header)
{
    const qint64 most = std::min(file.size(), startSize);
    const auto readUpTo = [&file, most](QByteArray &bytes, qint64 size) {
        bytes += file.read(std::min(most, size) - bytes.size());
        return bytes.size() == std::min(most, size);
    };
    QByteArray start;
    if (!readUpTo(start, Mp3Header::headerSize))
        return false;
    const qint64 tagSize =
        start.startsWith(songlayout::id3Magic) ? qint64{header.getId3TagSize(start)} : 0;
    if (!readUpTo(start, Mp3Header::headerSize + tagSize + Mp3Header::footerSize) ||
        !header.loadHeader(start))
        return false;
    // The size in a tag does not count the tag's own ten bytes and a footer, so the tag can end
    // later than its size says.
    const qsizetype missing =
        qsizetype{header.getAudioDataStartPos()} + Mp3Header::footerSize - start.size();
    return missing <= 0 || header.loadHeader(start + file.read(missing));
}

bool isMp3Start(const QByteArray &start)
{
    if (start.startsWith(songlayout::id3Magic))
        return true;
    if (start.size() < 2)
        return false;
    const auto first = static_cast<quint8>(start.at(0));
    const auto second = static_cast<qint8>(start.at(1));
    return (first == 0xFF && second > syncLimit) || (first == 0 && second == 0);
}

} // namespace

bool Mp3Song::isMp3(const QString &path, const QByteArray &start)
{
    return path.toUpper().endsWith(QLatin1String("MP3")) && isMp3Start(start);
}

std::optional<qint64> Mp3Song::audioStart(QFile &file)
{
    Mp3Header tag;
    if (!file.seek(0) || !loadTag(file, tag))
        return {};
    return std::min(qint64{tag.getAudioDataStartPos()}, file.size());
}

bool Mp3Song::load(QFile &file)
{
    m_path = file.fileName();
    return loadTag(file, m_tag);
}

void Mp3Song::read(SongInfo &info) const
{
    readItems(m_tag, info);
}

SongMeasure Mp3Song::measure() const
{
    SongMeasure measure;
    QFile file(m_path);
    if (!songreading::openRegularFile(file))
        return measure;
    if (const auto start = audioStart(file))
        measure.length = mp3length::of(file, *start);
    return measure;
}

bool Mp3Song::canBeReadAgain() const
{
    return m_tag.getId3TagSize(m_tag.stream()) <= startSize;
}

SaveFailure Mp3Song::save(const QString &path) const
{
    QFile source(m_path);
    if (!songreading::openRegularFile(source)) {
        logDebug() << "[MetaSong::saveToFile] Impossible to read from file.";
        return loadFailureOf(m_path);
    }
    // Where the audio begins is read from the file as it is now: an earlier save of this song, or
    // of a copy of it, may have moved it.
    Mp3Header onDisk;
    if (!loadTag(source, onDisk)) {
        logDebug() << "[MetaSong::saveToFile] Impossible to seek file.";
        return loadFailureOf(m_path);
    }
    return songsaving::replaceHead(path, m_tag.stream(), source, onDisk.getAudioDataStartPos());
}
