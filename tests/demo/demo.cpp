#include "demo/demo.h"

#include "app/startup.h"
#include "demo/demosongs.h"
#include "library/branding.h"
#include "library/database.h"
#include "library/songcolumns.h"
#include "windows/memorywindow.h"
#include "windows/playerbar.h"
#include "windows/statebuttons.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QRegularExpression>
#include <QScreen>
#include <QStatusBar>
#include <QTableView>
#include <QTest>
#include <QTextStream>
#include <QToolButton>

void say(const QString &text)
{
    QTextStream(stdout) << text << Qt::endl;
}

Demo::Demo(const QString &folder)
    : m_folder(folder)
    , m_card(folder + QStringLiteral("/memories/CARD"))
    , m_helpPictures(folder + QStringLiteral("/help"))
{
    if (!QDir().mkpath(m_folder + QStringLiteral("/documentation")))
        qFatal("cannot write to %s", qPrintable(m_folder));
    addAnswers();
    m_window.show();
    QTest::qWait(500);
}

void Demo::shoot(const QString &name)
{
    QTest::qWait(250);
    const QString file = QStringLiteral("%1/screenshots/%2-%3-%4.png")
                             .arg(m_folder)
                             .arg(m_shot.size(), 2, 10, QLatin1Char('0'))
                             .arg(m_language, name);
    m_shot.insert(m_language + name);
    if (!m_window.screen()->grabWindow(0).save(file))
        qFatal("cannot write %s", qPrintable(file));
}

void Demo::shootOnce(QWidget *window, const QString &name)
{
    document(window, name.section(QLatin1Char('-'), 0, 0).remove(QStringLiteral("dialog")));
    QString title = name + QLatin1Char('-') + window->windowTitle();
    title = title.toLower().replace(QRegularExpression(QStringLiteral("[^\\w-]+")),
                                    QStringLiteral("_"));
    if (!m_shot.contains(m_language + title))
        shoot(title);
}

/** The window by itself, the first time that it is seen in a language, under a lasting name. */
void Demo::document(QWidget *window, const QString &name)
{
    const QString file =
        QStringLiteral("%1/documentation/%2-%3.png").arg(m_folder, name, m_language);
    if (!QFileInfo::exists(file) && !window->grab().save(file))
        qFatal("cannot write %s", qPrintable(file));
    m_helpPictures.take(window, name, m_language);
}

/** A part of the main window, for the help. */
void Demo::picture(QWidget *part, const char *name)
{
    const QSize before = m_window.size();
    m_window.resize(HelpPictures::roomOnAPage);
    QTest::qWait(100);
    m_helpPictures.take(part, QString::fromLatin1(name), m_language);
    m_window.resize(before);
    QTest::qWait(100);
}

/** With their words, as in a wide window. */
void Demo::pictureOfStates()
{
    auto *const states = m_window.findChild<StateButtons *>();
    states->setMinimumSize(states->sizeHint());
    picture(states, "states");
    states->setMinimumSize({});
}

void Demo::picturesOfMenus()
{
    for (const char *name : {"menuFile", "menuLanguage"}) {
        auto *const menu = child<QMenu>(&m_window, name);
        menu->ensurePolished();
        menu->resize(menu->sizeHint());
        picture(menu, QByteArray(name).toLower().constData());
    }
}

void Demo::clickTool(const char *name)
{
    auto *const tool = child<QToolButton>(&m_window, name);
    if (!tool->isEnabled())
        qFatal("%s is disabled", name);
    QTest::mouseClick(tool, Qt::LeftButton);
}

void Demo::trigger(const char *action)
{
    m_window.findChild<QAction *>(QString::fromLatin1(action))->trigger();
}

void Demo::reportRows()
{
    const QAbstractItemModel *const model =
        child<QTableView>(&m_window, "userLibraryTableView")->model();
    int counts[4] = {};
    const int statusColumn = songcolumns::Status;
    for (int row = 0; row < model->rowCount(); ++row)
        ++counts[model->index(row, statusColumn).data().toInt() & 3];
    say(QStringLiteral("  %1 rows: %2 new, %3 synchronised, %4 edited, %5 not synchronised")
            .arg(model->rowCount())
            .arg(counts[Database::StatusNew])
            .arg(counts[Database::StatusSynced])
            .arg(counts[Database::StatusEdited])
            .arg(counts[Database::StatusNotSynced]));
}

void Demo::gatherSongs()
{
    const auto songs = gatherDemoSongs(m_folder);
    if (!songs)
        qFatal("the demonstration's songs could not be made");
    m_songs = *songs;
    say(QStringLiteral("Gathered %1 songs").arg(m_songs.size()));
}

/** While the list is empty. */
void Demo::showStart(const QString &language)
{
    m_language = language;
    picture(child<QWidget>(&m_window, "listStackedWidget"), "start");
}

void Demo::runJob(const QString &language)
{
    m_language = language;
    gatherSongs();
    trigger("actionCopyrightYes");
    importSongs();
    synchronise();
    editSongs();

    say(QStringLiteral("Look at what several songs would get from their names, and the other way"));
    trigger("actionEditSeveral");
    trigger("actionRenameSeveral");

    say(QStringLiteral("Look at the tags that the player cannot show, and at what the music says"));
    trigger("actionPrepareTags");
    trigger("actionFillFromMusic");

    say(QStringLiteral("Look at the history"));
    trigger("actionHistory");

    transferSongs();
    showInfoWindows();
    editArtistOfAll();
}

void Demo::importSongs()
{
    shoot(QStringLiteral("start"));
    say(QStringLiteral("Import"));
    picture(child<QWidget>(&m_window, "selectDirToolButton"), "choose");
    m_user.pick(m_songs);
    clickTool("selectDirToolButton");
    reportRows();
    shoot(QStringLiteral("imported"));
    picture(child<QWidget>(&m_window, "updateDataToolButton"), "synchronise");
    picture(child<QWidget>(&m_window, "transferFilesToolButton"), "transfer");
}

void Demo::synchronise()
{
    say(QStringLiteral("Look at what would change"));
    trigger("actionPreviewChanges");
    clickTool("updateDataToolButton");
    trigger("actionPreviewChanges");

    say(QStringLiteral("Synchronise, with a backup"));
    m_questions = {QStringLiteral("question")};
    clickTool("updateDataToolButton");
    reportRows();
    shoot(QStringLiteral("synchronised"));
    picture(child<QWidget>(&m_window, "syncSummaryBar"), "syncresult");
}

void Demo::editSongs()
{
    auto *const view = child<QTableView>(&m_window, "userLibraryTableView");
    say(QStringLiteral("Edit one song, add another one"));
    emit view->doubleClicked(view->model()->index(1, 2));
    m_user.pick({laterDemoSong(m_folder)});
    trigger("actionAddFiles");
    view->selectRow(4);
    m_window.statusBar()->clearMessage(); // the numbers are below it
    QTest::qWait(0);
    reportRows();
    shoot(QStringLiteral("edited"));
    document(&m_window, QStringLiteral("main"));
    picturesOfMenus();
    pictureOfStates();
    picture(m_window.findChild<PlayerBar *>(), "player");
}

void Demo::transferSongs()
{
    say(QStringLiteral("Transfer to a place that is no memory, then to the memory"));
    m_user.pick({m_folder + QStringLiteral("/backups")});
    m_message = QStringLiteral("nomemory");
    clickTool("transferFilesToolButton");
    m_user.pick({m_card});
    m_message = QStringLiteral("transferred");
    m_questions = {QStringLiteral("replace"), QStringLiteral("shorten")};
    clickTool("transferFilesToolButton");

    say(QStringLiteral("Look at the plan of the next transfer"));
    m_user.pick({m_card});
    trigger("actionTransferPlan");

    say(QStringLiteral("Rebuild the memory, save its song list three ways"));
    trigger("optimizeMemory");
    trigger("actionSongsList");
    lookAtMemory();
}

void Demo::editArtistOfAll()
{
    say(QStringLiteral("Edit one song, its artist goes to all; one song is gone meanwhile"));
    QFile::remove(m_songs.at(5));
    m_isForAll = true;
    auto *const view = child<QTableView>(&m_window, "userLibraryTableView");
    emit view->doubleClicked(view->model()->index(1, 2));
    m_isForAll = false;
    reportRows();
    shoot(QStringLiteral("edited-all"));
}

void Demo::lookAtMemory()
{
    say(QStringLiteral("Look at the memory"));
    trigger("actionMemory");
    MemoryWindow *window = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *const shown : windows) {
        if (auto *const memory = qobject_cast<MemoryWindow *>(shown))
            window = memory;
    }
    const auto click = [window](const char *button) {
        if (button != nullptr)
            child<QPushButton>(window, button)->click();
        QTest::qWait(0);
        if (!QTest::qWaitFor([window] { return !window->job().isRunning(); }, 60000))
            qFatal("the memory is not read");
        QTest::qWait(0);
    };
    auto *const tabs = child<QTabWidget>(window, "tabs");
    click("pushButtonReload");
    child<QTableView>(window, "songsTableView")->selectRow(2);
    QTest::qWait(0); // the labels get room for their texts
    document(window, QStringLiteral("memorysongs"));
    shoot(QStringLiteral("memory-songs"));
    tabs->setCurrentIndex(2);
    click("pushButtonFindDuplicates");
    document(window, QStringLiteral("memoryduplicates"));
    shoot(QStringLiteral("memory-duplicates"));
    tabs->setCurrentIndex(3);
    click("pushButtonCheck");
    document(window, QStringLiteral("memorycheck"));
    shoot(QStringLiteral("memory-check"));
    tabs->setCurrentIndex(0);
    window->close();
}

void Demo::showInfoWindows()
{
    child<QTableView>(&m_window, "userLibraryTableView")->selectRow(1);
    trigger("actionAddToCatalogue");
    trigger("actionCatalogue");
    trigger("actionContents");
    trigger("actionShortcuts");
    trigger("actionAbout");
}

int main(int argc, char **argv)
{
    if (argc != 2) {
        QTextStream(stderr) << "usage: kavena-demo FOLDER\n";
        return 2;
    }
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    Startup startup;
    startup.setUpLog();
    QApplication application(argc, argv);
    startup.setUpTranslation();

    Demo demo(QFile::decodeName(argv[1]));
    const QString language = branding().firstLanguage();
    const char *const firstAction =
        language == languages::german ? "actionGerman" : "actionItalian";
    demo.showStart(language);
    demo.trigger("actionEnglish");
    demo.showStart(languages::english);
    demo.trigger(firstAction);
    demo.runJob(language);
    demo.trigger("actionEnglish");
    demo.runJob(languages::english);
    demo.trigger(firstAction);
    demo.shoot(QStringLiteral("back-again"));
    return 0;
}
