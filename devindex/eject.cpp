#include "devindex/eject.h"

#include "devindex/mountedvolumes.h"
#include "storage/diagnostics.h"
#include "storage/memorylock.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

#ifdef Q_OS_MACOS
#include "devindex/diskutilejector.h"
#else
#include "devindex/udisksejector.h"
#endif

namespace
{

/** Brings all that was written to the memory's file system to the medium; false when it fails. */
bool flushFileSystem(const QString &root)
{
#ifdef Q_OS_LINUX
    const int handle = ::open(QFile::encodeName(root).constData(), O_RDONLY | O_CLOEXEC);
    if (handle < 0)
        return false;
    const bool flushed = ::syncfs(handle) == 0;
    return ::close(handle) == 0 && flushed;
#else
    Q_UNUSED(root)
#ifdef Q_OS_UNIX
    ::sync();
#endif
    return true;
#endif
}

bool isBelow(const QString &path, const QString &folder)
{
    return path == folder || path.startsWith(folder + QLatin1Char('/'));
}

/** True when the process works in the folder or has a file there open. */
bool uses(const QString &process, const QString &folder)
{
    if (isBelow(QFile::symLinkTarget(process + QStringLiteral("/cwd")), folder))
        return true;
    const QString handles = process + QStringLiteral("/fd/");
    const QStringList names =
        QDir(handles).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        if (isBelow(QFile::symLinkTarget(handles + name), folder))
            return true;
    }
    return false;
}

} // namespace

std::unique_ptr<Ejector> Ejector::ofSystem()
{
#ifdef Q_OS_MACOS
    return std::make_unique<DiskutilEjector>();
#else
    return std::make_unique<UdisksEjector>();
#endif
}

Eject::Eject(Ejector &ejector)
    : m_ejector(ejector)
{
}

Eject::Report Eject::run(const QString &root)
{
    const QString memory = QFileInfo(root).canonicalFilePath();
    const QStorageInfo storage(memory);
    if (memory.isEmpty() || !storage.isValid() || storage.rootPath() != memory ||
        memory == QDir::rootPath() || !MountedVolumes().isMemory(root))
        return {false, tr("La cartella non è una memoria collegata: non c'è niente da espellere.")};
    {
        // Its file would keep the memory busy, so that it is given back before the memory goes. A
        // memory that is write-protected cannot be locked, and needs no lock.
        MemoryLock lock(memory);
        if (!lock.take() && lock.isHeldByOther())
            return {false, lock.message()};
    }
    if (!flushFileSystem(memory)) {
        logWarning() << "[Eject::run] Impossible to flush" << memory;
        return {false, tr("Non tutti i dati sono arrivati sulla memoria. Non scollegarla.")};
    }
    const Ejector::Result result = m_ejector.eject(memory);
    return {result.outcome == Ejector::Outcome::Ejected, sentence(result, memory)};
}

QString Eject::sentence(const Ejector::Result &result, const QString &root)
{
    const QString words = result.text.isEmpty() ? QString() : QLatin1Char('\n') + result.text;
    switch (result.outcome) {
    case Ejector::Outcome::Ejected:
        return tr("Adesso la memoria si può scollegare.");
    case Ejector::Outcome::NoService:
        return tr("Il servizio del sistema che espelle le memorie (UDisks2) non risponde. "
                  "Espellere la memoria dal file manager.") +
               words;
    case Ejector::Outcome::NoDevice:
        return tr("Il sistema non conosce nessuna memoria collegata qui.") + words;
    case Ejector::Outcome::NotPermitted:
        return tr("Il sistema non permette di espellere la memoria.") + words;
    case Ejector::Outcome::StillOn:
        return tr("La memoria è stata smontata, ma il suo lettore è ancora in uso: altre sue "
                  "partizioni possono essere aperte.") +
               words;
    case Ejector::Outcome::Busy: {
        const QStringList programs = programsUsing(root);
        return programs.isEmpty()
                   ? tr("La memoria è in uso: chiudere i programmi che la usano e riprovare.") +
                         words
                   : tr("La memoria è in uso da: %1. Chiudere questi programmi e riprovare.")
                             .arg(programs.join(QStringLiteral(", "))) +
                         words;
    }
    case Ejector::Outcome::Failed:
        break;
    }
    return tr("Non è stato possibile espellere la memoria.") + words;
}

QStringList programsUsing(const QString &folder)
{
    constexpr qsizetype mostPrograms = 10;
    QStringList found;
    const QDir processes(QStringLiteral("/proc"));
    const QStringList names = processes.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const bool isNumber =
            std::all_of(name.cbegin(), name.cend(), [](QChar c) { return c.isDigit(); });
        const QString process = processes.filePath(name);
        if (!isNumber || !uses(process, folder))
            continue;
        QFile command(process + QStringLiteral("/comm"));
        if (!command.open(QFile::ReadOnly))
            continue;
        found.append(
            QStringLiteral("%1 (%2)").arg(QString::fromUtf8(command.readLine()).trimmed(), name));
        if (found.size() == mostPrograms)
            break;
    }
    return found;
}
