// MP3 files whose texts the player cannot show.
#pragma once

#include "formats/mp3preparation.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QDir>
#include <QString>

namespace tagsofothers
{

/** The content of a text frame in UTF-16. */
inline QByteArray utf16(const QString &text)
{
    QByteArray bytes("\1\xFF\xFE", 3);
    for (const QChar unit : text)
        bytes += songbytes::littleEndian(unit.unicode(), 2);
    return bytes;
}

inline QByteArray frame(const QByteArray &id, const QByteArray &content)
{
    return id + songbytes::bigEndian(static_cast<quint64>(content.size()), 4) +
           QByteArray(2, '\0') + content;
}

/** What stands for the audio. */
inline QByteArray audio()
{
    return QByteArray("\xFF\xFB\x90\x44", 4) + QByteArray(2000, 'a');
}

/** A file with these texts in UTF-16. */
inline QByteArray song(const QString &title, const QString &artist = {})
{
    QByteArray frames = frame("TIT2", utf16(title));
    if (!artist.isEmpty())
        frames += frame("TPE1", utf16(artist));
    const auto size = static_cast<int>(frames.size());
    return QByteArray("ID3\3\0\0\0\0", 8) + static_cast<char>(size >> 7) +
           static_cast<char>(size & 0x7F) + frames + audio();
}

/** An old tag with a frame that no later version has. */
inline QByteArray oldSong()
{
    return QByteArray("ID3\2\0\0\0\0\0\x12TT2\0\0\2\0ACRM\0\0\4abc\0", 28) + audio();
}

/** Of two files in the folder. */
inline QList<Mp3Preparation> preparations(const QString &folder)
{
    QList<Mp3Preparation> made;
    const QString czech = QDir(folder).filePath(QStringLiteral("zvon.mp3"));
    const QString old = QDir(folder).filePath(QStringLiteral("old.mp3"));
    samplesongs::writeFile(czech,
                           song(QString::fromUtf8("Čárový zvon"), QString::fromUtf8("Řehoř")));
    samplesongs::writeFile(old, oldSong());
    for (const QString &path : {czech, old}) {
        if (const auto preparation = Mp3Preparation::of(path))
            made.append(*preparation);
    }
    return made;
}

} // namespace tagsofothers
