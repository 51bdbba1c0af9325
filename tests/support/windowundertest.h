// The main window with what a test looks at and presses.
#pragma once

#include "app/mainwindow.h"
#include "windows/usersongsreltablemodel.h"

#include <QAction>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>

class WindowUnderTest : public MainWindow
{
public:
    WindowUnderTest() { show(); }

    QTableView *table() const { return child<QTableView>("userLibraryTableView"); }
    UserSongsRelTableModel *model() const
    {
        return qobject_cast<UserSongsRelTableModel *>(table()->model());
    }
    QToolButton *selectButton() const { return child<QToolButton>("selectDirToolButton"); }
    QToolButton *updateButton() const { return child<QToolButton>("updateDataToolButton"); }
    QToolButton *transferButton() const { return child<QToolButton>("transferFilesToolButton"); }
    QAction *action(const char *name) const { return child<QAction>(name); }

    /** Presses a button of the hidden debug panel. */
    void pressDebug(const char *name) const { child<QPushButton>(name)->click(); }

    template <typename Class>
    Class *child(const char *name) const
    {
        return findChild<Class *>(QString::fromLatin1(name));
    }

    /** The table's file names from top to bottom, as they are shown. */
    QStringList shownNames() const
    {
        QStringList names;
        for (int row = 0; row < model()->goodRowCount(); ++row)
            names << model()->shortName(row);
        return names;
    }
};
