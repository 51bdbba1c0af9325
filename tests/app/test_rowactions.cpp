// The keys and menu entries of the main window: that each does its work, tells its shortcut, and
// leaves alone what is not chosen.
#include "support/apptest.h"
#include "support/shorttext.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/dataeditdialog.h"
#include "windows/translation.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QMenuBar>
#include <QProgressDialog>
#include <QSet>
#include <QToolTip>
#include <QTranslator>

namespace
{

/** A window with two songs, a.mid and b.mid, that is the active one. */
struct TwoSongs {
    TwoSongs()
    {
        window.setSelectedFiles({songs.midi(s("a.mid"), "A"), songs.midi(s("b.mid"), "B")});
        window.importUserLibrary();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        window.table()->setFocus();
    }

    /** As the keyboard does: to whatever has the focus. */
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QTest::keyClick(window.windowHandle(), key, modifiers);
    }

    /** As the menu key does: for the middle of what has the focus. */
    void pressMenuKey()
    {
        const QPoint middle = window.table()->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, middle,
                                window.table()->mapToGlobal(middle));
        QCoreApplication::sendEvent(window.table(), &event);
    }

    const SongFolder songs;
    WindowUnderTest window;
};

/** Counts the windows that open, by class, and closes them. */
class Opened : public ModalAnswers
{
public:
    Opened()
    {
        add([this](QWidget *modal) {
            if (qobject_cast<QProgressDialog *>(modal) != nullptr)
                return false;
            names << QString::fromLatin1(modal->metaObject()->className());
            if (auto *const dialog = qobject_cast<QDialog *>(modal))
                dialog->reject();
            return true;
        });
    }
    QStringList names;
};

/** What a tool tip says after the mouse has rested on the button. */
QString shownToolTip(QToolButton *button)
{
    QToolTip::hideText();
    QHelpEvent help(QEvent::ToolTip, button->rect().center(),
                    button->mapToGlobal(button->rect().center()));
    QCoreApplication::sendEvent(button, &help);
    return QToolTip::text();
}

/** The letters behind "&" in the texts of a menu and, each for itself, of the menus in it. */
QString mnemonicClashes(const QWidget *menu)
{
    QString clashes;
    QSet<QChar> letters;
    for (const QAction *action : menu->actions()) {
        if (action->menu() != nullptr)
            clashes += mnemonicClashes(action->menu());
        const QString text = action->text();
        const qsizetype mark = text.indexOf(QLatin1Char('&'));
        if (!action->isVisible() || mark < 0 || mark + 1 >= text.size())
            continue;
        const QChar letter = text.at(mark + 1).toLower();
        if (letters.contains(letter))
            clashes += text + QLatin1Char(' ');
        letters.insert(letter);
    }
    return clashes;
}

} // namespace

class TestRowActions : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void returnEditsTheChosenSong_data();
    void returnEditsTheChosenSong();
    void deleteTakesTheChosenSongFromTheList();
    void fileIsDeletedAfterTheQuestion();
    void nothingHappensWithoutAChoice();
    void keysBelongToTheListOnly();
    void doubleClickStillOpensOneWindow();
    void menuKeyOpensTheMenuOfTheChosenRow();
    void menuKeyWithoutAChoiceOpensNothing();

    void menuEntriesPressTheButtons();
    void menuEntriesFollowTheButtons();
    void toolTipsTellTheShortcut();
    void everyEntryTellsItsShortcut();
    void mainActionsHaveKeys();
    void shortcutsDoNothingDuringAWorkflow();
    void shortcutsDoNotClash();
    void mnemonicsDoNotClash_data();
    void mnemonicsDoNotClash();
    void tabGoesInReadingOrder();
    void largeButtonsHaveWordsAndNames();
};

void TestRowActions::returnEditsTheChosenSong_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("return") << Qt::Key_Return;
    QTest::newRow("enter on the keypad") << Qt::Key_Enter;
}

void TestRowActions::returnEditsTheChosenSong()
{
    QFETCH(Qt::Key, key);
    TwoSongs two;
    two.window.table()->selectRow(1);
    ModalAnswers user;
    int dialogs = 0;
    user.add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<DataEditDialog *>(modal);
        if (dialog == nullptr)
            return false;
        ++dialogs;
        child<QLineEdit>(dialog, "titleLineEdit")->setText(s("New"));
        QTest::mouseClick(child<QPushButton>(dialog, "savePushButton"), Qt::LeftButton);
        return true;
    });
    two.press(key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
    QCOMPARE(dialogs, 1);
    QCOMPARE(two.window.model()->index(1, 2).data().toString(), s("New"));
    QCOMPARE(two.window.model()->status(1), int(Database::StatusEdited));
}

void TestRowActions::deleteTakesTheChosenSongFromTheList()
{
    TwoSongs two;
    two.window.table()->selectRow(0);
    two.press(Qt::Key_Delete);
    QCOMPARE(two.window.shownNames(), QStringList{s("b.mid")});
    QVERIFY(QFile::exists(two.songs.filePath(s("a.mid"))));
    two.press(Qt::Key_Delete); // the next song has become the chosen one
    QCOMPARE(two.window.shownNames(), QStringList());
    two.press(Qt::Key_Delete);
    QVERIFY(!two.window.action("actionRemoveSong")->isEnabled());
}

void TestRowActions::fileIsDeletedAfterTheQuestion()
{
    TwoSongs two;
    two.window.table()->selectRow(0);
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    two.window.action("actionDeleteSongFile")->trigger();
    QCOMPARE(user.messages().size(), 1);
    QCOMPARE(two.window.shownNames(), QStringList{s("b.mid")});
    QVERIFY(!QFile::exists(two.songs.filePath(s("a.mid"))));
    int copied = 0;
    QVERIFY(two.window.copyFiles(m_work->path(), copied));
    QCOMPARE(copied, 1);
}

void TestRowActions::nothingHappensWithoutAChoice()
{
    TwoSongs two;
    Opened opened;
    for (const char *name : {"actionEditSong", "actionRemoveSong", "actionDeleteSongFile"}) {
        QVERIFY2(!two.window.action(name)->isEnabled(), name);
        two.window.action(name)->trigger();
    }
    two.press(Qt::Key_Return);
    two.press(Qt::Key_Delete);
    // A song on which the cursor stands is not chosen before it is selected.
    two.window.table()->selectRow(0);
    two.window.table()->selectionModel()->clearSelection();
    QVERIFY(two.window.table()->currentIndex().isValid());
    two.press(Qt::Key_Return);
    two.press(Qt::Key_Delete);
    // An import clears the choice.
    two.window.table()->selectRow(0);
    two.window.importUserLibrary();
    QVERIFY(!two.window.action("actionRemoveSong")->isEnabled());
    QCOMPARE(opened.names, QStringList());
    QCOMPARE(two.window.model()->goodRowCount(), 2);
}

void TestRowActions::keysBelongToTheListOnly()
{
    TwoSongs two;
    two.window.table()->selectRow(0);
    Opened opened;
    auto *const field = two.window.child<QLineEdit>("filterLineEdit");
    field->setText(s("a"));
    field->setFocus();
    field->setCursorPosition(0);
    two.press(Qt::Key_Delete);
    QCOMPARE(field->text(), QString());
    QCOMPARE(two.window.model()->goodRowCount(), 2);
    two.window.selectButton()->setFocus();
    two.press(Qt::Key_Delete);
    QCOMPARE(two.window.model()->goodRowCount(), 2);
    QCOMPARE(opened.names, QStringList());
}

void TestRowActions::doubleClickStillOpensOneWindow()
{
    TwoSongs two;
    Opened opened;
    const QPoint point = two.window.table()->visualRect(two.window.model()->index(0, 2)).center();
    QTest::mouseClick(two.window.table()->viewport(), Qt::LeftButton, {}, point);
    QTest::mouseDClick(two.window.table()->viewport(), Qt::LeftButton, {}, point);
    QCoreApplication::processEvents(); // a window of its own would come now
    QCOMPARE(opened.names, QStringList{s("DataEditDialog")});
}

void TestRowActions::menuKeyOpensTheMenuOfTheChosenRow()
{
    TwoSongs two;
    two.window.table()->selectRow(0); // and not the row in the middle of the list
    int menus = 0;
    QTimer chooser;
    connect(&chooser, &QTimer::timeout, &chooser, [&] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        chooser.stop();
        ++menus;
        menu->setActiveAction(menu->actions().first());
        QTest::keyClick(menu, Qt::Key_Return);
    });
    chooser.start(5);
    two.pressMenuKey();
    QCOMPARE(menus, 1);
    QCOMPARE(two.window.shownNames(), QStringList{s("b.mid")});
}

void TestRowActions::menuKeyWithoutAChoiceOpensNothing()
{
    TwoSongs two;
    int requests = 0;
    connect(two.window.table(), &QWidget::customContextMenuRequested, this, [&] { ++requests; });
    two.pressMenuKey();
    QCOMPARE(requests, 0);
}

// ---------------------------------------------------------------- buttons and menus

void TestRowActions::menuEntriesPressTheButtons()
{
    TwoSongs two;
    two.window.transferButton()->setEnabled(true);
    Opened opened;
    two.press(Qt::Key_O, Qt::ControlModifier);
    two.press(Qt::Key_F5);
    two.press(Qt::Key_T, Qt::ControlModifier);
    two.press(Qt::Key_F1);
    QCOMPARE(opened.names,
             (QStringList{s("QFileDialog"), s("BackupDialog"), s("QFileDialog"), s("HelpDialog")}));
    two.press(Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(!two.window.isVisible());
}

void TestRowActions::menuEntriesFollowTheButtons()
{
    const SongFolder songs;
    WindowUnderTest window;
    QVERIFY(window.action("actionSelectSongs")->isEnabled());
    QVERIFY(!window.action("actionSynchronise")->isEnabled());
    QVERIFY(!window.action("actionTransfer")->isEnabled());
    UserDriver user;
    user.pick({songs.midi(s("a.mid"), "A")});
    window.action("actionSelectSongs")->trigger();
    QVERIFY(window.action("actionSynchronise")->isEnabled());
    QVERIFY(window.action("actionTransfer")->isEnabled());
    window.updateButton()->setEnabled(false);
    QVERIFY(!window.action("actionSynchronise")->isEnabled());
    QVERIFY(!window.action("actionSelectSongs")->icon().isNull());
}

void TestRowActions::toolTipsTellTheShortcut()
{
    const WindowUnderTest window;
    QCOMPARE(
        shownToolTip(window.selectButton()),
        s("Seleziona le basi musicali che desideri inserire nella memoria di Kavena (Ctrl+O)"));
    QCOMPARE(shownToolTip(window.updateButton()),
             s("Sincronizza song con il database K-Ravo (F5)"));
    QCOMPARE(shownToolTip(window.transferButton()),
             s("Trasferisci song nella memoria di Kavena (Ctrl+T)"));
    QCOMPARE(window.updateButton()->toolTip(), s("Sincronizza song con il database K-Ravo"));
    QToolTip::hideText();
}

void TestRowActions::everyEntryTellsItsShortcut()
{
    const WindowUnderTest window;
    const QList<QPair<const char *, const char *>> expected{
        {"actionSelectSongs", "Ctrl+O"}, {"actionSynchronise", "F5"}, {"actionTransfer", "Ctrl+T"},
        {"actionEditSong", "Return"},    {"actionRemoveSong", "Del"}, {"actionFindSong", "Ctrl+F"},
        {"actionQuit", "Ctrl+Q"},        {"actionContents", "F1"}};
    for (const auto &[name, keys] : expected) {
        QCOMPARE(window.action(name)->shortcut().toString(), s(keys));
        QVERIFY2(window.action(name)->isShortcutVisibleInContextMenu(), name);
    }
}

void TestRowActions::mainActionsHaveKeys()
{
    // All that a mouse reaches on the list: its menu's entries and the order of its rows.
    const WindowUnderTest window;
    const auto *const file = window.child<QMenu>("menuFile");
    for (const char *name : {"actionEditSong", "actionRemoveSong", "actionDeleteSongFile"})
        QVERIFY2(file->actions().contains(window.action(name)), name);
    QVERIFY(file->actions().contains(window.child<QMenu>("menuSort")->menuAction()));
}

void TestRowActions::shortcutsDoNothingDuringAWorkflow()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 500; ++i)
        files << songs.midi(s("%1.mid").arg(i), "A");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    window.importUserLibrary();
    int tries = 0;
    QStringList others;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        if (qobject_cast<QProgressDialog *>(modal) == nullptr) {
            others << QString::fromLatin1(modal->metaObject()->className());
            return modal->close();
        }
        if (tries++ > 0 || window.model()->goodRowCount() == 0)
            return true;
        window.table()->selectRow(0);
        for (const char *name :
             {"actionSelectSongs", "actionSynchronise", "actionTransfer", "actionEditSong",
              "actionRemoveSong", "actionDeleteSongFile", "actionQuit", "actionContents"})
            window.action(name)->trigger();
        return true;
    });
    window.importUserLibrary();
    QVERIFY(tries > 0);
    QCOMPARE(others, QStringList());
    QCOMPARE(window.model()->goodRowCount(), 500);
    QVERIFY(window.isVisible());
}

void TestRowActions::shortcutsDoNotClash()
{
    const WindowUnderTest window;
    QSet<QString> seen;
    for (const QAction *action : window.findChildren<QAction *>()) {
        for (const QKeySequence &keys : action->shortcuts()) {
            QVERIFY2(!seen.contains(keys.toString()), qPrintable(keys.toString()));
            seen.insert(keys.toString());
        }
    }
}

void TestRowActions::mnemonicsDoNotClash_data()
{
    QTest::addColumn<QString>("translation");
    for (const char *name : {"quorvane_de", "quorvane_en", "kavenapc_en", "kavenapc_it"})
        QTest::newRow(name) << s(":/trans/") + s(name);
    QTest::newRow("source texts") << QString();
}

void TestRowActions::mnemonicsDoNotClash()
{
    QFETCH(QString, translation);
    QTranslator translator;
    if (!translation.isEmpty()) {
        QVERIFY(translator.load(translation));
        QCoreApplication::installTranslator(&translator);
    }
    const WindowUnderTest window;
    QCOMPARE(mnemonicClashes(window.child<QMenuBar>("menuBar")), QString());
    for (const char *name :
         {"actionSelectSongs", "actionSynchronise", "actionTransfer", "actionEditSong",
          "actionRemoveSong", "actionDeleteSongFile", "actionFindSong"})
        QVERIFY2(window.action(name)->text().contains(QLatin1Char('&')), name);
}

void TestRowActions::tabGoesInReadingOrder()
{
    TwoSongs two;
    two.window.updateButton()->setEnabled(true);
    two.window.transferButton()->setEnabled(true);
    two.window.child<QLineEdit>("filterLineEdit")->setFocus();
    QStringList order;
    for (int i = 0; i < 13; ++i) {
        order << QApplication::focusWidget()->objectName();
        two.press(Qt::Key_Tab);
    }
    QCOMPARE(order,
             (QStringList{s("filterLineEdit"), s("userLibraryTableView"), s("playButton"),
                          s("volumeSlider"), s("soundFontButton"), s("selectDirToolButton"),
                          s("updateDataToolButton"), s("transferFilesToolButton"),
                          s("stateToolButton0"), s("stateToolButton1"), s("stateToolButton2"),
                          s("stateToolButton3"), s("filterLineEdit")}));
}

void TestRowActions::largeButtonsHaveWordsAndNames()
{
    const WindowUnderTest window;
    for (const QToolButton *button :
         {window.selectButton(), window.updateButton(), window.transferButton()}) {
        QVERIFY(!button->text().isEmpty());
        QCOMPARE(button->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
        QCOMPARE(button->accessibleName(), button->toolTip());
    }
    QVERIFY(!window.table()->accessibleName().isEmpty());
}

int main(int argc, char *argv[])
{
    return runAppTest<TestRowActions>(argc, argv);
}

#include "test_rowactions.moc"
