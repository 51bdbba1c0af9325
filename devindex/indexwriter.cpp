#include "devindex/indexwriter.h"

#include "devindex/devicetext.h"
#include "storage/recordfile.h"

#include <algorithm>

namespace
{

/** The order file is written in blocks of 512 values. */
constexpr std::size_t OrderBlockSize = std::size_t(512) * OrderValue::Size;

SongRecord songRecord(const SongInfoIndex &entry)
{
    SongRecord record;
    record.id = entry.id;
    record.title = entry.title;
    record.bpm = entry.bpm;
    record.fileType = entry.fileType;
    record.hasMarkers = entry.hasMarkers != 0;
    return record;
}

template <typename Record>
int writeSingle(const QString &path, const Record &bytes)
{
    RecordWriter file(path);
    return file.open() && file.append(bytes) && file.close() ? 0 : -1;
}

} // namespace

int indexwriter::writePaths(const QString &path, const EntryList &entries)
{
    RecordWriter file(path);
    if (!file.open())
        return -1;
    for (const SongInfoIndex *const entry : entries) {
        PathRecord record;
        record.id = entry->id;
        record.path = entry->path;
        record.date = entry->date;
        record.time = entry->time;
        if (!file.append(record.encode()))
            return -1;
    }
    return file.close() ? 0 : -1;
}

int indexwriter::writeOrder(const QString &path, const EntryList &entries)
{
    RecordWriter file(path);
    if (!file.open())
        return -1;
    std::array<char, OrderBlockSize> block{};
    std::size_t filled = 0;
    for (const SongInfoIndex *const entry : entries) {
        OrderValue::encode(block.data() + filled, entry->posidx);
        filled += OrderValue::Size;
        if (filled < block.size())
            continue;
        if (!file.append(block))
            return -1;
        filled = 0;
    }
    if (!file.append(block.data(), static_cast<qint64>(filled)))
        return -1;
    return file.close() ? 0 : -1;
}

int indexwriter::writeTitles(const QString &path, const EntryList &entries, AlphaTable &alpha)
{
    RecordWriter file(path);
    if (!file.open())
        return -1;
    for (const SongInfoIndex *const entry : entries) {
        alpha.add(entry->title, file.offset());
        if (!file.append(songRecord(*entry).encode()))
            return -1;
    }
    return file.close() ? static_cast<int>(entries.size()) : -1;
}

int indexwriter::writeGroups(const QString &path, const EntryList &entries,
                             QString SongInfoIndex::*text, AlphaTable &alpha)
{
    RecordWriter file(path);
    if (!file.open())
        return -1;
    int groups = 0;
    GroupHeader header;
    for (auto song = entries.cbegin(); song != entries.cend(); ++groups) {
        const QString &groupText = (*song)->*text;
        const auto end = std::find_if(song, entries.cend(), [&](const SongInfoIndex *entry) {
            return compareIgnoringCase(entry->*text, groupText) != 0;
        });
        header.previousCount = header.count;
        header.count = static_cast<quint16>(end - song);
        header.text = groupText;
        alpha.add(groupText, file.offset());
        if (!file.append(header.encode()))
            return -1;
        for (; song != end; ++song) {
            if (!file.append(songRecord(**song).encode()))
                return -1;
        }
    }
    return file.close() ? groups : -1;
}

int indexwriter::writeAlpha(const QString &path, const AlphaTable &alpha)
{
    return writeSingle(path, alpha.bytes);
}

int indexwriter::writeCounts(const QString &path, const CountRecord &counts)
{
    return writeSingle(path, counts.encode());
}
