#include "windows/roomfortext.h"

#include <QEvent>
#include <QLayout>
#include <QWidget>

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
        window->setMinimumHeight(window->layout()->totalHeightForWidth(window->width()));
    }
    return false;
}
