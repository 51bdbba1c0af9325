// What the index takes from the first bytes of MIDI, MFX and MP3 files.
#include "devindex/index.h"
#include "devindex/songhead.h"
#include "support/devicememory.h"
#include "support/songbytes.h"

#include <QRandomGenerator>
#include <QTest>

using namespace songbytes;

namespace
{

SongInfoIndex headOf(const QByteArray &bytes, const char *fileName = "/card/Demo.mid")
{
    SongInfoIndex entry;
    readSongHead(bytes, QString::fromUtf8(fileName), entry);
    return entry;
}

/** A MIDI file whose head holds these events. */
QByteArray midi(const QByteArray &events)
{
    return midiFile({track(events + notes())});
}

QByteArray tempo(int microseconds)
{
    return metaEvent(0x51, bigEndian(static_cast<quint32>(microseconds), 3));
}

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

const QString Unknown = QStringLiteral("<UNKNOWN>");

} // namespace

class TestSongHead : public QObject
{
    Q_OBJECT

private slots:
    void underFiveBytesKeepsTheDefaultsAsTheyAre();
    void unreadableFileKeepsTheDefaults();
    void unrecognisedContentHas120Bpm();
    void onlyTheFirst3072BytesAreRead();

    void midiTextsTempoAndMarkers();
    void midiWithoutEventsHasDefaults();
    void firstTempoEventIsKept();
    void tempoOfZeroIsIgnored();
    void tempoAbove255KeepsItsLowByte();
    void shortTempoEventIsIgnored();
    void onlyTheFirstOfEachTextIsTaken();
    void midiTextsAreCutAt26Bytes();
    void midiTextEndsAtAZeroByte();
    void emptyTrackNameGivesAnEmptyTitle();
    void eventEndingWithTheDataIsTaken();
    void eventRunningPastTheDataEndsTheSearch();
    void eventAfterALongDeltaTimeEndsTheSearch();
    void deltaByteOf128IsStillRead();
    void lengthBytesAreUnsigned();
    void nothingInsideATakenEventIsAnEvent();
    void nothingInsideACopyrightIsAnEvent();
    void insideAnyOtherEventTheSearchGoesOn();
    void makerEventsOfOtherSubTypesAreNoTexts();
    void markersOfTheMakerAreNoMarkers();

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

void TestSongHead::underFiveBytesKeepsTheDefaultsAsTheyAre()
{
    for (const char *bytes : {"", "M", "MThd"}) {
        SongInfoIndex entry;
        entry.bpm = 99;
        entry.fileType = 3;
        entry.hasMarkers = 1;
        entry.reserved = 1;
        QVERIFY(!readSongHead(bytes, QStringLiteral("/card/Straße.mid"), entry));
        QCOMPARE(entry.title, QStringLiteral("Straße.mid"));
        QCOMPARE(entry.artist, QStringLiteral("<unknown>"));
        QCOMPARE(entry.genre, QStringLiteral("<unknown>"));
        QCOMPARE(int(entry.bpm) + entry.fileType + entry.hasMarkers + entry.reserved, 0);
    }
}

void TestSongHead::unreadableFileKeepsTheDefaults()
{
    const DeviceMemory memory;
    memory.makeFolder(QStringLiteral("folder.mid"));
    const Index index;
    for (const char *name : {"gone.mid", "folder.mid"}) {
        SongInfoIndex entry;
        entry.fullPath = memory.path(QString::fromUtf8(name));
        QCOMPARE(index.setSongInfo(entry), 0);
        QCOMPARE(entry.title, QString::fromUtf8(name));
    }
    SongInfoIndex entry;
    entry.fullPath = memory.add(QStringLiteral("five.mid"), "12345");
    QCOMPARE(index.setSongInfo(entry), 1);
    QCOMPARE(entry.title, QStringLiteral("FIVE.MID"));
}

void TestSongHead::unrecognisedContentHas120Bpm()
{
    const SongInfoIndex entry = headOf("RIFF of some kind", "/card/no.song/Straße.kar");
    QCOMPARE(entry.title, QStringLiteral("STRAßE.KAR"));
    QCOMPARE(entry.artist, Unknown);
    QCOMPARE(entry.genre, Unknown);
    QCOMPARE(int(entry.bpm), 120);
    QCOMPARE(int(entry.fileType), 0);
    QCOMPARE(int(entry.hasMarkers), 0);
}

void TestSongHead::onlyTheFirst3072BytesAreRead()
{
    const DeviceMemory memory;
    const QByteArray head = midi({}).left(22);
    // FF 03 01 and one byte of text end with byte 3072 here, and one byte later there.
    const QByteArray name = metaEvent(3, "x").mid(1);
    SongInfoIndex inside;
    inside.fullPath =
        memory.add(QStringLiteral("in.mid"), head + QByteArray(3072 - 22 - 4, '\0') + name);
    SongInfoIndex outside;
    outside.fullPath =
        memory.add(QStringLiteral("out.mid"), head + QByteArray(3072 - 22 - 3, '\0') + name);
    const Index index;
    QCOMPARE(index.setSongInfo(inside), 1);
    QCOMPARE(index.setSongInfo(outside), 1);
    QCOMPARE(inside.title, QStringLiteral("X"));
    QCOMPARE(outside.title, QStringLiteral("OUT.MID"));
}

void TestSongHead::midiTextsTempoAndMarkers()
{
    const SongInfoIndex entry =
        headOf(midi(metaEvent(2, "(c) K-Ravo") + metaEvent(3, "Volare") + kravoEvent(2, "Modugno") +
                    kravoEvent(1, "Canzone") + tempo(500000) + metaEvent(6, "Verse")));
    QCOMPARE(entry.title, QStringLiteral("VOLARE"));
    QCOMPARE(entry.artist, QStringLiteral("MODUGNO"));
    QCOMPARE(entry.genre, QStringLiteral("CANZONE"));
    QCOMPARE(int(entry.bpm), 120);
    QCOMPARE(int(entry.hasMarkers), 1);
    QCOMPARE(int(entry.fileType), 0);
}

void TestSongHead::midiWithoutEventsHasDefaults()
{
    const SongInfoIndex entry = headOf(midi({}));
    QCOMPARE(entry.title, QStringLiteral("DEMO.MID"));
    QCOMPARE(entry.artist, Unknown);
    QCOMPARE(entry.genre, Unknown);
    QCOMPARE(int(entry.bpm), 0);
    QCOMPARE(int(entry.hasMarkers), 0);
}

void TestSongHead::firstTempoEventIsKept()
{
    QCOMPARE(int(headOf(midi(tempo(1000000) + tempo(500000))).bpm), 60);
}

void TestSongHead::tempoOfZeroIsIgnored()
{
    QCOMPARE(int(headOf(midi(tempo(0) + tempo(750000))).bpm), 80);
}

void TestSongHead::tempoAbove255KeepsItsLowByte()
{
    QCOMPARE(int(headOf(midi(tempo(200000))).bpm), 300 - 256);
    QCOMPARE(int(headOf(midi(tempo(1))).bpm), 60000000 % 256);
}

void TestSongHead::shortTempoEventIsIgnored()
{
    QCOMPARE(int(headOf(midi(metaEvent(0x51, "\x07\xA1") + tempo(600000))).bpm), 100);
}

void TestSongHead::onlyTheFirstOfEachTextIsTaken()
{
    const SongInfoIndex entry =
        headOf(midi(metaEvent(3, "one") + metaEvent(3, "two") + kravoEvent(2, "a") +
                    kravoEvent(2, "b") + kravoEvent(1, "g") + kravoEvent(1, "h")));
    QCOMPARE(entry.title, QStringLiteral("ONE"));
    QCOMPARE(entry.artist, QStringLiteral("A"));
    QCOMPARE(entry.genre, QStringLiteral("G"));
}

void TestSongHead::midiTextsAreCutAt26Bytes()
{
    const QByteArray text = "abcdefghijklmnopqrstuvwxyz0123456789";
    const SongInfoIndex entry =
        headOf(midi(metaEvent(3, text) + kravoEvent(2, text) + kravoEvent(1, text)));
    const QString cut = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    QCOMPARE(entry.title, cut);
    QCOMPARE(entry.artist, cut);
    QCOMPARE(entry.genre, cut);
}

void TestSongHead::midiTextEndsAtAZeroByte()
{
    QCOMPARE(headOf(midi(metaEvent(3, QByteArray("ab\0cd", 5)))).title, QStringLiteral("AB"));
}

void TestSongHead::emptyTrackNameGivesAnEmptyTitle()
{
    const SongInfoIndex entry = headOf(midi(metaEvent(3, {}) + metaEvent(3, "later")));
    QCOMPARE(entry.title, QString());
}

void TestSongHead::eventEndingWithTheDataIsTaken()
{
    const QByteArray head = midi({}).left(22);
    QCOMPARE(headOf(head + metaEvent(3, "last")).title, QStringLiteral("LAST"));
    QCOMPARE(headOf(head + metaEvent(3, "last").chopped(1)).title, QStringLiteral("DEMO.MID"));
}

void TestSongHead::eventRunningPastTheDataEndsTheSearch()
{
    const QByteArray head = midi({}).left(22);
    for (const char *tail : {"\xFF", "\xFF\x03", "\xFF\x03\xFF", "\xFF\x7E\x09"})
        QCOMPARE(headOf(head + '\0' + tail).title, QStringLiteral("DEMO.MID"));
    const QByteArray tooLong("\x00\xFF\x01\x7F", 4);
    QCOMPARE(headOf(head + tooLong + metaEvent(3, "name")).title, QStringLiteral("DEMO.MID"));
}

void TestSongHead::eventAfterALongDeltaTimeEndsTheSearch()
{
    const QByteArray late("\x81\xFF\x03\x01z", 5);
    const SongInfoIndex entry = headOf(midi(kravoEvent(2, "a") + late + kravoEvent(1, "g")));
    QCOMPARE(entry.artist, QStringLiteral("A"));
    QCOMPARE(entry.title, QStringLiteral("DEMO.MID"));
    QCOMPARE(entry.genre, Unknown);
}

void TestSongHead::deltaByteOf128IsStillRead()
{
    QCOMPARE(headOf(midi(QByteArray("\x80\xFF\x03\x01z", 5))).title, QStringLiteral("Z"));
}

void TestSongHead::lengthBytesAreUnsigned()
{
    const QByteArray copyright = metaEvent(2, QByteArray(200, 'c'));
    QCOMPARE(headOf(midi(copyright + metaEvent(3, "after"))).title, QStringLiteral("AFTER"));
    const QByteArray title = metaEvent(3, "t" + QByteArray(199, 'u'));
    QCOMPARE(headOf(midi(title)).title, QStringLiteral("T") + QString(25, QLatin1Char('U')));
}

void TestSongHead::nothingInsideATakenEventIsAnEvent()
{
    const QByteArray name = metaEvent(3, QByteArray("Y\xFF\x06\x01X", 5));
    QCOMPARE(int(headOf(midi(name)).hasMarkers), 0);
}

void TestSongHead::nothingInsideACopyrightIsAnEvent()
{
    const QByteArray copyright = metaEvent(2, QByteArray("c\xFF\x03\x01X", 5));
    QCOMPARE(headOf(midi(copyright + metaEvent(3, "name"))).title, QStringLiteral("NAME"));
}

void TestSongHead::insideAnyOtherEventTheSearchGoesOn()
{
    const QByteArray lyric = metaEvent(5, QByteArray("c\xFF\x03\x01X", 5));
    QCOMPARE(headOf(midi(lyric + metaEvent(3, "name"))).title, QStringLiteral("X"));
}

void TestSongHead::makerEventsOfOtherSubTypesAreNoTexts()
{
    const SongInfoIndex entry = headOf(midi(kravoEvent(3, "author") + kravoEvent(4, "180") +
                                            metaEvent(0x4B, {}) + kravoEvent(2, "artist")));
    QCOMPARE(entry.artist, QStringLiteral("ARTIST"));
    QCOMPARE(entry.genre, Unknown);
}

void TestSongHead::markersOfTheMakerAreNoMarkers()
{
    QCOMPARE(int(headOf(midi(markerEvent(4, "Intro"))).hasMarkers), 0);
}

void TestSongHead::mfxVariants_data()
{
    QTest::addColumn<QByteArray>("magic");
    QTest::addColumn<int>("type");
    QTest::newRow("MF3") << QByteArray("_MF3") << 2;
    QTest::newRow("MF4") << QByteArray("_MF4") << 3;
    QTest::newRow("MF5") << QByteArray("_MF5") << 4;
}

void TestSongHead::mfxVariants()
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

void TestSongHead::mfxWithoutTextsHasDefaults()
{
    const SongInfoIndex entry =
        headOf(mfx("_MF4", {{138, "   "}, {234, QByteArray("\0hidden", 7)}}), "/card/Ciao.mf4");
    QCOMPARE(entry.title, QStringLiteral("CIAO.MF4"));
    QCOMPARE(entry.artist, Unknown);
    QCOMPARE(entry.genre, Unknown);
}

void TestSongHead::mfxThatEndsEarlyCountsAsZeros()
{
    const SongInfoIndex entry =
        headOf(mfx("_MF5", {{38, "\x40"}, {138, "Short"}}).left(141), "/card/s.mf5");
    QCOMPARE(entry.title, QStringLiteral("SHO"));
    QCOMPARE(entry.artist, Unknown);
    QCOMPARE(int(entry.bpm), 0x40);
    QCOMPARE(int(headOf("_MF5\x01", "/card/s.mf5").bpm), 0);
}

void TestSongHead::mfxMarkersNeedTheValueOne()
{
    QCOMPARE(int(headOf(mfx("_MF3", {{201, "\x03"}})).hasMarkers), 0);
    QCOMPARE(int(headOf(mfx("_MF3", {{201, "\x01"}})).hasMarkers), 1);
}

void TestSongHead::mfxInAMidiNameIsKnownByContent()
{
    QCOMPARE(int(headOf(mfx("_MF4", {}), "/card/x.mid").fileType), 3);
    QCOMPARE(int(headOf(midi(metaEvent(3, "m")), "/card/x.mf4").fileType), 0);
}

void TestSongHead::mp3TagTexts()
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

void TestSongHead::mp3WithoutTagHasItsFileNameAsTitle()
{
    const SongInfoIndex entry =
        headOf("\xFF\xFB\x90" + id3Frame("TIT2", "no") + QByteArray(400, 'a'), "/card/Song.mp3");
    QCOMPARE(entry.title, QStringLiteral("SONG.MP3"));
    QCOMPARE(entry.artist, Unknown);
    QCOMPARE(entry.genre, Unknown);
    QCOMPARE(int(entry.bpm), 0);
    QCOMPARE(int(entry.fileType), 1);
}

void TestSongHead::mp3IsKnownByItsNameInAnyCase()
{
    QCOMPARE(int(headOf("MThd but an mp3", "/card/a.Mp3").fileType), 1);
    QCOMPARE(int(headOf("something", "/card/a.mp3.kar").fileType), 0);
}

void TestSongHead::mp3TextIsCutAt26Bytes_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("kept");
    QTest::newRow("25") << 25 << 25;
    QTest::newRow("26") << 26 << 26;
    QTest::newRow("27") << 27 << 26;
    QTest::newRow("300") << 300 << 26;
}

void TestSongHead::mp3TextIsCutAt26Bytes()
{
    QFETCH(int, length);
    QFETCH(int, kept);
    const QByteArray text(length, 'q');
    QCOMPARE(headOf(mp3(id3Frame("TIT2", text)), "/a.mp3").title, QString(kept, QLatin1Char('Q')));
}

void TestSongHead::mp3FrameBeyond512BytesIsNotFound()
{
    // The tag header takes 10 bytes, the first frame 11 and its text.
    const auto padded = [](int start) {
        return mp3(id3Frame("COMM", QByteArray(start - 10 - 11, '.')) + id3Frame("TIT2", "found"));
    };
    QCOMPARE(headOf(padded(511), "/a.mp3").title, QStringLiteral("FOUND"));
    QCOMPARE(headOf(padded(512), "/a.mp3").title, QStringLiteral("A.MP3"));
}

void TestSongHead::mp3FrameReachingTheEndStopsTheSearch()
{
    const QByteArray tag = id3Tag(id3Frame("TIT2", "title"));
    QCOMPARE(headOf(tag, "/a.mp3").title, QStringLiteral("A.MP3"));
    QCOMPARE(headOf(tag + 'x', "/a.mp3").title, QStringLiteral("TITLE"));
}

void TestSongHead::mp3OnlyTheFirstFrameOfEachKindIsTaken()
{
    const QByteArray frames =
        id3Frame("TIT2", "TPE1 in TIT2") + id3Frame("TIT2", "second") + id3Frame("TPE1", "artist");
    const SongInfoIndex entry = headOf(mp3(frames), "/a.mp3");
    QCOMPARE(entry.title, QStringLiteral("TPE1 IN TIT2"));
    QCOMPARE(entry.artist, QStringLiteral("ARTIST"));
}

void TestSongHead::mp3FrameSizesMayLie_data()
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

void TestSongHead::mp3FrameSizesMayLie()
{
    QFETCH(quint32, size);
    QByteArray frame = id3Frame("TIT2", "title");
    frame.replace(4, 4, bigEndian(size, 4));
    QTEST(headOf(mp3(frame), "/a.mp3").title, "title");
}

void TestSongHead::mp3EmptyTextsFallBackToTheDefaults()
{
    const SongInfoIndex entry = headOf(
        mp3(id3Frame("TIT2", "   ") + id3Frame("TPE1", {}) + id3Frame("TCON", QByteArray(3, '\0'))),
        "/a.mp3");
    QCOMPARE(entry.title, QStringLiteral("A.MP3"));
    QCOMPARE(entry.artist, Unknown);
    QCOMPARE(entry.genre, Unknown);
}

void TestSongHead::textsAreTrimmedAndUpperCased()
{
    QCOMPARE(headOf(midi(metaEvent(3, "  Stra\xDF"
                                      "e \t")))
                 .title,
             QStringLiteral("STRAßE"));
}

void TestSongHead::everyTruncationIsHarmless()
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

void TestSongHead::randomBytesAreHarmless()
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

QTEST_GUILESS_MAIN(TestSongHead)
#include "test_songhead.moc"
