#include "windows/elidedlabel.h"

#include "windows/plaintooltip.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace
{
constexpr int leastCharacters = 12;
}

ElidedLabel::ElidedLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const
{
    const int width = fontMetrics().averageCharWidth() * leastCharacters;
    return {width, QLabel::minimumSizeHint().height()};
}

QString ElidedLabel::shownText() const
{
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || shownText() == text())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), plainToolTip(text()), this);
    return true;
}

void ElidedLabel::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, contentsRect(),
                          static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())),
                          palette(), isEnabled(), shownText(), foregroundRole());
}
