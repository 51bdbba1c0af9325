// Where the main window stood when it was closed.
#pragma once

class QSettings;
class QWidget;

namespace windowplace
{

/**
 * Gives the window its stored size and place, on a screen that is there today; without a stored
 * place, or with one that makes no sense, the window stays as it is.
 */
void restore(QWidget &window, const QSettings &settings);

/** Stores the window's size and place. */
void save(const QWidget &window, QSettings &settings);

} // namespace windowplace
