// What the index reads in the first bytes of a MIDI song.
#include "devindex/index.h"
#include "devindex/songhead.h"
#include "support/devicememory.h"
#include "support/headsofsongs.h"
#include "support/songbytes.h"

#include <QTest>

using namespace songbytes;
using namespace headsofsongs;

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
    QCOMPARE(entry.artist, unknown);
    QCOMPARE(entry.genre, unknown);
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
    QCOMPARE(entry.artist, unknown);
    QCOMPARE(entry.genre, unknown);
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
    QCOMPARE(entry.genre, unknown);
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
    QCOMPARE(entry.genre, unknown);
}

void TestSongHead::markersOfTheMakerAreNoMarkers()
{
    QCOMPARE(int(headOf(midi(markerEvent(4, "Intro"))).hasMarkers), 0);
}

QTEST_GUILESS_MAIN(TestSongHead)

#include "test_songhead.moc"
