// A dialog whose work is done gives the keyboard back.
#include "windows/acceptafterwork.h"

#include <QApplication>
#include <QDialog>
#include <QTest>

class TestAcceptAfterWork : public QObject
{
    Q_OBJECT

private slots:
    void parentHasTheKeyboardAgain();
    void dialogWithoutAParentIsAccepted();
};

void TestAcceptAfterWork::parentHasTheKeyboardAgain()
{
    QWidget parent;
    parent.show();
    QVERIFY(QTest::qWaitForWindowActive(&parent));
    QDialog dialog(&parent);
    dialog.open();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    // Stands for a window manager that gives the keyboard to another window of the program.
    QWidget other;
    other.show();
    QVERIFY(QTest::qWaitForWindowActive(&other));
    acceptAfterWork(dialog);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
    QTRY_VERIFY(parent.isActiveWindow());
}

void TestAcceptAfterWork::dialogWithoutAParentIsAccepted()
{
    QDialog dialog;
    dialog.open();
    acceptAfterWork(dialog);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
}

QTEST_MAIN(TestAcceptAfterWork)
#include "test_acceptafterwork.moc"
