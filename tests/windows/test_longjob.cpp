// What the desktop is told of long jobs, on a bus of the test's own.
#include "support/privatebus.h"
#include "support/shorttext.h"
#include "windows/backgroundjob.h"
#include "windows/desktopbus.h"
#include "windows/longjob.h"
#include "windows/progresswindow.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QMessageBox>
#include <QTest>

/** The desktop: takes notifications and what programs want to have on the taskbar. */
class Desktop : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    Desktop()
        : m_bus(QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                              s("desktop")))
    {
        if (!m_bus.registerObject(s("/org/freedesktop/Notifications"), this,
                                  QDBusConnection::ExportAllSlots) ||
            !m_bus.registerService(s("org.freedesktop.Notifications")) ||
            !m_bus.connect(QString(), QString(), s("com.canonical.Unity.LauncherEntry"),
                           s("Update"), this, SLOT(takeEntry(QString, QVariantMap))))
            qFatal("no desktop on the bus");
    }

    QStringList told;    ///< "title: text" of each notification
    QStringList taskbar; ///< "program progress", or "program hidden"
    QString program;
    QString entryHint;

public slots:
    uint Notify(const QString &name, uint, const QString &, const QString &title,
                const QString &text, const QStringList &, const QVariantMap &hints, int)
    {
        program = name;
        entryHint = hints.value(s("desktop-entry")).toString();
        told << title + s(": ") + text;
        return 1;
    }

    void takeEntry(const QString &uri, const QVariantMap &properties)
    {
        taskbar << uri + QLatin1Char(' ') +
                       (properties.value(s("progress-visible")).toBool()
                            ? properties.value(s("progress")).toString()
                            : s("hidden"));
    }

private:
    QDBusConnection m_bus;
};

class TestLongJob : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { LongJob::setLongFrom(LongJob::longMilliseconds); }

    void endIsToldByTheNextDialog();
    void endWithoutADialogIsToldWhenItIsOver();
    void questionIsTold();
    void nextPartIsNoEnd();
    void shortJobIsNotTold();
    void nobodyIsToldOfWhatHeSees();
    void markupIsText();
    void taskbarFollowsTheJob();
    void backgroundJobIsToldOnce();
    void nothingHappensWithoutABus();

private:
    /** All that the desktop was told up to now. */
    QStringList told()
    {
        desktopbus::notify(s("mark"), QString());
        QStringList all;
        const bool arrived =
            QTest::qWaitFor([this] { return m_desktop->told.contains(s("mark: ")); }, 20000);
        all = m_desktop->told;
        all.removeAll(s("mark: "));
        m_desktop->told.clear();
        return arrived ? all : QStringList{s("no mark")};
    }

    static void showBox(const QString &text)
    {
        QMessageBox box(QMessageBox::Information, s("Trasferimento"), text, QMessageBox::Ok);
        box.show();
        QCoreApplication::processEvents();
    }

    PrivateBus m_bus;
    std::unique_ptr<Desktop> m_desktop;
};

void TestLongJob::initTestCase()
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", qgetenv("DBUS_SYSTEM_BUS_ADDRESS"));
    QGuiApplication::setDesktopFileName(s("org.kavena.KavenaPC"));
    m_desktop = std::make_unique<Desktop>();
}

void TestLongJob::init()
{
    LongJob::setLongFrom(0);
    QTRY_VERIFY(QApplication::activeWindow() == nullptr);
    m_desktop->told.clear();
    m_desktop->taskbar.clear();
}

void TestLongJob::endIsToldByTheNextDialog()
{
    {
        const LongJob job(s("Copia"));
    }
    QCOMPARE(told(), QStringList());
    showBox(s("Tutti i file sono stati copiati correttamente"));
    showBox(s("Another one"));
    LongJob::isOver();
    QCOMPARE(told(),
             QStringList{s("Trasferimento: Tutti i file sono stati copiati correttamente")});
    QCOMPARE(m_desktop->entryHint, s("org.kavena.KavenaPC"));
    QCOMPARE(m_desktop->program, s("Kavena PC")); // as the main window's title says
}

void TestLongJob::endWithoutADialogIsToldWhenItIsOver()
{
    {
        const LongJob job(s("Lettura file"));
    }
    LongJob::isOver();
    LongJob::isOver();
    QCOMPARE(told(), QStringList{s("Lettura file: Il lavoro è finito")});
}

void TestLongJob::questionIsTold()
{
    {
        const LongJob job(s("Copia"));
    }
    QDialog question;
    question.show();
    QCOMPARE(told(), QStringList{s("Copia: Il programma aspetta una risposta")});
}

void TestLongJob::nextPartIsNoEnd()
{
    QWidget parent;
    {
        const ProgressWindow copying(s("Copia"), s("..."), 10, &parent);
    }
    {
        const ProgressWindow index(s("Aggiornamento"), s("..."), 10, &parent);
        QCOMPARE(told(), QStringList());
    }
    LongJob::isOver();
    QCOMPARE(told(), QStringList{s("Aggiornamento: Il lavoro è finito")});
}

void TestLongJob::shortJobIsNotTold()
{
    LongJob::setLongFrom(LongJob::longMilliseconds);
    {
        const LongJob job(s("Copia"));
    }
    showBox(s("Done"));
    LongJob::isOver();
    QCOMPARE(told(), QStringList());
}

void TestLongJob::nobodyIsToldOfWhatHeSees()
{
    QWidget window;
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    {
        const LongJob job(s("Copia"));
    }
    showBox(s("Done"));
    LongJob::isOver();
    QCOMPARE(told(), QStringList());
}

void TestLongJob::markupIsText()
{
    {
        const LongJob job(s("Copia"));
    }
    showBox(s("<b>bold & bad</b>"));
    QCOMPARE(told(), QStringList{s("Trasferimento: &lt;b&gt;bold &amp; bad&lt;/b&gt;")});
}

void TestLongJob::taskbarFollowsTheJob()
{
    const QString program = s("application://org.kavena.KavenaPC.desktop ");
    {
        QWidget parent;
        ProgressWindow progress(s("Copia"), s("..."), 1000, &parent);
        for (const int done : {250, 251, 500, 1000})
            progress.updateProgress(done);
    }
    told();
    QCOMPARE(m_desktop->taskbar, (QStringList{program + s("0.25"), program + s("0.5"),
                                              program + s("1"), program + s("hidden")}));
    m_desktop->taskbar.clear();
    {
        QWidget parent;
        ProgressWindow unknown(s("Copia"), s("..."), 0, &parent);
        unknown.setValue(3);
    }
    told();
    QCOMPARE(m_desktop->taskbar, QStringList());
}

void TestLongJob::backgroundJobIsToldOnce()
{
    BackgroundJob job;
    int parts = 0;
    job.start([] {},
              [&] {
                  job.start([] {}, [&parts] { parts = 2; });
                  parts = 1;
              });
    QTRY_COMPARE(parts, 2);
    QTRY_VERIFY(!job.isRunning());
    QCOMPARE(told(), QStringList{s("Memoria: Il lavoro è finito")});
}

void TestLongJob::nothingHappensWithoutABus()
{
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    qunsetenv("XDG_RUNTIME_DIR");
    desktopbus::notify(s("Copia"), s("unheard"));
    desktopbus::showProgress(0.5);
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    if (!runtime.isNull())
        qputenv("XDG_RUNTIME_DIR", runtime);
    QCOMPARE(told(), QStringList());
    QCOMPARE(m_desktop->taskbar, QStringList());
}

QTEST_MAIN(TestLongJob)

#include "test_longjob.moc"
