// What a synchronisation came to, and the next steps with the songs that the catalogue does not
// know.
#pragma once

#include "library/synchronisation.h"
#include "windows/syncsummarybar.h"

#include <QList>
#include <QObject>
#include <QPersistentModelIndex>
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

/**
 * Stands in a bar above the list until another list is there, until no unknown song is left as it
 * was, or until the user closes it.
 */
class SyncResult : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object; the others must outlive it. */
    SyncResult(QMainWindow *window, const Ui::MainWindow &form, SongList &songs,
               const BusyState &busy, ActionGate &gate);

    /** Shows the outcome; one of a run that looked at no song hides what was there. */
    void show(const Synchronisation::Outcome &outcome);

    /** Some of the unknown songs may have become entries of the user's own catalogue. */
    void wereAdded();

signals:
    /** The songs at these paths are to be edited. */
    void editWanted(const QStringList &paths);

    /** The songs at these paths are to be entries of the user's own catalogue. */
    void addWanted(const QStringList &paths);

private:
    QStringList unknownSongs() const;
    void hideWhenDone();

    SongList &m_songs;
    SyncSummaryBar *const m_bar;
    SyncSummaryBar::Result m_result;
    QList<QPersistentModelIndex> m_unknown; ///< the rows, wherever they stand now
};
