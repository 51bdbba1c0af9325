// Removes single songs from a memory, together with what belongs to them.
#pragma once

#include <QCoreApplication>
#include <QSet>
#include <QString>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QFile;
QT_END_NAMESPACE

/**
 * One object removes the songs of one job. It touches nothing but song files in the folders of one
 * memory that the player looks into: never a folder, never anything that a symbolic link leads to,
 * nor a link itself.
 *
 * The song goes first, then its karaoke pictures and the leftovers of a save that was cut off: a
 * song that cannot be removed keeps its pictures. Nothing is certain before flush(): on FAT the
 * entry of a file that was removed may come back until its folder is on the medium, and until then
 * its bytes keep their place.
 */
class SongRemoval
{
    Q_DECLARE_TR_FUNCTIONS(SongRemoval)

public:
    /** The memory with this root folder. */
    explicit SongRemoval(const QString &root);
    ~SongRemoval();
    Q_DISABLE_COPY_MOVE(SongRemoval)

    /**
     * Removes the song of this path on the memory, which begins with "/". Returns an empty text, or
     * why it was not removed, or not all of it, in a few words for the user.
     */
    QString remove(const QString &path);

    /** Why remove() would refuse the path; empty when it would try. */
    QString whyNot(const QString &path) const;

    /** Time to flush(): no more files can be kept. */
    bool isFull() const;

    /** Brings all removals to the medium; the folders, as paths on the memory, that failed. */
    QSet<QString> flush();

    /** Why a song counts as still there whose folder flush() names. */
    static QString notConfirmed();

    /** The folder of a path on the memory, as flush() names it. */
    static QString folderOf(const QString &path);

private:
    bool removeFile(const QString &path);

    QString m_root;
    QSet<QString> m_folders; ///< in which something was removed
    std::vector<std::unique_ptr<QFile>> m_kept;
};
