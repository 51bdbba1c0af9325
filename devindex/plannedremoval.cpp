#include "devindex/plannedremoval.h"

#include "library/companion.h"
#include "storage/diagnostics.h"
#include "storage/safefile.h"
#include "storage/songjournal.h"
#include "storage/writeproblem.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QHash>

PlannedRemoval::PlannedRemoval(const TransferPlan &plan)
    : m_plan(plan)
{
}

QList<PlannedRemoval::Outcome> PlannedRemoval::run()
{
    QList<Outcome> outcomes;
    QHash<QString, QString> folders; // each with a path in it
    for (const TransferPlan::Item &item : m_plan.items) {
        if (item.remedy != TransferPlan::Remedy::Remove)
            continue;
        outcomes.append({item.path, remove(item)});
        folders.insert(QFileInfo(item.path).path(), item.path);
    }
    for (const QString &path : std::as_const(folders)) {
        if (flushFolderOf(path))
            continue;
        logWarning() << "[PlannedRemoval::run] Impossible to flush the folder of" << path;
        const QString folder = QFileInfo(path).path();
        for (Outcome &outcome : outcomes) {
            if (QFileInfo(outcome.path).path() == folder && outcome.reason.isEmpty())
                outcome.reason = WriteProblem::sentence(WriteProblem::Unknown);
        }
    }
    return outcomes;
}

/** Why it stays; empty when it is gone. */
QString PlannedRemoval::remove(const TransferPlan::Item &item) const
{
    if (!isAsPlanned(item))
        return tr("non è più il file di prima");
    const QString companion = companionOf(item.path);
    if (!QFile::remove(item.path)) {
        logWarning() << "[PlannedRemoval::remove] Impossible to remove" << item.path;
        return WriteProblem::sentence(
                   WriteProblem::find(WriteProblem::Medium::of(QFileInfo(item.path).path()), 0))
            .replace(QLatin1Char('\n'), QLatin1Char(' '));
    }
    // The song goes first: if only that is done, no song has lost its pictures.
    const bool picturesGone =
        companion.isEmpty() || QFileInfo(companion).isSymLink() || QFile::remove(companion);
    SongJournal::removeAllOf(item.path);
    if (picturesGone)
        return {};
    logWarning() << "[PlannedRemoval::remove] Impossible to remove" << companion;
    return tr("il file delle immagini non può essere rimosso");
}

bool PlannedRemoval::isAsPlanned(const TransferPlan::Item &item) const
{
    const QFileInfo song(item.path);
    const QString folder = QFileInfo(m_plan.folder).canonicalFilePath() + QLatin1Char('/');
    return item.state == TransferPlan::State::Remove && song.isFile() && !song.isSymLink() &&
           song.size() == item.size && song.lastModified().toMSecsSinceEpoch() == item.changed &&
           song.canonicalFilePath().startsWith(folder, Qt::CaseInsensitive);
}
