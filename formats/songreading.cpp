#include "formats/songreading.h"

#include "storage/diagnostics.h"

#include <QFileInfo>

bool songreading::openRegularFile(QFile &file)
{
    const QFileInfo info(file.fileName());
    return info.isFile() && info.size() > 0 && file.open(QFile::ReadOnly);
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
