// The steps that make new data for many songs.
#include "formats/songstandin.h"
#include "library/editstep.h"

#include <QElapsedTimer>
#include <QTest>

using Field = songfields::Field;
using Kind = EditStep::LetterCase::Kind;
using Outcome = EditStep::Outcome;

namespace
{

SongInfo song(const char *title, const char *artist = "Mina")
{
    SongInfo info;
    info.title = QString::fromUtf8(title);
    info.artist = QString::fromUtf8(artist);
    info.genre = QStringLiteral("POP");
    info.author = QStringLiteral("Modugno");
    info.length = 185;
    info.userBpm = 128;
    info.key = QStringLiteral("F#");
    return info;
}

const QString path = QStringLiteral("/m/Pop/01 - Mina - Volare.mid");

QString titleAfter(const EditStep &step, const char *title)
{
    SongInfo info = song(title);
    step.apply(info, path);
    return info.title;
}

EditStep replace(const char *from, const char *to, bool isRegex, bool heedsCase = true)
{
    return EditStep(EditStep::Replace{
        {Field::Title}, QString::fromUtf8(from), QString::fromUtf8(to), isRegex, heedsCase});
}

} // namespace

class TestEditStep : public QObject
{
    Q_OBJECT

private slots:
    void valueIsGivenToAll_data();
    void valueIsGivenToAll();
    void badValueIsNamed_data();
    void badValueIsNamed();
    void nameFillsTheFields();
    void nameThatDoesNotFitChangesNothing();
    void badKeyInANameChangesNothing();
    void textIsReplaced_data();
    void textIsReplaced();
    void badExpressionIsNamed();
    void otherFieldsAreNotReplaced();
    void tempoIsReplacedOnlyByATempo();
    void hostileExpressionEndsInTime_data();
    void hostileExpressionEndsInTime();
    void replacementDoesNotGrowWithoutEnd();
    void lettersGetTheirCase_data();
    void lettersGetTheirCase();
    void fieldsChangePlaces();
    void textThatIsNoKeyDoesNotBecomeOne();
    void blanksAreStripped();
    void listFillsTheFields();
    void stepWithoutFieldsIsNamed();
};

void TestEditStep::valueIsGivenToAll_data()
{
    QTest::addColumn<Field>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("after");
    QTest::newRow("title") << Field::Title << " Volare "
                           << "Volare";
    QTest::newRow("nothing") << Field::Genre << ""
                             << "";
    QTest::newRow("tempo") << Field::Tempo << "90"
                           << "90";
    QTest::newRow("no tempo") << Field::Tempo << ""
                              << "";
    QTest::newRow("key") << Field::Key << "A -"
                         << "A-";
    QTest::newRow("length") << Field::Length << "4:05"
                            << "04:05";
    QTest::newRow("not Latin-1") << Field::Author << QStringLiteral("Дунаевский")
                                 << QStringLiteral("Дунаевский");
}

void TestEditStep::valueIsGivenToAll()
{
    QFETCH(Field, field);
    QFETCH(QString, text);
    QFETCH(QString, after);
    const EditStep step(EditStep::Value{field, text});
    QCOMPARE(step.problem(), QString());
    SongInfo info = song("Aida");
    QVERIFY(step.apply(info, path).outcome == Outcome::Done);
    QCOMPARE(songfields::text(info, field), after);
}

void TestEditStep::badValueIsNamed_data()
{
    QTest::addColumn<Field>("field");
    QTest::addColumn<QString>("text");
    QTest::newRow("tempo") << Field::Tempo << "1000";
    QTest::newRow("negative tempo") << Field::Tempo << "-1";
    QTest::newRow("key") << Field::Key << "H";
    QTest::newRow("length") << Field::Length << "4:65";
    QTest::newRow("too long") << Field::Title << QString(2000, QLatin1Char('x'));
    QTest::newRow("markers") << Field::Markers << "1 Intro";
}

void TestEditStep::badValueIsNamed()
{
    QFETCH(Field, field);
    QFETCH(QString, text);
    const EditStep step(EditStep::Value{field, text});
    QVERIFY(!step.problem().isEmpty());
    SongInfo info = song("Aida");
    step.apply(info, path);
    QVERIFY(SongStandIn::isSame(info, song("Aida")));
}

void TestEditStep::nameFillsTheFields()
{
    SongInfo info = song("Aida", "Verdi");
    const EditStep step(EditStep::FromName{QStringLiteral("%genre/%track - %artist - %title")});
    QVERIFY(step.apply(info, path).outcome == Outcome::Done);
    QCOMPARE(info.title, QStringLiteral("Volare"));
    QCOMPARE(info.artist, QStringLiteral("Mina"));
    QCOMPARE(info.genre, QStringLiteral("Pop"));
    QCOMPARE(info.author, QStringLiteral("Modugno"));
}

void TestEditStep::nameThatDoesNotFitChangesNothing()
{
    SongInfo info = song("Aida");
    const EditStep::Result result =
        EditStep(EditStep::FromName{QStringLiteral("%artist_%title")}).apply(info, path);
    QVERIFY(result.outcome == Outcome::DoesNotFit);
    QVERIFY(!result.reason.isEmpty());
    QVERIFY(SongStandIn::isSame(info, song("Aida")));
}

void TestEditStep::badKeyInANameChangesNothing()
{
    SongInfo info = song("Aida");
    const EditStep step(EditStep::FromName{QStringLiteral("%key - %title")});
    QVERIFY(step.apply(info, QStringLiteral("/m/Xy - Volare.mid")).outcome == Outcome::DoesNotFit);
    QVERIFY(SongStandIn::isSame(info, song("Aida")));
    QVERIFY(step.apply(info, QStringLiteral("/m/Bb - Volare.mid")).outcome == Outcome::Done);
    QCOMPARE(info.key, QStringLiteral("Bb"));
}

void TestEditStep::textIsReplaced_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<bool>("isRegex");
    QTest::addColumn<bool>("heedsCase");
    QTest::addColumn<QString>("title");
    QTest::newRow("plain") << "(live)"
                           << "" << false << true << "Volare aa  LIVE";
    QTest::newRow("no case") << "live"
                             << "x" << false << false << "Volare aa (x) x";
    QTest::newRow("case") << "LIVE"
                          << "x" << false << true << "Volare aa (live) x";
    QTest::newRow("not there") << "zzz"
                               << "x" << false << true << "Volare aa (live) LIVE";
    QTest::newRow("dot is a dot") << "."
                                  << "x" << false << true << "Volare aa (live) LIVE";
    QTest::newRow("expression") << "\\s*\\(.*\\)"
                                << "" << true << true << "Volare aa LIVE";
    QTest::newRow("groups") << "^(\\w+) (\\w+)"
                            << "\\2 \\1" << true << true << "aa Volare (live) LIVE";
    QTest::newRow("expression, no case") << "live"
                                         << "x" << true << false << "Volare aa (x) x";
    QTest::newRow("everywhere") << "a"
                                << "b" << true << true << "Volbre bb (live) LIVE";
    QTest::newRow("matches of nothing")
        << "x*"
        << "-" << true << true << "-V-o-l-a-r-e- -a-a- -(-l-i-v-e-)- -L-I-V-E-";
    QTest::newRow("backslash") << "aa"
                               << "\\a\\" << true << true << "Volare \\a\\ (live) LIVE";
    QTest::newRow("empty matches") << "z*$"
                                   << "!" << true << true << "Volare aa (live) LIVE!";
}

void TestEditStep::textIsReplaced()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(bool, isRegex);
    QFETCH(bool, heedsCase);
    QFETCH(QString, title);
    const EditStep step(EditStep::Replace{{Field::Title}, from, to, isRegex, heedsCase});
    QCOMPARE(step.problem(), QString());
    QCOMPARE(titleAfter(step, "Volare aa (live) LIVE"), title);
}

void TestEditStep::badExpressionIsNamed()
{
    QVERIFY(!replace("(", "", true).problem().isEmpty());
    QVERIFY(replace("(", "", false).problem().isEmpty());
    QVERIFY(!replace("", "x", false).problem().isEmpty());
    QVERIFY(!replace(QByteArray(2000, 'x').constData(), "", true).problem().isEmpty());
    QCOMPARE(titleAfter(replace("(", "", true), "a(b"), QStringLiteral("a(b"));
}

void TestEditStep::otherFieldsAreNotReplaced()
{
    SongInfo info = song("Mina", "Mina");
    EditStep(EditStep::Replace{{Field::Artist}, QStringLiteral("Mina"), QStringLiteral("X")})
        .apply(info, path);
    QCOMPARE(info.title, QStringLiteral("Mina"));
    QCOMPARE(info.artist, QStringLiteral("X"));
}

void TestEditStep::tempoIsReplacedOnlyByATempo()
{
    SongInfo info = song("Aida");
    const EditStep good(
        EditStep::Replace{{Field::Tempo}, QStringLiteral("128"), QStringLiteral("96")});
    QVERIFY(good.apply(info, path).outcome == Outcome::Done);
    QCOMPARE(info.userBpm, 96);
    const EditStep bad(EditStep::Replace{{Field::Tempo}, QStringLiteral("9"), QStringLiteral("x")});
    QVERIFY(bad.apply(info, path).outcome == Outcome::DoesNotFit);
    QCOMPARE(info.userBpm, 96);
}

void TestEditStep::hostileExpressionEndsInTime_data()
{
    QTest::addColumn<QString>("expression");
    QTest::newRow("nested") << "(a+)+$";
    QTest::newRow("alternatives") << "(a|aa)+$";
    QTest::newRow("three loops") << "(.*)*(.*)*(.*)*[bc]";
    QTest::newRow("back references") << "(a*)*\\1[bc]";
    QTest::newRow("recursion") << "^(a(?1)*)*[bc]";
    QTest::newRow("higher limit of its own") << "(*LIMIT_MATCH=4000000000)(a+)+$";
}

void TestEditStep::hostileExpressionEndsInTime()
{
    QFETCH(QString, expression);
    const EditStep step(
        EditStep::Replace{{Field::Title}, expression, QStringLiteral("x"), true, true});
    QCOMPARE(step.problem(), QString());
    SongInfo info = song("Aida");
    info.title = QString(900, QLatin1Char('a')) + QLatin1Char('!');
    const QString before = info.title;
    QElapsedTimer timer;
    timer.start();
    QVERIFY(step.apply(info, path).outcome == Outcome::TooHard);
    QVERIFY2(timer.elapsed() < 5000, "the expression took too long");
    QCOMPARE(info.title, before);
}

void TestEditStep::replacementDoesNotGrowWithoutEnd()
{
    SongInfo info = song("Aida");
    info.title = QString(900, QLatin1Char('a'));
    const QString before = info.title;
    const EditStep step(EditStep::Replace{
        {Field::Title}, QStringLiteral("a"), QString(500, QLatin1Char('b')), true, true});
    QVERIFY(step.apply(info, path).outcome == Outcome::DoesNotFit);
    QCOMPARE(info.title, before);
    info.title = QString(100000, QLatin1Char('a'));
    QVERIFY(step.apply(info, path).outcome == Outcome::DoesNotFit);
}

void TestEditStep::lettersGetTheirCase_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("title") << Kind::Title << "en"
                           << "DON'T stop ME now"
                           << "Don't Stop Me Now";
    QTest::newRow("Italian title") << Kind::Title << "it" << QStringLiteral("L'AMORE È un'altra")
                                   << QStringLiteral("L'Amore È Un'Altra");
    QTest::newRow("leading apostrophe") << Kind::Title << "de"
                                        << "'o sole mio"
                                        << "'O Sole Mio";
    QTest::newRow("brackets") << Kind::Title << "en"
                              << "volare (live-mix)"
                              << "Volare (Live-Mix)";
    QTest::newRow("upper") << Kind::Upper << "en" << QStringLiteral("perché")
                           << QStringLiteral("PERCHÉ");
    QTest::newRow("German sharp s") << Kind::Upper << "de" << QStringLiteral("straße") << "STRASSE";
    QTest::newRow("Turkish i") << Kind::Upper << "tr"
                               << "istanbul" << QStringLiteral("İSTANBUL");
    QTest::newRow("English i") << Kind::Upper << "en"
                               << "istanbul"
                               << "ISTANBUL";
    QTest::newRow("lower") << Kind::Lower << "en"
                           << "VOLARE"
                           << "volare";
    QTest::newRow("first letter") << Kind::FirstLetter << "en"
                                  << "NEL BLU dipinto"
                                  << "Nel blu dipinto";
    QTest::newRow("empty") << Kind::Title << "en"
                           << ""
                           << "";
    QTest::newRow("Cyrillic") << Kind::Title << "ru" << QStringLiteral("ЗВЕЗДА по имени")
                              << QStringLiteral("Звезда По Имени");
}

void TestEditStep::lettersGetTheirCase()
{
    QFETCH(Kind, kind);
    QFETCH(QString, language);
    QFETCH(QString, before);
    QFETCH(QString, after);
    const EditStep step(EditStep::LetterCase{{Field::Title}, kind, QLocale(language)});
    QCOMPARE(titleAfter(step, before.toUtf8().constData()), after);
}

void TestEditStep::fieldsChangePlaces()
{
    SongInfo info = song("Mina", "Volare");
    EditStep(EditStep::Swap{Field::Title, Field::Artist}).apply(info, path);
    QCOMPARE(info.title, QStringLiteral("Volare"));
    QCOMPARE(info.artist, QStringLiteral("Mina"));
    QVERIFY(!EditStep(EditStep::Swap{Field::Title, Field::Title}).problem().isEmpty());
}

void TestEditStep::textThatIsNoKeyDoesNotBecomeOne()
{
    SongInfo info = song("Volare");
    QVERIFY(EditStep(EditStep::Swap{Field::Title, Field::Key}).apply(info, path).outcome ==
            Outcome::DoesNotFit);
    QVERIFY(SongStandIn::isSame(info, song("Volare")));
}

void TestEditStep::blanksAreStripped()
{
    const EditStep both(EditStep::Strip{{Field::Title}, true});
    QCOMPARE(titleAfter(both, "  nel__blu   dipinto_ "), QStringLiteral("nel blu dipinto"));
    const EditStep blanks(EditStep::Strip{{Field::Title}, false});
    QCOMPARE(titleAfter(blanks, " nel_blu\t dipinto "), QStringLiteral("nel_blu dipinto"));
}

void TestEditStep::listFillsTheFields()
{
    const EditStep step(EditStep::FromList{
        CsvList::fromBytes("file;title;key\n01 - Mina - Volare.mid;Nel blu;Bb\nb.mid;Bad;H\n")});
    QCOMPARE(step.problem(), QString());
    SongInfo info = song("Aida");
    QVERIFY(step.apply(info, path).outcome == Outcome::Done);
    QCOMPARE(info.title, QStringLiteral("Nel blu"));
    QCOMPARE(info.key, QStringLiteral("Bb"));
    QVERIFY(step.apply(info, QStringLiteral("/m/b.mid")).outcome == Outcome::DoesNotFit);
    QCOMPARE(info.title, QStringLiteral("Nel blu"));
    QVERIFY(step.apply(info, QStringLiteral("/m/c.mid")).outcome == Outcome::DoesNotFit);
    QVERIFY(!EditStep(EditStep::FromList{CsvList::fromBytes("x")}).problem().isEmpty());
}

void TestEditStep::stepWithoutFieldsIsNamed()
{
    QVERIFY(!EditStep(EditStep::Strip{{}, true}).problem().isEmpty());
    QVERIFY(!EditStep(EditStep::LetterCase{{}, Kind::Upper, QLocale()}).problem().isEmpty());
    QVERIFY(!EditStep(EditStep::Replace{{}, QStringLiteral("a"), {}}).problem().isEmpty());
}

QTEST_GUILESS_MAIN(TestEditStep)
#include "test_editstep.moc"
