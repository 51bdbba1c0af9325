#include "library/statusrowdelegate.h"

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
    // As plain text, a title with angle brackets could be taken for tags.
    const QString text =
        QStringLiteral("<span>%1</span>").arg(index.data().toString().toHtmlEscaped());
    QToolTip::showText(event->globalPos(), text, view->viewport());
    return true;
}
