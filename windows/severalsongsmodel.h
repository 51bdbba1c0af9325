// The songs of an edit of several, with their old and new values side by side.
#pragma once

#include "library/severalpreview.h"

#include <QAbstractTableModel>
#include <QFont>
#include <QList>
#include <QString>

#include <vector>

/**
 * A row for each song that is to be seen. The first column is the file with a box to be ticked,
 * then come two columns for each field, the old and the new value, and last what there is to be
 * said.
 */
class SeveralSongsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /** Which songs have a row. */
    enum class Shown { All, Changed, Unfit };

    explicit SeveralSongsModel(const QList<SongInfo> &songs, QObject *parent = nullptr);

    /** Computes all songs anew. */
    void setSteps(const QList<EditStep> &steps);

    void setShown(Shown shown);

    const SeveralPreview &preview() const { return m_preview; }

    /** True for a field in which some song changes. */
    bool changesField(songfields::Field field) const;

    /** Ticks or unticks the rows. */
    void setChosen(const QList<int> &rows, bool isChosen);
    void setAllChosen(bool isChosen);
    bool isChosen(int row) const;

    /** The ticked songs that change, whether they have a row or not. */
    QList<SeveralSong> chosen() const;
    int chosenCount() const;

    /** The song of the row; the first one for a row that does not exist; null without songs. */
    const SeveralSong *song(int row) const;

    static int beforeColumn(int field) { return 1 + 2 * field; }
    static int afterColumn(int field) { return 2 + 2 * field; }
    static int noteColumn();

    /** How a new value looks that differs from the old one; nothing for other roles. */
    static QVariant changedLook(int role);

    /** The same in words, for those who do not see it. */
    static QString changedText();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    void choiceChanged();

private:
    bool hasRow(const SeveralSong &song) const;
    void makeRows();
    QVariant valueData(const SeveralSong &song, int column, int role) const;
    QString note(const SeveralSong &song) const;

    SeveralPreview m_preview;
    Shown m_shown = Shown::All;
    std::vector<size_t> m_rows; ///< the numbers of the songs that have one
    std::vector<bool> m_chosen; ///< by the songs' numbers
    std::vector<bool> m_changesField;
};
