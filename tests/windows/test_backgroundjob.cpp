// Work beside the windows: its end, its progress, its questions.
#include "windows/backgroundjob.h"

#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>

class TestBackgroundJob : public QObject
{
    Q_OBJECT

private slots:
    void doneComesAfterTheWorkOnTheThreadOfTheWindows();
    void doneMayStartTheNextWork();
    void progressIsTold();
    void cancelIsSeenByTheWork();
    void questionIsAskedOnTheThreadOfTheWindows();
    void questionAtTheEndOfTheWindowsIsNotAsked();
    void endOfTheWindowsStopsTheWork();
};

void TestBackgroundJob::doneComesAfterTheWorkOnTheThreadOfTheWindows()
{
    BackgroundJob job;
    QStringList order;
    QThread *worker = nullptr;
    QThread *finisher = nullptr;
    connect(&job, &BackgroundJob::began, &job, [&order] { order.append(QStringLiteral("began")); });
    connect(&job, &BackgroundJob::ended, &job, [&order] { order.append(QStringLiteral("ended")); });
    job.start([&worker] { worker = QThread::currentThread(); },
              [&] {
                  finisher = QThread::currentThread();
                  order.append(QStringLiteral("done"));
              });
    QVERIFY(job.isRunning());
    QTRY_VERIFY(!job.isRunning());
    QCOMPARE(order, QStringList({QStringLiteral("began"), QStringLiteral("ended"),
                                 QStringLiteral("done")}));
    QCOMPARE(finisher, QThread::currentThread());
    QVERIFY(worker != nullptr && worker != finisher);
}

void TestBackgroundJob::doneMayStartTheNextWork()
{
    BackgroundJob job;
    bool second = false;
    job.start([] {}, [&] { job.start([&second] { second = true; }, [] {}); });
    QTRY_VERIFY(second && !job.isRunning());
}

void TestBackgroundJob::progressIsTold()
{
    BackgroundJob job;
    QSemaphore mayEnd;
    const QSignalSpy told(&job, &BackgroundJob::progressChanged);
    const OpenProgress open = job.openProgress();
    job.start(
        [&] {
            const auto progress = open(QStringLiteral("title"), QStringLiteral("label"), 7);
            progress->setValue(3);
            mayEnd.acquire();
        },
        [] {});
    QTRY_VERIFY(!told.isEmpty() && told.last().at(1).toInt() == 3);
    QCOMPARE(told.last().at(0).toString(), QStringLiteral("label"));
    QCOMPARE(told.last().at(2).toInt(), 7);
    mayEnd.release();
    QTRY_VERIFY(!job.isRunning());
}

void TestBackgroundJob::cancelIsSeenByTheWork()
{
    BackgroundJob job;
    const OpenProgress open = job.openProgress();
    const auto waitForCancel = [&open] {
        const auto progress = open({}, {}, 0);
        while (!progress->wasCanceled())
            QThread::msleep(1);
    };
    job.start(waitForCancel, [] {});
    job.cancel();
    QTRY_VERIFY(!job.isRunning());
    bool wasCanceled = true;
    job.start([&] { wasCanceled = open({}, {}, 0)->wasCanceled(); }, [] {});
    QTRY_VERIFY(!job.isRunning());
    QVERIFY(!wasCanceled); // the next work is another one
}

void TestBackgroundJob::questionIsAskedOnTheThreadOfTheWindows()
{
    BackgroundJob job;
    QThread *asked = nullptr;
    Answer answer = Answer::No;
    job.start(
        [&] {
            answer = job.ask([&asked] {
                asked = QThread::currentThread();
                return Answer::YesToAll;
            });
        },
        [] {});
    QTRY_VERIFY(!job.isRunning());
    QCOMPARE(asked, QThread::currentThread());
    QCOMPARE(answer, Answer::YesToAll);
}

void TestBackgroundJob::questionAtTheEndOfTheWindowsIsNotAsked()
{
    Answer answer = Answer::Yes;
    bool isAsked = false;
    {
        BackgroundJob job;
        job.start(
            [&] {
                answer = job.ask([&isAsked] {
                    isAsked = true;
                    return Answer::Yes;
                });
            },
            [] {});
        QTest::qSleep(50); // the question waits for events that do not come any more
    }
    QVERIFY(!isAsked);
    QCOMPARE(answer, Answer::NoToAll);
}

void TestBackgroundJob::endOfTheWindowsStopsTheWork()
{
    bool wasCanceled = false;
    {
        BackgroundJob job;
        const OpenProgress open = job.openProgress();
        job.start(
            [&] {
                const auto progress = open({}, {}, 0);
                while (!progress->wasCanceled())
                    QThread::msleep(1);
                wasCanceled = true;
            },
            [] {});
    }
    QVERIFY(wasCanceled);
}

QTEST_GUILESS_MAIN(TestBackgroundJob)
#include "test_backgroundjob.moc"
