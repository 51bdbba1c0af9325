// Finds out whether the player can show what the tags of an MP3 file say.
#pragma once

#include "formats/tagtrouble.h"

#include <QByteArrayView>

class Id3Walk;
class Mp3Header;
class QFile;

/**
 * Looks at the bytes alone and reads only what is needed: each song that is imported is examined.
 * start holds the tag at the start of the file, as it stands there, and may go on behind it; tag is
 * what was loaded from it. The end of the file is read only where the tag has no title and no
 * artist; the file's place is another one then.
 */
TagTroubles examineTags(QByteArrayView start, const Mp3Header &tag, QFile &file);

/**
 * Whether the text of a frame reads wrong when its bytes are taken for ISO-8859-1. id is that of
 * version 3, as in Id3FrameId, whatever version the tag has; false for a frame that is not there.
 */
bool frameReadsWrong(const Id3Walk &tag, const char *id);
