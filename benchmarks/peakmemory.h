// The memory that a benchmark took, as Linux counts it.
#pragma once

#include <QFile>

/** The most memory that this process has had since it began or since forgetPeak(), in MB. */
inline double peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        qFatal("Cannot read /proc/self/status");
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.simplified().split(' ').at(1).toDouble() / 1024.0;
    }
    return 0;
}

/** From now on the peak is that of what follows. */
inline void forgetPeak()
{
    QFile references(QStringLiteral("/proc/self/clear_refs"));
    if (!references.open(QIODevice::WriteOnly) || references.write("5") != 1)
        qFatal("Cannot write /proc/self/clear_refs");
}
