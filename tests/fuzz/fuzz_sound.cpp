// Any bytes as the MIDI file or the MP3 file that is to be heard: what is played is within bounds
// that follow from the song's length, and the synthesizer only gets events that exist.
#include "formats/midimeasure.h"
#include "formats/rawmidifile.h"
#include "fuzzing.h"
#include "sound/midiscore.h"
#include "sound/midisource.h"
#include "sound/mp3frames.h"
#include "sound/pcm.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace
{

constexpr double longestTail = 3; // seconds in which the last notes fade away

/** Looks at what it gets; a note that has begun never ends. */
class CheckingSynthesizer : public Synthesizer
{
public:
    void send(quint8 status, quint8 first, quint8 second) override
    {
        constexpr quint8 statusBit = 0x80;
        constexpr quint8 systemMessages = 0xF0;
        FUZZ_REQUIRE(status >= statusBit && status < systemMessages);
        FUZZ_REQUIRE(first < statusBit && second < statusBit);
        m_isSounding = true;
    }
    void sendSystemExclusive(QByteArrayView /*data*/) override {}
    void reset() override { m_isSounding = false; }
    void render(qint16 *samples, qsizetype frames) override
    {
        FUZZ_REQUIRE(frames > 0);
        samples[0] = samples[frames * pcm::channels - 1] = 0;
    }
    bool isSounding() const override { return m_isSounding; }

private:
    bool m_isSounding = false;
};

/** Reads from here to the end of the song. */
void readToEnd(MidiSource &source, double length)
{
    constexpr qsizetype framesAtOnce = 1 << 20;
    static std::vector<qint16> samples(framesAtOnce * pcm::channels);
    qint64 position = source.position();
    while (const qsizetype count = source.read(samples.data(), framesAtOnce, 0)) {
        FUZZ_REQUIRE(count > 0 && count <= framesAtOnce);
        position += count;
        FUZZ_REQUIRE(source.position() == position);
    }
    FUZZ_REQUIRE(position >= pcm::frames(length));
    FUZZ_REQUIRE(position <= pcm::frames(length) + pcm::frames(longestTail));
}

void checkScore(const MidiScore &score, const RawMidiFile &midi)
{
    FUZZ_REQUIRE(score.length() > 0 && score.length() <= pcm::longestSeconds);
    const SongMeasure measure = midimeasure::of(midi);
    FUZZ_REQUIRE(std::abs(score.length() - measure.length) < 1e-3);
    qint64 time = 0;
    for (const MidiScore::Event &event : score.events()) {
        FUZZ_REQUIRE(event.time >= time && event.time <= pcm::frames(score.length()));
        FUZZ_REQUIRE(event.exclusive >= -1 && event.exclusive < score.exclusives().size());
        time = event.time;
    }
    for (const QList<Marker> &markers : {midi.markersList(), measure.markers}) {
        double start = 0;
        const QList<SongSection> sections = score.sections(midi, markers);
        FUZZ_REQUIRE(sections.size() <= std::min(markers.size(), MidiScore::mostSections));
        for (const SongSection &section : sections) {
            FUZZ_REQUIRE(section.start >= start && section.start < score.length());
            start = section.start;
        }
    }
}

void hearMidi(double place, const QByteArray &bytes)
{
    RawMidiFile midi;
    if (!midi.loadData(bytes))
        return;
    MidiScore score;
    if (score.read(midi) != SoundProblem::None)
        return;
    checkScore(score, midi);
    const double length = score.length();
    MidiSource source(std::move(score), std::make_unique<CheckingSynthesizer>());
    readToEnd(source, length);
    source.seek(pcm::frames(length * place));
    FUZZ_REQUIRE(source.position() <= pcm::frames(length));
    readToEnd(source, length);
}

void hearMp3(double place, const QByteArray &bytes)
{
    const Mp3Frames frames(bytes, static_cast<qsizetype>(place * 16));
    constexpr double smallestFrame = 24;
    constexpr double longestFrame = 1152.0 / 8000;
    FUZZ_REQUIRE(std::isfinite(frames.length()) && frames.length() >= 0);
    FUZZ_REQUIRE(frames.length() <=
                 static_cast<double>(bytes.size()) / smallestFrame * longestFrame);
    for (const double seconds : {0.0, frames.length() * place, frames.length() * 2}) {
        const Mp3Frames::Place found = frames.before(seconds);
        FUZZ_REQUIRE(found.offset >= 0 && found.offset <= bytes.size());
        FUZZ_REQUIRE(found.seconds >= 0 && found.seconds <= seconds);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzing::Input input(data, size);
    const int choice = input.byte();
    const double place = (choice >> 1) / 128.0; // in the song
    const QByteArray bytes = input.rest();
    if ((choice & 1) != 0)
        hearMp3(place, bytes);
    else
        hearMidi(place, bytes);
    return 0;
}
