// The about box.
#include "sound/soundmodule.h"
#include "support/germantexts.h"
#include "windows/aboutdialog.h"
#include "windows/librariesdialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QTextDocument>
#include <QTimer>
#include <QTreeWidget>

namespace
{

QLabel *label(const QDialog &dialog, const char *name)
{
    return dialog.findChild<QLabel *>(QString::fromLatin1(name));
}

/** What the reader of a rich text sees, with plain blanks and line breaks. */
QString visibleText(const QLabel *label)
{
    QTextDocument document;
    document.setHtml(label->text());
    QString text = document.toPlainText();
    return text.replace(QChar::Nbsp, QLatin1Char(' '));
}

/** What the about box shows in a process of its own whose system has that locale. */
QString versionIn(const QByteArray &locale)
{
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), QString::fromLatin1(locale));
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--print-version")});
    child.waitForFinished();
    return QString::fromUtf8(child.readAllStandardOutput());
}

int printVersion()
{
    const AboutDialog dialog;
    fputs(visibleText(label(dialog, "versionLabel")).toUtf8().constData(), stdout);
    return 0;
}

} // namespace

class TestAboutDialog : public QObject
{
    Q_OBJECT

private slots:
    void showsTitleAndLogo();
    void showsVersionAndBuildDate();
    void buildDateFollowsTheSystemsLocale_data();
    void buildDateFollowsTheSystemsLocale();
    void buildDateFollowsTheLanguage();
    void textsAreRichTextDocuments();
    void showsNoticeAndAddresses();
    void buttonAndEscapeClose();
    void followsALanguageChange();
    void namesTheLibrariesThatAreLinked();
    void buttonShowsTheLibraries();
};

void TestAboutDialog::showsTitleAndLogo()
{
    const AboutDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Informazioni"));
    QCOMPARE(label(dialog, "logoLabel")->styleSheet(),
             QStringLiteral("image: url(:/imgs/logo-quorvane_512.png);"));
    QVERIFY(!QImage(QStringLiteral(":/imgs/logo-quorvane_512.png")).isNull());
}

void TestAboutDialog::showsVersionAndBuildDate()
{
    const AboutDialog dialog;
    const QString date = QLocale::system().toString(QDate(2012, 10, 1), QLocale::ShortFormat);
    QCOMPARE(visibleText(label(dialog, "versionLabel")),
             QStringLiteral("Version:       1.76\nBuild date: %1\n").arg(date));
}

void TestAboutDialog::buildDateFollowsTheSystemsLocale_data()
{
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<QString>("date");
    QTest::newRow("German") << QByteArray("de_DE.UTF-8") << "01.10.12";
    QTest::newRow("American") << QByteArray("en_US.UTF-8") << "10/1/12";
    QTest::newRow("Italian") << QByteArray("it_IT.UTF-8") << "01/10/12";
}

void TestAboutDialog::buildDateFollowsTheSystemsLocale()
{
    QFETCH(QByteArray, locale);
    QFETCH(QString, date);
    QCOMPARE(versionIn(locale), QStringLiteral("Version:       1.76\nBuild date: %1\n").arg(date));
}

void TestAboutDialog::buildDateFollowsTheLanguage()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    const AboutDialog german;
    QLocale::setDefault(QLocale(QLocale::English));
    const AboutDialog english;
    QLocale::setDefault(before);
    QVERIFY(visibleText(label(german, "versionLabel")).endsWith(QStringLiteral(": 01.10.12\n")));
    QVERIFY(visibleText(label(english, "versionLabel")).endsWith(QStringLiteral(": 10/1/12\n")));
}

void TestAboutDialog::textsAreRichTextDocuments()
{
    const AboutDialog dialog;
    const QString version = label(dialog, "versionLabel")->text();
    QVERIFY(version.contains(QStringLiteral("qrichtext")));
    QVERIFY(version.contains(QStringLiteral("white-space: pre-wrap;")));
    QVERIFY(version.contains(QStringLiteral("font-family:'Sans Serif'; font-size:12pt;")));
    QVERIFY(version.endsWith(QStringLiteral("</p></body></html>")));
    const QString info = label(dialog, "infoLabel")->text();
    QVERIFY(info.contains(QStringLiteral("font-family:'Bitstream Vera Sans'; font-size:10pt;")));
    QVERIFY(info.endsWith(QStringLiteral("</p></body></html>")));
}

void TestAboutDialog::showsNoticeAndAddresses()
{
    const AboutDialog dialog;
    const QLabel *const info = label(dialog, "infoLabel");
    QVERIFY(visibleText(info).contains(QStringLiteral("2011")));
    QVERIFY(visibleText(info).contains(QStringLiteral("Assistenza: support@kravo.example")));
    QVERIFY(info->text().contains(QStringLiteral("<a href=\"https://kravo.example/\">")));
    QVERIFY(info->text().contains(QStringLiteral("<a href=\"mailto:support@kravo.example\">")));
    QVERIFY(info->openExternalLinks());
}

void TestAboutDialog::buttonAndEscapeClose()
{
    AboutDialog accepted;
    QTimer::singleShot(0, &accepted, [&] {
        auto *const box = accepted.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
        QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    QCOMPARE(accepted.exec(), int(QDialog::Accepted));

    AboutDialog rejected;
    QTimer::singleShot(0, &rejected, [&] { QTest::keyClick(&rejected, Qt::Key_Escape); });
    QCOMPARE(rejected.exec(), int(QDialog::Rejected));
}

void TestAboutDialog::followsALanguageChange()
{
    const AboutDialog dialog;
    const GermanTexts german;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Über RB27 Utility"));
    QCOMPARE(label(dialog, "label")->text(), QStringLiteral("RB27 Utility"));
    QCOMPARE(label(dialog, "logoLabel")->styleSheet(),
             QStringLiteral("image: url(:/imgs/logo-quorvane_512.png);"));
    QVERIFY(visibleText(label(dialog, "versionLabel")).contains(QStringLiteral("1.76")));
    QVERIFY(visibleText(label(dialog, "infoLabel"))
                .contains(QStringLiteral("Alle Rechte vorbehalten")));
}

/** What the program is linked with stands in the table, and nothing else. */
void TestAboutDialog::namesTheLibrariesThatAreLinked()
{
    const LibrariesDialog dialog;
    const auto *const table = dialog.findChild<QTreeWidget *>();
    QStringList names;
    for (int row = 0; row < table->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *const item = table->topLevelItem(row);
        QCOMPARE(item->columnCount(), 3);
        for (int column = 0; column < 3; ++column)
            QVERIFY(!item->text(column).isEmpty());
        names.append(item->text(0));
    }
    QCOMPARE(names.first(), QStringLiteral("Qt ") + QString::fromLatin1(qVersion()));

    QFile map(QStringLiteral("/proc/self/maps"));
    QVERIFY(map.open(QIODevice::ReadOnly));
    const QByteArray loaded = map.readAll();
    QCOMPARE(names.contains(QStringLiteral("TagLib")), loaded.contains("/libtag."));
    QCOMPARE(names.contains(QStringLiteral("ICU")), loaded.contains("/libicuuc."));
    QCOMPARE(names.contains(QStringLiteral("Zstandard")), loaded.contains("/libzstd."));
    QCOMPARE(names.contains(QStringLiteral("SQLite")), loaded.contains("/libQt6Sql."));
    const bool hasSound = soundmodule::problem() != SoundProblem::NotBuilt;
    QCOMPARE(names.contains(QStringLiteral("FluidSynth")), hasSound);
}

void TestAboutDialog::buttonShowsTheLibraries()
{
    AboutDialog dialog;
    bool isShown = false;
    QTimer::singleShot(0, &dialog, [&] {
        auto *const libraries = dialog.findChild<LibrariesDialog *>();
        isShown = libraries != nullptr && libraries->isVisible();
        if (isShown)
            libraries->reject();
    });
    dialog.findChild<QPushButton *>(QStringLiteral("librariesPushButton"))->click();
    QVERIFY(isShown);
}

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], "--print-version") == 0)
        return printVersion();
    TestAboutDialog test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_aboutdialog.moc"
