// The judge of the memories that tests leave behind: check_memory.py, which is started only once.
#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTest>

#include <memory>

class MemoryChecker
{
public:
    /**
     * What the checker finds wrong with the index of the memory at root; empty when it is
     * consistent, otherwise its exit status ("exit 1: ") and its lines.
     */
    static QString faultsAt(const QString &root, const QStringList &options = {})
    {
        std::unique_ptr<QProcess> &checker = process();
        if (checker == nullptr && !start(checker))
            return QStringLiteral("the checker does not run");
        checker->write((options + QStringList{root}).join(QLatin1Char('\t')).toUtf8() + '\n');
        QString output;
        while (checker->canReadLine() || checker->waitForReadyRead()) {
            while (checker->canReadLine()) {
                const QString line = QString::fromUtf8(checker->readLine());
                if (!line.startsWith(QLatin1String("exit ")))
                    output += line;
                else if (line == QLatin1String("exit 0\n"))
                    return {};
                else
                    return line.trimmed() + QLatin1String(": ") + output;
            }
        }
        return QStringLiteral("the checker died: ") + output;
    }

    /** Fails the running test when the index that it leaves on a memory is not consistent. */
    static void judgeLeftBehind(const QString &root, const QStringList &options = {})
    {
        if (QTest::currentTestFailed())
            return;
        const QString found = faultsAt(root, options);
        if (!found.isEmpty() && !found.startsWith(QLatin1String("exit 2")))
            QTest::qFail(qPrintable(QStringLiteral("the memory is left with ") + found), __FILE__,
                         __LINE__);
    }

private:
    static std::unique_ptr<QProcess> &process()
    {
        static std::unique_ptr<QProcess> checker;
        return checker;
    }

    static bool start(std::unique_ptr<QProcess> &checker)
    {
        checker = std::make_unique<QProcess>();
        checker->setProcessChannelMode(QProcess::MergedChannels);
        checker->start(QStringLiteral("python3"),
                       {QStringLiteral("-S"), QFINDTESTDATA("tools/check_memory.py"),
                        QStringLiteral("--serve")});
        // It must be gone before the application is.
        qAddPostRoutine([] {
            process()->closeWriteChannel();
            process()->waitForFinished();
            process().reset();
        });
        return checker->waitForStarted();
    }
};
