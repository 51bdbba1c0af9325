#include "storage/songfilewriter.h"

#include "storage/diagnostics.h"
#include "storage/leftovers.h"
#include "storage/safefile.h"
#include "storage/songjournal.h"
#include "storage/songlayout.h"

#include <QFileInfo>

#include <algorithm>
#include <cerrno>

namespace
{

constexpr qint64 copyChunkSize = 100000;

/** The file that a path leads to, through all symbolic links; a path without a file as it is. */
QString realPath(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

/** Lets the owner write. Errors are not checked: the open that follows fails then. */
void allowOwnerToWrite(const QString &path)
{
    const QFile::Permissions old = QFile::permissions(path);
    if (!old.testFlag(QFile::WriteOwner))
        QFile::setPermissions(path, old | QFile::WriteOwner | QFile::WriteUser);
}

/** Only such songs are rewritten in place; no other file ever had a journal. */
bool isRewrittenInPlace(const QByteArray &song)
{
    return song.startsWith(songlayout::midiMagic) || song.startsWith(songlayout::mfxMagic);
}

/** The path up to the last dot of the file name (folder names may hold dots too), then ".tmp". */
QString temporaryName(const QString &path)
{
    const qsizetype nameStart = path.lastIndexOf(QLatin1Char('/')) + 1;
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    const QString stem = dot < nameStart ? path : path.left(dot);
    return stem + Leftovers::usualTemporarySuffix;
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

void removeJournal(SongJournal &journal)
{
    if (!journal.remove())
        logWarning() << "[SongFileWriter::recover] Impossible to remove" << journal.path();
}

} // namespace

SongFileWriter::SongFileWriter(const QString &path)
    : m_path(realPath(path))
    , m_file(m_path)
{
}

/** Keeps the number at once: the steps that clean up after a failure have numbers of their own. */
bool SongFileWriter::noted(bool succeeded) const
{
    if (!succeeded && m_systemError == 0)
        m_systemError = errno;
    return succeeded;
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
        m_created = noted(m_file.open(QFile::WriteOnly | QFile::NewOnly | QFile::Unbuffered));
        return m_created;
    }
    return recoverFirst() && openExisting();
}

/** Another program that is saving the song may be done when somebody asks why this one was not. */
bool SongFileWriter::recoverFirst()
{
    const Recovery recovery = tryToRecover(m_path);
    if (recovery == Recovery::InUse) {
        errno = EBUSY;
        noted(false);
    }
    return recovery == Recovery::Done;
}

bool SongFileWriter::openExisting()
{
    if (!QFileInfo(m_path).isFile())
        return false;
    allowOwnerToWrite(m_path);
    if (!noted(m_file.open(QFile::ReadWrite | QFile::ExistingOnly | QFile::Unbuffered)))
        return false;
    // Two programs that write one song at the same time would leave a mixture of their bytes that
    // no journal knows.
    if (!noted(holdFile(m_file))) {
        m_file.close();
        return false;
    }
    m_oldSize = m_file.size();
    return true;
}

/** False when the song was replaced or changed by another program since it was opened. */
bool SongFileWriter::isAsOpened()
{
    if (!holdFile(m_file) || m_file.size() != m_oldSize) {
        errno = EBUSY;
        return noted(false);
    }
    return true;
}

bool SongFileWriter::replaceBytes(const QByteArray &bytes)
{
    if (!m_file.isOpen())
        return false;
    bool written = false;
    if (m_created) {
        written = noted(writeAt(0, bytes) && flushToMedium(m_file) && flushFolderOf(m_path));
        m_created = !written;
    } else if (m_oldSize <= SongJournal::largestSong && isAsOpened()) {
        SongJournal::Content journal;
        journal.oldBytes = m_file.read(m_oldSize);
        journal.newBytes = bytes;
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
    if (!noted(journal.write(old))) {
        logWarning() << "[SongFileWriter::replaceBytes] Impossible to keep the old bytes in"
                     << journal.path();
        return false;
    }
    const bool written = noted(overwrite(bytes));
    // A save that cannot remove its journal is reported as failed, so the song gets its old bytes
    // back.
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
 * still all there. The file shrinks last. Between the two steps everything goes to the medium: a
 * memory that is pulled may keep the new size without the new end, or the end of the old song cut
 * off, but only while all that lies in front of it is known.
 */
bool SongFileWriter::overwrite(const QByteArray &bytes)
{
    const qint64 headSize = std::min<qint64>(m_oldSize, bytes.size());
    if (bytes.size() > headSize &&
        (!writeAt(headSize, bytes.mid(headSize)) || !flushToMedium(m_file)))
        return false;
    if (headSize > 0 && !writeAt(0, bytes.left(headSize)))
        return false;
    if (bytes.size() < m_oldSize) {
        m_overwritten = m_oldSize;
        if (!flushToMedium(m_file) || !m_file.resize(bytes.size()))
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
    // The failed write may fail again at the same place; the bytes behind that place are still the
    // old ones.
    const bool bytesAreOld =
        m_overwritten == 0 ||
        (m_file.seek(0) && m_file.write(oldBytes.left(m_overwritten)) == m_overwritten);
    const bool sizeIsOld = m_file.size() == m_oldSize || m_file.resize(m_oldSize);
    if (bytesAreOld && sizeIsOld && flushToMedium(m_file))
        return true;
    logWarning() << "[SongFileWriter::putBack] Impossible to put the old bytes back:" << m_path;
    return false;
}

bool SongFileWriter::isBeingSaved(const QString &path)
{
    const QString song = realPath(path);
    for (int number = 0; number < SongJournal::maxNames; ++number) {
        SongJournal::Content content;
        if (SongJournal(song, number).read(content) == SongJournal::State::InUse)
            return true;
    }
    return false;
}

SongFileWriter::Recovery SongFileWriter::tryToRecover(const QString &path)
{
    const QString song = QFileInfo(path).isSymLink() ? realPath(path) : path;
    for (int number = 0; number < SongJournal::maxNames; ++number) {
        SongJournal journal(song, number);
        SongJournal::Content content;
        switch (journal.read(content)) {
        case SongJournal::State::Missing: // a later name may be taken all the same
        case SongJournal::State::SomethingElse:
            break;
        case SongJournal::State::InUse:
            logWarning() << "[SongFileWriter::recover] The song is being saved by another program:"
                         << path;
            return Recovery::InUse;
        case SongJournal::State::Unreadable:
            logWarning() << "[SongFileWriter::recover] Impossible to read" << journal.path();
            return Recovery::Failed;
        case SongJournal::State::Invalid:
            removeJournal(journal);
            break;
        case SongJournal::State::Valid:
            if (QFileInfo(song).isFile() && !SongFileWriter(song).resolve(journal, content))
                return Recovery::Failed;
        }
    }
    return Recovery::Done;
}

/** False when the song may hold a mixture of bytes, old and new. */
bool SongFileWriter::resolve(SongJournal &journal, const SongJournal::Content &content)
{
    QFile reader(m_path);
    if (!reader.open(QFile::ReadOnly | QFile::Unbuffered))
        return false;
    const qint64 longest = std::max(content.oldBytes.size(), content.newBytes.size());
    const QByteArray song = reader.read(longest + 1);
    if (reader.error() != QFile::NoError)
        return false;
    reader.close();

    const SongJournal::Verdict verdict = content.judge(song);
    const bool mayHaveAJournal = isRewrittenInPlace(song);
    if (mayHaveAJournal && verdict == SongJournal::Verdict::CutOff) {
        if (!openExisting() || !overwrite(content.oldBytes)) {
            logWarning() << "[SongFileWriter::recover] Impossible to put the old bytes back:"
                         << m_path;
            return false;
        }
        m_file.close();
        logWarning() << "[SongFileWriter::recover] The last save was cut off, the song is as it "
                        "was before:"
                     << m_path;
    } else if (verdict == SongJournal::Verdict::NotOurs) {
        logWarning() << "[SongFileWriter::recover] The song was changed since, it stays:" << m_path;
    }
    removeJournal(journal);
    return true;
}

/**
 * Order of the flushes: the temporary file with all its bytes; then what replaceOnMedium() does to
 * bring its new name to the medium. Before that the song is the old one.
 */
SongFileWriter::Outcome SongFileWriter::replaceThroughTemporary(const QByteArray &head,
                                                                QFile &source, qint64 sourcePos)
{
    if (m_path.isEmpty() || (isTaken(m_path) && !QFileInfo(m_path).isFile()) || !recoverFirst())
        return Outcome::CannotOpen;
    QFile temporary;
    if (!openTemporary(temporary))
        return Outcome::CannotOpen;
    const auto giveUp = [this, &temporary](Outcome outcome) {
        noted(outcome == Outcome::CannotSeek); // where no call of the system failed
        temporary.close();
        QFile::remove(temporary.fileName());
        return outcome;
    };

    if (temporary.write(head) != head.size())
        return giveUp(Outcome::CannotWrite);
    if (sourcePos > source.size() || !source.seek(sourcePos))
        return giveUp(Outcome::CannotSeek);
    if (!copyRest(source, temporary) || !flushToMedium(temporary))
        return giveUp(Outcome::CannotCopy);
    source.close();
    if (!replaceOnMedium(temporary, m_path))
        return giveUp(Outcome::CannotReplace);
    return Outcome::Done;
}

/**
 * Opens a new file beside the song, with the song's permissions, and holds it. Where the usual name
 * is taken (by a file of the user's, a folder, or what a crash left behind), it is a hidden one of
 * ours.
 */
bool SongFileWriter::openTemporary(QFile &temporary) const
{
    temporary.setFileName(temporaryName(m_path));
    const bool isFree = temporary.fileName() != m_path && !isTaken(temporary.fileName());
    bool opened = isFree && temporary.open(QFile::WriteOnly | QFile::NewOnly | QFile::Unbuffered);
    const bool isHeld = opened && holdFile(temporary);
    if (opened && !isHeld) {
        temporary.close();
        temporary.remove();
    }
    if (!isFree || (opened && !isHeld))
        opened = createHiddenBeside(temporary, m_path, Leftovers::temporarySuffix);
    noted(opened);
    if (opened && QFileInfo::exists(m_path)) {
        allowOwnerToWrite(m_path);
        temporary.setPermissions(QFile::permissions(m_path));
    }
    return opened;
}
