#include "library/elidedlabel.h"

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
    // As rich text a tool tip wraps; as escaped text a path is never taken for mark-up.
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                       QStringLiteral("<p>%1</p>").arg(text().toHtmlEscaped()), this);
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
