// The help pages: what their links lead to, their pictures, and that they suit every palette and
// their branding.
#include "library/branding.h"
#include "library/settings.h"
#include "support/ownfolders.h"
#include "windows/helpdialog.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

namespace
{

/** The source of an embedded page; empty when it is missing. */
QString pageSource(const QString &name)
{
    QFile page(QStringLiteral(":/help/") + name);
    return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

/** What the pattern's first group matches, as often as it does. */
QStringList found(const QString &text, const QString &pattern)
{
    QStringList all;
    QRegularExpressionMatchIterator matches = QRegularExpression(pattern).globalMatch(text);
    while (matches.hasNext())
        all.append(matches.next().captured(1));
    return all;
}

/** The part of the page from the section's heading to the next one. */
QString sectionOf(const QString &source, const QString &name)
{
    const qsizetype begin = source.indexOf(QStringLiteral("<h2><a name=\"%1\">").arg(name));
    return source.mid(begin, source.indexOf(QStringLiteral("<h2>"), begin + 1) - begin);
}

/** The pictures that the page shows, in its order. */
QList<QTextImageFormat> picturesOf(const QTextDocument &page)
{
    QList<QTextImageFormat> pictures;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (format.isImageFormat())
                pictures.append(format.toImageFormat());
        }
    }
    return pictures;
}

/** The file that the page shows under this name; empty when there is none. */
QString pictureFile(const QString &name, const QString &language)
{
    const QStringList places = branding().helpPicturePaths(language);
    for (const QString &place : places) {
        QString file = place + QLatin1Char('/') + name;
        if (QFile::exists(file))
            return file;
    }
    return {};
}

/** A point on the link in the part of the page that is shown now; (-1, -1) when it is not there. */
QPoint pointOnLink(const QTextEdit &page, const QString &link)
{
    const QSize shown = page.viewport()->size();
    for (int y = 0; y < shown.height(); y += 3) {
        for (int x = 0; x < shown.width(); x += 5) {
            if (page.anchorAt(QPoint(x, y)) == link)
                return {x, y};
        }
    }
    return {-1, -1};
}

} // namespace

class TestHelpPages : public QObject
{
    Q_OBJECT

private slots:
    void init() { OwnSettings::clear(); }

    void everyLinkHasItsSection_data() { pages(); }
    void everyLinkHasItsSection();
    void everySectionIsInTheContents_data() { pages(); }
    void everySectionIsInTheContents();
    void colorsAreThePalettes_data() { pages(); }
    void colorsAreThePalettes();
    void pageNamesItsBrandingOnly_data() { pages(); }
    void pageNamesItsBrandingOnly();
    void shortNameOfAnUntitledSongIsMentioned_data() { pages(); }
    void shortNameOfAnUntitledSongIsMentioned();
    void clickInTheContentsScrollsToTheSection();
    void languagesAreThoseOfTheMenu_data() { languagesOfTheBranding(); }
    void languagesAreThoseOfTheMenu();
    void everyPictureIsShown_data() { languagesOfTheBranding(); }
    void everyPictureIsShown();
    void everyPictureSpeaksTheLanguageOfThePage_data() { languagesOfTheBranding(); }
    void everyPictureSpeaksTheLanguageOfThePage();
    void screenReaderIsToldOfEveryPicture_data() { languagesOfTheBranding(); }
    void screenReaderIsToldOfEveryPicture();
    void everyPictureIsDescribed_data() { pages(); }
    void everyPictureIsDescribed();
    void everySectionWithStepsHasAPicture_data() { pages(); }
    void everySectionWithStepsHasAPicture();
    void eachOfTheFirstStepsHasAPicture_data() { pages(); }
    void eachOfTheFirstStepsHasAPicture();
    void noPictureIsKeptTwice();
    void picturesAreSmall();

private:
    static void pages();
    static void languagesOfTheBranding();
};

void TestHelpPages::pages()
{
    QTest::addColumn<QString>("otherBranding");
    for (const char *name : {"quorvane_help_de.html", "quorvane_help_en.html"})
        QTest::newRow(name) << "Kavena";
    for (const char *name : {"help_de.html", "help_en.html", "help_it.html"})
        QTest::newRow(name) << "RB27";
}

void TestHelpPages::languagesOfTheBranding()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : branding().helpLanguages)
        QTest::newRow(qPrintable(language)) << language;
}

void TestHelpPages::everyLinkHasItsSection()
{
    const QString source = pageSource(QString::fromLatin1(QTest::currentDataTag()));
    const QStringList sections = found(source, QStringLiteral("<a name=\"([^\"]*)\""));
    QVERIFY(sections.size() >= 10);
    QCOMPARE(QSet<QString>(sections.cbegin(), sections.cend()).size(), sections.size());
    const QStringList links = found(source, QStringLiteral("href=\"([^\"]*)\""));
    for (const QString &link : links)
        QVERIFY2(link.startsWith(QLatin1Char('#')) && sections.contains(link.mid(1)),
                 qPrintable(link));
}

void TestHelpPages::everySectionIsInTheContents()
{
    const QString source = pageSource(QString::fromLatin1(QTest::currentDataTag()));
    const QStringList sections = found(source, QStringLiteral("<h2><a name=\"([^\"]*)\""));
    QVERIFY(!sections.isEmpty());
    const qsizetype begin = source.indexOf(QStringLiteral("<ul>"));
    const QString contents =
        source.mid(begin, source.indexOf(QStringLiteral("</ul>"), begin) - begin);
    QCOMPARE(found(contents, QStringLiteral("href=\"#([^\"]*)\"")), sections);
}

void TestHelpPages::colorsAreThePalettes()
{
    const QString source = pageSource(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(!source.isEmpty());
    QVERIFY(found(source, QStringLiteral("(<[^>]*(?:color|background)[^>]*>)")).isEmpty());
}

void TestHelpPages::pageNamesItsBrandingOnly()
{
    QFETCH(QString, otherBranding);
    const QString source = pageSource(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(!source.isEmpty());
    QVERIFY(!source.contains(otherBranding));
}

/** The player shows such a song under its file name, which a shortened name changes. */
void TestHelpPages::shortNameOfAnUntitledSongIsMentioned()
{
    const QString source = pageSource(QString::fromLatin1(QTest::currentDataTag()));
    const qsizetype begin = source.indexOf(QStringLiteral("<a name=\"names\">"));
    const QString section =
        source.mid(begin, source.indexOf(QStringLiteral("<h2>"), begin) - begin);
    const QStringList untitled =
        found(section, QStringLiteral("<b>(ohne Titel|without a title|senza titolo)</b>"));
    QCOMPARE(untitled.size(), 1);
}

void TestHelpPages::clickInTheContentsScrollsToTheSection()
{
    HelpDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    auto *const page = dialog.findChild<QTextEdit *>(QStringLiteral("textEdit"));
    const QPoint link = pointOnLink(*page, QStringLiteral("#backup"));
    QVERIFY2(link.x() >= 0, "the contents are at the top of the page");
    QCOMPARE(page->verticalScrollBar()->value(), 0);
    QTest::mouseClick(page->viewport(), Qt::LeftButton, {}, link);
    const int scrolled = page->verticalScrollBar()->value();
    QVERIFY(scrolled > 0);

    page->scrollToAnchor(QStringLiteral("backup"));
    QCOMPARE(page->verticalScrollBar()->value(), scrolled);
}

void TestHelpPages::languagesAreThoseOfTheMenu()
{
    QFETCH(QString, language);
    const QString section =
        sectionOf(pageSource(QFileInfo(branding().helpPage(language)).fileName()),
                  QStringLiteral("language"));
    const struct {
        QString language;
        QString name;
    } all[] = {{languages::italian, QStringLiteral("Italiano")},
               {languages::english, QStringLiteral("English")},
               {languages::german, QStringLiteral("Deutsch")}};
    for (const auto &one : all) {
        QVERIFY2(section.contains(one.name) == branding().languages.contains(one.language),
                 qPrintable(one.name));
    }
}

void TestHelpPages::everyPictureIsShown()
{
    QFETCH(QString, language);
    OwnSettings::set(settings::language, language);
    HelpDialog dialog;
    auto *const page = dialog.findChild<QTextBrowser *>(QStringLiteral("textEdit"));
    const QString source = pageSource(QFileInfo(branding().helpPage(language)).fileName());
    const QList<QTextImageFormat> pictures = picturesOf(*page->document());
    QVERIFY(!pictures.isEmpty());
    QCOMPARE(pictures.size(), source.count(QStringLiteral("<img")));
    for (const QTextImageFormat &picture : pictures) {
        const QVariant shown =
            page->document()->resource(QTextDocument::ImageResource, QUrl(picture.name()));
        const QImage image = shown.userType() == QMetaType::QByteArray
                                 ? QImage::fromData(shown.toByteArray())
                                 : shown.value<QImage>();
        QVERIFY2(!image.isNull(), qPrintable(picture.name()));
    }
}

/** Where the program does not speak the language of the page, it is seen in English. */
void TestHelpPages::everyPictureSpeaksTheLanguageOfThePage()
{
    QFETCH(QString, language);
    const QString source = pageSource(QFileInfo(branding().helpPage(language)).fileName());
    const QStringList names = found(source, QStringLiteral("<img src=\"([^\"]*)\""));
    QVERIFY(!names.isEmpty());
    for (const QString &name : names) {
        const QString file = pictureFile(name, language);
        QVERIFY2(!file.isEmpty(), qPrintable(name));
        const QString place = QFileInfo(file).dir().dirName();
        if (branding().languages.contains(language))
            QVERIFY2(place == language || place.endsWith(QLatin1Char('_') + language),
                     qPrintable(file));
        const bool isOfABranding = place.contains(QLatin1Char('_'));
        if (isOfABranding)
            QVERIFY2(file.startsWith(branding().helpPictures), qPrintable(file));
    }
}

/** Qt hands no alternative texts to a screen reader, but the words below the picture. */
void TestHelpPages::screenReaderIsToldOfEveryPicture()
{
    QFETCH(QString, language);
    OwnSettings::set(settings::language, language);
    HelpDialog dialog;
    auto *const page = dialog.findChild<QTextBrowser *>(QStringLiteral("textEdit"));
    QAccessibleTextInterface *const text =
        QAccessible::queryAccessibleInterface(page)->textInterface();
    QVERIFY(text != nullptr);
    const QString told = text->text(0, text->characterCount());
    const QList<QTextImageFormat> pictures = picturesOf(*page->document());
    QVERIFY(!pictures.isEmpty());
    for (const QTextImageFormat &picture : pictures) {
        const QString words = picture.property(QTextFormat::ImageAltText).toString();
        QVERIFY2(!words.isEmpty() && told.contains(words), qPrintable(picture.name()));
    }
}

/** In words for those who do not see it; the same ones stand below it. */
void TestHelpPages::everyPictureIsDescribed()
{
    const QString source = pageSource(QString::fromLatin1(QTest::currentDataTag()));
    const QString described =
        QStringLiteral("<img src=\"[a-z]+\\.png\" alt=\"([^\"]+)\"><br><small>\\1</small>");
    QVERIFY(source.contains(QStringLiteral("<img")));
    QCOMPARE(found(source, described).size(), source.count(QStringLiteral("<img")));
}

void TestHelpPages::everySectionWithStepsHasAPicture()
{
    // These tell rules, and what to do about troubles of every kind.
    const QStringList withoutSteps{QStringLiteral("characters"), QStringLiteral("limits"),
                                   QStringLiteral("trouble")};
    const QString source = pageSource(QString::fromLatin1(QTest::currentDataTag()));
    const QStringList sections = found(source, QStringLiteral("<h2><a name=\"([^\"]*)\""));
    QVERIFY(sections.size() > withoutSteps.size());
    for (const QString &section : sections) {
        if (!withoutSteps.contains(section))
            QVERIFY2(sectionOf(source, section).contains(QStringLiteral("<img")),
                     qPrintable(section));
    }
}

void TestHelpPages::eachOfTheFirstStepsHasAPicture()
{
    const QString source = pageSource(QString::fromLatin1(QTest::currentDataTag()));
    const QString start = sectionOf(source, QStringLiteral("start"));
    const QStringList steps = found(start, QStringLiteral("(<li>(?s:.*?)</li>)"));
    QCOMPARE(steps.size(), 5);
    for (const QString &step : steps)
        QVERIFY2(step.contains(QStringLiteral("<img")), qPrintable(step));
}

void TestHelpPages::noPictureIsKeptTwice()
{
    QHash<QByteArray, QString> files;
    QDirIterator all(QStringLiteral(":/help"), {QStringLiteral("*.png")}, QDir::Files,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        QFile file(all.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        QVERIFY2(!files.contains(bytes),
                 qPrintable(file.fileName() + QStringLiteral(" is ") + files.value(bytes)));
        files.insert(bytes, file.fileName());
    }
    QVERIFY(!files.isEmpty());
}

void TestHelpPages::picturesAreSmall()
{
    constexpr int widest = 640; // beside the scroll bar of the help's window
    constexpr qint64 mostBytes = 1500000;
    qint64 bytes = 0;
    QDirIterator all(QStringLiteral(":/help"), {QStringLiteral("*.png")}, QDir::Files,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString file = all.next();
        const int width = QImage(file).width();
        QVERIFY2(width > 0 && width <= widest, qPrintable(file));
        bytes += QFileInfo(file).size();
    }
    QVERIFY(bytes > 0);
    QVERIFY2(bytes < mostBytes, qPrintable(QString::number(bytes)));
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    TestHelpPages test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_helppages.moc"
