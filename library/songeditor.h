// Changes, hides and deletes single songs of the library at the user's request.
#pragma once

#include "formats/metasong.h"
#include "formats/songinfo.h"
#include "library/database.h"
#include "library/historyrecorder.h"
#include "library/progress.h"
#include "library/runreport.h"
#include "library/songtable.h"

#include <QList>
#include <QPersistentModelIndex>
#include <QString>

#include <functional>
#include <optional>

/** What the user entered for one song, and which of it all the other songs get too. */
struct SongEdit {
    SongInfo info;
    bool titleToAll = false; ///< each other song gets its own file name as its title
    bool artistToAll = false;
    bool genreToAll = false;
    bool authorToAll = false;

    /** True when other songs get something of it, too. */
    bool concernsOthers() const { return titleToAll || artistToAll || genreToAll || authorToAll; }

    /** Gives the data of another song, whose file lies at the path, what all songs get. */
    void applyToOther(SongInfo &other, const QString &path) const;
};

/**
 * The workflows behind a double click and the menu of a row. They have no window: they ask and
 * report through the functions that they are given.
 */
class SongEditor
{
public:
    /** Lets the user change the song; nothing when he cancels. */
    using AskEdit = std::function<std::optional<SongEdit>(const SongInfo &info)>;

    /** Asks whether the file may be deleted; the default answer must be no. */
    using AskDelete = std::function<bool()>;

    /** The model must outlive the object. */
    SongEditor(SongTable &model, AskEdit askEdit, AskDelete askDelete, OpenProgress openProgress);

    /** Takes a deleted file; false when it is where it was, and has to be removed. */
    using TakeDeleted = std::function<bool(const QString &path)>;

    /** What takes deleted files; without it they are gone for good. */
    void setBin(TakeDeleted take) { m_takeDeleted = std::move(take); }

    /** Where the songs are kept before they are changed; without it they are not. */
    void setHistory(OpenHistory openHistory) { m_openHistory = std::move(openHistory); }

    /**
     * Lets the user change the row's song and writes it, and then all other songs where he asked
     * for it. Returns true when something was written, so that the row is worth scrolling to;
     * false, with nothing changed, for a row that does not exist, a file that cannot be read, or
     * when the user cancelled.
     */
    bool edit(int row);

    /**
     * Writes the data into the song, saves it to the path and shows in the row what the file then
     * holds. The row counts as edited even when the save failed; if the file cannot be read again
     * the row keeps its texts. A song that was not saved gets a mark and is in the report.
     */
    void manualModifySong(MetaSong song, const SongInfo &info, const QString &path, int row);

    /** Removes the row from the table; the song's file stays. */
    void removeFromList(int row);

    /**
     * After asking, deletes the row's file and removes the row, also when the file could not be
     * deleted. Returns the path of a file that is gone now, which must leave every other list of
     * files too; empty when the user declined, the row does not exist or the file is still there.
     */
    QString deleteFile(int row);

    /** The problems of the songs that this object had to write. */
    const RunReport &report() const { return m_report; }

private:
    void write(MetaSong song, const SongInfo &info, const QString &path, int row);
    bool keepSong(const QString &path);
    void keepFailure(int row, const QString &path, SaveFailure failure);
    void applyToAll(const SongEdit &edit, int editedRow);
    bool applyToRow(const SongEdit &edit, int row);

    bool keepNextSongs(const QList<QPersistentModelIndex> &songs, int place, int editedRow);

    SongTable &m_model;
    AskEdit m_askEdit;
    AskDelete m_askDelete;
    OpenProgress m_openProgress;
    TakeDeleted m_takeDeleted;
    OpenHistory m_openHistory;
    std::unique_ptr<HistoryRecorder> m_history; ///< of the job that runs; null without one
    RunReport m_report;
    bool m_changesMany = false; ///< if not, the dialog has shown the lost characters
};
