// Reads the tag at the start of an MP3 file.
#pragma once

#include <QByteArray>
#include <QtGlobal>

class Mp3Header;
class QFile;

namespace mp3tagfile
{
/** A song whose tag reaches further than this into its file is not read as a song. */
constexpr qint64 largestReadTag = 1000000;

/** Larger tags, with pictures in them, are at least kept and put into another form. */
constexpr qint64 largestTag = qint64{32} * 1024 * 1024;

/**
 * Loads the tag of a file that is open for reading and stands at its start, and the bytes that it
 * is loaded from, which may go on behind it. False for a tag of more than most bytes, or one that
 * is cut off. A file without a tag has an empty one.
 */
bool load(QFile &file, qint64 most, Mp3Header &header, QByteArray &start);
} // namespace mp3tagfile
