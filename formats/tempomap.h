// From the ticks of a MIDI file to seconds.
#pragma once

#include <QByteArrayView>
#include <QtGlobal>

#include <cstddef>
#include <vector>

/**
 * The changes of tempo of a song (Standard MIDI Files 1.0). Ticks are parts of a quarter note,
 * which lasts half a second until the first change; or they are parts of a frame of film, whatever
 * the tempo.
 */
class TempoMap
{
public:
    /** Takes the two bytes of a file's header that say what a tick is. */
    explicit TempoMap(quint16 timeDivision);

    /** Ticks in a quarter note; 0 where ticks are parts of a frame, or nothing at all. */
    int ticksInQuarter() const { return m_ticksInQuarter; }

    /**
     * From the tick on a quarter note lasts as many microseconds as the data of a meta event say:
     * three bytes, big-endian; data of another size are left out. Of two changes at one tick the
     * later call counts. Ticks may come in any order. No song can go on in a tempo of 0: that
     * change is left out.
     */
    void add(qint64 tick, QByteArrayView data);

    struct Sum {
        double seconds = 0;
        int bpm = 0; ///< the rounded tempo that holds for most of them; 0 when there is none
    };

    /** From the first tick to this one. */
    Sum until(qint64 end);

private:
    struct Change {
        qint64 tick;
        quint32 microseconds;
    };

public:
    /** Tells when ticks come that are asked for in ascending order. */
    class Clock
    {
    public:
        /** The map must outlive the clock and may get no more changes meanwhile. */
        explicit Clock(TempoMap &map);

        /** Seconds from the first tick to this one. */
        double secondsAt(qint64 tick);

    private:
        const TempoMap &m_map;
        std::size_t m_next = 0; ///< the change that comes next
        Change m_now;
        double m_passed = 0; ///< seconds until the change that holds now
    };

private:
    void sortChanges();
    Change firstChange() const;
    double seconds(qint64 ticks, quint32 microseconds) const;

    int m_ticksInQuarter = 0;
    double m_ticksInSecond = 0; ///< where ticks are parts of a frame
    std::vector<Change> m_changes;
};
