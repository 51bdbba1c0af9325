#include "sound/module/mediaoutput.h"

#include "sound/pcm.h"

#include <QAudioDevice>

#include <utility>

/** What the sink reads from. */
class MediaOutput::Stream : public QIODevice
{
public:
    explicit Stream(Pull pull)
        : m_pull(std::move(pull))
    {
        open(ReadOnly | Unbuffered);
    }

    bool isSequential() const override { return true; }

    // A sink does not read from a stream that has nothing.
    qint64 bytesAvailable() const override { return m_isAtEnd ? 0 : longestRead; }
    bool atEnd() const override { return m_isAtEnd; }
    bool hasEnded() const { return m_isAtEnd; }

protected:
    qint64 readData(char *data, qint64 longest) override
    {
        const qsizetype frames = longest / pcm::bytesInFrame;
        if (m_isAtEnd || frames == 0)
            return 0;
        const qsizetype count = m_pull(reinterpret_cast<qint16 *>(data), frames);
        m_isAtEnd = count == 0;
        return count * pcm::bytesInFrame;
    }

    qint64 writeData(const char * /*data*/, qint64 /*longest*/) override { return -1; }

private:
    static constexpr qint64 longestRead = 65536;

    const Pull m_pull;
    bool m_isAtEnd = false;
};

MediaOutput::MediaOutput(std::function<void()> devicesChanged)
{
    QObject::connect(&m_devices, &QMediaDevices::audioOutputsChanged, &m_devices,
                     std::move(devicesChanged));
}

MediaOutput::~MediaOutput()
{
    close();
}

bool MediaOutput::hasDevice() const
{
    return !QMediaDevices::defaultAudioOutput().isNull();
}

SoundProblem::Kind MediaOutput::start(Pull pull, Ended ended)
{
    stop();
    QAudioFormat format;
    format.setSampleRate(pcm::sampleRate);
    format.setChannelCount(pcm::channels);
    format.setSampleFormat(QAudioFormat::Int16);
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull())
        return SoundProblem::NoDevice;
    if (!device.isFormatSupported(format))
        return SoundProblem::DeviceFailed;
    constexpr double buffered = 0.3; // seconds: enough for a busy computer
    m_ended = std::move(ended);
    m_stream = std::make_unique<Stream>(std::move(pull));
    m_sink = std::make_unique<QAudioSink>(device, format);
    m_sink->setBufferSize(pcm::frames(buffered) * pcm::bytesInFrame);
    m_sink->setVolume(m_volume);
    QObject::connect(
        m_sink.get(), &QAudioSink::stateChanged, &m_devices,
        [this](QAudio::State state) { onState(state); }, Qt::QueuedConnection);
    m_sink->start(m_stream.get());
    return m_sink->error() == QAudio::OpenError || m_sink->error() == QAudio::FatalError
               ? SoundProblem::DeviceFailed
               : SoundProblem::None;
}

void MediaOutput::onState(QAudio::State state)
{
    if (!m_sink || !m_ended || m_sink->state() != state)
        return;
    const bool isOver = state == QAudio::IdleState && m_stream->hasEnded();
    const bool isBroken = state == QAudio::StoppedState;
    if (!isOver && !isBroken)
        return;
    const Ended ended = std::exchange(m_ended, {});
    ended(isOver ? SoundProblem::None : SoundProblem::DeviceFailed);
}

void MediaOutput::suspend()
{
    if (m_sink)
        m_sink->suspend();
}

void MediaOutput::resume()
{
    if (m_sink)
        m_sink->resume();
}

void MediaOutput::stop()
{
    close();
}

void MediaOutput::close()
{
    m_ended = {};
    if (m_sink)
        m_sink->stop();
    m_sink.reset();
    m_stream.reset();
}

void MediaOutput::setVolume(int percent)
{
    constexpr float loudest = 100;
    m_volume = QAudio::convertVolume(static_cast<float>(percent) / loudest,
                                     QAudio::LogarithmicVolumeScale, QAudio::LinearVolumeScale);
    if (m_sink)
        m_sink->setVolume(m_volume);
}

qint64 MediaOutput::waitingFrames() const
{
    if (!m_sink)
        return 0;
    return (m_sink->bufferSize() - m_sink->bytesFree()) / pcm::bytesInFrame;
}
