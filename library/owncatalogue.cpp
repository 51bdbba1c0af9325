#include "library/owncatalogue.h"

#include "library/cataloguemerge.h"
#include "library/historystore.h"
#include "library/markertexts.h"
#include "library/songfields.h"
#include "storage/diagnostics.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QUuid>
#include <QVariant>

#include <algorithm>

namespace
{

constexpr int catalogueVersion = 1;

/** Room for the most entries; an SQLite field may be as large as its file. */
constexpr qint64 largestCatalogue = qint64{128} << 20;

/** Another program that writes its entries is done before. */
const QString catalogueOptions = QStringLiteral("QSQLITE_BUSY_TIMEOUT=10000");

/** The built-in catalogue's table, as SQLite keeps its statement. */
const QString createSongs =
    QStringLiteral("CREATE TABLE Songs (title varchar, artist varchar, genre varchar, author "
                   "varchar, length integer, bpm integer, key varchar, filename varchar primary "
                   "key, markers varchar, altartist varchar)");

const QString putEntry =
    QStringLiteral("INSERT OR REPLACE INTO Songs (title, artist, genre, author, length, bpm, key, "
                   "filename, markers, altartist) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");

/** Of a text no more than shows that it is too long: a field may be as large as its file. */
QString boundedColumn(const QString &name, qsizetype longest)
{
    return QStringLiteral("substr(%1, 1, %2) AS %1").arg(name).arg(longest + 1);
}

/** The entries by title; sorted are the bounded texts. */
QString selectEntries()
{
    constexpr qsizetype longestNumber = 20;
    const auto text = [](const char *name) {
        return boundedColumn(QLatin1String(name), OwnCatalogue::longestText);
    };
    const auto number = [](const char *name) {
        return boundedColumn(QLatin1String(name), longestNumber);
    };
    const QStringList columns{
        text("title"),
        text("artist"),
        text("genre"),
        text("author"),
        number("length"),
        number("bpm"),
        text("key"),
        text("filename"),
        boundedColumn(QStringLiteral("markers"), OwnCatalogue::longestMarkers),
        text("altartist")};
    return QStringLiteral("SELECT %1 FROM Songs ORDER BY title, filename LIMIT %2")
        .arg(columns.join(QStringLiteral(", ")))
        .arg(OwnCatalogue::mostEntries);
}

/** The columns of selectEntries. */
struct EntryColumn {
    enum Number { Title, Artist, Genre, Author, Length, Bpm, Key, FileName, Markers, AltArtist };
};

qint32 entryNumber(const QVariant &value, qint32 most)
{
    bool isNumber = false;
    const qlonglong number = value.toLongLong(&isNumber);
    return isNumber && number >= 0 && number <= most ? static_cast<qint32>(number) : -1;
}

QVariant entryValue(qint32 number)
{
    return number < 0 ? QVariant() : QVariant(number);
}

SongsDbRecord entryIn(const QSqlQuery &row)
{
    const auto text = [&row](EntryColumn::Number column) {
        return row.value(column).toString().trimmed();
    };
    SongsDbRecord entry;
    entry.title = text(EntryColumn::Title);
    entry.artist = text(EntryColumn::Artist);
    entry.genre = text(EntryColumn::Genre);
    entry.author = text(EntryColumn::Author);
    entry.length = entryNumber(row.value(EntryColumn::Length), OwnCatalogue::longestSong);
    entry.bpm = entryNumber(row.value(EntryColumn::Bpm), OwnCatalogue::fastestTempo);
    entry.key = OwnCatalogue::key(text(EntryColumn::Key)).value_or(QString());
    entry.filename = text(EntryColumn::FileName);
    entry.altartist = text(EntryColumn::AltArtist);
    const QString markers = row.value(EntryColumn::Markers).toString();
    if (markers.size() <= OwnCatalogue::longestMarkers)
        entry.markers = markertexts::fromText(markers);
    return entry;
}

/** What the catalogue is after SQLite gave up reading it. */
OwnCatalogue::State stateAfter(const QSqlError &error)
{
    return SqlConnection::isInUse(error) ? OwnCatalogue::State::InUse
                                         : OwnCatalogue::State::Damaged;
}

bool isReadable(const QFileInfo &file)
{
    return file.isFile() && file.isReadable();
}

} // namespace

QString OwnCatalogue::defaultPath()
{
    return QFileInfo(HistoryStore::defaultPath())
        .dir()
        .filePath(QStringLiteral("catalogue.sqlite"));
}

OwnCatalogue::OwnCatalogue(const QString &path)
    : m_path(path)
    , m_connection(QStringLiteral("con_owncatalogue_") + QUuid::createUuid().toString())
{
}

OwnCatalogue::State OwnCatalogue::open()
{
    m_state = QFileInfo::exists(m_path) ? prepare(false) : State::Absent;
    return m_state;
}

OwnCatalogue::State OwnCatalogue::openOrMake()
{
    m_state = prepare(true);
    return m_state;
}

OwnCatalogue::State OwnCatalogue::prepare(bool mayMake)
{
    const QFileInfo file(m_path);
    const bool isThere = file.exists();
    if (isThere && !isReadable(file))
        return State::Unreadable;
    if (isThere && file.size() > largestCatalogue)
        return State::Damaged;
    if ((!isThere && !(mayMake && QDir().mkpath(file.path()))) ||
        !m_connection.open(m_path, catalogueOptions))
        return isThere ? State::Unreadable : State::Unwritable;
    QSqlQuery version(m_connection.database());
    // Looks into the file for the first time.
    if (!version.exec(QStringLiteral("PRAGMA user_version")) || !version.next()) {
        logWarning() << "[OwnCatalogue::open] Impossible to use" << m_path
                     << version.lastError().text();
        return isThere ? stateAfter(version.lastError()) : State::Unwritable;
    }
    const bool isNewer = version.value(0).toInt() > catalogueVersion;
    version.finish();
    if (isNewer)
        return State::Newer;
    execute(QStringLiteral("PRAGMA trusted_schema = OFF"));
    const State found = stateOfTables();
    if (found != State::Absent || !mayMake)
        return found;
    // Another program may make the table at the same time.
    const bool made = inOneStep([this] {
        return stateOfTables() != State::Absent ||
               (execute(createSongs) &&
                execute(QStringLiteral("PRAGMA user_version = %1").arg(catalogueVersion)));
    });
    return made ? stateOfTables() : State::Unwritable;
}

/**
 * Ready for exactly the table that this program makes: a stranger's views and triggers could do
 * anything. Absent for a file without any, as a full disk leaves it.
 */
OwnCatalogue::State OwnCatalogue::stateOfTables()
{
    QSqlQuery items(m_connection.database());
    if (!items.exec(
            QStringLiteral("SELECT name, sql FROM sqlite_schema WHERE name NOT LIKE 'sqlite_%'")))
        return stateAfter(items.lastError());
    if (!items.next())
        return items.lastError().isValid() ? stateAfter(items.lastError()) : State::Absent;
    return items.value(0).toString() == QLatin1String("Songs") &&
                   items.value(1).toString() == createSongs && !items.next()
               ? State::Ready
               : State::Damaged;
}

QString OwnCatalogue::problem(State state)
{
    switch (state) {
    case State::Newer:
        return tr("Il mio catalogo è di una versione più recente del programma.");
    case State::Damaged:
        return tr("Il mio catalogo è danneggiato, o non è un catalogo di questo programma.");
    case State::Unreadable:
        return tr("Il mio catalogo non può essere letto.");
    case State::InUse:
        return tr("Il mio catalogo è in uso da un altro programma.");
    case State::Unwritable:
        return tr("Il mio catalogo non può essere scritto.");
    case State::Absent:
    case State::Ready:
        break;
    }
    return {};
}

QList<SongsDbRecord> OwnCatalogue::entries()
{
    QList<SongsDbRecord> found;
    QSqlQuery query(m_connection.database());
    query.setForwardOnly(true);
    if (m_state != State::Ready)
        return found;
    // A damaged page shows itself only when it is read; to sort them, the first step reads all.
    bool isWhole = query.exec(selectEntries());
    while (isWhole && query.next()) {
        const SongsDbRecord entry = entryIn(query);
        if (isValid(entry))
            found.append(entry);
    }
    isWhole = isWhole && !query.lastError().isValid();
    if (isWhole)
        return found;
    logWarning() << "[OwnCatalogue::entries]" << m_path << query.lastError().text();
    m_state = stateAfter(query.lastError());
    return {};
}

QList<SongsDbRecord> OwnCatalogue::find(const QString &text)
{
    const QList<SongsDbRecord> all = entries();
    QList<SongsDbRecord> found;
    for (const SongsDbRecord &entry : all) {
        const QString texts[] = {entry.title, entry.artist, entry.altartist, entry.author,
                                 entry.filename};
        if (std::any_of(std::cbegin(texts), std::cend(texts), [&text](const QString &item) {
                return item.contains(text, Qt::CaseInsensitive);
            }))
            found.append(entry);
    }
    return found;
}

QStringList OwnCatalogue::known(const QStringList &filenames)
{
    const OwnEntries all(*this);
    QStringList found;
    std::copy_if(filenames.cbegin(), filenames.cend(), std::back_inserter(found),
                 [&all](const QString &name) { return all.byFilename(name) != nullptr; });
    return found;
}

bool OwnCatalogue::put(const QList<SongsDbRecord> &entries)
{
    return inOneStep([&] { return putAll(entries); });
}

bool OwnCatalogue::change(const QString &filename, const SongsDbRecord &entry)
{
    return inOneStep([&] { return removeAll({filename}) && putAll({entry}); });
}

bool OwnCatalogue::remove(const QStringList &filenames)
{
    return inOneStep([&] { return removeAll(filenames); });
}

/** Does the work wholly or not at all; false when it could not. */
template <typename Work>
bool OwnCatalogue::inOneStep(const Work &work)
{
    if (!execute(QStringLiteral("BEGIN IMMEDIATE")))
        return false;
    if (work() && execute(QStringLiteral("COMMIT")))
        return true;
    execute(QStringLiteral("ROLLBACK"));
    return false;
}

bool OwnCatalogue::putAll(const QList<SongsDbRecord> &entries)
{
    QSqlQuery query(m_connection.database());
    if (m_state != State::Ready || !query.prepare(putEntry))
        return false;
    for (const SongsDbRecord &entry : entries) {
        if (!isValid(entry))
            return false;
        // As in the built-in catalogue, an empty text is a text.
        const auto text = [](const QString &value) { return QVariant(value + QLatin1String("")); };
        const QVariant values[] = {text(entry.title),
                                   text(entry.artist),
                                   text(entry.genre),
                                   text(entry.author),
                                   entryValue(entry.length),
                                   entryValue(entry.bpm),
                                   text(entry.key),
                                   text(entry.filename.toUpper()),
                                   text(markertexts::toText(entry.markers)),
                                   text(entry.altartist)};
        for (const QVariant &value : values)
            query.addBindValue(value);
        if (!query.exec())
            return false;
    }
    return query.exec(QStringLiteral("SELECT count(*) FROM Songs")) && query.next() &&
           query.value(0).toLongLong() <= mostEntries;
}

bool OwnCatalogue::removeAll(const QStringList &filenames)
{
    QSqlQuery query(m_connection.database());
    if (m_state != State::Ready ||
        !query.prepare(QStringLiteral("DELETE FROM Songs WHERE filename = ?")))
        return false;
    return std::all_of(filenames.cbegin(), filenames.cend(), [&query](const QString &name) {
        query.addBindValue(name);
        return query.exec();
    });
}

bool OwnCatalogue::execute(const QString &statement)
{
    QSqlQuery query(m_connection.database());
    if (query.exec(statement))
        return true;
    logWarning() << "[OwnCatalogue]" << statement << query.lastError().text();
    return false;
}

bool OwnCatalogue::isValid(const SongsDbRecord &entry)
{
    const QString texts[] = {entry.title,  entry.artist, entry.altartist, entry.genre,
                             entry.author, entry.key,    entry.filename};
    return !entry.title.trimmed().isEmpty() && !entry.filename.trimmed().isEmpty() &&
           std::all_of(std::cbegin(texts), std::cend(texts),
                       [](const QString &text) { return text.size() <= longestText; }) &&
           markertexts::toText(entry.markers).size() <= longestMarkers;
}

std::optional<QString> OwnCatalogue::key(const QString &text)
{
    static const QRegularExpression keyOfTag(QStringLiteral("^[A-G][b#]?m$"));
    const QString name = text.trimmed();
    return keyOfTag.match(name).hasMatch() ? name : songfields::key(name);
}

SongsDbRecord OwnCatalogue::entryOf(const SongInfo &song)
{
    SongsDbRecord entry;
    entry.title = song.title.trimmed();
    entry.artist = song.artist.trimmed();
    entry.altartist = entry.artist; // what the player shows comes back as it is
    entry.genre = song.genre.trimmed();
    entry.author = song.author.trimmed();
    const auto number = [](qint32 value, qint32 most) {
        return value > 0 && value <= most ? value : -1;
    };
    entry.length = number(song.length, longestSong);
    entry.bpm = number(song.userBpm, fastestTempo);
    entry.key = key(song.key).value_or(QString());
    entry.markers = song.markers;
    entry.filename = CatalogueMerge::fileKey(song.shortName).trimmed();
    return entry;
}

OwnEntries::OwnEntries(OwnCatalogue &catalogue)
    : m_entries(catalogue.entries())
{
    for (qsizetype place = 0; place < m_entries.size(); ++place) {
        const SongsDbRecord &entry = m_entries.at(place);
        m_filenames.insert(entry.filename.toUpper(), place);
        const QString title = entry.title.toUpper();
        m_titles.insert(title, m_titles.contains(title) ? -1 : place);
    }
}

const SongsDbRecord *OwnEntries::byFilename(const QString &filename) const
{
    return at(m_filenames, filename);
}

const SongsDbRecord *OwnEntries::byTitle(const QString &title) const
{
    return at(m_titles, title);
}

const SongsDbRecord *OwnEntries::at(const QHash<QString, qsizetype> &places,
                                    const QString &key) const
{
    const qsizetype place =
        m_entries.isEmpty() ? qsizetype(-1) : places.value(key.trimmed().toUpper(), -1);
    return place < 0 ? nullptr : &m_entries.at(place);
}
