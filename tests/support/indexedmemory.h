// A memory with songs of each kind, for the tests of its index.
#pragma once

#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <optional>

namespace indexedmemory
{

using namespace songbytes;

inline QByteArray midi(const QByteArray &title, const QByteArray &artist = {},
                       const QByteArray &genre = {})
{
    QByteArray events = metaEvent(3, title) + metaEvent(0x51, bigEndian(500000, 3));
    if (!artist.isEmpty())
        events += kravoEvent(2, artist);
    if (!genre.isEmpty())
        events += kravoEvent(1, genre);
    return midiFile({track(events + notes())});
}

inline QByteArray mp3(const QByteArray &title, const QByteArray &artist, const QByteArray &genre)
{
    return id3Tag(id3Frame("TIT2", title) + id3Frame("TPE1", artist) + id3Frame("TCON", genre)) +
           QByteArray(500, '\xAA');
}

/** Songs of every kind, in folders, with accents; returns how many. */
inline int fill(const DeviceMemory &memory)
{
    memory.add(QStringLiteral("Azzurro.mid"), midi("Azzurro", "Celentano", "Pop"));
    memory.add(QStringLiteral("pop/Volare.kar"), midi("Volare", "Modugno", "Canzone"));
    memory.add(QStringLiteral("pop/Ciao.mp3"), mp3("Ciao", "Morandi", "Pop"));
    memory.add(QStringLiteral("pop/Notag.MP3"), QByteArray(200, '\xFB'));
    memory.add(QStringLiteral("città/Perché.mid"), midi("Perch\xE9", "\xC0lvaro", "Pop"));
    memory.add(QStringLiteral("città/ß_ÿ.mp3"), mp3("Stra\xDF"
                                                    "e",
                                                    "Mina", "\xC9tude"));
    memory.add(QStringLiteral("x/tiny.mid"), "tiny");
    QByteArray mfx = QByteArray("_MF4") + QByteArray(508, '\0');
    mfx.replace(138, 6, "Maruzz");
    mfx[201] = '\x01';
    memory.add(QStringLiteral("x/Maruz.mf4"), mfx);
    memory.add(QStringLiteral("x/notes.txt"), "no song");
    return 8;
}

/** The records of the path file: id and path. */
inline QStringList pathRecords(const DeviceMemory &memory)
{
    QStringList records;
    const QByteArray bytes = memory.read(QStringLiteral("index.idx"));
    for (qsizetype pos = 0; pos + 64 <= bytes.size(); pos += 64) {
        const int id = int(quint8(bytes.at(pos + 2))) * 256 + quint8(bytes.at(pos + 3));
        const QByteArray path = bytes.mid(pos + 4, 46);
        records.append(QStringLiteral("%1 %2").arg(id).arg(
            QString::fromLatin1(path.left(path.indexOf('\0')))));
    }
    return records;
}

/** Keeps the log of a test out of the output. */
class QuietIndexFixture : public QObject
{
protected:
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    std::optional<LogCapture> m_log;
};

} // namespace indexedmemory
