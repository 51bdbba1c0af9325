// What a player does and tells, with a device that hears at a hundred times the speed.
#include "sound/player.h"
#include "support/fakesound.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <list>

using samplesongs::writeFile;
using State = Player::State;

namespace
{

constexpr int patience = 60'000; // milliseconds

QByteArray song(int quarters)
{
    QByteArray events;
    for (int i = 0; i < quarters; ++i)
        events += QByteArray::fromHex("00903C6460803C40");
    return songbytes::midiFile({songbytes::track(songbytes::markerEvent(3, "Chorus") + events)});
}

} // namespace

class TestPlayer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void songPlaysToItsEnd();
    void pauseAndResume();
    void stopGoesBackToTheBeginning();
    void anotherSongTakesItsPlace();
    void seekingGoesOnElsewhere();
    void seekingWhilePausedStaysPaused();
    void volumeReachesTheDevice();
    void withoutDeviceNoSongCanBePlayed();
    void deviceThatComesLetsPlay();
    void deviceThatRefusesMayBeTriedAgain();
    void damagedSongIsToldUntilItIsAnother();
    void missingModuleIsTold();
    void withoutSoundNothingIsTried();
    void brokenSoundFontIsToldUntilAnotherIsChosen();
    void songMayBeRemovedWhileItPlays();
    void playerMayGoWhileItPlays();
    void nothingIsLoadedBeforeTheFirstSong();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    Player::FindParts parts()
    {
        return [this] {
            ++m_loads;
            return &m_parts.front();
        };
    }
    fakesound::Device &device() { return m_parts.front().device; }
    qint64 heard() { return device().heard; }

    QScopedPointer<QTemporaryDir> m_folder;
    std::list<fakesound::Parts> m_parts; // made anew for each test
    std::atomic<int> m_loads = 0;
    QScopedPointer<Player> m_player;
};

void TestPlayer::init()
{
    m_folder.reset(new QTemporaryDir);
    m_parts.emplace_back();
    m_loads = 0;
    QVERIFY(writeFile(path(QStringLiteral("a.mid")), song(200))); // 100 seconds
    QVERIFY(writeFile(path(QStringLiteral("short.mid")), song(2)));
    QVERIFY(writeFile(path(QStringLiteral("b.mid")), song(400)));
    QVERIFY(writeFile(path(QStringLiteral("font.sf2")), "RIFF"));
    m_player.reset(new Player(parts()));
    m_player->setSoundFont(path(QStringLiteral("font.sf2")));
}

void TestPlayer::cleanup()
{
    m_player.reset();
    m_parts.clear();
}

void TestPlayer::songPlaysToItsEnd()
{
    QList<State> states;
    connect(m_player.data(), &Player::changed, this, [&] { states.append(m_player->state()); });
    m_player->play(path(QStringLiteral("short.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Stopped, patience);
    QCOMPARE(states, (QList<State>{State::Loading, State::Playing, State::Stopped}));
    QCOMPARE(m_player->length(), 1.0);
    QCOMPARE(heard(), 44100);
    QCOMPARE(m_player->position(), 0.0);
    QCOMPARE(m_player->problemOf(path(QStringLiteral("short.mid"))), SoundProblem::None);
}

void TestPlayer::pauseAndResume()
{
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_VERIFY_WITH_TIMEOUT(m_player->position() > 0, patience);
    QCOMPARE(m_player->sections().size(), 1);
    QCOMPARE(m_player->sections().constFirst().start, 4.0);
    m_player->pause();
    QCOMPARE(m_player->state(), State::Paused);
    // What was under way arrives before this.
    QTRY_VERIFY_WITH_TIMEOUT(
        [this] {
            const qint64 before = heard();
            QTest::qWait(50);
            return heard() == before;
        }(),
        patience);
    const qint64 before = heard();
    m_player->resume();
    QCOMPARE(m_player->state(), State::Playing);
    QTRY_VERIFY_WITH_TIMEOUT(heard() > before, patience);
}

void TestPlayer::stopGoesBackToTheBeginning()
{
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_VERIFY_WITH_TIMEOUT(m_player->position() > 0, patience);
    m_player->stop();
    QCOMPARE(m_player->state(), State::Stopped);
    QCOMPARE(m_player->position(), 0.0);
    QVERIFY(!m_player->isAbout(path(QStringLiteral("a.mid"))));
}

void TestPlayer::anotherSongTakesItsPlace()
{
    m_player->play(path(QStringLiteral("a.mid")));
    m_player->play(path(QStringLiteral("b.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Playing, patience);
    QVERIFY(m_player->isAbout(path(QStringLiteral("b.mid"))));
    QCOMPARE(m_player->length(), 200.0);
}

void TestPlayer::seekingGoesOnElsewhere()
{
    device().framesAtOnce = 441; // ten times the speed
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Playing, patience);
    m_player->seek(99);
    QCOMPARE(m_player->position(), 99.0);
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Stopped, patience);
    // Most of the song was left out.
    QVERIFY(heard() < qint64{50} * 44100);
}

void TestPlayer::seekingWhilePausedStaysPaused()
{
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Playing, patience);
    m_player->pause();
    m_player->seek(99.9);
    QCOMPARE(m_player->state(), State::Paused);
    QCOMPARE(m_player->position(), 99.9);
    m_player->resume();
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Stopped, patience);
}

void TestPlayer::volumeReachesTheDevice()
{
    m_player->setVolume(30);
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(device().volume.load(), 30, patience);
    m_player->setVolume(500);
    QCOMPARE(m_player->volume(), 100);
    QTRY_COMPARE_WITH_TIMEOUT(device().volume.load(), 100, patience);
}

void TestPlayer::withoutDeviceNoSongCanBePlayed()
{
    device().isThere = false;
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Stopped, patience);
    QCOMPARE(m_player->problemOf(path(QStringLiteral("b.mid"))), SoundProblem::NoDevice);
    m_player->play(path(QStringLiteral("b.mid")));
    QCOMPARE(m_player->state(), State::Stopped);
}

void TestPlayer::deviceThatComesLetsPlay()
{
    device().isThere = false;
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Stopped, patience);
    device().isThere = true;
    QMetaObject::invokeMethod(device().context, [this] { device().changed(); });
    QTRY_COMPARE_WITH_TIMEOUT(m_player->problemOf(path(QStringLiteral("a.mid"))),
                              SoundProblem::None, patience);
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Playing, patience);
}

void TestPlayer::deviceThatRefusesMayBeTriedAgain()
{
    device().refuses = true;
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Stopped, patience);
    QCOMPARE(m_player->problemOf(path(QStringLiteral("a.mid"))), SoundProblem::DeviceFailed);
    device().refuses = false;
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Playing, patience);
}

void TestPlayer::damagedSongIsToldUntilItIsAnother()
{
    const QString damaged = path(QStringLiteral("damaged.mid"));
    QVERIFY(writeFile(damaged, "MThd"));
    m_player->play(damaged);
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Stopped, patience);
    QCOMPARE(m_player->problemOf(damaged), SoundProblem::Damaged);
    QCOMPARE(m_player->problemOf(path(QStringLiteral("a.mid"))), SoundProblem::None);
    QFile file(damaged);
    QVERIFY(file.open(QFile::ReadWrite));
    QVERIFY(
        file.setFileTime(QDateTime(QDate(2001, 1, 1), QTime(0, 0)), QFile::FileModificationTime));
    file.close();
    QCOMPARE(m_player->problemOf(damaged), SoundProblem::None);
}

void TestPlayer::missingModuleIsTold()
{
    Player player([]() -> SoundParts * { return nullptr; });
    player.setSoundFont(path(QStringLiteral("font.sf2")));
    player.play(path(QStringLiteral("a.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(player.state(), State::Stopped, patience);
    QCOMPARE(player.problemOf(path(QStringLiteral("b.mid"))), SoundProblem::NoModule);
}

void TestPlayer::withoutSoundNothingIsTried()
{
    Player player(parts(), SoundProblem::NotBuilt);
    player.play(path(QStringLiteral("a.mid")));
    QCOMPARE(player.state(), State::Stopped);
    QCOMPARE(player.problemOf(path(QStringLiteral("a.mid"))), SoundProblem::NotBuilt);
    QCOMPARE(m_loads, 0);
}

void TestPlayer::brokenSoundFontIsToldUntilAnotherIsChosen()
{
    m_parts.front().refusesFonts = true;
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Stopped, patience);
    QCOMPARE(m_player->problemOf(path(QStringLiteral("a.mid"))), SoundProblem::BadSoundFont);
    QVERIFY(writeFile(path(QStringLiteral("other.sf2")), "RIFF"));
    m_player->setSoundFont(path(QStringLiteral("other.sf2")));
    QCOMPARE(m_player->problemOf(path(QStringLiteral("a.mid"))), SoundProblem::None);
}

void TestPlayer::songMayBeRemovedWhileItPlays()
{
    const QString file = path(QStringLiteral("a.mid"));
    m_player->play(file);
    QTRY_VERIFY_WITH_TIMEOUT(m_player->position() > 0, patience);
    const QString real = QFileInfo(file).canonicalFilePath();
    const QFileInfoList open =
        QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::Files | QDir::System);
    QVERIFY(!open.isEmpty());
    for (const QFileInfo &handle : open)
        QVERIFY(handle.symLinkTarget() != real);
    QVERIFY(QFile::remove(file));
    const qint64 before = heard();
    QTRY_VERIFY_WITH_TIMEOUT(heard() > before, patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Stopped, patience);
    QCOMPARE(heard(), qint64{100} * 44100);
}

void TestPlayer::playerMayGoWhileItPlays()
{
    m_player->play(path(QStringLiteral("a.mid")));
    m_player.reset();
    QCOMPARE(device().context.load(), nullptr);
    m_player.reset(new Player(parts()));
    m_player->setSoundFont(path(QStringLiteral("font.sf2")));
    m_player->play(path(QStringLiteral("a.mid")));
    QTRY_VERIFY_WITH_TIMEOUT(m_player->position() > 0, patience);
    m_player.reset();
    QCOMPARE(device().context.load(), nullptr);
}

void TestPlayer::nothingIsLoadedBeforeTheFirstSong()
{
    m_player->setVolume(20);
    m_player->seek(3);
    m_player->pause();
    m_player->stop();
    QCOMPARE(m_player->problemOf(path(QStringLiteral("a.mid"))), SoundProblem::None);
    QTest::qWait(1);
    QCOMPARE(m_loads, 0);
    QCOMPARE(device().made, 0);
}

QTEST_GUILESS_MAIN(TestPlayer)
#include "test_player.moc"
