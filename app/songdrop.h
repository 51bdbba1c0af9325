// Files and folders that are dropped on the window, or that the desktop asks the program to open.
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

class BusyState;
class QDropEvent;

/**
 * Accepts a drop with a folder or a file named like a song, and none while a workflow runs or from
 * the program itself: a song that is let go over its own list stays there, and the list with it.
 * The files stay where they are: every drop is a copy; one with Ctrl adds to the list. macOS sends
 * an event of its own for each file that is dropped on the program's icon; what comes within a
 * moment counts as one drop.
 */
class SongDrop : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object. */
    SongDrop(QWidget *window, const BusyState &busy);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    /** What is dragged over the window may be dropped there; or it has left the window. */
    void dragged(bool isWelcome);

    /**
     * Sent when the drop is over, so that the desktop does not wait for the import. isAddition:
     * Ctrl was held down.
     */
    void dropped(const QStringList &paths, bool isAddition);

private:
    bool filterWindow(QEvent *event);
    void answer(QDropEvent *event, bool accepted) const;
    void collect(const QStringList &paths, int waitMilliseconds);
    void send();

    QWidget *const m_window;
    const BusyState &m_busy;
    bool m_takesDrag = false; ///< what is being dragged over the window may be dropped
    QStringList m_collected;
    bool m_isAddition = false; ///< what was collected was dropped with Ctrl
    QTimer m_sending;
};
