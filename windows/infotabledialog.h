// A table that informs and that nothing is done with.
#pragma once

#include <QDialog>
#include <QList>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QTreeWidget;
QT_END_NAMESPACE

/** Rows below headings of groups, or without groups; a button closes it. */
class InfoTableDialog : public QDialog
{
    Q_OBJECT

public:
    struct Group {
        QString title; ///< without one the rows stand alone
        QList<QStringList> rows;
    };

    /** A row has a text for each heading. */
    InfoTableDialog(const QString &title, const QStringList &headings, const QList<Group> &groups,
                    QWidget *parent);

private:
    void fill(const QList<Group> &groups);

    QTreeWidget *const m_table;
};
