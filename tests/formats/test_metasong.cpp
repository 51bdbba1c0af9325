// The song file facade: which files are songs, and what they say.
#include "formats/metasong.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/lzhufreference.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"
#include "support/songfilemaker.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <sys/stat.h>

using samplesongs::readFile;
using songbytes::id3Frame;
using songbytes::id3Tag;
using songbytes::kravoEvent;
using songbytes::littleEndian;
using songbytes::markerEvent;
using songbytes::metaEvent;
using songbytes::notes;
using namespace songfilemaker;

class TestMetaSong : public SongFileFixture
{
    Q_OBJECT

private slots:
    void init() { SongFileFixture::init(); }

    void formatNames();
    void keysListIsThatOfTheMidiData();
    void nothingLoadedHasNoInfo();

    // Import
    void recognisesFormats_data();
    void recognisesFormats();
    void recognisesMp3ByItsFirstBytes_data();
    void recognisesMp3ByItsFirstBytes();
    void magicComesBeforeTheExtension();
    void extensionIsNeededForMp3Only_data();
    void extensionIsNeededForMp3Only();
    void refusesBrokenFiles_data();
    void refusesBrokenFiles();
    void logsWhyAnMfxFileIsRefused();
    void refusesWhatIsNoRegularFile();
    void refusesUnreadableFiles();
    void followsSymbolicLinks();
    void failedImportForgetsTheOldSong();
    void hugeFileIsRefusedWithoutBeingRead();
    void longMidiFileIsImported();
    void tagHasToLieInTheFirstMillionBytes();

    // Reading
    void readsMidi();
    void readsMfx();
    void readsMp3();
    void fillsTheFileNames();
};

void TestMetaSong::formatNames()
{
    const QList<QPair<int, const char *>> names = {{0, "UNKNOWN"}, {1, "MIDI"},    {2, "MIDI"},
                                                   {3, "MF3"},     {4, "MF4"},     {5, "MF5"},
                                                   {6, "MP3"},     {7, "UNKNOWN"}, {-1, "UNKNOWN"}};
    for (const auto &[type, name] : names)
        QCOMPARE(MetaSong::getFormatString(static_cast<SongInfo::fileTypeEnum>(type)),
                 QString::fromLatin1(name));
}

void TestMetaSong::keysListIsThatOfTheMidiData()
{
    const QStringList keys = MetaSong::getKeysList();
    QCOMPARE(keys.size(), 30);
    QCOMPARE(keys.first(), QStringLiteral("C"));
    QCOMPARE(keys.at(14), QStringLiteral("C#"));
    QCOMPARE(keys.last(), QStringLiteral("D-"));
}

void TestMetaSong::nothingLoadedHasNoInfo()
{
    SongInfo info = fullRecord();
    MetaSong().getSongInfo(info);
    QCOMPARE(info.format, QStringLiteral("UNKNOWN"));
    QCOMPARE(info.title, QString());
    QCOMPARE(info.length, 0);
    QVERIFY(!info.isKravo);
    QVERIFY(info.markers.isEmpty());
    QCOMPARE(info.fileName, QString());

    MetaSong song;
    song.setSongInfo(fullRecord(), true);
    QCOMPARE(infoOf(song).title, QString());
}

void TestMetaSong::recognisesFormats_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("format");
    QTest::newRow("MIDI 0") << "a.mid" << midi(QByteArray(), 0) << "MIDI";
    QTest::newRow("MIDI 1") << "a.kar" << midi(QByteArray(), 1) << "MIDI";
    QTest::newRow("MF3") << "a.mf3" << mfxFile("_MF3", midi(QByteArray())) << "MF3";
    QTest::newRow("MF4") << "a.mf4" << mfxFile("_MF4", withTrackHead(midi(QByteArray()))) << "MF4";
    QTest::newRow("MF5") << "a.mf5" << mfxFile("_MF5", midi(QByteArray(), 1)) << "MF5";
    QTest::newRow("MP3") << "a.mp3" << id3Tag(id3Frame("TIT2", "Song")) + audio << "MP3";
    QTest::newRow("MP3 without a tag") << "a.mp3" << audio << "MP3";
}

void TestMetaSong::recognisesFormats()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, format);
    MetaSong song;
    QVERIFY(song.importFile(make(name, bytes)));
    QCOMPARE(infoOf(song).format, format);
    QCOMPARE(readFile(path(name)), bytes);
    QCOMPARE(files(), QStringList(name));
}

void TestMetaSong::recognisesMp3ByItsFirstBytes_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<bool>("isMp3");
    const auto row = [](int first, int second, bool isMp3) {
        const QByteArray start = QByteArray(1, static_cast<char>(first)) +
                                 static_cast<char>(second) + QByteArray(20, '\x11');
        QTest::newRow(start.left(2).toHex().constData()) << start << isMp3;
    };
    row(0xFF, 0x10, true);
    row(0xFF, 0x00, true);
    row(0xFF, 0x7F, true);
    row(0xFF, 0x80, false);
    row(0xFF, 0xE0, false);
    row(0xFF, 0xF2, false);
    row(0xFF, 0xF3, true);
    row(0xFF, 0xFB, true);
    row(0xFF, 0xFF, true);
    row(0x00, 0x00, true);
    row(0x00, 0x01, false);
    row(0x01, 0x00, false);
    row(0x7F, 0xFB, false);
    QTest::newRow("ID3") << id3Tag(QByteArray()) << true;
    QTest::newRow("id3") << QByteArray("id3 in small letters") << false;
    QTest::newRow("text") << QByteArray("some text, long enough") << false;
    QTest::newRow("too short for a tag")
        << QByteArray("\xFF\xFB\x90\x64\x11\x11\x11\x11\x11", 9) << false;
    QTest::newRow("one byte") << QByteArray("\xFF") << false;
    QTest::newRow("empty") << QByteArray() << false;
}

void TestMetaSong::recognisesMp3ByItsFirstBytes()
{
    QFETCH(QByteArray, start);
    QFETCH(bool, isMp3);
    QCOMPARE(MetaSong().importFile(make("song.mp3", start)), isMp3);
}

void TestMetaSong::magicComesBeforeTheExtension()
{
    QCOMPARE(infoOf(imported(make("midi.mp3", midi(QByteArray())))).format, QStringLiteral("MIDI"));
    QCOMPARE(infoOf(imported(make("mfx.mp3", mfxFile("_MF3", midi(QByteArray()))))).format,
             QStringLiteral("MF3"));
    QCOMPARE(infoOf(imported(make("mf5.mid", mfxFile("_MF5", midi(QByteArray()))))).format,
             QStringLiteral("MF5"));
}

void TestMetaSong::extensionIsNeededForMp3Only_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("mp3Accepted");
    QTest::newRow("lower case") << "song.mp3" << true;
    QTest::newRow("upper case") << "SONG.MP3" << true;
    QTest::newRow("mixed case") << "song.Mp3" << true;
    QTest::newRow("without a dot") << "songmp3" << true;
    QTest::newRow("another one behind it") << "song.mp3.bak" << false;
    QTest::newRow("another one") << "song.mid" << false;
}

void TestMetaSong::extensionIsNeededForMp3Only()
{
    QFETCH(QString, name);
    QFETCH(bool, mp3Accepted);
    QCOMPARE(MetaSong().importFile(make(name, audio)), mp3Accepted);
    QVERIFY(MetaSong().importFile(make(name, midi(QByteArray()))));
}

void TestMetaSong::refusesBrokenFiles_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray good = midi(QByteArray());
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("three bytes") << QByteArray("MTh");
    QTest::newRow("magic alone") << QByteArray("MThd");
    QTest::newRow("no track") << good.left(14);
    QTest::newRow("MIDI format 2") << midi(QByteArray(), 2);
    QTest::newRow("MIDI behind other bytes") << " " + good;
    QTest::newRow("MFX magic alone") << QByteArray("_MF3");
    QTest::newRow("MF2") << "_MF2" + mfxFile("_MF3", good).mid(4);
    QTest::newRow("MF3 header too short") << mfxFile("_MF3", good).left(511);
    QTest::newRow("MF3 header without a stream") << mfxFile("_MF3", good).left(512);
    QTest::newRow("MF5 header too short") << mfxFile("_MF5", good).left(1023);
    QTest::newRow("MF5 of 800 bytes") << mfxFile("_MF5", good).left(800);
    QTest::newRow("MFX size 0") << mfxHeader("_MF3", {}) + QByteArray(20, '\0');
    QTest::newRow("MFX size 500001")
        << mfxHeader("_MF3", {}) + littleEndian(500001, 4) + QByteArray(20, '\0');
    QTest::newRow("MFX size 4 GB") << mfxHeader("_MF3", {}) + QByteArray(20, '\xFF');
    QTest::newRow("MFX payload is no MIDI data") << mfxFile("_MF3", "some text, no music");
    QTest::newRow("MF4 without a track") << mfxFile("_MF4", good.left(14));
    QTest::newRow("MF4 track head cut off") << mfxFile("_MF4", good.left(14 + 8 + 2));
    QTest::newRow("ID3 claims more than there is")
        << QByteArray("ID3\x03\x00\x00\x00\x00\x7F\x7F", 10) + QByteArray(1000, ' ');
    QTest::newRow("ID3 claims 256 MB")
        << QByteArray("ID3\x03\x00\x00\x7F\x7F\x7F\x7F", 10) + QByteArray(1000, ' ');
    QTest::newRow("ID3 header cut off") << QByteArray("ID3\x03\x00\x00\x00", 7);
}

void TestMetaSong::refusesBrokenFiles()
{
    QFETCH(QByteArray, bytes);
    const LogCapture log;
    MetaSong song;
    QVERIFY(!song.importFile(make("song.mp3", bytes)));
    QCOMPARE(infoOf(song).format, QStringLiteral("UNKNOWN"));
    QVERIFY(!song.saveToFile(path(QStringLiteral("saved.mp3"))));
    QVERIFY(logged(unknownFormat));
    QCOMPARE(readFile(path(QStringLiteral("song.mp3"))), bytes);
    QCOMPARE(files().size(), 1);
}

void TestMetaSong::logsWhyAnMfxFileIsRefused()
{
    const char *const notExpanded = "[MetaSong::importFile] LzHuff Expand filed, skipping file ";
    const char *const noMidi = "[MetaSong::importFile] MidiStream corrupted, skipping file ";
    {
        const LogCapture log;
        QVERIFY(!MetaSong().importFile(
            make("song.mf3", mfxHeader("_MF3", {}) + littleEndian(500001, 4))));
        QVERIFY(logged(notExpanded));
        QVERIFY(!logged(noMidi));
    }
    for (const QByteArray &file : {mfxFile("_MF3", "no music"), mfxFile("_MF4", "no music"),
                                   mfxFile("_MF4", midi(QByteArray()).left(14 + 8 + 2))}) {
        const LogCapture log;
        QVERIFY(!MetaSong().importFile(make("song.mf3", file)));
        QVERIFY(logged(noMidi));
        QVERIFY(!logged(notExpanded));
    }
}

void TestMetaSong::refusesWhatIsNoRegularFile()
{
    QVERIFY(!MetaSong().importFile(QString()));
    QVERIFY(!MetaSong().importFile(path(QStringLiteral("missing.mid"))));
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder.mp3")));
    QVERIFY(!MetaSong().importFile(path(QStringLiteral("folder.mp3"))));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), path(QStringLiteral("endless.mp3"))));
    QVERIFY(!MetaSong().importFile(path(QStringLiteral("endless.mp3"))));
    QCOMPARE(mkfifo(QFile::encodeName(path(QStringLiteral("pipe.mid"))).constData(), 0600), 0);
    QVERIFY(!MetaSong().importFile(path(QStringLiteral("pipe.mid"))));
}

void TestMetaSong::refusesUnreadableFiles()
{
    const QString file = make("song.mid", midi(QByteArray()));
    QCOMPARE(chmod(QFile::encodeName(file).constData(), 0), 0);
    QCOMPARE(chmod(QFile::encodeName(m_dir->path()).constData(), 0755), 0);
    if (faults::canBecomeAnotherUser()) {
        const faults::AnotherUser user;
        QVERIFY(!MetaSong().importFile(file));
    } else {
        QVERIFY(!MetaSong().importFile(file));
    }
}

void TestMetaSong::followsSymbolicLinks()
{
    make("real.mid", midi(metaEvent(3, "Song")));
    QVERIFY(QFile::link(path(QStringLiteral("real.mid")), path(QStringLiteral("link.mid"))));
    QCOMPARE(infoOf(imported(path(QStringLiteral("link.mid")))).title, QStringLiteral("Song"));
}

void TestMetaSong::failedImportForgetsTheOldSong()
{
    MetaSong song = imported(make("song.mid", midi(metaEvent(3, "Song"))));
    QVERIFY(!song.importFile(path(QStringLiteral("missing.mid"))));
    QCOMPARE(infoOf(song).format, QStringLiteral("UNKNOWN"));
    QCOMPARE(infoOf(song).title, QString());
    QVERIFY(!song.saveToFile(path(QStringLiteral("saved.mid"))));
    QVERIFY(song.importFile(make("song.mp3", audio)));
    QCOMPARE(infoOf(song).title, QString());
    QVERIFY(song.importFile(path(QStringLiteral("song.mid"))));
    QVERIFY(!song.importFile(make("broken.mf3", mfxFile("_MF3", "no music"))));
    QCOMPARE(infoOf(song).format, QStringLiteral("UNKNOWN"));
}

void TestMetaSong::hugeFileIsRefusedWithoutBeingRead()
{
    const auto peakMemory = [] {
        rusage usage{};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss; // KiB
    };
    for (const char *start : {"MThd", "_MF3", "_MF5"}) {
        QFile file(make("huge.mid", start));
        if (!file.resize(qint64{10} * 1024 * 1024 * 1024))
            QSKIP("this file system has no room for a sparse file of 10 GB");
        const auto before = peakMemory();
        const LogCapture log;
        QVERIFY(!MetaSong().importFile(file.fileName()));
        QVERIFY(logged("[MetaSong::importFile] file too large for a song, skipping file "));
        QVERIFY(peakMemory() - before < 8 * 1024);
    }
    QFile mp3(make("huge.mp3", id3Tag(id3Frame("TIT2", "Song"))));
    QVERIFY(mp3.resize(qint64{10} * 1024 * 1024 * 1024));
    const auto before = peakMemory();
    QCOMPARE(infoOf(imported(mp3.fileName())).title, QStringLiteral("Song"));
    QVERIFY(peakMemory() - before < 8 * 1024);
}

void TestMetaSong::longMidiFileIsImported()
{
    QByteArray music;
    while (music.size() < 20 * 1024 * 1024)
        music += notes();
    const QByteArray file = midi(metaEvent(3, "An hour of music") + music);
    MetaSong song = imported(make("long.mid", file));
    QCOMPARE(infoOf(song).title, QStringLiteral("An hour of music"));
    QVERIFY(song.saveToFile(path(QStringLiteral("long.mid"))));
    QCOMPARE(readFile(path(QStringLiteral("long.mid"))), file);
}

void TestMetaSong::tagHasToLieInTheFirstMillionBytes()
{
    const auto mp3 = [](qsizetype tagSize) {
        const QByteArray title = id3Frame("TIT2", "Song");
        const QByteArray end("the very end");
        const qsizetype pictureSize = tagSize - title.size() - end.size() - 11;
        return id3Tag(title + id3Frame("APIC", QByteArray(pictureSize, '\x4D')) + end) + audio;
    };
    // The size that a tag tells leaves out its header: nothing of it may be lost at the limit.
    for (const qsizetype tagSize : {900000, 999980, 999995, 1000000}) {
        const QByteArray file = mp3(tagSize);
        MetaSong song = imported(make("song.mp3", file));
        QCOMPARE(infoOf(song).title, QStringLiteral("Song"));
        QVERIFY(song.saveToFile(path(QStringLiteral("song.mp3"))));
        QCOMPARE(readFile(path(QStringLiteral("song.mp3"))), file);
    }
    QVERIFY(!MetaSong().importFile(make("song.mp3", mp3(1000001))));
}

void TestMetaSong::readsMidi()
{
    const QByteArray events = metaEvent(0x03, "Song") + metaEvent(0x02, "(c) k-ravo") +
                              kravoEvent(1, "Pop") + kravoEvent(2, "Someone") +
                              kravoEvent(3, "Bach") + kravoEvent(4, "215") + kravoEvent(5, "128") +
                              metaEvent(0x59, QByteArray("\x04\x00", 2)) + markerEvent(1, "Intro") +
                              markerEvent(300, "Verse");
    const SongInfo info = infoOf(imported(make("song.mid", midi(events))));
    QCOMPARE(info.format, QStringLiteral("MIDI"));
    QCOMPARE(info.title, QStringLiteral("Song"));
    QCOMPARE(info.genre, QStringLiteral("Pop"));
    QCOMPARE(info.artist, QStringLiteral("Someone"));
    QCOMPARE(info.author, QStringLiteral("Bach"));
    QCOMPARE(info.length, 215);
    QCOMPARE(info.userBpm, 128);
    QCOMPARE(info.key, QStringLiteral("E"));
    QVERIFY(info.isKravo);
    QCOMPARE(info.markers.size(), 2);
    QCOMPARE(info.markers.at(1).bar, quint16{300});
    QCOMPARE(info.markers.at(1).text, QStringLiteral("Verse"));
    QCOMPARE(info.mfxLongName, QString());
    QCOMPARE(info.altArtist, QString());
}

void TestMetaSong::readsMfx()
{
    const QByteArray events = metaEvent(0x03, "not this") + metaEvent(0x02, "(c) K-RAVO") +
                              kravoEvent(1, "not this") + kravoEvent(4, "215") +
                              kravoEvent(5, "99") + metaEvent(0x59, QByteArray("\x04\x00", 2)) +
                              markerEvent(7, "Verse");
    MfxFields fields;
    fields.title = "Song";
    fields.author = "Bach";
    fields.artist = "Someone";
    fields.genre = "Pop";
    fields.tempo = 300;
    fields.flags = '\x81';
    const QByteArray payload = midi(events, 1);
    for (const QByteArray magic : {"_MF3", "_MF4", "_MF5"}) {
        const QByteArray file =
            mfxFile(magic, magic == "_MF4" ? withTrackHead(payload) : payload, fields);
        const SongInfo info = infoOf(imported(make("song.mfx", file)));
        QCOMPARE(info.format, latin1(magic.mid(1)));
        QCOMPARE(info.title, QStringLiteral("Song"));
        QCOMPARE(info.author, QStringLiteral("Bach"));
        QCOMPARE(info.artist, QStringLiteral("Someone"));
        QCOMPARE(info.genre, QStringLiteral("Pop"));
        QCOMPARE(info.userBpm, 300);
        QCOMPARE(info.mfxLongName, QStringLiteral("LONGNAME.MF3"));
        QCOMPARE(info.mfxFlags, quint8{0x81});
        QCOMPARE(info.key, QStringLiteral("E"));
        QCOMPARE(info.length, 215);
        QCOMPARE(info.markers.size(), 1);
        QCOMPARE(info.markers.first().bar, quint16{7});
        QVERIFY(!info.isKravo);
    }
}

void TestMetaSong::readsMp3()
{
    const QByteArray frames = id3Frame("TIT2", "Song") + id3Frame("TPE1", "Someone") +
                              id3Frame("TCOM", "Bach") + id3Frame("TCON", "Pop") +
                              id3Frame("TKEY", "E") + id3Frame("TBPM", "128") +
                              id3Frame("TLEN", "215999") + id3Frame("TCOP", "(c) K-Ravo");
    const SongInfo info = infoOf(imported(make("song.mp3", id3Tag(frames) + audio)));
    QCOMPARE(info.format, QStringLiteral("MP3"));
    QCOMPARE(info.title, QStringLiteral("Song"));
    QCOMPARE(info.artist, QStringLiteral("Someone"));
    QCOMPARE(info.author, QStringLiteral("Bach"));
    QCOMPARE(info.genre, QStringLiteral("Pop"));
    QCOMPARE(info.key, QStringLiteral("E"));
    QCOMPARE(info.userBpm, 128);
    QCOMPARE(info.length, 215);
    QVERIFY(info.isKravo);
    QVERIFY(info.markers.isEmpty());
}

void TestMetaSong::fillsTheFileNames()
{
    const SongInfo info = infoOf(imported(make("my.song.mid", midi(QByteArray()))));
    QCOMPARE(info.fileName, path(QStringLiteral("my.song.mid")));
    QCOMPARE(info.shortName, QStringLiteral("my.song.mid"));
}

QTEST_APPLESS_MAIN(TestMetaSong)

#include "test_metasong.moc"
