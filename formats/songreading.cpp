#include "formats/songreading.h"

#include "storage/diagnostics.h"

#include <QFileInfo>

bool songreading::openRegularFile(QFile &file)
{
    return QFileInfo(file.fileName()).isFile() && file.open(QFile::ReadOnly);
}

bool songreading::openSong(QFile &file)
{
    return openRegularFile(file) && file.size() > 0;
}

bool songreading::readToEnd(QFile &file, QByteArray &bytes)
{
    const qint64 left = file.size() - file.pos();
    if (left < 0 || left > largestFileInMemory) {
        logDebug() << "[MetaSong::importFile] file too large for a song, skipping file";
        return false;
    }
    bytes = file.read(left);
    return bytes.size() == left;
}
