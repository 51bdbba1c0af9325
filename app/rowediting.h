// What the user does with single songs of the list.
#pragma once

#include "formats/metasong.h"
#include "formats/songinfo.h"
#include "library/historyrecorder.h"

#include <QModelIndex>
#include <QObject>
#include <QPoint>

#include <utility>

class BusyState;
class Database;
class DataEditDialog;
class SongEditor;
class SongList;
class TagPreparing;
class WindowProgress;

/** Asks and reports in dialogs over the window; all of it counts as work that runs. */
class RowEditing : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object; the others must outlive it. */
    RowEditing(QWidget *window, DataEditDialog &dialog, const Database &database, SongList &songs,
               WindowProgress &progress, BusyState &busy);

    /** Where the songs are kept before they are changed. */
    void setHistory(OpenHistory openHistory) { m_openHistory = std::move(openHistory); }

    /** What prepares the tags of a song whose texts the player cannot show; must outlive it. */
    void setTags(TagPreparing &tags) { m_tags = &tags; }

    /** Lets the user change the song, and brings it to the middle of the list then. */
    void edit(const QModelIndex &index);

    /** Writes the data into the song, saves it to the path and refreshes the row. */
    void manualModifySong(const MetaSong &song, const SongInfo &info, const QString &path, int row);

    /** Opens the menu of the row at this place of the table and does what is chosen. */
    void runMenu(const QPoint &position);

    /** Removes the row from the list; its file stays. */
    void removeFromList(int row);

    /** After asking, deletes the row's file and removes the row. */
    void deleteFile(int row);

signals:
    /** The file is gone now. */
    void fileDeleted(const QString &path);

private:
    SongEditor editor();

    QWidget *const m_window;
    DataEditDialog &m_dialog;
    const Database &m_database;
    SongList &m_songs;
    WindowProgress &m_progress;
    BusyState &m_busy;
    OpenHistory m_openHistory;
    TagPreparing *m_tags = nullptr;
};
