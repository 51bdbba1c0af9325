#include "cli/historycommand.h"

#include "cli/songpaths.h"
#include "devindex/jobundo.h"
#include "library/historytexts.h"

#include <algorithm>

ExitStatus HistoryCommand::run()
{
    const QString problem = historytexts::problem(m_history.history().open());
    if (!problem.isEmpty())
        return m_terminal.refuse(HistoryStore::defaultPath(), problem);
    return m_request.command == Request::Command::History ? list() : takeBack();
}

ExitStatus HistoryCommand::list()
{
    const QList<HistoryJob> jobs = m_history.history().store().jobs();
    for (const HistoryJob &job : jobs) {
        m_writer.job(job, job.isUndone);
        m_terminal.countDone();
    }
    return m_terminal.status();
}

ExitStatus HistoryCommand::takeBack()
{
    HistoryStore &store = m_history.history().store();
    const QList<HistoryJob> jobs = store.jobs();
    std::optional<HistoryJob> job = UserHistory::last(jobs);
    if (m_request.job) {
        const auto named =
            std::find_if(jobs.cbegin(), jobs.cend(), [this](const HistoryJob &other) {
                return other.number == *m_request.job;
            });
        if (named == jobs.cend())
            return m_terminal.refuse(tr("La cronologia non ha il lavoro %1").arg(*m_request.job));
        job = *named;
    }
    if (!job)
        return m_terminal.refuse(tr("Non c'è niente da annullare"));
    const std::optional<QList<HistorySong>> songs = chosenSongs(*job);
    if (!songs)
        return m_terminal.failures() > 0 ? ExitStatus::WithFailures : ExitStatus::NothingDone;

    m_history.begin(HistoryJob::Kind::TakeBack, job->number);
    const auto progress =
        m_terminal.openProgress({}, tr("Annullamento"), static_cast<int>(songs->size()));
    JobUndo undo(store, m_terminal.progressOpener());
    // Later jobs may have given its songs other names.
    QStringList names;
    for (const HistoryJob &later : jobs) {
        if (later.number <= job->number)
            break;
        const QList<HistorySong> laterSongs = store.songs(later.number);
        for (const HistorySong &song : laterSongs) {
            if (!song.newPath.isEmpty())
                names.append(song.newPath);
        }
    }
    undo.setKnownSongs(names);
    const HistoryUndo::Report report = undo.takeBack(
        *job, *songs, m_request.changed.value_or(false), m_history.recorder(), *progress);
    m_history.end();
    for (const QString &path : report.done) {
        m_writer.takenBack(path, {});
        m_terminal.countDone();
    }
    for (const HistoryUndo::Failure &failure : report.failed) {
        m_writer.takenBack(failure.path, failure.reason);
        m_terminal.fail(failure.path, failure.reason);
    }
    if (report.stopped && !m_terminal.isStopped())
        m_history.tellRefused();
    return m_terminal.status();
}

/** All songs of the job, or those that were named; nothing when one of these is none of the job's.
 */
std::optional<QList<HistorySong>> HistoryCommand::chosenSongs(const HistoryJob &job)
{
    const QList<HistorySong> all = m_history.history().store().songs(job.number);
    const std::optional<QList<QByteArray>> given = SongPaths::given(m_request, m_terminal);
    if (!given)
        return {};
    QList<HistorySong> written;
    for (const HistorySong &song : all) {
        if (!song.newDigest.isEmpty()) // else the job did not come to it
            written.append(song);
    }
    if (given->isEmpty())
        return written;
    QStringList names;
    for (const QByteArray &bytes : *given) {
        const std::optional<QString> path = SongPaths::decode(bytes, m_terminal);
        if (!path)
            return {};
        names.append(CommandHistory::absolute(*path));
    }
    QList<HistorySong> chosen;
    QStringList found;
    for (const HistorySong &song : std::as_const(written)) {
        if (!names.contains(song.path) && !names.contains(song.newPath))
            continue;
        chosen.append(song);
        found << song.path << song.newPath;
    }
    for (const QString &name : std::as_const(names)) {
        if (!found.contains(name))
            m_terminal.fail(name, tr("il lavoro non ha modificato questa song"));
    }
    return m_terminal.failures() > 0 ? std::nullopt : std::optional(chosen);
}
