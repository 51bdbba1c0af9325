// Characters that the player cannot show, named for the user.
#pragma once

#include <QString>

/**
 * The characters of the text that the player cannot show, as a list to be shown: each once, an
 * invisible one by its number ("U+200B"). Empty when the player can show all of them.
 */
QString lostCharacters(const QString &text);
