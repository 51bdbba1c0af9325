#include "cli/songpaths.h"

#include "cli/givenpath.h"
#include "cli/terminal.h"
#include "devindex/indexfiles.h"
#include "devindex/mountedvolumes.h"
#include "formats/songnames.h"
#include "library/songsearch.h"
#include "storage/nametext.h"
#include "storage/shownname.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace
{

constexpr qsizetype longestPath = 65536; // no system knows longer ones

} // namespace

QString SongPaths::notUtf8()
{
    return tr("Il nome non è in UTF-8 e il file non può essere aperto");
}

QString SongPaths::memoryHasGone()
{
    return QCoreApplication::translate("MemoryContents", "La memoria non è più collegata.");
}

std::optional<QList<QByteArray>> SongPaths::given(const Request &request, Terminal &terminal)
{
    QList<QByteArray> paths = request.paths;
    if (!request.pathsFromStandardInput)
        return paths;
    QByteArray path;
    std::array<char, 65536> bytes{};
    std::size_t size = 0;
    do {
        size = std::fread(bytes.data(), 1, bytes.size(), stdin);
        for (const char byte : QByteArrayView(bytes.data(), static_cast<qsizetype>(size))) {
            if (byte != '\0') {
                path += byte;
            } else if (path.isEmpty()) {
                terminal.fail(QStringLiteral("-0"), tr("Un nome è vuoto"));
            } else {
                paths.append(path);
                path.clear();
            }
            if (path.size() > longestPath)
                break;
        }
        if (terminal.isStopped())
            return std::nullopt;
    } while (size == bytes.size() && path.size() <= longestPath);
    if (std::ferror(stdin) != 0 || path.size() > longestPath) {
        terminal.fail(QStringLiteral("-0"), tr("L'elenco non può essere letto"));
        return std::nullopt;
    }
    if (!path.isEmpty()) // the last one needs no zero byte
        paths.append(path);
    return paths;
}

std::optional<QString> SongPaths::decode(const QByteArray &path, Terminal &terminal)
{
    if (path.isValidUtf8())
        return path.startsWith(':') ? givenpath::beforeColon + nameText(path) : nameText(path);
    terminal.fail(shownName(path), notUtf8());
    return std::nullopt;
}

std::optional<QString> SongPaths::folder(const QByteArray &path, Terminal &terminal)
{
    const std::optional<QString> name = decode(path, terminal);
    if (!name)
        return std::nullopt;
    const QFileInfo info(*name);
    if (info.isDir())
        return info.absoluteFilePath();
    terminal.refuse(*name, info.exists()
                               ? QCoreApplication::translate(
                                     "IndexDialog", "Il percorso selezionato non è una cartella")
                               : QCoreApplication::translate("IndexDialog",
                                                             "Il percorso selezionato non esiste"));
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

bool SongPaths::mayChange(const QString &root, const Request &request, Terminal &terminal)
{
    const auto isThere = [&root](QLatin1String name) {
        return QFileInfo(root + QLatin1Char('/') + name).isFile();
    };
    if (request.anyFolder || !MountedVolumes().memoryOf(root).isEmpty() ||
        std::any_of(indexfiles::all.begin(), indexfiles::all.end(), isThere))
        return true;
    terminal.refuse(root, QCoreApplication::translate(
                              "IndexCommand", "La cartella non è in una memoria collegata e non "
                                              "ha un database (%1: la prende comunque)")
                              .arg(QStringLiteral("--any-folder")));
    return false;
}

std::optional<QStringList> SongPaths::songs(const Request &request, Terminal &terminal)
{
    QStringList songs;
    const std::optional<QList<QByteArray>> paths = given(request, terminal);
    if (!paths)
        return std::nullopt;
    for (const QByteArray &bytes : *paths) {
        const std::optional<QString> path = decode(bytes, terminal);
        if (!path)
            continue;
        const QFileInfo item(*path);
        if (!item.isDir()) {
            songs.append(*path);
            continue;
        }
        SongSearch search(terminal.progressOpener());
        const auto found = search.search({*path});
        if (terminal.isStopped() || !found)
            return std::nullopt;
        QString start = *path;
        while (start.endsWith(QLatin1Char('/')))
            start.chop(1);
        const qsizetype absolute = item.absoluteFilePath().size();
        for (const QString &song : *found) {
            const QString rest = song.mid(absolute);
            songs.append(rest.startsWith(QLatin1Char('/')) ? start + rest : song);
        }
        for (const QString &unreadable : search.unreadable())
            terminal.fail(unreadable, tr("La cartella non può essere letta"));
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
