// The player's index on a memory: building, updating and reading it.
#pragma once

#include "devindex/folderlisting.h"
#include "devindex/indexbuild.h"
#include "devindex/indexstate.h"
#include "devindex/itemrenamer.h"

#include <QObject>
#include <QString>

#include <functional>

class QFileInfo;
class RecordWriter;
class SongAdder;

/**
 * The player does not read folders: it finds its songs by a set of index files in the root of its
 * memory, which this class makes from the song files there.
 *
 * An object serves one operation: createIndex, updateIndex or saveSongsList. It runs in the calling
 * thread and reports through its signals. The work is done by MemoryScan, SongAdder and IndexBuild;
 * the steps and their state are open here so that each can be used and tested by itself. They work
 * below rootPath and on entries.
 *
 * While the index files are being written the file of counts is missing, so that an index that was
 * cut off, by a crash or by pulling the memory, never passes for a whole one.
 */
class Index : public QObject, public IndexState, private IndexObserver
{
    Q_OBJECT

public:
    /** How saveSongsList orders the songs. */
    enum SORT_MODE { SortByTitle = 0, SortByArtist = 1, SortByGenre = 2 };

    using RenameQuestion = ItemRenamer::Question;

    Index();

    /** Sets what asks before something is renamed; without it nothing is. */
    void setRenameQuestion(RenameQuestion question);

    /**
     * Sets what is asked between songs whether the user wants to stop. createIndex() and
     * updateIndex() then return false. Nothing of an index is written any more: an update leaves
     * the old one, a rebuild none. An index that is being written is finished.
     */
    void setStopQuestion(std::function<bool()> question) { m_stopQuestion = std::move(question); }

    /**
     * Builds the whole index of the memory from its files; the songs get new ids. False when no
     * complete index stands there afterwards: no songs, a full or protected memory. False, too,
     * when the playlists cannot be kept; where that shows before the build, the old index stays.
     */
    bool createIndex(const QString &root);

    /**
     * Brings the memory's index up to date: known songs keep id and place, files that are new or
     * were changed are read, songs that are gone are dropped. Nothing is written when nothing
     * changed. Without a complete index this is createIndex. False, with nothing written, when the
     * index that is there cannot be read.
     */
    bool updateIndex(const QString &root);

    /**
     * Like updateIndex(), after a change that takes songs from the memory. While that runs the file
     * of counts is missing, on the medium too: if it is cut off there is no index, and none that
     * lists songs that are gone. Songs that stay keep their ids, so that playlists keep their
     * songs. Where the counts cannot be taken away the change is not made. When it returns false,
     * since the medium does not take it, nothing is written, which could get the room of songs that
     * come back after a power cut; there is no index then until the next update.
     */
    bool updateIndexAfter(const QString &root, const std::function<bool()> &change);

    /** What became of a change of songs. */
    enum class Change {
        NotStarted,  ///< nothing was changed: the index cannot be read, or the memory not written
        Done,        ///< the songs were changed and the index is up to date
        NoSongsLeft, ///< they were changed, and there is nothing to make an index of
        NoIndex      ///< they were changed, and the memory has no index now
    };

    /**
     * Changes songs on the memory. An entry that gets a song's new path stays in the playlists.
     * False when the medium does not take the change: then nothing more is written to it.
     */
    using SongChange = std::function<bool(QList<SongInfoIndex> &entries)>;

    /**
     * Like updateIndexAfter(), for songs that are removed, renamed or rewritten: the old index is
     * read before, so that the change is not begun where it is damaged, and all songs keep their
     * ids. Where there was no complete index, the change gets no entries and a new index is built.
     */
    Change changeSongs(const QString &root, const SongChange &change);

    /**
     * Writes the songs of the memory's index as a table: title, artist, genre and path, each closed
     * by ";", in UTF-8. Returns 1; -1 when the memory has no complete index; 0 when the index
     * cannot be read, the file cannot be opened (one of that name then stays as it was) or not all
     * of it can be written (then none is left).
     */
    int saveSongsList(const QString &root, const QString &fileName, SORT_MODE mode);

    // The folders and the scan

    /** Makes the player's folders where they are missing. */
    void createKavenaDir();

    /**
     * Adds the songs of a folder and of all folders in it to entries. Names too long for the player
     * are shortened on the way. The player's own folders, those of operating systems and hidden
     * files are passed over; a folder that is being scanned already is not entered again through a
     * symbolic link.
     */
    void scan_files(const QString &dir);

    /** True for the suffix of a song file, in any case. */
    bool checkFileExt(const QString &suffix) const;

    /**
     * The path under which a file or folder is to be used: unchanged, or new after it was renamed;
     * empty when it cannot be used. The karaoke pictures of an MP3 are renamed with it. What a
     * symbolic link brings from outside the memory keeps its name, and so does, after
     * errorFromIndex, a song whose last save was cut off and cannot be undone.
     */
    QString renameLongFileName(const QString &path);

    /**
     * Adds a song to entries, which must be in path order, unless it is there already. A second
     * file whose name differs only in case counts as there; errorFromIndex reports it. False, after
     * errorFromIndex, when the song cannot be indexed.
     */
    bool addFileToIndex(const QFileInfo &fi);

    /** Fills what the index shows of a song from its file; 1, or 0 when there was nothing to read.
     */
    int setSongInfo(SongInfoIndex &e) const;

    // Kept interface: where a system has long and short names of one file, the player knows only
    // the short ones. Here both are the path itself, and only the list of songs asks.

    /** The form of a path that is shown. Null means that it has none. */
    QString getLongFileNamePath(const QString &path) const { return path; }

    /** The form of a path that the player knows. Null means that it has none. */
    QString getShortFileNamePath(const QString &path) const { return path; }

    // The index as a whole

    /** True when all index files are there. */
    bool checkIndexFile() const;

    /**
     * Removes the index files and what earlier builds may have left. False when the counts, without
     * which the others are no index, may still be there.
     */
    bool deleteIndex();

    /** Fills entries from the index files; negative, with entries empty, when they are damaged. */
    int loadAllIndexFile();

    /** Scans the memory and, if anything changed, writes the index files; all of them or none. */
    void createPathIndex();

    /** Reads what is new or changed, and marks the entries whose files are gone. */
    void createTitleIndex();

    /** Drops the marked entries and closes up the record numbers. */
    void removeDeletedItems();

    // The writers; each sorts entries. They return the number of records or groups, or 0 where
    // there is nothing to count, and -1 when the file could not be written whole. Kept interface:
    // a build writes the same bytes through IndexBuild, which sorts numbers instead of entries.

    int writePathIndex();
    int writeOrdIndex();
    int writeTitleIndex(const QString &name);
    int writeArtistIndex(const QString &name);
    int writeGenreIndex(const QString &name);
    int writeAlphaBuffer(const QString &name);
    int writeNumFile();

    /** Empties the table of first letters. */
    void clearAlphaBuffer();

    /** Notes a record's offset for the first letter of its text, unless the letter has one. */
    void addToAlphaBuffer(const QString &text, unsigned long offset);

    /** Drops every entry that is no MP3, for good. */
    void createMp3TitleIndex();

    // The playlists

    /** Saves the playlists' songs by path if that was not done before; true when it was done now.
     */
    bool createPlaylistFilePath();

    /** Writes the songs' present ids into the playlists. */
    void restorePlaylistFilePath();

signals:
    void errorFromIndex(const QString &message);
    void leftOut(const QString &message); ///< a file or folder whose name stayed too long
    void currentPathChanged(const QString &path);
    void progressValueChanged(int value);
    void progressMaxSetup(int maximum);
    void fileFoundChanged(int count);

private:
    void tellError(const QString &message) override { emit errorFromIndex(message); }
    void tellLeftOut(const QString &message) override { emit leftOut(message); }
    void tellCurrentPath(const QString &path) override { emit currentPathChanged(path); }
    void tellProgress(int value) override { emit progressValueChanged(value); }
    void tellMaximum(int maximum) override { emit progressMaxSetup(maximum); }
    void tellFilesFound(int count) override { emit fileFoundChanged(count); }
    bool wantsToStop() override;

    bool begin(const QString &root);
    bool update();
    bool hasIndexBut(QLatin1String missing) const;
    bool hasWholeIndex() const;
    bool keepPlaylists();
    void saveChangedPaths(const QList<quint16> &numbers);
    void scanInto(SongAdder &adder, const QString &dir, SongTimes times);
    void refreshEntries(const SongAdder *scanned);
    bool writeSongsList(RecordWriter &list);

    ItemRenamer m_renamer;
    IndexBuild m_build;
    std::function<bool()> m_stopQuestion;
    bool m_isStopped = false;
    bool m_buildFailed = false;
    bool m_playlistsFailed = false;
    bool m_pathsAreSaved = false; ///< the playlists' path files say more than the index on disk
};
