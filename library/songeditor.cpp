#include "library/songeditor.h"

#include "formats/songnames.h"
#include "library/changepreview.h"
#include "library/keepalive.h"
#include "storage/diagnostics.h"
#include "storage/leftovers.h"
#include "storage/safefile.h"
#include "storage/songjournal.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QList>
#include <QPersistentModelIndex>

#include <algorithm>

void SongEdit::applyToOther(SongInfo &other, const QString &path) const
{
    if (titleToAll)
        other.title = songnames::titleFromFileName(path);
    if (authorToAll)
        other.author = info.author;
    if (artistToAll)
        other.artist = info.artist;
    if (genreToAll)
        other.genre = info.genre;
}

SongEditor::SongEditor(SongTable &model, AskEdit askEdit, AskDelete askDelete,
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
    Leftovers().tidyBeside(path);
    MetaSong song;
    if (!song.importFile(path))
        return false;
    SongInfo info;
    song.getSongInfo(info);

    const std::optional<SongEdit> edit = m_askEdit(info);
    if (!edit) {
        logDebug() << "Rejected!";
        info.dbgDump();
        return false;
    }
    logDebug() << "Accepted";
    edit->info.dbgDump();
    const QPersistentModelIndex place = m_model.rowIndex(row);
    m_changesMany = edit->concernsOthers();
    m_history = m_openHistory ? m_openHistory(HistoryJob::Kind::Edit) : nullptr;
    const bool goesOn = keepSong(path);
    if (goesOn)
        write(song, edit->info, path, row);
    if (goesOn && m_changesMany)
        applyToAll(*edit, place.row());
    m_history.reset();
    return goesOn;
}

void SongEditor::manualModifySong(MetaSong song, const SongInfo &info, const QString &path, int row)
{
    m_history = m_openHistory ? m_openHistory(HistoryJob::Kind::Edit) : nullptr;
    if (keepSong(path))
        write(std::move(song), info, path, row);
    m_history.reset();
}

/** False when the song is not kept and so must not be changed. */
bool SongEditor::keepSong(const QString &path)
{
    return !m_history || m_history->isKept(path) || m_history->keep({path});
}

void SongEditor::write(MetaSong song, const SongInfo &info, const QString &path, int row)
{
    // The table may be sorted while the file is written.
    const QPersistentModelIndex place = m_model.rowIndex(row);
    SongInfo before;
    song.getSongInfo(before);
    song.setSongInfo(info, true);
    logDebug() << "Saving to file: " << path;
    SaveFailure failure = SaveFailure::None;
    const bool saved = KeepAlive::workInBackground([&] {
        failure = song.save(path);
        return failure == SaveFailure::None;
    });
    if (saved)
        logDebug() << "Ok";
    else
        logDebug() << "Error!";

    keepFailure(place.row(), path, failure);
    MetaSong onDisk;
    SongInfo savedInfo;
    if (onDisk.importFile(path)) {
        onDisk.getSongInfo(savedInfo);
        const QString lost = ChangePreview::lostCharacters(std::nullopt, savedInfo, info);
        if (m_changesMany && saved && !lost.isEmpty())
            m_report.add(SongFinding::Kind::LostCharacters, path, lost);
        m_model.updateRow(place.row(), savedInfo);
    }
    m_model.setStatus(place.row(), Database::StatusEdited);
    if (m_history)
        m_history->written(path, before, savedInfo);
}

/** Marks the row and reports its song; with None, takes the mark of an earlier failure away. */
void SongEditor::keepFailure(int row, const QString &path, SaveFailure failure)
{
    m_model.setSaveFailure(row, failure);
    if (failure != SaveFailure::None)
        m_report.add(SongFinding::Kind::NotSaved, path, RunReport::reasonText(failure));
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
    {
        // No other song gets the place of its bytes on the medium before the name is gone there.
        // cppcheck-suppress unreadVariable
        const std::unique_ptr<QFile> bytes = keepBytesOf(path);
        // What is put there later must not be taken for a song whose save was cut off.
        if ((m_takeDeleted && m_takeDeleted(path)) || QFile::remove(path)) {
            SongJournal::removeAllOf(path);
            flushPath(QFileInfo(path).path());
        }
    }
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

    const auto progress = m_openProgress(
        QCoreApplication::translate("MainWindow", "Aggiornamento file", "Apply to all"),
        QCoreApplication::translate("MainWindow", "Aggiorno la libreria...", "Apply to all"), rows);
    Leftovers leftovers;
    for (int done = 0; done < rows; ++done) {
        if (!keepNextSongs(songs, done, editedRow))
            return;
        leftovers.tidyBeside(m_model.fileName(songs.at(done).row()));
        if (MetaSong::takesLongToImport(m_model.fileName(songs.at(done).row())))
            progress->catchUp();
        const QString path = m_model.fileName(songs.at(done).row());
        if (done != editedRow && !keepSong(path))
            return; // a file that the list holds twice is kept for each time
        if (done != editedRow && applyToRow(edit, songs.at(done).row()))
            progress->updateProgress(done + 1);
        KeepAlive::processEventsNow();
    }
}

/** Keeps the songs that are going to be changed next; false to stop. */
bool SongEditor::keepNextSongs(const QList<QPersistentModelIndex> &songs, int place, int editedRow)
{
    if (!m_history || place % HistoryRecorder::songsAtOnce != 0)
        return true;
    QStringList paths;
    const qsizetype end = std::min(songs.size(), qsizetype{place} + HistoryRecorder::songsAtOnce);
    for (qsizetype next = place; next < end; ++next) {
        if (next != editedRow)
            paths.append(m_model.fileName(songs.at(next).row()));
    }
    return m_history->keep(paths);
}

/** False when the row's file cannot be read; it then stays as it is, but for the row's mark. */
bool SongEditor::applyToRow(const SongEdit &edit, int row)
{
    const QString path = m_model.fileName(row);
    MetaSong song;
    if (!song.importFile(path)) {
        keepFailure(row, path, song.wasInUse() ? SaveFailure::InUse : loadFailureOf(path));
        return false;
    }
    SongInfo info;
    song.getSongInfo(info);
    edit.applyToOther(info, path);
    write(song, info, path, row);
    return true;
}
