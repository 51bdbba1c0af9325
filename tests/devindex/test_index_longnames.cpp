// The scan of a memory: long names and the question whether they are shortened.
#include "devindex/index.h"
#include "library/answer.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/scannedmemory.h"
#include "support/songbytes.h"

#include <QTest>

using namespace songbytes;
using namespace scannedmemory;

class TestIndexLongNames : public QObject
{
    Q_OBJECT

private slots:
    void baseNameOf8CharactersIsKept9Renamed();
    void generatedNamesHoldNoBlanksDotsApostrophesHyphens_data();
    void generatedNamesHoldNoBlanksDotsApostrophesHyphens();
    void numbersOfTwoAndThreeDigitsShortenTheName();
    void past999NothingCanBeRenamed();
    void takenNamesArePassedOver();
    void rootIsNeverRenamed();
    void karaokePicturesAreRenamedWithTheirSong_data();
    void karaokePicturesAreRenamedWithTheirSong();
    void picturesOfAnotherSongAreNotReplaced();
    void picturesStayWithASongThatIsNotRenamed();
    void aFolderNamedLikeAnMp3HasNoPictures();
    void foldersAreRenamedWithTheirSongs();
    void aFolderThatCannotBeRenamedIsLeftOut();
    void halfASurrogatePairIsNoName();
    void yesRenamesAndAsksAgain();
    void yesToAllRenamesWithoutAsking();
    void noKeepsTheLongNameAndIndexesIt();
    void noToAllKeepsEveryLongName();
    void answersAreKeptForTheWholeObject();
    void questionShowsTheCandidatesWholePath();
};

void TestIndexLongNames::baseNameOf8CharactersIsKept9Renamed()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("12345678.mid"), plainSong);
    memory.add(QStringLiteral("abcdefghi.mid"), plainSong);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index),
             (QStringList{QStringLiteral("/12345678.mid"), QStringLiteral("/abcdef-1.mid")}));
    QCOMPARE(index.questions.size(), 1);
    QVERIFY(QFileInfo::exists(memory.path(QStringLiteral("abcdef-1.mid"))));
    QVERIFY(!QFileInfo::exists(memory.path(QStringLiteral("abcdefghi.mid"))));
}

void TestIndexLongNames::generatedNamesHoldNoBlanksDotsApostrophesHyphens_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shortName");
    const auto row = [](const char *name, const char *shortName) {
        QTest::newRow(name) << QString::fromUtf8(name) << QString::fromUtf8(shortName);
    };
    row("My Long Song Name.mid", "MyLong-1.mid");
    row("O' sole mio.mid", "Osolem-1.mid");
    row("a-b-c-d-e-f.MP3", "abcdef-1.MP3");
    row("a.b.c.d.e.f.g.kar", "abcdef-1.kar");
    row("- . ' - . '.mid", "-1.mid");
    row("ab - .......mid", "ab-1.mid");
    row("Città vuota.mid", "Cittàv-1.mid");
}

void TestIndexLongNames::generatedNamesHoldNoBlanksDotsApostrophesHyphens()
{
    QFETCH(QString, name);
    QFETCH(QString, shortName);
    const DeviceMemory memory;
    const QString full = memory.add(name, plainSong);
    AskedIndex index(memory);
    QCOMPARE(index.renameLongFileName(full), memory.path(shortName));
    QCOMPARE(memory.read(shortName), plainSong);
    QVERIFY(!QFileInfo::exists(full));
}

void TestIndexLongNames::numbersOfTwoAndThreeDigitsShortenTheName()
{
    const DeviceMemory memory;
    for (int i = 1; i <= 101; ++i)
        memory.add(QStringLiteral("My Long Song %1.mid").arg(i, 3, 10, QLatin1Char('0')),
                   QByteArray::number(i));
    AskedIndex index(memory, {Answer::YesToAll});
    index.scan_files(memory.root());
    QCOMPARE(index.entries.size(), 101);
    QCOMPARE(memory.read(QStringLiteral("MyLong-1.mid")), QByteArray("1"));
    QCOMPARE(memory.read(QStringLiteral("MyLong-9.mid")), QByteArray("9"));
    QCOMPARE(memory.read(QStringLiteral("MyLon-10.mid")), QByteArray("10"));
    QCOMPARE(memory.read(QStringLiteral("MyLon-99.mid")), QByteArray("99"));
    QCOMPARE(memory.read(QStringLiteral("MyLo-100.mid")), QByteArray("100"));
    QCOMPARE(memory.read(QStringLiteral("MyLo-101.mid")), QByteArray("101"));
}

void TestIndexLongNames::past999NothingCanBeRenamed()
{
    const DeviceMemory memory;
    for (int n = 1; n <= 999; ++n) {
        const QString stem = QStringLiteral("abcdef").left(n < 10 ? 6 : n < 100 ? 5 : 4);
        memory.add(QStringLiteral("%1-%2.mid").arg(stem).arg(n), {});
    }
    const QString full = memory.add(QStringLiteral("abcdefghijk.mid"), plainSong);
    const QString other = memory.add(QStringLiteral("abcdefghijk.kar"), plainSong);
    AskedIndex index(memory);
    QCOMPARE(index.renameLongFileName(full), QString());
    QVERIFY(index.questions.isEmpty());
    QCOMPARE(memory.read(QStringLiteral("abcdefghijk.mid")), plainSong);
    // Another suffix is another name.
    QCOMPARE(index.renameLongFileName(other), memory.path(QStringLiteral("abcdef-1.kar")));
    index.scan_files(memory.root());
    QCOMPARE(index.filesFound, 1000u);
}

void TestIndexLongNames::takenNamesArePassedOver()
{
    const DeviceMemory memory;
    memory.makeFolder(QStringLiteral("abcdef-1.mid"));
    memory.add(QStringLiteral("abcdef-2.mid"), "old");
    const QString full = memory.add(QStringLiteral("abcdefghi.mid"), plainSong);
    AskedIndex index(memory);
    QCOMPARE(index.renameLongFileName(full), memory.path(QStringLiteral("abcdef-3.mid")));
    QCOMPARE(memory.read(QStringLiteral("abcdef-2.mid")), QByteArray("old"));
}

void TestIndexLongNames::rootIsNeverRenamed()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("A very long card name/a.mid"), plainSong);
    AskedIndex index(memory);
    index.rootPath = memory.path(QStringLiteral("A very long card name"));
    index.scan_files(index.rootPath);
    QCOMPARE(index.questions, QStringList());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/a.mid")});
    QCOMPARE(index.renameLongFileName(index.rootPath.toUpper()), index.rootPath.toUpper());
}

void TestIndexLongNames::karaokePicturesAreRenamedWithTheirSong_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("pictures");
    QTest::newRow("lower case") << "mp3"
                                << "cdg";
    QTest::newRow("upper case") << "MP3"
                                << "CDG";
}

void TestIndexLongNames::karaokePicturesAreRenamedWithTheirSong()
{
    QFETCH(QString, suffix);
    QFETCH(QString, pictures);
    const DeviceMemory memory;
    const QString name = QStringLiteral("pop/My Long Song.%1");
    const QString shortName = QStringLiteral("pop/MyLong-1.%1");
    memory.add(name.arg(suffix), plainSong);
    memory.add(name.arg(pictures), "pictures");
    memory.add(name.arg(QStringLiteral("txt")), "words");
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 1);
    QCOMPARE(pathsOf(index), QStringList{QLatin1Char('/') + shortName.arg(suffix)});
    QCOMPARE(memory.read(shortName.arg(pictures)), QByteArray("pictures"));
    QVERIFY(!QFileInfo::exists(memory.path(name.arg(pictures))));
    QCOMPARE(memory.read(name.arg(QStringLiteral("txt"))), QByteArray("words"));
}

void TestIndexLongNames::picturesOfAnotherSongAreNotReplaced()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("My Long Song.mp3"), plainSong);
    memory.add(QStringLiteral("My Long Song.cdg"), "pictures");
    memory.add(QStringLiteral("MyLong-1.cdg"), "other pictures");
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/MyLong-2.mp3")});
    QCOMPARE(memory.read(QStringLiteral("MyLong-2.cdg")), QByteArray("pictures"));
    QCOMPARE(memory.read(QStringLiteral("MyLong-1.cdg")), QByteArray("other pictures"));
}

void TestIndexLongNames::picturesStayWithASongThatIsNotRenamed()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("My Long Song.mp3"), plainSong);
    memory.add(QStringLiteral("My Long Song.cdg"), "pictures");
    memory.add(QStringLiteral("A Midi Song.mid"), plainSong);
    memory.add(QStringLiteral("A Midi Song.cdg"), "no pictures");
    AskedIndex index(memory, {Answer::Yes, Answer::No});
    index.scan_files(memory.root());
    QCOMPARE(QDir(memory.root()).entryList(QDir::Files, QDir::Name),
             (QStringList{QStringLiteral("A Midi Song.cdg"), QStringLiteral("AMidiS-1.mid"),
                          QStringLiteral("My Long Song.cdg"), QStringLiteral("My Long Song.mp3")}));
}

void TestIndexLongNames::aFolderNamedLikeAnMp3HasNoPictures()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("A Long Album.mp3/a.mid"), plainSong);
    memory.add(QStringLiteral("A Long Album.cdg"), "pictures");
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/ALongA-1/a.mid")});
    QCOMPARE(memory.read(QStringLiteral("A Long Album.cdg")), QByteArray("pictures"));
}

void TestIndexLongNames::foldersAreRenamedWithTheirSongs()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("Canzoni d'amore/Vol. 1.old/a.mid"), plainSong);
    AskedIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/Canzon-1/Vol. 1.old/a.mid")});
    QVERIFY(!QFileInfo::exists(memory.path(QStringLiteral("Canzoni d'amore"))));
}

void TestIndexLongNames::aFolderThatCannotBeRenamedIsLeftOut()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("A long folder name/sub/a.mid"), plainSong);
    memory.add(QStringLiteral("b.mid"), plainSong);
    AskedIndex index(memory);
    // The name is taken between the question and the answer: renaming fails.
    index.setRenameQuestion([&memory](const QString &, const QString &) {
        memory.add(QStringLiteral("Alongf-1/x.txt"), {});
        return Answer::Yes;
    });
    const LogCapture log;
    index.scan_files(memory.root());
    QCOMPARE(pathsOf(index), QStringList{QStringLiteral("/b.mid")});
    QVERIFY(LogCapture::contains(
        QStringLiteral("[Index::renameLongFileName] Impossible to rename \"%1\" ")
            .arg(memory.path(QStringLiteral("A long folder name")))));
    QVERIFY(QFileInfo::exists(memory.path(QStringLiteral("A long folder name/sub/a.mid"))));
}

void TestIndexLongNames::halfASurrogatePairIsNoName()
{
    const DeviceMemory memory;
    const QString full = memory.add(QStringLiteral("abcde\U0001F3B5 song.mid"), plainSong);
    AskedIndex index(memory);
    QCOMPARE(index.renameLongFileName(full), memory.path(QStringLiteral("abcde-1.mid")));
}

void TestIndexLongNames::yesRenamesAndAsksAgain()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("first long name.mid"), plainSong);
    memory.add(QStringLiteral("second long name.mid"), plainSong);
    AskedIndex index(memory, {Answer::Yes, Answer::Yes});
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 2);
    QCOMPARE(pathsOf(index),
             (QStringList{QStringLiteral("/firstl-1.mid"), QStringLiteral("/second-1.mid")}));
    QCOMPARE(int(index.askBeforeRename), 1);
    QCOMPARE(int(index.renameAccepted), 1);
}

void TestIndexLongNames::yesToAllRenamesWithoutAsking()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("first long name.mid"), plainSong);
    memory.add(QStringLiteral("second long name.mid"), plainSong);
    AskedIndex index(memory, {Answer::YesToAll});
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 1);
    QCOMPARE(pathsOf(index),
             (QStringList{QStringLiteral("/firstl-1.mid"), QStringLiteral("/second-1.mid")}));
    QCOMPARE(int(index.askBeforeRename), 0);
    QCOMPARE(int(index.renameAccepted), 1);
}

void TestIndexLongNames::noKeepsTheLongNameAndIndexesIt()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("first long name.mid"), plainSong);
    memory.add(QStringLiteral("second long name.mid"), plainSong);
    AskedIndex index(memory, {Answer::No, Answer::Yes});
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 2);
    QCOMPARE(pathsOf(index), (QStringList{QStringLiteral("/first long name.mid"),
                                          QStringLiteral("/second-1.mid")}));
}

void TestIndexLongNames::noToAllKeepsEveryLongName()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("first long name.mid"), plainSong);
    memory.add(QStringLiteral("second long name.mid"), plainSong);
    AskedIndex index(memory, {Answer::NoToAll});
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 1);
    QCOMPARE(pathsOf(index), (QStringList{QStringLiteral("/first long name.mid"),
                                          QStringLiteral("/second long name.mid")}));
    QCOMPARE(int(index.askBeforeRename), 0);
    QCOMPARE(int(index.renameAccepted), 0);
}

void TestIndexLongNames::answersAreKeptForTheWholeObject()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("first long name.mid"), plainSong);
    AskedIndex index(memory, {Answer::NoToAll});
    index.scan_files(memory.root());
    memory.add(QStringLiteral("second long name.mid"), plainSong);
    index.scan_files(memory.root());
    QCOMPARE(index.questions.size(), 1);
    QVERIFY(QFileInfo::exists(memory.path(QStringLiteral("second long name.mid"))));
}

void TestIndexLongNames::questionShowsTheCandidatesWholePath()
{
    const DeviceMemory memory;
    const QString full = memory.add(QStringLiteral("My Long Song Name.mid"), plainSong);
    AskedIndex index(memory);
    index.renameLongFileName(full);
    QCOMPARE(index.questions,
             QStringList{full + QStringLiteral("|verrà rinominato: ") +
                         memory.path(QStringLiteral("MyLong-1.mid")) +
                         QStringLiteral("\n\nSe il file non viene rinominato, è possibile che non "
                                        "venga rilevato da Kavena.")});
}

QTEST_MAIN(TestIndexLongNames)

#include "test_index_longnames.moc"
