#include "devindex/planexecution.h"

#include "devindex/memorydevice.h"
#include "devindex/namekey.h"
#include "devindex/plannedremoval.h"
#include "library/companion.h"
#include "storage/safefile.h"
#include "storage/writeproblem.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <memory>
#include <utility>

namespace
{

using Item = TransferPlan::Item;
using State = TransferPlan::State;
using Remedy = TransferPlan::Remedy;

/** One folder's share of the progress of the whole copy. */
class PartOfProgress : public Progress
{
public:
    PartOfProgress(Progress &whole, int before)
        : m_whole(whole)
        , m_before(before)
    {
    }
    void setMaximum(int) override {}
    void setValue(int done) override { m_whole.setValue(m_before + done); }
    void updateProgress(int done) override { m_whole.updateProgress(m_before + done); }
    void catchUp() override { m_whole.catchUp(); }
    bool wasCanceled() const override { return m_whole.wasCanceled(); }

private:
    Progress &m_whole;
    const int m_before;
};

} // namespace

PlanExecution::PlanExecution(OpenProgress openProgress, UpdateIndex updateIndex)
    : m_openProgress(std::move(openProgress))
    , m_updateIndex(std::move(updateIndex))
{
}

PlanExecution::Result PlanExecution::run(const TransferPlan &plan)
{
    m_result = {};
    m_done = 0;
    m_allThere = true;
    m_placesTaken.clear();
    copyAll(plan);
    for (const Item &item : plan.items) {
        if (item.destination().isEmpty())
            tellSkipped(item, plan);
    }
    update(plan);
    return std::move(m_result);
}

void PlanExecution::copyAll(const TransferPlan &plan)
{
    QStringList folders; // in the order of the list
    QHash<QString, QList<int>> numbers;
    int count = 0;
    for (int i = 0; i < plan.items.size(); ++i) {
        const Item &item = plan.items.at(i);
        const QString destination = item.destination();
        if (destination.isEmpty())
            continue;
        const QString folder = QFileInfo(destination).path();
        if (!numbers.contains(folder))
            folders.append(folder);
        numbers[folder].append(i);
        ++count;
    }
    if (count == 0)
        return;
    const std::unique_ptr<Progress> progress =
        m_openProgress(QCoreApplication::translate("MainWindow", "Trasferimento"),
                       QCoreApplication::translate("MainWindow", "Trasferimento file..."), count);
    for (const QString &folder : std::as_const(folders))
        copyInto(folder, numbers.value(folder), plan, *progress);
}

void PlanExecution::copyInto(const QString &folder, const QList<int> &numbers,
                             const TransferPlan &plan, Progress &progress)
{
    if (!progress.wasCanceled() && !hasFolder(folder, plan)) {
        fail(numbers, plan,
             QFileInfo(folder).isDir()
                 ? tr("la sua cartella è un collegamento che porta fuori dalla memoria")
                 : WriteProblem::sentence(WriteProblem::find(WriteProblem::Medium::of(plan.folder)))
                       .replace(QLatin1Char('\n'), QLatin1Char(' ')));
        return;
    }
    QList<FileCopier::Order> orders;
    QSet<QString> replaced;
    QSet<QString> withoutPictures; // asked now: the source's medium may be pulled out by the end
    for (const int number : numbers) {
        const Item &item = plan.items.at(number);
        if (item.remedy == Remedy::Replace && item.isThere)
            replaced.insert(item.target);
        // A song that replaces another one of the list may find a free place.
        const bool mayReplace =
            item.remedy == Remedy::Replace && (item.isThere || item.state == State::Differs);
        if (mayReplace && item.companion.isEmpty() && item.state != State::Renamed)
            withoutPictures.insert(item.destination());
        orders.append({item.path, item.destination(), mayReplace});
    }
    FileCopier copier([](const QString &) { return Answer::No; });
    copier.setReadBack(plan.readBack);
    PartOfProgress part(progress, m_done);
    copier.copyAs(orders, folder, part);
    m_done += static_cast<int>(orders.size());
    for (const FileCopier::Song &song : copier.songs()) {
        m_allThere = m_allThere && song.state == FileCopier::State::Copied;
        switch (song.state) {
        case FileCopier::State::Copied:
            m_result.copied.append(song.source);
            m_placesTaken.insert(nameKey(song.target));
            if (replaced.contains(song.target))
                m_result.replaced.append(song.target);
            if (withoutPictures.contains(song.target))
                removeOldPictures(song);
            break;
        case FileCopier::State::Skipped:
        case FileCopier::State::Replaced:
            m_result.failed.append({song.source, tr("nel frattempo un altro file ha questo nome")});
            break;
        case FileCopier::State::Failed:
            m_result.failed.append({song.source, song.reason});
            break;
        case FileCopier::State::NotReached:
            m_result.notReached.append(song.source);
            break;
        }
    }
}

/**
 * Pictures that lay in the place of a song which has none would be shown with it. It is on the
 * medium by now.
 */
void PlanExecution::removeOldPictures(const FileCopier::Song &song)
{
    if (!companionOf(song.source).isEmpty())
        return;
    const QStringList paths = companionPaths(song.target);
    for (const QString &path : paths) {
        const QFileInfo pictures(path);
        if (!pictures.isFile())
            continue;
        const auto bytes = keepBytesOf(path); // cppcheck-suppress unreadVariable
        if (!pictures.isSymLink() && QFile::remove(path) && flushFolderOf(path))
            m_result.removedPictures.append(path);
        else
            m_result.failed.append(
                {path, tr("restano le immagini della song che è stata sostituita")});
    }
}

/** Makes the folder below the chosen one where it is missing, but never that one itself. */
bool PlanExecution::hasFolder(const QString &folder, const TransferPlan &plan)
{
    if (QFileInfo(folder).isDir() || folder == plan.folder)
        return isOnMemory(folder, plan.root);
    return !isTaken(folder) && isOnMemory(QFileInfo(folder).path(), plan.root) &&
           makeFolder(folder);
}

QString PlanExecution::whyNotNeeded(const TransferPlan &plan, const Item &item)
{
    return item.state == State::Renamed
               ? tr("è già nella memoria come %1").arg(item.target.mid(plan.root.size()))
               : tr("è già nella memoria");
}

void PlanExecution::tellSkipped(const Item &item, const TransferPlan &plan)
{
    const bool isPlaceTaken = m_placesTaken.contains(nameKey(item.target));
    switch (item.state) {
    case State::Same:
    case State::Renamed:
        if (isPlaceTaken)
            break;
        if (QFileInfo::exists(item.target))
            m_result.alreadyThere.append({item.path, whyNotNeeded(plan, item)});
        else
            m_result.failed.append({item.path, tr("non è più sulla memoria")});
        m_allThere = m_allThere && QFileInfo::exists(item.target);
        return;
    case State::Unreadable:
        m_allThere = false;
        [[fallthrough]];
    case State::TooLong:
        m_result.failed.append({item.path, item.reason});
        return;
    case State::Remove:
        return; // it stays, as it was before
    case State::New:
    case State::Differs:
    case State::Collides:
        break;
    }
    QString reason = item.reason;
    if (reason.isEmpty() && isPlaceTaken && item.state != State::Collides)
        reason = tr("un'altra song dell'elenco ha preso il suo posto");
    else if (reason.isEmpty() && item.state == State::Differs)
        reason = tr("esisteva già e non è stata sostituita");
    else if (reason.isEmpty() && item.state == State::Collides)
        reason = tr("un'altra song dell'elenco ha lo stesso nome");
    else if (reason.isEmpty())
        reason = tr("saltata come scelto nel piano");
    m_result.skipped.append({item.path, reason});
}

void PlanExecution::update(const TransferPlan &plan)
{
    if (plan.count(Remedy::Remove) == 0) {
        m_result.indexed = m_updateIndex({});
        return;
    }
    QString reason;
    if (!m_result.notReached.isEmpty())
        reason = tr("non rimossa, la copia è stata interrotta");
    else if (!m_allThere)
        reason = tr("non rimossa, non tutte le song sono state copiate");
    bool removed = false;
    const auto remove = [&] {
        removed = true;
        const std::unique_ptr<Progress> progress =
            m_openProgress(QCoreApplication::translate("SongChanges", "Eliminazione"),
                           QCoreApplication::translate("SongChanges", "Eliminazione song..."),
                           plan.count(Remedy::Remove));
        PlannedRemoval removal(plan);
        const QList<PlannedRemoval::Outcome> outcomes = removal.run(*progress);
        for (const PlannedRemoval::Outcome &outcome : outcomes) {
            if (outcome.reason.isEmpty())
                m_result.removed.append(outcome.path);
            else
                m_result.failed.append({outcome.path, outcome.reason});
        }
        return removal.isOnMedium();
    };
    m_result.indexed = m_updateIndex(reason.isEmpty() ? std::function<bool()>(remove) : nullptr);
    if (removed)
        return;
    if (reason.isEmpty())
        reason = tr("non rimossa, il database della memoria non può essere aggiornato");
    for (const Item &item : plan.items) {
        if (item.remedy == Remedy::Remove)
            m_result.failed.append({item.path, reason});
    }
}

void PlanExecution::fail(const QList<int> &numbers, const TransferPlan &plan, const QString &reason)
{
    for (const int number : numbers)
        m_result.failed.append({plan.items.at(number).path, reason});
    m_allThere = false;
    m_done += static_cast<int>(numbers.size());
}
