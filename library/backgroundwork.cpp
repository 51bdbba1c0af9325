#include "library/backgroundwork.h"

#include <QEventLoop>
#include <QThread>

#include <utility>

BackgroundWork::BackgroundWork(std::function<void()> work)
    : m_thread(QThread::create(std::move(work)))
{
    m_thread->start();
}

BackgroundWork::~BackgroundWork()
{
    m_thread->wait();
}

void BackgroundWork::wait()
{
    QEventLoop events;
    QObject::connect(m_thread.get(), &QThread::finished, &events, &QEventLoop::quit);
    if (!m_thread->isFinished())
        events.exec();
    m_thread->wait();
}
