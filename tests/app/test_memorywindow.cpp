// The memory window and the songs in it: looked at, removed, renamed, copied, edited.
#include "storage/memorylock.h"
#include "support/openmemorywindow.h"
#include "windows/dataeditdialog.h"
#include "windows/nocopyrightdialog.h"
#include "windows/renamesongdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QHeaderView>
#include <QProgressBar>
#include <QTemporaryDir>

using namespace openmemorywindow;

namespace
{

const QString removalQuestion =
    text("Memoria: %1 song verranno eliminate dalla memoria con le loro immagini karaoke. "
         "Procedere?");

/** Opens what the program wants shown; it counts as opened. */
class FolderOpener : public QObject
{
    Q_OBJECT

public:
    FolderOpener() { QDesktopServices::setUrlHandler(text("file"), this, "open"); }
    ~FolderOpener() override { QDesktopServices::unsetUrlHandler(text("file")); }

    QStringList opened;

public slots:
    void open(const QUrl &url) { opened.append(url.toLocalFile()); }
};

} // namespace

class TestMemoryWindow : public MemoryWindowFixture
{
    Q_OBJECT

private slots:
    void init() { MemoryWindowFixture::init(); }
    void cleanup() { MemoryWindowFixture::cleanup(); }

    void menuEntryHasItsKey();
    void showsTheMemoryAndItsSongs();
    void everyStateIsTold();
    void filterNarrowsTheList();
    void filterKeepsWhatIsChosenAndShown();
    void headerSortsAndKeepsTheChoice();

    void removesSeveralWithOneUpdate();
    void declinedRemovalChangesNothing();
    void deleteKeyAsks();
    void songThatWasChangedMeanwhileStays();
    void songWithoutFileIsNotRemoved();

    void renamesAndKeepsThePlaylist();
    void nameThatThePlayerCannotShowIsRefused();

    void copiesToTheComputer();
    void copyAsksBeforeItReplaces();
    void copyOntoTheMemoryIsRefused();

    void editsWithOneUpdate();
    void editGoesToAllChosenSongs();
    void cancelledEditChangesNothing();

    void showsTheFolder();
};

void TestMemoryWindow::menuEntryHasItsKey()
{
    QCOMPARE(m_main->action("actionMemory")->shortcut(), QKeySequence(text("Ctrl+M")));
    m_main->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_main.get()));
    QTest::keyClick(m_main.get(), Qt::Key_M, Qt::ControlModifier);
    QTRY_VERIFY(windowOnScreen() != nullptr);
    QCOMPARE(windowOnScreen()->windowModality(), Qt::NonModal);
    m_window = windowOnScreen();
    waitUntilIdle();
}

void TestMemoryWindow::showsTheMemoryAndItsSongs()
{
    open();
    QCOMPARE(shown(0), QStringList({text("AZZURRO"), text("NOTAG.MP3"), text("TWIN.MP3"),
                                    text("AZZURRO"), text("CIAO"), text("VOLARE")}));
    const auto row = int(shownPaths().indexOf(text("/songs/Ciao.mp3")));
    QStringList ciao;
    for (int column = 0; column < 10; ++column)
        ciao.append(shown(column).at(row));
    QCOMPARE(ciao[1], text("MORANDI"));
    QCOMPARE(ciao[2], text("POP"));
    QCOMPARE(ciao[3], text("MP3"));
    QCOMPARE(ciao[6], text("Sì"));
    QVERIFY(ciao[7].startsWith(text("557")));
    QCOMPARE(ciao[8], text("nel database"));
    const QString facts = find<QLabel>("labelFacts")->text();
    QVERIFY2(facts.startsWith(text("CARD · ")) && facts.endsWith(text(", completo")),
             qPrintable(facts));
    QVERIFY(find<QProgressBar>("spaceBar")->text().contains(text(" liberi di ")));
    QCOMPARE(find<QLabel>("countLabel")->text(), text("6 song"));
    QVERIFY(!find<QPushButton>("pushButtonRemove")->isEnabled()); // nothing is chosen
    QCOMPARE(updates(), 0);
}

void TestMemoryWindow::everyStateIsTold()
{
    filledmemory::changeBehindTheIndex(*m_card);
    open();
    QCOMPARE(stateOf("/pop/New.mid"), text("non ancora nel database"));
    QCOMPARE(stateOf("/songs/Volare.kar"), text("modificata dopo l'aggiornamento"));
    QCOMPARE(stateOf("/songs/Azzurro.mid"), text("il file non c'è più"));
    QCOMPARE(stateOf("/pop/Notag.mp3"), text("nel database, il player non legge il tag"));
    QCOMPARE(stateOf("/songs/Ciao.mp3"), text("nel database"));
    const QString facts = find<QLabel>("labelFacts")->text();
    for (const char *part : {"mancano 1 song", "1 song modificate", "1 song senza file"})
        QVERIFY2(facts.contains(text(part)), part);
}

void TestMemoryWindow::filterNarrowsTheList()
{
    open();
    auto *const filter = find<QLineEdit>("filterLineEdit");
    QTest::keyClicks(filter, text("azzur"));
    QCOMPARE(shownPaths(), QStringList({text("/pop/Azzurro2.mid"), text("/songs/Azzurro.mid")}));
    QCOMPARE(find<QLabel>("countLabel")->text(), text("2 di 6 song"));
    filter->clear();
    QTest::keyClicks(filter, text("doppia")); // a state is a text like others
    QCOMPARE(shownPaths(), QStringList({text("/pop/Azzurro2.mid"), text("/songs/Azzurro.mid")}));
    filter->clear();
    QTest::keyClicks(filter, text("nothing like this"));
    QCOMPARE(shownPaths(), QStringList());
    QTest::keyClick(filter, Qt::Key_Escape);
    QCOMPARE(shownPaths().size(), 6);
    QVERIFY(m_window->isVisible());
}

void TestMemoryWindow::filterKeepsWhatIsChosenAndShown()
{
    open();
    choose({text("/songs/Ciao.mp3"), text("/songs/Volare.kar")});
    QCOMPARE(find<QLabel>("countLabel")->text(), text("6 song, 2 scelte"));
    find<QLineEdit>("filterLineEdit")->setText(text("ciao"));
    QCOMPARE(find<QLabel>("countLabel")->text(), text("1 di 6 song, 1 scelte"));
    find<QLineEdit>("filterLineEdit")->clear();
    // What was hidden is not chosen any more: nobody changes what he does not see.
    QCOMPARE(find<QLabel>("countLabel")->text(), text("6 song, 1 scelte"));
}

void TestMemoryWindow::headerSortsAndKeepsTheChoice()
{
    open();
    choose({text("/songs/Volare.kar")});
    QHeaderView *const header = table()->horizontalHeader();
    const auto clickTitle = [header](int column) {
        QTest::mouseClick(
            header->viewport(), Qt::LeftButton, Qt::NoModifier,
            QPoint(header->sectionViewportPosition(column) + 10, header->height() / 2));
    };
    clickTitle(1);
    QCOMPARE(shown(1), QStringList({text(""), text(""), text("CELENTANO"), text("CELENTANO"),
                                    text("MODUGNO"), text("MORANDI")}));
    clickTitle(1);
    QCOMPARE(shown(1).constFirst(), text("MORANDI"));
    QCOMPARE(table()->selectionModel()->selectedRows().size(), 1);
    QCOMPARE(table()->selectionModel()->selectedRows(9).constFirst().data().toString(),
             text("/songs/Volare.kar"));
    clickTitle(7);
    const QStringList sizes = shown(7);
    QVERIFY(sizes.constLast().startsWith(text("557")));
}

void TestMemoryWindow::removesSeveralWithOneUpdate()
{
    open();
    choose({text("/songs/Ciao.mp3"), text("/pop/Notag.mp3")});
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    click("pushButtonRemove");
    QCOMPARE(user.messages(), QStringList(removalQuestion.arg(2)));
    QVERIFY(!has("songs/Ciao.mp3") && !has("songs/Ciao.cdg") && !has("pop/Notag.mp3"));
    QCOMPARE(m_card->indexedPaths(),
             QStringList({text("/pop/Azzurro2.mid"), text("/pop/Twin.mp3"),
                          text("/songs/Azzurro.mid"), text("/songs/Volare.kar")}));
    QCOMPARE(updates(), 1);
    QCOMPARE(shownPaths().size(), 4);
    QCOMPARE(message(), text("2 song eliminate dalla memoria."));
    QVERIFY(!has(".kavena-lock"));
}

void TestMemoryWindow::declinedRemovalChangesNothing()
{
    open();
    choose({text("/songs/Ciao.mp3")});
    const QByteArray before = m_card->read(text("index.idx"));
    ModalAnswers user;
    user.add([](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        // Whoever presses Return without reading keeps his songs.
        if (box->defaultButton() == box->button(QMessageBox::No))
            QTest::keyClick(box, Qt::Key_Return);
        return true;
    });
    click("pushButtonRemove");
    QVERIFY(has("songs/Ciao.mp3") && has("songs/Ciao.cdg"));
    QCOMPARE(m_card->read(text("index.idx")), before);
    QCOMPARE(updates(), 0);
    QCOMPARE(table()->selectionModel()->selectedRows().size(), 1);
}

void TestMemoryWindow::deleteKeyAsks()
{
    open();
    choose({text("/pop/Twin.mp3")});
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    table()->setFocus();
    QTest::keyClick(table(), Qt::Key_Delete);
    waitUntilIdle();
    QCOMPARE(user.messages(), QStringList(removalQuestion.arg(1)));
    QVERIFY(!has("pop/Twin.mp3") && has("pop/Notag.mp3"));
}

void TestMemoryWindow::songThatWasChangedMeanwhileStays()
{
    open();
    choose({text("/pop/Twin.mp3"), text("/pop/Notag.mp3")});
    m_card->writeOnCard(text("pop/Twin.mp3"), "another song came here");
    m_card->isLeftBroken(); // nobody has told the index of it
    Agreeing user;
    click("pushButtonRemove");
    QCOMPARE(user.said.size(), 2);
    QCOMPARE(user.said.at(1),
             text("1 song non sono state cambiate.\n/pop/Twin.mp3: un altro programma l'ha "
                  "cambiata: rileggere la memoria"));
    QCOMPARE(m_card->read(text("pop/Twin.mp3")), QByteArray("another song came here"));
    QVERIFY(!has("pop/Notag.mp3"));
    QCOMPARE(message(), text("1 song eliminate dalla memoria."));
}

void TestMemoryWindow::songWithoutFileIsNotRemoved()
{
    filledmemory::changeBehindTheIndex(*m_card);
    open();
    choose({text("/songs/Azzurro.mid")});
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    click("pushButtonRemove");
    QCOMPARE(user.messages().size(), 1);
    QVERIFY(user.messages().constFirst().contains(text("non c'è più il file")));
    QCOMPARE(updates(), 0);
}

void TestMemoryWindow::renamesAndKeepsThePlaylist()
{
    open();
    choose({text("/songs/Volare.kar")});
    const quint32 id = filledmemory::idOf(*m_card, text("/songs/Volare.kar"));
    ModalAnswers user;
    user.add([](QWidget *window) {
        auto *const dialog = qobject_cast<RenameSongDialog *>(window);
        if (dialog == nullptr)
            return false;
        child<QLineEdit>(dialog, "nameLineEdit")->setText(text("Nelblu"));
        QTest::mouseClick(child<QPushButton>(dialog, "renamePushButton"), Qt::LeftButton);
        return true;
    });
    click("pushButtonRename");
    QVERIFY(has("songs/Nelblu.kar") && !has("songs/Volare.kar"));
    QCOMPARE(filledmemory::idOf(*m_card, text("/songs/Nelblu.kar")), id);
    QVERIFY(shownPaths().contains(text("/songs/Nelblu.kar")));
    QCOMPARE(message(), text("La song si chiama ora /songs/Nelblu.kar."));
    QCOMPARE(updates(), 1);
}

void TestMemoryWindow::nameThatThePlayerCannotShowIsRefused()
{
    RenameSongDialog dialog(m_card->root(), text("/songs/Volare.kar"));
    dialog.show();
    auto *const name = child<QLineEdit>(&dialog, "nameLineEdit");
    auto *const reason = child<QLabel>(&dialog, "reasonLabel");
    auto *const rename = child<QPushButton>(&dialog, "renamePushButton");
    QVERIFY(!rename->isEnabled() && reason->text().isEmpty()); // nothing is typed yet
    for (const char *bad : {"ninechars", "a/b", "", "Azzurro*", "CON", "\u20ac"}) {
        name->setText(text(bad));
        QVERIFY2(!rename->isEnabled() && !reason->text().isEmpty(), bad);
    }
    name->setText(text("Blu"));
    QVERIFY(rename->isEnabled() && reason->text().isEmpty());
}

void TestMemoryWindow::copiesToTheComputer()
{
    open();
    choose({text("/songs/Ciao.mp3"), text("/songs/Volare.kar")});
    UserDriver user;
    user.pick({m_card->music()});
    click("pushButtonCopy");
    QCOMPARE(QDir(m_card->music()).entryList(QDir::Files),
             QStringList({text("Ciao.cdg"), text("Ciao.mp3"), text("Volare.kar")}));
    QCOMPARE(message(), text("2 song copiate sul computer."));
    QCOMPARE(updates(), 0);
}

void TestMemoryWindow::copyAsksBeforeItReplaces()
{
    open();
    m_card->writeMusic(text("Volare.kar"), "mine");
    choose({text("/songs/Volare.kar")});
    UserDriver user;
    user.pick({m_card->music()});
    user.click<NoCopyrightDialog>(text("noPushButton"));
    click("pushButtonCopy");
    QFile kept(m_card->music() + text("/Volare.kar"));
    QVERIFY(kept.open(QFile::ReadOnly));
    QCOMPARE(kept.readAll(), QByteArray("mine"));
    QCOMPARE(message(), text("0 song copiate sul computer. 1 c'erano già e restano."));
}

void TestMemoryWindow::copyOntoTheMemoryIsRefused()
{
    open();
    choose({text("/songs/Volare.kar")});
    UserDriver user;
    user.pick({m_card->path(text("pop"))});
    user.pressInMessageBoxes(QMessageBox::Ok);
    click("pushButtonCopy");
    QCOMPARE(user.messages().size(), 1);
    QVERIFY(!has("pop/Volare.kar"));
}

void TestMemoryWindow::editsWithOneUpdate()
{
    open();
    choose({text("/songs/Volare.kar")});
    bool boxesAreShown = true;
    ModalAnswers user;
    user.add([&](QWidget *window) {
        auto *const dialog = qobject_cast<DataEditDialog *>(window);
        if (dialog == nullptr)
            return false;
        boxesAreShown = child<QCheckBox>(dialog, "checkBoxToAllArtist")->isVisible();
        child<QLineEdit>(dialog, "titleLineEdit")->setText(text("Nel blu dipinto"));
        QTest::mouseClick(child<QPushButton>(dialog, "savePushButton"), Qt::LeftButton);
        return true;
    });
    click("pushButtonEdit");
    QVERIFY(!boxesAreShown); // there is no other song
    QVERIFY(shown(0).contains(text("NEL BLU DIPINTO")));
    QVERIFY(m_card->read(text("title.idx")).contains("NEL BLU DIPINTO"));
    QCOMPARE(stateOf("/songs/Volare.kar"), text("nel database"));
    QCOMPARE(message(), text("1 song salvate."));
    QCOMPARE(updates(), 1);
}

void TestMemoryWindow::editGoesToAllChosenSongs()
{
    open();
    choose({text("/songs/Volare.kar"), text("/pop/Azzurro2.mid"), text("/songs/Azzurro.mid")});
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    user.add([](QWidget *window) {
        auto *const dialog = qobject_cast<DataEditDialog *>(window);
        if (dialog == nullptr)
            return false;
        if (nextStep(dialog) == 0) {
            child<QComboBox>(dialog, "genreComboBox")->setEditText(text("Festa"));
            clickLater(child<QCheckBox>(dialog, "checkBoxToAllGenre"));
        } else if (child<QCheckBox>(dialog, "checkBoxToAllGenre")->isChecked()) {
            QTest::mouseClick(child<QPushButton>(dialog, "savePushButton"), Qt::LeftButton);
        }
        return true;
    });
    click("pushButtonEdit");
    QCOMPARE(user.messages().size(), 1);
    QVERIFY(user.messages().constFirst().contains(text("a tutte le song scelte")));
    QCOMPARE(shown(2).count(text("FESTA")), 3);
    QCOMPARE(shown(0).count(text("AZZURRO")), 2); // the rest of each song stays
    QCOMPARE(message(), text("3 song salvate."));
    QCOMPARE(updates(), 1);
}

void TestMemoryWindow::cancelledEditChangesNothing()
{
    open();
    choose({text("/songs/Volare.kar")});
    const QByteArray before = m_card->read(text("songs/Volare.kar"));
    ModalAnswers user;
    user.click<DataEditDialog>(text("exitPushButton"));
    click("pushButtonEdit");
    QCOMPARE(m_card->read(text("songs/Volare.kar")), before);
    QCOMPARE(updates(), 0);
}

void TestMemoryWindow::showsTheFolder()
{
    open();
    choose({text("/songs/Volare.kar")});
    const FolderOpener desktop;
    click("pushButtonShow");
    QCOMPARE(desktop.opened, QStringList(m_card->path(text("songs"))));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestMemoryWindow>(argc, argv);
}

#include "test_memorywindow.moc"
