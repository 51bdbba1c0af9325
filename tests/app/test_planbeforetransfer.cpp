// When the transfer plan opens in the program, and what comes of it.
#include "support/apptest.h"
#include "support/mountedcard.h"
#include "support/planwindow.h"
#include "support/shorttext.h"
#include "support/smallmemory.h"
#include "support/transferfixture.h"
#include "support/windowundertest.h"
#include "windows/nocopyrightdialog.h"

#include <QProgressDialog>

using namespace transferfixture;

namespace
{

/** Named as the player allows, and long enough to fill a small memory. */
QByteArray largeSong(int number)
{
    return MountedCard::midi("SONG " + QByteArray::number(number)) + QByteArray(200000, '\0');
}

} // namespace

class TestPlanBeforeTransfer : public AppFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void noPlanWhereNothingIsLost();
    void equalNamesOpenThePlan();
    void shortenedSongsAreNotCopiedTwice();
    void tooLittleRoomOpensThePlan();
    void copyWithoutThePlanGoesAsAlways();
    void cancelledPlanTouchesNothing();
    void skippedSongsAreNamedWithTheReason();
    void stoppedComparisonTouchesNothing();
    void memoryThatVanishesBehindThePlanIsToldAndNothingWritten();
    void toolsMenuShowsThePlan();
    void toolsMenuEntryFollowsTheTransferButton();
    void memoryIsBroughtInLine();
    void declinedRemovalGoesBackToThePlan();
    void rememberedTickReadsBackWithoutAPlan();

private:
    using Plan = std::function<void(const PlanWindow &)>;

    bool answerPlan(QWidget *modal);
    static void removeTheOthers(const PlanWindow &plan);
    void choose(const QStringList &files);
    void transfer(const Plan &plan = {});
    void showPlan(const Plan &plan);
    QStringList twoOfOneName() const;

    std::unique_ptr<MountedCard> m_card;
    std::unique_ptr<WindowUnderTest> m_window;
    std::unique_ptr<UserDriver> m_user;
    Plan m_plan;
    int m_plans = 0;         ///< that were seen
    QStringList m_questions; ///< of the dialog with four answers
    QStringList m_details;   ///< of the message boxes
};

void TestPlanBeforeTransfer::init()
{
    AppFixture::init();
    m_card = std::make_unique<MountedCard>();
    QVERIFY(QDir().mkdir(m_card->path(s("pop"))));
    m_window = std::make_unique<WindowUnderTest>();
    m_plan = {};
    m_plans = 0;
    m_questions.clear();
    m_details.clear();
    m_user = std::make_unique<UserDriver>();
    m_user->add([this](QWidget *modal) { return answerPlan(modal); });
    m_user->add([this](QWidget *modal) {
        if (qobject_cast<NoCopyrightDialog *>(modal) == nullptr)
            return false;
        m_questions << child<QLabel>(modal, "label_2")->text();
        QTest::mouseClick(child<QPushButton>(modal, "yesAllPushButton"), Qt::LeftButton);
        return true;
    });
    m_user->add([this](QWidget *modal) {
        auto *const box = qobject_cast<QMessageBox *>(modal);
        if (box != nullptr && !box->detailedText().isEmpty())
            m_details << box->detailedText();
        return false;
    });
}

void TestPlanBeforeTransfer::cleanup()
{
    m_user.reset();
    m_window.reset();
    m_card.reset();
    AppFixture::cleanup();
}

bool TestPlanBeforeTransfer::answerPlan(QWidget *modal)
{
    if (qobject_cast<TransferPlanDialog *>(modal) == nullptr)
        return false;
    if (nextStep(modal) == 0) {
        ++m_plans;
        if (m_plan)
            m_plan(PlanWindow(modal));
        else
            PlanWindow::click(PlanWindow(modal).cancel);
    }
    return true;
}

/** All songs of the last group, which are not in the list. */
void TestPlanBeforeTransfer::removeTheOthers(const PlanWindow &plan)
{
    PlanWindow::click(plan.others);
    const int last = static_cast<int>(plan.groups().size()) - 1;
    QVERIFY2(plan.groups().at(last).startsWith(s("Nella memoria, ma non nell'elenco: 1 |")),
             qPrintable(plan.groups().at(last)));
    plan.select(plan.group(last));
    QVERIFY(plan.choose(s("Rimuovi dalla memoria")));
    clickLater(plan.carryOut);
}

void TestPlanBeforeTransfer::choose(const QStringList &files)
{
    m_user->pick(files);
    QTest::mouseClick(m_window->selectButton(), Qt::LeftButton);
    QVERIFY(m_window->transferButton()->isEnabled());
}

void TestPlanBeforeTransfer::transfer(const Plan &plan)
{
    m_plan = plan;
    m_user->pick({m_card->path(s("pop"))});
    QTest::mouseClick(m_window->transferButton(), Qt::LeftButton);
}

void TestPlanBeforeTransfer::showPlan(const Plan &plan)
{
    m_plan = plan;
    m_user->pick({m_card->path(s("pop"))});
    m_window->action("actionTransferPlan")->trigger();
}

QStringList TestPlanBeforeTransfer::twoOfOneName() const
{
    return {m_card->writeMusic(s("one/same.mid"), MountedCard::midi("ONE")),
            m_card->writeMusic(s("two/same.mid"), MountedCard::midi("TWO"))};
}

void TestPlanBeforeTransfer::noPlanWhereNothingIsLost()
{
    m_card->writeOnCard(s("pop/same.mid"), MountedCard::midi("SAME"));
    m_card->writeOnCard(s("pop/differs.mid"), MountedCard::midi("OLD"));
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    choose({m_card->writeMusic(s("same.mid"), MountedCard::midi("SAME")),
            m_card->writeMusic(s("differs.mid"), MountedCard::midi("NEWER")),
            m_card->writeMusic(s("new.mid"), MountedCard::midi("NEW"))});
    transfer();
    QCOMPARE(m_plans, 0);
    QCOMPARE(m_questions, QStringList(s("esiste già, vuoi sostituirlo?")));
    QCOMPARE(m_user->messages(), QStringList({successText, countsText(3, 0, 0)}));
    QCOMPARE(m_card->indexedPaths().size(), 3);
}

void TestPlanBeforeTransfer::equalNamesOpenThePlan()
{
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    choose(twoOfOneName());
    transfer([](const PlanWindow &plan) { PlanWindow::click(plan.carryOut); });
    QCOMPARE(m_plans, 1);
    QCOMPARE(m_questions, QStringList());
    QCOMPARE(m_card->read(s("pop/same.mid")), MountedCard::midi("ONE"));
    QCOMPARE(m_card->read(s("pop/same-1.mid")), MountedCard::midi("TWO"));
    QCOMPARE(m_card->indexedPaths().size(), 2);
    QCOMPARE(m_user->messages(),
             QStringList({s("Trasferimento: Il piano è stato eseguito"),
                          s("Trasferimento: Song copiate: 2\nSong già presenti: 0\nSong saltate: "
                            "0\nSong rimosse: 0\nErrori: 0")}));
    QVERIFY(!m_window->updateButton()->isEnabled()); // as after any transfer
    QVERIFY(m_window->transferButton()->isEnabled());
}

void TestPlanBeforeTransfer::shortenedSongsAreNotCopiedTwice()
{
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    choose({m_card->writeMusic(s("My Long Song Name.mid"), MountedCard::midi("LONG"))});
    transfer();
    QCOMPARE(m_plans, 0);
    QCOMPARE(m_card->indexedPaths(), QStringList(s("/pop/MyLong-1.mid")));
    transfer([](const PlanWindow &plan) {
        QVERIFY(plan.intro->text().contains(s("con un nome accorciato")));
        PlanWindow::click(plan.carryOut);
    });
    QCOMPARE(m_plans, 1);
    QCOMPARE(m_card->indexedPaths(), QStringList(s("/pop/MyLong-1.mid")));
    QVERIFY(m_user->messages().last().contains(s("Song già presenti: 1")));
}

void TestPlanBeforeTransfer::tooLittleRoomOpensThePlan()
{
    const SmallMemory small(m_card->root(), 0, "size=500k");
    if (!small.isMounted())
        QSKIP("only root may mount a file system");
    QVERIFY(QDir().mkdir(m_card->path(s("pop"))));
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    QStringList files;
    for (int i = 0; i < 3; ++i)
        files << m_card->writeMusic(s("song%1.mid").arg(i), largeSong(i));
    choose(files);
    transfer([](const PlanWindow &plan) {
        QVERIFY(!plan.carryOut->isEnabled());
        QVERIFY(plan.state->text().startsWith(s("Lo spazio libero non basta: mancano")));
        plan.tree->expandAll();
        plan.select(plan.song(0, 1));
        QVERIFY(plan.choose(s("Salta")));
        QVERIFY(plan.carryOut->isEnabled());
        PlanWindow::click(plan.carryOut);
    });
    QCOMPARE(m_plans, 1);
    QCOMPARE(m_card->indexedPaths(), QStringList({s("/pop/song0.mid"), s("/pop/song2.mid")}));
    QCOMPARE(m_details, QStringList(s("song1.mid: saltata come scelto nel piano")));
}

void TestPlanBeforeTransfer::copyWithoutThePlanGoesAsAlways()
{
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    choose(twoOfOneName());
    transfer([](const PlanWindow &plan) { PlanWindow::click(plan.asAlways); });
    QCOMPARE(m_plans, 1);
    QCOMPARE(m_questions, QStringList(s("esiste già, vuoi sostituirlo?")));
    QCOMPARE(m_card->read(s("pop/same.mid")), MountedCard::midi("TWO"));
    QCOMPARE(m_user->messages(), QStringList({successText, countsText(1, 1, 0)}));
    QCOMPARE(m_details,
             QStringList(s("one/same.mid: sostituita da un'altra song scelta con lo stesso nome")));
}

void TestPlanBeforeTransfer::cancelledPlanTouchesNothing()
{
    choose(twoOfOneName());
    QVERIFY(m_window->updateButton()->isEnabled());
    transfer([](const PlanWindow &plan) { PlanWindow::click(plan.cancel); });
    QCOMPARE(m_plans, 1);
    QCOMPARE(QDir(m_card->root()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList(s("pop")));
    QVERIFY(QDir(m_card->path(s("pop"))).isEmpty());
    QVERIFY(m_window->updateButton()->isEnabled());
    QVERIFY(m_window->transferButton()->isEnabled());
}

void TestPlanBeforeTransfer::skippedSongsAreNamedWithTheReason()
{
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    QStringList files = twoOfOneName();
    files << m_card->writeMusic(s("gone.mid"), MountedCard::midi("GONE"));
    choose(files);
    QVERIFY(QFile::remove(files.last()));
    transfer([](const PlanWindow &plan) {
        plan.select(plan.group(0));
        QVERIFY(plan.choose(s("Salta")));
        PlanWindow::click(plan.carryOut);
    });
    QCOMPARE(m_details,
             QStringList(s("gone.mid: il file non c'è più\n"
                           "two/same.mid: un'altra song dell'elenco ha lo stesso nome")));
    QVERIFY(m_user->messages().last().contains(s("Song saltate: 1\n")));
    QVERIFY(m_user->messages().last().contains(s("Errori: 1")));
}

void TestPlanBeforeTransfer::stoppedComparisonTouchesNothing()
{
    choose(twoOfOneName());
    int stops = 0;
    m_user->add([&stops](QWidget *modal) {
        auto *const progress = qobject_cast<QProgressDialog *>(modal);
        if (progress != nullptr && stops++ == 0)
            QTest::mouseClick(progress->findChild<QPushButton *>(), Qt::LeftButton);
        return progress != nullptr;
    });
    QStringList many;
    for (int i = 0; i < 400; ++i) {
        const QString name = s("m%1.mid").arg(i);
        many << m_card->writeMusic(name, largeSong(i));
        m_card->writeOnCard(s("pop/") + name, largeSong(i + 1));
    }
    m_window->setSelectedFiles(many);
    showPlan({});
    QCOMPARE(stops > 0, true);
    QCOMPARE(m_plans, 0);
    QVERIFY(!m_card->hasIndex());
    QVERIFY(m_window->transferButton()->isEnabled());
    QVERIFY(m_window->action("actionTransferPlan")->isEnabled());
}

void TestPlanBeforeTransfer::memoryThatVanishesBehindThePlanIsToldAndNothingWritten()
{
    const QString elsewhere = m_card->root() + s("-pulled");
    choose(twoOfOneName());
    transfer([&](const PlanWindow &plan) {
        QVERIFY(QDir().rename(m_card->root(), elsewhere));
        PlanWindow::click(plan.carryOut);
        QCOMPARE(plan.state->text(), s("La memoria non c'è più. È stata estratta?"));
        PlanWindow::click(plan.cancel);
    });
    QCOMPARE(m_plans, 1);
    QVERIFY(!QFileInfo::exists(m_card->root()));
    QVERIFY(QDir(elsewhere + s("/pop")).isEmpty());
    QVERIFY(QDir().rename(elsewhere, m_card->root()));
}

void TestPlanBeforeTransfer::toolsMenuShowsThePlan()
{
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    choose({m_card->writeMusic(s("new.mid"), MountedCard::midi("NEW"))});
    showPlan([](const PlanWindow &plan) {
        QCOMPARE(plan.groups().size(), 1);
        QVERIFY(plan.groups().first().startsWith(s("Nuove: 1 | Copia | ")));
        PlanWindow::click(plan.cancel);
    });
    QCOMPARE(m_plans, 1);
    QVERIFY(!m_card->hasIndex());
    QVERIFY(m_window->updateButton()->isEnabled());
    showPlan([](const PlanWindow &plan) { PlanWindow::click(plan.carryOut); });
    QCOMPARE(m_plans, 2);
    QCOMPARE(m_card->indexedPaths(), QStringList(s("/pop/new.mid")));
    QVERIFY(!m_window->updateButton()->isEnabled());

    // A folder that a transfer refuses has no plan.
    m_user->pick({m_card->music()});
    m_window->action("actionTransferPlan")->trigger();
    QCOMPARE(m_user->messages().last(), systemDiskText);
    QCOMPARE(m_plans, 2);
}

void TestPlanBeforeTransfer::toolsMenuEntryFollowsTheTransferButton()
{
    const QAction *const entry = m_window->action("actionTransferPlan");
    QVERIFY(!entry->isEnabled());
    choose(twoOfOneName());
    QVERIFY(entry->isEnabled());
    transfer([entry](const PlanWindow &plan) {
        QVERIFY(!entry->isEnabled());
        PlanWindow::click(plan.cancel);
    });
    QCOMPARE(m_plans, 1);
    QVERIFY(entry->isEnabled());
}

void TestPlanBeforeTransfer::memoryIsBroughtInLine()
{
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    choose(twoOfOneName());
    transfer([](const PlanWindow &plan) { PlanWindow::click(plan.carryOut); });
    const QString old = m_card->writeOnCard(s("pop/old.mid"), MountedCard::midi("OLD"));
    m_card->writeOnCard(s("other/stays.mid"), MountedCard::midi("STAYS"));
    QString question;
    m_user = std::make_unique<UserDriver>();
    m_user->add([this](QWidget *modal) { return answerPlan(modal); });
    m_user->add([&question](QWidget *modal) {
        auto *const box = qobject_cast<QMessageBox *>(modal);
        if (box == nullptr || box->button(QMessageBox::Yes) == nullptr)
            return false;
        question = box->text();
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
        return true;
    });
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    showPlan(&removeTheOthers);
    QVERIFY(question.startsWith(s("Song da rimuovere dalla memoria: 1\n")));
    QVERIFY(question.endsWith(s("/pop/old.mid")));
    QVERIFY(!QFileInfo::exists(old));
    QStringList indexed = m_card->indexedPaths();
    indexed.sort();
    QCOMPARE(indexed,
             QStringList({s("/other/stays.mid"), s("/pop/same-1.mid"), s("/pop/same.mid")}));
    QVERIFY(m_user->messages().last().contains(s("Song rimosse: 1\n")));
}

void TestPlanBeforeTransfer::declinedRemovalGoesBackToThePlan()
{
    const QString old = m_card->writeOnCard(s("pop/old.mid"), MountedCard::midi("OLD"));
    choose(twoOfOneName());
    int questions = 0;
    m_user->add([this, &questions](QWidget *modal) {
        auto *const box = qobject_cast<QMessageBox *>(modal);
        if (box == nullptr)
            return false;
        ++questions;
        m_plan = [](const PlanWindow &plan) { PlanWindow::click(plan.cancel); };
        box->parentWidget()->setProperty("step", 0);
        QTest::keyClick(box, Qt::Key_Escape);
        return true;
    });
    showPlan(&removeTheOthers);
    QCOMPARE(m_plans, 2); // the same one, before and after the question
    QCOMPARE(questions, 1);
    QVERIFY(QFileInfo::exists(old));
    QVERIFY(!m_card->hasIndex());
}

void TestPlanBeforeTransfer::rememberedTickReadsBackWithoutAPlan()
{
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    choose({m_card->writeMusic(s("new.mid"), MountedCard::midi("NEW"))});
    showPlan([](const PlanWindow &plan) {
        QVERIFY(!plan.readBack->isChecked());
        PlanWindow::click(plan.readBack);
        PlanWindow::click(plan.cancel);
    });
    bool isTicked = false;
    showPlan([&isTicked](const PlanWindow &plan) {
        isTicked = plan.readBack->isChecked();
        PlanWindow::click(plan.cancel);
    });
    QVERIFY(isTicked);
    transfer();
    QCOMPARE(m_plans, 2);
    QCOMPARE(m_user->messages(), QStringList({successText, countsText(1, 0, 0)}));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestPlanBeforeTransfer>(argc, argv);
}

#include "test_planbeforetransfer.moc"
