// One song of the player's index, and the orders in which the index files list the songs.
#pragma once

#include <QString>

struct SongInfoIndex {
    QString title;         ///< upper case, trimmed; by default the file name
    QString artist;        ///< upper case, trimmed; by default "<unknown>"
    QString genre;         ///< upper case, trimmed; by default "<unknown>"
    quint32 id = 0;        ///< given once on a memory, never renumbered; see removedId
    quint8 fileType = 0;   ///< one of FileTypeEnum
    quint8 bpm = 0;        ///< beats per minute
    quint8 reserved = 0;   ///< always 0
    quint8 hasMarkers = 0; ///< 1 when the song carries section markers
    QString fullPath;      ///< absolute path on the computer
    QString path;          ///< path on the memory, beginning with "/"
    quint16 posidx = 0;    ///< record number in the path file
    quint32 date = 0;      ///< file modification date, year * 10000 + month * 100 + day
    quint32 time = 0;      ///< file modification time, hour * 10000 + minute * 100 + second

    /** Values of fileType; the player knows them. */
    enum FileTypeEnum : quint8 { Midi = 0, Mp3 = 1, Mf3 = 2, Mf4 = 3, Mf5 = 4 };

    /** The id of an entry whose file has gone. */
    static constexpr quint32 removedId = 0xFFFFFFFF;

    /** At most this many songs stand on a memory: record numbers and counts have 16 bits. */
    static constexpr int maxSongs = 65535;
};
Q_DECLARE_TYPEINFO(SongInfoIndex, Q_RELOCATABLE_TYPE);

/** An artist or genre as it is shown to people: empty where the player says "<unknown>". */
QString knownText(const QString &text);

/** True when the first entry's id is the lower one. */
bool compareById(const SongInfoIndex &first, const SongInfoIndex &second);

// Kept interface: the program sorts through entrysort.h, which makes the key of each text only
// once; other code may rely on these names. Each of them orders any two entries, whatever they
// hold.

/** True when the first entry stands before the second by record number. */
bool compareByPosidx(const SongInfoIndex &first, const SongInfoIndex &second);

/** True when the first title comes first, by code units and ignoring case. */
bool compareTitle(const SongInfoIndex &first, const SongInfoIndex &second);

/** True when the first artist comes first, or the title does and the artists are the same. */
bool compareArtist(const SongInfoIndex &first, const SongInfoIndex &second);

/** True when the first genre comes first, or the title does and the genres are the same. */
bool compareGenre(const SongInfoIndex &first, const SongInfoIndex &second);

/** True when the player lists the first path before the second; see pathSortKey. */
bool compareByPath(const SongInfoIndex &first, const SongInfoIndex &second);
