// Why a file could not be imported.
#include "library/unreadablefile.h"
#include "support/shorttext.h"
#include "support/songfolder.h"

#include <QTest>

class TestUnreadableFile : public QObject
{
    Q_OBJECT

private slots:
    void reasonIsFound_data();
    void reasonIsFound();
    void fileThatMayNotBeReadIsLocked();
};

void TestUnreadableFile::reasonIsFound_data()
{
    using Reason = UnreadableFile::Reason;
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<Reason>("reason");
    QTest::newRow("text") << s("a.mid") << QByteArray("text") << Reason::UnknownFormat;
    QTest::newRow("empty") << s("a.mp3") << QByteArray() << Reason::Empty;
    QTest::newRow("short magic") << s("a.mid") << QByteArray("MTh") << Reason::UnknownFormat;
    QTest::newRow("MIDI magic") << s("a.kar") << QByteArray("MThd") << Reason::Damaged;
    QTest::newRow("MFX magic") << s("a.mf5") << QByteArray("_MF5") << Reason::Damaged;
    QTest::newRow("MP3 tag") << s("a.mp3") << QByteArray("ID3\x03\0\0\x7F\x7F\x7F\x7F", 10)
                             << Reason::Damaged;
    QTest::newRow("MP3 tag, other name")
        << s("a.ogg") << QByteArray("ID3\x03") << Reason::UnknownFormat;
}

void TestUnreadableFile::reasonIsFound()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(UnreadableFile::Reason, reason);
    const SongFolder songs;
    const UnreadableFile file = UnreadableFile::examine(songs.write(name, bytes));
    QCOMPARE(file.path, songs.filePath(name));
    QCOMPARE(file.reason, reason);
    QCOMPARE(UnreadableFile::examine(songs.path()).reason, UnreadableFile::Reason::NoFile);
    QCOMPARE(UnreadableFile::examine(songs.filePath(s("gone.mid"))).reason,
             UnreadableFile::Reason::Missing);
}

void TestUnreadableFile::fileThatMayNotBeReadIsLocked()
{
    // One that the kernel lets nobody read, so that root cannot either.
    const QString path = s("/proc/sys/vm/compact_memory");
    if (!QFile::exists(path) || QFile(path).open(QFile::ReadOnly))
        QSKIP("this system has no such file");
    QCOMPARE(UnreadableFile::examine(path).reason, UnreadableFile::Reason::Locked);
}

QTEST_GUILESS_MAIN(TestUnreadableFile)
#include "test_unreadablefile.moc"
