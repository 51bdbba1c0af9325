// Songs that are copied over older ones on a memory with little room left.
#include "devindex/filecopier.h"
#include "support/copyingprogress.h"
#include "support/smallmedium.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace
{

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

QString nameOf(int song)
{
    return QStringLiteral("s%1.mid").arg(song);
}

} // namespace

class TestCopyToFull : public QObject
{
    Q_OBJECT

private slots:
    void songsThatFitInsteadOfTheOldOnesAreCopied_data();
    void songsThatFitInsteadOfTheOldOnesAreCopied();
    void songThatDoesNotFitLeavesTheOldOne();
};

// The system writes as much of a piece as there is room for before it says that there is no more.
void TestCopyToFull::songsThatFitInsteadOfTheOldOnesAreCopied_data()
{
    QTest::addColumn<int>("songs");
    QTest::addColumn<int>("oldKibibytes");
    QTest::addColumn<int>("newKibibytes");
    QTest::newRow("room for one beside the old ones") << 4 << 195 << 200;
    QTest::newRow("no room beside the old ones") << 3 << 290 << 300;
}

void TestCopyToFull::songsThatFitInsteadOfTheOldOnesAreCopied()
{
    QFETCH(const int, songs);
    QFETCH(const int, oldKibibytes);
    QFETCH(const int, newKibibytes);
    const SmallMedium memory(1024);
    if (!memory.isMounted())
        QSKIP("mounting is not allowed here");
    const QTemporaryDir library;
    QStringList files;
    for (int song = 0; song < songs; ++song) {
        files.append(library.filePath(nameOf(song)));
        write(files.constLast(), QByteArray(newKibibytes * 1024, static_cast<char>('a' + song)));
        write(memory.path(nameOf(song)), QByteArray(oldKibibytes * 1024, 'o'));
    }

    CopyingProgress progress;
    int copied = 0;
    FileCopier copier([](const QString &) { return Answer::YesToAll; });
    QVERIFY(copier.copyFiles(files, memory.path({}), copied, progress));
    QCOMPARE(copied, songs);
    for (int song = 0; song < songs; ++song)
        QVERIFY(read(memory.path(nameOf(song))) == read(files.at(song)));
    QCOMPARE(QDir(memory.path({})).entryList(QDir::Files | QDir::Hidden).size(), songs);
}

void TestCopyToFull::songThatDoesNotFitLeavesTheOldOne()
{
    const SmallMedium memory(1024);
    if (!memory.isMounted())
        QSKIP("mounting is not allowed here");
    const QTemporaryDir library;
    const QByteArray old(700 * 1024, 'o');
    write(library.filePath(nameOf(0)), QByteArray(1100 * 1024, 'a'));
    write(memory.path(nameOf(0)), old);

    CopyingProgress progress;
    int copied = 0;
    FileCopier copier([](const QString &) { return Answer::YesToAll; });
    QVERIFY(!copier.copyFiles({library.filePath(nameOf(0))}, memory.path({}), copied, progress));
    QCOMPARE(copied, 0);
    QVERIFY(read(memory.path(nameOf(0))) == old);
    QCOMPARE(QDir(memory.path({})).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

QTEST_GUILESS_MAIN(TestCopyToFull)
#include "test_copytofull.moc"
