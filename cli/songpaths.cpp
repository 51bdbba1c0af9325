#include "cli/songpaths.h"

#include "cli/shownname.h"
#include "cli/terminal.h"
#include "devindex/mountedvolumes.h"
#include "formats/songnames.h"
#include "library/songsearch.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <filesystem>
#include <system_error>

QString SongPaths::notUtf8()
{
    return tr("Il nome non è in UTF-8 e il file non può essere aperto");
}

QList<QByteArray> SongPaths::given(const Request &request)
{
    QList<QByteArray> paths = request.paths;
    if (!request.pathsFromStandardInput)
        return paths;
    QFile input;
    if (!input.open(stdin, QFile::ReadOnly))
        return paths;
    const QList<QByteArray> listed = input.readAll().split('\0');
    for (const QByteArray &path : listed) {
        if (!path.isEmpty()) // behind the last one, too, there is a zero byte
            paths.append(path);
    }
    return paths;
}

std::optional<QString> SongPaths::decode(const QByteArray &path, Terminal &terminal)
{
    if (path.isValidUtf8())
        return QString::fromUtf8(path);
    terminal.fail(shownName(path), notUtf8());
    return std::nullopt;
}

std::optional<QString> SongPaths::folder(const QByteArray &path, Terminal &terminal)
{
    const std::optional<QString> given = decode(path, terminal);
    if (!given)
        return std::nullopt;
    const QFileInfo info(*given);
    if (info.isDir())
        return info.absoluteFilePath();
    terminal.refuse(
        *given, QCoreApplication::translate("IndexDialog", "Il percorso selezionato non esiste"));
    return std::nullopt;
}

std::optional<QString> SongPaths::memory(const QByteArray &path, Terminal &terminal)
{
    std::optional<QString> root = folder(path, terminal);
    if (!root)
        return root;
    const QString mounted = MountedVolumes().getRootDrivePath(*root);
    if (!mounted.isEmpty())
        root = mounted;
    return root;
}

std::optional<QStringList> SongPaths::songs(const Request &request, Terminal &terminal)
{
    QStringList songs;
    const QList<QByteArray> paths = given(request);
    for (const QByteArray &bytes : paths) {
        const std::optional<QString> path = decode(bytes, terminal);
        if (!path)
            continue;
        const QFileInfo item(*path);
        if (!item.isDir()) {
            songs.append(*path);
            continue;
        }
        const auto found = SongSearch(terminal.progressOpener()).search({*path});
        if (terminal.isStopped() || !found)
            return std::nullopt;
        QString folder = *path;
        while (folder.endsWith(QLatin1Char('/')))
            folder.chop(1);
        const qsizetype absolute = item.absoluteFilePath().size();
        for (const QString &song : *found) {
            const QString rest = song.mid(absolute);
            songs.append(rest.startsWith(QLatin1Char('/')) ? folder + rest : song);
        }
        nameUnusable(*path, terminal);
    }
    songs.removeDuplicates();
    return songs;
}

/** Qt passes over names that are no UTF-8; the user must learn that these songs were left out. */
void SongPaths::nameUnusable(const QString &folder, Terminal &terminal)
{
    namespace fs = std::filesystem;
    std::error_code error;
    fs::recursive_directory_iterator entry(QFileInfo(folder).filesystemFilePath(),
                                           fs::directory_options::skip_permission_denied, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
        const QByteArray name = QByteArray::fromStdString(entry->path().filename().string());
        std::error_code unknown;
        const bool isFolder = entry->is_directory(unknown);
        if (!name.isValidUtf8() && (isFolder || songnames::isSongName(shownName(name))))
            terminal.fail(shownName(QByteArray::fromStdString(entry->path().string())), notUtf8());
    }
}
