// MIDI events played by FluidSynth.
#pragma once

#include "sound/soundparts.h"

#include <fluidsynth.h>
#include <memory>

class FluidSynthesizer : public Synthesizer
{
public:
    FluidSynthesizer();

    /** False for a sound font that cannot be read; the synthesizer is silent then. */
    bool load(const QString &soundFont);

    void send(quint8 status, quint8 first, quint8 second) override;
    void sendSystemExclusive(QByteArrayView data) override;
    void reset() override;
    void render(qint16 *samples, qsizetype frames) override;
    bool isSounding() const override;

private:
    struct Delete {
        void operator()(fluid_settings_t *settings) const { delete_fluid_settings(settings); }
        void operator()(fluid_synth_t *synth) const { delete_fluid_synth(synth); }
    };

    // The synthesizer goes before its settings.
    const std::unique_ptr<fluid_settings_t, Delete> m_settings;
    std::unique_ptr<fluid_synth_t, Delete> m_synth;
};
