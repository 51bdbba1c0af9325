// The lock on a memory: who holds it, leftovers, memories that cannot be locked. Other programs are
// this test, started once more.
#include "devindex/index.h"
#include "library/answer.h"
#include "storage/memorylock.h"
#include "storage/safefile.h"
#include "support/faults.h"
#include "support/mountedcard.h"
#include "support/smallmemory.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QProcess>
#include <QSysInfo>
#include <QTest>

#include <cstdio>
#include <memory>
#include <sys/stat.h>

namespace
{

const QString lockName = QStringLiteral(".kavena-lock");

/** The child's part: takes the lock, says so, and holds it until its input ends. */
int holdUntilInputEnds(const QString &root)
{
    MemoryLock lock(root);
    std::puts(lock.take() ? "held" : "refused");
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    return 0;
}

} // namespace

class TestMemoryLock : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_card = std::make_unique<MountedCard>(); }
    void cleanup() { m_card.reset(); }

    void lockIsAHiddenFileThatGoesWithIt();
    void lockThatWasGivenBackCanBeTakenAgain();
    void secondIsToldWhoHoldsTheMemory();
    void lockOfAKilledProgramIsALeftover();
    void leftoverIsTakenAwayWhateverItSays_data();
    void leftoverIsTakenAwayWhateverItSays();
    void otherThingsUnderTheNameAreNotFollowed_data();
    void otherThingsUnderTheNameAreNotFollowed();
    void folderWithContentUnderTheNameIsToldAsSuch();
    void lockOfAnotherStickIsLeftAlone();
    void pulledMemoryIsToldAsSuch();
    void protectedMemoryIsToldAsSuch();
    void memoryWithoutPermissionIsToldAsSuch();
    void fullMemoryCanBeLocked();
    void plantedHolderIsShownAsPlainText();
    void indexDoesNotSeeTheLock();

private:
    QStringList allFiles() const
    {
        return QDir(m_card->root())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<MountedCard> m_card;
};

void TestMemoryLock::lockIsAHiddenFileThatGoesWithIt()
{
    {
        MemoryLock lock(m_card->root());
        QVERIFY(allFiles().isEmpty());
        QVERIFY(lock.take());
        QCOMPARE(allFiles(), QStringList(lockName));
        const QList<QByteArray> lines = m_card->read(lockName).split('\n');
        QCOMPARE(lines.size(), 6);
        QCOMPARE(lines.at(0), QByteArray("test_memorylock"));
        QCOMPARE(lines.at(1), QByteArray::number(QCoreApplication::applicationPid()));
        QCOMPARE(lines.at(2), QSysInfo::machineHostName().toUtf8());
        lock.release();
        QVERIFY(allFiles().isEmpty());
        QVERIFY(lock.take());
    }
    QVERIFY(allFiles().isEmpty());
}

void TestMemoryLock::lockThatWasGivenBackCanBeTakenAgain()
{
    MemoryLock first(m_card->root());
    MemoryLock second(m_card->root());
    QVERIFY(first.take());
    QVERIFY(!second.take());
    first.release();
    QVERIFY(second.take());
    QVERIFY(!first.take());
    first.release(); // it holds nothing
    QCOMPARE(allFiles(), QStringList(lockName));
}

void TestMemoryLock::secondIsToldWhoHoldsTheMemory()
{
    QProcess other;
    other.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--hold"), m_card->root()});
    QVERIFY(other.waitForReadyRead());
    QCOMPARE(other.readLine(), QByteArray("held\n"));
    const QByteArray bytes = m_card->read(lockName);
    MemoryLock lock(m_card->root());
    QVERIFY(!lock.take());
    QVERIFY(lock.isHeldByOther());
    const QDateTime since = QFileInfo(m_card->path(lockName)).lastModified();
    QCOMPARE(lock.message(),
             QStringLiteral("Un altro programma sta scrivendo su questa memoria: test_memorylock "
                            "(processo %1 sul computer %2, dal %3).\nNon è stato cambiato nulla. "
                            "Riprovare quando avrà finito.")
                 .arg(QString::number(other.processId()), QSysInfo::machineHostName(),
                      QLocale().toString(since, QLocale::ShortFormat)));
    lock.release();
    QCOMPARE(m_card->read(lockName), bytes);

    other.closeWriteChannel();
    QVERIFY(other.waitForFinished());
    QVERIFY(allFiles().isEmpty());
    QVERIFY(lock.take());
    QVERIFY(!lock.isHeldByOther());
}

void TestMemoryLock::lockOfAKilledProgramIsALeftover()
{
    QProcess other;
    other.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--hold"), m_card->root()});
    QVERIFY(other.waitForReadyRead());
    other.kill();
    QVERIFY(other.waitForFinished());
    QCOMPARE(allFiles(), QStringList(lockName));
    {
        MemoryLock lock(m_card->root());
        QVERIFY(lock.take());
        QVERIFY(m_card->read(lockName).contains(
            QByteArray::number(QCoreApplication::applicationPid())));
    }
    QVERIFY(allFiles().isEmpty());
}

void TestMemoryLock::leftoverIsTakenAwayWhateverItSays_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray time = "2026-11-22T00:16:11.123Z\n";
    const QByteArray own = QByteArray::number(QCoreApplication::applicationPid());
    const QByteArray host = QSysInfo::machineHostName().toUtf8();
    QTest::newRow("another computer") << QByteArray("kavena-pc\n1\nsome-other-computer\n" + time);
    QTest::newRow("a program with that number runs")
        << QByteArray("kavena-pc\n1\n" + host + '\n' + time);
    QTest::newRow("this program has that number")
        << QByteArray("kavena-pc\n" + own + '\n' + host + '\n' + time);
    QTest::newRow("made in the future")
        << QByteArray("kavena-pc\n1\nhost\n2999-01-01T00:00:00.000Z\n");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << QByteArray("kavena-pc\n12");
    QTest::newRow("garbage") << QByteArray(100000, '\xff');
}

void TestMemoryLock::leftoverIsTakenAwayWhateverItSays()
{
    QFETCH(QByteArray, content);
    m_card->writeOnCard(lockName, content);
    {
        MemoryLock lock(m_card->root());
        QVERIFY(lock.take());
        QVERIFY(m_card->read(lockName) != content);
    }
    QVERIFY(allFiles().isEmpty());
}

void TestMemoryLock::otherThingsUnderTheNameAreNotFollowed_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("link to a file") << "link";
    QTest::newRow("second name of a file") << "hard link";
    QTest::newRow("link to nothing") << "dangling";
    QTest::newRow("pipe") << "pipe";
    QTest::newRow("empty folder") << "folder";
}

void TestMemoryLock::otherThingsUnderTheNameAreNotFollowed()
{
    QFETCH(QString, kind);
    const QString path = m_card->path(lockName);
    const QString precious = m_card->writeMusic(QStringLiteral("precious"), "precious");
    const QString nothing = m_card->music() + QStringLiteral("/nothing");
    if (kind == QLatin1String("link"))
        QVERIFY(QFile::link(precious, path));
    if (kind == QLatin1String("dangling"))
        QVERIFY(QFile::link(nothing, path));
    if (kind == QLatin1String("hard link"))
        QCOMPARE(
            ::link(QFile::encodeName(precious).constData(), QFile::encodeName(path).constData()),
            0);
    if (kind == QLatin1String("pipe"))
        QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    if (kind == QLatin1String("folder"))
        QVERIFY(QDir().mkdir(path));
    {
        MemoryLock lock(m_card->root());
        QVERIFY(lock.take());
        QVERIFY(QFileInfo(path).isFile() && !QFileInfo(path).isSymLink());
    }
    QVERIFY(allFiles().isEmpty());
    QVERIFY(!QFileInfo::exists(nothing));
    QFile file(precious);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("precious"));
}

void TestMemoryLock::folderWithContentUnderTheNameIsToldAsSuch()
{
    m_card->writeOnCard(lockName + QStringLiteral("/precious"), "precious");
    MemoryLock lock(m_card->root());
    QVERIFY(!lock.take());
    QVERIFY(!lock.isHeldByOther());
    QVERIFY(lock.isFolderInTheWay());
    QCOMPARE(lock.message(),
             QStringLiteral("Nella memoria c'è una cartella \".kavena-lock\": il programma ha "
                            "bisogno di questo nome.\nSpostarla o cancellarla e riprovare."));
    lock.release();
    QCOMPARE(m_card->read(lockName + QStringLiteral("/precious")), QByteArray("precious"));
}

void TestMemoryLock::lockOfAnotherStickIsLeftAlone()
{
    const QString pulled = m_card->mountDirectory() + QStringLiteral("/PULLED");
    MemoryLock lock(m_card->root());
    QVERIFY(lock.take());
    QVERIFY(QDir().rename(m_card->root(), pulled));
    QVERIFY(QDir().mkdir(m_card->root()));
    MemoryLock others(m_card->root());
    QVERIFY(others.take());
    lock.release();
    QCOMPARE(allFiles(), QStringList(lockName));
    MemoryLock third(m_card->root());
    QVERIFY(!third.take());
    QVERIFY(third.isHeldByOther());
}

void TestMemoryLock::pulledMemoryIsToldAsSuch()
{
    MemoryLock lock(m_card->mountDirectory() + QStringLiteral("/PULLED"));
    QVERIFY(!lock.take());
    QVERIFY(!lock.isHeldByOther());
    QCOMPARE(lock.message(), QStringLiteral("La memoria non c'è più. È stata estratta?"));
    QVERIFY(!QFileInfo::exists(m_card->mountDirectory() + QStringLiteral("/PULLED")));
}

void TestMemoryLock::protectedMemoryIsToldAsSuch()
{
    const SmallMemory memory(m_card->root(), MS_RDONLY, "size=64k");
    if (!memory.isMounted())
        QSKIP("No memory can be mounted here");
    MemoryLock lock(m_card->root());
    QVERIFY(!lock.take());
    QVERIFY(!lock.isHeldByOther());
    QCOMPARE(lock.problem(), WriteProblem::ReadOnly);
    QCOMPARE(lock.message(), QStringLiteral("La memoria è protetta da scrittura.\n"
                                            "Togliere la protezione e riprovare."));
}

void TestMemoryLock::memoryWithoutPermissionIsToldAsSuch()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("Only root can become another user");
    QCOMPARE(::chmod(QFile::encodeName(m_card->root()).constData(), 0755), 0);
    for (const QString &above :
         {m_card->mountDirectory(), QFileInfo(m_card->mountDirectory()).path()})
        QCOMPARE(::chmod(QFile::encodeName(above).constData(), 0755), 0);
    MemoryLock lock(m_card->root());
    bool taken = false;
    {
        const faults::AnotherUser nobody;
        taken = lock.take();
    }
    QVERIFY(!taken);
    QVERIFY(!lock.isHeldByOther());
    QCOMPARE(lock.message(), QStringLiteral("Manca il permesso di scrivere sulla memoria."));
}

void TestMemoryLock::fullMemoryCanBeLocked()
{
    const SmallMemory memory(m_card->root(), 0, "size=16k");
    if (!memory.isMounted())
        QSKIP("No memory can be mounted here");
    QFile filler(m_card->path(QStringLiteral("filler")));
    QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(4096, 'x')) > 0) {
    }
    {
        MemoryLock lock(m_card->root());
        QVERIFY(lock.take());
        QCOMPARE(m_card->read(lockName), QByteArray());
        MemoryLock other(m_card->root());
        QVERIFY(!other.take());
        QVERIFY(other.isHeldByOther());
        QCOMPARE(other.message(),
                 QStringLiteral("Un altro programma sta scrivendo su questa memoria.\n"
                                "Non è stato cambiato nulla. Riprovare quando avrà finito."));
    }
    QCOMPARE(allFiles(), QStringList(QStringLiteral("filler")));
}

void TestMemoryLock::plantedHolderIsShownAsPlainText()
{
    m_card->writeOnCard(lockName, "<b>x&amp;" + QByteArray(5000, 'y') +
                                      "\n1\nhost\x01\n2026-11-22T00:16:11.123Z\n");
    QFile planted(m_card->path(lockName));
    QVERIFY(planted.open(QIODevice::ReadOnly));
    QVERIFY(holdFile(planted));
    MemoryLock lock(m_card->root());
    QVERIFY(!lock.take());
    QVERIFY(!lock.message().contains(QLatin1Char('<')));
    QVERIFY(lock.message().size() < 300);
}

void TestMemoryLock::indexDoesNotSeeTheLock()
{
    m_card->writeOnCard(QStringLiteral("a.mid"), MountedCard::midi("A"));
    MemoryLock lock(m_card->root());
    QVERIFY(lock.take());
    Index index;
    QStringList asked;
    index.setRenameQuestion([&asked](const QString &path, const QString &) {
        asked.append(path);
        return Answer::Yes;
    });
    QVERIFY(index.createIndex(m_card->root()));
    QVERIFY(asked.isEmpty());
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/a.mid")));
    QVERIFY(QFileInfo::exists(m_card->path(lockName)));
}

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "--hold") == 0)
        return holdUntilInputEnds(QFile::decodeName(argv[2]));
    TestMemoryLock test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_memorylock.moc"
