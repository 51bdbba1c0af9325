#include "library/synchronisation.h"

#include "formats/metasong.h"
#include "library/keepalive.h"
#include "library/songupdate.h"
#include "storage/diagnostics.h"

#include <QCoreApplication>
#include <QPersistentModelIndex>

#include <algorithm>

namespace
{

void logStartOfUpdate()
{
    logDebug() << "============================================";
    logDebug() << "          UPDATE USER LIBRARY";
    logDebug() << "============================================";
}

void logEndOfRow()
{
    logDebug() << "==========================================================================";
    logDebug() << "";
}

} // namespace

Synchronisation::Synchronisation(const Database &database, SongTable &model,
                                 OfferBackup offerBackup, AskUnsigned askUnsigned,
                                 OpenProgress openProgress)
    : m_catalogue(database)
    , m_model(model)
    , m_offerBackup(std::move(offerBackup))
    , m_askUnsigned(std::move(askUnsigned))
    , m_openProgress(std::move(openProgress))
{
}

bool Synchronisation::run(bool copyrightAsk)
{
    logStartOfUpdate();
    m_report = {};
    m_outcome = {};
    const int rows = m_model.goodRowCount();
    if (rows < 1) {
        logDebug() << "[UPDATE] WARNING: Empty table. Aborting update !!!";
        return false;
    }
    if (!m_offerBackup())
        return false;

    const auto progress =
        m_openProgress(QCoreApplication::translate("MainWindow", "Aggiornamento file"),
                       QCoreApplication::translate("MainWindow", "Aggiorno la libreria..."), rows);
    m_changeUnsigned = copyrightAsk ? RememberedAnswer() : RememberedAnswer::toAll(true);
    m_leftovers = {};
    m_isRefused = false;
    m_history = m_openHistory ? m_openHistory(HistoryJob::Kind::Synchronise) : nullptr;
    const bool done = runRows(rows, *progress);
    m_history.reset();
    return done;
}

bool Synchronisation::runRows(int rows, Progress &progress)
{
    for (int row = 0; row < rows; ++row) {
        if (progress.wasCanceled() || !keepNextSongs(row, rows))
            return false;
        logDebug() << "[UPDATE] rowIdx: " << row;
        logDebug() << "[UPDATE] updating file: " << m_model.fileName(row);
        const QPersistentModelIndex place = m_model.rowIndex(row);
        if (MetaSong::takesLongToImport(m_model.fileName(row)))
            progress.catchUp();
        const qsizetype unknown = m_outcome.unknown.size();
        const bool synced = updateRow(row);
        if (m_isRefused)
            return false;
        if (synced)
            ++m_outcome.found;
        else if (m_outcome.unknown.size() == unknown)
            ++m_outcome.left;
        m_model.setStatus(place.row(), synced ? Database::StatusSynced : Database::StatusNotSynced);
        progress.updateProgress(row + 1);
        logEndOfRow();
        KeepAlive::processEventsNow();
    }
    return true;
}

/** Keeps those of the next songs that the catalogue is going to change; false to stop. */
bool Synchronisation::keepNextSongs(int row, int rows)
{
    if (!m_history || row % HistoryRecorder::songsAtOnce != 0)
        return true;
    QStringList songs;
    const int end = std::min(row + HistoryRecorder::songsAtOnce, rows);
    for (int next = row; next < end; ++next) {
        if (m_catalogue.knows(m_model.title(next), m_model.shortName(next)))
            songs.append(m_model.fileName(next));
    }
    return m_history->keep(songs);
}

/** False when the song is not kept and so must not be changed. */
bool Synchronisation::keepSong(const QString &fileName)
{
    m_isRefused = m_history && !m_history->isKept(fileName) && !m_history->keep({fileName});
    return !m_isRefused;
}

bool Synchronisation::updateFileWithDb(int row)
{
    m_isRefused = false;
    m_history = m_openHistory ? m_openHistory(HistoryJob::Kind::Synchronise) : nullptr;
    const bool found = updateRow(row);
    m_history.reset();
    return found;
}

bool Synchronisation::updateRow(int row)
{
    const QString fileName = m_model.fileName(row);
    m_leftovers.tidyBeside(fileName);
    SongUpdate update(fileName);
    if (!update.load()) {
        keepFailure(row, fileName,
                    update.wasInUse() ? SaveFailure::InUse : loadFailureOf(fileName));
        return false;
    }
    if (!mayChange(update.before(), fileName))
        return false;
    if (!update.merge(m_catalogue, m_model.shortName(row))) {
        m_outcome.unknown.append(fileName);
        return false;
    }
    if (!keepSong(fileName))
        return false;

    // A cancelled progress no longer blocks the table, so that the user may sort it.
    const QPersistentModelIndex place = m_model.rowIndex(row);
    // A file that could not be written shows in its row what it still holds.
    SaveFailure failure = SaveFailure::None;
    KeepAlive::workInBackground([&] {
        failure = update.save();
        return failure == SaveFailure::None;
    });
    keepFailure(place.row(), fileName, failure);
    MetaSong saved;
    SongInfo savedInfo;
    if (saved.importFile(fileName)) {
        saved.getSongInfo(savedInfo);
        const QString lost = update.lostCharacters(savedInfo);
        if (!lost.isEmpty())
            m_report.add(SongFinding::Kind::LostCharacters, fileName, lost);
        m_model.updateRow(place.row(), savedInfo);
    }
    if (m_history)
        m_history->written(fileName, update.before(), savedInfo);
    return true;
}

/** Marks the row and reports its song; with None, takes the mark of an earlier failure away. */
void Synchronisation::keepFailure(int row, const QString &fileName, SaveFailure failure)
{
    m_model.setSaveFailure(row, failure);
    if (failure != SaveFailure::None)
        m_report.add(SongFinding::Kind::NotSaved, fileName, RunReport::reasonText(failure));
}

/** Signed files always; the others as the user answers, where an "all" holds for this run. */
bool Synchronisation::mayChange(const SongInfo &info, const QString &fileName)
{
    return info.isKravo || m_changeUnsigned.isYes([&] { return m_askUnsigned(fileName); });
}
