#include "devindex/plannedremoval.h"

#include <QDateTime>
#include <QFileInfo>
#include <QSet>

#include <utility>

PlannedRemoval::PlannedRemoval(const TransferPlan &plan)
    : m_plan(plan)
    , m_removal(plan.root)
{
}

QList<PlannedRemoval::Outcome> PlannedRemoval::run(Progress &progress)
{
    bool stopped = false;
    int number = 0;
    for (const TransferPlan::Item &item : m_plan.items) {
        if (item.remedy != TransferPlan::Remedy::Remove)
            continue;
        m_keepAlive.processEvents();
        stopped = stopped || progress.wasCanceled();
        if (stopped) {
            m_outcomes.append({item.path, tr("non rimossa, la rimozione è stata interrotta")});
            continue;
        }
        m_outcomes.append({item.path, remove(item)});
        progress.updateProgress(++number);
        if (m_removal.isFull())
            settle();
    }
    settle();
    return std::move(m_outcomes);
}

/** Why it stays; empty when it is gone. */
QString PlannedRemoval::remove(const TransferPlan::Item &item)
{
    if (!m_onMedium)
        return SongRemoval::notConfirmed();
    if (!isAsPlanned(item))
        return tr("non è più il file di prima");
    return m_removal.remove(item.path.mid(m_plan.root.size()));
}

/** Brings what was removed to the medium, and gives its place free. */
void PlannedRemoval::settle()
{
    const QSet<QString> failed = m_removal.flush();
    m_onMedium = m_onMedium && failed.isEmpty();
    for (qsizetype i = m_settled; i < m_outcomes.size() && !failed.isEmpty(); ++i) {
        Outcome &outcome = m_outcomes[i];
        const QString folder = SongRemoval::folderOf(outcome.path.mid(m_plan.root.size()));
        if (outcome.reason.isEmpty() && failed.contains(folder))
            outcome.reason = SongRemoval::notConfirmed();
    }
    m_settled = m_outcomes.size();
}

bool PlannedRemoval::isAsPlanned(const TransferPlan::Item &item) const
{
    const QFileInfo song(item.path);
    const QString folder = QFileInfo(m_plan.folder).canonicalFilePath() + QLatin1Char('/');
    return item.state == TransferPlan::State::Remove && item.path.startsWith(m_plan.root) &&
           song.isFile() && !song.isSymLink() && song.size() == item.size &&
           song.lastModified().toMSecsSinceEpoch() == item.changed &&
           song.canonicalFilePath().startsWith(folder, Qt::CaseInsensitive);
}
