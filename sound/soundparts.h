// What makes and plays sound, in a module of its own: the libraries that it stands on are only
// loaded when a song is to be heard.
#pragma once

#include "sound/soundproblem.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QtPlugin>

#include <functional>
#include <memory>

/** Plays MIDI events as they come. */
class Synthesizer
{
public:
    Synthesizer() = default;
    virtual ~Synthesizer() = default;
    Q_DISABLE_COPY_MOVE(Synthesizer)

    /** An event of one channel. */
    virtual void send(quint8 status, quint8 first, quint8 second) = 0;

    /** What stands between F0 and F7. */
    virtual void sendSystemExclusive(QByteArrayView data) = 0;

    /** Ends all notes and forgets all settings. */
    virtual void reset() = 0;

    /** Fills the samples, two for each frame, with what sounds next. */
    virtual void render(qint16 *samples, qsizetype frames) = 0;

    /** True while a note, or its end, sounds. */
    virtual bool isSounding() const = 0;
};

/** Turns the bytes of an MP3 file into sound, on a thread of its own. */
class Decoder
{
public:
    Decoder() = default;
    virtual ~Decoder() = default;
    Q_DISABLE_COPY_MOVE(Decoder)

    /**
     * Fills the samples, two for each frame, and returns the number of frames. It may be smaller,
     * even 0, when no more are there within so many milliseconds.
     */
    virtual qsizetype read(qint16 *samples, qsizetype frames, int longestWait) = 0;

    /** True when nothing will come any more: behind the end, or since the bytes are no sound. */
    virtual bool isAtEnd() const = 0;
};

/** Lets be heard what it asks for. */
class AudioOutput
{
public:
    /** Fills the samples, two for each frame; returns the number of frames, 0 at the end. */
    using Pull = std::function<qsizetype(qint16 *samples, qsizetype frames)>;

    /** Called when all has been heard (None) or the device fails. */
    using Ended = std::function<void(SoundProblem::Kind problem)>;

    AudioOutput() = default;
    virtual ~AudioOutput() = default;
    Q_DISABLE_COPY_MOVE(AudioOutput)

    virtual bool hasDevice() const = 0;

    /** Both functions are called from the thread's event loop. None, or why nothing is heard. */
    virtual SoundProblem::Kind start(Pull pull, Ended ended) = 0;
    virtual void suspend() = 0;
    virtual void resume() = 0;

    /** Nothing is heard or called any more. */
    virtual void stop() = 0;

    /** From 0 to 100, as loud as it feels. */
    virtual void setVolume(int percent) = 0;

    /** Frames that were asked for and have not been heard yet. */
    virtual qint64 waitingFrames() const = 0;
};

class SoundParts
{
public:
    SoundParts() = default;
    virtual ~SoundParts() = default;
    Q_DISABLE_COPY_MOVE(SoundParts)

    /** Null for a sound font that cannot be read. */
    virtual std::unique_ptr<Synthesizer> makeSynthesizer(const QString &soundFont) = 0;

    virtual std::unique_ptr<Decoder> makeDecoder(const QByteArray &bytes) = 0;

    /** To be used on the thread that makes it, whose event loop tells when the devices change. */
    virtual std::unique_ptr<AudioOutput> makeOutput(std::function<void()> devicesChanged) = 0;
};

#define KAVENA_SOUND_PARTS "org.kavena.SoundParts/" KAVENA_VERSION
Q_DECLARE_INTERFACE(SoundParts, KAVENA_SOUND_PARTS)
