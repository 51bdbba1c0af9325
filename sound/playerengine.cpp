#include "sound/playerengine.h"

#include "sound/pcm.h"
#include "sound/player.h"
#include "sound/songsound.h"
#include "sound/soundsource.h"

#include <algorithm>
#include <utility>

namespace
{

constexpr int positionInterval = 100; // milliseconds

} // namespace

PlayerEngine::PlayerEngine(Player &player, std::function<SoundParts *()> findParts)
    : m_player(player)
    , m_findParts(std::move(findParts))
    , m_positionTimer(this)
{
    m_positionTimer.setInterval(positionInterval);
    connect(&m_positionTimer, &QTimer::timeout, this, &PlayerEngine::tellPosition);
}

PlayerEngine::~PlayerEngine()
{
    stop();
}

template <typename Function>
void PlayerEngine::tellPlayer(Function function)
{
    QMetaObject::invokeMethod(
        &m_player, [player = &m_player, function] { function(*player); }, Qt::QueuedConnection);
}

void PlayerEngine::play(int number, const QString &path, const QString &soundFont, int volume)
{
    stop();
    m_number = number;
    m_isCancelled = false;
    const SoundProblem::Kind problem = open(path, soundFont);
    if (problem != SoundProblem::None) {
        end(problem);
        return;
    }
    m_output->setVolume(volume);
    start();
}

SoundProblem::Kind PlayerEngine::open(const QString &path, const QString &soundFont)
{
    SongSound song;
    SoundProblem::Kind problem = song.load(path);
    if (problem != SoundProblem::None)
        return problem;
    SoundParts *const parts = m_findParts();
    if (parts == nullptr)
        return SoundProblem::NoModule;
    if (!m_output)
        m_output = parts->makeOutput([this] {
            tellPlayer([is = m_output->hasDevice()](Player &player) { player.onDevices(is); });
        });
    if (!m_output->hasDevice())
        return SoundProblem::NoDevice;
    const double length = song.length();
    const QList<SongSection> sections = song.sections();
    m_source = song.open(*parts, soundFont, problem);
    if (m_source)
        tellPlayer([number = m_number, length, sections](Player &player) {
            player.onStarted(number, length, sections);
        });
    return problem;
}

/** Ends at once when the device refuses. */
void PlayerEngine::start()
{
    m_isPaused = false;
    m_mustStartAnew = false;
    m_positionTimer.start();
    const SoundProblem::Kind refused = m_output->start(
        [this](qint16 *samples, qsizetype frames) { return pull(samples, frames); },
        [this](SoundProblem::Kind problem) {
            const bool isBroken = m_source && m_source->isBroken();
            end(problem == SoundProblem::None && isBroken ? SoundProblem::Damaged : problem);
        });
    if (refused != SoundProblem::None)
        end(refused);
}

qsizetype PlayerEngine::pull(qint16 *samples, qsizetype frames)
{
    constexpr int longestWait = 50;
    if (!m_source || m_isCancelled)
        return 0;
    return m_source->read(samples, frames, longestWait);
}

void PlayerEngine::pause()
{
    if (!m_source || m_isPaused)
        return;
    m_isPaused = true;
    m_positionTimer.stop();
    m_output->suspend();
}

void PlayerEngine::resume()
{
    if (!m_source || !m_isPaused)
        return;
    if (!m_mustStartAnew) {
        m_isPaused = false;
        m_positionTimer.start();
        m_output->resume();
        return;
    }
    m_output->stop();
    start();
}

void PlayerEngine::stop()
{
    m_positionTimer.stop();
    if (m_output)
        m_output->stop();
    m_source.reset();
    m_isPaused = false;
}

void PlayerEngine::seek(double seconds)
{
    if (!m_source)
        return;
    m_source->seek(pcm::frames(seconds));
    m_mustStartAnew = true;
    if (m_isPaused)
        return;
    // What waits in the device is of the old place.
    m_output->stop();
    start();
}

void PlayerEngine::setVolume(int percent)
{
    if (m_output)
        m_output->setVolume(percent);
}

void PlayerEngine::tellPosition()
{
    if (!m_source || m_mustStartAnew)
        return;
    const qint64 heard = std::max(m_source->position() - m_output->waitingFrames(), qint64{0});
    tellPlayer([number = m_number, seconds = pcm::seconds(heard)](Player &player) {
        player.onPosition(number, seconds);
    });
}

void PlayerEngine::end(SoundProblem::Kind problem)
{
    stop();
    tellPlayer([number = m_number, problem](Player &player) { player.onEnded(number, problem); });
}
