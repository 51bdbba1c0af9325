// Any bytes as the music of a MIDI file or as the audio of an MP3 file: what is measured is within
// bounds that follow from the size of the file.
#include "formats/midikeys.h"
#include "formats/midimeasure.h"
#include "formats/mp3length.h"
#include "formats/rawmidifile.h"
#include "fuzzing.h"

#include <QFile>

#include <algorithm>
#include <cmath>

namespace
{

/** No more ticks than each event's largest delta time, and no slower than a tempo can be. */
double longestLength(const QByteArray &bytes)
{
    constexpr double largestDelta = 0x0FFFFFFF;
    constexpr double slowestTempo = 0xFFFFFF / 1e6;
    return static_cast<double>(bytes.size()) * largestDelta * slowestTempo;
}

void measureMidi(const QByteArray &bytes)
{
    RawMidiFile midi;
    const bool isLoaded = midi.loadData(bytes);
    const SongMeasure measure = midimeasure::of(midi);
    FUZZ_REQUIRE(isLoaded || (measure.bpm <= 120 && measure.key.isEmpty()));
    FUZZ_REQUIRE(std::isfinite(measure.length) && measure.length >= 0);
    FUZZ_REQUIRE(measure.length <= longestLength(bytes));
    FUZZ_REQUIRE(measure.bpm >= 0 && measure.bpm <= 60000000);
    FUZZ_REQUIRE(measure.key.isEmpty() ? !measure.isKeyGuessed
                                       : midikeys::values().contains(measure.key));
    FUZZ_REQUIRE(measure.markers.size() <= midimeasure::mostMarkers);
    quint16 bar = 1;
    for (const Marker &marker : measure.markers) {
        FUZZ_REQUIRE(marker.bar >= bar && !marker.text.isEmpty());
        bar = marker.bar;
    }
    FUZZ_REQUIRE(midi.stream() == (isLoaded ? bytes : QByteArray()));
}

void measureMp3(const QByteArray &bytes)
{
    const QString path = fuzzing::memoryFolder() + QStringLiteral("/song.mp3");
    fuzzing::writeFile(path, bytes);
    QFile file(path);
    FUZZ_REQUIRE(file.open(QFile::ReadOnly));
    const double seconds = mp3length::of(file, 0);
    // The number that a header states is not bounded by the file. One that is counted is: no frame
    // is smaller or longer than this.
    constexpr double smallestFrame = 24;
    constexpr double longestFrame = 1152.0 / 8000;
    const bool hasHeader =
        bytes.contains("Xing") || bytes.contains("Info") || bytes.contains("VBRI");
    FUZZ_REQUIRE(std::isfinite(seconds) && seconds >= 0);
    FUZZ_REQUIRE(hasHeader ||
                 seconds <= static_cast<double>(bytes.size()) / smallestFrame * longestFrame);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzing::Input input(data, size);
    const bool isMp3 = (input.byte() & 1) != 0;
    const QByteArray bytes = input.rest();
    if (isMp3)
        measureMp3(bytes);
    else
        measureMidi(bytes);
    return 0;
}
