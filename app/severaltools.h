// The edit of several songs and the names of their files, from the main window.
#pragma once

#include "formats/savefailure.h"
#include "formats/songinfo.h"
#include "library/historyrecorder.h"

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

/** Both work on the songs that the list shows when they are asked for; its rows follow. */
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
    void followHistory();

    QMainWindow *const m_window;
    const Ui::MainWindow &m_form;
    SongList &m_songs;
    BusyState &m_busy;
    ActionGate &m_gate;
    OpenHistory m_openHistory;
    QHash<QString, QString> m_otherNames; ///< of files that were renamed, by their present paths
};
