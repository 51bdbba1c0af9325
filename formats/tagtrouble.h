// Why the player cannot show what the tags of an MP3 file say.
#pragma once

#include <QFlags>

enum class TagTrouble : quint8 {
    Encoding = 1,       ///< a text is not in ISO-8859-1, or is packed
    Version = 2,        ///< frames as version 3 of ID3v2 does not have them
    Unsynchronised = 4, ///< zeros were put between the bytes
    OnlyId3v1 = 8,      ///< title and artist stand behind the audio, in a tag of ID3v1
    OnlyApe = 16        ///< or in one of APE
};
Q_DECLARE_FLAGS(TagTroubles, TagTrouble)
Q_DECLARE_OPERATORS_FOR_FLAGS(TagTroubles)
