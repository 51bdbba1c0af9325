// The times of the events of a MIDI song.
#include "formats/rawmidifile.h"
#include "sound/midiscore.h"
#include "sound/midisource.h"
#include "sound/pcm.h"
#include "support/fakesound.h"
#include "support/songbytes.h"

#include <QTest>

#include <ctime>

using fakesound::NotedSynthesizer;
using songbytes::bigEndian;
using songbytes::metaEvent;
using songbytes::track;

namespace
{

QByteArray file(int division, const QList<QByteArray> &tracks)
{
    QByteArray out = "MThd" + bigEndian(6, 4) + bigEndian(1, 2) +
                     bigEndian(static_cast<quint64>(tracks.size()), 2) +
                     bigEndian(static_cast<quint64>(division), 2);
    for (const QByteArray &bytes : tracks)
        out += bytes;
    return out;
}

QByteArray hex(const char *digits)
{
    return QByteArray::fromHex(digits);
}

/** A change of tempo at delta time 0. */
QByteArray tempo(int microseconds)
{
    return metaEvent(0x51, bigEndian(static_cast<quint64>(microseconds), 3));
}

RawMidiFile loaded(const QByteArray &bytes)
{
    RawMidiFile midi;
    if (!midi.loadData(bytes))
        qFatal("a test file was refused");
    return midi;
}

MidiScore scoreOf(const QByteArray &bytes)
{
    MidiScore score;
    const SoundProblem::Kind problem = score.read(loaded(bytes));
    if (problem != SoundProblem::None)
        qFatal("a test song was refused: %d", problem);
    return score;
}

SoundProblem::Kind problemOf(const QByteArray &bytes)
{
    return MidiScore().read(loaded(bytes));
}

// A quarter note of middle C, 96 ticks long.
const QByteArray note = hex("00 90 3C 64 60 80 3C 40");

/** What the synthesizer of the source got, as "frame:bytes", until the end. */
QStringList played(const QByteArray &bytes)
{
    NotedSynthesizer::Notes notes;
    MidiSource source(scoreOf(bytes), std::make_unique<NotedSynthesizer>(notes));
    QList<qint16> samples(2 * 1000);
    while (source.read(samples.data(), 1000, 0) > 0) {
    }
    QStringList calls;
    for (const NotedSynthesizer::Call &call : notes.calls)
        calls.append(
            QStringLiteral("%1:%2")
                .arg(call.frame)
                .arg(QString::fromLatin1(call.bytes.startsWith("F0") ? call.bytes.mid(2).toHex()
                                                                     : call.bytes.toHex())));
    return calls;
}

} // namespace

class TestMidiScore : public QObject
{
    Q_OBJECT

private slots:
    void aQuarterNoteLastsHalfASecondWithoutATempo();
    void tempoChangesOfAnotherTrackCount();
    void aTempoOfZeroIsLeftOut();
    void framesOfFilmAreTimesWhateverTheTempo();
    void eventsOfAllTracksComeInTheOrderOfTime();
    void systemExclusiveEventsAreSent();
    void songOfTwoDaysIsTooLong();
    void songWithoutTimeIsDamaged();
    void songWithoutNotesHasNothingToHear();
    void hugeTempoMapTakesNoLonger();
    void sectionsBeginAtTheirBars();
    void sectionsCountChangesOfMetre();
    void sectionsBehindTheEndAreLeftOut();
    void moreSectionsThanAMenuCanShowAreLeftOut();
    void namesOfSectionsAreALineThatAMenuCanShow();
    void noteThatNeverEndsStopsSoonBehindTheEnd();
    void thousandsOfNotesAtOnceAreCutShort();
    void seekingKeepsTheInstruments();
};

void TestMidiScore::aQuarterNoteLastsHalfASecondWithoutATempo()
{
    QCOMPARE(played(file(96, {track(note)})),
             (QStringList{QStringLiteral("0:903c64"), QStringLiteral("22050:803c40")}));
    QCOMPARE(scoreOf(file(96, {track(note)})).length(), 0.5);
}

void TestMidiScore::tempoChangesOfAnotherTrackCount()
{
    // One quarter note at 120, then 60 beats a minute.
    const QByteArray tempos = track(tempo(500000) + hex("60 FF 51 03 0F 42 40"));
    QCOMPARE(played(file(96, {tempos, track(note + note)})),
             (QStringList{QStringLiteral("0:903c64"), QStringLiteral("22050:803c40"),
                          QStringLiteral("22050:903c64"), QStringLiteral("66150:803c40")}));
}

void TestMidiScore::aTempoOfZeroIsLeftOut()
{
    QCOMPARE(scoreOf(file(96, {track(tempo(0) + note)})).length(), 0.5);
}

void TestMidiScore::framesOfFilmAreTimesWhateverTheTempo()
{
    // 25 frames a second of 4 ticks each: 96 ticks are 0.96 seconds.
    QCOMPARE(scoreOf(file(0xE704, {track(tempo(1000000) + note)})).length(), 0.96);
}

void TestMidiScore::eventsOfAllTracksComeInTheOrderOfTime()
{
    const QByteArray later = hex("30 91 40 64 60 81 40 40");
    QCOMPARE(played(file(96, {track(note), track(later)})),
             (QStringList{QStringLiteral("0:903c64"), QStringLiteral("11025:914064"),
                          QStringLiteral("22050:803c40"), QStringLiteral("33075:814040")}));
}

void TestMidiScore::systemExclusiveEventsAreSent()
{
    const QStringList calls = played(file(96, {track(hex("00 F0 05 7E 7F 09 01 F7") + note)}));
    QCOMPARE(calls.constFirst(), QStringLiteral("0:7e7f0901f7"));
}

void TestMidiScore::songOfTwoDaysIsTooLong()
{
    const QByteArray longWait = hex("FF FF FF 7F 80 3C 40");
    QCOMPARE(problemOf(file(96, {track(hex("00 90 3C 64") + longWait)})), SoundProblem::TooLong);
    // Only the end of a track is late.
    const QByteArray events = note + hex("FF FF FF 7F FF 2F 00");
    QCOMPARE(problemOf(file(96, {"MTrk" + bigEndian(quint64(events.size()), 4) + events})),
             SoundProblem::TooLong);
}

void TestMidiScore::songWithoutTimeIsDamaged()
{
    QCOMPARE(problemOf(file(0, {track(note)})), SoundProblem::Damaged);
    QCOMPARE(problemOf(file(96, {"MTrk" + bigEndian(4, 4) + "\xFF\xFF\xFF\xFF"})),
             SoundProblem::Damaged);
}

void TestMidiScore::songWithoutNotesHasNothingToHear()
{
    QCOMPARE(problemOf(file(96, {track(hex("00 C0 05"))})), SoundProblem::NoMusic);
}

void TestMidiScore::hugeTempoMapTakesNoLonger()
{
    QByteArray tempos;
    constexpr int changes = 200'000;
    for (int i = 0; i < changes; ++i)
        tempos += hex("01 FF 51 03 07 A1 20");
    QByteArray notes;
    for (int i = 0; i < changes; ++i)
        notes += hex("01 90 3C 64");
    const std::clock_t start = std::clock(); // of the processor: a machine may stand still
    const MidiScore score = scoreOf(file(96, {track(tempos), track(notes)}));
    QCOMPARE(score.events().size(), std::size_t{changes});
    // Each event against each change would take hours.
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    QVERIFY2(seconds < 60, qPrintable(QString::number(seconds)));
}

void TestMidiScore::sectionsBeginAtTheirBars()
{
    const QByteArray bytes = file(96, {track(note + hex("98 00 90 3C 64"))});
    const QList<SongSection> sections = scoreOf(bytes).sections(
        loaded(bytes), {{3, QStringLiteral("Chorus")}, {1, QStringLiteral("Intro")}});
    QCOMPARE(sections.size(), 2);
    QCOMPARE(sections.at(0).name, QStringLiteral("Intro"));
    QCOMPARE(sections.at(0).start, 0.0);
    QCOMPARE(sections.at(1).name, QStringLiteral("Chorus"));
    QCOMPARE(sections.at(1).start, 4.0); // two bars of four quarter notes
}

void TestMidiScore::sectionsCountChangesOfMetre()
{
    // One bar of 3/4, then 6/8; the fourth bar is the third of 6/8.
    const QByteArray metres = hex("00 FF 58 04 03 02 18 08") + hex("82 20 FF 58 04 06 03 18 08");
    const QByteArray bytes = file(96, {track(metres), track(note + hex("98 00 90 3C 64"))});
    const QList<SongSection> sections = scoreOf(bytes).sections(
        loaded(bytes), {{2, QStringLiteral("A")}, {4, QStringLiteral("B")}});
    QCOMPARE(sections.size(), 2);
    QCOMPARE(sections.at(0).start, 1.5);
    QCOMPARE(sections.at(1).start, 4.5);
}

void TestMidiScore::sectionsBehindTheEndAreLeftOut()
{
    const QByteArray bytes = file(96, {track(note)});
    QVERIFY(scoreOf(bytes).sections(loaded(bytes), {{65535, QStringLiteral("A")}}).isEmpty());
}

void TestMidiScore::moreSectionsThanAMenuCanShowAreLeftOut()
{
    const QByteArray bytes = file(96, {track(note + hex("98 00 90 3C 64"))});
    QList<Marker> markers{{3, QStringLiteral("Last")}};
    for (int i = 0; i < 200'000; ++i)
        markers.append({2, QString::number(i)});
    const QList<SongSection> sections = scoreOf(bytes).sections(loaded(bytes), markers);
    QCOMPARE(sections.size(), 1000);
    QCOMPARE(sections.at(999).name, QStringLiteral("999"));
}

void TestMidiScore::namesOfSectionsAreALineThatAMenuCanShow()
{
    const QByteArray bytes = file(96, {track(note + hex("98 00 90 3C 64"))});
    const QList<SongSection> sections =
        scoreOf(bytes).sections(loaded(bytes), {{1, QStringLiteral(" Verse\tone\nCtrl+Q ")},
                                                {2, QString(5'000'000, u'x')}});
    QCOMPARE(sections.size(), 2);
    QCOMPARE(sections.at(0).name, QStringLiteral("Verse one Ctrl+Q"));
    QCOMPARE(sections.at(1).name, QString(125, u'x'));
}

void TestMidiScore::noteThatNeverEndsStopsSoonBehindTheEnd()
{
    NotedSynthesizer::Notes notes;
    MidiSource source(scoreOf(file(96, {track(note + hex("00 90 40 64"))})),
                      std::make_unique<NotedSynthesizer>(notes));
    QList<qint16> samples(2 * 4410);
    qint64 frames = 0;
    while (const qsizetype count = source.read(samples.data(), 4410, 0))
        frames += count;
    QCOMPARE(frames, 22050 + 3 * 44100);
}

void TestMidiScore::thousandsOfNotesAtOnceAreCutShort()
{
    QByteArray events;
    for (int i = 0; i < 5000; ++i)
        events += hex("00 90 3C 64");
    QVERIFY(played(file(96, {track(events + note)})).size() < 1000);
}

void TestMidiScore::seekingKeepsTheInstruments()
{
    NotedSynthesizer::Notes notes;
    MidiSource source(scoreOf(file(96, {track(hex("00 C0 12") + note + note)})),
                      std::make_unique<NotedSynthesizer>(notes));
    source.seek(22050);
    QList<qint16> samples(2 * 100);
    QCOMPARE(source.read(samples.data(), 100, 0), 100);
    QCOMPARE(source.position(), 22150);
    QCOMPARE(notes.calls.size(), 4);
    QCOMPARE(notes.calls.at(0).bytes, "reset");
    QCOMPARE(notes.calls.at(1).bytes, hex("C0 12 00"));
    QCOMPARE(notes.calls.at(2).bytes, hex("80 3C 40"));
    QCOMPARE(notes.calls.at(3).bytes, hex("90 3C 64"));
    // Behind the end there is nothing but the end.
    source.seek(pcm::frames(3600));
    QCOMPARE(source.read(samples.data(), 100, 0), 0);
}

QTEST_APPLESS_MAIN(TestMidiScore)
#include "test_midiscore.moc"
