// Keeps two programs from writing to one memory at the same time.
#pragma once

#include "storage/writeproblem.h"

#include <QCoreApplication>
#include <QFile>
#include <QString>

#include <optional>

/**
 * Whoever writes to a memory holds its lock meanwhile: a hidden file in the memory's root that says
 * who holds it. The operating system keeps the hold on the open file, so that it ends with the
 * program however that ends, and with the stick when that is pulled. A file that nobody holds is a
 * leftover, whatever it says, and is taken away. So is whatever else has its name, but for a folder
 * with content.
 *
 * An object takes the lock at most once; it gives it back when it is released or destroyed. Two
 * objects of one program exclude each other as well. Where the system cannot hold files, the lock
 * keeps nobody out.
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

    /** Gives the lock back and takes its file away. */
    void release();

    /** True when take() failed because another program holds the lock. */
    bool isHeldByOther() const { return m_heldByOther; }

    /** True when take() failed because a folder with content has the name of the lock's file. */
    bool isFolderInTheWay() const { return m_folderInTheWay; }

    /** Why the lock's file could not be made, when take() failed and no other holds it. */
    WriteProblem::Kind problem() const { return m_problem; }

    /** Why take() failed, for the user: who holds the lock, or what the memory lacks. */
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
