// How the song file facade merges a record into a song.
#include "formats/metasong.h"
#include "support/logcapture.h"
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

namespace
{

QByteArray Items::*itemMember(const QString &item)
{
    static const QMap<QString, QByteArray Items::*> members = {
        {QStringLiteral("title"), &Items::title},     {QStringLiteral("artist"), &Items::artist},
        {QStringLiteral("author"), &Items::author},   {QStringLiteral("genre"), &Items::genre},
        {QStringLiteral("userBpm"), &Items::userBpm}, {QStringLiteral("key"), &Items::key},
        {QStringLiteral("length"), &Items::length}};
    return members.value(item);
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

} // namespace

class TestMetaSongMerge : public SongFileFixture
{
    Q_OBJECT

private slots:
    void init() { SongFileFixture::init(); }

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
};

void TestMetaSongMerge::fillsWhatIsMissing_data()
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

void TestMetaSongMerge::fillsWhatIsMissing()
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

void TestMetaSongMerge::mergesTheArtist_data()
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

void TestMetaSongMerge::mergesTheArtist()
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

void TestMetaSongMerge::logsTheMode()
{
    MetaSong song = imported(make("song.mid", midi(QByteArray())));
    const LogCapture log;
    song.setSongInfo(SongInfo(), true);
    song.setSongInfo(SongInfo(), false);
    QCOMPARE(LogCapture::lines(),
             QStringList({QStringLiteral("[MetaSong] setSongInfo, manual:  true "),
                          QStringLiteral("[MetaSong] setSongInfo, manual:  false ")}));
}

void TestMetaSongMerge::newEventsStandInTheirOrder()
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

void TestMetaSongMerge::newFramesStandInTheirOrder()
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

void TestMetaSongMerge::zeroAndEmptyAreWrittenToo()
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

void TestMetaSongMerge::markersAreAddedOnlyToASongWithout_data()
{
    QTest::addColumn<QString>("format");
    for (const char *format : {"MIDI", "MF3", "MF4", "MF5"})
        QTest::newRow(format) << latin1(format);
}

void TestMetaSongMerge::markersAreAddedOnlyToASongWithout()
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

void TestMetaSongMerge::markersDoNotCostTheAuthor_data()
{
    QTest::addColumn<QByteArray>("author");
    QTest::addColumn<QString>("expected");
    QTest::newRow("author of the song") << kravoEvent(3, "Handel") << "Handel";
    QTest::newRow("empty author of the song") << kravoEvent(3, "") << "";
    QTest::newRow("author of the catalogue") << QByteArray() << "Bach";
}

void TestMetaSongMerge::markersDoNotCostTheAuthor()
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

void TestMetaSongMerge::recordWithoutMarkersLeavesTheAuthorAlone()
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

QTEST_APPLESS_MAIN(TestMetaSongMerge)

#include "test_metasong_merge.moc"
