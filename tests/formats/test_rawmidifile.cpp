// Metadata in the bytes of a MIDI file: every reader, every writer, and what hostile files do.
#include "formats/rawmidifile.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryFile>
#include <QTest>

#include <limits>

using songbytes::bigEndian;
using songbytes::kravoEvent;
using songbytes::markerEvent;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;

using Kravo = RawMidiFile::kRavoMetaTypeEnum;

namespace
{

// Where things stand in a file whose first track follows a header chunk of the usual 14 bytes.
constexpr int LengthPos = 18;
constexpr int EventsPos = 22;

// Bytes given as numbers, which string literals with zeros and hexadecimal escapes hide.
QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray out;
    for (const int value : values)
        out.append(static_cast<char>(value));
    return out;
}

/** A file of one track: these events, some music, "end of track". */
QByteArray songFile(const QByteArray &events)
{
    return midiFile({track(events + notes())});
}

/** A file whose data end right behind these bytes, the track length as given. */
QByteArray cutFile(const QByteArray &events, quint32 trackLength)
{
    return "MThd" + bytes({0, 0, 0, 6, 0, 0, 0, 1, 0, 96}) + "MTrk" + bigEndian(trackLength, 4) +
           events;
}

QByteArray cutFile(const QByteArray &events)
{
    return cutFile(events, static_cast<quint32>(events.size()));
}

RawMidiFile loaded(const QByteArray &file)
{
    RawMidiFile midi;
    if (!midi.loadData(file))
        qFatal("a test file was refused");
    return midi;
}

QByteArray storedLength(const RawMidiFile &midi)
{
    return midi.stream().mid(static_cast<qsizetype>(midi.trackLengthPos()), 4);
}

const QByteArray FullHead = kravoEvent(6, bytes({0, 1}) + "Intro") + markerEvent(17, "Chorus") +
                            kravoEvent(4, "215") + metaEvent(0x59, bytes({4, 0})) +
                            kravoEvent(5, "128") + kravoEvent(1, "Folk") +
                            kravoEvent(3, "Trad. author") + kravoEvent(2, "Some artist") +
                            metaEvent(0x02, "(c) K-Ravo 2012") + metaEvent(0x03, "My song");

void callEverything(RawMidiFile &midi)
{
    midi.title();
    midi.genre();
    midi.artist();
    midi.author();
    midi.length();
    midi.userBpm();
    midi.markersList();
    midi.key();
    midi.isKravo();
    midi.hasMarkers();
    midi.setTitle(QStringLiteral("t"));
    midi.setArtist(QStringLiteral("a"));
    midi.setAuthor(QStringLiteral("b"));
    midi.setGenre(QStringLiteral("g"));
    midi.setUserBpm(1);
    midi.setKey(QStringLiteral("C"));
    midi.setLength(1);
    midi.setMarkersList({Marker{1, QStringLiteral("m")}});
}

} // namespace

class TestRawMidiFile : public QObject
{
    Q_OBJECT

private slots:
    void startsEmpty();
    void withoutAFileWritersDoNothing();

    void headerFieldsAreRead();
    void secondFormatIsRead();
    void theFirstTrackChunkIsTaken();
    void unusableDataAreRefused_data();
    void unusableDataAreRefused();
    void refusedDataChangeNothing();
    void loadingAgainReplacesTheFile();
    void filesOfTwoGigabytesAreRefused();

    void everyItemIsRead();
    void absentItemsReadAsNothing();
    void emptyEventsArePresent_data();
    void emptyEventsArePresent();
    void textIsCutAtTheFirstZeroByteAndStripped();
    void textIsLatin1();
    void negativeLengthTakesAllUpToAZeroByte();
    void textThatRunsPastTheDataEndsThere();
    void eventsWithoutLengthByteReadAsNothing();
    void kravoEventWithoutSubTypeInItsLengthTakesAll();
    void searchBeginsAtTheFirstTrack();
    void firstEventIsTaken();
    void eventsOfASecondTrackAreFound();
    void eventsBehindADeltaTimeAreFound();
    void numbersAreParsed_data();
    void numbersAreParsed();
    void lettersAsLengthReadAsZeroWhileLengthIsPresent();
    void publisherIsRecognised_data();
    void publisherIsRecognised();
    void extractMetaeventReturnsThePosition();
    void indexOfKravoMetaeventSearchesAnyBytes();

    void markersAreReadInFileOrder();
    void markerLengthIsUnsigned();
    void markerSearchGoesOnBehindTheText();
    void markerWithoutTextIsRead();
    void damagedMarkers_data();
    void damagedMarkers();

    void titleIsWrittenAtTheHeadOfTheFirstTrack();
    void kravoTextsAreWritten_data();
    void kravoTextsAreWritten();
    void numbersAreWrittenInDecimal_data();
    void numbersAreWrittenInDecimal();
    void titleIsCutAt125Characters();
    void kravoTextsAreCutAt125Characters();
    void emptyTextIsWritten();
    void textIsWrittenAsLatin1();
    void settingTheArtistTwiceLeavesOneEvent();
    void allOldTitlesAreReplaced();
    void onlyTheFirstTrackIsWritten();
    void newestEventStandsFirst();
    void theCallersBytesStayAsTheyWere();
    void copiesAreIndependent();

    void markersAreWrittenInListOrder();
    void writingMarkersRemovesTheAuthorAndKeepsOldMarkers();
    void writingNoMarkersStillRemovesTheAuthor();
    void writtenMarkersAreCutAt125Characters();
    void insertMarkerCutsAt125Characters();
    void insertMarkerReturnsItsSize();
    void dbgInsertMarkerEqualsInsertMarker();
    void barsAreBigEndian16Bit();
    void longMarkerListsAreFast();

    void insertReturnsTheNumberOfBytes();
    void insertAtTheVeryEndWorks();
    void insertBeyondTheDataDoesNothing();
    void insertBeforeTheFirstTrackDoesNothing();
    void payloadBeyondTheLengthByteIsNotInserted();
    void insertNeverWrapsTheTrackLength();
    void updateTrackSizeWritesBigEndian();

    void removeReturnsTheNumberOfBytes();
    void removeOnlyFirst();
    void removeLeavesOtherDeltaTimes();
    void removeLeavesOtherSubTypes();
    void removeLeavesLaterTracks();
    void removeLeavesSignedLengths();
    void removeSearchesOnInsideAnEventItLeft();
    void removeLeavesWhatRunsPastTheData();
    void removeLeavesWhatRunsPastTheTrack();
    void removeLeavesTruncatedEvents();
    void removeKeepsLongDeltaTimesWhole_data();
    void removeKeepsLongDeltaTimesWhole();
    void removeKeepsWhatOnlyLooksLikeAnEvent_data();
    void removeKeepsWhatOnlyLooksLikeAnEvent();
    void emptyTitleBeforeALongRestStaysWhole();
    void removeSeesDeltaZeroBehindHighBytes_data();
    void removeSeesDeltaZeroBehindHighBytes();
    void removeFollowsTheByteSearchOnRandomData();

    void trackLengthFollowsEveryChange();
    void impossibleTrackLengthIsKeptUnlessBytesGo();
    void truncatedFilesAreHarmless();
    void randomFilesAreHarmless();
    void hostileFilesAreFast_data();
    void hostileFilesAreFast();
};

// ---- State and loading

void TestRawMidiFile::startsEmpty()
{
    const RawMidiFile midi;
    QVERIFY(midi.stream().isEmpty());
    QCOMPARE(midi.fileType(), SongInfo::FileUnknown);
    QCOMPARE(midi.trackLength(), 0U);
    QCOMPARE(midi.trackStart(), 0U);
    QCOMPARE(midi.trackLengthPos(), 0U);
    QCOMPARE(midi.trackCount(), 0U);
    QCOMPARE(midi.title(), QString());
    QCOMPARE(midi.length(), 0);
    QVERIFY(midi.markersList().isEmpty());
    QVERIFY(!midi.hasTitle());
    QVERIFY(!midi.hasKey());
    QVERIFY(!midi.isKravo());
}

void TestRawMidiFile::withoutAFileWritersDoNothing()
{
    RawMidiFile midi;
    callEverything(midi);
    midi.updateTrackSize();
    QCOMPARE(midi.insertMarker(QStringLiteral("m"), 1), 0);
    QCOMPARE(midi.insertMetaevent("x", char(3), 0), 0);
    QCOMPARE(midi.removeHeadMetaevent(char(3), false), 0);
    QVERIFY(midi.stream().isEmpty());
    QCOMPARE(midi.trackLength(), 0U);
}

void TestRawMidiFile::headerFieldsAreRead()
{
    const QByteArray file = midiFile({track(notes())}, 0);
    RawMidiFile midi;
    QVERIFY(midi.loadData(file));
    QCOMPARE(midi.stream(), file);
    QCOMPARE(midi.fileType(), SongInfo::FileMidi0);
    QCOMPARE(midi.trackCount(), 1U);
    QCOMPARE(midi.trackLengthPos(), quint32(LengthPos));
    QCOMPARE(midi.trackStart(), quint32(EventsPos));
    QCOMPARE(midi.trackLength(), quint32(notes().size() + 4));
}

void TestRawMidiFile::secondFormatIsRead()
{
    RawMidiFile midi;
    QVERIFY(midi.loadData(midiFile(QList<QByteArray>(300, track(QByteArray())), 1)));
    QCOMPARE(midi.fileType(), SongInfo::FileMidi1);
    QCOMPARE(midi.trackCount(), 300U);
    QCOMPARE(midi.trackLength(), 4U);
}

void TestRawMidiFile::theFirstTrackChunkIsTaken()
{
    // A longer header and a chunk of another kind stand before the first track.
    const QByteArray file = "MThd" + bytes({0, 0, 0, 8, 0, 1, 0, 2, 0, 96, 0, 0}) + "XFIH" +
                            bigEndian(3, 4) + "abc" + track(metaEvent(0x03, "One")) +
                            track(metaEvent(0x03, "Two"));
    const RawMidiFile midi = loaded(file);
    QCOMPARE(midi.trackLengthPos(), 31U);
    QCOMPARE(midi.trackStart(), 35U);
    QCOMPARE(midi.trackLength(), 11U);
    QCOMPARE(midi.title(), QStringLiteral("One"));
}

void TestRawMidiFile::unusableDataAreRefused_data()
{
    QTest::addColumn<QByteArray>("file");
    const QByteArray good = midiFile({track(notes())});
    const QByteArray header = good.left(14);
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("four bytes") << QByteArray("MThd");
    QTest::newRow("short of a format word") << good.left(9);
    QTest::newRow("header only") << header;
    QTest::newRow("no MTrk") << header + "XTrk" + good.mid(18);
    QTest::newRow("MTrk at the end") << header + "MTrk";
    QTest::newRow("one length byte") << header + "MTrk" + bytes({0});
    QTest::newRow("three length bytes") << header + "MTrk" + bytes({0, 0, 0});
    QTest::newRow("MTrk right behind MThd, cut") << QByteArray("MThdMTrk\0\0\0", 11);
    QTest::newRow("format 2") << midiFile({track(notes())}, 2);
    QTest::newRow("format 256") << midiFile({track(notes())}, 256);
    QTest::newRow("format 65535") << midiFile({track(notes())}, 65535);
    QTest::newRow("another magic") << QByteArray("MThx") + good.mid(4);
    QTest::newRow("lower case") << QByteArray("mthd") + good.mid(4);
    QTest::newRow("MThd not at the start") << "x" + good;
    QTest::newRow("RIFF around it")
        << "RIFF" + bytes({0, 0, 0, 0}) + "RMIDdata" + bytes({0, 0, 0, 0}) + good;
}

void TestRawMidiFile::unusableDataAreRefused()
{
    QFETCH(QByteArray, file);
    RawMidiFile midi;
    QVERIFY(!midi.loadData(file));
    QVERIFY(midi.stream().isEmpty());
    QCOMPARE(midi.fileType(), SongInfo::FileUnknown);
}

void TestRawMidiFile::refusedDataChangeNothing()
{
    const QByteArray file = midiFile({track(metaEvent(0x03, "Kept"))}, 1);
    RawMidiFile midi = loaded(file);
    QVERIFY(!midi.loadData(midiFile({track(metaEvent(0x03, "Refused"))}, 2)));
    QVERIFY(!midi.loadData(QByteArray()));
    QCOMPARE(midi.stream(), file);
    QCOMPARE(midi.fileType(), SongInfo::FileMidi1);
    QCOMPARE(midi.trackLength(), 12U);
    QCOMPARE(midi.title(), QStringLiteral("Kept"));
}

void TestRawMidiFile::loadingAgainReplacesTheFile()
{
    RawMidiFile midi = loaded(midiFile({track(FullHead)}, 1));
    const QByteArray other = midiFile({track(metaEvent(0x03, "Other"))});
    QVERIFY(midi.loadData(other));
    QCOMPARE(midi.stream(), other);
    QCOMPARE(midi.fileType(), SongInfo::FileMidi0);
    QCOMPARE(midi.title(), QStringLiteral("Other"));
    QVERIFY(!midi.hasArtist());
}

void TestRawMidiFile::filesOfTwoGigabytesAreRefused()
{
    // A sparse file: it takes neither disk space nor memory.
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(songFile(QByteArray()));
    const qint64 size = qint64(std::numeric_limits<int>::max()) + 1;
    QVERIFY(file.resize(size));
    const uchar *const mapped = file.map(0, size);
    QVERIFY(mapped != nullptr);
    RawMidiFile midi;
    QVERIFY(!midi.loadData(QByteArray::fromRawData(reinterpret_cast<const char *>(mapped), size)));
}

// ---- Readers

void TestRawMidiFile::everyItemIsRead()
{
    const RawMidiFile midi = loaded(songFile(FullHead));
    QCOMPARE(midi.title(), QStringLiteral("My song"));
    QCOMPARE(midi.artist(), QStringLiteral("Some artist"));
    QCOMPARE(midi.author(), QStringLiteral("Trad. author"));
    QCOMPARE(midi.genre(), QStringLiteral("Folk"));
    QCOMPARE(midi.userBpm(), 128);
    QCOMPARE(midi.key(), QStringLiteral("E"));
    QCOMPARE(midi.length(), 215);
    QCOMPARE(midi.markersList().size(), 2);
    QVERIFY(midi.hasTitle());
    QVERIFY(midi.hasArtist());
    QVERIFY(midi.hasAuthor());
    QVERIFY(midi.hasGenre());
    QVERIFY(midi.hasUserBpm());
    QVERIFY(midi.hasKey());
    QVERIFY(midi.hasLength());
    QVERIFY(midi.hasMarkers());
    QVERIFY(midi.isKravo());
}

void TestRawMidiFile::absentItemsReadAsNothing()
{
    const RawMidiFile midi = loaded(songFile(QByteArray()));
    QVERIFY(midi.title().isEmpty());
    QVERIFY(midi.artist().isEmpty());
    QVERIFY(midi.author().isEmpty());
    QVERIFY(midi.genre().isEmpty());
    QCOMPARE(midi.userBpm(), 0);
    QVERIFY(midi.key().isEmpty());
    QCOMPARE(midi.length(), 0);
    QVERIFY(midi.markersList().isEmpty());
    QVERIFY(!midi.hasTitle());
    QVERIFY(!midi.hasArtist());
    QVERIFY(!midi.hasAuthor());
    QVERIFY(!midi.hasGenre());
    QVERIFY(!midi.hasUserBpm());
    QVERIFY(!midi.hasKey());
    QVERIFY(!midi.hasLength());
    QVERIFY(!midi.hasMarkers());
    QVERIFY(!midi.isKravo());
}

void TestRawMidiFile::emptyEventsArePresent_data()
{
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<QString>("present");
    QTest::newRow("title") << metaEvent(0x03, "") << QStringLiteral("10000000");
    QTest::newRow("genre") << kravoEvent(1, "") << QStringLiteral("01000000");
    QTest::newRow("artist") << kravoEvent(2, "") << QStringLiteral("00100000");
    QTest::newRow("author") << kravoEvent(3, "") << QStringLiteral("00010000");
    QTest::newRow("length") << kravoEvent(4, "") << QStringLiteral("00001000");
    QTest::newRow("tempo") << kravoEvent(5, "") << QStringLiteral("00000100");
    QTest::newRow("marker") << kravoEvent(6, "") << QStringLiteral("00000010");
    QTest::newRow("key") << metaEvent(0x59, "") << QStringLiteral("00000001");
    QTest::newRow("unknown sub-type") << kravoEvent(7, "x") << QStringLiteral("00000000");
}

void TestRawMidiFile::emptyEventsArePresent()
{
    QFETCH(QByteArray, event);
    QFETCH(QString, present);
    const RawMidiFile midi = loaded(songFile(event));
    QString found;
    for (const bool has : {midi.hasTitle(), midi.hasGenre(), midi.hasArtist(), midi.hasAuthor(),
                           midi.hasLength(), midi.hasUserBpm(), midi.hasMarkers(), midi.hasKey()})
        found.append(has ? QLatin1Char('1') : QLatin1Char('0'));
    QCOMPARE(found, present);
    QVERIFY(midi.title().isEmpty());
    QVERIFY(midi.artist().isEmpty());
    QCOMPARE(midi.length(), 0);
    QCOMPARE(midi.userBpm(), 0);
}

void TestRawMidiFile::textIsCutAtTheFirstZeroByteAndStripped()
{
    const RawMidiFile midi = loaded(songFile(metaEvent(0x03, QByteArray("  My song \0 rest", 16)) +
                                             kravoEvent(2, QByteArray("\t artist\r\n\0x", 12))));
    QCOMPARE(midi.title(), QStringLiteral("My song"));
    QCOMPARE(midi.artist(), QStringLiteral("artist"));
}

void TestRawMidiFile::textIsLatin1()
{
    const RawMidiFile midi =
        loaded(songFile(metaEvent(0x03, "Perch\xE9") + kravoEvent(3, "Gr\xF6\xDF")));
    QCOMPARE(midi.title(), QStringLiteral("Perché"));
    QCOMPARE(midi.author(), QStringLiteral("Größ"));
}

void TestRawMidiFile::negativeLengthTakesAllUpToAZeroByte()
{
    QCOMPARE(loaded(cutFile(bytes({0, 0xFF, 0x03, 0x80}) + "abc")).title(), QStringLiteral("abc"));
    QCOMPARE(loaded(cutFile(bytes({0, 0xFF, 0x03, 0xFF}) + QByteArray("abc\0def", 7))).title(),
             QStringLiteral("abc"));
    QCOMPARE(loaded(cutFile(bytes({0, 0xFF, 0x4B, 0x80, 2}) + "abc")).artist(),
             QStringLiteral("abc"));
    const QByteArray longText(300, 'x');
    QCOMPARE(loaded(cutFile(bytes({0, 0xFF, 0x03, 0x80}) + longText)).title(),
             QString::fromLatin1(longText));
}

void TestRawMidiFile::textThatRunsPastTheDataEndsThere()
{
    QCOMPARE(loaded(cutFile(bytes({0, 0xFF, 0x03, 0x7F}) + "abc")).title(), QStringLiteral("abc"));
    QCOMPARE(loaded(cutFile(bytes({0, 0xFF, 0x4B, 0x7F, 1}) + "abc")).genre(),
             QStringLiteral("abc"));
}

void TestRawMidiFile::eventsWithoutLengthByteReadAsNothing()
{
    const RawMidiFile title = loaded(cutFile(bytes({0, 0xFF, 0x03})));
    QVERIFY(title.hasTitle());
    QVERIFY(title.title().isEmpty());
    QVERIFY(!loaded(cutFile(bytes({0, 0xFF}))).hasTitle());
    for (const QByteArray &cut : {bytes({0, 0xFF, 0x4B}), bytes({0, 0xFF, 0x4B, 5})}) {
        const RawMidiFile kravo = loaded(cutFile(cut));
        QVERIFY(!kravo.hasArtist());
        QVERIFY(!kravo.hasMarkers());
    }
    const RawMidiFile artist = loaded(cutFile(bytes({0, 0xFF, 0x4B, 5, 2})));
    QVERIFY(artist.hasArtist());
    QVERIFY(artist.artist().isEmpty());
}

void TestRawMidiFile::kravoEventWithoutSubTypeInItsLengthTakesAll()
{
    // Length 0 leaves minus one byte for the text: negative, as above.
    QCOMPARE(loaded(cutFile(bytes({0, 0xFF, 0x4B, 0, 2}) + QByteArray("abc\0d", 5))).artist(),
             QStringLiteral("abc"));
}

void TestRawMidiFile::searchBeginsAtTheFirstTrack()
{
    const QByteArray file = "MThd" + bytes({0, 0, 0, 12, 0, 0, 0, 1, 0, 96}) +
                            metaEvent(0x03, "xy") + track(kravoEvent(2, "a"));
    const RawMidiFile midi = loaded(file);
    QVERIFY(!midi.hasTitle());
    QCOMPARE(midi.artist(), QStringLiteral("a"));
}

void TestRawMidiFile::firstEventIsTaken()
{
    const RawMidiFile midi = loaded(songFile(metaEvent(0x03, "First") + metaEvent(0x03, "Second") +
                                             kravoEvent(1, "G1") + kravoEvent(1, "G2")));
    QCOMPARE(midi.title(), QStringLiteral("First"));
    QCOMPARE(midi.genre(), QStringLiteral("G1"));
}

void TestRawMidiFile::eventsOfASecondTrackAreFound()
{
    const RawMidiFile midi = loaded(midiFile({track(notes()), track(FullHead)}, 1));
    QCOMPARE(midi.title(), QStringLiteral("My song"));
    QCOMPARE(midi.artist(), QStringLiteral("Some artist"));
    QCOMPARE(midi.key(), QStringLiteral("E"));
    QCOMPARE(midi.markersList().size(), 2);
    QVERIFY(midi.isKravo());
}

void TestRawMidiFile::eventsBehindADeltaTimeAreFound()
{
    QCOMPARE(loaded(songFile(bytes({0x83, 0x60, 0xFF, 0x03, 2}) + "ab")).title(),
             QStringLiteral("ab"));
}

void TestRawMidiFile::numbersAreParsed_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<int>("number");
    QTest::newRow("plain") << QByteArray("215") << 215;
    QTest::newRow("plus") << QByteArray("+12") << 12;
    QTest::newRow("blanks") << QByteArray(" 12 ") << 12;
    QTest::newRow("zero byte") << QByteArray("12\0junk", 7) << 12;
    QTest::newRow("zero") << QByteArray("0") << 0;
    QTest::newRow("largest") << QByteArray("2147483647") << 2147483647;
    QTest::newRow("too large") << QByteArray("2147483648") << 0;
    QTest::newRow("negative") << QByteArray("-5") << 0;
    QTest::newRow("letters") << QByteArray("abc") << 0;
    QTest::newRow("mixed") << QByteArray("12s") << 0;
    QTest::newRow("fraction") << QByteArray("12.5") << 0;
    QTest::newRow("empty") << QByteArray() << 0;
}

void TestRawMidiFile::numbersAreParsed()
{
    QFETCH(QByteArray, payload);
    QFETCH(int, number);
    const RawMidiFile midi = loaded(songFile(kravoEvent(4, payload) + kravoEvent(5, payload)));
    QCOMPARE(midi.length(), number);
    QCOMPARE(midi.userBpm(), number);
}

void TestRawMidiFile::lettersAsLengthReadAsZeroWhileLengthIsPresent()
{
    const RawMidiFile midi = loaded(songFile(kravoEvent(4, "three")));
    QCOMPARE(midi.length(), 0);
    QVERIFY(midi.hasLength());
    QVERIFY(!midi.hasUserBpm());
}

void TestRawMidiFile::publisherIsRecognised_data()
{
    QTest::addColumn<QByteArray>("events");
    QTest::addColumn<bool>("published");
    QTest::newRow("upper case") << metaEvent(0x02, "(c) K-RAVO") << true;
    QTest::newRow("lower case") << metaEvent(0x02, "k-ravo italia") << true;
    QTest::newRow("mixed case") << metaEvent(0x02, "K-Ravo") << true;
    QTest::newRow("other word") << metaEvent(0x02, "by Torvelix, 2011") << true;
    QTest::newRow("neither") << metaEvent(0x02, "KRAVO") << false;
    QTest::newRow("empty") << metaEvent(0x02, "") << false;
    QTest::newRow("behind a zero byte") << metaEvent(0x02, QByteArray("(c)\0K-RAVO", 10)) << false;
    QTest::newRow("in the title") << metaEvent(0x03, "K-RAVO") << false;
    QTest::newRow("first notice counts")
        << metaEvent(0x02, "Someone") + metaEvent(0x02, "K-RAVO") << false;
    QTest::newRow("none") << QByteArray() << false;
}

void TestRawMidiFile::publisherIsRecognised()
{
    QFETCH(QByteArray, events);
    QFETCH(bool, published);
    QCOMPARE(loaded(songFile(events)).isKravo(), published);
}

void TestRawMidiFile::extractMetaeventReturnsThePosition()
{
    const RawMidiFile midi = loaded(songFile(metaEvent(0x03, "ab") + kravoEvent(2, "cd")));
    QString text = QStringLiteral("old");
    QCOMPARE(midi.extractMetaevent(text, char(0x03)), EventsPos + 1);
    QCOMPARE(text, QStringLiteral("ab"));
    QCOMPARE(midi.extractMetaevent(text, RawMidiFile::KravoArtist), EventsPos + 7);
    QCOMPARE(text, QStringLiteral("cd"));
    QVERIFY(midi.extractMetaevent(text, char(0x02)) < 0);
    QVERIFY(text.isEmpty());
    text = QStringLiteral("old");
    QVERIFY(midi.extractMetaevent(text, RawMidiFile::KravoGenre) < 0);
    QVERIFY(text.isEmpty());
    // A type byte of 80 or above is as good as any other.
    QCOMPARE(loaded(songFile(metaEvent(0xF3, "hi"))).extractMetaevent(text, '\xF3'), EventsPos + 1);
    QCOMPARE(text, QStringLiteral("hi"));
}

void TestRawMidiFile::indexOfKravoMetaeventSearchesAnyBytes()
{
    const RawMidiFile midi;
    const QByteArray events = kravoEvent(2, "a") + kravoEvent(1, "b") + kravoEvent(2, "c");
    QCOMPARE(midi.indexOfKravoMetaevent(events, 0, RawMidiFile::KravoArtist), 1);
    QCOMPARE(midi.indexOfKravoMetaevent(events, 1, RawMidiFile::KravoArtist), 1);
    QCOMPARE(midi.indexOfKravoMetaevent(events, 2, RawMidiFile::KravoArtist), 13);
    QCOMPARE(midi.indexOfKravoMetaevent(events, 14, RawMidiFile::KravoArtist), -1);
    QCOMPARE(midi.indexOfKravoMetaevent(events, 0, RawMidiFile::KravoGenre), 7);
    QCOMPARE(midi.indexOfKravoMetaevent(events, 0, RawMidiFile::KravoMarker), -1);
    QCOMPARE(midi.indexOfKravoMetaevent(events, -7, RawMidiFile::KravoArtist), 1);
    QCOMPARE(midi.indexOfKravoMetaevent(events, 1000000, RawMidiFile::KravoArtist), -1);
    QCOMPARE(midi.indexOfKravoMetaevent(QByteArray(), 0, RawMidiFile::KravoArtist), -1);
    // An occurrence with another sub-type overlaps the one that counts.
    QCOMPARE(midi.indexOfKravoMetaevent(bytes({0xFF, 0x4B, 0xFF, 0x4B, 3, 2}), 0,
                                        RawMidiFile::KravoArtist),
             2);
}

// ---- Markers, read

void TestRawMidiFile::markersAreReadInFileOrder()
{
    const RawMidiFile midi =
        loaded(midiFile({track(markerEvent(9, " Verse ") + kravoEvent(2, "artist") +
                               markerEvent(1, "Intro") + notes() + markerEvent(65535, "Coda")),
                         track(markerEvent(256, QByteArray("End\0x", 5)))},
                        1));
    QList<Marker> markers{Marker{7, QStringLiteral("old")}};
    QCOMPARE(midi.extractMarkersList(markers), EventsPos + 1);
    QCOMPARE(markers.size(), 4);
    QCOMPARE(markers.at(0).bar, quint16(9));
    QCOMPARE(markers.at(0).text, QStringLiteral("Verse"));
    QCOMPARE(markers.at(1).bar, quint16(1));
    QCOMPARE(markers.at(1).text, QStringLiteral("Intro"));
    QCOMPARE(markers.at(2).bar, quint16(65535));
    QCOMPARE(markers.at(2).text, QStringLiteral("Coda"));
    QCOMPARE(markers.at(3).bar, quint16(256));
    QCOMPARE(markers.at(3).text, QStringLiteral("End"));

    const RawMidiFile without = loaded(songFile(QByteArray()));
    QVERIFY(without.extractMarkersList(markers) < 0);
    QVERIFY(markers.isEmpty());
}

void TestRawMidiFile::markerLengthIsUnsigned()
{
    for (const int textLength : {124, 125, 126, 252}) {
        const QByteArray text(textLength, 'm');
        const RawMidiFile midi =
            loaded(songFile(markerEvent(3, text) + markerEvent(4, QByteArray("next"))));
        const QList<Marker> markers = midi.markersList();
        QCOMPARE(markers.size(), 2);
        QCOMPARE(markers.at(0).text, QString::fromLatin1(text));
        QCOMPARE(markers.at(1).text, QStringLiteral("next"));
    }
}

void TestRawMidiFile::markerSearchGoesOnBehindTheText()
{
    const QByteArray inner = markerEvent(2, "in");
    const RawMidiFile midi = loaded(songFile(markerEvent(1, "a" + inner) + markerEvent(3, "b")));
    const QList<Marker> markers = midi.markersList();
    QCOMPARE(markers.size(), 2);
    QCOMPARE(markers.at(0).text, QStringLiteral("a")); // cut at the inner event's delta time
    QCOMPARE(markers.at(1).text, QStringLiteral("b"));
}

void TestRawMidiFile::markerWithoutTextIsRead()
{
    const QList<Marker> markers =
        loaded(songFile(markerEvent(5, "") + markerEvent(6, "x"))).markersList();
    QCOMPARE(markers.size(), 2);
    QCOMPARE(markers.at(0).bar, quint16(5));
    QVERIFY(markers.at(0).text.isEmpty());
    QCOMPARE(markers.at(1).bar, quint16(6));
}

void TestRawMidiFile::damagedMarkers_data()
{
    QTest::addColumn<QByteArray>("events");
    QTest::addColumn<QStringList>("markers");
    const QByteArray good = markerEvent(7, "ok");
    QTest::newRow("length without bar")
        << bytes({0, 0xFF, 0x4B, 1, 6}) + good
        << QStringList{QStringLiteral("255:"), QStringLiteral("7:ok")};
    QTest::newRow("length 0") << bytes({0, 0xFF, 0x4B, 0, 6, 1, 2}) + good
                              << QStringList{QStringLiteral("258:"), QStringLiteral("7:ok")};
    QTest::newRow("ends behind the sub-type")
        << bytes({0, 0xFF, 0x4B, 9, 6}) << QStringList{QStringLiteral("0:")};
    QTest::newRow("ends inside the bar")
        << bytes({0, 0xFF, 0x4B, 9, 6, 1}) << QStringList{QStringLiteral("256:")};
    QTest::newRow("ends inside the text")
        << bytes({0, 0xFF, 0x4B, 0xFF, 6, 0, 1}) + "abc" << QStringList{QStringLiteral("1:abc")};
}

void TestRawMidiFile::damagedMarkers()
{
    QFETCH(QByteArray, events);
    QFETCH(QStringList, markers);
    QStringList found;
    for (const Marker &marker : loaded(cutFile(events)).markersList())
        found.append(QStringLiteral("%1:%2").arg(marker.bar).arg(marker.text));
    QCOMPARE(found, markers);
}

// ---- Writers

void TestRawMidiFile::titleIsWrittenAtTheHeadOfTheFirstTrack()
{
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setTitle(QStringLiteral("Abc"));
    QCOMPARE(midi.stream(), songFile(bytes({0x00, 0xFF, 0x03, 0x03, 'A', 'b', 'c'})));
    QCOMPARE(midi.title(), QStringLiteral("Abc"));
}

void TestRawMidiFile::kravoTextsAreWritten_data()
{
    QTest::addColumn<int>("subType");
    QTest::newRow("genre") << 1;
    QTest::newRow("artist") << 2;
    QTest::newRow("author") << 3;
}

void TestRawMidiFile::kravoTextsAreWritten()
{
    QFETCH(int, subType);
    RawMidiFile midi = loaded(songFile(kravoEvent(subType, "old") + metaEvent(0x03, "Title")));
    const QString text = QStringLiteral("New");
    switch (subType) {
    case 1:
        midi.setGenre(text);
        QCOMPARE(midi.genre(), text);
        break;
    case 2:
        midi.setArtist(text);
        QCOMPARE(midi.artist(), text);
        break;
    default:
        midi.setAuthor(text);
        QCOMPARE(midi.author(), text);
    }
    QCOMPARE(midi.stream(), songFile(bytes({0x00, 0xFF, 0x4B, 0x04, subType, 'N', 'e', 'w'}) +
                                     metaEvent(0x03, "Title")));
}

void TestRawMidiFile::numbersAreWrittenInDecimal_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("usual") << 215 << QByteArray("215");
    QTest::newRow("zero") << 0 << QByteArray("0");
    QTest::newRow("negative") << -3 << QByteArray("-3");
    QTest::newRow("largest") << 2147483647 << QByteArray("2147483647");
}

void TestRawMidiFile::numbersAreWrittenInDecimal()
{
    QFETCH(int, number);
    QFETCH(QByteArray, payload);
    RawMidiFile midi = loaded(songFile(kravoEvent(4, "1") + kravoEvent(5, "2")));
    midi.setLength(number);
    midi.setUserBpm(number);
    QCOMPARE(midi.stream(), songFile(kravoEvent(5, payload) + kravoEvent(4, payload)));
    QCOMPARE(midi.length(), qMax(number, 0));
    QCOMPARE(midi.userBpm(), qMax(number, 0));
}

void TestRawMidiFile::titleIsCutAt125Characters()
{
    QString title;
    for (int i = 0; i < 200; ++i)
        title.append(QLatin1Char(static_cast<char>('a' + i % 26)));
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setTitle(title);
    QCOMPARE(midi.stream(), songFile(metaEvent(0x03, title.left(125).toLatin1())));
    QCOMPARE(static_cast<quint8>(midi.stream().at(EventsPos + 3)), quint8(125));
    QCOMPARE(midi.title(), title.left(125));
}

void TestRawMidiFile::kravoTextsAreCutAt125Characters()
{
    const QString text(126, QLatin1Char('y'));
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setGenre(text);
    midi.setArtist(text);
    midi.setAuthor(text);
    const QByteArray cut(125, 'y');
    QCOMPARE(midi.stream(), songFile(kravoEvent(3, cut) + kravoEvent(2, cut) + kravoEvent(1, cut)));
    QCOMPARE(static_cast<quint8>(midi.stream().at(EventsPos + 3)), quint8(126));
    midi.setArtist(QStringLiteral("short")); // an event of the greatest length can be replaced
    QCOMPARE(midi.stream(),
             songFile(kravoEvent(2, "short") + kravoEvent(3, cut) + kravoEvent(1, cut)));
}

void TestRawMidiFile::emptyTextIsWritten()
{
    RawMidiFile midi = loaded(songFile(metaEvent(0x03, "T") + kravoEvent(2, "A")));
    midi.setTitle(QString());
    midi.setArtist(QStringLiteral(""));
    QCOMPARE(midi.stream(), songFile(kravoEvent(2, "") + metaEvent(0x03, "")));
    QVERIFY(midi.hasTitle());
    QVERIFY(midi.hasArtist());
}

void TestRawMidiFile::textIsWrittenAsLatin1()
{
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setTitle(QStringLiteral("Perché 5€"));
    QCOMPARE(midi.stream(), songFile(metaEvent(0x03, "Perch\xE9 5?")));
    QCOMPARE(midi.title(), QStringLiteral("Perché 5?"));
}

void TestRawMidiFile::settingTheArtistTwiceLeavesOneEvent()
{
    RawMidiFile midi = loaded(songFile(QByteArray()));
    const quint32 before = midi.trackLength();
    midi.setArtist(QStringLiteral("One")); // 00 FF 4B 04 02 and three letters
    QCOMPARE(midi.trackLength(), before + 8);
    QCOMPARE(storedLength(midi), bigEndian(before + 8, 4));
    midi.setArtist(QStringLiteral("Another"));
    QCOMPARE(midi.trackLength(), before + 12);
    QCOMPARE(storedLength(midi), bigEndian(before + 12, 4));
    QCOMPARE(midi.stream().count("\xFF\x4B"), 1);
    QCOMPARE(midi.stream(), songFile(kravoEvent(2, "Another")));
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoArtist, false), 12);
    QCOMPARE(midi.trackLength(), before);
    QCOMPARE(storedLength(midi), bigEndian(before, 4));
}

void TestRawMidiFile::allOldTitlesAreReplaced()
{
    RawMidiFile midi =
        loaded(midiFile({track(metaEvent(0x03, "One") + metaEvent(0x01, "text") +
                               metaEvent(0x03, "Two") + notes() + metaEvent(0x03, "Three"))}));
    midi.setTitle(QStringLiteral("New"));
    QCOMPARE(midi.stream(),
             midiFile({track(metaEvent(0x03, "New") + metaEvent(0x01, "text") + notes())}));
}

void TestRawMidiFile::onlyTheFirstTrackIsWritten()
{
    const QByteArray second = track(FullHead + notes());
    RawMidiFile midi = loaded(midiFile({track(notes()), second}, 1));
    midi.setTitle(QStringLiteral("T"));
    midi.setArtist(QStringLiteral("A"));
    midi.setKey(QStringLiteral("D"));
    QCOMPARE(midi.stream(), midiFile({track(metaEvent(0x59, bytes({2, 0})) + kravoEvent(2, "A") +
                                            metaEvent(0x03, "T") + notes()),
                                      second},
                                     1));
}

void TestRawMidiFile::newestEventStandsFirst()
{
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setTitle(QStringLiteral("T"));
    midi.setArtist(QStringLiteral("A"));
    midi.setAuthor(QStringLiteral("B"));
    midi.setGenre(QStringLiteral("G"));
    midi.setUserBpm(99);
    midi.setKey(QStringLiteral("C"));
    midi.setLength(60);
    QCOMPARE(midi.stream(), songFile(kravoEvent(4, "60") + metaEvent(0x59, bytes({0, 0})) +
                                     kravoEvent(5, "99") + kravoEvent(1, "G") + kravoEvent(3, "B") +
                                     kravoEvent(2, "A") + metaEvent(0x03, "T")));
}

void TestRawMidiFile::theCallersBytesStayAsTheyWere()
{
    const QByteArray file = songFile(FullHead);
    const QByteArray copy(file.constData(), file.size());
    RawMidiFile midi = loaded(file);
    callEverything(midi);
    QVERIFY(midi.stream() != file);
    QCOMPARE(file, copy);
}

void TestRawMidiFile::copiesAreIndependent()
{
    const RawMidiFile original = loaded(songFile(metaEvent(0x03, "T")));
    RawMidiFile copy = original;
    copy.setTitle(QStringLiteral("Other"));
    QCOMPARE(original.stream(), songFile(metaEvent(0x03, "T")));
    QCOMPARE(copy.stream(), songFile(metaEvent(0x03, "Other")));
}

// ---- Markers, written

void TestRawMidiFile::markersAreWrittenInListOrder()
{
    RawMidiFile midi = loaded(songFile(metaEvent(0x03, "T")));
    midi.setMarkersList({Marker{1, QStringLiteral("Intro")}, Marker{9, QStringLiteral("Verse")},
                         Marker{300, QString()}});
    QCOMPARE(midi.stream(), songFile(markerEvent(1, "Intro") + markerEvent(9, "Verse") +
                                     markerEvent(300, "") + metaEvent(0x03, "T")));
    const QList<Marker> markers = midi.markersList();
    QCOMPARE(markers.size(), 3);
    QCOMPARE(markers.at(1).bar, quint16(9));
    QCOMPARE(markers.at(1).text, QStringLiteral("Verse"));
}

void TestRawMidiFile::writingMarkersRemovesTheAuthorAndKeepsOldMarkers()
{
    RawMidiFile midi = loaded(songFile(kravoEvent(3, "Author") + markerEvent(4, "old") +
                                       kravoEvent(2, "Artist") + kravoEvent(3, "Second")));
    midi.setMarkersList({Marker{2, QStringLiteral("new")}});
    QCOMPARE(midi.stream(),
             songFile(markerEvent(2, "new") + markerEvent(4, "old") + kravoEvent(2, "Artist")));
    QVERIFY(!midi.hasAuthor());
}

void TestRawMidiFile::writingNoMarkersStillRemovesTheAuthor()
{
    RawMidiFile midi = loaded(songFile(kravoEvent(3, "Author") + markerEvent(4, "old")));
    midi.setMarkersList({});
    QCOMPARE(midi.stream(), songFile(markerEvent(4, "old")));
}

void TestRawMidiFile::writtenMarkersAreCutAt125Characters()
{
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setMarkersList({Marker{1, QString(500, QLatin1Char('l'))}});
    QCOMPARE(midi.stream(), songFile(markerEvent(1, QByteArray(125, 'l'))));
}

void TestRawMidiFile::insertMarkerCutsAt125Characters()
{
    RawMidiFile midi = loaded(songFile(QByteArray()));
    QCOMPARE(midi.insertMarker(QString(400, QLatin1Char('l')), 2), 132);
    QCOMPARE(static_cast<quint8>(midi.stream().at(EventsPos + 3)), quint8(128));
    QCOMPARE(midi.stream(), songFile(markerEvent(2, QByteArray(125, 'l'))));
    QCOMPARE(midi.markersList().first().text, QString(125, QLatin1Char('l')));
    // Its length byte is negative where events are removed, so it stays.
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoMarker, false), 0);
    QCOMPARE(midi.stream(), songFile(markerEvent(2, QByteArray(125, 'l'))));
}

void TestRawMidiFile::insertMarkerReturnsItsSize()
{
    RawMidiFile midi = loaded(songFile(metaEvent(0x03, "T")));
    QCOMPARE(midi.insertMarker(QStringLiteral("Coda"), 0x0102), 11);
    QCOMPARE(midi.stream(),
             songFile(bytes({0x00, 0xFF, 0x4B, 0x07, 0x06, 0x01, 0x02, 'C', 'o', 'd', 'a'}) +
                      metaEvent(0x03, "T")));
}

void TestRawMidiFile::dbgInsertMarkerEqualsInsertMarker()
{
    RawMidiFile one = loaded(songFile(FullHead));
    RawMidiFile other = one;
    const QString text(130, QLatin1Char('d'));
    QCOMPARE(one.dbgInsertMarker(text, 77), other.insertMarker(text, 77));
    QCOMPARE(one.stream(), other.stream());
}

void TestRawMidiFile::barsAreBigEndian16Bit()
{
    for (const quint16 bar : {quint16(0), quint16(1), quint16(255), quint16(256), quint16(65535)}) {
        RawMidiFile midi = loaded(songFile(QByteArray()));
        midi.insertMarker(QStringLiteral("b"), bar);
        QCOMPARE(midi.stream(), songFile(markerEvent(bar, "b")));
        QCOMPARE(midi.markersList().first().bar, bar);
    }
}

void TestRawMidiFile::longMarkerListsAreFast()
{
    const QList<Marker> markers(100000, Marker{5, QString(125, QLatin1Char('x'))});
    RawMidiFile midi = loaded(songFile(QByteArray()));
    QElapsedTimer timer;
    timer.start();
    midi.setMarkersList(markers);
    QVERIFY(timer.elapsed() < 5000);
    QCOMPARE(midi.markersList().size(), 100000);
}

// ---- Inserting and removing

void TestRawMidiFile::insertReturnsTheNumberOfBytes()
{
    RawMidiFile midi = loaded(songFile(metaEvent(0x03, "T")));
    QCOMPARE(midi.insertMetaevent("xyz", char(0x01), EventsPos + 5), 7);
    QCOMPARE(midi.insertMetaevent("", RawMidiFile::KravoGenre, EventsPos), 5);
    QCOMPARE(midi.stream(),
             songFile(kravoEvent(1, "") + metaEvent(0x03, "T") + metaEvent(0x01, "xyz")));
}

void TestRawMidiFile::insertAtTheVeryEndWorks()
{
    const QByteArray file = cutFile(metaEvent(0x03, "T"));
    RawMidiFile midi = loaded(file);
    QCOMPARE(midi.insertMetaevent("e", char(0x01), static_cast<int>(file.size())), 5);
    QCOMPARE(midi.stream(), cutFile(metaEvent(0x03, "T") + metaEvent(0x01, "e")));
}

void TestRawMidiFile::insertBeyondTheDataDoesNothing()
{
    const QByteArray file = songFile(QByteArray());
    RawMidiFile midi = loaded(file);
    for (const int position :
         {static_cast<int>(file.size()) + 1, 1000000, std::numeric_limits<int>::max()}) {
        QCOMPARE(midi.insertMetaevent("e", char(0x01), position), 0);
        QCOMPARE(midi.insertMetaevent("e", RawMidiFile::KravoGenre, position), 0);
    }
    QCOMPARE(midi.stream(), file);
}

void TestRawMidiFile::insertBeforeTheFirstTrackDoesNothing()
{
    const QByteArray file = songFile(QByteArray());
    RawMidiFile midi = loaded(file);
    for (const int position : {-1, 0, LengthPos, EventsPos - 1})
        QCOMPARE(midi.insertMetaevent("e", char(0x01), position), 0);
    QCOMPARE(midi.stream(), file);
}

void TestRawMidiFile::payloadBeyondTheLengthByteIsNotInserted()
{
    const QByteArray file = songFile(QByteArray());
    RawMidiFile midi = loaded(file);
    QCOMPARE(midi.insertMetaevent(QByteArray(256, 'x'), char(0x01), EventsPos), 0);
    QCOMPARE(midi.insertMetaevent(QByteArray(255, 'x'), RawMidiFile::KravoGenre, EventsPos), 0);
    QCOMPARE(midi.stream(), file);
    QCOMPARE(midi.insertMetaevent(QByteArray(254, 'x'), RawMidiFile::KravoGenre, EventsPos), 259);
    QCOMPARE(midi.insertMetaevent(QByteArray(255, 'x'), char(0x01), EventsPos), 259);
}

void TestRawMidiFile::insertNeverWrapsTheTrackLength()
{
    const QByteArray file = cutFile(notes(), 0xFFFFFFFF);
    RawMidiFile midi = loaded(file);
    midi.setTitle(QStringLiteral("T"));
    QCOMPARE(midi.insertMarker(QStringLiteral("m"), 1), 0);
    QCOMPARE(midi.stream(), file);
    QCOMPARE(midi.trackLength(), 0xFFFFFFFFU);

    RawMidiFile roomFor8 = loaded(cutFile(notes(), 0xFFFFFFF7));
    QCOMPARE(roomFor8.insertMarker(QStringLiteral("mm"), 1), 0);
    QCOMPARE(roomFor8.insertMarker(QStringLiteral("m"), 1), 8);
    QCOMPARE(roomFor8.stream(), cutFile(markerEvent(1, "m") + notes(), 0xFFFFFFFF));
}

void TestRawMidiFile::updateTrackSizeWritesBigEndian()
{
    const QByteArray file = cutFile(notes(), 0x01020304);
    RawMidiFile midi = loaded(file);
    QCOMPARE(midi.trackLength(), 0x01020304U);
    midi.updateTrackSize();
    QCOMPARE(midi.stream(), file);
    QCOMPARE(midi.insertMetaevent("ab", char(0x01), EventsPos), 6);
    QCOMPARE(midi.stream().mid(LengthPos, 4), bytes({0x01, 0x02, 0x03, 0x0A}));
}

void TestRawMidiFile::removeReturnsTheNumberOfBytes()
{
    RawMidiFile midi = loaded(songFile(FullHead));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 11);
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 0);
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoMarker, false), 12 + 13);
    QVERIFY(!midi.hasMarkers());
    QVERIFY(!midi.hasTitle());
    QCOMPARE(midi.artist(), QStringLiteral("Some artist"));
}

void TestRawMidiFile::removeOnlyFirst()
{
    const QByteArray music = notes();
    RawMidiFile midi = loaded(midiFile({track(kravoEvent(1, "one") + music + kravoEvent(1, "two") +
                                              metaEvent(0x03, "t1") + metaEvent(0x03, "t2"))}));
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoGenre, true), 8);
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), true), 6);
    QCOMPARE(midi.stream(),
             midiFile({track(music + kravoEvent(1, "two") + metaEvent(0x03, "t2"))}));
}

void TestRawMidiFile::removeLeavesOtherDeltaTimes()
{
    const QByteArray file = songFile(bytes({0x0A, 0xFF, 0x03, 2}) + "ab" +
                                     bytes({0x83, 0x60, 0xFF, 0x4B, 3, 2}) + "cd");
    RawMidiFile midi = loaded(file);
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 0);
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoArtist, false), 0);
    QCOMPARE(midi.stream(), file);
}

void TestRawMidiFile::removeLeavesOtherSubTypes()
{
    RawMidiFile midi = loaded(songFile(FullHead));
    const QList<Kravo> subTypes{RawMidiFile::KravoGenre,   RawMidiFile::KravoArtist,
                                RawMidiFile::KravoAuthor,  RawMidiFile::KravoLength,
                                RawMidiFile::KravoUserBpm, RawMidiFile::KravoMarker};
    int left = 7;
    for (const Kravo subType : subTypes) {
        QVERIFY(midi.removeHeadMetaevent(subType, false) > 0);
        left -= subType == RawMidiFile::KravoMarker ? 2 : 1;
        QCOMPARE(midi.stream().count("\xFF\x4B"), left);
    }
    QCOMPARE(midi.stream(),
             songFile(metaEvent(0x59, bytes({4, 0})) + metaEvent(0x02, "(c) K-Ravo 2012") +
                      metaEvent(0x03, "My song")));
}

void TestRawMidiFile::removeLeavesLaterTracks()
{
    const QByteArray second = track(metaEvent(0x03, "Piano") + kravoEvent(2, "x"));
    RawMidiFile midi = loaded(midiFile({track(metaEvent(0x03, "Song")), second}, 1));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 8);
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 0);
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoArtist, false), 0);
    QCOMPARE(midi.stream(), midiFile({track(QByteArray()), second}, 1));
    QCOMPARE(midi.title(), QStringLiteral("Piano"));
}

void TestRawMidiFile::removeLeavesSignedLengths()
{
    for (const int length : {0x80, 0x81, 0xFF}) {
        const QByteArray events =
            bytes({0, 0xFF, 0x03, length}) + QByteArray(length, 'x') + metaEvent(0x01, "t");
        RawMidiFile midi = loaded(songFile(events));
        QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 0);
        QCOMPARE(midi.stream(), songFile(events));
    }
    RawMidiFile longest = loaded(songFile(metaEvent(0x03, QByteArray(127, 'x'))));
    QCOMPARE(longest.removeHeadMetaevent(char(0x03), false), 131);
    QCOMPARE(longest.stream(), songFile(QByteArray()));
}

void TestRawMidiFile::removeSearchesOnInsideAnEventItLeft()
{
    const QByteArray left = bytes({0, 0xFF, 0x03, 0x80});
    RawMidiFile midi = loaded(songFile(left + metaEvent(0x03, "ab") + kravoEvent(1, "g")));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 6);
    QCOMPARE(midi.stream(), songFile(left + kravoEvent(1, "g")));
}

void TestRawMidiFile::removeLeavesWhatRunsPastTheData()
{
    for (const quint32 trackLength : {7U, 100U, 0xFFFFFFFFU}) {
        const QByteArray file = cutFile(bytes({0, 0xFF, 0x03, 4}) + "abc", trackLength);
        RawMidiFile midi = loaded(file);
        QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 0);
        QCOMPARE(midi.stream(), file);
    }
    const QByteArray file = cutFile(bytes({0, 0xFF, 0x4B, 0x7F, 2}) + "abc" + kravoEvent(2, "ok"));
    RawMidiFile midi = loaded(file);
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoArtist, false), 7);
    QCOMPARE(midi.stream(), cutFile(bytes({0, 0xFF, 0x4B, 0x7F, 2}) + "abc"));
}

void TestRawMidiFile::removeLeavesWhatRunsPastTheTrack()
{
    // Removing it would cut into the next chunk and turn the track length negative.
    const QByteArray events = metaEvent(0x03, "abcdef");
    for (const quint32 trackLength : {0U, 1U, 9U}) {
        const QByteArray file = cutFile(events + track(notes()), trackLength);
        RawMidiFile midi = loaded(file);
        QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 0);
        QCOMPARE(midi.stream(), file);
        QCOMPARE(midi.trackLength(), trackLength);
    }
    RawMidiFile fits = loaded(cutFile(events + track(notes()), 10));
    QCOMPARE(fits.removeHeadMetaevent(char(0x03), false), 10);
    QCOMPARE(fits.stream(), cutFile(track(notes()), 0));
}

void TestRawMidiFile::removeLeavesTruncatedEvents()
{
    for (const QByteArray &events :
         {bytes({0, 0xFF}), bytes({0, 0xFF, 0x4B}), bytes({0, 0xFF, 0x4B, 2}),
          bytes({0, 0xFF, 0x4B, 2, 2}), bytes({0, 0xFF, 0x03}), bytes({0, 0xFF, 0x03, 1})}) {
        RawMidiFile midi = loaded(cutFile(events));
        QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 0);
        QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoArtist, false), 0);
        QCOMPARE(midi.stream(), cutFile(events));
    }
    RawMidiFile whole = loaded(cutFile(bytes({0, 0xFF, 0x03, 0})));
    QCOMPARE(whole.removeHeadMetaevent(char(0x03), false), 4);
    QCOMPARE(whole.stream(), cutFile(QByteArray()));
}

void TestRawMidiFile::removeKeepsLongDeltaTimesWhole_data()
{
    // What stands between the start of the track and a key change whose delta time ends in 00.
    QTest::addColumn<QByteArray>("before");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("channel messages") << bytes(
        {0, 0x90, 60, 100, 10, 0xC0, 5, 0, 0xD0, 9, 0, 0xE0, 0, 64, 1, 0xA0, 1, 2, 1, 0xB0, 7, 99});
    QTest::newRow("running status") << bytes({0, 0x90, 60, 100, 96, 60, 0, 0x83, 0x00, 64, 1});
    QTest::newRow("system exclusive") << bytes({0, 0xF0, 3, 0x7E, 0x7F, 0xF7, 0, 0xF7, 1, 0xF8});
    QTest::newRow("long text") << bytes({0, 0xFF, 0x01, 0x81, 0x02}) + QByteArray(130, 'x');
    QTest::newRow("longest marker") << markerEvent(1, QByteArray(125, 'm'));
}

void TestRawMidiFile::removeKeepsLongDeltaTimesWhole()
{
    // Cut at its last byte, the delta time 83 00 would join the 85 00 that follows, and the music
    // behind it would come hours late.
    QFETCH(QByteArray, before);
    const QByteArray keyChange = bytes({0x83, 0x00, 0xFF, 0x59, 2, 2, 0});
    const QByteArray after = bytes({0x85, 0x00, 0x90, 62, 100, 0x60, 0x80, 62, 0});
    const QByteArray file =
        midiFile({track(before + metaEvent(0x59, bytes({1, 0})) + keyChange + after)});
    RawMidiFile midi = loaded(file);
    QCOMPARE(midi.removeHeadMetaevent(char(0x59), false), 6);
    QCOMPARE(midi.stream(), midiFile({track(before + keyChange + after)}));
}

void TestRawMidiFile::removeKeepsWhatOnlyLooksLikeAnEvent_data()
{
    // 00 FF 03 and a length, yet none of it is a title.
    QTest::addColumn<QByteArray>("music");
    QTest::newRow("velocity 0, then a rest of FF 03")
        << bytes({0, 0x90, 60, 100, 96, 60, 0x00, 0xFF, 0x03, 64, 1, 0, 64, 0});
    QTest::newRow("controller value 0, then a rest of FF 03")
        << bytes({0, 0xB0, 7, 0x00, 0xFF, 0x03, 0xC0, 0, 1, 0xC0, 2});
    QTest::newRow("program 0, then a rest of FF 03")
        << bytes({0, 0xC0, 0x00, 0xFF, 0x03, 0x90, 60, 100, 96, 60, 0});
    QTest::newRow("within a text") << metaEvent(0x01, bytes({'a', 0, 0xFF, 0x03, 1, 'b', 'c'}));
    QTest::newRow("major key, then a rest of FF 03")
        << metaEvent(0x59, bytes({2, 0x00})) + bytes({0xFF, 0x03, 0x90, 60, 100, 1, 60, 0});
}

void TestRawMidiFile::removeKeepsWhatOnlyLooksLikeAnEvent()
{
    QFETCH(QByteArray, music);
    RawMidiFile midi = loaded(midiFile({track(metaEvent(0x03, "Title") + music)}));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 9);
    QCOMPARE(midi.stream(), midiFile({track(music)}));
}

void TestRawMidiFile::emptyTitleBeforeALongRestStaysWhole()
{
    // The length of an empty title, then a rest of FF 4B and a note on: no event of the maker.
    const QByteArray music = bytes({0xFF, 0x4B, 0x90, 1, 100, 0x60, 1, 0});
    RawMidiFile midi = loaded(midiFile({track(music)}));
    midi.setTitle(QString());
    midi.setGenre(QStringLiteral("Pop"));
    QCOMPARE(midi.stream(),
             midiFile({track(kravoEvent(1, "Pop") + metaEvent(0x03, QByteArray()) + music)}));
}

void TestRawMidiFile::removeSeesDeltaZeroBehindHighBytes_data()
{
    // The byte before the delta time is 80 or above, but belongs to the event before.
    QTest::addColumn<QByteArray>("before");
    QTest::newRow("accented text") << metaEvent(0x01, "Caff\xE8");
    QTest::newRow("tempo") << metaEvent(0x51, bytes({0x06, 0x66, 0xFC}));
    QTest::newRow("system exclusive") << bytes({0, 0xF0, 3, 0x7E, 0x7F, 0xF7});
    QTest::newRow("accented genre") << kravoEvent(1, "R\xE9\xE9");
    QTest::newRow("accented marker") << markerEvent(1, QByteArray(125, '\xE9'));
    QTest::newRow("track that makes no sense") << bytes({0, 0xF4, 0x81});
}

void TestRawMidiFile::removeSeesDeltaZeroBehindHighBytes()
{
    QFETCH(QByteArray, before);
    RawMidiFile midi = loaded(songFile(before + metaEvent(0x03, "Title")));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 9);
    QCOMPARE(midi.stream(), songFile(before));
}

void TestRawMidiFile::removeFollowsTheByteSearchOnRandomData()
{
    // The rule, event by event and slowly, on data that are no events from the first status byte
    // on.
    QRandomGenerator random(20121001);
    int removedInAll = 0;
    for (int round = 0; round < 3000; ++round) {
        QByteArray events = bytes({0, 0xF4});
        while (events.size() < 60) {
            switch (random.bounded(4)) {
            case 0:
                events += bytes({0, 0xFF, 0x4B});
                break;
            case 1:
                events += bytes({0, 0xFF, 0x03});
                break;
            default:
                events += static_cast<char>(random.bounded(7));
            }
        }
        const QByteArray file = cutFile(events, static_cast<quint32>(random.bounded(80)));
        const bool onlyFirst = random.bounded(4) == 0;
        const bool kravo = random.bounded(2) == 0;

        QByteArray expected = file;
        qsizetype trackEnd =
            qMin<qsizetype>(EventsPos + static_cast<quint8>(file.at(LengthPos + 3)), file.size());
        const QByteArray wanted = kravo ? bytes({0, 0xFF, 0x4B}) : bytes({0, 0xFF, 0x03});
        qsizetype from = EventsPos;
        while (true) {
            const qsizetype position = expected.indexOf(wanted, from);
            if (position < 0 || position >= trackEnd)
                break;
            const int length = position + 3 < expected.size() ? expected.at(position + 3) : 0;
            const bool whole = position + 4 + length <= trackEnd;
            const bool mine = !kravo || (position + 4 < expected.size() &&
                                         expected.at(position + 4) == RawMidiFile::KravoArtist);
            if (!whole || !mine) {
                from = position + 1;
                continue;
            }
            expected.remove(position, 4 + length);
            expected[LengthPos + 3] = static_cast<char>(expected.at(LengthPos + 3) - 4 - length);
            trackEnd -= 4 + length;
            from = position;
            if (onlyFirst)
                break;
        }

        RawMidiFile midi = loaded(file);
        const int removed = kravo ? midi.removeHeadMetaevent(RawMidiFile::KravoArtist, onlyFirst)
                                  : midi.removeHeadMetaevent(char(0x03), onlyFirst);
        QCOMPARE(midi.stream(), expected);
        QCOMPARE(removed, static_cast<int>(file.size() - expected.size()));
        removedInAll += removed;
    }
    QVERIFY(removedInAll > 10000);
}

// ---- What must hold whatever the file is like

void TestRawMidiFile::trackLengthFollowsEveryChange()
{
    RawMidiFile midi = loaded(songFile(FullHead));
    const auto difference = static_cast<qsizetype>(midi.trackLength()) - midi.stream().size();
    for (int step = 0; step < 12; ++step) {
        const QString text(step * 12, QLatin1Char('s'));
        midi.setTitle(text);
        midi.setKey(step % 2 == 0 ? QStringLiteral("Bb") : QString());
        midi.setMarkersList({Marker{1, text}, Marker{2, text}});
        midi.setAuthor(text);
        midi.setLength(step * 1000);
        midi.removeHeadMetaevent(RawMidiFile::KravoMarker, true);
        QCOMPARE(static_cast<qsizetype>(midi.trackLength()) - midi.stream().size(), difference);
        QCOMPARE(storedLength(midi), bigEndian(midi.trackLength(), 4));
    }
}

void TestRawMidiFile::impossibleTrackLengthIsKeptUnlessBytesGo()
{
    RawMidiFile midi = loaded(cutFile(metaEvent(0x03, "old") + notes(), 0xFFFFFFFF));
    midi.setTitle(QStringLiteral("new"));
    QCOMPARE(midi.stream(), cutFile(metaEvent(0x03, "new") + notes(), 0xFFFFFFFF));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 7);
    QCOMPARE(midi.stream(), cutFile(notes(), 0xFFFFFFF8));
}

void TestRawMidiFile::truncatedFilesAreHarmless()
{
    const QByteArray file =
        midiFile({track(FullHead + markerEvent(3, QByteArray(125, 'x')) + notes()),
                  track(metaEvent(0x03, "Piano") + notes())},
                 1);
    int accepted = 0;
    for (qsizetype size = 0; size <= file.size(); ++size) {
        // Bytes of their own, so that a sanitizer sees any step past their end.
        const QByteArray cut(file.constData(), size);
        RawMidiFile midi;
        if (!midi.loadData(cut))
            continue;
        ++accepted;
        const auto difference = static_cast<qsizetype>(midi.trackLength()) - midi.stream().size();
        callEverything(midi);
        QCOMPARE(midi.title(), QStringLiteral("t"));
        QCOMPARE(static_cast<qsizetype>(midi.trackLength()) - midi.stream().size(), difference);
        QCOMPARE(storedLength(midi), bigEndian(midi.trackLength(), 4));
    }
    QCOMPARE(accepted, static_cast<int>(file.size()) - EventsPos + 1);
}

void TestRawMidiFile::randomFilesAreHarmless()
{
    const LogCapture log; // random keys are unknown ones; their lines are of no interest here
    QRandomGenerator random(1985);
    const QByteArray frequent = bytes({0x00, 0xFF, 0x4B, 0x03, 0x59, 0x06, 0x80, 0x7F});
    for (int round = 0; round < 2000; ++round) {
        QByteArray events;
        const int size = random.bounded(200);
        for (int i = 0; i < size; ++i) {
            const int index = random.bounded(16);
            events += index < 8 ? frequent.at(index) : static_cast<char>(random.bounded(256));
        }
        const quint32 trackLength =
            random.bounded(3) == 0 ? random.generate() : static_cast<quint32>(random.bounded(300));
        RawMidiFile midi = loaded(cutFile(events, trackLength));
        const qsizetype before = midi.stream().size();
        for (int step = 0; step < 3; ++step)
            callEverything(midi);
        QCOMPARE(storedLength(midi), bigEndian(midi.trackLength(), 4));
        QCOMPARE(qint64(midi.trackLength()) - trackLength, midi.stream().size() - before);
    }
}

void TestRawMidiFile::hostileFilesAreFast_data()
{
    QTest::addColumn<QByteArray>("unit");
    QTest::newRow("FF 4B") << bytes({0xFF, 0x4B});
    QTest::newRow("00 FF 4B") << bytes({0, 0xFF, 0x4B});
    QTest::newRow("00 FF 03") << bytes({0, 0xFF, 0x03});
    QTest::newRow("all FF") << bytes({0xFF});
    QTest::newRow("all 00") << bytes({0});
    QTest::newRow("empty titles") << metaEvent(0x03, "");
    QTest::newRow("artists") << kravoEvent(2, "x");
    QTest::newRow("authors") << kravoEvent(3, "");
    QTest::newRow("keys") << metaEvent(0x59, bytes({1, 0}));
    QTest::newRow("markers too short") << bytes({0xFF, 0x4B, 1, 6});
    QTest::newRow("markers that overlap") << bytes({0xFF, 0x4B, 0xFF, 6});
    QTest::newRow("negative lengths") << bytes({1, 0xFF, 0x4B, 0x80, 2});
    QTest::newRow("long delta times") << bytes({0x81, 0x00, 0xFF, 0x59, 2, 1, 0});
}

void TestRawMidiFile::hostileFilesAreFast()
{
    QFETCH(QByteArray, unit);
    const QByteArray events = unit.repeated(500000 / static_cast<int>(unit.size()));
    RawMidiFile midi = loaded(cutFile(events));
    QElapsedTimer timer;
    timer.start();
    callEverything(midi);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(storedLength(midi), bigEndian(midi.trackLength(), 4));
    QCOMPARE(midi.stream().size(), qsizetype(EventsPos) + midi.trackLength());
}

QTEST_APPLESS_MAIN(TestRawMidiFile)
#include "test_rawmidifile.moc"
