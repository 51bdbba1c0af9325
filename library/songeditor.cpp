#include "library/songeditor.h"

#include "formats/diagnostics.h"
#include "library/dataeditdialog.h"
#include "library/whileanswering.h"

#include <QCoreApplication>
#include <QFile>
#include <QList>
#include <QPersistentModelIndex>

SongEditor::SongEditor(UserSongsRelTableModel &model, AskEdit askEdit, AskDelete askDelete,
                       OpenProgress openProgress)
    : m_model(model)
    , m_askEdit(std::move(askEdit))
    , m_askDelete(std::move(askDelete))
    , m_openProgress(std::move(openProgress))
{
}

bool SongEditor::edit(int row)
{
    if (row < 0)
        return false;
    const QString path = m_model.fileName(row);
    logDebug() << "File name: " << path;
    logDebug() << "[MainWindow] Manual modifing row: " << row;
    MetaSong song;
    if (!song.importFile(path))
        return false;
    SongInfo info;
    song.getSongInfo(info);
    info.fileName = path;

    const std::optional<SongEdit> edit = m_askEdit(info);
    if (!edit) {
        logDebug() << "Rejected!";
        info.dbgDump();
        return false;
    }
    logDebug() << "Accepted";
    edit->info.dbgDump();
    const QPersistentModelIndex place = m_model.rowIndex(row);
    manualModifySong(song, edit->info, path, row);
    if (edit->titleToAll || edit->artistToAll || edit->genreToAll || edit->authorToAll)
        applyToAll(*edit, place.row());
    return true;
}

void SongEditor::manualModifySong(MetaSong song, const SongInfo &info, const QString &path, int row)
{
    // The table may be sorted while the file is written.
    const QPersistentModelIndex place = m_model.rowIndex(row);
    song.setSongInfo(info, true);
    logDebug() << "Saving to file: " << path;
    if (whileAnswering([&] { return song.saveToFile(path); }))
        logDebug() << "Ok";
    else
        logDebug() << "Error!";

    MetaSong saved;
    if (saved.importFile(path)) {
        SongInfo savedInfo;
        saved.getSongInfo(savedInfo);
        m_model.updateRow(place.row(), savedInfo);
    }
    m_model.setStatus(place.row(), Database::StatusEdited);
}

void SongEditor::removeFromList(int row)
{
    m_model.removeRow(row);
}

QString SongEditor::deleteFile(int row)
{
    const QString path = m_model.fileName(row);
    if (path.isEmpty() || !m_askDelete())
        return {};
    QFile::remove(path);
    m_model.removeRow(row);
    return QFile::exists(path) ? QString() : path;
}

/**
 * Always runs to its end, so that no library is left half changed: it cannot be stopped. A progress
 * window that was cancelled is gone, though, and the table can then be sorted under the loop: the
 * rows are kept by indexes that move with them.
 */
void SongEditor::applyToAll(const SongEdit &edit, int editedRow)
{
    const int rows = m_model.goodRowCount();
    QList<QPersistentModelIndex> songs;
    songs.reserve(rows);
    for (int row = 0; row < rows; ++row)
        songs.append(m_model.rowIndex(row));

    const auto progress =
        m_openProgress(QCoreApplication::translate("MainWindow", "Aggiornamento file"),
                       QCoreApplication::translate("MainWindow", "Aggiorno la libreria..."), rows);
    for (int done = 0; done < rows; ++done) {
        if (MetaSong::takesLongToImport(m_model.fileName(songs.at(done).row())))
            progress->catchUp();
        if (done != editedRow && applyToRow(edit, songs.at(done).row()))
            progress->updateProgress(done + 1);
        QCoreApplication::processEvents();
    }
}

/** False when the row's file cannot be read; it then stays as it is. */
bool SongEditor::applyToRow(const SongEdit &edit, int row)
{
    const QString path = m_model.fileName(row);
    MetaSong song;
    if (!song.importFile(path))
        return false;
    SongInfo info;
    song.getSongInfo(info);
    info.fileName = path;
    if (edit.titleToAll)
        info.title = DataEditDialog::titleFromFileName(path);
    if (edit.authorToAll)
        info.author = edit.info.author;
    if (edit.artistToAll)
        info.artist = edit.info.artist;
    if (edit.genreToAll)
        info.genre = edit.info.genre;
    manualModifySong(song, info, path, row);
    return true;
}

std::optional<SongEdit> editInDialog(DataEditDialog &dialog, const Database &database,
                                     const SongInfo &info)
{
    dialog.setArtistsCombo(database.artistsList());
    dialog.setGenresCombo(database.genresList());
    dialog.setKeysCombo(MetaSong::getKeysList());
    dialog.setOtherInfo(info);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;

    SongEdit edit;
    edit.info = info;
    dialog.getInfo(edit.info);
    edit.titleToAll = dialog.isApplyToAllFname();
    edit.artistToAll = dialog.isApplyToAllArtist();
    edit.genreToAll = dialog.isApplyToAllGenre();
    edit.authorToAll = dialog.isApplyToAllAuthor();
    return edit;
}
