// Texts spelled with the characters that the player has.
#include "formats/closespelling.h"

#include <QTest>

class TestCloseSpelling : public QObject
{
    Q_OBJECT

private slots:
    void textIsSpelledInLatin1_data();
    void textIsSpelledInLatin1();
};

void TestCloseSpelling::textIsSpelledInLatin1_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("spelled");
    const auto row = [](const char *name, const char *text, const char *spelled) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(spelled);
    };
    row("nothing", "", "");
    row("plain text stays", "Blue Moon (live) 1'30\"", "Blue Moon (live) 1'30\"");
    row("what Latin-1 has stays", "Für Élise, señor ß ø Ð ¿", "Für Élise, señor ß ø Ð ¿");
    row("a letter and its mark are one letter", "Cafe\u0300", "Cafè");
    row("a mark that Latin-1 has not goes", "Dvořák, Čárový, Łukasz, İstanbul",
        "Dvorák, Cárový, Lukasz, Istanbul");
    row("ligatures become letters", "Œuvre, ﬁn", "OEuvre, fin");
    row("curly quotes become straight ones", "\u2018O sole\u2019 \u201Cmio\u201D",
        "'O sole' \"mio\"");
    row("dashes and dots", "1\u20132\u2014\u2026", "1-2-...");
    row("Cyrillic", "Катюша, Чайковский, Ђорђе", "Katyusha, Chaykovskiy, Dorde");
    row("Greek", "Ζορμπάς", "Zormpás");
    row("a picture has no spelling", "Love \U0001F600", "Love ?");
    row("control characters become blanks", "a\nb\tc", "a b c");
    row("blanks at the ends go", " \u010D ", "c");
}

void TestCloseSpelling::textIsSpelledInLatin1()
{
    QFETCH(QString, text);
    QTEST(closeSpelling(text), "spelled");
}

QTEST_APPLESS_MAIN(TestCloseSpelling)
#include "test_closespelling.moc"
