// The help window: which page it shows.
#include "support/germantexts.h"
#include "support/ownfolders.h"
#include "windows/helpdialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
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

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    TestHelpDialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_helpdialog.moc"
