#include "formats/tempomap.h"

#include <QHash>

#include <algorithm>

namespace
{

constexpr quint32 firstTempo = 500000; // until a file says something else
constexpr double microsecondsInSecond = 1e6;
constexpr double microsecondsInMinute = 60e6;

/** Frames a second; 0 for a number that the standard does not know. */
double frameRate(int number)
{
    switch (number) {
    case 24:
    case 25:
    case 30:
        return number;
    case 29: // drop frame, the rate of colour television in America
        return 30000.0 / 1001;
    default:
        return 0;
    }
}

int roundedBpm(quint32 microseconds)
{
    return qRound(microsecondsInMinute / microseconds);
}

/** How long a tempo held, and which one was the first of all. */
struct HeldTempo {
    double seconds = 0;
    int place = 0;
};

} // namespace

TempoMap::TempoMap(quint16 timeDivision)
{
    constexpr quint16 framesBit = 0x8000;
    if ((timeDivision & framesBit) == 0)
        m_ticksInQuarter = timeDivision;
    else
        m_ticksInSecond = frameRate(-static_cast<qint8>(timeDivision >> 8)) * (timeDivision & 0xFF);
}

void TempoMap::add(qint64 tick, QByteArrayView data)
{
    constexpr qsizetype tempoSize = 3;
    if (data.size() != tempoSize)
        return;
    quint32 microseconds = 0;
    for (const char byte : data)
        microseconds = microseconds << 8 | static_cast<quint8>(byte);
    if (microseconds > 0)
        m_changes.push_back({tick, microseconds});
}

TempoMap::Sum TempoMap::until(qint64 end)
{
    sortChanges();
    Sum sum;
    QHash<int, HeldTempo> held;
    Change now = firstChange();
    const auto hold = [&](qint64 tick, bool isLast) {
        const double passed = seconds(tick - now.tick, now.microseconds);
        sum.seconds += passed;
        if (now.microseconds == 0 || (passed <= 0 && !isLast))
            return;
        const auto place = static_cast<int>(held.size());
        const int bpm = roundedBpm(now.microseconds);
        auto tempo = held.find(bpm);
        if (tempo == held.end())
            tempo = held.insert(bpm, {0, place});
        tempo->seconds += passed;
    };
    for (const Change &change : m_changes) {
        if (change.tick > end)
            break;
        hold(change.tick, false);
        now = change;
    }
    hold(end, true);

    HeldTempo longest;
    for (auto tempo = held.cbegin(); tempo != held.cend(); ++tempo) {
        if (sum.bpm == 0 || tempo->seconds > longest.seconds ||
            (tempo->seconds >= longest.seconds && tempo->place < longest.place)) {
            longest = *tempo;
            sum.bpm = tempo.key();
        }
    }
    return sum;
}

TempoMap::Clock::Clock(TempoMap &map)
    : m_map(map)
    , m_now(map.firstChange())
{
    map.sortChanges();
}

double TempoMap::Clock::secondsAt(qint64 tick)
{
    const std::vector<Change> &changes = m_map.m_changes;
    for (; m_next < changes.size() && changes[m_next].tick <= tick; ++m_next) {
        m_passed += m_map.seconds(changes[m_next].tick - m_now.tick, m_now.microseconds);
        m_now = changes[m_next];
    }
    return m_passed + m_map.seconds(tick - m_now.tick, m_now.microseconds);
}

void TempoMap::sortChanges()
{
    const auto isEarlier = [](const Change &a, const Change &b) { return a.tick < b.tick; };
    if (!std::is_sorted(m_changes.begin(), m_changes.end(), isEarlier))
        std::stable_sort(m_changes.begin(), m_changes.end(), isEarlier);
}

/** What holds before all changes. */
TempoMap::Change TempoMap::firstChange() const
{
    return {0, m_ticksInQuarter > 0 ? firstTempo : 0};
}

double TempoMap::seconds(qint64 ticks, quint32 microseconds) const
{
    const auto count = static_cast<double>(ticks);
    if (m_ticksInQuarter > 0)
        return count * microseconds / m_ticksInQuarter / microsecondsInSecond;
    return m_ticksInSecond > 0 ? count / m_ticksInSecond : 0;
}
