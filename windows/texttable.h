// What a table shows, as plain text.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/** Each row has as many texts as there are headings. */
struct TextTable {
    QStringList headings;
    QList<QStringList> rows;

    /**
     * One line for the headings and one for each row, the texts between tabulators, as a
     * spreadsheet takes them. Tabulators and line ends within a text become blanks.
     */
    QString tabSeparated() const;
};
