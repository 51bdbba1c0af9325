// The state of a song for those who do not see its colour: signs, tool tips, texts for readers.
#include "support/shorttext.h"
#include "windows/songstates.h"
#include "windows/statusrowdelegate.h"
#include "windows/usersongsreltablemodel.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QImage>
#include <QPainter>
#include <QSet>
#include <QTableView>
#include <QTest>
#include <QTextDocument>
#include <QToolTip>

#include <memory>

namespace
{

constexpr int states = Database::StatusNotSynced + 1;

/** The sign in one colour only. */
QImage sign(int status)
{
    QImage picture(32, 32, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    SongStates::paintSign(painter, picture.rect(), SongStates::known(status), Qt::black);
    return picture;
}

int differentPixels(const QImage &a, const QImage &b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            count += qAbs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 128 ? 1 : 0;
    }
    return count;
}

} // namespace

class TestSongStates : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void signsDifferInTheirShapes();
    void unknownNumberIsNew();
    void signStandsInEachRow();
    void signCanBeSeenOnASelectedRow();
    void toolTipOfTheSignTellsTheState();
    void toolTipOfAnotherCellDoesNot();
    void reasonOfAMarkFollowsTheState();
    void readersHearTheState();
    void readersHearTheOtherCellsAsTheyAre();

private:
    QRect markCell(int row) const
    {
        return m_view->visualRect(m_model->index(row, m_model->colIdxType()));
    }
    QImage painted(int row) const
    {
        QCoreApplication::processEvents();
        return m_view->viewport()->grab(markCell(row)).toImage();
    }
    QString tipAt(int row, int column) const;

    std::unique_ptr<Database> m_database;
    std::unique_ptr<UserSongsRelTableModel> m_model;
    std::unique_ptr<QTableView> m_view;
};

void TestSongStates::init()
{
    m_database = std::make_unique<Database>();
    QVERIFY(m_database->init());
    m_model = std::make_unique<UserSongsRelTableModel>(nullptr, m_database->userLibraryDb());
    for (int row = 0; row < 2 * states; ++row) { // each state in rows of either shade
        SongInfo info;
        info.format = s("MIDI");
        info.title = s("Title");
        QVERIFY(m_model->addSong(info));
        m_model->setStatus(row, SongStates::known(row / 2));
    }
    m_view = std::make_unique<QTableView>();
    m_view->setModel(m_model.get());
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setItemDelegate(
        new StatusRowDelegate(m_model->colIdxStatus(), m_model->colIdxType(), m_view.get()));
    m_view->resize(1000, 400);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void TestSongStates::cleanup()
{
    m_view.reset();
    m_model.reset();
    m_database.reset();
}

QString TestSongStates::tipAt(int row, int column) const
{
    QToolTip::hideText();
    const QPoint place = m_view->visualRect(m_model->index(row, column)).center();
    QHelpEvent hover(QEvent::ToolTip, place, m_view->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(m_view->viewport(), &hover);
    QTextDocument tip;
    tip.setHtml(QToolTip::text());
    return tip.toPlainText();
}

void TestSongStates::signsDifferInTheirShapes()
{
    for (int a = 0; a < states; ++a) {
        for (int b = 0; b < a; ++b)
            QVERIFY2(differentPixels(sign(a), sign(b)) > 60,
                     qPrintable(s("%1 and %2").arg(a).arg(b)));
    }
}

void TestSongStates::unknownNumberIsNew()
{
    for (const int number : {-1, 0, 4, 77})
        QCOMPARE(SongStates::known(number), Database::StatusNew);
    QCOMPARE(SongStates::known(3), Database::StatusNotSynced);
}

void TestSongStates::signStandsInEachRow()
{
    // On grounds of one colour, what is left of the rows differs by the signs only.
    const auto dark = [this](int row) {
        QImage image = painted(row).convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                image.setPixelColor(x, y, qGray(image.pixel(x, y)) < 90 ? Qt::black : Qt::white);
        }
        return image;
    };
    for (int a = 0; a < states; ++a) {
        for (int b = 0; b < a; ++b)
            QVERIFY2(differentPixels(dark(2 * a), dark(2 * b)) > 10,
                     qPrintable(s("%1 and %2").arg(a).arg(b)));
    }
}

void TestSongStates::signCanBeSeenOnASelectedRow()
{
    QPalette palette = m_view->palette();
    palette.setColor(QPalette::Highlight, QColor(20, 20, 60));
    palette.setColor(QPalette::HighlightedText, QColor(255, 240, 200));
    m_view->setPalette(palette);
    for (int status = 0; status < states; ++status) {
        m_view->selectRow(2 * status);
        const QImage image = painted(2 * status);
        const int side = m_view->fontMetrics().height();
        int light = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < qMin(side, image.width()); ++x)
                light += qGray(image.pixel(x, y)) > 180 ? 1 : 0;
        }
        QVERIFY2(light > 8, qPrintable(QString::number(status)));
    }
}

void TestSongStates::toolTipOfTheSignTellsTheState()
{
    m_view->setColumnWidth(m_model->colIdxType(), 200);
    const QStringList words{s("Nuova"), s("Sincronizzata"), s("Modificata"),
                            s("Non sincronizzata")};
    for (int status = 0; status < states; ++status) {
        const QString tip = tipAt(2 * status, m_model->colIdxType());
        QVERIFY2(tip.startsWith(words.at(status) + QLatin1Char(':')), qPrintable(tip));
    }
}

void TestSongStates::toolTipOfAnotherCellDoesNot()
{
    m_view->setColumnWidth(songcolumns::Title, 200);
    QCOMPARE(tipAt(2, songcolumns::Title), QString());
}

void TestSongStates::reasonOfAMarkFollowsTheState()
{
    m_view->setColumnWidth(m_model->colIdxType(), 200);
    m_model->setSaveFailure(2, SaveFailure::DiskFull);
    const QStringList lines = tipAt(2, m_model->colIdxType()).split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines.at(0).startsWith(s("Sincronizzata:")));
    QVERIFY(lines.at(1).startsWith(s("Non salvata:")));
}

void TestSongStates::readersHearTheState()
{
    QAccessibleInterface *const view = QAccessible::queryAccessibleInterface(m_view.get());
    QVERIFY(view != nullptr && view->tableInterface() != nullptr);
    const QStringList words{s("MIDI, nuova"), s("MIDI, sincronizzata"), s("MIDI, modificata"),
                            s("MIDI, non sincronizzata")};
    for (int row = 0; row < 2 * states; ++row)
        QCOMPARE(
            view->tableInterface()->cellAt(row, m_model->colIdxType())->text(QAccessible::Name),
            words.at(row / 2));
}

void TestSongStates::readersHearTheOtherCellsAsTheyAre()
{
    for (int column = 0; column < m_model->columnCount(); ++column) {
        const QModelIndex cell = m_model->index(3, column);
        if (column != m_model->colIdxType())
            QCOMPARE(cell.data(Qt::AccessibleTextRole).toString(), cell.data().toString());
    }
}

QTEST_MAIN(TestSongStates)

#include "test_songstates.moc"
