// The list of the user's songs in the main window.
#pragma once

#include "library/unreadablefile.h"

#include <QList>
#include <QModelIndex>
#include <QObject>
#include <QPoint>
#include <QSettings>
#include <QSqlDatabase>
#include <QStringList>

class ActionGate;
class BusyState;
class ColumnChoice;
class ColumnLayout;
class EmptyListPage;
class ListPlace;
class QMainWindow;
class QTableView;
class SongFilter;
class StatusSummary;
class UserSongsRelTableModel;

QT_BEGIN_NAMESPACE
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

/**
 * The table with everything that belongs to it: columns, sort menu, search field, the menu entries
 * for one song and the numbers in the status bar. It changes no song itself: what the user wants
 * done with one is told by signals, and only while no other work runs.
 */
class SongList : public QObject
{
    Q_OBJECT

public:
    /** Shows the `usersongs` of the connection; the window owns this and the table's model. */
    SongList(QMainWindow *window, const Ui::MainWindow &form, const QSqlDatabase &songs,
             QSettings &settings, const BusyState &busy, ActionGate &gate);

    UserSongsRelTableModel &model() const { return *m_model; }
    QTableView *view() const { return m_view; }

    /** The songs' files, in the order of the rows; those that a filter hides, too. */
    QStringList files() const;

    /** The row that the user stands on; -1 when there is none. */
    int currentRow() const;

    /** Fits the columns to their contents; the one of the full path keeps its width. */
    void fitColumns();

    /** Reads the table, which was cleared, anew; songs that are added stand in their order. */
    void startImport();

    /** Orders and filters the imported songs as the user wants, and names what was unreadable. */
    void showImport(const QList<UnreadableFile> &unreadable);

    /** Other hands have written these files: their rows, if any, show what they hold now. */
    void showFiles(const QStringList &paths);

    /** The files that the last import could not read. */
    const QList<UnreadableFile> &unreadableFiles() const;

    /** Orders the rows once more as the heading says: their texts have changed. */
    void sortAgain();

    /** The page in the place of the empty list. */
    EmptyListPage &emptyPage() const;

    /** Brings the row to the middle of the list. */
    void scrollToRow(int row);

    /** Writes all texts in the present language. */
    void retranslate();

    /** Stores which columns are shown, their widths and their order. */
    void saveLayout();

signals:
    void editRequested(const QModelIndex &index);
    void removeRequested(int row);
    void deleteRequested(int row);

    /** The song is to be an entry of the user's own catalogue. */
    void catalogueRequested(int row);

    /** The menu of the row at this place of the table is asked for. */
    void menuRequested(const QPoint &position);

    /** The user wants to see which files could not be read. */
    void unreadableFilesRequested();

    /** The user wants to see the songs whose texts the player cannot show. */
    void tagsRequested();

private:
    void setUpView();
    void addRowActions(const Ui::MainWindow &form, ActionGate &gate);

    UserSongsRelTableModel *const m_model;
    QTableView *const m_view;
    const BusyState &m_busy;
    ColumnChoice *m_choice = nullptr;
    ColumnLayout *m_columns = nullptr;
    SongFilter *m_filter = nullptr;
    StatusSummary *m_summary = nullptr;
    ListPlace *m_place = nullptr;
};
