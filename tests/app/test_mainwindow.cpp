// The main window: its form, its settings, its language, and what starts when and when not.
#include "formats/metasong.h"
#include "support/catalogue.h"
#include "support/interfacelanguage.h"
#include "support/logcapture.h"
#include "support/ownfolders.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/aboutdialog.h"
#include "windows/backupdialog.h"
#include "windows/dataeditdialog.h"
#include "windows/helpdialog.h"
#include "windows/indexdialog.h"
#include "windows/nocopyrightdialog.h"
#include "windows/proceeddialog.h"
#include "windows/songslistdialog.h"
#include "windows/translation.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QProgressDialog>
#include <QSpinBox>
#include <QStatusBar>

namespace
{

/** Every message that is written while it lives, Qt's own included. */
class AllMessages
{
public:
    AllMessages()
    {
        texts().clear();
        m_previous = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &text) { texts() << text; });
    }
    ~AllMessages() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY_MOVE(AllMessages)

    static QStringList &texts()
    {
        static QStringList collected;
        return collected;
    }

private:
    QtMessageHandler m_previous = nullptr;
};

/** The German interface as the start-up installs it. */
class GermanStart
{
public:
    GermanStart() { translation::use(translation::german); }
    ~GermanStart() { backToItalian(); }
    Q_DISABLE_COPY_MOVE(GermanStart)
};

/** While it lives there is no place for the private copy of the catalogue. */
class NoTemporaryFiles
{
public:
    NoTemporaryFiles() { qputenv("TMPDIR", "/dev/null"); }
    ~NoTemporaryFiles() { m_before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_before); }
    Q_DISABLE_COPY_MOVE(NoTemporaryFiles)

private:
    const QByteArray m_before = qgetenv("TMPDIR");
};

QStringList textsOf(const QList<QAction *> &actions)
{
    QStringList texts;
    for (const QAction *action : actions)
        texts << action->text();
    return texts;
}

QStringList namesOf(const QList<QAction *> &actions)
{
    QStringList names;
    for (const QAction *action : actions)
        names << (action->menu() != nullptr ? action->menu()->objectName() : action->objectName());
    return names;
}

/** Which of Italian, English and German are checked, as "i", "e" and "d". */
QString checkedLanguages(const WindowUnderTest &window)
{
    QString checked;
    if (window.action("actionItalian")->isChecked())
        checked += QLatin1Char('i');
    if (window.action("actionEnglish")->isChecked())
        checked += QLatin1Char('e');
    if (window.action("actionGerman")->isChecked())
        checked += QLatin1Char('d');
    return checked;
}

QString header(const WindowUnderTest &window, int column)
{
    return window.model()->headerData(column, Qt::Horizontal).toString();
}

void changeLanguage(const WindowUnderTest &window, const char *action)
{
    window.action(action)->trigger();
    QCoreApplication::processEvents();
}

/** Where in the table's viewport a row is. */
QPoint rowPoint(const WindowUnderTest &window, int row)
{
    return window.table()->visualRect(window.model()->index(row, 2)).center();
}

/** Double-clicks a row as the mouse does. */
void doubleClick(const WindowUnderTest &window, int row)
{
    QWidget *const viewport = window.table()->viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, rowPoint(window, row));
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, rowPoint(window, row));
}

/** Opens the row menu at the point and chooses the entry with this text. */
void chooseInMenu(const WindowUnderTest &window, const QPoint &point, const QString &entry)
{
    QTimer chooser;
    QObject::connect(&chooser, &QTimer::timeout, &chooser, [&] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        chooser.stop();
        for (QAction *action : menu->actions()) {
            if (action->text() == entry)
                menu->setActiveAction(action);
        }
        // Queued, so that timers run while what was chosen asks its questions.
        QMetaObject::invokeMethod(
            menu, [menu] { QTest::keyClick(menu, Qt::Key_Return); }, Qt::QueuedConnection);
    });
    chooser.start(5);
    emit window.table()->customContextMenuRequested(point);
}

} // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        OwnSettings::clear();
        m_work.reset(new OwnWorkingFolder);
    }
    void cleanup()
    {
        m_work.reset();
        backToItalian();
    }

    void formHoldsItsTexts_data();
    void formHoldsItsTexts();
    void menusStandInTheirOrder();
    void toolButtonsShowIconsAndTips();
    void tableIsSetUpForTheLibrary();
    void brandingIsApplied();
    void debugPanelIsHiddenAndKeptWhole();
    void noSlotIsWithoutItsObject();
    void eventFilterLetsEverythingPass();
    void successfulStartIsLogged();

    void storedLanguageIsChecked_data();
    void storedLanguageIsChecked();
    void italianEntryDoesNothing();
    void switchToEnglishTakesQtsTextsAlong();
    void switchBackToGerman();
    void textsFollowTheLanguage();
    void logosSurviveALanguageSwitch();

    void copyrightMenuIsExclusive();
    void storedCopyrightAnswerIsChecked();
    void logSwitchesAreStored();
    void storedLogSwitchesAreShown();

    void failedDatabaseLeavesAnInertTable();
    void failedDatabaseStopsEveryHandler();

    void helpMenuOpensItsWindows();
    void toolsMenuOpensItsWindows();
    void quitCloses();
    void windowStaysWhileADialogIsOpen();
    void windowStaysWhileAWorkflowRuns();

    void synchronisationLeavesItsButtonDisabled();
    void refusedBackupEnablesTheButtonAgain();
    void unsignedFilesAreAskedAboutOnlyWhenWanted();
    void noToAllHoldsForOneSynchronisation();
    void cancelledSynchronisationKeepsTheRestAsItWas();
    void singleRowIsSynchronised();

    void doubleClickEditsTheSong();
    void doubleClickOnAnUnreadableFileDoesNothing();
    void fileNamesBecomeTheTitlesOfAllSongs();
    void manualChangeIsWrittenAndShown();
    void editedRowIsScrolledToTheCentre();
    void removedRowLeavesTheFile();
    void deletedFileLeavesEveryList();
    void menuOnEmptySpaceDeletesNothing();

    void memberRulesOfTheMemory();
    void filesAreCountedInAllFolders();
    void progressWithoutAWindowIsIgnored();
    void transferGoesThroughTheWindow();
    void refusedOrCancelledTransferLeavesTheButtons();

    void debugSaveWritesATestFile();
    void debugMarkerIsAdded();
    void debugActionsReportErrors();
    void debugDialogTellsItsResult();
    void debugHideTogglesThePanel();

private:
    QScopedPointer<OwnWorkingFolder> m_work;
};

// ---------------------------------------------------------------- form

void TestMainWindow::formHoldsItsTexts_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *property, const QString &text) {
        QTest::newRow(name) << QByteArray(name) << QByteArray(property) << text;
    };
    row("actionQuit", "text", QStringLiteral("Esci"));
    row("actionItalian", "text", QStringLiteral("Italiano"));
    row("actionEnglish", "text", QStringLiteral("English"));
    row("actionGerman", "text", QStringLiteral("Deutsch"));
    row("actionCopyrightYes", "text", QStringLiteral("Si"));
    row("actionCopyrightNo", "text", QStringLiteral("No"));
    row("optimizeMemory", "text", QStringLiteral("Rigenera il database delle song"));
    row("actionSongsList", "text", QStringLiteral("Salva lista delle song"));
    row("actionContents", "text", QStringLiteral("Aiuto Kavena PC"));
    row("actionAbout", "text", QStringLiteral("Informazioni"));
    row("actionAbout_QT", "text", QStringLiteral("Informazioni su QT"));
    row("menuFile", "title", QStringLiteral("File"));
    row("menuPreferences", "title", QStringLiteral("Preferenze"));
    row("menuLanguage", "title", QStringLiteral("Lingua"));
    row("menuMessaggi_Copyright", "title", QStringLiteral("Messaggi Copyright"));
    row("menuStrumenti", "title", QStringLiteral("Strumenti"));
    row("menuHelp", "title", QStringLiteral("Aiuto"));
    row("debugKravoGroupBox", "title", QStringLiteral("Opzioni nascoste"));
    row("dbgLogEnableCheckBox", "text", QStringLiteral("Abilita log (riavvio necessario!)"));
    row("dbgLogClearCheckBox", "text", QStringLiteral("Cancella log ad ogni avvio"));
    row("debugGroupBox", "title", QStringLiteral("Debug"));
    row("dbgAddMarkerPushButton", "text", QStringLiteral("Add Marker"));
    row("dbgSavePushButton", "text", QStringLiteral("Save"));
    row("dbgImportPushButton", "text", QStringLiteral("Import again"));
    row("dbgHidePushButton", "text", QStringLiteral("Hide Debug"));
    row("dbgBackupPushButton", "text", QStringLiteral("Backup"));
    row("dbgShowDialogPushButton", "text", QStringLiteral("Manual Dialog"));
    row("selectDirToolButton", "toolTip",
        QStringLiteral("Seleziona le basi musicali che desideri inserire nella memoria di Kavena"));
    row("updateDataToolButton", "toolTip",
        QStringLiteral("Sincronizza song con il database K-Ravo"));
    row("transferFilesToolButton", "toolTip",
        QStringLiteral("Trasferisci song nella memoria di Kavena"));
}

void TestMainWindow::formHoldsItsTexts()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, property);
    QFETCH(QString, text);
    const WindowUnderTest window;
    QCOMPARE(window.windowTitle(), QStringLiteral("Kavena PC"));
    const auto *const object = window.child<QObject>(name.constData());
    QVERIFY(object != nullptr);
    QCOMPARE(object->property(property.constData()).toString(), text);
}

void TestMainWindow::menusStandInTheirOrder()
{
    const WindowUnderTest window;
    const auto names = [&](const char *menu) {
        return namesOf(window.child<QMenu>(menu)->actions()).join(QLatin1Char(' '));
    };
    QCOMPARE(namesOf(window.child<QMenuBar>("menuBar")->actions()).join(QLatin1Char(' ')),
             QStringLiteral("menuFile menuPreferences menuStrumenti menuHelp"));
    QCOMPARE(names("menuFile"),
             QStringLiteral("actionSelectSongs actionSynchronise actionTransfer  actionEditSong "
                            "actionRemoveSong actionDeleteSongFile  actionFindSong menuSort  "
                            "actionQuit"));
    QCOMPARE(names("menuPreferences"), QStringLiteral("menuLanguage menuMessaggi_Copyright"));
    QCOMPARE(names("menuLanguage"), QStringLiteral("actionItalian actionEnglish actionGerman"));
    QCOMPARE(names("menuMessaggi_Copyright"),
             QStringLiteral("actionCopyrightYes actionCopyrightNo"));
    QCOMPARE(names("menuStrumenti"),
             QStringLiteral("optimizeMemory actionSongsList  actionPreviewChanges"));
    QCOMPARE(names("menuHelp"), QStringLiteral("actionContents actionAbout actionAbout_QT"));
    for (const char *checkable : {"actionItalian", "actionEnglish", "actionGerman",
                                  "actionCopyrightYes", "actionCopyrightNo"})
        QVERIFY(window.action(checkable)->isCheckable());
    QVERIFY(window.action("actionContents")->isIconVisibleInMenu());
    QVERIFY(window.child<QStatusBar>("statusBar") != nullptr);
}

void TestMainWindow::toolButtonsShowIconsAndTips()
{
    const WindowUnderTest window;
    for (const QToolButton *button :
         {window.selectButton(), window.updateButton(), window.transferButton()}) {
        QCOMPARE(button->iconSize(), QSize(64, 64));
        QVERIFY(button->icon().availableSizes().contains(QSize(128, 128)));
    }
    QVERIFY(window.selectButton()->isEnabled());
    QVERIFY(!window.updateButton()->isEnabled());
    QVERIFY(!window.transferButton()->isEnabled());
}

void TestMainWindow::tableIsSetUpForTheLibrary()
{
    const WindowUnderTest window;
    const QTableView *const table = window.table();
    QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(table->isSortingEnabled());
    QCOMPARE(table->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(table->selectionMode(), QAbstractItemView::SingleSelection);
    QVERIFY(table->showGrid());
    QVERIFY(table->verticalHeader()->isHidden());
    QVERIFY(!table->alternatingRowColors());
    QCOMPARE(table->contextMenuPolicy(), Qt::CustomContextMenu);
    QCOMPARE(window.model()->parent(), static_cast<const QObject *>(&window));
    for (int column = 0; column < window.model()->columnCount(); ++column) {
        const bool hidden = column == 0 || column == window.model()->colIdxFilename() ||
                            column == window.model()->colIdxStatus();
        QCOMPARE(table->isColumnHidden(column), hidden);
    }
}

void TestMainWindow::brandingIsApplied()
{
    const WindowUnderTest window;
    QCOMPARE(window.child<QLabel>("logoKavenaLabel")->styleSheet(),
             QStringLiteral("image: url(:/imgs/logo-RB27-Utility.png);"));
    QCOMPARE(window.child<QLabel>("logoKravoLabel")->styleSheet(),
             QStringLiteral("image: url(:/imgs/logo-quorvane.png);"));
    QVERIFY(!window.action("actionItalian")->isVisible());
    QVERIFY(window.action("actionGerman")->isVisible());
    QVERIFY(window.action("actionEnglish")->isVisible());
    for (const char *name : {"logo-kavena", "logo-kravo", "logo-RB27-Utility", "logo-quorvane",
                             "logo-kravo_512", "logo-quorvane_512"})
        QVERIFY2(!QImage(QStringLiteral(":/imgs/%1.png").arg(QLatin1String(name))).isNull(), name);
}

void TestMainWindow::debugPanelIsHiddenAndKeptWhole()
{
    const WindowUnderTest window;
    const auto *const options = window.child<QGroupBox>("debugKravoGroupBox");
    const auto *const debug = window.child<QGroupBox>("debugGroupBox");
    QVERIFY(!options->isVisible());
    QVERIFY(!debug->isVisible());
    QCOMPARE(options->minimumHeight(), 100);
    QCOMPARE(options->maximumHeight(), 100);
    QCOMPARE(debug->minimumHeight(), 110);
    QCOMPARE(debug->maximumHeight(), 110);
    QVERIFY(debug->findChild<QLineEdit *>(QStringLiteral("dbgMarkerTextLineEdit")) != nullptr);
    const auto *const bar = debug->findChild<QSpinBox *>(QStringLiteral("dbgMarkerBarSpinBox"));
    QVERIFY(bar != nullptr);
    QCOMPARE(bar->maximum(), 65535);
}

void TestMainWindow::noSlotIsWithoutItsObject()
{
    const AllMessages messages;
    {
        const WindowUnderTest window;
        const AboutDialog about;
        const BackupDialog backup;
        const HelpDialog help;
        const ProceedDialog proceed;
        const IndexDialog memory;
        const SongsListDialog list;
        const DataEditDialog edit;
        const NoCopyrightDialog question;
    }
    QVERIFY(AllMessages::texts().contains(QStringLiteral("DB initialized correctly ")));
    QCOMPARE(AllMessages::texts().filter(QStringLiteral("connect")), QStringList());
}

void TestMainWindow::eventFilterLetsEverythingPass()
{
    WindowUnderTest window;
    QEvent event(QEvent::KeyPress);
    QVERIFY(!window.eventFilter(window.table(), &event));
}

void TestMainWindow::successfulStartIsLogged()
{
    const LogCapture log;
    const WindowUnderTest window;
    QVERIFY(LogCapture::contains(QStringLiteral("DB initialized correctly ")));
    QVERIFY(!LogCapture::contains(QStringLiteral("Error initializing DB !!! ")));
}

// ---------------------------------------------------------------- language

void TestMainWindow::storedLanguageIsChecked_data()
{
    QTest::addColumn<QVariant>("language");
    QTest::addColumn<QString>("checked");
    QTest::newRow("none") << QVariant() << "d";
    QTest::newRow("German") << QVariant(QStringLiteral("de")) << "d";
    QTest::newRow("Italian") << QVariant(QStringLiteral("it")) << "i";
    QTest::newRow("English") << QVariant(QStringLiteral("en")) << "e";
    QTest::newRow("unknown") << QVariant(QStringLiteral("fr")) << "e";
}

void TestMainWindow::storedLanguageIsChecked()
{
    QFETCH(QVariant, language);
    QFETCH(QString, checked);
    if (language.isValid())
        OwnSettings::set(settings::language, language);
    const WindowUnderTest window;
    QCOMPARE(checkedLanguages(window), checked);
}

void TestMainWindow::italianEntryDoesNothing()
{
    OwnSettings::set(settings::language, QStringLiteral("de"));
    const GermanStart german;
    const WindowUnderTest window;
    QMetaObject::invokeMethod(const_cast<WindowUnderTest *>(&window), "on_actionItalian_triggered");
    QCoreApplication::processEvents();
    QCOMPARE(OwnSettings::value(settings::language).toString(), QStringLiteral("de"));
    QCOMPARE(window.action("actionQuit")->text(), QStringLiteral("&Beenden"));
    QCOMPARE(checkedLanguages(window), QStringLiteral("d"));
}

void TestMainWindow::switchToEnglishTakesQtsTextsAlong()
{
    const GermanStart german;
    const WindowUnderTest window;
    QCOMPARE(window.action("actionQuit")->text(), QStringLiteral("&Beenden"));
    changeLanguage(window, "actionEnglish");
    QCOMPARE(window.action("actionQuit")->text(), QStringLiteral("&Quit"));
    QCOMPARE(OwnSettings::value(settings::language).toString(), QStringLiteral("en"));
    QCOMPARE(checkedLanguages(window), QStringLiteral("e"));
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"));
}

void TestMainWindow::switchBackToGerman()
{
    OwnSettings::set(settings::language, QStringLiteral("en"));
    const WindowUnderTest window;
    for (int i = 0; i < 2; ++i) {
        changeLanguage(window, "actionGerman");
        QCOMPARE(window.action("actionQuit")->text(), QStringLiteral("&Beenden"));
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"),
                 QStringLiteral("Abbrechen"));
        QCOMPARE(OwnSettings::value(settings::language).toString(), QStringLiteral("de"));
        QCOMPARE(checkedLanguages(window), QStringLiteral("d"));
        changeLanguage(window, "actionEnglish");
        QCOMPARE(window.action("actionQuit")->text(), QStringLiteral("&Quit"));
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"));
    }
}

void TestMainWindow::textsFollowTheLanguage()
{
    const WindowUnderTest window;
    QCOMPARE(header(window, 2), QStringLiteral("Titolo"));
    changeLanguage(window, "actionGerman");
    QCOMPARE(window.windowTitle(), QStringLiteral("RB27 Utility"));
    QCOMPARE(header(window, 2), QStringLiteral("Titel"));
    QCOMPARE(header(window, 10), QStringLiteral("Dateiname"));
    QCOMPARE(textsOf(window.child<QMenu>("menuHelp")->actions()),
             (QStringList{QStringLiteral("&Hilfe zu RB27 Utility..."),
                          QStringLiteral("&Über RB27 Utility..."), QStringLiteral("Über &Qt...")}));
    changeLanguage(window, "actionEnglish");
    QCOMPARE(window.windowTitle(), QStringLiteral("RB27 Utility"));
    QCOMPARE(header(window, 2), QStringLiteral("Title"));
    QCOMPARE(header(window, 10), QStringLiteral("File name"));
}

void TestMainWindow::logosSurviveALanguageSwitch()
{
    const WindowUnderTest window;
    changeLanguage(window, "actionGerman");
    QCOMPARE(window.child<QLabel>("logoKavenaLabel")->styleSheet(),
             QStringLiteral("image: url(:/imgs/logo-RB27-Utility.png);"));
    QVERIFY(!window.child<QGroupBox>("debugGroupBox")->isVisible());
    QVERIFY(!window.updateButton()->isEnabled());
}

// ---------------------------------------------------------------- settings

void TestMainWindow::copyrightMenuIsExclusive()
{
    const WindowUnderTest window;
    QVERIFY(!window.action("actionCopyrightYes")->isChecked());
    QVERIFY(window.action("actionCopyrightNo")->isChecked());
    window.action("actionCopyrightYes")->trigger();
    QVERIFY(window.action("actionCopyrightYes")->isChecked());
    QVERIFY(!window.action("actionCopyrightNo")->isChecked());
    QCOMPARE(OwnSettings::value(settings::copyrightAsk), QVariant(true));
    window.action("actionCopyrightNo")->trigger();
    QVERIFY(!window.action("actionCopyrightYes")->isChecked());
    QVERIFY(window.action("actionCopyrightNo")->isChecked());
    QCOMPARE(OwnSettings::value(settings::copyrightAsk), QVariant(false));
    window.action("actionCopyrightNo")->trigger(); // a second click must not uncheck both
    QVERIFY(window.action("actionCopyrightNo")->isChecked());
}

void TestMainWindow::storedCopyrightAnswerIsChecked()
{
    OwnSettings::set(settings::copyrightAsk, true);
    const WindowUnderTest window;
    QVERIFY(window.action("actionCopyrightYes")->isChecked());
    QVERIFY(!window.action("actionCopyrightNo")->isChecked());
}

void TestMainWindow::logSwitchesAreStored()
{
    const WindowUnderTest window;
    auto *const enable = window.child<QCheckBox>("dbgLogEnableCheckBox");
    auto *const clear = window.child<QCheckBox>("dbgLogClearCheckBox");
    QVERIFY(!clear->isEnabled());
    enable->setChecked(true);
    QVERIFY(clear->isEnabled());
    QCOMPARE(OwnSettings::value(settings::logEnabled), QVariant(true));
    clear->setChecked(true);
    QCOMPARE(OwnSettings::value(settings::logClear), QVariant(true));
    clear->setChecked(false);
    enable->setChecked(false);
    QCOMPARE(OwnSettings::value(settings::logClear), QVariant(false));
    QCOMPARE(OwnSettings::value(settings::logEnabled), QVariant(false));
    QVERIFY(!clear->isEnabled());
}

void TestMainWindow::storedLogSwitchesAreShown()
{
    OwnSettings::set(settings::logEnabled, true);
    OwnSettings::set(settings::logClear, true);
    const WindowUnderTest window;
    QVERIFY(window.child<QCheckBox>("dbgLogEnableCheckBox")->isChecked());
    QVERIFY(window.child<QCheckBox>("dbgLogClearCheckBox")->isChecked());
    QVERIFY(window.child<QCheckBox>("dbgLogClearCheckBox")->isEnabled());
}

// ---------------------------------------------------------------- failed database

void TestMainWindow::failedDatabaseLeavesAnInertTable()
{
    const NoTemporaryFiles failing;
    const LogCapture log;
    const WindowUnderTest window;
    QVERIFY(LogCapture::contains(QStringLiteral("Error initializing DB !!! ")));
    QVERIFY(window.table()->model() == nullptr);
    QVERIFY(window.isVisible());
    ModalAnswers user;
    int windows = 0;
    user.add([&](QWidget *modal) {
        ++windows;
        return modal->close();
    });
    QTest::mouseDClick(window.table()->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    QTest::qWait(20);
    QCOMPARE(windows, 0);
    window.action("actionAbout")->trigger();
    QCOMPARE(windows, 1);
    changeLanguage(window, "actionGerman");
    QCOMPARE(window.windowTitle(), QStringLiteral("RB27 Utility"));
    changeLanguage(window, "actionEnglish");
}

void TestMainWindow::failedDatabaseStopsEveryHandler()
{
    const NoTemporaryFiles failing;
    WindowUnderTest window;
    ModalAnswers user;
    int windows = 0;
    user.add([&](QWidget *modal) {
        ++windows;
        return modal->close();
    });
    const QList<std::function<void()>> handlers{
        [&] { window.selectButton()->click(); },
        [&] { window.importUserLibrary(); },
        [&] { QVERIFY(!window.updateUserLibrary()); },
        [&] { QVERIFY(!window.updateFileWithDb(0)); },
        [&] { QMetaObject::invokeMethod(&window, "on_updateDataToolButton_clicked"); },
        [&] {
            QMetaObject::invokeMethod(&window, "onSongsTableViewDoubleClicked",
                                      Q_ARG(QModelIndex, QModelIndex()));
        },
        [&] {
            QMetaObject::invokeMethod(&window, "onSongsTableViewShowContextMenu",
                                      Q_ARG(QPoint, QPoint(5, 5)));
        },
        [&] { window.manualModifySong(MetaSong(), SongInfo(), QStringLiteral("/nowhere"), 0); },
        [&] { window.pressDebug("dbgSavePushButton"); },
        [&] { window.pressDebug("dbgAddMarkerPushButton"); },
        [&] { window.pressDebug("dbgImportPushButton"); },
        [&] {
            int count = 0;
            window.scanDir(m_work->path(), count, count, count);
        },
    };
    for (const auto &handler : handlers) {
        const LogCapture log;
        handler();
        QCOMPARE(LogCapture::lines(),
                 QStringList{QStringLiteral(
                     "[MainWindow] WARNING: no library table, ignoring the request !!! ")});
    }
    QCOMPARE(windows, 0);
}

// ---------------------------------------------------------------- windows

void TestMainWindow::helpMenuOpensItsWindows()
{
    const WindowUnderTest window;
    QStringList opened;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        opened << QString::fromLatin1(modal->metaObject()->className());
        return modal->close();
    });
    window.action("actionAbout")->trigger();
    window.action("actionContents")->trigger();
    window.action("actionAbout_QT")->trigger();
    QCOMPARE(opened, (QStringList{QStringLiteral("AboutDialog"), QStringLiteral("HelpDialog"),
                                  QStringLiteral("QMessageBox")}));
}

void TestMainWindow::toolsMenuOpensItsWindows()
{
    const WindowUnderTest window;
    QStringList opened;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        opened << QString::fromLatin1(modal->metaObject()->className());
        return modal->close();
    });
    window.action("optimizeMemory")->trigger();
    window.action("actionSongsList")->trigger();
    QCOMPARE(opened,
             (QStringList{QStringLiteral("IndexDialog"), QStringLiteral("SongsListDialog")}));
}

void TestMainWindow::quitCloses()
{
    const WindowUnderTest window;
    window.action("actionQuit")->trigger();
    QVERIFY(!window.isVisible());
}

void TestMainWindow::windowStaysWhileADialogIsOpen()
{
    WindowUnderTest window;
    bool stayed = false;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        window.action("actionQuit")->trigger();
        stayed = window.isVisible() && !window.close();
        return modal->close();
    });
    window.action("actionAbout")->trigger();
    QVERIFY(stayed);
    QVERIFY(window.close());
}

void TestMainWindow::windowStaysWhileAWorkflowRuns()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 100; ++i)
        files << songs.midi(QStringLiteral("%1.mid").arg(i), "A");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    int refused = 0;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        if (qobject_cast<QProgressDialog *>(modal) == nullptr)
            return false;
        refused += window.close() ? 0 : 1;
        return true;
    });
    window.importUserLibrary();
    QVERIFY(refused > 0);
    QVERIFY(window.isVisible());
    QCOMPARE(window.model()->goodRowCount(), 100);
}

// ---------------------------------------------------------------- synchronisation

namespace
{

/** A catalogue that knows one song, by the name of its file. */
bool writeCatalogue()
{
    catalogue::Row row;
    row.filename = QStringLiteral("KNOWN");
    row.title = QStringLiteral("KNOWN TITLE");
    row.artist = QStringLiteral("SURNAME NAME");
    row.altartist = QStringLiteral("Name Surname");
    row.genre = QStringLiteral("DANCE");
    row.author = QStringLiteral("AUTHOR");
    row.length = 125;
    row.bpm = 120;
    row.key = QStringLiteral("A -");
    return catalogue::write(catalogue::overrideFile, {row});
}

} // namespace

void TestMainWindow::synchronisationLeavesItsButtonDisabled()
{
    QVERIFY(writeCatalogue());
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.click<BackupDialog>(QStringLiteral("exitPushButton"));
    user.pick({songs.signedMidi(QStringLiteral("known.mid"), "Known"),
               songs.signedMidi(QStringLiteral("other.mid"), "Other")});
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(window.model()->status(0), int(Database::StatusSynced));
    QCOMPARE(window.model()->status(1), int(Database::StatusNotSynced));
    QCOMPARE(window.model()->index(0, 2).data().toString(), QStringLiteral("KNOWN TITLE"));
    QCOMPARE(window.model()->index(0, 6).data().toString(), QStringLiteral("02:05"));
    QVERIFY(!window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
}

void TestMainWindow::refusedBackupEnablesTheButtonAgain()
{
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.click<BackupDialog>(QStringLiteral("abortPushButton"));
    user.pick({songs.midi(QStringLiteral("a.mid"), "A")});
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(window.model()->status(0), int(Database::StatusNew));
    QVERIFY(window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
}

void TestMainWindow::unsignedFilesAreAskedAboutOnlyWhenWanted()
{
    QVERIFY(writeCatalogue());
    const SongFolder songs;
    WindowUnderTest window;
    int questions = 0;
    UserDriver user;
    user.click<BackupDialog>(QStringLiteral("exitPushButton"));
    user.add([&](QWidget *modal) {
        auto *const question = qobject_cast<NoCopyrightDialog *>(modal);
        if (question == nullptr)
            return false;
        ++questions;
        QTest::mouseClick(question->findChild<QPushButton *>(QStringLiteral("noPushButton")),
                          Qt::LeftButton);
        return true;
    });
    user.add([](QWidget *modal) {
        return qobject_cast<ProceedDialog *>(modal) != nullptr && modal->close();
    });
    const QStringList files{songs.midi(QStringLiteral("known.mid"), "Known")};

    window.action("actionCopyrightYes")->trigger();
    user.pick(files);
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(questions, 1);
    QCOMPARE(window.model()->status(0), int(Database::StatusNotSynced));

    window.action("actionCopyrightNo")->trigger();
    user.pick(files);
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(questions, 1);
    QCOMPARE(window.model()->status(0), int(Database::StatusSynced));
}

void TestMainWindow::noToAllHoldsForOneSynchronisation()
{
    QVERIFY(writeCatalogue());
    OwnSettings::set(settings::copyrightAsk, true);
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("known.mid"), "A"),
                             songs.midi(QStringLiteral("b.mid"), "Known title"),
                             songs.signedMidi(QStringLiteral("c.mid"), "Known title")});
    int questions = 0;
    QString answer = QStringLiteral("noAllPushButton");
    ModalAnswers user;
    user.click<BackupDialog>(QStringLiteral("exitPushButton"));
    user.add([](QWidget *modal) {
        return qobject_cast<ProceedDialog *>(modal) != nullptr && modal->close();
    });
    user.add([&](QWidget *modal) {
        auto *const question = qobject_cast<NoCopyrightDialog *>(modal);
        if (question == nullptr)
            return false;
        ++questions;
        QTest::mouseClick(question->findChild<QPushButton *>(answer), Qt::LeftButton);
        return true;
    });
    window.importUserLibrary();
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(questions, 1);
    QCOMPARE(window.model()->status(0), int(Database::StatusNotSynced));
    QCOMPARE(window.model()->status(1), int(Database::StatusNotSynced));
    QCOMPARE(window.model()->status(2), int(Database::StatusSynced));
    QCOMPARE(OwnSettings::value(settings::copyrightAsk), QVariant(true));

    answer = QStringLiteral("yesAllPushButton");
    window.importUserLibrary();
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    QCOMPARE(questions, 2);
    for (int row = 0; row < 3; ++row)
        QCOMPARE(window.model()->status(row), int(Database::StatusSynced));
}

void TestMainWindow::cancelledSynchronisationKeepsTheRestAsItWas()
{
    QVERIFY(writeCatalogue());
    OwnSettings::set(settings::copyrightAsk, false);
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 400; ++i)
        files << songs.midi(QStringLiteral("%1.mid").arg(i), "Known title");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    window.importUserLibrary();
    ModalAnswers user;
    user.click<BackupDialog>(QStringLiteral("exitPushButton"));
    user.click<QProgressDialog>(QString()); // its only button
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);

    int done = 0;
    while (done < files.size() && window.model()->status(done) == Database::StatusSynced)
        ++done;
    QVERIFY(done < files.size());
    for (int row = done; row < files.size(); ++row)
        QCOMPARE(window.model()->status(row), int(Database::StatusNew));
    QVERIFY(window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void TestMainWindow::singleRowIsSynchronised()
{
    QVERIFY(writeCatalogue());
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.signedMidi(QStringLiteral("known.mid"), "Known"),
                             songs.signedMidi(QStringLiteral("other.mid"), "Other")});
    window.importUserLibrary();
    QVERIFY(window.updateFileWithDb(0));
    QVERIFY(!window.updateFileWithDb(1));
    QCOMPARE(window.model()->index(0, 2).data().toString(), QStringLiteral("KNOWN TITLE"));
    QCOMPARE(window.model()->status(0), int(Database::StatusNew));
}

// ---------------------------------------------------------------- editing

void TestMainWindow::doubleClickEditsTheSong()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "Old title")});
    window.importUserLibrary();
    ModalAnswers user;
    user.add([](QWidget *modal) {
        auto *const dialog = qobject_cast<DataEditDialog *>(modal);
        if (dialog == nullptr)
            return false;
        dialog->findChild<QLineEdit *>(QStringLiteral("titleLineEdit"))
            ->setText(QStringLiteral("New title"));
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("savePushButton")),
                          Qt::LeftButton);
        return true;
    });
    doubleClick(window, 0);
    QCOMPARE(window.model()->index(0, 2).data().toString(), QStringLiteral("New title"));
    QCOMPARE(window.model()->status(0), int(Database::StatusEdited));
    MetaSong song;
    QVERIFY(song.importFile(songs.filePath(QStringLiteral("a.mid"))));
    SongInfo info;
    song.getSongInfo(info);
    QCOMPARE(info.title, QStringLiteral("New title"));
}

void TestMainWindow::doubleClickOnAnUnreadableFileDoesNothing()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "Old title")});
    window.importUserLibrary();
    QVERIFY(QFile::remove(songs.filePath(QStringLiteral("a.mid"))));
    int windows = 0;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        ++windows;
        return modal->close();
    });
    doubleClick(window, 0);
    QTest::qWait(20);
    QCOMPARE(windows, 0);
    QCOMPARE(window.model()->index(0, 2).data().toString(), QStringLiteral("Old title"));
    QCOMPARE(window.model()->status(0), int(Database::StatusNew));
}

void TestMainWindow::fileNamesBecomeTheTitlesOfAllSongs()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A"),
                             songs.midi(QStringLiteral("Song.Name.mid"), "B"),
                             songs.mp3(QStringLiteral("c.mp3"), "C")});
    window.importUserLibrary();
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    user.add([](QWidget *modal) {
        auto *const dialog = qobject_cast<DataEditDialog *>(modal);
        if (dialog == nullptr)
            return false;
        const auto press = [dialog](const char *name) {
            QMetaObject::invokeMethod(
                dialog->findChild<QAbstractButton *>(QString::fromLatin1(name)), "click",
                Qt::QueuedConnection);
        };
        if (dialog->isApplyToAllFname()) {
            press("savePushButton");
        } else {
            press("radioButtonTitle2");
            press("checkBoxToAllTitle");
        }
        return true;
    });
    doubleClick(window, 0);
    const QStringList titles{QStringLiteral("a"), QStringLiteral("Song.Name"), QStringLiteral("c")};
    for (int row = 0; row < titles.size(); ++row) {
        QCOMPARE(window.model()->index(row, 2).data().toString(), titles.at(row));
        QCOMPARE(window.model()->status(row), int(Database::StatusEdited));
    }
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void TestMainWindow::manualChangeIsWrittenAndShown()
{
    const SongFolder songs;
    const QString path = songs.midi(QStringLiteral("a.mid"), "Old title");
    WindowUnderTest window;
    window.setSelectedFiles({path});
    window.importUserLibrary();
    MetaSong song;
    QVERIFY(song.importFile(path));
    SongInfo info;
    song.getSongInfo(info);
    info.genre = QStringLiteral("Waltz");
    window.manualModifySong(song, info, path, 0);
    QCOMPARE(window.model()->index(0, 4).data().toString(), QStringLiteral("Waltz"));
    QCOMPARE(window.model()->status(0), int(Database::StatusEdited));
}

void TestMainWindow::editedRowIsScrolledToTheCentre()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 60; ++i)
        files << songs.midi(QStringLiteral("%1.mid").arg(i), "A");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    window.importUserLibrary();
    ModalAnswers user;
    user.click<DataEditDialog>(QStringLiteral("savePushButton"));
    QMetaObject::invokeMethod(&window, "onSongsTableViewDoubleClicked",
                              Q_ARG(QModelIndex, window.model()->index(30, 2)));
    const int centre = window.table()->viewport()->height() / 2;
    QVERIFY(qAbs(rowPoint(window, 30).y() - centre) <= window.table()->rowHeight(30));
}

void TestMainWindow::removedRowLeavesTheFile()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A"),
                             songs.midi(QStringLiteral("b.mid"), "B"),
                             songs.midi(QStringLiteral("c.mid"), "C")});
    window.importUserLibrary();
    chooseInMenu(window, rowPoint(window, 1), QStringLiteral("Remove from list"));
    QCOMPARE(window.shownNames(), (QStringList{QStringLiteral("a.mid"), QStringLiteral("c.mid")}));
    QCOMPARE(window.table()->model()->rowCount(), 2);
    QVERIFY(QFile::exists(songs.filePath(QStringLiteral("b.mid"))));
    int copied = 0;
    QVERIFY(window.copyFiles(m_work->path(), copied)); // the selection still holds it
    QCOMPARE(copied, 3);
}

void TestMainWindow::deletedFileLeavesEveryList()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles(
        {songs.midi(QStringLiteral("a.mid"), "A"), songs.midi(QStringLiteral("b.mid"), "B")});
    window.importUserLibrary();
    {
        ModalAnswers user;
        user.pressInMessageBoxes(QMessageBox::No);
        chooseInMenu(window, rowPoint(window, 0), QStringLiteral("Delete file"));
        QCOMPARE(user.messages(),
                 QStringList{QStringLiteral("Attenzione: Sei sicuro di voler cancellare il "
                                            "file?")});
        QCOMPARE(window.model()->goodRowCount(), 2);
    }
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    chooseInMenu(window, rowPoint(window, 0), QStringLiteral("Delete file"));
    QCOMPARE(window.shownNames(), QStringList{QStringLiteral("b.mid")});
    QVERIFY(!QFile::exists(songs.filePath(QStringLiteral("a.mid"))));
    int copied = 0;
    QVERIFY(window.copyFiles(m_work->path(), copied));
    QCOMPARE(copied, 1);
}

void TestMainWindow::menuOnEmptySpaceDeletesNothing()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A")});
    window.importUserLibrary();
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    const QPoint below(20, window.table()->viewport()->height() - 5);
    QCOMPARE(window.table()->rowAt(below.y()), -1);
    chooseInMenu(window, below, QStringLiteral("Delete file"));
    chooseInMenu(window, below, QStringLiteral("Remove from list"));
    QCOMPARE(window.model()->goodRowCount(), 1);
    QVERIFY(QFile::exists(songs.filePath(QStringLiteral("a.mid"))));
}

// ---------------------------------------------------------------- transfer

void TestMainWindow::memberRulesOfTheMemory()
{
    const WindowUnderTest window;
    QVERIFY(window.isSystemDisk(QStringLiteral("/home/music")));
    QVERIFY(window.isSystemDisk(QStringLiteral("/Volumes/")));
    QVERIFY(!window.isSystemDisk(QStringLiteral("/volumes/CARD")));
    QCOMPARE(window.getRoot(QStringLiteral("/Volumes/CARD/music/pop")),
             QStringLiteral("/Volumes/CARD"));
    QVERIFY(window.isRoot(QStringLiteral("/Volumes/CARD")));
    QVERIFY(!window.isRoot(QStringLiteral("/Volumes/CARD/music")));
}

void TestMainWindow::filesAreCountedInAllFolders()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkpath(QStringLiteral("sub/deeper")));
    QVERIFY(QFile::link(songs.path(), songs.filePath(QStringLiteral("sub/back"))));
    songs.bad(QStringLiteral("a.txt"));
    songs.bad(QStringLiteral("sub/b.txt"));
    songs.bad(QStringLiteral("sub/deeper/c.txt"));
    const WindowUnderTest window;
    int count = 10;
    window.filesCount(songs.path(), count);
    QCOMPARE(count, 13);
    window.filesCount(songs.filePath(QStringLiteral("missing")), count);
    QCOMPARE(count, 13);
}

void TestMainWindow::progressWithoutAWindowIsIgnored()
{
    WindowUnderTest window;
    window.updateProgress(3);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void TestMainWindow::transferGoesThroughTheWindow()
{
    const QString card = m_work->filePath(QStringLiteral("mnt/CARD"));
    QVERIFY(QDir().mkpath(card));
    qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(m_work->filePath(QStringLiteral("mnt"))));
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.pick({songs.midi(QStringLiteral("a.mid"), "A"), songs.mp3(QStringLiteral("b.mp3"), "B")});
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    user.pressInMessageBoxes(QMessageBox::Ok);
    user.pick({card});
    QTest::mouseClick(window.transferButton(), Qt::LeftButton);
    qunsetenv("KAVENA_MOUNT_DIRS");
    QCOMPARE(user.messages(),
             QStringList({QStringLiteral("Trasferimento: Tutti i file sono stati copiati "
                                         "correttamente"),
                          QStringLiteral("Trasferimento: Song copiate: 2\nSong saltate: 0\n"
                                         "Song non copiate (errori): 0")}));
    QVERIFY(QFile::exists(card + QStringLiteral("/songs/a.mid")));
    QVERIFY(QFile::exists(card + QStringLiteral("/songs/b.mp3")));
    QVERIFY(!window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
    QVERIFY(window.updateKavenaIndex(QStringLiteral("/nowhere/at/all")) == false);
}

void TestMainWindow::refusedOrCancelledTransferLeavesTheButtons()
{
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.pick({songs.midi(QStringLiteral("a.mid"), "A")});
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    user.pressInMessageBoxes(QMessageBox::Ok);
    for (const bool synchronisable : {true, false}) {
        window.updateButton()->setEnabled(synchronisable);
        user.pick({m_work->path()});
        QTest::mouseClick(window.transferButton(), Qt::LeftButton);
        QCOMPARE(window.updateButton()->isEnabled(), synchronisable);
        QVERIFY(window.transferButton()->isEnabled());

        // A chooser for which no folder was laid out is cancelled.
        QTest::mouseClick(window.transferButton(), Qt::LeftButton);
        QCOMPARE(window.updateButton()->isEnabled(), synchronisable);
        QVERIFY(window.transferButton()->isEnabled());
    }
    const QString refusal = QStringLiteral("Trasferimento: Non è possibile copiare i file sul "
                                           "disco di sistema");
    QCOMPARE(user.messages(), QStringList({refusal, refusal}));
}

// ---------------------------------------------------------------- debug panel

void TestMainWindow::debugSaveWritesATestFile()
{
    const SongFolder songs;
    const QString path = songs.midi(QStringLiteral("a.mid"), "A");
    WindowUnderTest window;
    window.setSelectedFiles({path});
    window.importUserLibrary();
    window.table()->selectRow(0);
    const LogCapture log;
    window.pressDebug("dbgSavePushButton");
    QVERIFY(LogCapture::contains(QStringLiteral("[MainWindow] Saving row: 0 ")));
    QVERIFY(LogCapture::contains(QStringLiteral("Saving to file: \"test_save.bin\" ")));
    QVERIFY(!LogCapture::contains(QStringLiteral("Error! ")));
    QFile original(path);
    QFile saved(m_work->filePath(QStringLiteral("test_save.bin")));
    QVERIFY(original.open(QIODevice::ReadOnly) && saved.open(QIODevice::ReadOnly));
    QCOMPARE(saved.readAll(), original.readAll());
}

void TestMainWindow::debugMarkerIsAdded()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A")});
    window.importUserLibrary();
    window.table()->selectRow(0);
    window.child<QLineEdit>("dbgMarkerTextLineEdit")->setText(QStringLiteral("  Coda "));
    window.child<QSpinBox>("dbgMarkerBarSpinBox")->setValue(300);
    const LogCapture log;
    window.pressDebug("dbgAddMarkerPushButton");
    QVERIFY(LogCapture::contains(QStringLiteral("[MainWindow] Adding marker to row: 0 ")));
    QVERIFY(LogCapture::contains(QStringLiteral("Saving to file: \"test_addmarker.bin\" ")));
    QFile saved(m_work->filePath(QStringLiteral("test_addmarker.bin")));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QVERIFY(saved.readAll().contains(songbytes::markerEvent(300, "Coda")));
}

void TestMainWindow::debugActionsReportErrors()
{
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.midi(QStringLiteral("a.mid"), "A")});
    window.importUserLibrary();
    {
        window.table()->setCurrentIndex(QModelIndex());
        const LogCapture log;
        window.pressDebug("dbgSavePushButton");
        QVERIFY(LogCapture::contains(QStringLiteral("[MainWindow] Saving row: -1 ")));
        QVERIFY(LogCapture::contains(QStringLiteral("Error! ")));
    }
    window.table()->selectRow(0);
    QVERIFY(QDir().mkdir(QStringLiteral("test_save.bin")));
    {
        const LogCapture log; // the file cannot be written
        window.pressDebug("dbgSavePushButton");
        QVERIFY(LogCapture::contains(QStringLiteral("Error! ")));
    }
    QVERIFY(QFile::remove(songs.filePath(QStringLiteral("a.mid"))));
    const LogCapture log; // the song is gone
    window.pressDebug("dbgAddMarkerPushButton");
    QVERIFY(LogCapture::contains(QStringLiteral("Error! ")));
    QVERIFY(!QFile::exists(QStringLiteral("test_addmarker.bin")));
}

void TestMainWindow::debugDialogTellsItsResult()
{
    QVERIFY(writeCatalogue());
    const WindowUnderTest window;
    QStringList artists;
    {
        ModalAnswers user;
        user.add([&](QWidget *modal) {
            auto *const box = modal->findChild<QComboBox *>(QStringLiteral("artistComboBox"));
            for (int i = 0; i < box->count(); ++i)
                artists << box->itemText(i);
            QTest::mouseClick(modal->findChild<QPushButton *>(QStringLiteral("savePushButton")),
                              Qt::LeftButton);
            return true;
        });
        const LogCapture log;
        window.pressDebug("dbgShowDialogPushButton");
        QCOMPARE(LogCapture::lines(), QStringList{QStringLiteral("Accettato ")});
    }
    QCOMPARE(artists, QStringList{QStringLiteral("Name Surname")});
    ModalAnswers user;
    user.click<DataEditDialog>(QStringLiteral("exitPushButton"));
    const LogCapture log;
    window.pressDebug("dbgShowDialogPushButton");
    QCOMPARE(LogCapture::lines(), QStringList{QStringLiteral("Rifiutato ")});
}

void TestMainWindow::debugHideTogglesThePanel()
{
    const WindowUnderTest window;
    const auto *const panel = window.child<QGroupBox>("debugGroupBox");
    window.pressDebug("dbgHidePushButton");
    QVERIFY(panel->isVisible());
    window.pressDebug("dbgHidePushButton");
    QVERIFY(!panel->isVisible());
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    TestMainWindow test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_mainwindow.moc"
