#include "devindex/severalrenamer.h"

#include "devindex/songrenamer.h"
#include "library/keepalive.h"
#include "storage/safefile.h"

#include <algorithm>
#include <utility>

SeveralRenamer::SeveralRenamer(Renamed renamed)
    : m_renamed(std::move(renamed))
{
}

SeveralRenamer::Report SeveralRenamer::run(const QList<SeveralRename> &songs, Progress &progress)
{
    Report report;
    progress.setMaximum(static_cast<int>(std::count_if(
        songs.cbegin(), songs.cend(), [](const SeveralRename &song) { return song.isRenamed(); })));
    m_history = m_openHistory ? m_openHistory(HistoryJob::Kind::Rename) : nullptr;
    int done = 0;
    for (const SeveralRename &song : songs) {
        if (!song.isRenamed())
            continue;
        KeepAlive::processEventsNow();
        report.stopped = progress.wasCanceled() || !rename(song, report);
        if (report.stopped)
            break;
        progress.updateProgress(++done);
    }
    m_history.reset();
    return report;
}

/** False when the user does not want to go on without a history. */
bool SeveralRenamer::rename(const SeveralRename &song, Report &report)
{
    const QString &path = song.info.fileName;
    const auto fail = [&](const QString &reason) {
        report.problems.append({SongFinding::Kind::NotSaved, path, reason});
        return true;
    };
    m_leftovers.tidyBeside(path);
    if (!isTaken(path))
        return fail(RunReport::reasonText(SaveFailure::FileGone));
    if (isTaken(song.newPath))
        return fail(tr("Un altro file ha già il nome nuovo"));
    if (m_history && !m_history->keepRenamed(path, song.newPath))
        return false;
    songrenamer::Result result;
    KeepAlive::workInBackground([&] {
        result = songrenamer::rename(path, song.newPath);
        return result.outcome == songrenamer::Outcome::Renamed;
    });
    if (result.outcome != songrenamer::Outcome::Renamed) {
        if (m_history)
            m_history->forget(path);
        return fail(result.outcome == songrenamer::Outcome::Unfinished
                        ? tr("Il suo ultimo salvataggio non è finito")
                        : tr("Il file non può essere rinominato"));
    }
    ++report.renamed;
    if (m_history)
        m_history->written(path, song.info, song.info);
    if (m_renamed)
        m_renamed(path, song.newPath);
    return result.onMedium || fail(tr("Il disco non ha confermato il nome nuovo"));
}
