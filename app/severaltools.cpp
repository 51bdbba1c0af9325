#include "app/severaltools.h"

#include "app/actiongate.h"
#include "app/songlist.h"
#include "windows/busystate.h"
#include "windows/editseveraldialog.h"
#include "windows/fillfrommusicdialog.h"
#include "windows/renameseveraldialog.h"
#include "windows/usersongsreltablemodel.h"

#include "ui_mainwindow.h"

#include <QMainWindow>
#include <QSet>
#include <QTableView>

namespace
{

/** The seconds of a text that SongTable::lengthText() made. */
qint32 secondsOf(const QString &length)
{
    constexpr int secondsPerMinute = 60;
    return length.section(QLatin1Char(':'), 0, 0).toInt() * secondsPerMinute +
           length.section(QLatin1Char(':'), 1).toInt();
}

SongInfo songOfRow(UserSongsRelTableModel &model, int row)
{
    const auto cell = [&](songcolumns::Column column) {
        return model.index(row, model.columnNumber(column)).data().toString();
    };
    SongInfo info;
    info.fileName = model.fileName(row);
    info.format = cell(songcolumns::Type);
    info.title = cell(songcolumns::Title);
    info.artist = cell(songcolumns::Artist);
    info.genre = cell(songcolumns::Genre);
    info.author = cell(songcolumns::Author);
    info.length = secondsOf(cell(songcolumns::Length));
    info.userBpm = cell(songcolumns::UserBpm).toInt();
    info.key = cell(songcolumns::Key);
    return info;
}

} // namespace

SeveralTools::SeveralTools(QMainWindow *window, const Ui::MainWindow &form, SongList &songs,
                           BusyState &busy, ActionGate &gate)
    : QObject(window)
    , m_window(window)
    , m_form(form)
    , m_songs(songs)
    , m_busy(busy)
    , m_gate(gate)
{
    connect(form.actionEditSeveral, &QAction::triggered, this, &SeveralTools::edit);
    connect(form.actionRenameSeveral, &QAction::triggered, this, &SeveralTools::rename);
    connect(form.actionFillFromMusic, &QAction::triggered, this, &SeveralTools::fillFromMusic);
    for (QAction *const action :
         {form.actionEditSeveral, form.actionRenameSeveral, form.actionFillFromMusic})
        gate.add(action);
    const UserSongsRelTableModel &model = songs.model();
    connect(&model, &QAbstractItemModel::rowsInserted, this, &SeveralTools::enable);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &SeveralTools::enable);
    connect(&model, &QAbstractItemModel::modelReset, this, &SeveralTools::enable);
    enable();
}

/** There is nothing to edit in an empty list. */
void SeveralTools::enable()
{
    const bool hasSongs = m_songs.model().rowCount() > 0;
    for (QAction *const action :
         {m_form.actionEditSeveral, m_form.actionRenameSeveral, m_form.actionFillFromMusic})
        m_gate.setWanted(action, hasSongs);
}

QList<SongInfo> SeveralTools::shownSongs() const
{
    QList<SongInfo> songs;
    for (int row = 0; row < m_songs.model().goodRowCount(); ++row) {
        if (!m_songs.view()->isRowHidden(row))
            songs.append(songOfRow(m_songs.model(), row));
    }
    return songs;
}

/** The rows move when the user sorts the table meanwhile. */
SeveralTools::Rows SeveralTools::rowsByPath() const
{
    Rows rows;
    for (int row = 0; row < m_songs.model().goodRowCount(); ++row)
        rows.insert(m_songs.model().fileName(row), m_songs.model().rowIndex(row));
    return rows;
}

void SeveralTools::edit()
{
    editIn(shownSongs());
}

void SeveralTools::editSongs(const QStringList &paths)
{
    const QSet<QString> wanted(paths.cbegin(), paths.cend());
    QList<SongInfo> songs;
    for (int row = 0; row < m_songs.model().goodRowCount(); ++row) {
        if (wanted.contains(m_songs.model().fileName(row)))
            songs.append(songOfRow(m_songs.model(), row));
    }
    if (!songs.isEmpty())
        editIn(songs);
}

void SeveralTools::editIn(const QList<SongInfo> &songs)
{
    const BusyGuard busy(m_busy);
    const Rows rows = rowsByPath();
    EditSeveralDialog dialog(songs, m_openHistory, m_window);
    connect(&dialog, &EditSeveralDialog::tried, this,
            [&](const SongInfo &now, SaveFailure failure) { showTried(rows, now, failure); });
    if (dialog.exec() == QDialog::Accepted)
        m_songs.fitColumns(); // the texts may have become longer
}

void SeveralTools::fillFromMusic()
{
    const BusyGuard busy(m_busy);
    const Rows rows = rowsByPath();
    const FillFromMusicDialog::Songs songs = FillFromMusicDialog::measure(shownSongs(), m_window);
    if (songs.measured.isEmpty() && !songs.stopped.isEmpty())
        return; // stopped at once
    FillFromMusicDialog dialog(songs, m_openHistory, m_window);
    connect(&dialog, &FillFromMusicDialog::tried, this,
            [&](const SongInfo &now, SaveFailure failure) { showTried(rows, now, failure); });
    if (dialog.exec() == QDialog::Accepted)
        m_songs.fitColumns();
}

void SeveralTools::showTried(const Rows &rows, const SongInfo &now, SaveFailure failure)
{
    UserSongsRelTableModel &model = m_songs.model();
    const QList<QPersistentModelIndex> places = rows.values(now.fileName);
    for (const QPersistentModelIndex &place : places) {
        model.updateRow(place.row(), now);
        model.setSaveFailure(place.row(), failure);
        if (failure == SaveFailure::None)
            model.setStatus(place.row(), Database::StatusEdited);
    }
}

void SeveralTools::rename()
{
    const BusyGuard busy(m_busy);
    const Rows rows = rowsByPath();
    RenameSeveralDialog dialog(shownSongs(), m_openHistory, m_window);
    connect(&dialog, &RenameSeveralDialog::renamed, this,
            [&](const QString &path, const QString &newPath) { showRenamed(rows, path, newPath); });
    if (dialog.exec() == QDialog::Accepted)
        m_songs.fitColumns();
}

void SeveralTools::showRenamed(const Rows &rows, const QString &path, const QString &newPath)
{
    UserSongsRelTableModel &model = m_songs.model();
    const QList<QPersistentModelIndex> places = rows.values(path);
    for (const QPersistentModelIndex &place : places) {
        const auto set = [&](songcolumns::Column column, const QString &text) {
            model.setData(model.index(place.row(), model.columnNumber(column)), text);
        };
        set(songcolumns::FileName, newPath);
        set(songcolumns::ShortName, newPath.section(QLatin1Char('/'), -1));
    }
    emit renamed(path, newPath);
}

void SeveralTools::followHistory(const QList<HistoryUndo::Renamed> &files)
{
    Rows rows = rowsByPath();
    for (const HistoryUndo::Renamed &file : files) {
        showRenamed(rows, file.path, file.newPath);
        // A song may have been renamed twice.
        const QList<QPersistentModelIndex> places = rows.values(file.path);
        rows.remove(file.path);
        for (const QPersistentModelIndex &place : places)
            rows.insert(file.newPath, place);
    }
}
