#include "formats/mp3song.h"

#include "formats/mp3examination.h"
#include "formats/mp3length.h"
#include "formats/mp3tagfile.h"
#include "formats/songitems.h"
#include "formats/songreading.h"
#include "formats/songsaving.h"
#include "storage/diagnostics.h"
#include "storage/songlayout.h"

#include <algorithm>

namespace
{

/** The second byte of an MP3 frame has to be greater than this, both taken as signed. */
constexpr auto syncLimit = static_cast<qint8>(0xF2);

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
    QByteArray start;
    if (!file.seek(0) || !mp3tagfile::load(file, mp3tagfile::largestTag, tag, start))
        return {};
    return std::min(qint64{tag.getAudioDataStartPos()}, file.size());
}

bool Mp3Song::load(QFile &file)
{
    m_path = file.fileName();
    QByteArray start;
    if (!mp3tagfile::load(file, mp3tagfile::largestReadTag, m_tag, start))
        return false;
    m_troubles = examineTags(start, m_tag, file);
    return true;
}

void Mp3Song::read(SongInfo &info) const
{
    readItems(m_tag, info);
    info.troubles = m_troubles;
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
    return m_tag.getId3TagSize(m_tag.stream()) <= mp3tagfile::largestReadTag;
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
    QByteArray start;
    if (!mp3tagfile::load(source, mp3tagfile::largestReadTag, onDisk, start)) {
        logDebug() << "[MetaSong::saveToFile] Impossible to seek file.";
        return loadFailureOf(m_path);
    }
    return songsaving::replaceHead(path, m_tag.stream(), source, onDisk.getAudioDataStartPos());
}
