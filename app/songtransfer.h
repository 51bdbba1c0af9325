// Brings the chosen songs to a memory, at once or after a look at the plan.
#pragma once

#include "devindex/transfer.h"

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

private:
    QWidget *const m_window;
    WindowProgress &m_progress;
    BusyState &m_busy;
    Memories &m_memories; ///< that look after the memory when the songs are there
    const bool m_readBack;
};
