// An MP3 song as sound.
#pragma once

#include "sound/mp3frames.h"
#include "sound/soundparts.h"
#include "sound/soundsource.h"

#include <QByteArray>

#include <memory>

class Mp3Source : public SoundSource
{
public:
    /** The bytes of the whole file; the audio begins at the position. The parts must outlive it. */
    Mp3Source(SoundParts &parts, const QByteArray &bytes, qsizetype audioStart);

    qsizetype read(qint16 *samples, qsizetype frames, int longestWait) override;
    void seek(qint64 frame) override;
    qint64 position() const override { return m_position; }
    bool isBroken() const override;

private:
    qsizetype readDecoded(qint16 *samples, qsizetype frames, int longestWait);

    SoundParts &m_parts;
    const QByteArray m_bytes;
    const Mp3Frames m_frames;
    std::unique_ptr<Decoder> m_decoder;
    qint64 m_toSkip = 0; ///< frames that only lead to the place that was sought
    qint64 m_position = 0;
    bool m_hasSounded = false;
};
