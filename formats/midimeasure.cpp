#include "formats/midimeasure.h"

#include "formats/barcount.h"
#include "formats/bytetext.h"
#include "formats/keyguess.h"
#include "formats/midikeys.h"
#include "formats/midimetaevent.h"
#include "formats/miditracks.h"
#include "formats/miditrackwalk.h"
#include "formats/tempomap.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace
{

constexpr int channels = 16;
constexpr int drumChannel = 9;
constexpr std::size_t notesInChannel = 128;

constexpr int noteOff = 0x80;
constexpr int noteOn = 0x90;

constexpr qsizetype keySignatureSize = 2;

int unsignedAt(QByteArrayView data, qsizetype place)
{
    return static_cast<quint8>(data.at(place));
}

/** The notes that sound in one track, and how long those did that have ended. */
class NoteLengths
{
public:
    explicit NoteLengths(PitchClassLengths &lengths)
        : m_lengths(lengths)
    {
        m_starts.fill(silent);
    }

    void on(int channel, int note, qint64 tick)
    {
        off(channel, note, tick);
        startOf(channel, note) = tick;
    }

    void off(int channel, int note, qint64 tick)
    {
        qint64 &start = startOf(channel, note);
        if (start != silent)
            m_lengths.at(static_cast<std::size_t>(note) % m_lengths.size()) +=
                static_cast<double>(tick - start);
        start = silent;
    }

private:
    static constexpr qint64 silent = -1;

    qint64 &startOf(int channel, int note)
    {
        return m_starts.at(static_cast<std::size_t>(channel) * notesInChannel +
                           static_cast<std::size_t>(note));
    }

    PitchClassLengths &m_lengths;
    std::array<qint64, channels * notesInChannel> m_starts;
};

/** What all tracks of a file say. */
class MidiReading
{
public:
    explicit MidiReading(quint16 timeDivision)
        : m_tempos(timeDivision)
        , m_bars(std::max(m_tempos.ticksInQuarter(), 1))
    {
    }

    void readTrack(QByteArrayView track)
    {
        MidiTrackWalk walk(track, 0);
        NoteLengths notes(m_noteLengths);
        qint64 tick = 0;
        while (walk.next()) {
            tick += walk.delta();
            if (walk.status() != MidiMetaEvent::statusByte)
                takeNote(walk, tick, notes);
            else if (walk.metaType() == MidiMetaEvent::EndOfTrack)
                break;
            else
                takeMeta(walk, tick);
        }
        m_end = std::max(m_end, tick);
    }

    SongMeasure measure()
    {
        SongMeasure measure;
        const TempoMap::Sum sum = m_tempos.until(m_end);
        measure.length = sum.seconds;
        measure.bpm = sum.bpm;
        measure.key = m_key.value_or(QString());
        if (!m_key) {
            measure.key = guessedKey(m_noteLengths);
            measure.isKeyGuessed = !measure.key.isEmpty();
        }
        if (m_tempos.ticksInQuarter() > 0)
            measure.markers = markers();
        return measure;
    }

private:
    struct Text {
        qint64 tick;
        QString text;
    };

    static void takeNote(const MidiTrackWalk &walk, qint64 tick, NoteLengths &notes)
    {
        const int kind = walk.status() & 0xF0;
        const int channel = walk.status() & 0x0F;
        if ((kind != noteOn && kind != noteOff) || channel == drumChannel)
            return;
        const QByteArrayView data = walk.data();
        if (kind == noteOn && unsignedAt(data, 1) > 0)
            notes.on(channel, unsignedAt(data, 0), tick);
        else
            notes.off(channel, unsignedAt(data, 0), tick);
    }

    void takeMeta(const MidiTrackWalk &walk, qint64 tick)
    {
        const QByteArrayView data = walk.data();
        switch (walk.metaType()) {
        case MidiMetaEvent::Tempo:
            m_tempos.add(tick, data);
            break;
        case MidiMetaEvent::TimeSignature:
            m_bars.add(tick, data);
            break;
        case MidiMetaEvent::KeySignature:
            if (data.size() == keySignatureSize)
                takeKey(qFromBigEndian<quint16>(data.data()), tick);
            break;
        case MidiMetaEvent::Marker:
        case MidiMetaEvent::CuePoint:
            if (m_texts.size() < midimeasure::mostMarkers)
                m_texts.append({tick, textFromBytes(data)});
            break;
        default:
            break;
        }
    }

    void takeKey(quint16 value, qint64 tick)
    {
        if (tick >= m_keyTick || !midikeys::names().contains(value))
            return;
        m_key = midikeys::names().value(value);
        m_keyTick = tick;
    }

    QList<Marker> markers()
    {
        m_bars.count();
        std::stable_sort(m_texts.begin(), m_texts.end(),
                         [](const Text &a, const Text &b) { return a.tick < b.tick; });
        QList<Marker> found;
        for (const Text &text : std::as_const(m_texts)) {
            const qint64 bar = m_bars.barAt(text.tick);
            if (text.text.isEmpty() || bar > std::numeric_limits<decltype(Marker::bar)>::max())
                continue;
            // Some programs write a marker into each track.
            const bool isKnown = std::any_of(found.crbegin(), found.crend(), [&](const Marker &m) {
                return m.bar == bar && m.text == text.text;
            });
            if (!isKnown)
                found.append({static_cast<quint16>(bar), text.text});
        }
        return found;
    }

    TempoMap m_tempos;
    BarCount m_bars;
    PitchClassLengths m_noteLengths{};
    std::optional<QString> m_key;
    qint64 m_keyTick = std::numeric_limits<qint64>::max();
    QList<Text> m_texts;
    qint64 m_end = 0;
};

} // namespace

SongMeasure midimeasure::of(const RawMidiFile &midi)
{
    MidiReading reading(miditracks::timeDivisionOf(midi));
    const QList<QByteArrayView> tracks = miditracks::of(midi);
    for (const QByteArrayView track : tracks)
        reading.readTrack(track);
    return reading.measure();
}
