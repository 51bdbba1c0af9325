#include "library/synchronisation.h"

#include "formats/diagnostics.h"
#include "formats/metasong.h"
#include "library/nocopyrightdialog.h"
#include "library/whileanswering.h"

#include <QCoreApplication>

#include <algorithm>

namespace
{

constexpr int extensionLetters = 3;

bool isWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character.isMark() || character == QLatin1Char('_');
}

/**
 * Cuts a dot and exactly three word characters (in any script) off the end: the extensions of all
 * song formats have three. Other extensions belong to the name.
 */
QString withoutExtension(const QString &name)
{
    const auto dot = name.size() - extensionLetters - 1;
    if (dot < 0 || name.at(dot) != QLatin1Char('.'))
        return name;
    const bool isExtension = std::all_of(name.cbegin() + dot + 1, name.cend(), isWordCharacter);
    return isExtension ? name.left(dot) : name;
}

/** The catalogue's data replace the file's, also where the catalogue has none. */
SongInfo withCatalogueData(SongInfo info, const SongsDbRecord &record)
{
    info.title = record.title;
    info.artist = record.artist;
    info.altArtist = record.altartist;
    info.genre = record.genre;
    info.author = record.author;
    info.length = record.length;
    info.userBpm = record.bpm;
    info.key = record.key;
    info.markers = record.markers;
    return info;
}

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
    : m_database(database)
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
        const bool synced = updateFileWithDb(row);
        m_model.setStatus(row, synced ? Database::StatusSynced : Database::StatusNotSynced);
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
    SongsDbRecord record;
    if (!findRecord(info, m_model.shortName(row), record))
        return false;

    song.setSongInfo(withCatalogueData(info, record), false);
    // A file that could not be written shows in its row what it still holds.
    whileAnswering([&] { return song.saveToFile(fileName); });
    MetaSong saved;
    if (saved.importFile(fileName)) {
        saved.getSongInfo(info);
        m_model.updateRow(row, info);
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

/** By file name, by the long name of an MFX header, by title: the first hit counts. */
bool Synchronisation::findRecord(const SongInfo &info, const QString &shortName,
                                 SongsDbRecord &record) const
{
    const QString fileKey = withoutExtension(shortName.toUpper());
    const QString longNameKey = withoutExtension(info.mfxLongName.toUpper());
    const QString titleKey = info.title.toUpper();
    QString foundBy;
    if (m_database.getRecordByFilename(fileKey, record))
        foundBy = QStringLiteral("FILENAME: ") + fileKey;
    else if (!longNameKey.isEmpty() && m_database.getRecordByFilename(longNameKey, record))
        foundBy = QStringLiteral("MFXLONGNAME: ") + longNameKey;
    else if (m_database.getRecordByTitle(titleKey, record))
        foundBy = QStringLiteral("TITLE: ") + titleKey;

    if (foundBy.isEmpty()) {
        logDebug() << "Record " << fileKey + QLatin1Char('/') + titleKey << "NOT found in DB";
        return false;
    }
    logDebug() << "Found in DB by: " << foundBy;
    record.dbgDump();
    return true;
}
