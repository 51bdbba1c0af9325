#include "devindex/folderlisting.h"

#include "formats/songnames.h"
#include "storage/leftovers.h"
#include "storage/nametext.h"
#include "storage/shownname.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <vector>

#ifdef Q_OS_UNIX
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#endif

#ifdef Q_OS_UNIX

namespace
{

using FileStatus = struct stat;

struct FolderCloser {
    void operator()(DIR *folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, FolderCloser>;

/** An item and the text that orders it. */
struct KeyedItem {
    QString key;
    FolderItem item;
};

/** Asks what an entry is. What has gone, or a link that leads nowhere, hides no song. */
bool ask(int folder, const dirent &entry, int flags, FileStatus &status, bool &isUnreadable)
{
    if (::fstatat(folder, entry.d_name, &status, flags) == 0)
        return true;
    isUnreadable = isUnreadable || (errno != ENOENT && errno != ENOTDIR && errno != ELOOP);
    return false;
}

/**
 * Reads no more about an entry than is needed: most file systems give the kind together with the
 * name, so only songs and links have to be asked for more. False for what a scan passes over.
 */
bool examine(int folder, const dirent &entry, SongTimes times, FolderItem &item, bool &isUnreadable)
{
    unsigned char type = entry.d_type;
    FileStatus status{};
    if (type == DT_UNKNOWN) {
        if (!ask(folder, entry, AT_SYMLINK_NOFOLLOW, status, isUnreadable))
            return false;
        type = static_cast<unsigned char>(IFTODT(status.st_mode));
    }
    item.isLink = type == DT_LNK;
    item.isFolder = type == DT_DIR;
    if (item.isFolder)
        return true;
    const bool isSong = songnames::isSongName(item.name);
    item.isSong = isSong && type == DT_REG;
    if (type == DT_REG && (!isSong || times == SongTimes::Leave))
        return true;
    if ((type != DT_REG && !item.isLink) || !ask(folder, entry, 0, status, isUnreadable))
        return false;
    item.isFolder = item.isLink && S_ISDIR(status.st_mode);
    item.isSong = isSong && S_ISREG(status.st_mode);
    if (item.isSong) {
        item.stamp = FileStamp::at(status.st_mtime);
        item.size = static_cast<qint64>(status.st_size);
    }
    return true;
}

/** The next entry; null at the end, and where the medium gives no more of them. */
const dirent *nextEntry(DIR *folder, bool &isUnreadable)
{
    errno = 0;
    const dirent *const entry = ::readdir(folder);
    isUnreadable = isUnreadable || (entry == nullptr && errno != 0);
    return entry;
}

} // namespace

// QDir asks several questions about each entry and keeps the answers in an object for each, which
// takes longer than everything else that an update of an unchanged memory does.
FolderListing FolderListing::of(const QString &path, SongTimes times)
{
    FolderListing listing;
    const OpenFolder folder(::opendir(QFile::encodeName(path).constData()));
    if (folder != nullptr)
        listing.id = folderIdOf(::dirfd(folder.get()));
    if (listing.id.isEmpty()) {
        listing.isUnreadable = errno != ENOENT && errno != ENOTDIR;
        return listing;
    }

    std::vector<KeyedItem> found;
    while (const dirent *const entry = nextEntry(folder.get(), listing.isUnreadable)) {
        const QByteArrayView name(entry->d_name);
        if (name.startsWith('.')) {
            if (Leftovers::isLeftover(QString::fromUtf8(name)))
                listing.leftovers.append(nameText(name));
            continue;
        }
        const bool isUsable = name.isValidUtf8();
        if (isUsable && name.endsWith(Leftovers::usualTemporarySuffix.data()))
            listing.leftovers.append(nameText(name));
        FolderItem item;
        item.name = isUsable ? nameText(name) : shownName(name.toByteArray());
        if (!examine(::dirfd(folder.get()), *entry, times, item, listing.isUnreadable))
            continue;
        if (!isUsable) {
            if (item.isFolder || item.isSong)
                listing.unusableNames.append(item.name);
        } else {
            QString key = item.name.toLower();
            found.push_back({std::move(key), std::move(item)});
        }
    }
    std::sort(found.begin(), found.end(), [](const KeyedItem &first, const KeyedItem &second) {
        const int order = first.key.compare(second.key);
        return order != 0 ? order < 0 : first.item.name < second.item.name;
    });
    listing.unusableNames.sort();
    listing.items.reserve(static_cast<qsizetype>(found.size()));
    for (KeyedItem &keyed : found)
        listing.items.append(std::move(keyed.item));
    return listing;
}

#else

FolderListing FolderListing::of(const QString &path, SongTimes times)
{
    FolderListing listing;
    listing.id = folderIdOf(path);
    listing.isUnreadable = !listing.id.isEmpty() && !QFileInfo(path).isReadable();
    const QFileInfoList entries = QDir(path).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot,
                                                           QDir::Name | QDir::IgnoreCase);
    for (const QFileInfo &entry : entries) {
        FolderItem item;
        item.name = entry.fileName();
        item.isFolder = entry.isDir();
        item.isLink = entry.isSymLink();
        item.isSong = entry.isFile() && songnames::isSongName(item.name);
        if (item.isSong && times == SongTimes::Ask) {
            item.stamp = FileStamp::of(entry.filePath());
            item.size = entry.size();
        }
        listing.items.append(item);
    }
    return listing;
}

#endif
