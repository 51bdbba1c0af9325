// ID3v2 tags for the tests of the MP3 header.
#pragma once

#include "formats/mp3header.h"
#include "support/songbytes.h"

namespace id3maker
{

using songbytes::id3Tag;

inline QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

/** The ten bytes of a tag header with these four size bytes. */
inline QByteArray tagHeader(const QByteArray &sizeBytes)
{
    return QByteArray("ID3\x03\x00\x00", 6) + sizeBytes;
}

/** A header that has loaded a tag of these frames, with some audio behind it. */
inline Mp3Header loaded(const QByteArray &frames)
{
    Mp3Header header;
    if (!header.loadHeader(id3Tag(frames) + "\xFF\xFB audio"))
        qFatal("a tag made for a test was refused");
    return header;
}

/** The tag is as long as the size in its header says. */
inline bool isConsistent(const Mp3Header &header)
{
    return header.stream().size() ==
           static_cast<qsizetype>(header.getId3TagSize(header.stream())) + 10;
}

using TextReader = QString (Mp3Header::*)() const;
using Presence = bool (Mp3Header::*)() const;
using TextWriter = void (Mp3Header::*)(const QString &);

struct TextItem {
    const char *frame;
    TextReader read;
    Presence has;
    TextWriter write;
};

inline const TextItem textItems[] = {
    {"TIT2", &Mp3Header::title, &Mp3Header::hasTitle, &Mp3Header::setTitle},
    {"TPE1", &Mp3Header::artist, &Mp3Header::hasArtist, &Mp3Header::setArtist},
    {"TCON", &Mp3Header::genre, &Mp3Header::hasGenre, &Mp3Header::setGenre},
    {"TCOM", &Mp3Header::author, &Mp3Header::hasAuthor, &Mp3Header::setAuthor},
    {"TKEY", &Mp3Header::key, &Mp3Header::hasKey, &Mp3Header::setKey},
};

} // namespace id3maker
