// Keeps every window of the program within its screen.
#pragma once

#include <QObject>

/**
 * As long as it lives, a window that is to be shown is made no larger than its screen has room for,
 * frame included. Lists and pages shrink first; a dialog that is too high even so lets its contents
 * scroll above its buttons.
 */
class ScreenRoom : public QObject
{
public:
    explicit ScreenRoom(QObject *parent);

    /** Looks at each window before it is shown. */
    bool eventFilter(QObject *watched, QEvent *event) override;
};
