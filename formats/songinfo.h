// What the program knows about one song, whatever the format of its file.
#pragma once

#include "formats/marker.h"
#include "formats/tagtrouble.h"

#include <QList>
#include <QString>

/** One song's metadata. Empty text or 0 means that the item is not known. */
class SongInfo
{
public:
    /** File formats; the readers report these numbers, so they are fixed. */
    enum fileTypeEnum {
        FileUnknown = 0,
        FileMidi0 = 1, ///< Standard MIDI File, format 0
        FileMidi1 = 2, ///< Standard MIDI File, format 1
        FileMf3 = 3,   ///< MFX container, magic "_MF3"
        FileMf4 = 4,   ///< MFX container, magic "_MF4"
        FileMf5 = 5,   ///< MFX container, magic "_MF5"
        FileMp3 = 6    ///< MP3 with an ID3v2 tag
    };

    /** Sets every field back to its default. */
    void clear();

    /** Writes the record to the log, one line an item. */
    void dbgDump() const;

    QString title;
    QString artist;
    QString altArtist; ///< filled by the catalogue only; no song file stores it
    QString genre;
    QString author;
    qint32 length = 0;     ///< seconds
    qint32 userBpm = 0;    ///< tempo chosen for the song, beats per minute
    QString key;           ///< key name, such as "E" or "A-"
    QString fileName;      ///< full path of the song file
    QString shortName;     ///< file name without its folder
    bool isKravo = false;  ///< the file carries the publisher's signature
    QList<Marker> markers; ///< section markers in the order of the file
    QString format;        ///< format name as MetaSong::getFormatString gives it
    QString mfxLongName;   ///< long file name from an MFX header
    quint8 mfxFlags = 0;   ///< flags byte of an MFX header
    TagTroubles troubles;  ///< why the player cannot show what the tags of an MP3 file say
};
