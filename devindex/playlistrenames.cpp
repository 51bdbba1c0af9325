#include "devindex/playlistrenames.h"

#include "devindex/renamedpath.h"

PlaylistRenames::PlaylistRenames(const QString &root)
    : m_files(root)
{
}

void PlaylistRenames::read()
{
    m_playlists.emplace();
    QList<quint16> numbers;
    m_files.readNumbers(numbers);
    for (const quint16 number : std::as_const(numbers)) {
        QStringList paths = m_files.readPaths(number);
        if (!paths.isEmpty())
            m_playlists->append({number, std::move(paths)});
    }
}

bool PlaylistRenames::follow(const QString &path, const QString &newPath)
{
    if (!m_playlists)
        read();
    bool written = true;
    for (Playlist &playlist : *m_playlists) {
        bool isChanged = false;
        for (QString &song : playlist.paths)
            isChanged = renamedpath::follow(song, path, newPath) || isChanged;
        if (isChanged)
            written = m_files.writePaths(playlist.number, playlist.paths) && written;
    }
    return written;
}
