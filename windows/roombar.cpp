#include "windows/roombar.h"

#include <QPainter>

#include <algorithm>

namespace
{

constexpr int leastBarWidth = 120;
constexpr float usedStrength = 0.4F;
const QColor tooMuch(196, 43, 28);

} // namespace

RoomBar::RoomBar(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void RoomBar::setRoom(qint64 total, qint64 free, qint64 needed)
{
    m_total = total;
    m_free = free;
    m_needed = needed;
    update();
}

QSize RoomBar::sizeHint() const
{
    return {leastBarWidth, fontMetrics().height()};
}

void RoomBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect frame = rect().adjusted(0, 0, -1, -1);
    QColor used = palette().color(QPalette::WindowText);
    used.setAlphaF(usedStrength); // between the two colours of a light as of a dark desktop
    painter.setPen(used);
    painter.setBrush(palette().base());
    painter.drawRect(frame);
    if (m_total <= 0)
        return;
    const QRect inner = frame.adjusted(1, 1, 0, 0);
    const auto widthOf = [&](qint64 bytes) {
        const double share = static_cast<double>(bytes) / static_cast<double>(m_total);
        return static_cast<int>(std::clamp(share, 0.0, 1.0) * inner.width());
    };
    const int usedWidth = widthOf(m_total - m_free);
    // A few songs on a large memory are to be seen, too.
    const int needed = m_needed > 0 ? std::max(widthOf(m_needed), 2) : 0;
    const int from = std::min(usedWidth, inner.width() - needed);
    painter.fillRect(QRect(inner.left(), inner.top(), usedWidth, inner.height()), used);
    painter.fillRect(QRect(inner.left() + std::max(from, 0), inner.top(), needed, inner.height()),
                     m_needed > m_free ? tooMuch : palette().color(QPalette::Highlight));
}
