#include "library/librarybackup.h"

#include "library/backupplan.h"
#include "storage/diagnostics.h"
#include "storage/safefile.h"
#include "storage/songfilewriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace
{

void logBanner()
{
    logDebug() << "============================================";
    logDebug() << "          BACKUP USER LIBRARY";
    logDebug() << "============================================";
}

/** Copies one folder tree; remembers which folders must not be entered (again). */
class FolderCopy
{
public:
    FolderCopy(const QString &destination, int &count)
        : m_count(count)
    {
        m_closed.insert(QFileInfo(destination).canonicalFilePath());
    }

    bool copy(const QString &source, const QString &destination)
    {
        logDebug() << "Backing up directory:" << source;
        const QString canonical = QFileInfo(source).canonicalFilePath();
        if (m_closed.contains(canonical))
            return true;
        m_closed.insert(canonical);
        bool complete = true;
        const QFileInfoList entries = QDir(source).entryInfoList(
            QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot, QDir::Name | QDir::DirsFirst);
        for (const QFileInfo &entry : entries) {
            const QString target = destination + QLatin1Char('/') + entry.fileName();
            const bool copied =
                entry.isDir() ? copyFolder(entry, target) : copyFile(entry.filePath(), target);
            complete = copied && complete;
        }
        m_closed.remove(canonical);
        return complete;
    }

private:
    bool copyFolder(const QFileInfo &folder, const QString &target)
    {
        if (m_closed.contains(folder.canonicalFilePath()))
            return true;
        logDebug() << "Making new dir:" << target;
        if (!makeFolder(target))
            return false;
        return copy(folder.filePath(), target);
    }

    bool copyFile(const QString &file, const QString &target)
    {
        logDebug() << "Copying file:" << file;
        // A song whose last save was cut off is put back first.
        if (!SongFileWriter::recover(file) || !QFile::copy(file, target) || !flushPath(target) ||
            !flushFolderOf(target))
            return false;
        ++m_count;
        return true;
    }

    int &m_count;
    QSet<QString> m_closed; ///< canonical paths: the destination, and folders being copied
};

/** The progress of one list of files as part of a longer one. */
class PartOfProgress : public Progress
{
public:
    PartOfProgress(Progress &whole, int before)
        : m_whole(whole)
        , m_before(before)
    {
    }

    void setMaximum(int steps) override { m_whole.setMaximum(steps); }
    void setValue(int step) override { m_whole.setValue(m_before + step); }
    void updateProgress(int done) override { m_whole.updateProgress(m_before + done); }
    void catchUp() override { m_whole.catchUp(); }
    bool wasCanceled() const override { return m_whole.wasCanceled(); }

private:
    Progress &m_whole;
    const int m_before;
};

} // namespace

LibraryBackup::LibraryBackup(Ask ask, CopyFiles copyFiles, Report report, OpenProgress openProgress)
    : m_ask(std::move(ask))
    , m_copyFiles(std::move(copyFiles))
    , m_report(std::move(report))
    , m_openProgress(std::move(openProgress))
{
}

bool LibraryBackup::suggest(int filesCount) const
{
    const Choice choice = m_ask();
    if (choice.wish == Wish::NoBackup)
        return true;
    if (choice.wish != Wish::Backup)
        return false;
    if (choice.directory.isEmpty()) {
        m_report(false);
        return false;
    }
    return backUp(choice.directory, filesCount);
}

QString LibraryBackup::folderName(const QDateTime &time)
{
    return QStringLiteral("backup_kravo_") + time.toString(QStringLiteral("yyyy_MM_dd_hh-mm-ss"));
}

bool LibraryBackup::backupDirectory(const QString &source, const QString &destination, int &count)
{
    return FolderCopy(destination, count).copy(source, destination);
}

bool LibraryBackup::copyFiles(const QStringList &files, const QString &destination, int &copied,
                              Progress &progress, const CopyList &copyList)
{
    copied = 0;
    int before = 0;
    bool complete = true;
    const BackupPlan plan(files);
    for (const BackupPlan::Batch &batch : plan.batches()) {
        QString folder = destination;
        if (!batch.folder.isEmpty()) {
            folder += QLatin1Char('/') + batch.folder;
            logDebug() << "Making new dir:" << folder;
        }
        // If the folder is not on the medium, no file in it counts as copied; copying them reports
        // the reason.
        const bool made = batch.folder.isEmpty() || makeFolder(folder);
        PartOfProgress part(progress, before);
        int arrived = 0;
        const bool allArrived = copyList(batch.files, folder, arrived, part);
        complete = made && allArrived && complete;
        if (!allArrived && progress.wasCanceled()) {
            copied = 0;
            return false;
        }
        copied += made ? arrived : 0;
        before += static_cast<int>(batch.files.size());
    }
    return complete;
}

bool LibraryBackup::backUp(const QString &directory, int filesCount) const
{
    logBanner();
    const QString folder = directory + QLatin1Char('/') + folderName(QDateTime::currentDateTime());
    logDebug() << "Making new root backup dir:" << folder;
    if (!makeFolder(folder)) {
        logDebug() << "Dest root dir creation failed";
        m_report(false);
        return false;
    }

    // "dellla" is the key under which the translations hold this text.
    auto progress =
        m_openProgress(tr("Backup"), tr("Eseguo backup dellla libreria..."), filesCount);
    int copied = 0;
    const bool complete = m_copyFiles(folder, copied);
    progress.reset();
    m_report(complete);
    logDebug() << "";
    return true;
}
