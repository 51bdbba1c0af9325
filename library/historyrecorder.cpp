#include "library/historyrecorder.h"

#include "library/historytexts.h"
#include "library/quickcompression.h"

#include <QSet>

#include <algorithm>
#include <utility>

namespace
{
/** Long songs are not read into memory by the dozen. */
constexpr qsizetype bytesAtOnce = qsizetype{8} << 20;
} // namespace

HistoryRecorder::HistoryRecorder(HistoryStore &store, HistoryJob::Kind kind, AskWithout askWithout,
                                 qint64 takesBack)
    : m_store(store)
    , m_kind(kind)
    , m_askWithout(std::move(askWithout))
    , m_takesBack(takesBack)
{
}

HistoryRecorder::~HistoryRecorder()
{
    for (const Kept &kept : std::as_const(m_kept))
        m_endings.append({kept.id, {}, {}, 0, {}});
    // What cannot be told now is found out when the history is looked at.
    m_store.end(m_endings);
    if (m_job != 0)
        m_store.removeIfEmpty(m_job);
    if (m_dropped > 0 && m_tellDropped)
        m_tellDropped(m_dropped);
}

bool HistoryRecorder::keep(const QStringList &paths)
{
    if (m_isOff || m_isRefused)
        return m_isOff;
    QList<HistoryStore::Entry> entries;
    qsizetype bytes = 0;
    QSet<QString> seen;
    for (const QString &path : paths) {
        if (m_kept.contains(path) || seen.contains(path))
            continue;
        seen.insert(path);
        const auto snapshot = SongSnapshot::of(path);
        if (!snapshot)
            continue;
        entries.append(
            {path, {}, *snapshot, quickcompression::compressedMeanwhile(snapshot->bytes)});
        bytes += snapshot->bytes.size();
        if (bytes < bytesAtOnce)
            continue;
        if (!keepEntries(entries) || m_isOff)
            return m_isOff;
        entries.clear();
        bytes = 0;
    }
    return keepEntries(entries);
}

bool HistoryRecorder::keepRenamed(const QString &path, const QString &newPath)
{
    if (m_isOff || m_isRefused)
        return m_isOff;
    auto snapshot = SongSnapshot::of(path);
    if (!snapshot)
        return true;
    snapshot->bytes.clear(); // they do not change
    return keepEntries({{path, newPath, *snapshot}});
}

bool HistoryRecorder::keepEntries(const QList<HistoryStore::Entry> &entries)
{
    if (entries.isEmpty())
        return true;
    if (!begin())
        return m_isOff;
    const QList<qint64> ids = m_store.addSongs(m_job, entries, m_endings);
    if (ids.isEmpty())
        return goOnWithout(historytexts::problem(HistoryStore::State::Unwritable));
    m_endings.clear();
    for (qsizetype i = 0; i < ids.size(); ++i) {
        const HistoryStore::Entry &entry = entries.at(i);
        m_kept.insert(entry.path, {ids.at(i), entry.snapshot.digest,
                                   entry.newPath.isEmpty() ? entry.path : entry.newPath});
    }
    m_dropped += std::max(0, m_store.makeRoom(m_job));
    return true;
}

/** False when there is no history; the user has been asked then. */
bool HistoryRecorder::begin()
{
    if (m_job != 0)
        return true;
    // Anew for each job: since the last one somebody may have removed the file.
    const HistoryStore::State state = m_store.open();
    if (state == HistoryStore::State::Ready)
        m_job = m_store.addJob(m_kind, m_takesBack).value_or(0);
    if (m_job == 0)
        goOnWithout(historytexts::problem(
            state == HistoryStore::State::Ready ? HistoryStore::State::Unwritable : state));
    return m_job != 0;
}

bool HistoryRecorder::goOnWithout(const QString &reason)
{
    m_isOff = m_askWithout(reason);
    m_isRefused = !m_isOff;
    return m_isOff;
}

void HistoryRecorder::written(const QString &path, const SongInfo &before, const SongInfo &after)
{
    const auto kept = m_kept.constFind(path);
    if (kept == m_kept.constEnd())
        return;
    // A song that cannot be read now is found out about later.
    if (const auto now = SongSnapshot::of(kept->path)) {
        const bool isAsBefore = now->digest == kept->digest && kept->path == path;
        m_endings.append(
            {kept->id, before, after, now->size, isAsBefore ? QByteArray() : now->digest});
    }
    m_kept.erase(kept);
}

void HistoryRecorder::forget(const QString &path)
{
    const auto kept = m_kept.constFind(path);
    if (kept == m_kept.constEnd())
        return;
    m_endings.append({kept->id, {}, {}, 0, {}});
    m_kept.erase(kept);
}
