#include "devindex/songhead.h"

#include "devindex/devicetext.h"
#include "devindex/indexrecords.h"
#include "formats/bytetext.h"
#include "formats/id3frame.h"
#include "formats/mfxheader.h"
#include "formats/mfxlayout.h"
#include "formats/midimetaevent.h"
#include "formats/rawmidifile.h"
#include "storage/diagnostics.h"
#include "storage/songlayout.h"

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

constexpr int minimumSize = 5;

constexpr int id3SearchSize = 512; // how far from the start of the file frames are looked for

// The index takes texts and the marker flag of an MFX song from places that lie this many bytes
// behind the fields of the header. The index has always been made so, and the player shows it so.
constexpr qsizetype mfxShift = 16;

constexpr quint8 unknownContentBpm = 120;

// A song's first track begins behind the chunk that describes the file.
constexpr qsizetype firstEventOffset =
    songlayout::chunkHeaderSize + songlayout::midiHeadSize + songlayout::chunkHeaderSize;
constexpr quint32 microsecondsPerMinute = 60000000;
constexpr int tempoSize = 3;
constexpr quint8 maxDeltaByte = 128;

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
    const qsizetype shown = std::clamp<qsizetype>(length, 0, SongRecord::titleSize);
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
            if (pos < 0 || pos >= id3SearchSize)
                return;
            Frame *const frame = wantedFrameAt(pos);
            if (frame == nullptr) {
                ++pos;
                continue;
            }
            if (pos + Id3FrameLayout::headerSize > m_head.size())
                return;
            const qint64 size =
                qFromBigEndian<quint32>(m_head.constData() + pos + Id3FrameLayout::sizePos);
            const qint64 end = pos + Id3FrameLayout::headerSize + size;
            if (end >= m_head.size())
                return;
            setUnlessEmpty(*frame->text, textAt(m_head, pos + Id3FrameLayout::textPos, size - 1));
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
        constexpr auto statusByte = static_cast<char>(MidiMetaEvent::statusByte);
        qsizetype pos = firstEventOffset;
        while (!allFound()) {
            pos = m_head.indexOf(statusByte, pos);
            // A running delta time of more than one byte: the events of the head are over.
            if (pos < 0 || byteAt(m_head, pos - 1) > maxDeltaByte)
                return;
            if (pos + MidiMetaEvent::dataPos > m_head.size())
                return;
            const qsizetype length = byteAt(m_head, pos + MidiMetaEvent::lengthPos);
            const qsizetype end = pos + MidiMetaEvent::dataPos + length;
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

    /** True when the search goes on behind the event, whose data lie within the head. */
    bool take(qsizetype pos, qsizetype length)
    {
        const qsizetype data = pos + MidiMetaEvent::dataPos;
        switch (byteAt(m_head, pos + MidiMetaEvent::typePos)) {
        case MidiMetaEvent::CopyrightNotice:
            return true;
        case MidiMetaEvent::TrackName:
            return takeText(m_entry.title, m_hasTitle, data, length);
        case MidiMetaEvent::Marker:
            return takeMarker();
        case MidiMetaEvent::Kravo:
            return length > 0 && takeMakerText(data, length);
        case MidiMetaEvent::Tempo:
            return length >= tempoSize && takeTempo(data);
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
        case RawMidiFile::KravoArtist:
            return takeText(m_entry.artist, m_hasArtist, data + 1, length - 1);
        case RawMidiFile::KravoGenre:
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
        m_entry.bpm = static_cast<quint8>(microsecondsPerMinute / microseconds);
        return true;
    }

    QByteArrayView m_head;
    SongInfoIndex &m_entry;
    bool m_hasTitle = false;
    bool m_hasArtist = false;
    bool m_hasGenre = false;
};

QString mfxTextAt(QByteArrayView header, mfxlayout::Field field)
{
    return textAt(header, field.offset + mfxShift, SongRecord::titleSize);
}

void readMfx(QByteArrayView head, quint8 fileType, SongInfoIndex &entry)
{
    const QByteArrayView start =
        head.first(std::min<qsizetype>(head.size(), mfxlayout::headerSize));
    const QByteArray header = start.toByteArray().leftJustified(mfxlayout::headerSize, '\0');
    entry.fileType = fileType;
    entry.bpm = byteAt(header, mfxlayout::tempo.offset);
    entry.hasMarkers = byteAt(header, mfxlayout::flags.offset + mfxShift) == 1 ? 1 : 0;
    setUnlessEmpty(entry.title, mfxTextAt(header, mfxlayout::title));
    setUnlessEmpty(entry.artist, mfxTextAt(header, mfxlayout::artist));
    setUnlessEmpty(entry.genre, mfxTextAt(header, mfxlayout::genre));
}

void readByContent(QByteArrayView head, SongInfoIndex &entry)
{
    switch (MfxHeader::typeOf(head)) {
    case SongInfo::FileMf3:
        return readMfx(head, SongInfoIndex::Mf3, entry);
    case SongInfo::FileMf4:
        return readMfx(head, SongInfoIndex::Mf4, entry);
    case SongInfo::FileMf5:
        return readMfx(head, SongInfoIndex::Mf5, entry);
    default:
        break;
    }
    if (head.startsWith(songlayout::midiMagic))
        MidiScan(head, entry).run();
    else
        entry.bpm = unknownContentBpm;
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

// Uses the system's calls: QFile makes several more of them for each file, which doubles the time
// for tens of thousands of songs.
SongHead songHeadOf(const QString &path, SongHeadBuffer &buffer)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        logWarning() << "[songHeadOf] Impossible to read song" << path;
        return {};
    }
    struct stat status {
    };
    // Some regular files have size 0 but can be read for ever, or block for ever.
    const bool isKnown = ::fstat(file, &status) == 0;
    const auto wanted =
        static_cast<qsizetype>(std::min<qint64>(isKnown ? status.st_size : 0, songHeadSize));
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
    const qint64 filled = file.read(buffer.data(), std::min<qint64>(file.size(), songHeadSize));
    return {{buffer.data(), static_cast<qsizetype>(std::max<qint64>(filled, 0))},
            FileStamp::of(path)};
}

#endif

bool readSongHead(QByteArrayView head, const QString &fileName, SongInfoIndex &entry)
{
    const QString name = fileName.mid(fileName.lastIndexOf(QLatin1Char('/')) + 1);
    setDefaults(name, entry);
    if (head.size() < minimumSize)
        return false;
    if (name.endsWith(QLatin1String(".MP3"), Qt::CaseInsensitive)) {
        entry.fileType = SongInfoIndex::Mp3;
        if (head.startsWith(songlayout::id3Magic))
            Id3Scan(head, entry).run();
    } else {
        readByContent(head, entry);
    }
    for (QString *const text : {&entry.title, &entry.artist, &entry.genre})
        *text = stringToUpper(std::move(*text)).trimmed();
    return true;
}
