// What the main window does with the history of the user's songs.
#pragma once

#include "library/historyundo.h"
#include "library/userhistory.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QStringList>

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

/** The menu entries of the history. The rows of songs that were taken back show what these hold. */
class SongHistory : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object; the others must outlive it. */
    SongHistory(QMainWindow *window, const Ui::MainWindow &form, SongList &songs, BusyState &busy,
                ActionGate &gate);

    /** For the workflows that write songs; the object must outlive it. */
    OpenHistory opener() { return m_history.opener(); }

    /** Takes the last job back after asking. */
    void takeLastBack();

    /** Shows the window of the history. */
    void show();

signals:
    /** Files have their old names again. */
    void renamed(const QList<HistoryUndo::Renamed> &files);

private:
    QStringList listedFiles() const;
    void showTakenBack(const HistoryUndo::Report &report);

    QMainWindow *const m_window;
    SongList &m_songs;
    BusyState &m_busy;
    UserHistory m_history;
};
