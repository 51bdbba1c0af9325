#include "app/songtransfer.h"

#include "app/memories.h"
#include "app/windowprogress.h"
#include "library/settings.h"
#include "windows/busystate.h"
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
