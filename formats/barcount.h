// From the ticks of a MIDI file to bars.
#pragma once

#include <QByteArrayView>
#include <QtGlobal>

#include <vector>

/** Counts bars as a musician does: the first is bar 1, and a change of metre begins a new bar. */
class BarCount
{
public:
    /** Ticks in a quarter note: more than 0. The metre is 4/4 until another one is added. */
    explicit BarCount(int ticksInQuarter);

    /**
     * From the tick on the metre of a meta event's data holds. Their first byte is the number of
     * beats in a bar; the beat is a whole note divided by two as often as the second byte says.
     * Ticks may come in any order. Shorter data and a metre that no music has are left out.
     */
    void add(qint64 tick, QByteArrayView data);

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
