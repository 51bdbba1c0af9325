// Drives the real windows through the whole job, on whatever display it is started on: gathers
// songs, imports, synchronises, edits, transfers, rebuilds and exports, in the language of a
// first start and in English.
// Leaves the songs, the player's memory and the screenshots in the folder that it is given.
#include "app/mainwindow.h"
#include "app/startup.h"
#include "library/branding.h"
#include "library/database.h"
#include "library/songcolumns.h"
#include "support/mp3judges.h"
#include "support/planwindow.h"
#include "support/samplesongs.h"
#include "support/tagsofothers.h"
#include "support/userdriver.h"
#include "windows/backupdialog.h"
#include "windows/cataloguedialog.h"
#include "windows/dataeditdialog.h"
#include "windows/indexdialog.h"
#include "windows/memorywindow.h"
#include "windows/nocopyrightdialog.h"
#include "windows/songslistdialog.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScreen>
#include <QSet>
#include <QTableView>
#include <QTextStream>
#include <QToolButton>
#include <QTreeWidget>

namespace
{

constexpr int installedSongs = 4;

void say(const QString &text)
{
    QTextStream(stdout) << text << Qt::endl;
}

class Demo
{
public:
    explicit Demo(const QString &folder);

    bool gatherSongs();
    void runJob(const QString &language);
    void lookAtMemory();
    void showInfoWindows();
    void trigger(const char *action);
    void shoot(const QString &name);

private:
    void addAnswers();
    bool answerBackup(QWidget *window);
    bool answerQuestion(QWidget *window);
    bool answerEdit(QWidget *window);
    bool answerPlan(QWidget *window);
    bool answerMemory(QWidget *window);
    bool answerSongsList(QWidget *window);
    bool answerCatalogue(QWidget *window);
    bool answerOther(QWidget *window);
    void shootOnce(QWidget *window, const QString &name);
    void document(QWidget *window, const QString &name);
    void clickTool(const char *name);
    void reportRows();

    QString m_folder;
    QString m_card;
    QString m_language;
    QStringList m_songs;
    QSet<QString> m_shot;
    MainWindow m_window;
    UserDriver m_user;
};

Demo::Demo(const QString &folder)
    : m_folder(folder)
    , m_card(folder + QStringLiteral("/memories/CARD"))
{
    addAnswers();
    m_window.show();
    QTest::qWait(500);
}

bool Demo::gatherSongs()
{
    const QString music = m_folder + QStringLiteral("/music/");
    bool ok = QDir().mkpath(music) && QDir().mkpath(m_folder + QStringLiteral("/backups")) &&
              QDir().mkpath(m_folder + QStringLiteral("/documentation"));
    const QStringList midi = samplesongs::installedMidiFiles();
    for (int i = 0; i < installedSongs && i < midi.size(); ++i) {
        // One name stays too long for the player, to show the question about it.
        const QFileInfo song(midi[i]);
        m_songs << music + (i == 0 ? song.fileName()
                                   : song.completeBaseName().left(8) + QStringLiteral(".mid"));
        ok = ok && QFile::copy(midi[i], m_songs.last());
    }
    const struct {
        const char *file;
        const char *abc;
    } tunes[] = {
        {"GREENSLV.MID",
         "X:1\nT:Greensleeves\nM:6/8\nL:1/8\nK:Am\nA|c2d e>fe|d2B G>AB|c2A A>^GA|]\n"},
        {"SILENT.MID", "X:1\nT:Silent Night\nM:3/4\nL:1/8\nK:C\nG>AG E3|G>AG E3|d2d B3|c2c G3|]\n"},
        {"AMAZING.MID", "X:1\nT:Amazing Grace\nM:3/4\nL:1/4\nK:G\nD|G2B/G/|B2A|G2E|D2D|]\n"},
        {"JINGLE.MID", "X:1\nT:Jingle Bells\nM:4/4\nL:1/4\nK:G\nBBB2|BBB2|BdG>A|B4|]\n"},
        {"STALUCIA.MID", "X:1\nT:Santa Lucia\nM:3/8\nL:1/8\nK:C\nGGc|cBB|FFA|AGG|]\n"},
        {"ENTERTAI.MID", "X:1\nT:The Entertainer\nM:2/4\nL:1/8\nK:C\nDEcE|cEc2|cdec|dBcz|]\n"},
        {"DANUBIO.MID", "X:1\nT:The Blue Danube\nM:3/4\nL:1/4\nK:D\nDFA|A2a|a2f|f2D|]\n"},
        {"THESAINT.MID", "X:1\nT:The Saints\nM:4/4\nL:1/4\nK:F\nzFAB|c4|zFAB|c4|]\n"},
        {"SCARFAIR.MID", "X:1\nT:Scarborough Fair\nM:3/4\nL:1/4\nK:Dm\nD2D|A2A|E>FE|D3|]\n"},
        {"DANNYBOY.MID", "X:1\nT:Danny Boy\nM:4/4\nL:1/4\nK:Eb\nzDEF|G2FG|cBGF|E4|]\n"},
    };
    for (const auto &tune : tunes) {
        m_songs << music + QString::fromLatin1(tune.file);
        ok = ok && samplesongs::makeMidi(m_songs.last(), tune.abc);
    }
    const QStringList titles{QStringLiteral("O Sole Mio"), QStringLiteral("Für Elise"),
                             QStringLiteral("Scale in C")};
    for (const QString &title : titles) {
        m_songs << music + QStringLiteral("sound%1.mp3").arg(m_songs.size());
        ok = ok && samplesongs::makeMp3(
                       m_songs.last(),
                       {title, QStringLiteral("Demonstration"), QStringLiteral("Classical")}, 4);
    }
    // The player cannot show the texts of this one.
    const QByteArray sound = mp3judges::audioOf(samplesongs::readFile(m_songs.last()));
    m_songs << music + QStringLiteral("zvon.mp3");
    ok = ok && samplesongs::writeFile(m_songs.last(),
                                      tagsofothers::song(QString::fromUtf8("Čárový “zvon”"),
                                                         QString::fromUtf8("Řehoř"))
                                              .chopped(tagsofothers::audio().size()) +
                                          sound);
    for (int i = 0; i < 3 && i < midi.size(); ++i) {
        const QByteArray magic = "_MF" + QByteArray::number(i + 3);
        m_songs << music + QStringLiteral("packed%1.mf%2").arg(i).arg(i + 3);
        ok = ok && samplesongs::writeFile(
                       m_songs.last(),
                       samplesongs::mfxBytes(magic, samplesongs::readFile(midi[i]),
                                             {QFileInfo(midi[i]).completeBaseName(),
                                              QStringLiteral("OpenMSX"), QStringLiteral("Jazz")}));
    }
    // One song is on the memory already, and not among those that are chosen.
    const QString old = m_card + QStringLiteral("/songs/OLDSONG.MID");
    ok = ok && QDir().mkpath(m_card + QStringLiteral("/songs")) &&
         samplesongs::makeMidi(old, tunes[0].abc);
    say(QStringLiteral("Gathered %1 songs").arg(m_songs.size()));
    return ok && midi.size() >= installedSongs;
}

void Demo::addAnswers()
{
    m_user.add([this](QWidget *window) { return answerBackup(window); });
    m_user.add([this](QWidget *window) { return answerQuestion(window); });
    m_user.add([this](QWidget *window) { return answerEdit(window); });
    m_user.add([this](QWidget *window) { return answerPlan(window); });
    m_user.add([this](QWidget *window) { return answerMemory(window); });
    m_user.add([this](QWidget *window) { return answerSongsList(window); });
    m_user.add([this](QWidget *window) { return answerCatalogue(window); });
    m_user.add([this](QWidget *window) { return answerOther(window); });
}

bool Demo::answerBackup(QWidget *window)
{
    if (qobject_cast<BackupDialog *>(window) == nullptr)
        return false;
    auto *const start = child<QPushButton>(window, "doBackupPushButton");
    if (start->isEnabled()) {
        shootOnce(window, QStringLiteral("backup"));
        clickLater(start);
    } else if (nextStep(window) == 0) {
        m_user.pick({m_folder + QStringLiteral("/backups")});
        clickLater(child<QPushButton>(window, "browsePushButton"));
    }
    return true;
}

bool Demo::answerQuestion(QWidget *window)
{
    if (qobject_cast<NoCopyrightDialog *>(window) == nullptr)
        return false;
    const QString about = child<QLabel>(window, "label_2")->text().section(QLatin1Char(' '), 0, 1);
    shootOnce(window, QStringLiteral("question-") + about);
    clickLater(child<QPushButton>(window, "yesAllPushButton"));
    return true;
}

bool Demo::answerEdit(QWidget *window)
{
    if (qobject_cast<DataEditDialog *>(window) == nullptr)
        return false;
    switch (nextStep(window)) {
    case 0:
        shootOnce(window, QStringLiteral("edit"));
        child<QLineEdit>(window, "titleLineEdit")->setText(QStringLiteral("Edited by hand"));
        child<QComboBox>(window, "artistComboBox")->setEditText(QStringLiteral("The Demo Band"));
        clickLater(child<QCheckBox>(window, "checkBoxToAllArtist"));
        break;
    case 1:
        window->setProperty("step", 0);
        clickLater(child<QPushButton>(window, "savePushButton"));
        break;
    }
    return true;
}

/** A plan that opened by itself is only looked at; one that was asked for shows all that it can. */
bool Demo::answerPlan(QWidget *window)
{
    if (qobject_cast<TransferPlanDialog *>(window) == nullptr)
        return false;
    const PlanWindow plan(window);
    if (nextStep(window) > 0)
        return true;
    if (plan.asAlways->isVisible()) {
        shoot(QStringLiteral("plan-before-transfer"));
        clickLater(plan.asAlways);
        return true;
    }
    PlanWindow::click(plan.others);
    plan.select(plan.group(0));
    shootOnce(window, QStringLiteral("transferplan"));
    clickLater(plan.cancel);
    return true;
}

bool Demo::answerMemory(QWidget *window)
{
    if (qobject_cast<IndexDialog *>(window) == nullptr)
        return false;
    auto *const start = child<QPushButton>(window, "pushButtonStart");
    if (!start->isEnabled())
        return true;
    if (nextStep(window) == 0) {
        child<QLineEdit>(window, "lineEditPath")->setText(m_card);
        child<QRadioButton>(window, "radioButtonRebuild")->click();
        clickLater(start);
    } else if (!child<QWidget>(window, "plainTextReport")
                    ->property("plainText")
                    .toString()
                    .isEmpty()) {
        shootOnce(window, QStringLiteral("memory"));
        clickLater(child<QPushButton>(window, "pushButtonClose"));
    }
    return true;
}

bool Demo::answerSongsList(QWidget *window)
{
    if (qobject_cast<SongsListDialog *>(window) == nullptr)
        return false;
    auto *const save = child<QPushButton>(window, "pushButtonSave");
    if (!save->isEnabled())
        return true;
    const int mode = nextStep(window);
    if (mode < 3) {
        const QString file =
            QStringLiteral("%1/songs-by-%2.csv")
                .arg(m_folder, QStringList{QStringLiteral("title"), QStringLiteral("artist"),
                                           QStringLiteral("genre")}[mode]);
        child<QLineEdit>(window, "lineEditPath")->setText(m_card);
        child<QLineEdit>(window, "lineEditFile")->setText(file);
        child<QComboBox>(window, "comboBoxSort")->setCurrentIndex(mode);
        clickLater(save);
    } else {
        shootOnce(window, QStringLiteral("songslist"));
        clickLater(child<QPushButton>(window, "pushButtonClose"));
    }
    return true;
}

/** Message boxes, progress windows and whatever only wants to be read. */
bool Demo::answerCatalogue(QWidget *window)
{
    if (qobject_cast<CatalogueDialog *>(window) == nullptr)
        return false;
    auto *const entries = child<QTreeWidget>(window, "entriesTreeWidget");
    if (nextStep(window) == 0 && entries->topLevelItemCount() > 0) {
        entries->setCurrentItem(entries->topLevelItem(0));
        shootOnce(window, QStringLiteral("cataloguedialog"));
        clickLater(child<QPushButton>(window, "editPushButton"));
    } else {
        QMetaObject::invokeMethod(window, "reject");
    }
    return true;
}

bool Demo::answerOther(QWidget *window)
{
    if (auto *const box = qobject_cast<QMessageBox *>(window)) {
        shootOnce(window, QStringLiteral("message"));
        QAbstractButton *const yes = box->button(QMessageBox::Yes);
        if (yes == nullptr)
            say(QStringLiteral("  %1: %2").arg(box->windowTitle(), box->text()));
        clickLater(yes != nullptr ? yes : box->button(QMessageBox::Ok));
    } else if (window->inherits("QProgressDialog")) {
        shootOnce(window, QStringLiteral("progress"));
    } else {
        shootOnce(window, QString::fromLatin1(window->metaObject()->className()).toLower());
        QMetaObject::invokeMethod(window, "reject");
    }
    return true;
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

void Demo::runJob(const QString &language)
{
    m_language = language;
    shoot(QStringLiteral("start"));
    trigger("actionCopyrightYes");

    say(QStringLiteral("Import"));
    m_user.pick(m_songs);
    clickTool("selectDirToolButton");
    reportRows();
    shoot(QStringLiteral("imported"));

    say(QStringLiteral("Look at what would change"));
    trigger("actionPreviewChanges");
    clickTool("updateDataToolButton");
    trigger("actionPreviewChanges");

    say(QStringLiteral("Synchronise, with a backup"));
    clickTool("updateDataToolButton");
    reportRows();
    shoot(QStringLiteral("synchronised"));
    document(&m_window, QStringLiteral("main"));

    say(QStringLiteral("Edit one song, its artist goes to all"));
    auto *const view = child<QTableView>(&m_window, "userLibraryTableView");
    emit view->doubleClicked(view->model()->index(1, 2));
    reportRows();
    shoot(QStringLiteral("edited"));

    say(QStringLiteral("Look at what several songs would get from their names, and the other way"));
    trigger("actionEditSeveral");
    trigger("actionRenameSeveral");

    say(QStringLiteral("Look at the tags that the player cannot show"));
    trigger("actionPrepareTags");

    say(QStringLiteral("Look at the history"));
    trigger("actionHistory");

    say(QStringLiteral("Transfer"));
    m_user.pick({m_card});
    clickTool("transferFilesToolButton");

    say(QStringLiteral("Look at the plan of the next transfer"));
    m_user.pick({m_card});
    trigger("actionTransferPlan");

    say(QStringLiteral("Rebuild the memory, save its song list three ways"));
    trigger("optimizeMemory");
    trigger("actionSongsList");
    lookAtMemory();
    showInfoWindows();
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
    child<QTableView>(window, "songsTableView")->selectRow(1);
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
    child<QTableView>(&m_window, "userLibraryTableView")->selectRow(0);
    trigger("actionAddToCatalogue");
    trigger("actionCatalogue");
    trigger("actionContents");
    trigger("actionAbout");
}

} // namespace

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
    if (!demo.gatherSongs()) {
        QTextStream(stderr) << "the demonstration's songs could not be made\n";
        return 1;
    }
    const QString language = branding().firstLanguage();
    demo.runJob(language);
    demo.trigger("actionEnglish");
    demo.runJob(languages::english);
    demo.trigger(language == languages::german ? "actionGerman" : "actionItalian");
    demo.shoot(QStringLiteral("back-again"));
    return 0;
}
