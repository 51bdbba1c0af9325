#include "library/historyundo.h"

#include "formats/metasong.h"
#include "formats/songnames.h"
#include "library/companion.h"
#include "library/keepalive.h"
#include "library/runreport.h"
#include "storage/leftovers.h"
#include "storage/safefile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace
{

/** So many songs wait for the disk together. */
constexpr qsizetype songsAtOnce = 16;

SongInfo infoOf(const QString &path)
{
    MetaSong song;
    SongInfo info;
    if (song.importFile(path))
        song.getSongInfo(info);
    return info;
}

QString placeAfter(const HistorySong &song)
{
    return song.newPath.isEmpty() ? song.path : song.newPath;
}

} // namespace

HistoryUndo::HistoryUndo(HistoryStore &store)
    : m_store(store)
{
}

void HistoryUndo::setKnownSongs(const QStringList &paths)
{
    m_known.clear();
    m_knownBytes.clear();
    m_written.clear();
    for (const QString &path : paths)
        m_known.insert(QFileInfo(path).size(), path);
}

HistoryUndo::Found HistoryUndo::find(const HistorySong &song)
{
    const QString place = placeAfter(song);
    const bool isThere = QFileInfo(place).isFile();
    if (isThere) {
        const auto now = SongSnapshot::of(place);
        if (now && now->digest == song.newDigest)
            return {State::AsLeft, place};
        if (!now)
            return {State::Unreadable, place};
        if (song.newPath.isEmpty())
            return {now->digest == song.oldDigest ? State::AlreadyOld : State::Changed, place};
    }
    const QStringList candidates = knownWith(song);
    for (const QString &path : candidates) {
        // A copy that the job wrote by itself is no other song's.
        if (isAnothers(song, path))
            continue;
        const auto now = SongSnapshot::of(path);
        if (now && now->digest == song.newDigest)
            return {path == song.path ? State::AlreadyOld : State::Moved, path};
    }
    return isThere ? Found{State::Changed, place} : Found{};
}

/**
 * The known songs that had the bytes in which the job left this one. Each is read for it once: a
 * folder with thousands of songs may have got another name.
 */
QStringList HistoryUndo::knownWith(const HistorySong &song)
{
    const QStringList unread = m_known.values(song.newSize);
    for (const QString &path : unread) {
        const auto now = SongSnapshot::of(path);
        if (!now)
            continue; // another program may be saving it: it is asked for again
        m_knownBytes.insert(now->digest, path);
        m_known.remove(song.newSize, path);
    }
    return m_knownBytes.values(song.newDigest);
}

/** True when the song's job wrote a song at the path that is not this one. */
bool HistoryUndo::isAnothers(const HistorySong &song, const QString &path)
{
    auto job = m_written.find(song.job);
    if (job == m_written.end()) {
        QMultiHash<QString, qint64> places;
        const QList<HistorySong> all = m_store.songs(song.job);
        for (const HistorySong &other : all)
            places.insert(placeAfter(other), other.id);
        job = m_written.insert(song.job, places);
    }
    const QList<qint64> ids = job->values(path);
    return std::any_of(ids.cbegin(), ids.cend(), [&song](qint64 id) { return id != song.id; });
}

HistoryUndo::Report HistoryUndo::takeBack(const QList<HistorySong> &songs, bool alsoChanged,
                                          HistoryRecorder &recorder, Progress &progress)
{
    Report report;
    Leftovers leftovers;
    struct Step {
        const HistorySong *song;
        Found found;
    };
    QList<Step> steps;
    int done = 0;
    // Whatever the job did first is taken back last: a song may have been written twice.
    for (qsizetype next = songs.size(); next > 0 || !steps.isEmpty();) {
        report.stopped = report.stopped || progress.wasCanceled();
        if (report.stopped)
            break;
        QStringList paths;
        while (next > 0 && steps.size() < songsAtOnce) {
            const HistorySong &song = songs.at(next - 1);
            if (paths.contains(placeAfter(song)))
                break; // the job wrote it twice: what is waiting comes first
            const Found found = find(song);
            if (found.state == State::Missing && !steps.isEmpty())
                break; // a moved song that the job wrote twice: likewise
            --next;
            if (found.state == State::AlreadyOld)
                ++report.alreadyOld;
            else if (found.state == State::Missing)
                report.missing(placeAfter(song), tr("il file non c'è più"));
            else if (found.state == State::Changed && !alsoChanged)
                report.failed.append({found.path, tr("è stata cambiata dopo")});
            else if (found.state == State::Unreadable && !alsoChanged)
                report.failed.append(
                    {found.path, RunReport::reasonText(loadFailureOf(found.path))});
            else
                steps.append({&song, found});
            if (steps.isEmpty() || steps.constLast().song != &song) {
                progress.updateProgress(++done);
                KeepAlive::processEventsNow();
            } else if (song.newPath.isEmpty()) {
                paths.append(found.path);
            }
        }
        if (!recorder.keep(paths)) {
            report.stopped = true;
            break;
        }
        for (const Step &step : std::as_const(steps)) {
            report.stopped = report.stopped || progress.wasCanceled();
            if (report.stopped)
                break;
            const QString path = step.found.path;
            leftovers.tidyBeside(path);
            const bool isRename = !step.song->newPath.isEmpty();
            const QString problem = isRename
                                        ? renameBack(*step.song, path, recorder, report)
                                        : takeBackOne(*step.song, step.found, recorder, report);
            if (problem.isEmpty())
                report.done.append(isRename ? nameBefore(*step.song, path) : path);
            else
                report.failed.append({path, problem});
            progress.updateProgress(++done);
            KeepAlive::processEventsNow();
        }
        steps.clear();
    }
    return report;
}

/** Why the song stays as it is; empty when it is as it was. */
QString HistoryUndo::takeBackOne(const HistorySong &song, const Found &found,
                                 HistoryRecorder &recorder, Report &report)
{
    const QString &path = found.path;
    const std::optional<SongSnapshot> old = m_store.snapshot(song);
    // Only of a song that is as the job left it the audio tells whether the kept tag is whole.
    const bool isAsLeft = found.state == State::AsLeft || found.state == State::Moved;
    std::optional<bool> isWhole = false;
    if (old)
        isWhole = isAsLeft ? old->fitsAudioOf(path) : old->holdsItsTag();
    if (!isWhole)
        return RunReport::reasonText(loadFailureOf(path));
    if (!*isWhole) {
        ++report.leftAlone; // it will be no better the next time
        return tr("la cronologia non la conserva più, o è danneggiata");
    }
    const SongInfo before = infoOf(path);
    SaveFailure failure = SaveFailure::None;
    KeepAlive::workInBackground([&] {
        failure = old->restore(path);
        return failure == SaveFailure::None;
    });
    recorder.written(path, before, infoOf(path));
    if (found.state == State::Moved)
        m_knownBytes.insert(old->digest, path); // the job may have written it twice
    return RunReport::reasonText(failure);
}

/** Why the song keeps its name; empty when it has the old one. */
QString HistoryUndo::renameBack(const HistorySong &song, const QString &path,
                                HistoryRecorder &recorder, Report &report)
{
    const QString target = nameBefore(song, path);
    // A name is all that a renaming changes; anything else a stranger has put into the history.
    const QFileInfo before(song.path);
    const QFileInfo after(song.newPath);
    if (QDir::cleanPath(before.path()) != QDir::cleanPath(after.path()) ||
        !songnames::isSongName(target) ||
        before.suffix().compare(after.suffix(), Qt::CaseInsensitive) != 0) {
        ++report.leftAlone;
        return tr("la cronologia non la conserva più, o è danneggiata");
    }
    if (isTaken(target)) {
        ++report.leftAlone;
        return tr("il nome di prima è di un altro file");
    }
    if (!recorder.keepRenamed(path, target))
        return tr("la cronologia non può essere scritta");
    QString problem = m_rename ? m_rename(path, target) : renameSong(path, target);
    if (QFileInfo(target).isFile() && !isTaken(path)) {
        recorder.written(path, song.after, song.before);
        report.renamed.append({path, target});
    } else {
        recorder.forget(path);
    }
    return problem;
}

QString HistoryUndo::renameSong(const QString &path, const QString &target)
{
    // Qt's own renaming copies where it cannot rename.
    const QString pictures = companionOf(path);
    const QString oldPictures = pictures.isEmpty() ? QString() : companionTarget(pictures, target);
    if (isTaken(target) || !renameOver(path, target))
        return tr("non è stato possibile rinominarla");
    // The player finds a song's karaoke pictures by the song's name.
    const bool broughtPictures =
        pictures.isEmpty() || (!isTaken(oldPictures) && renameOver(pictures, oldPictures));
    if (!broughtPictures)
        renameOver(target, path);
    const bool onMedium = flushFolderOf(target) && flushFolderOf(path);
    if (!broughtPictures)
        return tr("le sue immagini karaoke non sono state rinominate");
    return onMedium ? QString() : tr("il disco non ha confermato il nuovo nome");
}

QString HistoryUndo::nameBefore(const HistorySong &song, const QString &path)
{
    // A song that the user has put into another folder stays there.
    return QFileInfo(path).dir().filePath(QFileInfo(song.path).fileName());
}
