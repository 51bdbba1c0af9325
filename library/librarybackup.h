// Offers a backup of the library's files before they are rewritten, and makes it.
#pragma once

#include "library/progress.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>

/** The workflow has no window: it asks and reports through the functions that it is given. */
class LibraryBackup
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)

public:
    enum class Wish { Cancel, Backup, NoBackup };

    /** What the user wants, and the folder chosen for the backup. */
    struct Choice {
        Wish wish = Wish::Cancel;
        QString directory;
    };

    /** Asks whether and where to make the backup. */
    using Ask = std::function<Choice()>;

    /**
     * Copies the library's files into the folder, counts those that are there afterwards, and
     * returns true when none is missing.
     */
    using CopyFiles = std::function<bool(const QString &destination, int &copied)>;

    /** Tells the user how the backup ended. */
    using Report = std::function<void(bool succeeded)>;

    LibraryBackup(Ask ask, CopyFiles copyFiles, Report report, OpenProgress openProgress);

    /**
     * Makes the backup if the user wants one. Returns true when the files may be rewritten: the
     * user goes on without a backup, or its folder was made, whether or not every file arrived.
     */
    bool suggest(int filesCount) const;

    /** The name of the folder of a backup that starts at this time. */
    static QString folderName(const QDateTime &time);

    /**
     * Copies a folder with everything in it into an existing folder; count grows by the number of
     * files copied. Songs whose last save was cut off get their old bytes back first; what another
     * program is saving is not copied. A destination inside the source and folders that links lead
     * back into are left out. Returns false when a file or folder could not be copied; the others
     * are.
     */
    static bool backupDirectory(const QString &source, const QString &destination, int &count);

    /** Copies one list of files into a folder, as CopyFiles does; the progress is for this list. */
    using CopyList = std::function<bool(const QStringList &files, const QString &folder,
                                        int &copied, Progress &progress)>;

    /**
     * Copies the files into the folder of a backup, each song to its place in the BackupPlan, and
     * counts those that are there afterwards. False when one is missing or the user stopped it.
     */
    static bool copyFiles(const QStringList &files, const QString &destination, int &copied,
                          Progress &progress, const CopyList &copyList);

private:
    bool backUp(const QString &directory, int filesCount) const;

    const Ask m_ask;
    const CopyFiles m_copyFiles;
    const Report m_report;
    const OpenProgress m_openProgress;
};
