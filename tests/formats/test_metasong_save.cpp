// What a save of the song file facade leaves on the disk.
#include "formats/metasong.h"
#include "support/logcapture.h"
#include "support/lzhufreference.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"
#include "support/songfilemaker.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

using samplesongs::readFile;
using songbytes::id3Frame;
using songbytes::id3Tag;
using songbytes::kravoEvent;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;
using namespace songfilemaker;

class TestMetaSongSave : public SongFileFixture
{
    Q_OBJECT

private slots:
    void init() { SongFileFixture::init(); }

    // Saving
    void savesUnchanged_data();
    void savesUnchanged();
    void mf4KeepsItsTrackHead();
    void mfxHeaderLearnsTheNewSizes();
    void mfxPayloadLimit();
    void mp3WithoutATagGetsOne();
    void mp3SavedTwiceKeepsItsAudio();
    void copiesOfAnMp3SongSaveInTurn();
    void tagThatCouldNotBeReadAgainIsNotSaved();
    void savesUnderAnotherPath_data();
    void savesUnderAnotherPath();
    void savesThroughASymbolicLink_data();
    void savesThroughASymbolicLink();
    void logsTheSave();
};

void TestMetaSongSave::savesUnchanged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("MIDI 0") << midi(metaEvent(3, "Song"));
    QTest::newRow("MIDI 1 with a second track and bytes behind it")
        << midiFile({track(metaEvent(3, "Song")), track(notes())}, 1) + "behind the tracks";
    QTest::newRow("MP3") << id3Tag(id3Frame("TIT2", "Song") + QByteArray(100, '\0')) + audio;
    QTest::newRow("MP3 of a tag only") << id3Tag(id3Frame("TIT2", "Song"));
    QTest::newRow("MP3 with a wrong size byte")
        << QByteArray("ID3\x03\x00\x00\x00\x00\x00\x90", 10) + audio;
    QTest::newRow("MP3 larger than one chunk")
        << id3Tag(id3Frame("TIT2", "Song")) + audio.repeated(1000);
}

void TestMetaSongSave::savesUnchanged()
{
    QFETCH(QByteArray, bytes);
    const QString file = make("song.mp3", bytes);
    QVERIFY(imported(file).saveToFile(file));
    QCOMPARE(readFile(file), bytes);
    QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
}

void TestMetaSongSave::mf4KeepsItsTrackHead()
{
    // Whatever the three bytes were: the reader drops them, the writer puts its own there.
    QByteArray payload = withTrackHead(midi(kravoEvent(4, "60")));
    payload.replace(14 + 8, 3, "abc");
    const QString file = make("song.mf4", mfxFile("_MF4", payload));
    MetaSong song = imported(file);
    QCOMPARE(infoOf(song).length, 60);
    QVERIFY(song.saveToFile(file));
    const QByteArray saved = readFile(file);
    QCOMPARE(payloadOf(saved), withTrackHead(midi(kravoEvent(4, "60"))));
    QCOMPARE(littleEndianAt(saved, 4), static_cast<quint32>(saved.size()));

    SongInfo info = infoOf(song);
    info.length = 215;
    song.setSongInfo(info, true);
    QVERIFY(song.saveToFile(file));
    QCOMPARE(payloadOf(readFile(file)), withTrackHead(midi(kravoEvent(4, "215"))));
}

void TestMetaSongSave::mfxHeaderLearnsTheNewSizes()
{
    for (const QByteArray magic : {"_MF3", "_MF4", "_MF5"}) {
        const bool isMf4 = magic == "_MF4";
        const QByteArray music = midi(QByteArray());
        QByteArray file = mfxFile(magic, isMf4 ? withTrackHead(music) : music);
        file.replace(4, 4, "????");
        file.replace(12, 4, "????");
        const QString song = make("song.mfx", file + "bytes behind the stream");
        QVERIFY(imported(song).saveToFile(song));
        const QByteArray saved = readFile(song);
        const auto payloadSize = static_cast<quint32>(music.size() + (isMf4 ? 3 : 0));
        QCOMPARE(littleEndianAt(saved, 4), static_cast<quint32>(saved.size()));
        QCOMPARE(littleEndianAt(saved, 12), payloadSize);
        QCOMPARE(littleEndianAt(saved, mfxHeaderSize(magic)), payloadSize);
        QCOMPARE(payloadOf(saved), isMf4 ? withTrackHead(music) : music);
        QCOMPARE(saved.mid(8, 4), file.mid(8, 4));
        QCOMPARE(saved.mid(16, mfxHeaderSize(magic) - 16), file.mid(16, mfxHeaderSize(magic) - 16));
    }
}

void TestMetaSongSave::mfxPayloadLimit()
{
    const auto musicOf = [](qsizetype size) {
        const QByteArray empty = midi(QByteArray());
        return midi(QByteArray(size - empty.size(), '\0'));
    };
    const QString file = make("song.mf4", mfxFile("_MF4", withTrackHead(musicOf(499997))));
    MetaSong song = imported(file);
    QVERIFY(song.saveToFile(file));
    QCOMPARE(payloadOf(readFile(file)), withTrackHead(musicOf(499997)));

    const QByteArray before = readFile(file);
    song.setSongInfo(SongInfo(), true);
    const LogCapture log;
    QVERIFY(!song.saveToFile(file));
    QVERIFY(logged("[MetaSong::saveToFile] Too much data for the format, aborting "));
    QCOMPARE(readFile(file), before);
    QVERIFY(!song.saveToFile(path(QStringLiteral("new.mf4"))));
    QCOMPARE(files().size(), 1);
}

void TestMetaSongSave::mp3WithoutATagGetsOne()
{
    const QString file = make("song.mp3", audio);
    MetaSong song = imported(file);
    QVERIFY(song.saveToFile(file));
    QCOMPARE(readFile(file), QByteArray("ID3\x03\x00\x00\x00\x00\x00\x00", 10) + audio);
}

void TestMetaSongSave::mp3SavedTwiceKeepsItsAudio()
{
    const QString file = make("song.mp3", audio);
    MetaSong song = imported(file);
    const QByteArray mark = id3Frame("MEDT", QByteArray(3, '\0'));
    SongInfo info;
    info.title = QStringLiteral("first");
    song.setSongInfo(info, true);
    QVERIFY(song.saveToFile(file));
    QCOMPARE(readFile(file), id3Tag(mark + id3Frame("TIT2", "first")) + audio);
    for (const int size : {300, 1, 40}) {
        info.title = QString(size, QLatin1Char('t'));
        song.setSongInfo(info, true);
        QVERIFY(song.saveToFile(file));
        QVERIFY(song.saveToFile(file));
        QCOMPARE(readFile(file), id3Tag(id3Frame("TIT2", QByteArray(size, 't')) + mark) + audio);
    }
}

void TestMetaSongSave::copiesOfAnMp3SongSaveInTurn()
{
    const QString file = make("song.mp3", id3Tag(id3Frame("TIT2", "Song")) + audio);
    MetaSong first = imported(file);
    MetaSong second = first;
    first.setSongInfo(fullRecord(), true);
    QVERIFY(first.saveToFile(file));
    QVERIFY(second.saveToFile(file));
    QCOMPARE(readFile(file), id3Tag(id3Frame("TIT2", "Song")) + audio);
}

void TestMetaSongSave::tagThatCouldNotBeReadAgainIsNotSaved()
{
    const QByteArray tag = id3Tag(id3Frame("APIC", QByteArray(999900, '\x4D')));
    const QString file = make("song.mp3", tag + audio);
    MetaSong song = imported(file);
    SongInfo info;
    info.title = QString(200, QLatin1Char('t'));
    song.setSongInfo(info, true);
    const LogCapture log;
    QVERIFY(!song.saveToFile(file));
    QVERIFY(logged("[MetaSong::saveToFile] Too much data for the format, aborting "));
    QCOMPARE(readFile(file), tag + audio);
    QCOMPARE(files().size(), 1);
}

void TestMetaSongSave::savesUnderAnotherPath_data()
{
    everyFormat();
}

void TestMetaSongSave::savesUnderAnotherPath()
{
    QFETCH(QString, format);
    const QByteArray bytes = songFile(format, Items());
    const QString file = make(fileNameFor(format), bytes);
    MetaSong song = imported(file);
    SongInfo info;
    info.title = QStringLiteral("Changed");
    song.setSongInfo(info, false);
    const QString fresh = path(QStringLiteral("fresh.mp3"));
    const QString other = make("other.mp3", QByteArray(100000, 'x'));
    for (const QString &target : {fresh, other}) {
        QVERIFY(song.saveToFile(target));
        QCOMPARE(infoOf(imported(target)).title, QStringLiteral("Changed"));
        QCOMPARE(infoOf(imported(target)).format, format);
    }
    QCOMPARE(readFile(fresh), readFile(other));
    QCOMPARE(readFile(file), bytes);
    if (format == QLatin1String("MP3"))
        QVERIFY(readFile(fresh).endsWith(audio));
    QCOMPARE(files().size(), 3);
}

void TestMetaSongSave::savesThroughASymbolicLink_data()
{
    everyFormat();
}

void TestMetaSongSave::savesThroughASymbolicLink()
{
    QFETCH(QString, format);
    const QString real = make(fileNameFor(format), songFile(format, Items()));
    const QString link = path(QStringLiteral("link.mp3"));
    QVERIFY(QFile::link(real, link));
    MetaSong song = imported(link);
    SongInfo info;
    info.title = QStringLiteral("Changed");
    song.setSongInfo(info, true);
    QVERIFY(song.saveToFile(link));
    QVERIFY(QFileInfo(link).isSymLink());
    QVERIFY(!QFileInfo(real).isSymLink());
    QCOMPARE(infoOf(imported(real)).title, QStringLiteral("Changed"));
    QCOMPARE(files().size(), 2);
}

void TestMetaSongSave::logsTheSave()
{
    {
        const QString file = make("song.mid", midi(QByteArray()));
        MetaSong song = imported(file);
        const LogCapture log;
        QVERIFY(song.saveToFile(file));
        QCOMPARE(LogCapture::lines(), QStringList(QStringLiteral("[MetaSong::saveToFile] MIDI ")));
    }
    {
        const QString file = make("song.mf3", mfxFile("_MF3", midi(QByteArray())));
        MetaSong song = imported(file);
        const LogCapture log;
        QVERIFY(song.saveToFile(file));
        QCOMPARE(LogCapture::lines().first(), QStringLiteral("[MetaSong::saveToFile] MFx "));
    }
    {
        const QString file = make("song.mp3", audio);
        MetaSong song = imported(file);
        const LogCapture log;
        QVERIFY(song.saveToFile(file));
        QCOMPARE(LogCapture::lines(), QStringList());
    }
}

QTEST_APPLESS_MAIN(TestMetaSongSave)

#include "test_metasong_save.moc"
