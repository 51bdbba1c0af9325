#include "devindex/transfer.h"

#include "devindex/folderrules.h"
#include "devindex/index.h"
#include "devindex/indexloader.h"
#include "devindex/memorydevice.h"
#include "devindex/shownnames.h"
#include "devindex/sizetext.h"
#include "devindex/songchanges.h"
#include "devindex/transferplanner.h"
#include "storage/diagnostics.h"
#include "storage/safefile.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStorageInfo>

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace
{

/** The songs of a memory whose root was chosen go here. */
constexpr QLatin1String songsFolder("/songs");

QString fileNameOf(const QString &path)
{
    return path.section(QLatin1Char('/'), -1);
}

/** A line for each. */
QStringList named(const QList<PlanExecution::Named> &songs, const ShownNames &names)
{
    QStringList lines;
    for (const PlanExecution::Named &song : songs)
        lines.append(names.of(song.path) + QLatin1String(": ") + song.reason);
    return lines;
}

void logBanner()
{
    logDebug() << "============================================";
    logDebug() << "          TRASFERIMENTO FILE";
    logDebug() << "============================================";
}

} // namespace

Transfer::Transfer(TransferUser &user, OpenProgress openProgress, FreeBytes freeBytes)
    : m_user(user)
    , m_openProgress(std::move(openProgress))
    , m_freeBytes(std::move(freeBytes))
{
}

Transfer::Outcome Transfer::transferFiles(const QStringList &files)
{
    const std::optional<Destination> destination = chooseDestination();
    if (!destination)
        return Outcome::NotStarted;
    const auto &[root, dest, isRoot] = *destination;
    m_device = memoryDevice(root);
    m_present.clear();
    QStringList songs = files;
    MemoryLock lock(root);
    if (!takeLock(lock, tr("Trasferimento"), isRoot))
        return Outcome::NotStarted;
    if (m_user.reviewsPlans()) {
        std::optional<TransferPlan> plan = makePlan(files, root, dest, Look::Quick);
        if (plan && plan->needsReview())
            plan = makePlan(files, root, dest, Look::Songs);
        if (!plan)
            return Outcome::NotStarted;
        const auto answer = plan->needsReview() ? review(*plan) : TransferUser::Review::AsAlways;
        if (answer == TransferUser::Review::Cancel || !isThere(*plan))
            return Outcome::NotStarted;
        if (answer == TransferUser::Review::CarryOut)
            return carryOut(*plan, lock);
        if (answer == TransferUser::Review::OnlyMissing)
            songs = leaveOutPresent(files, *plan);
        m_readBack = plan->readBack;
    }
    if (!hasRoom(songs, dest) || (isRoot && !makeSongsFolder(dest)))
        return Outcome::NotStarted;

    logBanner();
    FileCopier copier([this](const QString &target) { return m_user.askReplace(target); });
    copier.setReadBack(m_readBack);
    copier.setIgnoresCase(true);
    const bool copied = copyFiles(songs, dest, copier);
    const bool indexed = updateIndex(root);
    lock.release(); // whoever reads the result may pull the memory out

    m_changedSongs = copier.report().copied;
    const bool complete = copied && indexed;
    if (complete)
        m_user.inform(tr("Trasferimento"), tr("Tutti i file sono stati copiati correttamente"));
    else
        m_user.showFailure(tr("Trasferimento"), tr("Non è stato possibile copiare uno o più file"));
    tellCounts(copier.report(), ShownNames(files), songs.size(), indexed);
    return complete ? Outcome::Complete : Outcome::Incomplete;
}

std::optional<TransferPlan> Transfer::planTransfer(const QStringList &files, bool others)
{
    const std::optional<Destination> destination = chooseDestination();
    if (!destination)
        return std::nullopt;
    return makePlan(files, destination->root, destination->folder,
                    others ? Look::AlsoOthers : Look::Songs);
}

Transfer::Outcome Transfer::carryOut(const TransferPlan &plan)
{
    if (!isThere(plan))
        return Outcome::NotStarted;
    MemoryLock lock(plan.root);
    if (!takeLock(lock, tr("Trasferimento"), plan.folder == plan.root + songsFolder))
        return Outcome::NotStarted;
    return carryOut(plan, lock);
}

Transfer::Outcome Transfer::carryOut(const TransferPlan &plan, MemoryLock &lock)
{
    m_device = plan.device.isEmpty() ? memoryDevice(plan.root) : plan.device;
    if (plan.folder == plan.root + songsFolder && !makeSongsFolder(plan.folder))
        return Outcome::NotStarted;
    logBanner();
    PlanExecution execution(m_openProgress, [&](const std::function<bool()> &removal) {
        return updateIndex(plan.root, removal);
    });
    const PlanExecution::Result result = execution.run(plan);
    lock.release(); // who reads the outcome may pull the memory
    m_changedSongs = result.copied.size() + result.removed.size();

    if (result.isComplete())
        m_user.inform(tr("Trasferimento"), tr("Il piano è stato eseguito"));
    else
        m_user.showFailure(tr("Trasferimento"),
                           tr("Non è stato possibile eseguire tutto il piano"));
    QStringList chosen;
    for (const TransferPlan::Item &item : plan.items)
        chosen.append(item.path);
    tellCounts(result, ShownNames(chosen));
    return result.isComplete() ? Outcome::Complete : Outcome::Incomplete;
}

/** The files but those that are there under a shortened name, which are noted. */
QStringList Transfer::leaveOutPresent(const QStringList &files, const TransferPlan &plan)
{
    QSet<QString> present;
    for (const TransferPlan::Item &item : plan.items) {
        if (item.state != TransferPlan::State::Renamed)
            continue;
        present.insert(item.path);
        m_present.append({item.path, PlanExecution::whyNotNeeded(plan, item)});
    }
    QStringList left = files;
    left.removeIf([&present](const QString &file) { return present.contains(file); });
    return left;
}

/** The plan opens by itself: the user, who has not asked for it yet, decides what is replaced. */
TransferUser::Review Transfer::review(TransferPlan &plan)
{
    for (TransferPlan::Item &item : plan.items) {
        if (item.remedy == TransferPlan::Remedy::Replace)
            item.remedy = TransferPlan::Remedy::Skip;
    }
    return m_user.reviewPlan(plan);
}

/** Nothing when the user stopped it. */
std::optional<TransferPlan> Transfer::makePlan(const QStringList &files, const QString &root,
                                               const QString &folder, Look look)
{
    TransferPlanner planner(root, folder);
    MemoryRoom room = MemoryRoom::of(root);
    room.freeBytes = m_freeBytes(root);
    planner.setRoom(room);
    if (look == Look::AlsoOthers)
        planner.listOthers();
    if (look == Look::Quick)
        planner.trustNames();
    const std::unique_ptr<Progress> progress = m_openProgress(
        tr("Trasferimento"), tr("Confronto con la memoria..."), static_cast<int>(files.size()));
    std::optional<TransferPlan> plan = planner.plan(files, *progress);
    if (plan)
        plan->readBack = m_readBack;
    return plan;
}

bool Transfer::updateKavenaIndex(const QString &path)
{
    const QString root = m_volumes.getRoot(path);
    m_device = memoryDevice(root);
    if (m_device.isEmpty())
        return false;
    MemoryLock lock(root);
    return takeLock(lock, tr("Aggiornamento"), false) && updateIndex(root);
}

/** A removal runs while there is no index, or not at all. */
bool Transfer::updateIndex(const QString &root, const std::function<bool()> &removal)
{
    m_isIndexDamaged = false;
    // The folder of a memory that was pulled out may still be there.
    const QByteArray device = memoryDevice(root);
    if (device.isEmpty() || device != m_device)
        return false;
    std::unique_ptr<Progress> progress;
    const auto open = [&] {
        // The number of songs is not known before the scan has found them: 0 shows a busy bar.
        progress = m_openProgress(tr("Aggiornamento"), tr("Aggiornamento database..."), 0);
    };
    const auto setValue = [&progress](int value) {
        if (progress)
            progress->setValue(value);
    };
    const auto setMaximum = [&progress](int maximum) {
        if (progress)
            progress->setMaximum(maximum);
    };

    Index index;
    index.expectedDevice = m_device;
    index.setRenameQuestion([this](const QString &item, const QString &message) {
        return m_user.askRename(item, message);
    });
    m_indexProblems.clear();
    QObject::connect(&index, &Index::errorFromIndex, &index,
                     [this](const QString &message) { m_indexProblems.append(message); });
    QObject::connect(&index, &Index::leftOut, &index,
                     [this](const QString &message) { m_indexProblems.append(message); });
    QObject::connect(&index, &Index::fileFoundChanged, &index, setValue);
    QObject::connect(&index, &Index::progressValueChanged, &index, setValue);
    QObject::connect(&index, &Index::progressMaxSetup, &index, setMaximum);
    if (removal)
        return index.updateIndexAfter(root, [&] {
            const bool isOnMedium = removal(); // shows a progress of its own
            open();
            return isOnMedium;
        });
    open();
    if (index.updateIndex(root))
        return true;
    m_isIndexDamaged = IndexLoader::isDamaged(root);
    return false;
}

/** An accepted folder, without a slash at its end; nothing ends the transfer. */
std::optional<Transfer::Destination> Transfer::chooseDestination()
{
    const QString title = tr("Trasferimento");
    const QString chosen = m_user.chooseFolder(tr("Scegli cartella"), m_volumes.startFolder());
    if (chosen.isEmpty())
        return std::nullopt;
    // What a link leads to is judged, and not where the link lies.
    const QString dest = m_volumes.withoutLinks(chosen);

    if (dest.isEmpty() || m_volumes.isSystemDisk(dest)) {
        m_user.warn(title, tr("Non è possibile copiare i file sul disco di sistema"));
        return std::nullopt;
    }
    if (!m_volumes.isRoot(dest) && isReservedFolder(fileNameOf(dest))) {
        m_user.warn(title, tr("Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST "
                              "perchè sono riservate per funzionalità specifiche di Kavena, "
                              "selezionare un'altra cartella"));
        return std::nullopt;
    }
    Destination destination{m_volumes.getRootDrivePath(dest), dest, m_volumes.isRoot(dest)};
    if (destination.isRoot && !findSongsFolder(destination))
        return std::nullopt;
    return destination;
}

/** False when the songs of this memory would not get onto it; the user has been told. */
bool Transfer::findSongsFolder(Destination &destination)
{
    const QString songs = destination.root + songsFolder;
    destination.folder = m_volumes.withoutLinks(songs);
    if (destination.folder.startsWith(destination.root + QLatin1Char('/')) &&
        !isReservedFolder(fileNameOf(destination.folder)))
        return true;
    m_user.warn(tr("Trasferimento"), tr("La cartella %1 è un collegamento a un'altra cartella, "
                                        "dove le song non possono essere copiate")
                                         .arg(QDir::toNativeSeparators(songs)));
    return false;
}

/** False when the memory is gone, perhaps while the plan was looked at; the user has been told. */
bool Transfer::isThere(const TransferPlan &plan)
{
    if (plan.isMemoryThere())
        return true;
    m_user.warn(tr("Trasferimento"), WriteProblem::sentence(WriteProblem::Gone));
    return false;
}

/** False when the memory must be left as it is; the user has been told why. */
bool Transfer::takeLock(MemoryLock &lock, const QString &title, bool isRoot)
{
    if (lock.take())
        return true;
    m_user.warn(title, isRoot && !lock.isHeldByOther() && !lock.isFolderInTheWay()
                           ? whyNotIntoRoot(lock.problem())
                           : lock.message());
    return false;
}

/** False when there is no such folder now; the user has been told why. */
bool Transfer::makeSongsFolder(const QString &songs)
{
    const QFileInfo there(songs);
    if (there.isDir() && !there.isSymLink())
        return true;
    // Folders above it are not made: after a memory was pulled they would be made on the system
    // disk.
    std::error_code error;
    if (std::filesystem::create_directory(QFileInfo(songs).filesystemFilePath(), error) &&
        flushPath(songs) && flushFolderOf(songs))
        return true;
    WriteProblem::Kind problem = WriteProblem::Unknown;
    if (error == std::errc::read_only_file_system)
        problem = WriteProblem::ReadOnly;
    if (error == std::errc::no_space_on_device)
        problem = WriteProblem::Full;
    m_user.warn(tr("Trasferimento"), whyNotIntoRoot(problem));
    return false;
}

/** Advises a sub-folder, but not on a memory to which nothing at all can be written. */
QString Transfer::whyNotIntoRoot(WriteProblem::Kind problem)
{
    if (problem == WriteProblem::ReadOnly || problem == WriteProblem::Full)
        return WriteProblem::sentence(problem);
    return tr("Non è possibile copiare i file sulla cartella principale, "
              "creare o selezionare una sottocartella");
}

/** False when the files do not fit and the user does not want to try. */
bool Transfer::hasRoom(const QStringList &files, const QString &dest)
{
    const qint64 available = m_freeBytes(QFileInfo(dest).isDir() ? dest : QFileInfo(dest).path());
    if (available < 0)
        return true;
    const qint64 missing = FileCopier::roomNeeded(files, dest) - available;
    if (missing <= 0)
        return true;
    return m_user.askAnyway(tr("Trasferimento"), missingRoomText(missing));
}

QString Transfer::missingRoomText(qint64 bytes)
{
    return tr("Lo spazio libero nella memoria non è sufficiente: mancano %1.\n"
              "Si vuole procedere comunque con la copia?")
        .arg(sizeText(bytes));
}

/** True when no file failed; the progress is gone when this returns. */
bool Transfer::copyFiles(const QStringList &files, const QString &dest, FileCopier &copier)
{
    const std::unique_ptr<Progress> progress = m_openProgress(
        tr("Trasferimento"), tr("Trasferimento file..."), static_cast<int>(files.size()));
    int copied = 0;
    return copier.copyFiles(files, dest, copied, *progress);
}

void Transfer::tellPresent(const QList<PlanExecution::Named> &songs, const ShownNames &names)
{
    if (!songs.isEmpty())
        m_user.tellPresent(named(songs, names));
}

/** The box before this one says whether all went well; this one says what did not. */
void Transfer::tellCounts(const FileCopier::Report &report, const ShownNames &names,
                          qsizetype files, bool indexed)
{
    const qsizetype notCopied = report.skipped.size() + report.replaced.size();
    const qsizetype stopped = files - report.copied - notCopied - report.failed.size();
    QStringList lines = {tr("Song copiate: %1").arg(report.copied),
                         tr("Song saltate: %1").arg(notCopied),
                         tr("Song non copiate (errori): %1").arg(report.failed.size())};
    if (!m_present.isEmpty())
        lines.insert(1, tr("Song già presenti: %1").arg(m_present.size()));
    if (stopped > 0)
        lines.append(tr("Song non più copiate dopo l'interruzione: %1").arg(stopped));
    lines += indexLines(indexed);
    QStringList skipped;
    for (const QString &source : report.skipped)
        skipped.append(tr("%1: esisteva già e non è stata sostituita").arg(names.of(source)));
    for (const QString &source : report.replaced)
        skipped.append(
            tr("%1: sostituita da un'altra song scelta con lo stesso nome").arg(names.of(source)));
    tellPresent(m_present, names);
    m_user.tellCounts(tr("Trasferimento"), lines.join(QLatin1Char('\n')),
                      report.failedLines(names) + m_indexProblems, skipped);
}

void Transfer::tellCounts(const PlanExecution::Result &result, const ShownNames &names)
{
    QStringList lines = {tr("Song copiate: %1").arg(result.copied.size()),
                         tr("Song già presenti: %1").arg(result.alreadyThere.size()),
                         tr("Song saltate: %1").arg(result.skipped.size()),
                         tr("Song rimosse: %1").arg(result.removed.size()),
                         tr("Errori: %1").arg(result.failed.size())};
    if (!result.notReached.isEmpty())
        lines.append(
            tr("Song non più copiate dopo l'interruzione: %1").arg(result.notReached.size()));
    lines += indexLines(result.indexed);
    QStringList skipped = named(result.skipped, names);
    const ShownNames onMemory(result.replaced + result.removedPictures + result.removed);
    for (const QString &song : result.replaced)
        skipped.append(tr("%1: sostituita").arg(onMemory.of(song)));
    for (const QString &song : result.removedPictures + result.removed)
        skipped.append(tr("%1: rimossa").arg(onMemory.of(song)));
    tellPresent(result.alreadyThere, names);
    m_user.tellCounts(tr("Trasferimento"), lines.join(QLatin1Char('\n')),
                      named(result.failed, names) + m_indexProblems, skipped);
}

/** What there is to say about the index; nothing when all is well. */
QStringList Transfer::indexLines(bool indexed) const
{
    QStringList lines;
    if (!indexed)
        lines.append(tr("Il database della memoria non è stato aggiornato."));
    if (m_isIndexDamaged)
        lines.append(SongChanges::damagedText());
    if (!m_indexProblems.isEmpty())
        lines.append(tr("Song della memoria con problemi: %1").arg(m_indexProblems.size()));
    return lines;
}

qint64 Transfer::bytesAvailable(const QString &folder)
{
    const QStorageInfo storage(folder);
    return storage.isValid() ? storage.bytesAvailable() : -1;
}
