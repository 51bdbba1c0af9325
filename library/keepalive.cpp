#include "library/keepalive.h"

#include "library/backgroundwork.h"

#include <QCoreApplication>

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
    BackgroundWork([&] { result = work(); }).wait();
    return result;
}
