// The journal as a file: its layout, its names, and what else may lie there.
#include "storage/songfilewriter.h"
#include "storage/songjournal.h"
#include "support/journalbytes.h"
#include "support/journalfixture.h"
#include "support/logcapture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace journalbytes;

class TestJournalFile : public JournalFixture
{
    Q_OBJECT

private slots:
    void init() { JournalFixture::init(); }

    void writtenJournalKnowsBothSongs_data();
    void writtenJournalKnowsBothSongs();
    void writtenJournalHoldsWhatChangedOnly();
    void numbersBeyondTheirBoundsAreNoJournal_data();
    void numbersBeyondTheirBoundsAreNoJournal();
    void journalThatIsNotWholeIsRemoved();
    void journalWithAnyWrongByteIsRemoved();
    void hugeJournalsAreRemovedUnread();
    void otherThingsOfItsNameAreLeftAlone_data();
    void otherThingsOfItsNameAreLeftAlone();
    void journalWithALaterNameIsFound();
    void journalBehindAFreeNameIsFound();
    void journalThatCannotBeRemovedIsEmptiedItself();
    void replacedSongLosesAllItsJournals();
};

void TestJournalFile::writtenJournalKnowsBothSongs_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("longer") << song(300, 'a') << song(900, '0');
    QTest::newRow("shorter") << song(900, 'a') << song(300, '0');
    QTest::newRow("the same") << song(300, 'a') << song(300, 'a');
    QTest::newRow("put in") << QByteArray("abcabc") << QByteArray("abcabcabc");
    QTest::newRow("taken out") << QByteArray("aaaa") << QByteArray("aa");
    QTest::newRow("from nothing") << QByteArray() << QByteArray("abc");
    QTest::newRow("to nothing") << QByteArray("abc") << QByteArray();
}

void TestJournalFile::writtenJournalKnowsBothSongs()
{
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, written);
    const auto content = SongJournal::Content::decode(SongJournal::Content{old, written}.encode());
    QVERIFY(content);
    QVERIFY(content->oldBytes == old);
    QVERIFY(content->newBytes == written);
}

void TestJournalFile::writtenJournalHoldsWhatChangedOnly()
{
    const QByteArray old = song(500000, 'a');
    const QByteArray written = old.left(30) + "a new title" + old.mid(40);
    SongJournal journal(songPath());
    QVERIFY(journal.write({old, written}));
    QCOMPARE(QFileInfo(journal.path()).size(), qint64{headerSize + 500000 + 11});
    QVERIFY(contentOf(journal.path()) ==
            journalWith(500000, 500001, 30, 499960, old + "a new title"));
    QVERIFY(journal.remove());
}

void TestJournalFile::numbersBeyondTheirBoundsAreNoJournal_data()
{
    QTest::addColumn<quint32>("oldSize");
    QTest::addColumn<quint32>("newSize");
    QTest::addColumn<quint32>("start");
    QTest::addColumn<quint32>("end");
    QTest::addColumn<int>("body");
    QTest::addColumn<bool>("good");
    constexpr quint32 largest = 65 * 1024 * 1024;
    QTest::newRow("good") << 10U << 12U << 4U << 6U << 12 << true;
    QTest::newRow("body too short") << 10U << 12U << 4U << 6U << 11 << false;
    QTest::newRow("body too long") << 10U << 12U << 4U << 6U << 13 << false;
    QTest::newRow("more in common than the old song") << 10U << 12U << 6U << 6U << 10 << false;
    QTest::newRow("more in common than the new song") << 12U << 10U << 6U << 6U << 10 << false;
    QTest::newRow("sum beyond 32 bits") << 10U << 10U << 0xFFFFFFFFU << 11U << 10 << false;
    QTest::newRow("end beyond 31 bits") << 10U << 10U << 0U << 0x80000000U << 10 << false;
    QTest::newRow("new song too large")
        << 0U << largest + 1 << 0U << 0U << int(largest) + 1 << false;
    QTest::newRow("old song too large")
        << largest + 1 << 0U << 0U << 0U << int(largest) + 1 << false;
    QTest::newRow("negative as a signed number")
        << 0x80000000U << 0x80000000U << 0U << 0U << 0 << false;
}

void TestJournalFile::numbersBeyondTheirBoundsAreNoJournal()
{
    QFETCH(quint32, oldSize);
    QFETCH(quint32, newSize);
    QFETCH(quint32, start);
    QFETCH(quint32, end);
    QFETCH(int, body);
    QFETCH(bool, good);
    const QByteArray bytes = journalWith(oldSize, newSize, start, end, QByteArray(body, 'x'));
    QCOMPARE(SongJournal::Content::decode(bytes).has_value(), good);
}

void TestJournalFile::journalThatIsNotWholeIsRemoved()
{
    const QByteArray mixed = song(90, '0').left(60) + song(90, 'a').mid(60);
    const QByteArray whole = journalOf(song(90, 'a'), song(90, '0'));
    for (qsizetype size = 0; size < whole.size(); ++size) {
        makeFile(songPath(), mixed);
        makeFile(journal(), whole.left(size));
        QVERIFY(SongFileWriter::recover(songPath()));
        QVERIFY(contentOf(songPath()) == mixed);
        QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
    }
}

void TestJournalFile::journalWithAnyWrongByteIsRemoved()
{
    const QByteArray mixed = song(90, '0').left(60) + song(90, 'a').mid(60);
    const QByteArray whole = journalOf(song(90, 'a'), song(90, '0'));
    for (qsizetype pos = 0; pos < whole.size(); ++pos) {
        QByteArray damaged = whole;
        damaged[pos] = static_cast<char>(damaged.at(pos) ^ 1);
        makeFile(songPath(), mixed);
        makeFile(journal(), damaged);
        QVERIFY(SongFileWriter::recover(songPath()));
        QVERIFY(contentOf(songPath()) == mixed);
        QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
    }
}

void TestJournalFile::hugeJournalsAreRemovedUnread()
{
    makeFile(songPath(), song(100, 'A'));
    makeFile(journal(), journalOf(song(90, 'a'), song(110, '0')));
    QVERIFY(QFile::resize(journal(), qint64{1} << 40));
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(contentOf(songPath()) == song(100, 'A'));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
}

void TestJournalFile::otherThingsOfItsNameAreLeftAlone_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"link", "link to nothing", "second name", "folder", "pipe"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestJournalFile::otherThingsOfItsNameAreLeftAlone()
{
    QFETCH(QString, kind);
    const QByteArray old = song(3000, 'a');
    const QByteArray written = song(4000, '0');
    const QByteArray mixed = written.left(1024) + old.mid(1024);
    const QByteArray precious = journalOf(old, written);
    const QByteArray encoded = QFile::encodeName(journal());
    makeFile(songPath(), mixed);
    makeFile(path("precious"), precious);
    if (kind == QLatin1String("link"))
        QVERIFY(QFile::link(path("precious"), journal()));
    else if (kind == QLatin1String("link to nothing"))
        QVERIFY(QFile::link(path("nothing"), journal()));
    else if (kind == QLatin1String("second name"))
        QCOMPARE(::link(QFile::encodeName(path("precious")).constData(), encoded.constData()), 0);
    else if (kind == QLatin1String("folder"))
        QVERIFY(QDir().mkdir(journal()));
    else
        QCOMPARE(mkfifo(encoded.constData(), 0600), 0);

    const LogCapture log;
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(contentOf(songPath()) == mixed);
    QVERIFY(rewriteInPlace(songPath(), written));
    QVERIFY(contentOf(songPath()) == written);
    SongJournal::removeAllOf(songPath());
    QVERIFY(contentOf(path("precious")) == precious);
    QVERIFY(!QFileInfo::exists(path("nothing")));
    QCOMPARE(files(), QStringList({QStringLiteral(".song.mid.kavena-journal"),
                                   QStringLiteral("precious"), QStringLiteral("song.mid")}));
}

void TestJournalFile::journalWithALaterNameIsFound()
{
    const QByteArray old = song(3000, 'a');
    const QByteArray written = song(4000, '0');
    QVERIFY(QDir().mkdir(journal()));
    QVERIFY(QFile::link(path("nothing"), journal() + QLatin1Char('1')));
    makeFile(songPath(), old);
    {
        SongJournal cutOff(songPath());
        QVERIFY(cutOff.write({old, written}));
        QCOMPARE(cutOff.path(), journal() + QLatin1Char('2'));
        makeFile(songPath(), old + written.mid(3000));
    }
    const LogCapture log;
    QVERIFY(SongFileWriter::recover(songPath()));
    QVERIFY(contentOf(songPath()) == old);
    QCOMPARE(files().size(), 3);
}

// What had the earlier names is gone since.
void TestJournalFile::journalBehindAFreeNameIsFound()
{
    const QByteArray old = song(3000, 'a');
    const QByteArray written = song(4000, '0');
    for (int number = 1; number < SongJournal::maxNames; ++number) {
        makeFile(journal() + QString::number(number), journalOf(old, written));
        makeFile(songPath(), old + written.mid(3000));
        const LogCapture log;
        QVERIFY(SongFileWriter::recover(songPath()));
        QVERIFY(contentOf(songPath()) == old);
        QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));

        makeFile(journal() + QString::number(number), journalOf(old, written));
        SongJournal::removeAllOf(songPath());
        QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
    }
}

// What has got the journal's name meanwhile must not be emptied in its place.
void TestJournalFile::journalThatCannotBeRemovedIsEmptiedItself()
{
    const QByteArray old = song(300, 'a');
    makeFile(path("precious"), "precious");
    SongJournal held(songPath());
    QVERIFY(held.write({old, song(400, '0')}));
    QVERIFY(QFile::rename(held.path(), path("moved")));
    QVERIFY(QDir().mkdir(held.path())); // a folder cannot be removed as a file
    QVERIFY(held.remove());
    QCOMPARE(contentOf(path("moved")), QByteArray());
    QVERIFY(QFileInfo(held.path()).isDir());
}

void TestJournalFile::replacedSongLosesAllItsJournals()
{
    makeFile(songPath(), song(300, 'A'));
    makeFile(journal(), journalOf(song(300, 'a'), song(400, '0')));
    QVERIFY(QDir().mkdir(journal() + QLatin1Char('1')));
    makeFile(journal() + QLatin1Char('2'), journalOf(song(300, 'a'), song(400, '0')));
    makeFile(path(".song2.mid.kavena-journal"), journalOf(song(300, 'a'), song(400, '0')));
    SongJournal::removeAllOf(songPath());
    QCOMPARE(files(), QStringList({QStringLiteral(".song.mid.kavena-journal1"),
                                   QStringLiteral(".song2.mid.kavena-journal"),
                                   QStringLiteral("song.mid")}));
}

QTEST_APPLESS_MAIN(TestJournalFile)
#include "test_journalfile.moc"
