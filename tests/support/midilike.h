// Bytes that look like the MIDI file of a backing track: several tracks of patterns that repeat
// with small changes, as players and sequencers make them. The same seed gives the same bytes.
#pragma once

#include "support/songbytes.h"

#include <QByteArray>
#include <QList>

#include <random>

namespace midilike
{

class Song
{
public:
    explicit Song(quint32 seed)
        : m_random(seed)
    {
    }

    /** A file of exactly `size` bytes; its last track is cut off where the size is reached. */
    QByteArray bytes(qsizetype size)
    {
        QByteArray out = songbytes::midiFile({}, 1);
        for (int channel = 0; out.size() < size; ++channel)
            out += songbytes::track(trackEvents(channel % 16));
        return out.left(size);
    }

private:
    struct Note {
        int wait;
        int key;
        int length;
    };

    int pick(int below) { return static_cast<int>(m_random() % static_cast<quint32>(below)); }

    QList<Note> bar()
    {
        static const QList<int> grid = {60, 120, 120, 120, 240, 240, 480};
        static const QList<int> scale = {0, 2, 4, 5, 7, 9, 11, 12};
        QList<Note> notes;
        const int base = 36 + 12 * pick(4);
        for (int i = 4 + pick(9); i > 0; --i)
            notes.append({grid[pick(7)], base + scale[pick(8)], grid[pick(7)]});
        return notes;
    }

    static void appendWait(QByteArray &out, int ticks)
    {
        if (ticks >= 128)
            out.append(static_cast<char>(0x80 | (ticks >> 7)));
        out.append(static_cast<char>(ticks & 0x7F));
    }

    QByteArray trackEvents(int channel)
    {
        const QList<QList<Note>> bars = {bar(), bar(), bar(), bar()};
        const bool played = pick(2) != 0; // by hand: times and velocities waver
        QByteArray out = songbytes::metaEvent(3, "Track " + QByteArray::number(pick(100)));
        for (int i = 0; i < 64; ++i) {
            for (const Note &note : bars[pick(3) == 0 ? pick(4) : i % 4])
                appendNote(out, note, channel, played);
        }
        return out;
    }

    void appendNote(QByteArray &out, const Note &note, int channel, bool played)
    {
        appendWait(out, note.wait + (played ? pick(5) : 0));
        out.append(static_cast<char>(0x90 | channel));
        out.append(static_cast<char>(note.key));
        out.append(static_cast<char>(played ? 70 + pick(40) : 100));
        appendWait(out, note.length - (played ? pick(5) : 0));
        out.append(static_cast<char>(0x80 | channel));
        out.append(static_cast<char>(note.key));
        out.append('\x40');
    }

    std::mt19937 m_random;
};

/** `size` bytes of a song. */
inline QByteArray bytes(qsizetype size, quint32 seed)
{
    return Song(seed).bytes(size);
}

} // namespace midilike
