// Why a song could not be saved: the reason that reaches the user.
#include "formats/metasong.h"
#include "formats/savefailure.h"
#include "support/faults.h"
#include "support/samplesongs.h"
#include "support/shorttext.h"
#include "support/smallmedium.h"
#include "support/songbytes.h"
#include "support/songfolder.h"

#include <QDir>
#include <QTest>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

Q_DECLARE_METATYPE(SaveFailure)

namespace
{

QByteArray midi()
{
    using namespace songbytes;
    return midiFile({track(metaEvent(0x03, "Title") + notes())});
}

QByteArray mp3()
{
    using namespace songbytes;
    return id3Tag(id3Frame("TIT2", "Title")) + QByteArray(2000, '\x55');
}

/** Loads the song, gives it a longer title and saves it where it is. */
SaveFailure saveLonger(const QString &path)
{
    MetaSong song;
    if (!song.importFile(path))
        return SaveFailure::Unreadable;
    SongInfo info;
    song.getSongInfo(info);
    info.title = QString(120, QLatin1Char('x'));
    song.setSongInfo(info, true);
    return song.save(path);
}

/** A row for each way in which songs are written. */
void addBothWays()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("in place") << s("a.mid") << midi();
    QTest::newRow("through a temporary file") << s("a.mp3") << mp3();
}

} // namespace

class TestSaveFailure : public QObject
{
    Q_OBJECT

private slots:
    void savedSongHasNoFailure_data() { addBothWays(); }
    void savedSongHasNoFailure();
    void numberOfTheSystemTellsTheReason_data();
    void numberOfTheSystemTellsTheReason();
    void withoutANumberTheFileTells();
    void fullMediumIsTold_data() { addBothWays(); }
    void fullMediumIsTold();
    void writeProtectedMediumIsTold_data() { addBothWays(); }
    void writeProtectedMediumIsTold();
    void foreignFileIsToldAsNotPermitted_data() { addBothWays(); }
    void foreignFileIsToldAsNotPermitted();
    void goneFolderIsTold_data() { addBothWays(); }
    void goneFolderIsTold();
    void songThatAnotherProgramSavesIsTold();
    void songThatCannotBeLoadedIsTold();
    void nothingLoadedIsNoSuccess();
};

void TestSaveFailure::savedSongHasNoFailure()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const SongFolder folder;
    QCOMPARE(saveLonger(folder.write(name, bytes)), SaveFailure::None);
}

void TestSaveFailure::numberOfTheSystemTellsTheReason_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<SaveFailure>("failure");
    QTest::newRow("EROFS") << EROFS << SaveFailure::ReadOnly;
    QTest::newRow("ENOSPC") << ENOSPC << SaveFailure::DiskFull;
    QTest::newRow("EFBIG") << EFBIG << SaveFailure::DiskFull;
    QTest::newRow("EDQUOT") << EDQUOT << SaveFailure::DiskFull;
    QTest::newRow("ENOENT") << ENOENT << SaveFailure::FileGone;
    QTest::newRow("ENODEV") << ENODEV << SaveFailure::FileGone;
    QTest::newRow("EACCES") << EACCES << SaveFailure::NoPermission;
    QTest::newRow("EPERM") << EPERM << SaveFailure::NoPermission;
    QTest::newRow("EWOULDBLOCK") << EWOULDBLOCK << SaveFailure::InUse;
    QTest::newRow("ETXTBSY") << ETXTBSY << SaveFailure::InUse;
    QTest::newRow("EIO") << EIO << SaveFailure::MediumFailed;
    QTest::newRow("another") << EINVAL << SaveFailure::Other;
}

void TestSaveFailure::numberOfTheSystemTellsTheReason()
{
    QFETCH(int, number);
    QFETCH(SaveFailure, failure);
    const SongFolder folder;
    QCOMPARE(saveFailureFrom(number, folder.midi(s("a.mid"), "A")), failure);
}

void TestSaveFailure::withoutANumberTheFileTells()
{
    const SongFolder folder;
    QCOMPARE(saveFailureFrom(0, folder.filePath(s("none.mid"))), SaveFailure::FileGone);
    QCOMPARE(saveFailureFrom(0, folder.midi(s("a.mid"), "A")), SaveFailure::Other);
}

void TestSaveFailure::fullMediumIsTold()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    SmallMedium medium(64);
    if (!medium.isMounted())
        QSKIP("Only root can mount a small medium");
    QVERIFY(samplesongs::writeFile(medium.path(name), bytes));
    medium.fill();
    QCOMPARE(saveLonger(medium.path(name)), SaveFailure::DiskFull);
    QCOMPARE(samplesongs::readFile(medium.path(name)), bytes);
    QVERIFY(medium.makeRoom());
    QCOMPARE(saveLonger(medium.path(name)), SaveFailure::None);
}

void TestSaveFailure::writeProtectedMediumIsTold()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    SmallMedium medium(64);
    if (!medium.isMounted())
        QSKIP("Only root can mount a small medium");
    QVERIFY(samplesongs::writeFile(medium.path(name), bytes));
    QVERIFY(medium.setReadOnly(true));
    QCOMPARE(saveLonger(medium.path(name)), SaveFailure::ReadOnly);
}

void TestSaveFailure::foreignFileIsToldAsNotPermitted()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("Only root can make a file that belongs to somebody else");
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const SongFolder folder;
    const QString path = folder.write(name, bytes);
    using File = QFileDevice;
    const auto readable = File::ReadOwner | File::ReadGroup | File::ReadOther;
    QVERIFY(QFile::setPermissions(path, readable));
    QVERIFY(QFile::setPermissions(folder.path(), readable | File::ExeOwner | File::ExeGroup |
                                                     File::ExeOther | File::WriteOwner));
    const faults::AnotherUser user;
    QCOMPARE(saveLonger(path), SaveFailure::NoPermission);
}

void TestSaveFailure::goneFolderIsTold()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    const SongFolder folder;
    QVERIFY(QDir(folder.path()).mkdir(s("stick")));
    const QString path = folder.write(s("stick/") + name, bytes);
    MetaSong song;
    QVERIFY(song.importFile(path));
    QVERIFY(QDir(folder.filePath(s("stick"))).removeRecursively());
    QCOMPARE(song.save(path), SaveFailure::FileGone);
}

void TestSaveFailure::songThatAnotherProgramSavesIsTold()
{
    const SongFolder folder;
    const QString path = folder.midi(s("a.mid"), "A");
    MetaSong song;
    QVERIFY(song.importFile(path));
    const QString journal = folder.write(s(".a.mid.kavena-journal"), "being written");
    const int held = ::open(QFile::encodeName(journal).constData(), O_RDONLY);
    QVERIFY(held >= 0);
    QCOMPARE(::flock(held, LOCK_EX | LOCK_NB), 0);
    QCOMPARE(song.save(path), SaveFailure::InUse);
    QCOMPARE(loadFailureOf(path), SaveFailure::InUse);
    ::close(held);
}

void TestSaveFailure::songThatCannotBeLoadedIsTold()
{
    const SongFolder folder;
    QCOMPARE(loadFailureOf(folder.filePath(s("none.mid"))), SaveFailure::FileGone);
    QCOMPARE(loadFailureOf(folder.bad(s("bad.mid"))), SaveFailure::Unreadable);
    QVERIFY(QDir(folder.path()).mkdir(s("folder.mid")));
    QCOMPARE(loadFailureOf(folder.filePath(s("folder.mid"))), SaveFailure::Unreadable);
    if (!faults::canBecomeAnotherUser())
        return;
    const QString secret = folder.midi(s("secret.mid"), "A");
    QVERIFY(QFile::setPermissions(secret, QFile::ReadOwner));
    QVERIFY(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner |
                                                     QFile::WriteOwner | QFile::ExeOther));
    const faults::AnotherUser user;
    QCOMPARE(loadFailureOf(secret), SaveFailure::NoPermission);
}

void TestSaveFailure::nothingLoadedIsNoSuccess()
{
    const SongFolder folder;
    QCOMPARE(MetaSong().save(folder.filePath(s("a.mid"))), SaveFailure::Other);
    QVERIFY(!QFile::exists(folder.filePath(s("a.mid"))));
}

QTEST_GUILESS_MAIN(TestSaveFailure)
#include "test_savefailure.moc"
