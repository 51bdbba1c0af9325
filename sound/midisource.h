// A MIDI song as sound.
#pragma once

#include "sound/midiscore.h"
#include "sound/soundparts.h"
#include "sound/soundsource.h"

#include <memory>

class MidiSource : public SoundSource
{
public:
    MidiSource(MidiScore score, std::unique_ptr<Synthesizer> synthesizer);

    qsizetype read(qint16 *samples, qsizetype frames, int longestWait) override;
    void seek(qint64 frame) override;
    qint64 position() const override { return m_position; }
    bool isBroken() const override { return false; }

private:
    void sendEvents();
    void send(const MidiScore::Event &event);

    const MidiScore m_score;
    const std::unique_ptr<Synthesizer> m_synthesizer;
    const qint64 m_end; ///< frames to the last event
    qint64 m_position = 0;
    std::size_t m_next = 0; ///< the event that comes next
};
