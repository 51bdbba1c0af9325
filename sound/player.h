// Lets the user hear one song at a time.
#pragma once

#include "sound/songsound.h"
#include "sound/soundproblem.h"

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QString>
#include <QThread>

#include <functional>

class PlayerEngine;
class SoundParts;

/**
 * The song is read, made into sound and played on a thread of its own: no call waits for any of
 * that. Its file is closed before the first sound, so that it may be changed, moved or removed
 * while it plays. Nothing of the sound is loaded before the first play().
 */
class Player : public QObject
{
    Q_OBJECT

public:
    enum class State { Stopped, Loading, Playing, Paused };

    /** Gives what makes the sound; null when it cannot be loaded. Called on the player's thread. */
    using FindParts = std::function<SoundParts *()>;

    /** The problem is why no song can be played, as far as that is known beforehand. */
    explicit Player(FindParts findParts, SoundProblem::Kind problem = SoundProblem::None,
                    QObject *parent = nullptr);
    ~Player() override;
    Q_DISABLE_COPY_MOVE(Player)

    /**
     * The one of the program, the application's child: it is made at the first call, unless there
     * is one, and goes with the application.
     */
    static Player &ofProgram();

    /** Plays the song from its beginning; another one ends. */
    void play(const QString &path);

    void pause();

    /** Goes on where pause() was called. */
    void resume();

    void stop();

    /** Goes on at this second of the song. */
    void seek(double seconds);

    /** From 0 to 100. */
    void setVolume(int percent);
    int volume() const { return m_volume; }

    /** The sound font of the user's choice; empty for an installed one. From the next play() on. */
    void setSoundFont(const QString &path);
    const QString &soundFont() const { return m_soundFont; }

    State state() const { return m_state; }

    /** True while the song plays, is paused or is being loaded. */
    bool isAbout(const QString &path) const { return m_state != State::Stopped && m_path == path; }

    /** Of the song that was played last. */
    const QString &path() const { return m_path; }
    double position() const { return m_position; } ///< seconds
    double length() const { return m_length; }     ///< seconds; 0 when it is not known
    const QList<SongSection> &sections() const { return m_sections; }

    /** Why this song cannot be played, as far as that is known; None for one that was not tried. */
    SoundProblem::Kind problemOf(const QString &path) const;

signals:
    /** State, song or problem are others. */
    void changed();
    void positionChanged();

private:
    friend class PlayerEngine;

    /** The engine tells this about the play() of the number. */
    void onStarted(int number, double length, const QList<SongSection> &sections);
    void onPosition(int number, double seconds);
    void onEnded(int number, SoundProblem::Kind problem);
    void onDevices(bool hasDevice);

    void setState(State state);
    void tellEngine(std::function<void(PlayerEngine &engine)> what);

    PlayerEngine *const m_engine; ///< lives on the thread, and goes with it
    QThread m_thread;
    int m_number = 0; ///< of the last play()
    State m_state = State::Stopped;
    QString m_path;
    QString m_soundFont;
    int m_volume;
    double m_position = 0;
    double m_length = 0;
    QList<SongSection> m_sections;
    SoundProblem::Kind m_songProblem = SoundProblem::None; ///< of the last song
    QDateTime m_problemTime;                               ///< its file's, when it had the problem
    SoundProblem::Kind m_generalProblem;                   ///< of every song
};
