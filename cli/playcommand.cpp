#include "cli/playcommand.h"

#include "cli/songpaths.h"
#include "sound/player.h"
#include "sound/soundmodule.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>

ExitStatus PlayCommand::run()
{
    const std::optional<QString> path = SongPaths::decode(m_request.paths.constFirst(), m_terminal);
    const std::optional<QString> soundFont = SongPaths::decode(m_request.soundFont, m_terminal);
    if (!path || !soundFont)
        return ExitStatus::NothingDone;
    if (!soundFont->isEmpty() && !QFileInfo(*soundFont).isFile())
        return m_terminal.refuse(*soundFont, SoundProblem::text(SoundProblem::BadSoundFont));
    if (soundmodule::problem() != SoundProblem::None)
        return m_terminal.refuse(SoundProblem::text(soundmodule::problem()));

    Player player(soundmodule::parts);
    player.setSoundFont(*soundFont);
    constexpr int loudest = 100;
    player.setVolume(loudest);
    const auto progress = m_terminal.openProgress({}, QFileInfo(*path).fileName(), 0);
    QEventLoop loop;
    QObject::connect(&player, &Player::changed, &loop, [&] {
        if (player.state() == Player::State::Playing && player.length() > 0)
            progress->setMaximum(qRound(player.length()));
        if (player.state() == Player::State::Stopped)
            loop.quit();
    });
    QObject::connect(&player, &Player::positionChanged, &loop,
                     [&] { progress->setValue(qRound(player.position())); });
    // A signal is only noticed by asking.
    constexpr int interval = 100;
    bool isStopped = false;
    QTimer stopped;
    QObject::connect(&stopped, &QTimer::timeout, &loop, [&] {
        isStopped = isStopped || m_terminal.isStopped();
        if (isStopped)
            player.stop();
    });
    stopped.start(interval);
    player.play(*path);
    loop.exec();

    if (isStopped)
        return m_terminal.status();
    const SoundProblem::Kind problem = player.problemOf(*path);
    if (problem != SoundProblem::None)
        return m_terminal.refuse(*path, SoundProblem::text(problem));
    return ExitStatus::Done;
}
