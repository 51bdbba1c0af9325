// The memory window and a memory that goes, that another program holds or that may not be changed;
// beside the main window; and eject.
#include "devindex/udisksejector.h"
#include "storage/memorylock.h"
#include "support/faults.h"
#include "support/openmemorywindow.h"
#include "support/privatebus.h"
#include "support/smallmemory.h"

#include <QFileDialog>
#include <QProgressBar>
#include <QSemaphore>
#include <QTranslator>

using namespace openmemorywindow;

class TestMemoryWindowTrouble : public MemoryWindowFixture
{
    Q_OBJECT

private slots:
    void init() { MemoryWindowFixture::init(); }
    void cleanup()
    {
        m_bus.stopService();
        MemoryWindowFixture::cleanup();
    }

    void vanishedMemoryIsTold();
    void memoryThatVanishesAtTheQuestionLosesNothing();
    void memoryThatVanishesWhileAFolderIsChosenIsTold();
    void memoryThatVanishesBeforeItsPlaylistsAreMendedIsTold();
    void songsInAFolderThatCannotBeReadAreNotCalledGone();
    void memoryInUseIsLeftAlone();
    void memoryInUseIsNotRead();
    void folderOfTheComputerIsNotChanged();
    void protectedFolderIsNotChanged();

    void mainWindowStaysUsable();
    void readingIsStoppedByItsButton();
    void closesWithTheMainWindow();
    void anotherMemoryIsShown();
    void onlyMemoryNeedsNoChoice();
    void severalMemoriesNeedAChoice();
    void pressedButtonKeepsTheFocus();
    void eachOpeningReadsAnew();
    void memoryThatIsChosenDuringWorkIsShownAfterIt();
    void followsTheLanguage();

    void ejectNeedsAMemoryAndAService();
    void ejectsTheMemory();
    void busyMemoryIsNotCalledEjected();
    void transferOffersTheWindow();
    void transferOffersToEject();

private:
    bool startService(QJsonObject parameters)
    {
        parameters.insert(text("mountpoint"), m_card->root());
        return m_bus.startService(QFINDTESTDATA("support/mockudisks.py"), parameters, [] {
            return UdisksEjector().eject(text("/nowhere")).outcome == Ejector::Outcome::NoDevice;
        });
    }

    PrivateBus m_bus;
};

void TestMemoryWindowTrouble::vanishedMemoryIsTold()
{
    m_card->isLeftBroken();
    open();
    choose({text("/songs/Volare.kar")});
    QVERIFY(QDir().rename(m_card->root(), m_card->music() + text("/pulled")));
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    click("pushButtonRemove");
    QCOMPARE(user.messages(), QStringList(text("Memoria: La memoria non è più collegata.")));
    QCOMPARE(shownPaths(), QStringList());
    QVERIFY(!find<QPushButton>("pushButtonEject")->isEnabled());
    click("pushButtonReload");
    QCOMPARE(message(), text("La memoria non è collegata."));
    QVERIFY(QFileInfo::exists(m_card->music() + text("/pulled/songs/Volare.kar")));
    QVERIFY(!QFileInfo::exists(m_card->root())); // nothing was made in its place
}

void TestMemoryWindowTrouble::memoryThatVanishesAtTheQuestionLosesNothing()
{
    m_card->isLeftBroken();
    open();
    choose({text("/songs/Volare.kar")});
    Agreeing user;
    user.onQuestion = [this] { QDir().rename(m_card->root(), m_card->music() + text("/pulled")); };
    click("pushButtonRemove");
    QCOMPARE(user.said.size(), 2);
    QCOMPARE(user.said.at(1), text("La memoria non è più collegata."));
    QCOMPARE(message(), text("La memoria non è più collegata."));
    QCOMPARE(shownPaths(), QStringList());
    QVERIFY(QFileInfo::exists(m_card->music() + text("/pulled/songs/Volare.kar")));
}

void TestMemoryWindowTrouble::memoryThatVanishesWhileAFolderIsChosenIsTold()
{
    m_card->isLeftBroken();
    open();
    choose({text("/songs/Ciao.mp3"), text("/songs/Volare.kar")});
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    user.add([this](QWidget *window) {
        auto *const dialog = qobject_cast<QFileDialog *>(window);
        if (dialog == nullptr)
            return false;
        QDir().rename(m_card->root(), m_card->root() + text("-pulled"));
        child<QLineEdit>(dialog, "fileNameEdit")->setText(m_card->music());
        QMetaObject::invokeMethod(dialog, "accept");
        return true;
    });
    click("pushButtonCopy");
    QCOMPARE(user.messages(), QStringList(text("Memoria: La memoria non è più collegata.")));
    QCOMPARE(shownPaths(), QStringList());
    QVERIFY(QDir(m_card->music()).isEmpty(QDir::Files));
}

void TestMemoryWindowTrouble::memoryThatVanishesBeforeItsPlaylistsAreMendedIsTold()
{
    QVERIFY(Index().createIndex(m_card->root()));
    m_card->writeOnCard(text("playlist/play0001.dat"), filledmemory::playlist({0xFF00}));
    m_card->isLeftBroken();
    open();
    showPage(3);
    click("pushButtonCheck");
    Agreeing user;
    user.onQuestion = [this] { QDir().rename(m_card->root(), m_card->music() + text("/pulled")); };
    click("pushButtonMend");
    QCOMPARE(user.said.mid(1), QStringList(text("La memoria non è più collegata.")));
    QCOMPARE(message(), text("La memoria non è più collegata."));
}

void TestMemoryWindowTrouble::songsInAFolderThatCannotBeReadAreNotCalledGone()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root");
    open();
    for (QString above = m_card->root(); above != QDir::tempPath() && above.size() > 1;
         above = QFileInfo(above).path())
        QFile::setPermissions(above, QFile::Permissions(0x7755));
    const QFile::Permissions old = QFileInfo(m_card->path(text("pop"))).permissions();
    QFile::setPermissions(m_card->path(text("pop")), QFile::Permissions());
    {
        const faults::AnotherUser nobody;
        m_window->setContents(filledmemory::contentsOf(m_card->root()));
    }
    QFile::setPermissions(m_card->path(text("pop")), old);
    QVERIFY(stateOf("/pop/Twin.mp3").startsWith(text("cartella non leggibile")));
    choose({text("/pop/Twin.mp3")});
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    click("pushButtonCopy");
    QCOMPARE(user.messages(),
             QStringList(text("Memoria: Queste song sono in cartelle che non si possono leggere: "
                              "controllare la memoria con gli strumenti del sistema.")));
}

void TestMemoryWindowTrouble::memoryInUseIsLeftAlone()
{
    open();
    choose({text("/songs/Volare.kar")});
    MemoryLock other(m_card->root());
    QVERIFY(other.take());
    const QByteArray before = m_card->read(text("index.idx"));
    Agreeing user;
    click("pushButtonRemove");
    QCOMPARE(user.said.size(), 2);
    QVERIFY2(user.said.at(1).startsWith(text("Un altro programma sta scrivendo su questa memoria")),
             qPrintable(user.said.at(1)));
    QVERIFY(has("songs/Volare.kar"));
    QCOMPARE(m_card->read(text("index.idx")), before);
    QCOMPARE(updates(), 0);
}

void TestMemoryWindowTrouble::memoryInUseIsNotRead()
{
    MemoryLock other(m_card->root());
    QVERIFY(other.take());
    open();
    QVERIFY(message().startsWith(text("Un altro programma sta scrivendo su questa memoria")));
    QCOMPARE(shownPaths(), QStringList());
    other.release();
    click("pushButtonReload");
    QCOMPARE(shownPaths().size(), 6);
}

void TestMemoryWindowTrouble::folderOfTheComputerIsNotChanged()
{
    m_card->writeMusic(text("A very long name.mid"), MountedCard::midi("Mine"));
    OwnSettings::set(settings::mediaRoot, m_card->music());
    open();
    QCOMPARE(shownPaths(), QStringList(text("/A very long name.mid")));
    choose(shownPaths());
    for (const char *button : {"pushButtonEdit", "pushButtonRename", "pushButtonRemove",
                               "pushButtonUpdate", "pushButtonRebuild", "pushButtonEject"})
        QVERIFY2(!find<QPushButton>(button)->isEnabled(), button);
    QVERIFY(
        find<QPushButton>("pushButtonRemove")->toolTip().contains(text("non è su una memoria")));
    QVERIFY(!find<QPushButton>("pushButtonEject")->toolTip().isEmpty());
}

void TestMemoryWindowTrouble::protectedFolderIsNotChanged()
{
    const SmallMemory memory(m_card->root(), 0, "size=1m");
    if (!memory.isMounted())
        QSKIP("needs root");
    filledmemory::fill(*m_card);
    QVERIFY(memory.protect());
    open();
    QCOMPARE(shownPaths().size(), 6);
    choose({text("/songs/Volare.kar")});
    QVERIFY(!find<QPushButton>("pushButtonRemove")->isEnabled());
    QCOMPARE(find<QPushButton>("pushButtonRemove")->toolTip(),
             text("La memoria è protetta da scrittura."));
    QVERIFY(find<QPushButton>("pushButtonCopy")->isEnabled());
    m_window->close();
}

void TestMemoryWindowTrouble::mainWindowStaysUsable()
{
    open();
    choose({text("/songs/Volare.kar")});
    QSemaphore mayEnd;
    m_window->job().start([&mayEnd] { mayEnd.acquire(); }, [] {});
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(m_main->isEnabled() && m_main->selectButton()->isEnabled());
    for (const char *button : {"pushButtonEdit", "pushButtonRemove", "pushButtonReload",
                               "pushButtonCheck", "pushButtonFindDuplicates", "pushButtonClose"})
        QVERIFY2(!find<QPushButton>(button)->isEnabled(), button);
    QVERIFY(find<QPushButton>("pushButtonStop")->isVisible());
    find<QLineEdit>("filterLineEdit")->setText(text("ciao")); // songs can be looked at
    QCOMPARE(shownPaths().size(), 1);
    // Neither window goes while a memory is being changed.
    m_window->close();
    QVERIFY(m_window->isVisible());
    m_main->close();
    QVERIFY(m_main->isVisible() && m_window->isVisible());
    mayEnd.release();
    waitUntilIdle();
    QVERIFY(m_main->close());
}

void TestMemoryWindowTrouble::readingIsStoppedByItsButton()
{
    open();
    QSemaphore mayEnd;
    bool wasStopped = false;
    const OpenProgress openProgress = m_window->job().openProgress();
    m_window->startReading(
        [&] {
            const auto progress = openProgress({}, text("Reading..."), 10);
            progress->setValue(3);
            while (!progress->wasCanceled() && !mayEnd.tryAcquire(1, 20)) {
            }
            wasStopped = progress->wasCanceled();
        },
        [] {});
    QTRY_COMPARE(message(), text("Reading..."));
    QTRY_COMPARE(find<QProgressBar>("jobBar")->value(), 3);
    QVERIFY(find<QPushButton>("pushButtonClose")->isEnabled());
    QTest::mouseClick(find<QPushButton>("pushButtonStop"), Qt::LeftButton);
    waitUntilIdle();
    mayEnd.release();
    QVERIFY(wasStopped);
    QVERIFY(!find<QPushButton>("pushButtonStop")->isVisible());
}

void TestMemoryWindowTrouble::closesWithTheMainWindow()
{
    open();
    m_main->close();
    QVERIFY(!m_main->isVisible() && !m_window->isVisible());
}

void TestMemoryWindowTrouble::anotherMemoryIsShown()
{
    open();
    find<QLineEdit>("filterLineEdit")->setText(text("solo"));
    const MountedCard other;
    other.writeOnCard(text("Solo.mid"), MountedCard::midi("Solo"));
    m_window->choose(other.path(text("pop"))); // stands for the whole memory
    waitUntilIdle();
    QCOMPARE(shownPaths(), QStringList(text("/Solo.mid")));
    QVERIFY(find<QLabel>("labelFacts")->text().contains(text("senza database")));
}

void TestMemoryWindowTrouble::onlyMemoryNeedsNoChoice()
{
    OwnSettings::set(settings::mediaRoot, QString());
    open();
    QCOMPARE(shownPaths().size(), 6);
}

void TestMemoryWindowTrouble::severalMemoriesNeedAChoice()
{
    OwnSettings::set(settings::mediaRoot, QString());
    QVERIFY(QDir().mkpath(m_card->mountDirectory() + text("/OTHER")));
    open();
    QCOMPARE(shownPaths().size(), 0);
    QCOMPARE(find<QLabel>("labelFacts")->text(), text("Scegliere una memoria"));
}

void TestMemoryWindowTrouble::pressedButtonKeepsTheFocus()
{
    open();
    find<QPushButton>("pushButtonReload")->setFocus();
    QTest::keyClick(find<QPushButton>("pushButtonReload"), Qt::Key_Space);
    QVERIFY(m_window->job().isRunning());
    waitUntilIdle();
    QCOMPARE(m_window->focusWidget(), find<QPushButton>("pushButtonReload"));
}

void TestMemoryWindowTrouble::eachOpeningReadsAnew()
{
    open();
    m_window->close();
    m_card->writeOnCard(text("Late.mid"), MountedCard::midi("Late"));
    m_card->isLeftBroken();
    open();
    QVERIFY(shownPaths().contains(text("/Late.mid")));
}

void TestMemoryWindowTrouble::memoryThatIsChosenDuringWorkIsShownAfterIt()
{
    open();
    const MountedCard other;
    other.writeOnCard(text("Solo.mid"), MountedCard::midi("Solo"));
    QSemaphore mayEnd;
    m_window->job().start([&mayEnd] { mayEnd.acquire(); }, [] {});
    m_window->choose(other.root());
    QTest::qWait(10);
    QCOMPARE(shownPaths().size(), 6);
    mayEnd.release();
    QTRY_COMPARE(shownPaths(), QStringList(text("/Solo.mid")));
    waitUntilIdle();
}

void TestMemoryWindowTrouble::followsTheLanguage()
{
    open();
    m_main->action("actionEnglish")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(m_window->windowTitle(), text("Memory"));
    QCOMPARE(stateOf("/songs/Ciao.mp3"), text("in the song index"));
    find<QLineEdit>("filterLineEdit")->setText(text("duplicate"));
    QCOMPARE(shownPaths().size(), 2);
    QVERIFY(find<QLabel>("labelFacts")->text().endsWith(text("complete")));
    qDeleteAll(qApp->findChildren<QTranslator *>());
    QCoreApplication::processEvents();
}

void TestMemoryWindowTrouble::ejectNeedsAMemoryAndAService()
{
    open();
    QVERIFY(!find<QPushButton>("pushButtonEject")->isEnabled()); // a folder, no file system
    QVERIFY(find<QPushButton>("pushButtonEject")->toolTip().contains(text("niente da espellere")));
    m_window->close();
    const SmallMemory memory(m_card->root(), 0, "size=1m");
    if (!memory.isMounted())
        QSKIP("needs root");
    filledmemory::fill(*m_card);
    m_window->show();
    waitUntilIdle();
    QVERIFY(!find<QPushButton>("pushButtonEject")->isEnabled());
    QVERIFY(find<QPushButton>("pushButtonEject")->toolTip().contains(text("non risponde")));
    QVERIFY(startService({{text("can_power_off"), true}}));
    click("pushButtonReload");
    QVERIFY(find<QPushButton>("pushButtonEject")->isEnabled());
    QVERIFY(find<QPushButton>("pushButtonEject")->toolTip().isEmpty());
}

void TestMemoryWindowTrouble::ejectsTheMemory()
{
    const SmallMemory memory(m_card->root(), 0, "size=1m");
    if (!memory.isMounted())
        QSKIP("needs root");
    filledmemory::fill(*m_card);
    QVERIFY(startService({{text("can_power_off"), true}}));
    open();
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    click("pushButtonEject");
    QCOMPARE(m_bus.calls(), QStringList({text("Unmount"), text("PowerOff")}));
    QCOMPARE(user.messages(), QStringList(text("Memoria: Adesso la memoria si può scollegare.")));
    QCOMPARE(shownPaths(), QStringList());
}

void TestMemoryWindowTrouble::busyMemoryIsNotCalledEjected()
{
    const SmallMemory memory(m_card->root(), 0, "size=1m");
    if (!memory.isMounted())
        QSKIP("needs root");
    filledmemory::fill(*m_card);
    QVERIFY(startService({{text("can_power_off"), true},
                          {text("unmount"), text("org.freedesktop.UDisks2.Error.DeviceBusy")}}));
    open();
    QProcess program; // works on the memory
    program.setWorkingDirectory(m_card->path(text("songs")));
    program.start(text("sleep"), {text("100")});
    QVERIFY(program.waitForStarted());
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    click("pushButtonEject");
    program.kill();
    program.waitForFinished();
    QCOMPARE(user.messages().size(), 1);
    QVERIFY2(user.messages().constFirst().contains(text("La memoria è in uso da: sleep (")),
             qPrintable(user.messages().constFirst()));
    QVERIFY(!user.messages().constFirst().contains(text("si può scollegare")));
    QCOMPARE(shownPaths().size(), 6); // it is still there
}

void TestMemoryWindowTrouble::transferOffersTheWindow()
{
    OwnSettings::set(settings::mediaRoot, QString());
    m_main->setSelectedFiles({m_card->writeMusic(text("Fresh.mid"), MountedCard::midi("Fresh"))});
    UserDriver user;
    user.pick({m_card->path(text("songs"))});
    QStringList buttons;
    user.add([&buttons](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        QAbstractButton *show = nullptr;
        for (QAbstractButton *const button : box->buttons()) {
            if (button->text() == text("Mostra la memoria"))
                show = button;
        }
        if (show != nullptr) {
            // Return and Escape do what they always did.
            if (box->defaultButton() == box->button(QMessageBox::Ok) &&
                box->escapeButton() == box->button(QMessageBox::Ok))
                buttons.append(show->text());
        }
        QTest::mouseClick(show != nullptr ? show : box->button(QMessageBox::Ok), Qt::LeftButton);
        return true;
    });
    m_main->transferFiles();
    QCOMPARE(buttons, QStringList(text("Mostra la memoria")));
    m_window = windowOnScreen();
    QVERIFY(m_window != nullptr);
    waitUntilIdle();
    QVERIFY(shownPaths().contains(text("/songs/Fresh.mid")));
}

void TestMemoryWindowTrouble::transferOffersToEject()
{
    const SmallMemory memory(m_card->root(), 0, "size=1m");
    if (!memory.isMounted())
        QSKIP("needs root");
    QVERIFY(QDir().mkpath(m_card->path(text("songs"))));
    QVERIFY(startService({{text("can_power_off"), true}}));
    m_main->setSelectedFiles({m_card->writeMusic(text("Fresh.mid"), MountedCard::midi("Fresh"))});
    UserDriver user;
    user.pick({m_card->path(text("songs"))});
    QStringList said;
    user.add([&said](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        said.append(box->text());
        QAbstractButton *chosen = box->button(QMessageBox::Ok);
        for (QAbstractButton *const button : box->buttons()) {
            if (button->text() == text("Espelli la memoria"))
                chosen = button;
        }
        QTest::mouseClick(chosen, Qt::LeftButton);
        return true;
    });
    m_main->transferFiles();
    QCOMPARE(said.size(), 3); // what the transfer always says, and what became of the memory
    QVERIFY(said.at(1).startsWith(text("Song copiate: 1")));
    QCOMPARE(said.at(2), text("Adesso la memoria si può scollegare."));
    QCOMPARE(m_bus.calls(), QStringList({text("Unmount"), text("PowerOff")}));
    QVERIFY(windowOnScreen() == nullptr);
    QVERIFY(m_main->transferButton()->isVisible() && QApplication::activeModalWidget() == nullptr);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestMemoryWindowTrouble>(argc, argv);
}

#include "test_memorywindow_trouble.moc"
