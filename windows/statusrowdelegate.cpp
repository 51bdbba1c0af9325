#include "windows/statusrowdelegate.h"

#include "windows/plaintooltip.h"
#include "windows/usersongsreltablemodel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBrush>
#include <QHelpEvent>
#include <QPalette>
#include <QStyle>
#include <QToolTip>

#include <optional>

namespace
{

std::optional<QStyle::StandardPixmap> signOf(const QModelIndex &index)
{
    if (index.data(UserSongsRelTableModel::notSavedRole).isValid())
        return QStyle::SP_MessageBoxWarning;
    if (index.data(UserSongsRelTableModel::tagTroublesRole).isValid())
        return QStyle::SP_MessageBoxInformation;
    return {};
}

} // namespace

StatusRowDelegate::StatusRowDelegate(int statusColumn, int markColumn, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_statusColumn(statusColumn)
    , m_markColumn(markColumn)
{
}

void StatusRowDelegate::initStyleOption(QStyleOptionViewItem *option,
                                        const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const std::optional<QStyle::StandardPixmap> sign =
        index.column() == m_markColumn ? signOf(index) : std::nullopt;
    if (sign) {
        const QStyle *const style =
            option->widget ? option->widget->style() : QApplication::style();
        option->icon = style->standardIcon(*sign, nullptr, option->widget);
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationSize = QSize(option->fontMetrics.height(), option->fontMetrics.height());
    }
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
    QString tip = plainToolTip(index.data().toString());
    const QString reason = index.data(Qt::ToolTipRole).toString();
    if (!reason.isEmpty())
        tip += QStringLiteral("<br/>") + plainToolTip(reason);
    QToolTip::showText(event->globalPos(), tip, view->viewport());
    return true;
}
