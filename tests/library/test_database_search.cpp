// What the database finds in the catalogue.
#include "library/database.h"
#include "support/databasefixture.h"
#include "support/debugcatalogue.h"
#include "support/logcapture.h"
#include "support/scratchfolder.h"

#include <QTest>

using namespace databasefixture;

namespace
{

/** "bar=text|" for each marker. */
QString written(const QList<Marker> &markers)
{
    QString text;
    for (const Marker &marker : markers)
        text += QStringLiteral("%1=%2|").arg(marker.bar).arg(marker.text);
    return text;
}

} // namespace

class TestDatabaseSearch : public DatabaseFixture
{
    Q_OBJECT

private slots:
    void init() { DatabaseFixture::init(); }
    void cleanup() { DatabaseFixture::cleanup(); }

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
};

void TestDatabaseSearch::listsKeepTheCataloguesOrderWithoutEmptyTexts()
{
    QVERIFY(debugcatalogue::create({
        s("'T1', '', ' POP ', '', 1, 1, '', 'F1', NULL, 'ZORA'"),
        s("'T2', '', '', '', 1, 1, '', 'F2', NULL, ''"),
        s("'T3', '', NULL, '', 1, 1, '', 'F3', NULL, NULL"),
        s("'T4', '', '  ', '', 1, 1, '', 'F4', NULL, ' \t'"),
        s("'T5', '', 'jazz', '', 1, 1, '', 'F5', NULL, 'zora'"),
        s("'T6', '', 'JAZZ', '', 1, 1, '', 'F6', NULL, 'ANNA'"),
        s("'T7', '', 'jazz', '', 1, 1, '', 'F7', NULL, 'ZORA'"),
    }));
    Database database;
    QVERIFY(database.init());
    QCOMPARE(database.genresList(), QStringList({s("POP"), s("jazz"), s("JAZZ")}));
    QCOMPARE(database.artistsList(), QStringList({s("ZORA"), s("zora"), s("ANNA")}));
}

void TestDatabaseSearch::populateReplacesTheLists()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    database.populateArtistsList();
    database.populateGenresList();
    QCOMPARE(database.artistsList(), QStringList(s("JOHANN STRAUSS")));
    QCOMPARE(database.genresList(), QStringList(s("VALZER")));
}

void TestDatabaseSearch::recordHoldsTheTrimmedColumns()
{
    QVERIFY(debugcatalogue::create(
        {s("' O SOLE ', ' CARUSO ENRICO', 'NAPOLI ', ' DI CAPUA ', 198, 76, ' D', 'OSOLE', "
           "' 1;Intro;19;Verse1; ', ' ENRICO CARUSO '")}));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(s("OSOLE"), record));
    QCOMPARE(record.title, s("O SOLE"));
    QCOMPARE(record.artist, s("CARUSO ENRICO"));
    QCOMPARE(record.altartist, s("ENRICO CARUSO"));
    QCOMPARE(record.genre, s("NAPOLI"));
    QCOMPARE(record.author, s("DI CAPUA"));
    QCOMPARE(record.length, 198);
    QCOMPARE(record.bpm, 76);
    QCOMPARE(record.key, s("D"));
    QCOMPARE(written(record.markers), s("1=Intro|19=Verse1|"));
}

void TestDatabaseSearch::recordHoldsMinusOneForWhatIsNoNumber_data()
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

void TestDatabaseSearch::recordHoldsMinusOneForWhatIsNoNumber()
{
    QFETCH(QString, value);
    QFETCH(int, number);
    QVERIFY(debugcatalogue::create(
        {QStringLiteral("'T', '', '', '', %1, %1, '', 'F', NULL, ''").arg(value)}));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(s("F"), record));
    QCOMPARE(record.length, number);
    QCOMPARE(record.bpm, number);
}

void TestDatabaseSearch::fileNameMatchesInEitherCase()
{
    QVERIFY(debugcatalogue::create({s("'T', '', '', '', 1, 1, '', 'ABC', NULL, ''")}));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(s("abc"), record));
    QVERIFY(database.getRecordByFilename(s("ABC"), record));
    QVERIFY(!database.getRecordByFilename(s("ABCD"), record));
    QVERIFY(!database.getRecordByFilename(QString(), record));
    QVERIFY(record.markers.isEmpty());
}

void TestDatabaseSearch::firstRowOfTheCatalogueCountsForAWildCard()
{
    QVERIFY(debugcatalogue::create({
        s("'LAST NAME FIRST', '', '', '', 1, 1, '', 'SONGZ', NULL, ''"),
        s("'FIRST NAME LAST', '', '', '', 1, 1, '', 'SONGA', NULL, ''"),
    }));
    Database database;
    QVERIFY(database.init());
    for (const QString &pattern : {s("song%"), s("SONG_"), s("%"), s("%ONG_")}) {
        SongsDbRecord record;
        QVERIFY(database.getRecordByFilename(pattern, record));
        QCOMPARE(record.title, s("LAST NAME FIRST"));
    }
}

void TestDatabaseSearch::doubleQuoteFindsNothing_data()
{
    QTest::addColumn<QString>("argument");
    QTest::newRow("as it stands") << "A\"B";
    QTest::newRow("under a wild card") << "A\"%";
    QTest::newRow("doubled") << "A\"\"B";
    QTest::newRow("statement") << "\" or 1=1 or title like \"";
}

void TestDatabaseSearch::doubleQuoteFindsNothing()
{
    QFETCH(QString, argument);
    QVERIFY(debugcatalogue::create({
        s("'A\"B', '', '', '', 1, 1, '', 'A\"B', NULL, ''"),
        s("'A\"\"B', '', '', '', 1, 1, '', 'A\"\"B', NULL, ''"),
    }));
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    record.title = s("UNTOUCHED");
    QVERIFY(!database.getRecordByFilename(argument, record));
    QVERIFY(!database.getRecordByTitle(argument, record));
    QCOMPARE(record.title, s("UNTOUCHED"));
    QVERIFY(log.lines().isEmpty());
}

void TestDatabaseSearch::argumentCannotChangeTheStatement()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(s("x' or '1'='1"), record));
    QVERIFY(!database.getRecordByTitle(s("x'; drop table songs; --"), record));
    // A word between quotes must not be read as the column of that name.
    QVERIFY(!database.getRecordByTitle(s("TITLE"), record));
    QVERIFY(!database.getRecordByFilename(s("filename"), record));
    QVERIFY(database.getRecordByFilename(s("DANUBIO"), record));
}

void TestDatabaseSearch::endlessArgumentFindsNothing()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(QString(1000000, QLatin1Char('A')), record));
    QVERIFY(!database.getRecordByTitle(QString(1000000, QLatin1Char('%')), record));
}

void TestDatabaseSearch::titleHeldByOneRowIsFound()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    QVERIFY(database.getRecordByTitle(s("sul bel Danubio blu"), record));
    QCOMPARE(record.length, 600);
    QCOMPARE(written(record.markers), s("1=Intro|45=Waltz1|"));
    QVERIFY(database.getRecordByTitle(s("SUL%"), record));
    QVERIFY(log.lines().isEmpty());
}

void TestDatabaseSearch::titleHeldByTwoRowsIsNotGuessedAt()
{
    QVERIFY(debugcatalogue::create({
        s("'AVE MARIA', 'GIGLI', '', '', 1, 1, '', 'AVE1', NULL, ''"),
        s("'Ave Maria', 'CARUSO', '', '', 1, 1, '', 'AVE2', NULL, ''"),
    }));
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    record.title = s("UNTOUCHED");
    QVERIFY(!database.getRecordByTitle(s("AVE MARIA"), record));
    QCOMPARE(record.title, s("UNTOUCHED"));
    QCOMPARE(
        log.lines(),
        QStringList(s("[getRecordByTitle] WARNING: multiple reusults in query, aborting !!! ")));
}

void TestDatabaseSearch::titleThatCannotBeCountedIsNotTaken()
{
    // The absolute value of the smallest integer overflows: the first row reads well, the second
    // stops the statement.
    QVERIFY(debugcatalogue::run(
        {s("create table t (title, n)"), s("insert into t values ('SONG', 1)"),
         s("insert into t values ('SONG', -9223372036854775808)"),
         s("create view songs as select title, '' artist, '' genre, '' author, 1 length, 1 bpm, "
           "'' key, 'F' filename, '' markers, '' altartist from t where abs(n) > 0")}));
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    QVERIFY(!database.getRecordByTitle(s("SONG"), record));
    QCOMPARE(log.lines(),
             QStringList(s("[getRecordByTitle] WARNING: unable to count reusults, aborting !!! ")));
}

void TestDatabaseSearch::unknownTitleIsSilent()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    Database database;
    QVERIFY(database.init());
    LogCapture log;
    SongsDbRecord record;
    QVERIFY(!database.getRecordByTitle(s("NO SUCH SONG"), record));
    QVERIFY(!database.getRecordByTitle(QString(), record));
    QVERIFY(log.lines().isEmpty());
}

void TestDatabaseSearch::catalogueIsNeverWritten()
{
    QVERIFY(debugcatalogue::create({blueDanube}));
    QFile file(s("songsdb_debug"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    {
        Database database;
        QVERIFY(database.init());
        QSqlQuery query(QSqlDatabase::database(s("con_songsdb"), false));
        QVERIFY(!query.exec(s("delete from main.songs")));
    }
    QVERIFY(file.seek(0));
    QCOMPARE(file.readAll(), before);
    QCOMPARE(QDir::current().entryList(QDir::Files), QStringList(s("songsdb_debug")));
}

void TestDatabaseSearch::fileThatIsNoCatalogueFindsNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QFile resource(s(":/db/songsdb"));
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

void TestDatabaseSearch::fileThatIsNoCatalogueFindsNothing()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(ScratchFolder::write(s("songsdb_debug"), bytes));
    Database database;
    QVERIFY(database.init());
    QVERIFY(database.artistsList().isEmpty());
    QVERIFY(database.genresList().isEmpty());
    SongsDbRecord record;
    record.title = s("UNTOUCHED");
    QVERIFY(!database.getRecordByFilename(s("%"), record));
    QVERIFY(!database.getRecordByTitle(s("%"), record));
    QCOMPARE(record.title, s("UNTOUCHED"));
    QVERIFY(QSqlQuery(database.userLibraryDb()).exec(s("select * from usersongs")));
}

void TestDatabaseSearch::tableWithoutAColumnStillGivesTheLists()
{
    QVERIFY(debugcatalogue::run(
        {s("create table songs (genre)"), s("insert into songs values ('VALZER')")}));
    Database database;
    QVERIFY(database.init());
    QCOMPARE(database.genresList(), QStringList(s("VALZER")));
    QVERIFY(database.artistsList().isEmpty());
    SongsDbRecord record;
    QVERIFY(!database.getRecordByFilename(s("%"), record));
    QVERIFY(!database.getRecordByTitle(s("%"), record));
}

void TestDatabaseSearch::oddValuesAreTakenAsText()
{
    QVERIFY(debugcatalogue::create({
        s("42, x'414243', 3.5, NULL, NULL, NULL, 7, 'ODD', 12, x'00FF'"),
        s("printf('%.*c', 3000000, 'x'), '', '', '', 1, 1, '', 'HUGE', "
          "printf('%.*c', 3000000, ';'), ''"),
    }));
    Database database;
    QVERIFY(database.init());
    SongsDbRecord record;
    QVERIFY(database.getRecordByFilename(s("ODD"), record));
    QCOMPARE(record.title, s("42"));
    QCOMPARE(record.artist, s("ABC"));
    QCOMPARE(record.genre, s("3.5"));
    QVERIFY(record.author.isEmpty());
    QCOMPARE(record.length, -1);
    QCOMPARE(record.key, s("7"));
    QVERIFY(record.markers.isEmpty());
    QVERIFY(database.getRecordByFilename(s("HUGE"), record));
    QCOMPARE(record.title.size(), 3000000);
    QVERIFY(record.markers.isEmpty());
}

void TestDatabaseSearch::splitMarkers_data()
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

void TestDatabaseSearch::splitMarkers()
{
    QFETCH(QString, text);
    QFETCH(QString, markers);
    QList<Marker> list{{9, s("OLD")}};
    Database::splitMarkers(text, list);
    QCOMPARE(written(list), markers);
}

void TestDatabaseSearch::clearEmptiesTheUserSongs()
{
    Database database;
    QVERIFY(database.init());
    QSqlQuery query(database.userLibraryDb());
    QVERIFY(query.exec(s("insert into usersongs (title) values ('A'), ('B')")));
    QVERIFY(database.clearUserLibraryDb());
    QVERIFY(query.exec(s("select count(*) from usersongs")) && query.next());
    QCOMPARE(query.value(0).toInt(), 0);
}

void TestDatabaseSearch::clearFailsWithoutATable()
{
    Database database;
    QVERIFY(database.init());
    QVERIFY(QSqlQuery(database.userLibraryDb()).exec(s("drop table usersongs")));
    QVERIFY(!database.clearUserLibraryDb());
}

void TestDatabaseSearch::dumpListsTheFieldsInOrder()
{
    SongsDbRecord record;
    record.title = s("T");
    record.artist = s("A");
    record.altartist = s("AA");
    record.genre = s("G");
    record.author = s("W");
    record.length = 125;
    record.bpm = 96;
    record.key = s("F# -");
    record.markers = {{1, s("Intro")}, {19, s("Verse1")}};
    LogCapture log;
    record.dbgDump();
    QCOMPARE(log.lines().join(QLatin1Char('\n')), s("  Title     : \"T\" \n"
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

void TestDatabaseSearch::dumpWithoutMarkersSaysSo()
{
    LogCapture log;
    SongsDbRecord().dbgDump();
    QCOMPARE(log.lines().last(), s("  NO Markers "));
}

QTEST_GUILESS_MAIN(TestDatabaseSearch)

#include "test_database_search.moc"
