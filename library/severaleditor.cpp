#include "library/severaleditor.h"

#include "library/keepalive.h"
#include "library/unreadablefile.h"

#include <QSet>

#include <utility>

SeveralEditor::SeveralEditor(Tried tried)
    : m_tried(std::move(tried))
{
}

SeveralEditor::Report SeveralEditor::run(const QList<SeveralSong> &songs, Progress &progress)
{
    QList<SeveralSong> changed;
    QSet<QString> paths;
    for (const SeveralSong &song : songs) {
        if (!song.isChanged() || paths.contains(song.before.fileName))
            continue;
        paths.insert(song.before.fileName);
        changed.append(song);
    }

    Report report;
    progress.setMaximum(static_cast<int>(changed.size()));
    m_history = m_openHistory ? m_openHistory(HistoryJob::Kind::EditSeveral) : nullptr;
    for (qsizetype place = 0; place < changed.size(); ++place) {
        KeepAlive::processEventsNow();
        report.stopped = progress.wasCanceled() || !keepNext(changed, place);
        if (report.stopped)
            break;
        m_leftovers.tidyBeside(changed.at(place).before.fileName);
        if (MetaSong::takesLongToImport(changed.at(place).before.fileName))
            progress.catchUp();
        write(changed.at(place), report);
        progress.updateProgress(static_cast<int>(place) + 1);
    }
    m_history.reset();
    return report;
}

/** Keeps several songs for one wait for the disk; false to stop. */
bool SeveralEditor::keepNext(const QList<SeveralSong> &songs, qsizetype place)
{
    if (!m_history || place % HistoryRecorder::songsAtOnce != 0)
        return true;
    QStringList paths;
    for (const SeveralSong &song : songs.mid(place, HistoryRecorder::songsAtOnce))
        paths.append(song.before.fileName);
    return m_history->keep(paths);
}

/**
 * Loads the song and edits it in memory. Why it must not be saved, in the user's words; empty when
 * it may.
 */
QString SeveralEditor::problemBeforeSave(const SeveralSong &song, MetaSong &file,
                                         SaveFailure &failure) const
{
    const QString &path = song.before.fileName;
    if (!file.importFile(path)) {
        failure = file.wasInUse() ? SaveFailure::InUse : loadFailureOf(path);
        return RunReport::reasonText(failure);
    }
    SongInfo now;
    file.getSongInfo(now);
    if (!SongStandIn::isSame(now, song.before) ||
        (song.setsMarkers && now.markers != song.before.markers))
        return tr("È stata cambiata dopo l'anteprima");
    SongInfo wanted = song.wanted;
    if (song.setsMarkers)
        file.setMarkers(wanted.markers);
    else
        wanted.markers = now.markers; // what the steps leave alone stays as the file has it
    file.setSongInfo(wanted, true);
    SongInfo edited;
    file.getSongInfo(edited);
    const bool hasMarkers = !song.setsMarkers || edited.markers == wanted.markers;
    return SongStandIn::isSame(edited, song.after) && hasMarkers
               ? QString()
               : tr("Questo file non può contenere i dati mostrati");
}

void SeveralEditor::write(const SeveralSong &song, Report &report)
{
    const QString &path = song.before.fileName;
    MetaSong file;
    SaveFailure failure = SaveFailure::None;
    QString problem = problemBeforeSave(song, file, failure);
    const bool isTried = problem.isEmpty();
    if (isTried) {
        KeepAlive::workInBackground([&] {
            failure = file.save(path);
            return failure == SaveFailure::None;
        });
        problem = RunReport::reasonText(failure);
    }
    SongInfo now = song.before;
    MetaSong onDisk;
    if (onDisk.importFile(path))
        onDisk.getSongInfo(now);
    now.fileName = path;
    if (problem.isEmpty())
        ++report.written;
    else
        report.problems.add(SongFinding::Kind::NotSaved, path, problem);
    if (m_history && isTried)
        m_history->written(path, song.before, now);
    else if (m_history)
        m_history->forget(path); // what another program wrote is not this job's
    if (m_tried)
        m_tried(now,
                problem.isEmpty() || failure != SaveFailure::None ? failure : SaveFailure::Other);
}
