#include "windows/memorycontents.h"

#include "devindex/eject.h"
#include "storage/memorylock.h"

#include <QFileInfo>

MemoryContents::MemoryContents(const QString &root)
    : m_memory(root)
{
}

QString MemoryContents::read(Progress &progress)
{
    if (!QFileInfo(root()).isDir())
        return tr("La memoria non è collegata.");
    m_canEject = Ejector::ofSystem()->isAvailable();
    // While another program works on the memory, what is read fits together only by chance. A
    // memory that cannot be written to cannot be locked, and nobody changes it.
    MemoryLock lock(root());
    if (!lock.take() && lock.isHeldByOther())
        return lock.message();
    switch (m_memory.read(progress)) {
    case MemorySongs::Outcome::NoMemory:
        return tr("La memoria non è più collegata.");
    case MemorySongs::Outcome::Stopped:
        return {};
    case MemorySongs::Outcome::Done:
        break;
    }
    m_facts = MemoryFacts::of(root());
    m_playlists = playlistsOf(m_memory);
    m_sameTitle = memoryduplicates::sameTitle(m_memory.songs());
    m_isRead = true;
    return {};
}

QString MemoryContents::whyNotChanged() const
{
    if (!m_facts.isOnMemory && m_memory.indexState() == MemorySongs::IndexState::Absent)
        return tr("Questa cartella non è su una memoria e non ha un database: qui non si cambia "
                  "nulla.");
    if (m_memory.indexState() == MemorySongs::IndexState::Damaged)
        return tr("Il database è danneggiato: rigenerarlo nella scheda \"Controllo\" prima di "
                  "cambiare le song.");
    return m_facts.isWritable ? QString() : tr("La memoria è protetta da scrittura.");
}
