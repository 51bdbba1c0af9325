#include "devindex/listedsong.h"

#include "devindex/devicetext.h"
#include "devindex/indexrecords.h"
#include "devindex/songhead.h"

namespace
{

/** As a text comes back from the index. */
QString shownTitle(const SongRecord &record)
{
    return stringToUpper(record.title).trimmed();
}

QString shownGroup(const QString &text)
{
    GroupHeader header;
    header.text = text;
    return stringToUpper(GroupHeader::decode(header.encode().data()).text).trimmed();
}

} // namespace

bool ListedSong::shows(const QString &path) const
{
    SongHeadBuffer buffer{};
    const SongHead head = songHeadOf(path, buffer);
    SongInfoIndex song;
    if (record.size() != SongRecord::size || !readSongHead(head.bytes, path, song))
        return true;
    SongRecord now;
    now.title = song.title;
    const SongRecord listed = SongRecord::decode(record.constData());
    return shownTitle(listed) == shownTitle(SongRecord::decode(now.encode().data())) &&
           listed.fileType == song.fileType && listed.bpm == song.bpm &&
           listed.hasMarkers == (song.hasMarkers != 0) &&
           shownGroup(artist) == shownGroup(song.artist) &&
           shownGroup(genre) == shownGroup(song.genre);
}
