// Writes the reference catalogue's data into the songs of the library.
#pragma once

#include "formats/songinfo.h"
#include "library/answer.h"
#include "library/cataloguemerge.h"
#include "library/database.h"
#include "library/historyrecorder.h"
#include "library/progress.h"
#include "library/runreport.h"
#include "library/songtable.h"
#include "storage/leftovers.h"

#include <QString>
#include <QStringList>

#include <functional>

/**
 * One run goes through all rows of the library table: each song that the catalogue knows gets the
 * catalogue's data, is read again, and its row shows what the file now holds. The colour of the row
 * tells the outcome; a song that could not be read or written gets a mark and is in the report. The
 * workflow has no window: it asks and reports through the functions that it is given.
 */
class Synchronisation
{
public:
    /** Offers a backup; false means that no file may be changed. */
    using OfferBackup = std::function<bool()>;

    /** Asks whether a file without the publisher's signature may be changed. */
    using AskUnsigned = std::function<Answer(const QString &fileName)>;

    /** The database and the model must outlive the object. */
    Synchronisation(const Database &database, SongTable &model, OfferBackup offerBackup,
                    AskUnsigned askUnsigned, OpenProgress openProgress);

    /** Where the songs are kept before they are changed; without it they are not. */
    void setHistory(OpenHistory openHistory) { m_openHistory = std::move(openHistory); }

    /**
     * Synchronises the whole library. copyrightAsk: whether the user is asked about each file
     * without the publisher's signature; otherwise these files are changed like the others. Returns
     * false when the library is empty, the backup was refused, there can be no history that the
     * user wants, or the user stopped the run: the rows already done then keep their outcome, the
     * others are as before.
     */
    bool run(bool copyrightAsk);

    /**
     * Synchronises one row, asking first if the last run's answers still require it. Returns true
     * when the song was found in the catalogue, whether or not its file could be written; false
     * when its file cannot be read, the user declined, or the catalogue does not know it: the file
     * is then untouched. The row's status is left to the caller.
     */
    bool updateFileWithDb(int row);

    /** What the last run() came to, also when the user stopped it. */
    struct Outcome {
        int found = 0;       ///< songs that the catalogue knows and that were to be changed
        int left = 0;        ///< songs that could not be read or that the user did not want changed
        QStringList unknown; ///< the files of the songs that the catalogue does not know
    };
    const Outcome &outcome() const { return m_outcome; }

    /** The problems of the last run(), also when the user stopped it. */
    const RunReport &report() const { return m_report; }

private:
    bool runRows(int rows, Progress &progress);
    bool updateRow(int row);
    bool keepNextSongs(int row, int rows);
    bool keepSong(const QString &fileName);
    void keepFailure(int row, const QString &fileName, SaveFailure failure);
    bool mayChange(const SongInfo &info, const QString &fileName);

    const CatalogueMerge m_catalogue;
    SongTable &m_model;
    OfferBackup m_offerBackup;
    AskUnsigned m_askUnsigned;
    OpenProgress m_openProgress;
    OpenHistory m_openHistory;
    std::unique_ptr<HistoryRecorder> m_history; ///< of the run; null without one
    bool m_isRefused = false;                   ///< the user does not go on without a history
    Leftovers m_leftovers;                      ///< of the last run
    RememberedAnswer m_changeUnsigned = RememberedAnswer::toAll(true);
    RunReport m_report;
    Outcome m_outcome;
};
