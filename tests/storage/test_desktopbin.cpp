// Deleted files go into the desktop's bin, but no stick ever gets one.
#include "storage/desktopbin.h"
#include "support/samplesongs.h"
#include "support/smallmedium.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

class TestDesktopBin : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_home.reset(); }

    void fileBesideTheHomeGoesIntoItsBin();
    void binThatCannotBeMadeTakesNothing();
    void mediumWithoutABinGetsNone();
    void mediumWithABinIsUsed();
    void linkOfTheBinsNameIsNoBin();
    void fileThatIsNotThereIsNotTaken();

private:
    QString binOf(const QString &root) const
    {
        return QDir(root).filePath(QStringLiteral(".Trash-%1").arg(getuid()));
    }

    std::unique_ptr<QTemporaryDir> m_home;
};

void TestDesktopBin::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("HOME", QFile::encodeName(m_home->path()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home->filePath(QStringLiteral("data"))));
}

void TestDesktopBin::fileBesideTheHomeGoesIntoItsBin()
{
    const QString song = m_home->filePath(QStringLiteral("song.mid"));
    QVERIFY(samplesongs::writeFile(song, "bytes"));
    QVERIFY(desktopbin::take(song));
    QVERIFY(!QFile::exists(song));
    const QDir bin(m_home->filePath(QStringLiteral("data/Trash/files")));
    QCOMPARE(bin.entryList(QDir::Files).size(), 1);
    QCOMPARE(samplesongs::readFile(bin.filePath(bin.entryList(QDir::Files).first())),
             QByteArray("bytes"));
}

void TestDesktopBin::binThatCannotBeMadeTakesNothing()
{
    const QString song = m_home->filePath(QStringLiteral("song.mid"));
    QVERIFY(samplesongs::writeFile(song, "bytes"));
    QVERIFY(samplesongs::writeFile(m_home->filePath(QStringLiteral("data")), "no folder"));
    QVERIFY(!desktopbin::take(song));
    QCOMPARE(samplesongs::readFile(song), QByteArray("bytes"));
}

void TestDesktopBin::mediumWithoutABinGetsNone()
{
    const SmallMedium medium(256);
    if (!medium.isMounted())
        QSKIP("Mounting is not allowed here");
    const QString song = medium.path(QStringLiteral("song.mid"));
    QVERIFY(samplesongs::writeFile(song, "bytes"));
    QVERIFY(!desktopbin::take(song));
    QCOMPARE(samplesongs::readFile(song), QByteArray("bytes"));
    QVERIFY(!QFile::exists(binOf(medium.path(QString()))));
}

void TestDesktopBin::mediumWithABinIsUsed()
{
    const SmallMedium medium(256);
    if (!medium.isMounted())
        QSKIP("Mounting is not allowed here");
    QVERIFY(QDir().mkdir(binOf(medium.path(QString()))));
    const QString song = medium.path(QStringLiteral("song.mid"));
    QVERIFY(samplesongs::writeFile(song, "bytes"));
    QVERIFY(desktopbin::take(song));
    QVERIFY(!QFile::exists(song));
    QCOMPARE(QDir(binOf(medium.path(QString())) + QStringLiteral("/files"))
                 .entryList(QDir::Files)
                 .size(),
             1);
}

void TestDesktopBin::linkOfTheBinsNameIsNoBin()
{
    const SmallMedium medium(256);
    if (!medium.isMounted())
        QSKIP("Mounting is not allowed here");
    QVERIFY(QFile::link(m_home->path(), binOf(medium.path(QString()))));
    const QString song = medium.path(QStringLiteral("song.mid"));
    QVERIFY(samplesongs::writeFile(song, "bytes"));
    QVERIFY(!desktopbin::take(song));
    QVERIFY(QFile::exists(song));
}

void TestDesktopBin::fileThatIsNotThereIsNotTaken()
{
    QVERIFY(!desktopbin::take(m_home->filePath(QStringLiteral("missing.mid"))));
}

QTEST_GUILESS_MAIN(TestDesktopBin)
#include "test_desktopbin.moc"
