// Events of a MIDI track, put together by hand.
#pragma once

#include "support/songbytes.h"

namespace midievents
{

using songbytes::bigEndian;
using songbytes::metaEvent;

/** A number as a MIDI file has it: seven bits in each byte. */
inline QByteArray quantity(quint32 value)
{
    QByteArray bytes(1, static_cast<char>(value & 0x7F));
    for (value >>= 7; value > 0; value >>= 7)
        bytes.prepend(static_cast<char>(0x80 | (value & 0x7F)));
    return bytes;
}

/** An event so many ticks behind the one before. */
inline QByteArray after(quint32 ticks, const QByteArray &event)
{
    return quantity(ticks) + event.mid(1); // without its delta time 0
}

inline QByteArray tempo(quint32 microseconds)
{
    return metaEvent(0x51, bigEndian(microseconds, 3));
}

inline QByteArray bpm(int number)
{
    return tempo(static_cast<quint32>(60000000 / number));
}

inline QByteArray metre(int beats, int power)
{
    const char bytes[] = {static_cast<char>(beats), static_cast<char>(power), 24, 8};
    return metaEvent(0x58, QByteArray(bytes, sizeof bytes));
}

inline QByteArray text(int type, const QByteArray &words)
{
    return metaEvent(type, words);
}

/** A note of a channel, so many ticks long. */
inline QByteArray note(int channel, int key, quint32 ticks)
{
    const char on[] = {0, static_cast<char>(0x90 | channel), static_cast<char>(key), 100};
    const char off[] = {static_cast<char>(0x80 | channel), static_cast<char>(key), 64};
    return QByteArray(on, sizeof on) + quantity(ticks) + QByteArray(off, sizeof off);
}

inline constexpr quint32 quarter = 96;

inline QByteArray pause(quint32 ticks)
{
    return after(ticks, metaEvent(1, ""));
}

} // namespace midievents
