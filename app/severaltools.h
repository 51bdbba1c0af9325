// The edit of several songs, the names of their files and what their music says, from the main
// window.
#pragma once

#include "formats/savefailure.h"
#include "formats/songinfo.h"
#include "library/historyrecorder.h"
#include "library/historyundo.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPersistentModelIndex>
#include <QString>
#include <QStringList>

#include <utility>

class ActionGate;
class BusyState;
class QMainWindow;
class SongList;

QT_BEGIN_NAMESPACE
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

/** All work on the songs that the list shows when they are asked for; its rows follow. */
class SeveralTools : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object; the others must outlive it. */
    SeveralTools(QMainWindow *window, const Ui::MainWindow &form, SongList &songs, BusyState &busy,
                 ActionGate &gate);

    /** Where the songs are kept before they are changed. */
    void setHistory(OpenHistory openHistory) { m_openHistory = std::move(openHistory); }

    /** Shows the window of the edit. */
    void edit();

    /** Shows it for the songs at these paths, whether or not the list shows them. */
    void editSongs(const QStringList &paths);

    /** Shows the window of the names. */
    void rename();

    /** Files have their old names again: their rows get them, too. */
    void followHistory(const QList<HistoryUndo::Renamed> &files);

    /** Measures the songs and shows the window in which they get what they lack. */
    void fillFromMusic();

signals:
    /** A song's file has another name now. */
    void renamed(const QString &path, const QString &newPath);

private:
    using Rows = QMultiHash<QString, QPersistentModelIndex>;

    void editIn(const QList<SongInfo> &songs);
    QList<SongInfo> shownSongs() const;
    Rows rowsByPath() const;
    void enable();
    void showTried(const Rows &rows, const SongInfo &now, SaveFailure failure);
    void showRenamed(const Rows &rows, const QString &path, const QString &newPath);

    QMainWindow *const m_window;
    const Ui::MainWindow &m_form;
    SongList &m_songs;
    BusyState &m_busy;
    ActionGate &m_gate;
    OpenHistory m_openHistory;
};
