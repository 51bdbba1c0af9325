#include "cli/commandhistory.h"

#include "cli/request.h"
#include "cli/terminal.h"
#include "library/historytexts.h"

#include <QDir>
#include <QFileInfo>

CommandHistory::CommandHistory(const Request &request, Terminal &terminal)
    : m_terminal(terminal)
    , m_history(
          [&request, &terminal](const QString &reason) {
              const Answer answer = terminal.ask(HistoryStore::defaultPath(),
                                                 reason + QLatin1Char(' ') +
                                                     tr("Continuare senza cronologia? Le modifiche "
                                                        "non potranno essere annullate."),
                                                 "--without-history", request.withoutHistory);
              return answer == Answer::Yes || answer == Answer::YesToAll;
          },
          [&terminal](int jobs) { terminal.note(historytexts::dropped(jobs)); })
{
}

void CommandHistory::begin(HistoryJob::Kind kind, qint64 takesBack)
{
    m_recorder = m_history.recorder(kind, takesBack);
}

bool CommandHistory::keep(const QStringList &paths)
{
    QStringList all;
    for (const QString &path : paths)
        all.append(absolute(path));
    return m_recorder->keep(all);
}

bool CommandHistory::keepOne(const QString &path)
{
    return m_recorder->isKept(absolute(path)) || keep({path});
}

void CommandHistory::written(const QString &path, const SongInfo &before, const SongInfo &after)
{
    m_recorder->written(absolute(path), before, after);
}

std::optional<CommandHistory::Saved> CommandHistory::save(MetaSong &song, const QString &path,
                                                          const SongInfo &before,
                                                          const SongInfo &wanted)
{
    song.setSongInfo(wanted, true);
    if (!keepOne(path)) {
        tellRefused();
        return std::nullopt;
    }
    Saved saved{song.save(path), std::nullopt};
    MetaSong onDisk;
    SongInfo now;
    if (onDisk.importFile(path)) {
        onDisk.getSongInfo(now);
        saved.now = now;
    }
    written(path, before, now);
    return saved;
}

void CommandHistory::tellRefused()
{
    const QString text = tr("Le altre song non sono state modificate");
    if (m_terminal.status() == ExitStatus::NothingDone)
        m_terminal.note(text);
    else
        m_terminal.fail(text);
}

QString CommandHistory::absolute(const QString &path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}
