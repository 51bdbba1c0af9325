// The help pages: what their links lead to, and that they suit every palette and their branding.
#include "support/ownfolders.h"
#include "windows/helpdialog.h"

#include <QApplication>
#include <QFile>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <QTextEdit>

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

private:
    static void pages();
};

void TestHelpPages::pages()
{
    QTest::addColumn<QString>("otherBranding");
    for (const char *name : {"quorvane_help_de.html", "quorvane_help_en.html"})
        QTest::newRow(name) << "Kavena";
    for (const char *name : {"help_de.html", "help_en.html", "help_it.html"})
        QTest::newRow(name) << "RB27";
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

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    TestHelpPages test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_helppages.moc"
