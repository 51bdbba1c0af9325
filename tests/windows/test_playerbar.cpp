// The row of buttons by which a song is heard, with a device that only counts.
#include "library/settings.h"
#include "support/fakesound.h"
#include "support/ownfolders.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"
#include "windows/dataeditdialog.h"
#include "windows/playerbar.h"

#include <QLabel>
#include <QMenu>
#include <QSlider>
#include <QTableWidget>
#include <QToolButton>

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
    return songbytes::midiFile({songbytes::track(
        songbytes::markerEvent(1, "Intro") + songbytes::markerEvent(3, "Fun & Chorus") + events)});
}

} // namespace

class TestPlayerBar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void withoutASongTheButtonIsOff();
    void buttonPlaysAndPauses();
    void stopEndsTheSong();
    void numbersTellElapsedAndRemainingTime();
    void sliderGoesToAPlaceInTheSong();
    void sectionsAreOffered();
    void volumeIsRemembered();
    void chosenSoundFontIsRemembered();
    void withoutDeviceTheButtonIsOffAndSaysWhy();
    void withoutSoundTheButtonIsOffFromTheBeginning();
    void damagedSongTurnsTheButtonOff();
    void anotherSongTakesThePlaceOfTheOneThatPlays();
    void spaceInATablePlays();
    void spaceWithinTypedLettersIsALetter();
    void spaceWithAModifierStaysTheTables();
    void editDialogPlaysItsSong();
    void twoBarsShowTheSamePlayer();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    QToolButton *button(const char *name) const
    {
        return m_bar->findChild<QToolButton *>(QLatin1String(name));
    }
    QSlider *slider(const char *name) const
    {
        return m_bar->findChild<QSlider *>(QLatin1String(name));
    }
    QString label(const char *name) const
    {
        return m_bar->findChild<QLabel *>(QLatin1String(name))->text();
    }
    Player &player() const { return Player::ofProgram(); }
    fakesound::Device &device() { return m_parts.front().device; }
    void usePlayer(SoundProblem::Kind problem = SoundProblem::None)
    {
        m_bar.reset();
        m_player.reset();
        m_player.reset(new Player([this] { return &m_parts.front(); }, problem, qApp));
        m_bar.reset(new PlayerBar);
        m_bar->show();
    }

    QScopedPointer<QTemporaryDir> m_folder;
    std::list<fakesound::Parts> m_parts; // made anew for each test
    QScopedPointer<Player> m_player;
    QScopedPointer<PlayerBar> m_bar;
};

void TestPlayerBar::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(writeFile(path(QStringLiteral("a.mid")), song(200))); // 100 seconds
    QVERIFY(writeFile(path(QStringLiteral("b.mid")), song(400)));
    QVERIFY(writeFile(path(QStringLiteral("font.sf2")), "RIFF"));
    OwnSettings::clear();
    OwnSettings::set(settings::soundFont, path(QStringLiteral("font.sf2")));
    m_parts.emplace_back();
    device().framesAtOnce = 44; // as fast as a listener
    usePlayer();
}

void TestPlayerBar::cleanup()
{
    m_bar.reset();
    m_player.reset();
    m_parts.clear();
}

void TestPlayerBar::withoutASongTheButtonIsOff()
{
    QVERIFY(!button("playButton")->isEnabled());
    QVERIFY(!button("stopButton")->isEnabled());
    m_bar->toggle();
    QCOMPARE(player().state(), State::Stopped);
    QCOMPARE(label("problemLabel"), QString());
}

void TestPlayerBar::buttonPlaysAndPauses()
{
    m_bar->setSong(path(QStringLiteral("a.mid")));
    QVERIFY(button("playButton")->isEnabled());
    button("playButton")->click();
    QTRY_COMPARE_WITH_TIMEOUT(player().state(), State::Playing, patience);
    QCOMPARE(button("playButton")->accessibleName(), QStringLiteral("Pausa"));
    button("playButton")->click();
    QCOMPARE(player().state(), State::Paused);
    QCOMPARE(button("playButton")->accessibleName(), QStringLiteral("Suona"));
    button("playButton")->click();
    QCOMPARE(player().state(), State::Playing);
}

void TestPlayerBar::stopEndsTheSong()
{
    m_bar->setSong(path(QStringLiteral("a.mid")));
    m_bar->toggle();
    QTRY_COMPARE_WITH_TIMEOUT(player().state(), State::Playing, patience);
    QVERIFY(button("stopButton")->isEnabled());
    button("stopButton")->click();
    QCOMPARE(player().state(), State::Stopped);
    QVERIFY(!button("stopButton")->isEnabled());
    QCOMPARE(label("elapsedLabel"), QString());
}

void TestPlayerBar::numbersTellElapsedAndRemainingTime()
{
    m_bar->setSong(path(QStringLiteral("a.mid")));
    m_bar->toggle();
    QTRY_COMPARE_WITH_TIMEOUT(player().state(), State::Playing, patience);
    player().pause();
    player().seek(61.5);
    QCOMPARE(label("elapsedLabel"), QStringLiteral("1:01"));
    QCOMPARE(label("remainingLabel"), QStringLiteral("-0:38"));
    QCOMPARE(slider("positionSlider")->value(), 615);
    QCOMPARE(slider("positionSlider")->maximum(), 1000);
}

void TestPlayerBar::sliderGoesToAPlaceInTheSong()
{
    m_bar->setSong(path(QStringLiteral("a.mid")));
    QVERIFY(!slider("positionSlider")->isEnabled());
    m_bar->toggle();
    QTRY_COMPARE_WITH_TIMEOUT(player().state(), State::Playing, patience);
    player().pause();
    QSlider *const position = slider("positionSlider");
    QVERIFY(position->isEnabled());
    QTest::mouseClick(position, Qt::LeftButton, {},
                      QPoint(position->width() / 2, position->height() / 2));
    QVERIFY2(qAbs(player().position() - 50) < 5, qPrintable(QString::number(player().position())));
    const double before = player().position();
    QTest::keyClick(position, Qt::Key_PageUp);
    QVERIFY(player().position() > before);
}

void TestPlayerBar::sectionsAreOffered()
{
    m_bar->setSong(path(QStringLiteral("a.mid")));
    QVERIFY(!button("sectionsButton")->isEnabled());
    m_bar->toggle();
    QTRY_COMPARE_WITH_TIMEOUT(player().state(), State::Playing, patience);
    player().pause();
    QVERIFY(button("sectionsButton")->isEnabled());
    const QList<QAction *> actions = button("sectionsButton")->menu()->actions();
    QCOMPARE(actions.size(), 2);
    QCOMPARE(actions.at(1)->text(), QStringLiteral("0:04  Fun && Chorus"));
    actions.at(1)->trigger();
    QCOMPARE(player().position(), 4.0);
}

void TestPlayerBar::volumeIsRemembered()
{
    slider("volumeSlider")->setValue(33);
    QCOMPARE(player().volume(), 33);
    usePlayer();
    QCOMPARE(slider("volumeSlider")->value(), 33);
    QCOMPARE(player().volume(), 33);
}

void TestPlayerBar::chosenSoundFontIsRemembered()
{
    QCOMPARE(player().soundFont(), path(QStringLiteral("font.sf2")));
    QAction *const installed = button("soundFontButton")->menu()->actions().at(1);
    QVERIFY(!installed->isChecked());
    installed->trigger();
    QVERIFY(installed->isChecked());
    QCOMPARE(player().soundFont(), QString());
    usePlayer();
    QCOMPARE(player().soundFont(), QString());
}

void TestPlayerBar::withoutDeviceTheButtonIsOffAndSaysWhy()
{
    device().isThere = false;
    m_bar->setSong(path(QStringLiteral("a.mid")));
    m_bar->toggle();
    QTRY_VERIFY_WITH_TIMEOUT(!button("playButton")->isEnabled(), patience);
    const QString why = QStringLiteral("Non c'è un dispositivo audio");
    QCOMPARE(button("playButton")->toolTip(), why);
    QCOMPARE(button("playButton")->accessibleDescription(), why);
    QCOMPARE(label("problemLabel"), why);
    QVERIFY(m_bar->findChild<QLabel *>(QStringLiteral("problemLabel"))->isVisible());
    // The next song is no better off, until there is a device.
    m_bar->setSong(path(QStringLiteral("b.mid")));
    QVERIFY(!button("playButton")->isEnabled());
    device().isThere = true;
    QMetaObject::invokeMethod(device().context, [this] { device().changed(); });
    QTRY_VERIFY_WITH_TIMEOUT(button("playButton")->isEnabled(), patience);
    QCOMPARE(label("problemLabel"), QString());
}

void TestPlayerBar::withoutSoundTheButtonIsOffFromTheBeginning()
{
    usePlayer(SoundProblem::NotBuilt);
    m_bar->setSong(path(QStringLiteral("a.mid")));
    QVERIFY(!button("playButton")->isEnabled());
    QCOMPARE(label("problemLabel"), SoundProblem::text(SoundProblem::NotBuilt));
    QCOMPARE(device().made, 0);
}

void TestPlayerBar::damagedSongTurnsTheButtonOff()
{
    QVERIFY(writeFile(path(QStringLiteral("damaged.mid")), "MThd"));
    m_bar->setSong(path(QStringLiteral("damaged.mid")));
    m_bar->toggle();
    QTRY_VERIFY_WITH_TIMEOUT(!button("playButton")->isEnabled(), patience);
    QCOMPARE(label("problemLabel"), QStringLiteral("La song è danneggiata"));
    m_bar->setSong(path(QStringLiteral("a.mid")));
    QVERIFY(button("playButton")->isEnabled());
    QCOMPARE(label("problemLabel"), QString());
}

void TestPlayerBar::anotherSongTakesThePlaceOfTheOneThatPlays()
{
    m_bar->setSong(path(QStringLiteral("a.mid")));
    m_bar->toggle();
    QTRY_COMPARE_WITH_TIMEOUT(player().state(), State::Playing, patience);
    m_bar->setSong(path(QStringLiteral("b.mid")));
    // The first one plays on and is shown, until the user plays the second one.
    QCOMPARE(player().state(), State::Playing);
    QCOMPARE(slider("positionSlider")->toolTip(), QStringLiteral("a.mid"));
    QCOMPARE(button("playButton")->accessibleName(), QStringLiteral("Suona"));
    button("playButton")->click();
    QVERIFY(player().isAbout(path(QStringLiteral("b.mid"))));
    QTRY_COMPARE_WITH_TIMEOUT(player().length(), 200.0, patience);
}

void TestPlayerBar::spaceInATablePlays()
{
    QTableWidget table(3, 1);
    m_bar->playOnSpaceIn(&table);
    m_bar->setSong(path(QStringLiteral("a.mid")));
    QTest::keyClick(&table, Qt::Key_Space);
    QTRY_COMPARE_WITH_TIMEOUT(player().state(), State::Playing, patience);
    QVERIFY(table.selectedItems().isEmpty());
    QTest::keyClick(&table, Qt::Key_Space);
    QCOMPARE(player().state(), State::Paused);
}

void TestPlayerBar::spaceWithinTypedLettersIsALetter()
{
    QTableWidget table(3, 1);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    const QStringList names{QStringLiteral("first"), QStringLiteral("my car"),
                            QStringLiteral("my song")};
    for (int row = 0; row < names.size(); ++row)
        table.setItem(row, 0, new QTableWidgetItem(names.at(row)));
    table.setCurrentCell(0, 0);
    QApplication::setKeyboardInputInterval(patience);
    m_bar->playOnSpaceIn(&table);
    m_bar->setSong(path(QStringLiteral("a.mid")));
    QTest::keyClicks(&table, QStringLiteral("my s"));
    QApplication::setKeyboardInputInterval(400);
    QCOMPARE(table.currentRow(), 2);
    QCOMPARE(player().state(), State::Stopped);
}

void TestPlayerBar::spaceWithAModifierStaysTheTables()
{
    QTableWidget table(3, 1);
    m_bar->playOnSpaceIn(&table);
    m_bar->setSong(path(QStringLiteral("a.mid")));
    QTest::keyClick(&table, Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(player().state(), State::Stopped);
}

void TestPlayerBar::editDialogPlaysItsSong()
{
    DataEditDialog dialog;
    SongInfo info;
    info.fileName = path(QStringLiteral("a.mid"));
    dialog.setOtherInfo(info);
    dialog.show();
    auto *const play = dialog.findChild<QToolButton *>(QStringLiteral("playButton"));
    QVERIFY(play != nullptr && play->isVisible());
    play->click();
    QTRY_COMPARE_WITH_TIMEOUT(player().state(), State::Playing, patience);
    QVERIFY(player().isAbout(info.fileName));
}

void TestPlayerBar::twoBarsShowTheSamePlayer()
{
    PlayerBar other;
    m_bar->setSong(path(QStringLiteral("a.mid")));
    m_bar->toggle();
    QTRY_COMPARE_WITH_TIMEOUT(player().state(), State::Playing, patience);
    auto *const stop = other.findChild<QToolButton *>(QStringLiteral("stopButton"));
    QVERIFY(stop->isEnabled());
    stop->click();
    QCOMPARE(player().state(), State::Stopped);
    slider("volumeSlider")->setValue(12);
    QCOMPARE(other.findChild<QSlider *>(QStringLiteral("volumeSlider"))->value(), 12);
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    TestPlayerBar test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_playerbar.moc"
