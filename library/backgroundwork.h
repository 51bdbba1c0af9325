// Work on a thread of its own.
#pragma once

#include <QtGlobal>

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QThread;
QT_END_NAMESPACE

/** Runs one piece of work, while the thread that made it goes on with other work. */
class BackgroundWork
{
public:
    /** Starts the work; does it at once where no thread can be had. */
    explicit BackgroundWork(const std::function<void()> &work);

    /** Waits until the work is done; no event runs meanwhile. */
    ~BackgroundWork();
    BackgroundWork(const BackgroundWork &) = delete;
    BackgroundWork &operator=(const BackgroundWork &) = delete;

    /** Lets events run here until the work is done. */
    void wait();

private:
    const std::unique_ptr<QThread> m_thread;
    bool m_isStarted = false;
};
