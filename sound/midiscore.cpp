#include "sound/midiscore.h"

#include "formats/barcount.h"
#include "formats/midimetaevent.h"
#include "formats/miditracks.h"
#include "formats/miditrackwalk.h"
#include "formats/tempomap.h"
#include "sound/pcm.h"

#include <algorithm>

namespace
{

constexpr int systemExclusive = 0xF0;
constexpr int noteOnKind = 0x90;
constexpr qsizetype mostExclusives = 100'000;

quint8 byteOf(QByteArrayView data, qsizetype place)
{
    return place < data.size() ? static_cast<quint8>(data.at(place)) : quint8{0};
}

/** Calls the function for each meta event of this type with its tick and its data. */
template <typename Function>
void forEachMeta(const RawMidiFile &midi, int type, Function function)
{
    const QList<QByteArrayView> tracks = miditracks::of(midi);
    for (const QByteArrayView track : tracks) {
        MidiTrackWalk walk(track, 0);
        qint64 tick = 0;
        while (walk.next()) {
            tick += walk.delta();
            if (walk.status() != MidiMetaEvent::statusByte)
                continue;
            if (walk.metaType() == MidiMetaEvent::EndOfTrack)
                break;
            if (walk.metaType() == type)
                function(tick, walk.data());
        }
    }
}

TempoMap temposOf(const RawMidiFile &midi)
{
    TempoMap tempos(miditracks::timeDivisionOf(midi));
    forEachMeta(midi, MidiMetaEvent::Tempo,
                [&tempos](qint64 tick, QByteArrayView data) { tempos.add(tick, data); });
    return tempos;
}

} // namespace

SoundProblem::Kind MidiScore::read(const RawMidiFile &midi)
{
    *this = MidiScore();
    const QList<QByteArrayView> tracks = miditracks::of(midi);
    for (const QByteArrayView track : tracks) {
        if (!readTrack(track))
            return SoundProblem::TooLarge;
    }
    const bool hasNotes = std::any_of(m_events.cbegin(), m_events.cend(), [](const Event &event) {
        return (event.status & 0xF0) == noteOnKind && event.second > 0;
    });
    if (!hasNotes)
        return m_isValid ? SoundProblem::NoMusic : SoundProblem::Damaged;
    std::stable_sort(m_events.begin(), m_events.end(),
                     [](const Event &a, const Event &b) { return a.time < b.time; });

    TempoMap tempos = temposOf(midi);
    TempoMap::Clock clock(tempos);
    for (Event &event : m_events) {
        const double seconds = clock.secondsAt(event.time);
        if (seconds > pcm::longestSeconds)
            return SoundProblem::TooLong;
        event.time = pcm::frames(seconds);
    }
    m_length = clock.secondsAt(m_end);
    if (m_length > pcm::longestSeconds)
        return SoundProblem::TooLong;
    return m_length > 0 ? SoundProblem::None : SoundProblem::Damaged;
}

/** False when there are too many events. */
bool MidiScore::readTrack(QByteArrayView track)
{
    MidiTrackWalk walk(track, 0);
    qint64 tick = 0;
    while (walk.next()) {
        m_isValid = true;
        tick += walk.delta();
        if (walk.status() == MidiMetaEvent::statusByte) {
            if (walk.metaType() == MidiMetaEvent::EndOfTrack)
                break;
            continue;
        }
        Event event{tick, static_cast<quint8>(walk.status()), byteOf(walk.data(), 0),
                    byteOf(walk.data(), 1), -1};
        if (walk.status() >= systemExclusive) {
            if (walk.status() != systemExclusive || m_exclusives.size() >= mostExclusives)
                continue;
            event.exclusive = static_cast<qint32>(m_exclusives.size());
            m_exclusives.append(walk.data().toByteArray());
        }
        if (m_events.size() >= mostEvents)
            return false;
        m_events.push_back(event);
    }
    m_end = std::max(m_end, tick);
    return true;
}

QList<SongSection> MidiScore::sections(const RawMidiFile &midi, const QList<Marker> &markers) const
{
    TempoMap tempos = temposOf(midi);
    QList<SongSection> found;
    if (tempos.ticksInQuarter() == 0 || markers.isEmpty())
        return found;
    BarCount bars(tempos.ticksInQuarter());
    forEachMeta(midi, MidiMetaEvent::TimeSignature,
                [&bars](qint64 tick, QByteArrayView data) { bars.add(tick, data); });
    bars.count();
    QList<Marker> sorted = markers;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Marker &a, const Marker &b) { return a.bar < b.bar; });
    // The player's own markers have no more; other texts in the music may be of any size.
    constexpr qsizetype longestName = 125;
    constexpr qsizetype longestText = 1000;
    TempoMap::Clock clock(tempos);
    for (const Marker &marker : std::as_const(sorted)) {
        if (found.size() >= mostSections)
            break;
        const double start = clock.secondsAt(bars.tickOf(marker.bar));
        if (start < m_length)
            found.append({start, marker.text.left(longestText).simplified().left(longestName)});
    }
    return found;
}
