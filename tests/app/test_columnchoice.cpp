// Which columns the list shows, in which order, and that this is remembered.
#include "support/apptest.h"
#include "support/columndriver.h"
#include "support/songfolder.h"
#include "support/userdriver.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>

using namespace columndriver;

namespace
{

constexpr int typeColumn = 1;
constexpr int titleColumn = 2;
constexpr int genreColumn = 4;
constexpr int folderColumn = 12;

const QString asAtFirst =
    QStringLiteral("Formato Titolo Artista Genere Autore Durata Bpm Tonalita' Nome file");

/** The headings that can be seen, from left to right. */
QString headings(const WindowUnderTest &window)
{
    QStringList texts;
    for (int place = 0; place < header(window)->count(); ++place) {
        const int column = header(window)->logicalIndex(place);
        if (!header(window)->isSectionHidden(column))
            texts << window.model()->headerData(column, Qt::Horizontal).toString();
    }
    return texts.join(QLatin1Char(' '));
}

/** Opens the menu of the headings as the right mouse button does. */
QMenu *openMenu(const WindowUnderTest &window)
{
    QWidget *const viewport = header(window)->viewport();
    const QPoint place(viewport->width() / 2, viewport->height() / 2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, viewport->mapToGlobal(place));
    QCoreApplication::sendEvent(viewport, &event);
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

QAction *entryOf(const QMenu *menu, const QString &text)
{
    for (QAction *action : menu->actions()) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

/** Clicks the entry of the menu; false when there is none. */
bool choose(WindowUnderTest &window, const QString &text)
{
    QMenu *const menu = openMenu(window);
    QAction *const entry = menu == nullptr ? nullptr : entryOf(menu, text);
    if (entry == nullptr)
        return false;
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
    settle(window);
    return QApplication::activePopupWidget() == nullptr;
}

/** Lets the heading go over the left edge of the other one. */
void dragHeading(const WindowUnderTest &window, int column, int onto)
{
    QWidget *const viewport = header(window)->viewport();
    const QPoint from(header(window)->sectionViewportPosition(column) +
                          header(window)->sectionSize(column) / 2,
                      viewport->height() / 2);
    const QPoint to(header(window)->sectionViewportPosition(onto) + 5, from.y());
    QTest::mousePress(viewport, Qt::LeftButton, {}, from);
    for (const QPoint &point : {from + (to - from) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, point, viewport->mapToGlobal(point), Qt::LeftButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &move);
    }
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, to);
}

} // namespace

class TestColumnChoice : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void folderIsHiddenUntilItIsChosen();
    void hiddenColumnComesBack();
    void columnOfTheMarksStays();
    void editMenuOffersTheSame();
    void headingsAreDraggedAndStillSort();
    void choiceAndOrderAreRemembered();
    void allIsAsAtFirstAgain();
    void orderOfAHiddenColumnCanBeSeenAndLeft();
    void storedGarbageIsIgnored_data();
    void storedGarbageIsIgnored();
    void shownColumnsFillTheWindow();
    void currentCellIsNeverHidden();
    void menuFollowsTheLanguage();

private:
    const SongFolder m_songs;
};

void TestColumnChoice::folderIsHiddenUntilItIsChosen()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    QCOMPARE(headings(window), asAtFirst);
    QVERIFY(choose(window, s("Cartella")));
    QCOMPARE(headings(window), asAtFirst + s(" Cartella"));
    QCOMPARE(window.model()->index(0, folderColumn).data().toString(),
             QFileInfo(window.model()->fileName(0)).path());
    QVERIFY(header(window)->sectionSize(folderColumn) > 0);
}

void TestColumnChoice::hiddenColumnComesBack()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    QVERIFY(choose(window, s("Genere")));
    QCOMPARE(headings(window), s("Formato Titolo Artista Autore Durata Bpm Tonalita' Nome file"));
    QVERIFY(choose(window, s("Genere")));
    QCOMPARE(headings(window), asAtFirst);
}

void TestColumnChoice::columnOfTheMarksStays()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    QMenu *const menu = openMenu(window);
    QVERIFY(menu != nullptr);
    QStringList checked;
    for (const QAction *action : menu->actions()) {
        QCOMPARE(action->isEnabled(), action->text() != s("Formato"));
        if (action->isChecked())
            checked << action->text();
    }
    QCOMPARE(checked.join(QLatin1Char(' ')), asAtFirst);
    menu->close();
}

void TestColumnChoice::editMenuOffersTheSame()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    auto *const menu = window.child<QMenu>("menuColumns");
    QVERIFY(window.child<QMenu>("menuEdit")->actions().contains(menu->menuAction()));
    emit menu->aboutToShow();
    entryOf(menu, s("Bpm"))->trigger();
    QVERIFY(!headings(window).contains(s("Bpm")));
}

void TestColumnChoice::headingsAreDraggedAndStillSort()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    dragHeading(window, genreColumn, titleColumn);
    QCOMPARE(headings(window),
             s("Formato Genere Titolo Artista Autore Durata Bpm Tonalita' Nome file"));
    QCOMPARE(window.shownNames(), (QStringList{s("b.mid"), s("a.mid")})); // dragging is no click
    const QPoint title(header(window)->sectionViewportPosition(titleColumn) + 20, 5);
    QTest::mouseClick(header(window)->viewport(), Qt::LeftButton, {}, title);
    QCOMPARE(window.shownNames(), (QStringList{s("a.mid"), s("b.mid")}));
}

void TestColumnChoice::choiceAndOrderAreRemembered()
{
    const QString expected = s("Formato Titolo Artista Autore Durata Bpm Cartella Tonalita'");
    {
        WindowUnderTest window;
        importTwo(window, m_songs);
        for (const char *text : {"Genere", "Nome file", "Cartella"})
            QVERIFY(choose(window, s(text)));
        dragHeading(window, folderColumn, 8);
        QCOMPARE(headings(window), expected);
        QVERIFY(window.close());
    }
    {
        WindowUnderTest window;
        importTwo(window, m_songs);
        QCOMPARE(headings(window), expected);
        QVERIFY(window.close());
    }
    QCOMPARE(OwnSettings::value(settings::columnOrder).toStringList().indexOf(s("folder")), 8);
}

void TestColumnChoice::allIsAsAtFirstAgain()
{
    OwnSettings::set(s("columnwidths/userbpm"), 150);
    OwnSettings::set(s("columnwidths/genre"), 190);
    WindowUnderTest window;
    importTwo(window, m_songs);
    QVERIFY(choose(window, s("Genere")));
    QVERIFY(choose(window, s("Cartella")));
    dragHeading(window, titleColumn, typeColumn);
    QCOMPARE(window.table()->columnWidth(7), 150);
    QVERIFY(choose(window, s("Come all'inizio")));
    QCOMPARE(headings(window), asAtFirst);
    QVERIFY(window.table()->columnWidth(7) < 150);
    QVERIFY(window.close());
    for (const QString &key : {settings::columnOrder, settings::columnsShown,
                               s("columnwidths/userbpm"), s("columnwidths/genre")})
        QVERIFY2(!OwnSettings::value(key).isValid(), qPrintable(key));
}

void TestColumnChoice::orderOfAHiddenColumnCanBeSeenAndLeft()
{
    const QStringList byTitle{s("a.mid"), s("b.mid")};
    {
        WindowUnderTest window;
        importTwo(window, m_songs);
        auto *const sort = window.child<QMenu>("menuSort");
        emit sort->aboutToShow();
        entryOf(sort, s("Titolo"))->trigger();
        QVERIFY(choose(window, s("Titolo")));
        QCOMPARE(window.shownNames(), byTitle);
        QVERIFY(window.close());
    }
    WindowUnderTest window;
    importTwo(window, m_songs);
    QCOMPARE(window.shownNames(), byTitle);
    auto *const sort = window.child<QMenu>("menuSort");
    emit sort->aboutToShow();
    QVERIFY(entryOf(sort, s("Titolo"))->isChecked());
    entryOf(sort, s("Ordine di importazione"))->trigger();
    QCOMPARE(window.shownNames(), (QStringList{s("b.mid"), s("a.mid")}));
}

void TestColumnChoice::storedGarbageIsIgnored_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("order of unknown columns")
        << settings::columnOrder << QVariant(QStringList{s("nonsense"), s(""), s("x")});
    QTest::newRow("order that names a column twice")
        << settings::columnOrder << QVariant(QStringList{s("id"), s("id"), s("type"), s("id")});
    QTest::newRow("order that is a number") << settings::columnOrder << QVariant(7);
    QTest::newRow("columns that are not offered")
        << settings::columnsShown
        << QVariant(QString(s("id filename status type title artist genre author length userbpm "
                              "key shortname"))
                        .split(QLatin1Char(' ')));
}

void TestColumnChoice::storedGarbageIsIgnored()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    OwnSettings::set(key, value);
    WindowUnderTest window;
    importTwo(window, m_songs);
    QCOMPARE(headings(window), asAtFirst);
    QVERIFY(window.close());
    QVERIFY(!OwnSettings::value(key).isValid());
}

void TestColumnChoice::shownColumnsFillTheWindow()
{
    WindowUnderTest window;
    window.resize(1300, 600);
    importTwo(window, m_songs);
    const auto width = [&window] {
        int sum = 0;
        for (int column = 0; column < header(window)->count(); ++column)
            sum += window.table()->columnWidth(column);
        return sum;
    };
    for (const char *text : {"Cartella", "Artista", "Titolo", "Titolo"}) {
        QVERIFY(choose(window, s(text)));
        QCOMPARE(width(), window.table()->viewport()->width());
    }
}

void TestColumnChoice::currentCellIsNeverHidden()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    window.table()->setCurrentIndex(window.model()->index(1, titleColumn));
    QVERIFY(choose(window, s("Titolo")));
    const QModelIndex current = window.table()->currentIndex();
    QCOMPARE(current.row(), 1);
    QVERIFY(!window.table()->isColumnHidden(current.column()));
    QVERIFY(window.table()->selectionModel()->isRowSelected(1, QModelIndex()));
}

void TestColumnChoice::menuFollowsTheLanguage()
{
    WindowUnderTest window;
    importTwo(window, m_songs);
    window.action("actionGerman")->trigger();
    QCoreApplication::processEvents();
    QMenu *const menu = openMenu(window);
    QVERIFY(menu != nullptr);
    QVERIFY(entryOf(menu, s("Ordner")) != nullptr);
    QVERIFY(entryOf(menu, s("Wie am Anfang")) != nullptr);
    menu->close();
}

int main(int argc, char *argv[])
{
    return runAppTest<TestColumnChoice>(argc, argv);
}

#include "test_columnchoice.moc"
