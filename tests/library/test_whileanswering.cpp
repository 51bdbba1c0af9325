// Work on a thread of its own while events go on.
#include "library/whileanswering.h"

#include <QObject>
#include <QSemaphore>
#include <QTest>
#include <QTimer>

class TestWhileAnswering : public QObject
{
    Q_OBJECT

private slots:
    void returnsWhatTheWorkReturned();
    void eventsAreProcessedWhileTheWorkRuns();
    void returnsOnlyWhenTheWorkIsDone();
};

void TestWhileAnswering::returnsWhatTheWorkReturned()
{
    QVERIFY(whileAnswering([] { return true; }));
    QVERIFY(!whileAnswering([] { return false; }));
}

void TestWhileAnswering::eventsAreProcessedWhileTheWorkRuns()
{
    QSemaphore eventCame;
    QTimer::singleShot(0, this, [&] { eventCame.release(); });
    QVERIFY(whileAnswering([&] { return eventCame.tryAcquire(1, 5000); }));
}

void TestWhileAnswering::returnsOnlyWhenTheWorkIsDone()
{
    bool done = false;
    whileAnswering([&] {
        QTest::qSleep(50);
        done = true;
        return true;
    });
    QVERIFY(done);
}

QTEST_GUILESS_MAIN(TestWhileAnswering)
#include "test_whileanswering.moc"
