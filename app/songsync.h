// Synchronises the listed songs with the catalogue.
#pragma once

#include "library/synchronisation.h"

#include <QCoreApplication>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

class Database;
class SongList;
class SyncResult;
class WindowProgress;

/** Asks and shows what comes and what came of it in dialogs over the window. */
class SongSync
{
    Q_DECLARE_TR_FUNCTIONS(SongSync)

public:
    /** Offers a backup; false when the files must not be rewritten. */
    using SuggestBackup = std::function<bool()>;

    /** All must outlive the object. */
    SongSync(QWidget *window, Database &database, SongList &songs, WindowProgress &progress,
             SuggestBackup suggestBackup);

    /** Where the songs are kept before they are changed. */
    void setHistory(OpenHistory openHistory) { m_openHistory = std::move(openHistory); }

    /** Where it is told what a run came to; must outlive the object. */
    void setResult(SyncResult &result) { m_result = &result; }

    /**
     * Synchronises all rows, with a question before files without the maker's signature where it is
     * wanted, and after the user has seen and accepted the changes where he wants to see them. True
     * when the run went through to its end.
     */
    bool run(bool copyrightAsk, bool preview);

    /** Synchronises one row; true when the catalogue knows the song. Its status stays. */
    bool updateRow(int row);

private:
    bool goesOnWithoutOwnCatalogue();
    Synchronisation synchronisation();

    QWidget *const m_window;
    Database &m_database;
    SongList &m_songs;
    WindowProgress &m_progress;
    const SuggestBackup m_suggestBackup;
    OpenHistory m_openHistory;
    SyncResult *m_result = nullptr;
};
