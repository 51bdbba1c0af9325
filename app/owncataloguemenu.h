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

    /** Puts the songs at these paths into the catalogue. */
    void addSongs(const QStringList &paths);

    /** Shows the window of the catalogue. */
    void show();

signals:
    /** Songs of the list have become entries, and their rows say so. */
    void added();

private:
    void showAdded(const QStringList &paths);

    QMainWindow *const m_window;
    SongList &m_songs;
    BusyState &m_busy;
};
