#include "library/whileanswering.h"

#include <QEventLoop>
#include <QThread>

#include <memory>

bool whileAnswering(const std::function<bool()> &work)
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
