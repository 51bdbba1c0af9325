#include "devindex/plannedremoval.h"

#include "library/companion.h"
#include "storage/diagnostics.h"
#include "storage/safefile.h"
#include "storage/songjournal.h"
#include "storage/writeproblem.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace
{

/** As many files are held open at the same time; on a Mac a program may have 256 open. */
constexpr std::size_t mostHeld = 100;

} // namespace

PlannedRemoval::PlannedRemoval(const TransferPlan &plan)
    : m_plan(plan)
{
}

QList<PlannedRemoval::Outcome> PlannedRemoval::run()
{
    for (const TransferPlan::Item &item : m_plan.items) {
        if (item.remedy != TransferPlan::Remedy::Remove)
            continue;
        m_folders.insert(QFileInfo(item.path).path());
        m_outcomes.append({item.path, remove(item)});
        if (m_held.size() >= mostHeld)
            settle();
    }
    settle();
    return std::move(m_outcomes);
}

/** Why it stays; empty when it is gone. */
QString PlannedRemoval::remove(const TransferPlan::Item &item)
{
    if (!m_onMedium)
        return WriteProblem::sentence(WriteProblem::Unknown);
    if (!isAsPlanned(item))
        return tr("non è più il file di prima");
    const QString companion = companionOf(item.path);
    if (!removeHeld(item.path))
        return WriteProblem::sentence(
                   WriteProblem::find(WriteProblem::Medium::of(QFileInfo(item.path).path()), 0))
            .replace(QLatin1Char('\n'), QLatin1Char(' '));
    SongJournal::removeAllOf(item.path);
    // The song went first: if only that is done, no song has lost its pictures.
    if (companion.isEmpty() || QFileInfo(companion).isSymLink() || removeHeld(companion))
        return {};
    return tr("il file delle immagini non può essere rimosso");
}

/**
 * The bytes keep their place until the name is gone on the medium: no name must lead to bytes that
 * have become another file's.
 */
bool PlannedRemoval::removeHeld(const QString &path)
{
    m_held.push_back(keepBytesOf(path));
    if (QFile::remove(path))
        return true;
    logWarning() << "[PlannedRemoval::remove] Impossible to remove" << path;
    return false;
}

/** Brings what was removed to the medium, and gives its place free. */
void PlannedRemoval::settle()
{
    for (const QString &folder : std::as_const(m_folders)) {
        if (flushPath(folder))
            continue;
        m_onMedium = false;
        logWarning() << "[PlannedRemoval::settle] Impossible to flush" << folder;
        for (qsizetype i = m_settled; i < m_outcomes.size(); ++i) {
            Outcome &outcome = m_outcomes[i];
            if (QFileInfo(outcome.path).path() == folder && outcome.reason.isEmpty())
                outcome.reason = WriteProblem::sentence(WriteProblem::Unknown);
        }
    }
    m_settled = m_outcomes.size();
    m_folders.clear();
    m_held.clear();
}

bool PlannedRemoval::isAsPlanned(const TransferPlan::Item &item) const
{
    const QFileInfo song(item.path);
    const QString folder = QFileInfo(m_plan.folder).canonicalFilePath() + QLatin1Char('/');
    return item.state == TransferPlan::State::Remove && song.isFile() && !song.isSymLink() &&
           song.size() == item.size && song.lastModified().toMSecsSinceEpoch() == item.changed &&
           song.canonicalFilePath().startsWith(folder, Qt::CaseInsensitive);
}
