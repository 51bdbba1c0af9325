// The table of the songs on a memory.
#pragma once

#include "windows/memorycontents.h"

#include <QAbstractTableModel>
#include <QList>
#include <QString>

#include <vector>

/**
 * Orders and filters by itself: for 65,535 songs a proxy on top of it would take too long at each
 * key. Its rows are the songs that the filter lets through, in the order that was chosen; a song
 * itself is named by its place in the list of songs.
 */
class MemorySongsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Title, Artist, Genre, Format, Tempo, Sections, Pictures, Size, State, File };
    static constexpr int columns = File + 1;

    using QAbstractTableModel::QAbstractTableModel;

    /** Shows these songs; null for none. */
    void setContents(SharedContents contents);

    /** Marks these songs as duplicates, beside those with one title and artist. */
    void addDuplicates(const QList<memoryduplicates::Group> &groups);

    /** Shows only songs that hold the text, in any letter case; all of them for an empty one. */
    void setFilter(const QString &text);

    /** The texts of the states are part of what is searched: to be called in a new language. */
    void retranslate();

    int songCount() const { return static_cast<int>(m_keys.size()); }

    /** The place of the row's song in the list of songs. */
    qsizetype songAt(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }

    /** The row of this song; -1 while the filter hides it. */
    int rowOf(qsizetype song) const { return m_rowOf.at(static_cast<std::size_t>(song)); }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /** Column -1 is the order in the folders. */
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    const MemorySong &song(qsizetype place) const { return m_contents->songs().at(place); }
    QString text(qsizetype place, int column) const;
    QString stateText(qsizetype place) const;
    void markDuplicates(const QList<memoryduplicates::Group> &groups);
    void makeKeys();
    void orderSongs();
    void filterSongs();

    SharedContents m_contents;
    std::vector<bool> m_isDuplicate; ///< by place in the list of songs, as all of these
    std::vector<QString> m_keys;     ///< what the filter searches
    std::vector<qsizetype> m_order;  ///< all songs in the chosen order
    std::vector<qsizetype> m_rows;   ///< those of them that are shown
    std::vector<int> m_rowOf;
    QString m_filter;
    int m_sortColumn = -1;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
};
