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

QTEST_GUILESS_MAIN(TestFewHandles)
#include "test_fewhandles.moc"
