// What the main window does about MP3 tags whose texts the player cannot show.
#pragma once

#include "library/historyrecorder.h"

#include <QObject>
#include <QSet>
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

/** The menu entry, the button in the status bar, and the offer before such a song is edited. */
class TagPreparing : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object; the others must outlive it. */
    TagPreparing(QMainWindow *window, const Ui::MainWindow &form, SongList &songs, BusyState &busy,
                 ActionGate &gate, OpenHistory openHistory);

    /** Shows what would be written into the songs of the list that need it. */
    void prepareList();

    /**
     * Offers to prepare the row's song before it is edited, unless the player can show its texts or
     * the user wanted it edited as it is before. False when it is not to be edited.
     */
    bool offerBeforeEdit(int row);

private:
    bool prepare(const QStringList &paths);
    void showFiles(const QStringList &paths);

    QMainWindow *const m_window;
    SongList &m_songs;
    BusyState &m_busy;
    const OpenHistory m_openHistory;
    QSet<QString> m_editedAsTheyAre;
};
