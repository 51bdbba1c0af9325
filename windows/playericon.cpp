#include "windows/playericon.h"

#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPolygonF>
#include <QStyle>
#include <QWidget>

namespace
{

/** Paints into a square of the side 16. */
void paint(QPainter &painter, playericon::Kind kind)
{
    switch (kind) {
    case playericon::Kind::Play:
        painter.drawPolygon(QPolygonF{{4, 2}, {14, 8}, {4, 14}});
        break;
    case playericon::Kind::Pause:
        painter.drawRect(QRectF(3, 2, 4, 12));
        painter.drawRect(QRectF(9, 2, 4, 12));
        break;
    case playericon::Kind::Stop:
        painter.drawRect(QRectF(3, 3, 10, 10));
        break;
    }
}

} // namespace

QIcon playericon::make(Kind kind, const QWidget &widget)
{
    constexpr qreal side = 16;
    const int size = widget.style()->pixelMetric(QStyle::PM_ButtonIconSize, nullptr, &widget);
    const qreal ratio = widget.devicePixelRatioF();
    QIcon icon;
    for (const bool isOn : {true, false}) {
        QPixmap pixmap((QSizeF(size, size) * ratio).toSize());
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(widget.palette().brush(isOn ? QPalette::Active : QPalette::Disabled,
                                                QPalette::ButtonText));
        painter.scale(size / side, size / side);
        paint(painter, kind);
        painter.end();
        icon.addPixmap(pixmap, isOn ? QIcon::Normal : QIcon::Disabled);
    }
    return icon;
}
