// The columns of the song table: widths and order.
#include "support/apptest.h"
#include "support/catalogue.h"
#include "support/columndriver.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QTest>
#include <QToolTip>

using namespace columndriver;

namespace
{

constexpr int titleColumn = 2;
constexpr int artistColumn = 3;
constexpr int bpmColumn = 7;
constexpr int shortnameColumn = 10;

int shownWidth(const WindowUnderTest &window)
{
    int width = 0;
    for (int column = 0; column < header(window)->count(); ++column)
        width += window.table()->columnWidth(column);
    return width;
}

int contentsWidth(const WindowUnderTest &window, int column)
{
    return qMax(static_cast<QAbstractItemView *>(window.table())->sizeHintForColumn(column),
                header(window)->sectionSizeHint(column));
}

/** Drags the right edge of a heading with the mouse. */
void dragEdge(const WindowUnderTest &window, int column, int by)
{
    QWidget *const viewport = header(window)->viewport();
    const int edge =
        header(window)->sectionViewportPosition(column) + header(window)->sectionSize(column) - 1;
    const int y = viewport->height() / 2;
    QTest::mouseMove(viewport, QPoint(edge, y));
    QTest::mousePress(viewport, Qt::LeftButton, {}, QPoint(edge, y));
    for (const int part : {by / 2, by}) {
        const QPoint point(edge + part, y);
        QMouseEvent move(QEvent::MouseMove, point, viewport->mapToGlobal(point), Qt::LeftButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &move);
    }
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, QPoint(edge + by, y));
}

void doubleClickEdge(const WindowUnderTest &window, int column)
{
    QWidget *const viewport = header(window)->viewport();
    const QPoint edge(header(window)->sectionViewportPosition(column) +
                          header(window)->sectionSize(column) - 1,
                      viewport->height() / 2);
    QTest::mouseMove(viewport, edge);
    QTest::mousePress(viewport, Qt::LeftButton, {}, edge);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, edge);
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, edge);
    QCoreApplication::processEvents();
}

void clickHeading(const WindowUnderTest &window, int column)
{
    const QPoint middle(header(window)->sectionViewportPosition(column) +
                            header(window)->sectionSize(column) / 2,
                        header(window)->height() / 2);
    QTest::mouseClick(header(window)->viewport(), Qt::LeftButton, {}, middle);
}

/** Songs whose names stand in another order than their titles. */
struct Songs {
    Songs()
    {
        files = {folder.midi(s("b.mid"), "Charlie"), folder.midi(s("a.mid"), "Alpha"),
                 folder.midi(s("c.mid"), "Bravo")};
    }

    void importInto(WindowUnderTest &window) const
    {
        window.setSelectedFiles(files);
        window.importUserLibrary();
        settle(window);
    }

    const SongFolder folder;
    QStringList files;
    const QStringList asPicked{s("b.mid"), s("a.mid"), s("c.mid")};
    const QStringList byTitle{s("a.mid"), s("c.mid"), s("b.mid")};
};

} // namespace

class TestColumnLayout : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void columnsFillTheWindow();
    void columnsFollowTheWindow();
    void shortColumnsStayShort();
    void longTextDoesNotPushOthersAway();
    void rowsFitTheFontOfTheDesktop();
    void cutTextIsShownAsToolTip();
    void synchronisedTextsAreFitted();

    void draggedWidthIsKeptAndRemembered();
    void doubleClickGivesAColumnBackToItsContents();
    void storedGarbageIsIgnored_data();
    void storedGarbageIsIgnored();

    void rowsStandAsPickedWithoutAChoice();
    void chosenOrderIsRemembered();
    void thirdClickBringsBackTheOrderOfTheImport();
    void sortMenuDoesWhatHeadingsDo();
    void storedOrderOfUnknownColumnsIsIgnored();
};

void TestColumnLayout::columnsFillTheWindow()
{
    const Songs songs;
    WindowUnderTest window;
    songs.importInto(window);
    QCOMPARE(shownWidth(window), window.table()->viewport()->width());
    QVERIFY(window.table()->columnWidth(titleColumn) > contentsWidth(window, titleColumn));
    for (int column = 1; column <= shortnameColumn; ++column) {
        if (!window.table()->isColumnHidden(column))
            QVERIFY(window.table()->columnWidth(column) >= contentsWidth(window, column));
    }
}

void TestColumnLayout::columnsFollowTheWindow()
{
    const Songs songs;
    WindowUnderTest window;
    songs.importInto(window);
    for (const int width : {1300, 900, 1000}) {
        window.resize(width, 600);
        settle(window);
        QCOMPARE(shownWidth(window), window.table()->viewport()->width());
    }
}

void TestColumnLayout::shortColumnsStayShort()
{
    const Songs songs;
    WindowUnderTest window;
    window.resize(1600, 600);
    songs.importInto(window);
    QCOMPARE(window.table()->columnWidth(bpmColumn), contentsWidth(window, bpmColumn));
}

void TestColumnLayout::longTextDoesNotPushOthersAway()
{
    const Songs songs;
    WindowUnderTest window;
    window.resize(1000, 600);
    window.setSelectedFiles({songs.folder.midi(s("long.mid"), QByteArray(120, 'W'))});
    window.importUserLibrary();
    settle(window);
    QCOMPARE(shownWidth(window), window.table()->viewport()->width());
    QVERIFY(window.table()->columnWidth(titleColumn) >= 150);
}

void TestColumnLayout::rowsFitTheFontOfTheDesktop()
{
    const Songs songs;
    const QFont before = QApplication::font();
    for (const int points : {before.pointSize(), 30}) {
        QFont font = before;
        font.setPointSize(points);
        QApplication::setFont(font);
        WindowUnderTest window;
        songs.importInto(window);
        const auto *const view = static_cast<QAbstractItemView *>(window.table());
        const int needed = view->sizeHintForRow(0);
        QVERIFY(needed >= window.table()->fontMetrics().height());
        QVERIFY(window.table()->rowHeight(0) >= needed);
    }
    QApplication::setFont(before);
}

void TestColumnLayout::cutTextIsShownAsToolTip()
{
    const Songs songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.folder.midi(s("long.mid"), "<b>" + QByteArray(100, 'W'))});
    window.importUserLibrary();
    settle(window);
    const auto rest = [&](int column) {
        QWidget *const viewport = window.table()->viewport();
        const QPoint point = window.table()->visualRect(window.model()->index(0, column)).center();
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, point, viewport->mapToGlobal(point));
        QCoreApplication::sendEvent(viewport, &help);
        return QToolTip::text();
    };
    QCOMPARE(rest(shortnameColumn), QString());
    QCOMPARE(rest(titleColumn),
             s("<span>&lt;b&gt;") + QString(100, QLatin1Char('W')) + s("</span>"));
}

void TestColumnLayout::synchronisedTextsAreFitted()
{
    catalogue::Row row;
    row.filename = s("A");
    row.title = s("A TITLE");
    row.altartist = s("An artist with a name that is longer than any heading is");
    QVERIFY(catalogue::write(catalogue::overrideFile, {row}));
    const SongFolder songs;
    WindowUnderTest window;
    window.resize(1400, 600);
    window.setSelectedFiles({songs.signedMidi(s("a.mid"), "A")});
    window.importUserLibrary();
    settle(window);
    ModalAnswers user;
    user.click<BackupDialog>(s("exitPushButton"));
    QTest::mouseClick(window.updateButton(), Qt::LeftButton);
    settle(window);
    QCOMPARE(window.model()->index(0, artistColumn).data().toString(), row.altartist);
    QVERIFY(window.table()->columnWidth(artistColumn) >= contentsWidth(window, artistColumn));
    QCOMPARE(shownWidth(window), window.table()->viewport()->width());
}

// ---------------------------------------------------------------- the user's own widths
void TestColumnLayout::draggedWidthIsKeptAndRemembered()
{
    const Songs songs;
    int width = 0;
    {
        WindowUnderTest window;
        songs.importInto(window);
        width = window.table()->columnWidth(titleColumn) + 40;
        dragEdge(window, titleColumn, 40);
        QCOMPARE(window.table()->columnWidth(titleColumn), width);
        songs.importInto(window);
        QCOMPARE(window.table()->columnWidth(titleColumn), width);
        window.resize(window.width() + 150, window.height());
        settle(window);
        QCOMPARE(window.table()->columnWidth(titleColumn), width);
        QCOMPARE(shownWidth(window), window.table()->viewport()->width());
        QVERIFY(window.close());
    }
    WindowUnderTest window;
    songs.importInto(window);
    QCOMPARE(window.table()->columnWidth(titleColumn), width);
}

void TestColumnLayout::doubleClickGivesAColumnBackToItsContents()
{
    OwnSettings::set(s("columnwidths/userbpm"), 150);
    const Songs songs;
    {
        WindowUnderTest window;
        songs.importInto(window);
        QCOMPARE(window.table()->columnWidth(bpmColumn), 150);
        doubleClickEdge(window, bpmColumn);
        QCOMPARE(window.table()->columnWidth(bpmColumn), contentsWidth(window, bpmColumn));
        QVERIFY(window.close());
    }
    QVERIFY(!OwnSettings::value(s("columnwidths/userbpm")).isValid());
}

void TestColumnLayout::storedGarbageIsIgnored_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << s("columnwidths/userbpm") << QVariant(s("wide"));
    QTest::newRow("negative") << s("columnwidths/userbpm") << QVariant(-5);
    QTest::newRow("nothing") << s("columnwidths/userbpm") << QVariant(0);
    QTest::newRow("far too wide") << s("columnwidths/userbpm") << QVariant(2000000000);
    QTest::newRow("list") << s("columnwidths/userbpm") << QVariant(QStringList{s("1"), s("2")});
    QTest::newRow("unknown column") << s("columnwidths/nonsense") << QVariant(100);
    QTest::newRow("hidden column") << s("columnwidths/filename") << QVariant(100);
    QTest::newRow("no group") << s("columnwidths") << QVariant(100);
}

void TestColumnLayout::storedGarbageIsIgnored()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    OwnSettings::set(key, value);
    const Songs songs;
    WindowUnderTest window;
    songs.importInto(window);
    QCOMPARE(window.table()->columnWidth(bpmColumn), contentsWidth(window, bpmColumn));
    QCOMPARE(shownWidth(window), window.table()->viewport()->width());
    QVERIFY(window.table()->isColumnHidden(window.model()->colIdxFilename()));
    QVERIFY(window.close());
    QVERIFY(!OwnSettings::value(key).isValid());
}

// ---------------------------------------------------------------- order
void TestColumnLayout::rowsStandAsPickedWithoutAChoice()
{
    const Songs songs;
    {
        WindowUnderTest window;
        songs.importInto(window);
        QCOMPARE(window.shownNames(), songs.asPicked);
        window.table()->sortByColumn(titleColumn, Qt::AscendingOrder); // nobody's choice
        songs.importInto(window);
        QCOMPARE(window.shownNames(), songs.asPicked);
        QVERIFY(window.close());
    }
    QVERIFY(!OwnSettings::value(settings::sortField).isValid());
    WindowUnderTest window;
    songs.importInto(window);
    QCOMPARE(window.shownNames(), songs.asPicked);
}

void TestColumnLayout::chosenOrderIsRemembered()
{
    const Songs songs;
    {
        WindowUnderTest window;
        songs.importInto(window);
        clickHeading(window, titleColumn);
        QCOMPARE(window.shownNames(), songs.byTitle);
        songs.importInto(window);
        QCOMPARE(window.shownNames(), songs.byTitle);
        clickHeading(window, titleColumn);
        QVERIFY(window.close());
    }
    WindowUnderTest window;
    songs.importInto(window);
    QCOMPARE(window.shownNames(), QStringList(songs.byTitle.crbegin(), songs.byTitle.crend()));
    QCOMPARE(header(window)->sortIndicatorSection(), titleColumn);
    QCOMPARE(header(window)->sortIndicatorOrder(), Qt::DescendingOrder);
}

void TestColumnLayout::thirdClickBringsBackTheOrderOfTheImport()
{
    const Songs songs;
    WindowUnderTest window;
    songs.importInto(window);
    for (int i = 0; i < 3; ++i)
        clickHeading(window, titleColumn);
    QCOMPARE(window.shownNames(), songs.asPicked);
    QVERIFY(window.close());
    QVERIFY(!OwnSettings::value(settings::sortField).isValid());
    QVERIFY(!OwnSettings::value(settings::sortDescending).isValid());
}

void TestColumnLayout::sortMenuDoesWhatHeadingsDo()
{
    const Songs songs;
    WindowUnderTest window;
    songs.importInto(window);
    auto *const menu = window.child<QMenu>("menuSort");
    const auto choose = [&](const QString &entry) {
        emit menu->aboutToShow();
        for (QAction *action : menu->actions()) {
            if (action->text() == entry)
                return action->trigger();
        }
        QFAIL("no such entry");
    };
    choose(s("Titolo"));
    QCOMPARE(window.shownNames(), songs.byTitle);
    choose(s("Titolo"));
    QCOMPARE(window.shownNames().first(), s("b.mid"));
    emit menu->aboutToShow();
    QStringList texts;
    QStringList checked;
    for (const QAction *action : menu->actions()) {
        texts << action->text();
        if (action->isChecked())
            checked << action->text();
    }
    QCOMPARE(texts, (QStringList{s("Ordine di importazione"), QString(), s("Formato"), s("Titolo"),
                                 s("Artista"), s("Genere"), s("Autore"), s("Durata"), s("Bpm"),
                                 s("Tonalita'"), s("Nome file")}));
    QCOMPARE(checked, QStringList{s("Titolo")});
    choose(s("Ordine di importazione"));
    QCOMPARE(window.shownNames(), songs.asPicked);
    QVERIFY(window.close());
    QVERIFY(!OwnSettings::value(settings::sortField).isValid());
}

void TestColumnLayout::storedOrderOfUnknownColumnsIsIgnored()
{
    const Songs songs;
    for (const char *field : {"nonsense", "id", "filename", "status", ""}) {
        OwnSettings::set(settings::sortField, s(field));
        OwnSettings::set(settings::sortDescending, s("perhaps"));
        WindowUnderTest window;
        songs.importInto(window);
        QCOMPARE(window.shownNames(), songs.asPicked);
    }
}

int main(int argc, char *argv[])
{
    return runAppTest<TestColumnLayout>(argc, argv);
}

#include "test_columnlayout.moc"
