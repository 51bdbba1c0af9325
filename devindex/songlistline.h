// The lines of a song list that is saved as a table.
#pragma once

#include <QByteArray>
#include <QStringView>

#include <array>

/** Title, artist, genre and path: each closed by ";", without quotes, in UTF-8. */
QByteArray songListLine(const std::array<QStringView, 4> &fields);

/** The first line, which names the columns in the user's language. */
QByteArray songListHeader();
