// The memory window of the program, and what is offered with a memory after a transfer.
#pragma once

#include "windows/transferdialogs.h"

#include <QObject>
#include <QString>

#include <memory>

class ActionGate;
class BusyState;
class Database;
class MemoryWindow;
class QAction;
class WindowProgress;

/** There is one memory window; it is made when it is asked for the first time. */
class Memories : public QObject
{
    Q_OBJECT

public:
    /**
     * The action opens the window. The main window owns the object; the others must outlive it.
     */
    Memories(QWidget *mainWindow, QAction *action, ActionGate &gate, const Database &database,
             BusyState &busy, WindowProgress &progress);
    ~Memories() override;

    /** Brings the window to the front; shows the memory with the folder unless that is empty. */
    void open(const QString &folder = {});

    /** Does what the user chose at the end of a transfer into the folder. */
    void goOn(TransferDialogs::Next next, const QString &folder);

    /** Closes the window; false when it has to stay, since it changes a memory. */
    bool close();

private:
    void eject(const QString &folder);

    QWidget *const m_mainWindow;
    const Database &m_database;
    BusyState &m_busy;
    WindowProgress &m_progress;
    std::unique_ptr<MemoryWindow> m_window;
};
