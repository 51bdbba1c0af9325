// Markers in the bytes of a MIDI file, read and written.
#include "formats/rawmidifile.h"
#include "support/midifilemaker.h"
#include "support/songbytes.h"

#include <QElapsedTimer>
#include <QTest>

using songbytes::kravoEvent;
using songbytes::markerEvent;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;
using namespace midifilemaker;

class TestRawMidiFileMarkers : public QObject
{
    Q_OBJECT

private slots:
    void markersAreReadInFileOrder();
    void markerLengthIsUnsigned();
    void markerSearchGoesOnBehindTheText();
    void markerWithoutTextIsRead();
    void damagedMarkers_data();
    void damagedMarkers();

    void markersAreWrittenInListOrder();
    void writingMarkersRemovesTheAuthorAndKeepsOldMarkers();
    void writingNoMarkersStillRemovesTheAuthor();
    void writtenMarkersAreCutAt125Characters();
    void insertMarkerCutsAt125Characters();
    void insertMarkerReturnsItsSize();
    void dbgInsertMarkerEqualsInsertMarker();
    void barsAreBigEndian16Bit();
    void longMarkerListsAreFast();
};

// ---- Markers, read
void TestRawMidiFileMarkers::markersAreReadInFileOrder()
{
    const RawMidiFile midi =
        loaded(midiFile({track(markerEvent(9, " Verse ") + kravoEvent(2, "artist") +
                               markerEvent(1, "Intro") + notes() + markerEvent(65535, "Coda")),
                         track(markerEvent(256, QByteArray("End\0x", 5)))},
                        1));
    QList<Marker> markers{Marker{7, QStringLiteral("old")}};
    QCOMPARE(midi.extractMarkersList(markers), eventsPos + 1);
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

void TestRawMidiFileMarkers::markerLengthIsUnsigned()
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

void TestRawMidiFileMarkers::markerSearchGoesOnBehindTheText()
{
    const QByteArray inner = markerEvent(2, "in");
    const RawMidiFile midi = loaded(songFile(markerEvent(1, "a" + inner) + markerEvent(3, "b")));
    const QList<Marker> markers = midi.markersList();
    QCOMPARE(markers.size(), 2);
    QCOMPARE(markers.at(0).text, QStringLiteral("a")); // cut at the inner event's delta time
    QCOMPARE(markers.at(1).text, QStringLiteral("b"));
}

void TestRawMidiFileMarkers::markerWithoutTextIsRead()
{
    const QList<Marker> markers =
        loaded(songFile(markerEvent(5, "") + markerEvent(6, "x"))).markersList();
    QCOMPARE(markers.size(), 2);
    QCOMPARE(markers.at(0).bar, quint16(5));
    QVERIFY(markers.at(0).text.isEmpty());
    QCOMPARE(markers.at(1).bar, quint16(6));
}

void TestRawMidiFileMarkers::damagedMarkers_data()
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

void TestRawMidiFileMarkers::damagedMarkers()
{
    QFETCH(QByteArray, events);
    QFETCH(QStringList, markers);
    QStringList found;
    for (const Marker &marker : loaded(cutFile(events)).markersList())
        found.append(QStringLiteral("%1:%2").arg(marker.bar).arg(marker.text));
    QCOMPARE(found, markers);
}

// ---- Markers, written
void TestRawMidiFileMarkers::markersAreWrittenInListOrder()
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

void TestRawMidiFileMarkers::writingMarkersRemovesTheAuthorAndKeepsOldMarkers()
{
    RawMidiFile midi = loaded(songFile(kravoEvent(3, "Author") + markerEvent(4, "old") +
                                       kravoEvent(2, "Artist") + kravoEvent(3, "Second")));
    midi.setMarkersList({Marker{2, QStringLiteral("new")}});
    QCOMPARE(midi.stream(),
             songFile(markerEvent(2, "new") + markerEvent(4, "old") + kravoEvent(2, "Artist")));
    QVERIFY(!midi.hasAuthor());
}

void TestRawMidiFileMarkers::writingNoMarkersStillRemovesTheAuthor()
{
    RawMidiFile midi = loaded(songFile(kravoEvent(3, "Author") + markerEvent(4, "old")));
    midi.setMarkersList({});
    QCOMPARE(midi.stream(), songFile(markerEvent(4, "old")));
}

void TestRawMidiFileMarkers::writtenMarkersAreCutAt125Characters()
{
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setMarkersList({Marker{1, QString(500, QLatin1Char('l'))}});
    QCOMPARE(midi.stream(), songFile(markerEvent(1, QByteArray(125, 'l'))));
}

void TestRawMidiFileMarkers::insertMarkerCutsAt125Characters()
{
    RawMidiFile midi = loaded(songFile(QByteArray()));
    QCOMPARE(midi.insertMarker(QString(400, QLatin1Char('l')), 2), 132);
    QCOMPARE(static_cast<quint8>(midi.stream().at(eventsPos + 3)), quint8(128));
    QCOMPARE(midi.stream(), songFile(markerEvent(2, QByteArray(125, 'l'))));
    QCOMPARE(midi.markersList().first().text, QString(125, QLatin1Char('l')));
    // Its length byte is negative where events are removed, so it stays.
    QCOMPARE(midi.removeHeadMetaevent(RawMidiFile::KravoMarker, false), 0);
    QCOMPARE(midi.stream(), songFile(markerEvent(2, QByteArray(125, 'l'))));
}

void TestRawMidiFileMarkers::insertMarkerReturnsItsSize()
{
    RawMidiFile midi = loaded(songFile(metaEvent(0x03, "T")));
    QCOMPARE(midi.insertMarker(QStringLiteral("Coda"), 0x0102), 11);
    QCOMPARE(midi.stream(),
             songFile(bytes({0x00, 0xFF, 0x4B, 0x07, 0x06, 0x01, 0x02, 'C', 'o', 'd', 'a'}) +
                      metaEvent(0x03, "T")));
}

void TestRawMidiFileMarkers::dbgInsertMarkerEqualsInsertMarker()
{
    RawMidiFile one = loaded(songFile(fullHead));
    RawMidiFile other = one;
    const QString text(130, QLatin1Char('d'));
    QCOMPARE(one.dbgInsertMarker(text, 77), other.insertMarker(text, 77));
    QCOMPARE(one.stream(), other.stream());
}

void TestRawMidiFileMarkers::barsAreBigEndian16Bit()
{
    for (const quint16 bar : {quint16(0), quint16(1), quint16(255), quint16(256), quint16(65535)}) {
        RawMidiFile midi = loaded(songFile(QByteArray()));
        midi.insertMarker(QStringLiteral("b"), bar);
        QCOMPARE(midi.stream(), songFile(markerEvent(bar, "b")));
        QCOMPARE(midi.markersList().first().bar, bar);
    }
}

void TestRawMidiFileMarkers::longMarkerListsAreFast()
{
    const QList<Marker> markers(100000, Marker{5, QString(125, QLatin1Char('x'))});
    RawMidiFile midi = loaded(songFile(QByteArray()));
    QElapsedTimer timer;
    timer.start();
    midi.setMarkersList(markers);
    QVERIFY(timer.elapsed() < 5000);
    QCOMPARE(midi.markersList().size(), 100000);
}

QTEST_APPLESS_MAIN(TestRawMidiFileMarkers)

#include "test_rawmidifile_markers.moc"
