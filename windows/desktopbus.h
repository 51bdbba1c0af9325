// What the desktop shows outside the program's windows: notifications and the taskbar's bar.
#pragma once

#include <QString>

/**
 * Speaks to the desktop by the session bus and waits for no answer. Nothing happens where there is
 * no such bus, no such service, or on macOS.
 */
namespace desktopbus
{

/** Shows a notification; the texts are plain text. */
void notify(const QString &title, const QString &text);

/** Shows how much is done, from 0 to 1, on the program's entry in the taskbar. */
void showProgress(double done);

/** Takes the bar away from the taskbar. */
void hideProgress();

} // namespace desktopbus
