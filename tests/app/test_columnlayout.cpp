// The list's columns and the window's place: how they use the room, and what is remembered of them.
#include "support/catalogue.h"
#include "support/ownfolders.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QScreen>
#include <QToolTip>
#include <QTranslator>

namespace
{

QString s(const char *text)
{
    return QString::fromUtf8(text);
}

constexpr int titleColumn = 2;
constexpr int artistColumn = 3;
constexpr int bpmColumn = 7;
constexpr int shortnameColumn = 10;

QHeaderView *header(const WindowUnderTest &window)
{
    return window.table()->horizontalHeader();
}

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

/** Lets the window lay itself out. */
void settle(WindowUnderTest &window)
{
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QTest::qWait(20);
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

class TestColumnLayout : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        OwnSettings::clear();
        m_work.reset(new OwnWorkingFolder);
    }
    void cleanup() { m_work.reset(); }

    void columnsFillTheWindow();
    void columnsFollowTheWindow();
    void shortColumnsStayShort();
    void longTextDoesNotPushOthersAway();
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

    void placeIsRemembered();
    void placeOnAMissingScreenIsBroughtBack_data();
    void placeOnAMissingScreenIsBroughtBack();
    void placeThatIsGarbageIsIgnored_data();
    void placeThatIsGarbageIsIgnored();
    void maximisedWindowKnowsItsFormerSize();
    void refusedCloseStoresNothing();
    void otherSettingsAreUntouched();
    void windowHasRoomForItsContents_data();
    void windowHasRoomForItsContents();

private:
    QScopedPointer<OwnWorkingFolder> m_work;
};

void TestColumnLayout::columnsFillTheWindow()
{
    const Songs songs;
    WindowUnderTest window;
    settle(window);
    QCOMPARE(shownWidth(window), window.table()->viewport()->width());
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
    WindowUnderTest window;
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

// ---------------------------------------------------------------- window

void TestColumnLayout::placeIsRemembered()
{
    QPoint place;
    {
        WindowUnderTest window;
        settle(window);
        window.setGeometry(30, 40, 707, 555);
        settle(window);
        place = window.pos();
        QVERIFY(window.close());
    }
    WindowUnderTest window;
    settle(window);
    QTRY_COMPARE(window.pos(), place);
    QCOMPARE(window.size(), QSize(707, 555));
}

void TestColumnLayout::placeOnAMissingScreenIsBroughtBack_data()
{
    QTest::addColumn<QRect>("place");
    QTest::newRow("far right") << QRect(30000, 20000, 700, 600);
    QTest::newRow("far left") << QRect(-5000, -5000, 700, 600);
    QTest::newRow("larger than any screen") << QRect(0, 0, 50000, 40000);
    QTest::newRow("larger and elsewhere") << QRect(90000, 90000, 50000, 40000);
    QTest::newRow("half outside") << QRect(300, 500, 700, 500);
}

void TestColumnLayout::placeOnAMissingScreenIsBroughtBack()
{
    QFETCH(QRect, place);
    OwnSettings::set(settings::windowPlace, place);
    const WindowUnderTest window;
    const QRect screen = window.screen()->availableGeometry();
    QVERIFY(screen.contains(window.pos()));
    QVERIFY(screen.adjusted(0, 0, 8, 8).contains(window.frameGeometry())); // a frame may not fit
    // It keeps its size up to what the screen has room for, a frame included.
    const QSize largest = place.size().boundedTo(screen.size());
    const QSize lost = largest - window.size();
    QVERIFY(lost.width() >= 0 && lost.width() <= 16);
    QVERIFY(lost.height() >= 0 && lost.height() <= 48);
    QVERIFY(largest != place.size() || lost.isNull());
}

void TestColumnLayout::placeThatIsGarbageIsIgnored_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << QVariant(s("somewhere"));
    QTest::newRow("number") << QVariant(12);
    QTest::newRow("bytes") << QVariant(QByteArray(200, '\xFF'));
    QTest::newRow("no size") << QVariant(QRect(10, 10, 0, 0));
    QTest::newRow("negative size") << QVariant(QRect(10, 10, -500, -500));
}

void TestColumnLayout::placeThatIsGarbageIsIgnored()
{
    QFETCH(QVariant, value);
    QSize usual;
    {
        const WindowUnderTest window;
        usual = window.size();
    }
    OwnSettings::set(settings::windowPlace, value);
    const WindowUnderTest window;
    QCOMPARE(window.size(), usual);
}

void TestColumnLayout::maximisedWindowKnowsItsFormerSize()
{
    {
        WindowUnderTest window;
        window.setGeometry(30, 40, 700, 500);
        window.setWindowState(Qt::WindowMaximized);
        settle(window);
        QVERIFY(window.close());
    }
    WindowUnderTest window;
    settle(window);
    QVERIFY(window.isMaximized());
    QCOMPARE(window.normalGeometry(), QRect(30, 40, 700, 500));
}

void TestColumnLayout::refusedCloseStoresNothing()
{
    WindowUnderTest window;
    ModalAnswers user;
    bool asked = false;
    user.add([&](QWidget *modal) {
        asked = true;
        window.close();
        return modal->close();
    });
    window.action("actionAbout")->trigger();
    QVERIFY(asked);
    QVERIFY(!OwnSettings::value(settings::windowPlace).isValid());
    QVERIFY(window.close());
    QVERIFY(OwnSettings::value(settings::windowPlace).isValid());
}

void TestColumnLayout::otherSettingsAreUntouched()
{
    OwnSettings::set(settings::language, s("en"));
    OwnSettings::set(settings::logEnabled, true);
    WindowUnderTest window;
    QVERIFY(window.close());
    QSettings store(settings::organisation, settings::application);
    QCOMPARE(store.allKeys(), (QStringList{settings::language, settings::logEnabled,
                                           settings::windowMaximised, settings::windowPlace}));
    QCOMPARE(OwnSettings::value(settings::language).toString(), s("en"));
    QCOMPARE(OwnSettings::value(settings::logEnabled).toBool(), true);
}

void TestColumnLayout::windowHasRoomForItsContents_data()
{
    QTest::addColumn<QString>("translation");
    for (const char *name : {"quorvane_de", "quorvane_en", "kavenapc_it"})
        QTest::newRow(name) << s(":/trans/") + s(name);
}

void TestColumnLayout::windowHasRoomForItsContents()
{
    QFETCH(QString, translation);
    QTranslator translator;
    QVERIFY(translator.load(translation));
    QCoreApplication::installTranslator(&translator);
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles({songs.bad(s("x.mid")), songs.bad(s("y.mid"))});
    window.importUserLibrary();
    for (int i = 0; i < 1000; ++i)
        window.model()->addSong(SongInfo());
    window.child<QLineEdit>("filterLineEdit")->setText(s("no song"));
    QTRY_VERIFY(window.child<QLabel>("summaryLabel")->text().contains(s("1000")));
    settle(window);
    window.resize(100, 100);
    settle(window);
    QVERIFY(window.width() <= 1000); // what small screens have
    const auto *const field = window.child<QLineEdit>("filterLineEdit");
    QVERIFY(field->width() >=
            field->fontMetrics().horizontalAdvance(field->placeholderText()) + 20);
    for (const char *name : {"summaryLabel", "unreadablePushButton", "filterLabel"}) {
        const auto *const widget = window.child<QWidget>(name);
        QVERIFY2(widget->width() >= widget->sizeHint().width(), name);
    }
    for (int column = 0; column < header(window)->count(); ++column) {
        if (!window.table()->isColumnHidden(column))
            QVERIFY(window.table()->columnWidth(column) >= header(window)->sectionSizeHint(column));
    }
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    TestColumnLayout test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_columnlayout.moc"
