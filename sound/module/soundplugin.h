// What the module gives to the program.
#pragma once

#include "sound/soundparts.h"

#include <QObject>

class SoundPlugin : public QObject, public SoundParts
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KAVENA_SOUND_PARTS)
    Q_INTERFACES(SoundParts)

public:
    std::unique_ptr<Synthesizer> makeSynthesizer(const QString &soundFont) override;
    std::unique_ptr<Decoder> makeDecoder(const QByteArray &bytes) override;
    std::unique_ptr<AudioOutput> makeOutput(std::function<void()> devicesChanged) override;
};
