// What a transfer is going to do to a memory: a plain value that can be shown, changed and carried
// out.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QtGlobal>

struct TransferPlan {
    /** How a song stands to the memory. */
    enum class State {
        New,
        Same,       ///< the same bytes lie there under its name
        Differs,    ///< other bytes, or other karaoke pictures, lie there under its name
        Renamed,    ///< its bytes lie there under a name that its own can have become
        Collides,   ///< another song of the list has the name
        Unreadable, ///< its bytes cannot be had
        TooLong,    ///< the memory or the player cannot hold its name or path
        Remove      ///< a song on the memory that is not in the list
    };

    /** What becomes of a song. */
    enum class Remedy {
        Skip, ///< nothing is written or removed
        Copy,
        KeepBoth,  ///< copied under a short name that is free
        Replace,   ///< copied over what lies there
        SubFolder, ///< copied into a folder that is named after the song's own
        Remove
    };

    struct Item {
        QString path;      ///< the song; of one to be removed, where it lies on the memory
        QString companion; ///< its karaoke pictures, which share its lot; else empty
        State state = State::New;
        Remedy remedy = Remedy::Skip;
        QString target;          ///< where it lies on the memory, or would under its own name
        QString keepBothTarget;  ///< a free path; empty when there is none, or no need of one
        QString subFolderTarget; ///< likewise
        QString reason;          ///< why it cannot or need not be copied, for the user; else empty
        bool isTwin = false;     ///< collides with a song of the same bytes: nothing is lost
        bool isThere = false;    ///< a song lies at the target
        qint64 room = 0;         ///< that it takes, with its pictures, in whole clusters
        qint64 roomThere = 0;    ///< that comes free when it replaces what lies there
        qint64 size = 0;         ///< of the song alone
        qint64 changed = 0;      ///< when a song to be removed was changed, in milliseconds

        /** Where it goes; empty when nothing is written. */
        QString destination() const;

        /** By how many bytes the memory gets fuller; below 0 when it gets emptier. */
        qint64 growth() const;

        /** The remedies to choose from; Skip is always among them. */
        QList<Remedy> remedies() const;
    };

    QString root;      ///< of the memory
    QString folder;    ///< into which the songs go; need not be there yet
    QByteArray device; ///< memoryDevice() of the root when the plan was made; empty if unknown
    QList<Item> items;
    qint64 freeBytes = -1;  ///< negative when unknown
    qint64 totalBytes = -1; ///< likewise
    qint64 songsThere = 0;  ///< that an index of the memory would list now
    bool readBack = false;  ///< each copy is read back and compared

    /** Gives those of the songs, by their numbers, this remedy that can have it. */
    void choose(const QList<int> &numbers, Remedy remedy);

    /** False when the memory was taken out since the plan was made. */
    bool isMemoryThere() const;

    /**
     * The bytes by which the memory gets fuller at most. What comes free does not count: songs are
     * removed after all are copied, and one that is replaced goes when its successor is whole.
     */
    qint64 bytesNeeded() const;

    /** The songs that the index would list afterwards. */
    qint64 songsAfter() const;

    int count(State state) const;
    int count(Remedy remedy) const;

    /** False when the room is known and is not enough. */
    bool fits() const;

    /** False when the player cannot count so many songs. */
    bool canBeIndexed() const;

    /**
     * True when copying all songs under their own names would lose or double some: equal names,
     * songs that are there already under another name, too little room, too many songs.
     */
    bool needsReview() const;
};
