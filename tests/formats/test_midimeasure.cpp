// Length, tempo, key and marked places from the music of MIDI files put together by hand.
#include "formats/midimeasure.h"
#include "formats/rawmidifile.h"
#include "support/midievents.h"

#include <QElapsedTimer>
#include <QTest>

using namespace midievents;
using namespace songbytes;

namespace
{

/** The song with another time division than songbytes gives it. */
QByteArray divided(QByteArray midi, int high, int low)
{
    midi[12] = static_cast<char>(high);
    midi[13] = static_cast<char>(low);
    return midi;
}

SongMeasure measured(const QByteArray &bytes)
{
    RawMidiFile midi;
    return midi.loadData(bytes) ? midimeasure::of(midi) : SongMeasure{-1, -1, {}, false, {}};
}

/** Notes of equal length. */
QByteArray tune(const QList<int> &keys, int channel = 0)
{
    QByteArray bytes;
    for (const int key : keys)
        bytes += note(channel, key, quarter);
    return bytes;
}

QString shown(const QList<Marker> &markers)
{
    QStringList texts;
    for (const Marker &marker : markers)
        texts.append(QString::number(marker.bar) + QLatin1Char(' ') + marker.text);
    return texts.join(QLatin1Char('|'));
}

} // namespace

class TestMidiMeasure : public QObject
{
    Q_OBJECT

private slots:
    void aSongWithoutTempoHasHundredAndTwenty();
    void timeFollowsEachTempo();
    void tempoOfAnotherTrackCounts();
    void theEndOfATrackEndsTheSong();
    void framesOfFilmAreIndependentOfTempo_data();
    void framesOfFilmAreIndependentOfTempo();
    void tempoIsTheOneThatHoldsLongest();
    void ofEqualTemposTheFirstIsTaken();
    void severalStretchesOfOneTempoAddUp();
    void tempoZeroIsLeftOut();
    void runningStatusGoesOnBehindMetaEvents();
    void aTrackThatIsCutOffCountsAsFarAsItGoes();
    void chunksOfOtherKindsArePassedOver();
    void noDivisionGivesNoLength();
    void theKeySignatureIsTheKey();
    void theEarliestKeySignatureCounts();
    void withoutKeySignatureTheKeyIsGuessed_data();
    void withoutKeySignatureTheKeyIsGuessed();
    void drumsHaveNoKey();
    void markersAndCuesHaveTheirBars();
    void barsFollowChangesOfMetre();
    void aChangeOfMetreWithinABarBeginsOne();
    void markersOfSeveralTracksAreInOrderAndOnce();
    void barsThatThePlayerCannotNumberAreLeftOut();
    void hostileFilesAreMeasuredInBoundedTime_data();
    void hostileFilesAreMeasuredInBoundedTime();
};

void TestMidiMeasure::aSongWithoutTempoHasHundredAndTwenty()
{
    const SongMeasure measure = measured(midiFile({track(pause(4 * quarter))}));
    QCOMPARE(measure.length, 2.0);
    QCOMPARE(measure.bpm, 120);
}

void TestMidiMeasure::timeFollowsEachTempo()
{
    const QByteArray events = bpm(60) + pause(3 * quarter) + bpm(240) + pause(8 * quarter);
    QCOMPARE(measured(midiFile({track(events)})).length, 5.0);
}

void TestMidiMeasure::tempoOfAnotherTrackCounts()
{
    const QByteArray tempos = bpm(60) + after(2 * quarter, bpm(120));
    const QByteArray music = pause(6 * quarter);
    QCOMPARE(measured(midiFile({track(tempos), track(music)}, 1)).length, 4.0);
    QCOMPARE(measured(midiFile({track(music), track(tempos)}, 1)).length, 4.0);
}

void TestMidiMeasure::theEndOfATrackEndsTheSong()
{
    QByteArray events = tune({60});
    QByteArray bytes = track(events);
    bytes.replace(bytes.size() - 4, 1, quantity(quarter)); // the delta time of "end of track"
    QCOMPARE(measured(midiFile({bytes})).length, 1.0);
    // What stands behind it is not played.
    QCOMPARE(measured(midiFile({track(events + QByteArray("\x00\xFF\x2F\x00", 4) +
                                      pause(10 * quarter))}))
                 .length,
             0.5);
}

void TestMidiMeasure::framesOfFilmAreIndependentOfTempo_data()
{
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("ticksInFrame");
    QTest::addColumn<double>("seconds"); // of 24000 ticks
    QTest::newRow("24") << 24 << 10 << 100.0;
    QTest::newRow("25") << 25 << 40 << 24.0;
    QTest::newRow("29 is drop frame") << 29 << 80 << 10.01;
    QTest::newRow("30") << 30 << 80 << 10.0;
    QTest::newRow("no ticks") << 25 << 0 << 0.0;
    QTest::newRow("unknown rate") << 26 << 80 << 0.0;
}

void TestMidiMeasure::framesOfFilmAreIndependentOfTempo()
{
    QFETCH(int, rate);
    QFETCH(int, ticksInFrame);
    const QByteArray plain = midiFile({track(pause(24000))});
    const SongMeasure measure = measured(divided(plain, -rate, ticksInFrame));
    QTEST(measure.length, "seconds");
    QCOMPARE(measure.bpm, 0);
    const QByteArray slow = midiFile({track(bpm(30) + text(6, "A") + pause(24000))});
    const SongMeasure same = measured(divided(slow, -rate, ticksInFrame));
    QTEST(same.length, "seconds");
    QCOMPARE(same.bpm, 30);
    QVERIFY(same.markers.isEmpty()); // frames have no bars
}

void TestMidiMeasure::tempoIsTheOneThatHoldsLongest()
{
    const QByteArray events = bpm(60) + pause(3 * quarter) + bpm(140) + pause(20 * quarter) +
                              bpm(50) + pause(2 * quarter);
    QCOMPARE(measured(midiFile({track(events)})).bpm, 140);
}

void TestMidiMeasure::ofEqualTemposTheFirstIsTaken()
{
    const QByteArray events = bpm(100) + pause(100) + bpm(60) + pause(60);
    QCOMPARE(measured(midiFile({track(events)})).bpm, 100);
    QCOMPARE(measured(midiFile({track(bpm(90))})).bpm, 90); // holds for no time at all
}

void TestMidiMeasure::severalStretchesOfOneTempoAddUp()
{
    const QByteArray events = bpm(100) + pause(2 * quarter) + bpm(60) + pause(2 * quarter) +
                              tempo(600100) + pause(2 * quarter); // 99.98 is 100, too
    QCOMPARE(measured(midiFile({track(events)})).bpm, 100);
}

void TestMidiMeasure::tempoZeroIsLeftOut()
{
    const QByteArray events = bpm(60) + tempo(0) + pause(2 * quarter);
    const SongMeasure measure = measured(midiFile({track(events)}));
    QCOMPARE(measure.length, 2.0);
    QCOMPARE(measure.bpm, 60);
}

void TestMidiMeasure::runningStatusGoesOnBehindMetaEvents()
{
    const QByteArray events = QByteArray("\x00\x90\x3C\x64\x60\x3C\x00", 7) + text(1, "words") +
                              QByteArray("\x00\x40\x64\x60\x40\x00", 6);
    const SongMeasure measure = measured(midiFile({track(events)}));
    QCOMPARE(measure.length, 1.0);
}

void TestMidiMeasure::aTrackThatIsCutOffCountsAsFarAsItGoes()
{
    const QByteArray whole = midiFile({track(tune({60, 62, 64, 65}))});
    QCOMPARE(measured(whole).length, 2.0);
    double before = 2.0;
    for (qsizetype size = whole.size(); size >= 14 + 8; --size) {
        const double length = measured(whole.left(size)).length;
        QVERIFY(length <= before);
        before = length;
    }
    QCOMPARE(before, 0.0);
    // Data bytes that are none end what is known, too.
    QByteArray broken = whole;
    broken[broken.size() - 5] = '\xFE';
    QCOMPARE(measured(broken).length, 1.5);
}

void TestMidiMeasure::chunksOfOtherKindsArePassedOver()
{
    const QByteArray other = "XFIH" + bigEndian(5, 4) + "12345";
    QByteArray bytes = midiFile({track(pause(quarter)), other + track(pause(3 * quarter))}, 1);
    QCOMPARE(measured(bytes).length, 1.5);
    bytes[11] = 1; // a track beyond the number of tracks is no part of the song
    QCOMPARE(measured(bytes).length, 0.5);
}

void TestMidiMeasure::noDivisionGivesNoLength()
{
    const QByteArray events =
        text(6, "A") + bpm(90) + metaEvent(0x59, QByteArray("\x01\x00", 2)) + pause(quarter);
    const SongMeasure measure = measured(divided(midiFile({track(events)}), 0, 0));
    QCOMPARE(measure.length, 0.0);
    QCOMPARE(measure.bpm, 90);
    QCOMPARE(measure.key, QStringLiteral("G"));
    QVERIFY(measure.markers.isEmpty());
    QCOMPARE(midimeasure::of(RawMidiFile()).length, 0.0); // nor has a file that was not loaded
}

void TestMidiMeasure::theKeySignatureIsTheKey()
{
    const auto keyOf = [](const QByteArray &data) {
        const SongMeasure measure =
            measured(midiFile({track(metaEvent(0x59, data) + tune({60, 64, 67}))}));
        return measure.key + (measure.isKeyGuessed ? QStringLiteral("?") : QString());
    };
    QCOMPARE(keyOf(QByteArray("\xFD\x01", 2)), QStringLiteral("C-"));
    QCOMPARE(keyOf(QByteArray("\x07\x00", 2)), QStringLiteral("C#"));
    QCOMPARE(keyOf(QByteArray("\x08\x00", 2)), QStringLiteral("C?")); // there is no such signature
    QCOMPARE(keyOf(QByteArray("\x01", 1)), QStringLiteral("C?"));
}

void TestMidiMeasure::theEarliestKeySignatureCounts()
{
    const QByteArray late = after(quarter, metaEvent(0x59, QByteArray("\x02\x00", 2)));
    const QByteArray early = metaEvent(0x59, QByteArray("\x01\x00", 2));
    QCOMPARE(measured(midiFile({track(late), track(early)}, 1)).key, QStringLiteral("G"));
}

void TestMidiMeasure::withoutKeySignatureTheKeyIsGuessed_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QList<int>>("notes");
    const QList<int> major{0, 4, 7, 0, 5, 9, 0, 2, 7, 11, 2, 4, 0, 4, 7, 12};
    const QList<int> minor{0, 3, 7, 0, 5, 8, 0, 2, 7, 11, 2, 3, 0, 3, 7, 12};
    const QStringList majors =
        QStringLiteral("C Db D Eb E F F# G Ab A Bb B").split(QLatin1Char(' '));
    const QStringList minors =
        QStringLiteral("C- C#- D- Eb- E- F- F#- G- G#- A- Bb- B-").split(QLatin1Char(' '));
    for (int tonic = 0; tonic < 12; ++tonic) {
        for (const bool isMinor : {false, true}) {
            const QString key = isMinor ? minors.at(tonic) : majors.at(tonic);
            QList<int> notes;
            for (const int step : isMinor ? minor : major)
                notes.append(48 + tonic + step);
            // D sharp minor has as many sharps as E flat minor has flats.
            QTest::addRow("%s", qPrintable(key))
                << (key == QLatin1String("Eb-") ? QStringLiteral("D#-") : key) << notes;
        }
    }
}

void TestMidiMeasure::withoutKeySignatureTheKeyIsGuessed()
{
    QFETCH(QList<int>, notes);
    const SongMeasure measure = measured(midiFile({track(tune(notes))}));
    QTEST(measure.key, "key");
    QVERIFY(measure.isKeyGuessed);
}

void TestMidiMeasure::drumsHaveNoKey()
{
    const SongMeasure drums = measured(midiFile({track(tune({36, 38, 42}, 9))}));
    QCOMPARE(drums.key, QString());
    QVERIFY(!drums.isKeyGuessed);
    const QByteArray loud = tune(QList<int>(200, 42), 9);
    QCOMPARE(measured(midiFile({track(loud + tune({60, 64, 67, 72}))})).key, QStringLiteral("C"));
}

void TestMidiMeasure::markersAndCuesHaveTheirBars()
{
    const QByteArray events = text(6, "Intro") + after(8 * quarter, text(7, " Verse ")) +
                              after(4 * quarter - 1, text(6, "still there")) +
                              after(1, text(6, "Caf\xE9")) + text(6, "") + text(5, "a word");
    QCOMPARE(shown(measured(midiFile({track(events)})).markers),
             QStringLiteral("1 Intro|3 Verse|3 still there|4 Café"));
}

void TestMidiMeasure::barsFollowChangesOfMetre()
{
    // Two bars of 3/4, four of 6/8, one of 5/16, all in a track of their own.
    const QByteArray metres = metre(3, 2) + after(6 * quarter, metre(6, 3)) +
                              after(12 * quarter, metre(5, 4)) + after(120, metre(4, 2));
    const QByteArray marks = text(6, "A") + after(6 * quarter, text(6, "B")) +
                             after(12 * quarter, text(6, "C")) + after(120, text(6, "D")) +
                             after(4 * quarter, text(6, "E"));
    QCOMPARE(shown(measured(midiFile({track(metres), track(marks)}, 1)).markers),
             QStringLiteral("1 A|3 B|7 C|8 D|9 E"));
}

void TestMidiMeasure::aChangeOfMetreWithinABarBeginsOne()
{
    const QByteArray events = pause(quarter) + metre(4, 2) + text(6, "behind the upbeat") +
                              metre(0, 2) + metre(4, 9) + after(4 * quarter, text(6, "next"));
    QCOMPARE(shown(measured(midiFile({track(events)})).markers),
             QStringLiteral("2 behind the upbeat|3 next"));
}

void TestMidiMeasure::markersOfSeveralTracksAreInOrderAndOnce()
{
    const QByteArray first = after(4 * quarter, text(6, "B")) + after(4 * quarter, text(6, "C"));
    const QByteArray second = text(6, "A") + after(4 * quarter, text(6, "B"));
    QCOMPARE(shown(measured(midiFile({track(first), track(second)}, 1)).markers),
             QStringLiteral("1 A|2 B|3 C"));
}

void TestMidiMeasure::barsThatThePlayerCannotNumberAreLeftOut()
{
    const QByteArray bar = after(4 * quarter, text(6, "here"));
    const QByteArray events = pause(65533 * 4 * quarter) + bar + bar;
    QCOMPARE(shown(measured(midiFile({track(events)})).markers), QStringLiteral("65535 here"));
}

void TestMidiMeasure::hostileFilesAreMeasuredInBoundedTime_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<double>("seconds");

    QByteArray tempos;
    for (quint32 i = 0; i < 2000000; ++i)
        tempos += "\x01\xFF\x51\x03" + bigEndian(500000 + i % 1000, 3);
    QTest::newRow("millionsOfTempos") << midiFile({track(tempos)}) << 10427.0;

    const QByteArray farAway = QByteArray("\xFF\xFF\xFF\x7F\xB0\x07\x64", 7).repeated(1000000);
    QTest::newRow("hugeDeltaTimes") << midiFile({track(farAway)}) << 1e6 * 268435455.0 / 96 / 2;

    QTest::newRow("fourHours") << midiFile({track(pause(4 * 3600 * 2 * quarter))}) << 14400.0;

    QByteArray marks;
    for (int i = 0; i < 1000000; ++i)
        marks += after(quarter, text(6, QByteArray::number(i)));
    QTest::newRow("aMillionMarkers") << midiFile({track(marks)}) << 500000.0;

    QByteArray metres;
    for (int i = 0; i < 1000000; ++i)
        metres += after(1, metre(1 + i % 255, i % 8));
    QTest::newRow("aMillionMetres") << midiFile({track(metres + marks.left(10000))}) << -1.0;

    QTest::newRow("tracksWithoutEnd")
        << midiFile(QList<QByteArray>(65535, "MTrk" + bigEndian(0, 4)), 1) << 0.0;
    QTest::newRow("hugeTrackLength")
        << midiFile({"MTrk" + bigEndian(0xFFFFFFFF, 4) + pause(quarter)}) << 0.5;
    QTest::newRow("noteOnsAlone") << midiFile({track(
                                         QByteArray("\x01\x90\x3C\x64", 4).repeated(1000000))})
                                  << 1e6 / 96 / 2;
}

void TestMidiMeasure::hostileFilesAreMeasuredInBoundedTime()
{
    QFETCH(QByteArray, bytes);
    QFETCH(double, seconds);
    QElapsedTimer timer;
    timer.start();
    const SongMeasure measure = measured(bytes);
    // Milliseconds with optimisation; a computer under load with sanitizers takes much longer.
    QVERIFY2(timer.elapsed() < 30000, qPrintable(QString::number(timer.elapsed())));
    if (seconds >= 0)
        QVERIFY2(qAbs(measure.length - seconds) < 1 + seconds / 1e6,
                 qPrintable(QString::number(measure.length, 'f')));
    QVERIFY(measure.markers.size() <= midimeasure::mostMarkers);
}

QTEST_APPLESS_MAIN(TestMidiMeasure)
#include "test_midimeasure.moc"
