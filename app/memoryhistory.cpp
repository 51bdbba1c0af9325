#include "app/memoryhistory.h"

#include "windows/confirmation.h"

MemoryHistory::MemoryHistory(BackgroundJob &job)
    : m_history(
          [&job](const QString &reason) {
              return job.ask([&reason] {
                  return confirmation::askToGoOnWithoutHistory(reason) ? Answer::Yes : Answer::No;
              }) == Answer::Yes;
          },
          {})
{
}

bool MemoryHistory::keepNext(HistoryRecorder &recorder, const QString &root,
                             const QStringList &paths, qsizetype place)
{
    if (place < 0 || place >= paths.size() || recorder.isKept(root + paths.at(place)))
        return true;
    QStringList next;
    for (const QString &path : paths.mid(place, HistoryRecorder::songsAtOnce))
        next.append(root + path);
    return recorder.keep(next);
}
