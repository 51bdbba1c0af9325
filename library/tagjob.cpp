#include "library/tagjob.h"

#include "formats/metasong.h"
#include "library/keepalive.h"
#include "library/runreport.h"
#include "storage/leftovers.h"

namespace
{

/** Keeps the songs that are written next; false to stop. */
bool keepNextSongs(const QList<tagjob::Song> &songs, qsizetype place, HistoryRecorder *history)
{
    if (history == nullptr || place % HistoryRecorder::songsAtOnce != 0)
        return true;
    QStringList paths;
    for (const tagjob::Song &song : songs.mid(place, HistoryRecorder::songsAtOnce))
        paths.append(song.preparation.path());
    return history->keep(paths);
}

} // namespace

SongInfo tagjob::written(const QString &path, const SongInfo &texts)
{
    MetaSong song;
    if (!song.importFile(path))
        return texts;
    SongInfo info;
    song.getSongInfo(info);
    return info;
}

tagjob::Report tagjob::run(const QList<Song> &songs, HistoryRecorder *history, Progress &progress)
{
    Report report;
    Leftovers leftovers;
    for (qsizetype place = 0; place < songs.size(); ++place) {
        if (progress.wasCanceled() || !keepNextSongs(songs, place, history)) {
            report.stopped = true;
            return report;
        }
        const Song &song = songs.at(place);
        const QString path = song.preparation.path();
        leftovers.tidyBeside(path);
        SaveFailure failure = SaveFailure::None;
        KeepAlive::workInBackground([&] {
            failure = song.preparation.write(song.texts);
            return failure == SaveFailure::None;
        });
        if (history != nullptr)
            history->written(path, song.preparation.shown(), written(path, song.texts));
        if (failure == SaveFailure::None)
            report.done.append(path);
        else
            report.failed.append({path, RunReport::reasonText(failure)});
        progress.updateProgress(static_cast<int>(place) + 1);
    }
    return report;
}
