// The transfer onto a memory: what the user is told, and room.
#include "devindex/index.h"
#include "devindex/transfer.h"
#include "library/answer.h"
#include "support/copyingprogress.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/mountedcard.h"
#include "support/transferfixture.h"

#include <QTest>

using namespace transferfixture;

class TestTransferResults : public TransferFixture
{
    Q_OBJECT

private slots:
    void init() { TransferFixture::init(); }
    void cleanup() { TransferFixture::cleanup(); }

    void stoppedCopyStillUpdatesTheIndex();
    void failedFileIsReportedAndTheOthersAreIndexed();
    void damagedIndexIsReported();
    void cardPulledDuringTheCopyIsReported();
    void fullCardIsReportedAndKeepsItsIndex();
    void indexThatDoesNotFitIsReportedAndLeavesNone();

    void countsAreToldAfterTheOutcome();
    void countsSayWhatAStopLeftOut();
    void countsSayThatTheIndexWasNotUpdated();

    void namesOfOtherCaseAreOneNameToThePlayer();

    void missingRoomIsAskedAbout_data();
    void missingRoomIsAskedAbout();
    void filesThatFitAreNotAskedAbout();
    void freeSpaceOfTheDiskIsHeldAgainstTheFiles();

    void indexIsUpdatedForAnyFolderOfAMemory();
    void missingMemoryHasNoIndexToUpdate();
};

void TestTransferResults::stoppedCopyStillUpdatesTheIndex()
{
    m_onUpdate = [](CopyingProgress &progress, int done) { progress.canceled = done == 2; };
    QCOMPARE(transfer(someSongs(4)), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QVERIFY(m_questions->successes.isEmpty());
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/pop/song0.mid"), QStringLiteral("/pop/song1.mid")}));
}

void TestTransferResults::failedFileIsReportedAndTheOthersAreIndexed()
{
    QStringList files = someSongs(2);
    files.insert(1, m_card->music() + QStringLiteral("/gone.mid"));
    bool progressesClosed = false;
    m_questions->onEnd = [&] {
        progressesClosed = m_opened.size() == 2 && m_opened.at(0)->closed && m_opened.at(1)->closed;
    };
    QCOMPARE(transfer(files), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QVERIFY(progressesClosed);
    QCOMPARE(m_card->indexedPaths().size(), 2);
}

void TestTransferResults::damagedIndexIsReported()
{
    QCOMPARE(transfer(someSongs(2)), Transfer::Outcome::Complete);
    m_card->isLeftBroken();
    m_card->writeOnCard(QStringLiteral("index.idx"), "half a record");
    m_questions->replaceAnswer = Answer::NoToAll;
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QCOMPARE(m_card->read(QStringLiteral("index.idx")), QByteArray("half a record"));
}

void TestTransferResults::cardPulledDuringTheCopyIsReported()
{
    m_onUpdate = [this](CopyingProgress &, int done) {
        if (done == 1)
            QVERIFY(QDir(m_card->root()).removeRecursively());
    };
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QCOMPARE(m_opened.size(), 1); // no memory, no index to update
    QCOMPARE(m_opened.first()->updates, QList<int>({1, 2, 3}));
    QVERIFY(!QFileInfo::exists(m_card->root()));
}

void TestTransferResults::fullCardIsReportedAndKeepsItsIndex()
{
    QCOMPARE(transfer(someSongs(2)), Transfer::Outcome::Complete);
    const QByteArray index = m_card->read(QStringLiteral("index.idx"));
    const QString big = m_card->writeMusic(QStringLiteral("big.mid"), QByteArray(5000, 'x'));
    {
        const faults::FileSizeLimit limit(1000);
        QCOMPARE(transfer({big}), Transfer::Outcome::Incomplete);
    }
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QVERIFY(!QFileInfo::exists(m_card->path(QStringLiteral("pop/big.mid"))));
    QCOMPARE(m_card->read(QStringLiteral("index.idx")), index);
    QVERIFY(m_card->hasIndex());
}

void TestTransferResults::indexThatDoesNotFitIsReportedAndLeavesNone()
{
    const QStringList songs = someSongs(4);
    {
        // Room for each song and for the alpha files of 256 bytes, not for 4 records of 64 bytes.
        const faults::FileSizeLimit limit(200);
        QCOMPARE(transfer(songs), Transfer::Outcome::Incomplete);
    }
    QCOMPARE(m_questions->failures, QStringList(failureText));
    QCOMPARE(QDir(m_card->path(QStringLiteral("pop"))).entryList(QDir::Files).size(), 4);
    QCOMPARE(QDir(m_card->root()).entryList({QStringLiteral("*.idx")}, QDir::Files), QStringList());
}

void TestTransferResults::countsAreToldAfterTheOutcome()
{
    m_card->writeOnCard(QStringLiteral("pop/song1.mid"), MountedCard::midi("OLD"));
    QStringList files = someSongs(3);
    files.insert(1, m_card->music() + QStringLiteral("/gone.mid"));
    files.append(m_card->path(QStringLiteral("pop/song1.mid"))); // lies there already
    QCOMPARE(transfer(files), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->replaceAsked.size(), 1);
    QCOMPARE(m_questions->counts, QStringList(countsText(3, 1, 1)));
    QCOMPARE(m_questions->failedNames,
             QStringList(QStringLiteral("gone.mid: il file non c'è più")));
    QCOMPARE(m_questions->skippedLines,
             QStringList(QStringLiteral("music/song1.mid: esisteva già e non è stata sostituita")));
    QCOMPARE(m_questions->saidBeforeCounts, QStringList(failureText));

    QCOMPARE(transfer(files.mid(3)), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->counts.last(), countsText(1, 1, 0));
    QVERIFY(m_questions->failedNames.isEmpty());
    QCOMPARE(m_questions->saidBeforeCounts, QStringList({successText, failureText}));
}

void TestTransferResults::countsSayWhatAStopLeftOut()
{
    m_onUpdate = [](CopyingProgress &progress, int done) { progress.canceled = done == 2; };
    QCOMPARE(transfer(someSongs(5)), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->counts,
             QStringList(countsText(2, 0, 0) +
                         QStringLiteral("\nSong non più copiate dopo l'interruzione: 3")));
}

void TestTransferResults::countsSayThatTheIndexWasNotUpdated()
{
    // A folder in the place of an index file: it can be neither loaded nor replaced.
    QVERIFY(QDir().mkpath(m_card->path(QStringLiteral("index.idx/folder"))));
    QCOMPARE(transfer(someSongs(1)), Transfer::Outcome::Incomplete);
    QCOMPARE(m_questions->counts,
             QStringList(countsText(1, 0, 0) +
                         QStringLiteral("\nIl database della memoria non è stato aggiornato.")));
}

/** Two such files would be counted as copied, and the player would find one of them. */
void TestTransferResults::namesOfOtherCaseAreOneNameToThePlayer()
{
    const QString lower = m_card->writeMusic(QStringLiteral("x/a.mid"), "lower");
    const QString upper = m_card->writeMusic(QStringLiteral("y/A.mid"), "upper");
    QCOMPARE(transfer({lower, upper}), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->replaceAsked, QStringList(m_card->path(QStringLiteral("pop/a.mid"))));
    QCOMPARE(m_questions->counts, QStringList(countsText(1, 1, 0)));
    QCOMPARE(m_questions->skippedLines,
             QStringList(QStringLiteral("y/A.mid: esisteva già e non è stata sostituita")));
    QCOMPARE(QDir(m_questions->folder).entryList(QDir::Files),
             QStringList(QStringLiteral("a.mid")));
}

void TestTransferResults::missingRoomIsAskedAbout_data()
{
    QTest::addColumn<bool>("anyway");
    QTest::newRow("no") << false;
    QTest::newRow("yes") << true;
}

void TestTransferResults::missingRoomIsAskedAbout()
{
    QFETCH(bool, anyway);
    QLocale::setDefault(QLocale::c());
    // Three songs take three clusters of 32 KiB; two and a half are free.
    m_freeBytes = 5 * 16 * 1024;
    m_questions->anyway = anyway;
    const LogCapture log;
    QCOMPARE(transfer(someSongs(3)),
             anyway ? Transfer::Outcome::Complete : Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->roomAsked,
             QStringList(QStringLiteral(
                 "Trasferimento: Lo spazio libero nella memoria non è sufficiente: mancano "
                 "16.4 kB.\nSi vuole procedere comunque con la copia?")));
    QCOMPARE(QDir(m_questions->folder).entryList(QDir::Files).size(), anyway ? 3 : 0);
    QCOMPARE(m_card->hasIndex(), anyway);
    QCOMPARE(m_questions->saidNothing(), !anyway);
    QCOMPARE(LogCapture::lines().isEmpty(), !anyway);
}

void TestTransferResults::filesThatFitAreNotAskedAbout()
{
    m_freeBytes = 3 * 32 * 1024;
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QVERIFY(m_questions->roomAsked.isEmpty());
    // Replacing them needs no room at all.
    m_freeBytes = 0;
    m_questions->replaceAnswer = Answer::YesToAll;
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QVERIFY(m_questions->roomAsked.isEmpty());
    // A file system that does not tell is tried.
    m_freeBytes = -1;
    QCOMPARE(transfer(someSongs(4)), Transfer::Outcome::Complete);
    QVERIFY(m_questions->roomAsked.isEmpty());
}

void TestTransferResults::freeSpaceOfTheDiskIsHeldAgainstTheFiles()
{
    const QString song = m_card->writeMusic(QStringLiteral("huge.mp3"), "");
    if (!QFile::resize(song, qint64(1) << 43))
        QSKIP("This file system holds no sparse file of 8 TiB");
    Transfer job(*m_questions, openProgress());
    QCOMPARE(job.transferFiles({song}), Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->roomAsked.size(), 1);
    QVERIFY(QDir(m_questions->folder).isEmpty());
}

void TestTransferResults::indexIsUpdatedForAnyFolderOfAMemory()
{
    m_card->writeOnCard(QStringLiteral("a/b/deep.mid"), MountedCard::midi("DEEP"));
    Transfer job(*m_questions, openProgress());
    QVERIFY(job.updateKavenaIndex(m_card->path(QStringLiteral("a/b"))));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/a/b/deep.mid")));
    QVERIFY(m_opened.first()->closed);
}

void TestTransferResults::missingMemoryHasNoIndexToUpdate()
{
    Transfer job(*m_questions, openProgress());
    QVERIFY(!job.updateKavenaIndex(m_card->mountDirectory() + QStringLiteral("/GONE/songs")));
    QVERIFY(!job.updateKavenaIndex(QStringLiteral("/Volumes/GONE")));
    QVERIFY(m_opened.isEmpty());
}

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    TestTransferResults test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_transfer_results.moc"
