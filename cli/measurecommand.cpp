#include "cli/measurecommand.h"

#include "cli/songpaths.h"
#include "library/changepreview.h"
#include "library/musicfill.h"
#include "library/runreport.h"
#include "library/unreadablefile.h"

ExitStatus MeasureCommand::run()
{
    const std::optional<QStringList> songs = SongPaths::songs(m_request, m_terminal);
    if (!songs)
        return m_terminal.status();
    const auto progress =
        m_terminal.openProgress({}, tr("Misura"), static_cast<int>(songs->size()));
    m_history.begin(HistoryJob::Kind::Measure);
    int done = 0;
    for (const QString &song : *songs) {
        if (m_terminal.isStopped() || m_isRefused || !keepNext(*songs, done))
            break;
        measure(song);
        progress->setValue(++done);
    }
    m_history.end();
    return m_terminal.status();
}

/** Keeps those of the next songs that lack a value; false to stop. */
bool MeasureCommand::keepNext(const QStringList &songs, qsizetype place)
{
    if (!m_request.apply || place % HistoryRecorder::songsAtOnce != 0)
        return true;
    QStringList concerned;
    for (const QString &path : songs.mid(place, HistoryRecorder::songsAtOnce)) {
        MetaSong song;
        SongInfo info;
        if (!song.importFile(path))
            continue;
        song.getSongInfo(info);
        if (musicfill::lacksValue(info))
            concerned.append(path);
    }
    if (m_history.keep(concerned))
        return true;
    m_history.tellRefused();
    return false;
}

void MeasureCommand::measure(const QString &path)
{
    if (m_request.apply)
        m_leftovers.tidyBeside(path);
    MetaSong song;
    if (!song.importFile(path)) {
        tellFailure(path, UnreadableFile::examine(path, song.wasInUse()).reasonText());
        return;
    }
    SongInfo before;
    song.getSongInfo(before);
    const SongMeasure measure = song.measure();
    const SongInfo wanted = m_request.apply ? musicfill::filled(before, measure) : SongInfo(before);
    const QList<ChangePreview::Change> changes = ChangePreview::changes(before, wanted);
    if (!changes.isEmpty() && !fill(song, path, before, wanted))
        return;
    if (changes.isEmpty() && m_request.apply)
        m_history.recorder().forget(CommandHistory::absolute(path));
    m_writer.measured(path, measure, changes);
    m_terminal.countDone();
}

/** False when the file is as it was. */
bool MeasureCommand::fill(MetaSong &song, const QString &path, const SongInfo &before,
                          const SongInfo &wanted)
{
    const auto saved = m_history.save(song, path, before, wanted);
    m_isRefused = !saved;
    if (saved && saved->failure != SaveFailure::None)
        tellFailure(path, RunReport::reasonText(saved->failure));
    return saved && saved->failure == SaveFailure::None;
}

void MeasureCommand::tellFailure(const QString &path, const QString &reason)
{
    m_terminal.fail(path, reason);
    m_writer.unreadable(path, reason);
}
