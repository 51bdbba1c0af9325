// The records of the player's index files and playlists, as bytes and as values.
#pragma once

#include <QByteArray>
#include <QString>

#include <array>

/**
 * A record of the path file: which file a record number stands for. 64 bytes: id (4, big-endian),
 * path (46, IBM 850, zero-terminated), modification date (8 decimal digits) and time (6).
 */
struct PathRecord {
    static constexpr int size = 64;
    static constexpr int textOffset = 4;
    static constexpr int maxPathLength = 45;
    static constexpr int textSize = maxPathLength + 1;
    static constexpr int digitsOffset = textOffset + textSize; ///< of date and time
    static constexpr int digitsSize = size - digitsOffset;
    static constexpr quint32 maxDate = 99991231;
    using Bytes = std::array<char, size>;

    quint32 id = 0;
    QString path;
    quint32 date = 0;
    quint32 time = 0;

    /** A path that is too long is cut; a date or time of too many digits loses the first ones. */
    Bytes encode() const;

    /** Reads `size` bytes. Digits that are none make the whole date or time 0. */
    static PathRecord decode(const char *bytes);
};

/**
 * A song in a title, artist or genre file. 32 bytes: id (4, big-endian), title (26, Latin-1,
 * zero-padded), tempo, type (bits 0 to 2) with the marker flag (bit 3).
 */
struct SongRecord {
    static constexpr int size = 32;
    static constexpr int titleOffset = 4;
    static constexpr int titleSize = 26;
    static constexpr int typeOffset = 31;
    static constexpr int typeMask = 0x07; ///< the file's type; the marker flag is the next bit
    using Bytes = std::array<char, size>;

    quint32 id = 0;
    QString title;
    quint8 bpm = 0;
    quint8 fileType = 0;
    bool hasMarkers = false;

    /** A longer title is cut at titleSize bytes. */
    Bytes encode() const;

    /** Reads `size` bytes. */
    static SongRecord decode(const char *bytes);

    /** The id alone. */
    static quint32 idOf(const char *bytes);
};

/**
 * Stands before the songs of one artist or genre. 32 bytes: number of songs in the previous group
 * (2, big-endian), in this one (2), artist or genre (26, Latin-1, zero-padded), 0x00, 0xFF.
 */
struct GroupHeader {
    static constexpr int size = SongRecord::size;
    static constexpr int textOffset = 4;
    static constexpr int textSize = 26;
    static constexpr int zeroOffset = textOffset + textSize;
    using Bytes = std::array<char, size>;

    quint16 previousCount = 0;
    quint16 count = 0;
    QString text;

    /** A longer text is cut at textSize bytes. */
    Bytes encode() const;

    /** Reads `size` bytes. */
    static GroupHeader decode(const char *bytes);

    /** True when these `size` bytes are a header and not a song. */
    static bool isHeader(const char *bytes);
};

/** A record of the list of playlists. 32 bytes, of which the first two are the playlist's number.
 */
struct PlaylistListRecord {
    static constexpr int size = 32;

    /**
     * The number in the names of the playlist's files. The player takes the low byte as signed:
     * from 0x80 on it lowers the number by 256.
     */
    static quint16 number(const char *bytes);
};

/** A song of a playlist. 32 bytes: id (4, big-endian); the others are the player's own. */
struct PlaylistSongRecord {
    static constexpr int size = 32;

    static quint32 id(const char *bytes);
    static void setId(char *bytes, quint32 id);
};

/** A song of a playlist by path: 64 bytes, Latin-1, zero-terminated and zero-padded. */
struct PlaylistPathRecord {
    static constexpr int size = 64;
    using Bytes = std::array<char, size>;

    static Bytes encode(const QString &path);
    static QString decode(const char *bytes);
};

/**
 * The file of counts. 12 bytes: six numbers (2, little-endian): songs, artists and genres of all
 * songs, then of the MP3 songs.
 */
struct CountRecord {
    static constexpr int size = 12;
    using Bytes = std::array<char, size>;

    std::array<quint32, 6> values{};

    /** Of each number the low 16 bits are kept. */
    Bytes encode() const;
};

/** A value of the order file: a record number (2, little-endian). */
struct OrderValue {
    static constexpr int size = 2;

    static void encode(char *bytes, quint16 posidx);
};

/**
 * Where in a title, artist or genre file each first letter begins. 256 bytes: offsets (4,
 * big-endian) for the characters 0x20 to 0x5F; 0xFFFFFFFF for a letter that no text begins with.
 */
struct AlphaTable {
    static constexpr int size = 256;
    static constexpr ushort firstCode = 0x20;
    static constexpr quint32 emptySlot = 0xFFFFFFFF;
    using Bytes = std::array<char, size>;

    Bytes bytes{};

    /** Takes every letter out. */
    void clear();

    /**
     * Notes the offset for the text's first character in upper case, unless it has one already. A
     * character without a slot is passed over.
     */
    void add(const QString &text, qint64 offset);
};
