#include "app/listplayer.h"

#include "app/songlist.h"
#include "windows/playerbar.h"
#include "windows/usersongsreltablemodel.h"

#include <QBoxLayout>
#include <QItemSelectionModel>
#include <QTableView>

ListPlayer::ListPlayer(SongList &songs)
    : QObject(&songs)
    , m_songs(songs)
    , m_bar(new PlayerBar(songs.view()->window()))
{
    // The list is one of several pages in its place; the bar stands below all of them.
    QWidget *const pages = songs.view()->parentWidget();
    auto *const layout = qobject_cast<QBoxLayout *>(pages->parentWidget()->layout());
    layout->insertWidget(layout->indexOf(pages) + 1, m_bar);
    m_bar->followInTabOrder(songs.view());
    m_bar->playOnSpaceIn(songs.view());
    connect(songs.view()->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ListPlayer::follow);
    // A row may become another song, and the current one may go, without another row being current.
    connect(&songs.model(), &QAbstractItemModel::modelReset, this, &ListPlayer::follow);
    connect(&songs.model(), &QAbstractItemModel::dataChanged, this, &ListPlayer::follow);
    connect(&songs.model(), &QAbstractItemModel::rowsRemoved, this, &ListPlayer::follow);
}

void ListPlayer::follow()
{
    const int row = m_songs.currentRow();
    m_bar->setSong(row < 0 ? QString() : m_songs.model().fileName(row));
}
