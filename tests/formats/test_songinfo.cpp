// The song record: its defaults, clearing, copying and its dump to the log.
#include "formats/songinfo.h"
#include "support/logcapture.h"

#include <QTest>

#include <limits>
#include <type_traits>

class TestSongInfo : public QObject
{
    Q_OBJECT

private slots:
    void aNewRecordKnowsNothing();
    void aClearedRecordEqualsANewOne();
    void copiesHoldEveryField();
    void copiesAreIndependent();
    void dumpOfANewRecord();
    void dumpOfAClearedRecordEqualsThatOfANewOne();
    void dumpOfAFullRecord();
    void dumpedFlagsHaveTwoDigits_data();
    void dumpedFlagsHaveTwoDigits();
    void barsHave16Bits();
    void fileTypeNumbersAreFixed();
};

namespace
{

SongInfo fullRecord()
{
    SongInfo info;
    info.title = QStringLiteral("Funiculì funiculà");
    info.artist = QStringLiteral("Coro");
    info.altArtist = QStringLiteral("Coro \"alt\"");
    info.genre = QStringLiteral("Folk");
    info.author = QStringLiteral("L. Denza");
    info.length = 185;
    info.userBpm = 120;
    info.key = QStringLiteral("A -");
    info.fileName = QStringLiteral("/songs/funiculi.mid");
    info.shortName = QStringLiteral("funiculi.mid");
    info.isKravo = true;
    info.markers = {Marker{1, QStringLiteral("Intro")}, Marker{65535, QStringLiteral("Coda")}};
    info.format = QStringLiteral("MIDI");
    info.mfxLongName = QStringLiteral("FUNICULI.MID");
    info.mfxFlags = 0x05;
    return info;
}

void compareFields(const SongInfo &info, const SongInfo &expected)
{
    QCOMPARE(info.title, expected.title);
    QCOMPARE(info.artist, expected.artist);
    QCOMPARE(info.altArtist, expected.altArtist);
    QCOMPARE(info.genre, expected.genre);
    QCOMPARE(info.author, expected.author);
    QCOMPARE(info.length, expected.length);
    QCOMPARE(info.userBpm, expected.userBpm);
    QCOMPARE(info.key, expected.key);
    QCOMPARE(info.fileName, expected.fileName);
    QCOMPARE(info.shortName, expected.shortName);
    QCOMPARE(info.isKravo, expected.isKravo);
    QCOMPARE(info.markers.size(), expected.markers.size());
    for (int i = 0; i < info.markers.size(); ++i) {
        QCOMPARE(info.markers.at(i).bar, expected.markers.at(i).bar);
        QCOMPARE(info.markers.at(i).text, expected.markers.at(i).text);
    }
    QCOMPARE(info.format, expected.format);
    QCOMPARE(info.mfxLongName, expected.mfxLongName);
    QCOMPARE(info.mfxFlags, expected.mfxFlags);
}

QStringList dump(const SongInfo &info)
{
    const LogCapture log;
    info.dbgDump();
    return LogCapture::lines();
}

} // namespace

void TestSongInfo::aNewRecordKnowsNothing()
{
    const SongInfo info;
    for (const QString &text :
         {info.title, info.artist, info.altArtist, info.genre, info.author, info.key, info.fileName,
          info.shortName, info.format, info.mfxLongName})
        QVERIFY(text.isEmpty());
    QCOMPARE(info.length, 0);
    QCOMPARE(info.userBpm, 0);
    QCOMPARE(info.isKravo, false);
    QVERIFY(info.markers.isEmpty());
    QCOMPARE(info.mfxFlags, quint8(0));
}

void TestSongInfo::aClearedRecordEqualsANewOne()
{
    SongInfo info = fullRecord();
    info.clear();
    compareFields(info, SongInfo());
}

void TestSongInfo::copiesHoldEveryField()
{
    const SongInfo original = fullRecord();
    const SongInfo constructed(original);
    compareFields(constructed, fullRecord());
    SongInfo assigned;
    assigned = original;
    compareFields(assigned, fullRecord());
}

void TestSongInfo::copiesAreIndependent()
{
    const SongInfo original = fullRecord();
    SongInfo copy = original;
    copy.title = QStringLiteral("other");
    copy.markers.removeFirst();
    copy.markers.first().bar = 7;
    compareFields(original, fullRecord());
}

void TestSongInfo::dumpOfANewRecord()
{
    const QStringList expected{
        QStringLiteral("Dump Info song ---------------------------------------------- "),
        QStringLiteral("Format     : \"\" "),
        QStringLiteral("Filename   : \"\" "),
        QStringLiteral("Shortname  : \"\" "),
        QStringLiteral("Is K-Ravo  : false "),
        QStringLiteral("Title      : \"\" "),
        QStringLiteral("Artist     : \"\" "),
        QStringLiteral("AltArtist  : \"\" "),
        QStringLiteral("Genre      : \"\" "),
        QStringLiteral("Author     : \"\" "),
        QStringLiteral("Length     : 0 "),
        QStringLiteral("userBpm    : 0 "),
        QStringLiteral("Key        : \"\" "),
        QStringLiteral("NO Markers "),
        QStringLiteral("MfxLongName: \"\" "),
        QStringLiteral("MfxFlags   : 0x00 "),
        QStringLiteral("Dump END ---------------------------------------------------- "),
    };
    QCOMPARE(dump(SongInfo()), expected);
}

void TestSongInfo::dumpOfAClearedRecordEqualsThatOfANewOne()
{
    SongInfo info = fullRecord();
    info.clear();
    QCOMPARE(dump(info), dump(SongInfo()));
}

void TestSongInfo::dumpOfAFullRecord()
{
    const QStringList expected{
        QStringLiteral("Dump Info song ---------------------------------------------- "),
        QStringLiteral("Format     : \"MIDI\" "),
        QStringLiteral("Filename   : \"/songs/funiculi.mid\" "),
        QStringLiteral("Shortname  : \"funiculi.mid\" "),
        QStringLiteral("Is K-Ravo  : true "),
        QStringLiteral("Title      : \"Funiculì funiculà\" "),
        QStringLiteral("Artist     : \"Coro\" "),
        QStringLiteral("AltArtist  : \"Coro \"alt\"\" "),
        QStringLiteral("Genre      : \"Folk\" "),
        QStringLiteral("Author     : \"L. Denza\" "),
        QStringLiteral("Length     : 185 "),
        QStringLiteral("userBpm    : 120 "),
        QStringLiteral("Key        : \"A -\" "),
        QStringLiteral("Markers: "),
        QStringLiteral("  bar: 1   text: \"Intro\" "),
        QStringLiteral("  bar: 65535   text: \"Coda\" "),
        QStringLiteral("MfxLongName: \"FUNICULI.MID\" "),
        QStringLiteral("MfxFlags   : 0x05 "),
        QStringLiteral("Dump END ---------------------------------------------------- "),
    };
    QCOMPARE(dump(fullRecord()), expected);
}

void TestSongInfo::dumpedFlagsHaveTwoDigits_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("line");
    QTest::newRow("one digit") << 0x0F << QStringLiteral("MfxFlags   : 0x0f ");
    QTest::newRow("two digits") << 0x10 << QStringLiteral("MfxFlags   : 0x10 ");
    QTest::newRow("all bits") << 0xFF << QStringLiteral("MfxFlags   : 0xff ");
}

void TestSongInfo::dumpedFlagsHaveTwoDigits()
{
    QFETCH(int, flags);
    QFETCH(QString, line);
    SongInfo info;
    info.mfxFlags = static_cast<quint8>(flags);
    QCOMPARE(dump(info).at(15), line);
}

void TestSongInfo::barsHave16Bits()
{
    static_assert(std::is_same_v<decltype(Marker::bar), quint16>);
    Marker marker;
    QCOMPARE(marker.bar, quint16(0));
    QVERIFY(marker.text.isEmpty());
    marker.bar = 65535;
    QCOMPARE(marker.bar, std::numeric_limits<quint16>::max());
    ++marker.bar;
    QCOMPARE(marker.bar, quint16(0));
}

void TestSongInfo::fileTypeNumbersAreFixed()
{
    QCOMPARE(static_cast<int>(SongInfo::FileUnknown), 0);
    QCOMPARE(static_cast<int>(SongInfo::FileMidi0), 1);
    QCOMPARE(static_cast<int>(SongInfo::FileMidi1), 2);
    QCOMPARE(static_cast<int>(SongInfo::FileMf3), 3);
    QCOMPARE(static_cast<int>(SongInfo::FileMf4), 4);
    QCOMPARE(static_cast<int>(SongInfo::FileMf5), 5);
    QCOMPARE(static_cast<int>(SongInfo::FileMp3), 6);
}

QTEST_APPLESS_MAIN(TestSongInfo)
#include "test_songinfo.moc"
