// A memory is made ready to be unplugged, and is called so only when the system said it.
#include "devindex/diskutilejector.h"
#include "devindex/eject.h"
#include "devindex/udisksejector.h"
#include "storage/memorylock.h"
#include "support/logcapture.h"
#include "support/privatebus.h"
#include "support/smallmemory.h"

#include <QTest>

#include <optional>

using Outcome = Ejector::Outcome;

namespace
{

const QString mountPoint = QStringLiteral("/media/someone/CARD è");

/** Answers as it is told, and notes what it was asked. */
class FakeEjector : public Ejector
{
public:
    explicit FakeEjector(Outcome outcome)
        : m_outcome(outcome)
    {
    }

    bool isAvailable() const override { return true; }
    Result eject(const QString &place) override
    {
        asked = place;
        return {m_outcome, QStringLiteral("the words of the system")};
    }

    QString asked;

private:
    const Outcome m_outcome;
};

} // namespace

class TestEject : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_log.emplace();
        qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(QDir::tempPath()));
    }
    void cleanup()
    {
        m_bus.stopService();
        qunsetenv("KAVENA_MOUNT_DIRS");
        m_log.reset();
    }

    void driveIsPoweredOffAfterTheUnmount();
    void driveThatCannotBePoweredOffIsEjected();
    void memoryWithoutSuchADriveIsOnlyUnmounted_data();
    void memoryWithoutSuchADriveIsOnlyUnmounted();
    void refusedUnmountLeavesTheDriveOn_data();
    void refusedUnmountLeavesTheDriveOn();
    void driveThatStaysOnIsNoSuccess();
    void folderThatIsNotMountedIsNoDevice();
    void withoutServiceNothingIsDone();

    void toolOfTheOtherSystem_data();
    void toolOfTheOtherSystem();
    void toolThatIsMissing();

    void onlyAYesOfTheSystemIsSuccess_data();
    void onlyAYesOfTheSystemIsSuccess();
    void folderThatIsNoMemoryIsRefused_data();
    void folderThatIsNoMemoryIsRefused();
    void mountPointElsewhereIsRefused();
    void memoryThatIsWrittenToIsRefused();
    void programThatKeepsTheMemoryIsNamed();

private:
    bool start(QJsonObject parameters)
    {
        parameters.insert(QStringLiteral("mountpoint"), mountPoint);
        return m_bus.startService(QFINDTESTDATA("support/mockudisks.py"), parameters, [] {
            return UdisksEjector().eject(QStringLiteral("/nowhere")).outcome == Outcome::NoDevice;
        });
    }

    PrivateBus m_bus;
    std::optional<LogCapture> m_log;
};

void TestEject::driveIsPoweredOffAfterTheUnmount()
{
    QVERIFY(start({{QStringLiteral("can_power_off"), true}, {QStringLiteral("ejectable"), true}}));
    QCOMPARE(UdisksEjector().eject(mountPoint).outcome, Outcome::Ejected);
    QCOMPARE(m_bus.calls(), QStringList({QStringLiteral("Unmount"), QStringLiteral("PowerOff")}));
}

void TestEject::driveThatCannotBePoweredOffIsEjected()
{
    QVERIFY(start({{QStringLiteral("ejectable"), true}}));
    QVERIFY(UdisksEjector().isAvailable());
    QCOMPARE(UdisksEjector().eject(mountPoint).outcome, Outcome::Ejected);
    QCOMPARE(m_bus.calls(), QStringList({QStringLiteral("Unmount"), QStringLiteral("Eject")}));
}

void TestEject::memoryWithoutSuchADriveIsOnlyUnmounted_data()
{
    QTest::addColumn<bool>("drive");
    QTest::newRow("a drive that can do neither") << true;
    QTest::newRow("no drive") << false;
}

void TestEject::memoryWithoutSuchADriveIsOnlyUnmounted()
{
    QFETCH(bool, drive);
    QVERIFY(start({{QStringLiteral("drive"), drive}}));
    QCOMPARE(UdisksEjector().eject(mountPoint).outcome, Outcome::Ejected);
    QCOMPARE(m_bus.calls(), QStringList(QStringLiteral("Unmount")));
}

void TestEject::refusedUnmountLeavesTheDriveOn_data()
{
    QTest::addColumn<QString>("error");
    QTest::addColumn<int>("outcome");
    const QString error = QStringLiteral("org.freedesktop.UDisks2.Error.");
    QTest::newRow("busy") << error + QStringLiteral("DeviceBusy") << int(Outcome::Busy);
    QTest::newRow("not permitted")
        << error + QStringLiteral("NotAuthorized") << int(Outcome::NotPermitted);
    QTest::newRow("password refused")
        << error + QStringLiteral("NotAuthorizedDismissed") << int(Outcome::NotPermitted);
    QTest::newRow("something else") << error + QStringLiteral("Failed") << int(Outcome::Failed);
}

void TestEject::refusedUnmountLeavesTheDriveOn()
{
    QFETCH(QString, error);
    QFETCH(int, outcome);
    QVERIFY(start({{QStringLiteral("can_power_off"), true}, {QStringLiteral("unmount"), error}}));
    const Ejector::Result result = UdisksEjector().eject(mountPoint);
    QCOMPARE(int(result.outcome), outcome);
    QCOMPARE(result.text, QStringLiteral("the words of the service"));
    QCOMPARE(m_bus.calls(), QStringList(QStringLiteral("Unmount")));
}

void TestEject::driveThatStaysOnIsNoSuccess()
{
    QVERIFY(
        start({{QStringLiteral("can_power_off"), true},
               {QStringLiteral("off"), QStringLiteral("org.freedesktop.UDisks2.Error.Failed")}}));
    const Ejector::Result result = UdisksEjector().eject(mountPoint);
    QCOMPARE(result.outcome, Outcome::StillOn);
    QCOMPARE(result.text, QStringLiteral("the words of the service"));
}

void TestEject::folderThatIsNotMountedIsNoDevice()
{
    QVERIFY(start({{QStringLiteral("can_power_off"), true}}));
    QCOMPARE(UdisksEjector().eject(mountPoint + QStringLiteral("/songs")).outcome,
             Outcome::NoDevice);
    QCOMPARE(m_bus.calls(), QStringList());
}

void TestEject::withoutServiceNothingIsDone()
{
    QVERIFY(!UdisksEjector().isAvailable());
    QCOMPARE(UdisksEjector().eject(mountPoint).outcome, Outcome::NoService);
}

void TestEject::toolOfTheOtherSystem_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<int>("outcome");
    QTest::newRow("yes") << QByteArray("echo Disk $2 ejected") << int(Outcome::Ejected);
    QTest::newRow("dissented") << QByteArray("echo Unmount was dissented by PID 7 >&2; exit 1")
                               << int(Outcome::Busy);
    QTest::newRow("no") << QByteArray("echo Volume failed to eject; exit 1")
                        << int(Outcome::Failed);
    QTest::newRow("killed") << QByteArray("kill -9 $$") << int(Outcome::Failed);
    QTest::newRow("asked for the memory")
        << QByteArray("test \"$1\" = eject && test \"$2\" = '") + mountPoint.toUtf8() + "'"
        << int(Outcome::Ejected);
}

void TestEject::toolOfTheOtherSystem()
{
    QFETCH(QByteArray, script);
    QFETCH(int, outcome);
    const QTemporaryDir folder;
    QFile tool(folder.filePath(QStringLiteral("tool")));
    QVERIFY(tool.open(QFile::WriteOnly) && tool.write("#!/bin/sh\n" + script + '\n') > 0);
    tool.close();
    QVERIFY(tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QCOMPARE(int(DiskutilEjector(tool.fileName()).eject(mountPoint).outcome), outcome);
}

void TestEject::toolThatIsMissing()
{
    QVERIFY(!DiskutilEjector(QStringLiteral("/no/such/tool")).isAvailable());
    QVERIFY(DiskutilEjector(QStringLiteral("sh")).isAvailable());
    QCOMPARE(DiskutilEjector(QStringLiteral("/no/such/tool")).eject(mountPoint).outcome,
             Outcome::NoService);
}

void TestEject::onlyAYesOfTheSystemIsSuccess_data()
{
    QTest::addColumn<int>("outcome");
    QTest::addColumn<bool>("isEjected");
    QTest::newRow("yes") << int(Outcome::Ejected) << true;
    QTest::newRow("no service") << int(Outcome::NoService) << false;
    QTest::newRow("no device") << int(Outcome::NoDevice) << false;
    QTest::newRow("not permitted") << int(Outcome::NotPermitted) << false;
    QTest::newRow("busy") << int(Outcome::Busy) << false;
    QTest::newRow("still on") << int(Outcome::StillOn) << false;
    QTest::newRow("failed") << int(Outcome::Failed) << false;
}

void TestEject::onlyAYesOfTheSystemIsSuccess()
{
    QFETCH(int, outcome);
    QFETCH(bool, isEjected);
    const QTemporaryDir folder;
    const SmallMemory memory(folder.path(), 0, "size=64k");
    if (!memory.isMounted())
        QSKIP("needs root");
    FakeEjector ejector{Outcome(outcome)};
    const Eject::Report report = Eject(ejector).run(folder.path() + QLatin1Char('/'));
    QCOMPARE(ejector.asked, folder.path());
    QCOMPARE(report.isEjected, isEjected);
    QVERIFY(!report.text.isEmpty());
    QCOMPARE(report.text.contains(QStringLiteral("the words of the system")), !isEjected);
    QVERIFY(!QFileInfo::exists(folder.filePath(MemoryLock::fileName())));
}

void TestEject::folderThatIsNoMemoryIsRefused_data()
{
    QTest::addColumn<QString>("folder");
    QTest::newRow("system disk") << QStringLiteral("/");
    QTest::newRow("any folder") << QDir::tempPath();
    QTest::newRow("file system of the computer") << QStringLiteral("/proc");
    QTest::newRow("no folder") << QStringLiteral("/no/such/folder");
    QTest::newRow("nothing") << QString();
}

void TestEject::folderThatIsNoMemoryIsRefused()
{
    QFETCH(QString, folder);
    const QTemporaryDir inside;
    if (folder == QDir::tempPath())
        folder = inside.path();
    FakeEjector ejector{Outcome::Ejected};
    const Eject::Report report = Eject(ejector).run(folder);
    QVERIFY(!report.isEjected && !report.text.isEmpty());
    QVERIFY(ejector.asked.isNull());
}

void TestEject::mountPointElsewhereIsRefused()
{
    const QTemporaryDir folder;
    const SmallMemory memory(folder.path(), 0, "size=64k");
    if (!memory.isMounted())
        QSKIP("needs root");
    const QTemporaryDir links;
    const QString link = links.filePath(QStringLiteral("CARD"));
    QVERIFY(QFile::link(folder.path(), link));
    qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(links.path()));
    for (const QString &path : {folder.path(), link}) {
        FakeEjector ejector{Outcome::Ejected};
        const Eject::Report report = Eject(ejector).run(path);
        QVERIFY2(!report.isEjected && !report.text.isEmpty(), qPrintable(path));
        QVERIFY(ejector.asked.isNull());
    }
}

void TestEject::memoryThatIsWrittenToIsRefused()
{
    const QTemporaryDir folder;
    const SmallMemory memory(folder.path(), 0, "size=64k");
    if (!memory.isMounted())
        QSKIP("needs root");
    MemoryLock lock(folder.path());
    QVERIFY(lock.take());
    FakeEjector ejector{Outcome::Ejected};
    QVERIFY(!Eject(ejector).run(folder.path()).isEjected);
    QVERIFY(ejector.asked.isNull());
}

void TestEject::programThatKeepsTheMemoryIsNamed()
{
    const QTemporaryDir folder;
    QVERIFY(programsUsing(folder.path()).isEmpty());
    QProcess program;
    program.setWorkingDirectory(folder.path());
    program.start(QStringLiteral("sleep"), {QStringLiteral("100")});
    QVERIFY(program.waitForStarted());
    QTRY_COMPARE(programsUsing(folder.path()),
                 QStringList(QStringLiteral("sleep (%1)").arg(program.processId())));
    program.kill();
    program.waitForFinished();
    QFile open(folder.filePath(QStringLiteral("song.mid")));
    QVERIFY(open.open(QFile::WriteOnly));
    QCOMPARE(programsUsing(folder.path()).size(), 1);
    QVERIFY(programsUsing(folder.path() + QStringLiteral("/song")).isEmpty());
}

QTEST_GUILESS_MAIN(TestEject)
#include "test_eject.moc"
