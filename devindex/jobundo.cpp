#include "devindex/jobundo.h"

#include "devindex/index.h"
#include "devindex/songchanges.h"
#include "library/keepalive.h"

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QMultiMap>
#include <QSet>

#include <memory>
#include <utility>

namespace
{

/** A part of the work whose steps are counted elsewhere. */
class UncountedPart : public Progress
{
public:
    explicit UncountedPart(const Progress &whole)
        : m_whole(whole)
    {
    }
    void setMaximum(int) override {}
    void setValue(int) override {}
    void updateProgress(int) override {}
    bool wasCanceled() const override { return m_whole.wasCanceled(); }

private:
    const Progress &m_whole;
};

/** The path of a file on a memory, as its folder is really called. */
QString realPath(const QString &path)
{
    const QFileInfo file(path);
    return QDir(QFileInfo(file.path()).canonicalFilePath()).filePath(file.fileName());
}

} // namespace

/** What one call of takeBack() is about. */
struct JobUndo::Work {
    bool alsoChanged;
    HistoryRecorder &recorder;
    Progress &progress;
    HistoryUndo::Report report;
    int done = 0;

    void add(const HistoryUndo::Report &part)
    {
        report.done += part.done;
        report.renamed += part.renamed;
        report.failed += part.failed;
        report.alreadyOld += part.alreadyOld;
        report.leftAlone += part.leftAlone;
        report.stopped = report.stopped || part.stopped;
    }
};

JobUndo::JobUndo(HistoryStore &store, OpenProgress openProgress)
    : m_store(store)
    , m_undo(store)
    , m_openProgress(std::move(openProgress))
{
    m_undo.setRename(
        [this](const QString &path, const QString &target) { return renameSong(path, target); });
}

HistoryUndo::Report JobUndo::takeBack(const HistoryJob &job, const QList<HistorySong> &songs,
                                      bool alsoChanged, HistoryRecorder &recorder,
                                      Progress &progress)
{
    QList<HistorySong> elsewhere;
    QMap<QString, QList<HistorySong>> onMemories;
    for (const HistorySong &song : songs) {
        const QString memory = song.newPath.isEmpty() ? memoryOf(song.path) : QString();
        if (memory.isEmpty())
            elsewhere.append(song);
        else
            onMemories[memory].append(song);
    }
    m_untrue.clear();
    Work work{alsoChanged, recorder, progress, {}};
    work.report = m_undo.takeBack(elsewhere, alsoChanged, recorder, progress);
    work.done = static_cast<int>(elsewhere.size());
    for (auto memory = onMemories.cbegin(); memory != onMemories.cend(); ++memory) {
        if (!work.report.stopped)
            takeBackOn(memory.key(), memory.value(), work);
    }
    for (const QString &root : std::as_const(m_untrue))
        work.report.failed.append({root, tr("il database della memoria non è aggiornato")});
    // A job of which nothing could be taken back is still the last one.
    const bool isBegun = !work.report.done.isEmpty() || work.report.alreadyOld > 0;
    // So is one of which a song was left alone that was changed since: it may be wished, too.
    const bool isFinished =
        !work.report.stopped && work.report.failed.size() == work.report.leftAlone;
    if (isBegun && isFinished && songs.size() >= job.songs)
        m_store.setUndone(job.number);
    return work.report;
}

/** The root of the memory with a complete index that holds the file; else nothing. */
QString JobUndo::memoryOf(const QString &path)
{
    const QString folder = QFileInfo(QFileInfo(path).path()).canonicalFilePath();
    if (folder.isEmpty())
        return {};
    const auto known = m_memories.constFind(folder);
    if (known != m_memories.constEnd())
        return *known;
    QString &found = m_memories[folder];
    for (QString above = folder; found.isEmpty();) {
        Index index;
        index.rootPath = above;
        if (index.checkIndexFile())
            found = above;
        const QString next = QFileInfo(above).path();
        if (next == above)
            break;
        above = next;
    }
    return found;
}

/** The songs of one memory, whose index is brought up to date once. */
void JobUndo::takeBackOn(const QString &root, const QList<HistorySong> &songs, Work &work)
{
    QMultiMap<QString, HistorySong> steps; // a song that was written twice has two
    QStringList paths;
    UncountedPart part(work.progress);
    const auto step = [&](const HistorySong &song) {
        const HistoryUndo::Report one =
            m_undo.takeBack({song}, work.alsoChanged, work.recorder, part);
        work.add(one);
        work.progress.updateProgress(++work.done);
        KeepAlive::processEventsNow();
        return one.failed.isEmpty() ? QString() : one.failed.constFirst().reason;
    };
    // Whatever the job did first is taken back last.
    for (qsizetype next = songs.size(); next > 0; --next) {
        const HistorySong &song = songs.at(next - 1);
        const HistoryUndo::Found found = m_undo.find(song);
        const QString path = realPath(found.path).mid(root.size());
        const bool isToBeWritten =
            found.state == HistoryUndo::State::AsLeft ||
            (found.state == HistoryUndo::State::Moved && memoryOf(found.path) == root) ||
            ((found.state == HistoryUndo::State::Changed ||
              found.state == HistoryUndo::State::Unreadable) &&
             work.alsoChanged) ||
            (!found.path.isEmpty() && steps.contains(path));
        if (!isToBeWritten) {
            step(song); // mostly tells why not
            continue;
        }
        if (!steps.contains(path))
            paths.append(path);
        steps.insert(path, song);
    }
    if (paths.isEmpty())
        return;

    bool isCounted = true;
    SongChanges changes(root, [&](const QString &title, const QString &label, int maximum) {
        // The first is that of the songs, which are counted here.
        return std::exchange(isCounted, false) ? std::make_unique<UncountedPart>(work.progress)
                                               : m_openProgress(title, label, maximum);
    });
    QSet<QString> begun;
    const SongChanges::Report report = changes.rewriteAll(paths, [&](const QString &path) {
        begun.insert(path);
        QString reason;
        QList<HistorySong> ofPath = steps.values(path); // the last that was put in comes first
        for (auto song = ofPath.crbegin(); song != ofPath.crend(); ++song)
            reason = step(*song);
        return reason;
    });
    work.report.stopped = work.report.stopped || report.stopped;
    for (const SongChanges::Failure &failure : report.failed) {
        if (!begun.contains(failure.path))
            work.report.failed.append({root + failure.path, failure.reason});
    }
    if (!report.refusal.isEmpty()) {
        for (const QString &path : std::as_const(paths))
            work.report.failed.append({root + path, report.refusal});
    } else if (!report.isIndexTrue) {
        m_untrue.append(root);
    }
}

/** Why the song does not have the other name, or not wholly. */
QString JobUndo::renameSong(const QString &path, const QString &target)
{
    const QString root = memoryOf(path);
    if (root.isEmpty() || QFileInfo(path).path() != QFileInfo(target).path())
        return HistoryUndo::renameSong(path, target);
    SongChanges changes(root, m_openProgress);
    const SongChanges::Report report =
        changes.rename(realPath(path).mid(root.size()), QFileInfo(target).fileName());
    if (!report.refusal.isEmpty())
        return report.refusal;
    if (!report.isIndexTrue && !m_untrue.contains(root))
        m_untrue.append(root);
    return report.failed.isEmpty() ? QString() : report.failed.constFirst().reason;
}
