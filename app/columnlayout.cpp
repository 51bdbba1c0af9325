#include "app/columnlayout.h"

#include "app/columnchoice.h"
#include "library/settings.h"
#include "library/songtable.h"

#include <QEvent>
#include <QHeaderView>
#include <QTableView>

namespace
{

constexpr int widestColumn = 4000;
constexpr int narrowestText = 150; ///< what a column of texts keeps when the window is too narrow

/** How remaining width is shared among the columns of texts; the other columns hold short items. */
struct Share {
    const QString field;
    int parts;
};
const Share shares[] = {{songcolumns::field(songcolumns::Title).name, 3},
                        {songcolumns::field(songcolumns::Artist).name, 2},
                        {songcolumns::field(songcolumns::Genre).name, 1},
                        {songcolumns::field(songcolumns::Author).name, 2},
                        {songcolumns::field(songcolumns::ShortName).name, 1},
                        {songcolumns::folderName, 2}};

} // namespace

ColumnLayout::ColumnLayout(QTableView *view, const SongTable &model, QSettings &settings)
    : QObject(view)
    , m_view(view)
    , m_viewport(view->viewport())
    , m_model(model)
    , m_settings(settings)
{
    load();
    m_later.setSingleShot(true);
    m_later.setInterval(0);
    connect(&m_later, &QTimer::timeout, this, &ColumnLayout::spread);
    QHeaderView *const header = m_view->horizontalHeader();
    header->setSortIndicatorClearable(true);
    connect(header, &QHeaderView::sectionClicked, this, [this, header] {
        const int column = header->sortIndicatorSection();
        m_sortField = column < 0 ? QString() : m_model.columnName(column);
        m_sortOrder = header->sortIndicatorOrder();
    });
    connect(header, &QHeaderView::sectionResized, this, [this](int column, int, int width) {
        if (m_dragging && width > 0)
            keepWidth(column, width);
    });
    connect(header, &QHeaderView::sectionHandleDoubleClicked, this, &ColumnLayout::releaseWidth);
    header->viewport()->installEventFilter(this);
    m_viewport->installEventFilter(this);
}

void ColumnLayout::load()
{
    m_settings.beginGroup(settings::columnWidths);
    for (const QString &field : m_settings.childKeys()) {
        const int width = m_settings.value(field).toInt();
        if (ColumnChoice::isOffered(m_model.columnOf(field)) &&
            width >= m_view->horizontalHeader()->minimumSectionSize() && width <= widestColumn)
            m_ownWidths.insert(field, width);
    }
    m_settings.endGroup();
    m_sortField = m_settings.value(settings::sortField).toString();
    if (!ColumnChoice::isOffered(m_model.columnOf(m_sortField)))
        m_sortField.clear();
    m_sortOrder = m_settings.value(settings::sortDescending).toBool() ? Qt::DescendingOrder
                                                                      : Qt::AscendingOrder;
}

void ColumnLayout::save()
{
    m_settings.remove(settings::columnWidths);
    m_settings.beginGroup(settings::columnWidths);
    for (auto width = m_ownWidths.cbegin(); width != m_ownWidths.cend(); ++width)
        m_settings.setValue(width.key(), width.value());
    m_settings.endGroup();
    if (m_sortField.isEmpty()) {
        m_settings.remove(settings::sortField);
        m_settings.remove(settings::sortDescending);
        return;
    }
    m_settings.setValue(settings::sortField, m_sortField);
    m_settings.setValue(settings::sortDescending, m_sortOrder == Qt::DescendingOrder);
}

/** The number of the field's column; -1 when there is none or the view does not show it. */
int ColumnLayout::shownColumn(const QString &field) const
{
    const int column = m_model.columnOf(field);
    return column < 0 || m_view->isColumnHidden(column) ? -1 : column;
}

void ColumnLayout::keepWidth(int column, int width)
{
    m_ownWidths.insert(m_model.columnName(column), width);
}

void ColumnLayout::releaseWidth(int column)
{
    m_ownWidths.remove(m_model.columnName(column));
    m_fittedWidths.insert(column, m_view->columnWidth(column));
    spread();
}

void ColumnLayout::columnsWereFitted()
{
    m_fittedWidths.clear();
    for (int column = 0; column < m_model.columnCount(); ++column) {
        if (!m_view->isColumnHidden(column))
            m_fittedWidths.insert(column, m_view->columnWidth(column));
    }
    for (auto own = m_ownWidths.cbegin(); own != m_ownWidths.cend(); ++own)
        m_view->setColumnWidth(m_model.columnOf(own.key()), own.value());
    // Later, when the view has its place and knows whether it needs a scroll bar.
    m_later.start();
}

int ColumnLayout::wantedWidth(int column) const
{
    return m_ownWidths.value(m_model.columnName(column), m_fittedWidths.value(column));
}

void ColumnLayout::spread()
{
    int left = m_viewport->width();
    for (auto fitted = m_fittedWidths.cbegin(); fitted != m_fittedWidths.cend(); ++fitted)
        left -= wantedWidth(fitted.key());
    if (left >= 0)
        widen(left);
    else
        narrow(-left);
}

void ColumnLayout::widen(int left)
{
    int parts = 0;
    for (const Share &share : shares)
        parts += isFree(share.field) ? share.parts : 0;
    for (const Share &share : shares) {
        if (!isFree(share.field))
            continue;
        const int column = shownColumn(share.field);
        const int more = left * share.parts / parts;
        m_view->setColumnWidth(column, m_fittedWidths.value(column) + more);
        left -= more;
        parts -= share.parts;
    }
}

/** The widest columns give way first, so that one long text does not push the others away. */
void ColumnLayout::narrow(int missing)
{
    int widest = widestColumn;
    const auto gained = [&] {
        int sum = 0;
        for (const Share &share : shares) {
            if (isFree(share.field))
                sum += qMax(0, m_fittedWidths.value(shownColumn(share.field)) - widest);
        }
        return sum;
    };
    while (widest > narrowestText && gained() < missing)
        --widest;
    for (const Share &share : shares) {
        const int column = shownColumn(share.field);
        if (isFree(share.field))
            m_view->setColumnWidth(column, qMin(m_fittedWidths.value(column), widest));
    }
}

/** True for a column that is shown and that the user has not dragged to a width of his own. */
bool ColumnLayout::isFree(const QString &field) const
{
    return m_fittedWidths.contains(shownColumn(field)) && !m_ownWidths.contains(field);
}

void ColumnLayout::sortAsChosen()
{
    if (!m_sortField.isEmpty())
        m_view->sortByColumn(m_model.columnOf(m_sortField), m_sortOrder);
}

void ColumnLayout::chooseOrder(int column, Qt::SortOrder order)
{
    m_sortField = column < 0 ? QString() : m_model.columnName(column);
    m_sortOrder = order;
    m_view->sortByColumn(column, order);
}

bool ColumnLayout::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_viewport) {
        if (event->type() == QEvent::Resize)
            m_later.start();
    } else if (event->type() == QEvent::MouseButtonPress) {
        m_dragging = true;
    } else if (event->type() == QEvent::MouseButtonRelease) {
        m_dragging = false;
    }
    return QObject::eventFilter(watched, event);
}
