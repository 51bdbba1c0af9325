// The colours of the list as they arrive on the screen.
#include "support/shorttext.h"
#include "windows/statusrowdelegate.h"
#include "windows/usersongsreltablemodel.h"

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QStyleFactory>
#include <QTableView>
#include <QTest>

#include <memory>

namespace
{
QPalette darkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(20, 20, 20));
    palette.setColor(QPalette::Window, QColor(40, 40, 40));
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(30, 60, 200));
    palette.setColor(QPalette::HighlightedText, QColor(255, 240, 200));
    return palette;
}

/** Gives access to what the delegate makes of a cell. */
class ReadableDelegate : public StatusRowDelegate
{
public:
    using StatusRowDelegate::initStyleOption;
    using StatusRowDelegate::StatusRowDelegate;
};
} // namespace

class TestStatusRowDelegate : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void wholeRowHasTheColourOfItsStatus();
    void changedStatusIsRepainted();
    void textIsDarkOnADarkPalette();
    void statusTextCannotBeRead();
    void selectionIsVisibleOnEveryStatus();
    void modelWithoutAStatusColumnIsPaintedAsUsual();

private:
    QImage painted();
    QColor background(const QImage &image, int row, int column) const;

    std::unique_ptr<Database> m_database;
    std::unique_ptr<UserSongsRelTableModel> m_model;
    std::unique_ptr<QTableView> m_view;
};

void TestStatusRowDelegate::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(s("Fusion")));
}

void TestStatusRowDelegate::init()
{
    m_database = std::make_unique<Database>();
    QVERIFY(m_database->init());
    m_model = std::make_unique<UserSongsRelTableModel>(nullptr, m_database->userLibraryDb());
    for (int row = 0; row < 4; ++row) {
        SongInfo info;
        info.title = s("Title");
        info.artist = s("MMMMM");
        QVERIFY(m_model->addSong(info));
        m_model->setStatus(row, static_cast<Database::statusEnum>(row));
    }
    m_view = std::make_unique<QTableView>();
    m_view->setPalette(darkPalette());
    m_view->setModel(m_model.get());
    m_view->setItemDelegate(
        new StatusRowDelegate(m_model->colIdxStatus(), m_model->colIdxType(), m_view.get()));
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->hideColumn(m_model->colIdxStatus());
    m_view->resize(1200, 300);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void TestStatusRowDelegate::cleanup()
{
    m_view.reset();
    m_model.reset();
    m_database.reset();
}

QImage TestStatusRowDelegate::painted()
{
    QCoreApplication::processEvents();
    return m_view->viewport()->grab().toImage();
}

/** The colour just inside the lower right corner of a cell, where no text stands. */
QColor TestStatusRowDelegate::background(const QImage &image, int row, int column) const
{
    const QRect cell = m_view->visualRect(m_model->index(row, column));
    return image.pixelColor(cell.bottomRight() - QPoint(3, 3));
}

void TestStatusRowDelegate::wholeRowHasTheColourOfItsStatus()
{
    const QImage image = painted();
    const QList<QColor> expected{QColor(200, 200, 200), QColor(130, 255, 130),
                                 QColor(225, 225, 100), QColor(255, 130, 130)};
    for (int row = 0; row < 4; ++row) {
        for (const char *field : {"type", "title", "artist", "key"})
            QCOMPARE(background(image, row, m_model->fieldIndex(s(field))), expected.at(row));
    }
}

void TestStatusRowDelegate::changedStatusIsRepainted()
{
    const int title = m_model->fieldIndex(s("title"));
    painted();
    m_model->setStatus(0, Database::StatusSynced);
    QCOMPARE(background(painted(), 0, title), QColor(100, 225, 100));
}

void TestStatusRowDelegate::textIsDarkOnADarkPalette()
{
    const QImage image = painted();
    const int artist = m_model->fieldIndex(s("artist"));
    for (int row = 0; row < 4; ++row) {
        const QRect cell = m_view->visualRect(m_model->index(row, artist));
        int darkest = 255;
        int lightest = 0;
        for (int x = cell.left() + 2; x < cell.right() - 2; ++x) {
            for (int y = cell.top() + 2; y < cell.bottom() - 2; ++y) {
                darkest = qMin(darkest, qGray(image.pixel(x, y)));
                lightest = qMax(lightest, qGray(image.pixel(x, y)));
            }
        }
        QVERIFY2(darkest < 90, qPrintable(QString::number(darkest)));
        QVERIFY2(lightest - darkest > 60, "the text stands out from its background");
        QVERIFY2(lightest < 245, "no white text is left");
    }
}

void TestStatusRowDelegate::statusTextCannotBeRead()
{
    const ReadableDelegate delegate(m_model->colIdxStatus(), m_model->colIdxType());
    QStyleOptionViewItem option;
    option.palette = darkPalette();
    delegate.initStyleOption(&option, m_model->index(1, m_model->colIdxStatus()));
    QCOMPARE(option.text, s("1"));
    QCOMPARE(option.backgroundBrush.color(), QColor(130, 255, 130));
    QCOMPARE(option.palette.color(QPalette::Text), QColor(130, 255, 130));
}

void TestStatusRowDelegate::selectionIsVisibleOnEveryStatus()
{
    const int title = m_model->fieldIndex(s("title"));
    const QColor highlight = darkPalette().color(QPalette::Highlight);
    for (int row = 0; row < 4; ++row) {
        m_view->selectRow(row);
        const QImage image = painted();
        QCOMPARE(background(image, row, title), highlight);
        QVERIFY(background(image, (row + 1) % 4, title) != highlight);
    }
}

void TestStatusRowDelegate::modelWithoutAStatusColumnIsPaintedAsUsual()
{
    const ReadableDelegate delegate(99, 98);
    QStyleOptionViewItem option;
    option.palette = darkPalette();
    delegate.initStyleOption(&option, m_model->index(1, 2));
    QCOMPARE(option.backgroundBrush.color(), QColor(230, 230, 230));
    QCOMPARE(option.palette.color(QPalette::Text), QColor(Qt::white));
}

QTEST_MAIN(TestStatusRowDelegate)
#include "test_statusrowdelegate.moc"
