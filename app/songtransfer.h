// Brings the chosen songs to a memory, at once or after a look at the plan.
#pragma once

#include "devindex/transfer.h"

#include <QCoreApplication>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QSettings;
class QWidget;
QT_END_NAMESPACE

class BusyState;
class Memories;
class WindowProgress;

/** Asks and tells in dialogs over the window. */
class SongTransfer
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)

public:
    /** All must outlive the object. */
    SongTransfer(QWidget *window, WindowProgress &progress, const QSettings &settings,
                 BusyState &busy, Memories &memories);

    /**
     * Copies the files onto a memory and updates its index. A plan is shown only where songs would
     * be lost or doubled.
     */
    Transfer::Outcome transfer(const QStringList &files);

    /** Shows what a transfer would do, and does it if the user wants that. */
    Transfer::Outcome showPlan(const QStringList &files);

    /**
     * Copies the files into the folder; false when one failed or the user stopped. On a memory that
     * another program is writing to nothing is copied, and the user is told.
     */
    bool copyFiles(const QStringList &files, const QString &folder, int &copied);

    /** Updates the index of the memory that holds the path. */
    bool updateIndex(const QString &path);

private:
    QWidget *const m_window;
    WindowProgress &m_progress;
    BusyState &m_busy;
    Memories &m_memories; ///< that look after the memory when the songs are there
    const bool m_readBack;
};
