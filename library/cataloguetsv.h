// Entries of a catalogue as a table of cells between tabs, for spreadsheets and other people.
#pragma once

#include "library/songsdbrecord.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>

/**
 * The first line holds the names of the columns, which are those of the catalogue's table, in any
 * order; without it they stand in that order. A tab, an end of a line and a backslash in a text are
 * written as "\t", "\n", "\r" and "\\".
 */
class CatalogueTsv
{
    Q_DECLARE_TR_FUNCTIONS(CatalogueTsv)

public:
    static constexpr qint64 mostBytes = qint64{64} << 20;
    static constexpr qsizetype longestLine = 524288;
    static constexpr qsizetype mostProblems = 100;

    QList<SongsDbRecord> entries; ///< of several with one file name the last one
    QStringList problems;         ///< which lines hold no entry, and why; not more than so many

    /** UTF-8, with or without a byte order mark; a line that is none is Latin-1. */
    static CatalogueTsv parse(const QByteArray &bytes);

    static QByteArray text(const QList<SongsDbRecord> &entries);

    static constexpr std::size_t columns = 10;

private:
    static QString read(const QStringList &cells, const std::array<qsizetype, columns> &places,
                        SongsDbRecord &entry);
};
