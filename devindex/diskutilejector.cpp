#include "devindex/diskutilejector.h"

#include "storage/diagnostics.h"

#include <QProcess>
#include <QStandardPaths>

#include <utility>

DiskutilEjector::DiskutilEjector(QString program)
    : m_program(std::move(program))
{
}

bool DiskutilEjector::isAvailable() const
{
    return !QStandardPaths::findExecutable(m_program).isEmpty();
}

Ejector::Result DiskutilEjector::eject(const QString &mountPoint)
{
    QProcess tool;
    tool.setProcessChannelMode(QProcess::MergedChannels);
    tool.start(m_program, {QStringLiteral("eject"), mountPoint}, QIODevice::ReadOnly);
    if (!tool.waitForStarted())
        return {Outcome::NoService, tool.errorString()};
    constexpr int waitForEver = -1; // until the memory has taken its last bytes
    tool.waitForFinished(waitForEver);
    const QString text = QString::fromUtf8(tool.readAll()).trimmed();
    if (tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 0)
        return {Outcome::Ejected, {}};
    logWarning() << "[DiskutilEjector::eject]" << text;
    // The tool tells by its words alone that a program keeps the memory.
    const bool isBusy = text.contains(QLatin1String("dissented"), Qt::CaseInsensitive) ||
                        text.contains(QLatin1String("in use"), Qt::CaseInsensitive) ||
                        text.contains(QLatin1String("busy"), Qt::CaseInsensitive);
    return {isBusy ? Outcome::Busy : Outcome::Failed, text};
}
