// The frames of an ID3v2 tag: their lengths, how they come and go, and hostile ones.
#include "formats/mp3header.h"
#include "support/id3maker.h"
#include "support/songbytes.h"

#include <QTest>

using songbytes::bigEndian;
using songbytes::id3Frame;
using songbytes::id3Tag;
using namespace id3maker;

class TestMp3HeaderFrames : public QObject
{
    Q_OBJECT

private slots:
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
    void hostileTagsKeepTheirInvariants();
};

void TestMp3HeaderFrames::frameLengthIsBigEndian()
{
    const Mp3Header header = loaded("TIT2" + QByteArray("\x81\x02\x03\x04\x00\x00", 6) + "text");
    QCOMPARE(header.getSingleFrameLength(10), 0x81020304U);
}

void TestMp3HeaderFrames::frameLengthOutsideTheTagIsZero()
{
    const Mp3Header header = loaded(id3Frame("TIT2", "Song"));
    const int size = static_cast<int>(header.stream().size());
    QCOMPARE(header.getSingleFrameLength(size - 8), 0x536F6E67U);
    QCOMPARE(header.getSingleFrameLength(size - 7), 0U);
    QCOMPARE(header.getSingleFrameLength(size), 0U);
    QCOMPARE(header.getSingleFrameLength(2147483647), 0U);
    QCOMPARE(header.getSingleFrameLength(-1), 0U);
}

void TestMp3HeaderFrames::extractGivesPositionAndText()
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

void TestMp3HeaderFrames::frameSizeZeroIsAnEmptyText()
{
    const Mp3Header header = loaded("TIT2" + QByteArray(6, '\0') + id3Frame("TPE1", "Someone"));
    QVERIFY(header.hasTitle());
    QCOMPARE(header.title(), QString());
    QCOMPARE(header.artist(), latin1("Someone"));
}

void TestMp3HeaderFrames::frameThatClaimsTooMuchReachesToTheEndOfTheTag()
{
    for (const quint32 size : {20U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        const Mp3Header header =
            loaded("TIT2" + bigEndian(size, 4) + QByteArray(3, '\0') + "To the end");
        QCOMPARE(header.title(), latin1("To the end"));
    }
}

void TestMp3HeaderFrames::frameCutInItsHeaderIsAnEmptyText()
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

void TestMp3HeaderFrames::insertReturnsTheBytesInserted()
{
    Mp3Header header = loaded(id3Frame("TALB", "Album"));
    QCOMPARE(header.insertId3Frame("Song", latin1("TIT2"), 10), 15);
    QCOMPARE(header.stream(), id3Tag(id3Frame("TIT2", "Song") + id3Frame("TALB", "Album")));
    QCOMPARE(header.getAudioDataStartPos(), 10U + 16U);
}

void TestMp3HeaderFrames::insertAtTheEndOfTheTag()
{
    Mp3Header header = loaded(id3Frame("TALB", "Album"));
    const int end = static_cast<int>(header.stream().size());
    QCOMPARE(header.insertId3Frame("Song", latin1("TIT2"), end), 15);
    QCOMPARE(header.stream(), id3Tag(id3Frame("TALB", "Album") + id3Frame("TIT2", "Song")));
}

void TestMp3HeaderFrames::insertRefusesWhatCannotBe()
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

void TestMp3HeaderFrames::insertRefusesToOutgrowTheSizeField()
{
    Mp3Header header = loaded(id3Frame("TALB", "Album"));
    const QByteArray before = header.stream();
    const QByteArray content(0x0FFFFFFF - (before.size() - 10) - 11 + 1, 'x');
    QCOMPARE(header.insertId3Frame(content, latin1("TIT2"), 10), 0);
    QCOMPARE(header.stream(), before);
}

void TestMp3HeaderFrames::removeTakesTheFirstFrameOnly()
{
    Mp3Header header = loaded(id3Frame("TPE1", "One") + id3Frame("TPE1", "Two"));
    QCOMPARE(header.removeId3Frame(latin1("TPE1")), 14);
    QCOMPARE(header.stream(), id3Tag(id3Frame("TPE1", "Two")));
}

void TestMp3HeaderFrames::removeReturnsTheBytesRemoved()
{
    Mp3Header header = loaded("TPE1" + QByteArray(6, '\0') + id3Frame("TIT2", "Song"));
    QCOMPARE(header.removeId3Frame(latin1("TPE1")), 10);
    QCOMPARE(header.removeId3Frame(latin1("TIT2")), 15);
    QCOMPARE(header.stream(), id3Tag(QByteArray()));
}

void TestMp3HeaderFrames::removeNeverReachesPastTheTag()
{
    for (const quint32 size : {12U, 0x7FFFFFFFU, 0xFFFFFFF6U, 0xFFFFFFFFU}) {
        Mp3Header header = loaded(id3Frame("TALB", "Album") + "TIT2" + bigEndian(size, 4) +
                                  QByteArray(3, '\0') + "To the end");
        QCOMPARE(header.removeId3Frame(latin1("TIT2")), 21);
        QCOMPARE(header.stream(), id3Tag(id3Frame("TALB", "Album")));
    }
}

void TestMp3HeaderFrames::removeOfAMissingFrameChangesNothing()
{
    Mp3Header header = loaded(id3Frame("TALB", "Album") + QByteArray(7, '\0'));
    const QByteArray before = header.stream();
    QCOMPARE(header.removeId3Frame(latin1("TIT2")), 0);
    QCOMPARE(header.removeId3Frame(QString()), 0);
    QCOMPARE(header.stream(), before);
}

void TestMp3HeaderFrames::sizeIsWrittenInGroupsOfSevenBits()
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

void TestMp3HeaderFrames::writersDoNothingWithoutATag()
{
    Mp3Header header;
    header.setTitle(latin1("Song"));
    header.setLength(5);
    header.setKavenaEditParam();
    header.updateId3TagSize();
    QCOMPARE(header.removeId3Frame(latin1("TIT2")), 0);
    QVERIFY(header.stream().isEmpty());
}

void TestMp3HeaderFrames::secondTitleStaysBehindTheNewOne()
{
    Mp3Header header = loaded(id3Frame("TIT2", "First") + id3Frame("TIT2", "Second"));
    header.setTitle(latin1("New"));
    QCOMPARE(header.title(), latin1("New"));
    QCOMPARE(header.stream(), id3Tag(id3Frame("TIT2", "New") + id3Frame("TIT2", "Second")));
}

void TestMp3HeaderFrames::otherFramesAndPaddingStay()
{
    const QByteArray picture =
        "APIC" + bigEndian(300, 4) + QByteArray(2, '\0') + QByteArray(300, '\xD8');
    const QByteArray rest = id3Frame("COMM", "eng a comment") + picture + QByteArray(512, '\0');
    Mp3Header header = loaded(id3Frame("TCON", "Rock") + rest);
    header.setGenre(latin1("Pop"));
    QCOMPARE(header.stream(), id3Tag(id3Frame("TCON", "Pop") + rest));
}

void TestMp3HeaderFrames::identifierInsideAnotherFrameIsNoFrame()
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

void TestMp3HeaderFrames::framesBehindUnknownBytesAreFound()
{
    const Mp3Header behindNoise = loaded(
        QByteArray("\x00\x00\x00\x06\x00\x00\x00\x00\x00\x00", 10) + id3Frame("TIT2", "Song"));
    QCOMPARE(behindNoise.title(), latin1("Song"));
    const Mp3Header behindAWrongSize =
        loaded(id3Frame("TALB", "Album") + "TYER" + bigEndian(3, 4) + QByteArray(3, '\0') + "1987" +
               id3Frame("TIT2", "Song"));
    QCOMPARE(behindAWrongSize.title(), latin1("Song"));
}

void TestMp3HeaderFrames::hostileTagsKeepTheirInvariants()
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

QTEST_APPLESS_MAIN(TestMp3HeaderFrames)

#include "test_mp3header_frames.moc"
