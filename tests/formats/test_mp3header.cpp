// The ID3v2 tag of an MP3 file: loading, reading and writing its items.
#include "formats/mp3header.h"
#include "support/id3maker.h"
#include "support/songbytes.h"

#include <QTest>

using songbytes::bigEndian;
using songbytes::id3Frame;
using songbytes::id3Tag;
using namespace id3maker;

class TestMp3Header : public QObject
{
    Q_OBJECT

private slots:
    void startsEmpty();
    void fewerThanTenBytesAreRefused();
    void fileWithoutTagGetsANewOne();
    void tagIsKeptWithoutTheAudio();
    void tagThatClaimsMoreThanGivenIsRefused();
    void tagCutInItsLastTenBytesIsPadded();
    void failedLoadForgetsTheOldTag();
    void sizeBytesAreSevenBitsEach_data();
    void sizeBytesAreSevenBitsEach();
    void wrongSizeByteMeansAnEmptyTag();

    void textIsReadFromItsFrame_data();
    void textIsReadFromItsFrame();
    void textIsWrittenIntoItsFrame_data();
    void textIsWrittenIntoItsFrame();
    void emptyTextOnlyRemovesTheFrame_data();
    void emptyTextOnlyRemovesTheFrame();
    void textIsCutAtTheFirstZeroAndTrimmed();
    void utf16FrameIsReadAsBytesUpToTheFirstZero();
    void charactersOutsideLatin1BecomeQuestionMarks();
    void longTextIsWrittenWhole();
    void keyIsStoredAsGiven();

    void numbersAreReadAsDecimalText_data();
    void numbersAreReadAsDecimalText();
    void tempoIsWrittenFromOneUp();
    void lengthIsWrittenInMilliseconds();
    void editMarkIsThreeZeroBytes();
    void editMarkIsAddedAgain();
    void publisherIsFoundInTheCopyrightOnly_data();
    void publisherIsFoundInTheCopyrightOnly();
};

void TestMp3Header::startsEmpty()
{
    const Mp3Header header;
    QVERIFY(header.stream().isEmpty());
    QCOMPARE(header.getAudioDataStartPos(), 0U);
    QCOMPARE(header.fileType(), SongInfo::FileMp3);
    QVERIFY(!header.hasTitle());
    QCOMPARE(header.title(), QString());
    QVERIFY(!header.isKravo());
}

void TestMp3Header::fewerThanTenBytesAreRefused()
{
    Mp3Header header;
    QVERIFY(!header.loadHeader(QByteArray()));
    QVERIFY(!header.loadHeader(QByteArray("ID3\x03\x00\x00\x00\x00\x00", 9)));
    QVERIFY(!header.loadHeader(QByteArray(9, '\xFF')));
    QVERIFY(header.loadHeader(QByteArray("ID3\x03\x00\x00\x00\x00\x00\x00", 10)));
    QCOMPARE(header.stream().size(), 10);
}

void TestMp3Header::fileWithoutTagGetsANewOne()
{
    Mp3Header header;
    QVERIFY(header.loadHeader(QByteArray("\xFF\xFB\x90\x64 some audio", 15)));
    QCOMPARE(header.stream(), QByteArray("ID3\x03\x00\x00\x00\x00\x00\x00", 10));
    QCOMPARE(header.getAudioDataStartPos(), 0U);
    header.setTitle(latin1("New"));
    QCOMPARE(header.stream(), id3Tag(id3Frame("TIT2", "New")));
    QCOMPARE(header.getAudioDataStartPos(), 0U);
}

void TestMp3Header::tagIsKeptWithoutTheAudio()
{
    const QByteArray tag = id3Tag(id3Frame("TIT2", "Song") + QByteArray(20, '\0'));
    Mp3Header header;
    QVERIFY(header.loadHeader(tag + QByteArray(5000, '\x55')));
    QCOMPARE(header.stream(), tag);
    QCOMPARE(header.getAudioDataStartPos(), static_cast<unsigned int>(tag.size()));
    QCOMPARE(header.title(), latin1("Song"));
}

void TestMp3Header::tagThatClaimsMoreThanGivenIsRefused()
{
    Mp3Header header;
    const QByteArray claims200 = tagHeader(QByteArray("\x00\x00\x01\x48", 4));
    QVERIFY(!header.loadHeader(claims200 + QByteArray(189, ' ')));
    QVERIFY(header.loadHeader(claims200 + QByteArray(200, ' ')));
    QCOMPARE(header.stream().size(), 210);
    const QByteArray claims256Megabytes = tagHeader(QByteArray("\x7F\x7F\x7F\x7F", 4));
    QVERIFY(!header.loadHeader(claims256Megabytes + QByteArray(1000, ' ')));
    QVERIFY(!header.loadHeader(tagHeader(QByteArray(4, '\x80')) + QByteArray(1000, ' ')));
}

void TestMp3Header::tagCutInItsLastTenBytesIsPadded()
{
    const QByteArray tag = id3Tag(id3Frame("TPE1", "Someone") + id3Frame("TIT2", "Long enough"));
    Mp3Header header;
    QVERIFY(header.loadHeader(tag.chopped(10)));
    QCOMPARE(header.stream(), tag.chopped(10) + QByteArray(10, '\0'));
    QCOMPARE(header.getAudioDataStartPos(), static_cast<unsigned int>(tag.size()));
    QCOMPARE(header.title(), latin1("L"));
    QVERIFY(!header.loadHeader(tag.chopped(11)));
}

void TestMp3Header::failedLoadForgetsTheOldTag()
{
    Mp3Header header = loaded(id3Frame("TIT2", "Old"));
    QVERIFY(!header.loadHeader("short"));
    QVERIFY(header.stream().isEmpty());
    QCOMPARE(header.getAudioDataStartPos(), 0U);
    QVERIFY(!header.hasTitle());
}

void TestMp3Header::sizeBytesAreSevenBitsEach_data()
{
    QTest::addColumn<QByteArray>("sizeBytes");
    QTest::addColumn<unsigned int>("size");
    QTest::newRow("zero") << QByteArray("\x00\x00\x00\x00", 4) << 0U;
    QTest::newRow("each byte") << QByteArray("\x01\x02\x03\x04", 4)
                               << (1U << 21) + (2U << 14) + (3U << 7) + 4U;
    QTest::newRow("largest") << QByteArray("\x7F\x7F\x7F\x7F", 4) << 0x0FFFFFFFU;
    QTest::newRow("80 is added as it is, last") << QByteArray("\x00\x00\x00\x80", 4) << 128U;
    QTest::newRow("80 is added as it is, first")
        << QByteArray("\x80\x00\x00\x01", 4) << 0x10000001U;
    QTest::newRow("80 overlaps its neighbour") << QByteArray("\x00\x00\x01\x80", 4) << 256U;
    QTest::newRow("81 first") << QByteArray("\x81\x00\x00\x05", 4) << 0U;
    QTest::newRow("81 second") << QByteArray("\x00\x81\x00\x05", 4) << 0U;
    QTest::newRow("81 third") << QByteArray("\x00\x00\x81\x05", 4) << 0U;
    QTest::newRow("81 last") << QByteArray("\x00\x00\x05\x81", 4) << 0U;
    QTest::newRow("all FF, 4 GB") << QByteArray("\xFF\xFF\xFF\xFF", 4) << 0U;
    QTest::newRow("cut off") << QByteArray("\x00\x00\x01", 3) << 0U;
}

void TestMp3Header::sizeBytesAreSevenBitsEach()
{
    QFETCH(QByteArray, sizeBytes);
    QFETCH(unsigned int, size);
    QCOMPARE(Mp3Header().getId3TagSize(tagHeader(sizeBytes)), size);
}

void TestMp3Header::wrongSizeByteMeansAnEmptyTag()
{
    Mp3Header header;
    QVERIFY(header.loadHeader(tagHeader("\x7F\x7F\x7F\x81") + id3Frame("TIT2", "Not read")));
    QCOMPARE(header.stream().size(), 10);
    QCOMPARE(header.getAudioDataStartPos(), 10U);
    QVERIFY(!header.hasTitle());
    header.setTitle(latin1("T"));
    QCOMPARE(header.stream(), id3Tag(id3Frame("TIT2", "T")));
}

void TestMp3Header::textIsReadFromItsFrame_data()
{
    QTest::addColumn<int>("item");
    for (int i = 0; i < 5; ++i)
        QTest::newRow(textItems[i].frame) << i;
}

void TestMp3Header::textIsReadFromItsFrame()
{
    QFETCH(int, item);
    const TextItem &text = textItems[item];
    const Mp3Header header =
        loaded(id3Frame("TALB", "An album") + id3Frame(text.frame, "Citt\xE0 vuota"));
    QCOMPARE((header.*text.read)(), QStringLiteral("Città vuota"));
    QVERIFY((header.*text.has)());
    const Mp3Header without = loaded(id3Frame("TALB", "An album"));
    QCOMPARE((without.*text.read)(), QString());
    QVERIFY(!(without.*text.has)());
    const Mp3Header empty = loaded(id3Frame(text.frame, QByteArray()));
    QCOMPARE((empty.*text.read)(), QString());
    QVERIFY((empty.*text.has)());
}

void TestMp3Header::textIsWrittenIntoItsFrame_data()
{
    textIsReadFromItsFrame_data();
}

void TestMp3Header::textIsWrittenIntoItsFrame()
{
    QFETCH(int, item);
    const TextItem &text = textItems[item];
    Mp3Header header = loaded(id3Frame("TALB", "An album") + id3Frame(text.frame, "Old text") +
                              id3Frame("TYER", "1987"));
    (header.*text.write)(QStringLiteral("Città"));
    const QByteArray frame =
        QByteArray(text.frame) + QByteArray("\x00\x00\x00\x06\x00\x00\x00", 7) + "Citt\xE0";
    QCOMPARE(header.stream(),
             id3Tag(frame + id3Frame("TALB", "An album") + id3Frame("TYER", "1987")));
}

void TestMp3Header::emptyTextOnlyRemovesTheFrame_data()
{
    textIsReadFromItsFrame_data();
}

void TestMp3Header::emptyTextOnlyRemovesTheFrame()
{
    QFETCH(int, item);
    const TextItem &text = textItems[item];
    Mp3Header header = loaded(id3Frame(text.frame, "Old text") + id3Frame("TYER", "1987"));
    (header.*text.write)(QString());
    QCOMPARE(header.stream(), id3Tag(id3Frame("TYER", "1987")));
    QVERIFY(!(header.*text.has)());
}

void TestMp3Header::textIsCutAtTheFirstZeroAndTrimmed()
{
    const Mp3Header header = loaded(id3Frame("TIT2", QByteArray("  Blue \t\0rest", 13)));
    QCOMPARE(header.title(), latin1("Blue"));
}

void TestMp3Header::utf16FrameIsReadAsBytesUpToTheFirstZero()
{
    const QByteArray content("\x01\xFF\xFE\x42\x00\x43\x00", 7);
    const Mp3Header header = loaded("TIT2" + bigEndian(7, 4) + QByteArray(2, '\0') + content);
    QCOMPARE(header.title(), QString::fromLatin1("\xFF\xFE"
                                                 "B"));
}

void TestMp3Header::charactersOutsideLatin1BecomeQuestionMarks()
{
    Mp3Header header = loaded(QByteArray());
    header.setArtist(QStringLiteral("Łódź"));
    QCOMPARE(header.stream(), id3Tag(id3Frame("TPE1", "?\xF3"
                                                      "d?")));
}

void TestMp3Header::longTextIsWrittenWhole()
{
    Mp3Header header = loaded(QByteArray());
    const QString text(70000, QLatin1Char('x'));
    header.setTitle(text);
    QCOMPARE(header.title(), text);
    QCOMPARE(header.getSingleFrameLength(10), 70001U);
    QVERIFY(isConsistent(header));
}

void TestMp3Header::keyIsStoredAsGiven()
{
    Mp3Header header = loaded(QByteArray());
    header.setKey(latin1("A -"));
    QCOMPARE(header.key(), latin1("A -"));
    header.setKey(latin1("no key at all"));
    QCOMPARE(header.key(), latin1("no key at all"));
}

void TestMp3Header::numbersAreReadAsDecimalText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("bpm");
    QTest::addColumn<int>("seconds");
    QTest::newRow("plain") << QByteArray("120") << 120 << 0;
    QTest::newRow("milliseconds") << QByteArray("215000") << 215000 << 215;
    QTest::newRow("the remainder is dropped") << QByteArray("215999") << 215999 << 215;
    QTest::newRow("blanks around it") << QByteArray(" 4000 ") << 4000 << 4;
    QTest::newRow("plus sign") << QByteArray("+12000") << 12000 << 12;
    QTest::newRow("negative") << QByteArray("-12000") << 0 << 0;
    QTest::newRow("letters") << QByteArray("fast") << 0 << 0;
    QTest::newRow("fraction") << QByteArray("120.5") << 0 << 0;
    QTest::newRow("hexadecimal") << QByteArray("0x10") << 0 << 0;
    QTest::newRow("empty") << QByteArray() << 0 << 0;
    QTest::newRow("largest") << QByteArray("2147483647") << 2147483647 << 2147483;
    QTest::newRow("too large") << QByteArray("2147483648") << 0 << 0;
}

void TestMp3Header::numbersAreReadAsDecimalText()
{
    QFETCH(QByteArray, text);
    QFETCH(int, bpm);
    QFETCH(int, seconds);
    const Mp3Header header = loaded(id3Frame("TBPM", text) + id3Frame("TLEN", text));
    QVERIFY(header.hasUserBpm());
    QVERIFY(header.hasLength());
    QCOMPARE(header.userBpm(), bpm);
    QCOMPARE(header.length(), seconds);
    const Mp3Header without = loaded(id3Frame("TALB", text));
    QVERIFY(!without.hasUserBpm());
    QVERIFY(!without.hasLength());
    QCOMPARE(without.userBpm(), 0);
    QCOMPARE(without.length(), 0);
}

void TestMp3Header::tempoIsWrittenFromOneUp()
{
    Mp3Header header = loaded(id3Frame("TBPM", "99"));
    header.setUserBpm(128);
    QCOMPARE(header.stream(), id3Tag(id3Frame("TBPM", "128")));
    header.setUserBpm(1);
    QCOMPARE(header.stream(), id3Tag(id3Frame("TBPM", "1")));
    header.setUserBpm(0);
    QCOMPARE(header.stream(), id3Tag(QByteArray()));
    header.setUserBpm(128);
    header.setUserBpm(-5);
    QCOMPARE(header.stream(), id3Tag(QByteArray()));
}

void TestMp3Header::lengthIsWrittenInMilliseconds()
{
    Mp3Header header = loaded(id3Frame("TLEN", "1000"));
    header.setLength(215);
    QCOMPARE(header.stream(), id3Tag(id3Frame("TLEN", "215000")));
    header.setLength(2147483647);
    QCOMPARE(header.stream(), id3Tag(id3Frame("TLEN", "2147483647000")));
    header.setLength(0);
    QCOMPARE(header.stream(), id3Tag(QByteArray()));
    header.setLength(-1);
    QCOMPARE(header.stream(), id3Tag(QByteArray()));
}

void TestMp3Header::editMarkIsThreeZeroBytes()
{
    Mp3Header header = loaded(id3Frame("TIT2", "Song"));
    QVERIFY(!header.hasKavenaEditParam());
    header.setKavenaEditParam();
    QVERIFY(header.hasKavenaEditParam());
    const QByteArray frame("MEDT\x00\x00\x00\x04\x00\x00\x00\x00\x00\x00", 14);
    QCOMPARE(header.stream(), id3Tag(frame + id3Frame("TIT2", "Song")));
}

void TestMp3Header::editMarkIsAddedAgain()
{
    Mp3Header header = loaded(QByteArray());
    header.setKavenaEditParam();
    header.setKavenaEditParam();
    QCOMPARE(header.stream().size(), 10 + 2 * 14);
    QVERIFY(isConsistent(header));
}

void TestMp3Header::publisherIsFoundInTheCopyrightOnly_data()
{
    QTest::addColumn<QByteArray>("frames");
    QTest::addColumn<bool>("isKravo");
    QTest::newRow("upper case") << id3Frame("TCOP", "(c) K-RAVO 2009") << true;
    QTest::newRow("lower case") << id3Frame("TCOP", "by k-ravo") << true;
    QTest::newRow("another publisher") << id3Frame("TCOP", "(c) Kravo") << false;
    QTest::newRow("the second word does not count") << id3Frame("TCOP", "TORVELIX") << false;
    QTest::newRow("in the title") << id3Frame("TIT2", "K-RAVO") << false;
    QTest::newRow("no frames") << QByteArray() << false;
}

void TestMp3Header::publisherIsFoundInTheCopyrightOnly()
{
    QFETCH(QByteArray, frames);
    QFETCH(bool, isKravo);
    QCOMPARE(loaded(frames).isKravo(), isKravo);
}

QTEST_APPLESS_MAIN(TestMp3Header)

#include "test_mp3header.moc"
