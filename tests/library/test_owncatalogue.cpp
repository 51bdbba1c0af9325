// The user's own catalogue: its file, its entries, what a lookup makes of them, and its tables.
#include "formats/metasong.h"
#include "library/cataloguemerge.h"
#include "library/cataloguetsv.h"
#include "library/changepreview.h"
#include "library/markertexts.h"
#include "library/owncatalogue.h"
#include "library/songupdate.h"
#include "support/catalogue.h"
#include "support/scratchfolder.h"
#include "support/shorttext.h"
#include "support/songfolder.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

namespace
{

using State = OwnCatalogue::State;

SongsDbRecord entry(const char *filename, const char *title)
{
    SongsDbRecord made;
    made.filename = s(filename);
    made.title = s(title);
    made.artist = s("Me");
    made.altartist = s("Me");
    made.genre = s("OWN");
    made.author = s("Myself");
    made.length = 61;
    made.bpm = 99;
    made.key = s("A-");
    made.markers = {{1, s("Intro")}, {9, s("Verse")}};
    return made;
}

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

QString described(const SongsDbRecord &record)
{
    return QStringList{record.title,
                       record.artist,
                       record.altartist,
                       record.genre,
                       record.author,
                       QString::number(record.length),
                       QString::number(record.bpm),
                       record.key,
                       record.filename,
                       markertexts::toText(record.markers)}
        .join(QLatin1Char('|'));
}

QStringList allOf(const QList<SongsDbRecord> &records)
{
    QStringList texts;
    for (const SongsDbRecord &record : records)
        texts.append(described(record));
    return texts;
}

} // namespace

class TestOwnCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void absentCatalogueIsNotMade();
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

    void markersComeBackAsTheyStandInTheSong();
    void tableComesBackAsItWas();
    void tableOfTheBuiltInCatalogueIsRead();
    void columnsAreFoundByTheirNames();
    void strangeLinesAreNamed_data();
    void strangeLinesAreNamed();
    void endlessTableIsCutAndSaysSo();

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
        QVERIFY(query.exec(s("ROLLBACK")));
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

void TestOwnCatalogue::markersComeBackAsTheyStandInTheSong()
{
    const QList<Marker> markers{{0, s("A;B")},   {65535, s("100%")}, {3, QString()},
                                {4, s(" %3B ")}, {5, s("%")},        {6, s("%25")}};
    const QList<Marker> back = markertexts::fromText(markertexts::toText(markers));
    QCOMPARE(back.size(), markers.size());
    for (qsizetype i = 0; i < back.size(); ++i) {
        QCOMPARE(back.at(i).bar, markers.at(i).bar);
        QCOMPARE(back.at(i).text, markers.at(i).text);
    }
    QCOMPARE(markertexts::toText({{1, s("Intro")}, {19, s("Verse1")}}), s("1;Intro;19;Verse1;"));
}

void TestOwnCatalogue::tableComesBackAsItWas()
{
    SongsDbRecord odd = entry("ODD", "tab\there \\t backslash\\");
    odd.author = s("two\nlines\rand ü");
    odd.length = -1;
    odd.bpm = -1;
    odd.markers = {{1, s("a;\tb")}};
    const QList<SongsDbRecord> all{entry("A", "1"), odd};
    const QByteArray text = CatalogueTsv::text(all);
    for (const QByteArray &form :
         {text, "\xEF\xBB\xBF" + text, QByteArray(text).replace("\n", "\r\n")}) {
        const CatalogueTsv table = CatalogueTsv::parse(form);
        QCOMPARE(table.problems, QStringList());
        QCOMPARE(allOf(table.entries), allOf(all));
    }
}

void TestOwnCatalogue::tableOfTheBuiltInCatalogueIsRead()
{
    const CatalogueTsv table = CatalogueTsv::parse(
        "title\tartist\tgenre\tauthor\tlength\tbpm\tkey\tfilename\tmarkers\taltartist\n"
        "A SONG\tME\tPOP\tYOU\t238\t132\tEb\tASONG\t1;Intro;9;Verse1;\tMe\n"
        "B SONG\tME\tPOP\tYOU\t238\t132\tEb\tBSONG\tNULL\tMe\n");
    QCOMPARE(table.problems, QStringList());
    QCOMPARE(allOf(table.entries),
             (QStringList{s("A SONG|ME|Me|POP|YOU|238|132|Eb|ASONG|1;Intro;9;Verse1;"),
                          s("B SONG|ME|Me|POP|YOU|238|132|Eb|BSONG|")}));
}

void TestOwnCatalogue::columnsAreFoundByTheirNames()
{
    const CatalogueTsv table = CatalogueTsv::parse(
        "filename\ttitle\textra\tartist\tgenre\tauthor\tlength\tbpm\tkey\tmarkers\taltartist\n"
        "a\tT\tX\tR\tG\tU\t\t\tC\t\tL\n");
    QCOMPARE(allOf(table.entries), QStringList{s("T|R|L|G|U|-1|-1|C|A|")});
    // Without names the columns stand in their order; of two with one file name the last counts.
    const CatalogueTsv plain =
        CatalogueTsv::parse("T\tR\tG\tU\t1\t2\tC\tA\t\tL\nSecond\t\t\t\t\t\t\ta\t\t");
    QCOMPARE(allOf(plain.entries), QStringList{s("Second|||||-1|-1||A|")});
}

void TestOwnCatalogue::strangeLinesAreNamed_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("too few cells") << QByteArray("T\tR\tG");
    QTest::newRow("no title") << QByteArray("\tR\tG\tU\t1\t2\tC\tX\t\tL");
    QTest::newRow("no name") << QByteArray("T\tR\tG\tU\t1\t2\tC\t\t\tL");
    QTest::newRow("length is a word") << QByteArray("T\tR\tG\tU\tlong\t2\tC\tX\t\tL");
    QTest::newRow("tempo beyond numbers") << QByteArray("T\tR\tG\tU\t1\t99999999999\tC\tX\t\tL");
    QTest::newRow("negative") << QByteArray("T\tR\tG\tU\t-5\t2\tC\tX\t\tL");
    QTest::newRow("zero byte") << QByteArray("T\tR\tG\tU\t1\t2\tC\tX\0Y\t\tL", 21);
    QTest::newRow("huge cell") << QByteArray(2000, 'T') + "\tR\tG\tU\t1\t2\tC\tX\t\tL";
    QTest::newRow("huge line") << QByteArray(20 << 20, 'T');
    QTest::newRow("only tabs") << QByteArray(100, '\t') + "x";
}

void TestOwnCatalogue::strangeLinesAreNamed()
{
    QFETCH(QByteArray, line);
    const QByteArray good = "T\tR\tG\tU\t1\t2\tC\tGOOD\t\tL\n";
    const CatalogueTsv table = CatalogueTsv::parse("\n" + line + "\n" + good);
    QCOMPARE(allOf(table.entries), QStringList{s("T|R|L|G|U|1|2|C|GOOD|")});
    QCOMPARE(table.problems.size(), 1);
    QVERIFY2(table.problems.constFirst().startsWith(s("riga 2:")),
             qPrintable(table.problems.constFirst()));
}

void TestOwnCatalogue::endlessTableIsCutAndSaysSo()
{
    QByteArray text;
    for (int line = 0; line <= OwnCatalogue::mostEntries; ++line)
        text += "T\tR\tG\tU\t1\t2\tC\t" + QByteArray::number(line) + "\t\tL\n";
    const CatalogueTsv table = CatalogueTsv::parse(text);
    QCOMPARE(table.entries.size(), OwnCatalogue::mostEntries);
    QCOMPARE(table.problems.size(), 1);
    const CatalogueTsv bad = CatalogueTsv::parse(QByteArray(1 << 20, 'x').replace("xx", "x\n"));
    QCOMPARE(bad.problems.size(), CatalogueTsv::mostProblems);
}

QTEST_GUILESS_MAIN(TestOwnCatalogue)
#include "test_owncatalogue.moc"
