// The tags that stand behind the audio of an MP3 file, where the player does not look.
#pragma once

#include <QByteArray>

class QFile;

/** The bytes of each tag; empty where there is none. A tag in front of which there is one of the
 * other kinds is found, too.
 */
struct TrailingTags {
    /** A longer tag, which would hold a large picture, counts as none. */
    static constexpr qint64 largestApe = qint64{4} * 1024 * 1024;

    QByteArray ape;   ///< items and footer, without a header
    QByteArray id3v1; ///< 128 bytes

    /** Of a file that is open for reading; its place is another one afterwards. */
    static TrailingTags read(QFile &file);

    /** True when the tag of ID3v1 has a title or an artist. */
    bool hasId3v1Texts() const;

    /** True when the APE tag has a title or an artist. */
    bool hasApeTexts() const;
};
