// The keys that a song can have: their names and their MIDI key signatures.
#pragma once

#include <QMap>
#include <QString>

/**
 * The value of a key signature is its two data bytes: sharps (flats count negative) in the upper
 * byte, in the lower one 0 for major and 1 for minor.
 */
namespace midikeys
{
/** The value of a key signature. */
constexpr quint16 value(qint8 sharps, bool isMinor)
{
    return static_cast<quint16>((static_cast<quint8>(sharps) << 8) | (isMinor ? 1 : 0));
}

/** The value for each name that can be stored, some of which are other names of the same key. */
const QMap<QString, quint16> &values();

/** The one name for each value by which the key is shown. */
const QMap<quint16, QString> &names();
} // namespace midikeys
