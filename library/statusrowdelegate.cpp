#include "library/statusrowdelegate.h"

#include <QBrush>
#include <QPalette>

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
