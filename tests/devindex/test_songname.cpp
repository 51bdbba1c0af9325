// Which names a song on a memory may get.
#include "devindex/songname.h"
#include "support/devicememory.h"

#include <QTest>

class TestSongName : public QObject
{
    Q_OBJECT

private slots:
    void nameThatFits_data();
    void nameThatFits();
    void nameThatDoesNot_data();
    void nameThatDoesNot();
    void pathOfMoreThan45CharactersIsRefused();
};

void TestSongName::nameThatFits_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("eight characters") << QStringLiteral("12345678.mp3");
    QTest::newRow("accents of the player") << QStringLiteral("Perché.mp3");
    QTest::newRow("blank and dot inside") << QStringLiteral("a b.c.mp3");
    QTest::newRow("suffix in capitals") << QStringLiteral("new.MP3");
    QTest::newRow("begins like a device") << QStringLiteral("CONGA.mp3");
}

void TestSongName::nameThatFits()
{
    QFETCH(QString, name);
    const DeviceMemory memory;
    memory.add(QStringLiteral("pop/old.mp3"), "song");
    QCOMPARE(SongName::whyNot(memory.root(), QStringLiteral("/pop/old.mp3"), name), QString());
}

void TestSongName::nameThatDoesNot_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("nine characters") << QStringLiteral("123456789.mp3");
    QTest::newRow("nothing") << QString();
    QTest::newRow("suffix alone") << QStringLiteral(".mp3");
    QTest::newRow("blanks alone") << QStringLiteral("  .mp3");
    QTest::newRow("no suffix") << QStringLiteral("new");
    QTest::newRow("another suffix") << QStringLiteral("new.mid");
    QTest::newRow("another folder") << QStringLiteral("../x.mp3");
    QTest::newRow("backslash") << QStringLiteral("a\\b.mp3");
    QTest::newRow("star") << QStringLiteral("a*b.mp3");
    QTest::newRow("line feed") << QStringLiteral("a\nb.mp3");
    QTest::newRow("character that the player has not") << QStringLiteral("♥.mp3");
    QTest::newRow("hidden") << QStringLiteral(".a.mp3");
    QTest::newRow("blank at the end") << QStringLiteral("a .mp3");
    QTest::newRow("device") << QStringLiteral("con.mp3");
    QTest::newRow("device with more suffixes") << QStringLiteral("nul.1.mp3");
    QTest::newRow("numbered device") << QStringLiteral("LPT1.mp3");
    QTest::newRow("its own") << QStringLiteral("old.mp3");
    QTest::newRow("its own in capitals") << QStringLiteral("OLD.MP3");
    QTest::newRow("another song's") << QStringLiteral("other.mp3");
    QTest::newRow("another song's in capitals") << QStringLiteral("OTHER.mp3");
    QTest::newRow("another song's pictures") << QStringLiteral("Lonely.mp3");
}

void TestSongName::nameThatDoesNot()
{
    QFETCH(QString, name);
    const DeviceMemory memory;
    memory.add(QStringLiteral("pop/old.mp3"), "song");
    memory.add(QStringLiteral("pop/other.mp3"), "song");
    memory.add(QStringLiteral("pop/lonely.cdg"), "pictures");
    QVERIFY(!SongName::whyNot(memory.root(), QStringLiteral("/pop/old.mp3"), name).isEmpty());
}

void TestSongName::pathOfMoreThan45CharactersIsRefused()
{
    const DeviceMemory memory;
    const QString folder = QStringLiteral("/") + QString(35, QLatin1Char('f'));
    memory.add(folder.mid(1) + QStringLiteral("/a.mp3"), "song");
    const auto whyNot = [&](const QString &name) {
        return SongName::whyNot(memory.root(), folder + QStringLiteral("/a.mp3"), name);
    };
    QCOMPARE(whyNot(QStringLiteral("1234.mp3")), QString()); // 36 + 1 + 8 = 45
    QVERIFY(!whyNot(QStringLiteral("12345.mp3")).isEmpty());
}

QTEST_GUILESS_MAIN(TestSongName)
#include "test_songname.moc"
