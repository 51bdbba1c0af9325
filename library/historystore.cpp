#include "library/historystore.h"

#include "library/historytexts.h"
#include "library/quickcompression.h"
#include "library/settings.h"
#include "storage/diagnostics.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QStandardPaths>
#include <QUuid>

namespace
{

/** Other programs that add their songs are done before, twenty of them on a slow computer too. */
const QString connectOptions = QStringLiteral("QSQLITE_BUSY_TIMEOUT=30000");

/** No song that is kept is larger; a damaged number must not eat all memory. */
constexpr qsizetype largestSong = qsizetype{64} << 20;

/** With what compression can add to it. */
constexpr qint64 largestBlob = qint64{80} << 20;

/** Milliseconds; a job that has not ended by then was cut off. */
constexpr qint64 longestRun = qint64{24} * 60 * 60 * 1000;

/**
 * Stands behind the digest of a song whose job was cut off: no file has such a digest, so that the
 * song counts as changed since.
 */
constexpr char uncertainMark = '?';
constexpr int digestSize = 32;

/** True for a number that a job can be of; others come from a stranger or a later version. */
bool isKind(int number)
{
    return number >= static_cast<int>(HistoryJob::Kind::Synchronise) &&
           number <= static_cast<int>(HistoryJob::Kind::Measure);
}

} // namespace

QString HistoryStore::defaultPath()
{
    // The names of the programs differ, those of their settings do not.
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("%1/%2/history.sqlite")
                      .arg(settings::organisation, settings::application));
}

HistoryStore::HistoryStore(const QString &path, qint64 limit)
    : m_path(path)
    , m_limit(limit)
    , m_connection(QStringLiteral("con_history_") + QUuid::createUuid().toString())
{
}

void HistoryStore::setLimit(qint64 bytes)
{
    m_limit = bytes;
    m_room.reset();
}

HistoryStore::State HistoryStore::open()
{
    m_room.reset();
    m_state = prepare();
    if (m_state != State::Ready)
        logWarning() << "[HistoryStore::open] Impossible to use" << m_path
                     << m_connection.database().lastError().text();
    return m_state;
}

HistoryStore::State HistoryStore::prepare()
{
    const QFileInfo file(m_path);
    // Whoever made a link could have meant any file of the user's.
    if (file.isSymLink())
        return State::Damaged;
    if (!QDir().mkpath(file.path()) || (file.exists() && !file.isFile()) ||
        !m_connection.open(m_path, connectOptions))
        return State::Unwritable;
    execute(QStringLiteral("PRAGMA trusted_schema = OFF"));
    using Content = historyschema::Content;
    // In one transaction: what another program makes meanwhile is seen whole or not at all.
    execute(QStringLiteral("BEGIN"));
    Content content = historyschema::contentOf(m_connection.database());
    execute(QStringLiteral("COMMIT"));
    if (const State unfit = stateFor(content); unfit != State::Ready)
        return unfit;
    for (const char *const pragma :
         {"PRAGMA page_size = 16384", "PRAGMA foreign_keys = ON", "PRAGMA synchronous = FULL",
          "PRAGMA auto_vacuum = INCREMENTAL", "PRAGMA journal_mode = WAL",
          "PRAGMA wal_autocheckpoint = 4096"}) { // 64 MiB: a job does not wait for it
        if (!execute(QLatin1String(pragma)))
            return State::Unwritable;
    }
    // Another program may make the file at the same time.
    if (!execute(QStringLiteral("BEGIN IMMEDIATE")))
        return State::Unwritable;
    content = historyschema::contentOf(m_connection.database());
    const bool made = content != Content::Nothing || historyschema::make(m_connection.database());
    if (!execute(made ? QStringLiteral("COMMIT") : QStringLiteral("ROLLBACK")) || !made)
        return State::Unwritable;
    return stateFor(content);
}

HistoryStore::State HistoryStore::stateFor(historyschema::Content content)
{
    switch (content) {
    case historyschema::Content::Nothing:
    case historyschema::Content::Own:
        return State::Ready;
    case historyschema::Content::Newer:
        return State::Newer;
    case historyschema::Content::Foreign:
        return State::Damaged;
    case historyschema::Content::Unreadable:
        break;
    }
    return State::Unwritable;
}

std::optional<qint64> HistoryStore::addJob(HistoryJob::Kind kind, qint64 takesBack)
{
    QSqlQuery insert(m_connection.database());
    insert.prepare(QStringLiteral("INSERT INTO jobs (time, kind, takes_back) VALUES (?, ?, ?)"));
    insert.addBindValue(QDateTime::currentMSecsSinceEpoch());
    insert.addBindValue(static_cast<int>(kind));
    insert.addBindValue(takesBack == 0 ? QVariant() : QVariant(takesBack));
    if (m_state != State::Ready || !execute(insert))
        return {};
    return insert.lastInsertId().toLongLong();
}

QList<qint64> HistoryStore::addSongs(qint64 job, const QList<Entry> &entries,
                                     const QList<Ending> &endings)
{
    QList<qint64> ids;
    qint64 added = 0;
    // Only what is on the disk can be taken back after a power cut.
    if (m_state != State::Ready || !execute(QStringLiteral("PRAGMA synchronous = FULL")) ||
        !execute(QStringLiteral("BEGIN IMMEDIATE")))
        return ids;
    QSqlQuery insert(m_connection.database());
    insert.prepare(QStringLiteral("INSERT INTO songs (job, path, new_path, is_tag, old_size, "
                                  "old_digest) VALUES (?, ?, ?, ?, ?, ?)"));
    QSqlQuery insertBytes(m_connection.database());
    insertBytes.prepare(QStringLiteral("INSERT INTO kept (song, bytes) VALUES (?, ?)"));
    for (const Entry &entry : entries) {
        insert.addBindValue(job);
        insert.addBindValue(entry.path);
        insert.addBindValue(entry.newPath.isNull() ? QLatin1String("") : entry.newPath);
        insert.addBindValue(entry.snapshot.isTag);
        insert.addBindValue(entry.snapshot.size);
        insert.addBindValue(entry.snapshot.digest);
        if (!execute(insert))
            break;
        const qint64 id = insert.lastInsertId().toLongLong();
        const QByteArray bytes = entry.compressed
                                     ? entry.compressed->result()
                                     : quickcompression::compressed(entry.snapshot.bytes);
        if (bytes.isEmpty())
            break; // what is not kept cannot be taken back
        added += bytes.size();
        insertBytes.addBindValue(id);
        insertBytes.addBindValue(bytes);
        if (!execute(insertBytes))
            break;
        ids.append(id);
    }
    if (ids.size() == entries.size() && writeEndings(endings) &&
        execute(QStringLiteral("COMMIT"))) {
        if (m_room)
            *m_room -= added;
        return ids;
    }
    execute(QStringLiteral("ROLLBACK"));
    return {};
}

bool HistoryStore::end(const QList<Ending> &endings)
{
    if (endings.isEmpty())
        return true;
    // Waiting for the disk here would double the time that the history takes.
    if (m_state != State::Ready || !execute(QStringLiteral("PRAGMA synchronous = NORMAL")) ||
        !execute(QStringLiteral("BEGIN IMMEDIATE")))
        return false;
    if (writeEndings(endings) && execute(QStringLiteral("COMMIT")))
        return true;
    execute(QStringLiteral("ROLLBACK"));
    return false;
}

/** Within a transaction. */
bool HistoryStore::writeEndings(const QList<Ending> &endings)
{
    if (endings.isEmpty())
        return true;
    QSqlQuery update(m_connection.database());
    update.prepare(QStringLiteral(
        "UPDATE songs SET before = ?, after = ?, new_size = ?, new_digest = ? WHERE id = ?"));
    QSqlQuery removal(m_connection.database());
    removal.prepare(QStringLiteral("DELETE FROM songs WHERE id = ?"));
    for (const Ending &ending : endings) {
        if (ending.digest.isEmpty()) {
            removal.addBindValue(ending.song);
        } else {
            update.addBindValue(historytexts::toText(ending.before));
            update.addBindValue(historytexts::toText(ending.after));
            update.addBindValue(ending.size);
            update.addBindValue(ending.digest);
            update.addBindValue(ending.song);
        }
        if (!execute(ending.digest.isEmpty() ? removal : update))
            return false;
    }
    return true;
}

bool HistoryStore::setUndone(qint64 job)
{
    // What took a job back and is taken back itself puts it in force again, and so on.
    bool isUndone = true;
    for (qint64 number = job; number > 0; isUndone = !isUndone) {
        QSqlQuery update(m_connection.database());
        update.prepare(QStringLiteral("UPDATE jobs SET is_undone = ? WHERE number = ?"));
        update.addBindValue(isUndone);
        update.addBindValue(number);
        if (m_state != State::Ready || !execute(update))
            return false;
        const qint64 before = jobTakenBackBy(number);
        number = before < number ? before : 0;
    }
    return true;
}

bool HistoryStore::removeIfEmpty(qint64 job)
{
    QSqlQuery removal(m_connection.database());
    removal.prepare(QStringLiteral("DELETE FROM jobs WHERE number = ? AND NOT EXISTS "
                                   "(SELECT 1 FROM songs WHERE job = jobs.number)"));
    removal.addBindValue(job);
    return execute(removal);
}

/** The job that this one takes back; 0 for none. */
qint64 HistoryStore::jobTakenBackBy(qint64 job)
{
    QSqlQuery query(m_connection.database());
    query.prepare(QStringLiteral("SELECT takes_back FROM jobs WHERE number = ?"));
    query.addBindValue(job);
    return execute(query) && query.next() ? query.value(0).toLongLong() : 0;
}

int HistoryStore::makeRoom(qint64 runningJob)
{
    // Adding everything up takes the longer the more is kept.
    if (m_room && *m_room >= 0)
        return 0;
    QSqlQuery sizes(m_connection.database());
    sizes.prepare(QStringLiteral(
        "SELECT number, coalesce((SELECT sum(length(bytes)) FROM songs JOIN kept ON song = id "
        "WHERE job = number), 0), abs(time - ?) < ? AND EXISTS (SELECT 1 FROM songs WHERE "
        "job = number AND (new_digest IS NULL OR length(new_digest) > ?)) FROM jobs "
        "ORDER BY number DESC"));
    sizes.addBindValue(QDateTime::currentMSecsSinceEpoch());
    sizes.addBindValue(longestRun);
    sizes.addBindValue(digestSize);
    if (m_state != State::Ready || !execute(sizes))
        return -1;
    const qint64 takenBack = jobTakenBackBy(runningJob);
    qint64 used = 0;
    QList<qint64> dropped;
    while (sizes.next()) {
        const qint64 number = sizes.value(0).toLongLong();
        const qint64 size = sizes.value(1).toLongLong();
        // Once a job has to go, so have all before it.
        const bool mayRun = sizes.value(2).toBool(); // in another program
        if ((used + size > m_limit || !dropped.isEmpty()) && number != runningJob &&
            number != takenBack && !mayRun)
            dropped.append(number);
        else
            used += size;
    }
    sizes.finish();
    m_room = m_limit - used;
    if (dropped.isEmpty())
        return 0;
    QSqlQuery removal(m_connection.database());
    removal.prepare(QStringLiteral("DELETE FROM jobs WHERE number = ?"));
    for (const qint64 number : std::as_const(dropped)) {
        removal.addBindValue(number);
        if (!execute(removal))
            return -1;
    }
    QSqlQuery vacuum(m_connection.database());
    if (vacuum.exec(QStringLiteral("PRAGMA incremental_vacuum"))) {
        while (vacuum.next()) { // each step gives a page back
        }
    }
    return static_cast<int>(dropped.size());
}

QList<HistoryJob> HistoryStore::jobs()
{
    QList<HistoryJob> found;
    QSqlQuery query(m_connection.database());
    query.setForwardOnly(true);
    if (m_state != State::Ready ||
        !query.exec(QStringLiteral(
            "SELECT number, time, kind, takes_back, is_undone, (SELECT count(*) FROM songs WHERE "
            "job = number "
            "AND new_digest IS NOT NULL) AS written, (SELECT max(later.number) FROM jobs AS later "
            "WHERE later.takes_back = jobs.number) FROM jobs WHERE written > 0 "
            "ORDER BY number DESC")))
        return found;
    while (query.next()) {
        const int kind = query.value(2).toInt();
        if (!isKind(kind))
            continue;
        HistoryJob job;
        job.number = query.value(0).toLongLong();
        job.time = QDateTime::fromMSecsSinceEpoch(query.value(1).toLongLong());
        job.kind = static_cast<HistoryJob::Kind>(kind);
        job.takesBack = query.value(3).toLongLong();
        job.isUndone = query.value(4).toBool();
        job.songs = query.value(5).toInt();
        job.takenBackBy = query.value(6).toLongLong();
        found.append(job);
    }
    return found;
}

QList<HistorySong> HistoryStore::songs(qint64 job)
{
    QList<HistorySong> found;
    QSqlQuery query(m_connection.database());
    query.setForwardOnly(true);
    query.prepare(QStringLiteral("SELECT id, path, new_path, old_digest, new_digest, new_size, "
                                 "before, after FROM songs WHERE job = ? ORDER BY id"));
    query.addBindValue(job);
    if (m_state != State::Ready || !execute(query))
        return found;
    while (query.next()) {
        HistorySong song;
        song.id = query.value(0).toLongLong();
        song.job = job;
        song.path = query.value(1).toString();
        song.newPath = query.value(2).toString();
        song.oldDigest = query.value(3).toByteArray();
        song.newDigest = query.value(4).toByteArray();
        song.newSize = query.value(5).toLongLong();
        song.before = historytexts::fromText(query.value(6).toString());
        song.after = historytexts::fromText(query.value(7).toString());
        found.append(song);
    }
    return found;
}

std::optional<SongSnapshot> HistoryStore::snapshot(const HistorySong &song)
{
    QSqlQuery query(m_connection.database());
    query.prepare(QStringLiteral("SELECT is_tag, old_size, old_digest, bytes FROM songs JOIN kept "
                                 "ON song = id WHERE id = ? AND length(bytes) <= ?"));
    query.addBindValue(song.id);
    query.addBindValue(largestBlob);
    if (m_state != State::Ready || !execute(query) || !query.next())
        return {};
    SongSnapshot snapshot;
    snapshot.isTag = query.value(0).toBool();
    snapshot.size = query.value(1).toLongLong();
    snapshot.digest = query.value(2).toByteArray();
    const std::optional<QByteArray> bytes =
        quickcompression::plain(query.value(3).toByteArray(), largestSong);
    if (!bytes)
        return {};
    snapshot.bytes = *bytes;
    return snapshot.isSound() ? std::optional(snapshot) : std::nullopt;
}

void HistoryStore::settle()
{
    QList<qint64> unsettled;
    QSqlQuery query(m_connection.database());
    query.setForwardOnly(true);
    if (m_state != State::Ready ||
        !query.exec(QStringLiteral("SELECT DISTINCT job FROM songs WHERE new_digest IS NULL")))
        return;
    while (query.next())
        unsettled.append(query.value(0).toLongLong());
    query.finish();
    for (const qint64 job : std::as_const(unsettled)) {
        const QList<HistorySong> all = songs(job);
        for (const HistorySong &song : all) {
            if (song.newDigest.isEmpty())
                settleSong(song);
        }
    }
}

void HistoryStore::settleSong(const HistorySong &song)
{
    const QString place = song.newPath.isEmpty() ? song.path : song.newPath;
    const std::optional<SongSnapshot> now = nextState(song);
    // Renaming changes no byte: at the new place may lie another song.
    if (!now || (now->digest == song.oldDigest) == song.newPath.isEmpty())
        return;
    const std::optional<SongSnapshot> old = snapshot(song);
    // Whether the job has written the song, or somebody else later, nothing tells. A song that has
    // the job's new name and its own bytes was renamed.
    QByteArray digest = now->digest;
    if (song.newPath.isEmpty())
        digest.append(uncertainMark);
    end({{song.id, old ? old->info(song.path) : SongInfo(), now->info(place), now->size, digest}});
}

/** The song as the job left it: as the next job found it, or as it is now. */
std::optional<SongSnapshot> HistoryStore::nextState(const HistorySong &song)
{
    const QString place = song.newPath.isEmpty() ? song.path : song.newPath;
    QSqlQuery query(m_connection.database());
    query.prepare(QStringLiteral("SELECT id, old_size, old_digest FROM songs WHERE path = ? AND "
                                 "id > ? ORDER BY id LIMIT 1"));
    query.addBindValue(place);
    query.addBindValue(song.id);
    if (!execute(query) || !query.next())
        return SongSnapshot::of(place);
    HistorySong next;
    next.id = query.value(0).toLongLong();
    // A job that renames keeps no bytes.
    SongSnapshot found;
    found.size = query.value(1).toLongLong();
    found.digest = query.value(2).toByteArray();
    query.finish();
    return snapshot(next).value_or(found);
}

bool HistoryStore::execute(const QString &statement)
{
    QSqlQuery query(m_connection.database());
    if (query.exec(statement))
        return true;
    logWarning() << "[HistoryStore]" << statement << query.lastError().text();
    return false;
}

bool HistoryStore::execute(QSqlQuery &query)
{
    if (query.exec())
        return true;
    logWarning() << "[HistoryStore]" << query.lastQuery() << query.lastError().text();
    return false;
}
