// Song data in a table of text: our own song list, or what a spreadsheet writes.
#pragma once

#include "library/songfields.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QString>
#include <QStringList>

#include <optional>

/**
 * The first line names the columns, in Italian, English or German; one of them holds the songs'
 * file names. Cells are separated by ";", "," or tabs, whichever the first line has most of, and
 * may stand in quotes, except in our own list, which has none; a list with text behind a closing
 * quote is refused. The text is UTF-8 or UTF-16, with a byte order mark or, for UTF-8, without;
 * else it is taken as Latin-1.
 */
class CsvList
{
    Q_DECLARE_TR_FUNCTIONS(CsvList)

public:
    static constexpr qint64 maxBytes = qint64{16} * 1024 * 1024;
    static constexpr int maxRows = 100000;
    static constexpr int maxColumns = 64;
    static constexpr qsizetype maxCell = 4096; ///< characters

    struct Read;

    /** Takes the table apart. A list with a problem has no rows. */
    static Read fromBytes(const QByteArray &bytes);

    /** The same for the file at the path, which must be a regular one. */
    static Read fromFile(const QString &path);

    using Values = QHash<songfields::Field, QString>;

    /** What was found for a song. */
    struct Found {
        enum class Result {
            Row,
            Missing,  ///< no row has the file's name
            Ambiguous ///< several rows have it and say different things
        };

        Result result = Result::Missing;
        Values values = {}; ///< cells that are empty are left out
    };

    /**
     * The row of the song's file name, letter case ignored. Among several rows of that name the one
     * counts whose path is the end of the song's.
     */
    Found find(const QString &path) const;

    /** The fields that have a column. */
    const QList<songfields::Field> &fields() const { return m_fields; }

    int rows() const { return static_cast<int>(m_rows.size()); }

private:
    struct Row {
        QString path; ///< as the list gives it, with "/" between its parts
        Values values;
    };

    QString addRows(const QList<QStringList> &lines);

    QList<songfields::Field> m_fields;
    QList<Row> m_rows;
    QMultiHash<QString, int> m_byName; ///< rows by their keys
};

/** A list, or why there is none. */
struct CsvList::Read {
    CsvList list;
    QString problem; ///< in a few words for the user; empty when the list can be used
};
