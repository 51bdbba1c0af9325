// The records of the player's files, byte by byte.
#include "devindex/indexrecords.h"

#include <QTest>

namespace
{

template <std::size_t Size>
QByteArray bytesOf(const std::array<char, Size> &record)
{
    return {record.data(), static_cast<qsizetype>(Size)};
}

QByteArray zeros(qsizetype count)
{
    return QByteArray(count, '\0');
}

} // namespace

class TestIndexRecords : public QObject
{
    Q_OBJECT

private slots:
    void pathRecordLayout();
    void pathIsCutAt45BytesAndTerminated();
    void dateAndTimeHaveLeadingZeros();
    void digitsThatAreNoneCountAsZero_data();
    void digitsThatAreNoneCountAsZero();
    void pathWithoutTerminatorEndsWithItsField();
    void songRecordLayout();
    void titleOf26CharactersFillsTheField();
    void songTypeAndMarkersShareAByte_data();
    void songTypeAndMarkersShareAByte();
    void groupHeaderLayout();
    void noSongRecordPassesForAHeader();
    void playlistNumberTakesItsLowByteAsSigned_data();
    void playlistNumberTakesItsLowByteAsSigned();
    void playlistSongKeepsThePlayersBytes();
    void playlistPathRecordLayout();
    void countsAreLittleEndianWords();
    void orderValueIsLittleEndian();
    void alphaTableHasASlotForEachCharacterFrom20To5F();
    void alphaTableKeepsTheFirstOffset();
    void alphaTablePassesOverOtherCharacters_data();
    void alphaTablePassesOverOtherCharacters();
};

void TestIndexRecords::pathRecordLayout()
{
    PathRecord record;
    record.id = 0x01020304;
    record.path = QStringLiteral("/é.mid");
    record.date = 20130527;
    record.time = 93005;
    QCOMPARE(bytesOf(record.encode()),
             QByteArray("\x01\x02\x03\x04/\x82.mid") + zeros(40) + "20130527" + "093005");
    const QByteArray foreign = "\xFE\xDC\xBA\x98/\x82\xE1.kar" + zeros(39) + "19991231235959";
    const PathRecord read = PathRecord::decode(foreign.constData());
    QCOMPARE(read.id, 0xFEDCBA98u);
    QCOMPARE(read.path, QStringLiteral("/éß.kar"));
    QCOMPARE(read.date, 19991231u);
    QCOMPARE(read.time, 235959u);
}

void TestIndexRecords::pathIsCutAt45BytesAndTerminated()
{
    PathRecord record;
    record.path = QString(60, QLatin1Char('x'));
    QCOMPARE(bytesOf(record.encode()).mid(4, 46), QByteArray(45, 'x') + '\0');
}

void TestIndexRecords::dateAndTimeHaveLeadingZeros()
{
    PathRecord record;
    record.date = 512;
    record.time = 7;
    QCOMPARE(bytesOf(record.encode()).mid(50), QByteArray("00000512000007"));
}

void TestIndexRecords::digitsThatAreNoneCountAsZero_data()
{
    QTest::addColumn<QByteArray>("digits");
    QTest::addColumn<quint32>("date");
    QTest::addColumn<quint32>("time");
    QTest::newRow("letters in the date") << QByteArray("20AB0527093005") << 0u << 93005u;
    QTest::newRow("blank in the time") << QByteArray("20130527 93005") << 20130527u << 0u;
    QTest::newRow("signs") << QByteArray("+2013052-93005") << 0u << 0u;
    QTest::newRow("zero bytes") << QByteArray(14, '\0') << 0u << 0u;
    QTest::newRow("bytes above 0x7F") << QByteArray(14, '\xB2') << 0u << 0u;
    QTest::newRow("no real date") << QByteArray("99999999999999") << 99999999u << 999999u;
}

void TestIndexRecords::digitsThatAreNoneCountAsZero()
{
    QFETCH(QByteArray, digits);
    const PathRecord read = PathRecord::decode((zeros(50) + digits).constData());
    QTEST(read.date, "date");
    QTEST(read.time, "time");
}

void TestIndexRecords::pathWithoutTerminatorEndsWithItsField()
{
    const QByteArray bytes = zeros(4) + '/' + QByteArray(45, 'y') + "20130527093005";
    QCOMPARE(PathRecord::decode(bytes.constData()).path,
             QLatin1Char('/') + QString(45, QLatin1Char('y')));
}

void TestIndexRecords::songRecordLayout()
{
    SongRecord record;
    record.id = 0xA0B0C0D0;
    record.title = QStringLiteral("PERCHÉ €");
    record.bpm = 200;
    record.fileType = 4;
    record.hasMarkers = true;
    QCOMPARE(bytesOf(record.encode()),
             QByteArray("\xA0\xB0\xC0\xD0PERCH\xC9 ?") + zeros(18) + "\xC8\x0C");
    const QByteArray foreign =
        zeros(3) + '\x07' + " \xC0 B " + zeros(1) + "XXX" + zeros(17) + "\x78\x09";
    const SongRecord read = SongRecord::decode(foreign.constData());
    QCOMPARE(read.id, 7u);
    QCOMPARE(read.title, QStringLiteral("À B"));
    QCOMPARE(int(read.bpm), 120);
    QCOMPARE(int(read.fileType), 1);
    QVERIFY(read.hasMarkers);
}

void TestIndexRecords::titleOf26CharactersFillsTheField()
{
    SongRecord record;
    record.title = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    const QByteArray exact = bytesOf(record.encode());
    QCOMPARE(exact.mid(4, 26), QByteArray("ABCDEFGHIJKLMNOPQRSTUVWXYZ"));
    QCOMPARE(exact.mid(30), zeros(2));
    record.title += QStringLiteral("123");
    QCOMPARE(bytesOf(record.encode()), exact);
    QCOMPARE(SongRecord::decode(exact.constData()).title.size(), 26);
}

void TestIndexRecords::songTypeAndMarkersShareAByte_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("markers");
    QTest::addColumn<int>("byte");
    QTest::newRow("MIDI") << 0 << false << 0x00;
    QTest::newRow("MP3") << 1 << false << 0x01;
    QTest::newRow("MF3 with markers") << 2 << true << 0x0A;
    QTest::newRow("MF5 with markers") << 4 << true << 0x0C;
    QTest::newRow("only three bits of the type") << 0xFF << false << 0x07;
}

void TestIndexRecords::songTypeAndMarkersShareAByte()
{
    QFETCH(int, type);
    QFETCH(bool, markers);
    SongRecord record;
    record.fileType = static_cast<quint8>(type);
    record.hasMarkers = markers;
    const SongRecord::Bytes bytes = record.encode();
    QTEST(int(bytes.at(31)), "byte");
    QCOMPARE(int(SongRecord::decode(bytes.data()).fileType), type & 7);
    QCOMPARE(SongRecord::decode(bytes.data()).hasMarkers, markers);
}

void TestIndexRecords::groupHeaderLayout()
{
    GroupHeader header;
    header.previousCount = 0x0102;
    header.count = 0xFFFE;
    header.text = QStringLiteral("CANZONI ITALIANE PIÙ BELLE DI SEMPRE");
    QCOMPARE(bytesOf(header.encode()), QByteArray("\x01\x02\xFF\xFE"
                                                  "CANZONI ITALIANE PI\xD9 BELLE") +
                                           zeros(1) + '\xFF');
    const QByteArray foreign = QByteArray("\x00\x05\x00\x02", 4) + "ABBA" + zeros(23) + '\xFF';
    QVERIFY(GroupHeader::isHeader(foreign.constData()));
    const GroupHeader read = GroupHeader::decode(foreign.constData());
    QCOMPARE(int(read.previousCount), 5);
    QCOMPARE(int(read.count), 2);
    QCOMPARE(read.text, QStringLiteral("ABBA"));
}

void TestIndexRecords::noSongRecordPassesForAHeader()
{
    SongRecord record;
    record.fileType = 0xFF;
    record.hasMarkers = true;
    QVERIFY(!GroupHeader::isHeader(record.encode().data()));
}

void TestIndexRecords::playlistNumberTakesItsLowByteAsSigned_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("number");
    QTest::newRow("small") << QByteArray("\x07\x00", 2) << 7;
    QTest::newRow("high byte") << QByteArray("\x01\x02", 2) << 513;
    QTest::newRow("low byte lowers by 256") << QByteArray("\x80\x02", 2) << 384;
    QTest::newRow("below zero") << QByteArray("\xFF\x00", 2) << 65535;
    QTest::newRow("high byte is unsigned") << QByteArray("\x00\xFF", 2) << 65280;
}

void TestIndexRecords::playlistNumberTakesItsLowByteAsSigned()
{
    QFETCH(QByteArray, bytes);
    QTEST(int(PlaylistListRecord::number(bytes.constData())), "number");
}

void TestIndexRecords::playlistSongKeepsThePlayersBytes()
{
    QByteArray record = "\x09\x01\x02\x03" + QByteArray(28, '\x5A');
    QCOMPARE(PlaylistSongRecord::id(record.constData()), 0x09010203u);
    PlaylistSongRecord::setId(record.data(), 0xFFEEDDCC);
    QCOMPARE(record, QByteArray("\xFF\xEE\xDD\xCC") + QByteArray(28, '\x5A'));
}

void TestIndexRecords::playlistPathRecordLayout()
{
    QCOMPARE(bytesOf(PlaylistPathRecord::encode(QStringLiteral("/é.mid"))),
             QByteArray("/\xE9.mid") + zeros(58));
    QCOMPARE(bytesOf(PlaylistPathRecord::encode(QString())), zeros(64));
    QCOMPARE(bytesOf(PlaylistPathRecord::encode(QString(80, QLatin1Char('z')))),
             QByteArray(63, 'z') + '\0');
    QCOMPARE(PlaylistPathRecord::decode(QByteArray("/\xE9.mid" + zeros(58)).constData()),
             QStringLiteral("/é.mid"));
    QCOMPARE(PlaylistPathRecord::decode(QByteArray(64, 'z').constData()).size(), 64);
}

void TestIndexRecords::countsAreLittleEndianWords()
{
    CountRecord counts;
    counts.values = {1, 0x0203, 65535, 65536 + 9, 0, 256};
    QCOMPARE(bytesOf(counts.encode()),
             QByteArray("\x01\x00\x03\x02\xFF\xFF\x09\x00\x00\x00\x00\x01", 12));
}

void TestIndexRecords::orderValueIsLittleEndian()
{
    QByteArray bytes(2, '\0');
    OrderValue::encode(bytes.data(), 0x1234);
    QCOMPARE(bytes, QByteArray("\x34\x12"));
}

void TestIndexRecords::alphaTableHasASlotForEachCharacterFrom20To5F()
{
    AlphaTable table;
    table.clear();
    QCOMPARE(bytesOf(table.bytes), QByteArray(256, '\xFF'));
    table.add(QStringLiteral(" x"), 0);
    table.add(QStringLiteral("9 TO 5"), 0x01020304);
    table.add(QStringLiteral("abba"), 0x20); // in upper case
    table.add(QStringLiteral("_"), 0x40);
    QByteArray expected(256, '\xFF');
    expected.replace(0, 4, zeros(4));
    expected.replace(4 * 0x19, 4, "\x01\x02\x03\x04");
    expected.replace(4 * 0x21, 4, QByteArray("\0\0\0\x20", 4));
    expected.replace(4 * 0x3F, 4, QByteArray("\0\0\0\x40", 4));
    QCOMPARE(bytesOf(table.bytes), expected);
}

void TestIndexRecords::alphaTableKeepsTheFirstOffset()
{
    AlphaTable table;
    table.clear();
    table.add(QStringLiteral("A"), 64);
    table.add(QStringLiteral("AA"), 96);
    QCOMPARE(bytesOf(table.bytes).mid(4 * 0x21, 4), QByteArray("\0\0\0\x40", 4));
}

void TestIndexRecords::alphaTablePassesOverOtherCharacters_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("accented letter") << QStringLiteral("À VOUS");
    QTest::newRow("lower-case accented letter") << QStringLiteral("è");
    QTest::newRow("control character") << QStringLiteral("\x1F");
    QTest::newRow("behind the last slot") << QStringLiteral("`");
    QTest::newRow("outside Latin-1") << QStringLiteral("Ж");
    QTest::newRow("sharp s") << QStringLiteral("ßA");
}

void TestIndexRecords::alphaTablePassesOverOtherCharacters()
{
    QFETCH(QString, text);
    AlphaTable table;
    table.clear();
    table.add(text, 32);
    QCOMPARE(bytesOf(table.bytes), QByteArray(256, '\xFF'));
}

QTEST_GUILESS_MAIN(TestIndexRecords)
#include "test_indexrecords.moc"
