#include "library/libraryimport.h"

#include "formats/metasong.h"
#include "formats/songinfo.h"
#include "library/keepalive.h"
#include "storage/diagnostics.h"

#include <QDir>
#include <QFileInfo>

LibraryImport::LibraryImport(SongTable &model, Progress &progress)
    : m_model(model)
    , m_progress(progress)
{
}

void LibraryImport::logBanner()
{
    logDebug() << "============================================";
    logDebug() << "          IMPORT USER LIBRARY";
    logDebug() << "============================================";
}

LibraryImport::Counts LibraryImport::importFiles(const QStringList &paths)
{
    Counts counts;
    for (const QString &path : paths)
        importNext(path, counts);
    return counts;
}

LibraryImport::Counts LibraryImport::importUntilStopped(const QStringList &paths)
{
    Counts counts;
    for (const QString &path : paths) {
        if (m_progress.wasCanceled())
            break;
        importNext(path, counts);
    }
    return counts;
}

void LibraryImport::importNext(const QString &path, Counts &counts)
{
    logDebug() << "Found file:" << path;
    if (!importFile(path, counts))
        logDebug() << "Unknown/corrupted file" << path;
    KeepAlive::processEventsNow();
}

bool LibraryImport::scanDir(const QString &dir, Counts &counts)
{
    logDebug() << "[scanDir] Analyzing directory:" << dir;
    const QString canonical = QFileInfo(dir).canonicalFilePath();
    if (!m_openFolders.contains(canonical)) {
        m_openFolders.insert(canonical);
        const bool finished = scanEntries(dir, counts);
        m_openFolders.remove(canonical);
        if (!finished)
            return false;
    }
    logDebug() << "==========================================================================";
    logDebug() << "";
    return true;
}

bool LibraryImport::scanEntries(const QString &dir, Counts &counts)
{
    const QFileInfoList entries = QDir(dir).entryInfoList(
        QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot, QDir::Name | QDir::DirsFirst);
    for (const QFileInfo &entry : entries) {
        const QString path = entry.filePath();
        if (m_progress.wasCanceled())
            return false;
        if (entry.isDir()) {
            logDebug() << "[scanDir] Found directory:" << path;
            if (!scanDir(path, counts))
                return false;
            m_progress.setValue(counts.valid + counts.bad);
            continue;
        }
        logDebug() << "[scanDir] Found file:" << path;
        if (!importFile(path, counts))
            logDebug() << "[scanDir] Unknown/corrupted file" << path;
        KeepAlive::processEventsNow();
    }
    return true;
}

bool LibraryImport::importFile(const QString &path, Counts &counts)
{
    m_leftovers.tidyBeside(path);
    if (MetaSong::takesLongToImport(path))
        m_progress.catchUp();
    MetaSong song;
    if (!song.importFile(path)) {
        ++counts.bad;
        m_unreadable.append(UnreadableFile::examine(path, song.wasInUse()));
        m_progress.setValue(counts.valid + counts.bad);
        return false;
    }

    ++counts.valid;
    logDebug() << "Song Index:" << counts.valid;
    SongInfo info;
    song.getSongInfo(info);
    info.dbgDump();
    m_model.addSong(info);
    m_progress.setValue(counts.valid + counts.bad);
    if (info.isKravo)
        ++counts.kravo;
    return true;
}
