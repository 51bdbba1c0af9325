// Finds out what a transfer would do, without touching anything.
#pragma once

#include "devindex/contentcomparer.h"
#include "devindex/shortname.h"
#include "devindex/transferplan.h"
#include "library/keepalive.h"
#include "library/progress.h"
#include "storage/writeproblem.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/** What a memory says about its room. */
struct MemoryRoom {
    qint64 freeBytes = -1; ///< negative when unknown
    qint64 totalBytes = -1;
    qint64 clusterSize = 0;
    WriteProblem::Medium medium; ///< by which names are judged

    static MemoryRoom of(const QString &folder);
};

/**
 * Holds the songs of a list against a memory: by name, by size and, where the sizes are equal, by
 * their bytes. Songs whose names were shortened on the memory are found there by the names that
 * theirs can have become. One object makes one plan.
 *
 * The remedies that a plan starts with lose nothing and double nothing: what is new or differs is
 * copied, what is there is skipped, a song whose name another one of the list has gets a name of
 * its own, and nothing is removed.
 */
class TransferPlanner
{
    Q_DECLARE_TR_FUNCTIONS(TransferPlanner)

public:
    /** The memory's root, and the folder on it into which the songs go; it need not be there. */
    TransferPlanner(const QString &root, const QString &folder);

    /** Takes this for the memory's room. */
    void setRoom(const MemoryRoom &room) { m_room = room; }

    /**
     * The songs below the folder that are not in the list become items, too. Not among them are
     * songs behind links and in the folders of the player and of operating systems, nor any whose
     * name a song of the list has that cannot be read or copied.
     */
    void listOthers() { m_listsOthers = true; }

    /**
     * A file that lies there under a song's own name with its size counts as the song, without
     * being read. Enough to learn whether songs would be lost or doubled: such a file keeps its
     * place.
     */
    void trustNames() { m_trustsNames = true; }

    /** Nothing when the progress was stopped. The songs are counted there as they are compared. */
    std::optional<TransferPlan> plan(const QStringList &files, Progress &progress);

private:
    using Item = TransferPlan::Item;
    using State = TransferPlan::State;
    using Remedy = TransferPlan::Remedy;

    /** A song below the folder. */
    struct There {
        QString path;
        bool isClaimed = false; ///< it belongs to a song of the list
        qint64 size = -1;       ///< negative as long as nobody has asked for it
    };
    using Places = QHash<QString, QList<int>>;

    void findSongsThere();
    bool forAll(Progress &progress, bool counts, void (TransferPlanner::*step)(Item &));
    void examine(Item &item);
    void lookUnderItsName(Item &item);
    void lookUnderShortNames(Item &item);
    void decide(Item &item);
    void propose(Item &item);
    void keepAlternatives(const Item &item);
    void addOthers();

    std::optional<State> lies(Item &item, const QString &path);
    static void setUnreadable(Item &item);
    void settle(Item &item, State state, const QString &path);
    bool hasSizeOf(There &song, const Item &item) const;
    QList<int> candidatesFor(const Item &item) const;
    QString existing(const QString &path) const;
    void claim(const QString &path);
    bool isReachedDirectly(const QString &folder);
    bool mayBeRemoved(const There &song);
    QString whyTooLong(const QString &name) const;
    QString heldName(const QString &name) const;
    QString subFolderFor(const QString &path);
    void proposeSubFolder(Item &item);
    qint64 clusters(const QString &file) const;
    qint64 inClusters(qint64 size) const;

    const QString m_root;
    const QString m_folder;
    MemoryRoom m_room;
    bool m_listsOthers = false;
    bool m_trustsNames = false;
    TransferPlan m_plan;
    std::vector<There> m_there;
    Places m_byPath;                 ///< as nameKey()
    Places m_byName;                 ///< likewise, without the folder
    Places m_byShortName;            ///< as shortNameKey()
    QHash<QString, QString> m_taken; ///< songs of the list by the paths that they will have
    QHash<QString, bool> m_direct;   ///< folders, by whether no link leads to them
    ShortNames m_shortNames;
    ContentComparer m_comparer;
    KeepAlive m_keepAlive;
};
