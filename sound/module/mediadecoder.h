// MP3 files decoded by Qt Multimedia.
#pragma once

#include "sound/soundparts.h"

#include <QBuffer>
#include <QMutex>
#include <QThread>
#include <QWaitCondition>

#include <deque>

QT_BEGIN_NAMESPACE
class QAudioDecoder;
QT_END_NAMESPACE

/**
 * The decoder of Qt Multimedia needs an event loop and delivers when it likes. It runs on a thread
 * of its own and fills a store that read() empties; it waits while the store is full, so that long
 * songs take no more memory than short ones.
 */
class MediaDecoder : public Decoder
{
public:
    explicit MediaDecoder(const QByteArray &bytes);
    ~MediaDecoder() override;
    Q_DISABLE_COPY_MOVE(MediaDecoder)

    qsizetype read(qint16 *samples, qsizetype frames, int longestWait) override;
    bool isAtEnd() const override;

private:
    void start();
    void takeBuffers();
    void finish();

    QThread m_thread;
    QObject m_there; ///< lives on the thread and owns the decoder
    QBuffer m_bytes;
    QAudioDecoder *m_decoder = nullptr; ///< only used on the thread
    bool m_isFinished = false;          ///< only used on the thread

    mutable QMutex m_mutex; ///< for all below
    QWaitCondition m_more;
    std::deque<qint16> m_samples;
    bool m_isEnded = false;
    bool m_isWaiting = false; ///< the store is full
    qint64 m_waited = 0;      ///< milliseconds since the last samples came
};
