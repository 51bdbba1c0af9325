#include "app/songsync.h"

#include "app/songlist.h"
#include "app/windowprogress.h"
#include "windows/changepreviewdialog.h"
#include "windows/confirmation.h"
#include "windows/runreportbox.h"
#include "windows/usersongsreltablemodel.h"

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
    if (preview && !ChangePreviewDialog::confirm(m_database, m_songs.model(), copyrightAsk,
                                                 m_progress.open(), m_window))
        return false;
    Synchronisation run = synchronisation();
    const bool finished = run.run(copyrightAsk);
    m_songs.fitColumns(); // the rows hold the catalogue's texts now
    RunReportBox::tell(run.report(), m_window);
    return finished;
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
