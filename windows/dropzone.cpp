#include "windows/dropzone.h"

#include <QPainter>

DropZone::DropZone(QWidget *parent)
    : QFrame(parent)
{
}

void DropZone::setHighlighted(bool highlighted)
{
    m_isHighlighted = highlighted;
    update();
}

void DropZone::paintEvent(QPaintEvent *)
{
    constexpr int penWidth = 2;
    constexpr int radius = 8;
    constexpr int faint = 50; // the text on it stays readable
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor line = palette().color(QPalette::Text);
    if (m_isHighlighted) {
        line = palette().color(QPalette::Highlight);
        QColor ground = line;
        ground.setAlpha(faint);
        painter.setBrush(ground);
    } else {
        line.setAlphaF(0.45F);
    }
    painter.setPen(QPen(line, penWidth, m_isHighlighted ? Qt::SolidLine : Qt::DashLine));
    painter.drawRoundedRect(rect().adjusted(penWidth, penWidth, -penWidth, -penWidth), radius,
                            radius);
}
