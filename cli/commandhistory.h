// The history of the songs that a command writes.
#pragma once

#include "formats/metasong.h"
#include "library/userhistory.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

struct Request;
class Terminal;

/** One job. Paths may be given as the user gave them; the history keeps absolute ones. */
class CommandHistory
{
    Q_DECLARE_TR_FUNCTIONS(CommandHistory)

public:
    /** Asks on the terminal whether to go on without a history, unless the request decides it. */
    CommandHistory(const Request &request, Terminal &terminal);

    /** Begins the job. */
    void begin(HistoryJob::Kind kind, qint64 takesBack = 0);

    /** Keeps the songs, for one wait for the disk; false when no song may be changed any more. */
    bool keep(const QStringList &paths);

    /** Keeps the song unless it is kept already. */
    bool keepOne(const QString &path);

    void written(const QString &path, const SongInfo &before, const SongInfo &after);

    struct Saved {
        SaveFailure failure = SaveFailure::None;
        std::optional<SongInfo> now; ///< what the file says; nothing where it cannot be read
    };

    /**
     * Gives the loaded song of the file, which says "before", the data that are wanted, and saves
     * it. Nothing, and the user is told, when it may not be changed without a history.
     */
    std::optional<Saved> save(MetaSong &song, const QString &path, const SongInfo &before,
                              const SongInfo &wanted);

    /** Says that no more songs are changed: a failure unless none was. */
    void tellRefused();

    /** Ends the job. */
    void end() { m_recorder.reset(); }

    UserHistory &history() { return m_history; }
    HistoryRecorder &recorder() { return *m_recorder; }

    /** The path as the history keeps it. */
    static QString absolute(const QString &path);

private:
    Terminal &m_terminal;
    UserHistory m_history;
    std::unique_ptr<HistoryRecorder> m_recorder;
};
