// The ID3v2 tag of MP3 files: every reader, writer and low-level step, on tags written by hand.
#include "formats/mp3header.h"
#include "support/songbytes.h"

#include <QTest>

using songbytes::bigEndian;
using songbytes::id3Frame;
using songbytes::id3Tag;

namespace
{

QString latin1(const char *text)
{
    return QString::fromLatin1(text);
}

/** The ten bytes of a tag header with these four size bytes. */
QByteArray tagHeader(const QByteArray &sizeBytes)
{
    return QByteArray("ID3\x03\x00\x00", 6) + sizeBytes;
}

QByteArray withVersion(QByteArray tag, int version)
{
    tag[3] = static_cast<char>(version);
    return tag;
}

/** A frame of ID3v2.2: a name of three letters, a size of three bytes. */
QByteArray version2Frame(const QByteArray &id, const QByteArray &content)
{
    return id + bigEndian(static_cast<quint32>(content.size()), 3) + content;
}

/** A header that has loaded a tag of these frames, with some audio behind it. */
Mp3Header loaded(const QByteArray &frames)
{
    Mp3Header header;
    if (!header.loadHeader(id3Tag(frames) + "\xFF\xFB audio"))
        qFatal("a tag made for a test was refused");
    return header;
}

/** The tag is as long as the size in its header says. */
bool isConsistent(const Mp3Header &header)
{
    return header.stream().size() ==
           static_cast<qsizetype>(header.getId3TagSize(header.stream())) + 10;
}

using TextReader = QString (Mp3Header::*)() const;
using Presence = bool (Mp3Header::*)() const;
using TextWriter = void (Mp3Header::*)(const QString &);

struct TextItem {
    const char *frame;
    TextReader read;
    Presence has;
    TextWriter write;
};

const TextItem textItems[] = {
    {"TIT2", &Mp3Header::title, &Mp3Header::hasTitle, &Mp3Header::setTitle},
    {"TPE1", &Mp3Header::artist, &Mp3Header::hasArtist, &Mp3Header::setArtist},
    {"TCON", &Mp3Header::genre, &Mp3Header::hasGenre, &Mp3Header::setGenre},
    {"TCOM", &Mp3Header::author, &Mp3Header::hasAuthor, &Mp3Header::setAuthor},
    {"TKEY", &Mp3Header::key, &Mp3Header::hasKey, &Mp3Header::setKey},
};

} // namespace

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

    void frameLengthIsBigEndian();
    void frameLengthOutsideTheTagIsZero();
    void extractGivesPositionAndText();
    void frameSizeZeroIsAnEmptyText();
    void frameThatClaimsTooMuchReachesToTheEndOfTheTag();
    void frameCutInItsHeaderIsAnEmptyText();
    void insertReturnsTheBytesInserted();
    void insertAtTheEndOfTheTag();
    void insertRefusesWhatCannotBe();
    void insertRefusesToOutgrowTheSizeField();
    void removeTakesTheFirstFrameOnly();
    void removeReturnsTheBytesRemoved();
    void removeNeverReachesPastTheTag();
    void removeOfAMissingFrameChangesNothing();
    void sizeIsWrittenInGroupsOfSevenBits();
    void writersDoNothingWithoutATag();

    void secondTitleStaysBehindTheNewOne();
    void otherFramesAndPaddingStay();
    void identifierInsideAnotherFrameIsNoFrame();
    void framesBehindUnknownBytesAreFound();
    void version2FramesGetTheirNamesOfToday();
    void version2PictureGetsItsMimeType_data();
    void version2PictureGetsItsMimeType();
    void unsynchronisedVersion2TagIsReadAndFreed();
    void version2TagThatIsNotUnderstoodStays_data();
    void version2TagThatIsNotUnderstoodStays();
    void extendedHeaderGoesWithTheFirstWrite_data();
    void extendedHeaderGoesWithTheFirstWrite();
    void extendedHeaderOfNoSizeStays_data();
    void extendedHeaderOfNoSizeStays();
    void framesBehindALargeVersion4FrameAreFound();
    void largeVersion4FrameIsReadAndReplacedAlone_data();
    void largeVersion4FrameIsReadAndReplacedAlone();
    void longTextWrittenIntoAVersion4TagIsReplacedWhole_data();
    void longTextWrittenIntoAVersion4TagIsReplacedWhole();
    void hostileTagsKeepTheirInvariants();
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

void TestMp3Header::frameLengthIsBigEndian()
{
    const Mp3Header header = loaded("TIT2" + QByteArray("\x81\x02\x03\x04\x00\x00", 6) + "text");
    QCOMPARE(header.getSingleFrameLength(10), 0x81020304U);
}

void TestMp3Header::frameLengthOutsideTheTagIsZero()
{
    const Mp3Header header = loaded(id3Frame("TIT2", "Song"));
    const int size = static_cast<int>(header.stream().size());
    QCOMPARE(header.getSingleFrameLength(size - 8), 0x536F6E67U);
    QCOMPARE(header.getSingleFrameLength(size - 7), 0U);
    QCOMPARE(header.getSingleFrameLength(size), 0U);
    QCOMPARE(header.getSingleFrameLength(2147483647), 0U);
    QCOMPARE(header.getSingleFrameLength(-1), 0U);
}

void TestMp3Header::extractGivesPositionAndText()
{
    const Mp3Header header = loaded(id3Frame("TIT2", "Song") + id3Frame("TALB", "Album"));
    QString text = latin1("before");
    QCOMPARE(header.extractId3Frame(text, latin1("TALB")), 10 + 15);
    QCOMPARE(text, latin1("Album"));
    QVERIFY(header.extractId3Frame(text, latin1("TXXX")) < 0);
    QCOMPARE(text, QString());
    QVERIFY(header.extractId3Frame(text, QString()) < 0);
    QVERIFY(header.extractId3Frame(text, latin1("TIT")) < 0);
}

void TestMp3Header::frameSizeZeroIsAnEmptyText()
{
    const Mp3Header header = loaded("TIT2" + QByteArray(6, '\0') + id3Frame("TPE1", "Someone"));
    QVERIFY(header.hasTitle());
    QCOMPARE(header.title(), QString());
    QCOMPARE(header.artist(), latin1("Someone"));
}

void TestMp3Header::frameThatClaimsTooMuchReachesToTheEndOfTheTag()
{
    for (const quint32 size : {20U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        const Mp3Header header =
            loaded("TIT2" + bigEndian(size, 4) + QByteArray(3, '\0') + "To the end");
        QCOMPARE(header.title(), latin1("To the end"));
    }
}

void TestMp3Header::frameCutInItsHeaderIsAnEmptyText()
{
    for (int size = 4; size <= 10; ++size) {
        const QByteArray frame = id3Frame("TIT2", "Song").left(size);
        Mp3Header header = loaded(frame);
        QVERIFY(header.hasTitle());
        QCOMPARE(header.title(), QString());
        QCOMPARE(header.removeId3Frame(latin1("TIT2")), size);
        QCOMPARE(header.stream(), id3Tag(QByteArray()));
    }
}

void TestMp3Header::insertReturnsTheBytesInserted()
{
    Mp3Header header = loaded(id3Frame("TALB", "Album"));
    QCOMPARE(header.insertId3Frame("Song", latin1("TIT2"), 10), 15);
    QCOMPARE(header.stream(), id3Tag(id3Frame("TIT2", "Song") + id3Frame("TALB", "Album")));
    QCOMPARE(header.getAudioDataStartPos(), 10U + 16U);
}

void TestMp3Header::insertAtTheEndOfTheTag()
{
    Mp3Header header = loaded(id3Frame("TALB", "Album"));
    const int end = static_cast<int>(header.stream().size());
    QCOMPARE(header.insertId3Frame("Song", latin1("TIT2"), end), 15);
    QCOMPARE(header.stream(), id3Tag(id3Frame("TALB", "Album") + id3Frame("TIT2", "Song")));
}

void TestMp3Header::insertRefusesWhatCannotBe()
{
    Mp3Header header = loaded(id3Frame("TALB", "Album"));
    const QByteArray before = header.stream();
    const int end = static_cast<int>(before.size());
    QCOMPARE(header.insertId3Frame("Song", latin1("TIT2"), end + 1), 0);
    QCOMPARE(header.insertId3Frame("Song", latin1("TIT2"), 9), 0);
    QCOMPARE(header.insertId3Frame("Song", latin1("TIT2"), -1), 0);
    QCOMPARE(header.insertId3Frame("Song", latin1("TIT2"), 2147483647), 0);
    QCOMPARE(header.insertId3Frame(QByteArray(), latin1("TIT2"), 10), 0);
    QCOMPARE(header.insertId3Frame("Song", latin1("TIT"), 10), 0);
    QCOMPARE(header.insertId3Frame("Song", latin1("TITLE"), 10), 0);
    QCOMPARE(header.stream(), before);
}

void TestMp3Header::insertRefusesToOutgrowTheSizeField()
{
    Mp3Header header = loaded(id3Frame("TALB", "Album"));
    const QByteArray before = header.stream();
    const QByteArray content(0x0FFFFFFF - (before.size() - 10) - 11 + 1, 'x');
    QCOMPARE(header.insertId3Frame(content, latin1("TIT2"), 10), 0);
    QCOMPARE(header.stream(), before);
}

void TestMp3Header::removeTakesTheFirstFrameOnly()
{
    Mp3Header header = loaded(id3Frame("TPE1", "One") + id3Frame("TPE1", "Two"));
    QCOMPARE(header.removeId3Frame(latin1("TPE1")), 14);
    QCOMPARE(header.stream(), id3Tag(id3Frame("TPE1", "Two")));
}

void TestMp3Header::removeReturnsTheBytesRemoved()
{
    Mp3Header header = loaded("TPE1" + QByteArray(6, '\0') + id3Frame("TIT2", "Song"));
    QCOMPARE(header.removeId3Frame(latin1("TPE1")), 10);
    QCOMPARE(header.removeId3Frame(latin1("TIT2")), 15);
    QCOMPARE(header.stream(), id3Tag(QByteArray()));
}

void TestMp3Header::removeNeverReachesPastTheTag()
{
    for (const quint32 size : {12U, 0x7FFFFFFFU, 0xFFFFFFF6U, 0xFFFFFFFFU}) {
        Mp3Header header = loaded(id3Frame("TALB", "Album") + "TIT2" + bigEndian(size, 4) +
                                  QByteArray(3, '\0') + "To the end");
        QCOMPARE(header.removeId3Frame(latin1("TIT2")), 21);
        QCOMPARE(header.stream(), id3Tag(id3Frame("TALB", "Album")));
    }
}

void TestMp3Header::removeOfAMissingFrameChangesNothing()
{
    Mp3Header header = loaded(id3Frame("TALB", "Album") + QByteArray(7, '\0'));
    const QByteArray before = header.stream();
    QCOMPARE(header.removeId3Frame(latin1("TIT2")), 0);
    QCOMPARE(header.removeId3Frame(QString()), 0);
    QCOMPARE(header.stream(), before);
}

void TestMp3Header::sizeIsWrittenInGroupsOfSevenBits()
{
    Mp3Header header = loaded(QByteArray());
    header.insertId3Frame(QByteArray(0x1234 - 11, 'x'), latin1("TIT2"), 10);
    QCOMPARE(header.stream().mid(6, 4), QByteArray("\x00\x00\x24\x34", 4));
    header.updateId3TagSize();
    QCOMPARE(header.stream().mid(6, 4), QByteArray("\x00\x00\x24\x34", 4));

    // A size byte of 80 was read as it is; the field that takes its place has seven bits a byte.
    QVERIFY(header.loadHeader(tagHeader(QByteArray("\x00\x00\x00\x80", 4)) + QByteArray(128, ' ')));
    QCOMPARE(header.stream().size(), 138);
    header.updateId3TagSize();
    QCOMPARE(header.stream().mid(6, 4), QByteArray("\x00\x00\x01\x00", 4));
}

void TestMp3Header::writersDoNothingWithoutATag()
{
    Mp3Header header;
    header.setTitle(latin1("Song"));
    header.setLength(5);
    header.setKavenaEditParam();
    header.updateId3TagSize();
    QCOMPARE(header.removeId3Frame(latin1("TIT2")), 0);
    QVERIFY(header.stream().isEmpty());
}

void TestMp3Header::secondTitleStaysBehindTheNewOne()
{
    Mp3Header header = loaded(id3Frame("TIT2", "First") + id3Frame("TIT2", "Second"));
    header.setTitle(latin1("New"));
    QCOMPARE(header.title(), latin1("New"));
    QCOMPARE(header.stream(), id3Tag(id3Frame("TIT2", "New") + id3Frame("TIT2", "Second")));
}

void TestMp3Header::otherFramesAndPaddingStay()
{
    const QByteArray picture =
        "APIC" + bigEndian(300, 4) + QByteArray(2, '\0') + QByteArray(300, '\xD8');
    const QByteArray rest = id3Frame("COMM", "eng a comment") + picture + QByteArray(512, '\0');
    Mp3Header header = loaded(id3Frame("TCON", "Rock") + rest);
    header.setGenre(latin1("Pop"));
    QCOMPARE(header.stream(), id3Tag(id3Frame("TCON", "Pop") + rest));
}

void TestMp3Header::identifierInsideAnotherFrameIsNoFrame()
{
    const QByteArray frames = id3Frame("TIT2", "MY TCON AND TKEY SONG") + "APIC" +
                              bigEndian(300, 4) + QByteArray(2, '\0') + QByteArray(140, '\xD8') +
                              id3Frame("TCOM", "a picture's") + QByteArray(138, '\xD9');
    Mp3Header header = loaded(frames);
    QVERIFY(!header.hasGenre());
    QVERIFY(!header.hasKey());
    QVERIFY(!header.hasAuthor());
    header.setGenre(latin1("Rock"));
    header.setAuthor(latin1("Bach"));
    QCOMPARE(header.stream(), id3Tag(id3Frame("TCOM", "Bach") + id3Frame("TCON", "Rock") + frames));
}

void TestMp3Header::framesBehindUnknownBytesAreFound()
{
    const Mp3Header behindNoise = loaded(
        QByteArray("\x00\x00\x00\x06\x00\x00\x00\x00\x00\x00", 10) + id3Frame("TIT2", "Song"));
    QCOMPARE(behindNoise.title(), latin1("Song"));
    const Mp3Header behindAWrongSize =
        loaded(id3Frame("TALB", "Album") + "TYER" + bigEndian(3, 4) + QByteArray(3, '\0') + "1987" +
               id3Frame("TIT2", "Song"));
    QCOMPARE(behindAWrongSize.title(), latin1("Song"));
}

void TestMp3Header::version2FramesGetTheirNamesOfToday()
{
    const QByteArray old = version2Frame("TT2", QByteArray("\0Song", 5)) +
                           version2Frame("TP1", QByteArray("\0Someone", 8)) +
                           version2Frame("COM", QByteArray("\0engx\0y", 7));
    Mp3Header header;
    QVERIFY(header.loadHeader(withVersion(id3Tag(old + QByteArray(30, '\0')), 2)));
    const QByteArray comment =
        "COMM" + bigEndian(7, 4) + QByteArray(2, '\0') + QByteArray("\0engx\0y", 7);
    QCOMPARE(header.stream(),
             id3Tag(id3Frame("TIT2", "Song") + id3Frame("TPE1", "Someone") + comment));
    QCOMPARE(header.title(), latin1("Song"));
    QCOMPARE(header.artist(), latin1("Someone"));
    QCOMPARE(header.getAudioDataStartPos(), static_cast<unsigned int>(10 + old.size() + 30));
    header.setTitle(latin1("New"));
    QCOMPARE(header.stream(),
             id3Tag(id3Frame("TIT2", "New") + id3Frame("TPE1", "Someone") + comment));
}

void TestMp3Header::version2PictureGetsItsMimeType_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("JPG") << QByteArray("JPG") << QByteArray("image/jpeg");
    QTest::newRow("PNG") << QByteArray("PNG") << QByteArray("image/png");
    QTest::newRow("address") << QByteArray("-->") << QByteArray("-->");
}

void TestMp3Header::version2PictureGetsItsMimeType()
{
    QFETCH(QByteArray, kind);
    QFETCH(QByteArray, type);
    const QByteArray picture("\x03"
                             "front\0\xFF\xD8 and so on",
                             19);
    Mp3Header header;
    QVERIFY(header.loadHeader(withVersion(id3Tag(version2Frame("PIC", '\0' + kind + picture)), 2)));
    const QByteArray content = '\0' + type + '\0' + picture;
    QCOMPARE(header.stream(), id3Tag("APIC" + bigEndian(static_cast<quint32>(content.size()), 4) +
                                     QByteArray(2, '\0') + content));
}

void TestMp3Header::unsynchronisedVersion2TagIsReadAndFreed()
{
    QByteArray tag = withVersion(id3Tag(version2Frame("GEO", QByteArray("\xFF\xE0", 2))
                                            .replace("\xFF", QByteArray("\xFF\0", 2))),
                                 2);
    tag[5] = '\x80';
    Mp3Header header;
    QVERIFY(header.loadHeader(tag));
    QCOMPARE(header.stream(), id3Tag("GEOB" + bigEndian(2, 4) + QByteArray("\0\0\xFF\xE0", 4)));
}

void TestMp3Header::version2TagThatIsNotUnderstoodStays_data()
{
    QTest::addColumn<QByteArray>("frames");
    QTest::addColumn<int>("flags");
    const QByteArray title = version2Frame("TT2", QByteArray("\0Song", 5));
    QTest::newRow("bytes that are no frame") << title + version2Frame("T!1", "secret") << 0;
    QTest::newRow("frame past the end") << title + QByteArray("TP1\0\0\x09\0ab", 9) << 0;
    QTest::newRow("size past the end") << title + QByteArray("TP1\0", 4) << 0;
    QTest::newRow("names of four letters") << id3Frame("TIT2", "Song") << 0;
    QTest::newRow("compressed") << title << 0x40;
    QTest::newRow("padding only") << QByteArray(20, '\0') << 0;
    QTest::newRow("nothing") << QByteArray() << 0;
}

void TestMp3Header::version2TagThatIsNotUnderstoodStays()
{
    QFETCH(QByteArray, frames);
    QFETCH(int, flags);
    QByteArray tag = withVersion(id3Tag(frames), 2);
    tag[5] = static_cast<char>(flags);
    Mp3Header header;
    QVERIFY(header.loadHeader(tag));
    QCOMPARE(header.stream(), tag);
    header.setGenre(latin1("Pop"));
    QCOMPARE(header.stream().mid(10), id3Frame("TCON", "Pop") + frames);
}

void TestMp3Header::extendedHeaderGoesWithTheFirstWrite_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("extended");
    QTest::newRow("version 3") << 3 << bigEndian(6, 4) + QByteArray(6, '\0');
    QTest::newRow("version 3, checksum")
        << 3 << bigEndian(10, 4) + QByteArray("\x80\0\0\0\0\0\x12\x34\x56\x78", 10);
    QTest::newRow("version 4") << 4 << bigEndian(6, 4) + QByteArray("\1\0", 2);
    QTest::newRow("version 4, long") << 4 << QByteArray("\0\0\1\2\1\0", 6) + QByteArray(124, '\7');
}

void TestMp3Header::extendedHeaderGoesWithTheFirstWrite()
{
    // In front of it the new frame would be taken for it, and the tag for damaged.
    QFETCH(int, version);
    QFETCH(QByteArray, extended);
    const QByteArray album = id3Frame("TALB", "Album");
    QByteArray tag = withVersion(id3Tag(extended + album), version);
    tag[5] = '\x60';
    Mp3Header header;
    QVERIFY(header.loadHeader(tag));
    QCOMPARE(header.stream(), tag);
    header.setTitle(latin1("New"));
    QByteArray expected = withVersion(id3Tag(id3Frame("TIT2", "New") + album), version);
    expected[5] = '\x20';
    QCOMPARE(header.stream(), expected);

    QVERIFY(header.loadHeader(tag));
    header.setKavenaEditParam();
    QCOMPARE(header.stream().mid(10), id3Frame("MEDT", QByteArray(3, '\0')) + album);
}

void TestMp3Header::extendedHeaderOfNoSizeStays_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("no header at all") << 3 << QByteArray();
    QTest::newRow("size that version 3 does not have") << 3 << bigEndian(7, 4);
    QTest::newRow("past the end, version 3") << 3 << bigEndian(10, 4);
    QTest::newRow("past the end, version 4") << 4 << bigEndian(100, 4);
    QTest::newRow("too small, version 4") << 4 << bigEndian(5, 4);
    QTest::newRow("unknown version") << 5 << bigEndian(6, 4) + QByteArray(2, '\0');
}

void TestMp3Header::extendedHeaderOfNoSizeStays()
{
    QFETCH(int, version);
    QFETCH(QByteArray, start);
    QByteArray tag = withVersion(id3Tag(start), version);
    tag[5] = '\x40';
    Mp3Header header;
    QVERIFY(header.loadHeader(tag));
    header.setTitle(latin1("New"));
    QByteArray expected = withVersion(id3Tag(id3Frame("TIT2", "New") + start), version);
    expected[5] = '\x40';
    QCOMPARE(header.stream(), expected);
}

void TestMp3Header::framesBehindALargeVersion4FrameAreFound()
{
    // Version 4 writes sizes in groups of seven bits: these 200 bytes would be 328 in version 3.
    const QByteArray comment =
        "COMM" + QByteArray("\x00\x00\x01\x48\x00\x00", 6) + QByteArray(200, 'c');
    const QByteArray frames =
        comment + id3Frame("TIT2", "Song") + id3Frame("TPE1", "Someone") + QByteArray(200, '\0');
    QByteArray tag = id3Tag(frames);
    tag[3] = 4;
    Mp3Header header;
    QVERIFY(header.loadHeader(tag));
    QCOMPARE(header.title(), latin1("Song"));
    QCOMPARE(header.artist(), latin1("Someone"));
}

void TestMp3Header::largeVersion4FrameIsReadAndReplacedAlone_data()
{
    QTest::addColumn<QByteArray>("behind");
    const QByteArray artist = id3Frame("TPE1", "Someone");
    QTest::newRow("end of the tag") << QByteArray();
    QTest::newRow("padding") << QByteArray(300, '\0');
    QTest::newRow("frame") << artist;
    QTest::newRow("frame and padding") << artist + QByteArray(300, '\0');
    QTest::newRow("large frame") << "COMM" + QByteArray("\x00\x00\x01\x49\x00\x00", 6) +
                                        QByteArray(201, 'c') + artist;
}

void TestMp3Header::largeVersion4FrameIsReadAndReplacedAlone()
{
    // 201 bytes in groups of seven bits are 01 49, which would be 329 bytes in version 3.
    QFETCH(QByteArray, behind);
    const QByteArray title =
        "TIT2" + QByteArray("\x00\x00\x01\x49\x00\x00\x00", 7) + QByteArray(200, 'x');
    const QByteArray album = id3Frame("TALB", "Album");
    Mp3Header header;
    QVERIFY(header.loadHeader(withVersion(id3Tag(album + title + behind), 4)));
    QCOMPARE(header.title(), QString(200, QLatin1Char('x')));
    header.setTitle(latin1("New"));
    QCOMPARE(header.stream(), withVersion(id3Tag(id3Frame("TIT2", "New") + album + behind), 4));
}

void TestMp3Header::longTextWrittenIntoAVersion4TagIsReplacedWhole_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {126, 127, 128, 200, 255, 256, 300, 500, 20000})
        QTest::addRow("%d", length) << length;
}

void TestMp3Header::longTextWrittenIntoAVersion4TagIsReplacedWhole()
{
    QFETCH(int, length);
    QByteArray tag = id3Tag(id3Frame("TPE1", "Someone") + QByteArray(100, '\0'));
    tag[3] = 4;
    Mp3Header header;
    QVERIFY(header.loadHeader(tag));
    const QString text(length, QLatin1Char('A')); // looks like frame identifiers throughout
    header.setTitle(text);
    QCOMPARE(header.title(), text);
    QCOMPARE(header.artist(), latin1("Someone"));
    header.setTitle(QString());
    QCOMPARE(header.stream(), tag);
}

void TestMp3Header::hostileTagsKeepTheirInvariants()
{
    // Frames with every size that is near a limit, in every order of two, plus pure noise.
    const quint32 sizes[] = {0,          1,          2,          10,         11,
                             127,        128,        0x7FFFFFFF, 0x80000000, 0xFFFFFFF5,
                             0xFFFFFFF6, 0xFFFFFFFE, 0xFFFFFFFF};
    QList<QByteArray> tags;
    for (const quint32 first : sizes) {
        for (const quint32 second : sizes)
            tags.append("TIT2" + bigEndian(first, 4) + QByteArray("\0\0\0ab", 5) + "TPE1" +
                        bigEndian(second, 4) + QByteArray("\0\0\0cd", 5));
    }
    quint32 random = 12345;
    for (int i = 0; i < 200; ++i) {
        QByteArray noise;
        for (int j = 0; j < i; ++j) {
            random = random * 1664525U + 1013904223U;
            noise += (random >> 28) == 0 ? QByteArray("TIT2")
                                         : QByteArray(1, static_cast<char>(random >> 24));
        }
        tags.append(noise);
    }
    for (const QByteArray &frames : tags) {
        Mp3Header header = loaded(frames);
        const unsigned int audioStart = header.getAudioDataStartPos();
        for (const TextItem &item : textItems) {
            (header.*item.write)(latin1("new"));
            QCOMPARE((header.*item.read)(), latin1("new"));
        }
        header.setLength(60);
        QCOMPARE(header.length(), 60);
        header.setUserBpm(0);
        header.setKavenaEditParam();
        QVERIFY(header.hasKavenaEditParam());
        QVERIFY(isConsistent(header));
        QCOMPARE(header.getAudioDataStartPos(), audioStart);
        while (header.hasTitle())
            QVERIFY(header.removeId3Frame(latin1("TIT2")) > 0);
        QVERIFY(isConsistent(header));
    }
}

QTEST_APPLESS_MAIN(TestMp3Header)
#include "test_mp3header.moc"
