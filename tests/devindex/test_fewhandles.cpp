// Copies where a program may have 256 files open only, as programs on a Mac may.
#include "devindex/filecopier.h"
#include "support/copyingprogress.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/resource.h>

namespace
{

constexpr int songs = 300;
constexpr int taken = 40; ///< handles that the rest of a program with windows has

void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write the test file %s", qPrintable(path));
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

} // namespace

class TestFewHandles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everySongIsCopied_data();
    void everySongIsCopied();
    void nameThatComesAgainGetsTheLastSong();
    void lostCopyFailsItsSongAlone();
    void stopKeepsWhatWasCopied();

private:
    rlimit m_limit{};
};

void TestFewHandles::init()
{
    QCOMPARE(::getrlimit(RLIMIT_NOFILE, &m_limit), 0);
    rlimit few = m_limit;
    few.rlim_cur = 256;
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &few), 0);
}

void TestFewHandles::cleanup()
{
    QCOMPARE(::setrlimit(RLIMIT_NOFILE, &m_limit), 0);
}

void TestFewHandles::everySongIsCopied_data()
{
    QTest::addColumn<bool>("overOlderOnes");
    QTest::newRow("new songs") << false;
    QTest::newRow("songs over older ones") << true;
}

void TestFewHandles::everySongIsCopied()
{
    QFETCH(const bool, overOlderOnes);
    const QTemporaryDir folder;
    const QString library = folder.filePath(QStringLiteral("library"));
    const QString memory = folder.filePath(QStringLiteral("memory"));
    QVERIFY(QDir().mkdir(library) && QDir().mkdir(memory));
    QStringList files;
    for (int i = 0; i < songs; ++i) {
        const QString name = QStringLiteral("/s%1.mid").arg(i);
        files.append(library + name);
        write(library + name, QByteArray::number(i));
        if (overOlderOnes)
            write(memory + name, "old");
    }
    QList<QSharedPointer<QFile>> others;
    for (int i = 0; i < taken; ++i) {
        others.append(QSharedPointer<QFile>::create(files.constFirst()));
        QVERIFY(others.constLast()->open(QIODevice::ReadOnly));
    }

    CopyingProgress progress;
    int copied = 0;
    FileCopier copier([](const QString &) { return Answer::YesToAll; });
    const bool complete = copier.copyFiles(files, memory, copied, progress);
    others.clear();

    QVERIFY(complete);
    QCOMPARE(copied, songs);
    for (int i = 0; i < songs; ++i)
        QCOMPARE(read(memory + QStringLiteral("/s%1.mid").arg(i)), QByteArray::number(i));
    QCOMPARE(QDir(memory).entryList(QDir::Files | QDir::Hidden).size(), songs);
}

/** The first song of the name may still be on its way to the medium when the second one comes. */
void TestFewHandles::nameThatComesAgainGetsTheLastSong()
{
    constexpr int distance = 70; // another group of files that get their names together
    const QTemporaryDir folder;
    QStringList files;
    for (const char *const part : {"one", "two"}) {
        QVERIFY(QDir(folder.path()).mkdir(QLatin1String(part)));
        for (int i = 0; i < distance; ++i) {
            files.append(folder.filePath(QLatin1String(part)) + QStringLiteral("/s%1.mid").arg(i));
            write(files.constLast(), part + QByteArray::number(i));
        }
    }
    const QString memory = folder.filePath(QStringLiteral("memory"));
    QVERIFY(QDir().mkdir(memory));
    CopyingProgress progress;
    int copied = 0;
    QStringList asked;
    FileCopier copier([&](const QString &target) {
        asked.append(target);
        return Answer::Yes;
    });
    QVERIFY(copier.copyFiles(files, memory, copied, progress));
    QCOMPARE(copier.report().replaced, files.first(distance));
    QCOMPARE(asked.size(), distance);
    for (int i = 0; i < distance; ++i)
        QCOMPARE(read(memory + QStringLiteral("/s%1.mid").arg(i)), "two" + QByteArray::number(i));
    QCOMPARE(QDir(memory).entryList(QDir::Files | QDir::Hidden).size(), distance);
}

void TestFewHandles::lostCopyFailsItsSongAlone()
{
    const QTemporaryDir folder;
    const QString memory = folder.filePath(QStringLiteral("memory"));
    QVERIFY(QDir().mkdir(memory));
    QStringList files;
    for (int i = 0; i < songs; ++i) {
        files.append(folder.filePath(QStringLiteral("s%1.mid").arg(i)));
        write(files.constLast(), QByteArray::number(i));
    }
    CopyingProgress progress;
    QStringList taken;
    progress.onUpdate = [&](int done) {
        if (done != 10 && done != songs)
            return;
        const QStringList parts = QDir(memory).entryList(
            {QStringLiteral(".s%1.mid.*").arg(done - 1)}, QDir::Files | QDir::Hidden);
        QCOMPARE(parts.size(), 1);
        QVERIFY(QFile::remove(memory + QLatin1Char('/') + parts.constFirst()));
        taken.append(files.at(done - 1));
    };
    int copied = 0;
    FileCopier copier([](const QString &) { return Answer::NoToAll; });
    QVERIFY(!copier.copyFiles(files, memory, copied, progress));
    QCOMPARE(taken.size(), 2);
    QCOMPARE(copied, songs - 2);
    QStringList failed;
    for (const FileCopier::Failure &failure : copier.report().failed)
        failed.append(failure.source);
    QCOMPARE(failed, taken);
    QCOMPARE(QDir(memory).entryList(QDir::Files | QDir::Hidden).size(), songs - 2);
}

void TestFewHandles::stopKeepsWhatWasCopied()
{
    constexpr int stop = 200;
    const QTemporaryDir folder;
    const QString memory = folder.filePath(QStringLiteral("memory"));
    QVERIFY(QDir().mkdir(memory));
    QStringList files;
    for (int i = 0; i < songs; ++i) {
        files.append(folder.filePath(QStringLiteral("s%1.mid").arg(i)));
        write(files.constLast(), QByteArray::number(i));
    }
    CopyingProgress progress;
    progress.onUpdate = [&](int done) { progress.canceled = done == stop; };
    int copied = 0;
    FileCopier copier([](const QString &) { return Answer::NoToAll; });
    QVERIFY(!copier.copyFiles(files, memory, copied, progress));
    QCOMPARE(copier.report().copied, stop);
    QCOMPARE(QDir(memory).entryList(QDir::Files | QDir::Hidden).size(), stop);
    for (int i = 0; i < stop; ++i)
        QCOMPARE(read(memory + QStringLiteral("/s%1.mid").arg(i)), QByteArray::number(i));
}

QTEST_GUILESS_MAIN(TestFewHandles)
#include "test_fewhandles.moc"
