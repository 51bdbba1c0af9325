#include "app/songtools.h"

#include "app/owncataloguemenu.h"
#include "app/severaltools.h"
#include "app/songhistory.h"
#include "app/syncresult.h"
#include "app/tagpreparing.h"

#include <QMainWindow>

SongTools::SongTools(QMainWindow *window, const Ui::MainWindow &form, SongList &songs,
                     BusyState &busy, ActionGate &gate)
    : QObject(window)
    , m_history(new SongHistory(window, form, songs, busy, gate))
    , m_several(new SeveralTools(window, form, songs, busy, gate))
    , m_tags(new TagPreparing(window, form, songs, busy, gate, history()))
    , m_syncResult(new SyncResult(window, form, songs, busy, gate))
{
    m_several->setHistory(history());
    connect(m_several, &SeveralTools::renamed, this, &SongTools::renamed);
    connect(m_history, &SongHistory::renamed, m_several, &SeveralTools::followHistory);
    auto *const catalogue = new OwnCatalogueMenu(window, form, songs, busy, gate);
    connect(m_syncResult, &SyncResult::editWanted, m_several, &SeveralTools::editSongs);
    connect(m_syncResult, &SyncResult::addWanted, catalogue, &OwnCatalogueMenu::addSongs);
    connect(catalogue, &OwnCatalogueMenu::added, m_syncResult, &SyncResult::wereAdded);
}

OpenHistory SongTools::history()
{
    return m_history->opener();
}
