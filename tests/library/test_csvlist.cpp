// Song data from a list.
#include "library/csvlist.h"
#include "support/samplesongs.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

using Field = songfields::Field;
using Result = CsvList::Found::Result;

namespace
{

QString titleOf(const QByteArray &list, const char *path = "/m/volare.mid")
{
    const CsvList::Read read = CsvList::fromBytes(list);
    if (!read.problem.isEmpty())
        return QStringLiteral("problem: ") + read.problem;
    return read.list.find(QString::fromUtf8(path)).values.value(Field::Title);
}

} // namespace

class TestCsvList : public QObject
{
    Q_OBJECT

private slots:
    void listIsRead_data();
    void listIsRead();
    void hostileListIsRefused_data();
    void hostileListIsRefused();
    void longListIsRefusedInTime();
    void ourOwnListFindsSongsByTheirNames();
    void quotesInOurOwnListAreCharacters_data();
    void quotesInOurOwnListAreCharacters();
    void quotedCellMayHaveBlanksBehindIt();
    void rowWithASeparatorInItsTextIsLeftOut();
    void emptyCellsSayNothing();
    void nameThatStandsTwiceNeedsItsFolder();
    void everyFieldHasAColumn();
    void listThatIsNoFileIsNamed();
};

void TestCsvList::listIsRead_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::addColumn<QString>("title");
    const QString title = QStringLiteral("Perché no; \"sì\"");
    QTest::newRow("own list") << QByteArray("TITOLO;ARTISTA;GENERE;FILE;\n"
                                            "VOLARE;MINA;POP;/songs/VOLARE.MID;\n")
                              << "VOLARE";
    QTest::newRow("comma") << QByteArray("Title,File name\nVolare,volare.mid\n") << "Volare";
    QTest::newRow("tab") << QByteArray("Dateiname\tTitel\nvolare.mid\tVolare") << "Volare";
    QTest::newRow("no end of line") << QByteArray("file;title\nvolare.mid;Volare") << "Volare";
    QTest::newRow("CRLF") << QByteArray("file;title\r\nvolare.mid;Volare\r\n") << "Volare";
    QTest::newRow("CR") << QByteArray("file;title\rvolare.mid;Volare\r") << "Volare";
    QTest::newRow("empty lines") << QByteArray("\n\nfile;title\n\n\nvolare.mid;Volare\n\n")
                                 << "Volare";
    QTest::newRow("quotes")
        << QByteArray("file;title\nvolare.mid;\"Perch\xC3\xA9 no; \"\"s\xC3\xAC\"\"\"\n") << title;
    QTest::newRow("Latin-1") << QByteArray(
                                    "file;title\nvolare.mid;\"Perch\xE9 no; \"\"s\xEC\"\"\"\n")
                             << title;
    QTest::newRow("byte order mark")
        << QByteArray("\xEF\xBB\xBF"
                      "file;title\nvolare.mid;\"Perch\xC3\xA9 no; \"\"s\xC3\xAC\"\"\"\n")
        << title;
    QTest::newRow("UTF-16") << QByteArray("\xFF\xFE"
                                          "f\0i\0l\0e\0\t\0t\0i\0t\0l\0e\0\n\0v\0o\0l\0a\0r\0e\0"
                                          ".\0m\0i\0d\0\t\0V\0\xE9\0\n\0",
                                          52)
                            << QStringLiteral("Vé");
    QTest::newRow("line break in quotes")
        << QByteArray("file;title\nvolare.mid;\"Vo\nlare\"\n") << "Vo\nlare";
    QTest::newRow("quote in the middle")
        << QByteArray("file;title\nvolare.mid;7\" mix\n") << "7\" mix";
    QTest::newRow("blanks around")
        << QByteArray("file ; title\n volare.mid ; Volare \n") << "Volare";
    QTest::newRow("Windows path") << QByteArray("file;title\nC:\\Songs\\Volare.mid;Volare\n")
                                  << "Volare";
    QTest::newRow("other columns")
        << QByteArray("x;title;y;file\n1;Volare;2;volare.mid\n") << "Volare";
    QTest::newRow("short rows") << QByteArray("title;file\nx\nVolare;volare.mid\n") << "Volare";
    QTest::newRow("zero bytes") << QByteArray("file;title\nvolare.mid;Vo\0lare\n", 29)
                                << QString::fromLatin1("Vo\0lare", 7);
}

void TestCsvList::listIsRead()
{
    QFETCH(QByteArray, list);
    QFETCH(QString, title);
    QCOMPARE(titleOf(list), title);
}

void TestCsvList::hostileListIsRefused_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("only line breaks") << QByteArray("\n\r\n\n");
    QTest::newRow("no column of files") << QByteArray("title;artist\na;b\n");
    QTest::newRow("no data") << QByteArray("file;colour\na.mid;red\n");
    QTest::newRow("quote without an end") << QByteArray("file;title\n\"a.mid;b\n");
    QTest::newRow("text behind a closing quote")
        << QByteArray("file;title\nb.mid;\"Heroes\na.mid;My \"Way\n");
    QTest::newRow("quoted word") << QByteArray("file;title\na.mid;\"Heroes\" live\n");
    QTest::newRow("quote behind a closing quote and a blank")
        << QByteArray("file;title\na.mid;\"Heroes\" \"live\"\n");
    QTest::newRow("columns of others, closed by a separator")
        << QByteArray("title;file;\n\"Heroes;b.mid;\nMy \"Way;a.mid;\n");
    QTest::newRow("huge cell") << "file;title\na.mid;" + QByteArray(5000, 'x');
    QTest::newRow("many columns") << "file;title" + QByteArray(100, ';');
    QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
}

void TestCsvList::hostileListIsRefused()
{
    QFETCH(QByteArray, list);
    const CsvList::Read read = CsvList::fromBytes(list);
    QVERIFY(!read.problem.isEmpty());
    QCOMPARE(read.list.rows(), 0);
}

void TestCsvList::longListIsRefusedInTime()
{
    QElapsedTimer timer;
    timer.start();
    const QByteArray rows = "file;title\n" + QByteArray("a;b\n").repeated(CsvList::maxRows + 10);
    QVERIFY(!CsvList::fromBytes(rows).problem.isEmpty());
    const QByteArray bytes = "file;title\n" + QByteArray(CsvList::maxBytes, '\n');
    QVERIFY(!CsvList::fromBytes(bytes).problem.isEmpty());
    QVERIFY2(timer.elapsed() < 60000, "the list took too long");
}

void TestCsvList::ourOwnListFindsSongsByTheirNames()
{
    const CsvList::Read read = CsvList::fromBytes("TITLE;ARTIST;GENRE;FILE;\n"
                                                  "VOLARE;MINA;POP;/songs/VOLARE.MID;\n");
    QCOMPARE(read.problem, QString());
    QCOMPARE(read.list.rows(), 1);
    const CsvList::Found found = read.list.find(QStringLiteral("/home/anna/Volare.mid"));
    QVERIFY(found.result == Result::Row);
    QCOMPARE(found.values.value(Field::Artist), QStringLiteral("MINA"));
    QCOMPARE(found.values.value(Field::Genre), QStringLiteral("POP"));
    QVERIFY(read.list.find(QStringLiteral("/m/other.mid")).result == Result::Missing);
}

void TestCsvList::quotesInOurOwnListAreCharacters_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("Italian") << QByteArray("TITOLO;ARTISTA;GENERE;FILE;\n");
    QTest::newRow("English") << QByteArray("TITLE;ARTIST;GENRE;FILE;\n");
    QTest::newRow("German") << QByteArray("TITEL;INTERPRET;MUSIKRICHTUNG;DATEI;\n");
    QTest::newRow("CRLF") << QByteArray("TITLE;ARTIST;GENRE;FILE;\r\n");
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBFTITLE;ARTIST;GENRE;FILE;\n");
    QTest::newRow("empty line") << QByteArray("\nTITLE;ARTIST;GENRE;FILE;\n");
}

void TestCsvList::quotesInOurOwnListAreCharacters()
{
    QFETCH(QByteArray, header);
    const CsvList::Read read = CsvList::fromBytes(header + "\"Heroes;Bowie;Pop;/x/a.mid;\n"
                                                           "My \"Way;Sinatra;Swing;/x/b.mid;\n"
                                                           "\"Who\" live;A \"\"B;;/x/c.mid;\n");
    QCOMPARE(read.problem, QString());
    QCOMPARE(read.list.rows(), 3);
    const CsvList::Found heroes = read.list.find(QStringLiteral("/m/a.mid"));
    QCOMPARE(heroes.values.value(Field::Title), QStringLiteral("\"Heroes"));
    QCOMPARE(heroes.values.value(Field::Artist), QStringLiteral("Bowie"));
    QCOMPARE(heroes.values.value(Field::Genre), QStringLiteral("Pop"));
    const CsvList::Found way = read.list.find(QStringLiteral("/m/b.mid"));
    QCOMPARE(way.values.value(Field::Title), QStringLiteral("My \"Way"));
    QCOMPARE(way.values.value(Field::Artist), QStringLiteral("Sinatra"));
    const CsvList::Found who = read.list.find(QStringLiteral("/m/c.mid"));
    QCOMPARE(who.values.value(Field::Title), QStringLiteral("\"Who\" live"));
    QCOMPARE(who.values.value(Field::Artist), QStringLiteral("A \"\"B"));
}

void TestCsvList::quotedCellMayHaveBlanksBehindIt()
{
    QCOMPARE(titleOf("title;file\n\"Vo;lare\"  ;\"volare.mid\" \r\n"), QStringLiteral("Vo;lare"));
    QCOMPARE(titleOf("title\tfile\n\"Volare\"\t\"volare.mid\""), QStringLiteral("Volare"));
}

void TestCsvList::rowWithASeparatorInItsTextIsLeftOut()
{
    const CsvList::Read read = CsvList::fromBytes("TITLE;ARTIST;GENRE;FILE;\n"
                                                  "VO;LARE;MINA;POP;/songs/VOLARE.MID;\n"
                                                  "AIDA;VERDI;OPERA;/songs/AIDA.MID;\n");
    QCOMPARE(read.list.rows(), 1);
    QVERIFY(read.list.find(QStringLiteral("/m/volare.mid")).result == Result::Missing);
    QVERIFY(read.list.find(QStringLiteral("/m/aida.mid")).result == Result::Row);
}

void TestCsvList::emptyCellsSayNothing()
{
    const CsvList::Read read = CsvList::fromBytes("file;title;artist\na.mid;;Mina\n");
    const CsvList::Found found = read.list.find(QStringLiteral("/m/a.mid"));
    QVERIFY(!found.values.contains(Field::Title));
    QCOMPARE(found.values.value(Field::Artist), QStringLiteral("Mina"));
}

void TestCsvList::nameThatStandsTwiceNeedsItsFolder()
{
    const CsvList::Read read = CsvList::fromBytes("file;title\n/pop/a.mid;Pop\n/rock/a.mid;Rock\n"
                                                  "b.mid;Same\nx/b.mid;Same\n");
    const auto find = [&read](const char *path) { return read.list.find(QString::fromUtf8(path)); };
    QCOMPARE(find("/m/rock/a.mid").values.value(Field::Title), QStringLiteral("Rock"));
    QVERIFY(find("/m/jazz/a.mid").result == Result::Ambiguous);
    QVERIFY(find("/m/hardrock/a.mid").result == Result::Ambiguous);
    QCOMPARE(find("/m/y/b.mid").values.value(Field::Title), QStringLiteral("Same"));
}

void TestCsvList::everyFieldHasAColumn()
{
    const CsvList::Read read = CsvList::fromBytes("file;title;artist;genre;author;length;bpm;key\n"
                                                  "a.mid;T;A;G;W;3:05;128;F#\n");
    QCOMPARE(read.list.fields(), songfields::all());
    QCOMPARE(read.list.find(QStringLiteral("a.mid")).values.size(), songfields::all().size());
}

void TestCsvList::listThatIsNoFileIsNamed()
{
    const QTemporaryDir folder;
    QVERIFY(!CsvList::fromFile(folder.path()).problem.isEmpty());
    QVERIFY(!CsvList::fromFile(folder.filePath(QStringLiteral("none.csv"))).problem.isEmpty());
    const QString path = folder.filePath(QStringLiteral("list.csv"));
    QVERIFY(samplesongs::writeFile(path, "file;title\na.mid;Volare\n"));
    const CsvList::Read read = CsvList::fromFile(path);
    QCOMPARE(read.problem, QString());
    QCOMPARE(read.list.rows(), 1);
}

QTEST_GUILESS_MAIN(TestCsvList)
#include "test_csvlist.moc"
