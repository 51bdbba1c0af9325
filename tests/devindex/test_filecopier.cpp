// Copying song files: order and counters, questions, companions, failures that lose nothing.
#include "devindex/copyingprogress.h"
#include "devindex/filecopier.h"
#include "library/answer.h"
#include "storage/safefile.h"
#include "support/faults.h"
#include "support/journalbytes.h"
#include "support/logcapture.h"
#include "support/modalanswers.h"
#include "windows/confirmation.h"
#include "windows/nocopyrightdialog.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <sys/stat.h>

namespace
{

constexpr int cluster = 32 * 1024;

} // namespace

class TestFileCopier : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

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
    void questionShowsTargetAndText();
    void closingTheQuestionReplaces();

    void mp3TakesItsCompanionAlong_data();
    void mp3TakesItsCompanionAlong();
    void mp3WithoutCompanionIsComplete();
    void folderNamedLikeACompanionIsNoCompanion();
    void companionIsReplacedWithItsSong();
    void failedCompanionFailsItsSong();
    void failedSongLeavesTheCompanionAlone();

    void cancelStopsBeforeTheNextFileAndKeepsTheCopies();
    void cancelFromAWindowIsHeardWhileABigFileIsCopied();
    void failedFileIsCountedAndTheOthersGoOn();
    void unreadableSourceKeepsTheTarget_data();
    void unreadableSourceKeepsTheTarget();
    void folderInTheTargetsPlaceStays();
    void missingDestinationFailsEveryFile();
    void incompleteCopyIsRemoved();
    void targetStaysUntilItsSuccessorIsWhole();
    void whatCutOffCopiesLeftIsRemoved();
    void journalOfAReplacedSongGoes();
    void copiesAtTheSameTimeNeverShareAnUnfinishedFile();
    void linkToNothingIsNoFreeName();
    void longNamesAreCopied();
    void emptyAndBigFilesArriveByteForByte_data();
    void emptyAndBigFilesArriveByteForByte();

    void roomIsCountedInClusters_data();
    void roomIsCountedInClusters();
    void roomCountsCompanionsAndWhatIsReplaced();

private:
    QString write(const QString &name, const QByteArray &bytes);
    QByteArray read(const QString &name) const;
    QString path(const QString &name) const { return m_folder->filePath(name); }
    FileCopier::AskReplace answering(QList<Answer> answers);
    bool copy(const QStringList &files, QList<Answer> answers = {});

    std::unique_ptr<QTemporaryDir> m_folder;
    CopyingProgress *m_progress = nullptr;
    QString m_dest;
    QStringList m_asked;
    int m_copied = -1;
};

void TestFileCopier::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
    m_dest = path(QStringLiteral("dest"));
    QVERIFY(QDir().mkdir(m_dest));
    QVERIFY(QDir().mkdir(path(QStringLiteral("lib"))));
    m_progress = new CopyingProgress;
    m_asked.clear();
    m_copied = -1;
}

void TestFileCopier::cleanup()
{
    delete m_progress;
    m_progress = nullptr;
    m_folder.reset();
}

/** Writes a file below the test's folder and returns its path. */
QString TestFileCopier::write(const QString &name, const QByteArray &bytes)
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write the test file %s", qPrintable(name));
    return file.fileName();
}

QByteArray TestFileCopier::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

/** Gives the answers in turn and remembers what was asked; a question too many fails the test. */
FileCopier::AskReplace TestFileCopier::answering(QList<Answer> answers)
{
    return [this, answers](const QString &target) mutable {
        m_asked.append(target);
        if (answers.isEmpty()) {
            QTest::qFail("asked once too often", __FILE__, __LINE__);
            return Answer::No;
        }
        return answers.takeFirst();
    };
}

bool TestFileCopier::copy(const QStringList &files, QList<Answer> answers)
{
    FileCopier copier(answering(std::move(answers)));
    return copier.copyFiles(files, m_dest, m_copied, *m_progress);
}

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
    constexpr int count = 600;
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

void TestFileCopier::questionShowsTargetAndText()
{
    const QString source = write(QStringLiteral("lib/a.mid"), "new");
    write(QStringLiteral("dest/a.mid"), "old");
    QString shownFile;
    QString shownText;
    ModalAnswers answers;
    answers.add([&](QWidget *window) {
        auto *const dialog = qobject_cast<NoCopyrightDialog *>(window);
        if (dialog == nullptr)
            return false;
        shownFile = dialog->findChild<QLabel *>(QStringLiteral("fileNameLabel"))->text();
        shownText = dialog->findChild<QLabel *>(QStringLiteral("label_2"))->text();
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("noPushButton")),
                          Qt::LeftButton);
        return true;
    });
    FileCopier copier(&confirmation::askToReplace);
    QVERIFY(copier.copyFiles({source}, m_dest, m_copied, *m_progress));
    QCOMPARE(m_copied, 0);
    QCOMPARE(shownFile, m_dest + QStringLiteral("/a.mid"));
    QCOMPARE(shownText, QStringLiteral("esiste già, vuoi sostituirlo?"));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("old"));
}

void TestFileCopier::closingTheQuestionReplaces()
{
    const QString source = write(QStringLiteral("lib/a.mid"), "new");
    write(QStringLiteral("dest/a.mid"), "old");
    ModalAnswers answers;
    answers.add([](QWidget *window) {
        QTest::keyClick(window, Qt::Key_Escape);
        return true;
    });
    FileCopier copier(&confirmation::askToReplace);
    QVERIFY(copier.copyFiles({source}, m_dest, m_copied, *m_progress));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("new"));
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

void TestFileCopier::cancelStopsBeforeTheNextFileAndKeepsTheCopies()
{
    const QStringList files = {write(QStringLiteral("lib/a.mid"), "a"),
                               write(QStringLiteral("lib/b.mid"), "b"),
                               write(QStringLiteral("lib/c.mid"), "c")};
    m_progress->onUpdate = [this](int done) { m_progress->canceled = done == 2; };
    QVERIFY(!copy(files));
    QCOMPARE(m_copied, 0);
    QCOMPARE(m_progress->updates, QList<int>({1, 2}));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("a"));
    QCOMPARE(read(QStringLiteral("dest/b.mid")), QByteArray("b"));
    QVERIFY(!QFileInfo::exists(m_dest + QStringLiteral("/c.mid")));
}

void TestFileCopier::cancelFromAWindowIsHeardWhileABigFileIsCopied()
{
    const QByteArray big(96 * 1024 * 1024, 'x');
    const QStringList files = {write(QStringLiteral("lib/big.mp3"), big),
                               write(QStringLiteral("lib/next.mid"), "n")};
    // The timer stands for a click: it fires only if events are handled during the first file.
    bool heardDuringCopy = false;
    QTimer click;
    connect(&click, &QTimer::timeout, this, [&] {
        heardDuringCopy = heardDuringCopy || m_progress->updates.isEmpty();
        m_progress->canceled = true;
    });
    QTimer::singleShot(0, this, [&] { click.start(1); });
    QVERIFY(!copy(files));
    QVERIFY(heardDuringCopy);
    QCOMPARE(m_copied, 0);
    QCOMPARE(QFileInfo(m_dest + QStringLiteral("/big.mp3")).size(), big.size());
    QVERIFY(!QFileInfo::exists(m_dest + QStringLiteral("/next.mid")));
}

void TestFileCopier::failedFileIsCountedAndTheOthersGoOn()
{
    const QStringList files = {write(QStringLiteral("lib/a.mid"), "a"),
                               path(QStringLiteral("lib/gone.mid")),
                               write(QStringLiteral("lib/c.mid"), "c")};
    QVERIFY(!copy(files));
    QCOMPARE(m_copied, 2);
    QCOMPARE(m_progress->updates, QList<int>({1, 2, 3}));
    QCOMPARE(read(QStringLiteral("dest/c.mid")), QByteArray("c"));
    QVERIFY(!QFileInfo::exists(m_dest + QStringLiteral("/gone.mid")));
}

void TestFileCopier::unreadableSourceKeepsTheTarget_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("vanished") << "vanished";
    QTest::newRow("folder in its place") << "folder";
    QTest::newRow("link to nothing") << "link";
    QTest::newRow("pipe that nobody writes to") << "pipe";
}

void TestFileCopier::unreadableSourceKeepsTheTarget()
{
    QFETCH(QString, kind);
    const QString source = path(QStringLiteral("lib/a.mid"));
    if (kind == QLatin1String("folder"))
        QVERIFY(QDir().mkdir(source));
    if (kind == QLatin1String("link"))
        QVERIFY(QFile::link(path(QStringLiteral("nothing")), source));
    if (kind == QLatin1String("pipe"))
        QCOMPARE(mkfifo(QFile::encodeName(source).constData(), 0644), 0);
    write(QStringLiteral("dest/a.mid"), "the only copy");
    QVERIFY(!copy({source}, {Answer::Yes}));
    QCOMPARE(m_copied, 0);
    QCOMPARE(m_progress->updates, QList<int>({1}));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("the only copy"));
}

void TestFileCopier::folderInTheTargetsPlaceStays()
{
    const QString source = write(QStringLiteral("lib/a.mid"), "a");
    QVERIFY(QDir().mkdir(m_dest + QStringLiteral("/a.mid")));
    QVERIFY(!copy({source}, {Answer::Yes}));
    QVERIFY(QFileInfo(m_dest + QStringLiteral("/a.mid")).isDir());
}

void TestFileCopier::missingDestinationFailsEveryFile()
{
    const QStringList files = {write(QStringLiteral("lib/a.mid"), "a"),
                               write(QStringLiteral("lib/b.mid"), "b")};
    QVERIFY(QDir().rmdir(m_dest));
    QVERIFY(!copy(files));
    QCOMPARE(m_copied, 0);
    QCOMPARE(m_progress->updates, QList<int>({1, 2}));
    QVERIFY(!QFileInfo::exists(m_dest));
}

void TestFileCopier::incompleteCopyIsRemoved()
{
    const QStringList files = {write(QStringLiteral("lib/big.mp3"), QByteArray(200000, 'b')),
                               write(QStringLiteral("lib/small.mid"), "small")};
    {
        const faults::FileSizeLimit limit(100000);
        QVERIFY(!copy(files));
    }
    QCOMPARE(m_copied, 1);
    QCOMPARE(QDir(m_dest).entryList(QDir::Files), QStringList(QStringLiteral("small.mid")));
}

void TestFileCopier::targetStaysUntilItsSuccessorIsWhole()
{
    const QString source = write(QStringLiteral("lib/a.mid"), QByteArray(500, 'n'));
    write(QStringLiteral("dest/a.mid"), "old");
    for (const quint64 size : {0, 1, 499}) {
        const LogCapture log;
        {
            const faults::FileSizeLimit limit(size);
            QVERIFY(!copy({source}, {Answer::Yes}));
        }
        QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("old"));
        QCOMPARE(QDir(m_dest).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("a.mid")));
        QCOMPARE(LogCapture::lines().filter(QStringLiteral("Impossible to copy")).size(), 1);
    }
    QVERIFY(copy({source}, {Answer::Yes}));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray(500, 'n'));
}

void TestFileCopier::whatCutOffCopiesLeftIsRemoved()
{
    write(QStringLiteral("dest/.a.mid.kavena-part"), "half of an ear");
    write(QStringLiteral("dest/.c.mid.0123abcd.kavena-part"), "half of an ear");
    write(QStringLiteral("precious"), "precious");
    QVERIFY(QFile::link(path(QStringLiteral("precious")),
                        m_dest + QStringLiteral("/.b.mid.kavena-part")));
    QVERIFY(
        copy({write(QStringLiteral("lib/a.mid"), "a"), write(QStringLiteral("lib/b.mid"), "b")}));
    QCOMPARE(QDir(m_dest).entryList(QDir::Files | QDir::Hidden),
             QStringList({QStringLiteral(".b.mid.kavena-part"), QStringLiteral("a.mid"),
                          QStringLiteral("b.mid")}));
    QCOMPARE(read(QStringLiteral("dest/a.mid")), QByteArray("a"));
    QCOMPARE(read(QStringLiteral("precious")), QByteArray("precious"));
}

void TestFileCopier::journalOfAReplacedSongGoes()
{
    const QString journal = m_dest + QStringLiteral("/.a.mid.kavena-journal");
    const QByteArray old = journalbytes::song(100, 'a');
    write(QStringLiteral("dest/a.mid"), journalbytes::song(150, '0'));
    write(QStringLiteral("dest/.a.mid.kavena-journal"), journalbytes::firstJournalOf(old, 150));
    // It is needed as long as the old song is there.
    const QString source = write(QStringLiteral("lib/a.mid"), journalbytes::song(120, 'A'));
    {
        const LogCapture log;
        const faults::FileSizeLimit limit(10);
        QVERIFY(!copy({source}, {Answer::Yes}));
    }
    QVERIFY(QFileInfo::exists(journal));
    copy({source}, {Answer::No});
    QVERIFY(QFileInfo::exists(journal));
    QVERIFY(copy({source}, {Answer::Yes}));
    QVERIFY(!QFileInfo::exists(journal));
    QVERIFY(read(QStringLiteral("dest/a.mid")) == journalbytes::song(120, 'A'));
}

void TestFileCopier::copiesAtTheSameTimeNeverShareAnUnfinishedFile()
{
    const QByteArray first(96 * 1024 * 1024, '1');
    const QByteArray second(1000, '2');
    QVERIFY(QDir().mkdir(path(QStringLiteral("lib/other"))));
    const QString source = write(QStringLiteral("lib/a.mid"), first);
    const QString other = write(QStringLiteral("lib/other/a.mid"), second);
    // The timer stands for another program: it fires while the first song is being copied.
    bool otherCopied = false;
    QByteArray arrived;
    const auto copyOther = [&] {
        CopyingProgress progress;
        int copied = 0;
        const auto replace = [](const QString &) { return Answer::Yes; };
        otherCopied = FileCopier(replace).copyFiles({other}, m_dest, copied, progress);
        arrived = read(QStringLiteral("dest/a.mid"));
    };
    QTimer::singleShot(0, this, [&] { QTimer::singleShot(1, this, copyOther); });
    write(QStringLiteral("dest/a.mid"), "old");
    QVERIFY(copy({source}, {Answer::Yes}));
    QVERIFY(otherCopied);
    QCOMPARE(arrived, second);
    QCOMPARE(read(QStringLiteral("dest/a.mid")), first);
    QCOMPARE(QDir(m_dest).entryList(QDir::Files | QDir::Hidden),
             QStringList(QStringLiteral("a.mid")));
}

void TestFileCopier::linkToNothingIsNoFreeName()
{
    QVERIFY(QFile::link(path(QStringLiteral("nothing")), m_dest + QStringLiteral("/a.mid")));
    QVERIFY(!copy({write(QStringLiteral("lib/a.mid"), "a")}));
    QVERIFY(QFileInfo(m_dest + QStringLiteral("/a.mid")).isSymLink());
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("nothing"))));
}

void TestFileCopier::longNamesAreCopied()
{
    const QString name = QString(251, QLatin1Char('n')) + QStringLiteral(".mid");
    QVERIFY(copy({write(QStringLiteral("lib/") + name, "a")}));
    QCOMPARE(QDir(m_dest).entryList(QDir::Files | QDir::Hidden), QStringList(name));
}

void TestFileCopier::emptyAndBigFilesArriveByteForByte_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("empty") << 0;
    QTest::newRow("one byte") << 1;
    QTest::newRow("one chunk") << 256 * 1024;
    QTest::newRow("one chunk and a byte") << 256 * 1024 + 1;
    QTest::newRow("5 MB") << 5000003;
}

void TestFileCopier::emptyAndBigFilesArriveByteForByte()
{
    QFETCH(int, size);
    QByteArray bytes(size, Qt::Uninitialized);
    for (int i = 0; i < size; ++i)
        bytes[i] = static_cast<char>((i * 131 + i / 251) & 0xFF);
    QVERIFY(copy({write(QStringLiteral("lib/a.mp3"), bytes)}));
    QVERIFY(read(QStringLiteral("dest/a.mp3")) == bytes);
}

void TestFileCopier::roomIsCountedInClusters_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<qint64>("needed");
    QTest::newRow("empty") << 0 << qint64(0);
    QTest::newRow("one byte") << 1 << qint64(cluster);
    QTest::newRow("one cluster") << cluster << qint64(cluster);
    QTest::newRow("one byte more") << cluster + 1 << qint64(2 * cluster);
}

void TestFileCopier::roomIsCountedInClusters()
{
    QFETCH(int, size);
    QFETCH(qint64, needed);
    const QString source = write(QStringLiteral("lib/a.mid"), QByteArray(size, 'a'));
    QCOMPARE(FileCopier::roomNeeded({source}, m_dest), needed);
}

void TestFileCopier::roomCountsCompanionsAndWhatIsReplaced()
{
    const QString song = write(QStringLiteral("lib/a.mp3"), QByteArray(3 * cluster, 'a'));
    write(QStringLiteral("lib/a.cdg"), "pictures");
    QCOMPARE(FileCopier::roomNeeded({song}, m_dest), qint64(4 * cluster));

    // What lies there gives its room back, but never more than the new file takes.
    write(QStringLiteral("dest/a.mp3"), QByteArray(cluster + 1, 'o'));
    QCOMPARE(FileCopier::roomNeeded({song}, m_dest), qint64(2 * cluster));
    write(QStringLiteral("dest/a.mp3"), QByteArray(9 * cluster, 'o'));
    QCOMPARE(FileCopier::roomNeeded({song}, m_dest), qint64(cluster));
    write(QStringLiteral("dest/a.cdg"), "old");
    QCOMPARE(FileCopier::roomNeeded({song}, m_dest), qint64(0));

    const QString inPlace = write(QStringLiteral("dest/b.mid"), QByteArray(cluster, 'b'));
    const QString gone = path(QStringLiteral("lib/gone.mid"));
    QCOMPARE(FileCopier::roomNeeded({inPlace, gone}, m_dest), qint64(0));
}

QTEST_MAIN(TestFileCopier)
#include "test_filecopier.moc"
