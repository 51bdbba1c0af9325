// The steps between 8-bit text in files and QString.
#include "formats/bytetext.h"

#include <QTest>

class TestByteText : public QObject
{
    Q_OBJECT

private slots:
    void textEndsAtTheFirstZeroByte();
    void textIsStrippedAtBothEnds();
    void bytesAreLatin1();
    void everyLatin1CharacterComesBack();
    void charactersOutsideLatin1BecomeQuestionMarks();
    void numbers_data();
    void numbers();
    void charactersOutsideLatin1AreNamedOnce_data();
    void charactersOutsideLatin1AreNamedOnce();
};

void TestByteText::textEndsAtTheFirstZeroByte()
{
    QCOMPARE(textFromBytes(QByteArray("ab\0cd", 5)), QStringLiteral("ab"));
    QCOMPARE(textFromBytes(QByteArray("\0cd", 3)), QString());
    QCOMPARE(textFromBytes(QByteArray("abcd", 4)), QStringLiteral("abcd"));
    QCOMPARE(textFromBytes(QByteArray()), QString());
}

void TestByteText::textIsStrippedAtBothEnds()
{
    QCOMPARE(textFromBytes(QByteArray(" \t a b \r\n ")), QStringLiteral("a b"));
    QCOMPARE(textFromBytes(QByteArray("ab  \0  cd", 9)), QStringLiteral("ab"));
    QCOMPARE(textFromBytes(QByteArray("   ")), QString());
}

void TestByteText::bytesAreLatin1()
{
    QCOMPARE(textFromBytes(QByteArray("Perch\xE9 \xDF")), QStringLiteral("Perché ß"));
    QCOMPARE(bytesFromText(QStringLiteral("Perché ß")), QByteArray("Perch\xE9 \xDF"));
}

void TestByteText::everyLatin1CharacterComesBack()
{
    for (int code = 1; code < 256; ++code) {
        const QByteArray bytes = "x" + QByteArray(1, static_cast<char>(code)) + "x";
        const QString text = textFromBytes(bytes);
        QCOMPARE(text.size(), 3);
        QCOMPARE(text.at(1).unicode(), static_cast<char16_t>(code));
        QCOMPARE(bytesFromText(text), bytes);
    }
}

void TestByteText::charactersOutsideLatin1BecomeQuestionMarks()
{
    QCOMPARE(bytesFromText(QStringLiteral("5€ Łódź")), QByteArray("5? ?\xF3"
                                                                  "d?"));
    QCOMPARE(bytesFromText(QStringLiteral("a\U0001F3B5z")), QByteArray("a??z"));
}

void TestByteText::numbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    const auto row = [](const char *text, int number) {
        QTest::newRow(text) << QString::fromLatin1(text) << number;
    };
    row("0", 0);
    row("215", 215);
    row("007", 7);
    row("+12", 12);
    row(" 12 ", 12);
    row("-1", 0);
    row("-0", 0);
    row("-2147483648", 0);
    row("2147483647", 2147483647);
    row("2147483648", 0);
    row("4294967297", 0);
    row("99999999999999999999999999", 0);
    row("", 0);
    row("+", 0);
    row("++1", 0);
    row("abc", 0);
    row("12a", 0);
    row("1 2", 0);
    row("3.5", 0);
    row("1,000", 0);
    row("1e3", 0);
    row("0x10", 0);
}

void TestByteText::charactersOutsideLatin1AreNamedOnce_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("characters");
    const auto row = [](const char *name, const QString &text, const QStringList &characters) {
        QTest::newRow(name) << text << characters;
    };
    row("empty", QString(), {});
    row("all of Latin-1", QStringLiteral("Caffè nero \u00A0\u00FF\u0001"), {});
    row("first one behind Latin-1", QStringLiteral("\u0100"), {QStringLiteral("\u0100")});
    row("in their order, once", QStringLiteral("źŁódź Łź"),
        {QStringLiteral("ź"), QStringLiteral("Ł")});
    row("typographic", QStringLiteral("Don’t – stop…"),
        {QStringLiteral("’"), QStringLiteral("–"), QStringLiteral("…")});
    row("two units", QStringLiteral("a\U0001F3B5b\U0001F3B5\U0001F3B8"),
        {QStringLiteral("\U0001F3B5"), QStringLiteral("\U0001F3B8")});
    row("half a character", QString(QChar(0xD83C)) + QLatin1Char('a'), {QString(QChar(0xD83C))});
    row("half a character at the end", QString(QChar(0xD83C)), {QString(QChar(0xD83C))});
    row("other half first", QString(QChar(0xDFB5)) + QChar(0xD83C),
        {QString(QChar(0xDFB5)), QString(QChar(0xD83C))});
}

void TestByteText::charactersOutsideLatin1AreNamedOnce()
{
    QFETCH(QString, text);
    QFETCH(QStringList, characters);
    QCOMPARE(charactersOutsideLatin1(text), characters);
    QCOMPARE(bytesFromText(text).contains('?'), !characters.isEmpty());
}

void TestByteText::numbers()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QCOMPARE(countFromText(text), number);
}

QTEST_APPLESS_MAIN(TestByteText)
#include "test_bytetext.moc"
