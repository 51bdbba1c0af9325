#include "library/synchronisation.h"

#include "formats/diagnostics.h"
#include "formats/metasong.h"
#include "library/nocopyrightdialog.h"
#include "library/whileanswering.h"

#include <QCoreApplication>
#include <QPersistentModelIndex>

namespace
{

void logBanner()
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

Synchronisation::Synchronisation(const Database &database, UserSongsRelTableModel &model,
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
    logBanner();
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
    m_copyrightAsk = copyrightAsk;
    m_proceedWithoutAsking = true;
    for (int row = 0; row < rows; ++row) {
        if (progress->wasCanceled())
            return false;
        logDebug() << "[UPDATE] rowIdx: " << row;
        logDebug() << "[UPDATE] updating file: " << m_model.fileName(row);
        const QPersistentModelIndex place = m_model.rowIndex(row);
        if (MetaSong::takesLongToImport(m_model.fileName(row)))
            progress->catchUp();
        const bool synced = updateFileWithDb(row);
        m_model.setStatus(place.row(), synced ? Database::StatusSynced : Database::StatusNotSynced);
        progress->updateProgress(row + 1);
        logEndOfRow();
        QCoreApplication::processEvents();
    }
    return true;
}

bool Synchronisation::updateFileWithDb(int row)
{
    const QString fileName = m_model.fileName(row);
    MetaSong song;
    if (!song.importFile(fileName))
        return false;
    SongInfo info;
    song.getSongInfo(info);
    if (!mayChange(info, fileName))
        return false;
    if (!m_catalogue.mergeInto(song, info, m_model.shortName(row)))
        return false;

    // A progress that was cancelled lets go of the table, which may then be sorted.
    const QPersistentModelIndex place = m_model.rowIndex(row);
    // A file that could not be written shows in its row what it still holds.
    whileAnswering([&] { return song.saveToFile(fileName); });
    MetaSong saved;
    if (saved.importFile(fileName)) {
        saved.getSongInfo(info);
        m_model.updateRow(place.row(), info);
    }
    return true;
}

/** Signed files always; the others as the user answers, where an "all" holds for this run. */
bool Synchronisation::mayChange(const SongInfo &info, const QString &fileName)
{
    if (info.isKravo)
        return true;
    if (!m_copyrightAsk)
        return m_proceedWithoutAsking;
    const int answer = m_askUnsigned(fileName);
    const bool proceed = answer == NoCopyrightDialog::Yes || answer == NoCopyrightDialog::YesAll;
    if (answer == NoCopyrightDialog::YesAll || answer == NoCopyrightDialog::NoAll) {
        m_copyrightAsk = false;
        m_proceedWithoutAsking = proceed;
    }
    return proceed;
}
