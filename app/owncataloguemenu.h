// What the main window does with the user's own catalogue.
#pragma once

#include <QObject>
#include <QStringList>

class ActionGate;
class BusyState;
class QMainWindow;
class SongList;

QT_BEGIN_NAMESPACE
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

/** The menu entries: the chosen song becomes an entry, and the window of the catalogue. */
class OwnCatalogueMenu : public QObject
{
    Q_OBJECT

public:
    /** The window owns the object; the others must outlive it. */
    OwnCatalogueMenu(QMainWindow *window, const Ui::MainWindow &form, SongList &songs,
                     BusyState &busy, ActionGate &gate);

    /** Puts the row's song into the catalogue. */
    void add(int row);

    /** Puts the songs at these paths into the catalogue; how many are entries now. */
    qsizetype addSongs(const QStringList &paths);

    /** Shows the window of the catalogue. */
    void show();

private:
    QMainWindow *const m_window;
    SongList &m_songs;
    BusyState &m_busy;
};
