// Metadata in the bytes of a MIDI file: every writer.
#include "formats/rawmidifile.h"
#include "support/midifilemaker.h"
#include "support/songbytes.h"

#include <QTest>

#include <limits>

using songbytes::bigEndian;
using songbytes::kravoEvent;
using songbytes::markerEvent;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;
using namespace midifilemaker;

class TestRawMidiFileWrite : public QObject
{
    Q_OBJECT

private slots:
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

    void insertReturnsTheNumberOfBytes();
    void insertAtTheVeryEndWorks();
    void insertBeyondTheDataDoesNothing();
    void insertBeforeTheFirstTrackDoesNothing();
    void payloadBeyondTheLengthByteIsNotInserted();
    void insertNeverWrapsTheTrackLength();
    void updateTrackSizeWritesBigEndian();
};

// ---- Writers
void TestRawMidiFileWrite::titleIsWrittenAtTheHeadOfTheFirstTrack()
{
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setTitle(QStringLiteral("Abc"));
    QCOMPARE(midi.stream(), songFile(bytes({0x00, 0xFF, 0x03, 0x03, 'A', 'b', 'c'})));
    QCOMPARE(midi.title(), QStringLiteral("Abc"));
}

void TestRawMidiFileWrite::kravoTextsAreWritten_data()
{
    QTest::addColumn<int>("subType");
    QTest::newRow("genre") << 1;
    QTest::newRow("artist") << 2;
    QTest::newRow("author") << 3;
}

void TestRawMidiFileWrite::kravoTextsAreWritten()
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

void TestRawMidiFileWrite::numbersAreWrittenInDecimal_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("payload");
    QTest::newRow("usual") << 215 << QByteArray("215");
    QTest::newRow("zero") << 0 << QByteArray("0");
    QTest::newRow("negative") << -3 << QByteArray("-3");
    QTest::newRow("largest") << 2147483647 << QByteArray("2147483647");
}

void TestRawMidiFileWrite::numbersAreWrittenInDecimal()
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

void TestRawMidiFileWrite::titleIsCutAt125Characters()
{
    QString title;
    for (int i = 0; i < 200; ++i)
        title.append(QLatin1Char(static_cast<char>('a' + i % 26)));
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setTitle(title);
    QCOMPARE(midi.stream(), songFile(metaEvent(0x03, title.left(125).toLatin1())));
    QCOMPARE(static_cast<quint8>(midi.stream().at(eventsPos + 3)), quint8(125));
    QCOMPARE(midi.title(), title.left(125));
}

void TestRawMidiFileWrite::kravoTextsAreCutAt125Characters()
{
    const QString text(126, QLatin1Char('y'));
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setGenre(text);
    midi.setArtist(text);
    midi.setAuthor(text);
    const QByteArray cut(125, 'y');
    QCOMPARE(midi.stream(), songFile(kravoEvent(3, cut) + kravoEvent(2, cut) + kravoEvent(1, cut)));
    QCOMPARE(static_cast<quint8>(midi.stream().at(eventsPos + 3)), quint8(126));
    midi.setArtist(QStringLiteral("short")); // an event of the greatest length can be replaced
    QCOMPARE(midi.stream(),
             songFile(kravoEvent(2, "short") + kravoEvent(3, cut) + kravoEvent(1, cut)));
}

void TestRawMidiFileWrite::emptyTextIsWritten()
{
    RawMidiFile midi = loaded(songFile(metaEvent(0x03, "T") + kravoEvent(2, "A")));
    midi.setTitle(QString());
    midi.setArtist(QStringLiteral(""));
    QCOMPARE(midi.stream(), songFile(kravoEvent(2, "") + metaEvent(0x03, "")));
    QVERIFY(midi.hasTitle());
    QVERIFY(midi.hasArtist());
}

void TestRawMidiFileWrite::textIsWrittenAsLatin1()
{
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setTitle(QStringLiteral("Perché 5€"));
    QCOMPARE(midi.stream(), songFile(metaEvent(0x03, "Perch\xE9 5?")));
    QCOMPARE(midi.title(), QStringLiteral("Perché 5?"));
}

void TestRawMidiFileWrite::settingTheArtistTwiceLeavesOneEvent()
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

void TestRawMidiFileWrite::allOldTitlesAreReplaced()
{
    RawMidiFile midi =
        loaded(midiFile({track(metaEvent(0x03, "One") + metaEvent(0x01, "text") +
                               metaEvent(0x03, "Two") + notes() + metaEvent(0x03, "Three"))}));
    midi.setTitle(QStringLiteral("New"));
    QCOMPARE(midi.stream(),
             midiFile({track(metaEvent(0x03, "New") + metaEvent(0x01, "text") + notes())}));
}

void TestRawMidiFileWrite::onlyTheFirstTrackIsWritten()
{
    const QByteArray second = track(fullHead + notes());
    RawMidiFile midi = loaded(midiFile({track(notes()), second}, 1));
    midi.setTitle(QStringLiteral("T"));
    midi.setArtist(QStringLiteral("A"));
    midi.setKey(QStringLiteral("D"));
    QCOMPARE(midi.stream(), midiFile({track(metaEvent(0x59, bytes({2, 0})) + kravoEvent(2, "A") +
                                            metaEvent(0x03, "T") + notes()),
                                      second},
                                     1));
}

void TestRawMidiFileWrite::newestEventStandsFirst()
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

void TestRawMidiFileWrite::theCallersBytesStayAsTheyWere()
{
    const QByteArray file = songFile(fullHead);
    const QByteArray copy(file.constData(), file.size());
    RawMidiFile midi = loaded(file);
    callEverything(midi);
    QVERIFY(midi.stream() != file);
    QCOMPARE(file, copy);
}

void TestRawMidiFileWrite::copiesAreIndependent()
{
    const RawMidiFile original = loaded(songFile(metaEvent(0x03, "T")));
    RawMidiFile copy = original;
    copy.setTitle(QStringLiteral("Other"));
    QCOMPARE(original.stream(), songFile(metaEvent(0x03, "T")));
    QCOMPARE(copy.stream(), songFile(metaEvent(0x03, "Other")));
}

// ---- Inserting and removing
void TestRawMidiFileWrite::insertReturnsTheNumberOfBytes()
{
    RawMidiFile midi = loaded(songFile(metaEvent(0x03, "T")));
    QCOMPARE(midi.insertMetaevent("xyz", char(0x01), eventsPos + 5), 7);
    QCOMPARE(midi.insertMetaevent("", RawMidiFile::KravoGenre, eventsPos), 5);
    QCOMPARE(midi.stream(),
             songFile(kravoEvent(1, "") + metaEvent(0x03, "T") + metaEvent(0x01, "xyz")));
}

void TestRawMidiFileWrite::insertAtTheVeryEndWorks()
{
    const QByteArray file = cutFile(metaEvent(0x03, "T"));
    RawMidiFile midi = loaded(file);
    QCOMPARE(midi.insertMetaevent("e", char(0x01), static_cast<int>(file.size())), 5);
    QCOMPARE(midi.stream(), cutFile(metaEvent(0x03, "T") + metaEvent(0x01, "e")));
}

void TestRawMidiFileWrite::insertBeyondTheDataDoesNothing()
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

void TestRawMidiFileWrite::insertBeforeTheFirstTrackDoesNothing()
{
    const QByteArray file = songFile(QByteArray());
    RawMidiFile midi = loaded(file);
    for (const int position : {-1, 0, lengthPos, eventsPos - 1})
        QCOMPARE(midi.insertMetaevent("e", char(0x01), position), 0);
    QCOMPARE(midi.stream(), file);
}

void TestRawMidiFileWrite::payloadBeyondTheLengthByteIsNotInserted()
{
    const QByteArray file = songFile(QByteArray());
    RawMidiFile midi = loaded(file);
    QCOMPARE(midi.insertMetaevent(QByteArray(256, 'x'), char(0x01), eventsPos), 0);
    QCOMPARE(midi.insertMetaevent(QByteArray(255, 'x'), RawMidiFile::KravoGenre, eventsPos), 0);
    QCOMPARE(midi.stream(), file);
    QCOMPARE(midi.insertMetaevent(QByteArray(254, 'x'), RawMidiFile::KravoGenre, eventsPos), 259);
    QCOMPARE(midi.insertMetaevent(QByteArray(255, 'x'), char(0x01), eventsPos), 259);
}

void TestRawMidiFileWrite::insertNeverWrapsTheTrackLength()
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

void TestRawMidiFileWrite::updateTrackSizeWritesBigEndian()
{
    const QByteArray file = cutFile(notes(), 0x01020304);
    RawMidiFile midi = loaded(file);
    QCOMPARE(midi.trackLength(), 0x01020304U);
    midi.updateTrackSize();
    QCOMPARE(midi.stream(), file);
    QCOMPARE(midi.insertMetaevent("ab", char(0x01), eventsPos), 6);
    QCOMPARE(midi.stream().mid(lengthPos, 4), bytes({0x01, 0x02, 0x03, 0x0A}));
}

QTEST_APPLESS_MAIN(TestRawMidiFileWrite)

#include "test_rawmidifile_write.moc"
