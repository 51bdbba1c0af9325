// Stores and restores the place and size of the main window.
#pragma once

class QSettings;
class QWidget;

namespace windowplace
{

/**
 * Gives the window its stored size and place, as far as a screen of today has room for them; where
 * there is no such screen any more, the desktop finds a place. Without a stored place, or with one
 * that makes no sense, the window stays as it is.
 */
void restore(QWidget &window, const QSettings &settings);

/** Stores size and place; of a maximised window, those that it would return to. */
void save(const QWidget &window, QSettings &settings);

} // namespace windowplace
