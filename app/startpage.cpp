#include "app/startpage.h"

#include "app/actiongate.h"
#include "app/songlists.h"
#include "windows/emptylistpage.h"

#include "ui_mainwindow.h"

StartPage::StartPage(EmptyListPage &page, SongLists &lists, const Ui::MainWindow &form,
                     ActionGate &gate)
    : QObject(&page)
{
    const QList<QWidget *> buttons = page.workButtons();
    for (QWidget *const button : buttons)
        gate.add(button);
    connect(&page, &EmptyListPage::songsWanted, form.actionSelectSongs, &QAction::trigger);
    connect(&page, &EmptyListPage::folderWanted, &lists, &SongLists::chooseFolder);
    connect(&page, &EmptyListPage::memoryWanted, form.actionMemory, &QAction::trigger);
    connect(&page, &EmptyListPage::lastListWanted, form.actionReopenList, &QAction::trigger);
    connect(&page, &EmptyListPage::listWanted, &lists, &SongLists::openRecentList);
    const auto refresh = [&page, &lists] { page.setLists(lists.hasLastList(), lists.openable()); };
    connect(&page, &EmptyListPage::shown, this, refresh);
    refresh();
}
