#include "library/songsearch.h"

#include "formats/songnames.h"
#include "library/keepalive.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace
{

constexpr qint64 patienceMilliseconds = 400;

} // namespace

SongSearch::SongSearch(OpenProgress openProgress)
    : m_openProgress(std::move(openProgress))
{
}

std::optional<QStringList> SongSearch::search(const QStringList &paths)
{
    m_running.start();
    for (const QString &path : paths) {
        const QFileInfo item(path);
        if (!item.isDir())
            m_found << item.absoluteFilePath();
        else if (!searchFolder(item.absoluteFilePath()))
            return std::nullopt;
    }
    m_found.removeDuplicates();
    return m_found;
}

bool SongSearch::searchFolder(const QString &folder)
{
    if (!goOn())
        return false;
    const FolderId id = folderIdOf(folder);
    if (m_searched.contains(id))
        return true;
    if (!id.isEmpty())
        m_searched.insert(id);
    // Qt lists a folder that it cannot read as an empty one.
    std::error_code error;
    const std::filesystem::directory_iterator readable(QFileInfo(folder).filesystemFilePath(),
                                                       error);
    if (error) {
        m_unreadable << folder;
        return true;
    }

    const QFileInfoList entries = QDir(folder).entryInfoList(
        songnames::patterns(), QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot,
        QDir::Name | QDir::DirsFirst);
    for (const QFileInfo &entry : entries) {
        if (!entry.isDir())
            m_found << entry.filePath();
        else if (!searchFolder(entry.filePath()))
            return false;
    }
    return true;
}

bool SongSearch::goOn()
{
    if (m_progress == nullptr && m_running.hasExpired(patienceMilliseconds))
        m_progress = m_openProgress(
            QCoreApplication::translate("MainWindow", "Lettura file"),
            QCoreApplication::translate("MainWindow", "Cerco le song nelle cartelle..."), 0);
    KeepAlive::processEventsNow();
    return m_progress == nullptr || !m_progress->wasCanceled();
}
