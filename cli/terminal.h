// Standard error: failures, notes, questions and, on a terminal, the progress.
#pragma once

#include "cli/exitstatus.h"
#include "library/answer.h"
#include "library/progress.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QSet>
#include <QString>

#include <memory>
#include <optional>

/**
 * Everything that is no data. Counts what was done and what failed, which makes the exit status.
 * One object serves one command.
 */
class Terminal
{
    Q_DECLARE_TR_FUNCTIONS(Terminal)

public:
    Terminal();
    Q_DISABLE_COPY_MOVE(Terminal)

    /** Counts a failure and names it. */
    void fail(const QString &path, const QString &reason);

    /** The same for a failure that is not about one file. */
    void fail(const QString &reason);

    /** Something that is worth knowing and no failure. */
    void note(const QString &text);

    /** Says why nothing is done; the command ends with this. */
    ExitStatus refuse(const QString &reason);

    /** The same for a refusal that is about one file or folder. */
    ExitStatus refuse(const QString &path, const QString &reason);

    /** True when the user wants to stop: asked before each file. */
    bool isStopped();

    /** Counts something that was done. */
    void countDone() { ++m_done; }

    /** True when there is somebody who can answer. */
    bool canAsk() const { return m_canAsk; }

    int failures() const { return m_failures; }

    /** What the counts come to; a run that was stopped has done part of its work at most. */
    ExitStatus status() const;

    /**
     * Asks yes or no about a file, where both input and error output are terminals; elsewhere the
     * answer is no, which is said once with the option, if any, that decides. The option's value,
     * where the user gave it, is the answer without any question.
     */
    Answer ask(const QString &path, const QString &question, const char *option,
               std::optional<bool> decided);

    /** Shows a progress where error output is a terminal; its job is stopped by a signal. */
    std::unique_ptr<Progress> openProgress(const QString &title, const QString &label, int maximum);

    /** As a function, for the workflows. */
    OpenProgress progressOpener();

private:
    void write(const QString &line);

    const bool m_showsProgress;
    const bool m_canAsk;
    QSet<QByteArray> m_toldNo; ///< the options whose question was answered so
    bool m_isStopped = false;
    int m_done = 0;
    int m_failures = 0;
};
