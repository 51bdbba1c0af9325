// Chooses songs and brings them into the list.
#pragma once

#include "library/libraryimport.h"

#include <QCoreApplication>
#include <QStringList>

#include <optional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

class Database;
class SongList;
class WindowProgress;

/** Asks and shows the progress in dialogs over the window. */
class SongImport
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)

public:
    /** All must outlive the object. */
    SongImport(QWidget *window, Database &database, SongList &songs, WindowProgress &progress);

    /** Lets the user choose files; empty when he cancels. */
    QStringList choose();

    /** Lets the user choose a folder; empty when he cancels. */
    QString chooseFolder();

    /** The songs among the files and in the folders; nothing when the user stopped the search. */
    std::optional<QStringList> search(const QStringList &paths);

    /**
     * Replaces the list's rows by the files and returns how many were which. Nothing, with the list
     * as it was, when the rows cannot be cleared.
     */
    std::optional<LibraryImport::Counts> importFiles(const QStringList &files);

    /**
     * Imports those of the files that have no row, behind the rows that are there. The files that
     * were looked at, songs or not; fewer than there are when the user stopped it.
     */
    QStringList addFiles(const QStringList &files);

    /** Imports a folder with all folders in it and adds to the counts; see LibraryImport. */
    void scanDir(const QString &dir, LibraryImport::Counts &counts);

private:
    QWidget *const m_window;
    Database &m_database;
    SongList &m_songs;
    WindowProgress &m_progress;
    QString m_folder; ///< where songs were last chosen in this run
};
