// Does what the page in the place of the empty list offers.
#pragma once

#include <QObject>

class ActionGate;
class EmptyListPage;
class SongLists;

QT_BEGIN_NAMESPACE
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

/** Each offer does the same as an entry of the menu; none can be taken while work runs. */
class StartPage : public QObject
{
    Q_OBJECT

public:
    /** The page owns the object; the others must outlive it. */
    StartPage(EmptyListPage &page, SongLists &lists, const Ui::MainWindow &form, ActionGate &gate);
};
