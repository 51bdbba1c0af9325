// The help window: which page it shows.
#include "support/germantexts.h"
#include "support/ownfolders.h"
#include "windows/helpdialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>
#include <QTimer>

namespace
{

QString shownText(const HelpDialog &dialog)
{
    return dialog.findChild<QTextEdit *>(QStringLiteral("textEdit"))->toPlainText();
}

/** The text of an embedded page, without its mark-up; empty when it is missing. */
QString pageText(const QString &name)
{
    QFile page(QStringLiteral(":/help/") + name);
    if (!page.open(QIODevice::ReadOnly))
        return QString();
    QTextDocument document;
    document.setHtml(QString::fromUtf8(page.readAll()));
    return document.toPlainText();
}

/** The text that is marked in the page. */
QTextCursor hit(const HelpDialog &dialog)
{
    return dialog.findChild<QTextEdit *>(QStringLiteral("textEdit"))->textCursor();
}

QLineEdit *searchField(const HelpDialog &dialog)
{
    return dialog.findChild<QLineEdit *>(QStringLiteral("searchLineEdit"));
}

QLabel *answer(const HelpDialog &dialog)
{
    return dialog.findChild<QLabel *>(QStringLiteral("searchLabel"));
}

/** The places of the word in what the page shows, in the order of the page. */
QList<int> places(const QString &text, const QString &word)
{
    QList<int> all;
    for (qsizetype at = text.indexOf(word, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(word, at + word.size(), Qt::CaseInsensitive))
        all.append(static_cast<int>(at));
    return all;
}

const QString germanPage = QStringLiteral("quorvane_help_de.html");
const QString englishPage = QStringLiteral("quorvane_help_en.html");

} // namespace

class TestHelpDialog : public QObject
{
    Q_OBJECT

private slots:
    void init() { OwnSettings::clear(); }

    void pagesOfBothBrandingsAreEmbedded();
    void pageFollowsTheStoredLanguage_data();
    void pageFollowsTheStoredLanguage();
    void germanWithoutAStoredLanguage();
    void buttonAndEscapeClose();
    void pageCannotBeEdited();
    void followsALanguageChange();

    void searchGoesFromHitToHit();
    void searchGoesBack();
    void searchSaysThatNothingIsFound();
    void searchFindsTheWordsOfTheLanguageShown();
    void emptySearchMarksNothing();
    void returnInTheSearchFieldKeepsTheWindow();
};

void TestHelpDialog::pagesOfBothBrandingsAreEmbedded()
{
    QSet<QString> texts;
    for (const char *name : {"quorvane_help_de.html", "quorvane_help_en.html", "help_de.html",
                             "help_en.html", "help_it.html"}) {
        const QString text = pageText(QString::fromLatin1(name));
        QVERIFY2(!text.isEmpty(), name);
        texts.insert(text);
    }
    QCOMPARE(texts.size(), 5);
}

void TestHelpDialog::pageFollowsTheStoredLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("page");
    QTest::newRow("German") << "de" << germanPage;
    QTest::newRow("English") << "en" << englishPage;
    QTest::newRow("Italian") << "it" << englishPage;
    QTest::newRow("unknown") << "fr" << englishPage;
}

void TestHelpDialog::pageFollowsTheStoredLanguage()
{
    QFETCH(QString, language);
    QFETCH(QString, page);
    OwnSettings::set(settings::language, language);
    const HelpDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Aiuto"));
    QCOMPARE(shownText(dialog), pageText(page));
}

void TestHelpDialog::germanWithoutAStoredLanguage()
{
    const HelpDialog dialog;
    QCOMPARE(shownText(dialog), pageText(germanPage));
}

void TestHelpDialog::buttonAndEscapeClose()
{
    HelpDialog clicked;
    QTimer::singleShot(0, &clicked, [&] {
        auto *const box = clicked.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
        QTest::mouseClick(box->button(QDialogButtonBox::Close), Qt::LeftButton);
    });
    QCOMPARE(clicked.exec(), int(QDialog::Rejected));

    HelpDialog escaped;
    QTimer::singleShot(0, &escaped, [&] { QTest::keyClick(&escaped, Qt::Key_Escape); });
    QCOMPARE(escaped.exec(), int(QDialog::Rejected));
}

void TestHelpDialog::pageCannotBeEdited()
{
    HelpDialog dialog;
    auto *const page = dialog.findChild<QTextEdit *>(QStringLiteral("textEdit"));
    QTest::keyClicks(page, QStringLiteral("abc"));
    QCOMPARE(shownText(dialog), pageText(germanPage));
}

void TestHelpDialog::followsALanguageChange()
{
    OwnSettings::set(settings::language, QStringLiteral("en"));
    const HelpDialog dialog;
    OwnSettings::set(settings::language, QStringLiteral("de"));
    const GermanTexts german;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Hilfe"));
    QCOMPARE(shownText(dialog), pageText(germanPage));
}

void TestHelpDialog::searchGoesFromHitToHit()
{
    HelpDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const QString word = QStringLiteral("soundfont");
    const QList<int> expected = places(shownText(dialog), word);
    QVERIFY(expected.size() >= 2);

    QTest::keyClick(dialog.focusWidget(), Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(dialog.focusWidget(), searchField(dialog));
    QTest::keyClicks(searchField(dialog), word);
    for (qsizetype number = 0; number < expected.size(); ++number) {
        QCOMPARE(hit(dialog).selectionStart(), expected[number]);
        QCOMPARE(hit(dialog).selectedText().toLower(), word);
        QCOMPARE(answer(dialog)->text(),
                 QStringLiteral("Risultato %1 di %2").arg(number + 1).arg(expected.size()));
        const int key = number % 2 == 0 ? Qt::Key_Return : Qt::Key_F3;
        QTest::keyClick(searchField(dialog), static_cast<Qt::Key>(key));
    }
    QCOMPARE(hit(dialog).selectionStart(), expected.first());
}

void TestHelpDialog::searchGoesBack()
{
    HelpDialog dialog;
    const QString word = QStringLiteral("soundfont");
    const QList<int> expected = places(shownText(dialog), word);
    searchField(dialog)->setText(word);
    QTest::keyClick(&dialog, Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(hit(dialog).selectionStart(), expected.last());
    dialog.findChild<QPushButton *>(QStringLiteral("previousPushButton"))->click();
    QCOMPARE(hit(dialog).selectionStart(), expected[expected.size() - 2]);
    dialog.findChild<QPushButton *>(QStringLiteral("nextPushButton"))->click();
    QCOMPARE(hit(dialog).selectionStart(), expected.last());
}

void TestHelpDialog::searchSaysThatNothingIsFound()
{
    const HelpDialog dialog;
    searchField(dialog)->setText(QStringLiteral("Soundfont"));
    QVERIFY(hit(dialog).hasSelection());
    searchField(dialog)->setText(QStringLiteral("xyzzy"));
    QVERIFY(!hit(dialog).hasSelection());
    QVERIFY(answer(dialog)->isVisibleTo(&dialog));
    QCOMPARE(answer(dialog)->text(), QStringLiteral("Nessun risultato: prova un'altra parola."));
}

void TestHelpDialog::searchFindsTheWordsOfTheLanguageShown()
{
    OwnSettings::set(settings::language, QStringLiteral("en"));
    HelpDialog dialog;
    searchField(dialog)->setText(QStringLiteral("eject"));
    QCOMPARE(hit(dialog).selectedText().toLower(), QStringLiteral("eject"));
    OwnSettings::set(settings::language, QStringLiteral("de"));
    const GermanTexts german;
    QVERIFY(!hit(dialog).hasSelection());
    QCOMPARE(answer(dialog)->text(),
             QStringLiteral("Nichts gefunden: Versuchen Sie ein anderes Wort."));
    searchField(dialog)->setText(QStringLiteral("auswerfen"));
    QCOMPARE(hit(dialog).selectedText().toLower(), QStringLiteral("auswerfen"));
}

void TestHelpDialog::emptySearchMarksNothing()
{
    const HelpDialog dialog;
    auto *const next = dialog.findChild<QPushButton *>(QStringLiteral("nextPushButton"));
    QVERIFY(!next->isEnabled());
    QVERIFY(!answer(dialog)->isVisibleTo(&dialog));
    searchField(dialog)->setText(QStringLiteral("Player"));
    QVERIFY(next->isEnabled());
    searchField(dialog)->clear();
    QVERIFY(!hit(dialog).hasSelection());
    QVERIFY(!next->isEnabled());
    QVERIFY(!answer(dialog)->isVisibleTo(&dialog));
}

void TestHelpDialog::returnInTheSearchFieldKeepsTheWindow()
{
    HelpDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    searchField(dialog)->setFocus();
    QTest::keyClick(searchField(dialog), Qt::Key_Return);
    QTest::keyClick(searchField(dialog), Qt::Key_Enter);
    QVERIFY(dialog.isVisible());
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    TestHelpDialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_helpdialog.moc"
