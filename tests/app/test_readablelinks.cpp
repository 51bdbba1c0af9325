// Links in palettes that have no colour for them.
#include "support/ownfolders.h"
#include "support/windowundertest.h"
#include "windows/aboutdialog.h"
#include "windows/helpdialog.h"
#include "windows/readablelinks.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QStyle>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>

namespace
{

/** A dark palette whose link colours are those of a light one. */
QPalette darkPalette()
{
    QPalette dark(QColor(53, 53, 53), QColor(42, 42, 42));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, Qt::white);
    return dark;
}

/** The bluest colour in the picture of the widget: that of its links. */
QColor linkColourIn(QWidget *widget)
{
    const QImage picture = widget->grab().toImage();
    QColor bluest;
    int best = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            const int blue = colour.blue() - colour.red();
            if (blue > best) {
                best = blue;
                bluest = colour;
            }
        }
    }
    return bluest;
}

} // namespace

class TestReadableLinks : public QObject
{
    Q_OBJECT

private slots:
    void init() { OwnSettings::clear(); }
    void cleanup() { QApplication::setPalette(QApplication::style()->standardPalette()); }

    void contrastIsThatOfTheEye();
    void linksInTheWindowsAreReadable_data();
    void linksInTheWindowsAreReadable();
    void linkColourOfThePaletteStays();
    void otherColoursStay();
    void lightPaletteAfterADarkOneIsReadableToo();
};

void TestReadableLinks::contrastIsThatOfTheEye()
{
    QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
    QCOMPARE(contrast(Qt::red, Qt::red), 1.0);
    // The blue of links in light palettes, on the grey of dark windows.
    QVERIFY(contrast(Qt::blue, QColor(53, 53, 53)) < 1.7);
    QCOMPARE(contrast(Qt::blue, Qt::white), contrast(Qt::white, Qt::blue));
}

void TestReadableLinks::linksInTheWindowsAreReadable_data()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("dark") << true;
    QTest::newRow("light") << false;
}

void TestReadableLinks::linksInTheWindowsAreReadable()
{
    QFETCH(bool, dark);
    const WindowUnderTest window;
    if (dark)
        QApplication::setPalette(darkPalette());
    const QColor windowColour = QApplication::palette().color(QPalette::Window);
    const QColor pageColour = QApplication::palette().color(QPalette::Base);

    AboutDialog about;
    QWidget *const notice = about.findChild<QLabel *>(QStringLiteral("infoLabel"));
    QVERIFY(contrast(linkColourIn(notice), windowColour) >= 4.5);

    HelpDialog help;
    help.show();
    QWidget *const page = help.findChild<QTextBrowser *>(QStringLiteral("textEdit"))->viewport();
    QVERIFY(contrast(linkColourIn(page), pageColour) >= 4.5);

    double aboutQt = 0;
    QTimer::singleShot(0, &window, [&] {
        QWidget *const box = QApplication::activeModalWidget();
        aboutQt = contrast(
            linkColourIn(box->findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"))),
            windowColour);
        box->close();
    });
    QMessageBox::aboutQt(nullptr);
    QVERIFY(aboutQt >= 4.5);
}

void TestReadableLinks::linkColourOfThePaletteStays()
{
    const WindowUnderTest window;
    QPalette dark = darkPalette();
    dark.setColor(QPalette::Link, QColor(90, 170, 240));
    QApplication::setPalette(dark);
    QCOMPARE(QApplication::palette().color(QPalette::Link), QColor(90, 170, 240));
}

void TestReadableLinks::otherColoursStay()
{
    const WindowUnderTest window;
    QApplication::setPalette(darkPalette());
    QCOMPARE(QApplication::palette().color(QPalette::Window),
             darkPalette().color(QPalette::Window));
    QCOMPARE(QApplication::palette().color(QPalette::Text), QColor(Qt::white));
}

void TestReadableLinks::lightPaletteAfterADarkOneIsReadableToo()
{
    const WindowUnderTest window;
    QApplication::setPalette(darkPalette());
    QPalette light = QApplication::style()->standardPalette();
    light.setColor(QPalette::Link, QApplication::palette().color(QPalette::Link));
    QApplication::setPalette(light);
    const QPalette now = QApplication::palette();
    QVERIFY(contrast(now.color(QPalette::Link), now.color(QPalette::Base)) >= 4.5);
    QVERIFY(contrast(now.color(QPalette::Link), now.color(QPalette::Window)) >= 4.5);
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    TestReadableLinks test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_readablelinks.moc"
