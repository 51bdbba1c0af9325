#include "library/backgroundwork.h"

#include <QEventLoop>
#include <QThread>

BackgroundWork::BackgroundWork(const std::function<void()> &work)
    : m_thread(QThread::create(work))
{
    m_thread->start();
    m_isStarted = m_thread->isRunning() || m_thread->isFinished();
    if (!m_isStarted)
        work(); // the system has no thread left
}

BackgroundWork::~BackgroundWork()
{
    m_thread->wait();
}

void BackgroundWork::wait()
{
    if (!m_isStarted)
        return;
    QEventLoop events;
    QObject::connect(m_thread.get(), &QThread::finished, &events, &QEventLoop::quit);
    if (!m_thread->isFinished())
        events.exec();
    m_thread->wait();
}
