#include "app/messagehandler.h"

#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <QMessageLogContext>
#include <QString>

#include <cstdlib>

namespace
{

/** What stands between time stamp and message; nullptr for a level that is not logged. */
const char *levelTag(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return "D| ";
    case QtWarningMsg:
        return "W| ";
    case QtCriticalMsg:
        return "C| ";
    case QtFatalMsg:
        return "F| ";
    default:
        return nullptr;
    }
}

// The file is opened for each message, so that nothing is lost when the program dies.
void appendToLog(const char *tag, const char *msg)
{
    QFile log(QStringLiteral("log.txt"));
    if (!log.open(QIODevice::WriteOnly | QIODevice::Append))
        return;
    QByteArray line =
        QDateTime::currentDateTime().toString(QStringLiteral("[dd-MM-yyyy hh:mm:ss]")).toLatin1();
    line += tag;
    line += msg;
    line += '\n';
    log.write(line);
}

void writeToLog(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    myMessageOutput(type, text.toLocal8Bit().constData());
}

void discard(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    dummyMessageOutput(type, text.toLocal8Bit().constData());
}

} // namespace

void myMessageOutput(QtMsgType type, const char *msg)
{
    const char *const tag = levelTag(type);
    if (tag == nullptr)
        return;
    appendToLog(tag, msg);
    if (type == QtFatalMsg)
        std::abort();
}

void dummyMessageOutput(QtMsgType type, const char *)
{
    if (type == QtFatalMsg)
        std::abort();
}

void installLogHandler()
{
    qInstallMessageHandler(&writeToLog);
}

void installSilentHandler()
{
    qInstallMessageHandler(&discard);
}
