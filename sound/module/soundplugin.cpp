#include "sound/module/soundplugin.h"

#include "sound/module/fluidsynthesizer.h"
#include "sound/module/mediadecoder.h"
#include "sound/module/mediaoutput.h"

#include <utility>

std::unique_ptr<Synthesizer> SoundPlugin::makeSynthesizer(const QString &soundFont)
{
    auto synthesizer = std::make_unique<FluidSynthesizer>();
    if (!synthesizer->load(soundFont))
        return nullptr;
    return synthesizer;
}

std::unique_ptr<Decoder> SoundPlugin::makeDecoder(const QByteArray &bytes)
{
    return std::make_unique<MediaDecoder>(bytes);
}

std::unique_ptr<AudioOutput> SoundPlugin::makeOutput(std::function<void()> devicesChanged)
{
    return std::make_unique<MediaOutput>(std::move(devicesChanged));
}
