// Patterns over file names.
#include "library/namepattern.h"

#include <QElapsedTimer>
#include <QTest>

using Field = songfields::Field;
using Use = NamePattern::Use;

class TestNamePattern : public QObject
{
    Q_OBJECT

private slots:
    void nameIsTakenApart_data();
    void nameIsTakenApart();
    void nameThatDoesNotFitIsRefused_data();
    void nameThatDoesNotFitIsRefused();
    void badPatternIsNamed_data();
    void badPatternIsNamed();
    void nameIsMade();
    void songWithoutTheItemGetsNoName();
    void hostilePatternDoesNotHang();
    void fieldsStandInTheirOrder();
};

void TestNamePattern::nameIsTakenApart_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("values"); // title, artist, genre, author, bpm, key
    const auto row = [](const char *name, const char *pattern, const char *path,
                        const char *values) {
        QTest::newRow(name) << QString::fromUtf8(pattern) << QString::fromUtf8(path)
                            << QString::fromUtf8(values).split(QLatin1Char('|'));
    };
    row("track", "%track - %artist - %title", "/m/01 - Mina - Volare.mid", "Volare|Mina||||");
    row("folders", "%genre/%artist/%title", "/m/Pop/Mina/Volare.mp3", "Volare|Mina|Pop|||");
    row("folder at the root", "%artist/%title", "/Mina/Volare.mp3", "Volare|Mina||||");
    row("separator twice", "%artist - %title", "/m/Mina - Volare - Live.mid",
        "Volare - Live|Mina||||");
    row("dots in the name", "%artist - %title", "/m/R.E.M. - Mr. X.mid", "Mr. X|R.E.M.||||");
    row("literals", "%title (%artist)", "/m/Volare (Mina).mid", "Volare|Mina||||");
    row("case of literals", "%artist BY %title", "/m/A by B.mid", "B|A||||");
    row("percent", "%title 100%%", "/m/Volare 100%.mid", "Volare|||||");
    row("any", "%any - %title", "/m/xx - Volare.mid", "Volare|||||");
    row("key and tempo", "%title [%key %bpm]", "/m/Volare [F# 128].mid", "Volare||||128|F#");
    row("author", "%author_%title", "/m/Verdi_Aida.mid", "Aida|||Verdi||");
    row("blanks around", "%artist-%title", "/m/Mina - Volare.mid", "Volare|Mina||||");
    row("not Latin-1", "%artist - %title", "/m/Кино - Звезда.mid", "Звезда|Кино||||");
    row("beyond 16 bits", "%title", "/m/\xF0\x9F\x8E\xB5.mid", "\xF0\x9F\x8E\xB5|||||");
    row("no suffix", "%title", "/m/Volare", "Volare|||||");
    row("line break", "%artist - %title", "/m/A\nB - C.mid", "C|A\nB||||");
}

void TestNamePattern::nameIsTakenApart()
{
    QFETCH(QString, pattern);
    QFETCH(QString, path);
    QFETCH(QStringList, values);
    QCOMPARE(NamePattern::problemOf(pattern, Use::ReadNames), QString());
    const auto read = NamePattern::parse(pattern, Use::ReadNames)->read(path);
    QVERIFY(read);
    const QList<Field> fields{Field::Title,  Field::Artist, Field::Genre,
                              Field::Author, Field::Tempo,  Field::Key};
    for (qsizetype i = 0; i < fields.size(); ++i)
        QCOMPARE(read->value(fields.at(i)), values.at(i));
}

void TestNamePattern::nameThatDoesNotFitIsRefused_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("path");
    QTest::newRow("no separator") << "%artist - %title"
                                  << "/m/Volare.mid";
    QTest::newRow("track is no number") << "%track - %title"
                                        << "/m/A - Volare.mid";
    QTest::newRow("empty field") << "%artist - %title"
                                 << "/m/ - Volare.mid";
    QTest::newRow("only a blank") << "%artist- %title"
                                  << "/m/ - Volare.mid";
    QTest::newRow("too few folders") << "%genre/%artist/%title"
                                     << "/Mina/Volare.mid";
    QTest::newRow("relative") << "%genre/%artist/%title"
                              << "Volare.mid";
    QTest::newRow("empty name") << "%title"
                                << "/m/.mid";
    QTest::newRow("text behind") << "%title!"
                                 << "/m/Volare.mid";
}

void TestNamePattern::nameThatDoesNotFitIsRefused()
{
    QFETCH(QString, pattern);
    QFETCH(QString, path);
    const auto parsed = NamePattern::parse(pattern, Use::ReadNames);
    QVERIFY(parsed);
    QVERIFY(!parsed->read(path));
}

void TestNamePattern::badPatternIsNamed_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<int>("use");
    const int reads = static_cast<int>(Use::ReadNames);
    const int makes = static_cast<int>(Use::MakeNames);
    QTest::newRow("empty") << "" << reads;
    QTest::newRow("blank") << "  " << makes;
    QTest::newRow("no field") << "abc" << reads;
    QTest::newRow("only a track") << "%track" << reads;
    QTest::newRow("unknown field") << "%titel" << reads;
    QTest::newRow("lonely percent") << "50% %title" << reads;
    QTest::newRow("length") << "%length" << reads;
    QTest::newRow("two fields without a text") << "%artist%title" << reads;
    QTest::newRow("field twice") << "%title - %title" << reads;
    QTest::newRow("name to be read") << "%name" << reads;
    QTest::newRow("track to be made") << "%track - %title" << makes;
    QTest::newRow("folder to be made") << "%artist/%title" << makes;
    QTest::newRow("too long") << QString(300, QLatin1Char('x')) + QStringLiteral("%title") << reads;
}

void TestNamePattern::badPatternIsNamed()
{
    QFETCH(QString, pattern);
    QFETCH(int, use);
    QVERIFY(!NamePattern::problemOf(pattern, static_cast<Use>(use)).isEmpty());
    QVERIFY(!NamePattern::parse(pattern, static_cast<Use>(use)));
}

void TestNamePattern::nameIsMade()
{
    SongInfo info;
    info.title = QStringLiteral("Volare");
    info.artist = QStringLiteral("AC/DC");
    info.userBpm = 128;
    const auto made = [&info](const char *pattern) {
        return NamePattern::parse(QString::fromUtf8(pattern), Use::MakeNames)
            ->make(info, QStringLiteral("/m/old.name.mid"));
    };
    QCOMPARE(made("%artist - %title"), QStringLiteral("AC/DC - Volare"));
    QCOMPARE(made("%title%bpm 100%%"), QStringLiteral("Volare128 100%"));
    QCOMPARE(made("%name (%title)"), QStringLiteral("old.name (Volare)"));
}

void TestNamePattern::songWithoutTheItemGetsNoName()
{
    SongInfo info;
    info.title = QStringLiteral("Volare");
    QVERIFY(!NamePattern::parse(QStringLiteral("%artist - %title"), Use::MakeNames)
                 ->make(info, QStringLiteral("/m/a.mid")));
}

void TestNamePattern::hostilePatternDoesNotHang()
{
    // Each text could end at every "-": without a memory of what failed this takes for ever.
    QString pattern = QStringLiteral("%title");
    for (int i = 0; i < 40; ++i)
        pattern += QStringLiteral("-%any");
    pattern += QStringLiteral("-b");
    QVERIFY(pattern.size() <= NamePattern::maxLength);
    const QString path =
        QStringLiteral("/m/") + QString(250, QLatin1Char('-')) + QStringLiteral("c");
    QElapsedTimer timer;
    timer.start();
    const auto parsed = NamePattern::parse(pattern, Use::ReadNames);
    QVERIFY2(parsed, qPrintable(NamePattern::problemOf(pattern, Use::ReadNames)));
    QVERIFY(!parsed->read(path));
    QVERIFY2(timer.elapsed() < 5000, "the pattern took too long");
}

void TestNamePattern::fieldsStandInTheirOrder()
{
    const auto pattern = NamePattern::parse(QStringLiteral("%genre/%any %title"), Use::ReadNames);
    QCOMPARE(pattern->fields(), QList<Field>({Field::Genre, Field::Title}));
}

QTEST_GUILESS_MAIN(TestNamePattern)
#include "test_namepattern.moc"
