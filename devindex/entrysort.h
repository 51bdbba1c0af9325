// Sorts tens of thousands of entries of an index quickly.
#pragma once

#include "devindex/songinfoindex.h"

#include <QList>

#include <vector>

/**
 * Each function sorts as the comparison of the same name does (see songinfoindex.h); equal entries
 * keep their order. The keys are made once for each entry and lie close together in main memory,
 * since comparisons of texts that are spread over main memory are slow.
 */
void sortByPosidx(QList<SongInfoIndex> &entries);
void sortByTitle(QList<SongInfoIndex> &entries);
void sortByArtist(QList<SongInfoIndex> &entries);
void sortByGenre(QList<SongInfoIndex> &entries);

/** A list of entries in some order; the entries themselves must outlive it and not be moved. */
using EntryList = std::vector<const SongInfoIndex *>;

/** The entries as they stand. */
EntryList listOf(const QList<SongInfoIndex> &entries);

/**
 * The orders in which an index build writes its files, without moving an entry: each text is given
 * its rank once, and then ranks are sorted.
 *
 * The files have always been written one after the other from entries that were sorted anew for
 * each, so that entries which are equal stand in the order of the file before. A rebuilt index has
 * the same bytes only if that order is kept: title, artist, genre, and the same for the MP3 songs.
 */
class BuildOrders
{
public:
    /** At most SongInfoIndex::maxSongs entries. */
    explicit BuildOrders(const QList<SongInfoIndex> &entries);

    const EntryList &byNumber() const { return m_byNumber; }
    EntryList byTitle() const;
    EntryList byArtist() const;
    EntryList byGenre() const;
    EntryList mp3ByTitle() const;
    EntryList mp3ByArtist() const;
    EntryList mp3ByGenre() const;

private:
    using Ranks = std::vector<quint16>; ///< by place in m_byNumber; equal texts have equal ranks

    Ranks ranksOf(QString SongInfoIndex::*text) const;
    EntryList sorted(bool mp3Only, const Ranks &first, const Ranks &second,
                     const Ranks &third) const;

    EntryList m_byNumber;
    Ranks m_none; ///< ranks that decide nothing
    Ranks m_titles;
    Ranks m_artists;
    Ranks m_genres;
};

/** Moves the entries to the order in which their positions are given; each position stands once. */
void reorderEntries(QList<SongInfoIndex> &entries, const QList<qsizetype> &positions);
