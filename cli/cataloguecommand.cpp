#include "cli/cataloguecommand.h"

#include "library/database.h"

ExitStatus CatalogueCommand::run()
{
    Database database;
    if (!database.init())
        return m_terminal.refuse(tr("Il catalogo non può essere aperto"));
    const QList<SongsDbRecord> songs = database.find(m_request.text);
    for (const SongsDbRecord &song : songs)
        m_writer.catalogueSong(song);
    if (songs.isEmpty())
        return m_terminal.refuse(m_request.text, tr("Non è nel catalogo"));
    return ExitStatus::Done;
}
