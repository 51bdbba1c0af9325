#include "formats/mp3edit.h"

#include "formats/id3frame.h"
#include "formats/rawmidifile.h"

namespace
{

/** Whether the frame says nothing beyond the text that is read from it. */
bool isPlainText(const Mp3Header &tag, const char *id)
{
    return isPlainText(tag.firstFrame(QLatin1String(id)));
}

bool isPlainNumber(const Mp3Header &tag, const char *id, int unit)
{
    return isPlainNumber(tag.firstFrame(QLatin1String(id)), unit);
}

bool isForeignKey(const QString &key)
{
    return !key.isEmpty() && !RawMidiFile().getKeysList().contains(key);
}

} // namespace

void writeEditedItems(Mp3Header &tag, const SongInfo &info)
{
    // All frames are looked at before the first one is written: behind a damaged one they are
    // searched for byte by byte, and a written text can look like a frame.
    const bool keepsTitle = info.title == tag.title() && !isPlainText(tag, Id3FrameId::title);
    const bool keepsArtist = info.artist == tag.artist() && !isPlainText(tag, Id3FrameId::artist);
    const bool keepsAuthor = info.author == tag.author() && !isPlainText(tag, Id3FrameId::author);
    const bool keepsGenre = info.genre == tag.genre() && !isPlainText(tag, Id3FrameId::genre);
    const bool keepsBpm =
        info.userBpm == tag.userBpm() && !isPlainNumber(tag, Id3FrameId::userBpm, 1);
    const bool keepsKey =
        info.key == tag.key() && (isForeignKey(info.key) || !isPlainText(tag, Id3FrameId::key));
    const bool keepsLength =
        info.length == tag.length() &&
        !isPlainNumber(tag, Id3FrameId::length, Mp3Header::millisecondsPerSecond);

    if (!keepsTitle)
        tag.setTitle(info.title);
    if (!keepsArtist)
        tag.setArtist(info.artist);
    if (!keepsAuthor)
        tag.setAuthor(info.author);
    if (!keepsGenre)
        tag.setGenre(info.genre);
    if (!keepsBpm)
        tag.setUserBpm(info.userBpm);
    if (!keepsKey)
        tag.setKey(info.key);
    if (!keepsLength)
        tag.setLength(info.length);
}
