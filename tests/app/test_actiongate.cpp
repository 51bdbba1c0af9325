// What starts work is disabled while other work runs, and then is as its workflow wants it.
#include "app/actiongate.h"
#include "windows/busystate.h"

#include <QAction>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace
{

struct Window {
    Window()
    {
        auto *const layout = new QVBoxLayout(&widget);
        for (QPushButton *const button : {&first, &second, &other})
            layout->addWidget(button);
        gate.add(&action);
        gate.add(&first);
        gate.add(&second);
    }

    QWidget widget;
    BusyState busy;
    ActionGate gate{&widget, busy};
    QAction action;
    QPushButton first{&widget};
    QPushButton second{&widget};
    QPushButton other{&widget}; ///< not added
};

} // namespace

class TestActionGate : public QObject
{
    Q_OBJECT

private slots:
    void allAreDisabledUntilTheLastWorkEnds();
    void whatWasDisabledStaysSo();
    void wishDuringWorkIsGrantedAtItsEnd();
    void wishWithoutWorkIsGrantedAtOnce();
    void focusComesBackToItsButton();
    void focusStaysWhereTheUserPutIt();
};

void TestActionGate::allAreDisabledUntilTheLastWorkEnds()
{
    Window window;
    {
        const BusyGuard outer(window.busy);
        {
            const BusyGuard inner(window.busy);
            QVERIFY(!window.action.isEnabled());
        }
        QVERIFY(!window.action.isEnabled());
        QVERIFY(!window.first.isEnabled());
        QVERIFY(window.other.isEnabled());
        QVERIFY(window.gate.isWanted(&window.first));
    }
    QVERIFY(window.action.isEnabled());
    QVERIFY(window.first.isEnabled());
}

void TestActionGate::whatWasDisabledStaysSo()
{
    Window window;
    window.first.setEnabled(false);
    {
        const BusyGuard guard(window.busy);
        QVERIFY(!window.gate.isWanted(&window.first));
    }
    QVERIFY(!window.first.isEnabled());
    QVERIFY(window.second.isEnabled());
}

void TestActionGate::wishDuringWorkIsGrantedAtItsEnd()
{
    Window window;
    window.first.setEnabled(false);
    {
        const BusyGuard guard(window.busy);
        window.gate.setWanted(&window.first, true);
        window.gate.setWanted(&window.action, false);
        QVERIFY(!window.first.isEnabled());
    }
    QVERIFY(window.first.isEnabled());
    QVERIFY(!window.action.isEnabled());
}

void TestActionGate::wishWithoutWorkIsGrantedAtOnce()
{
    Window window;
    window.gate.setWanted(&window.first, false);
    QVERIFY(!window.first.isEnabled());
    window.gate.setWanted(&window.first, true);
    QVERIFY(window.first.isEnabled());
}

void TestActionGate::focusComesBackToItsButton()
{
    Window window;
    window.widget.show();
    window.second.setFocus();
    QCOMPARE(window.widget.focusWidget(), &window.second);
    {
        const BusyGuard guard(window.busy);
        QVERIFY(window.widget.focusWidget() != &window.second);
    }
    QCOMPARE(window.widget.focusWidget(), &window.second);
}

void TestActionGate::focusStaysWhereTheUserPutIt()
{
    Window window;
    QPushButton chosen(&window.widget);
    window.widget.layout()->addWidget(&chosen);
    window.widget.show();
    window.second.setFocus();
    {
        const BusyGuard guard(window.busy);
        chosen.setFocus();
    }
    QCOMPARE(window.widget.focusWidget(), &chosen);
}

QTEST_MAIN(TestActionGate)
#include "test_actiongate.moc"
