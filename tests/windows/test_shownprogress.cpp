// The progress on screen: steps that come fast are held back, but none for long.
#include "library/database.h"
#include "library/libraryimport.h"
#include "support/ownfolders.h"
#include "support/recordedprogress.h"
#include "support/settled.h"
#include "support/shorttext.h"
#include "support/songbytes.h"
#include "windows/shownprogress.h"
#include "windows/usersongsreltablemodel.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTest>

namespace
{

/** A progress of 100 steps that has just shown its first one. */
struct Fresh {
    Fresh()
        : progress(shown, s("t"), s("l"), 100, nullptr)
    {
        progress.updateProgress(1);
        time.start();
    }
    /** True when the step is not on screen; on a machine that stood still it may be there. */
    bool holdsBack(int step) { return bar() < step || time.elapsed() >= 40; }
    QString label() { return progress.dialog().findChild<QLabel *>()->text(); }
    int bar() { return progress.dialog().findChild<QProgressBar *>()->value(); }

    Progress *shown = nullptr;
    ShownProgress progress;
    QElapsedTimer time;
};

/** Waits until a step that is held back now is shown: one held back before has been due, too. */
bool heldBackStepsAreDue()
{
    Fresh proof;
    proof.progress.updateProgress(2);
    return QTest::qWaitFor([&proof] { return proof.bar() == 2; }) && settled::processAll();
}

} // namespace

class TestShownProgress : public QObject
{
    Q_OBJECT

private slots:
    void lastOfManyFastStepsIsShownWhenNothingElseComes();
    void heldBackValueIsShownWithoutWords();
    void heldBackStepIsShownByCatchUp();
    void catchUpWithNothingHeldBackShowsNothingNew();
    void lastStepOfTheJobIsShownAtOnce();
    void manyFastStepsArePaintedSeldom();
    void largeSongIsReadOnlyAfterTheLastStepIsShown_data();
    void largeSongIsReadOnlyAfterTheLastStepIsShown();
    void jobThatEndsWithAStepHeldBackIsFine();
};

void TestShownProgress::lastOfManyFastStepsIsShownWhenNothingElseComes()
{
    Fresh job;
    for (int step = 2; step <= 7; ++step)
        job.progress.updateProgress(step);
    QVERIFY(job.holdsBack(7));
    QTRY_COMPARE_WITH_TIMEOUT(job.bar(), 7, 1000);
    QCOMPARE(job.label(), s("7 di 100"));
}

void TestShownProgress::heldBackValueIsShownWithoutWords()
{
    Fresh job;
    job.progress.setValue(5);
    QVERIFY(job.holdsBack(5));
    QTRY_COMPARE_WITH_TIMEOUT(job.bar(), 5, 1000);
    QCOMPARE(job.label(), s("1 di 100"));
}

void TestShownProgress::heldBackStepIsShownByCatchUp()
{
    Fresh job;
    job.progress.updateProgress(4);
    QVERIFY(job.holdsBack(4));
    job.progress.catchUp();
    QCOMPARE(job.bar(), 4);
    QCOMPARE(job.label(), s("4 di 100"));
}

void TestShownProgress::catchUpWithNothingHeldBackShowsNothingNew()
{
    Fresh job;
    QSignalSpy moved(job.progress.dialog().findChild<QProgressBar *>(),
                     &QProgressBar::valueChanged);
    job.progress.catchUp();
    QVERIFY(heldBackStepsAreDue());
    QCOMPARE(moved.size(), 0);
    QCOMPARE(job.label(), s("1 di 100"));
}

void TestShownProgress::lastStepOfTheJobIsShownAtOnce()
{
    Fresh job;
    job.progress.updateProgress(99);
    job.progress.updateProgress(100);
    QCOMPARE(job.bar(), 100);
    QCOMPARE(job.label(), s("100 di 100"));
}

void TestShownProgress::manyFastStepsArePaintedSeldom()
{
    Progress *shown = nullptr;
    ShownProgress progress(shown, s("t"), s("l"), 100000, nullptr);
    QSignalSpy moved(progress.dialog().findChild<QProgressBar *>(), &QProgressBar::valueChanged);
    QElapsedTimer time;
    time.start();
    for (int step = 1; step <= 20000; ++step) {
        progress.updateProgress(step);
        QCoreApplication::processEvents();
    }
    QVERIFY2(moved.size() <= time.elapsed() / 40 + 2, qPrintable(QString::number(moved.size())));
}

void TestShownProgress::largeSongIsReadOnlyAfterTheLastStepIsShown_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("caughtUp");
    QTest::newRow("large") << s("a.mf5") << 1000001 << true;
    QTest::newRow("small") << s("a.mf5") << 1000 << false;
    QTest::newRow("only its tag is read") << s("a.mp3") << 5000000 << false;
}

void TestShownProgress::largeSongIsReadOnlyAfterTheLastStepIsShown()
{
    class CatchUps : public RecordedProgress
    {
    public:
        using RecordedProgress::RecordedProgress;
        void catchUp() override { ++count; }
        int count = 0;
    };
    QFETCH(QString, name);
    QFETCH(int, size);
    const OwnWorkingFolder folder;
    QFile song(name);
    QVERIFY(song.open(QIODevice::WriteOnly) && song.resize(size));
    Database database;
    QVERIFY(database.init());
    SongTable model(nullptr, database.userLibraryDb());
    ProgressRecord record;
    CatchUps progress(record, QString(), QString(), 1);
    LibraryImport(model, progress).importFiles({folder.filePath(name)});
    QTEST(progress.count == 1, "caughtUp");
}

void TestShownProgress::jobThatEndsWithAStepHeldBackIsFine()
{
    {
        Fresh job;
        QCOMPARE(job.shown, &job.progress);
        job.progress.updateProgress(50);
    }
    QVERIFY(heldBackStepsAreDue());
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    TestShownProgress test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_shownprogress.moc"
