// The songs of a transfer plan as a tree: groups of songs that stand alike to the memory.
#pragma once

#include "devindex/transferplan.h"

#include <QAbstractItemModel>
#include <QList>

/**
 * Shows, but for the ticks of songs to be removed, which can be set here, what is in the plan;
 * after any change there, refresh() must be called. The groups that ask for a decision come first.
 */
class TransferPlanModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column { Song, Remedy, Place, Room, ColumnCount };

    /** The plan must outlive the model, and its songs must stay the same. */
    explicit TransferPlanModel(TransferPlan &plan, QObject *parent = nullptr);

    /** Whether the songs of the memory that are not in the list have a group. */
    void showOthers(bool show);

    /** Shows the plan's present remedies and places. */
    void refresh();

    /** The numbers of the songs in these rows, in their order; a group stands for all its songs. */
    QList<int> songs(const QModelIndexList &rows) const;

    /** True for a group whose songs are copied or are there already, as everybody expects. */
    bool isUneventful(const QModelIndex &group) const;

    /** What a remedy means for a song of this state. */
    static QString remedyText(TransferPlan::State state, TransferPlan::Remedy remedy);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Group {
        TransferPlan::State state;
        QList<int> songs;
        qint64 room = 0;
        QString remedies; ///< what becomes of them, where that is one thing
    };

    void findGroups();
    void sum(Group &group) const;
    bool isGroup(const QModelIndex &index) const { return index.internalId() == 0; }
    const TransferPlan::Item &itemAt(const QModelIndex &index) const;
    QVariant groupData(const Group &group, int column, int role) const;
    QString textOf(const TransferPlan::Item &item, int column) const;
    QString pathBelowRoot(const QString &path) const;
    static QString groupText(TransferPlan::State state);

    TransferPlan &m_plan;
    bool m_showsOthers = false;
    QList<Group> m_groups;
};
