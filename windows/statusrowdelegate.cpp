#include "windows/statusrowdelegate.h"

#include "windows/plaintooltip.h"
#include "windows/songstates.h"
#include "windows/usersongsreltablemodel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QBrush>
#include <QHelpEvent>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyle>
#include <QToolTip>

#include <optional>

namespace
{

constexpr int gapBetweenSigns = 3;

std::optional<QStyle::StandardPixmap> noteOf(const QModelIndex &index)
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
    if (index.column() == m_markColumn) {
        const int side = option->fontMetrics.height();
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->decorationSize = QSize(noteOf(index) ? 2 * side + gapBetweenSigns : side, side);
        option->icon = signs(*option, index);
    }
    const QVariant colour = index.siblingAtColumn(m_statusColumn).data(Qt::BackgroundRole);
    if (!colour.isValid())
        return;
    option->backgroundBrush = qvariant_cast<QBrush>(colour);
    if (index.column() != m_statusColumn) // whose text is not meant to be read
        option->palette.setBrush(QPalette::Text, Qt::black);
}

Database::statusEnum StatusRowDelegate::stateOf(const QModelIndex &index) const
{
    return SongStates::known(index.siblingAtColumn(m_statusColumn).data().toInt());
}

/** All signs of the row in one picture, since a cell has only one. */
QIcon StatusRowDelegate::signs(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const qreal scale =
        option.widget ? option.widget->devicePixelRatioF() : qApp->devicePixelRatio();
    const int side = option.decorationSize.height();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const auto group =
        option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    QPixmap picture((QSizeF(option.decorationSize) * scale).toSize());
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    {
        QPainter painter(&picture);
        SongStates::paintSign(painter, QRectF(0, 0, side, side), stateOf(index),
                              isSelected ? option.palette.color(group, QPalette::HighlightedText)
                                         : QColor(Qt::black));
        if (const std::optional<QStyle::StandardPixmap> note = noteOf(index)) {
            const QStyle *const style =
                option.widget ? option.widget->style() : QApplication::style();
            style->standardIcon(*note, nullptr, option.widget)
                .paint(&painter, side + gapBetweenSigns, 0, side, side);
        }
    }
    QIcon icon;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) // else the style tints it
        icon.addPixmap(picture, mode);
    return icon;
}

bool StatusRowDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                  const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const bool isNarrow = sizeHint(option, index).width() > view->visualRect(index).width();
    const bool hasSigns = index.column() == m_markColumn && index.isValid();
    if (event->type() != QEvent::ToolTip || (!isNarrow && !hasSigns))
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QStringList lines;
    if (isNarrow)
        lines << plainToolTip(index.data().toString());
    if (hasSigns)
        lines << plainToolTip(SongStates::explanation(stateOf(index)));
    const QString reason = index.data(Qt::ToolTipRole).toString();
    if (!reason.isEmpty())
        lines << plainToolTip(reason);
    QToolTip::showText(event->globalPos(), lines.join(QLatin1String("<br/>")), view->viewport());
    return true;
}
