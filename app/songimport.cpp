#include "app/songimport.h"

#include "app/songlist.h"
#include "app/windowprogress.h"
#include "formats/songnames.h"
#include "library/database.h"
#include "library/songsearch.h"
#include "storage/diagnostics.h"
#include "windows/filechooser.h"
#include "windows/paintingpaused.h"
#include "windows/usersongsreltablemodel.h"

#include <QFileInfo>
#include <QSet>
#include <QTableView>

#include <algorithm>
#include <iterator>

SongImport::SongImport(QWidget *window, Database &database, SongList &songs,
                       WindowProgress &progress)
    : m_window(window)
    , m_database(database)
    , m_songs(songs)
    , m_progress(progress)
{
}

QStringList SongImport::choose()
{
    return filechooser::openFiles(
        m_window, tr("Seleziona i file da importare"), m_folder,
        {QStringLiteral("Songs (%1)").arg(songnames::patterns().join(QLatin1Char(' ')))});
}

QString SongImport::chooseFolder()
{
    return filechooser::folder(m_window, tr("Scegli cartella"), m_folder);
}

std::optional<QStringList> SongImport::search(const QStringList &paths)
{
    return SongSearch(m_progress.open()).search(paths);
}

std::optional<LibraryImport::Counts> SongImport::importFiles(const QStringList &files)
{
    if (!files.isEmpty())
        m_folder = QFileInfo(files.first()).path();
    LibraryImport::logBanner();
    if (m_songs.model().goodRowCount() > 0) {
        if (!m_database.clearUserLibraryDb()) {
            logDebug() << "[importUserLibrary] WARNING: impossible to CLEAR table. Aborting import "
                          "!!!";
            return std::nullopt;
        }
    }
    m_songs.startImport();

    LibraryImport::Counts counts;
    QList<UnreadableFile> unreadable;
    {
        const auto progress = m_progress.open()(tr("Lettura file"), tr("Importo la libreria..."),
                                                static_cast<int>(files.size()));
        const PaintingPaused paused(m_songs.view());
        LibraryImport import(m_songs.model(), *progress);
        counts = import.importFiles(files);
        unreadable = import.unreadableFiles();
    }
    m_songs.showImport(unreadable);
    return counts;
}

QStringList SongImport::addFiles(const QStringList &files)
{
    const QStringList listed = m_songs.files();
    const QSet<QString> known(listed.cbegin(), listed.cend());
    QStringList added;
    std::copy_if(files.cbegin(), files.cend(), std::back_inserter(added),
                 [&known](const QString &path) { return !known.contains(path); });
    if (added.isEmpty())
        return added;
    m_folder = QFileInfo(added.constFirst()).path();
    LibraryImport::logBanner();
    QList<UnreadableFile> unreadable;
    {
        const auto progress = m_progress.open()(tr("Lettura file"), tr("Importo la libreria..."),
                                                static_cast<int>(added.size()));
        const PaintingPaused paused(m_songs.view());
        LibraryImport import(m_songs.model(), *progress);
        const LibraryImport::Counts counts = import.importUntilStopped(added);
        added.resize(counts.valid + counts.bad);
        unreadable = import.unreadableFiles();
    }
    // Those that were unreadable before and were not tried again still are.
    const QSet<QString> tried(added.cbegin(), added.cend());
    QList<UnreadableFile> all;
    const QList<UnreadableFile> before = m_songs.unreadableFiles();
    std::copy_if(before.cbegin(), before.cend(), std::back_inserter(all),
                 [&tried](const UnreadableFile &file) { return !tried.contains(file.path); });
    m_songs.showImport(all + unreadable);
    return added;
}

void SongImport::scanDir(const QString &dir, LibraryImport::Counts &counts)
{
    LibraryImport(m_songs.model(), m_progress.shown()).scanDir(dir, counts);
}
