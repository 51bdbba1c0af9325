// Lists of songs that last: adding to the list, saving and opening lists, those of late.
#pragma once

#include "library/chosenfiles.h"
#include "library/recentplaces.h"

#include <QObject>
#include <QSettings>
#include <QStringList>

#include <functional>

class ActionGate;
class BusyState;
class QMainWindow;
class QMenu;
class SongDrop;
class SongImport;
class SongList;

QT_BEGIN_NAMESPACE
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

/**
 * The entries of the File menu for lists, and what is dropped on the window. What is added stands
 * behind the songs that are there and is chosen for backup and transfer with them; a list that is
 * opened takes the place of the one in the window. That one is kept and can be opened again, also
 * in the next run of the program.
 */
class SongLists : public QObject
{
    Q_OBJECT

public:
    /** Takes files as the user's new choice and brings them into the list. */
    using ReplaceList = std::function<void(const QStringList &files)>;

    struct Work {
        SongImport &import;
        SongList &songs;
        ChosenFiles &chosen;
        ReplaceList replace;
    };

    /** The window owns the object; the others must outlive it. */
    SongLists(QMainWindow *window, const Ui::MainWindow &form, Work work, QSettings &settings,
              BusyState &busy, ActionGate &gate);

    /** Brings in what is dropped, and shows what may be. */
    void takeDropsOf(const SongDrop *drop);

    /** Brings in what was dropped: behind the songs that are there, or in place of them. */
    void takeDropped(const QStringList &paths, bool isAddition);

    /** Lets the user choose a folder, whose songs take the place of the list. */
    void chooseFolder();

    /** Opens the list in this file and keeps it as one of late. */
    void openRecentList(const QString &path);

    /** The lists of late that are still there, the last one first. */
    QStringList openable() const;

    /** True when there is a list that can be opened again. */
    bool hasLastList() const;

    /** Keeps the list as the one that can be opened again; an empty one is not kept. */
    void keepList();

signals:
    /** There are new songs in the list, behind those that were there. */
    void added();

private:
    void addChosenFiles();
    void addChosenFolder();
    void addSongsOf(const QStringList &paths);
    void openChosenList();
    void reopenLastList();
    bool openList(const QString &path);
    void saveList();
    void fillRecentMenu();
    void keepFolders(const QStringList &paths);
    QStringList songsToSave() const;
    void tellProblems(const QStringList &strangeLines, bool isCut);
    void say(const QString &text);

    QMainWindow *const m_window;
    const Work m_work;
    BusyState &m_busy;
    QMenu *const m_recentMenu;
    RecentPlaces m_recentFolders;
    RecentPlaces m_recentLists;
    const QString m_lastList; ///< the file of the list that can be opened again
    std::function<void()> m_enableReopening;
};
