// From the ticks of a MIDI file to bars.
#pragma once

#include <QtGlobal>

#include <vector>

/** Counts bars as a musician does: the first is bar 1, and a change of metre begins a new bar. */
class BarCount
{
public:
    /** Ticks in a quarter note: more than 0. The metre is 4/4 until another one is added. */
    explicit BarCount(int ticksInQuarter);

    /**
     * From the tick on a bar has so many beats; the beat is a whole note divided by two as often as
     * the power says. Ticks may come in any order. A metre that no music has is left out.
     */
    void add(qint64 tick, int beats, int power);

    /** Numbers the bars; to be called once, behind all add(). */
    void count();

    /** The number of the bar that the tick is in; the tick is 0 or greater. */
    qint64 barAt(qint64 tick) const;

    /** The first tick of a bar; 0 for numbers below 1. */
    qint64 tickOf(qint64 bar) const;

private:
    struct Metre {
        qint64 tick;
        int beats;
        int power;
        qint64 bar; ///< the first one
    };

    qint64 barsFrom(const Metre &metre, qint64 tick, bool isPartCounted) const;

    int m_ticksInQuarter;
    std::vector<Metre> m_metres;
};
