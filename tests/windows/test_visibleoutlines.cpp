// On a dark and on a light desktop the edges of boxes and fields can be told from the window.
#include "support/shorttext.h"
#include "windows/visibleoutlines.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QStyleFactory>
#include <QTableWidget>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <memory>

namespace
{

QPalette paletteOf(const QColor &window)
{
    QPalette palette(window, window);
    const bool isDark = window.lightness() < 128;
    palette.setColor(QPalette::Base, isDark ? window.darker(120) : QColor(Qt::white));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, isDark ? Qt::white : Qt::black);
    return palette;
}

qreal luminance(const QColor &colour)
{
    const auto linear = [](qreal part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

qreal contrast(const QColor &a, const QColor &b)
{
    const qreal ofA = luminance(a) + 0.05;
    const qreal ofB = luminance(b) + 0.05;
    return std::max(ofA, ofB) / std::min(ofA, ofB);
}

/** The best contrast to the window on a line through the middle of the area, from side to side. */
qreal bestContrast(QWidget &widget, const QRect &area)
{
    const QImage picture = widget.grab().toImage();
    const QColor window = widget.palette().color(QPalette::Window);
    qreal best = 1;
    const int y = area.center().y();
    for (int x = std::max(0, area.left()); x <= std::min(area.left() + 3, picture.width() - 1); ++x)
        best = std::max(best, contrast(picture.pixelColor(x, y), window));
    return best;
}

std::unique_ptr<QWidget> made(const QString &kind)
{
    if (kind == s("check box"))
        return std::make_unique<QCheckBox>();
    if (kind == s("radio button"))
        return std::make_unique<QRadioButton>();
    if (kind == s("line edit"))
        return std::make_unique<QLineEdit>();
    if (kind == s("combo box"))
        return std::make_unique<QComboBox>();
    if (kind == s("spin box"))
        return std::make_unique<QSpinBox>();
    if (kind == s("slider"))
        return std::make_unique<QSlider>(Qt::Horizontal);
    return std::make_unique<QPushButton>();
}

} // namespace

class TestVisibleOutlines : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void edgeIsSeenOnADarkWindow_data();
    void edgeIsSeenOnADarkWindow();
    void boxInATableIsSeenOnADarkWindow();
    void menuHasAFrameOnADarkWindow();
    void defaultButtonLooksAsBefore();
    void lightWindowIsDrawnAsBefore_data() { edgeIsSeenOnADarkWindow_data(); }
    void lightWindowIsDrawnAsBefore();
    void otherStylesDrawAsTheyDo();
};

void TestVisibleOutlines::init()
{
    auto *const style = new VisibleOutlines;
    style->setBaseStyle(QStyleFactory::create(s("Fusion")));
    QApplication::setStyle(style);
}

void TestVisibleOutlines::cleanup()
{
    QApplication::setStyle(QStyleFactory::create(s("Fusion")));
}

void TestVisibleOutlines::edgeIsSeenOnADarkWindow_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *const kind : {"check box", "radio button", "line edit", "combo box",
                                   "spin box", "slider", "push button"})
        QTest::newRow(kind) << s(kind);
}

/** Three to one is what a part of a window needs to be seen by all. */
void TestVisibleOutlines::edgeIsSeenOnADarkWindow()
{
    QFETCH(QString, kind);
    for (const QColor &window : {QColor(53, 53, 53), QColor(Qt::black)}) {
        const std::unique_ptr<QWidget> widget = made(kind);
        widget->setPalette(paletteOf(window));
        widget->resize(widget->sizeHint());
        const qreal seen = bestContrast(*widget, widget->rect());
        QVERIFY2(seen >= 3, qPrintable(s("%1 on %2: %3").arg(kind, window.name()).arg(seen)));
    }
}

void TestVisibleOutlines::boxInATableIsSeenOnADarkWindow()
{
    QTableWidget table(1, 1);
    table.setPalette(paletteOf(QColor(53, 53, 53)));
    auto *const item = new QTableWidgetItem;
    item->setCheckState(Qt::Unchecked);
    table.setItem(0, 0, item);
    table.horizontalHeader();
    table.resize(200, 100);
    QStyleOptionViewItem option;
    option.initFrom(&table);
    option.features = QStyleOptionViewItem::HasCheckIndicator;
    option.rect = table.visualItemRect(item);
    const QRect box = QApplication::style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator,
                                                            &option, &table);
    QImage picture = table.viewport()->grab().toImage();
    const QColor base = table.palette().color(QPalette::Base);
    qreal best = 1;
    for (int x = box.left(); x < box.left() + 3; ++x)
        best = std::max(best, contrast(picture.pixelColor(x, box.center().y()), base));
    QVERIFY2(best >= 3, qPrintable(QString::number(best)));
}

void TestVisibleOutlines::menuHasAFrameOnADarkWindow()
{
    QMenu menu;
    menu.setPalette(paletteOf(Qt::black));
    menu.addAction(s("Open"));
    menu.addAction(s("Close"));
    menu.resize(menu.sizeHint());
    const qreal seen = bestContrast(menu, menu.rect());
    QVERIFY2(seen >= 3, qPrintable(QString::number(seen)));
}

void TestVisibleOutlines::defaultButtonLooksAsBefore()
{
    const auto picture = [] {
        QPushButton button;
        button.setPalette(paletteOf(QColor(53, 53, 53)));
        button.setDefault(true);
        button.resize(button.sizeHint());
        return button.grab().toImage();
    };
    const QImage with = picture();
    cleanup();
    QCOMPARE(with, picture());
}

void TestVisibleOutlines::lightWindowIsDrawnAsBefore()
{
    QFETCH(QString, kind);
    const auto picture = [&kind] {
        const std::unique_ptr<QWidget> widget = made(kind);
        widget->setPalette(paletteOf(QColor(240, 240, 240)));
        widget->resize(widget->sizeHint());
        return widget->grab().toImage();
    };
    const QImage with = picture();
    cleanup();
    QCOMPARE(with, picture());
}

void TestVisibleOutlines::otherStylesDrawAsTheyDo()
{
    const auto picture = [] {
        QCheckBox box;
        box.setPalette(paletteOf(Qt::black));
        box.resize(box.sizeHint());
        return box.grab().toImage();
    };
    auto *const style = new VisibleOutlines;
    style->setBaseStyle(QStyleFactory::create(s("Windows")));
    QApplication::setStyle(style);
    const QImage with = picture();
    QApplication::setStyle(QStyleFactory::create(s("Windows")));
    QCOMPARE(with, picture());
}

QTEST_MAIN(TestVisibleOutlines)
#include "test_visibleoutlines.moc"
