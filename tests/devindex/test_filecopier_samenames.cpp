// Songs of one list that would get one name on the memory.
#include "support/copyfixture.h"

#include <QTest>

using namespace copyfixture;

class TestFileCopierSameNames : public CopyFixture
{
    Q_OBJECT

private slots:
    void init() { CopyFixture::init(); }
    void cleanup() { CopyFixture::cleanup(); }

    void songWhoseCopyWasReplacedDoesNotCountAsCopied();
    void songReplacedByOneThatFailedDoesNotCountAsCopied();
    void songThatIsListedTwiceIsCopied();
    void songOfTheListIsNeverReplaced();
    void nameOfOtherCaseIsOneNameOnAMemory();
    void folderOfTheComputerKeepsNamesOfOtherCase();

private:
    FileCopier::Report copied(const QStringList &files, const QList<Answer> &answers);
};

FileCopier::Report TestFileCopierSameNames::copied(const QStringList &files,
                                                   const QList<Answer> &answers)
{
    FileCopier copier(answering(answers));
    copier.copyFiles(files, m_dest, m_copied, *m_progress);
    return copier.report();
}

void TestFileCopierSameNames::songWhoseCopyWasReplacedDoesNotCountAsCopied()
{
    QVERIFY(QDir().mkdir(path(QStringLiteral("more"))));
    const QString first = write(QStringLiteral("lib/x.mid"), "first");
    const QString other = write(QStringLiteral("lib/y.mid"), "other");
    const QString second = write(QStringLiteral("more/x.mid"), "second");
    const FileCopier::Report report = copied({first, other, second}, {Answer::Yes});
    QCOMPARE(report.copied, 2);
    QCOMPARE(report.replaced, QStringList(first));
    QCOMPARE(read(QStringLiteral("dest/x.mid")), QByteArray("second"));
}

void TestFileCopierSameNames::songReplacedByOneThatFailedDoesNotCountAsCopied()
{
    // The second song arrives, its pictures cannot.
    QVERIFY(QDir().mkpath(path(QStringLiteral("more"))));
    QVERIFY(QDir().mkpath(path(QStringLiteral("dest/x.cdg"))));
    const QString first = write(QStringLiteral("lib/x.mp3"), "first");
    const QString second = write(QStringLiteral("more/x.mp3"), "second");
    write(QStringLiteral("more/x.cdg"), "pictures");
    const FileCopier::Report report = copied({first, second}, {Answer::Yes});
    QCOMPARE(read(QStringLiteral("dest/x.mp3")), QByteArray("second"));
    QCOMPARE(report.copied, 0);
    QCOMPARE(report.replaced, QStringList(first));
    QCOMPARE(report.failed.size(), 1);
    QCOMPARE(report.failed.first().source, second);
}

void TestFileCopierSameNames::songThatIsListedTwiceIsCopied()
{
    const QString song = write(QStringLiteral("lib/x.mid"), "song");
    const FileCopier::Report report = copied({song, song}, {Answer::Yes});
    QCOMPARE(report.copied, 2);
    QVERIFY(report.replaced.isEmpty());
}

void TestFileCopierSameNames::songOfTheListIsNeverReplaced()
{
    const QString only = write(QStringLiteral("dest/x.mid"), "the only copy");
    const QString other = write(QStringLiteral("lib/x.mid"), "another song");
    const FileCopier::Report report = copied({other, only}, {Answer::Yes});
    QCOMPARE(m_asked, QStringList(only));
    QCOMPARE(report.copied, 1);
    QCOMPARE(report.failed.size(), 1);
    QCOMPARE(report.failed.first().source, other);
    QCOMPARE(read(QStringLiteral("dest/x.mid")), QByteArray("the only copy"));
}

void TestFileCopierSameNames::nameOfOtherCaseIsOneNameOnAMemory()
{
    QVERIFY(QDir().mkdir(path(QStringLiteral("more"))));
    const QString old = write(QStringLiteral("dest/Old.mid"), "there before");
    const QString first = write(QStringLiteral("lib/x.mp3"), "first");
    const QString newer = write(QStringLiteral("lib/OLD.MID"), "newer");
    const QString second = write(QStringLiteral("more/X.mp3"), "second");
    FileCopier copier(answering({Answer::No, Answer::Yes}));
    copier.setIgnoresCase(true);
    copier.copyFiles({first, newer, second}, m_dest, m_copied, *m_progress);
    QCOMPARE(m_asked, QStringList({old, m_dest + QStringLiteral("/x.mp3")}));
    QCOMPARE(copier.report().copied, 1);
    QCOMPARE(copier.report().skipped, QStringList(newer));
    QCOMPARE(copier.report().replaced, QStringList(first));
    QCOMPARE(QDir(m_dest).entryList(QDir::Files).size(), 2);
    QCOMPARE(read(QStringLiteral("dest/Old.mid")), QByteArray("there before"));
    QCOMPARE(read(QStringLiteral("dest/x.mp3")), QByteArray("second"));
}

void TestFileCopierSameNames::folderOfTheComputerKeepsNamesOfOtherCase()
{
    const QString lower = write(QStringLiteral("lib/x.mid"), "lower");
    const QString upper = write(QStringLiteral("lib/X.mid"), "upper");
    if (QDir(path(QStringLiteral("lib"))).entryList(QDir::Files).size() != 2)
        QSKIP("this file system knows no letter case");
    QCOMPARE(copied({lower, upper}, {}).copied, 2);
    QCOMPARE(read(QStringLiteral("dest/x.mid")), QByteArray("lower"));
    QCOMPARE(read(QStringLiteral("dest/X.mid")), QByteArray("upper"));
}

QTEST_GUILESS_MAIN(TestFileCopierSameNames)
#include "test_filecopier_samenames.moc"
