// What the tests of whole windows share: settings and a working folder of their own, and the
// program around the test.
#pragma once

#include "support/ownfolders.h"

#include <QApplication>
#include <QObject>
#include <QTest>

#include <memory>

/** Empty settings and an empty working folder for each test. */
class AppFixture : public QObject
{
protected:
    void init()
    {
        OwnSettings::clear();
        m_work = std::make_unique<OwnWorkingFolder>();
    }
    void cleanup() { m_work.reset(); }

    std::unique_ptr<OwnWorkingFolder> m_work;
};

/** Runs the tests of the class in an application with settings of its own and Qt's file dialogs. */
template <typename Test>
int runAppTest(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}
