// The page of the memory window with the table of its songs.
#pragma once

#include "windows/memorycontents.h"

#include <QList>
#include <QObject>
#include <QString>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
class QMenu;
class QPoint;
class QPushButton;
class QTableView;
QT_END_NAMESPACE

class MemorySongsModel;
class PlayerBar;

/**
 * Songs are chosen when their rows are selected and the filter shows them. What the user wants done
 * with them is told by signals. Songs are named by their places in the contents.
 */
class MemorySongsPage : public QObject
{
    Q_OBJECT

public:
    struct Widgets {
        QLineEdit *filter;
        QLabel *count;
        QTableView *table;
        PlayerBar *player;
        QPushButton *edit;
        QPushButton *rename;
        QPushButton *copy;
        QPushButton *show;
        QPushButton *remove;
    };

    MemorySongsPage(const Widgets &widgets, QObject *parent);

    /**
     * Shows these songs; null for none. Songs that were chosen and are still there stay so.
     */
    void setContents(const SharedContents &contents);

    /** Marks these songs as duplicates, too. */
    void addDuplicates(const QList<memoryduplicates::Group> &groups);

    /** While work runs nothing can be done with the songs, but they can be looked at. */
    void setBusy(bool busy);

    /** The chosen songs, from top to bottom. */
    QList<qsizetype> chosen() const;

    void retranslate();

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void editRequested(const QList<qsizetype> &songs);
    void renameRequested(qsizetype song);
    void copyRequested(const QList<qsizetype> &songs);
    void showRequested(qsizetype song);
    void removeRequested(const QList<qsizetype> &songs);

private:
    void setUpTable();
    void makeRoomForTexts();
    void stretchPaths();
    void connectButtons();
    void applyFilter();
    void enableButtons();
    void offerToPlay();
    void showCount();
    void showMenu(const QPoint &position);
    bool tableKey(int key, Qt::KeyboardModifiers modifiers);
    bool filterKey(int key);
    void choose(const QList<qsizetype> &songs, qsizetype current);
    qsizetype currentSong() const;

    const Widgets m_widgets;
    MemorySongsModel *const m_model;
    SharedContents m_contents;
    bool m_isBusy = false;
};
