#include "windows/memoryplaylistspage.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QListView>
#include <QStringList>

#include <algorithm>

MemoryPlaylistsPage::MemoryPlaylistsPage(QLabel *summary, QListView *playlists, QListView *songs,
                                         QObject *parent)
    : QObject(parent)
    , m_summary(summary)
    , m_playlistsView(playlists)
    , m_songsView(songs)
{
    m_playlistsView->setModel(&m_playlists);
    m_songsView->setModel(&m_songs);
    connect(m_playlistsView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &current) { showSongs(current.row()); });
    showPlaylists();
}

void MemoryPlaylistsPage::setContents(const SharedContents &contents)
{
    m_contents = contents;
    showPlaylists();
}

void MemoryPlaylistsPage::retranslate()
{
    showPlaylists();
}

void MemoryPlaylistsPage::showPlaylists()
{
    QStringList lines;
    if (m_contents) {
        for (const MemoryPlaylist &playlist : m_contents->playlists())
            lines.append(playlistText(playlist));
    }
    const int current = std::max(0, m_playlistsView->currentIndex().row());
    m_playlists.setStringList(lines);
    if (!m_contents)
        m_summary->clear();
    else if (lines.isEmpty())
        m_summary->setText(tr("Nella memoria non ci sono playlist."));
    else
        m_summary->setText(tr("Le playlist si cambiano sul player. Una song perduta è una che il "
                              "player non trova più."));
    m_songs.setStringList({});
    if (!lines.isEmpty())
        m_playlistsView->setCurrentIndex(
            m_playlists.index(std::min(current, static_cast<int>(lines.size()) - 1)));
}

void MemoryPlaylistsPage::showSongs(int playlist)
{
    QStringList lines;
    if (m_contents && playlist >= 0 && playlist < m_contents->playlists().size()) {
        const MemoryPlaylist &shown = m_contents->playlists().at(playlist);
        lines.reserve(shown.songs.size());
        for (const PlaylistSong &song : shown.songs)
            lines.append(QStringLiteral("%1. %2").arg(lines.size() + 1).arg(songText(song)));
    }
    m_songs.setStringList(lines);
}

QString MemoryPlaylistsPage::playlistText(const MemoryPlaylist &playlist) const
{
    if (!playlist.isReadable)
        return tr("Playlist %1 – non si può leggere").arg(playlist.number);
    QString text = tr("Playlist %1 – %n song", "", static_cast<int>(playlist.songs.size()))
                       .arg(playlist.number);
    const int lost = playlist.lostCount();
    if (lost > 0)
        text += QStringLiteral(", ") + tr("%n perdute", "", lost);
    return text;
}

QString MemoryPlaylistsPage::songText(const PlaylistSong &song) const
{
    if (song.isLost())
        return tr("(song perduta)");
    const SongInfoIndex &info = m_contents->songs().at(song.place).info;
    const QString artist = knownText(info.artist);
    return artist.isEmpty() ? info.title : QStringLiteral("%1 – %2").arg(info.title, artist);
}
