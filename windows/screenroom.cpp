#include "windows/screenroom.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

namespace
{

/** The size that a window of the screen may have within its frame, whose size is not known yet. */
QSize roomFor(const QWidget &window)
{
    const int border = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight) + border;
    return window.screen()->availableGeometry().size() - QSize(2 * border, title + border);
}

int leastHeight(const QLayout &layout, int width)
{
    return layout.hasHeightForWidth() ? layout.minimumHeightForWidth(width)
                                      : layout.minimumSize().height();
}

/** Lists and pages that scroll need room for only a few lines. */
void letListsShrink(QWidget &window)
{
    constexpr int lines = 3;
    const QList<QAbstractScrollArea *> lists = window.findChildren<QAbstractScrollArea *>();
    for (QAbstractScrollArea *list : lists) {
        if (list->window() == &window)
            list->setMinimumHeight(lines * list->fontMetrics().lineSpacing());
    }
}

void moveTo(QBoxLayout &target, QLayoutItem *item, int stretch)
{
    if (QLayout *const layout = item->layout()) {
        target.addLayout(layout, stretch);
    } else if (QWidget *const widget = item->widget()) {
        target.addWidget(widget, stretch, item->alignment());
        delete item;
    } else {
        target.addItem(item);
    }
}

/** The last row of a dialog holds its buttons and stays in sight. */
void scrollAllButTheButtons(QWidget &window)
{
    auto *const rows = qobject_cast<QVBoxLayout *>(window.layout());
    if (rows == nullptr || rows->count() < 2)
        return;
    auto *const area = new QScrollArea(&window);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    auto *const contents = new QWidget;
    auto *const moved = new QVBoxLayout(contents);
    moved->setContentsMargins(0, 0, 0, 0);
    moved->setSpacing(rows->spacing());
    while (rows->count() > 1) {
        const int stretch = rows->stretch(0);
        moveTo(*moved, rows->takeAt(0), stretch);
    }
    area->setWidget(contents);
    rows->insertWidget(0, area, 1);
}

void fit(QWidget &window)
{
    const QSize room = roomFor(window);
    const QSize size = window.size().boundedTo(room);
    const QLayout *const layout = window.layout();
    if (layout != nullptr && leastHeight(*layout, size.width()) > room.height()) {
        letListsShrink(window);
        if (leastHeight(*layout, size.width()) > room.height())
            scrollAllButTheButtons(window);
    }
    window.setMinimumSize(window.minimumSize().boundedTo(room));
    if (size != window.size())
        window.resize(size);
}

} // namespace

ScreenRoom::ScreenRoom(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

bool ScreenRoom::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Show || event->spontaneous())
        return false;
    auto *const widget = qobject_cast<QWidget *>(watched);
    if (widget != nullptr && widget->isWindow() &&
        (widget->windowType() == Qt::Window || widget->windowType() == Qt::Dialog))
        fit(*widget);
    return false;
}
