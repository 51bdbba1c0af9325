#include "cli/tagscommand.h"

#include "cli/givenpath.h"
#include "cli/songpaths.h"
#include "formats/metasong.h"
#include "library/runreport.h"
#include "library/tagjob.h"
#include "library/tagremarks.h"
#include "library/unreadablefile.h"

ExitStatus TagsCommand::run()
{
    const std::optional<QStringList> songs = SongPaths::songs(m_request, m_terminal);
    if (!songs)
        return ExitStatus::NothingDone;
    const auto progress =
        m_terminal.openProgress({}, tr("Tag MP3"), static_cast<int>(songs->size()));
    m_history.begin(HistoryJob::Kind::Tags);
    int done = 0;
    for (const QString &song : *songs) {
        if (m_terminal.isStopped() || m_isRefused || !keepNext(*songs, done))
            break;
        prepare(song);
        progress->setValue(++done);
    }
    m_history.end();
    return m_terminal.status();
}

/** Keeps those of the next songs that are going to be changed; false to stop. */
bool TagsCommand::keepNext(const QStringList &songs, qsizetype place)
{
    if (!m_request.apply || place % HistoryRecorder::songsAtOnce != 0)
        return true;
    QStringList concerned;
    for (const QString &path : songs.mid(place, HistoryRecorder::songsAtOnce)) {
        const auto preparation = Mp3Preparation::of(path);
        if (preparation && preparation->troubles() != TagTroubles() && preparation->canBeWritten())
            concerned.append(path);
    }
    if (m_history.keep(concerned))
        return true;
    m_history.tellRefused();
    return false;
}

void TagsCommand::prepare(const QString &path)
{
    if (m_request.apply)
        m_leftovers.tidyBeside(path);
    const auto preparation = Mp3Preparation::of(path);
    if (!preparation) {
        MetaSong song;
        if (song.importFile(path)) { // a song of another kind has no tags
            m_terminal.countDone();
            return;
        }
        const QString reason = UnreadableFile::examine(path, song.wasInUse()).reasonText();
        m_terminal.fail(path, reason);
        m_writer.unreadable(path, reason);
        return;
    }
    for (const QString &remark : tagremarks::remarks(*preparation))
        m_terminal.note(givenpath::shown(path) + QStringLiteral(": ") + remark);
    const bool isConcerned = preparation->troubles() != TagTroubles();
    if (isConcerned && m_request.apply && !write(*preparation))
        return;
    m_writer.tags(*preparation, isConcerned && m_request.apply);
    if (isConcerned || !m_request.apply)
        m_terminal.countDone();
}

/** False when the file is as it was. */
bool TagsCommand::write(const Mp3Preparation &preparation)
{
    const QString &path = preparation.path();
    if (!m_history.keepOne(path)) {
        m_isRefused = true;
        m_history.tellRefused();
        return false;
    }
    const SaveFailure failure = preparation.write(preparation.proposed());
    m_history.written(path, preparation.shown(), tagjob::written(path, preparation.proposed()));
    if (failure == SaveFailure::None)
        return true;
    m_terminal.fail(path, RunReport::reasonText(failure));
    m_writer.unreadable(path, RunReport::reasonText(failure));
    return false;
}
