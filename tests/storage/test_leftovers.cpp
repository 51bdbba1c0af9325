// What killed programs left in a folder goes; everything else there stays.
#include "storage/leftovers.h"
#include "storage/safefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

/** A tag with so many bytes in it; the size is at most 127. */
QByteArray tag(char version, const QByteArray &content, char flags = 0)
{
    return QByteArray("ID3") + version + '\0' + flags + QByteArray(3, '\0') +
           static_cast<char>(content.size()) + content;
}

/** Bytes of which no two pieces are the same. */
QByteArray music(int size)
{
    QByteArray bytes("\xFF\xFB");
    for (int number = 0; bytes.size() < size; ++number)
        bytes += QByteArray::number(number) + ' ';
    return bytes.left(size);
}

} // namespace

class TestLeftovers : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void ourHiddenFilesGo();
    void filesThatAreNotProvablyOursStay();
    void whatIsNoRegularFileOfOneNameStays();
    void fileThatARunningProgramHoldsStays();
    void eachFolderIsTidiedOncePerJob();
    void foldersBelowAreNotTouched();
    void missingFolderIsNoFault();

    void unfinishedNewVersionOfAnMp3Goes_data();
    void unfinishedNewVersionOfAnMp3Goes();
    void newVersionThatIsBeingWrittenStays();

    void hiddenFilesOfTwoNeverShareAName();
    void fileStaysHeldUnderItsNewName();
    void hiddenFileIsLikeAnyNewFile();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }
    void make(const QString &name, const QByteArray &bytes = "bytes") const
    {
        QFile file(path(name));
        if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot make a file for a test");
    }
    QStringList files() const
    {
        return QDir(m_dir->path())
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    }

    QScopedPointer<QTemporaryDir> m_dir;
};

void TestLeftovers::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
}

void TestLeftovers::ourHiddenFilesGo()
{
    make(QStringLiteral(".a.mid.kavena-part"));
    make(QStringLiteral(".a.mid.0123abcd.kavena-part"));
    make(QStringLiteral(".a.mp3.0123abcd.kavena-tmp"));
    make(QStringLiteral("a.mid"));
    Leftovers().tidyBeside(path(QStringLiteral("a.mid")));
    QCOMPARE(files(), QStringList(QStringLiteral("a.mid")));
}

void TestLeftovers::filesThatAreNotProvablyOursStay()
{
    const QStringList names{
        QStringLiteral(".a.mid.kavena-journal"),
        QStringLiteral(".a.mid.kavena-part.bak"),
        QStringLiteral(".a.midkavena-part"),
        QStringLiteral("a.mid.kavena-part"),
        QStringLiteral("a.tmp"),
    };
    for (const QString &name : names)
        make(name);
    Leftovers().tidy(m_dir->path());
    QCOMPARE(files(), names);
}

void TestLeftovers::whatIsNoRegularFileOfOneNameStays()
{
    make(QStringLiteral("precious"));
    const auto name = [this](const char *song) {
        return path(QStringLiteral(".%1.mid.kavena-part").arg(QLatin1String(song)));
    };
    QVERIFY(QFile::link(path(QStringLiteral("precious")), name("a")));
    QCOMPARE(::link(QFile::encodeName(path(QStringLiteral("precious"))).constData(),
                    QFile::encodeName(name("b")).constData()),
             0);
    QVERIFY(QDir().mkdir(name("c")));
    QCOMPARE(mkfifo(QFile::encodeName(name("d")).constData(), 0600), 0);
    Leftovers().tidy(m_dir->path());
    QCOMPARE(files().size(), 5);
    QCOMPARE(QFileInfo(path(QStringLiteral("precious"))).size(), qint64{5});
}

void TestLeftovers::fileThatARunningProgramHoldsStays()
{
    QFile running;
    QVERIFY(createHiddenBeside(running, path(QStringLiteral("a.mid")), Leftovers::partSuffix));
    Leftovers().tidy(m_dir->path());
    QCOMPARE(files(), QStringList(QFileInfo(running.fileName()).fileName()));
    running.close();
    Leftovers().tidy(m_dir->path());
    QCOMPARE(files(), QStringList());
}

void TestLeftovers::eachFolderIsTidiedOncePerJob()
{
    Leftovers job;
    job.tidyBeside(path(QStringLiteral("a.mid")));
    make(QStringLiteral(".a.mid.kavena-part"));
    job.tidyBeside(path(QStringLiteral("b.mid")));
    QCOMPARE(files().size(), 1);
    Leftovers().tidy(m_dir->path());
    QCOMPARE(files().size(), 0);
}

void TestLeftovers::foldersBelowAreNotTouched()
{
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("below")));
    make(QStringLiteral("below/.a.mid.kavena-part"));
    Leftovers().tidy(m_dir->path());
    QVERIFY(QFileInfo::exists(path(QStringLiteral("below/.a.mid.kavena-part"))));
}

void TestLeftovers::missingFolderIsNoFault()
{
    Leftovers().tidy(path(QStringLiteral("missing")));
    QVERIFY(!QFileInfo::exists(path(QStringLiteral("missing"))));
}

void TestLeftovers::unfinishedNewVersionOfAnMp3Goes_data()
{
    QTest::addColumn<QString>("songName");
    QTest::addColumn<QByteArray>("song");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("goes");

    const QString usual = QStringLiteral("a.mp3");
    const QString tmp = QStringLiteral("a.tmp");
    const QByteArray newTag = tag(3, "new frames");
    const QByteArray plain = music(250000);
    const QByteArray song = tag(3, "old") + plain;
    const auto row = [&](const char *what, const QByteArray &bytes, bool goes) {
        QTest::newRow(what) << usual << song << tmp << bytes << goes;
    };
    row("whole", newTag + plain, true);
    row("cut off in the audio", newTag + plain.left(150001), true);
    row("cut off behind the tag", newTag, true);
    row("tag of version 4", tag(4, "new") + plain.left(9), true);
    QTest::newRow("song without a tag") << usual << plain << tmp << newTag + plain << true;
    QTest::newRow("song with a footer")
        << usual << tag(4, "old", 0x10) + QByteArray("3DI4567890") + plain << tmp
        << newTag + plain.left(70) << true;
    QTest::newRow("capitals") << QStringLiteral("b.c.MP3") << song << QStringLiteral("b.c.tmp")
                              << newTag + plain << true;

    row("nothing in it", {}, false);
    row("the tag is cut off", newTag.chopped(1), false);
    row("no tag", plain, false);
    row("tag of another version", tag(2, "new") + plain, false);
    row("more than the song", newTag + plain + 'x', false);
    row("the last byte differs", newTag + plain.chopped(1) + 'x', false);
    row("other music", newTag + music(90).mid(3), false);
    QTest::newRow("beside another song")
        << QStringLiteral("ab.mp3") << song << tmp << newTag + plain << false;
    QTest::newRow("beside no MP3")
        << QStringLiteral("a.mid") << song << tmp << newTag + plain << false;
    QTest::newRow("another suffix")
        << usual << song << QStringLiteral("a.tmp2") << newTag + plain << false;
}

// A save of an MP3 that was killed leaves a tag, and behind it audio that the song has as well.
void TestLeftovers::unfinishedNewVersionOfAnMp3Goes()
{
    QFETCH(QString, songName);
    QFETCH(QByteArray, song);
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(bool, goes);
    make(songName, song);
    make(name, bytes);
    Leftovers().tidyBeside(path(songName));
    QCOMPARE(files().contains(name), !goes);
    QVERIFY(files().contains(songName));
    QCOMPARE(QFileInfo(path(songName)).size(), song.size());
}

void TestLeftovers::newVersionThatIsBeingWrittenStays()
{
    make(QStringLiteral("a.mp3"), music(90));
    make(QStringLiteral("a.tmp"), tag(3, "new") + music(70));
    QFile running(path(QStringLiteral("a.tmp")));
    QVERIFY(running.open(QFile::ReadWrite));
    QVERIFY(holdFile(running));
    Leftovers().tidy(m_dir->path());
    QCOMPARE(files().size(), 2);
    running.close();
    Leftovers().tidy(m_dir->path());
    QCOMPARE(files(), QStringList(QStringLiteral("a.mp3")));
}

void TestLeftovers::hiddenFilesOfTwoNeverShareAName()
{
    QFile one;
    QFile other;
    const QString song = path(QStringLiteral("a.mid"));
    QVERIFY(createHiddenBeside(one, song, Leftovers::partSuffix));
    QVERIFY(createHiddenBeside(other, song, Leftovers::partSuffix));
    QVERIFY(one.fileName() != other.fileName());
    const QStringList names = files();
    QCOMPARE(names.size(), 2);
    for (const QString &name : names) {
        QVERIFY(name.startsWith(QStringLiteral(".a.mid.")));
        QVERIFY(name.endsWith(QStringLiteral(".kavena-part")));
    }
    QFile nowhere;
    QVERIFY(
        !createHiddenBeside(nowhere, path(QStringLiteral("missing/a.mid")), Leftovers::partSuffix));
}

void TestLeftovers::fileStaysHeldUnderItsNewName()
{
    QFile part;
    const QString song = path(QStringLiteral("a.mid"));
    QVERIFY(createHiddenBeside(part, song, Leftovers::partSuffix));
    QCOMPARE(part.write("song"), qint64{4});
    QVERIFY(!removeUnheld(part.fileName()));
    QVERIFY(renameOver(part, song));
    QVERIFY(part.isOpen());
    QVERIFY(!removeUnheld(song));
    part.close();
    QCOMPARE(files(), QStringList(QStringLiteral("a.mid")));
    QCOMPARE(QFileInfo(song).size(), qint64{4});
    QVERIFY(removeUnheld(song));
}

// A copy is readable for those for whom any new file is.
void TestLeftovers::hiddenFileIsLikeAnyNewFile()
{
    make(QStringLiteral("any"));
    QFile part;
    QVERIFY(createHiddenBeside(part, path(QStringLiteral("a.mid")), Leftovers::partSuffix));
    QCOMPARE(part.permissions(), QFile::permissions(path(QStringLiteral("any"))));
}

QTEST_APPLESS_MAIN(TestLeftovers)
#include "test_leftovers.moc"
