#include "app/songtransfer.h"

#include "app/memories.h"
#include "app/windowprogress.h"
#include "devindex/filecopier.h"
#include "devindex/mountedvolumes.h"
#include "library/settings.h"
#include "storage/memorylock.h"
#include "windows/busystate.h"
#include "windows/confirmation.h"
#include "windows/transferdialogs.h"
#include "windows/transferplandialog.h"

#include <QSettings>

#include <optional>

SongTransfer::SongTransfer(QWidget *window, WindowProgress &progress, const QSettings &settings,
                           BusyState &busy, Memories &memories)
    : m_window(window)
    , m_progress(progress)
    , m_busy(busy)
    , m_memories(memories)
    , m_readBack(settings.value(settings::readBack, false).toBool())
{
}

Transfer::Outcome SongTransfer::transfer(const QStringList &files)
{
    const BusyGuard busy(m_busy);
    TransferDialogs dialogs(m_window);
    Transfer job(dialogs, m_progress.open());
    job.setReadBack(m_readBack);
    dialogs.offerNext();
    const Transfer::Outcome outcome = job.transferFiles(files);
    m_memories.goOn(dialogs.next(), dialogs.folder());
    return outcome;
}

Transfer::Outcome SongTransfer::showPlan(const QStringList &files)
{
    const BusyGuard busy(m_busy);
    TransferDialogs dialogs(m_window);
    Transfer job(dialogs, m_progress.open());
    job.setReadBack(m_readBack);
    std::optional<TransferPlan> plan = job.planTransfer(files, true);
    if (!plan)
        return Transfer::Outcome::NotStarted;
    TransferPlanDialog dialog(*std::move(plan), TransferPlanDialog::Purpose::Request, m_window);
    dialog.exec();
    if (dialog.review() != TransferUser::Review::CarryOut)
        return Transfer::Outcome::NotStarted;
    dialogs.offerNext();
    const Transfer::Outcome outcome = job.carryOut(dialog.plan());
    m_memories.goOn(dialogs.next(), dialogs.folder());
    return outcome;
}

bool SongTransfer::copyFiles(const QStringList &files, const QString &folder, int &copied)
{
    const BusyGuard busy(m_busy);
    const QString memory = MountedVolumes().memoryOf(folder);
    MemoryLock lock(memory);
    if (!memory.isEmpty() && !lock.take()) {
        copied = 0;
        TransferDialogs(m_window).warn(tr("Trasferimento"), lock.message());
        return false;
    }
    return FileCopier(&confirmation::askToReplace)
        .copyFiles(files, folder, copied, m_progress.shown());
}

bool SongTransfer::updateIndex(const QString &path)
{
    const BusyGuard busy(m_busy);
    TransferDialogs dialogs(m_window);
    return Transfer(dialogs, m_progress.open()).updateKavenaIndex(path);
}
