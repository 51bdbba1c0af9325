// What the user is told about a memory that is full, protected or pulled.
#include "devindex/transfer.h"
#include "support/mountedcard.h"
#include "support/smallmemory.h"
#include "support/transferproblems.h"

#include <QCoreApplication>
#include <QTest>

using namespace transferproblems;

class TestTransferProblems : public ProblemFixture
{
    Q_OBJECT

private slots:
    void init() { ProblemFixture::init(); }
    void cleanup() { ProblemFixture::cleanup(); }

    void protectedMemoryIsToldAsSuch_data();
    void protectedMemoryIsToldAsSuch();
    void fullMemoryWithoutRoomForTheFolderIsToldAsSuch();
    void adviceStaysForOtherCauses();
    void folderWithTheLocksNameIsTold();
    void missingMemoryIsToldForAFolderInIt();
    void songThatDoesNotFitHasItsReason();
    void songsOfAPulledMemoryHaveTheirReason();
    void companionThatFailedIsNamed();
    void skippedSongsAreNamed();
    void songsThatThePlayerWillNotFindAreNamed();
    void damagedIndexIsToldWithWhatHelps();
};

void TestTransferProblems::protectedMemoryIsToldAsSuch_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("root") << "";
    QTest::newRow("folder") << "/pop";
}

void TestTransferProblems::protectedMemoryIsToldAsSuch()
{
    QFETCH(QString, folder);
    const SmallMemory memory(m_card->root(), 0, "size=64k");
    if (!memory.isMounted())
        QSKIP("No memory can be mounted here");
    QVERIFY(QDir().mkdir(m_card->path(QStringLiteral("pop"))));
    QVERIFY(memory.protect());
    m_user.folder = m_card->root() + folder;
    QCOMPARE(transfer({song(QStringLiteral("a.mid"))}), Transfer::Outcome::NotStarted);
    QCOMPARE(m_user.warnings, QStringList(protectedText));
    QVERIFY(!QFileInfo::exists(m_card->path(QStringLiteral("songs"))));
}

void TestTransferProblems::fullMemoryWithoutRoomForTheFolderIsToldAsSuch()
{
    // The second of two entries is the lock's: there is none for the folder.
    const SmallMemory memory(m_card->root(), 0, "size=64k,nr_inodes=2");
    if (!memory.isMounted())
        QSKIP("No memory can be mounted here");
    QCOMPARE(transfer({song(QStringLiteral("a.mid"))}), Transfer::Outcome::NotStarted);
    QCOMPARE(m_user.warnings, QStringList(fullText));
    QVERIFY(QDir(m_card->root()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

void TestTransferProblems::adviceStaysForOtherCauses()
{
    m_card->writeOnCard(QStringLiteral("songs"), "in the way");
    QCOMPARE(transfer({song(QStringLiteral("a.mid"))}), Transfer::Outcome::NotStarted);
    QCOMPARE(m_user.warnings, QStringList(rootFolderText));
    QVERIFY(!m_card->hasIndex());
}

void TestTransferProblems::folderWithTheLocksNameIsTold()
{
    m_card->writeOnCard(QStringLiteral(".kavena-lock/file"), "in the way");
    QCOMPARE(transfer({song(QStringLiteral("a.mid"))}), Transfer::Outcome::NotStarted);
    QCOMPARE(m_user.warnings,
             QStringList(QStringLiteral(
                 "Nella memoria c'è una cartella \".kavena-lock\": il programma ha bisogno di "
                 "questo nome.\nSpostarla o cancellarla e riprovare.")));
    QVERIFY(!m_card->hasIndex());
}

void TestTransferProblems::missingMemoryIsToldForAFolderInIt()
{
    m_user.folder = m_card->mountDirectory() + QStringLiteral("/PULLED/pop");
    QCOMPARE(transfer({song(QStringLiteral("a.mid"))}), Transfer::Outcome::NotStarted);
    QCOMPARE(m_user.warnings,
             QStringList(QStringLiteral("La memoria non c'è più. È stata estratta?")));
}

void TestTransferProblems::songThatDoesNotFitHasItsReason()
{
    const SmallMemory memory(m_card->root(), 0, "size=1m");
    if (!memory.isMounted())
        QSKIP("No memory can be mounted here");
    QCOMPARE(transfer({song(QStringLiteral("a.mid")), song(QStringLiteral("big.mid"), 2000000),
                       song(QStringLiteral("c.mid"))}),
             Transfer::Outcome::Incomplete);
    QCOMPARE(m_user.failed, QStringList(QStringLiteral("big.mid: la memoria è piena")));
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/songs/a.mid"), QStringLiteral("/songs/c.mid")}));
    const QString found = MemoryChecker::faultsAt(m_card->root());
    QVERIFY2(found.isEmpty(), qPrintable(found));
}

void TestTransferProblems::songsOfAPulledMemoryHaveTheirReason()
{
    m_onUpdate = [this](int done) {
        if (done == 1)
            QVERIFY(QDir(m_card->root()).removeRecursively());
    };
    QCOMPARE(transfer({song(QStringLiteral("a.mid")), song(QStringLiteral("b.mid"))}),
             Transfer::Outcome::Incomplete);
    QVERIFY(m_user.failed.contains(
        QStringLiteral("b.mid: la cartella non c'è più (la memoria è stata estratta?)")));
    QVERIFY(!QFileInfo::exists(m_card->root()));
}

void TestTransferProblems::companionThatFailedIsNamed()
{
    m_card->writeOnCard(QStringLiteral("songs/hit.cdg"), "old pictures");
    const QString hit = m_card->writeMusic(QStringLiteral("hit.mp3"), "ID3 music");
    m_card->writeMusic(QStringLiteral("hit.cdg"), "new pictures");
    QCOMPARE(transfer({hit}), Transfer::Outcome::Incomplete);
    QCOMPARE(m_user.failed,
             QStringList(QStringLiteral("hit.mp3: hit.cdg: esiste già un file con questo nome")));
    QCOMPARE(m_card->read(QStringLiteral("songs/hit.cdg")), QByteArray("old pictures"));
}

void TestTransferProblems::skippedSongsAreNamed()
{
    m_card->writeOnCard(QStringLiteral("songs/a.mid"), MountedCard::midi("OLD"));
    m_card->writeOnCard(QStringLiteral("songs/c.mid"), MountedCard::midi("OLD"));
    QCOMPARE(transfer({song(QStringLiteral("a.mid")), song(QStringLiteral("b.mid")),
                       song(QStringLiteral("c.mid"))}),
             Transfer::Outcome::Complete);
    QVERIFY(m_user.failed.isEmpty());
    QCOMPARE(m_user.skipped,
             QStringList({QStringLiteral("a.mid: esisteva già e non è stata sostituita"),
                          QStringLiteral("c.mid: esisteva già e non è stata sostituita")}));
}

void TestTransferProblems::songsThatThePlayerWillNotFindAreNamed()
{
    const QString folder = QStringLiteral("/a folder whose name is too long for the player");
    QVERIFY(QDir().mkdir(m_card->root() + folder));
    m_user.folder = m_card->root() + folder;
    m_card->writeOnCard(QStringLiteral("found.mid"), MountedCard::midi("FOUND"));
    QCOMPARE(transfer({song(QStringLiteral("a.mid"))}), Transfer::Outcome::Complete);
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/found.mid")));
    QCOMPARE(m_user.failed, QStringList(QStringLiteral("File non importato, path troppo lungo: ") +
                                        m_user.folder + QStringLiteral("/a.mid")));
    QVERIFY(m_user.counts.endsWith(QStringLiteral("\nSong della memoria con problemi: 1")));
}

void TestTransferProblems::damagedIndexIsToldWithWhatHelps()
{
    QCOMPARE(transfer({song(QStringLiteral("a.mid"))}), Transfer::Outcome::Complete);
    m_card->isLeftBroken();
    m_card->writeOnCard(QStringLiteral("title.idx"), "damaged");
    QCOMPARE(transfer({song(QStringLiteral("b.mid"))}), Transfer::Outcome::Incomplete);
    QVERIFY2(m_user.counts.endsWith(
                 QStringLiteral("\nIl database della memoria non è stato aggiornato."
                                "\nIl database della memoria è danneggiato: rigenerarlo.")),
             qPrintable(m_user.counts));
}

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    TestTransferProblems test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_transfer_problems.moc"
