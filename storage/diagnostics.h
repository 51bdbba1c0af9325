// The stream through which every layer writes its diagnostic lines.
#pragma once

#include <QString>
#include <QtGlobal>

/**
 * Collects one diagnostic line and hands it to the installed message handler when it goes out of
 * scope.
 *
 * A blank follows every item, the last one too. Labels (const char *, UTF-8) stand as they are;
 * a QString stands in double quotes, with nothing inside it escaped, so that a path in the log can
 * be copied as it is. The lines have a category of their own, which the QT_LOGGING_RULES of a
 * user's desktop do not switch off.
 */
class DiagnosticLine
{
public:
    explicit DiagnosticLine(QtMsgType type);
    ~DiagnosticLine();
    Q_DISABLE_COPY_MOVE(DiagnosticLine)

    DiagnosticLine &operator<<(const char *label);
    DiagnosticLine &operator<<(const QString &text);
    DiagnosticLine &operator<<(bool value);
    DiagnosticLine &operator<<(qint32 value);
    DiagnosticLine &operator<<(quint32 value);
    DiagnosticLine &operator<<(qint64 value);
    DiagnosticLine &operator<<(quint64 value);
    DiagnosticLine &operator<<(const void *) = delete; // a pointer would be printed as a bool

private:
    void append(const QString &item);

    QtMsgType m_type;
    QString m_line;
};

/** A line of the level "debug". */
inline DiagnosticLine logDebug()
{
    return DiagnosticLine(QtDebugMsg);
}

/** A line of the level "warning". */
inline DiagnosticLine logWarning()
{
    return DiagnosticLine(QtWarningMsg);
}
