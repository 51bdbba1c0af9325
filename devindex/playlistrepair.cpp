#include "devindex/playlistrepair.h"

#include "devindex/indexloader.h"
#include "devindex/pathfinder.h"
#include "devindex/playlistfiles.h"
#include "storage/memorylock.h"

#include <QFileInfo>

PlaylistRepair::PlaylistRepair(const QString &root)
    : m_root(root.size() > 1 && root.endsWith(QLatin1Char('/')) ? root.chopped(1) : root)
{
}

PlaylistRepair::Report PlaylistRepair::run() const
{
    Report report;
    MemoryLock lock(m_root);
    if (!lock.take()) {
        report.refusal = lock.message();
        return report;
    }
    QList<SongInfoIndex> entries;
    if (!IndexLoader(m_root, entries).load()) {
        report.refusal = tr("La memoria non ha un database completo: aggiornarlo prima.");
        return report;
    }
    const PlaylistFiles files(m_root);
    QList<quint16> numbers;
    if (files.readNumbers(numbers) == PlaylistFiles::Outcome::Failed) {
        report.refusal = tr("Non è stato possibile leggere le playlist.");
        return report;
    }
    QSet<quint32> known;
    // A song that is gone is no song that a playlist could keep.
    entries.removeIf(
        [this](const SongInfoIndex &entry) { return !QFileInfo(m_root + entry.path).isFile(); });
    for (const SongInfoIndex &entry : std::as_const(entries))
        known.insert(entry.id);
    PathFinder songs(entries);
    for (const quint16 number : std::as_const(numbers)) {
        if (files.mendIds(number, known, songs, report.foundAgain) ==
            PlaylistFiles::Outcome::Failed)
            ++report.failed;
    }
    return report;
}
