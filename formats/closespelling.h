// Spells a text with the characters that the player can show.
#pragma once

#include <QString>

/**
 * The text in ISO-8859-1, as close as can be: what that has stays, even where it was written as a
 * letter and a mark; other letters lose their marks ("č" becomes "c"), other scripts are spelled in
 * Latin letters, curly quotes and long dashes become plain ones. A character without any spelling,
 * such as a picture, becomes "?". Control characters become blanks; blanks at the ends are removed.
 */
QString closeSpelling(const QString &text);
