#include "cli/listcommand.h"

#include "cli/songpaths.h"
#include "devindex/entrysort.h"
#include "devindex/index.h"
#include "devindex/mountedvolumes.h"

#include <QFileInfo>

ExitStatus ListCommand::run()
{
    const std::optional<QString> path = SongPaths::decode(m_request.paths.constFirst(), m_terminal);
    if (!path)
        return ExitStatus::NothingDone;
    const QString absolute = QFileInfo(*path).absoluteFilePath();
    if (!QFileInfo(absolute).isDir())
        return m_terminal.refuse(*path, QCoreApplication::translate(
                                            "IndexDialog", "Il percorso selezionato non esiste"));
    const QString memory = MountedVolumes().getRootDrivePath(absolute);
    Index index;
    index.rootPath = memory.isEmpty() ? absolute : memory;
    if (!index.checkIndexFile())
        return m_terminal.refuse(
            *path, QCoreApplication::translate(
                       "SongsListDialog",
                       "Impossibile proseguire, la memoria non è preparata per Kavena"));
    if (index.loadAllIndexFile() < 0)
        return m_terminal.refuse(*path, tr("Il database della memoria è danneggiato"));
    if (m_request.sort == Index::SortByArtist)
        sortByArtist(index.entries);
    else if (m_request.sort == Index::SortByGenre)
        sortByGenre(index.entries);
    else
        sortByTitle(index.entries);
    m_writer.beginList();
    for (const SongInfoIndex &song : std::as_const(index.entries)) {
        if (m_terminal.isStopped())
            return m_terminal.status();
        m_writer.listed(song);
        m_terminal.countDone();
    }
    return ExitStatus::Done;
}
