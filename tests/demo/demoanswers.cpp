// What the demonstration does in each window that opens.
#include "demo/demo.h"
#include "support/planwindow.h"
#include "windows/backupdialog.h"
#include "windows/cataloguedialog.h"
#include "windows/dataeditdialog.h"
#include "windows/editseveraldialog.h"
#include "windows/helpdialog.h"
#include "windows/historydialog.h"
#include "windows/indexdialog.h"
#include "windows/nocopyrightdialog.h"
#include "windows/runreportbox.h"
#include "windows/songslistdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

#include <utility>

void Demo::addAnswers()
{
    m_user.add([this](QWidget *window) { return answerBackup(window); });
    m_user.add([this](QWidget *window) { return answerQuestion(window); });
    m_user.add([this](QWidget *window) { return answerEdit(window); });
    m_user.add([this](QWidget *window) { return answerPlan(window); });
    m_user.add([this](QWidget *window) { return answerMemory(window); });
    m_user.add([this](QWidget *window) { return answerSongsList(window); });
    m_user.add([this](QWidget *window) { return answerCatalogue(window); });
    m_user.add([this](QWidget *window) { return answerHistory(window); });
    m_user.add([this](QWidget *window) { return answerEditSeveral(window); });
    m_user.add([this](QWidget *window) { return answerBox(window); });
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
    if (!m_questions.isEmpty())
        m_helpPictures.take(window, m_questions.takeFirst(), m_language);
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
        child<QLineEdit>(window, "titleLineEdit")->setText(QStringLiteral("Be Sharp"));
        child<QComboBox>(window, "artistComboBox")->setEditText(QStringLiteral("The Demo Band"));
        shootOnce(window, QStringLiteral("edit"));
        if (m_isForAll)
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
        for (int group = 0; group < plan.tree->model()->rowCount(); ++group)
            plan.tree->collapse(plan.group(group));
        plan.tree->expand(plan.group(0));
        plan.select(plan.group(0));
        document(window, QStringLiteral("transferplan"));
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

/** Shows what the synchronisation, the first job of all, has done to its first songs. */
bool Demo::answerHistory(QWidget *window)
{
    if (qobject_cast<HistoryDialog *>(window) == nullptr)
        return false;
    auto *const jobs = child<QTreeWidget>(window, "jobsTreeWidget");
    auto *const songs = child<QTreeWidget>(window, "songsTreeWidget");
    if (nextStep(window) > 0 || jobs->topLevelItemCount() == 0)
        return true;
    jobs->setCurrentItem(jobs->topLevelItem(1));
    if (QTest::qWaitFor([songs] { return songs->topLevelItemCount() > 1; }))
        songs->topLevelItem(0)->setExpanded(true);
    shootOnce(window, QStringLiteral("history"));
    QMetaObject::invokeMethod(window, "reject");
    return true;
}

/** Only the songs whose names are made of an artist and a title are of interest. */
bool Demo::answerEditSeveral(QWidget *window)
{
    if (qobject_cast<EditSeveralDialog *>(window) == nullptr)
        return false;
    if (nextStep(window) > 0)
        return true;
    child<QComboBox>(window, "shownComboBox")->setCurrentIndex(1);
    QTest::qWait(0);
    shootOnce(window, QStringLiteral("editseveral"));
    QMetaObject::invokeMethod(window, "reject");
    return true;
}

bool Demo::answerBox(QWidget *window)
{
    auto *const box = qobject_cast<QMessageBox *>(window);
    if (box == nullptr)
        return false;
    if (qobject_cast<RunReportBox *>(box) != nullptr)
        m_helpPictures.take(box, QStringLiteral("unsaved"), m_language);
    else if (!m_message.isEmpty())
        m_helpPictures.take(box, std::exchange(m_message, {}), m_language);
    shootOnce(window, QStringLiteral("message"));
    QAbstractButton *const yes = box->button(QMessageBox::Yes);
    if (yes == nullptr)
        say(QStringLiteral("  %1: %2").arg(box->windowTitle(), box->text()));
    clickLater(yes != nullptr ? yes : box->button(QMessageBox::Ok));
    return true;
}

/** Progress windows and whatever only wants to be read. */
bool Demo::answerOther(QWidget *window)
{
    if (window->inherits("QProgressDialog")) {
        shootOnce(window, QStringLiteral("progress"));
    } else {
        if (auto *const help = qobject_cast<HelpDialog *>(window))
            help->showSection(QStringLiteral("sync"));
        shootOnce(window, QString::fromLatin1(window->metaObject()->className()).toLower());
        QMetaObject::invokeMethod(window, "reject");
    }
    return true;
}
