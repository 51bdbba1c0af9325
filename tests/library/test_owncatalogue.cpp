// The user's own catalogue: its file, its entries, and what a lookup makes of them.
#include "formats/metasong.h"
#include "library/cataloguemerge.h"
#include "library/changepreview.h"
#include "library/markertexts.h"
#include "library/owncatalogue.h"
#include "library/songupdate.h"
#include "support/catalogue.h"
#include "support/catalogueentries.h"
#include "support/damagedcatalogue.h"
#include "support/scratchfolder.h"
#include "support/shorttext.h"
#include "support/songfolder.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

using namespace catalogueentries;

namespace
{

using State = OwnCatalogue::State;

/** Runs statements on an SQLite file, as another program would. */
bool run(const QString &path, const QStringList &statements)
{
    const QString name = s("stranger");
    bool done = false;
    {
        QSqlDatabase file = QSqlDatabase::addDatabase(s("QSQLITE"), name);
        file.setDatabaseName(path);
        done = file.open();
        QSqlQuery query(file);
        for (const QString &statement : statements)
            done = done && query.exec(statement);
    }
    QSqlDatabase::removeDatabase(name);
    return done;
}

} // namespace

class TestOwnCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void absentCatalogueIsNotMade();
    void emptyFileIsAnAbsentCatalogue();
    void entriesComeBackAsTheyWere();
    void entryReplacesTheOneOfItsName();
    void changedEntryMayGetAnotherName();
    void removedEntriesAreGone();
    void textsWithSqlAreTexts();
    void entriesWithoutTitleOrNameAreRefusedWithAllOthers();
    void searchFindsAnyTextInWhateverCase();
    void unusableFilesAreRefusedAndStay_data();
    void unusableFilesAreRefusedAndStay();
    void unwritablePlaceIsSaid();
    void damagedPageOfEntriesIsSaid();
    void strangeValuesOfARowMakeNoSense();
    void twoProgramsWriteOneCatalogue();
    void anotherProgramsLongWriteIsWaitedForAndRefused();

    void ownEntryIsFoundBeforeTheBuiltInOne();
    void ownTitleIsFoundInWhateverCase();
    void sharedTitleIsNotGuessed();
    void wildCardsMeanNothingInTheOwnCatalogue();
    void absentAndEmptyCatalogueSayNothing();
    void unusableCatalogueLeavesTheBuiltInOne();
    void songAddedIsNotChangedByItsOwnEntry_data();
    void songAddedIsNotChangedByItsOwnEntry();

private:
    QString path() const { return m_folder->filePath(s("catalogue.sqlite")); }
    std::unique_ptr<SongFolder> m_folder;
    std::unique_ptr<ScratchFolder> m_work;
    std::unique_ptr<Database> m_database;
};

/** The built-in catalogue knows one song by its name and its title. */
void TestOwnCatalogue::init()
{
    m_folder = std::make_unique<SongFolder>();
    m_work = std::make_unique<ScratchFolder>();
    catalogue::Row row;
    row.filename = s("KNOWN");
    row.title = s("KNOWN TITLE");
    row.genre = s("DANCE");
    QVERIFY(catalogue::write(catalogue::overrideFile, {row}));
    m_database = std::make_unique<Database>();
    QVERIFY(m_database->init());
}

void TestOwnCatalogue::cleanup()
{
    m_database.reset();
    m_work.reset();
    m_folder.reset();
}

void TestOwnCatalogue::absentCatalogueIsNotMade()
{
    OwnCatalogue own(path());
    QCOMPARE(own.open(), State::Absent);
    QVERIFY(own.problem().isEmpty());
    QVERIFY(own.entries().isEmpty());
    QVERIFY(!own.put({entry("A", "A")}));
    QVERIFY(!QFile::exists(path()));
}

void TestOwnCatalogue::entriesComeBackAsTheyWere()
{
    SongsDbRecord empty;
    empty.filename = s("B");
    empty.title = s("Bé");
    const QList<SongsDbRecord> all{entry("A", "A song"), empty};
    {
        OwnCatalogue own(path());
        QCOMPARE(own.openOrMake(), State::Ready);
        QVERIFY(own.put(all));
    }
    OwnCatalogue own(path());
    QCOMPARE(own.open(), State::Ready);
    QCOMPARE(allOf(own.entries()), allOf(all));
}

void TestOwnCatalogue::entryReplacesTheOneOfItsName()
{
    OwnCatalogue own(path());
    QCOMPARE(own.openOrMake(), State::Ready);
    QVERIFY(own.put({entry("A", "old"), entry("B", "stays")}));
    QCOMPARE(own.known({s("a"), s("C")}), QStringList{s("a")});
    QVERIFY(own.put({entry("a", "new")}));
    QCOMPARE(allOf(own.entries()), allOf({entry("A", "new"), entry("B", "stays")}));
}

void TestOwnCatalogue::changedEntryMayGetAnotherName()
{
    OwnCatalogue own(path());
    QCOMPARE(own.openOrMake(), State::Ready);
    QVERIFY(own.put({entry("A", "old"), entry("B", "stays")}));
    QVERIFY(own.change(s("A"), entry("C", "new")));
    QCOMPARE(allOf(own.entries()), allOf({entry("C", "new"), entry("B", "stays")}));
    QVERIFY(!own.change(s("C"), entry("", "nameless")));
    QCOMPARE(own.entries().size(), 2);
}

void TestOwnCatalogue::removedEntriesAreGone()
{
    OwnCatalogue own(path());
    QCOMPARE(own.openOrMake(), State::Ready);
    QVERIFY(own.put({entry("A", "1"), entry("B", "2"), entry("C", "3")}));
    QVERIFY(own.remove({s("A"), s("C"), s("X")}));
    QCOMPARE(allOf(own.entries()), allOf({entry("B", "2")}));
}

void TestOwnCatalogue::textsWithSqlAreTexts()
{
    const QList<SongsDbRecord> all{entry("'); DROP TABLE SONGS; --", "\" OR 1=1 --"),
                                   entry("A\"B", "'; DELETE FROM Songs; '")};
    OwnCatalogue own(path());
    QCOMPARE(own.openOrMake(), State::Ready);
    QVERIFY(own.put(all));
    QCOMPARE(allOf(own.entries()), allOf(all));
    QVERIFY(own.remove({s("' OR '1'='1")}));
    QCOMPARE(own.entries().size(), 2);
    const OwnEntries entries(own);
    QVERIFY(entries.byFilename(s("a\"b")) != nullptr);
    QVERIFY(entries.byTitle(s("\" or 1=1 --")) != nullptr);
}

void TestOwnCatalogue::entriesWithoutTitleOrNameAreRefusedWithAllOthers()
{
    OwnCatalogue own(path());
    QCOMPARE(own.openOrMake(), State::Ready);
    SongsDbRecord huge = entry("H", "huge");
    huge.author = QString(OwnCatalogue::longestText + 1, QLatin1Char('x'));
    for (const SongsDbRecord &bad : {entry("", "A"), entry("A", " "), huge})
        QVERIFY(!own.put({entry("GOOD", "good"), bad}));
    QVERIFY(own.entries().isEmpty());
}

void TestOwnCatalogue::searchFindsAnyTextInWhateverCase()
{
    OwnCatalogue own(path());
    QCOMPARE(own.openOrMake(), State::Ready);
    QVERIFY(own.put({entry("ELISE", "Für Elise"), entry("OTHER", "Percent %")}));
    QCOMPARE(own.find(s("FÜR")).size(), 1);
    QCOMPARE(own.find(s("other")).size(), 1);
    QCOMPARE(own.find(s("%")).size(), 1);
    QCOMPARE(own.find(s("myself")).size(), 2);
    QCOMPARE(own.find(QString()).size(), 2);
    QCOMPARE(own.find(s("nothing")).size(), 0);
}

/** As a full disk leaves it, or another program that is just making it. */
void TestOwnCatalogue::emptyFileIsAnAbsentCatalogue()
{
    m_folder->write(s("catalogue.sqlite"), QByteArray());
    OwnCatalogue own(path());
    QCOMPARE(own.open(), State::Absent);
    QVERIFY(own.problem().isEmpty());
    QVERIFY(own.entries().isEmpty());
    QCOMPARE(QFileInfo(path()).size(), 0);
    QVERIFY(CatalogueMerge(*m_database, path()).problem().isEmpty());
    QVERIFY(run(path(), {s("create table other (a)"), s("drop table other")}));
    QCOMPARE(own.open(), State::Absent);
    QCOMPARE(own.openOrMake(), State::Ready);
    QVERIFY(own.put({entry("A", "1")}));
    QCOMPARE(own.entries().size(), 1);
}

void TestOwnCatalogue::unusableFilesAreRefusedAndStay_data()
{
    QTest::addColumn<QStringList>("statements");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<State>("state");
    const QString table = debugcatalogue::createTable;
    QTest::newRow("no database") << QStringList() << QByteArray(5000, 'x') << State::Damaged;
    QTest::newRow("another table")
        << QStringList{s("create table Songs (a)")} << QByteArray() << State::Damaged;
    QTest::newRow("another program's")
        << QStringList{s("create table other (a)")} << QByteArray() << State::Damaged;
    QTest::newRow("a trigger")
        << QStringList{s("CREATE TABLE Songs (title varchar, artist varchar, genre varchar, author "
                         "varchar, length integer, bpm integer, key varchar, filename varchar "
                         "primary key, markers varchar, altartist varchar)"),
                       s("create trigger t after insert on Songs begin delete from Songs; end")}
        << QByteArray() << State::Damaged;
    QTest::newRow("a view") << QStringList{s("create view Songs as select 1 as title")}
                            << QByteArray() << State::Damaged;
    QTest::newRow("newer") << QStringList{table, s("pragma user_version = 2")} << QByteArray()
                           << State::Newer;
}

void TestOwnCatalogue::unusableFilesAreRefusedAndStay()
{
    QFETCH(QStringList, statements);
    QFETCH(QByteArray, bytes);
    QFETCH(State, state);
    if (statements.isEmpty())
        m_folder->write(s("catalogue.sqlite"), bytes);
    QVERIFY(statements.isEmpty() || run(path(), statements));
    QFile file(path());
    QVERIFY(file.open(QFile::ReadOnly));
    const QByteArray before = file.readAll();
    {
        OwnCatalogue own(path());
        QCOMPARE(own.open(), state);
        QVERIFY(!own.problem().isEmpty());
        QVERIFY(own.entries().isEmpty());
        QCOMPARE(own.openOrMake(), state);
        QVERIFY(!own.put({entry("A", "A")}));
    }
    QVERIFY(file.seek(0));
    QCOMPARE(file.readAll(), before);
}

void TestOwnCatalogue::unwritablePlaceIsSaid()
{
    const QString file = m_folder->write(s("file"), "x");
    OwnCatalogue own(file + s("/catalogue.sqlite"));
    QCOMPARE(own.openOrMake(), State::Unwritable);
    QVERIFY(!own.problem().isEmpty());
    QVERIFY(QDir(m_folder->path()).mkdir(s("catalogue.sqlite")));
    OwnCatalogue folder(path());
    QCOMPARE(folder.open(), State::Unreadable);
    QCOMPARE(folder.openOrMake(), State::Unreadable);
    const QString lost = m_folder->filePath(s("lost"));
    QVERIFY(QFile::link(s("/nowhere/at/all"), lost));
    QCOMPARE(OwnCatalogue(lost).open(), State::Absent);
    QCOMPARE(OwnCatalogue(lost).openOrMake(), State::Unwritable);
}

void TestOwnCatalogue::damagedPageOfEntriesIsSaid()
{
    QVERIFY(damagedcatalogue::write(path()));
    OwnCatalogue own(path());
    QCOMPARE(own.open(), State::Ready); // the first page is whole
    QVERIFY(own.entries().isEmpty());
    QCOMPARE(own.state(), State::Damaged);
    QVERIFY(!own.problem().isEmpty());
    QVERIFY(!own.put({entry("A", "A")}));
    OwnCatalogue asked(path());
    QCOMPARE(asked.open(), State::Ready);
    QVERIFY(asked.known({s("S1")}).isEmpty());
    QCOMPARE(asked.state(), State::Damaged);
    QVERIFY(!CatalogueMerge(*m_database, path()).problem().isEmpty());
}

void TestOwnCatalogue::strangeValuesOfARowMakeNoSense()
{
    {
        OwnCatalogue own(path());
        QCOMPARE(own.openOrMake(), State::Ready);
        QVERIFY(own.put({entry("GOOD", "good")}));
    }
    QVERIFY(run(path(),
                {s("insert into Songs (filename) values ('NOTITLE')"),
                 s("insert into Songs (title) values ('NO NAME')"),
                 s("insert into Songs (filename, title) values ('LONG', hex(zeroblob(2000000)))"),
                 s("insert into Songs values (x'410042', 1.5, null, x'ff', 'many', -7, 3, "
                   "'ODD', 'x;A;70000;B;5;C', 9e99)")}));
    OwnCatalogue own(path());
    QCOMPARE(own.open(), State::Ready);
    const QList<SongsDbRecord> entries = own.entries();
    QCOMPARE(entries.size(), 2);
    for (const SongsDbRecord &found : entries) {
        if (found.filename != s("ODD"))
            continue;
        QCOMPARE(found.length, -1);
        QCOMPARE(found.bpm, -1);
        QCOMPARE(markertexts::toText(found.markers), s("5;C;"));
    }
}

void TestOwnCatalogue::twoProgramsWriteOneCatalogue()
{
    OwnCatalogue one(path());
    OwnCatalogue other(path());
    QCOMPARE(one.openOrMake(), State::Ready);
    QCOMPARE(other.openOrMake(), State::Ready);
    QVERIFY(one.put({entry("A", "1")}));
    QVERIFY(other.put({entry("B", "2")}));
    QVERIFY(one.remove({s("B")}));
    QCOMPARE(allOf(other.entries()), allOf({entry("A", "1")}));
}

void TestOwnCatalogue::anotherProgramsLongWriteIsWaitedForAndRefused()
{
    OwnCatalogue own(path());
    QCOMPARE(own.openOrMake(), State::Ready);
    QVERIFY(own.put({entry("A", "1")}));
    const QString name = s("long");
    {
        QSqlDatabase file = QSqlDatabase::addDatabase(s("QSQLITE"), name);
        file.setDatabaseName(path());
        QVERIFY(file.open());
        QSqlQuery query(file);
        QVERIFY(query.exec(s("BEGIN EXCLUSIVE")));
        QVERIFY(!own.put({entry("B", "2")}));
        OwnCatalogue other(path());
        QCOMPARE(other.open(), State::InUse); // nobody may take it for damaged and delete it
        QVERIFY(!other.problem().isEmpty());
        QVERIFY(query.exec(s("ROLLBACK")));
        QCOMPARE(other.open(), State::Ready);
    }
    QSqlDatabase::removeDatabase(name);
    QVERIFY(own.put({entry("B", "2")}));
    QCOMPARE(own.entries().size(), 2);
}

void TestOwnCatalogue::ownEntryIsFoundBeforeTheBuiltInOne()
{
    const QString song = m_folder->midi(s("known.mid"), "other title");
    {
        OwnCatalogue own(path());
        QCOMPARE(own.openOrMake(), State::Ready);
        QVERIFY(own.put({entry("KNOWN", "MINE")}));
    }
    SongUpdate update(song);
    QVERIFY(update.load());
    QVERIFY(update.merge(CatalogueMerge(*m_database, path()), s("known.mid")));
    QCOMPARE(update.source(), CatalogueSource::Own);
    QCOMPARE(update.changes().constFirst().after, s("Me")); // the title stays
    const QString builtIn = m_folder->midi(s("x.mid"), "known title");
    SongUpdate second(builtIn);
    QVERIFY(second.load());
    QVERIFY(second.merge(CatalogueMerge(*m_database, path()), s("x.mid")));
    QCOMPARE(second.source(), CatalogueSource::BuiltIn);
}

void TestOwnCatalogue::ownTitleIsFoundInWhateverCase()
{
    {
        OwnCatalogue own(path());
        QCOMPARE(own.openOrMake(), State::Ready);
        QVERIFY(own.put({entry("X", "Für Elise")}));
    }
    const CatalogueMerge merge(*m_database, path());
    QVERIFY(merge.knows(s("FÜR elise"), s("any.mid")));
    QVERIFY(merge.knows(s("any"), s("x.MID")));
    QVERIFY(!merge.knows(s("any"), s("y.mid")));
    QVERIFY(!merge.knows(QString(), s(".mid")));
}

void TestOwnCatalogue::sharedTitleIsNotGuessed()
{
    {
        OwnCatalogue own(path());
        QCOMPARE(own.openOrMake(), State::Ready);
        QVERIFY(own.put({entry("A", "Twice"), entry("B", "TWICE"), entry("C", "twice")}));
    }
    const CatalogueMerge merge(*m_database, path());
    QVERIFY(!merge.knows(s("Twice"), s("any.mid")));
    QVERIFY(merge.knows(s("Twice"), s("b.mid")));
}

void TestOwnCatalogue::wildCardsMeanNothingInTheOwnCatalogue()
{
    {
        OwnCatalogue own(path());
        QCOMPARE(own.openOrMake(), State::Ready);
        QVERIFY(own.put({entry("MY SONG", "50% off")}));
    }
    const CatalogueMerge merge(*m_database, path());
    QVERIFY(!merge.knows(s("5_% off"), s("my_song.mid")));
    QVERIFY(merge.knows(s("50% OFF"), s("my_song.mid")));
}

void TestOwnCatalogue::absentAndEmptyCatalogueSayNothing()
{
    const QString song = m_folder->midi(s("known.mid"), "t");
    for (int round = 0; round < 2; ++round) {
        SongUpdate update(song);
        QVERIFY(update.load());
        const CatalogueMerge merge(*m_database, path());
        QVERIFY(merge.problem().isEmpty());
        QVERIFY(update.merge(merge, s("known.mid")));
        QCOMPARE(update.source(), CatalogueSource::Only);
        QVERIFY(ChangePreview::sourceName(update.source()).isEmpty());
        QCOMPARE(OwnCatalogue(path()).openOrMake(), State::Ready); // empty in the second round
    }
}

void TestOwnCatalogue::unusableCatalogueLeavesTheBuiltInOne()
{
    m_folder->write(s("catalogue.sqlite"), QByteArray(5000, 'x'));
    const CatalogueMerge merge(*m_database, path());
    QVERIFY(!merge.problem().isEmpty());
    QVERIFY(merge.knows(s("t"), s("known.mid")));
}

void TestOwnCatalogue::songAddedIsNotChangedByItsOwnEntry_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("MIDI") << s("a.mid");
    QTest::newRow("MP3") << s("a.mp3");
}

void TestOwnCatalogue::songAddedIsNotChangedByItsOwnEntry()
{
    QFETCH(QString, name);
    const QString path = name.endsWith(s("mp3")) ? m_folder->mp3(name, "Title; 100%")
                                                 : m_folder->midi(name, "Title; 100%");
    MetaSong song;
    QVERIFY(song.importFile(path));
    SongInfo info;
    song.getSongInfo(info);
    info.artist = s("Given Name");
    info.genre = s("Waltz");
    info.author = s("A - B");
    info.key = s("F#");
    info.userBpm = 120;
    info.length = 200;
    song.setSongInfo(info, true);
    QVERIFY(song.saveToFile(path));
    if (!name.endsWith(s("mp3"))) {
        SongInfo marked;
        MetaSong again;
        QVERIFY(again.importFile(path));
        again.getSongInfo(marked);
        marked.markers = {{1, s("Intro; %")}, {5, s("Verse")}};
        again.setSongInfo(marked, false);
        QVERIFY(again.saveToFile(path));
    }
    SongUpdate first(path);
    QVERIFY(first.load());
    SongInfo added = first.before();
    added.shortName = name;
    QCOMPARE(added.markers.isEmpty(), name.endsWith(s("mp3")));
    {
        OwnCatalogue own(this->path());
        QCOMPARE(own.openOrMake(), State::Ready);
        QVERIFY(own.put({OwnCatalogue::entryOf(added)}));
        QCOMPARE(markertexts::toText(own.entries().constFirst().markers),
                 markertexts::toText(added.markers));
    }
    SongUpdate update(path);
    QVERIFY(update.load());
    QVERIFY(update.merge(CatalogueMerge(*m_database, this->path()), name));
    QCOMPARE(update.source(), CatalogueSource::Own);
    QCOMPARE(update.changes().size(), 0);
}

QTEST_GUILESS_MAIN(TestOwnCatalogue)
#include "test_owncatalogue.moc"
