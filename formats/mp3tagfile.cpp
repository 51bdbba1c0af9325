#include "formats/mp3tagfile.h"

#include "formats/mp3header.h"
#include "storage/songlayout.h"

#include <QFile>

#include <algorithm>

bool mp3tagfile::load(QFile &file, qint64 most, Mp3Header &header, QByteArray &start)
{
    most = std::min(file.size(), most);
    const auto readUpTo = [&file, &start, most](qint64 size) {
        start += file.read(std::min(most, size) - start.size());
        return start.size() == std::min(most, size);
    };
    start.clear();
    if (!readUpTo(Mp3Header::headerSize))
        return false;
    const qint64 tagSize =
        start.startsWith(songlayout::id3Magic) ? qint64{header.getId3TagSize(start)} : 0;
    if (!readUpTo(Mp3Header::headerSize + tagSize + Mp3Header::footerSize) ||
        !header.loadHeader(start))
        return false;
    // The size in a tag does not count the tag's own ten bytes and a footer, so the tag can end
    // later than its size says.
    const qsizetype missing =
        qsizetype{header.getAudioDataStartPos()} + Mp3Header::footerSize - start.size();
    if (missing <= 0)
        return true;
    start += file.read(missing);
    return header.loadHeader(start);
}
