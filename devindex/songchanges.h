// Changes songs on a memory and brings its index up to date, once for all of them.
#pragma once

#include "devindex/index.h"
#include "library/keepalive.h"
#include "library/progress.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

/**
 * Each call is one job: it takes the lock of the memory, lets the index go, changes the songs and
 * makes the index true again. A job that is cut off leaves no index.
 */
class SongChanges
{
    Q_DECLARE_TR_FUNCTIONS(SongChanges)

public:
    /** A song that was not changed, or not wholly, and why in a few words. */
    struct Failure {
        QString path;
        QString reason;
    };

    struct Report {
        QString refusal;  ///< why nothing at all was done; empty when the job was begun
        QStringList done; ///< paths on the memory of the songs that were changed
        QList<Failure> failed;
        bool stopped = false;      ///< by the user; the songs left over are in neither list
        bool isIndexTrue = false;  ///< the index is up to date, or gone with the last song
        QStringList indexProblems; ///< what its update said about single songs

        /** Everything went well. */
        bool isComplete() const
        {
            return refusal.isEmpty() && failed.isEmpty() && !stopped && isIndexTrue;
        }
    };

    /** The memory with this root folder, which must be there when the object is made. */
    SongChanges(const QString &root, OpenProgress openProgress);

    /**
     * The memory is the one of this memoryDevice(): where that was pulled meanwhile nothing is
     * done. Without it, the memory is the one that is there when the object is made.
     */
    void setDevice(const QByteArray &device) { m_device = device; }

    /** Who is asked, while the index is updated, about names that are too long for the player. */
    void setRenameQuestion(Index::RenameQuestion question) { m_question = std::move(question); }

    /** Removes the songs of these paths on the memory, each with its karaoke pictures. */
    Report remove(const QStringList &paths);

    /**
     * Gives the song another name in its folder, and its karaoke pictures with it; playlists keep
     * it. Only on a memory with a complete index.
     */
    Report rename(const QString &path, const QString &newName);

    /** Saves a song; returns why it was not saved, empty when it was. */
    using Save = std::function<QString()>;

    /** Lets the song of this path on the memory be rewritten in its place. */
    Report rewrite(const QString &path, const Save &save);

    /** Saves the song of this path on the memory; returns why it was not saved. */
    using SaveOne = std::function<QString(const QString &path)>;

    /** The same for several songs; the index is updated once, also when the user stops it. */
    Report rewriteAll(const QStringList &paths, const SaveOne &save);

    /** Changes no song: brings the index up to date. */
    Report updateIndex();

    /** Changes no song: makes the index anew. Playlists keep their songs. */
    Report rebuildIndex();

    /** What to tell the user of an index that cannot be brought up to date. */
    static QString damagedText();

private:
    using Work = std::function<bool(QList<SongInfoIndex> &entries, Report &report)>;
    using IndexWork =
        std::function<bool(Index &index, std::unique_ptr<Progress> &progress, Report &report)>;

    using WorkOnSongs = std::function<bool(const QStringList &songs, QList<SongInfoIndex> &entries,
                                           Report &report)>;

    Report run(const Work &work);
    Report runOn(const QStringList &paths, const WorkOnSongs &work);
    Report runWithIndex(const IndexWork &work);
    Report build(bool anew);
    QString whyNotBuilt(const Index &index) const;
    bool isThere() const;
    bool removeAll(const QStringList &paths, Report &report);

    const QString m_root;
    QByteArray m_device;
    const OpenProgress m_openProgress;
    Index::RenameQuestion m_question;
    KeepAlive m_keepAlive;
};
