// ID3v2 tags of other versions, and extended headers.
#include "formats/mp3header.h"
#include "support/id3maker.h"
#include "support/songbytes.h"

#include <QTest>

using songbytes::bigEndian;
using songbytes::id3Frame;
using songbytes::id3Tag;
using namespace id3maker;

namespace
{

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

} // namespace

class TestMp3HeaderVersions : public QObject
{
    Q_OBJECT

private slots:
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
};

void TestMp3HeaderVersions::version2FramesGetTheirNamesOfToday()
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

void TestMp3HeaderVersions::version2PictureGetsItsMimeType_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("JPG") << QByteArray("JPG") << QByteArray("image/jpeg");
    QTest::newRow("PNG") << QByteArray("PNG") << QByteArray("image/png");
    QTest::newRow("address") << QByteArray("-->") << QByteArray("-->");
}

void TestMp3HeaderVersions::version2PictureGetsItsMimeType()
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

void TestMp3HeaderVersions::unsynchronisedVersion2TagIsReadAndFreed()
{
    QByteArray tag = withVersion(id3Tag(version2Frame("GEO", QByteArray("\xFF\xE0", 2))
                                            .replace("\xFF", QByteArray("\xFF\0", 2))),
                                 2);
    tag[5] = '\x80';
    Mp3Header header;
    QVERIFY(header.loadHeader(tag));
    QCOMPARE(header.stream(), id3Tag("GEOB" + bigEndian(2, 4) + QByteArray("\0\0\xFF\xE0", 4)));
}

void TestMp3HeaderVersions::version2TagThatIsNotUnderstoodStays_data()
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

void TestMp3HeaderVersions::version2TagThatIsNotUnderstoodStays()
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

void TestMp3HeaderVersions::extendedHeaderGoesWithTheFirstWrite_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("extended");
    QTest::newRow("version 3") << 3 << bigEndian(6, 4) + QByteArray(6, '\0');
    QTest::newRow("version 3, checksum")
        << 3 << bigEndian(10, 4) + QByteArray("\x80\0\0\0\0\0\x12\x34\x56\x78", 10);
    QTest::newRow("version 4") << 4 << bigEndian(6, 4) + QByteArray("\1\0", 2);
    QTest::newRow("version 4, long") << 4 << QByteArray("\0\0\1\2\1\0", 6) + QByteArray(124, '\7');
}

void TestMp3HeaderVersions::extendedHeaderGoesWithTheFirstWrite()
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

void TestMp3HeaderVersions::extendedHeaderOfNoSizeStays_data()
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

void TestMp3HeaderVersions::extendedHeaderOfNoSizeStays()
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

void TestMp3HeaderVersions::framesBehindALargeVersion4FrameAreFound()
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

void TestMp3HeaderVersions::largeVersion4FrameIsReadAndReplacedAlone_data()
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

void TestMp3HeaderVersions::largeVersion4FrameIsReadAndReplacedAlone()
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

void TestMp3HeaderVersions::longTextWrittenIntoAVersion4TagIsReplacedWhole_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {126, 127, 128, 200, 255, 256, 300, 500, 20000})
        QTest::addRow("%d", length) << length;
}

void TestMp3HeaderVersions::longTextWrittenIntoAVersion4TagIsReplacedWhole()
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

QTEST_APPLESS_MAIN(TestMp3HeaderVersions)

#include "test_mp3header_versions.moc"
