// The window of a transfer plan with what a user does in it.
#pragma once

#include "support/userdriver.h"
#include "windows/transferplandialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

class PlanWindow
{
public:
    explicit PlanWindow(QWidget *dialog)
        : tree(child<QTreeView>(dialog, "planTreeView"))
        , remedies(child<QComboBox>(dialog, "remedyComboBox"))
        , name(child<QLineEdit>(dialog, "nameLineEdit"))
        , others(child<QCheckBox>(dialog, "othersCheckBox"))
        , readBack(child<QCheckBox>(dialog, "readBackCheckBox"))
        , room(child<QLabel>(dialog, "roomLabel"))
        , counts(child<QLabel>(dialog, "countsLabel"))
        , state(child<QLabel>(dialog, "stateLabel"))
        , intro(child<QLabel>(dialog, "introLabel"))
        , cancel(child<QPushButton>(dialog, "cancelPushButton"))
        , asAlways(child<QPushButton>(dialog, "asAlwaysPushButton"))
        , carryOut(child<QPushButton>(dialog, "carryOutPushButton"))
    {
    }

    /** At its left: a tick's text need not reach to the middle. */
    static void click(QWidget *widget)
    {
        QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(8, widget->height() / 2));
    }

    QModelIndex group(int row) const { return tree->model()->index(row, 0); }
    QModelIndex song(int group, int row) const
    {
        return tree->model()->index(row, 0, this->group(group));
    }
    static QString text(const QModelIndex &row, int column)
    {
        return row.siblingAtColumn(column).data().toString();
    }

    /** "group: count | what happens | room" of each group. */
    QStringList groups() const
    {
        QStringList all;
        for (int row = 0; row < tree->model()->rowCount(); ++row)
            all << text(group(row), 0) + QStringLiteral(" | ") + text(group(row), 1) +
                       QStringLiteral(" | ") + text(group(row), 3);
        return all;
    }

    void select(const QModelIndex &row, Qt::KeyboardModifiers keys = {}) const
    {
        tree->scrollTo(row);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, keys,
                          tree->visualRect(row.siblingAtColumn(1)).center());
    }

    QStringList offered() const
    {
        QStringList texts;
        for (int row = 0; row < remedies->count(); ++row)
            texts << remedies->itemText(row);
        return texts;
    }

    /** Picks a remedy from the list of them; false when it is not there. */
    bool choose(const QString &remedy) const
    {
        const int row = remedies->findText(remedy);
        if (row < 0 || !remedies->isEnabled())
            return false;
        remedies->showPopup();
        QTest::keyClick(remedies->view(), Qt::Key_Home);
        for (int step = 0; step < row; ++step)
            QTest::keyClick(remedies->view(), Qt::Key_Down);
        QTest::keyClick(remedies->view(), Qt::Key_Return);
        return true;
    }

    void type(const QString &text) const
    {
        name->setFocus();
        name->selectAll();
        QTest::keyClicks(name, text);
    }

    QTreeView *const tree;
    QComboBox *const remedies;
    QLineEdit *const name;
    QCheckBox *const others;
    QCheckBox *const readBack;
    QLabel *const room;
    QLabel *const counts;
    QLabel *const state;
    QLabel *const intro;
    QPushButton *const cancel;
    QPushButton *const asAlways;
    QPushButton *const carryOut;
};
