// The items of a song that the user can change, each as a text.
#pragma once

#include "formats/songinfo.h"
#include "library/changepreview.h"

#include <QList>
#include <QString>

#include <optional>

namespace songfields
{

using Field = ChangePreview::Field;

/** All of them: title, artist, genre, author, length, tempo and key. */
const QList<Field> &all();

/** Those whose values are any text: title, artist, genre and author. */
const QList<Field> &texts();

/** The item as the user reads it; empty where the song has none. */
QString text(const SongInfo &info, Field field);

/** Gives the record the item of this text; false, with nothing changed, when it is no such item. */
bool setText(SongInfo &info, Field field, const QString &text);

/** The field of a word that is the same in every language: "title", "bpm" and so on. */
std::optional<Field> fromWord(const QString &word);

/** That word. */
QString word(Field field);

/** The name of a key that a song can have, without blanks, or an empty text for none. */
std::optional<QString> key(const QString &text);

/** Beats per minute, 0 to 999; 0 for none. */
std::optional<qint32> tempo(const QString &text);

/** Minutes, ":" and two digits of seconds, up to 99:59. In seconds. */
std::optional<qint32> length(const QString &text);

} // namespace songfields
