// The database: its connections, its files, and the user library.
#include "library/database.h"
#include "support/databasefixture.h"
#include "support/debugcatalogue.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/scratchfolder.h"

#include <QSqlRecord>
#include <QTest>

using namespace databasefixture;

namespace
{

/** Lets temporary files be made in this folder only. */
class TemporaryFilesIn
{
public:
    explicit TemporaryFilesIn(const QString &folder)
        : m_previous(qgetenv("TMPDIR"))
    {
        qputenv("TMPDIR", QFile::encodeName(folder));
    }
    ~TemporaryFilesIn()
    {
        if (m_previous.isNull())
            qunsetenv("TMPDIR");
        else
            qputenv("TMPDIR", m_previous);
    }
    Q_DISABLE_COPY_MOVE(TemporaryFilesIn)

private:
    const QByteArray m_previous;
};

/** How many files below the folder this process has open, those without a name included. */
int openFilesIn(const QString &folder)
{
    int count = 0;
    const QFileInfoList descriptors =
        QDir(s("/proc/self/fd")).entryInfoList(QDir::AllEntries | QDir::System);
    for (const QFileInfo &descriptor : descriptors)
        count += descriptor.symLinkTarget().startsWith(folder + QLatin1Char('/')) ? 1 : 0;
    return count;
}

} // namespace

class TestDatabase : public DatabaseFixture
{
    Q_OBJECT

private slots:
    void init() { DatabaseFixture::init(); }
    void cleanup() { DatabaseFixture::cleanup(); }

    void bothConnectionsOpen();
    void userSongsTableHasItsColumns();
    void builtInCatalogueIsCopiedToATemporaryFile();
    void everySongOfTheBuiltInCatalogueIsFound();
    void debugFileReplacesTheBuiltInCatalogue();
    void debugFileIsUsedWithoutATemporaryFile();
    void folderNamedLikeTheDebugFileIsPassedOver();
    void unusableTemporaryFolderFailsInit();
    void fullDiskFailsInit();
    void missingResourceFailsInit();
    void secondDatabaseWorksAfterTheFirstIsGone();
    void initTwiceStartsAgain();
    void nothingIsFoundBeforeInit();
};

void TestDatabase::bothConnectionsOpen()
{
    Database database;
    QVERIFY(database.init());
    QCOMPARE(database.userLibraryDb().connectionName(), s("con_mem"));
    QCOMPARE(database.userLibraryDb().databaseName(), s(":memory:"));
    QVERIFY(database.userLibraryDb().isOpen());
    QVERIFY(QSqlDatabase::database(s("con_songsdb"), false).isOpen());
    QVERIFY(!database.artistsList().isEmpty());
    QVERIFY(!database.genresList().isEmpty());
}

void TestDatabase::userSongsTableHasItsColumns()
{
    Database database;
    QVERIFY(database.init());
    const QSqlRecord fields = database.userLibraryDb().record(s("usersongs"));
    QStringList names;
    for (int i = 0; i < fields.count(); ++i)
        names.append(fields.fieldName(i));
    QCOMPARE(names.join(QLatin1Char(' ')),
             s("id type title artist genre author length userbpm key filename shortname status"));
}

void TestDatabase::builtInCatalogueIsCopiedToATemporaryFile()
{
    QString copy;
    {
        LogCapture log;
        Database database;
        QVERIFY(database.init());
        copy = QSqlDatabase::database(s("con_songsdb"), false).databaseName();
        QCOMPARE(
            log.lines(),
            QStringList(
                QStringLiteral("[Database::init] Created temporary db file:  \"%1\" ").arg(copy)));
        QFile resource(s(":/db/songsdb"));
        QFile file(copy);
        QVERIFY(resource.open(QIODevice::ReadOnly) && file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), resource.readAll());
    }
    QVERIFY(!QFile::exists(copy));
}

void TestDatabase::everySongOfTheBuiltInCatalogueIsFound()
{
    Database database;
    QVERIFY(database.init());
    QSqlQuery songs(QSqlDatabase::database(s("con_songsdb"), false));
    QVERIFY(songs.exec(s("select filename, title, artist, length, "
                         "(select count(*) from main.songs o where o.title = s.title) "
                         "from main.songs s where instr(filename, '_') = 0")));
    int found = 0;
    while (songs.next()) {
        SongsDbRecord record;
        QVERIFY(database.getRecordByFilename(songs.value(0).toString(), record));
        QCOMPARE(record.title, songs.value(1).toString());
        QCOMPARE(record.artist, songs.value(2).toString());
        QCOMPARE(record.length, songs.value(3).toInt());
        LogCapture log; // shared titles are reported there
        QCOMPARE(database.getRecordByTitle(record.title, record), songs.value(4).toInt() == 1);
        ++found;
    }
    QVERIFY(found >= 30);
}

void TestDatabase::debugFileReplacesTheBuiltInCatalogue()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    LogCapture log;
    Database database;
    QVERIFY(database.init());
    QCOMPARE(log.lines(), QStringList(s("Using local file: 'songsdb_debug' as database ")));
    QCOMPARE(database.artistsList(), QStringList(s("JOHANN STRAUSS")));
    QCOMPARE(QSqlDatabase::database(s("con_songsdb"), false).databaseName(), s("songsdb_debug"));
}

void TestDatabase::debugFileIsUsedWithoutATemporaryFile()
{
    QVERIFY(QDir::current().mkdir(s("temporary")));
    const QString folder = QDir(m_folder->path()).canonicalPath() + s("/temporary");
    const TemporaryFilesIn here(folder);
    {
        Database builtIn;
        QVERIFY(builtIn.init());
        QVERIFY(openFilesIn(folder) > 0);
    }
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    QVERIFY(!database.artistsList().isEmpty());
    QCOMPARE(openFilesIn(folder), 0);
    QVERIFY(QDir(folder).isEmpty());
}

void TestDatabase::folderNamedLikeTheDebugFileIsPassedOver()
{
    QVERIFY(QDir::current().mkdir(s("songsdb_debug")));
    Database database;
    QVERIFY(database.init());
    QVERIFY(!database.genresList().isEmpty());
}

void TestDatabase::unusableTemporaryFolderFailsInit()
{
    const TemporaryFilesIn nowhere(s("/dev/null"));
    LogCapture log;
    Database database;
    QVERIFY(!database.init());
    QVERIFY(log.contains(s("[Database::init] FATAL: Unable to create temporary files !!! ")));
}

void TestDatabase::fullDiskFailsInit()
{
    LogCapture log;
    Database database;
    bool succeeded = true;
    {
        const faults::FileSizeLimit limit(4096);
        succeeded = database.init();
    }
    QVERIFY(!succeeded);
    QCOMPARE(log.lines().size(), 2);
    QVERIFY(log.contains(s("[Database::init] FATAL: Unable to create temporary files !!! ")));
}

void TestDatabase::missingResourceFailsInit()
{
    Q_CLEANUP_RESOURCE(catalogue);
    LogCapture log;
    Database database;
    const bool succeeded = database.init();
    Q_INIT_RESOURCE(catalogue);
    QVERIFY(!succeeded);
    QVERIFY(log.contains(s("[Database::init] FATAL: Unable to open db resource file !!! ")));
}

void TestDatabase::secondDatabaseWorksAfterTheFirstIsGone()
{
    for (int round = 0; round < 2; ++round) {
        Database database;
        QVERIFY(database.init());
        QVERIFY(QSqlQuery(database.userLibraryDb()).exec(s("select * from usersongs")));
        QVERIFY(!database.artistsList().isEmpty());
    }
    QVERIFY(!QSqlDatabase::contains(s("con_mem")));
    QVERIFY(!QSqlDatabase::contains(s("con_songsdb")));
}

void TestDatabase::initTwiceStartsAgain()
{
    Database database;
    QVERIFY(database.init());
    QVERIFY(QSqlQuery(database.userLibraryDb()).exec(s("insert into usersongs (id) values (1)")));
    const QStringList artists = database.artistsList();
    QVERIFY(database.init());
    QCOMPARE(database.artistsList(), artists);
    QSqlQuery count(database.userLibraryDb());
    QVERIFY(count.exec(s("select count(*) from usersongs")) && count.next());
    QCOMPARE(count.value(0).toInt(), 0);
}

void TestDatabase::nothingIsFoundBeforeInit()
{
    Database database;
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(s("%"), record));
    QVERIFY(!database.getRecordByTitle(s("%"), record));
    QVERIFY(!database.clearUserLibraryDb());
    QVERIFY(!database.userLibraryDb().isValid());
    database.populateArtistsList();
    QVERIFY(database.artistsList().isEmpty());
}

QTEST_GUILESS_MAIN(TestDatabase)

#include "test_database.moc"
