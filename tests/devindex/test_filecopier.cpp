// Copies of song files: order, names, answers and pictures.
#include "devindex/filecopier.h"
#include "library/answer.h"
#include "support/copyfixture.h"
#include "support/copyingprogress.h"
#include "support/journalbytes.h"
#include "support/logcapture.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <sys/stat.h>

using namespace copyfixture;

class TestFileCopier : public CopyFixture
{
    Q_OBJECT

private slots:
    void init() { CopyFixture::init(); }
    void cleanup() { CopyFixture::cleanup(); }

    void copiesEveryFileInTheOrderOfTheList();
    void emptyListIsASuccess();
    void filesGetTheirNamesTogetherWhenTheyAreOnTheMedium();
    void manyFilesGetTheirNamesInSeveralGroups();
    void secondFileOfOneNameFindsTheFirstInPlace();
    void logNamesSourceAndTarget();
    void fileAtItsPlaceCountsAsCopiedWithoutProgress();
    void fileReachedByAnotherPathIsAtItsPlace_data();
    void fileReachedByAnotherPathIsAtItsPlace();

    void answersDecideAboutExistingTargets_data();
    void answersDecideAboutExistingTargets();
    void allAnswersEndWithTheirCall();

    void mp3TakesItsCompanionAlong_data();
    void mp3TakesItsCompanionAlong();
    void mp3WithoutCompanionIsComplete();
    void folderNamedLikeACompanionIsNoCompanion();
    void companionIsReplacedWithItsSong();
    void failedCompanionFailsItsSong();
    void failedSongLeavesTheCompanionAlone();
};

void TestFileCopier::copiesEveryFileInTheOrderOfTheList()
{
    const QStringList files = {write(QStringLiteral("lib/z.mid"), "zzz"),
                               write(QStringLiteral("lib/a.mf5"), "aaaa"),
                               write(QStringLiteral("lib/città.kar"), "c")};
    QStringList order;
    QSet<QString> seen;
    const QRegularExpression number(QStringLiteral("\\.[0-9a-f]{8}(?=\\.kavena-part$)"));
    m_progress->onUpdate = [&](int) {
        const QStringList now = QDir(m_dest).entryList(QDir::Files | QDir::Hidden);
        for (const QString &name : now) {
            if (!seen.contains(name))
                order.append(QString(name).remove(number));
            seen.insert(name);
        }
    };
    QVERIFY(copy(files));
    QCOMPARE(m_copied, 3);
    QCOMPARE(m_progress->updates, QList<int>({1, 2, 3}));
    QCOMPARE(order, QStringList({QStringLiteral(".z.mid.kavena-part"),
                                 QStringLiteral(".a.mf5.kavena-part"),
                                 QStringLiteral(".città.kar.kavena-part")}));
    QCOMPARE(read(QStringLiteral("dest/z.mid")), QByteArray("zzz"));
    QCOMPARE(read(QStringLiteral("dest/a.mf5")), QByteArray("aaaa"));
    QCOMPARE(read(QStringLiteral("dest/città.kar")), QByteArray("c"));
    QCOMPARE(read(QStringLiteral("lib/z.mid")), QByteArray("zzz"));
}

void TestFileCopier::filesGetTheirNamesTogetherWhenTheyAreOnTheMedium()
{
    write(QStringLiteral("dest/a.mid"), "old");
    const QStringList files = {write(QStringLiteral("lib/a.mid"), "new"),
                               write(QStringLiteral("lib/b.mid"), "bbb")};
    int looked = 0;
    m_progress->onUpdate = [&](int) {
        ++looked;
        QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("old"));
        QVERIFY(!QFile::exists(m_dest + QStringLiteral("/b.mid")));
    };
    QVERIFY(copy(files, {Answer::Yes}));
    QCOMPARE(looked, 2);
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("new"));
    QCOMPARE(read(QStringLiteral("dest/b.mid")), QByteArray("bbb"));
    QCOMPARE(QDir(m_dest).entryList(QDir::Files | QDir::Hidden, QDir::Name),
             QStringList({QStringLiteral("a.mid"), QStringLiteral("b.mid")}));
}

void TestFileCopier::manyFilesGetTheirNamesInSeveralGroups()
{
    constexpr int count = 1500;
    QStringList files;
    for (int i = 0; i < count; ++i)
        files.append(write(QStringLiteral("lib/s%1.mid").arg(i), QByteArray::number(i)));
    int named = 0;
    m_progress->onUpdate = [&](int done) {
        if (done == count)
            named = static_cast<int>(QDir(m_dest).entryList(QDir::Files).size());
    };
    QVERIFY(copy(files));
    QCOMPARE(m_copied, count);
    QVERIFY2(named > 0 && named < count, qPrintable(QString::number(named)));
    for (int i = 0; i < count; ++i)
        QCOMPARE(read(QStringLiteral("dest/s%1.mid").arg(i)), QByteArray::number(i));
    QCOMPARE(QDir(m_dest).entryList(QDir::Files | QDir::Hidden).size(), count);
}

void TestFileCopier::secondFileOfOneNameFindsTheFirstInPlace()
{
    QVERIFY(QDir().mkpath(path(QStringLiteral("one"))) &&
            QDir().mkpath(path(QStringLiteral("two"))));
    const QStringList files = {write(QStringLiteral("one/a.mid"), "first"),
                               write(QStringLiteral("two/a.mid"), "second")};
    QVERIFY(copy(files, {Answer::No}));
    QCOMPARE(m_asked, QStringList(m_dest + QStringLiteral("/a.mid")));
    QCOMPARE(m_copied, 1);
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("first"));
}

void TestFileCopier::emptyListIsASuccess()
{
    QVERIFY(copy({}));
    QCOMPARE(m_copied, 0);
    QVERIFY(m_progress->updates.isEmpty());
}

void TestFileCopier::logNamesSourceAndTarget()
{
    const QString source = write(QStringLiteral("lib/a.mid"), "a");
    const LogCapture log;
    QVERIFY(copy({source}));
    QCOMPARE(
        LogCapture::lines(),
        QStringList(QStringLiteral("Copying file: \"%1\" to: \"%2/a.mid\" ").arg(source, m_dest)));
}

void TestFileCopier::fileAtItsPlaceCountsAsCopiedWithoutProgress()
{
    const QString inPlace = write(QStringLiteral("dest/a.mid"), "song");
    const QString other = write(QStringLiteral("lib/b.mid"), "other");
    QVERIFY(copy({inPlace, other}));
    QCOMPARE(m_copied, 2);
    QCOMPARE(m_progress->updates, QList<int>({2}));
    QVERIFY(m_asked.isEmpty());
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("song"));
}

void TestFileCopier::fileReachedByAnotherPathIsAtItsPlace_data()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("doubled slash") << "dest//a.mid";
    QTest::newRow("dots") << "lib/../dest/./a.mid";
    QTest::newRow("link to the folder") << "folderlink/a.mid";
    QTest::newRow("link to the file") << "linked/a.mid";
}

void TestFileCopier::fileReachedByAnotherPathIsAtItsPlace()
{
    QFETCH(QString, source);
    write(QStringLiteral("dest/a.mid"), "song");
    QVERIFY(QFile::link(m_dest, path(QStringLiteral("folderlink"))));
    QVERIFY(QDir().mkdir(path(QStringLiteral("linked"))));
    QVERIFY(QFile::link(path(QStringLiteral("dest/a.mid")), path(QStringLiteral("linked/a.mid"))));
    QVERIFY(copy({m_folder->path() + QLatin1Char('/') + source}));
    QCOMPARE(m_copied, 1);
    QVERIFY(m_asked.isEmpty());
    QVERIFY(m_progress->updates.isEmpty());
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("song"));
}

void TestFileCopier::answersDecideAboutExistingTargets_data()
{
    QTest::addColumn<QList<Answer>>("answers");
    QTest::addColumn<QByteArray>("replaced"); // by song: '1' new bytes, '0' old bytes
    QTest::addColumn<int>("copied");
    QTest::addColumn<QList<int>>("updates");
    using L = QList<int>;
    using A = QList<Answer>;
    const Answer yes = Answer::Yes, yesAll = Answer::YesToAll;
    const Answer no = Answer::No, noAll = Answer::NoToAll;
    QTest::newRow("yes each") << A{yes, yes, yes} << QByteArray("111") << 4 << L{1, 2, 3, 4};
    QTest::newRow("no each") << A{no, no, no} << QByteArray("000") << 1 << L{4};
    QTest::newRow("mixed") << A{no, yes, no} << QByteArray("010") << 2 << L{2, 4};
    QTest::newRow("yes to all") << A{yesAll} << QByteArray("111") << 4 << L{1, 2, 3, 4};
    QTest::newRow("no to all") << A{noAll} << QByteArray("000") << 1 << L{4};
    QTest::newRow("yes, no to all") << A{yes, noAll} << QByteArray("100") << 2 << L{1, 4};
    QTest::newRow("no, yes to all") << A{no, yesAll} << QByteArray("011") << 3 << L{2, 3, 4};
}

void TestFileCopier::answersDecideAboutExistingTargets()
{
    QFETCH(QList<Answer>, answers);
    QFETCH(QByteArray, replaced);
    QFETCH(int, copied);
    QFETCH(QList<int>, updates);
    QStringList files;
    for (int i = 0; i < 3; ++i) {
        const QString name = QStringLiteral("s%1.mid").arg(i);
        files.append(write(QStringLiteral("lib/") + name, "new"));
        write(QStringLiteral("dest/") + name, "old bytes");
    }
    files.append(write(QStringLiteral("lib/fresh.mid"), "fresh"));

    QVERIFY(copy(files, answers)); // a file that is kept is no failure
    QCOMPARE(m_copied, copied);
    QCOMPARE(m_progress->updates, updates);
    QCOMPARE(m_asked.size(), answers.size());
    for (int i = 0; i < m_asked.size(); ++i)
        QCOMPARE(m_asked.at(i), QStringLiteral("%1/s%2.mid").arg(m_dest).arg(i));
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(read(QStringLiteral("dest/s%1.mid").arg(i)),
                 replaced.at(i) == '1' ? QByteArray("new") : QByteArray("old bytes"));
    }
    QCOMPARE(read(QStringLiteral("dest/fresh.mid")), QByteArray("fresh"));
}

void TestFileCopier::allAnswersEndWithTheirCall()
{
    const QString source = write(QStringLiteral("lib/a.mid"), "new");
    write(QStringLiteral("dest/a.mid"), "old");
    FileCopier copier(answering({Answer::NoToAll, Answer::Yes}));
    QVERIFY(copier.copyFiles({source}, m_dest, m_copied, *m_progress));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("old"));
    QVERIFY(copier.copyFiles({source}, m_dest, m_copied, *m_progress));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("new"));
    QCOMPARE(m_asked.size(), 2);
}

void TestFileCopier::mp3TakesItsCompanionAlong_data()
{
    QTest::addColumn<QString>("song");
    QTest::addColumn<QString>("companion");
    QTest::newRow("plain") << "song.mp3"
                           << "song.cdg";
    QTest::newRow("upper-case song") << "SONG.MP3"
                                     << "SONG.cdg";
    QTest::newRow("upper-case pair") << "SONG.MP3"
                                     << "SONG.CDG";
    QTest::newRow("extension inside the name") << "a.mp3.remix.mp3"
                                               << "a.mp3.remix.cdg";
}

void TestFileCopier::mp3TakesItsCompanionAlong()
{
    QFETCH(QString, song);
    QFETCH(QString, companion);
    const QString lib = QStringLiteral("lib/");
    const QString dest = QStringLiteral("dest/");
    // The folder's own name holds ".mp3" too, and must stay as it is.
    QVERIFY(QDir().mkdir(path(QStringLiteral("lib/my.mp3s"))));
    const QString source = write(QStringLiteral("lib/my.mp3s/") + song, "music");
    write(QStringLiteral("lib/my.mp3s/") + companion, "pictures");
    QVERIFY(copy({source}));
    QCOMPARE(m_copied, 1);
    QCOMPARE(m_progress->updates, QList<int>({1}));
    QCOMPARE(read(dest + song), QByteArray("music"));
    QCOMPARE(read(dest + companion), QByteArray("pictures"));
    QCOMPARE(QDir(m_dest).entryList(QDir::Files).size(), 2);
}

void TestFileCopier::mp3WithoutCompanionIsComplete()
{
    const QStringList files = {write(QStringLiteral("lib/a.mp3"), "a"),
                               write(QStringLiteral("lib/songmp3"), "no extension"),
                               write(QStringLiteral("lib/b.mid"), "b")};
    write(QStringLiteral("lib/b.cdg"), "belongs to no MP3");
    write(QStringLiteral("lib/son.cdg"), "belongs to no MP3");
    QVERIFY(copy(files));
    QCOMPARE(m_copied, 3);
    QCOMPARE(
        QDir(m_dest).entryList(QDir::Files),
        QStringList({QStringLiteral("a.mp3"), QStringLiteral("b.mid"), QStringLiteral("songmp3")}));
}

void TestFileCopier::folderNamedLikeACompanionIsNoCompanion()
{
    const QString source = write(QStringLiteral("lib/a.mp3"), "a");
    QVERIFY(QDir().mkdir(path(QStringLiteral("lib/a.cdg"))));
    QVERIFY(copy({source}));
    QCOMPARE(m_copied, 1);
}

void TestFileCopier::companionIsReplacedWithItsSong()
{
    const QString source = write(QStringLiteral("lib/a.mp3"), "new");
    write(QStringLiteral("lib/a.cdg"), "new pictures");
    write(QStringLiteral("dest/a.mp3"), "old");
    write(QStringLiteral("dest/a.cdg"), "old pictures");
    QVERIFY(copy({source}, {Answer::No}));
    QCOMPARE(read(QStringLiteral("dest/a.cdg")), QByteArray("old pictures"));
    QVERIFY(copy({source}, {Answer::Yes}));
    QCOMPARE(m_copied, 1);
    QCOMPARE(read(QStringLiteral("dest/a.mp3")), QByteArray("new"));
    QCOMPARE(read(QStringLiteral("dest/a.cdg")), QByteArray("new pictures"));
}

void TestFileCopier::failedCompanionFailsItsSong()
{
    // Nobody was asked about the companion that is already there: it stays.
    const QString source = write(QStringLiteral("lib/a.mp3"), "music");
    write(QStringLiteral("lib/a.cdg"), "new pictures");
    write(QStringLiteral("dest/a.cdg"), "old pictures");
    QVERIFY(!copy({source}));
    QCOMPARE(m_copied, 0);
    QCOMPARE(m_progress->updates, QList<int>({1}));
    QCOMPARE(read(QStringLiteral("dest/a.mp3")), QByteArray("music"));
    QCOMPARE(read(QStringLiteral("dest/a.cdg")), QByteArray("old pictures"));
}

void TestFileCopier::failedSongLeavesTheCompanionAlone()
{
    const QString source = path(QStringLiteral("lib/gone.mp3"));
    write(QStringLiteral("lib/gone.cdg"), "pictures");
    QVERIFY(!copy({source}));
    QVERIFY(!QFileInfo::exists(m_dest + QStringLiteral("/gone.cdg")));
}

QTEST_MAIN(TestFileCopier)

#include "test_filecopier.moc"
