// Metadata in the bytes of a MIDI file: loading, and every reader.
#include "formats/rawmidifile.h"
#include "support/midifilemaker.h"
#include "support/songbytes.h"

#include <QTemporaryFile>
#include <QTest>

#include <limits>

using songbytes::bigEndian;
using songbytes::kravoEvent;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;
using namespace midifilemaker;

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
    QCOMPARE(midi.trackLengthPos(), quint32(lengthPos));
    QCOMPARE(midi.trackStart(), quint32(eventsPos));
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
    RawMidiFile midi = loaded(midiFile({track(fullHead)}, 1));
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
    const RawMidiFile midi = loaded(songFile(fullHead));
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
    const RawMidiFile midi = loaded(midiFile({track(notes()), track(fullHead)}, 1));
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
    QCOMPARE(midi.extractMetaevent(text, char(0x03)), eventsPos + 1);
    QCOMPARE(text, QStringLiteral("ab"));
    QCOMPARE(midi.extractMetaevent(text, RawMidiFile::KravoArtist), eventsPos + 7);
    QCOMPARE(text, QStringLiteral("cd"));
    QVERIFY(midi.extractMetaevent(text, char(0x02)) < 0);
    QVERIFY(text.isEmpty());
    text = QStringLiteral("old");
    QVERIFY(midi.extractMetaevent(text, RawMidiFile::KravoGenre) < 0);
    QVERIFY(text.isEmpty());
    // A type byte of 80 or above is as good as any other.
    QCOMPARE(loaded(songFile(metaEvent(0xF3, "hi"))).extractMetaevent(text, '\xF3'), eventsPos + 1);
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

QTEST_APPLESS_MAIN(TestRawMidiFile)

#include "test_rawmidifile.moc"
