// What an edit by hand writes into a song, and the marks that songs carry.
#include "formats/metasong.h"
#include "support/lzhufreference.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"
#include "support/songfilemaker.h"

#include <QTest>

using samplesongs::readFile;
using songbytes::id3Frame;
using songbytes::id3Tag;
using songbytes::kravoEvent;
using songbytes::markerEvent;
using songbytes::metaEvent;
using namespace songfilemaker;

class TestMetaSongManualEdit : public SongFileFixture
{
    Q_OBJECT

private slots:
    void init() { SongFileFixture::init(); }

    // Merging
    void manualModeWritesEverythingButMarkers_data();
    void manualModeWritesEverythingButMarkers();
    void manualModeWritesEmptyItemsToo();
    void manualTempoStandsInTheMfxHeader_data();
    void manualTempoStandsInTheMfxHeader();
    void markersFlagFollowsTheRecord_data();
    void markersFlagFollowsTheRecord();
    void editMarkIsAddedOnce();
    void copyIsASongOfItsOwn();
};

void TestMetaSongManualEdit::manualModeWritesEverythingButMarkers_data()
{
    everyFormat();
}

void TestMetaSongManualEdit::manualModeWritesEverythingButMarkers()
{
    QFETCH(QString, format);
    const bool isMp3 = format == QLatin1String("MP3");
    Items items;
    items.title = "Old title";
    items.artist = "Old artist";
    items.author = "Old author";
    items.genre = "Old genre";
    items.userBpm = "90";
    items.key = isMp3 ? QByteArray("G") : QByteArray("\x01\x00", 2);
    items.length = isMp3 ? "60000" : "60";
    const QString file = make(fileNameFor(format), songFile(format, items));
    MetaSong song = imported(file);
    SongInfo record = fullRecord();
    record.isKravo = false;
    record.altArtist = QStringLiteral("not this");
    song.setSongInfo(record, true);
    QVERIFY(song.saveToFile(file));
    const SongInfo info = infoOf(imported(file));
    QCOMPARE(info.title, QStringLiteral("Blue Moon"));
    QCOMPARE(info.artist, QStringLiteral("The Band"));
    QCOMPARE(info.author, QStringLiteral("Bach"));
    QCOMPARE(info.genre, QStringLiteral("Pop"));
    QCOMPARE(info.userBpm, 128);
    QCOMPARE(info.key, isMp3 ? QStringLiteral("E -") : QStringLiteral("E-"));
    QCOMPARE(info.length, 215);
    QVERIFY(info.markers.isEmpty());
}

void TestMetaSongManualEdit::manualModeWritesEmptyItemsToo()
{
    Items items;
    items.title = "Old title";
    items.artist = "Old artist";
    items.author = "Old author";
    items.genre = "Old genre";
    items.userBpm = "90";
    items.key = QByteArray("\x01\x00", 2);
    items.length = "60";
    const QString midiPath = make("song.mid", songFile(QStringLiteral("MIDI"), items));
    MetaSong song = imported(midiPath);
    song.setSongInfo(SongInfo(), true);
    QVERIFY(song.saveToFile(midiPath));
    QCOMPARE(readFile(midiPath), midi(kravoEvent(4, "0") + kravoEvent(5, "0") + kravoEvent(1, "") +
                                      kravoEvent(3, "") + kravoEvent(2, "") + metaEvent(3, "")));

    const QString mfxPath = make("song.mf3", songFile(QStringLiteral("MF3"), items));
    MetaSong mfx = imported(mfxPath);
    mfx.setSongInfo(SongInfo(), true);
    QVERIFY(mfx.saveToFile(mfxPath));
    MfxFields emptied;
    emptied.tempo = 0;
    const QByteArray saved = readFile(mfxPath);
    QCOMPARE(payloadOf(saved), midi(kravoEvent(4, "0")));
    QCOMPARE(saved.mid(16, 512 - 16), mfxHeader("_MF3", emptied).mid(16));

    items.key = "G";
    items.length = "60000";
    const QString mp3Path = make("song.mp3", songFile(QStringLiteral("MP3"), items));
    MetaSong mp3 = imported(mp3Path);
    mp3.setSongInfo(SongInfo(), true);
    QVERIFY(mp3.saveToFile(mp3Path));
    QCOMPARE(readFile(mp3Path), id3Tag(id3Frame("MEDT", QByteArray(3, '\0'))) + audio);
}

void TestMetaSongManualEdit::manualTempoStandsInTheMfxHeader_data()
{
    QTest::addColumn<int>("bpm");
    QTest::addColumn<int>("stored");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("usual") << 128 << 128;
    QTest::newRow("out of range") << 600 << 600;
    QTest::newRow("largest") << 65535 << 65535;
}

void TestMetaSongManualEdit::manualTempoStandsInTheMfxHeader()
{
    QFETCH(int, bpm);
    QFETCH(int, stored);
    MetaSong song = imported(make("song.mf5", mfxFile("_MF5", midi(QByteArray()))));
    SongInfo info;
    info.userBpm = bpm;
    song.setSongInfo(info, true);
    QCOMPARE(infoOf(song).userBpm, stored);
}

void TestMetaSongManualEdit::markersFlagFollowsTheRecord_data()
{
    QTest::addColumn<bool>("manual");
    QTest::newRow("manual") << true;
    QTest::newRow("catalogue") << false;
}

void TestMetaSongManualEdit::markersFlagFollowsTheRecord()
{
    QFETCH(bool, manual);
    MfxFields fields;
    fields.flags = '\x40';
    for (const bool hasMarkers : {false, true}) {
        MetaSong song =
            imported(make("song.mf3", mfxFile("_MF3", midi(markerEvent(1, "A")), fields)));
        SongInfo info;
        if (hasMarkers)
            info.markers = fullRecord().markers;
        song.setSongInfo(info, manual);
        QCOMPARE(infoOf(song).mfxFlags, quint8(hasMarkers ? 0x41 : 0x40));
    }
}

void TestMetaSongManualEdit::editMarkIsAddedOnce()
{
    const QString file = make("song.mp3", id3Tag(id3Frame("TIT2", "Song")) + audio);
    for (const bool manual : {true, false, true}) {
        MetaSong song = imported(file);
        song.setSongInfo(infoOf(song), manual);
        QVERIFY(song.saveToFile(file));
        QCOMPARE(readFile(file).count("MEDT"), 1);
    }
}

void TestMetaSongManualEdit::copyIsASongOfItsOwn()
{
    MetaSong song = imported(make("song.mid", midi(metaEvent(3, "Song"))));
    const MetaSong copy = song;
    SongInfo info = infoOf(song);
    info.title = QStringLiteral("Changed");
    song.setSongInfo(info, true);
    QCOMPARE(infoOf(song).title, QStringLiteral("Changed"));
    QCOMPARE(infoOf(copy).title, QStringLiteral("Song"));
}

QTEST_APPLESS_MAIN(TestMetaSongManualEdit)

#include "test_metasong_manualedit.moc"
