#include "formats/songfilewriter.h"

#include "formats/diagnostics.h"

#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <unistd.h>
#endif

namespace
{

constexpr qint64 copyChunkSize = 100000;
constexpr int temporaryNames = 100;

/** The file that a path leads to, through all symbolic links; a path without a file as it is. */
QString realPath(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

/** Something is there, be it only a link that leads nowhere. */
bool isTaken(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/** Lets the owner write; whether that helped, the open that follows will tell. */
void allowOwnerToWrite(const QString &path)
{
    const QFile::Permissions old = QFile::permissions(path);
    if (!old.testFlag(QFile::WriteOwner))
        QFile::setPermissions(path, old | QFile::WriteOwner | QFile::WriteUser);
}

/**
 * Brings what was written to the medium. A disk that turns out to be full or broken only now is
 * thus noticed while the old bytes can still be put back.
 */
bool flushToMedium(QFile &file)
{
    if (!file.flush())
        return false;
#ifdef Q_OS_UNIX
    // Some file systems cannot flush a single file; they say so with these two codes.
    return ::fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP;
#else
    return true;
#endif
}

/** The path up to the last dot of the file name (folder names may hold dots too), then ".tmp". */
QString temporaryName(const QString &path, int attempt)
{
    const qsizetype nameStart = path.lastIndexOf(QLatin1Char('/')) + 1;
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    const QString stem = dot < nameStart ? path : path.left(dot);
    const QString number = attempt == 0 ? QString() : QLatin1Char('.') + QString::number(attempt);
    return stem + number + QLatin1String(".tmp");
}

/** Copies the source, from where it stands up to its end. */
bool copyRest(QFile &source, QFile &target)
{
    qint64 left = source.size() - source.pos();
    while (left > 0) {
        const QByteArray chunk = source.read(std::min(left, copyChunkSize));
        if (chunk.isEmpty() || target.write(chunk) != chunk.size())
            return false;
        left -= chunk.size();
    }
    return true;
}

/** One step on every platform; QFile::rename never replaces a file. */
bool renameOver(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(),
                            QFileInfo(to).filesystemFilePath(), error);
    return !error;
}

} // namespace

SongFileWriter::SongFileWriter(const QString &path)
    : m_path(realPath(path))
    , m_file(m_path)
{
}

SongFileWriter::~SongFileWriter()
{
    if (m_created)
        m_file.remove();
}

bool SongFileWriter::open()
{
    if (m_path.isEmpty())
        return false;
    if (!isTaken(m_path)) {
        m_created = m_file.open(QFile::WriteOnly | QFile::NewOnly | QFile::Unbuffered);
        return m_created;
    }
    if (!QFileInfo(m_path).isFile())
        return false;
    allowOwnerToWrite(m_path);
    if (!m_file.open(QFile::ReadWrite | QFile::ExistingOnly | QFile::Unbuffered))
        return false;
    m_oldSize = m_file.size();
    return true;
}

bool SongFileWriter::replaceBytes(const QByteArray &bytes)
{
    if (!m_file.isOpen())
        return false;
    // Only these of the old bytes will be written over: the rest goes, if at all, in the last step.
    const qint64 headSize = std::min<qint64>(m_oldSize, bytes.size());
    const QByteArray oldHead = headSize > 0 ? m_file.read(headSize) : QByteArray();
    if (oldHead.size() != headSize)
        return false;

    const bool written = overwrite(bytes, oldHead);
    if (written)
        m_created = false;
    else if (!m_created)
        putBack(oldHead);
    m_file.close();
    return written;
}

/**
 * Writes what lies behind the old end first: a disk that is full says so while the old bytes are
 * still all there. The file shrinks last, when nothing else can fail.
 */
bool SongFileWriter::overwrite(const QByteArray &bytes, const QByteArray &oldHead)
{
    const qint64 headSize = oldHead.size();
    if (bytes.size() > headSize) {
        if (!writeAt(headSize, bytes.mid(headSize)) || !flushToMedium(m_file))
            return false;
    }
    if (headSize > 0 && (!writeAt(0, bytes.left(headSize)) || !flushToMedium(m_file)))
        return false;
    return bytes.size() >= m_oldSize || m_file.resize(bytes.size());
}

bool SongFileWriter::writeAt(qint64 pos, const QByteArray &bytes)
{
    if (!m_file.seek(pos))
        return false;
    const qint64 written = m_file.write(bytes);
    if (pos < m_oldSize)
        m_overwritten = std::max(m_overwritten, pos + std::max<qint64>(written, 0));
    return written == bytes.size();
}

void SongFileWriter::putBack(const QByteArray &oldHead)
{
    // The write that failed may fail again, at the same place: what lies behind it is still old.
    const bool headIsOld =
        m_overwritten == 0 ||
        (m_file.seek(0) && m_file.write(oldHead.left(m_overwritten)) == m_overwritten);
    const bool sizeIsOld = m_file.size() == m_oldSize || m_file.resize(m_oldSize);
    if (!headIsOld || !sizeIsOld || !flushToMedium(m_file))
        logWarning() << "[SongFileWriter::putBack] Impossible to put the old bytes back:" << m_path;
}

SongFileWriter::Outcome SongFileWriter::replaceThroughTemporary(const QByteArray &head,
                                                                QFile &source, qint64 sourcePos)
{
    if (m_path.isEmpty() || (isTaken(m_path) && !QFileInfo(m_path).isFile()))
        return Outcome::CannotOpen;
    QFile temporary;
    if (!openTemporary(temporary))
        return Outcome::CannotOpen;
    const auto giveUp = [&temporary](Outcome outcome) {
        temporary.remove();
        return outcome;
    };

    if (temporary.write(head) != head.size())
        return giveUp(Outcome::CannotWrite);
    if (sourcePos > source.size() || !source.seek(sourcePos))
        return giveUp(Outcome::CannotSeek);
    if (!copyRest(source, temporary) || !flushToMedium(temporary))
        return giveUp(Outcome::CannotCopy);
    temporary.close();
    source.close();
    if (!renameOver(temporary.fileName(), m_path))
        return giveUp(Outcome::CannotReplace);
    return Outcome::Done;
}

/**
 * Opens a new file beside the song, with the song's permissions. Where the usual name is taken (by
 * a file of the user's, a folder, or what a crash left behind), a number goes into it.
 */
bool SongFileWriter::openTemporary(QFile &temporary) const
{
    for (int attempt = 0; attempt < temporaryNames; ++attempt) {
        const QString name = temporaryName(m_path, attempt);
        if (name == m_path || isTaken(name))
            continue;
        temporary.setFileName(name);
        if (!temporary.open(QFile::WriteOnly | QFile::NewOnly | QFile::Unbuffered))
            return false;
        if (QFileInfo::exists(m_path)) {
            allowOwnerToWrite(m_path);
            temporary.setPermissions(QFile::permissions(m_path));
        }
        return true;
    }
    return false;
}
