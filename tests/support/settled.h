// Lets everything happen that is due, where a test then looks that something did not.
#pragma once

#include <QObject>
#include <QTest>
#include <QTimer>

namespace settled
{

/**
 * Processes events until those that were posted and the timers without an interval are done, and
 * once more, for what these have started. False when that never ends.
 */
inline bool processAll()
{
    for (int round = 0; round < 2; ++round) {
        QObject context;
        bool hasCome = false;
        // Timers that are due together fire in the order in which they were started.
        const auto proof = [&] { QTimer::singleShot(0, &context, [&hasCome] { hasCome = true; }); };
        QMetaObject::invokeMethod(&context, proof, Qt::QueuedConnection); // behind what is posted
        if (!QTest::qWaitFor([&hasCome] { return hasCome; }))
            return false;
    }
    return true;
}

} // namespace settled
