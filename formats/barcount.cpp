#include "formats/barcount.h"

#include <algorithm>

namespace
{

constexpr int mostBeats = 255;  // a byte holds no more
constexpr int smallestBeat = 7; // the power of a 128th note
constexpr int quartersInWhole = 4;

} // namespace

BarCount::BarCount(int ticksInQuarter)
    : m_ticksInQuarter(ticksInQuarter)
    , m_metres{{0, 4, 2, 1}}
{
}

void BarCount::add(qint64 tick, QByteArrayView data)
{
    if (data.size() < 2)
        return;
    const int beats = static_cast<quint8>(data.at(0));
    const int power = static_cast<quint8>(data.at(1));
    if (beats > 0 && beats <= mostBeats && power <= smallestBeat)
        m_metres.push_back({tick, beats, power, 1});
}

void BarCount::count()
{
    const auto isEarlier = [](const Metre &a, const Metre &b) { return a.tick < b.tick; };
    if (!std::is_sorted(m_metres.begin(), m_metres.end(), isEarlier))
        std::stable_sort(m_metres.begin(), m_metres.end(), isEarlier);
    for (std::size_t i = 1; i < m_metres.size(); ++i) {
        const Metre &before = m_metres[i - 1];
        m_metres[i].bar = before.bar + barsFrom(before, m_metres[i].tick, true);
    }
}

qint64 BarCount::barAt(qint64 tick) const
{
    const auto next =
        std::upper_bound(m_metres.begin(), m_metres.end(), tick,
                         [](qint64 place, const Metre &metre) { return place < metre.tick; });
    const Metre &metre = *std::prev(next);
    return metre.bar + barsFrom(metre, tick, false);
}

qint64 BarCount::tickOf(qint64 bar) const
{
    const auto next =
        std::upper_bound(m_metres.begin(), m_metres.end(), std::max(bar, qint64{1}),
                         [](qint64 number, const Metre &metre) { return number < metre.bar; });
    const Metre &metre = *std::prev(next);
    const qint64 partsInBar = qint64{metre.beats} * quartersInWhole * m_ticksInQuarter;
    const qint64 parts = (std::max(bar, qint64{1}) - metre.bar) * partsInBar;
    const qint64 partsInTick = qint64{1} << metre.power;
    return metre.tick + (parts + partsInTick - 1) / partsInTick;
}

/** The bars between the metre's first tick and a later one; a last bar that is cut off may count.
 */
qint64 BarCount::barsFrom(const Metre &metre, qint64 tick, bool isPartCounted) const
{
    // A bar of a few short beats need not be a whole number of ticks.
    const qint64 parts = (tick - metre.tick) << metre.power;
    const qint64 partsInBar = qint64{metre.beats} * quartersInWhole * m_ticksInQuarter;
    return (parts + (isPartCounted ? partsInBar - 1 : 0)) / partsInBar;
}
