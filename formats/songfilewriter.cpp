#include "formats/songfilewriter.h"

#include "formats/diagnostics.h"
#include "formats/safefile.h"
#include "formats/songjournal.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

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

/** Lets the owner write; whether that helped, the open that follows will tell. */
void allowOwnerToWrite(const QString &path)
{
    const QFile::Permissions old = QFile::permissions(path);
    if (!old.testFlag(QFile::WriteOwner))
        QFile::setPermissions(path, old | QFile::WriteOwner | QFile::WriteUser);
}

/**
 * False when the song has been changed by somebody else since its journal was left behind: its old
 * bytes must not go over a song that was copied here or edited elsewhere in the meantime.
 */
bool isLeftBy(const SongJournal::Content &journal, const QString &journalPath, const QFile &song)
{
    constexpr qint64 longestSave = qint64{10} * 60; // seconds
    const qint64 smallest = std::min<qint64>(journal.oldBytes.size(), journal.newSize);
    const qint64 largest = std::max<qint64>(journal.oldBytes.size(), journal.newSize);
    const qint64 age = QFileInfo(journalPath).lastModified().secsTo(QFileInfo(song).lastModified());
    return song.size() >= smallest && song.size() <= largest && age <= longestSave;
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
    return recover(m_path) && openExisting();
}

bool SongFileWriter::openExisting()
{
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
    bool written = false;
    if (m_created) {
        written = writeAt(0, bytes) && flushToMedium(m_file) && flushFolderOf(m_path);
        m_created = !written;
    } else if (m_oldSize <= SongJournal::LargestSong) {
        SongJournal::Content journal;
        journal.oldBytes = m_file.read(m_oldSize);
        journal.newSize = bytes.size();
        written = journal.oldBytes.size() == m_oldSize && replaceJournalled(bytes, journal);
    }
    m_file.close();
    return written;
}

/**
 * From the journal's first moment to its last the song can be put back, whatever happens. Order of
 * the flushes: the journal, its folder; the song; the folder again when the journal is gone.
 */
bool SongFileWriter::replaceJournalled(const QByteArray &bytes, const SongJournal::Content &old)
{
    SongJournal journal(m_path);
    if (!journal.write(old)) {
        logWarning() << "[SongFileWriter::replaceBytes] Impossible to keep the old bytes in"
                     << journal.path();
        return false;
    }
    const bool written = overwrite(bytes);
    // With a journal that cannot be taken away the song would become the old one again some day.
    if ((written || putBack(old.oldBytes)) && journal.remove())
        return written;
    if (!isTaken(journal.path())) {
        // It may be back after a power cut; writing the song without it would be worse.
        logWarning() << "[SongFileWriter::replaceBytes] Impossible to flush the folder of"
                     << m_path;
        return false;
    }
    if (written)
        putBack(old.oldBytes);
    logWarning() << "[SongFileWriter::replaceBytes] The old bytes stay in" << journal.path();
    return false;
}

/**
 * Writes what lies behind the old end first: a disk that is full says so while the old bytes are
 * still all there. The file shrinks last.
 */
bool SongFileWriter::overwrite(const QByteArray &bytes)
{
    const qint64 headSize = std::min<qint64>(m_oldSize, bytes.size());
    if (bytes.size() > headSize && !writeAt(headSize, bytes.mid(headSize)))
        return false;
    if (headSize > 0 && !writeAt(0, bytes.left(headSize)))
        return false;
    if (bytes.size() < m_oldSize) {
        m_overwritten = m_oldSize;
        if (!m_file.resize(bytes.size()))
            return false;
    }
    return flushToMedium(m_file);
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

bool SongFileWriter::putBack(const QByteArray &oldBytes)
{
    // The write that failed may fail again, at the same place: what lies behind it is still old.
    const bool bytesAreOld =
        m_overwritten == 0 ||
        (m_file.seek(0) && m_file.write(oldBytes.left(m_overwritten)) == m_overwritten);
    const bool sizeIsOld = m_file.size() == m_oldSize || m_file.resize(m_oldSize);
    if (bytesAreOld && sizeIsOld && flushToMedium(m_file))
        return true;
    logWarning() << "[SongFileWriter::putBack] Impossible to put the old bytes back:" << m_path;
    return false;
}

bool SongFileWriter::recover(const QString &path)
{
    const QString song = QFileInfo(path).isSymLink() ? realPath(path) : path;
    SongJournal journal(song);
    SongJournal::Content content;
    const SongJournal::State state = journal.read(content);
    if (state == SongJournal::State::Missing || !QFileInfo(song).isFile())
        return true;
    if (state == SongJournal::State::InUse) {
        logWarning() << "[SongFileWriter::recover] The song is being saved by another program:"
                     << path;
        return false;
    }
    if (state == SongJournal::State::Unreadable) {
        logWarning() << "[SongFileWriter::recover] Impossible to read" << journal.path();
        return false;
    }
    const bool whole = state == SongJournal::State::Invalid ||
                       SongFileWriter(song).rollBack(content, journal.path());
    if (whole && !journal.remove())
        logWarning() << "[SongFileWriter::recover] Impossible to remove" << journal.path();
    return whole;
}

/** False when the song may hold a mixture of bytes, old and new. */
bool SongFileWriter::rollBack(const SongJournal::Content &journal, const QString &journalPath)
{
    QFile reader(m_path);
    if (!reader.open(QFile::ReadOnly | QFile::Unbuffered))
        return false;
    if (!isLeftBy(journal, journalPath, reader)) {
        logWarning() << "[SongFileWriter::recover] The song was changed since, it stays:" << m_path;
        return true;
    }
    if (reader.read(journal.oldBytes.size() + 1) == journal.oldBytes)
        return true;
    reader.close();
    const bool written = openExisting() && overwrite(journal.oldBytes);
    if (written)
        logWarning() << "[SongFileWriter::recover] The last save was cut off, the song is as it "
                        "was before:"
                     << m_path;
    else
        logWarning() << "[SongFileWriter::recover] Impossible to put the old bytes back:" << m_path;
    return written;
}

/**
 * Order of the flushes: the temporary file with all its bytes; then what replaceOnMedium() does to
 * bring its new name to the medium. Before that the song is the old one.
 */
SongFileWriter::Outcome SongFileWriter::replaceThroughTemporary(const QByteArray &head,
                                                                QFile &source, qint64 sourcePos)
{
    if (m_path.isEmpty() || (isTaken(m_path) && !QFileInfo(m_path).isFile()) || !recover(m_path))
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
    if (!replaceOnMedium(temporary.fileName(), m_path))
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
