// Markers and tables of catalogue entries: what was written comes back, what is none is named.
#include "library/cataloguetsv.h"
#include "library/owncatalogue.h"
#include "support/catalogueentries.h"

#include <QTemporaryDir>
#include <QTest>

using namespace catalogueentries;

class TestCatalogueTsv : public QObject
{
    Q_OBJECT

private slots:
    void markersComeBackAsTheyStandInTheSong();
    void tableComesBackAsItWas();
    void tableOfTheBuiltInCatalogueIsRead();
    void columnsAreFoundByTheirNames();
    void strangeLinesAreNamed_data();
    void strangeLinesAreNamed();
    void valuesThatASongCanHaveAreRead();
    void everyEntryCanBeExportedAndImported();
    void endlessTableIsCutAndSaysSo();
};

void TestCatalogueTsv::markersComeBackAsTheyStandInTheSong()
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

void TestCatalogueTsv::tableComesBackAsItWas()
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

void TestCatalogueTsv::tableOfTheBuiltInCatalogueIsRead()
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

void TestCatalogueTsv::columnsAreFoundByTheirNames()
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

void TestCatalogueTsv::strangeLinesAreNamed_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("too few cells") << QByteArray("T\tR\tG");
    QTest::newRow("no title") << QByteArray("\tR\tG\tU\t1\t2\tC\tX\t\tL");
    QTest::newRow("no name") << QByteArray("T\tR\tG\tU\t1\t2\tC\t\t\tL");
    QTest::newRow("length is a word") << QByteArray("T\tR\tG\tU\tlong\t2\tC\tX\t\tL");
    QTest::newRow("tempo beyond numbers") << QByteArray("T\tR\tG\tU\t1\t99999999999\tC\tX\t\tL");
    QTest::newRow("negative") << QByteArray("T\tR\tG\tU\t-5\t2\tC\tX\t\tL");
    QTest::newRow("too long") << QByteArray("T\tR\tG\tU\t6000\t2\tC\tX\t\tL");
    QTest::newRow("too fast") << QByteArray("T\tR\tG\tU\t1\t1000\tC\tX\t\tL");
    QTest::newRow("no key") << QByteArray("T\tR\tG\tU\t1\t2\tH\tX\t\tL");
    QTest::newRow("no markers") << QByteArray("T\tR\tG\tU\t1\t2\tC\tX\tIntro\tL");
    QTest::newRow("bars beyond numbers") << QByteArray("T\tR\tG\tU\t1\t2\tC\tX\t99999;Intro;\tL");
    QTest::newRow("zero byte") << QByteArray("T\tR\tG\tU\t1\t2\tC\tX\0Y\t\tL", 21);
    QTest::newRow("huge cell") << QByteArray(2000, 'T') + "\tR\tG\tU\t1\t2\tC\tX\t\tL";
    QTest::newRow("huge line") << QByteArray(20 << 20, 'T');
    QTest::newRow("only tabs") << QByteArray(100, '\t') + "x";
}

void TestCatalogueTsv::strangeLinesAreNamed()
{
    QFETCH(QByteArray, line);
    const QByteArray good = "T\tR\tG\tU\t1\t2\tC\tGOOD\t\tL\n";
    const CatalogueTsv table = CatalogueTsv::parse("\n" + line + "\n" + good);
    QCOMPARE(allOf(table.entries), QStringList{s("T|R|L|G|U|1|2|C|GOOD|")});
    QCOMPARE(table.problems.size(), 1);
    QVERIFY2(table.problems.constFirst().startsWith(s("riga 2:")),
             qPrintable(table.problems.constFirst()));
}

void TestCatalogueTsv::valuesThatASongCanHaveAreRead()
{
    const CatalogueTsv table = CatalogueTsv::parse("T\tR\tG\tU\t5999\t999\tA -\tA\t \tL\n"
                                                   "T\tR\tG\tU\t0\t0\tNULL\tB\t1;Intro;\tL\n");
    QCOMPARE(table.problems, QStringList());
    QCOMPARE(allOf(table.entries),
             (QStringList{s("T|R|L|G|U|5999|999|A-|A|"), s("T|R|L|G|U|0|0||B|1;Intro;")}));
}

/** What the table for other people refuses is in no entry, wherever the entry comes from. */
void TestCatalogueTsv::everyEntryCanBeExportedAndImported()
{
    SongInfo song;
    song.title = s("T");
    song.shortName = s("long.mp3");
    song.length = 7200;
    song.userBpm = 1500;
    song.key = s("8A");
    SongInfo other = song;
    other.shortName = s("other.mp3");
    other.length = 5999;
    other.userBpm = 999;
    other.key = s("F#m");
    SongsDbRecord strange = entry("STRANGE", "T");
    strange.length = 6000;
    strange.bpm = 1000;
    strange.key = s("H");
    const QTemporaryDir folder;
    OwnCatalogue own(folder.filePath(s("catalogue.sqlite")));
    QCOMPARE(own.openOrMake(), OwnCatalogue::State::Ready);
    QVERIFY(own.put({OwnCatalogue::entryOf(song), OwnCatalogue::entryOf(other), strange}));
    const QList<SongsDbRecord> entries = own.entries();
    QCOMPARE(allOf(entries),
             (QStringList{s("T|||||-1|-1||LONG|"), s("T|||||5999|999|F#m|OTHER|"),
                          s("T|Me|Me|OWN|Myself|-1|-1||STRANGE|1;Intro;9;Verse;")}));
    const CatalogueTsv table = CatalogueTsv::parse(CatalogueTsv::text(entries));
    QCOMPARE(table.problems, QStringList());
    QCOMPARE(allOf(table.entries), allOf(entries));
}

void TestCatalogueTsv::endlessTableIsCutAndSaysSo()
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

QTEST_GUILESS_MAIN(TestCatalogueTsv)
#include "test_cataloguetsv.moc"
