#include "formats/metasong.h"

#include "formats/lzhuff.h"
#include "formats/mp3edit.h"
#include "storage/diagnostics.h"
#include "storage/songfilewriter.h"

#include <QFile>
#include <QFileInfo>
#ifdef Q_OS_MACOS
#include <QProcess>
#endif

#include <algorithm>
#include <optional>

namespace
{

constexpr int magicSize = 4;
constexpr char midiMagic[] = "MThd";
constexpr char mfxMagic[] = "_MF"; ///< the variant's digit follows
constexpr char id3Magic[] = "ID3";

/** No MFX header is longer; how long it is, the header itself knows. */
constexpr qint64 longestMfxHeader = 1024;

// The MIDI data of an "_MF4" file hold three more bytes, uncounted, at the head of the first track.
constexpr char trackMagic[] = "MTrk";
constexpr qsizetype trackHeaderSize = 8;
constexpr char mf4TrackHead[] = "\xFF\x00\xFF";
constexpr qsizetype mf4TrackHeadSize = 3;

/**
 * Files that are held in memory whole may not be larger. A MIDI cable carries 3125 bytes a second:
 * this would keep it busy for almost six hours, so no song is refused, but a disk image that
 * happens to begin like one is.
 */
constexpr qint64 largestFileInMemory = qint64{64} * 1024 * 1024;

/** How much of an MP3 file is searched for its tag. */
constexpr qint64 mp3StartSize = 1000000;

/** The second byte of an MP3 frame has to be greater than this, both taken as signed. */
constexpr auto mp3SyncLimit = static_cast<qint8>(0xF2);

/** Opens a file for reading; a device or a pipe would deliver without end, or never. */
bool openRegularFile(QFile &file)
{
    return QFileInfo(file.fileName()).isFile() && file.open(QFile::ReadOnly);
}

/**
 * Reads from here to the end. False when not everything could be read: a song that was loaded in
 * part would lose the rest when it is saved.
 */
bool readToEnd(QFile &file, QByteArray &bytes)
{
    const qint64 left = file.size() - file.pos();
    if (left < 0 || left > largestFileInMemory) {
        logDebug() << "[MetaSong::importFile] file too large for a song, skipping file";
        return false;
    }
    bytes = file.read(left);
    return bytes.size() == left;
}

/** Loads the tag of an MP3 file, which stands at its start. */
bool loadTag(QFile &file, Mp3Header &header)
{
    const qint64 most = std::min(file.size(), mp3StartSize);
    const auto readUpTo = [&file, most](QByteArray &bytes, qint64 size) {
        bytes += file.read(std::min(most, size) - bytes.size());
        return bytes.size() == std::min(most, size);
    };
    QByteArray start;
    if (!readUpTo(start, Mp3Header::HeaderSize))
        return false;
    const qint64 tagSize = start.startsWith(id3Magic) ? header.getId3TagSize(start) : 0;
    if (!readUpTo(start, Mp3Header::HeaderSize + tagSize + Mp3Header::FooterSize) ||
        !header.loadHeader(start))
        return false;
    // The size that a tag tells leaves out its own ten bytes and a footer: its end can lie just
    // behind.
    const qsizetype missing =
        qsizetype{header.getAudioDataStartPos()} + Mp3Header::FooterSize - start.size();
    return missing <= 0 || header.loadHeader(start + file.read(missing));
}

bool isMp3Start(const QByteArray &start)
{
    if (start.startsWith(id3Magic))
        return true;
    if (start.size() < 2)
        return false;
    const auto first = static_cast<quint8>(start.at(0));
    const auto second = static_cast<qint8>(start.at(1));
    return (first == 0xFF && second > mp3SyncLimit) || (first == 0 && second == 0);
}

bool mayBeMp3(const QString &path, const QByteArray &start)
{
    return path.toUpper().endsWith(QLatin1String("MP3")) && isMp3Start(start);
}

bool removeMf4TrackHead(QByteArray &midi)
{
    const qsizetype track = midi.indexOf(trackMagic);
    const qsizetype head = track + trackHeaderSize;
    if (track < 0 || head + mf4TrackHeadSize > midi.size())
        return false;
    midi.remove(head, mf4TrackHeadSize);
    return true;
}

/** The header has exactly the size of its variant. */
bool isWholeHeader(const MfxHeader &header)
{
    MfxHeader copy;
    return copy.loadHeader(header.header()) && copy.header().size() == header.header().size();
}

/** The text fields of an MFX header are filled with dashes where the song has no such item. */
bool isDash(const QString &text)
{
    return text == QLatin1String("-") || text == QLatin1String("--");
}

bool isEmptyOrDash(const QString &text)
{
    return text.isEmpty() || isDash(text);
}

/** The song's title is the beginning of the catalogue's: it was cut at some time. */
bool isShortened(const QString &title, const QString &catalogueTitle)
{
    return catalogueTitle.toUpper().startsWith(title.toUpper());
}

/** The artist that the catalogue gives to a song; none when the song's artist is to stay. */
std::optional<QString> mergedArtist(bool hasArtist, const QString &artist, const SongInfo &info)
{
    const QString &preferred = info.altArtist.isEmpty() ? info.artist : info.altArtist;
    if (!hasArtist)
        return preferred;
    if (artist == info.altArtist)
        return std::nullopt;
    return artist == info.artist ? preferred : info.artist;
}

// MIDI data and MP3 tags keep the same items under the same names.

template <typename Tags>
void readItems(const Tags &tags, SongInfo &info)
{
    info.title = tags.title();
    info.artist = tags.artist();
    info.author = tags.author();
    info.genre = tags.genre();
    info.userBpm = tags.userBpm();
    info.key = tags.key();
    info.length = tags.length();
    info.isKravo = tags.isKravo();
}

/**
 * Writes the items that the song lacks. What it has is asked before the first one is written: the
 * readers search plain bytes and could take a written text for an event of another kind.
 */
template <typename Tags>
void fillItems(Tags &tags, const SongInfo &info, bool setsTitle)
{
    const std::optional<QString> artist = mergedArtist(tags.hasArtist(), tags.artist(), info);
    const bool setsAuthor = !tags.hasAuthor();
    const bool setsGenre = !tags.hasGenre();
    const bool setsUserBpm = !tags.hasUserBpm() && info.userBpm >= 0 && info.isKravo;
    const bool setsKey = !tags.hasKey() && info.isKravo;
    const bool setsLength = !tags.hasLength() && info.length >= 0 && info.isKravo;

    if (setsTitle)
        tags.setTitle(info.title);
    if (artist)
        tags.setArtist(*artist);
    if (setsAuthor)
        tags.setAuthor(info.author);
    if (setsGenre)
        tags.setGenre(info.genre);
    if (setsUserBpm)
        tags.setUserBpm(info.userBpm);
    if (setsKey)
        tags.setKey(info.key);
    if (setsLength)
        tags.setLength(info.length);
}

const char *messageFor(SongFileWriter::Outcome outcome)
{
    switch (outcome) {
    case SongFileWriter::Outcome::CannotOpen:
        return "[MetaSong::saveToFile] Impossible to write to file. Maybe it's write protected? "
               "Aborting!";
    case SongFileWriter::Outcome::CannotWrite:
        return "[MetaSong::saveToFile] Impossible to write to file.";
    case SongFileWriter::Outcome::CannotSeek:
        return "[MetaSong::saveToFile] Impossible to seek file.";
    case SongFileWriter::Outcome::CannotCopy:
        return "[MetaSong::saveToFile] Impossible to copy part of file.";
    case SongFileWriter::Outcome::CannotReplace:
        return "[MetaSong::saveToFile] Impossible to replace the old file.";
    case SongFileWriter::Outcome::Done:
        break;
    }
    return "";
}

} // namespace

bool MetaSong::importFile(const QString &path)
{
    *this = MetaSong();
    QFile file(path);
    // The program may have ended in the middle of the song's last save.
    if (!SongFileWriter::recover(path))
        return false;
    if (!openRegularFile(file)) {
        logDebug() << "[MetaSong::importFile] Impossible to read file:" << path;
        return false;
    }

    const QByteArray start = file.peek(magicSize);
    bool loaded = false;
    if (start == midiMagic)
        loaded = importMidi(file);
    else if (start.startsWith(mfxMagic))
        loaded = importMfx(file);
    else if (mayBeMp3(path, start))
        loaded = importMp3(file);

    if (!loaded) {
        *this = MetaSong();
        return false;
    }
    m_fileName = path;
    return true;
}

bool MetaSong::hasKnownFormat(const QString &path)
{
    QFile file(path);
    if (!openRegularFile(file))
        return false;
    const QByteArray start = file.peek(magicSize);
    return start == midiMagic || start.startsWith(mfxMagic) || mayBeMp3(path, start);
}

bool MetaSong::takesLongToImport(const QString &path)
{
    constexpr qint64 large = 1000000;
    const bool isReadWhole = !path.endsWith(QLatin1String(".mp3"), Qt::CaseInsensitive);
    return isReadWhole && QFileInfo(path).size() > large;
}

bool MetaSong::importMidi(QFile &file)
{
    QByteArray bytes;
    if (!readToEnd(file, bytes) || !m_midi.loadData(bytes))
        return false;
    m_fileType = m_midi.fileType();
    return true;
}

bool MetaSong::importMfx(QFile &file)
{
    if (!m_mfxHeader.loadHeader(file.peek(longestMfxHeader)) ||
        !file.seek(m_mfxHeader.header().size()))
        return false;
    QByteArray compressed;
    if (!readToEnd(file, compressed))
        return false;

    QByteArray midi;
    if (!LzHuff().expand(compressed, midi)) {
        logDebug() << "[MetaSong::importFile] LzHuff Expand filed, skipping file";
        return false;
    }
    const bool hasTrackHead = m_mfxHeader.fileType() == SongInfo::FileMf4;
    if ((hasTrackHead && !removeMf4TrackHead(midi)) || !m_midi.loadData(midi)) {
        logDebug() << "[MetaSong::importFile] MidiStream corrupted, skipping file";
        return false;
    }
    m_fileType = m_mfxHeader.fileType();
    return true;
}

bool MetaSong::importMp3(QFile &file)
{
    if (!loadTag(file, m_mp3Header))
        return false;
    m_fileType = m_mp3Header.fileType();
    return true;
}

void MetaSong::getSongInfo(SongInfo &info) const
{
    info.clear();
    info.format = getFormatString(m_fileType);
    info.fileName = m_fileName;
    info.shortName = QFileInfo(m_fileName).fileName();
    if (m_fileType == SongInfo::FileMp3) {
        readItems(m_mp3Header, info);
    } else if (isMidi()) {
        readItems(m_midi, info);
        info.markers = m_midi.markersList();
    } else if (isMfx()) {
        readMfx(info);
    }
}

void MetaSong::readMfx(SongInfo &info) const
{
    info.title = m_mfxHeader.title();
    info.artist = m_mfxHeader.artist();
    info.author = m_mfxHeader.author();
    info.genre = m_mfxHeader.genre();
    info.userBpm = m_mfxHeader.tempo();
    info.mfxLongName = m_mfxHeader.longName();
    info.mfxFlags = static_cast<quint8>(m_mfxHeader.flags());
    info.key = m_midi.key();
    info.length = m_midi.length();
    info.markers = m_midi.markersList();
}

void MetaSong::setSongInfo(const SongInfo &info, bool manual)
{
    logDebug() << "[MetaSong] setSongInfo,"
               << "manual: " << manual;
    if (isMidi())
        setMidiInfo(info, manual);
    else if (isMfx())
        setMfxInfo(info, manual);
    else if (m_fileType == SongInfo::FileMp3)
        setMp3Info(info, manual);
}

void MetaSong::setMidiInfo(const SongInfo &info, bool manual)
{
    if (manual) {
        m_midi.setTitle(info.title);
        m_midi.setArtist(info.artist);
        m_midi.setAuthor(info.author);
        m_midi.setGenre(info.genre);
        m_midi.setUserBpm(info.userBpm);
        m_midi.setKey(info.key);
        m_midi.setLength(info.length);
        return;
    }
    const bool setsTitle = !m_midi.hasTitle() || isShortened(m_midi.title(), info.title);
    const bool setsMarkers = !m_midi.hasMarkers();
    fillItems(m_midi, info, setsTitle);
    if (setsMarkers)
        addMarkers(info.markers);
}

void MetaSong::setMp3Info(const SongInfo &info, bool manual)
{
    if (manual)
        writeEditedItems(m_mp3Header, info);
    else
        fillItems(m_mp3Header, info, !m_mp3Header.hasTitle());
    if (!m_mp3Header.hasKavenaEditParam())
        m_mp3Header.setKavenaEditParam();
}

void MetaSong::setMfxInfo(const SongInfo &info, bool manual)
{
    if (manual) {
        m_mfxHeader.setTitle(info.title);
        m_mfxHeader.setArtist(info.artist);
        m_mfxHeader.setAuthor(info.author);
        m_mfxHeader.setGenre(info.genre);
        m_mfxHeader.setTempo(info.userBpm);
        m_midi.setKey(info.key);
        m_midi.setLength(info.length);
    } else {
        fillMfxHeader(info);
        fillMfxPayload(info);
    }
    if (!info.markers.isEmpty())
        m_mfxHeader.setFlag(MfxHeader::MarkersFlag);
}

void MetaSong::fillMfxHeader(const SongInfo &info)
{
    if (isEmptyOrDash(m_mfxHeader.title()))
        m_mfxHeader.setTitle(info.title);
    fillMfxArtist(info);
    if (isEmptyOrDash(m_mfxHeader.author()))
        m_mfxHeader.setAuthor(info.author);
    if (isEmptyOrDash(m_mfxHeader.genre()))
        m_mfxHeader.setGenre(info.genre);
    if (!m_mfxHeader.hasValidTempo() && info.userBpm >= 0)
        m_mfxHeader.setTempo(info.userBpm);
}

void MetaSong::fillMfxArtist(const SongInfo &info)
{
    const QString artist = m_mfxHeader.artist();
    // A dash gives way to the alternative artist even where the catalogue has none: the player
    // then shows no artist at all. Where it is the alternative artist, it stays like any other.
    if (isDash(artist) && artist != info.altArtist) {
        m_mfxHeader.setArtist(info.altArtist);
        return;
    }
    const auto merged = mergedArtist(m_mfxHeader.hasArtist(), artist, info);
    if (merged)
        m_mfxHeader.setArtist(*merged);
}

void MetaSong::fillMfxPayload(const SongInfo &info)
{
    const bool setsKey = !m_midi.hasKey() && info.isKravo;
    const bool setsLength = !m_midi.hasLength() && info.length >= 0 && info.isKravo;
    const bool setsMarkers = !m_midi.hasMarkers();
    if (setsKey)
        m_midi.setKey(info.key);
    if (setsLength)
        m_midi.setLength(info.length);
    if (setsMarkers)
        addMarkers(info.markers);
}

/** Writing markers removes the author; a song must not lose its author by getting markers. */
void MetaSong::addMarkers(const QList<Marker> &markers)
{
    if (markers.isEmpty())
        return;
    const bool hadAuthor = m_midi.hasAuthor();
    const QString author = m_midi.author();
    m_midi.setMarkersList(markers);
    const bool authorStays = m_midi.hasAuthor() && m_midi.author() == author;
    if (hadAuthor && !authorStays)
        m_midi.setAuthor(author);
}

SaveFailure MetaSong::save(const QString &path)
{
    if (!isComplete()) {
        logDebug() << "[MetaSong::saveToFile] UNKNOWN format (or data corrupted) in memory, "
                      "aborting";
        return SaveFailure::Other;
    }
    if (!canBeReadAgain()) {
        logDebug() << "[MetaSong::saveToFile] Too much data for the format, aborting";
        return SaveFailure::TooLarge;
    }
    return m_fileType == SongInfo::FileMp3 ? saveMp3(path) : saveInPlace(path);
}

bool MetaSong::isComplete() const
{
    if (m_fileType == SongInfo::FileMp3)
        return true;
    if (isMfx() && !isWholeHeader(m_mfxHeader))
        return false;
    return (isMidi() || isMfx()) && !m_midi.stream().isEmpty();
}

/** A file beyond the limits that an import has could never be opened again. */
bool MetaSong::canBeReadAgain() const
{
    if (m_fileType == SongInfo::FileMp3)
        return m_mp3Header.getId3TagSize(m_mp3Header.stream()) <= mp3StartSize;
    if (isMfx())
        return mfxPayload().size() <= qsizetype{LzHuff::MaxTextSize};
    return m_midi.stream().size() <= largestFileInMemory;
}

SaveFailure MetaSong::saveInPlace(const QString &path)
{
    removeReadOnlyFlag(path);
    SongFileWriter writer(path);
    if (!writer.open()) {
        logDebug() << messageFor(SongFileWriter::Outcome::CannotOpen);
        return saveFailureFrom(writer.systemError(), path);
    }
    logDebug() << (isMfx() ? "[MetaSong::saveToFile] MFx" : "[MetaSong::saveToFile] MIDI");
    if (!writer.replaceBytes(isMfx() ? mfxFileBytes() : m_midi.stream())) {
        logDebug() << messageFor(SongFileWriter::Outcome::CannotWrite);
        return saveFailureFrom(writer.systemError(), path);
    }
    return SaveFailure::None;
}

/** The MIDI data as they are compressed into an MFX file. */
QByteArray MetaSong::mfxPayload() const
{
    QByteArray midi = m_midi.stream();
    if (m_fileType == SongInfo::FileMf4)
        midi.insert(m_midi.trackStart(), mf4TrackHead, mf4TrackHeadSize);
    return midi;
}

/** The whole MFX file; the header learns its sizes. */
QByteArray MetaSong::mfxFileBytes()
{
    const QByteArray payload = mfxPayload();
    QByteArray compressed;
    LzHuff().compress(payload, compressed);
    const qsizetype fileSize = m_mfxHeader.header().size() + compressed.size();
    m_mfxHeader.setSize(static_cast<quint32>(fileSize));
    m_mfxHeader.setOrigSize(static_cast<quint32>(payload.size()));
    return m_mfxHeader.header() + compressed;
}

SaveFailure MetaSong::saveMp3(const QString &path) const
{
    removeReadOnlyFlag(path);
    QFile source(m_fileName);
    if (!openRegularFile(source)) {
        logDebug() << "[MetaSong::saveToFile] Impossible to read from file.";
        return loadFailureOf(m_fileName);
    }
    // Where the audio begins is asked of the file as it is now: an earlier save of this song, or of
    // a copy of it, has moved it.
    Mp3Header onDisk;
    if (!loadTag(source, onDisk)) {
        logDebug() << messageFor(SongFileWriter::Outcome::CannotSeek);
        return loadFailureOf(m_fileName);
    }
    SongFileWriter writer(path);
    const auto outcome =
        writer.replaceThroughTemporary(m_mp3Header.stream(), source, onDisk.getAudioDataStartPos());
    if (outcome == SongFileWriter::Outcome::Done)
        return SaveFailure::None;
    logDebug() << messageFor(outcome);
    return saveFailureFrom(writer.systemError(), path);
}

void MetaSong::dbgAddMarker(const QString &text, unsigned short bar)
{
    logDebug() << "[MetaSong] addMarker";
    logDebug() << "Marker added, len= " << m_midi.dbgInsertMarker(text, bar);
    logDebug() << "-----------------------------------";
    logDebug() << "";
}

QString MetaSong::getFormatString(SongInfo::fileTypeEnum type)
{
    switch (type) {
    case SongInfo::FileMidi0:
    case SongInfo::FileMidi1:
        return QStringLiteral("MIDI");
    case SongInfo::FileMf3:
        return QStringLiteral("MF3");
    case SongInfo::FileMf4:
        return QStringLiteral("MF4");
    case SongInfo::FileMf5:
        return QStringLiteral("MF5");
    case SongInfo::FileMp3:
        return QStringLiteral("MP3");
    case SongInfo::FileUnknown:
        break;
    }
    return QStringLiteral("UNKNOWN");
}

QStringList MetaSong::getKeysList()
{
    return RawMidiFile().getKeysList();
}

void MetaSong::removeReadOnlyFlag(const QString &path)
{
#ifdef Q_OS_MACOS
    constexpr int longestWait = 60000;
    QProcess chflags;
    chflags.start(QStringLiteral("chflags"), {QStringLiteral("nouchg"), path});
    if (chflags.waitForFinished(longestWait))
        logDebug() << "remove read only flag: OK";
    else
        logDebug() << "remove read only flag: ERROR";
#else
    Q_UNUSED(path)
#endif
}

bool MetaSong::isMidi() const
{
    return m_fileType == SongInfo::FileMidi0 || m_fileType == SongInfo::FileMidi1;
}

bool MetaSong::isMfx() const
{
    return m_fileType == SongInfo::FileMf3 || m_fileType == SongInfo::FileMf4 ||
           m_fileType == SongInfo::FileMf5;
}
