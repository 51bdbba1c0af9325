// Upper case and the code page of paths, as the player knows them.
#include "devindex/devicetext.h"

#include <QTest>

class TestDeviceText : public QObject
{
    Q_OBJECT

private slots:
    void sharpSIsKeptInUpperCase();
    void upperCaseMayGrow();
    void pathsAreEncodedInIbm850();
    void everyIbm850ByteSurvivesLoadingAndWriting();
    void charactersOutsideIbm850BecomeQuestionMarks();
    void sortKeyIsUpperCaseInIbm850();
};

void TestDeviceText::sharpSIsKeptInUpperCase()
{
    QCOMPARE(stringToUpper(QStringLiteral("Straße")), QStringLiteral("STRAßE"));
    QCOMPARE(stringToUpper(QStringLiteral("ßß größe ß")), QStringLiteral("ßß GRÖßE ß"));
    QCOMPARE(stringToUpper(QString()), QString());
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

void TestDeviceText::sortKeyIsUpperCaseInIbm850()
{
    QCOMPARE(pathSortKey(QStringLiteral("/é_b.mid")), QByteArray("/\x90_B.MID"));
    QCOMPARE(pathSortKey(QStringLiteral("/ÿ.mid")), QByteArray("/?.MID"));
    QCOMPARE(pathSortKey(QStringLiteral("/ß.mid")), QByteArray("/\xE1.MID"));
}

QTEST_GUILESS_MAIN(TestDeviceText)
#include "test_devicetext.moc"
