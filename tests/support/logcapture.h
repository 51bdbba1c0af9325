// Collects the diagnostic lines that are written while it lives.
#pragma once

#include <QMutex>
#include <QStringList>
#include <QtGlobal>

class LogCapture
{
public:
    LogCapture()
    {
        lines().clear();
        m_previous = qInstallMessageHandler(&LogCapture::handle);
    }
    ~LogCapture() { qInstallMessageHandler(m_previous); }
    Q_DISABLE_COPY_MOVE(LogCapture)

    /** The program's own lines, as they were handed over, trailing blank included. */
    static QStringList &lines()
    {
        static QStringList collected;
        return collected;
    }

    static bool contains(const QString &line) { return lines().contains(line); }

private:
    static void handle(QtMsgType, const QMessageLogContext &context, const QString &text)
    {
        static QMutex mutex; // lines come from several threads
        const QMutexLocker locked(&mutex);
        if (qstrcmp(context.category, "kavena") == 0)
            lines().append(text);
    }

    QtMessageHandler m_previous = nullptr;
};
