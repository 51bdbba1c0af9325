// What hostile MIDI files do to the readers and writers of their metadata.
#include "formats/rawmidifile.h"
#include "support/logcapture.h"
#include "support/midifilemaker.h"
#include "support/songbytes.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

using songbytes::bigEndian;
using songbytes::kravoEvent;
using songbytes::markerEvent;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;
using namespace midifilemaker;

class TestRawMidiFileHostile : public QObject
{
    Q_OBJECT

private slots:
    void trackLengthFollowsEveryChange();
    void impossibleTrackLengthIsKeptUnlessBytesGo();
    void truncatedFilesAreHarmless();
    void randomFilesAreHarmless();
    void hostileFilesAreFast_data();
    void hostileFilesAreFast();
};

// ---- What must hold whatever the file is like
void TestRawMidiFileHostile::trackLengthFollowsEveryChange()
{
    RawMidiFile midi = loaded(songFile(fullHead));
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

void TestRawMidiFileHostile::impossibleTrackLengthIsKeptUnlessBytesGo()
{
    RawMidiFile midi = loaded(cutFile(metaEvent(0x03, "old") + notes(), 0xFFFFFFFF));
    midi.setTitle(QStringLiteral("new"));
    QCOMPARE(midi.stream(), cutFile(metaEvent(0x03, "new") + notes(), 0xFFFFFFFF));
    QCOMPARE(midi.removeHeadMetaevent(char(0x03), false), 7);
    QCOMPARE(midi.stream(), cutFile(notes(), 0xFFFFFFF8));
}

void TestRawMidiFileHostile::truncatedFilesAreHarmless()
{
    const QByteArray file =
        midiFile({track(fullHead + markerEvent(3, QByteArray(125, 'x')) + notes()),
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
    QCOMPARE(accepted, static_cast<int>(file.size()) - eventsPos + 1);
}

void TestRawMidiFileHostile::randomFilesAreHarmless()
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

void TestRawMidiFileHostile::hostileFilesAreFast_data()
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

void TestRawMidiFileHostile::hostileFilesAreFast()
{
    QFETCH(QByteArray, unit);
    const QByteArray events = unit.repeated(500000 / static_cast<int>(unit.size()));
    RawMidiFile midi = loaded(cutFile(events));
    QElapsedTimer timer;
    timer.start();
    callEverything(midi);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(storedLength(midi), bigEndian(midi.trackLength(), 4));
    QCOMPARE(midi.stream().size(), qsizetype(eventsPos) + midi.trackLength());
}

QTEST_APPLESS_MAIN(TestRawMidiFileHostile)

#include "test_rawmidifile_hostile.moc"
