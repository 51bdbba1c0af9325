#include "devindex/memoryduplicates.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace
{

using memoryduplicates::Group;

constexpr qint64 digestChunk = 65536;

bool isThere(const MemorySong &song)
{
    return song.state != MemorySong::State::Gone && song.state != MemorySong::State::Unreadable;
}

/** The groups of two and more, in the order of their first songs. */
template <typename Key>
QList<Group> groupsOf(const QHash<Key, Group> &byKey)
{
    QList<Group> groups;
    for (const Group &group : byKey) {
        if (group.size() > 1)
            groups.append(group);
    }
    std::sort(groups.begin(), groups.end(), [](const Group &first, const Group &second) {
        return first.constFirst() < second.constFirst();
    });
    return groups;
}

/** Tells files of one size apart by their bytes. */
class Reader
{
public:
    explicit Reader(Progress &progress)
        : m_progress(progress)
    {
    }

    void count(qint64 bytes) { m_maximum += (bytes + digestChunk - 1) / digestChunk; }
    void begin() { m_progress.setMaximum(static_cast<int>(std::min(m_maximum, qint64{INT_MAX}))); }

    /** Nothing for a file that cannot be read, or that has got another size. */
    std::optional<QByteArray> digestOf(const MemorySong &song, qint64 most)
    {
        QFile file(song.info.fullPath);
        if (!QFileInfo(file).isFile() || !file.open(QFile::ReadOnly | QFile::Unbuffered) ||
            file.size() != song.size)
            return {};
        QCryptographicHash hash(QCryptographicHash::Blake2b_256);
        qint64 left = std::min(song.size, most);
        while (left > 0 && !m_progress.wasCanceled()) {
            const QByteArray bytes = file.read(std::min(left, digestChunk));
            if (bytes.isEmpty())
                return {};
            hash.addData(bytes);
            left -= bytes.size();
            m_progress.setValue(static_cast<int>(std::min(++m_done, m_maximum)));
        }
        return hash.result();
    }

private:
    Progress &m_progress;
    qint64 m_maximum = 0;
    qint64 m_done = 0;
};

} // namespace

QList<Group> memoryduplicates::sameTitle(const QList<MemorySong> &songs)
{
    QHash<QString, Group> byTexts;
    byTexts.reserve(songs.size());
    for (qsizetype place = 0; place < songs.size(); ++place) {
        const MemorySong &song = songs.at(place);
        if (!song.showsOnlyName && isThere(song) && !song.isBehindLink)
            byTexts[song.info.title.toCaseFolded() + QChar(0) + song.info.artist.toCaseFolded()]
                .append(place);
    }
    return groupsOf(byTexts);
}

std::optional<QList<Group>> memoryduplicates::sameBytes(const QList<MemorySong> &songs,
                                                        Progress &progress, Group *unread)
{
    QHash<qint64, Group> bySize;
    for (qsizetype place = 0; place < songs.size(); ++place) {
        // Two ways to one file behind a link are no duplicates: removing one would take both.
        if (isThere(songs.at(place)) && !songs.at(place).isBehindLink)
            bySize[songs.at(place).size].append(place);
    }
    const QList<Group> sameSize = groupsOf(bySize);
    Reader reader(progress);
    for (const Group &group : sameSize)
        reader.count(songs.at(group.constFirst()).size * group.size());
    reader.begin();

    QHash<QByteArray, Group> byBytes;
    for (const Group &group : sameSize) {
        // Most songs of one size differ in their first bytes already.
        QHash<QByteArray, Group> byStart;
        for (const qsizetype place : group) {
            if (progress.wasCanceled())
                return {};
            if (const auto digest = reader.digestOf(songs.at(place), digestChunk))
                byStart[*digest].append(place);
            else if (unread != nullptr)
                unread->append(place);
        }
        for (const Group &sameStart : groupsOf(byStart)) {
            for (const qsizetype place : sameStart) {
                const MemorySong &song = songs.at(place);
                const auto digest = reader.digestOf(song, song.size);
                if (progress.wasCanceled())
                    return {};
                if (digest)
                    byBytes[QByteArray::number(song.size) + ' ' + *digest].append(place);
                else if (unread != nullptr)
                    unread->append(place);
            }
        }
    }
    return groupsOf(byBytes);
}
