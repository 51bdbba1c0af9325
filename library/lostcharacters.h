// Characters that the player cannot show, named for the user.
#pragma once

#include <QString>

/**
 * The characters of the text that the player cannot show, as a list for reading: each once, one
 * that has no picture by its number ("U+200B"). Empty when the player can show all of them.
 */
QString lostCharacters(const QString &text);
