// Sound played by Qt Multimedia.
#pragma once

#include "sound/soundparts.h"

#include <QAudioSink>
#include <QIODevice>
#include <QMediaDevices>

#include <memory>

class MediaOutput : public AudioOutput
{
public:
    explicit MediaOutput(std::function<void()> devicesChanged);
    ~MediaOutput() override;
    Q_DISABLE_COPY_MOVE(MediaOutput)

    bool hasDevice() const override;
    SoundProblem::Kind start(Pull pull, Ended ended) override;
    void suspend() override;
    void resume() override;
    void stop() override;
    void setVolume(int percent) override;
    qint64 waitingFrames() const override;

private:
    class Stream;

    void close();
    void onState(QAudio::State state);

    QMediaDevices m_devices;
    std::unique_ptr<Stream> m_stream;
    std::unique_ptr<QAudioSink> m_sink;
    Ended m_ended;
    qreal m_volume = 1;
};
