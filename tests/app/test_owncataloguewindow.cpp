// The user's own catalogue through the main window: songs become entries, its window searches,
// edits, deletes, imports and exports them, and the preview says where a value comes from.
#include "library/owncatalogue.h"
#include "support/apptest.h"
#include "support/damagedcatalogue.h"
#include "support/mainwindowdriver.h"
#include "support/samplesongs.h"
#include "support/shorttext.h"
#include "support/userdriver.h"
#include "windows/backupdialog.h"
#include "windows/cataloguedialog.h"
#include "windows/catalogueentrydialog.h"
#include "windows/changepreviewdialog.h"
#include "windows/filelistdialog.h"

#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTreeWidget>

class TestOwnCatalogueWindow : public AppFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void chosenSongBecomesAnEntry();
    void contextMenuAddsTheSongOfItsRow();
    void entryIsReplacedOnlyAfterAQuestion_data();
    void entryIsReplacedOnlyAfterAQuestion();
    void songThatIsGoneIsNamed();
    void allShownSongsAreAdded();
    void windowFindsEntriesAsOneTypes();
    void entryIsEdited();
    void whatIsNoEntryCannotBeSaved();
    void entriesAreDeletedAfterAQuestion();
    void tableIsExportedAndImported();
    void tableOfNothingIsTold();
    void unusableCatalogueIsSaidAndNothingCanBePressed();
    void previewSaysWhichCatalogueItIs();
    void unusableCatalogueIsAskedAboutBeforeSynchronising_data();
    void unusableCatalogueIsAskedAboutBeforeSynchronising();
    void damagedPageIsAskedAboutBeforeSynchronising();
    void nothingIsAddedToACatalogueWithADamagedPage();

private:
    QList<SongsDbRecord> entries() const
    {
        OwnCatalogue own;
        own.open();
        return own.entries();
    }
    QStringList titles() const
    {
        QStringList found;
        for (const SongsDbRecord &entry : entries())
            found << entry.title;
        return found;
    }
    void addRow(int row)
    {
        m_window->table()->selectRow(row);
        m_window->action("actionAddToCatalogue")->trigger();
    }
    void addAll();
    void inWindow(const std::function<void(CatalogueDialog *)> &look);
    void press(QWidget *dialog, const char *button)
    {
        QTest::mouseClick(child<QPushButton>(dialog, button), Qt::LeftButton);
    }
    void damageCatalogue();

    std::unique_ptr<SongFolder> m_songs;
    std::unique_ptr<WindowUnderTest> m_window;
    std::unique_ptr<UserDriver> m_user;
    QString m_known;
    QString m_other;
};

/** Two songs are listed, of which the built-in catalogue knows one. */
void TestOwnCatalogueWindow::init()
{
    AppFixture::init();
    QVERIFY(mainwindowdriver::writeCatalogue());
    m_songs = std::make_unique<SongFolder>();
    m_known = m_songs->midi(s("known.mid"), "Known song");
    m_other = m_songs->midi(s("other.mid"), "Other song");
    m_window = std::make_unique<WindowUnderTest>();
    m_window->setSelectedFiles({m_known, m_other});
    m_window->importUserLibrary();
    m_user = std::make_unique<UserDriver>();
}

void TestOwnCatalogueWindow::cleanup()
{
    m_user.reset();
    m_window.reset();
    m_songs.reset();
    AppFixture::cleanup();
}

void TestOwnCatalogueWindow::addAll()
{
    addRow(0);
    addRow(1);
    QCOMPARE(titles(), (QStringList{s("Known song"), s("Other song")}));
}

/** Opens the window of the catalogue, looks at it and closes it. */
void TestOwnCatalogueWindow::inWindow(const std::function<void(CatalogueDialog *)> &look)
{
    bool looked = false;
    // Not from the timer of the answers, which are needed meanwhile.
    QTimer::singleShot(0, m_window.get(), [&] {
        auto *const dialog = qobject_cast<CatalogueDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog != nullptr);
        looked = true;
        look(dialog);
        dialog->close();
    });
    m_window->action("actionCatalogue")->trigger();
    QVERIFY(looked);
}

void TestOwnCatalogueWindow::damageCatalogue()
{
    const QString path = OwnCatalogue::defaultPath();
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QVERIFY(samplesongs::writeFile(path, QByteArray(5000, 'x')));
}

void TestOwnCatalogueWindow::chosenSongBecomesAnEntry()
{
    QVERIFY(!m_window->action("actionAddToCatalogue")->isEnabled()); // no song is chosen
    QVERIFY(!QFile::exists(OwnCatalogue::defaultPath()));
    addRow(1);
    QCOMPARE(entries().size(), 1);
    QCOMPARE(entries().constFirst().title, s("Other song"));
    QCOMPARE(entries().constFirst().filename, s("OTHER"));
    QVERIFY(m_window->child<QStatusBar>("statusBar")->currentMessage().contains(s("other.mid")));
}

void TestOwnCatalogueWindow::contextMenuAddsTheSongOfItsRow()
{
    QTimer chooser;
    connect(&chooser, &QTimer::timeout, &chooser, [&] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        chooser.stop();
        menu->setActiveAction(menu->actions().constLast());
        QMetaObject::invokeMethod(
            menu, [menu] { QTest::keyClick(menu, Qt::Key_Return); }, Qt::QueuedConnection);
    });
    chooser.start(5);
    QTableView *const table = m_window->table();
    emit table->customContextMenuRequested(
        table->visualRect(m_window->model()->index(1, 2)).center());
    QCOMPARE(titles(), QStringList{s("Other song")});
}

void TestOwnCatalogueWindow::entryIsReplacedOnlyAfterAQuestion_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<QString>("title");
    QTest::newRow("yes") << QMessageBox::Yes << s("Other song");
    QTest::newRow("no") << QMessageBox::No << s("Mine");
    QTest::newRow("cancel") << QMessageBox::Cancel << s("Mine");
}

void TestOwnCatalogueWindow::entryIsReplacedOnlyAfterAQuestion()
{
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(QString, title);
    SongsDbRecord mine;
    mine.filename = s("OTHER");
    mine.title = s("Mine");
    {
        OwnCatalogue own;
        own.openOrMake();
        QVERIFY(own.put({mine}));
    }
    m_user->pressInMessageBoxes(button);
    addRow(1);
    QCOMPARE(m_user->messages().size(), 1);
    QCOMPARE(titles(), QStringList{title});
}

void TestOwnCatalogueWindow::songThatIsGoneIsNamed()
{
    QVERIFY(QFile::remove(m_other));
    QString line;
    m_user->add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<FileListDialog *>(modal);
        if (dialog == nullptr)
            return false;
        line = dialog->findChild<QTreeWidget *>()->topLevelItem(0)->text(0);
        return dialog->close();
    });
    addRow(1);
    QCOMPARE(line, s("other.mid"));
    QVERIFY(!QFile::exists(OwnCatalogue::defaultPath()));
}

void TestOwnCatalogueWindow::allShownSongsAreAdded()
{
    inWindow([&](CatalogueDialog *dialog) {
        press(dialog, "addPushButton");
        QCOMPARE(child<QTreeWidget>(dialog, "entriesTreeWidget")->topLevelItemCount(), 2);
    });
    QCOMPARE(titles().size(), 2);
    QVERIFY(QFile::remove(OwnCatalogue::defaultPath()));
    m_window->child<QLineEdit>("filterLineEdit")->setText(s("other"));
    QTRY_VERIFY(m_window->table()->isRowHidden(0));
    inWindow([&](CatalogueDialog *dialog) { press(dialog, "addPushButton"); });
    QCOMPARE(titles(), QStringList{s("Other song")});
}

void TestOwnCatalogueWindow::windowFindsEntriesAsOneTypes()
{
    addAll();
    inWindow([&](CatalogueDialog *dialog) {
        auto *const tree = child<QTreeWidget>(dialog, "entriesTreeWidget");
        QCOMPARE(tree->topLevelItemCount(), 2);
        QTest::keyClicks(child<QLineEdit>(dialog, "searchLineEdit"), s("OTHER"));
        QCOMPARE(tree->topLevelItemCount(), 1);
        QCOMPARE(tree->topLevelItem(0)->text(0), s("Other song"));
        QVERIFY(!child<QPushButton>(dialog, "editPushButton")->isEnabled());
        QTest::keyClicks(child<QLineEdit>(dialog, "searchLineEdit"), s("x"));
        QCOMPARE(tree->topLevelItemCount(), 0);
    });
}

void TestOwnCatalogueWindow::entryIsEdited()
{
    addAll();
    m_user->add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<CatalogueEntryDialog *>(modal);
        if (dialog == nullptr)
            return false;
        child<QLineEdit>(dialog, "titleLineEdit")->setText(s("New title"));
        child<QLineEdit>(dialog, "lengthLineEdit")->setText(s("2:05"));
        child<QLineEdit>(dialog, "tempoLineEdit")->setText(s("99"));
        child<QLineEdit>(dialog, "fileLineEdit")->setText(s("newname"));
        child<QPlainTextEdit>(dialog, "markersPlainTextEdit")->setPlainText(s("1 Intro\n9 A; B"));
        press(dialog, "savePushButton");
        return true;
    });
    inWindow([&](CatalogueDialog *dialog) {
        auto *const tree = child<QTreeWidget>(dialog, "entriesTreeWidget");
        tree->setCurrentItem(tree->topLevelItem(1));
        press(dialog, "editPushButton");
    });
    QCOMPARE(titles(), (QStringList{s("Known song"), s("New title")}));
    const SongsDbRecord changed = entries().constLast();
    QCOMPARE(changed.filename, s("NEWNAME"));
    QCOMPARE(changed.length, 125);
    QCOMPARE(changed.bpm, 99);
    QCOMPARE(changed.markers.size(), 2);
    QCOMPARE(changed.markers.constLast().text, s("A; B"));
}

void TestOwnCatalogueWindow::whatIsNoEntryCannotBeSaved()
{
    SongsDbRecord entry;
    entry.title = s("T");
    entry.filename = s("F");
    CatalogueEntryDialog dialog(entry);
    const auto *const save = child<QPushButton>(&dialog, "savePushButton");
    const auto *const reason = child<QLabel>(&dialog, "reasonLabel");
    QVERIFY(save->isEnabled());
    const auto refuses = [&](const char *field, const QString &text) {
        auto *const edit = child<QLineEdit>(&dialog, field);
        const QString before = edit->text();
        edit->setText(text);
        const bool isRefused = !save->isEnabled() && !reason->text().isEmpty();
        edit->setText(before);
        return isRefused && save->isEnabled() && reason->text().isEmpty();
    };
    QVERIFY(refuses("titleLineEdit", s(" ")));
    QVERIFY(refuses("fileLineEdit", QString()));
    for (const char *length : {"3", "3:60", "x:y", ":", "1:2:3", "-1:00", "100:00"})
        QVERIFY2(refuses("lengthLineEdit", s(length)), length);
    for (const char *tempo : {"x", "-1"})
        QVERIFY2(refuses("tempoLineEdit", s(tempo)), tempo);
    QVERIFY(refuses("keyLineEdit", s("H")));
    child<QLineEdit>(&dialog, "keyLineEdit")->setText(s("A -"));
    QCOMPARE(dialog.entry().key, s("A-"));
    auto *const markers = child<QPlainTextEdit>(&dialog, "markersPlainTextEdit");
    for (const char *text : {"Intro", "70000 Coda", "-1 A"}) {
        markers->setPlainText(s(text));
        QVERIFY2(!save->isEnabled(), text);
    }
}

void TestOwnCatalogueWindow::entriesAreDeletedAfterAQuestion()
{
    addAll();
    m_user->pressInMessageBoxes(QMessageBox::No);
    const auto deleteAll = [&](CatalogueDialog *dialog) {
        QVERIFY(!child<QPushButton>(dialog, "removePushButton")->isEnabled());
        child<QTreeWidget>(dialog, "entriesTreeWidget")->selectAll();
        press(dialog, "removePushButton");
    };
    inWindow(deleteAll);
    QCOMPARE(titles().size(), 2);
    m_user = std::make_unique<UserDriver>();
    m_user->pressInMessageBoxes(QMessageBox::Yes);
    inWindow(deleteAll);
    QCOMPARE(titles().size(), 0);
    QVERIFY(QFile::exists(m_known));
}

void TestOwnCatalogueWindow::tableIsExportedAndImported()
{
    addAll();
    const QString path = m_songs->filePath(s("mine.tsv"));
    m_user->pick({path});
    inWindow([&](CatalogueDialog *dialog) { press(dialog, "exportPushButton"); });
    const QByteArray table = samplesongs::readFile(path);
    QCOMPARE(table.count('\n'), 3);
    QVERIFY(QFile::remove(OwnCatalogue::defaultPath()));
    m_user->pick({path});
    inWindow([&](CatalogueDialog *dialog) {
        QVERIFY(!child<QPushButton>(dialog, "exportPushButton")->isEnabled());
        press(dialog, "importPushButton");
    });
    QCOMPARE(titles(), (QStringList{s("Known song"), s("Other song")}));
}

void TestOwnCatalogueWindow::tableOfNothingIsTold()
{
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    m_user->pick({m_songs->write(s("empty.tsv"), QByteArray())});
    inWindow([&](CatalogueDialog *dialog) { press(dialog, "importPushButton"); });
    QCOMPARE(m_user->messages().size(), 1);
    QVERIFY(!QFile::exists(OwnCatalogue::defaultPath()));
}

void TestOwnCatalogueWindow::unusableCatalogueIsSaidAndNothingCanBePressed()
{
    damageCatalogue();
    inWindow([&](CatalogueDialog *dialog) {
        QVERIFY(child<QLabel>(dialog, "infoLabel")->text().contains(s("danneggiato")));
        for (const char *button : {"addPushButton", "importPushButton", "exportPushButton",
                                   "editPushButton", "removePushButton"})
            QVERIFY2(!child<QPushButton>(dialog, button)->isEnabled(), button);
    });
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    addRow(0);
    QCOMPARE(m_user->messages().size(), 1);
    QCOMPARE(samplesongs::readFile(OwnCatalogue::defaultPath()), QByteArray(5000, 'x'));
}

void TestOwnCatalogueWindow::previewSaysWhichCatalogueItIs()
{
    SongsDbRecord mine;
    mine.filename = s("OTHER");
    mine.title = s("Mine");
    mine.artist = s("Me");
    QStringList names;
    m_user->add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<ChangePreviewDialog *>(modal);
        if (dialog == nullptr)
            return false;
        const auto *const tree = dialog->findChild<QTreeWidget *>();
        for (int row = 0; row < tree->topLevelItemCount(); ++row)
            names << tree->topLevelItem(row)->text(0);
        dialog->reject();
        return true;
    });
    m_window->action("actionPreviewChanges")->setChecked(true);
    QVERIFY(!m_window->updateUserLibrary());
    QCOMPARE(names.size(), 1);
    QVERIFY(names.constFirst().endsWith(s("known.mid"))); // as ever
    {
        OwnCatalogue own;
        own.openOrMake();
        QVERIFY(own.put({mine}));
    }
    names.clear();
    QVERIFY(!m_window->updateUserLibrary());
    QCOMPARE(names.size(), 2);
    QVERIFY(names.constFirst().endsWith(s("[catalogo del programma]")));
    QVERIFY(names.constLast().endsWith(s("[il mio catalogo]")));
}

void TestOwnCatalogueWindow::unusableCatalogueIsAskedAboutBeforeSynchronising_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("button");
    QTest::addColumn<bool>("isChanged");
    QTest::newRow("yes") << QMessageBox::Yes << true;
    QTest::newRow("no") << QMessageBox::No << false;
}

void TestOwnCatalogueWindow::unusableCatalogueIsAskedAboutBeforeSynchronising()
{
    QFETCH(QMessageBox::StandardButton, button);
    QFETCH(bool, isChanged);
    damageCatalogue();
    const QByteArray before = samplesongs::readFile(m_known);
    m_user->click<BackupDialog>(s("exitPushButton"));
    m_user->pressInMessageBoxes(button);
    QCOMPARE(m_window->updateUserLibrary(), isChanged);
    QCOMPARE(m_user->messages().size(), 1);
    QCOMPARE(samplesongs::readFile(m_known) != before, isChanged);
}

void TestOwnCatalogueWindow::damagedPageIsAskedAboutBeforeSynchronising()
{
    QVERIFY(damagedcatalogue::write(OwnCatalogue::defaultPath()));
    const QByteArray before = samplesongs::readFile(m_known);
    m_user->click<BackupDialog>(s("exitPushButton"));
    m_user->pressInMessageBoxes(QMessageBox::No);
    QVERIFY(!m_window->updateUserLibrary());
    QCOMPARE(m_user->messages().size(), 1);
    QVERIFY(m_user->messages().constFirst().contains(s("danneggiato")));
    QCOMPARE(samplesongs::readFile(m_known), before);
}

void TestOwnCatalogueWindow::nothingIsAddedToACatalogueWithADamagedPage()
{
    QVERIFY(damagedcatalogue::write(OwnCatalogue::defaultPath()));
    const QByteArray before = samplesongs::readFile(OwnCatalogue::defaultPath());
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    addRow(0);
    QCOMPARE(m_user->messages().size(), 1);
    QVERIFY(m_user->messages().constFirst().contains(s("danneggiato")));
    QCOMPARE(samplesongs::readFile(OwnCatalogue::defaultPath()), before);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestOwnCatalogueWindow>(argc, argv);
}

#include "test_owncataloguewindow.moc"
