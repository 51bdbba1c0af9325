#include "devindex/copybatch.h"

#include "devindex/readback.h"
#include "storage/diagnostics.h"
#include "storage/songjournal.h"

#include <algorithm>
#include <memory>
#include <vector>

#ifdef Q_OS_LINUX
#include <sys/resource.h>
#endif

namespace
{

constexpr qint64 mostBytes = qint64{32} * 1024 * 1024;

/**
 * A quarter of what a program may have open: the new files are, and the old ones that they replace,
 * and one batch is filled while another one settles. Few flushes of many files cost less than many
 * of few.
 */
qsizetype mostHandles()
{
    constexpr qsizetype anywhere = 50; // on a Mac a program may have 256 open
#ifdef Q_OS_LINUX
    constexpr rlim_t enough = 2000;
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) == 0)
        return static_cast<qsizetype>(std::min(limit.rlim_cur, enough) / 4);
#endif
    return anywhere;
}

} // namespace

CopyBatch::CopyBatch(const QString &folder)
    : m_folder(folder)
    , m_fileSystem(folder)
    , m_mostHandles(mostHandles())
{
}

CopyBatch::~CopyBatch()
{
    for (const File &file : std::as_const(m_files))
        QFile::remove(file.part->fileName());
}

void CopyBatch::add(const File &file)
{
    m_files.append(file);
    m_names.insert(file.target.toCaseFolded());
    m_size += file.part->size();
    m_handles += file.replaces ? 2 : 1;
}

bool CopyBatch::isFull() const
{
    return m_handles >= m_mostHandles || m_size >= mostBytes;
}

bool CopyBatch::holds(const QString &target) const
{
    return m_names.contains(target.toCaseFolded());
}

/**
 * The order is that of replaceOnMedium(), each step for all files:
 *  1. the parts are flushed; those that are to be read back are, and leave when they differ, so
 *     that no old file goes for a bad copy;
 *  2. those that replace a file get their names, while the old bytes are kept; the folder is
 *     flushed: the names lead to the old bytes;
 *  3. new files get their names: not before, since they would lead nowhere after that flush;
 *  4. all files are flushed under their names: they lead to the new bytes;
 *  5. the folder is flushed, unless that was done with the whole file system;
 *  6. the place of the old bytes is free.
 */
void CopyBatch::settle()
{
    if (m_files.isEmpty())
        return;
    flush();
    readBack();
    std::vector<std::unique_ptr<QFile>> oldBytes;
    for (const File &file : std::as_const(m_files)) {
        if (file.replaces)
            oldBytes.push_back(keepBytesOf(file.target));
    }
    giveNames(true);
    bool flushed = oldBytes.empty() || flushPath(m_folder);
    giveNames(false);
    flushed = (flush() || flushPath(m_folder)) && flushed;
    for (const File &file : std::as_const(m_files)) {
        if (!flushed)
            fail(file, "the folder cannot be brought to the medium:");
        else
            SongJournal::removeAllOf(file.target); // its old bytes belong to no file any more
    }
    m_files.clear();
}

/**
 * Files that cannot be flushed leave the batch. True when the whole file system was flushed, the
 * folder with it.
 */
bool CopyBatch::flush()
{
    if (m_fileSystem.flush())
        return true;
    m_files.removeIf([this](const File &file) {
        if (!file.part->isOpen() || flushToMedium(*file.part))
            return false;
        fail(file, "it cannot be brought to the medium:");
        QFile::remove(file.part->fileName());
        return true;
    });
    return false;
}

/** Files that came to the medium with other bytes leave the batch. */
void CopyBatch::readBack()
{
    m_files.removeIf([this](const File &file) {
        if (file.source.isEmpty() || readBackMatches(file.part->fileName(), file.source))
            return false;
        fail(file, "the medium gives other bytes back:");
        m_changed.insert(file.song);
        QFile::remove(file.part->fileName());
        return true;
    });
}

/** Files that do not get their names leave the batch. */
void CopyBatch::giveNames(bool replacing)
{
    m_files.removeIf([this, replacing](const File &file) {
        if (file.replaces != replacing)
            return false;
        if ((replacing || !isTaken(file.target)) && renameOver(*file.part, file.target)) {
            m_named.insert(file.song);
            return false;
        }
        fail(file, "the new file cannot take its name:");
        QFile::remove(file.part->fileName());
        return true;
    });
}

void CopyBatch::fail(const File &file, const char *reason)
{
    logWarning() << "[CopyBatch::settle] Impossible to copy," << reason << file.target;
    m_failed.insert(file.song);
}
