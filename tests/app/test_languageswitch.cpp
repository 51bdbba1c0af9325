// The language menu: after a switch every text follows, Qt's own texts and numbers too.
#include "app/mainwindow.h"
#include "app/startup.h"
#include "devindex/sizetext.h"
#include "support/apptest.h"
#include "support/interfacelanguage.h"
#include "support/shorttext.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/helpdialog.h"
#include "windows/translation.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QSpinBox>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QToolTip>

namespace
{

/** The texts of a menu, with their mnemonics and keys, without the separators. */
QStringList textsOf(const QMenu *menu)
{
    QStringList texts;
    for (const QAction *action : menu->actions()) {
        if (!action->isSeparator())
            texts << action->text();
    }
    return texts;
}

/** What Qt says by itself, in the windows that this program opens. */
QStringList qtTexts()
{
    QStringList texts;
    const HelpDialog help;
    texts << help.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Close)->text();

    QMessageBox box(QMessageBox::Question, QString(), QString(),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box.setDetailedText(s("details"));
    for (const auto button : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel})
        texts << box.button(button)->text();
    for (const QAbstractButton *button : box.buttons()) {
        if (box.buttonRole(const_cast<QAbstractButton *>(button)) == QMessageBox::ActionRole)
            texts << button->text();
    }

    QLineEdit field;
    const QScopedPointer<QMenu> fieldMenu(field.createStandardContextMenu());
    texts << textsOf(fieldMenu.data());
    const QScopedPointer<QMenu> pageMenu(
        help.findChild<QTextBrowser *>()->createStandardContextMenu());
    texts << textsOf(pageMenu.data());

    const QFileDialog chooser;
    for (const char *name : {"lookInLabel", "fileTypeLabel"})
        texts << chooser.findChild<QLabel *>(s(name))->text();
    for (const char *key : {"Ctrl+O", "Del", "Menu", "Shift+F10"})
        texts << QKeySequence(s(key)).toString(QKeySequence::NativeText);
    texts << QCoreApplication::translate("QMessageBox", "About Qt");
    return texts;
}

const QStringList &english()
{
    static const QStringList texts{
        s("Close"),
        s("&Yes"),
        s("&No"),
        s("Cancel"),
        s("Show Details..."),
        s("&Undo\tCtrl+Z"),
        s("&Redo\tCtrl+Y"),
        s("Cu&t\tCtrl+X"),
        s("&Copy\tCtrl+C"),
        s("&Paste\tCtrl+V"),
        s("Delete"),
        s("Select All\tCtrl+A"),
        s("&Copy\tCtrl+C"),
        s("Copy &Link Location"),
        s("Select All\tCtrl+A"),
        s("Look in:"),
        s("Files of type:"),
        s("Ctrl+O"),
        s("Del"),
        s("Menu"),
        s("Shift+F10"),
        s("About Qt"),
    };
    return texts;
}

} // namespace

class TestLanguageSwitch : public QObject
{
    Q_OBJECT

private slots:
    void init() { OwnSettings::clear(); }
    void cleanup() { backToItalian(); }

    void everyTextOfQtFollows_data();
    void everyTextOfQtFollows();
    void aboutQtFollows();
    void keysInToolTipsFollow();
    void numbersFollow();
    void messageOfTheOtherLanguageGoes();
    void fieldsOfAnOpenWindowFollow();
    void countryOfTheSystemIsKept();
    void nothingPilesUp();
};

void TestLanguageSwitch::everyTextOfQtFollows_data()
{
    QTest::addColumn<QString>("start");
    for (const char *start : {"de", "en"})
        QTest::newRow(start) << s(start);
}

void TestLanguageSwitch::everyTextOfQtFollows()
{
    QFETCH(QString, start);
    OwnSettings::set(settings::language, start);
    Startup().setUpTranslation();
    const WindowUnderTest window;
    window.action("actionEnglish")->trigger();
    QCOMPARE(qtTexts(), english());

    window.action("actionGerman")->trigger();
    const QStringList german = qtTexts();
    QCOMPARE(german.size(), english().size());
    QStringList same; // "Menu" has no German name in Qt's texts
    for (qsizetype i = 0; i < german.size(); ++i) {
        if (german.at(i) == english().at(i))
            same << german.at(i);
    }
    same.removeAll(s("Menu"));
    QCOMPARE(same, QStringList());
    QVERIFY(german.contains(s("Schließen")));
    QVERIFY(german.contains(s("Strg+O")));
    QVERIFY(german.contains(s("Entf")));

    window.action("actionEnglish")->trigger();
    QCOMPARE(qtTexts(), english());
}

void TestLanguageSwitch::aboutQtFollows()
{
    Startup().setUpTranslation();
    const WindowUnderTest window;
    UserDriver user;
    QStringList titles;
    user.add([&titles](QWidget *about) {
        titles << about->windowTitle();
        return about->close();
    });
    for (const char *language : {"actionGerman", "actionEnglish", "actionGerman"}) {
        window.action(language)->trigger();
        window.action("actionAbout_QT")->trigger();
    }
    QCOMPARE(titles, QStringList({s("Über Qt"), s("About Qt"), s("Über Qt")}));
}

void TestLanguageSwitch::keysInToolTipsFollow()
{
    Startup().setUpTranslation();
    const WindowUnderTest window;
    const auto toolTip = [&window] {
        QHelpEvent help(QEvent::ToolTip, QPoint(5, 5),
                        window.selectButton()->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(window.selectButton(), &help);
        return QToolTip::text();
    };
    QVERIFY2(toolTip().endsWith(s("(Strg+O)")), qPrintable(QToolTip::text()));
    window.action("actionEnglish")->trigger();
    QCoreApplication::processEvents();
    QVERIFY2(toolTip().endsWith(s("(Ctrl+O)")), qPrintable(QToolTip::text()));
    QToolTip::hideText();
}

void TestLanguageSwitch::numbersFollow()
{
    Startup().setUpTranslation();
    QCOMPARE(sizeText(70600000000), s("70,6 GB"));
    const WindowUnderTest window;
    window.action("actionEnglish")->trigger();
    QCOMPARE(sizeText(70600000000), s("70.6 GB"));
    window.action("actionGerman")->trigger();
    QCOMPARE(sizeText(70600000000), s("70,6 GB"));
    QCOMPARE(QLocale().toString(QDate(2026, 3, 1), QLocale::LongFormat),
             s("Sonntag, 1. März 2026"));
}

void TestLanguageSwitch::messageOfTheOtherLanguageGoes()
{
    Startup().setUpTranslation();
    const WindowUnderTest window;
    const auto *const bar = window.child<QStatusBar>("statusBar");
    const QTemporaryDir empty;
    UserDriver user;
    user.pick({empty.path()});
    window.action("actionAddFolder")->trigger();
    QTRY_COMPARE(bar->currentMessage(), s("Keine Songs gefunden"));
    window.action("actionEnglish")->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(bar->currentMessage(), QString());
}

void TestLanguageSwitch::fieldsOfAnOpenWindowFollow()
{
    Startup().setUpTranslation();
    const WindowUnderTest window;
    const auto *const spin = window.child<QSpinBox>("dbgMarkerBarSpinBox");
    QCOMPARE(spin->locale().language(), QLocale::German);
    window.action("actionEnglish")->trigger();
    QCOMPARE(spin->locale().language(), QLocale::English);
}

void TestLanguageSwitch::countryOfTheSystemIsKept()
{
    // The tests run in the locale "C", which is of no country: each language gets its own one.
    const QLocale system(QLocale::system().name());
    translation::use(languages::german);
    if (system.language() == QLocale::German)
        QCOMPARE(QLocale().name(), system.name());
    else
        QCOMPARE(QLocale().name(), s("de_DE"));
}

void TestLanguageSwitch::nothingPilesUp()
{
    Startup().setUpTranslation();
    const WindowUnderTest window;
    const auto translators = [] { return qApp->findChildren<QTranslator *>().size(); };
    const qsizetype before = translators();
    for (int i = 0; i < 3; ++i) {
        window.action("actionEnglish")->trigger();
        window.action("actionGerman")->trigger();
    }
    QCOMPARE(translators(), before);
    QCOMPARE(window.findChildren<QTranslator *>().size(), 0);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestLanguageSwitch>(argc, argv);
}

#include "test_languageswitch.moc"
