#include "library/keepalive.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>

#include <memory>

void KeepAlive::processEvents()
{
    if (m_sinceLast.isValid() && !m_sinceLast.hasExpired(eventsMilliseconds - 1))
        return;
    processEventsNow();
    m_sinceLast.start();
}

void KeepAlive::processEventsNow()
{
    QCoreApplication::processEvents();
}

bool KeepAlive::workInBackground(const std::function<bool()> &work)
{
    bool result = false;
    QEventLoop events;
    const std::unique_ptr<QThread> thread(QThread::create([&] { result = work(); }));
    QObject::connect(thread.get(), &QThread::finished, &events, &QEventLoop::quit);
    thread->start();
    events.exec();
    thread->wait();
    return result;
}
