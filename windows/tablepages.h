// A table on paper.
#pragma once

#include "windows/texttable.h"

#include <QCoreApplication>
#include <QFont>

#include <functional>

QT_BEGIN_NAMESPACE
class QPaintDevice;
QT_END_NAMESPACE

/**
 * Paints the title, the headings, as many rows as fit, and the number of the page on each page.
 * Columns that are too wide for the page give way, the widest first, and their texts go on in
 * further lines.
 */
class TablePages
{
    Q_DECLARE_TR_FUNCTIONS(TablePages)

public:
    TablePages(TextTable table, QString title, const QFont &font);

    /**
     * Paints the pages from the first to the last one, counted from 1; a last one of 0 means all of
     * them. newPage turns the device to the next page, and returns false when it cannot. False when
     * not all was painted.
     */
    bool paint(QPaintDevice &device, const std::function<bool()> &newPage, int first = 0,
               int last = 0) const;

private:
    class Layout;

    const TextTable m_table;
    const QString m_title;
    const QFont m_font;
};
