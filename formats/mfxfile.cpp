#include "formats/mfxfile.h"

#include "formats/lzhuff.h"
#include "formats/songreading.h"
#include "formats/songsaving.h"
#include "storage/diagnostics.h"
#include "storage/songlayout.h"

namespace
{

// The MIDI data of an "_MF4" file hold three more bytes, uncounted, at the head of the first track.
constexpr char mf4TrackHead[] = "\xFF\x00\xFF";
constexpr qsizetype mf4TrackHeadSize = 3;

bool removeMf4TrackHead(QByteArray &midi)
{
    const qsizetype track = midi.indexOf(songlayout::midiTrackMagic);
    const qsizetype head = track + songlayout::chunkHeaderSize;
    if (track < 0 || head + mf4TrackHeadSize > midi.size())
        return false;
    midi.remove(head, mf4TrackHeadSize);
    return true;
}

} // namespace

bool MfxFile::load(QFile &file)
{
    if (!m_header.loadHeader(file.peek(MfxHeader::largestSize)) ||
        !file.seek(m_header.header().size()))
        return false;
    QByteArray compressed;
    if (!songreading::readToEnd(file, compressed))
        return false;

    QByteArray content;
    if (!LzHuff().expand(compressed, content)) {
        logDebug() << "[MetaSong::importFile] LzHuff Expand filed, skipping file";
        return false;
    }
    const bool hasTrackHead = m_header.fileType() == SongInfo::FileMf4;
    if ((hasTrackHead && !removeMf4TrackHead(content)) || !m_midi.loadData(content)) {
        logDebug() << "[MetaSong::importFile] MidiStream corrupted, skipping file";
        return false;
    }
    return true;
}

void MfxFile::read(SongInfo &info) const
{
    info.title = m_header.title();
    info.artist = m_header.artist();
    info.author = m_header.author();
    info.genre = m_header.genre();
    info.userBpm = m_header.tempo();
    info.mfxLongName = m_header.longName();
    info.mfxFlags = static_cast<quint8>(m_header.flags());
    info.key = m_midi.key();
    info.length = m_midi.length();
    info.markers = m_midi.markersList();
}

bool MfxFile::canBeReadAgain() const
{
    return payload().size() <= qsizetype{LzHuff::maxTextSize};
}

SaveFailure MfxFile::save(const QString &path)
{
    return songsaving::rewrite(path, [this] {
        logDebug() << "[MetaSong::saveToFile] MFx";
        return bytes();
    });
}

/** The MIDI data as they are compressed into the file. */
QByteArray MfxFile::payload() const
{
    QByteArray content = m_midi.stream();
    if (m_header.fileType() == SongInfo::FileMf4)
        content.insert(m_midi.trackStart(), mf4TrackHead, mf4TrackHeadSize);
    return content;
}

/** The whole file; the header learns its sizes. */
QByteArray MfxFile::bytes()
{
    const QByteArray content = payload();
    QByteArray compressed;
    LzHuff().compress(content, compressed);
    const qsizetype fileSize = m_header.header().size() + compressed.size();
    m_header.setSize(static_cast<quint32>(fileSize));
    m_header.setOrigSize(static_cast<quint32>(content.size()));
    return m_header.header() + compressed;
}
