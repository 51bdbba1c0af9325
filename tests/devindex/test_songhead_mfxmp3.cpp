// What the index reads in the first bytes of an MFX or MP3 song.
#include "devindex/songhead.h"
#include "support/devicememory.h"
#include "support/headsofsongs.h"
#include "support/songbytes.h"

#include <QRandomGenerator>
#include <QTest>

using namespace songbytes;
using namespace headsofsongs;

namespace
{

/** An MFX header of 512 bytes with the bytes put at the offset. */
QByteArray mfx(const char *magic, const QMap<int, QByteArray> &fields, int size = 512)
{
    QByteArray header(size, '\0');
    header.replace(0, 4, magic);
    for (auto field = fields.cbegin(); field != fields.cend(); ++field)
        header.replace(field.key(), field.value().size(), field.value());
    return header;
}

QByteArray mp3(const QByteArray &frames)
{
    return id3Tag(frames) + QByteArray(1000, '\xAA');
}

} // namespace

class TestSongHeadMfxMp3 : public QObject
{
    Q_OBJECT

private slots:
    void mfxVariants_data();
    void mfxVariants();
    void mfxWithoutTextsHasDefaults();
    void mfxThatEndsEarlyCountsAsZeros();
    void mfxMarkersNeedTheValueOne();
    void mfxInAMidiNameIsKnownByContent();

    void mp3TagTexts();
    void mp3WithoutTagHasItsFileNameAsTitle();
    void mp3IsKnownByItsNameInAnyCase();
    void mp3TextIsCutAt26Bytes_data();
    void mp3TextIsCutAt26Bytes();
    void mp3FrameBeyond512BytesIsNotFound();
    void mp3FrameReachingTheEndStopsTheSearch();
    void mp3OnlyTheFirstFrameOfEachKindIsTaken();
    void mp3FrameSizesMayLie_data();
    void mp3FrameSizesMayLie();
    void mp3EmptyTextsFallBackToTheDefaults();

    void textsAreTrimmedAndUpperCased();
    void everyTruncationIsHarmless();
    void randomBytesAreHarmless();
};

void TestSongHeadMfxMp3::mfxVariants_data()
{
    QTest::addColumn<QByteArray>("magic");
    QTest::addColumn<int>("type");
    QTest::newRow("MF3") << QByteArray("_MF3") << 2;
    QTest::newRow("MF4") << QByteArray("_MF4") << 3;
    QTest::newRow("MF5") << QByteArray("_MF5") << 4;
}

void TestSongHeadMfxMp3::mfxVariants()
{
    QFETCH(QByteArray, magic);
    // The neighbours of each field are filled, so that a wrong offset or length shows.
    const QByteArray header =
        mfx(magic.constData(), {{38, "\x5A\x01"},
                                {137, "!Azzurro" + QByteArray(19, '.') + "!"},
                                {200, QByteArray("\x07\x01\x07", 3)},
                                {233, "!Celentano" + QByteArray(17, '.') + "!"},
                                {265, "!Pop" + QByteArray(23, '.') + "!"}});
    const SongInfoIndex entry = headOf(header, "/card/x.mf3");
    QTEST(int(entry.fileType), "type");
    QCOMPARE(entry.title, QStringLiteral("AZZURRO") + QString(19, QLatin1Char('.')));
    QCOMPARE(entry.artist, QStringLiteral("CELENTANO") + QString(17, QLatin1Char('.')));
    QCOMPARE(entry.genre, QStringLiteral("POP") + QString(23, QLatin1Char('.')));
    QCOMPARE(int(entry.bpm), 0x5A);
    QCOMPARE(int(entry.hasMarkers), 1);
}

void TestSongHeadMfxMp3::mfxWithoutTextsHasDefaults()
{
    const SongInfoIndex entry =
        headOf(mfx("_MF4", {{138, "   "}, {234, QByteArray("\0hidden", 7)}}), "/card/Ciao.mf4");
    QCOMPARE(entry.title, QStringLiteral("CIAO.MF4"));
    QCOMPARE(entry.artist, unknown);
    QCOMPARE(entry.genre, unknown);
}

void TestSongHeadMfxMp3::mfxThatEndsEarlyCountsAsZeros()
{
    const SongInfoIndex entry =
        headOf(mfx("_MF5", {{38, "\x40"}, {138, "Short"}}).left(141), "/card/s.mf5");
    QCOMPARE(entry.title, QStringLiteral("SHO"));
    QCOMPARE(entry.artist, unknown);
    QCOMPARE(int(entry.bpm), 0x40);
    QCOMPARE(int(headOf("_MF5\x01", "/card/s.mf5").bpm), 0);
}

void TestSongHeadMfxMp3::mfxMarkersNeedTheValueOne()
{
    QCOMPARE(int(headOf(mfx("_MF3", {{201, "\x03"}})).hasMarkers), 0);
    QCOMPARE(int(headOf(mfx("_MF3", {{201, "\x01"}})).hasMarkers), 1);
}

void TestSongHeadMfxMp3::mfxInAMidiNameIsKnownByContent()
{
    QCOMPARE(int(headOf(mfx("_MF4", {}), "/card/x.mid").fileType), 3);
    QCOMPARE(int(headOf(midi(metaEvent(3, "m")), "/card/x.mf4").fileType), 0);
}

void TestSongHeadMfxMp3::mp3TagTexts()
{
    const SongInfoIndex entry =
        headOf(mp3(id3Frame("TALB", "Album") + id3Frame("TPE1", "Mina") + id3Frame("TCON", "Pop") +
                   id3Frame("TIT2", "Citt\xE0 vuota")),
               "/card/a.mp3");
    QCOMPARE(entry.title, QStringLiteral("CITTÀ VUOTA"));
    QCOMPARE(entry.artist, QStringLiteral("MINA"));
    QCOMPARE(entry.genre, QStringLiteral("POP"));
    QCOMPARE(int(entry.fileType), 1);
    QCOMPARE(int(entry.bpm), 0);
    QCOMPARE(int(entry.hasMarkers), 0);
}

void TestSongHeadMfxMp3::mp3WithoutTagHasItsFileNameAsTitle()
{
    const SongInfoIndex entry =
        headOf("\xFF\xFB\x90" + id3Frame("TIT2", "no") + QByteArray(400, 'a'), "/card/Song.mp3");
    QCOMPARE(entry.title, QStringLiteral("SONG.MP3"));
    QCOMPARE(entry.artist, unknown);
    QCOMPARE(entry.genre, unknown);
    QCOMPARE(int(entry.bpm), 0);
    QCOMPARE(int(entry.fileType), 1);
}

void TestSongHeadMfxMp3::mp3IsKnownByItsNameInAnyCase()
{
    QCOMPARE(int(headOf("MThd but an mp3", "/card/a.Mp3").fileType), 1);
    QCOMPARE(int(headOf("something", "/card/a.mp3.kar").fileType), 0);
}

void TestSongHeadMfxMp3::mp3TextIsCutAt26Bytes_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("kept");
    QTest::newRow("25") << 25 << 25;
    QTest::newRow("26") << 26 << 26;
    QTest::newRow("27") << 27 << 26;
    QTest::newRow("300") << 300 << 26;
}

void TestSongHeadMfxMp3::mp3TextIsCutAt26Bytes()
{
    QFETCH(int, length);
    QFETCH(int, kept);
    const QByteArray text(length, 'q');
    QCOMPARE(headOf(mp3(id3Frame("TIT2", text)), "/a.mp3").title, QString(kept, QLatin1Char('Q')));
}

void TestSongHeadMfxMp3::mp3FrameBeyond512BytesIsNotFound()
{
    // The tag header takes 10 bytes, the first frame 11 and its text.
    const auto padded = [](int start) {
        return mp3(id3Frame("COMM", QByteArray(start - 10 - 11, '.')) + id3Frame("TIT2", "found"));
    };
    QCOMPARE(headOf(padded(511), "/a.mp3").title, QStringLiteral("FOUND"));
    QCOMPARE(headOf(padded(512), "/a.mp3").title, QStringLiteral("A.MP3"));
}

void TestSongHeadMfxMp3::mp3FrameReachingTheEndStopsTheSearch()
{
    const QByteArray tag = id3Tag(id3Frame("TIT2", "title"));
    QCOMPARE(headOf(tag, "/a.mp3").title, QStringLiteral("A.MP3"));
    QCOMPARE(headOf(tag + 'x', "/a.mp3").title, QStringLiteral("TITLE"));
}

void TestSongHeadMfxMp3::mp3OnlyTheFirstFrameOfEachKindIsTaken()
{
    const QByteArray frames =
        id3Frame("TIT2", "TPE1 in TIT2") + id3Frame("TIT2", "second") + id3Frame("TPE1", "artist");
    const SongInfoIndex entry = headOf(mp3(frames), "/a.mp3");
    QCOMPARE(entry.title, QStringLiteral("TPE1 IN TIT2"));
    QCOMPARE(entry.artist, QStringLiteral("ARTIST"));
}

void TestSongHeadMfxMp3::mp3FrameSizesMayLie_data()
{
    QTest::addColumn<quint32>("size");
    QTest::addColumn<QString>("title");
    QTest::newRow("zero") << 0u << QStringLiteral("A.MP3");
    QTest::newRow("encoding byte only") << 1u << QStringLiteral("A.MP3");
    QTest::newRow("past the data") << 100000u << QStringLiteral("A.MP3");
    QTest::newRow("31 bits") << 0x7FFFFFFFu << QStringLiteral("A.MP3");
    QTest::newRow("4 GB") << 0xFFFFFFFFu << QStringLiteral("A.MP3");
    QTest::newRow("wraps in 32 bits") << 0xFFFFFFF6u << QStringLiteral("A.MP3");
    QTest::newRow("true") << 6u << QStringLiteral("TITLE");
}

void TestSongHeadMfxMp3::mp3FrameSizesMayLie()
{
    QFETCH(quint32, size);
    QByteArray frame = id3Frame("TIT2", "title");
    frame.replace(4, 4, bigEndian(size, 4));
    QTEST(headOf(mp3(frame), "/a.mp3").title, "title");
}

void TestSongHeadMfxMp3::mp3EmptyTextsFallBackToTheDefaults()
{
    const SongInfoIndex entry = headOf(
        mp3(id3Frame("TIT2", "   ") + id3Frame("TPE1", {}) + id3Frame("TCON", QByteArray(3, '\0'))),
        "/a.mp3");
    QCOMPARE(entry.title, QStringLiteral("A.MP3"));
    QCOMPARE(entry.artist, unknown);
    QCOMPARE(entry.genre, unknown);
}

void TestSongHeadMfxMp3::textsAreTrimmedAndUpperCased()
{
    QCOMPARE(headOf(midi(metaEvent(3, "  Stra\xDF"
                                      "e \t")))
                 .title,
             QStringLiteral("STRAßE"));
}

void TestSongHeadMfxMp3::everyTruncationIsHarmless()
{
    const QList<QPair<const char *, QByteArray>> songs{
        {"/a.mid", midi(metaEvent(3, "title") + tempo(500000) + kravoEvent(2, "artist"))},
        {"/a.mf4", mfx("_MF4", {{138, "title"}, {234, "artist"}})},
        {"/a.mp3", mp3(id3Frame("TIT2", "title") + id3Frame("TPE1", "artist"))}};
    for (const auto &[name, bytes] : songs) {
        for (qsizetype size = 0; size <= bytes.size(); ++size) {
            SongInfoIndex entry;
            QCOMPARE(readSongHead(bytes.left(size), QString::fromUtf8(name), entry), size >= 5);
            QVERIFY(entry.title.size() <= 26);
            QVERIFY(!entry.artist.isEmpty());
        }
    }
}

void TestSongHeadMfxMp3::randomBytesAreHarmless()
{
    QRandomGenerator random(4711);
    const QByteArrayList beginnings{midi({}).left(22), "ID3\x03", "_MF3", {}};
    const QByteArray alphabet("\xFF\x03\x4B\x51\x06\x02\x00\x01TIT2PE1CON", 19);
    for (int round = 0; round < 4000; ++round) {
        QByteArray bytes = beginnings.at(round % beginnings.size());
        const int size = random.bounded(600);
        for (int i = 0; i < size; ++i) {
            const bool likely = random.bounded(3) != 0;
            bytes += likely ? alphabet.at(random.bounded(int(alphabet.size())))
                            : static_cast<char>(random.bounded(256));
        }
        SongInfoIndex entry;
        QCOMPARE(readSongHead(bytes, QStringLiteral("/a.mp3"), entry), bytes.size() >= 5);
        QVERIFY(entry.title.size() <= 26 && entry.artist.size() <= 26);
        QCOMPARE(readSongHead(bytes, QStringLiteral("/a.mid"), entry), bytes.size() >= 5);
        QVERIFY(entry.title.size() <= 26 && entry.artist.size() <= 26);
        QVERIFY(entry.fileType <= 4 && entry.hasMarkers <= 1 && entry.reserved == 0);
    }
}

QTEST_GUILESS_MAIN(TestSongHeadMfxMp3)

#include "test_songhead_mfxmp3.moc"
