#include "devindex/songchanges.h"

#include "devindex/devicetext.h"
#include "devindex/indexlists.h"
#include "devindex/memorydevice.h"
#include "devindex/songname.h"
#include "devindex/songremoval.h"
#include "devindex/songrenamer.h"
#include "storage/memorylock.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <memory>

namespace
{

/** The entry shows what the file holds only after it was read again. */
void forgetTime(SongInfoIndex &entry)
{
    entry.date = 0;
    entry.time = 0;
}

/** The path as it comes back from an index, which has "?" for characters that it cannot hold. */
QString asListed(const QString &path)
{
    return textFromIbm850(ibm850FromText(path));
}

/** The song's entry; several where their paths differ only in what an index cannot hold. */
QList<SongInfoIndex *> entriesOf(QList<SongInfoIndex> &entries, const QString &path)
{
    const QString listed = asListed(path);
    SongInfoIndex *sameName = nullptr;
    QList<SongInfoIndex *> unclear;
    for (SongInfoIndex &entry : entries) {
        if (entry.path == path)
            return {&entry};
        if (entry.path.compare(path, Qt::CaseInsensitive) == 0)
            sameName = &entry;
        else if (listed != path && entry.path.compare(listed, Qt::CaseInsensitive) == 0)
            unclear.append(&entry);
    }
    return sameName != nullptr ? QList<SongInfoIndex *>{sameName} : unclear;
}

/** True when the entry may be that of a file which is still there, in the folder or by its path. */
bool leadsToAFile(const SongInfoIndex &entry, const QString &root, const QString &folder)
{
    if (QFileInfo::exists(root + entry.path))
        return true;
    const QStringList names = QDir(root + folder).entryList(QDir::Files);
    return std::any_of(names.cbegin(), names.cend(), [&](const QString &name) {
        return asListed(folder + name).compare(entry.path, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

SongChanges::SongChanges(const QString &root, OpenProgress openProgress)
    : m_root(root.size() > 1 && root.endsWith(QLatin1Char('/')) ? root.chopped(1) : root)
    , m_device(memoryDevice(m_root))
    , m_openProgress(std::move(openProgress))
{
}

SongChanges::Report SongChanges::remove(const QStringList &paths)
{
    QStringList known = paths;
    known.removeDuplicates();
    return runOn(known, [this](const QStringList &songs, QList<SongInfoIndex> &, Report &report) {
        return removeAll(songs, report);
    });
}

/** False when the medium does not take the removals: nothing more must be written to it. */
bool SongChanges::removeAll(const QStringList &paths, Report &report)
{
    const std::unique_ptr<Progress> progress = m_openProgress(
        tr("Eliminazione"), tr("Eliminazione song..."), static_cast<int>(paths.size()));
    SongRemoval removal(m_root);
    QSet<QString> uncertain;
    int number = 0;
    for (const QString &path : paths) {
        m_keepAlive.processEvents();
        report.stopped = report.stopped || progress->wasCanceled();
        if (report.stopped || !uncertain.isEmpty())
            break;
        const QString reason = removal.remove(path);
        if (reason.isEmpty())
            report.done.append(path);
        else
            report.failed.append({path, reason});
        progress->updateProgress(++number);
        if (removal.isFull())
            uncertain = removal.flush();
    }
    uncertain += removal.flush();
    report.done.removeIf([&](const QString &path) {
        if (!uncertain.contains(SongRemoval::folderOf(path)))
            return false;
        report.failed.append({path, SongRemoval::notConfirmed()});
        return true;
    });
    // What was not begun any more is not done either.
    for (qsizetype place = number; place < paths.size() && !uncertain.isEmpty(); ++place)
        report.failed.append({paths.at(place), SongRemoval::notConfirmed()});
    return uncertain.isEmpty();
}

SongChanges::Report SongChanges::rename(const QString &path, const QString &newName)
{
    Report refused;
    const QString reason = SongRemoval(m_root).whyNot(path);
    const QString problem = reason.isEmpty() ? SongName::whyNot(m_root, path, newName) : reason;
    if (!problem.isEmpty()) {
        refused.failed.append({path, problem});
        refused.isIndexTrue = true;
        return refused;
    }
    Index index;
    index.rootPath = m_root;
    if (!index.checkIndexFile()) {
        refused.refusal = tr("La memoria non ha un database completo: aggiornarlo prima");
        return refused;
    }
    const QString folder = path.left(path.lastIndexOf(QLatin1Char('/')) + 1);
    const QString newPath = folder + newName;
    return run([&](QList<SongInfoIndex> &entries, Report &report) {
        const songrenamer::Result renamed = songrenamer::rename(m_root + path, m_root + newPath);
        if (renamed.outcome == songrenamer::Outcome::Unfinished) {
            report.failed.append({path, tr("il suo ultimo salvataggio non è stato completato")});
            return true;
        }
        if (renamed.outcome == songrenamer::Outcome::Failed) {
            report.failed.append({path, tr("non è stato possibile rinominarla")});
            return renamed.onMedium;
        }
        // The entry may be that of another file, whose name differs only in letter case or in what
        // an index cannot hold.
        const QList<SongInfoIndex *> found = entriesOf(entries, path);
        SongInfoIndex *const entry = found.size() == 1 ? found.constFirst() : nullptr;
        if (entry != nullptr && (entry->path == path || !leadsToAFile(*entry, m_root, folder))) {
            entry->path = newPath;
            entry->fullPath = m_root + newPath;
            forgetTime(*entry); // a song without a title shows its name
        }
        if (renamed.onMedium)
            report.done.append(newPath);
        else
            report.failed.append({path, tr("la memoria non ha confermato il nuovo nome")});
        return renamed.onMedium;
    });
}

SongChanges::Report SongChanges::rewrite(const QString &path, const Save &save)
{
    return rewriteAll({path}, [&save](const QString &) { return save(); });
}

SongChanges::Report SongChanges::rewriteAll(const QStringList &paths, const SaveOne &save)
{
    return runOn(
        paths, [&](const QStringList &songs, QList<SongInfoIndex> &entries, Report &result) {
            const std::unique_ptr<Progress> progress = m_openProgress(
                tr("Salvataggio"), tr("Salvataggio song..."), static_cast<int>(songs.size()));
            int number = 0;
            for (const QString &path : songs) {
                result.stopped = progress->wasCanceled();
                if (result.stopped)
                    break;
                const QString problem = save(path);
                if (problem.isEmpty())
                    result.done.append(path);
                else
                    result.failed.append({path, problem});
                const QList<SongInfoIndex *> changed = entriesOf(entries, path);
                for (SongInfoIndex *const entry : changed)
                    forgetTime(*entry);
                progress->updateProgress(++number);
            }
            return true;
        });
}

/** Runs the work on those of the songs that may be changed; the others have failed. */
SongChanges::Report SongChanges::runOn(const QStringList &paths, const WorkOnSongs &work)
{
    const SongRemoval rules(m_root);
    Report refused;
    QStringList songs;
    for (const QString &path : paths) {
        const QString reason = rules.whyNot(path);
        if (reason.isEmpty())
            songs.append(path);
        else
            refused.failed.append({path, reason});
    }
    // An index that nothing is going to make untrue need not be written anew.
    if (songs.isEmpty()) {
        refused.isIndexTrue = true;
        return refused;
    }
    Report report = run([&](QList<SongInfoIndex> &entries, Report &result) {
        return work(songs, entries, result);
    });
    report.failed = refused.failed + report.failed;
    return report;
}

SongChanges::Report SongChanges::updateIndex()
{
    return build(false);
}

SongChanges::Report SongChanges::rebuildIndex()
{
    return build(true);
}

SongChanges::Report SongChanges::build(bool anew)
{
    return runWithIndex(
        [this, anew](Index &index, std::unique_ptr<Progress> &progress, Report &report) {
            progress = m_openProgress(tr("Aggiornamento"), tr("Aggiornamento database..."), 0);
            const bool isWhole = anew ? index.createIndex(m_root) : index.updateIndex(m_root);
            if (!isWhole)
                report.refusal = whyNotBuilt(index);
            return isWhole;
        });
}

QString SongChanges::whyNotBuilt(const Index &index) const
{
    if (!isThere())
        return tr("La memoria non è più collegata.");
    if (index.filesFound == 0)
        return index.checkIndexFile() ? damagedText() : tr("Nella memoria non ci sono song.");
    return tr("Non è stato possibile aggiornare il database. Assicurarsi che la memoria abbia "
              "spazio libero e che non sia protetta da scrittura.");
}

QString SongChanges::damagedText()
{
    return tr("Il database della memoria è danneggiato: rigenerarlo.");
}

/** False when the memory was pulled; its folder may still be there, on the system disk. */
bool SongChanges::isThere() const
{
    return !m_device.isEmpty() && memoryDevice(m_root) == m_device;
}

SongChanges::Report SongChanges::run(const Work &work)
{
    return runWithIndex([&](Index &index, std::unique_ptr<Progress> &progress, Report &report) {
        const Index::Change changed = index.changeSongs(m_root, [&](QList<SongInfoIndex> &entries) {
            if (!entries.isEmpty() && !indexlists::agree(m_root, entries))
                indexlists::distrust(entries);
            if (!work(entries, report))
                return false;
            progress = m_openProgress(tr("Aggiornamento"), tr("Aggiornamento database..."), 0);
            return true;
        });
        if (changed == Index::Change::NotStarted)
            report.refusal = tr("Il database della memoria è danneggiato, o la memoria non si può "
                                "scrivere. Non è stato cambiato nulla.");
        return changed == Index::Change::Done || changed == Index::Change::NoSongsLeft;
    });
}

/** Runs the work while the memory is locked; its progress is told what the index tells. */
SongChanges::Report SongChanges::runWithIndex(const IndexWork &work)
{
    Report report;
    MemoryLock lock(m_root);
    const bool isLocked = isThere() && lock.take(); // a lock is a file, too
    if (!isThere())
        report.refusal = tr("La memoria non è più collegata.");
    else if (!isLocked)
        report.refusal = lock.message();
    if (!report.refusal.isEmpty())
        return report;
    Index index;
    index.expectedDevice = m_device;
    index.setRenameQuestion(m_question);
    std::unique_ptr<Progress> progress;
    QObject::connect(&index, &Index::errorFromIndex, &index,
                     [&report](const QString &message) { report.indexProblems.append(message); });
    QObject::connect(&index, &Index::leftOut, &index,
                     [&report](const QString &message) { report.indexProblems.append(message); });
    const auto setValue = [&progress](int value) {
        if (progress)
            progress->setValue(value);
    };
    QObject::connect(&index, &Index::fileFoundChanged, &index, setValue);
    QObject::connect(&index, &Index::progressValueChanged, &index, setValue);
    QObject::connect(&index, &Index::progressMaxSetup, &index, [&progress](int maximum) {
        if (progress)
            progress->setMaximum(maximum);
    });
    report.isIndexTrue = work(index, progress, report);
    return report;
}
