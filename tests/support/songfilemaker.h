// Song files of every format for the tests of the song file facade. MFX payloads are packed and
// unpacked by the tests' own coder.
#pragma once

#include "formats/metasong.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/lzhufreference.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace songfilemaker
{

using songbytes::id3Frame;
using songbytes::id3Tag;
using songbytes::kravoEvent;
using songbytes::littleEndian;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;

inline const QByteArray audio =
    QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(700, '\x5A') + "the end";

inline QString latin1(const QByteArray &text)
{
    return QString::fromLatin1(text);
}

inline QByteArray midi(const QByteArray &events, int format = 0)
{
    return midiFile({track(events + notes())}, format);
}

/** The fields of an MFX header that the tests set; the rest is filled with a pattern. */
struct MfxFields {
    QByteArray title;
    QByteArray author;
    QByteArray artist;
    QByteArray genre;
    int tempo = 120;
    char flags = 0;
};

inline qsizetype mfxHeaderSize(const QByteArray &magic)
{
    return magic == "_MF5" ? 1024 : 512;
}

inline QByteArray mfxHeader(const QByteArray &magic, const MfxFields &fields)
{
    QByteArray header(mfxHeaderSize(magic), '\x77');
    const auto put = [&header](int offset, const QByteArray &bytes, int size) {
        header.replace(offset, size, bytes.leftJustified(size, '\0'));
    };
    put(0, magic, 4);
    put(38, littleEndian(static_cast<quint32>(fields.tempo), 2), 2);
    put(42, "LONGNAME.MF3", 13);
    put(90, "(c) someone", 20);
    put(122, fields.title, 32);
    put(154, "editor", 31);
    put(185, QByteArray(1, fields.flags), 1);
    put(186, fields.author, 32);
    put(218, fields.artist, 32);
    put(250, fields.genre, 32);
    return header;
}

/** An MFX file with this payload as it stands (an "_MF4" one with its three bytes included). */
inline QByteArray mfxFile(const QByteArray &magic, const QByteArray &payload,
                          const MfxFields &fields = {})
{
    lzhufreference::StreamWriter writer(lzhufreference::mfxLookAhead);
    lzhufreference::encode(payload, lzhufreference::mfxLookAhead, writer);
    const auto size = static_cast<quint32>(payload.size());
    QByteArray file = mfxHeader(magic, fields) + littleEndian(size, 4) + writer.bytes();
    file.replace(4, 4, littleEndian(static_cast<quint32>(file.size()), 4));
    file.replace(12, 4, littleEndian(size, 4));
    return file;
}

inline quint32 littleEndianAt(const QByteArray &bytes, qsizetype pos)
{
    quint32 value = 0;
    for (int i = 3; i >= 0; --i)
        value = (value << 8) | static_cast<quint8>(bytes.at(pos + i));
    return value;
}

inline QByteArray payloadOf(const QByteArray &mfx)
{
    const qsizetype stream = mfxHeaderSize(mfx.left(4));
    const qsizetype size = littleEndianAt(mfx, stream);
    return lzhufreference::decode(mfx.mid(stream + 4), size, lzhufreference::mfxLookAhead).text;
}

/** The MIDI data with the three bytes that stand in an "_MF4" payload. */
inline QByteArray withTrackHead(QByteArray midiBytes)
{
    midiBytes.insert(midiBytes.indexOf("MTrk") + 8, QByteArray("\xFF\x00\xFF", 3));
    return midiBytes;
}

/** The items of a song file; a null text is not in the file at all. */
struct Items {
    QByteArray title;
    QByteArray artist;
    QByteArray author;
    QByteArray genre;
    QByteArray userBpm;
    QByteArray key; ///< two bytes in MIDI data, a name in a tag
    QByteArray length;
};

inline QByteArray midiEvents(const Items &items)
{
    QByteArray events;
    if (!items.title.isNull())
        events += metaEvent(0x03, items.title);
    if (!items.artist.isNull())
        events += kravoEvent(2, items.artist);
    if (!items.author.isNull())
        events += kravoEvent(3, items.author);
    if (!items.genre.isNull())
        events += kravoEvent(1, items.genre);
    if (!items.userBpm.isNull())
        events += kravoEvent(5, items.userBpm);
    if (!items.key.isNull())
        events += metaEvent(0x59, items.key);
    if (!items.length.isNull())
        events += kravoEvent(4, items.length);
    return events;
}

inline QByteArray tagFrames(const Items &items)
{
    QByteArray frames;
    const auto add = [&frames](const char *id, const QByteArray &text) {
        if (!text.isNull())
            frames += id3Frame(id, text);
    };
    add("TIT2", items.title);
    add("TPE1", items.artist);
    add("TCOM", items.author);
    add("TCON", items.genre);
    add("TBPM", items.userBpm);
    add("TKEY", items.key);
    add("TLEN", items.length);
    return frames;
}

/** A song file of the format with these items; MFX files keep the texts and the tempo in the
 * header, the rest in the payload. */
inline QByteArray songFile(const QString &format, const Items &items)
{
    if (format == QLatin1String("MIDI"))
        return midi(midiEvents(items));
    if (format == QLatin1String("MP3"))
        return id3Tag(tagFrames(items)) + audio;
    MfxFields fields;
    fields.title = items.title;
    fields.author = items.author;
    fields.artist = items.artist;
    fields.genre = items.genre;
    fields.tempo = items.userBpm.toInt();
    Items inPayload;
    inPayload.key = items.key;
    inPayload.length = items.length;
    const QByteArray payload = midi(midiEvents(inPayload));
    if (format == QLatin1String("MF4"))
        return mfxFile("_MF4", withTrackHead(payload), fields);
    return mfxFile("_" + format.toLatin1(), payload, fields);
}

inline QString fileNameFor(const QString &format)
{
    return QStringLiteral("song.") +
           (format == QLatin1String("MIDI") ? QStringLiteral("mid") : format.toLower());
}

inline SongInfo infoOf(const MetaSong &song)
{
    SongInfo info;
    song.getSongInfo(info);
    return info;
}

/** A record with everything in it. */
inline SongInfo fullRecord()
{
    SongInfo info;
    info.title = QStringLiteral("Blue Moon");
    info.artist = QStringLiteral("The Band");
    info.author = QStringLiteral("Bach");
    info.genre = QStringLiteral("Pop");
    info.length = 215;
    info.userBpm = 128;
    info.key = QStringLiteral("E -");
    info.isKravo = true;
    info.markers = {{1, QStringLiteral("Intro")}, {9, QStringLiteral("Verse")}};
    return info;
}

inline const char *const writeProtected =
    "[MetaSong::saveToFile] Impossible to write to file. Maybe it's "
    "write protected? Aborting! ";
inline const char *const cannotWrite = "[MetaSong::saveToFile] Impossible to write to file. ";
inline const char *const unknownFormat =
    "[MetaSong::saveToFile] UNKNOWN format (or data corrupted) in memory, aborting ";

inline bool logged(const char *line)
{
    return LogCapture::contains(QString::fromLatin1(line));
}

/** The column "format" with a row for each format of song files. */
inline void everyFormat()
{
    QTest::addColumn<QString>("format");
    for (const char *format : {"MIDI", "MF3", "MF4", "MF5", "MP3"})
        QTest::newRow(format) << latin1(format);
}

/** Song files in a temporary folder. */
class SongFileFixture : public QObject
{
protected:
    void init();

    QString path(const QString &name) const { return m_dir->filePath(name); }
    QString make(const QString &name, const QByteArray &bytes) const
    {
        if (!samplesongs::writeFile(path(name), bytes))
            qFatal("cannot make a file for a test");
        return path(name);
    }
    QString make(const char *name, const QByteArray &bytes) const
    {
        return make(QString::fromUtf8(name), bytes);
    }
    MetaSong imported(const QString &file) const
    {
        MetaSong song;
        if (!song.importFile(file))
            qFatal("a song made for a test was refused");
        return song;
    }
    QStringList files() const
    {
        return QDir(m_dir->path())
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    }

    QScopedPointer<QTemporaryDir> m_dir;
};

inline void SongFileFixture::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
}

} // namespace songfilemaker
