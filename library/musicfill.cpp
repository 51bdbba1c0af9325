#include "library/musicfill.h"

#include <QtGlobal>

namespace
{

// What can be entered by hand.
constexpr double longestSong = 99 * 60 + 59;
constexpr int fastestTempo = 999;

constexpr qsizetype longestMarkerText = 125;

} // namespace

bool musicfill::lacksValue(const SongInfo &info)
{
    return info.length == 0 || info.userBpm == 0 || info.key.isEmpty();
}

SongInfo musicfill::filled(SongInfo info, const SongMeasure &measure)
{
    const SongInfo measured = replaced(info, measure);
    if (info.length == 0)
        info.length = measured.length;
    if (info.userBpm == 0)
        info.userBpm = measured.userBpm;
    if (info.key.isEmpty())
        info.key = measured.key;
    return info;
}

SongInfo musicfill::replaced(SongInfo info, const SongMeasure &measure)
{
    if (measure.length >= 0.5 && measure.length < longestSong + 0.5)
        info.length = qRound(measure.length);
    if (measure.bpm > 0 && measure.bpm <= fastestTempo)
        info.userBpm = measure.bpm;
    if (!measure.key.isEmpty())
        info.key = measure.key;
    const QList<Marker> markers = playerMarkers(measure.markers);
    if (!markers.isEmpty())
        info.markers = markers;
    return info;
}

QList<Marker> musicfill::playerMarkers(const QList<Marker> &found)
{
    QList<Marker> markers;
    for (const Marker &place : found) {
        QString text = place.text;
        for (QChar &character : text) {
            if (character.category() == QChar::Other_Control)
                character = QLatin1Char(' ');
        }
        text = text.simplified().left(longestMarkerText).trimmed();
        if (!text.isEmpty() && (markers.isEmpty() || markers.constLast().bar != place.bar))
            markers.append({place.bar, text});
    }
    return markers;
}
