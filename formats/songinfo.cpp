#include "formats/songinfo.h"

#include "storage/diagnostics.h"

void SongInfo::clear()
{
    *this = SongInfo();
}

void SongInfo::dbgDump() const
{
    logDebug() << "Dump Info song ----------------------------------------------";
    logDebug() << "Format     :" << format;
    logDebug() << "Filename   :" << fileName;
    logDebug() << "Shortname  :" << shortName;
    logDebug() << "Is K-Ravo  :" << isKravo;
    logDebug() << "Title      :" << title;
    logDebug() << "Artist     :" << artist;
    logDebug() << "AltArtist  :" << altArtist;
    logDebug() << "Genre      :" << genre;
    logDebug() << "Author     :" << author;
    logDebug() << "Length     :" << length;
    logDebug() << "userBpm    :" << userBpm;
    logDebug() << "Key        :" << key;
    if (markers.isEmpty()) {
        logDebug() << "NO Markers";
    } else {
        logDebug() << "Markers:";
        for (const Marker &marker : markers)
            logDebug() << "  bar:" << marker.bar << "  text:" << marker.text;
    }
    logDebug() << "MfxLongName:" << mfxLongName;
    const QString flags =
        QStringLiteral("0x%1").arg(static_cast<uint>(mfxFlags), 2, 16, QLatin1Char('0'));
    logDebug() << "MfxFlags   :" << flags.toLatin1().constData();
    logDebug() << "Dump END ----------------------------------------------------";
}
