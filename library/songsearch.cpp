#include "library/songsearch.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace
{

constexpr qint64 patienceMilliseconds = 400;

const char *const extensions[] = {"mid", "kar", "mp3", "mf3", "mf4", "mf5"};

} // namespace

QStringList songnames::patterns()
{
    QStringList patterns;
    for (const char *extension : extensions)
        patterns << QStringLiteral("*.") + QLatin1String(extension);
    return patterns;
}

bool songnames::isSongName(const QString &name)
{
    const QString suffix = QFileInfo(name).suffix().toLower();
    return std::any_of(std::begin(extensions), std::end(extensions),
                       [&](const char *extension) { return suffix == QLatin1String(extension); });
}

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
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    if (m_searched.contains(canonical))
        return true;
    m_searched.insert(canonical);

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
    QCoreApplication::processEvents();
    return m_progress == nullptr || !m_progress->wasCanceled();
}
