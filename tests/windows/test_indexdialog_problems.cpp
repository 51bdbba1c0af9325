// What the window that optimises a memory tells about one that is protected.
#include "support/mountedcard.h"
#include "support/smallmemory.h"
#include "support/transferproblems.h"
#include "support/userdriver.h"
#include "windows/indexdialog.h"

#include <QApplication>
#include <QTest>

using namespace transferproblems;

class TestIndexDialogProblems : public ProblemFixture
{
    Q_OBJECT

private slots:
    void init() { ProblemFixture::init(); }
    void cleanup() { ProblemFixture::cleanup(); }

    void memoryDialogTellsAProtectedMemory();
    void memoryDialogTellsOfAFolderWithTheLocksName();
};

void TestIndexDialogProblems::memoryDialogTellsAProtectedMemory()
{
    const SmallMemory memory(m_card->root(), MS_RDONLY, "size=64k");
    if (!memory.isMounted())
        QSKIP("No memory can be mounted here");
    UserDriver user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    IndexDialog dialog;
    dialog.show();
    child<QLineEdit>(&dialog, "lineEditPath")->setText(m_card->root());
    QTest::mouseClick(child<QPushButton>(&dialog, "pushButtonStart"), Qt::LeftButton);
    QCOMPARE(user.messages(), QStringList(QStringLiteral("Ottimizza memoria: ") + protectedText));
}

void TestIndexDialogProblems::memoryDialogTellsOfAFolderWithTheLocksName()
{
    m_card->writeOnCard(QStringLiteral("a.mid"), MountedCard::midi("A"));
    m_card->writeOnCard(QStringLiteral(".kavena-lock/folder"), "in the way");
    UserDriver user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    IndexDialog dialog;
    dialog.show();
    child<QLineEdit>(&dialog, "lineEditPath")->setText(m_card->root());
    auto *const start = child<QPushButton>(&dialog, "pushButtonStart");
    QTest::mouseClick(start, Qt::LeftButton);
    QCOMPARE(user.messages(),
             QStringList(QStringLiteral(
                 "Ottimizza memoria: Nella memoria c'è una cartella \".kavena-lock\": il programma "
                 "ha bisogno di questo nome.\nSpostarla o cancellarla e riprovare.")));
    QVERIFY(start->isEnabled());
    QVERIFY(!m_card->hasIndex());
}

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication app(argc, argv);
    TestIndexDialogProblems test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_indexdialog_problems.moc"
