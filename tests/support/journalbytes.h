// Songs and their journals, byte by byte.
#pragma once

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QString>

namespace journalbytes
{

constexpr int headerSize = 60;

inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

inline void makeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot make a file for a test");
}

inline QByteArray bigEndian(quint32 value)
{
    return QByteArray::fromHex(QByteArray::number(value, 16).rightJustified(8, '0'));
}

/** A MIDI file of one track, whole by its own account; each kind differs from the others. */
inline QByteArray song(int size, char kind)
{
    QByteArray body;
    for (int i = 22; i < size; ++i)
        body.append(static_cast<char>(kind + i % 50));
    return "MThd" + bigEndian(6) + QByteArray::fromHex("000000010060") + "MTrk" +
           bigEndian(static_cast<quint32>(body.size())) + body;
}

/** A journal with these fields, its checksum right. */
inline QByteArray journalWith(quint32 oldSize, quint32 newSize, quint32 start, quint32 end,
                              const QByteArray &body)
{
    const QByteArray head = "KvSongJr" + bigEndian(2) + bigEndian(oldSize) + bigEndian(newSize) +
                            bigEndian(start) + bigEndian(end);
    return head + QCryptographicHash::hash(head + body, QCryptographicHash::Sha256) + body;
}

/** A journal that leads from the old bytes to the new ones; both are stored whole. */
inline QByteArray journalOf(const QByteArray &old, const QByteArray &written)
{
    return journalWith(static_cast<quint32>(old.size()), static_cast<quint32>(written.size()), 0, 0,
                       old + written);
}

/** The same without the new bytes, as the program's first version wrote it. */
inline QByteArray firstJournalOf(const QByteArray &old, int newSize)
{
    const QByteArray sizes =
        bigEndian(static_cast<quint32>(old.size())) + bigEndian(static_cast<quint32>(newSize));
    return "KvSongJr" + bigEndian(1) + sizes +
           QCryptographicHash::hash(sizes + old, QCryptographicHash::Sha256) + old;
}

} // namespace journalbytes
