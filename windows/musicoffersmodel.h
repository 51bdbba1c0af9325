// What the music of many songs offers, beside what the songs say of themselves.
#pragma once

#include "library/musicoffer.h"

#include <QAbstractTableModel>
#include <QList>

#include <vector>

/**
 * A row for each song that is to be seen. The first column is the file, the second what there is to
 * be said of it, then come two columns for each value, the old and the new one. New values have a
 * box to be ticked; the box of the file ticks all that the song lacks.
 */
class MusicOffersModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit MusicOffersModel(QObject *parent = nullptr);

    /** Adds songs behind the others, with what is advised ticked. */
    void add(const QList<MusicOffer> &offers);

    /** Whether songs have a row that lack nothing, or nothing that the music could say. */
    void setAllShown(bool isAll);

    /** Ticks what is advised, or nothing. */
    void tickAdvised(bool isTicked);

    /** Ticks or unticks all keys that are guessed and that songs lack. */
    void tickGuesses(bool isTicked);

    /** How many keys that songs lack are guessed, and how many of these are ticked. */
    int guesses() const;
    int tickedGuesses() const;

    /** The boxes of the cells become as the first one's was not. */
    void toggle(const QModelIndexList &cells);

    /** False for a column that is empty in all songs. */
    bool isUsed(int column) const;

    /** How many songs have something ticked, and how many cannot be measured as a whole. */
    int changed() const;
    int unmeasured() const;

    /** The songs with their ticked values. */
    QList<SeveralSong> chosen() const;

    static constexpr int fileColumn = 0;
    static constexpr int noteColumn = 1;
    static constexpr int beforeColumn(int value) { return 2 + 2 * value; }
    static constexpr int foundColumn(int value) { return 3 + 2 * value; }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    /** Shows all texts anew, in the language that was chosen meanwhile. */
    void retranslate();

signals:
    void choiceChanged();

private:
    struct Song {
        MusicOffer offer;
        MusicOffer::Values ticked;
    };

    void makeRows();
    Song &songAt(int row) { return m_songs[m_rows[static_cast<size_t>(row)]]; }
    const Song &songAt(int row) const { return m_songs[m_rows[static_cast<size_t>(row)]]; }
    static bool hasBox(const Song &song, int column);
    static Qt::CheckState box(const Song &song, int column);
    static void setBox(Song &song, int column, bool isTicked);
    static QVariant fileData(const Song &song, int role);
    static QVariant foundData(const Song &song, int column, int role);
    void showAll();

    std::vector<Song> m_songs;
    std::vector<size_t> m_rows; ///< the numbers of the songs that have one
    bool m_isAllShown = false;
};
