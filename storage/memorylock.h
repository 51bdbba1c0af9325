// Keeps two programs from writing to one memory at the same time.
#pragma once

#include "storage/writeproblem.h"

#include <QCoreApplication>
#include <QFile>
#include <QString>

#include <optional>

/**
 * A program that writes to a memory holds the memory's lock while it does so: a hidden file in the
 * memory's root that names the program. The operating system releases the lock when the program
 * ends or crashes, and when the stick is pulled. A lock file that no program holds is a leftover,
 * whatever its content, and is removed. So is anything else that has its name, except a folder with
 * content.
 *
 * An object takes the lock at most once and releases it at the latest when the object is destroyed.
 * Two objects of one program exclude each other as well. On a system that cannot lock files, the
 * lock keeps no other program out.
 */
class MemoryLock
{
    Q_DECLARE_TR_FUNCTIONS(MemoryLock)
    Q_DISABLE_COPY_MOVE(MemoryLock)

public:
    /** The lock of the memory with this root folder, not taken yet. */
    explicit MemoryLock(const QString &root);
    ~MemoryLock();

    /** True when this object holds the lock now; otherwise the memory must be left as it is. */
    bool take();

    /** Releases the lock and removes its file. */
    void release();

    /** True when take() failed because another program holds the lock. */
    bool isHeldByOther() const { return m_heldByOther; }

    /** True when take() failed because a folder with content has the name of the lock's file. */
    bool isFolderInTheWay() const { return m_folderInTheWay; }

    /** Why the lock's file could not be made, when take() failed and no other holds it. */
    WriteProblem::Kind problem() const { return m_problem; }

    /** Why take() failed, for the user: which program holds the lock, or why it cannot be made. */
    QString message() const;

    /** The name of the lock's file in the memory's root. */
    static QString fileName();

private:
    enum class Attempt { Taken, Failed, Again };

    Attempt create();
    Attempt examine();
    std::optional<QByteArray> content() const;

    const QString m_root;
    const QString m_path;
    QFile m_file;
    QByteArray m_written;
    bool m_heldByOther = false;
    bool m_folderInTheWay = false;
    QByteArray m_holder; ///< what the other program wrote into the file
    WriteProblem::Kind m_problem = WriteProblem::Unknown;
};
