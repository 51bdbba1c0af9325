#include "devindex/songhead.h"

#include "devindex/devicetext.h"
#include "formats/bytetext.h"
#include "formats/id3frame.h"
#include "formats/midimetaevent.h"
#include "storage/diagnostics.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <array>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace
{

constexpr int MinimumSize = 5;
constexpr int MaxText = 26; // what a song record can show

// ID3v2: 10 bytes of frame header, then one byte that names the text's encoding.
constexpr int Id3SearchSize = 512;
constexpr int FrameSizeOffset = 4;
constexpr int FrameHeaderSize = 10;
constexpr int FrameTextOffset = 11;

// Where the index looks in an MFX header. These places are the index's own; what the player shows
// of an MFX song has always been taken from them.
constexpr int MfxBpmOffset = 38;
constexpr int MfxTitleOffset = 138;
constexpr int MfxMarkersOffset = 201;
constexpr int MfxArtistOffset = 234;
constexpr int MfxGenreOffset = 266;
constexpr int MfxHeadSize = 512;

constexpr quint8 UnknownContentBpm = 120;

// Standard MIDI File: meta events are FF, type, length, data.
constexpr int FirstEventOffset = 22;
constexpr int MetaDataOffset = 3;
constexpr quint32 MicrosecondsPerMinute = 60000000;
constexpr int TempoSize = 3;
constexpr quint8 MaxDeltaByte = 128;
enum MetaType : quint8 { MarkerEvent = 0x06, TempoEvent = 0x51 };
enum MakerSubType : quint8 { GenreSubType = 1, ArtistSubType = 2 };

QString unknownText()
{
    return QStringLiteral("<unknown>");
}

quint8 byteAt(QByteArrayView bytes, qsizetype pos)
{
    return static_cast<quint8>(bytes.at(pos));
}

/** Of a text that the bytes do not hold to its end, the part that they hold. */
QString textAt(QByteArrayView bytes, qsizetype pos, qsizetype length)
{
    if (pos >= bytes.size())
        return {};
    const qsizetype shown = std::clamp<qsizetype>(length, 0, MaxText);
    return textFromBytes(bytes.sliced(pos, std::min(shown, bytes.size() - pos)));
}

void setUnlessEmpty(QString &field, const QString &text)
{
    if (!text.isEmpty())
        field = text;
}

/** Reads the text frames of an ID3v2 tag by looking for their ids near the start of the file. */
class Id3Scan
{
public:
    Id3Scan(QByteArrayView head, SongInfoIndex &entry)
        : m_head(head)
        , m_frames{Frame{Id3FrameId::title, &entry.title}, Frame{Id3FrameId::artist, &entry.artist},
                   Frame{Id3FrameId::genre, &entry.genre}}
    {
    }

    void run()
    {
        qsizetype pos = 0;
        while (m_missing > 0) {
            pos = m_head.indexOf('T', pos);
            if (pos < 0 || pos >= Id3SearchSize)
                return;
            Frame *const frame = wantedFrameAt(pos);
            if (frame == nullptr) {
                ++pos;
                continue;
            }
            if (pos + FrameHeaderSize > m_head.size())
                return;
            const qint64 size = qFromBigEndian<quint32>(m_head.constData() + pos + FrameSizeOffset);
            const qint64 end = pos + FrameHeaderSize + size;
            if (end >= m_head.size())
                return;
            setUnlessEmpty(*frame->text, textAt(m_head, pos + FrameTextOffset, size - 1));
            frame->found = true;
            --m_missing;
            pos = end;
        }
    }

private:
    struct Frame {
        const char *id;
        QString *text;
        bool found = false;
    };

    Frame *wantedFrameAt(qsizetype pos)
    {
        for (Frame &frame : m_frames) {
            if (!frame.found && m_head.sliced(pos).startsWith(frame.id))
                return &frame;
        }
        return nullptr;
    }

    QByteArrayView m_head;
    std::array<Frame, 3> m_frames;
    int m_missing = 3;
};

/** Collects the first event of each kind that the index shows from a Standard MIDI File. */
class MidiScan
{
public:
    MidiScan(QByteArrayView head, SongInfoIndex &entry)
        : m_head(head)
        , m_entry(entry)
    {
    }

    void run()
    {
        qsizetype pos = FirstEventOffset;
        while (!allFound()) {
            pos = m_head.indexOf('\xFF', pos);
            // A running delta time of more than one byte: the events of the head are over.
            if (pos < 0 || byteAt(m_head, pos - 1) > MaxDeltaByte)
                return;
            if (pos + MetaDataOffset > m_head.size())
                return;
            const qsizetype length = byteAt(m_head, pos + 2);
            const qsizetype end = pos + MetaDataOffset + length;
            if (end > m_head.size())
                return;
            pos = take(pos, length) ? end : pos + 1;
        }
    }

private:
    bool allFound() const
    {
        return m_hasTitle && m_hasArtist && m_hasGenre && m_entry.hasMarkers != 0;
    }

    /** True when the event is one to go behind; its data lie within the head. */
    bool take(qsizetype pos, qsizetype length)
    {
        const qsizetype data = pos + MetaDataOffset;
        switch (byteAt(m_head, pos + 1)) {
        case MidiMetaEvent::CopyrightNotice:
            return true;
        case MidiMetaEvent::TrackName:
            return takeText(m_entry.title, m_hasTitle, data, length);
        case MarkerEvent:
            return takeMarker();
        case MidiMetaEvent::Kravo:
            return length > 0 && takeMakerText(data, length);
        case TempoEvent:
            return length >= TempoSize && takeTempo(data);
        default:
            return false;
        }
    }

    bool takeText(QString &field, bool &found, qsizetype data, qsizetype length)
    {
        if (found)
            return false;
        field = textAt(m_head, data, length);
        found = true;
        return true;
    }

    bool takeMarker()
    {
        if (m_entry.hasMarkers != 0)
            return false;
        m_entry.hasMarkers = 1;
        return true;
    }

    bool takeMakerText(qsizetype data, qsizetype length)
    {
        switch (byteAt(m_head, data)) {
        case ArtistSubType:
            return takeText(m_entry.artist, m_hasArtist, data + 1, length - 1);
        case GenreSubType:
            return takeText(m_entry.genre, m_hasGenre, data + 1, length - 1);
        default:
            return false;
        }
    }

    bool takeTempo(qsizetype data)
    {
        const quint32 microseconds = quint32(byteAt(m_head, data)) << 16 |
                                     quint32(byteAt(m_head, data + 1)) << 8 |
                                     quint32(byteAt(m_head, data + 2));
        if (m_entry.bpm != 0 || microseconds == 0)
            return false;
        m_entry.bpm = static_cast<quint8>(MicrosecondsPerMinute / microseconds);
        return true;
    }

    QByteArrayView m_head;
    SongInfoIndex &m_entry;
    bool m_hasTitle = false;
    bool m_hasArtist = false;
    bool m_hasGenre = false;
};

void readMfx(QByteArrayView head, quint8 fileType, SongInfoIndex &entry)
{
    const QByteArrayView start = head.first(std::min<qsizetype>(head.size(), MfxHeadSize));
    const QByteArray header = start.toByteArray().leftJustified(MfxHeadSize, '\0');
    entry.fileType = fileType;
    entry.bpm = byteAt(header, MfxBpmOffset);
    entry.hasMarkers = byteAt(header, MfxMarkersOffset) == 1 ? 1 : 0;
    setUnlessEmpty(entry.title, textAt(header, MfxTitleOffset, MaxText));
    setUnlessEmpty(entry.artist, textAt(header, MfxArtistOffset, MaxText));
    setUnlessEmpty(entry.genre, textAt(header, MfxGenreOffset, MaxText));
}

void readByContent(QByteArrayView head, SongInfoIndex &entry)
{
    if (head.startsWith("_MF3"))
        readMfx(head, SongInfoIndex::Mf3, entry);
    else if (head.startsWith("_MF4"))
        readMfx(head, SongInfoIndex::Mf4, entry);
    else if (head.startsWith("_MF5"))
        readMfx(head, SongInfoIndex::Mf5, entry);
    else if (head.startsWith("MThd"))
        MidiScan(head, entry).run();
    else
        entry.bpm = UnknownContentBpm;
}

void setDefaults(const QString &fileName, SongInfoIndex &entry)
{
    entry.title = fileName;
    entry.artist = unknownText();
    entry.genre = unknownText();
    entry.fileType = SongInfoIndex::Midi;
    entry.bpm = 0;
    entry.reserved = 0;
    entry.hasMarkers = 0;
}

} // namespace

#ifdef Q_OS_UNIX

// Asks the system for nothing but the bytes: with tens of thousands of songs the questions that
// QFile asks about each file double the time.
SongHead songHeadOf(const QString &path, SongHeadBuffer &buffer)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        logWarning() << "[songHeadOf] Impossible to read song" << path;
        return {};
    }
    struct stat status {
    };
    // Some regular files have no size and can be read for ever, or wait for ever to be read.
    const bool isKnown = ::fstat(file, &status) == 0;
    const auto wanted =
        static_cast<qsizetype>(std::min<qint64>(isKnown ? status.st_size : 0, SongHeadSize));
    qsizetype filled = 0;
    while (filled < wanted) {
        const ssize_t count =
            ::read(file, buffer.data() + filled, static_cast<std::size_t>(wanted - filled));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break;
        filled += count;
    }
    ::close(file);
    SongHead head{{buffer.data(), filled}, std::nullopt};
    if (isKnown)
        head.stamp = FileStamp::at(status.st_mtime);
    return head;
}

#else

SongHead songHeadOf(const QString &path, SongHeadBuffer &buffer)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        logWarning() << "[songHeadOf] Impossible to read song" << path;
        return {};
    }
    const qint64 filled = file.read(buffer.data(), std::min<qint64>(file.size(), SongHeadSize));
    return {{buffer.data(), static_cast<qsizetype>(std::max<qint64>(filled, 0))},
            FileStamp::of(path)};
}

#endif

bool readSongHead(QByteArrayView head, const QString &fileName, SongInfoIndex &entry)
{
    const QString name = fileName.mid(fileName.lastIndexOf(QLatin1Char('/')) + 1);
    setDefaults(name, entry);
    if (head.size() < MinimumSize)
        return false;
    if (name.endsWith(QLatin1String(".MP3"), Qt::CaseInsensitive)) {
        entry.fileType = SongInfoIndex::Mp3;
        if (head.startsWith("ID3"))
            Id3Scan(head, entry).run();
    } else {
        readByContent(head, entry);
    }
    for (QString *const text : {&entry.title, &entry.artist, &entry.genre})
        *text = stringToUpper(std::move(*text)).trimmed();
    return true;
}
