#include "storage/diagnostics.h"

#include <QMessageLogContext>

DiagnosticLine::DiagnosticLine(QtMsgType type)
    : m_type(type)
{
}

DiagnosticLine::~DiagnosticLine()
{
    qt_message_output(m_type, QMessageLogContext(nullptr, 0, nullptr, "kavena"), m_line);
}

DiagnosticLine &DiagnosticLine::operator<<(const char *label)
{
    append(QString::fromUtf8(label));
    return *this;
}

DiagnosticLine &DiagnosticLine::operator<<(const QString &text)
{
    append(QLatin1Char('"') + text + QLatin1Char('"'));
    return *this;
}

DiagnosticLine &DiagnosticLine::operator<<(bool value)
{
    append(value ? QStringLiteral("true") : QStringLiteral("false"));
    return *this;
}

DiagnosticLine &DiagnosticLine::operator<<(qint32 value)
{
    append(QString::number(value));
    return *this;
}

DiagnosticLine &DiagnosticLine::operator<<(quint32 value)
{
    append(QString::number(value));
    return *this;
}

DiagnosticLine &DiagnosticLine::operator<<(qint64 value)
{
    append(QString::number(value));
    return *this;
}

DiagnosticLine &DiagnosticLine::operator<<(quint64 value)
{
    append(QString::number(value));
    return *this;
}

void DiagnosticLine::append(const QString &item)
{
    m_line += item;
    m_line += QLatin1Char(' ');
}
