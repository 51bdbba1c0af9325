#include "sound/player.h"

#include "sound/playerengine.h"
#include "sound/soundfont.h"
#include "sound/soundmodule.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace
{

constexpr int loudest = 100;
constexpr int firstVolume = 70;

Player *playerOfProgram()
{
    return QCoreApplication::instance()->findChild<Player *>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

Player::Player(FindParts findParts, SoundProblem::Kind problem, QObject *parent)
    : QObject(parent)
    , m_engine(new PlayerEngine(*this, std::move(findParts)))
    , m_volume(firstVolume)
    , m_generalProblem(problem)
{
    m_engine->moveToThread(&m_thread);
}

Player::~Player()
{
    m_engine->cancel();
    if (!m_thread.isRunning()) {
        delete m_engine;
        return;
    }
    connect(&m_thread, &QThread::finished, m_engine, &QObject::deleteLater);
    m_thread.quit();
    m_thread.wait();
}

Player &Player::ofProgram()
{
    if (Player *const player = playerOfProgram())
        return *player;
    auto *const player =
        new Player(soundmodule::parts, soundmodule::problem(), QCoreApplication::instance());
    // The sound ends while the application is whole.
    qAddPostRoutine([] { delete playerOfProgram(); });
    return *player;
}

/** Lets the engine do something on its thread, behind all else that it was told. */
void Player::tellEngine(std::function<void(PlayerEngine &)> what)
{
    if (!m_thread.isRunning())
        m_thread.start();
    QMetaObject::invokeMethod(
        m_engine, [engine = m_engine, what = std::move(what)] { what(*engine); },
        Qt::QueuedConnection);
}

void Player::play(const QString &path)
{
    if (SoundProblem::concernsAll(m_generalProblem))
        return;
    m_path = path;
    m_position = 0;
    m_length = 0;
    m_sections.clear();
    m_songProblem = SoundProblem::None;
    m_engine->cancel();
    tellEngine([number = ++m_number, path, font = m_soundFont, volume = m_volume](
                   PlayerEngine &engine) { engine.play(number, path, font, volume); });
    setState(State::Loading);
}

void Player::pause()
{
    if (m_state != State::Playing)
        return;
    tellEngine([](PlayerEngine &engine) { engine.pause(); });
    setState(State::Paused);
}

void Player::resume()
{
    if (m_state != State::Paused)
        return;
    tellEngine([](PlayerEngine &engine) { engine.resume(); });
    setState(State::Playing);
}

void Player::stop()
{
    if (m_state == State::Stopped)
        return;
    ++m_number; // what is still told of this song comes too late
    m_engine->cancel();
    tellEngine([](PlayerEngine &engine) { engine.stop(); });
    m_position = 0;
    setState(State::Stopped);
}

void Player::seek(double seconds)
{
    if (m_state != State::Playing && m_state != State::Paused)
        return;
    m_position = std::clamp(seconds, 0.0, std::max(m_length, 0.0));
    tellEngine([to = m_position](PlayerEngine &engine) { engine.seek(to); });
    emit positionChanged();
}

void Player::setVolume(int percent)
{
    const int wanted = std::clamp(percent, 0, loudest);
    if (wanted == m_volume)
        return;
    m_volume = wanted;
    if (m_state != State::Stopped)
        tellEngine([wanted](PlayerEngine &engine) { engine.setVolume(wanted); });
    emit changed();
}

void Player::setSoundFont(const QString &path)
{
    if (path == m_soundFont)
        return;
    m_soundFont = path;
    m_songProblem = SoundProblem::None;
    emit changed();
}

SoundProblem::Kind Player::problemOf(const QString &path) const
{
    if (m_generalProblem != SoundProblem::None)
        return m_generalProblem;
    if (path == m_path && m_songProblem != SoundProblem::None &&
        QFileInfo(path).lastModified() == m_problemTime)
        return m_songProblem;
    if (!path.isEmpty() && SongSound::isMidiName(path) && soundfont::find(m_soundFont).isEmpty())
        return SoundProblem::NoSoundFont;
    return SoundProblem::None;
}

void Player::onStarted(int number, double length, const QList<SongSection> &sections)
{
    if (number != m_number)
        return;
    m_length = length;
    m_sections = sections;
    setState(State::Playing);
}

void Player::onPosition(int number, double seconds)
{
    if (number != m_number || m_state != State::Playing)
        return;
    m_position = m_length > 0 ? std::min(seconds, m_length) : seconds;
    emit positionChanged();
}

void Player::onEnded(int number, SoundProblem::Kind problem)
{
    if (number != m_number)
        return;
    if (SoundProblem::concernsAll(problem)) {
        m_generalProblem = problem;
    } else if (problem != SoundProblem::None) {
        m_songProblem = problem;
        m_problemTime = QFileInfo(m_path).lastModified();
    }
    m_position = 0;
    setState(State::Stopped);
}

void Player::onDevices(bool hasDevice)
{
    if (!hasDevice || m_generalProblem != SoundProblem::NoDevice)
        return;
    m_generalProblem = SoundProblem::None;
    emit changed();
}

void Player::setState(State state)
{
    m_state = state;
    emit changed();
}
