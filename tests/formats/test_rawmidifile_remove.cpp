// Metadata events that are removed from the head of a MIDI track.
#include "formats/rawmidifile.h"
#include "support/midifilemaker.h"
#include "support/songbytes.h"

#include <QRandomGenerator>
#include <QTest>

using songbytes::kravoEvent;
using songbytes::markerEvent;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;
using Kravo = RawMidiFile::kRavoMetaTypeEnum;
using namespace midifilemaker;

class TestRawMidiFileRemove : public QObject
{
    Q_OBJECT

private slots:
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
};

void TestRawMidiFileRemove::removeReturnsTheNumberOfBytes()
{
    RawMidiFile midi = loaded(songFile(fullHead));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 11);
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 0);
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoMarker, false), 12 + 13);
    QVERIFY(!midi.hasMarkers());
    QVERIFY(!midi.hasTitle());
    QCOMPARE(midi.artist(), QStringLiteral("Some artist"));
}

void TestRawMidiFileRemove::removeOnlyFirst()
{
    const QByteArray music = notes();
    RawMidiFile midi = loaded(midiFile({track(kravoEvent(1, "one") + music + kravoEvent(1, "two") +
                                              metaEvent(0x03, "t1") + metaEvent(0x03, "t2"))}));
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoGenre, true), 8);
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), true), 6);
    QCOMPARE(midi.stream(),
             midiFile({track(music + kravoEvent(1, "two") + metaEvent(0x03, "t2"))}));
}

void TestRawMidiFileRemove::removeLeavesOtherDeltaTimes()
{
    const QByteArray file = songFile(bytes({0x0A, 0xFF, 0x03, 2}) + "ab" +
                                     bytes({0x83, 0x60, 0xFF, 0x4B, 3, 2}) + "cd");
    RawMidiFile midi = loaded(file);
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 0);
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoArtist, false), 0);
    QCOMPARE(midi.stream(), file);
}

void TestRawMidiFileRemove::removeLeavesOtherSubTypes()
{
    RawMidiFile midi = loaded(songFile(fullHead));
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

void TestRawMidiFileRemove::removeLeavesLaterTracks()
{
    const QByteArray second = track(metaEvent(0x03, "Piano") + kravoEvent(2, "x"));
    RawMidiFile midi = loaded(midiFile({track(metaEvent(0x03, "Song")), second}, 1));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 8);
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 0);
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoArtist, false), 0);
    QCOMPARE(midi.stream(), midiFile({track(QByteArray()), second}, 1));
    QCOMPARE(midi.title(), QStringLiteral("Piano"));
}

void TestRawMidiFileRemove::removeLeavesSignedLengths()
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

void TestRawMidiFileRemove::removeSearchesOnInsideAnEventItLeft()
{
    const QByteArray left = bytes({0, 0xFF, 0x03, 0x80});
    RawMidiFile midi = loaded(songFile(left + metaEvent(0x03, "ab") + kravoEvent(1, "g")));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 6);
    QCOMPARE(midi.stream(), songFile(left + kravoEvent(1, "g")));
}

void TestRawMidiFileRemove::removeLeavesWhatRunsPastTheData()
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

void TestRawMidiFileRemove::removeLeavesWhatRunsPastTheTrack()
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

void TestRawMidiFileRemove::removeLeavesTruncatedEvents()
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

void TestRawMidiFileRemove::removeKeepsLongDeltaTimesWhole_data()
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

void TestRawMidiFileRemove::removeKeepsLongDeltaTimesWhole()
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

void TestRawMidiFileRemove::removeKeepsWhatOnlyLooksLikeAnEvent_data()
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

void TestRawMidiFileRemove::removeKeepsWhatOnlyLooksLikeAnEvent()
{
    QFETCH(QByteArray, music);
    RawMidiFile midi = loaded(midiFile({track(metaEvent(0x03, "Title") + music)}));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 9);
    QCOMPARE(midi.stream(), midiFile({track(music)}));
}

void TestRawMidiFileRemove::emptyTitleBeforeALongRestStaysWhole()
{
    // The length of an empty title, then a rest of FF 4B and a note on: no event of the maker.
    const QByteArray music = bytes({0xFF, 0x4B, 0x90, 1, 100, 0x60, 1, 0});
    RawMidiFile midi = loaded(midiFile({track(music)}));
    midi.setTitle(QString());
    midi.setGenre(QStringLiteral("Pop"));
    QCOMPARE(midi.stream(),
             midiFile({track(kravoEvent(1, "Pop") + metaEvent(0x03, QByteArray()) + music)}));
}

void TestRawMidiFileRemove::removeSeesDeltaZeroBehindHighBytes_data()
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

void TestRawMidiFileRemove::removeSeesDeltaZeroBehindHighBytes()
{
    QFETCH(QByteArray, before);
    RawMidiFile midi = loaded(songFile(before + metaEvent(0x03, "Title")));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 9);
    QCOMPARE(midi.stream(), songFile(before));
}

void TestRawMidiFileRemove::removeFollowsTheByteSearchOnRandomData()
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
            qMin<qsizetype>(eventsPos + static_cast<quint8>(file.at(lengthPos + 3)), file.size());
        const QByteArray wanted = kravo ? bytes({0, 0xFF, 0x4B}) : bytes({0, 0xFF, 0x03});
        qsizetype from = eventsPos;
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
            expected[lengthPos + 3] = static_cast<char>(expected.at(lengthPos + 3) - 4 - length);
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

QTEST_APPLESS_MAIN(TestRawMidiFileRemove)

#include "test_rawmidifile_remove.moc"
