// Finds the song files among files and folders that the user dropped.
#pragma once

#include "library/progress.h"
#include "storage/folderid.h"

#include <QElapsedTimer>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

/**
 * Files are taken as they are, whatever their names; the import finds out which of them are no
 * songs. Of folders, the files with a song's extension are taken, from all folders in it too.
 * Windows process events meanwhile; a long search shows a progress, with which the user can stop
 * it.
 */
class SongSearch
{
public:
    explicit SongSearch(OpenProgress openProgress);

    /**
     * The absolute paths of the songs, each once, in the order given; a folder's own folders come
     * first, each sorted by name. A folder that links lead back into is not entered again. Nothing
     * when the user stopped the search.
     */
    std::optional<QStringList> search(const QStringList &paths);

    /** The folders of the last search that could not be read, so that their songs are not known. */
    const QStringList &unreadable() const { return m_unreadable; }

private:
    bool searchFolder(const QString &folder);
    bool goOn();

    OpenProgress m_openProgress;
    std::unique_ptr<Progress> m_progress; ///< made when the search takes long
    QElapsedTimer m_running;
    QSet<FolderId> m_searched;
    QStringList m_found;
    QStringList m_unreadable;
};
