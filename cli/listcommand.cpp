#include "cli/listcommand.h"

#include "cli/songpaths.h"
#include "devindex/entrysort.h"
#include "devindex/index.h"

ExitStatus ListCommand::run()
{
    const QByteArray &path = m_request.paths.constFirst();
    const std::optional<QString> root = SongPaths::memory(path, m_terminal);
    if (!root)
        return ExitStatus::NothingDone;
    Index index;
    index.rootPath = *root;
    if (!index.checkIndexFile())
        return m_terminal.refuse(
            QString::fromUtf8(path),
            QCoreApplication::translate(
                "SongsListDialog",
                "Impossibile proseguire, la memoria non è preparata per Kavena"));
    if (index.loadAllIndexFile() < 0)
        return m_terminal.refuse(QString::fromUtf8(path),
                                 tr("Il database della memoria è danneggiato"));
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
