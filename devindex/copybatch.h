// Copies that have all their bytes but not yet their names.
#pragma once

#include "storage/safefile.h"

#include <QFile>
#include <QList>
#include <QSet>
#include <QString>
#include <QtGlobal>

#include <memory>

/**
 * Many small files are brought to the medium together, since a flush for each would take several
 * times as long as copying it. A copy counts only when the batch was settled and its song is not
 * among the failed ones.
 */
class CopyBatch
{
public:
    struct File {
        int song = 0;                ///< the song's number in failed() and changed()
        std::shared_ptr<QFile> part; ///< the bytes; open, so that no other program tidies it away
        QString target;              ///< the name that they get
        bool replaces = false;       ///< a file may have that name already
        QString source;              ///< what the part is read back against; empty for not at all
    };

    /** All files of the batch lie in this folder. */
    explicit CopyBatch(const QString &folder);

    /** Removes the files that were not settled. */
    ~CopyBatch();
    Q_DISABLE_COPY_MOVE(CopyBatch)

    /** Takes over a written file. */
    void add(const File &file);

    bool isEmpty() const { return m_files.isEmpty(); }

    /**
     * True when it is time to settle: files that are not settled are lost if the medium is pulled.
     */
    bool isFull() const;

    /** True when a file of the batch will get, or got, this name, in any letter case. */
    bool holds(const QString &target) const;

    /** Gives all files their names, once. May run on another thread. */
    void settle();

    /** Songs of which a file got its name, those that failed afterwards among them. */
    const QSet<int> &named() const { return m_named; }

    /** Songs with a file that did not get its name, or may not be on the medium under it. */
    const QSet<int> &failed() const { return m_failed; }

    /** Those of them of which a file could not be read back from the medium as it was written. */
    const QSet<int> &changed() const { return m_changed; }

private:
    bool flush();
    void readBack();
    void giveNames(bool replacing);
    void fail(const File &file, const char *reason);

    QString m_folder;
    FileSystemFlush m_fileSystem;
    QList<File> m_files;
    QSet<QString> m_names; ///< targets of the files, case-folded
    qint64 m_size = 0;
    qsizetype m_handles = 0; ///< that are open, or will be
    const qsizetype m_mostHandles;
    QSet<int> m_named;
    QSet<int> m_failed;
    QSet<int> m_changed;
};
