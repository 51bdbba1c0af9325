#include "sound/rendering.h"

#include "sound/pcm.h"
#include "sound/songsound.h"
#include "sound/soundsource.h"
#include "sound/wavefile.h"

#include <array>

rendering::Result rendering::toWave(SongSound &song, SoundParts &parts, const QString &soundFont,
                                    const QString &path, const GoOn &goOn)
{
    Result result;
    const auto source = song.open(parts, soundFont, result.problem);
    if (!source)
        return {Outcome::CannotPlay, result.problem, 0};
    WaveFile file;
    if (!file.begin(path))
        return {Outcome::CannotWrite, SoundProblem::None, 0};

    constexpr qsizetype framesAtOnce = 8192;
    constexpr int longestWait = 1000;
    constexpr double tail = 10; // a song may fade away behind its end
    std::array<qint16, framesAtOnce * pcm::channels> samples{};
    qint64 frames = 0;
    for (;;) {
        const qsizetype count = source->read(samples.data(), framesAtOnce, longestWait);
        if (!goOn(pcm::seconds(frames)))
            return {Outcome::Stopped, SoundProblem::None, 0};
        if (count == 0)
            break;
        // Silence in the place of what is late is for ears only.
        const qint64 reached = source->position();
        if (reached == frames)
            continue;
        frames = reached;
        if (frames > pcm::frames(pcm::longestSeconds + tail))
            return {Outcome::CannotPlay, SoundProblem::TooLong, 0};
        if (!file.add(samples.data(), count))
            return {Outcome::CannotWrite, SoundProblem::None, 0};
    }
    if (source->isBroken())
        return {Outcome::CannotPlay, SoundProblem::Damaged, 0};
    if (!file.finish())
        return {Outcome::CannotWrite, SoundProblem::None, 0};
    return {Outcome::Done, SoundProblem::None, pcm::seconds(frames)};
}
