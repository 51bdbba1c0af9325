// Tool tips for texts from outside.
#pragma once

#include <QString>

/**
 * The text for a tool tip that shows it to the letter: names of files and texts from songs may hold
 * what looks like markup. A long text wraps. An empty one stays empty, which is no tool tip.
 */
QString plainToolTip(const QString &text);
