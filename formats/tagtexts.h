// Reads what the tags of an MP3 file say, whatever their kind, version and encoding.
#pragma once

#include "formats/songinfo.h"
#include "formats/trailingtags.h"

#include <QByteArrayView>

/**
 * Title, artist, genre, author, key, tempo and length as the tags have them, in Unicode; several
 * artists are put together with "/". A text is taken from the tag at the start of the file (all of
 * its bytes are given), and where that has neither title nor artist from those behind the audio. A
 * text of more than 64 KiB (4 KiB if it is packed) counts as none, and longer ones than a thousand
 * characters are cut. Only these seven are read: a picture of any size costs nothing.
 */
SongInfo textsOfTags(QByteArrayView tag, const TrailingTags &behind);
