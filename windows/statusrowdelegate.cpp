#include "windows/statusrowdelegate.h"

#include "windows/plaintooltip.h"

#include <QAbstractItemView>
#include <QBrush>
#include <QHelpEvent>
#include <QPalette>
#include <QToolTip>

StatusRowDelegate::StatusRowDelegate(int statusColumn, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_statusColumn(statusColumn)
{
}

void StatusRowDelegate::initStyleOption(QStyleOptionViewItem *option,
                                        const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const QVariant colour = index.siblingAtColumn(m_statusColumn).data(Qt::BackgroundRole);
    if (!colour.isValid())
        return;
    option->backgroundBrush = qvariant_cast<QBrush>(colour);
    if (index.column() != m_statusColumn) // whose text is not meant to be read
        option->palette.setBrush(QPalette::Text, Qt::black);
}

bool StatusRowDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                  const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip ||
        sizeHint(option, index).width() <= view->visualRect(index).width())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), plainToolTip(index.data().toString()), view->viewport());
    return true;
}
