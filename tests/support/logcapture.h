// Collects the diagnostic lines that are written while it lives.
#pragma once

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
        if (qstrcmp(context.category, "kavena") == 0)
            lines().append(text);
    }

    QtMessageHandler m_previous = nullptr;
};
