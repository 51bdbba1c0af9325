#include "library/database.h"

#include "library/songcolumns.h"
#include "storage/diagnostics.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>
#include <QVariant>

#include <limits>

namespace
{
const QString debugCatalogue = QStringLiteral("songsdb_debug");

/** The statement that creates the table of the user's songs, without any row. */
QString createUserSongs()
{
    QStringList columns;
    for (const songcolumns::Field &field : songcolumns::fields)
        columns.append(QStringLiteral("%1 %2").arg(field.name, field.sqlType));
    return QStringLiteral("create table usersongs (%1)").arg(columns.join(QLatin1String(", ")));
}

// Of several matches in the catalogue the first row counts, whether SQLite uses an index or not.
const QString selectByFilename =
    QStringLiteral("SELECT title,artist,genre,author,length,bpm,key,markers,altartist FROM songs "
                   "WHERE filename like ? ORDER BY rowid");
const QString selectByTitle =
    QStringLiteral("SELECT title,artist,genre,author,length,bpm,key,markers,altartist FROM songs "
                   "WHERE title like ?");
const QString countByTitle = QStringLiteral("SELECT count(*) from songs WHERE title like ?");
// The catalogue is in capitals.
const QString selectByText =
    QStringLiteral("SELECT title,artist,genre,author,length,bpm,key,markers,altartist,filename "
                   "FROM songs WHERE instr(upper(title || char(10) || ifnull(artist,'') || "
                   "char(10) || ifnull(altartist,'') || char(10) || ifnull(author,'') || char(10) "
                   "|| ifnull(filename,'')), ?) > 0 ORDER BY title, rowid");

enum Column { Title, Artist, Genre, Author, Length, Bpm, Key, Markers, AltArtist, FileName };

QString trimmedText(const QSqlQuery &row, Column column)
{
    return row.value(column).toString().trimmed();
}

/** The number in a column that may hold anything, rounded; -1 when it is none of 32 bits. */
qint32 numberOf(const QVariant &value)
{
    if (value.isNull())
        return -1;
    bool isNumber = false;
    const double number = value.toString().toDouble(&isNumber);
    const bool fits = isNumber && number >= std::numeric_limits<qint32>::min() &&
                      number <= std::numeric_limits<qint32>::max();
    return fits ? qRound(number) : -1;
}

SongsDbRecord recordOf(const QSqlQuery &row)
{
    SongsDbRecord record;
    record.title = trimmedText(row, Title);
    record.artist = trimmedText(row, Artist);
    record.altartist = trimmedText(row, AltArtist);
    record.genre = trimmedText(row, Genre);
    record.author = trimmedText(row, Author);
    record.length = numberOf(row.value(Length));
    record.bpm = numberOf(row.value(Bpm));
    record.key = trimmedText(row, Key);
    Database::splitMarkers(trimmedText(row, Markers), record.markers);
    return record;
}

/** Runs a lookup statement and steps to its first row; false when there is none. */
bool findFirst(QSqlQuery &query, const QString &statement, const QString &pattern)
{
    query.setForwardOnly(true);
    if (!query.prepare(statement))
        return false;
    query.bindValue(0, pattern);
    return query.exec() && query.next();
}

/** No catalogue holds a title or file name with a double quote: such a text is not searched for. */
bool canBeFound(const QString &pattern)
{
    return !pattern.contains(QLatin1Char('"'));
}
} // namespace

bool Database::init()
{
    m_userLibrary.emplace(QStringLiteral("con_mem"));
    if (!m_userLibrary->open(QStringLiteral(":memory:")))
        return false;
    QSqlQuery(m_userLibrary->database()).exec(createUserSongs());

    if (!openCatalogue())
        return false;
    indexCatalogue();
    populateGenresList();
    populateArtistsList();
    return true;
}

QSqlDatabase Database::userLibraryDb() const
{
    return m_userLibrary ? m_userLibrary->database() : QSqlDatabase();
}

bool Database::openCatalogue()
{
    QString fileName = debugCatalogue;
    if (QFileInfo(debugCatalogue).isFile()) {
        logDebug() << "Using local file: 'songsdb_debug' as database";
    } else {
        if (!copyCatalogue())
            return false;
        fileName = m_temporaryFile->fileName();
    }
    m_catalogue.emplace(QStringLiteral("con_songsdb"));
    return m_catalogue->open(fileName, QStringLiteral("QSQLITE_OPEN_READONLY"));
}

/** Puts the built-in catalogue into a file, since SQLite cannot open a resource. */
bool Database::copyCatalogue()
{
    m_temporaryFile = std::make_unique<QTemporaryFile>();
    if (!m_temporaryFile->open()) {
        logDebug() << "[Database::init] FATAL: Unable to create temporary files !!!";
        return false;
    }
    logDebug() << "[Database::init] Created temporary db file: " << m_temporaryFile->fileName();

    QFile resource(QStringLiteral(":/db/songsdb"));
    if (!resource.open(QIODevice::ReadOnly)) {
        logDebug() << "[Database::init] FATAL: Unable to open db resource file !!!";
        return false;
    }
    const QByteArray bytes = resource.readAll();
    // SQLite takes an empty or cut file without complaint, so a full disk has to be noticed here.
    if (m_temporaryFile->write(bytes) != bytes.size() || !m_temporaryFile->flush()) {
        logDebug() << "[Database::init] FATAL: Unable to create temporary files !!!";
        return false;
    }
    return true;
}

/**
 * Lays an indexed copy of the table over the catalogue's own, in memory: a temporary table hides
 * the one of the same name. LIKE ignores case and uses only an index that does so too; without one,
 * each lookup reads every row. If the copy cannot be made, the lookups work on the file.
 */
void Database::indexCatalogue()
{
    QSqlQuery query(m_catalogue->database());
    query.exec(QStringLiteral("PRAGMA temp_store = MEMORY"));
    const bool copied = query.exec(
        QStringLiteral("CREATE TEMP TABLE songs AS SELECT title,artist,genre,author,length,bpm,key,"
                       "filename,markers,altartist FROM main.songs"));
    if (!copied)
        return;
    query.exec(
        QStringLiteral("CREATE INDEX temp.songs_filename ON songs(filename COLLATE NOCASE)"));
    query.exec(QStringLiteral("CREATE INDEX temp.songs_title ON songs(title COLLATE NOCASE)"));
}

void Database::populateArtistsList()
{
    m_artists = distinctTexts(QStringLiteral("select distinct altartist from songs"));
}

void Database::populateGenresList()
{
    m_genres = distinctTexts(QStringLiteral("select distinct genre from songs"));
}

QStringList Database::distinctTexts(const QString &statement) const
{
    QStringList texts;
    if (!m_catalogue)
        return texts;
    QSqlQuery query(m_catalogue->database());
    query.setForwardOnly(true);
    if (!query.exec(statement))
        return texts;
    while (query.next()) {
        const QString text = query.value(0).toString().trimmed();
        if (!text.isEmpty())
            texts.append(text);
    }
    return texts;
}

bool Database::getRecordByFilename(const QString &filename, SongsDbRecord &record) const
{
    if (!m_catalogue || !canBeFound(filename))
        return false;
    QSqlQuery query(m_catalogue->database());
    if (!findFirst(query, selectByFilename, filename))
        return false;
    record = recordOf(query);
    return true;
}

bool Database::getRecordByTitle(const QString &title, SongsDbRecord &record) const
{
    if (!m_catalogue || !canBeFound(title))
        return false;
    QSqlQuery query(m_catalogue->database());
    if (!findFirst(query, selectByTitle, title) || !isOnlyTitle(title))
        return false;
    record = recordOf(query);
    return true;
}

bool Database::isOnlyTitle(const QString &title) const
{
    QSqlQuery query(m_catalogue->database());
    if (!findFirst(query, countByTitle, title)) {
        logDebug() << "[getRecordByTitle] WARNING: unable to count reusults, aborting !!!";
        return false;
    }
    bool isNumber = false;
    if (query.value(0).toInt(&isNumber) != 1 || !isNumber) {
        logDebug() << "[getRecordByTitle] WARNING: multiple reusults in query, aborting !!!";
        return false;
    }
    return true;
}

QList<SongsDbRecord> Database::find(const QString &text) const
{
    QList<SongsDbRecord> found;
    if (!m_catalogue)
        return found;
    QSqlQuery query(m_catalogue->database());
    query.setForwardOnly(true);
    if (!query.prepare(selectByText))
        return found;
    query.bindValue(0, text.toUpper());
    if (!query.exec())
        return found;
    while (query.next()) {
        SongsDbRecord record = recordOf(query);
        record.filename = trimmedText(query, FileName);
        found.append(record);
    }
    return found;
}

bool Database::clearUserLibraryDb()
{
    return m_userLibrary &&
           QSqlQuery(m_userLibrary->database()).exec(QStringLiteral("DELETE from usersongs"));
}

void Database::splitMarkers(const QString &text, QList<Marker> &markers)
{
    markers.clear();
    const QStringList parts = text.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        bool isBar = false;
        const quint16 bar = parts.at(i).toUShort(&isBar);
        if (isBar)
            markers.append({bar, parts.at(i + 1)});
    }
}
