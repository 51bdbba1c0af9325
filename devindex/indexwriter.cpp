#include "devindex/indexwriter.h"

#include "devindex/devicetext.h"
#include "storage/recordfile.h"

#include <algorithm>

namespace
{

/** The order file is written in blocks of 512 values. */
constexpr std::size_t orderBlockSize = std::size_t(512) * OrderValue::size;

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

/** Collects records and writes many at once, since each single write costs time. */
class Block
{
public:
    explicit Block(RecordWriter &file)
        : m_file(file)
    {
        m_bytes.reserve(capacity);
    }

    template <std::size_t Size>
    bool append(const std::array<char, Size> &record)
    {
        m_bytes.append(record.data(), static_cast<qsizetype>(Size));
        return m_bytes.size() + static_cast<qsizetype>(Size) <= capacity || flush();
    }

    /** Where the next record will stand in the file. */
    qint64 offset() const { return m_file.offset() + m_bytes.size(); }

    bool flush()
    {
        const bool written = m_bytes.isEmpty() || m_file.append(m_bytes);
        m_bytes.resize(0);
        return written;
    }

private:
    static constexpr qsizetype capacity = 65536;

    RecordWriter &m_file;
    QByteArray m_bytes;
};

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
    Block block(file);
    for (const SongInfoIndex *const entry : entries) {
        PathRecord record;
        record.id = entry->id;
        record.path = entry->path;
        record.date = entry->date;
        record.time = entry->time;
        if (!block.append(record.encode()))
            return -1;
    }
    return block.flush() && file.close() ? 0 : -1;
}

int indexwriter::writeOrder(const QString &path, const EntryList &entries)
{
    RecordWriter file(path);
    if (!file.open())
        return -1;
    std::array<char, orderBlockSize> block{};
    std::size_t filled = 0;
    for (const SongInfoIndex *const entry : entries) {
        OrderValue::encode(block.data() + filled, entry->posidx);
        filled += OrderValue::size;
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
    Block block(file);
    for (const SongInfoIndex *const entry : entries) {
        alpha.add(entry->title, block.offset());
        if (!block.append(songRecord(*entry).encode()))
            return -1;
    }
    return block.flush() && file.close() ? static_cast<int>(entries.size()) : -1;
}

int indexwriter::writeGroups(const QString &path, const EntryList &entries,
                             QString SongInfoIndex::*text, AlphaTable &alpha)
{
    RecordWriter file(path);
    if (!file.open())
        return -1;
    Block block(file);
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
        alpha.add(groupText, block.offset());
        if (!block.append(header.encode()))
            return -1;
        for (; song != end; ++song) {
            if (!block.append(songRecord(**song).encode()))
                return -1;
        }
    }
    return block.flush() && file.close() ? groups : -1;
}

int indexwriter::writeAlpha(const QString &path, const AlphaTable &alpha)
{
    return writeSingle(path, alpha.bytes);
}

int indexwriter::writeCounts(const QString &path, const CountRecord &counts)
{
    return writeSingle(path, counts.encode());
}
