#include "sound/module/mediadecoder.h"

#include "sound/pcm.h"

#include <QAudioBuffer>
#include <QAudioDecoder>
#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <algorithm>
#include <iterator>

namespace
{

/** Two seconds. */
constexpr std::size_t fullStore = std::size_t{2} * pcm::sampleRate * pcm::channels;

/** A decoder that delivers nothing for so many milliseconds will not do so any more. */
constexpr qint64 longestSilence = 20'000;

} // namespace

MediaDecoder::MediaDecoder(const QByteArray &bytes)
{
    m_bytes.setData(bytes);
    m_bytes.open(QIODevice::ReadOnly);
    m_there.moveToThread(&m_thread);
    m_bytes.moveToThread(&m_thread);
    m_thread.start();
    QMetaObject::invokeMethod(&m_there, [this] { start(); });
}

MediaDecoder::~MediaDecoder()
{
    QMetaObject::invokeMethod(&m_there, [this] {
        if (m_decoder != nullptr)
            m_decoder->stop();
        delete m_decoder;
        m_thread.quit();
    });
    m_thread.wait();
}

void MediaDecoder::start()
{
    QAudioFormat format;
    format.setSampleRate(pcm::sampleRate);
    format.setChannelCount(pcm::channels);
    format.setSampleFormat(QAudioFormat::Int16);
    m_decoder = new QAudioDecoder(&m_there);
    m_decoder->setAudioFormat(format);
    m_decoder->setSourceDevice(&m_bytes);
    QObject::connect(m_decoder, &QAudioDecoder::bufferReady, &m_there, [this] { takeBuffers(); });
    QObject::connect(m_decoder, &QAudioDecoder::finished, &m_there, [this] { finish(); });
    QObject::connect(m_decoder, qOverload<QAudioDecoder::Error>(&QAudioDecoder::error), &m_there,
                     [this] { finish(); });
    m_decoder->start();
}

/** Moves what was decoded into the store, until it is full. */
void MediaDecoder::takeBuffers()
{
    while (m_decoder->bufferAvailable()) {
        {
            const QMutexLocker lock(&m_mutex);
            m_isWaiting = m_samples.size() >= fullStore;
            if (m_isWaiting)
                return;
        }
        const QAudioBuffer buffer = m_decoder->read();
        if (!buffer.isValid() || buffer.format() != m_decoder->audioFormat())
            continue;
        const auto *const samples = buffer.constData<qint16>();
        const QMutexLocker lock(&m_mutex);
        m_samples.insert(m_samples.end(), samples, std::next(samples, buffer.sampleCount()));
        m_more.wakeAll();
    }
    if (m_isFinished) {
        const QMutexLocker lock(&m_mutex);
        m_isEnded = true;
        m_more.wakeAll();
    }
}

/** Nothing is decoded any more; the last buffers may still be there. */
void MediaDecoder::finish()
{
    m_isFinished = true;
    takeBuffers();
}

qsizetype MediaDecoder::read(qint16 *samples, qsizetype frames, int longestWait)
{
    const auto wanted = static_cast<std::size_t>(frames * pcm::channels);
    const QMutexLocker lock(&m_mutex);
    QElapsedTimer time;
    time.start();
    const QDeadlineTimer deadline(longestWait);
    while (m_samples.size() < wanted && !m_isEnded && m_more.wait(&m_mutex, deadline)) {
    }
    const std::size_t count = std::min(wanted, m_samples.size()) / pcm::channels * pcm::channels;
    m_waited = count > 0 ? 0 : m_waited + time.elapsed();
    if (m_waited > longestSilence)
        m_isEnded = true;
    const auto end = std::next(m_samples.begin(), static_cast<std::ptrdiff_t>(count));
    std::copy(m_samples.begin(), end, samples);
    m_samples.erase(m_samples.begin(), end);
    if (m_isWaiting && m_samples.size() < fullStore / 2) {
        m_isWaiting = false;
        QMetaObject::invokeMethod(&m_there, [this] { takeBuffers(); });
    }
    return static_cast<qsizetype>(count) / pcm::channels;
}

bool MediaDecoder::isAtEnd() const
{
    const QMutexLocker lock(&m_mutex);
    return m_isEnded && m_samples.size() < pcm::channels;
}
