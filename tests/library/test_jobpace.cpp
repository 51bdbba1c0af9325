// How fast a long job goes, and how long it still takes, by a clock that the test sets.
#include "library/jobpace.h"

#include <QLocale>
#include <QTest>

class TestJobPace : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QLocale::setDefault(QLocale::c());
        m_now = 5000; // a clock need not begin at zero
    }

    void nothingIsSaidInTheFirstSeconds();
    void steadyJob();
    void lastSecondsCount();
    void slowStepsHaveAPaceToo();
    void standingStillHasNoPace();
    void unknownNumberOfSteps();
    void endHasNoTimeLeft();
    void nextPartBeginsAnew();
    void numberOfStepsMayGrow();
    void words_data();
    void words();

private:
    JobPace pace()
    {
        return JobPace([this] { return m_now; });
    }

    qint64 m_now = 0;
};

void TestJobPace::nothingIsSaidInTheFirstSeconds()
{
    JobPace job = pace();
    QCOMPARE(job.text(), QString());
    for (int second = 1; second <= 2; ++second) {
        m_now += 1000;
        job.take(second * 10, 100);
        QVERIFY(!job.perSecond() && !job.secondsLeft());
        QCOMPARE(job.text(), QString());
    }
    m_now += 1000;
    job.take(30, 100);
    QCOMPARE(job.text(), QStringLiteral("Song al secondo: 10 – ancora 10 secondi circa"));
}

void TestJobPace::steadyJob()
{
    JobPace job = pace();
    for (int step = 1; step <= 500; ++step) {
        m_now += 20;
        job.take(step, 2000);
    }
    QVERIFY(qAbs(*job.perSecond() - 50) < 0.01);
    QVERIFY(qAbs(*job.secondsLeft() - 30) < 0.01);
}

void TestJobPace::lastSecondsCount()
{
    JobPace job = pace();
    m_now += 600000; // a question stood open for ten minutes
    job.take(1, 1000);
    for (int step = 2; step <= 301; ++step) {
        m_now += 100;
        job.take(step, 1000);
    }
    QVERIFY2(qAbs(*job.perSecond() - 10) < 0.01, qPrintable(job.text()));
}

void TestJobPace::slowStepsHaveAPaceToo()
{
    JobPace job = pace();
    for (int step = 1; step <= 3; ++step) {
        m_now += 60000;
        job.take(step, 5);
    }
    QVERIFY(qAbs(*job.perSecond() - 1.0 / 60) < 0.0001);
    QCOMPARE(job.text(), QStringLiteral("Song al minuto: 1.0 – ancora 2 minuti circa"));
}

void TestJobPace::standingStillHasNoPace()
{
    JobPace job = pace();
    for (int second = 0; second < 100; ++second) {
        m_now += 1000;
        job.take(0, 100);
    }
    QVERIFY(!job.perSecond() && !job.secondsLeft());
}

void TestJobPace::unknownNumberOfSteps()
{
    for (const int all : {0, -1}) {
        JobPace job = pace();
        m_now += 4000;
        job.take(40, all);
        QCOMPARE(job.text(), QStringLiteral("Song al secondo: 10"));
    }
}

void TestJobPace::endHasNoTimeLeft()
{
    JobPace job = pace();
    m_now += 4000;
    job.take(100, 100);
    QVERIFY(!job.secondsLeft());
    job.take(101, 100);
    QVERIFY(!job.secondsLeft());
}

void TestJobPace::nextPartBeginsAnew()
{
    JobPace job = pace();
    m_now += 10000;
    job.take(1000, 1000);
    m_now += 100;
    job.take(5, 50);
    QCOMPARE(job.text(), QString());
    m_now += 4000;
    job.take(13, 50);
    QVERIFY(qAbs(*job.perSecond() - 2) < 0.01);
}

void TestJobPace::numberOfStepsMayGrow()
{
    JobPace job = pace();
    m_now += 4000;
    job.take(40, 80);
    QVERIFY(qAbs(*job.secondsLeft() - 4) < 0.01);
    job.take(40, 140);
    QVERIFY(qAbs(*job.secondsLeft() - 10) < 0.01);
}

void TestJobPace::words_data()
{
    QTest::addColumn<double>("pace");
    QTest::addColumn<double>("left");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, double pace, double left, const QString &text) {
        QTest::newRow(name) << pace << left << text;
    };
    row("fast", 1234.4, 1, QStringLiteral("Song al secondo: 1234 – ancora 10 secondi circa"));
    row("some a second", 2.54, 41,
        QStringLiteral("Song al secondo: 2.5 – ancora 50 secondi circa"));
    row("nearly a minute", 10, 50.1, QStringLiteral("Song al secondo: 10 – ancora 1 minuti circa"));
    row("rounded up", 0.5, 61, QStringLiteral("Song al minuto: 30 – ancora 2 minuti circa"));
    row("nearly two hours", 1, 119 * 60,
        QStringLiteral("Song al secondo: 1.0 – ancora 119 minuti circa"));
    row("hours", 1, 121 * 60, QStringLiteral("Song al secondo: 1.0 – ancora 3 ore circa"));
    row("for ever", 0.001, 1e300, QStringLiteral("Song al minuto: 0.1 – ancora 1000 ore circa"));
}

void TestJobPace::words()
{
    QFETCH(double, pace);
    QFETCH(double, left);
    QFETCH(QString, text);
    QCOMPARE(JobPace::text(pace, left), text);
    QCOMPARE(JobPace::text(std::nullopt, std::nullopt), QString());
}

QTEST_GUILESS_MAIN(TestJobPace)

#include "test_jobpace.moc"
