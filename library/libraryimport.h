// Reads song files and fills the library table with them.
#pragma once

#include "library/progress.h"
#include "library/songtable.h"
#include "library/unreadablefile.h"
#include "storage/leftovers.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

/**
 * Every file that is a song becomes a row; any other file is logged, counted and skipped. Model and
 * progress must outlive the import.
 */
class LibraryImport
{
public:
    struct Counts {
        int valid = 0; ///< songs
        int kravo = 0; ///< songs that the maker signed
        int bad = 0;   ///< files that are no songs, are corrupted or cannot be read
    };

    LibraryImport(SongTable &model, Progress &progress);

    /** Writes the heading of an import to the log. */
    static void logBanner();

    /** Imports all files in their order; a cancelled progress does not stop it. */
    Counts importFiles(const QStringList &paths);

    /** The same, but a cancelled progress stops it behind the songs that the counts come to. */
    Counts importUntilStopped(const QStringList &paths);

    /**
     * Imports a folder with all folders in it, folders first, each sorted by name, and adds to the
     * counts. Returns false when the user stopped it. A folder that links lead back into is not
     * entered again.
     */
    bool scanDir(const QString &dir, Counts &counts);

    /** The files that were counted as bad, in their order. */
    const QList<UnreadableFile> &unreadableFiles() const { return m_unreadable; }

private:
    void importNext(const QString &path, Counts &counts);
    bool importFile(const QString &path, Counts &counts);
    bool scanEntries(const QString &dir, Counts &counts);

    SongTable &m_model;
    Progress &m_progress;
    QList<UnreadableFile> m_unreadable;
    Leftovers m_leftovers;
    QSet<QString> m_openFolders; ///< canonical paths of the folders that are being scanned
};
