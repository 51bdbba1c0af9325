#include "library/musicfill.h"

#include <QtGlobal>

namespace
{

// What can be entered by hand.
constexpr double longestSong = 99 * 60 + 59;
constexpr int fastestTempo = 999;

} // namespace

bool musicfill::lacksValue(const SongInfo &info)
{
    return info.length == 0 || info.userBpm == 0 || info.key.isEmpty();
}

SongInfo musicfill::filled(SongInfo info, const SongMeasure &measure)
{
    if (info.length == 0 && measure.length < longestSong + 0.5)
        info.length = qRound(measure.length);
    if (info.userBpm == 0 && measure.bpm <= fastestTempo)
        info.userBpm = measure.bpm;
    if (info.key.isEmpty())
        info.key = measure.key;
    return info;
}
