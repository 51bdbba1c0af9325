// The song file facade: which files are songs, what they say, how records are merged, what a save
// leaves on the disk. MFX payloads are packed and unpacked by the tests' own coder.
#include "formats/metasong.h"
#include "storage/songjournal.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/lzhufreference.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <random>
#include <sys/stat.h>

using samplesongs::readFile;
using songbytes::bigEndian;
using songbytes::id3Frame;
using songbytes::id3Tag;
using songbytes::kravoEvent;
using songbytes::littleEndian;
using songbytes::markerEvent;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;

namespace
{

const QByteArray audio = QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(700, '\x5A') + "the end";

QString latin1(const QByteArray &text)
{
    return QString::fromLatin1(text);
}

QByteArray midi(const QByteArray &events, int format = 0)
{
    return midiFile({track(events + notes())}, format);
}

/** The fields of an MFX header that the tests set; the rest is filled with a pattern. */
struct MfxFields {
    QByteArray title;
    QByteArray author;
    QByteArray artist;
    QByteArray genre;
    int tempo = 120;
    char flags = 0;
};

qsizetype mfxHeaderSize(const QByteArray &magic)
{
    return magic == "_MF5" ? 1024 : 512;
}

QByteArray mfxHeader(const QByteArray &magic, const MfxFields &fields)
{
    QByteArray header(mfxHeaderSize(magic), '\x77');
    const auto put = [&header](int offset, const QByteArray &bytes, int size) {
        header.replace(offset, size, bytes.leftJustified(size, '\0'));
    };
    put(0, magic, 4);
    put(38, littleEndian(static_cast<quint32>(fields.tempo), 2), 2);
    put(42, "LONGNAME.MF3", 13);
    put(90, "(c) someone", 20);
    put(122, fields.title, 32);
    put(154, "editor", 31);
    put(185, QByteArray(1, fields.flags), 1);
    put(186, fields.author, 32);
    put(218, fields.artist, 32);
    put(250, fields.genre, 32);
    return header;
}

/** An MFX file with this payload as it stands (an "_MF4" one with its three bytes included). */
QByteArray mfxFile(const QByteArray &magic, const QByteArray &payload, const MfxFields &fields = {})
{
    lzhufreference::StreamWriter writer(lzhufreference::mfxLookAhead);
    lzhufreference::encode(payload, lzhufreference::mfxLookAhead, writer);
    const auto size = static_cast<quint32>(payload.size());
    QByteArray file = mfxHeader(magic, fields) + littleEndian(size, 4) + writer.bytes();
    file.replace(4, 4, littleEndian(static_cast<quint32>(file.size()), 4));
    file.replace(12, 4, littleEndian(size, 4));
    return file;
}

quint32 littleEndianAt(const QByteArray &bytes, qsizetype pos)
{
    quint32 value = 0;
    for (int i = 3; i >= 0; --i)
        value = (value << 8) | static_cast<quint8>(bytes.at(pos + i));
    return value;
}

QByteArray payloadOf(const QByteArray &mfx)
{
    const qsizetype stream = mfxHeaderSize(mfx.left(4));
    const qsizetype size = littleEndianAt(mfx, stream);
    return lzhufreference::decode(mfx.mid(stream + 4), size, lzhufreference::mfxLookAhead).text;
}

/** The MIDI data with the three bytes that stand in an "_MF4" payload. */
QByteArray withTrackHead(QByteArray midiBytes)
{
    midiBytes.insert(midiBytes.indexOf("MTrk") + 8, QByteArray("\xFF\x00\xFF", 3));
    return midiBytes;
}

/** The items of a song file; a null text is not in the file at all. */
struct Items {
    QByteArray title;
    QByteArray artist;
    QByteArray author;
    QByteArray genre;
    QByteArray userBpm;
    QByteArray key; ///< two bytes in MIDI data, a name in a tag
    QByteArray length;
};

QByteArray Items::*itemMember(const QString &item)
{
    static const QMap<QString, QByteArray Items::*> members = {
        {QStringLiteral("title"), &Items::title},     {QStringLiteral("artist"), &Items::artist},
        {QStringLiteral("author"), &Items::author},   {QStringLiteral("genre"), &Items::genre},
        {QStringLiteral("userBpm"), &Items::userBpm}, {QStringLiteral("key"), &Items::key},
        {QStringLiteral("length"), &Items::length}};
    return members.value(item);
}

QByteArray midiEvents(const Items &items)
{
    QByteArray events;
    if (!items.title.isNull())
        events += metaEvent(0x03, items.title);
    if (!items.artist.isNull())
        events += kravoEvent(2, items.artist);
    if (!items.author.isNull())
        events += kravoEvent(3, items.author);
    if (!items.genre.isNull())
        events += kravoEvent(1, items.genre);
    if (!items.userBpm.isNull())
        events += kravoEvent(5, items.userBpm);
    if (!items.key.isNull())
        events += metaEvent(0x59, items.key);
    if (!items.length.isNull())
        events += kravoEvent(4, items.length);
    return events;
}

QByteArray tagFrames(const Items &items)
{
    QByteArray frames;
    const auto add = [&frames](const char *id, const QByteArray &text) {
        if (!text.isNull())
            frames += id3Frame(id, text);
    };
    add("TIT2", items.title);
    add("TPE1", items.artist);
    add("TCOM", items.author);
    add("TCON", items.genre);
    add("TBPM", items.userBpm);
    add("TKEY", items.key);
    add("TLEN", items.length);
    return frames;
}

/** A song file of the format with these items; MFX files keep the texts and the tempo in the
 * header, the rest in the payload. */
QByteArray songFile(const QString &format, const Items &items)
{
    if (format == QLatin1String("MIDI"))
        return midi(midiEvents(items));
    if (format == QLatin1String("MP3"))
        return id3Tag(tagFrames(items)) + audio;
    MfxFields fields;
    fields.title = items.title;
    fields.author = items.author;
    fields.artist = items.artist;
    fields.genre = items.genre;
    fields.tempo = items.userBpm.toInt();
    Items inPayload;
    inPayload.key = items.key;
    inPayload.length = items.length;
    const QByteArray payload = midi(midiEvents(inPayload));
    if (format == QLatin1String("MF4"))
        return mfxFile("_MF4", withTrackHead(payload), fields);
    return mfxFile("_" + format.toLatin1(), payload, fields);
}

QString fileNameFor(const QString &format)
{
    return QStringLiteral("song.") +
           (format == QLatin1String("MIDI") ? QStringLiteral("mid") : format.toLower());
}

void setItem(SongInfo &info, const QString &item, const QString &value)
{
    if (item == QLatin1String("title"))
        info.title = value;
    else if (item == QLatin1String("artist"))
        info.artist = value;
    else if (item == QLatin1String("author"))
        info.author = value;
    else if (item == QLatin1String("genre"))
        info.genre = value;
    else if (item == QLatin1String("key"))
        info.key = value;
    else if (item == QLatin1String("userBpm"))
        info.userBpm = value.toInt();
    else if (item == QLatin1String("length"))
        info.length = value.toInt();
}

QString itemOf(const SongInfo &info, const QString &item)
{
    if (item == QLatin1String("userBpm"))
        return QString::number(info.userBpm);
    if (item == QLatin1String("length"))
        return QString::number(info.length);
    const QMap<QString, QString> texts = {{QStringLiteral("title"), info.title},
                                          {QStringLiteral("artist"), info.artist},
                                          {QStringLiteral("author"), info.author},
                                          {QStringLiteral("genre"), info.genre},
                                          {QStringLiteral("key"), info.key}};
    return texts.value(item);
}

SongInfo infoOf(const MetaSong &song)
{
    SongInfo info;
    song.getSongInfo(info);
    return info;
}

/** A record with everything in it. */
SongInfo fullRecord()
{
    SongInfo info;
    info.title = QStringLiteral("Blue Moon");
    info.artist = QStringLiteral("The Band");
    info.author = QStringLiteral("Bach");
    info.genre = QStringLiteral("Pop");
    info.length = 215;
    info.userBpm = 128;
    info.key = QStringLiteral("E -");
    info.isKravo = true;
    info.markers = {{1, QStringLiteral("Intro")}, {9, QStringLiteral("Verse")}};
    return info;
}

const char *const writeProtected = "[MetaSong::saveToFile] Impossible to write to file. Maybe it's "
                                   "write protected? Aborting! ";
const char *const cannotWrite = "[MetaSong::saveToFile] Impossible to write to file. ";
const char *const unknownFormat =
    "[MetaSong::saveToFile] UNKNOWN format (or data corrupted) in memory, aborting ";

bool logged(const char *line)
{
    return LogCapture::contains(QString::fromLatin1(line));
}

} // namespace

class TestMetaSong : public QObject
{
    Q_OBJECT

private slots:
    void init();

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

    // Merging
    void fillsWhatIsMissing_data();
    void fillsWhatIsMissing();
    void mergesTheArtist_data();
    void mergesTheArtist();
    void logsTheMode();
    void newEventsStandInTheirOrder();
    void newFramesStandInTheirOrder();
    void zeroAndEmptyAreWrittenToo();
    void markersAreAddedOnlyToASongWithout_data();
    void markersAreAddedOnlyToASongWithout();
    void markersDoNotCostTheAuthor_data();
    void markersDoNotCostTheAuthor();
    void recordWithoutMarkersLeavesTheAuthorAlone();
    void manualModeWritesEverythingButMarkers_data();
    void manualModeWritesEverythingButMarkers();
    void manualModeWritesEmptyItemsToo();
    void manualTempoStandsInTheMfxHeader_data();
    void manualTempoStandsInTheMfxHeader();
    void markersFlagFollowsTheRecord_data();
    void markersFlagFollowsTheRecord();
    void editMarkIsAddedOnce();
    void copyIsASongOfItsOwn();

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
    void nothingLoadedIsNotSaved();
    void saveToAFolderFails_data();
    void saveToAFolderFails();
    void saveWithoutRightsFails();
    void vanishedMp3SourceFails();
    void shrunkMp3SourceFails();
    void failedSaveKeepsTheOldFile_data();
    void failedSaveKeepsTheOldFile();
    void importUndoesASaveThatWasCutOff();
    void songThatCannotBePutBackIsNotImported();
    void filesBesideASongThatIsSavedAreNoSongs();

    void debugMarker();
    void readOnlyFlagIsQuietElsewhere();
    void damagedFilesNeverDoHarm();

private:
    QString path(const QString &name) const { return m_dir->filePath(name); }
    QString make(const QString &name, const QByteArray &bytes) const
    {
        if (!samplesongs::writeFile(path(name), bytes))
            qFatal("cannot make a file for a test");
        return path(name);
    }
    QString make(const char *name, const QByteArray &bytes) const
    {
        return make(QString::fromUtf8(name), bytes);
    }
    MetaSong imported(const QString &file) const
    {
        MetaSong song;
        if (!song.importFile(file))
            qFatal("a song made for a test was refused");
        return song;
    }
    QStringList files() const
    {
        return QDir(m_dir->path())
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    }

    QScopedPointer<QTemporaryDir> m_dir;
};

void TestMetaSong::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
}

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

void TestMetaSong::fillsWhatIsMissing_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("record");
    QTest::addColumn<bool>("isKravo");
    QTest::addColumn<QString>("expected");
    const QByteArray none;
    const QByteArray empty("");
    const auto row = [](const char *format, const char *item, const char *what,
                        const QByteArray &file, const char *record, bool isKravo,
                        const char *expected) {
        QTest::addRow("%s %s: %s", format, item, what)
            << latin1(format) << latin1(item) << file << latin1(record) << isKravo
            << latin1(expected);
    };

    row("MIDI", "title", "none", none, "Blue Moon", false, "Blue Moon");
    row("MIDI", "title", "empty", empty, "Blue Moon", false, "Blue Moon");
    row("MIDI", "title", "shortened", "BLUE M", "Blue Moon", false, "Blue Moon");
    row("MIDI", "title", "in another case", "blue moon", "Blue Moon", false, "Blue Moon");
    row("MIDI", "title", "longer", "Blue Moon II", "Blue Moon", false, "Blue Moon II");
    row("MIDI", "title", "another", "Moon", "Blue Moon", true, "Moon");
    row("MP3", "title", "none", none, "Blue Moon", false, "Blue Moon");
    row("MP3", "title", "empty", empty, "Blue Moon", false, "");
    row("MP3", "title", "shortened", "Blue", "Blue Moon", true, "Blue");
    for (const char *format : {"MIDI", "MP3"}) {
        for (const char *item : {"author", "genre"}) {
            row(format, item, "none", none, "New", false, "New");
            row(format, item, "empty", empty, "New", true, "");
            row(format, item, "dash", "-", "New", true, "-");
            row(format, item, "another", "Old", "New", true, "Old");
        }
    }
    for (const char *format : {"MF3", "MF4", "MF5"}) {
        for (const char *item : {"title", "author", "genre"}) {
            row(format, item, "empty", empty, "New", false, "New");
            row(format, item, "dash", "-", "New", false, "New");
            row(format, item, "two dashes", "--", "New", false, "New");
            row(format, item, "three dashes", "---", "New", true, "---");
            row(format, item, "shortened", "Ne", "New", true, "Ne");
            row(format, item, "another", "Old", "New", true, "Old");
            row(format, item, "dash, nothing in the record", "-", "", true, "");
        }
        row(format, "userBpm", "not set", "0", "128", false, "128");
        row(format, "userBpm", "too fast", "500", "128", false, "128");
        row(format, "userBpm", "slowest", "1", "128", true, "1");
        row(format, "userBpm", "fastest", "499", "128", true, "499");
        row(format, "userBpm", "too fast, 0 in the record", "500", "0", true, "0");
        row(format, "userBpm", "negative in the record", "500", "-1", true, "500");
    }
    for (const char *format : {"MIDI", "MP3"}) {
        row(format, "userBpm", "none, publisher", none, "128", true, "128");
        row(format, "userBpm", "none, no publisher", none, "128", false, "0");
        row(format, "userBpm", "none, negative", none, "-1", true, "0");
        row(format, "userBpm", "another", "90", "128", true, "90");
        row(format, "userBpm", "no number", "fast", "128", true, "0");
    }
    for (const char *format : {"MIDI", "MF3", "MF4", "MF5", "MP3"}) {
        const bool isMp3 = qstrcmp(format, "MP3") == 0;
        const QByteArray gMajor = isMp3 ? QByteArray("G") : QByteArray("\x01\x00", 2);
        const QByteArray unknown = isMp3 ? QByteArray("?") : QByteArray("\x08\x00", 2);
        const QByteArray length = isMp3 ? "60000" : "60";
        row(format, "key", "none, publisher", none, "E", true, "E");
        row(format, "key", "none, no publisher", none, "E", false, "");
        row(format, "key", "none, nothing in the record", none, "", true, "");
        row(format, "key", "another", gMajor, "E", true, "G");
        row(format, "key", "unknown", unknown, "E", true, isMp3 ? "?" : "");
        row(format, "length", "none, publisher", none, "215", true, "215");
        row(format, "length", "none, no publisher", none, "215", false, "0");
        row(format, "length", "none, negative", none, "-1", true, "0");
        row(format, "length", "another", length, "215", true, "60");
        row(format, "length", "no number", "long", "215", true, "0");
    }
}

void TestMetaSong::fillsWhatIsMissing()
{
    QFETCH(QString, format);
    QFETCH(QString, item);
    QFETCH(QByteArray, file);
    QFETCH(QString, record);
    QFETCH(bool, isKravo);
    QFETCH(QString, expected);
    Items items;
    items.*itemMember(item) = file;
    const QString song = make(fileNameFor(format), songFile(format, items));
    MetaSong merged = imported(song);
    SongInfo info;
    setItem(info, item, record);
    info.isKravo = isKravo;
    merged.setSongInfo(info, false);
    QCOMPARE(itemOf(infoOf(merged), item), expected);
    QVERIFY(merged.saveToFile(song));
    QCOMPARE(itemOf(infoOf(imported(song)), item), expected);
}

void TestMetaSong::mergesTheArtist_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("artist");
    QTest::addColumn<QString>("altArtist");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *format, const char *what, const QByteArray &file,
                        const char *artist, const char *altArtist, const char *expected) {
        QTest::addRow("%s: %s", format, what)
            << latin1(format) << file << latin1(artist) << latin1(altArtist) << latin1(expected);
    };
    const QByteArray none;
    for (const char *format : {"MIDI", "MF3", "MF4", "MF5", "MP3"}) {
        row(format, "the alternative one stays", "Alt", "Main", "Alt", "Alt");
        row(format, "the main one gives way", "Main", "Main", "Alt", "Alt");
        row(format, "another one becomes the main one", "Other", "Main", "Alt", "Main");
        row(format, "another case is another one", "MAIN", "Main", "Alt", "Main");
        row(format, "the main one, no alternative", "Main", "Main", "", "Main");
        row(format, "another one, no alternative", "Other", "Main", "", "Main");
        row(format, "another one, no artist at all", "Other", "", "", "");
        row(format, "none", none, "Main", "Alt", "Alt");
        row(format, "none, no alternative", none, "Main", "", "Main");
        row(format, "none, only an alternative", none, "", "Alt", "Alt");
    }
    for (const char *format : {"MF3", "MF4", "MF5"}) {
        row(format, "dash", "-", "Main", "Alt", "Alt");
        row(format, "two dashes", "--", "Main", "Alt", "Alt");
        row(format, "dash, no alternative", "-", "Main", "", "");
        row(format, "two dashes, no alternative", "--", "Main", "", "");
        row(format, "dash is the main one", "-", "-", "", "");
        row(format, "dash is the alternative one", "-", "Main", "-", "-");
        row(format, "three dashes", "---", "Main", "Alt", "Main");
    }
    for (const char *format : {"MIDI", "MP3"}) {
        row(format, "dash is a name like any other", "-", "Main", "", "Main");
        row(format, "empty equals no alternative", QByteArray(""), "Main", "", "");
        row(format, "empty is another one", QByteArray(""), "Main", "Alt", "Main");
    }
}

void TestMetaSong::mergesTheArtist()
{
    QFETCH(QString, format);
    QFETCH(QByteArray, file);
    QFETCH(QString, artist);
    QFETCH(QString, altArtist);
    QFETCH(QString, expected);
    Items items;
    items.artist = file;
    MetaSong song = imported(make(fileNameFor(format), songFile(format, items)));
    SongInfo info;
    info.artist = artist;
    info.altArtist = altArtist;
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).artist, expected);
    song.setSongInfo(info, true);
    QCOMPARE(infoOf(song).artist, artist);
}

void TestMetaSong::logsTheMode()
{
    MetaSong song = imported(make("song.mid", midi(QByteArray())));
    const LogCapture log;
    song.setSongInfo(SongInfo(), true);
    song.setSongInfo(SongInfo(), false);
    QCOMPARE(LogCapture::lines(),
             QStringList({QStringLiteral("[MetaSong] setSongInfo, manual:  true "),
                          QStringLiteral("[MetaSong] setSongInfo, manual:  false ")}));
}

void TestMetaSong::newEventsStandInTheirOrder()
{
    // Each event is written at the head of the track: the one that was written first stands last.
    const QByteArray texts = kravoEvent(1, "Pop") + kravoEvent(3, "Bach") +
                             kravoEvent(2, "The Band") + metaEvent(3, "Blue Moon");
    const QByteArray textsWithoutAuthor =
        kravoEvent(1, "Pop") + kravoEvent(2, "The Band") + metaEvent(3, "Blue Moon");
    const QByteArray numbers =
        kravoEvent(4, "215") + metaEvent(0x59, QByteArray("\x01\x01", 2)) + kravoEvent(5, "128");
    const QByteArray markers = markerEvent(1, "Intro") + markerEvent(9, "Verse");
    const QString file = path(QStringLiteral("song.mid"));
    const auto merged = [this, &file](const SongInfo &info, bool manual) {
        MetaSong song = imported(make("song.mid", midi(QByteArray())));
        song.setSongInfo(info, manual);
        return song.saveToFile(file) ? readFile(file) : QByteArray();
    };

    SongInfo info = fullRecord();
    QCOMPARE(merged(info, false),
             midi(kravoEvent(3, "Bach") + markers + numbers + textsWithoutAuthor));
    QCOMPARE(merged(info, true), midi(numbers + texts));
    info.markers.clear();
    QCOMPARE(merged(info, false), midi(numbers + texts));
    info.isKravo = false;
    QCOMPARE(merged(info, false), midi(texts));
}

void TestMetaSong::newFramesStandInTheirOrder()
{
    const QString file = make("song.mp3", id3Tag(id3Frame("TALB", "Album")) + audio);
    MetaSong song = imported(file);
    song.setSongInfo(fullRecord(), false);
    QVERIFY(song.saveToFile(file));
    const QByteArray frames = id3Frame("MEDT", QByteArray(3, '\0')) + id3Frame("TLEN", "215000") +
                              id3Frame("TKEY", "E -") + id3Frame("TBPM", "128") +
                              id3Frame("TCON", "Pop") + id3Frame("TCOM", "Bach") +
                              id3Frame("TPE1", "The Band") + id3Frame("TIT2", "Blue Moon") +
                              id3Frame("TALB", "Album");
    QCOMPARE(readFile(file), id3Tag(frames) + audio);
}

void TestMetaSong::zeroAndEmptyAreWrittenToo()
{
    const QString file = make("song.mid", midi(QByteArray()));
    MetaSong song = imported(file);
    SongInfo info;
    info.isKravo = true;
    song.setSongInfo(info, false);
    QVERIFY(song.saveToFile(file));
    QCOMPARE(readFile(file), midi(kravoEvent(4, "0") + kravoEvent(5, "0") + kravoEvent(1, "") +
                                  kravoEvent(3, "") + kravoEvent(2, "") + metaEvent(3, "")));
}

void TestMetaSong::markersAreAddedOnlyToASongWithout_data()
{
    QTest::addColumn<QString>("format");
    for (const char *format : {"MIDI", "MF3", "MF4", "MF5"})
        QTest::newRow(format) << latin1(format);
}

void TestMetaSong::markersAreAddedOnlyToASongWithout()
{
    QFETCH(QString, format);
    SongInfo info;
    info.markers = fullRecord().markers;
    const auto fileWith = [&format](const QByteArray &events) {
        const QByteArray payload = midi(events);
        if (format == QLatin1String("MIDI"))
            return payload;
        const bool isMf4 = format == QLatin1String("MF4");
        return mfxFile("_" + format.toLatin1(), isMf4 ? withTrackHead(payload) : payload);
    };
    MetaSong without = imported(make("without.mid", fileWith(QByteArray())));
    without.setSongInfo(info, false);
    QCOMPARE(infoOf(without).markers.size(), 2);
    QCOMPARE(infoOf(without).markers.first().bar, quint16{1});
    QCOMPARE(infoOf(without).markers.last().text, QStringLiteral("Verse"));

    MetaSong with = imported(make("with.mid", fileWith(markerEvent(5, "Solo"))));
    with.setSongInfo(info, false);
    QCOMPARE(infoOf(with).markers.size(), 1);
    QCOMPARE(infoOf(with).markers.first().text, QStringLiteral("Solo"));
}

void TestMetaSong::markersDoNotCostTheAuthor_data()
{
    QTest::addColumn<QByteArray>("author");
    QTest::addColumn<QString>("expected");
    QTest::newRow("author of the song") << kravoEvent(3, "Handel") << "Handel";
    QTest::newRow("empty author of the song") << kravoEvent(3, "") << "";
    QTest::newRow("author of the catalogue") << QByteArray() << "Bach";
}

void TestMetaSong::markersDoNotCostTheAuthor()
{
    QFETCH(QByteArray, author);
    QFETCH(QString, expected);
    SongInfo info;
    info.author = QStringLiteral("Bach");
    info.markers = fullRecord().markers;

    MetaSong song = imported(make("song.mid", midi(author)));
    song.setSongInfo(info, false);
    QCOMPARE(infoOf(song).author, expected);
    QCOMPARE(infoOf(song).markers.size(), 2);
    QVERIFY(song.saveToFile(path(QStringLiteral("song.mid"))));
    QCOMPARE(readFile(path(QStringLiteral("song.mid")))
                 .count(QByteArray("\xFF\x4B") + static_cast<char>(expected.size() + 1) + "\x03"),
             1);

    // In an MFX file the author stands in the header; what the payload says of it stays as well.
    MetaSong mfx = imported(make("song.mf3", mfxFile("_MF3", midi(author))));
    mfx.setSongInfo(info, false);
    QCOMPARE(infoOf(mfx).author, QStringLiteral("Bach"));
    QVERIFY(mfx.saveToFile(path(QStringLiteral("song.mf3"))));
    const QByteArray markers = markerEvent(1, "Intro") + markerEvent(9, "Verse");
    QCOMPARE(payloadOf(readFile(path(QStringLiteral("song.mf3")))), midi(author + markers));
}

void TestMetaSong::recordWithoutMarkersLeavesTheAuthorAlone()
{
    const QByteArray events = metaEvent(1, "first") + kravoEvent(3, "Handel") +
                              metaEvent(3, "Title") + kravoEvent(2, "Someone") +
                              kravoEvent(1, "Pop");
    const QString file = make("song.mid", midi(events));
    MetaSong song = imported(file);
    SongInfo info;
    info.artist = QStringLiteral("Other");
    info.altArtist = QStringLiteral("Someone");
    info.title = QStringLiteral("Another");
    song.setSongInfo(info, false);
    QVERIFY(song.saveToFile(file));
    QCOMPARE(readFile(file), midi(events));
}

void TestMetaSong::manualModeWritesEverythingButMarkers_data()
{
    QTest::addColumn<QString>("format");
    for (const char *format : {"MIDI", "MF3", "MF4", "MF5", "MP3"})
        QTest::newRow(format) << latin1(format);
}

void TestMetaSong::manualModeWritesEverythingButMarkers()
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

void TestMetaSong::manualModeWritesEmptyItemsToo()
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

void TestMetaSong::manualTempoStandsInTheMfxHeader_data()
{
    QTest::addColumn<int>("bpm");
    QTest::addColumn<int>("stored");
    QTest::newRow("0") << 0 << 0;
    QTest::newRow("usual") << 128 << 128;
    QTest::newRow("out of range") << 600 << 600;
    QTest::newRow("largest") << 65535 << 65535;
}

void TestMetaSong::manualTempoStandsInTheMfxHeader()
{
    QFETCH(int, bpm);
    QFETCH(int, stored);
    MetaSong song = imported(make("song.mf5", mfxFile("_MF5", midi(QByteArray()))));
    SongInfo info;
    info.userBpm = bpm;
    song.setSongInfo(info, true);
    QCOMPARE(infoOf(song).userBpm, stored);
}

void TestMetaSong::markersFlagFollowsTheRecord_data()
{
    QTest::addColumn<bool>("manual");
    QTest::newRow("manual") << true;
    QTest::newRow("catalogue") << false;
}

void TestMetaSong::markersFlagFollowsTheRecord()
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

void TestMetaSong::editMarkIsAddedOnce()
{
    const QString file = make("song.mp3", id3Tag(id3Frame("TIT2", "Song")) + audio);
    for (const bool manual : {true, false, true}) {
        MetaSong song = imported(file);
        song.setSongInfo(infoOf(song), manual);
        QVERIFY(song.saveToFile(file));
        QCOMPARE(readFile(file).count("MEDT"), 1);
    }
}

void TestMetaSong::copyIsASongOfItsOwn()
{
    MetaSong song = imported(make("song.mid", midi(metaEvent(3, "Song"))));
    const MetaSong copy = song;
    SongInfo info = infoOf(song);
    info.title = QStringLiteral("Changed");
    song.setSongInfo(info, true);
    QCOMPARE(infoOf(song).title, QStringLiteral("Changed"));
    QCOMPARE(infoOf(copy).title, QStringLiteral("Song"));
}

void TestMetaSong::savesUnchanged_data()
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

void TestMetaSong::savesUnchanged()
{
    QFETCH(QByteArray, bytes);
    const QString file = make("song.mp3", bytes);
    QVERIFY(imported(file).saveToFile(file));
    QCOMPARE(readFile(file), bytes);
    QCOMPARE(files(), QStringList(QStringLiteral("song.mp3")));
}

void TestMetaSong::mf4KeepsItsTrackHead()
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

void TestMetaSong::mfxHeaderLearnsTheNewSizes()
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

void TestMetaSong::mfxPayloadLimit()
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

void TestMetaSong::mp3WithoutATagGetsOne()
{
    const QString file = make("song.mp3", audio);
    MetaSong song = imported(file);
    QVERIFY(song.saveToFile(file));
    QCOMPARE(readFile(file), QByteArray("ID3\x03\x00\x00\x00\x00\x00\x00", 10) + audio);
}

void TestMetaSong::mp3SavedTwiceKeepsItsAudio()
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

void TestMetaSong::copiesOfAnMp3SongSaveInTurn()
{
    const QString file = make("song.mp3", id3Tag(id3Frame("TIT2", "Song")) + audio);
    MetaSong first = imported(file);
    MetaSong second = first;
    first.setSongInfo(fullRecord(), true);
    QVERIFY(first.saveToFile(file));
    QVERIFY(second.saveToFile(file));
    QCOMPARE(readFile(file), id3Tag(id3Frame("TIT2", "Song")) + audio);
}

void TestMetaSong::tagThatCouldNotBeReadAgainIsNotSaved()
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

void TestMetaSong::savesUnderAnotherPath_data()
{
    manualModeWritesEverythingButMarkers_data();
}

void TestMetaSong::savesUnderAnotherPath()
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

void TestMetaSong::savesThroughASymbolicLink_data()
{
    manualModeWritesEverythingButMarkers_data();
}

void TestMetaSong::savesThroughASymbolicLink()
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

void TestMetaSong::logsTheSave()
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

void TestMetaSong::nothingLoadedIsNotSaved()
{
    const QString file = make("song.mid", midi(QByteArray()));
    const LogCapture log;
    QVERIFY(!MetaSong().saveToFile(file));
    QCOMPARE(LogCapture::lines(), QStringList(latin1(unknownFormat)));
    QCOMPARE(readFile(file), midi(QByteArray()));
}

void TestMetaSong::saveToAFolderFails_data()
{
    manualModeWritesEverythingButMarkers_data();
}

void TestMetaSong::saveToAFolderFails()
{
    QFETCH(QString, format);
    const QString file = make(fileNameFor(format), songFile(format, Items()));
    MetaSong song = imported(file);
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder.mp3")));
    for (const char *target : {"folder.mp3", "missing/song.mp3"}) {
        const LogCapture log;
        QVERIFY(!song.saveToFile(path(latin1(target))));
        QCOMPARE(LogCapture::lines(), QStringList(latin1(writeProtected)));
    }
    QCOMPARE(files().size(), 2);
    QVERIFY(QDir(path(QStringLiteral("folder.mp3"))).isEmpty());
}

void TestMetaSong::saveWithoutRightsFails()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root, to own files that the test's user may not write");
    QCOMPARE(chmod(QFile::encodeName(m_dir->path()).constData(), 0755), 0);
    for (const char *format : {"MIDI", "MF5", "MP3"}) {
        const QByteArray bytes = songFile(latin1(format), Items());
        const QString file = make(fileNameFor(latin1(format)), bytes);
        QCOMPARE(chmod(QFile::encodeName(file).constData(), 0644), 0);
        MetaSong song = imported(file);
        {
            const LogCapture log;
            const faults::AnotherUser user;
            QVERIFY(!song.saveToFile(file));
            QCOMPARE(LogCapture::lines(), QStringList(latin1(writeProtected)));
        }
        QCOMPARE(readFile(file), bytes);
    }
    QCOMPARE(files().size(), 3);
}

void TestMetaSong::vanishedMp3SourceFails()
{
    const QString file = make("song.mp3", audio);
    MetaSong song = imported(file);
    QVERIFY(QFile::remove(file));
    for (const char *target : {"song.mp3", "other.mp3"}) {
        const LogCapture log;
        QVERIFY(!song.saveToFile(path(latin1(target))));
        QVERIFY(logged("[MetaSong::saveToFile] Impossible to read from file. "));
    }
    QCOMPARE(files(), QStringList());
}

void TestMetaSong::shrunkMp3SourceFails()
{
    const QByteArray tag = id3Tag(id3Frame("TIT2", "A title of some length"));
    const QString file = make("song.mp3", tag + audio);
    for (const qsizetype size : {tag.size() - 1, tag.size() - 20, qsizetype{3}, qsizetype{0}}) {
        make("song.mp3", tag + audio);
        MetaSong song = imported(file);
        make("song.mp3", tag.left(size));
        const LogCapture log;
        QVERIFY(!song.saveToFile(file));
        QCOMPARE(LogCapture::lines(),
                 QStringList(QStringLiteral("[MetaSong::saveToFile] Impossible to seek file. ")));
        QCOMPARE(readFile(file), tag.left(size));
        QCOMPARE(files().size(), 1);
    }
}

void TestMetaSong::failedSaveKeepsTheOldFile_data()
{
    manualModeWritesEverythingButMarkers_data();
}

void TestMetaSong::failedSaveKeepsTheOldFile()
{
    QFETCH(QString, format);
    const QString file = make(fileNameFor(format), songFile(format, Items()));
    QVERIFY(imported(file).saveToFile(file));
    const QByteArray before = readFile(file);
    // The first record leaves an MFX file as long as it was, the second one lets it grow.
    SongInfo sameSize;
    sameSize.title = QStringLiteral("Changed");
    for (const bool manual : {false, true}) {
        MetaSong song = imported(file);
        song.setSongInfo(manual ? fullRecord() : sameSize, manual);
        QVERIFY(song.saveToFile(path(QStringLiteral("whole"))));
        const qsizetype newSize = readFile(path(QStringLiteral("whole"))).size();
        QVERIFY(QFile::remove(path(QStringLiteral("whole"))));
        for (qsizetype writable = 0; writable < newSize; writable += 7) {
            bool saved = true;
            const LogCapture log;
            {
                const faults::FileSizeLimit limit(static_cast<quint64>(writable));
                saved = song.saveToFile(file);
            }
            QVERIFY(!saved);
            QVERIFY(logged(cannotWrite) ||
                    logged("[MetaSong::saveToFile] Impossible to copy part of file. "));
            QCOMPARE(readFile(file), before);
            QCOMPARE(files().size(), 1);
        }
    }
}

void TestMetaSong::importUndoesASaveThatWasCutOff()
{
    const QByteArray old = midi(metaEvent(0x03, "Old title"));
    const QByteArray written = midi(metaEvent(0x03, "New title"));
    const QString file = make("song.mid", written.left(27) + old.mid(27));
    const SongJournal::Content journal{old, written};
    make(".song.mid.kavena-journal", journal.encode());
    const LogCapture log;
    QCOMPARE(infoOf(imported(file)).title, QStringLiteral("Old title"));
    QCOMPARE(readFile(file), old);
    QCOMPARE(files().size(), 1);
    const QStringList told = LogCapture::lines().filter(file);
    QCOMPARE(told.size(), 1);
    QVERIFY(told.constFirst().contains(QStringLiteral("The last save was cut off")));
}

void TestMetaSong::songThatCannotBePutBackIsNotImported()
{
    const QByteArray old = midi(metaEvent(0x03, "Old title"));
    const QByteArray written = midi(metaEvent(0x03, "New title"));
    const QString file = make("song.mid", written.left(27) + old.mid(27));
    const SongJournal::Content journal{old, written};
    make(".song.mid.kavena-journal", journal.encode());
    const LogCapture log;
    {
        const faults::FileSizeLimit limit(10);
        QVERIFY(!MetaSong().importFile(file));
    }
    QCOMPARE(LogCapture::lines().filter(QStringLiteral("Impossible to put the old bytes")).size(),
             1);
    QCOMPARE(files().size(), 2);
    QVERIFY(MetaSong().importFile(file));
    QCOMPARE(readFile(file), old);
    QCOMPARE(files().size(), 1);
}

void TestMetaSong::filesBesideASongThatIsSavedAreNoSongs()
{
    const SongJournal::Content journal{midi(metaEvent(0x03, "Old title")), QByteArray()};
    const QString hidden = make(".song.mid.kavena-journal", journal.encode());
    QVERIFY(!MetaSong().importFile(hidden));
    const QString temporary = make("song.tmp", songFile(QStringLiteral("MP3"), Items()));
    QVERIFY(!MetaSong().importFile(temporary));
    QCOMPARE(files().size(), 2);
}

void TestMetaSong::debugMarker()
{
    const QString file = make("song.mid", midi(QByteArray()));
    MetaSong song = imported(file);
    {
        const LogCapture log;
        song.dbgAddMarker(QStringLiteral("Solo"), 300);
        QCOMPARE(LogCapture::lines(),
                 QStringList({QStringLiteral("[MetaSong] addMarker "),
                              QStringLiteral("Marker added, len=  11 "),
                              QStringLiteral("----------------------------------- "),
                              QStringLiteral(" ")}));
    }
    QVERIFY(song.saveToFile(file));
    QCOMPARE(readFile(file), midi(markerEvent(300, "Solo")));

    MetaSong mp3 = imported(make("song.mp3", audio));
    const LogCapture log;
    mp3.dbgAddMarker(QStringLiteral("Solo"), 300);
    QVERIFY(logged("Marker added, len=  0 "));
}

void TestMetaSong::readOnlyFlagIsQuietElsewhere()
{
#ifdef Q_OS_MACOS
    QSKIP("macOS runs chflags");
#endif
    const QString file = make("song.mid", midi(QByteArray()));
    const LogCapture log;
    MetaSong::removeReadOnlyFlag(file);
    QCOMPARE(LogCapture::lines(), QStringList());
    QCOMPARE(readFile(file), midi(QByteArray()));
}

void TestMetaSong::damagedFilesNeverDoHarm()
{
    std::mt19937 random(4711);
    Items items;
    items.title = "Blue";
    items.author = "Bach";
    items.userBpm = "128";
    int importedCount = 0;
    for (int round = 0; round < 400; ++round) {
        const QString format =
            QStringList{QStringLiteral("MIDI"), QStringLiteral("MF3"), QStringLiteral("MF4"),
                        QStringLiteral("MF5"), QStringLiteral("MP3")}
                .at(round % 5);
        QByteArray bytes = songFile(format, items);
        if (round % 3 == 0)
            bytes.truncate(static_cast<qsizetype>(random() % bytes.size()));
        for (auto i = random() % 12; i > 0 && bytes.size() > 4; --i)
            bytes[4 + static_cast<qsizetype>(random() % (bytes.size() - 4))] =
                static_cast<char>(random());
        const QString file = make("song.mp3", bytes);
        const LogCapture log;
        MetaSong song;
        if (!song.importFile(file))
            continue;
        ++importedCount;
        song.setSongInfo(fullRecord(), round % 2 == 0);
        if (song.saveToFile(file)) {
            QVERIFY(MetaSong().importFile(file));
            QCOMPARE(infoOf(imported(file)).title, infoOf(song).title);
            QCOMPARE(infoOf(imported(file)).length, infoOf(song).length);
        } else {
            QCOMPARE(readFile(file), bytes);
        }
        QCOMPARE(files().size(), 1);
    }
    QVERIFY(importedCount > 100);
}

QTEST_APPLESS_MAIN(TestMetaSong)
#include "test_metasong.moc"
