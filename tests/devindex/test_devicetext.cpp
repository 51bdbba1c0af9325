// Upper case and the code page of paths, as the player knows them.
#include "devindex/devicetext.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTextCodec>

class TestDeviceText : public QObject
{
    Q_OBJECT

private slots:
    void sharpSIsKeptInUpperCase();
    void upperCaseOfEachCharacterIsThatOfTheLibrary();
    void upperCaseMayGrow();
    void pathsAreEncodedInIbm850();
    void everyIbm850ByteSurvivesLoadingAndWriting();
    void charactersOutsideIbm850BecomeQuestionMarks();
    void codePageIsThatOfTheLibrary();
    void sortKeyIsUpperCaseInIbm850();
    void comparisonIsThatOfTheLibrary();
};

void TestDeviceText::sharpSIsKeptInUpperCase()
{
    QCOMPARE(stringToUpper(QStringLiteral("Straße")), QStringLiteral("STRAßE"));
    QCOMPARE(stringToUpper(QStringLiteral("ßß größe ß")), QStringLiteral("ßß GRÖßE ß"));
    QCOMPARE(stringToUpper(QString()), QString());
}

void TestDeviceText::upperCaseOfEachCharacterIsThatOfTheLibrary()
{
    constexpr int sharpS = 0xDF;
    for (int code = 0; code < 0xD800; ++code) {
        const QString character{QChar(code)};
        QCOMPARE(stringToUpper(character), code == sharpS ? character : character.toUpper());
    }
}

void TestDeviceText::upperCaseMayGrow()
{
    QCOMPARE(stringToUpper(QStringLiteral("ﬁn àéîõü")), QStringLiteral("FIN ÀÉÎÕÜ"));
}

void TestDeviceText::pathsAreEncodedInIbm850()
{
    QCOMPARE(ibm850FromText(QStringLiteral("/éàüßñ")), QByteArray("/\x82\x85\x81\xE1\xA4"));
    QCOMPARE(textFromIbm850("/\x82\x85\x81\xE1\xA4"), QStringLiteral("/éàüßñ"));
}

void TestDeviceText::everyIbm850ByteSurvivesLoadingAndWriting()
{
    for (int code = 0x20; code < 0x100; ++code) {
        const QByteArray byte(1, static_cast<char>(code));
        QCOMPARE(ibm850FromText(textFromIbm850(byte)), byte);
    }
}

void TestDeviceText::charactersOutsideIbm850BecomeQuestionMarks()
{
    QCOMPARE(ibm850FromText(QStringLiteral("a€Жb")), QByteArray("a??b"));
}

void TestDeviceText::codePageIsThatOfTheLibrary()
{
    QTextCodec *const codec = QTextCodec::codecForName("IBM 850");
    QVERIFY(codec != nullptr);
    // Control characters aside, whose codes the library swaps.
    for (int code = 0x20; code < 0x100; ++code) {
        const QByteArray byte(1, static_cast<char>(code));
        if (code != 0x7F)
            QCOMPARE(textFromIbm850(byte), codec->toUnicode(byte));
    }
    for (int code = 0x20; code < 0xD800; ++code) {
        const QString character{QChar(code)};
        const QByteArray expected = codec->fromUnicode(character);
        // Characters that are invisible by themselves: the library drops them, the path keeps its
        // length here.
        if (code != 0x7F)
            QCOMPARE(ibm850FromText(character), expected.isEmpty() ? QByteArray("?") : expected);
    }
    QCOMPARE(ibm850FromText(QStringLiteral("a\U0001F3B5b")), QByteArray("a?b"));
}

void TestDeviceText::sortKeyIsUpperCaseInIbm850()
{
    QCOMPARE(pathSortKey(QStringLiteral("/é_b.mid")), QByteArray("/\x90_B.MID"));
    QCOMPARE(pathSortKey(QStringLiteral("/ÿ.mid")), QByteArray("/?.MID"));
    QCOMPARE(pathSortKey(QStringLiteral("/ß.mid")), QByteArray("/\xE1.MID"));
}

void TestDeviceText::comparisonIsThatOfTheLibrary()
{
    const auto sign = [](int value) { return value < 0 ? -1 : value > 0 ? 1 : 0; };
    QRandomGenerator random(2013);
    // Letters with several forms, letters that grow, and halves of pairs with and without case.
    const QString letters =
        QStringLiteral("aAbBzZ_[ 09éÉèßẞſsSıIiİµμΣσςÿŸ\U00010400\U00010428\U0001F3B5\uE000");
    for (int round = 0; round < 50000; ++round) {
        QString texts[2];
        for (QString &text : texts) {
            for (int size = random.bounded(5); size > 0; --size)
                text += letters.at(random.bounded(int(letters.size())));
        }
        QCOMPARE(sign(compareIgnoringCase(texts[0], texts[1])),
                 sign(texts[0].compare(texts[1], Qt::CaseInsensitive)));
    }
}

QTEST_GUILESS_MAIN(TestDeviceText)
#include "test_devicetext.moc"
