// What the memory window shows of a memory, as it was at one moment.
#pragma once

#include "devindex/memoryduplicates.h"
#include "devindex/memoryfacts.h"
#include "devindex/memoryplaylists.h"
#include "devindex/memorysongs.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <memory>

/** Nothing in it changes any more once it is read, so that every page may keep it. */
class MemoryContents
{
    Q_DECLARE_TR_FUNCTIONS(MemoryContents)

public:
    /** Of the memory with this root folder. */
    explicit MemoryContents(const QString &root);

    /**
     * Reads all of it; takes as long as the memory needs. Returns why it could not be read, in
     * words for the user; empty when it was, or when the user stopped it.
     */
    QString read(Progress &progress);

    /** False as long as it was not read to its end. */
    bool isRead() const { return m_isRead; }

    QString root() const { return m_memory.root(); }
    const MemorySongs &memory() const { return m_memory; }
    const QList<MemorySong> &songs() const { return m_memory.songs(); }
    const MemoryFacts &facts() const { return m_facts; }
    const QList<MemoryPlaylist> &playlists() const { return m_playlists; }

    /** Songs with one title and one artist. */
    const QList<memoryduplicates::Group> &sameTitle() const { return m_sameTitle; }

    /** True when the system has somebody who ejects memories. */
    bool canEject() const { return m_canEject; }

    /**
     * Why songs in this folder are not changed; empty when they may be. A folder of the computer
     * that was never a memory is not made one by the way.
     */
    QString whyNotChanged() const;

private:
    MemorySongs m_memory;
    MemoryFacts m_facts;
    QList<MemoryPlaylist> m_playlists;
    QList<memoryduplicates::Group> m_sameTitle;
    bool m_canEject = false;
    bool m_isRead = false;
};

using SharedContents = std::shared_ptr<const MemoryContents>;
