#include "devindex/entrymatcher.h"

#include "devindex/devicetext.h"
#include "devindex/filestamp.h"
#include "devindex/indexrecords.h"
#include "devindex/samefile.h"
#include "devindex/songhead.h"

#include <QByteArray>
#include <QFileInfo>
#include <QHash>
#include <QSet>

#include <algorithm>

namespace
{

/** Entries and files that have one name in the index. */
struct Group {
    QList<SongInfoIndex *> entries;
    QList<SongInfoIndex> files; ///< each as a new entry would be
};

/** True for a path that an index file may hold like this, with "?" for some of its characters. */
bool isUnclear(const QString &path)
{
    return path.contains(QLatin1Char('?')) && textFromIbm850(ibm850FromText(path)) == path;
}

void readFile(SongInfoIndex &file)
{
    const FileStamp stamp = FileStamp::of(file.fullPath).value_or(FileStamp());
    file.date = stamp.date;
    file.time = stamp.time;
    const bool isRegular = QFileInfo(file.fullPath).isFile(); // no other is sure to end
    SongHeadBuffer buffer;
    const QByteArrayView head =
        isRegular ? songHeadOf(file.fullPath, buffer).bytes : QByteArrayView();
    readSongHead(head, file.fullPath, file);
}

/** A text as it comes back from an index file. */
QString asLoaded(const QString &text)
{
    SongRecord record;
    record.title = text;
    return stringToUpper(SongRecord::decode(record.encode().data()).title).trimmed();
}

bool haveSameTexts(const SongInfoIndex &entry, const SongInfoIndex &file)
{
    const auto isSame = [&](QString SongInfoIndex::*text) {
        return compareIgnoringCase(asLoaded(entry.*text), asLoaded(file.*text)) == 0;
    };
    return isSame(&SongInfoIndex::title) && isSame(&SongInfoIndex::artist) &&
           isSame(&SongInfoIndex::genre);
}

bool haveSameTextsAndTime(const SongInfoIndex &entry, const SongInfoIndex &file)
{
    return entry.date == file.date && entry.time == file.time && haveSameTexts(entry, file);
}

void giveName(SongInfoIndex &entry, const SongInfoIndex &file)
{
    entry.path = file.path;
    entry.fullPath = file.fullPath;
}

/** Gives each entry the first file that fits; both leave the group. */
template <typename Fits>
void assign(Group &group, Fits fits)
{
    group.entries.removeIf([&](SongInfoIndex *entry) {
        const auto file =
            std::find_if(group.files.cbegin(), group.files.cend(),
                         [&](const SongInfoIndex &candidate) { return fits(*entry, candidate); });
        if (file == group.files.cend())
            return false;
        giveName(*entry, *file);
        group.files.erase(file);
        return true;
    });
}

void assignAll(Group &group)
{
    if (group.entries.size() == 1 && group.files.size() == 1) {
        giveName(*group.entries.constFirst(), group.files.constFirst());
        return;
    }
    for (SongInfoIndex &file : group.files)
        readFile(file);
    assign(group, haveSameTextsAndTime);
    assign(group, haveSameTexts);
    assign(group, [](SongInfoIndex &entry, const SongInfoIndex &) {
        entry.date = 0; // the entry shows another song, so the file must be read again
        entry.time = 0;
        return true;
    });
    for (SongInfoIndex *const entry : std::as_const(group.entries))
        entry->fullPath.clear(); // the file at that path belongs to another entry
}

} // namespace

entrymatcher::Match entrymatcher::match(SongInfoIndex &entry, const QString &path,
                                        const QString &fullPath)
{
    if (entry.path == path)
        return Match::Same;
    if (entry.fullPath.isEmpty())
        return Match::None; // its file has gone
    const bool sameName = entry.path.compare(path, Qt::CaseInsensitive) == 0;
    const bool sameRecord = ibm850FromText(entry.path) == ibm850FromText(path);
    if ((sameName || sameRecord) && !QFileInfo::exists(entry.fullPath)) {
        entry.path = path;
        entry.fullPath = fullPath;
        return sameRecord ? Match::Same : Match::NewSpelling;
    }
    if (!sameName)
        return Match::None;
    return isSameFile(entry.fullPath, fullPath) ? Match::Same : Match::OtherFile;
}

void entrymatcher::nameUnclearEntries(QList<SongInfoIndex> &entries, const QList<FoundSong> &songs,
                                      qsizetype rootSize)
{
    const bool allClear =
        std::none_of(entries.cbegin(), entries.cend(),
                     [](const SongInfoIndex &entry) { return isUnclear(entry.path); });
    if (allClear)
        return;
    QHash<QByteArray, Group> groups;
    QSet<QString> named;
    for (SongInfoIndex &entry : entries) {
        if (isUnclear(entry.path))
            groups[ibm850FromText(entry.path)].entries.append(&entry);
        else
            named.insert(entry.path);
    }
    for (const FoundSong &song : songs) {
        SongInfoIndex file;
        file.fullPath = song.path;
        file.path = song.path.mid(rootSize);
        const auto group = groups.find(ibm850FromText(file.path));
        if (group == groups.end() || named.contains(file.path))
            continue;
        // A file whose own name is equal comes before those whose name is equal only in the index.
        group->files.insert(isUnclear(file.path) ? 0 : group->files.size(), file);
    }
    for (Group &group : groups)
        assignAll(group);
}
