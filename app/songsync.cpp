#include "app/songsync.h"

#include "app/songlist.h"
#include "app/syncresult.h"
#include "app/windowprogress.h"
#include "library/owncatalogue.h"
#include "windows/changepreviewdialog.h"
#include "windows/confirmation.h"
#include "windows/runreportbox.h"
#include "windows/usersongsreltablemodel.h"

#include <QMessageBox>

SongSync::SongSync(QWidget *window, Database &database, SongList &songs, WindowProgress &progress,
                   SuggestBackup suggestBackup)
    : m_window(window)
    , m_database(database)
    , m_songs(songs)
    , m_progress(progress)
    , m_suggestBackup(std::move(suggestBackup))
{
}

bool SongSync::run(bool copyrightAsk, bool preview)
{
    if (!goesOnWithoutOwnCatalogue())
        return false;
    if (preview && !ChangePreviewDialog::confirm(m_database, m_songs.model(), copyrightAsk,
                                                 m_progress.open(), m_window))
        return false;
    Synchronisation run = synchronisation();
    const bool finished = run.run(copyrightAsk);
    m_songs.sortAgain();
    m_songs.fitColumns(); // the rows hold the catalogue's texts now
    if (m_result != nullptr)
        m_result->show(run.outcome());
    RunReportBox::tell(run.report(), m_window);
    return finished;
}

/** The built-in catalogue may know other data of a song than the user's own one, so he decides. */
bool SongSync::goesOnWithoutOwnCatalogue()
{
    OwnCatalogue own;
    own.open();
    own.entries(); // damage of a page shows itself only when it is read
    return own.problem().isEmpty() ||
           QMessageBox::question(m_window, tr("Il mio catalogo"),
                                 own.problem() + QLatin1Char('\n') +
                                     tr("Continuare con il solo catalogo del programma?"),
                                 QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::No) == QMessageBox::Yes;
}

bool SongSync::updateRow(int row)
{
    return synchronisation().updateFileWithDb(row);
}

Synchronisation SongSync::synchronisation()
{
    Synchronisation made(m_database, m_songs.model(), m_suggestBackup, &confirmation::askToChange,
                         m_progress.open());
    made.setHistory(m_openHistory);
    return made;
}
