// Keeps the windows alive while a long job runs on their thread.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>

/**
 * Lets pending events run, at most once in 20 ms: often enough for a window to feel alive, seldom
 * enough that a loop over thousands of songs does not pay for it. The first call always does.
 */
class KeepAlive
{
public:
    void processEvents()
    {
        if (m_sinceLast.isValid() && m_sinceLast.elapsed() < 20)
            return;
        QCoreApplication::processEvents();
        m_sinceLast.start();
    }

private:
    QElapsedTimer m_sinceLast;
};
