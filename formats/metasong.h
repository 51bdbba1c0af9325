// The one entry point through which the rest of the program reads and writes song files.
#pragma once

#include "formats/mfxfile.h"
#include "formats/midisong.h"
#include "formats/mp3song.h"
#include "formats/savefailure.h"
#include "formats/songinfo.h"
#include "formats/songmeasure.h"

#include <QString>
#include <QStringList>

#include <variant>

class QFile;

/**
 * One song file of any supported format: MIDI, MFX or MP3.
 *
 * The format is recognised by the file's first bytes. The metadata is read from and merged into
 * the data in memory; only saveToFile touches the disk. A value type: a copy is a song of its own.
 */
class MetaSong
{
public:
    /**
     * Loads a song file; what was loaded before is forgotten. False, with nothing loaded, for
     * anything but a readable, regular file in one of the formats. A MIDI or MFX file is held in
     * memory whole and may have up to 64 MiB; of an MP3 file, of whatever size, only the tag is
     * held (it has to lie within the first 1000000 bytes). A song whose last save was cut off gets
     * its old bytes back first; where that fails it is not loaded. Nor is one that another program
     * saves meanwhile.
     */
    bool importFile(const QString &path);

    /** True when importFile() failed because another program was saving the song. */
    bool wasInUse() const { return m_isInUse; }

    /** True for a large file that importFile reads and unpacks as a whole. */
    static bool takesLongToImport(const QString &path);

    /**
     * True for a file that begins as one of the formats does, whether or not importFile can load
     * it; false as well when it cannot be opened.
     */
    static bool hasKnownFormat(const QString &path);

    /** The same of an open file, which stays where it is. */
    static bool hasKnownFormat(QFile &file);

    /** Fills the record from the loaded song; an item that the song does not hold is empty or 0. */
    void getSongInfo(SongInfo &info) const;

    /**
     * What the music of the loaded song says of itself. Of an MP3 it is the length alone, and the
     * audio is read from the file that was imported; 0 when it is gone.
     */
    SongMeasure measure() const;

    /**
     * Merges the record into the loaded song, in memory. With manual true the user has edited the
     * record: every item but the markers is written as it stands. With manual false the record
     * comes from the catalogue, and most items that the song already has stay.
     */
    void setSongInfo(const SongInfo &info, bool manual);

    /**
     * Replaces the markers of the loaded song, in memory; an MP3 has none. To be called before
     * setSongInfo(), so that the other items stand before them: the player's index looks at the
     * first bytes of a song only.
     */
    void setMarkers(const QList<Marker> &markers);

    /**
     * False when saveToFile would refuse any file: nothing is loaded, or more data than a file of
     * the format can hold.
     */
    bool canBeSaved() const { return isComplete() && canBeReadAgain(); }

    /**
     * Writes the loaded song to the file, which is created when there is none. An MP3 gets the
     * audio of the file that was imported. False when nothing is loaded or the file could not be
     * written; an old file at the path is then as it was, byte for byte.
     */
    bool saveToFile(const QString &path) { return save(path) == SaveFailure::None; }

    /** As saveToFile(); returns why the file could not be written, None when it was. */
    SaveFailure save(const QString &path);

    /** Adds a marker, at a bar as the user counts, to the MIDI data (for the debug panel). */
    void dbgAddMarker(const QString &text, unsigned short bar);

    /** "MIDI", "MF3", "MF4", "MF5", "MP3", or "UNKNOWN" for any other value. */
    static QString getFormatString(SongInfo::fileTypeEnum type);

    /** The names of the keys that a song can have, in the order of their MIDI key signatures. */
    static QStringList getKeysList();

    /** Clears the flag by which macOS keeps a file from being changed; elsewhere nothing. */
    static void removeReadOnlyFlag(const QString &path);

private:
    /** Stands in for a song while no file is loaded. */
    struct NoSong {
        bool load(QFile & /*file*/) { return false; }
        SongInfo::fileTypeEnum fileType() const { return SongInfo::FileUnknown; }
        void read(SongInfo & /*info*/) const {}
        SongMeasure measure() const { return {}; }
        void merge(const SongMerge & /*merge*/) {}
        void setMarkers(const QList<Marker> & /*markers*/) {}
        int addMarker(const QString & /*text*/, quint16 /*bar*/) { return 0; }
        bool isComplete() const { return false; }
        bool canBeReadAgain() const { return false; }
        SaveFailure save(const QString & /*path*/) { return SaveFailure::Other; }
    };

    /**
     * One class for each format, with the same functions: load() fills it from a file that begins
     * as the format does, read() the record from it, measure() the music, merge() writes a record
     * into it, setMarkers() replaces markers, addMarker() tells how many bytes a marker took.
     * isComplete() and canBeReadAgain() are false for data that no file may hold, save() writes the
     * file of the others.
     */
    using Song = std::variant<NoSong, MidiSong, MfxFile, Mp3Song>;

    static Song songBeginningWith(const QByteArray &start, const QString &path);
    bool isComplete() const;
    bool canBeReadAgain() const;

    QString m_fileName;
    Song m_song;
    bool m_isInUse = false;
};
