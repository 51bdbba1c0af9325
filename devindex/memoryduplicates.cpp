#include "devindex/memoryduplicates.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>

namespace
{

using SameSongs = memoryduplicates::Group;

constexpr qint64 digestChunk = 65536;

bool isThere(const MemorySong &song)
{
    return song.state != MemorySong::State::Gone && song.state != MemorySong::State::Unreadable;
}

/** The groups of two and more, in the order of their first songs. */
template <typename Key>
QList<SameSongs> groupsOf(const QHash<Key, SameSongs> &byKey)
{
    QList<SameSongs> groups;
    for (const SameSongs &group : byKey) {
        if (group.size() > 1)
            groups.append(group);
    }
    std::sort(groups.begin(), groups.end(), [](const SameSongs &first, const SameSongs &second) {
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

QList<SameSongs> memoryduplicates::sameTitle(const QList<MemorySong> &songs)
{
    QHash<QString, SameSongs> byTexts;
    byTexts.reserve(songs.size());
    for (qsizetype place = 0; place < songs.size(); ++place) {
        const MemorySong &song = songs.at(place);
        if (!song.showsOnlyName && isThere(song) && !song.isBehindLink)
            byTexts[song.info.title.toCaseFolded() + QChar(0) + song.info.artist.toCaseFolded()]
                .append(place);
    }
    return groupsOf(byTexts);
}

std::optional<QList<SameSongs>> memoryduplicates::sameBytes(const QList<MemorySong> &songs,
                                                            Progress &progress, SameSongs *unread)
{
    QHash<qint64, SameSongs> bySize;
    for (qsizetype place = 0; place < songs.size(); ++place) {
        // Two ways to one file behind a link are no duplicates: removing one would take both.
        if (isThere(songs.at(place)) && !songs.at(place).isBehindLink)
            bySize[songs.at(place).size].append(place);
    }
    const QList<SameSongs> sameSize = groupsOf(bySize);
    Reader reader(progress);
    for (const SameSongs &group : sameSize)
        reader.count(songs.at(group.constFirst()).size * group.size());
    reader.begin();

    QHash<QByteArray, SameSongs> byBytes;
    for (const SameSongs &group : sameSize) {
        // Most songs of one size differ in their first bytes already.
        QHash<QByteArray, SameSongs> byStart;
        for (const qsizetype place : group) {
            if (progress.wasCanceled())
                return {};
            if (const auto digest = reader.digestOf(songs.at(place), digestChunk))
                byStart[*digest].append(place);
            else if (unread != nullptr)
                unread->append(place);
        }
        for (const SameSongs &sameStart : groupsOf(byStart)) {
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
