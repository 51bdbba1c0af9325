// The reference catalogue's lookups and the in-memory library, also on catalogues that are none.
#include "library/database.h"
#include "support/debugcatalogue.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/scratchfolder.h"

#include <QRegularExpression>
#include <QSqlRecord>
#include <QTest>

#include <memory>

namespace
{
const QString blueDanube =
    QStringLiteral("'SUL BEL DANUBIO BLU', 'STRAUSS JOHANN', 'VALZER', 'STRAUSS JOHANN', 600, 180, "
                   "'D', 'DANUBIO', '1;Intro;45;Waltz1;', 'JOHANN STRAUSS'");

QString str(const char *text)
{
    return QString::fromUtf8(text);
}

/** "bar=text|" for each marker. */
QString written(const QList<Marker> &markers)
{
    QString text;
    for (const Marker &marker : markers)
        text += QStringLiteral("%1=%2|").arg(marker.bar).arg(marker.text);
    return text;
}

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
        QDir(str("/proc/self/fd")).entryInfoList(QDir::AllEntries | QDir::System);
    for (const QFileInfo &descriptor : descriptors)
        count += descriptor.symLinkTarget().startsWith(folder + QLatin1Char('/')) ? 1 : 0;
    return count;
}
} // namespace

class TestDatabase : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

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

    void listsKeepTheCataloguesOrderWithoutEmptyTexts();
    void populateReplacesTheLists();
    void recordHoldsTheTrimmedColumns();
    void recordHoldsMinusOneForWhatIsNoNumber_data();
    void recordHoldsMinusOneForWhatIsNoNumber();
    void fileNameMatchesInEitherCase();
    void firstRowOfTheCatalogueCountsForAWildCard();
    void doubleQuoteFindsNothing_data();
    void doubleQuoteFindsNothing();
    void argumentCannotChangeTheStatement();
    void endlessArgumentFindsNothing();
    void titleHeldByOneRowIsFound();
    void titleHeldByTwoRowsIsNotGuessedAt();
    void titleThatCannotBeCountedIsNotTaken();
    void unknownTitleIsSilent();
    void catalogueIsNeverWritten();

    void fileThatIsNoCatalogueFindsNothing_data();
    void fileThatIsNoCatalogueFindsNothing();
    void tableWithoutAColumnStillGivesTheLists();
    void oddValuesAreTakenAsText();

    void splitMarkers_data();
    void splitMarkers();
    void clearEmptiesTheUserSongs();
    void clearFailsWithoutATable();
    void dumpListsTheFieldsInOrder();
    void dumpWithoutMarkersSaysSo();

private:
    std::unique_ptr<ScratchFolder> m_folder;
};

void TestDatabase::init()
{
    QTest::failOnWarning(QRegularExpression(str("QSql")));
    m_folder = std::make_unique<ScratchFolder>();
}

void TestDatabase::cleanup()
{
    m_folder.reset();
}

void TestDatabase::bothConnectionsOpen()
{
    Database database;
    QVERIFY(database.init());
    QCOMPARE(database.userLibraryDb().connectionName(), str("con_mem"));
    QCOMPARE(database.userLibraryDb().databaseName(), str(":memory:"));
    QVERIFY(database.userLibraryDb().isOpen());
    QVERIFY(QSqlDatabase::database(str("con_songsdb"), false).isOpen());
    QVERIFY(!database.artistsList().isEmpty());
    QVERIFY(!database.genresList().isEmpty());
}

void TestDatabase::userSongsTableHasItsColumns()
{
    Database database;
    QVERIFY(database.init());
    const QSqlRecord fields = database.userLibraryDb().record(str("usersongs"));
    QStringList names;
    for (int i = 0; i < fields.count(); ++i)
        names.append(fields.fieldName(i));
    QCOMPARE(names.join(QLatin1Char(' ')),
             str("id type title artist genre author length userbpm key filename shortname status"));
}

void TestDatabase::builtInCatalogueIsCopiedToATemporaryFile()
{
    QString copy;
    {
        LogCapture log;
        Database database;
        QVERIFY(database.init());
        copy = QSqlDatabase::database(str("con_songsdb"), false).databaseName();
        QCOMPARE(
            log.lines(),
            QStringList(
                QStringLiteral("[Database::init] Created temporary db file:  \"%1\" ").arg(copy)));
        QFile resource(str(":/db/songsdb"));
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
    QSqlQuery songs(QSqlDatabase::database(str("con_songsdb"), false));
    QVERIFY(songs.exec(str("select filename, title, artist, length, "
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
    QCOMPARE(log.lines(), QStringList(str("Using local file: 'songsdb_debug' as database ")));
    QCOMPARE(database.artistsList(), QStringList(str("JOHANN STRAUSS")));
    QCOMPARE(QSqlDatabase::database(str("con_songsdb"), false).databaseName(),
             str("songsdb_debug"));
}

void TestDatabase::debugFileIsUsedWithoutATemporaryFile()
{
    QVERIFY(QDir::current().mkdir(str("temporary")));
    const QString folder = QDir(m_folder->path()).canonicalPath() + str("/temporary");
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
    QVERIFY(QDir::current().mkdir(str("songsdb_debug")));
    Database database;
    QVERIFY(database.init());
    QVERIFY(!database.genresList().isEmpty());
}

void TestDatabase::unusableTemporaryFolderFailsInit()
{
    const TemporaryFilesIn nowhere(str("/dev/null"));
    LogCapture log;
    Database database;
    QVERIFY(!database.init());
    QVERIFY(log.contains(str("[Database::init] FATAL: Unable to create temporary files !!! ")));
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
    QVERIFY(log.contains(str("[Database::init] FATAL: Unable to create temporary files !!! ")));
}

void TestDatabase::missingResourceFailsInit()
{
    Q_CLEANUP_RESOURCE(catalogue);
    LogCapture log;
    Database database;
    const bool succeeded = database.init();
    Q_INIT_RESOURCE(catalogue);
    QVERIFY(!succeeded);
    QVERIFY(log.contains(str("[Database::init] FATAL: Unable to open db resource file !!! ")));
}

void TestDatabase::secondDatabaseWorksAfterTheFirstIsGone()
{
    for (int round = 0; round < 2; ++round) {
        Database database;
        QVERIFY(database.init());
        QVERIFY(QSqlQuery(database.userLibraryDb()).exec(str("select * from usersongs")));
        QVERIFY(!database.artistsList().isEmpty());
    }
    QVERIFY(!QSqlDatabase::contains(str("con_mem")));
    QVERIFY(!QSqlDatabase::contains(str("con_songsdb")));
}

void TestDatabase::initTwiceStartsAgain()
{
    Database database;
    QVERIFY(database.init());
    QVERIFY(QSqlQuery(database.userLibraryDb()).exec(str("insert into usersongs (id) values (1)")));
    const QStringList artists = database.artistsList();
    QVERIFY(database.init());
    QCOMPARE(database.artistsList(), artists);
    QSqlQuery count(database.userLibraryDb());
    QVERIFY(count.exec(str("select count(*) from usersongs")) && count.next());
    QCOMPARE(count.value(0).toInt(), 0);
}

void TestDatabase::nothingIsFoundBeforeInit()
{
    Database database;
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(str("%"), record));
    QVERIFY(!database.getRecordByTitle(str("%"), record));
    QVERIFY(!database.clearUserLibraryDb());
    QVERIFY(!database.userLibraryDb().isValid());
    database.populateArtistsList();
    QVERIFY(database.artistsList().isEmpty());
}

void TestDatabase::listsKeepTheCataloguesOrderWithoutEmptyTexts()
{
    QVERIFY(debugcatalogue::create({
        str("'T1', '', ' POP ', '', 1, 1, '', 'F1', NULL, 'ZORA'"),
        str("'T2', '', '', '', 1, 1, '', 'F2', NULL, ''"),
        str("'T3', '', NULL, '', 1, 1, '', 'F3', NULL, NULL"),
        str("'T4', '', '  ', '', 1, 1, '', 'F4', NULL, ' \t'"),
        str("'T5', '', 'jazz', '', 1, 1, '', 'F5', NULL, 'zora'"),
        str("'T6', '', 'JAZZ', '', 1, 1, '', 'F6', NULL, 'ANNA'"),
        str("'T7', '', 'jazz', '', 1, 1, '', 'F7', NULL, 'ZORA'"),
    }));
    Database database;
    QVERIFY(database.init());
    QCOMPARE(database.genresList(), QStringList({str("POP"), str("jazz"), str("JAZZ")}));
    QCOMPARE(database.artistsList(), QStringList({str("ZORA"), str("zora"), str("ANNA")}));
}

void TestDatabase::populateReplacesTheLists()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    database.populateArtistsList();
    database.populateGenresList();
    QCOMPARE(database.artistsList(), QStringList(str("JOHANN STRAUSS")));
    QCOMPARE(database.genresList(), QStringList(str("VALZER")));
}

void TestDatabase::recordHoldsTheTrimmedColumns()
{
    QVERIFY(debugcatalogue::create(
        {str("' O SOLE ', ' CARUSO ENRICO', 'NAPOLI ', ' DI CAPUA ', 198, 76, ' D', 'OSOLE', "
             "' 1;Intro;19;Verse1; ', ' ENRICO CARUSO '")}));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(str("OSOLE"), record));
    QCOMPARE(record.title, str("O SOLE"));
    QCOMPARE(record.artist, str("CARUSO ENRICO"));
    QCOMPARE(record.altartist, str("ENRICO CARUSO"));
    QCOMPARE(record.genre, str("NAPOLI"));
    QCOMPARE(record.author, str("DI CAPUA"));
    QCOMPARE(record.length, 198);
    QCOMPARE(record.bpm, 76);
    QCOMPARE(record.key, str("D"));
    QCOMPARE(written(record.markers), str("1=Intro|19=Verse1|"));
}

void TestDatabase::recordHoldsMinusOneForWhatIsNoNumber_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("number");
    QTest::newRow("number") << "125" << 125;
    QTest::newRow("number as text") << "'125'" << 125;
    QTest::newRow("zero") << "0" << 0;
    QTest::newRow("negative") << "-7" << -7;
    QTest::newRow("fraction") << "12.7" << 13;
    QTest::newRow("null") << "NULL" << -1;
    QTest::newRow("word") << "'fast'" << -1;
    QTest::newRow("empty") << "''" << -1;
    QTest::newRow("number and word") << "'120 bpm'" << -1;
    QTest::newRow("blob") << "x'FF00FE'" << -1;
    QTest::newRow("largest") << "2147483647" << 2147483647;
    QTest::newRow("past 32 bits") << "2147483648" << -1;
    QTest::newRow("64 bits") << "9223372036854775807" << -1;
    QTest::newRow("huge") << "1e300" << -1;
    QTest::newRow("infinite") << "1e999" << -1;
}

void TestDatabase::recordHoldsMinusOneForWhatIsNoNumber()
{
    QFETCH(QString, value);
    QFETCH(int, number);
    QVERIFY(debugcatalogue::create(
        {QStringLiteral("'T', '', '', '', %1, %1, '', 'F', NULL, ''").arg(value)}));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(str("F"), record));
    QCOMPARE(record.length, number);
    QCOMPARE(record.bpm, number);
}

void TestDatabase::fileNameMatchesInEitherCase()
{
    QVERIFY(debugcatalogue::create({str("'T', '', '', '', 1, 1, '', 'ABC', NULL, ''")}));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(str("abc"), record));
    QVERIFY(database.getRecordByFilename(str("ABC"), record));
    QVERIFY(!database.getRecordByFilename(str("ABCD"), record));
    QVERIFY(!database.getRecordByFilename(QString(), record));
    QVERIFY(record.markers.isEmpty());
}

void TestDatabase::firstRowOfTheCatalogueCountsForAWildCard()
{
    QVERIFY(debugcatalogue::create({
        str("'LAST NAME FIRST', '', '', '', 1, 1, '', 'SONGZ', NULL, ''"),
        str("'FIRST NAME LAST', '', '', '', 1, 1, '', 'SONGA', NULL, ''"),
    }));
    Database database;
    QVERIFY(database.init());
    for (const QString &pattern : {str("song%"), str("SONG_"), str("%"), str("%ONG_")}) {
        SongsDbRecord record;
        QVERIFY(database.getRecordByFilename(pattern, record));
        QCOMPARE(record.title, str("LAST NAME FIRST"));
    }
}

void TestDatabase::doubleQuoteFindsNothing_data()
{
    QTest::addColumn<QString>("argument");
    QTest::newRow("as it stands") << "A\"B";
    QTest::newRow("under a wild card") << "A\"%";
    QTest::newRow("doubled") << "A\"\"B";
    QTest::newRow("statement") << "\" or 1=1 or title like \"";
}

void TestDatabase::doubleQuoteFindsNothing()
{
    QFETCH(QString, argument);
    QVERIFY(debugcatalogue::create({
        str("'A\"B', '', '', '', 1, 1, '', 'A\"B', NULL, ''"),
        str("'A\"\"B', '', '', '', 1, 1, '', 'A\"\"B', NULL, ''"),
    }));
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    record.title = str("UNTOUCHED");
    QVERIFY(!database.getRecordByFilename(argument, record));
    QVERIFY(!database.getRecordByTitle(argument, record));
    QCOMPARE(record.title, str("UNTOUCHED"));
    QVERIFY(log.lines().isEmpty());
}

void TestDatabase::argumentCannotChangeTheStatement()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(str("x' or '1'='1"), record));
    QVERIFY(!database.getRecordByTitle(str("x'; drop table songs; --"), record));
    // A word between quotes must not be read as the column of that name.
    QVERIFY(!database.getRecordByTitle(str("TITLE"), record));
    QVERIFY(!database.getRecordByFilename(str("filename"), record));
    QVERIFY(database.getRecordByFilename(str("DANUBIO"), record));
}

void TestDatabase::endlessArgumentFindsNothing()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(QString(1000000, QLatin1Char('A')), record));
    QVERIFY(!database.getRecordByTitle(QString(1000000, QLatin1Char('%')), record));
}

void TestDatabase::titleHeldByOneRowIsFound()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    QVERIFY(database.getRecordByTitle(str("sul bel Danubio blu"), record));
    QCOMPARE(record.length, 600);
    QCOMPARE(written(record.markers), str("1=Intro|45=Waltz1|"));
    QVERIFY(database.getRecordByTitle(str("SUL%"), record));
    QVERIFY(log.lines().isEmpty());
}

void TestDatabase::titleHeldByTwoRowsIsNotGuessedAt()
{
    QVERIFY(debugcatalogue::create({
        str("'AVE MARIA', 'GIGLI', '', '', 1, 1, '', 'AVE1', NULL, ''"),
        str("'Ave Maria', 'CARUSO', '', '', 1, 1, '', 'AVE2', NULL, ''"),
    }));
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    record.title = str("UNTOUCHED");
    QVERIFY(!database.getRecordByTitle(str("AVE MARIA"), record));
    QCOMPARE(record.title, str("UNTOUCHED"));
    QCOMPARE(
        log.lines(),
        QStringList(str("[getRecordByTitle] WARNING: multiple reusults in query, aborting !!! ")));
}

void TestDatabase::titleThatCannotBeCountedIsNotTaken()
{
    // The absolute value of the smallest integer overflows: the first row reads well, the second
    // stops the statement.
    QVERIFY(debugcatalogue::run(
        {str("create table t (title, n)"), str("insert into t values ('SONG', 1)"),
         str("insert into t values ('SONG', -9223372036854775808)"),
         str("create view songs as select title, '' artist, '' genre, '' author, 1 length, 1 bpm, "
             "'' key, 'F' filename, '' markers, '' altartist from t where abs(n) > 0")}));
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    QVERIFY(!database.getRecordByTitle(str("SONG"), record));
    QCOMPARE(
        log.lines(),
        QStringList(str("[getRecordByTitle] WARNING: unable to count reusults, aborting !!! ")));
}

void TestDatabase::unknownTitleIsSilent()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    QVERIFY(!database.getRecordByTitle(str("NO SUCH SONG"), record));
    QVERIFY(!database.getRecordByTitle(QString(), record));
    QVERIFY(log.lines().isEmpty());
}

void TestDatabase::catalogueIsNeverWritten()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    QFile file(str("songsdb_debug"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    {
        Database database;
        QVERIFY(database.init());
        QSqlQuery query(QSqlDatabase::database(str("con_songsdb"), false));
        QVERIFY(!query.exec(str("delete from main.songs")));
    }
    QVERIFY(file.seek(0));
    QCOMPARE(file.readAll(), before);
    QCOMPARE(QDir::current().entryList(QDir::Files), QStringList(str("songsdb_debug")));
}

void TestDatabase::fileThatIsNoCatalogueFindsNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QFile resource(str(":/db/songsdb"));
    QVERIFY(resource.open(QIODevice::ReadOnly));
    const QByteArray catalogue = resource.readAll();
    QByteArray overwritten = catalogue;
    overwritten.replace(100, overwritten.size() - 100,
                        QByteArray(overwritten.size() - 100, '\xFF'));
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("title\tartist\n");
    QTest::newRow("zeros") << QByteArray(8192, '\0');
    QTest::newRow("header only") << catalogue.left(100);
    QTest::newRow("first page only") << catalogue.left(4096);
    QTest::newRow("cut page") << catalogue.left(5000);
    QTest::newRow("overwritten behind the header") << overwritten;
}

void TestDatabase::fileThatIsNoCatalogueFindsNothing()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(ScratchFolder::write(str("songsdb_debug"), bytes));
    Database database;
    QVERIFY(database.init());
    QVERIFY(database.artistsList().isEmpty());
    QVERIFY(database.genresList().isEmpty());
    SongsDbRecord record;
    record.title = str("UNTOUCHED");
    QVERIFY(!database.getRecordByFilename(str("%"), record));
    QVERIFY(!database.getRecordByTitle(str("%"), record));
    QCOMPARE(record.title, str("UNTOUCHED"));
    QVERIFY(QSqlQuery(database.userLibraryDb()).exec(str("select * from usersongs")));
}

void TestDatabase::tableWithoutAColumnStillGivesTheLists()
{
    QVERIFY(debugcatalogue::run(
        {str("create table songs (genre)"), str("insert into songs values ('VALZER')")}));
    Database database;
    QVERIFY(database.init());
    QCOMPARE(database.genresList(), QStringList(str("VALZER")));
    QVERIFY(database.artistsList().isEmpty());
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(str("%"), record));
    QVERIFY(!database.getRecordByTitle(str("%"), record));
}

void TestDatabase::oddValuesAreTakenAsText()
{
    QVERIFY(debugcatalogue::create({
        str("42, x'414243', 3.5, NULL, NULL, NULL, 7, 'ODD', 12, x'00FF'"),
        str("printf('%.*c', 3000000, 'x'), '', '', '', 1, 1, '', 'HUGE', "
            "printf('%.*c', 3000000, ';'), ''"),
    }));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(str("ODD"), record));
    QCOMPARE(record.title, str("42"));
    QCOMPARE(record.artist, str("ABC"));
    QCOMPARE(record.genre, str("3.5"));
    QVERIFY(record.author.isEmpty());
    QCOMPARE(record.length, -1);
    QCOMPARE(record.key, str("7"));
    QVERIFY(record.markers.isEmpty());
    QVERIFY(database.getRecordByFilename(str("HUGE"), record));
    QCOMPARE(record.title.size(), 3000000);
    QVERIFY(record.markers.isEmpty());
}

void TestDatabase::splitMarkers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("markers");
    QTest::newRow("two") << "1;Intro;19;Verse1;"
                         << "1=Intro|19=Verse1|";
    QTest::newRow("bar is a word") << "x;Intro;5;Coda"
                                   << "5=Coda|";
    QTest::newRow("unpaired part") << "3;A;7"
                                   << "3=A|";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("separators only") << ";;;"
                                     << "";
    QTest::newRow("empty parts are dropped") << ";;1;;Intro;"
                                             << "1=Intro|";
    QTest::newRow("negative bar") << "-1;A;2;B;"
                                  << "2=B|";
    QTest::newRow("bar 0") << "0;A;"
                           << "0=A|";
    QTest::newRow("last bar") << "65535;A;"
                              << "65535=A|";
    QTest::newRow("bar that a marker cannot hold") << "65536;A;70000;B;3;C;"
                                                   << "3=C|";
    QTest::newRow("bar past every number") << "99999999999999999999;A;3;C;"
                                           << "3=C|";
    QTest::newRow("text is not trimmed") << "4; Solo ;"
                                         << "4= Solo |";
    QTest::newRow("hexadecimal") << "0x10;A;"
                                 << "";
    QTest::newRow("fraction") << "1.5;A;"
                              << "";
}

void TestDatabase::splitMarkers()
{
    QFETCH(QString, text);
    QFETCH(QString, markers);
    QList<Marker> list{{9, str("OLD")}};
    Database::splitMarkers(text, list);
    QCOMPARE(written(list), markers);
}

void TestDatabase::clearEmptiesTheUserSongs()
{
    Database database;
    QVERIFY(database.init());
    QSqlQuery query(database.userLibraryDb());
    QVERIFY(query.exec(str("insert into usersongs (title) values ('A'), ('B')")));
    QVERIFY(database.clearUserLibraryDb());
    QVERIFY(query.exec(str("select count(*) from usersongs")) && query.next());
    QCOMPARE(query.value(0).toInt(), 0);
}

void TestDatabase::clearFailsWithoutATable()
{
    Database database;
    QVERIFY(database.init());
    QVERIFY(QSqlQuery(database.userLibraryDb()).exec(str("drop table usersongs")));
    QVERIFY(!database.clearUserLibraryDb());
}

void TestDatabase::dumpListsTheFieldsInOrder()
{
    SongsDbRecord record;
    record.title = str("T");
    record.artist = str("A");
    record.altartist = str("AA");
    record.genre = str("G");
    record.author = str("W");
    record.length = 125;
    record.bpm = 96;
    record.key = str("F# -");
    record.markers = {{1, str("Intro")}, {19, str("Verse1")}};
    LogCapture log;
    record.dbgDump();
    QCOMPARE(log.lines().join(QLatin1Char('\n')), str("  Title     : \"T\" \n"
                                                      "  Genre     : \"G\" \n"
                                                      "  Artist    : \"A\" \n"
                                                      "  AltArtist : \"AA\" \n"
                                                      "  Author    : \"W\" \n"
                                                      "  Bpm       : 96 \n"
                                                      "  Key       : \"F# -\" \n"
                                                      "  Length    : 125 \n"
                                                      "  Markers: \n"
                                                      "    bar: 1   text: \"Intro\" \n"
                                                      "    bar: 19   text: \"Verse1\" "));
}

void TestDatabase::dumpWithoutMarkersSaysSo()
{
    LogCapture log;
    SongsDbRecord().dbgDump();
    QCOMPARE(log.lines().last(), str("  NO Markers "));
}

QTEST_GUILESS_MAIN(TestDatabase)
#include "test_database.moc"
