// The two message handlers: what they write into the log and when they abort.
#include "app/messagehandler.h"
#include "storage/diagnostics.h"
#include "support/ownfolders.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QProcess>
#include <QRegularExpression>

namespace
{

QByteArray logBytes()
{
    QFile log(QStringLiteral("log.txt"));
    return log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
}

/** Whether the line is a time stamp of the last minute, directly followed by the rest. */
bool isStampedNow(const QByteArray &line, const QByteArray &rest)
{
    const QString text = QString::fromUtf8(line);
    static const QRegularExpression stamp(
        QStringLiteral("^\\[\\d{2}-\\d{2}-\\d{4} \\d{2}:\\d{2}:\\d{2}\\]"));
    const QRegularExpressionMatch match = stamp.match(text);
    if (!match.hasMatch() || text.mid(match.capturedLength()).toUtf8() != rest)
        return false;
    const QDateTime written =
        QDateTime::fromString(match.captured(), QStringLiteral("[dd-MM-yyyy hh:mm:ss]"));
    return qAbs(written.secsTo(QDateTime::currentDateTime())) < 60;
}

/** Runs this program as a child that does nothing but die of a fatal message. */
QProcess::ExitStatus dieIn(const QString &folder, const QString &how)
{
    QProcess child;
    child.setWorkingDirectory(folder);
    child.start(QCoreApplication::applicationFilePath(), {how});
    child.waitForFinished();
    return child.exitStatus();
}

int die(const QByteArray &how)
{
    if (how == "--die-logging")
        installLogHandler();
    else
        installSilentHandler();
    qFatal("the end");
}

/** The handlers alone, without Qt's own abort behind them. */
int dieDirectly(const QByteArray &how)
{
    if (how == "--call-logging")
        myMessageOutput(QtFatalMsg, "the end");
    else
        dummyMessageOutput(QtFatalMsg, "the end");
    return 0;
}

} // namespace

class TestMessageHandler : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_folder.reset(new OwnWorkingFolder); }
    void cleanup()
    {
        qInstallMessageHandler(nullptr);
        m_folder.reset();
    }

    void eachLevelHasItsTag_data();
    void eachLevelHasItsTag();
    void linesAreAppended();
    void otherLevelsAreIgnored();
    void blankAfterEachItemIsKept();
    void textIsWrittenInTheLocalesEncoding();
    void logThatCannotBeOpenedLosesTheMessage();
    void silentHandlerWritesNothing();
    void fatalMessageIsLoggedAndAborts();
    void fatalMessageAbortsWithoutLogToo();
    void handlersThemselvesAbort();
    void fatalMessageAbortsWithoutAWritableLog();

private:
    QScopedPointer<OwnWorkingFolder> m_folder;
};

void TestMessageHandler::eachLevelHasItsTag_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QByteArray>("rest");
    QTest::newRow("debug") << int(QtDebugMsg) << QByteArray("D| abc\n");
    QTest::newRow("warning") << int(QtWarningMsg) << QByteArray("W| abc\n");
    QTest::newRow("critical") << int(QtCriticalMsg) << QByteArray("C| abc\n");
}

void TestMessageHandler::eachLevelHasItsTag()
{
    QFETCH(int, type);
    QFETCH(QByteArray, rest);
    myMessageOutput(static_cast<QtMsgType>(type), "abc");
    QVERIFY2(isStampedNow(logBytes(), rest), logBytes().constData());
}

void TestMessageHandler::linesAreAppended()
{
    myMessageOutput(QtDebugMsg, "one");
    myMessageOutput(QtDebugMsg, "two");
    const QList<QByteArray> lines = logBytes().split('\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY(isStampedNow(lines.at(0), "D| one"));
    QVERIFY(isStampedNow(lines.at(1), "D| two"));
    QVERIFY(lines.at(2).isEmpty());
}

void TestMessageHandler::otherLevelsAreIgnored()
{
    installLogHandler();
    qInfo("abc");
    QVERIFY(!QFile::exists(QStringLiteral("log.txt")));
}

void TestMessageHandler::blankAfterEachItemIsKept()
{
    installLogHandler();
    logWarning() << "Found file:" << QStringLiteral("/a \"b\"/c.mid") << 3;
    QVERIFY2(isStampedNow(logBytes(), "W| Found file: \"/a \"b\"/c.mid\" 3 \n"),
             logBytes().constData());
}

void TestMessageHandler::textIsWrittenInTheLocalesEncoding()
{
    installLogHandler();
    logDebug() << QStringLiteral("città");
    QVERIFY(isStampedNow(logBytes(), "D| \"" + QStringLiteral("città").toLocal8Bit() + "\" \n"));
}

void TestMessageHandler::logThatCannotBeOpenedLosesTheMessage()
{
    QVERIFY(QDir().mkdir(QStringLiteral("log.txt")));
    installLogHandler();
    logDebug() << "abc";
    QVERIFY(QDir(QStringLiteral("log.txt")).isEmpty());
}

void TestMessageHandler::silentHandlerWritesNothing()
{
    installSilentHandler();
    logDebug() << "abc";
    qCritical("abc");
    QVERIFY(QDir().isEmpty());
}

void TestMessageHandler::fatalMessageIsLoggedAndAborts()
{
    QCOMPARE(dieIn(m_folder->path(), QStringLiteral("--die-logging")), QProcess::CrashExit);
    QVERIFY2(isStampedNow(logBytes(), "F| the end\n"), logBytes().constData());
}

void TestMessageHandler::fatalMessageAbortsWithoutLogToo()
{
    QCOMPARE(dieIn(m_folder->path(), QStringLiteral("--die-silently")), QProcess::CrashExit);
    QVERIFY(QDir().isEmpty());
}

void TestMessageHandler::handlersThemselvesAbort()
{
    QCOMPARE(dieIn(m_folder->path(), QStringLiteral("--call-logging")), QProcess::CrashExit);
    QVERIFY2(isStampedNow(logBytes(), "F| the end\n"), logBytes().constData());
    QCOMPARE(dieIn(m_folder->path(), QStringLiteral("--call-silent")), QProcess::CrashExit);
}

void TestMessageHandler::fatalMessageAbortsWithoutAWritableLog()
{
    QVERIFY(QDir().mkdir(QStringLiteral("log.txt")));
    QCOMPARE(dieIn(m_folder->path(), QStringLiteral("--call-logging")), QProcess::CrashExit);
}

int main(int argc, char *argv[])
{
    const QByteArray how = argc == 2 ? argv[1] : "";
    if (how.startsWith("--die-"))
        return die(how);
    if (how.startsWith("--call-"))
        return dieDirectly(how);
    QCoreApplication application(argc, argv);
    TestMessageHandler test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_messagehandler.moc"
