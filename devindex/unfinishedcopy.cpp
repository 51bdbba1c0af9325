#include "devindex/unfinishedcopy.h"

#include "formats/safefile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <atomic>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <csignal>
#include <sys/types.h>
#endif

namespace
{

constexpr QLatin1String suffix("kavena-part");

/** True unless the system says that no program has this number now. */
bool mayBeRunning(qint64 process)
{
#ifdef Q_OS_UNIX
    return ::kill(static_cast<pid_t>(process), 0) == 0 || errno != ESRCH;
#else
    Q_UNUSED(process)
    return true;
#endif
}

/** Names of today hold the program's number before the suffix; older ones do not. */
bool isLeftover(const QFileInfo &info)
{
    if (info.isSymLink())
        return true; // no copy is a link
    if (!info.isFile())
        return false;
    bool isNumber = false;
    const QString maker = info.fileName().section(QLatin1Char('.'), -2, -2);
    const qint64 process = maker.section(QLatin1Char('-'), 0, 0).toInt(&isNumber);
    if (isNumber && process > 0)
        return !mayBeRunning(process);
    QFile file(info.filePath());
    return file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) && holdFile(file);
}

} // namespace

QString unfinishedcopy::pathFor(const QString &target)
{
    static std::atomic<int> count = 0;
    const QByteArray maker = QByteArray::number(QCoreApplication::applicationPid()) + '-' +
                             QByteArray::number(++count) + '.' + suffix.data();
    return hiddenBeside(target, QLatin1String(maker));
}

void unfinishedcopy::removeLeftovers(const QString &folder)
{
    const QFileInfoList found =
        QDir(folder).entryInfoList({QStringLiteral(".*.") + suffix},
                                   QDir::Files | QDir::System | QDir::Hidden | QDir::CaseSensitive);
    for (const QFileInfo &info : found) {
        if (isLeftover(info))
            QFile::remove(info.filePath());
    }
}
