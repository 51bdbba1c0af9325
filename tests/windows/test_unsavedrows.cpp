// Rows of songs that could not be saved, in the table.
#include "support/librarytable.h"
#include "support/smallmedium.h"
#include "support/unsavedsongs.h"
#include "windows/statusrowdelegate.h"
#include "windows/usersongsreltablemodel.h"

#include <QHelpEvent>
#include <QImage>
#include <QTableView>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>

using namespace unsavedsongs;
using LibraryShown = LibraryOnMediumWith<UserSongsRelTableModel>;

class TestUnsavedRows : public QObject
{
    Q_OBJECT

private slots:
    void markIsShownInTheWholeRowWithoutTouchingItsColour();
    void warningSignIsPaintedBesideTheFormat();
    void toolTipOfANarrowCellTellsTextAndReason();
};

void TestUnsavedRows::markIsShownInTheWholeRowWithoutTouchingItsColour()
{
    LibraryShown library;
    UserSongsRelTableModel &model = library.model();
    model.setStatus(0, Database::StatusSynced);
    const QModelIndex status = model.rowIndex(0).siblingAtColumn(model.colIdxStatus());
    const QVariant colour = status.data(Qt::BackgroundRole);
    model.setSaveFailure(0, SaveFailure::DiskFull);
    for (int column = 0; column < model.columnCount(); ++column) {
        const QModelIndex marked = model.rowIndex(0).siblingAtColumn(column);
        QCOMPARE(marked.data(UserSongsRelTableModel::notSavedRole).toString(), full);
        QCOMPARE(marked.data(Qt::AccessibleDescriptionRole).toString(), s("Non salvata: ") + full);
        QCOMPARE(marked.data(Qt::ToolTipRole).toString(), s("Non salvata: ") + full);
        const QModelIndex other = model.rowIndex(1).siblingAtColumn(column);
        QVERIFY(!other.data(UserSongsRelTableModel::notSavedRole).isValid());
        QVERIFY(!other.data(Qt::ToolTipRole).isValid());
    }
    QCOMPARE(status.data(Qt::BackgroundRole), colour);
    QCOMPARE(model.status(0), int{Database::StatusSynced});
}

void TestUnsavedRows::warningSignIsPaintedBesideTheFormat()
{
    LibraryShown library;
    QTableView view;
    view.setModel(&library.model());
    const int type = library.model().colIdxType();
    view.setItemDelegate(new StatusRowDelegate(library.model().colIdxStatus(), type, &view));
    view.resize(1000, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const auto picture = [&](int row, int column) {
        QCoreApplication::processEvents();
        const QRect cell = view.visualRect(library.model().index(row, column));
        return view.viewport()->grab(cell).toImage();
    };
    view.resizeColumnToContents(type);
    const int narrow = view.columnWidth(type);
    const QImage plain = picture(0, type);
    const QImage title = picture(0, type + 1);

    library.model().setSaveFailure(0, SaveFailure::DiskFull);
    view.resizeColumnToContents(type);
    QVERIFY(view.columnWidth(type) > narrow); // there is room for the sign and the text
    QVERIFY(picture(0, type) != plain);
    QCOMPARE(picture(0, type + 1), title);

    library.model().setSaveFailure(0, saved);
    view.setColumnWidth(type, narrow);
    QCOMPARE(picture(0, type), plain);
}

void TestUnsavedRows::toolTipOfANarrowCellTellsTextAndReason()
{
    LibraryShown library;
    QTableView view;
    view.setModel(&library.model());
    view.setItemDelegate(
        new StatusRowDelegate(library.model().colIdxStatus(), library.model().colIdxType(), &view));
    view.resize(1000, 300);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    const int title = library.model().fieldIndex(s("title"));
    const auto tipOf = [&](int row) {
        QToolTip::hideText();
        const QPoint place = view.visualRect(library.model().index(row, title)).center();
        QHelpEvent hover(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(view.viewport(), &hover);
        QTextDocument tip;
        tip.setHtml(QToolTip::text());
        return tip.toPlainText();
    };
    library.model().setSaveFailure(0, SaveFailure::DiskFull);
    view.setColumnWidth(title, 300);
    QCOMPARE(tipOf(0), s("Non salvata: ") + full);
    view.setColumnWidth(title, 12);
    QCOMPARE(tipOf(0), s("A.mid\nNon salvata: ") + full);
    QCOMPARE(tipOf(1), s("B.mid"));
}

QTEST_MAIN(TestUnsavedRows)

#include "test_unsavedrows.moc"
