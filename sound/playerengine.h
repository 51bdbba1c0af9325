// What a Player does on its own thread.
#pragma once

#include "sound/soundparts.h"
#include "sound/soundproblem.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>

class Player;
class SoundSource;

class PlayerEngine : public QObject
{
    Q_OBJECT

public:
    PlayerEngine(Player &player, std::function<SoundParts *()> findParts);
    ~PlayerEngine() override;
    Q_DISABLE_COPY_MOVE(PlayerEngine)

    /** Any thread: what was begun before is not wanted any more and need not be heard out. */
    void cancel() { m_isCancelled = true; }

    /** @name On the engine's thread; see Player. */
    ///@{
    void play(int number, const QString &path, const QString &soundFont, int volume);
    void pause();
    void resume();
    void stop();
    void seek(double seconds);
    void setVolume(int percent);
    ///@}

private:
    SoundProblem::Kind open(const QString &path, const QString &soundFont);
    void start();
    qsizetype pull(qint16 *samples, qsizetype frames);
    void tellPosition();
    void end(SoundProblem::Kind problem);
    template <typename Function>
    void tellPlayer(Function function);

    Player &m_player;
    const std::function<SoundParts *()> m_findParts;
    std::atomic<bool> m_isCancelled = false;
    int m_number = 0;
    std::unique_ptr<SoundSource> m_source;
    std::unique_ptr<AudioOutput> m_output;
    bool m_isPaused = false;
    bool m_mustStartAnew = false; ///< the song goes on elsewhere than where it was paused
    QTimer m_positionTimer;
};
