// Tool tips for texts from outside.
#pragma once

#include <QString>

/**
 * The text for a tool tip that shows it character by character: names of files and texts from songs
 * may hold what looks like markup. A long text wraps. An empty text stays empty: no tool tip is
 * shown then.
 */
QString plainToolTip(const QString &text);
