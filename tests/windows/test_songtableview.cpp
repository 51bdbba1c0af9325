// The song table in a view.
#include "support/modelfixture.h"
#include "windows/statusrowdelegate.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include <ctime>

using namespace modelfixture;

class TestSongTableView : public ModelFixture
{
    Q_OBJECT

private slots:
    void init() { ModelFixture::init(); }
    void cleanup() { ModelFixture::cleanup(); }

    void rowsStandInImportOrderInAViewWithSorting();
    void headerClickSortsAndRowNumbersFollow();
    void sortingKeepsTheCurrentRow();

    void removingKeepsTheViewsPlace();

    void tenThousandRowsAreQuick();
};

void TestSongTableView::rowsStandInImportOrderInAViewWithSorting()
{
    QTableView before;
    before.setSortingEnabled(true);
    before.setModel(m_model.get());
    addTitles(s("m z"));
    QTableView after;
    after.setModel(m_model.get());
    after.setSortingEnabled(true); // sorts by column 0, descending, at once
    addTitles(s("a k"));
    QCOMPARE(titles(), s("m z a k"));
    QVERIFY(m_model->select());
    QCOMPARE(titles(), s("m z a k"));
}

void TestSongTableView::headerClickSortsAndRowNumbersFollow()
{
    QTableView view;
    view.setSortingEnabled(true);
    view.setModel(m_model.get());
    view.hideColumn(0);
    view.resize(900, 300);
    m_tester.reset();
    for (int i = 0; i < 300; ++i)
        QVERIFY(m_model->addSong(
            song(QStringLiteral("t%1").arg(i * 7 % 300, 3, 10, QLatin1Char('0')))));
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));

    const int column = m_model->fieldIndex(s("title"));
    QHeaderView *const header = view.horizontalHeader();
    const QPoint title(header->sectionViewportPosition(column) + 20, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, title);
    QCOMPARE(m_model->fileName(0), s("/music/t000"));
    QCOMPARE(m_model->fileName(299), s("/music/t299"));

    m_model->setStatus(290, Database::StatusSynced);
    SongInfo changed = song(s("t291"));
    changed.artist = s("Changed");
    m_model->updateRow(291, changed);
    QCOMPARE(m_model->fileName(290), s("/music/t290"));
    QCOMPARE(stored(290, s("filename")), s("/music/t290"));
    QCOMPARE(stored(290, s("status")), s("1"));
    QCOMPARE(stored(291, s("filename")), s("/music/t291"));
    QCOMPARE(stored(291, s("artist")), s("Changed"));
    QSqlQuery others(m_database->userLibraryDb());
    QVERIFY(
        others.exec(s("select count(*) from usersongs where status = 1 or artist = 'Changed'")));
    QVERIFY(others.next());
    QCOMPARE(others.value(0).toInt(), 2);

    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, title);
    QCOMPARE(m_model->fileName(0), s("/music/t299"));
    QCOMPARE(m_model->status(9), 1);
}

void TestSongTableView::sortingKeepsTheCurrentRow()
{
    QTableView view;
    view.setModel(m_model.get());
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    addTitles(s("c b a"));
    view.setCurrentIndex(m_model->index(0, 2));
    m_model->sort(m_model->fieldIndex(s("title")), Qt::AscendingOrder);
    QCOMPARE(titles(), s("a b c"));
    QCOMPARE(view.currentIndex(), m_model->index(2, 2));
    QCOMPARE(view.selectionModel()->selectedRows(), QModelIndexList{m_model->index(2, 0)});
}

void TestSongTableView::removingKeepsTheViewsPlace()
{
    m_tester.reset();
    QTableView view;
    view.setModel(m_model.get());
    view.resize(600, 300);
    for (int i = 0; i < 600; ++i)
        QVERIFY(m_model->addSong(song(QString::number(i))));
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.scrollTo(m_model->index(300, 2), QAbstractItemView::PositionAtTop);
    view.setCurrentIndex(m_model->index(305, 2));
    const int place = view.verticalScrollBar()->value();
    QVERIFY(place > 0);

    QVERIFY(m_model->removeRow(303));
    QCoreApplication::processEvents();
    QCOMPARE(view.verticalScrollBar()->value(), place);
    QCOMPARE(view.currentIndex(), m_model->index(304, 2));
    QCOMPARE(view.currentIndex().data().toString(), s("305"));

    QVERIFY(m_model->removeRow(304)); // the current row itself: a neighbour takes its place
    QCoreApplication::processEvents();
    QCOMPARE(view.verticalScrollBar()->value(), place);
    QVERIFY(qAbs(view.currentIndex().row() - 304) <= 1);
}

void TestSongTableView::tenThousandRowsAreQuick()
{
    m_tester.reset();
    QTableView view;
    view.setSortingEnabled(true);
    view.setModel(m_model.get());
    view.setItemDelegate(
        new StatusRowDelegate(m_model->colIdxStatus(), m_model->colIdxType(), &view));
    view.resize(900, 600);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));

    const int count = 10000;
    // The processor's time, so that other programs of a busy machine do not count.
    const auto milliseconds = [start = std::clock()] {
        return (std::clock() - start) * 1000 / CLOCKS_PER_SEC;
    };
    for (int i = 0; i < count; ++i)
        QVERIFY(m_model->addSong(song(QStringLiteral("song %1").arg(i * 7919 % count))));
    const auto added = milliseconds();
    QCOMPARE(m_model->goodRowCount(), count);
    QCOMPARE(view.model()->rowCount(), count);

    m_model->sort(m_model->fieldIndex(s("title")), Qt::AscendingOrder);
    const auto sorted = milliseconds();
    for (int row = 0; row < count; ++row) {
        SongInfo info = song(m_model->shortName(row));
        info.title = QString::number(count - row);
        m_model->updateRow(row, info);
        m_model->setStatus(row, Database::StatusSynced);
    }
    const auto updated = milliseconds();

    // Each row of the table got what was meant for it.
    for (int row = 0; row < count; row += 997) {
        QCOMPARE(stored(row, s("filename")), m_model->fileName(row));
        QCOMPARE(stored(row, s("title")), QString::number(count - row));
        QCOMPARE(m_model->status(row), 1);
    }
    qInfo() << "ms until" << count << "rows were added, sorted, updated:" << added << sorted
            << updated;
    QVERIFY2(added < 1000, qPrintable(QString::number(added)));
    QVERIFY2(updated - sorted < 3000, qPrintable(QString::number(updated - sorted)));
}

QTEST_MAIN(TestSongTableView)

#include "test_songtableview.moc"
