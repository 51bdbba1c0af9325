// Stands in for the module that makes sound: no device, no sound font and no time is needed.
#pragma once

#include "sound/soundparts.h"

#include <QByteArray>
#include <QList>
#include <QMutex>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace fakesound
{

/** Writes down what it gets; each sample that it gives is the number of notes that are on. */
class NotedSynthesizer : public Synthesizer
{
public:
    struct Call {
        qint64 frame;
        QByteArray bytes;
    };
    struct Notes {
        QList<Call> calls;
        qint64 frames = 0;
        int sounding = 0;
    };

    explicit NotedSynthesizer(Notes &notes)
        : m_notes(notes)
    {
    }

    void send(quint8 status, quint8 first, quint8 second) override
    {
        const char bytes[] = {static_cast<char>(status), static_cast<char>(first),
                              static_cast<char>(second)};
        m_notes.calls.append({m_notes.frames, QByteArray(bytes, sizeof(bytes))});
        if ((status & 0xF0) == 0x90)
            m_notes.sounding += second > 0 ? 1 : -1;
        if ((status & 0xF0) == 0x80)
            --m_notes.sounding;
    }

    void sendSystemExclusive(QByteArrayView data) override
    {
        m_notes.calls.append({m_notes.frames, "F0" + data.toByteArray()});
    }

    void reset() override
    {
        m_notes.calls.append({m_notes.frames, "reset"});
        m_notes.sounding = 0;
    }

    void render(qint16 *samples, qsizetype frames) override
    {
        std::fill_n(samples, frames * 2, static_cast<qint16>(m_notes.sounding));
        m_notes.frames += frames;
    }

    bool isSounding() const override { return m_notes.sounding > 0; }

private:
    Notes &m_notes;
};

/** Gives so many frames, each sample the number of bytes that it was made of. */
class CountedDecoder : public Decoder
{
public:
    CountedDecoder(qsizetype bytes, qint64 frames)
        : m_sample(static_cast<qint16>(std::min<qsizetype>(bytes, 32767)))
        , m_left(frames)
    {
    }

    qsizetype read(qint16 *samples, qsizetype frames, int /*longestWait*/) override
    {
        const qint64 count = std::min<qint64>(frames, m_left);
        std::fill_n(samples, count * 2, m_sample);
        m_left -= count;
        return static_cast<qsizetype>(count);
    }

    bool isAtEnd() const override { return m_left == 0; }

private:
    const qint16 m_sample;
    qint64 m_left;
};

/** What the output of a test does and has heard; used by two threads. */
struct Device {
    std::atomic<bool> isThere = true;
    std::atomic<bool> refuses = false;
    std::atomic<qint64> framesAtOnce = 4410; ///< asked for every millisecond
    std::atomic<qint64> heard = 0;
    std::atomic<int> volume = -1;
    std::atomic<int> made = 0;
    std::atomic<QObject *> context = nullptr;
    std::function<void()> changed;
};

/** Hears faster than anybody: a hundred seconds in a second. */
class FastOutput : public AudioOutput
{
public:
    FastOutput(Device &device, std::function<void()> changed)
        : m_device(device)
    {
        ++device.made;
        device.changed = std::move(changed);
        device.context = &m_timer;
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { hear(); });
    }
    ~FastOutput() override { m_device.context = nullptr; }
    Q_DISABLE_COPY_MOVE(FastOutput)

    bool hasDevice() const override { return m_device.isThere; }

    SoundProblem::Kind start(Pull pull, Ended ended) override
    {
        if (m_device.refuses)
            return SoundProblem::DeviceFailed;
        m_pull = std::move(pull);
        m_ended = std::move(ended);
        m_timer.start();
        return SoundProblem::None;
    }

    void suspend() override { m_timer.stop(); }
    void resume() override { m_timer.start(); }
    void stop() override { m_timer.stop(); }
    void setVolume(int percent) override { m_device.volume = percent; }
    qint64 waitingFrames() const override { return 0; }

private:
    void hear()
    {
        QList<qint16> samples(static_cast<qsizetype>(m_device.framesAtOnce * 2));
        const qsizetype count = m_pull(samples.data(), samples.size() / 2);
        m_device.heard += count;
        if (count > 0)
            return;
        m_timer.stop();
        const Ended ended = std::exchange(m_ended, {});
        ended(SoundProblem::None);
    }

    Device &m_device;
    QTimer m_timer;
    Pull m_pull;
    Ended m_ended;
};

class Parts : public SoundParts
{
public:
    std::unique_ptr<Synthesizer> makeSynthesizer(const QString &soundFont) override
    {
        const QMutexLocker lock(&mutex);
        fonts.append(soundFont);
        if (refusesFonts)
            return nullptr;
        notes = {};
        return std::make_unique<NotedSynthesizer>(notes);
    }

    std::unique_ptr<Decoder> makeDecoder(const QByteArray &bytes) override
    {
        const QMutexLocker lock(&mutex);
        decoded.append(bytes);
        return std::make_unique<CountedDecoder>(bytes.size(), decodedFrames);
    }

    std::unique_ptr<AudioOutput> makeOutput(std::function<void()> changed) override
    {
        return std::make_unique<FastOutput>(device, std::move(changed));
    }

    QMutex mutex;
    QStringList fonts;
    std::atomic<bool> refusesFonts = false;
    NotedSynthesizer::Notes notes;
    QList<QByteArray> decoded;
    std::atomic<qint64> decodedFrames = 441000;
    Device device;
};

} // namespace fakesound
