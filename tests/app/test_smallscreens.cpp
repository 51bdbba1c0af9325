// Small screens: no window is larger than the screen, and everything in it can be reached. Each
// screen is tried by a process of its own.
#include "support/everywindow.h"
#include "support/ownfolders.h"
#include "support/settled.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QTextStream>
#include <QToolButton>
#include <QTranslator>

namespace
{

/** True for a widget that the user can scroll into sight. */
bool isInScrollArea(const QWidget *widget)
{
    for (const QWidget *parent = widget; parent != nullptr; parent = parent->parentWidget()) {
        if (qobject_cast<const QScrollArea *>(parent) != nullptr)
            return true;
    }
    return false;
}

/** What is wrong with a window that is shown, one line each. */
QStringList complaints(const QWidget &window)
{
    QStringList wrong;
    const QRect room = window.screen()->availableGeometry();
    if (!room.contains(window.frameGeometry()))
        wrong << QStringLiteral("%1 x %2 at %3,%4 on a screen of %5 x %6")
                     .arg(window.frameGeometry().width())
                     .arg(window.frameGeometry().height())
                     .arg(window.x())
                     .arg(window.y())
                     .arg(room.width())
                     .arg(room.height());
    const QList<QWidget *> widgets = window.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!widget->isVisible() || widget->window() != &window || isInScrollArea(widget))
            continue;
        // The field of a box with a field has less than it would have alone, and so has the button
        // that clears a field.
        const bool isPart =
            qobject_cast<const QComboBox *>(widget->parentWidget()) != nullptr ||
            qobject_cast<const QAbstractSpinBox *>(widget->parentWidget()) != nullptr ||
            qobject_cast<const QLineEdit *>(widget->parentWidget()) != nullptr;
        if (isPart)
            continue;
        const bool isUsed = qobject_cast<const QAbstractButton *>(widget) != nullptr ||
                            qobject_cast<const QLineEdit *>(widget) != nullptr ||
                            qobject_cast<const QComboBox *>(widget) != nullptr ||
                            qobject_cast<const QAbstractSpinBox *>(widget) != nullptr ||
                            qobject_cast<const QStatusBar *>(widget) != nullptr;
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        if (isUsed && !window.rect().contains(place))
            wrong << widget->objectName() + QStringLiteral(" lies outside");
        if (isUsed && widget->height() < widget->minimumSizeHint().height())
            wrong << widget->objectName() + QStringLiteral(" is squeezed");
    }
    return wrong;
}

int lookAtEveryWindow()
{
    QTextStream out(stdout);
    QTranslator translator;
    if (translator.load(QStringLiteral(":/trans/quorvane_de")))
        QCoreApplication::installTranslator(&translator);
    const MainWindow main; // looks after all windows
    for (const everywindow::Case &described : everywindow::windows()) {
        // Below the least height of the main window there is no room for the bar above its list.
        constexpr int leastHeight = 480;
        if (QLatin1String(described.name) == QLatin1String("library-no-match") &&
            QGuiApplication::primaryScreen()->geometry().height() < leastHeight)
            continue;
        const everywindow::Shown shown(described);
        if (!settled::processAll())
            out << described.name << " never comes to rest\n";
        // A page may scroll by itself; what must not scroll is the window.
        if (shown.window->findChild<QScrollArea *>(QString(), Qt::FindDirectChildrenOnly) !=
            nullptr)
            out << described.name << " scrolls\n";
        for (const QString &line : complaints(*shown.window))
            out << described.name << ": " << line << '\n';
    }
    out << "all seen\n";
    return 0;
}

} // namespace

class TestSmallScreens : public QObject
{
    Q_OBJECT

private slots:
    void everyWindowFits_data();
    void everyWindowFits();
};

void TestSmallScreens::everyWindowFits_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("dpi");
    QTest::addColumn<QString>("scrolling");
    QTest::newRow("800 x 600") << 800 << 600 << 96 << QString();
    QTest::newRow("1366 x 768 at 144 dpi") << 1366 << 768 << 144 << QString();
    QTest::newRow("740 x 380: dialogs scroll")
        << 740 << 380 << 96
        << QStringLiteral("catalogue-entry scrolls\nedit scrolls\nseveral-replace scrolls\nmemory "
                          "scrolls\nmemory-empty "
                          "scrolls\nmemory-songs scrolls\n"
                          "memory-playlists scrolls\nmemory-duplicates scrolls\n"
                          "memory-check scrolls\n");
}

void TestSmallScreens::everyWindowFits()
{
    QFETCH(int, width);
    QFETCH(int, height);
    QFETCH(int, dpi);
    QFETCH(QString, scrolling);
    const QTemporaryDir folder;
    QFile config(folder.filePath(QStringLiteral("screens.json")));
    QVERIFY(config.open(QIODevice::WriteOnly));
    const QJsonObject screen{{QStringLiteral("name"), QStringLiteral("small")},
                             {QStringLiteral("x"), 0},
                             {QStringLiteral("y"), 0},
                             {QStringLiteral("width"), width},
                             {QStringLiteral("height"), height},
                             {QStringLiteral("logicalDpi"), dpi},
                             {QStringLiteral("logicalBaseDpi"), 96},
                             {QStringLiteral("dpr"), 1}};
    config.write(
        QJsonDocument(QJsonObject{{QStringLiteral("screens"), QJsonArray{screen}}}).toJson());
    config.close();

    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"),
                       QStringLiteral("offscreen:configfile=") + config.fileName());
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--look")});
    QVERIFY(child.waitForFinished(60000));
    QCOMPARE(QString::fromUtf8(child.readAllStandardOutput()),
             scrolling + QStringLiteral("all seen\n"));
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    if (argc == 2 && qstrcmp(argv[1], "--look") == 0)
        return lookAtEveryWindow();
    TestSmallScreens test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_smallscreens.moc"
