// The page of the memory window that tells what is wrong with the memory, and what helps.
#pragma once

#include "devindex/memorycheck.h"
#include "windows/memorycontents.h"

#include <QList>
#include <QObject>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
class QTreeWidget;
QT_END_NAMESPACE

/** Changes nothing by itself: each remedy is a button. */
class MemoryCheckPage : public QObject
{
    Q_OBJECT

public:
    struct Widgets {
        QLabel *summary;
        QTreeWidget *tree;
        QPushButton *check;
        QPushButton *update;
        QPushButton *rebuild;
        QPushButton *mend;
    };

    MemoryCheckPage(const Widgets &widgets, QObject *parent);

    /** Another memory, or another state of it: what was found before holds no more. */
    void setContents(const SharedContents &contents);

    void setFindings(const QList<MemoryCheck::Finding> &findings);
    void setBusy(bool busy);
    void retranslate();

signals:
    void checkRequested();
    void updateRequested();
    void rebuildRequested();
    void mendRequested();

private:
    void showFindings();
    void enableButtons();
    static QString sentence(MemoryCheck::Kind kind);
    QString remedy(MemoryCheck::Kind kind) const;

    const Widgets m_widgets;
    SharedContents m_contents;
    QList<MemoryCheck::Finding> m_findings;
    bool m_isChecked = false;
    bool m_isBusy = false;
};
