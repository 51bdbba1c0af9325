// Markers as the table of a catalogue holds them.
#pragma once

#include "formats/marker.h"

#include <QList>
#include <QString>

/**
 * The user's own catalogue holds markers as they stand in the song, so that a ";" in a text, which
 * would end it, is written as "%3B", a "%" as "%25" and an empty text as "%". In texts without
 * these it is the form of the built-in catalogue.
 */
namespace markertexts
{

/** "bar;text;bar;text;"; empty for no markers. */
QString toText(const QList<Marker> &markers);

/** The same backwards; what is no marker is left out, as Database::splitMarkers() does. */
QList<Marker> fromText(const QString &text);

} // namespace markertexts
