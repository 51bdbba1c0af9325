// Events during long work.
#include "library/keepalive.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSemaphore>
#include <QTest>
#include <QTimer>

class TestKeepAlive : public QObject
{
    Q_OBJECT

private slots:
    void everySongLetsEventsRun();
    void shortStepsLetEventsRunNowAndThen();
    void returnsWhatTheWorkReturned();
    void eventsAreProcessedWhileTheWorkRuns();
    void returnsOnlyWhenTheWorkIsDone();
};

void TestKeepAlive::everySongLetsEventsRun()
{
    int events = 0;
    for (int song = 0; song < 3; ++song) {
        QTimer::singleShot(0, this, [&] { ++events; });
        KeepAlive::processEventsNow();
    }
    QCOMPARE(events, 3);
}

void TestKeepAlive::shortStepsLetEventsRunNowAndThen()
{
    int looks = 0;
    int steps = 0;
    KeepAlive keepAlive;
    const auto step = [&] {
        QObject receiver; // takes its event along when nobody looked for it
        QMetaObject::invokeMethod(
            &receiver, [&] { ++looks; }, Qt::QueuedConnection);
        keepAlive.processEvents();
        ++steps;
    };
    step();
    QCOMPARE(looks, 1); // the first always does
    QElapsedTimer running;
    running.start();
    while (!running.hasExpired(10 * KeepAlive::eventsMilliseconds))
        step();
    QVERIFY2(looks > 1 && looks <= 11, qPrintable(QString::number(looks)));
    QVERIFY(steps > looks);
}

void TestKeepAlive::returnsWhatTheWorkReturned()
{
    QVERIFY(KeepAlive::workInBackground([] { return true; }));
    QVERIFY(!KeepAlive::workInBackground([] { return false; }));
}

void TestKeepAlive::eventsAreProcessedWhileTheWorkRuns()
{
    QSemaphore eventCame;
    QTimer::singleShot(0, this, [&] { eventCame.release(); });
    QVERIFY(KeepAlive::workInBackground([&] { return eventCame.tryAcquire(1, 5000); }));
}

void TestKeepAlive::returnsOnlyWhenTheWorkIsDone()
{
    bool done = false;
    KeepAlive::workInBackground([&] {
        QTest::qSleep(50);
        done = true;
        return true;
    });
    QVERIFY(done);
}

QTEST_GUILESS_MAIN(TestKeepAlive)
#include "test_keepalive.moc"
