#include "app/helpmenu.h"

#include "windows/busystate.h"
#include "windows/contexthelp.h"
#include "windows/shortcutsdialog.h"

#include "ui_mainwindow.h"

HelpMenu::HelpMenu(QMainWindow *window, const Ui::MainWindow &form, BusyState &busy)
    : QObject(window)
{
    new ContextHelp(this);
    connect(form.actionShortcuts, &QAction::triggered, this, [&busy, menus = form.menuBar] {
        const BusyGuard guard(busy);
        ShortcutsDialog(*menus).exec();
    });
}
