// The events of a MIDI song in the order in which they sound, each with its time.
#pragma once

#include "formats/marker.h"
#include "sound/soundproblem.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <vector>

class RawMidiFile;

/** A place in a song that the user can go to. */
struct SongSection {
    double start = 0; ///< seconds
    QString name;     ///< one line
};

class MidiScore
{
public:
    /** More events than this are refused, so that the memory that they take is bounded. */
    static constexpr std::size_t mostEvents = 4'000'000;

    /** More places than this help nobody to find his way; those behind them are left out. */
    static constexpr qsizetype mostSections = 1000;

    struct Event {
        qint64 time = 0; ///< ticks while the score is read, frames of sound afterwards
        quint8 status = 0;
        quint8 first = 0;
        quint8 second = 0;
        qint32 exclusive = -1; ///< place in exclusives() of what a system exclusive event says
    };

    /**
     * Reads all tracks as far as they are valid. Takes time and memory in proportion to the file.
     * None, or why it cannot be played.
     */
    SoundProblem::Kind read(const RawMidiFile &midi);

    const std::vector<Event> &events() const { return m_events; }
    const QList<QByteArray> &exclusives() const { return m_exclusives; }

    /** Seconds to the last event, the end of a track included. */
    double length() const { return m_length; }

    /** The places of the markers, in their order in time; those behind the end are left out. */
    QList<SongSection> sections(const RawMidiFile &midi, const QList<Marker> &markers) const;

private:
    bool readTrack(QByteArrayView track);

    std::vector<Event> m_events;
    QList<QByteArray> m_exclusives;
    double m_length = 0;
    qint64 m_end = 0;       ///< ticks
    bool m_isValid = false; ///< there was an event, of whatever kind
};
