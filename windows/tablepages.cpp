#include "windows/tablepages.h"

#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace
{

constexpr qreal printedPoints = 9;

QTextOption wrapping()
{
    QTextOption option(Qt::AlignLeft | Qt::AlignTop);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    return option;
}

} // namespace

/** Where everything stands, in units of the device. */
class TablePages::Layout
{
public:
    Layout(QPainter &painter, const TextTable &table, const QFont &font)
        : m_painter(painter)
        , m_table(table)
        , m_font(font)
        , m_boldFont(font)
        , m_page(painter.viewport())
    {
        m_boldFont.setBold(true);
        m_painter.setFont(m_boldFont);
        m_line = m_painter.fontMetrics().height();
        m_padding = m_line / 3;
        findWidths();
        m_headingHeight = std::min(heightOf(m_table.headings), m_page.height() / 3);
        m_painter.setFont(m_font);
        breakIntoPages();
    }

    int pages() const { return static_cast<int>(m_firstRows.size()); }

    /** The page, counted from 0. */
    void paint(int page, const QString &title, const QString &number)
    {
        m_painter.setFont(m_boldFont);
        const QRect top(m_page.left(), m_page.top(), m_page.width(), m_line);
        m_painter.drawText(top, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, title);
        int y = m_page.top() + titleHeight();
        paintRow(m_table.headings, y, m_headingHeight);
        y += m_headingHeight;
        m_painter.drawLine(m_page.left(), y, m_page.right(), y);

        m_painter.setFont(m_font);
        const QRect bottom(m_page.left(), m_page.bottom() - m_line, m_page.width(), m_line);
        m_painter.drawText(bottom, Qt::AlignRight | Qt::AlignTop | Qt::TextSingleLine, number);
        const auto at = static_cast<size_t>(page);
        const qsizetype end =
            page + 1 < pages() ? m_firstRows[at + 1] : static_cast<qsizetype>(m_heights.size());
        for (qsizetype row = m_firstRows[at]; row < end; ++row) {
            const int height = m_heights[static_cast<size_t>(row)];
            paintRow(m_table.rows.at(row), y, height);
            y += height;
        }
    }

private:
    int titleHeight() const { return 2 * m_line; }
    int bodyHeight() const
    {
        return std::max(m_page.height() - titleHeight() - m_headingHeight - 2 * m_line, m_line);
    }

    /** As wide as the longest texts; where that is too wide, the widest columns give way. */
    void findWidths()
    {
        for (qsizetype column = 0; column < m_table.headings.size(); ++column)
            m_widths.push_back(widestText(column) + 2 * m_padding);
        const auto sumUpTo = [this](int widest) {
            return std::accumulate(
                m_widths.cbegin(), m_widths.cend(), 0,
                [widest](int sum, int width) { return sum + std::min(width, widest); });
        };
        int narrow = 0;
        int wide = m_page.width() + 1;
        while (wide - narrow > 1) {
            const int middle = narrow + (wide - narrow) / 2;
            (sumUpTo(middle) <= m_page.width() ? narrow : wide) = middle;
        }
        for (int &width : m_widths)
            width = std::min(width, narrow);
    }

    int widestText(qsizetype column) const
    {
        int widest = widthOf(m_table.headings.at(column));
        for (const QStringList &row : m_table.rows)
            widest = std::min(std::max(widest, widthOf(row.at(column))), m_page.width());
        return widest;
    }

    /** Rounded up: a text in too little room would go on in another line. */
    int widthOf(const QString &text) const
    {
        return static_cast<int>(std::ceil(
                   QFontMetricsF(m_painter.font(), m_painter.device()).horizontalAdvance(text))) +
               1;
    }

    QRect cell(size_t column, int x, int y, int height) const
    {
        return {x + m_padding, y, std::max(m_widths[column] - 2 * m_padding, 1), height};
    }

    int heightOf(const QStringList &texts) const
    {
        int height = m_line;
        for (size_t column = 0; column < m_widths.size(); ++column) {
            const QString &text = texts.at(static_cast<qsizetype>(column));
            const QRectF room = cell(column, 0, 0, m_page.height());
            if (widthOf(text) > room.width())
                height = std::max(
                    height,
                    static_cast<int>(m_painter.boundingRect(room, text, wrapping()).height()) + 1);
        }
        return height + m_padding;
    }

    void breakIntoPages()
    {
        m_firstRows = {0};
        int used = 0;
        for (const QStringList &row : m_table.rows) {
            const int height = std::min(heightOf(row), bodyHeight());
            if (used > 0 && used + height > bodyHeight()) {
                m_firstRows.push_back(static_cast<qsizetype>(m_heights.size()));
                used = 0;
            }
            m_heights.push_back(height);
            used += height;
        }
    }

    void paintRow(const QStringList &texts, int y, int height)
    {
        int x = m_page.left();
        for (size_t column = 0; column < m_widths.size(); ++column) {
            const QRect room = cell(column, x, y + m_padding / 2, height);
            m_painter.save();
            m_painter.setClipRect(room);
            m_painter.drawText(QRectF(room), texts.at(static_cast<qsizetype>(column)), wrapping());
            m_painter.restore();
            x += m_widths[column];
        }
    }

    QPainter &m_painter;
    const TextTable &m_table;
    const QFont m_font;
    QFont m_boldFont;
    const QRect m_page;
    int m_line = 0;
    int m_padding = 0;
    int m_headingHeight = 0;
    std::vector<int> m_widths;
    std::vector<int> m_heights;         ///< of the rows
    std::vector<qsizetype> m_firstRows; ///< of the pages
};

TablePages::TablePages(TextTable table, QString title, const QFont &font)
    : m_table(std::move(table))
    , m_title(std::move(title))
    , m_font([&font] {
        QFont printed(font);
        printed.setPointSizeF(printedPoints);
        return printed;
    }())
{
}

bool TablePages::paint(QPaintDevice &device, const std::function<bool()> &newPage, int first,
                       int last) const
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    Layout layout(painter, m_table, QFont(m_font, &device));
    const int end = last > 0 ? std::min(last, layout.pages()) : layout.pages();
    const int begin = std::max(first, 1);
    for (int page = begin; page <= end; ++page) {
        if (page > begin && !newPage())
            return false;
        layout.paint(page - 1, m_title, tr("Pagina %1 di %2").arg(page).arg(layout.pages()));
    }
    return painter.end();
}
