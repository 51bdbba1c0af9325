// What the index takes from the first bytes of a song file.
#pragma once

#include "devindex/filestamp.h"
#include "devindex/songinfoindex.h"

#include <QByteArrayView>
#include <QString>

#include <array>
#include <optional>

/** How much of a song file is looked at, in bytes. */
constexpr int songHeadSize = 3072;

/** Room for the head of a song; one for all songs saves as many allocations. */
using SongHeadBuffer = std::array<char, songHeadSize>;

struct SongHead {
    QByteArrayView bytes;
    std::optional<FileStamp> stamp; ///< of the file that was read; nothing when it is unreadable
};

/**
 * The first songHeadSize bytes of a regular file, or as many as its size says, in the buffer; empty
 * if it is unreadable.
 */
SongHead songHeadOf(const QString &path, SongHeadBuffer &buffer);

/**
 * Fills title, artist, genre and the four type bytes of entry from the first bytes of the song file
 * fileName (a name or a path). An extension "MP3" makes it an MP3, whose ID3v2 text frames are
 * read; otherwise the first four bytes tell an MFX file or a Standard MIDI File.
 *
 * What is missing or damaged gets its default: the file name, "<unknown>". Texts end in upper case
 * and trimmed. False when there are fewer than 5 bytes; the defaults then stand as they are.
 */
bool readSongHead(QByteArrayView head, const QString &fileName, SongInfoIndex &entry);
