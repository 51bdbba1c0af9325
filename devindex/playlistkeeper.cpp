#include "devindex/playlistkeeper.h"

#include "devindex/indexloader.h"
#include "devindex/pathfinder.h"
#include "storage/diagnostics.h"

#include <algorithm>

PlaylistKeeper::PlaylistKeeper(const QString &root)
    : m_root(root)
    , m_playlists(root)
{
}

PlaylistFiles::Outcome PlaylistKeeper::savePaths(QList<quint16> &numbers) const
{
    const auto read = m_playlists.readNumbers(numbers);
    if (read != PlaylistFiles::Outcome::Done)
        return read;
    QList<SongInfoIndex> songs;
    if (!IndexLoader(m_root, songs).loadPathsAlone() || songs.isEmpty())
        return PlaylistFiles::Outcome::Done;
    const bool saved =
        std::all_of(numbers.cbegin(), numbers.cend(), [this, &songs](quint16 number) {
            return m_playlists.savePaths(number, songs) != PlaylistFiles::Outcome::Failed;
        });
    return saved ? PlaylistFiles::Outcome::Done : PlaylistFiles::Outcome::Failed;
}

PlaylistFiles::Outcome PlaylistKeeper::prepareForNewIds(QList<quint16> &numbers) const
{
    const auto saved = savePaths(numbers);
    if (saved != PlaylistFiles::Outcome::Done)
        return saved;
    const bool writable = std::all_of(numbers.cbegin(), numbers.cend(), [this](quint16 number) {
        return m_playlists.allowWriting(number) != PlaylistFiles::Outcome::Failed;
    });
    return writable ? PlaylistFiles::Outcome::Done : PlaylistFiles::Outcome::Failed;
}

PlaylistFiles::Outcome PlaylistKeeper::restoreIds(const QList<quint16> &numbers,
                                                  QList<SongInfoIndex> &songs) const
{
    logDebug() << "restore playlist file path";
    auto outcome = PlaylistFiles::Outcome::Done;
    PathFinder finder(songs);
    for (const quint16 number : numbers) {
        if (m_playlists.restoreIds(number, finder) == PlaylistFiles::Outcome::Failed)
            outcome = PlaylistFiles::Outcome::Failed;
    }
    return outcome;
}
