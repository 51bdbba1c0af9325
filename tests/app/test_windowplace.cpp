// The place of the main window on the screen, and its room.
#include "support/apptest.h"
#include "support/columndriver.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QTest>
#include <QTranslator>

using namespace columndriver;

class TestWindowPlace : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

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
};

// ---------------------------------------------------------------- window
void TestWindowPlace::placeIsRemembered()
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

void TestWindowPlace::placeOnAMissingScreenIsBroughtBack_data()
{
    QTest::addColumn<QRect>("place");
    QTest::newRow("far right") << QRect(30000, 20000, 700, 600);
    QTest::newRow("far left") << QRect(-5000, -5000, 700, 600);
    QTest::newRow("larger than any screen") << QRect(0, 0, 50000, 40000);
    QTest::newRow("larger and elsewhere") << QRect(90000, 90000, 50000, 40000);
    QTest::newRow("half outside") << QRect(300, 500, 700, 500);
}

void TestWindowPlace::placeOnAMissingScreenIsBroughtBack()
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

void TestWindowPlace::placeThatIsGarbageIsIgnored_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << QVariant(s("somewhere"));
    QTest::newRow("number") << QVariant(12);
    QTest::newRow("bytes") << QVariant(QByteArray(200, '\xFF'));
    QTest::newRow("no size") << QVariant(QRect(10, 10, 0, 0));
    QTest::newRow("negative size") << QVariant(QRect(10, 10, -500, -500));
}

void TestWindowPlace::placeThatIsGarbageIsIgnored()
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

void TestWindowPlace::maximisedWindowKnowsItsFormerSize()
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

void TestWindowPlace::refusedCloseStoresNothing()
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

void TestWindowPlace::otherSettingsAreUntouched()
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

void TestWindowPlace::windowHasRoomForItsContents_data()
{
    QTest::addColumn<QString>("translation");
    for (const char *name : {"quorvane_de", "quorvane_en", "kavenapc_it"})
        QTest::newRow(name) << s(":/trans/") + s(name);
}

void TestWindowPlace::windowHasRoomForItsContents()
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
    return runAppTest<TestWindowPlace>(argc, argv);
}

#include "test_windowplace.moc"
