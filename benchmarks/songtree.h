// A memory full of small songs, made for a benchmark.
#pragma once

#include "support/songbytes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace songtree
{

using namespace songbytes;

inline QByteArray text(const char *beginning, int number)
{
    return beginning + QByteArray::number(number);
}

inline QByteArray midiSong(int number)
{
    const QByteArray head =
        metaEvent(3, text("Song title ", number * 7919 % 100003)) + metaEvent(2, "(c) somebody") +
        kravoEvent(2, text("Artist ", number % 1500)) + kravoEvent(1, text("Genre ", number % 20)) +
        metaEvent(0x51, bigEndian(500000, 3));
    QByteArray music;
    while (music.size() < 6000)
        music += notes();
    return midiFile({track(head + music)});
}

inline QByteArray mp3Song(int number)
{
    return id3Tag(id3Frame("TIT2", text("Song title ", number * 7919 % 100003)) +
                  id3Frame("TPE1", text("Artist ", number % 1500)) +
                  id3Frame("TCON", text("Genre ", number % 20))) +
           QByteArray(6000, '\xAA');
}

inline QByteArray mfxSong(int number)
{
    QByteArray song = "_MF4" + QByteArray(4092, '\0');
    const QByteArray title = text("Song title ", number * 7919 % 100003);
    song.replace(138, title.size(), title);
    return song;
}

} // namespace songtree

/** A memory full of songs in folders, some with accents in their names. */
class SongTree
{
public:
    SongTree(const QString &place, int songs)
        : m_folder(place + QStringLiteral("/bench_memory"))
        , m_songs(songs)
    {
        fill(root(), songs);
    }

    /** Puts that many songs below a folder. */
    static void fill(const QString &root, int songs)
    {
        for (int i = 0; i < songs; ++i) {
            if (i % songsPerFolder == 0)
                QDir(root).mkpath(folderOf(i));
            const int kind = i % 10;
            if (kind < 6)
                write(root, i, "mid", songtree::midiSong(i));
            else if (kind < 9)
                write(root, i, "mp3", songtree::mp3Song(i));
            else
                write(root, i, "mf4", songtree::mfxSong(i));
        }
    }

    QString root() const { return m_folder.path(); }
    int songs() const { return m_songs; }

private:
    static constexpr int songsPerFolder = 200;

    static QString folderOf(int song)
    {
        return QStringLiteral("%1%2")
            .arg(song % 3 == 0 ? QStringLiteral("è") : QStringLiteral("f"))
            .arg(song / songsPerFolder);
    }

    static void write(const QString &root, int song, const char *suffix, const QByteArray &bytes)
    {
        const int first = song / songsPerFolder * songsPerFolder;
        QFile file(QStringLiteral("%1/%2/s%3.%4")
                       .arg(root, folderOf(first))
                       .arg(song)
                       .arg(QString::fromUtf8(suffix)));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            qFatal("cannot make the songs: is the disk full?");
    }

    QTemporaryDir m_folder;
    int m_songs;
};
