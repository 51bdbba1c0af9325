// How songs of several folders are told apart in messages.
#include "devindex/shownnames.h"
#include "support/shorttext.h"

#include <QTest>

class TestShownNames : public QObject
{
    Q_OBJECT

private slots:
    void shortestNameThatTellsThemApart_data();
    void shortestNameThatTellsThemApart();
    void wholeMemoryOfOneName();
};

void TestShownNames::shortestNameThatTellsThemApart_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QString>("name");
    const QString song = s("/music/Pop/x.mid");
    QTest::newRow("alone") << QStringList(song) << song << s("x.mid");
    QTest::newRow("listed twice") << QStringList({song, song}) << song << s("x.mid");
    QTest::newRow("others") << QStringList({song, s("/music/Pop/y.mid")}) << song << s("x.mid");
    QTest::newRow("same name elsewhere")
        << QStringList({song, s("/music/Rock/x.mid")}) << song << s("Pop/x.mid");
    QTest::newRow("in another case")
        << QStringList({song, s("/music/Rock/X.MID")}) << song << s("Pop/x.mid");
    QTest::newRow("folder of the same name, too")
        << QStringList({song, s("/more/pop/x.mid")}) << song << song;
    QTest::newRow("not of the list")
        << QStringList(song) << s("/more/Rock/x.mid") << s("Rock/x.mid");
    QTest::newRow("no list") << QStringList() << song << s("x.mid");
    QTest::newRow("no folder") << QStringList({s("x.mid"), song}) << s("x.mid") << s("x.mid");
}

void TestShownNames::shortestNameThatTellsThemApart()
{
    QFETCH(QStringList, paths);
    QFETCH(QString, asked);
    QTEST(ShownNames(paths).of(asked), "name");
}

/** As many as a memory holds: each is found without a look at all the others. */
void TestShownNames::wholeMemoryOfOneName()
{
    QStringList paths;
    for (int i = 0; i < 65535; ++i)
        paths.append(s("/music/%1/x.mid").arg(i));
    const ShownNames names(paths);
    for (int i = 0; i < paths.size(); ++i)
        QCOMPARE(names.of(paths.at(i)), s("%1/x.mid").arg(i));
}

QTEST_GUILESS_MAIN(TestShownNames)
#include "test_shownnames.moc"
