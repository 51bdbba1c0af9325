#include "storage/memorylock.h"

#include "storage/diagnostics.h"
#include "storage/safefile.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStringList>
#include <QSysInfo>
#include <QThread>
#include <QUuid>

namespace
{

/** More than any program writes into its lock; any other file may have the name. */
constexpr qint64 largestContent = 1024;

/** Another program needs some milliseconds from making its file to holding and filling it. */
constexpr int attempts = 20;
constexpr unsigned long pauseMilliseconds = 10;

/** The lines of the lock's file: program, process, computer, time and what no other lock has. */
QByteArray ownContent()
{
    const QStringList lines = {
        QCoreApplication::applicationName(), QString::number(QCoreApplication::applicationPid()),
        QSysInfo::machineHostName(), QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs),
        QUuid::createUuid().toString(QUuid::WithoutBraces)};
    return lines.join(QLatin1Char('\n')).toUtf8() + '\n';
}

/** Anybody may have written the file: nothing in it may act as markup or fill the screen. */
QString shown(const QString &line)
{
    QString text;
    const QString start = line.left(64);
    for (const QChar character : start) {
        if (character.isPrint() && character != QLatin1Char('<') && character != QLatin1Char('&'))
            text += character;
    }
    return text;
}

} // namespace

MemoryLock::MemoryLock(const QString &root)
    : m_root(root)
    , m_path(root + QLatin1Char('/') + fileName())
    , m_file(m_path)
{
}

MemoryLock::~MemoryLock()
{
    release();
}

QString MemoryLock::fileName()
{
    return QStringLiteral(".kavena-lock");
}

bool MemoryLock::take()
{
    for (int i = 0; i < attempts; ++i) {
        if (i > 0)
            QThread::msleep(pauseMilliseconds);
        m_heldByOther = false;
        m_folderInTheWay = false;
        const Attempt attempt = isTaken(m_path) ? examine() : create();
        if (attempt != Attempt::Again)
            return attempt == Attempt::Taken;
    }
    logWarning() << "[MemoryLock::take] Impossible to lock" << m_root;
    return false;
}

/**
 * Makes the file, holds it and says in it who does. Between two of these steps another program may
 * take the file for a leftover and remove it; what lies under the name at the end decides.
 */
MemoryLock::Attempt MemoryLock::create()
{
    if (!m_file.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        if (isTaken(m_path))
            return Attempt::Again;
        m_problem = WriteProblem::find(WriteProblem::Medium::of(m_root));
        logWarning() << "[MemoryLock::create] Impossible to create" << m_path;
        return Attempt::Failed;
    }
    if (!holdFile(m_file)) {
        m_file.close();
        return Attempt::Again;
    }
    m_written = ownContent();
    if (m_file.write(m_written) != m_written.size()) {
        // A full memory can be locked too: songs may be replaced there, and the index shrinks.
        m_file.resize(0);
        m_written.clear();
    }
    if (content() == m_written)
        return Attempt::Taken;
    m_file.close();
    return Attempt::Again;
}

/** Looks at the file that is there: held by a program, or a leftover that is taken away. */
MemoryLock::Attempt MemoryLock::examine()
{
    const QFileInfo info(m_path);
    if (!info.isSymLink() && info.isFile()) {
        QFile there(m_path);
        const bool open = there.open(QIODevice::ReadWrite | QIODevice::ExistingOnly) ||
                          there.open(QIODevice::ReadOnly);
        if (open && !holdFile(there)) {
            m_heldByOther = true;
            m_holder = there.read(largestContent);
            return m_holder.isEmpty() ? Attempt::Again : Attempt::Failed;
        }
        if (open && QFile::remove(m_path))
            return Attempt::Again;
    } else if (QFile::remove(m_path) || QDir().rmdir(m_path)) { // a folder only when it is empty
        return Attempt::Again;
    }
    if (!isTaken(m_path))
        return Attempt::Again;
    m_problem = WriteProblem::find(WriteProblem::Medium::of(m_root), 0);
    m_folderInTheWay = m_problem == WriteProblem::Unknown && info.isDir();
    logWarning() << "[MemoryLock::examine] Impossible to remove" << m_path;
    return Attempt::Failed;
}

void MemoryLock::release()
{
    if (!m_file.isOpen())
        return;
    // After the stick was pulled, another stick with another lock may have the same path. A lock
    // file that cannot be read is taken for this one and removed.
    if (content().value_or(m_written) == m_written) {
        // Tried twice, since the medium's first error may be a passing one.
        if (!QFile::remove(m_path) && !QFile::remove(m_path))
            logWarning() << "[MemoryLock::release] Impossible to remove" << m_path;
        if (!flushFolderOf(m_path))
            logWarning() << "[MemoryLock::release] Impossible to flush the folder of" << m_path;
    }
    m_file.close();
}

/** What lies under the lock's name now; nothing when it cannot be read. */
std::optional<QByteArray> MemoryLock::content() const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return file.read(largestContent);
}

QString MemoryLock::message() const
{
    if (m_folderInTheWay)
        return tr("Nella memoria c'è una cartella \"%1\": il programma ha bisogno di questo nome.\n"
                  "Spostarla o cancellarla e riprovare.")
            .arg(fileName());
    if (!m_heldByOther)
        return WriteProblem::sentence(m_problem);
    const QStringList lines = QString::fromUtf8(m_holder).split(QLatin1Char('\n'));
    const QDateTime since = QDateTime::fromString(lines.value(3), Qt::ISODateWithMs).toLocalTime();
    bool isNumber = false;
    const qlonglong process = lines.value(1).toLongLong(&isNumber);
    if (!isNumber || !since.isValid())
        return tr("Un altro programma sta scrivendo su questa memoria.\n"
                  "Non è stato cambiato nulla. Riprovare quando avrà finito.");
    return tr("Un altro programma sta scrivendo su questa memoria: %1 (processo %2 sul computer "
              "%3, dal %4).\nNon è stato cambiato nulla. Riprovare quando avrà finito.")
        .arg(shown(lines.value(0)), QString::number(process), shown(lines.value(2)),
             QLocale().toString(since, QLocale::ShortFormat));
}
