// The main window: its form, its settings and its language.
#include "support/apptest.h"
#include "support/interfacelanguage.h"
#include "support/logcapture.h"
#include "support/mainwindowdriver.h"
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
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QSpinBox>
#include <QStatusBar>
#include <QTest>

using namespace mainwindowdriver;

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
    GermanStart() { translation::use(languages::german); }
    ~GermanStart() { backToItalian(); }
    Q_DISABLE_COPY_MOVE(GermanStart)
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

} // namespace

class TestMainWindow : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup()
    {
        AppFixture::cleanup();
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
             QStringLiteral("menuFile menuEdit menuPreferences menuStrumenti menuHelp"));
    QCOMPARE(names("menuFile"),
             QStringLiteral("actionSelectSongs actionAddFiles actionAddFolder  actionOpenList "
                            "actionSaveList actionReopenList menuRecent  "
                            "actionSynchronise actionTransfer  actionEditSong "
                            "actionRemoveSong actionDeleteSongFile  actionFindSong menuSort  "
                            "actionPrint  actionQuit"));
    QCOMPARE(names("menuPreferences"), QStringLiteral("menuLanguage menuMessaggi_Copyright"));
    QCOMPARE(names("menuLanguage"), QStringLiteral("actionItalian actionEnglish actionGerman"));
    QCOMPARE(names("menuMessaggi_Copyright"),
             QStringLiteral("actionCopyrightYes actionCopyrightNo"));
    QCOMPARE(names("menuStrumenti"),
             QStringLiteral("optimizeMemory actionSongsList actionMemory  actionTransferPlan "
                            "actionPreviewChanges actionPrepareTags actionFillFromMusic  "
                            "actionAddToCatalogue actionCatalogue"));
    QCOMPARE(names("menuHelp"),
             QStringLiteral("actionContents actionShortcuts actionAbout actionAbout_QT"));
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
                            column == window.model()->colIdxStatus() ||
                            column == window.model()->colIdxFolder();
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
                          QStringLiteral("&Tastenkürzel..."),
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

int main(int argc, char *argv[])
{
    return runAppTest<TestMainWindow>(argc, argv);
}

#include "test_mainwindow.moc"
