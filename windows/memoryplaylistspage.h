// The page of the memory window with the player's playlists, which are only looked at.
#pragma once

#include "windows/memorycontents.h"

#include <QObject>
#include <QStringListModel>

QT_BEGIN_NAMESPACE
class QLabel;
class QListView;
QT_END_NAMESPACE

class MemoryPlaylistsPage : public QObject
{
    Q_OBJECT

public:
    MemoryPlaylistsPage(QLabel *summary, QListView *playlists, QListView *songs, QObject *parent);

    /** Shows the playlists of this memory; null for none. */
    void setContents(const SharedContents &contents);

    void retranslate();

private:
    void showPlaylists();
    void showSongs(int playlist);
    QString playlistText(const MemoryPlaylist &playlist) const;
    QString songText(const PlaylistSong &song) const;

    QLabel *const m_summary;
    QListView *const m_playlistsView;
    QListView *const m_songsView;
    QStringListModel m_playlists;
    QStringListModel m_songs;
    SharedContents m_contents;
};
