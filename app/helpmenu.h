// What the menu "Help" offers beside its windows of information, and F1 everywhere.
#pragma once

#include <QObject>

class BusyState;

QT_BEGIN_NAMESPACE
class QMainWindow;
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

/** Shows the keys of all menus, and looks after F1 in the other windows. */
class HelpMenu : public QObject
{
public:
    /** The window owns the object. */
    HelpMenu(QMainWindow *window, const Ui::MainWindow &form, BusyState &busy);
};
