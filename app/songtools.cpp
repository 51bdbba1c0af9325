#include "app/songtools.h"

#include "app/severaltools.h"
#include "app/songhistory.h"
#include "app/tagpreparing.h"

#include <QMainWindow>

SongTools::SongTools(QMainWindow *window, const Ui::MainWindow &form, SongList &songs,
                     BusyState &busy, ActionGate &gate)
    : QObject(window)
    , m_history(new SongHistory(window, form, songs, busy, gate))
    , m_several(new SeveralTools(window, form, songs, busy, gate))
    , m_tags(new TagPreparing(window, form, songs, busy, gate, history()))
{
    m_several->setHistory(history());
    connect(m_several, &SeveralTools::renamed, this, &SongTools::renamed);
    connect(m_history, &SongHistory::renamed, m_several, &SeveralTools::followHistory);
}

OpenHistory SongTools::history()
{
    return m_history->opener();
}
