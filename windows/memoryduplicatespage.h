// The page of the memory window with the songs that lie there more than once.
#pragma once

#include "windows/memorycontents.h"

#include <QList>
#include <QObject>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
QT_END_NAMESPACE

/**
 * Groups of songs with the same bytes, and of songs with the same title and artist. The user ticks
 * the songs that are to go; none is ticked by itself. A song may stand in a group of each kind:
 * both ticks then go together.
 */
class MemoryDuplicatesPage : public QObject
{
    Q_OBJECT

public:
    struct Widgets {
        QLabel *summary;
        QTreeWidget *tree;
        QPushButton *compare;
        QPushButton *remove;
    };

    MemoryDuplicatesPage(const Widgets &widgets, QObject *parent);

    /** Shows the songs of one title and artist; which files are the same is not known yet. */
    void setContents(const SharedContents &contents);

    /** Shows these songs with the same bytes, too. */
    void setSameBytes(const QList<memoryduplicates::Group> &groups);

    void setBusy(bool busy);

    /** The songs that the user has ticked. */
    QList<qsizetype> ticked() const;

    /** Of how many groups nothing would be left without the ticked songs. */
    int groupsWithoutRest() const;

    void retranslate();

signals:
    void compareRequested();
    void removeRequested(const QList<qsizetype> &songs, int groupsWithoutRest);

private:
    void showGroups();
    void addGroups(const QList<memoryduplicates::Group> &groups, const QString &caption,
                   const QSet<qsizetype> &before);
    void tickEverywhere(const QTreeWidgetItem *item);
    void enableButtons();

    const Widgets m_widgets;
    SharedContents m_contents;
    QList<memoryduplicates::Group> m_sameBytes;
    bool m_isCompared = false;
    bool m_isBusy = false;
    QHash<qsizetype, QList<QTreeWidgetItem *>> m_items; ///< by song
};
