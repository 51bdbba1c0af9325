#include "windows/roomfortext.h"

#include <QEvent>
#include <QLayout>
#include <QScreen>
#include <QWidget>

#include <algorithm>

RoomForText::RoomForText(QWidget *window)
    : QObject(window)
{
    window->installEventFilter(this);
}

bool RoomForText::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest ||
        event->type() == QEvent::Show) {
        auto *const window = static_cast<QWidget *>(watched);
        // On a screen with less room the contents scroll, or the window shows what it can.
        window->setMinimumHeight(std::min(window->layout()->totalHeightForWidth(window->width()),
                                          window->screen()->availableGeometry().height()));
    }
    return false;
}
