// Songs of the list and of a memory heard from their windows, with a device that only counts.
#include "sound/player.h"
#include "support/fakesound.h"
#include "support/openmemorywindow.h"
#include "support/samplesongs.h"
#include "support/shorttext.h"
#include "support/songfolder.h"

#include <QToolButton>

using State = Player::State;

namespace
{

constexpr int patience = 60'000; // milliseconds

} // namespace

class TestListPlayer : public openmemorywindow::MemoryWindowFixture
{
    Q_OBJECT

private slots:
    void init()
    {
        OwnSettings::set(settings::soundFont, QString());
        m_parts = std::make_unique<fakesound::Parts>();
        m_parts->device.framesAtOnce = 1; // the songs last
        m_player =
            std::make_unique<Player>([this] { return m_parts.get(); }, SoundProblem::None, qApp);
        MemoryWindowFixture::init();
        OwnSettings::set(settings::soundFont, fontPath());
        m_player->setSoundFont(fontPath());
    }
    void cleanup()
    {
        MemoryWindowFixture::cleanup();
        m_player.reset();
        m_parts.reset();
    }
    void spacePlaysTheCurrentSongOfTheList();
    void songThatPlaysCanBeRemovedFromTheDisk();
    void spacePlaysTheCurrentSongOfTheMemory();

private:
    QString song(const char *name) const { return m_songs.path() + s("/") + s(name); }
    QString fontPath() const
    {
        const QString path = song("font.sf2");
        if (!QFileInfo::exists(path) && !samplesongs::writeFile(path, "RIFF"))
            qFatal("cannot write");
        return path;
    }
    void importTwo()
    {
        m_main->setSelectedFiles({m_songs.midi(s("a.mid"), "A"), m_songs.midi(s("b.mid"), "B")});
        m_main->importUserLibrary();
    }

    const SongFolder m_songs;
    std::unique_ptr<fakesound::Parts> m_parts;
    std::unique_ptr<Player> m_player;
};

void TestListPlayer::spacePlaysTheCurrentSongOfTheList()
{
    auto *const play = m_main->child<QToolButton>("playButton");
    QVERIFY(!play->isEnabled());
    importTwo();
    m_main->table()->selectRow(1);
    QVERIFY(play->isEnabled());
    QTest::keyClick(m_main->table(), Qt::Key_Space);
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Playing, patience);
    QVERIFY(m_player->isAbout(song("b.mid")));
    QTest::keyClick(m_main->table(), Qt::Key_Space);
    QCOMPARE(m_player->state(), State::Paused);
}

void TestListPlayer::songThatPlaysCanBeRemovedFromTheDisk()
{
    importTwo();
    m_main->table()->selectRow(0);
    QTest::keyClick(m_main->table(), Qt::Key_Space);
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Playing, patience);
    QVERIFY(QFile::remove(song("a.mid")));
    m_player->pause();
    m_player->resume();
    const qint64 before = m_parts->device.heard;
    QTRY_VERIFY_WITH_TIMEOUT(m_parts->device.heard > before, patience);
    QCOMPARE(m_player->problemOf(song("a.mid")), SoundProblem::None);
}

void TestListPlayer::spacePlaysTheCurrentSongOfTheMemory()
{
    open();
    choose({s("/songs/Volare.kar")});
    auto *const play = find<QToolButton>("playButton");
    QVERIFY(play->isEnabled());
    QTest::keyClick(table(), Qt::Key_Space);
    QTRY_COMPARE_WITH_TIMEOUT(m_player->state(), State::Playing, patience);
    QVERIFY(m_player->isAbout(m_card->path(s("songs/Volare.kar"))));
    // Two songs are chosen: the one that the user stands on is played.
    choose({s("/songs/Volare.kar"), s("/pop/Azzurro2.mid")});
    QTest::keyClick(table(), Qt::Key_Space);
    QVERIFY(m_player->isAbout(m_card->path(s("pop/Azzurro2.mid"))));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestListPlayer>(argc, argv);
}

#include "test_listplayer.moc"
