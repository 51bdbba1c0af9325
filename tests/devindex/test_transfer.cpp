// The transfer onto a memory: which folders are refused, copy, index.
#include "devindex/index.h"
#include "devindex/transfer.h"
#include "library/answer.h"
#include "support/logcapture.h"
#include "support/mountedcard.h"
#include "support/transferfixture.h"

#include <QTest>

using namespace transferfixture;

class TestTransfer : public TransferFixture
{
    Q_OBJECT

private slots:
    void init() { TransferFixture::init(); }
    void cleanup() { TransferFixture::cleanup(); }

    void cancellingTheChooserDoesNothing();
    void chooserStartsInTheMountDirectory();
    void systemDiskIsRefused_data();
    void systemDiskIsRefused();
    void rootOfACardMeansItsSongsFolder_data();
    void rootOfACardMeansItsSongsFolder();
    void songsFolderThatCannotBeMadeIsReported();
    void pulledCardIsNotMadeAnew();
    void reservedFoldersAreRefused_data();
    void reservedFoldersAreRefused();
    void onlyTheLastFolderNameIsReserved_data();
    void onlyTheLastFolderNameIsReserved();

    void bannerStandsInTheLog();
    void progressesAreTitledAndClosed();
    void copiedSongsAreInTheIndex();
    void secondTransferAddsToTheIndex();
    void karaokePicturesArriveWithTheirSong();
    void longNamesAreShortenedAfterAsking();
    void transferIntoTheSongsOwnFolderCopiesNothing();
    void keptFilesAreNoFailure();
};

void TestTransfer::cancellingTheChooserDoesNothing()
{
    const QStringList files = someSongs();
    m_questions->folder.clear();
    const LogCapture log;
    QCOMPARE(transfer(files), Transfer::Outcome::NotStarted);
    QVERIFY(m_questions->saidNothing());
    QVERIFY(m_questions->roomAsked.isEmpty());
    QVERIFY(m_opened.isEmpty());
    QVERIFY(LogCapture::lines().isEmpty());
    QVERIFY(!m_card->hasIndex());
}

void TestTransfer::chooserStartsInTheMountDirectory()
{
    if (QFileInfo::exists(QStringLiteral("/Volumes")))
        QSKIP("This machine mounts under /Volumes");
    m_questions->folder.clear();
    transfer({});
    QCOMPARE(m_questions->chooserTitle, QStringLiteral("Scegli cartella"));
    QCOMPARE(m_questions->chooserStart, m_card->mountDirectory());
}

void TestTransfer::systemDiskIsRefused_data()
{
    QTest::addColumn<QString>("folder"); // %1 stands for the mount directory
    QTest::newRow("home") << "/home";
    QTest::newRow("temporary files") << "/tmp";
    QTest::newRow("the mount directory itself") << "%1";
    QTest::newRow("the mount directory and a slash") << "%1/";
    QTest::newRow("a way out of it") << "%1/CARD/../../music";
    QTest::newRow("the other mount directory") << "/Volumes/";
}

void TestTransfer::systemDiskIsRefused()
{
    QFETCH(QString, folder);
    m_questions->folder = folder.replace(QStringLiteral("%1"), m_card->mountDirectory());
    QCOMPARE(transfer(someSongs()), Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->warnings, QStringList(systemDiskText));
    QVERIFY(m_opened.isEmpty());
}

void TestTransfer::rootOfACardMeansItsSongsFolder_data()
{
    QTest::addColumn<QString>("slash");
    QTest::addColumn<bool>("songsExists");
    QTest::newRow("made") << "" << false;
    QTest::newRow("made, slash at the end") << "/" << false;
    QTest::newRow("there already") << "" << true;
}

void TestTransfer::rootOfACardMeansItsSongsFolder()
{
    QFETCH(QString, slash);
    QFETCH(bool, songsExists);
    if (songsExists)
        m_card->writeOnCard(QStringLiteral("songs/old.mid"), MountedCard::midi("OLD"));
    m_questions->folder = m_card->root() + slash;
    QCOMPARE(transfer(someSongs(1)), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->successes, QStringList(successText));
    QCOMPARE(m_card->read(QStringLiteral("songs/song0.mid")), MountedCard::midi("SONG 0"));
    QVERIFY(!QFileInfo::exists(m_card->path(QStringLiteral("song0.mid"))));
    QVERIFY(m_card->indexedPaths().contains(QStringLiteral("/songs/song0.mid")));
    QCOMPARE(m_card->indexedPaths().contains(QStringLiteral("/songs/old.mid")), songsExists);
}

void TestTransfer::songsFolderThatCannotBeMadeIsReported()
{
    m_card->writeOnCard(QStringLiteral("songs"), "a file in the folder's place");
    m_questions->folder = m_card->root();
    QCOMPARE(transfer(someSongs()), Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->warnings, QStringList(rootFolderText));
    QVERIFY(m_opened.isEmpty());
    QVERIFY(!m_card->hasIndex());
}

void TestTransfer::pulledCardIsNotMadeAnew()
{
    m_questions->folder = m_card->mountDirectory() + QStringLiteral("/PULLED");
    QCOMPARE(transfer(someSongs()), Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->warnings, QStringList(rootFolderText));
    QVERIFY(!QFileInfo::exists(m_questions->folder));
}

void TestTransfer::reservedFoldersAreRefused_data()
{
    QTest::addColumn<QString>("name");
    for (const char *const name : {"playlist", "PLAYLIST", "Bridge", "SFX", "sfx", "sfx/",
                                   "deep/in/bridge//", "pop/../playlist"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestTransfer::reservedFoldersAreRefused()
{
    QFETCH(QString, name);
    m_questions->folder = m_card->path(name);
    QVERIFY(QDir().mkpath(m_questions->folder));
    QCOMPARE(transfer(someSongs()), Transfer::Outcome::NotStarted);
    QCOMPARE(m_questions->warnings, QStringList(reservedText));
    QVERIFY(m_opened.isEmpty());
    QVERIFY(QDir(m_questions->folder).isEmpty());
}

void TestTransfer::onlyTheLastFolderNameIsReserved_data()
{
    QTest::addColumn<QString>("name");
    for (const char *const name : {"sfx2", "my sfx", "playlist/pop"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestTransfer::onlyTheLastFolderNameIsReserved()
{
    QFETCH(QString, name);
    m_questions->folder = m_card->path(name);
    QVERIFY(QDir().mkpath(m_questions->folder));
    transfer({});
    QVERIFY(m_questions->warnings.isEmpty());
    QCOMPARE(m_opened.first()->title, QStringLiteral("Trasferimento"));
}

void TestTransfer::bannerStandsInTheLog()
{
    const QStringList files = someSongs(1);
    const LogCapture log;
    QCOMPARE(transfer(files), Transfer::Outcome::Complete);
    const QString line = QString(44, QLatin1Char('=')) + QLatin1Char(' ');
    QCOMPARE(LogCapture::lines().mid(0, 4),
             QStringList({line, QStringLiteral("          TRASFERIMENTO FILE "), line,
                          QStringLiteral("Copying file: \"%1\" to: \"%2/song0.mid\" ")
                              .arg(files.first(), m_questions->folder)}));
}

void TestTransfer::progressesAreTitledAndClosed()
{
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QCOMPARE(m_opened.size(), 2);
    const OpenedProgress &copy = *m_opened.at(0);
    QCOMPARE(copy.title, QStringLiteral("Trasferimento"));
    QCOMPARE(copy.label, QStringLiteral("Trasferimento file..."));
    QCOMPARE(copy.maximumAtFirst, 3);
    QCOMPARE(copy.updates, QList<int>({1, 2, 3}));
    QVERIFY(copy.closed);

    const OpenedProgress &index = *m_opened.at(1);
    QCOMPARE(index.title, QStringLiteral("Aggiornamento"));
    QCOMPARE(index.label, QStringLiteral("Aggiornamento database..."));
    QVERIFY(index.closed);
    // Three songs found, three read, then the index files in hundredths.
    QCOMPARE(index.maxima, QList<int>({3, 100}));
    QCOMPARE(index.values.mid(0, 7), QList<int>({0, 1, 2, 3, 1, 2, 3}));
    QCOMPARE(index.values.last(), 100);
}

void TestTransfer::copiedSongsAreInTheIndex()
{
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->successes, QStringList(successText));
    QVERIFY(m_questions->warnings.isEmpty() && m_questions->failures.isEmpty());
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/pop/song0.mid"), QStringLiteral("/pop/song1.mid"),
                          QStringLiteral("/pop/song2.mid")}));
    QVERIFY(m_card->hasIndex());
}

void TestTransfer::secondTransferAddsToTheIndex()
{
    QCOMPARE(transfer(someSongs(2)), Transfer::Outcome::Complete);
    const QList<quint32> firstIds = m_card->indexedIds();
    m_questions->replaceAnswer = Answer::NoToAll;
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->replaceAsked.size(), 1);
    const QList<quint32> ids = m_card->indexedIds();
    QCOMPARE(ids.mid(0, 2), firstIds);
    QCOMPARE(ids.size(), 3);
    QCOMPARE(ids.last(), firstIds.last() + 1);
}

void TestTransfer::karaokePicturesArriveWithTheirSong()
{
    const QString song = m_card->writeMusic(QStringLiteral("hit.mp3"), "ID3 music");
    m_card->writeMusic(QStringLiteral("hit.cdg"), "pictures");
    QCOMPARE(transfer({song}), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/hit.mp3")), QByteArray("ID3 music"));
    QCOMPARE(m_card->read(QStringLiteral("pop/hit.cdg")), QByteArray("pictures"));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/hit.mp3")));
}

void TestTransfer::longNamesAreShortenedAfterAsking()
{
    const QString song =
        m_card->writeMusic(QStringLiteral("My Long Song.mid"), MountedCard::midi("LONG"));
    m_questions->renameAnswer = Answer::Yes;
    QCOMPARE(transfer({song}), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->renameAsked.size(), 1);
    QVERIFY(m_questions->renameAsked.first().startsWith(
        m_card->path(QStringLiteral("pop/My Long Song.mid: verrà rinominato: "))));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/MyLong-1.mid")));
}

void TestTransfer::transferIntoTheSongsOwnFolderCopiesNothing()
{
    const QString song =
        m_card->writeOnCard(QStringLiteral("pop/here.mid"), MountedCard::midi("HERE"));
    m_freeBytes = 0;
    QCOMPARE(transfer({song}), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->successes, QStringList(successText));
    QVERIFY(m_questions->replaceAsked.isEmpty());
    QVERIFY(m_questions->roomAsked.isEmpty());
    QVERIFY(m_opened.first()->updates.isEmpty());
    QCOMPARE(m_card->read(QStringLiteral("pop/here.mid")), MountedCard::midi("HERE"));
}

void TestTransfer::keptFilesAreNoFailure()
{
    m_card->writeOnCard(QStringLiteral("pop/song0.mid"), MountedCard::midi("KEPT 0"));
    m_card->writeOnCard(QStringLiteral("pop/song1.mid"), MountedCard::midi("KEPT 1"));
    m_questions->replaceAnswer = Answer::NoToAll;
    QCOMPARE(transfer(someSongs(3)), Transfer::Outcome::Complete);
    QCOMPARE(m_questions->replaceAsked, QStringList(m_card->path(QStringLiteral("pop/song0.mid"))));
    QCOMPARE(m_card->read(QStringLiteral("pop/song0.mid")), MountedCard::midi("KEPT 0"));
    QCOMPARE(m_card->read(QStringLiteral("pop/song1.mid")), MountedCard::midi("KEPT 1"));
    QCOMPARE(m_card->read(QStringLiteral("pop/song2.mid")), MountedCard::midi("SONG 2"));
    QCOMPARE(m_opened.first()->updates, QList<int>({3}));
}

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    TestTransfer test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_transfer.moc"
