// The program as it is built without sound: this test carries that half of the module's finder.
#include "sound/player.h"
#include "sound/soundmodule.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QTemporaryDir>
#include <QTest>

class TestWithoutSound : public QObject
{
    Q_OBJECT

private slots:
    void everySongHasTheReason();
};

void TestWithoutSound::everySongHasTheReason()
{
    const QTemporaryDir folder;
    const QString song = folder.filePath(QStringLiteral("a.mid"));
    QVERIFY(
        samplesongs::writeFile(song, songbytes::midiFile({songbytes::track(songbytes::notes())})));
    QCOMPARE(soundmodule::problem(), SoundProblem::NotBuilt);
    QVERIFY(soundmodule::parts() == nullptr);
    Player &player = Player::ofProgram();
    QCOMPARE(player.problemOf(song), SoundProblem::NotBuilt);
    player.play(song);
    QCOMPARE(player.state(), Player::State::Stopped);
    QVERIFY(!SoundProblem::text(player.problemOf(song)).isEmpty());
}

QTEST_GUILESS_MAIN(TestWithoutSound)
#include "test_withoutsound.moc"
