#include "devindex/memoryplaylists.h"

#include "devindex/playlistfiles.h"

#include <QHash>

#include <algorithm>

namespace
{

/** Places by id of the songs that the player finds. */
QHash<quint32, qsizetype> placesById(const MemorySongs &memory)
{
    QHash<quint32, qsizetype> places;
    const QList<MemorySong> &songs = memory.songs();
    places.reserve(songs.size());
    for (qsizetype place = 0; place < songs.size(); ++place) {
        const MemorySong &song = songs.at(place);
        if (song.state != MemorySong::State::NotIndexed && song.state != MemorySong::State::Gone)
            places.insert(song.info.id, place);
    }
    return places;
}

} // namespace

int MemoryPlaylist::lostCount() const
{
    return static_cast<int>(std::count_if(songs.cbegin(), songs.cend(),
                                          [](const PlaylistSong &song) { return song.isLost(); }));
}

QList<MemoryPlaylist> playlistsOf(const MemorySongs &memory)
{
    QList<MemoryPlaylist> lists;
    QList<quint16> numbers;
    const PlaylistFiles files(memory.root());
    if (files.readNumbers(numbers) != PlaylistFiles::Outcome::Done)
        return lists;
    const QHash<quint32, qsizetype> places = placesById(memory);
    qsizetype all = 0;
    for (const quint16 number : std::as_const(numbers)) {
        MemoryPlaylist list;
        list.number = number;
        QList<quint32> ids;
        list.isReadable =
            all < mostPlaylistSongs && files.readIds(number, ids) == PlaylistFiles::Outcome::Done;
        all += ids.size();
        for (const quint32 id : std::as_const(ids))
            list.songs.append({id, places.value(id, -1)});
        lists.append(std::move(list));
    }
    return lists;
}
