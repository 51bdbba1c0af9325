// The transfer of the library's songs onto the player's memory.
#pragma once

#include "devindex/filecopier.h"
#include "devindex/mountedvolumes.h"
#include "devindex/planexecution.h"
#include "devindex/transferplan.h"
#include "library/progress.h"
#include "storage/memorylock.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class ShownNames;

/** The user of a transfer: answers its questions and gets its messages. */
class TransferUser
{
public:
    TransferUser() = default;
    virtual ~TransferUser() = default;
    Q_DISABLE_COPY_MOVE(TransferUser)

    /** The folder to copy into; an empty text when the user changed his mind. */
    virtual QString chooseFolder(const QString &title, const QString &startFolder) = 0;

    /** Whether the target may be replaced. */
    virtual Answer askReplace(const QString &target) = 0;

    /** Whether path may be renamed as the message says. */
    virtual Answer askRename(const QString &path, const QString &message) = 0;

    /** Whether to go on in spite of what the question says; no, unless the user says yes. */
    virtual bool askAnyway(const QString &title, const QString &question) = 0;

    /** What to do about a plan that shows that songs would be lost or doubled. */
    enum class Review {
        AsAlways,    ///< copy each song under its own name, and ask before one is replaced
        OnlyMissing, ///< the same, but without the songs that are there under a shortened name
        CarryOut,    ///< what the plan says, as it was left
        Cancel
    };

    /** True for a user to whom a plan can be shown; without that none is made. */
    virtual bool reviewsPlans() const { return false; }

    /**
     * Shows a plan in which songs would be lost or doubled, before anything is copied. The remedies
     * of its songs may be changed, and whether the copies are read back. No song replaces another
     * unless the user says so.
     */
    virtual Review reviewPlan(TransferPlan &plan)
    {
        Q_UNUSED(plan)
        return Review::AsAlways;
    }

    virtual void warn(const QString &title, const QString &text) = 0;
    virtual void inform(const QString &title, const QString &text) = 0;
    virtual void showFailure(const QString &title, const QString &text) = 0;

    /** Songs that were there already, a line each with the place; before tellCounts(), if any. */
    virtual void tellPresent(const QStringList &songs) { Q_UNUSED(songs) }

    /**
     * Tells what became of the songs. The songs that failed or that the player will not find, and
     * those that were skipped, are listed only on request, a line each with the reason.
     */
    virtual void tellCounts(const QString &title, const QString &text, const QStringList &failed,
                            const QStringList &skipped) = 0;
};

/**
 * Asks for a folder on a memory, copies the songs into it and brings the memory's index up to
 * date, so that the player finds them.
 */
class Transfer
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)

public:
    enum class Outcome {
        NotStarted, ///< the user changed his mind, or the folder was refused: nothing was copied
        Complete,   ///< no file failed, and the index is up to date
        Incomplete, ///< files or the index failed, or the user stopped the copy
    };

    /** The free bytes of the file system that holds the folder; negative when they are unknown. */
    using FreeBytes = std::function<qint64(const QString &folder)>;

    /** The user must outlive the transfer. */
    Transfer(TransferUser &user, OpenProgress openProgress,
             FreeBytes freeBytes = &Transfer::bytesAvailable);

    /**
     * The whole job, with all questions and messages. Refused are the system disk, a folder from
     * which a link leads there, a memory that another program is writing to, one that cannot be
     * written to, a memory's root when its folder "songs" cannot be made, and the folders that the
     * player reserves. When the copy was stopped the index is updated all the same, so that what
     * has arrived is found.
     */
    Outcome transferFiles(const QStringList &files);

    /**
     * Asks for a folder as transferFiles() does, and finds out what bringing the songs there would
     * do; touches nothing. Nothing when the user changed his mind, stopped it, or the folder was
     * refused.
     * @param others whether the folder's songs that are not in the list are listed, too
     */
    std::optional<TransferPlan> planTransfer(const QStringList &files, bool others);

    /** Carries out a plan, with all messages; the memory is locked meanwhile. */
    Outcome carryOut(const TransferPlan &plan);

    /** Asks whether to go on although so many bytes are missing on the memory. */
    static QString missingRoomText(qint64 bytes);

    /** How many songs the last job has copied and removed. */
    qsizetype changedSongs() const { return m_changedSongs; }

    /** Each copy is read back from the memory and compared; off unless it is set. */
    void setReadBack(bool on) { m_readBack = on; }

    /**
     * Updates the index of the memory that holds the path.
     * @return false when there is no such memory, another program is writing to it, which the user
     *         is told, or its index could not be updated
     */
    bool updateKavenaIndex(const QString &path);

private:
    /** How closely a plan looks at the memory. */
    enum class Look {
        Quick,     ///< only far enough to learn whether songs would be lost or doubled
        Songs,     ///< at the songs of the list
        AlsoOthers ///< and at those that are not in the list
    };

    /** Where the songs go. */
    struct Destination {
        QString root;   ///< of the memory
        QString folder; ///< need not be there yet when it was the root that was chosen
        bool isRoot = false;
    };

    std::optional<TransferPlan> makePlan(const QStringList &files, const QString &root,
                                         const QString &folder, Look look);
    TransferUser::Review review(TransferPlan &plan);
    Outcome carryOut(const TransferPlan &plan, MemoryLock &lock);
    std::optional<Destination> chooseDestination();
    bool findSongsFolder(Destination &destination);
    bool isThere(const TransferPlan &plan);
    bool takeLock(MemoryLock &lock, const QString &title, bool isRoot);
    bool makeSongsFolder(const QString &songs);
    static QString whyNotIntoRoot(WriteProblem::Kind problem);
    bool updateIndex(const QString &root, const std::function<bool()> &removal = {});
    bool hasRoom(const QStringList &files, const QString &dest);
    bool copyFiles(const QStringList &files, const QString &dest, FileCopier &copier);
    QStringList leaveOutPresent(const QStringList &files, const TransferPlan &plan);
    void tellPresent(const QList<PlanExecution::Named> &songs, const ShownNames &names);
    void tellCounts(const FileCopier::Report &report, const ShownNames &names, qsizetype files,
                    bool indexed);
    void tellCounts(const PlanExecution::Result &result, const ShownNames &names);
    QStringList indexLines(bool indexed) const;
    static qint64 bytesAvailable(const QString &folder);

    const MountedVolumes m_volumes;
    TransferUser &m_user;
    const OpenProgress m_openProgress;
    const FreeBytes m_freeBytes;
    bool m_readBack = false;
    qsizetype m_changedSongs = 0;
    QByteArray m_device;                   ///< of the memory that the job is about
    QList<PlanExecution::Named> m_present; ///< songs that were left out, since they are there
    bool m_isIndexDamaged = false;         ///< the last update of an index found it so, and left it
    QStringList m_indexProblems; ///< what the last update of an index said about single songs
};
