// The list of songs on paper and on the clipboard.
#pragma once

#include "windows/texttable.h"

#include <QObject>

class ActionGate;
class BusyState;
class SongList;

QT_BEGIN_NAMESPACE
class QAction;
class QPrinter;
class QStatusBar;
class QWidget;
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

/** Prints and copies what the list shows: the columns in their order, and no row that is hidden. */
class ListOutput : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object. */
    ListOutput(QWidget *window, const Ui::MainWindow &form, const SongList &songs, BusyState &busy,
               ActionGate &gate);

private:
    enum class Rows { Shown, Chosen };

    TextTable table(Rows which) const;
    void copy(Rows which) const;
    void print();
    QString output(QPrinter &printer) const;
    void enableActions();
    void say(const QString &text) const;

    QWidget *const m_window;
    QStatusBar *const m_statusBar;
    const SongList &m_songs;
    BusyState &m_busy;
    ActionGate &m_gate;
    const QList<QAction *> m_actions;
};
