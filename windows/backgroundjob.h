// Work on a memory that goes on while the windows stay usable.
#pragma once

#include "library/answer.h"
#include "library/progress.h"
#include "windows/longjob.h"

#include <QMutex>
#include <QObject>
#include <QString>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

/**
 * Runs one piece of work at a time on a thread of its own: no event of a window can come into the
 * middle of it, and none waits for a slow memory. The work reports through the progress that it
 * opens here, and asks its questions through ask().
 */
class BackgroundJob : public QObject
{
    Q_OBJECT

public:
    explicit BackgroundJob(QObject *parent = nullptr);

    /** Asks the work to stop and waits until it has. */
    ~BackgroundJob() override;

    bool isRunning() const { return m_thread != nullptr; }

    /**
     * Starts the work; when it is done, calls done on the windows' thread. Nothing may be running.
     */
    void start(std::function<void()> work, std::function<void()> done);

    /** Asks the work to stop. */
    void cancel() { m_isCanceled = true; }

    // For the work, on its thread.

    /** Opens the progress of a part of the work. */
    OpenProgress openProgress();

    /**
     * Has the windows' thread ask the user, and waits for the answer. When the windows are being
     * closed nobody is asked any more: the answer is no to all.
     */
    Answer ask(const std::function<Answer()> &question);

signals:
    void began();

    /** What the work does, and how far it is; a maximum of 0 means that it is not known. */
    void progressChanged(const QString &label, int done, int maximum);

    void ended();

private:
    class Part;

    Q_INVOKABLE void answerQuestion();
    void showProgress();
    void finish();

    std::unique_ptr<QThread> m_thread;
    std::function<void()> m_done;
    std::optional<LongJob> m_longJob; ///< while the thread runs
    QTimer m_clock;
    QMutex m_labelMutex;
    QString m_label;
    std::atomic<int> m_value{0};
    std::atomic<int> m_maximum{0};
    std::atomic<bool> m_isCanceled{false};
    bool m_isClosing = false;
    const std::function<Answer()> *m_question = nullptr; ///< that the work waits for
    Answer m_answer = Answer::NoToAll;
};
