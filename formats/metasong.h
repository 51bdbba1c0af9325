// The one entry point through which the rest of the program reads and writes song files.
#pragma once

#include "formats/mfxheader.h"
#include "formats/mp3header.h"
#include "formats/rawmidifile.h"
#include "formats/songinfo.h"

#include <QString>
#include <QStringList>

class MetaSong
{
public:
    bool importFile(const QString &path);
    void getSongInfo(SongInfo &info) const;
    void setSongInfo(const SongInfo &info, bool manual);
    bool saveToFile(const QString &path);
    void dbgAddMarker(const QString &text, unsigned short bar);

    static QString getFormatString(SongInfo::fileTypeEnum type);
    static QStringList getKeysList();
    static void removeReadOnlyFlag(const QString &path);
};
