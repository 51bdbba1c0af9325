// The branding "kavena": Italian at a first start, its own logos and pages, the question first.
#include "app/startup.h"
#include "library/branding.h"
#include "support/apptest.h"
#include "support/interfacelanguage.h"
#include "support/windowundertest.h"
#include "windows/aboutdialog.h"
#include "windows/helpdialog.h"

#include <QFile>
#include <QImage>
#include <QLabel>
#include <QTextDocument>
#include <QTextEdit>

namespace
{

/** The start of the program and its window. */
class Started
{
public:
    Started() { Startup().setUpTranslation(); }
    ~Started() { backToItalian(); }
    Q_DISABLE_COPY_MOVE(Started)
};

QString textOf(const QString &pageName)
{
    QFile page(QStringLiteral(":/help/") + pageName);
    QTextDocument document;
    if (page.open(QIODevice::ReadOnly))
        document.setHtml(QString::fromUtf8(page.readAll()));
    return document.toPlainText();
}

} // namespace

class TestOtherBranding : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void firstStartIsItalian();
    void italianIsChosenInTheMenu();
    void logosAreThePlayersOwn();
    void questionComesUnlessTheUserTurnedItOff();
    void helpPageFollowsTheLanguage_data();
    void helpPageFollowsTheLanguage();
};

void TestOtherBranding::firstStartIsItalian()
{
    const Started started;
    QCOMPARE(OwnSettings::value(settings::language).toString(), QStringLiteral("it"));
    const WindowUnderTest window;
    QCOMPARE(window.windowTitle(), QStringLiteral("Kavena PC"));
    QVERIFY(window.action("actionItalian")->isVisible());
    QVERIFY(window.action("actionItalian")->isChecked());
    QVERIFY(window.action("actionEnglish")->isVisible());
    QVERIFY(!window.action("actionGerman")->isVisible());
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Annulla"));
}

void TestOtherBranding::italianIsChosenInTheMenu()
{
    OwnSettings::set(settings::language, QStringLiteral("en"));
    const Started started;
    const WindowUnderTest window;
    QVERIFY(window.action("actionEnglish")->isChecked());
    QCOMPARE(window.action("actionAbout")->text(), QStringLiteral("&About Kavena PC..."));

    window.action("actionItalian")->trigger();
    QCOMPARE(OwnSettings::value(settings::language).toString(), QStringLiteral("it"));
    QVERIFY(window.action("actionItalian")->isChecked());
    QVERIFY(!window.action("actionEnglish")->isChecked());
    QTRY_COMPARE(window.action("actionAbout")->text(),
                 QStringLiteral("&Informazioni su Kavena PC..."));
}

void TestOtherBranding::logosAreThePlayersOwn()
{
    const WindowUnderTest window;
    QCOMPARE(window.child<QLabel>("logoKavenaLabel")->styleSheet(),
             QStringLiteral("image: url(:/imgs/logo-kavena.png);"));
    QCOMPARE(window.child<QLabel>("logoKravoLabel")->styleSheet(),
             QStringLiteral("image: url(:/imgs/logo-kravo.png);"));
    AboutDialog about;
    QCOMPARE(about.findChild<QLabel *>(QStringLiteral("logoLabel"))->styleSheet(),
             QStringLiteral("image: url(:/imgs/logo-kravo_512.png);"));
    for (const QString &logo : {branding().productLogo, branding().makerLogo, branding().aboutLogo})
        QVERIFY2(!QImage(logo).isNull(), qPrintable(logo));
}

void TestOtherBranding::questionComesUnlessTheUserTurnedItOff()
{
    {
        const WindowUnderTest window;
        QVERIFY(window.action("actionCopyrightYes")->isChecked());
        window.action("actionCopyrightNo")->trigger();
    }
    const WindowUnderTest window;
    QVERIFY(!window.action("actionCopyrightYes")->isChecked());
}

void TestOtherBranding::helpPageFollowsTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("page");
    QTest::newRow("none stored") << QString() << "help_it.html";
    QTest::newRow("Italian") << "it"
                             << "help_it.html";
    QTest::newRow("English") << "en"
                             << "help_en.html";
    QTest::newRow("German") << "de"
                            << "help_de.html";
    QTest::newRow("unknown") << "fr"
                             << "help_en.html";
}

void TestOtherBranding::helpPageFollowsTheLanguage()
{
    QFETCH(QString, language);
    QFETCH(QString, page);
    if (!language.isEmpty())
        OwnSettings::set(settings::language, language);
    const HelpDialog dialog;
    const QString shown = dialog.findChild<QTextEdit *>(QStringLiteral("textEdit"))->toPlainText();
    QVERIFY(!shown.isEmpty());
    QCOMPARE(shown, textOf(page));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestOtherBranding>(argc, argv);
}

#include "test_otherbranding.moc"
