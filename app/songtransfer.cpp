#include "app/songtransfer.h"

#include "app/windowprogress.h"
#include "library/settings.h"
#include "windows/busystate.h"
#include "windows/transferdialogs.h"
#include "windows/transferplandialog.h"

#include <QSettings>

#include <optional>

SongTransfer::SongTransfer(QWidget *window, WindowProgress &progress, const QSettings &settings,
                           BusyState &busy)
    : m_window(window)
    , m_progress(progress)
    , m_busy(busy)
    , m_readBack(settings.value(settings::readBack, false).toBool())
{
}

Transfer::Outcome SongTransfer::transfer(const QStringList &files)
{
    const BusyGuard busy(m_busy);
    TransferDialogs dialogs(m_window);
    Transfer job(dialogs, m_progress.open());
    job.setReadBack(m_readBack);
    return job.transferFiles(files);
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
    return dialog.review() == TransferUser::Review::CarryOut ? job.carryOut(dialog.plan())
                                                             : Transfer::Outcome::NotStarted;
}
