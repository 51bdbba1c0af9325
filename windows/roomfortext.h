// Keeps a dialog high enough for its texts.
#pragma once

#include <QObject>

class QWidget;

/**
 * Keeps a window at least as high as its layout needs at the window's present width. Qt's own
 * minimum height assumes a width at which the texts wrap into few lines; in a narrower window they
 * would be cut off.
 */
class RoomForText : public QObject
{
public:
    /** Watches the window, which owns this object and has a layout. */
    explicit RoomForText(QWidget *window);

    bool eventFilter(QObject *watched, QEvent *event) override;
};
