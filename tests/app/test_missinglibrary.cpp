// A start without SQLite, or with a catalogue that cannot be opened: the user is told.
#include "support/germantexts.h"
#include "support/modalanswers.h"
#include "support/ownfolders.h"
#include "support/shorttext.h"
#include "support/windowundertest.h"
#include "windows/missinglibrary.h"

#include <QApplication>
#include <QLabel>
#include <QSqlDatabase>
#include <QTest>
#include <QTranslator>

namespace
{

/** While it lives, no temporary file can be made. */
class NoTemporaryFiles
{
public:
    NoTemporaryFiles() { qputenv("TMPDIR", "/dev/null"); }
    ~NoTemporaryFiles() { m_before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_before); }
    Q_DISABLE_COPY_MOVE(NoTemporaryFiles)

private:
    const QByteArray m_before = qgetenv("TMPDIR");
};

/** What the window tells when it has come up; empty when it tells nothing. */
QString told(WindowUnderTest &window)
{
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    window.tellMissingLibrary();
    QCoreApplication::processEvents();
    if (window.findChild<MissingLibrary *>() != nullptr)
        [&] { QTRY_VERIFY(!user.messages().isEmpty()); }();
    return user.messages().join(QLatin1Char('|'));
}

} // namespace

/** The tests come in the order of the slots: the driver, once found, stays for good. */
class TestMissingLibrary : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init() { OwnSettings::clear(); }

    void missingDriverIsTold();
    void missingDriverIsToldInEveryLanguage_data();
    void missingDriverIsToldInEveryLanguage();
    void statusBarSaysItInTheLanguageOfTheProgram();
    void choosingSongsIsAnsweredToo();
    void windowStaysUsableAfterwards();
    void catalogueThatCannotBeOpenedIsTold();
    void nothingIsToldWhenTheListIsThere();

private:
    QStringList m_libraryPaths;
};

/** Takes away the folders in which Qt looks for its drivers. */
void TestMissingLibrary::initTestCase()
{
    m_libraryPaths = QCoreApplication::libraryPaths();
    QCoreApplication::setLibraryPaths({});
    QVERIFY(!QSqlDatabase::isDriverAvailable(s("QSQLITE")));
}

void TestMissingLibrary::missingDriverIsTold()
{
    WindowUnderTest window;
    QVERIFY(window.table()->model() == nullptr);
    const QString text = told(window);
    QVERIFY2(text.startsWith(s("Attenzione: ")), qPrintable(text));
    QVERIFY2(text.contains(s("manca il modulo di Qt per i database SQLite")), qPrintable(text));
    QVERIFY(!text.contains(s("%1")));
}

void TestMissingLibrary::missingDriverIsToldInEveryLanguage_data()
{
    QTest::addColumn<QString>("words");
    QTest::newRow("quorvane_de") << s("nicht vollständig installiert");
    QTest::newRow("quorvane_en") << s("not completely installed");
    QTest::newRow("kavenapc_en") << s("not completely installed");
    QTest::newRow("kavenapc_it") << s("non è installato per intero");
}

void TestMissingLibrary::missingDriverIsToldInEveryLanguage()
{
    QFETCH(QString, words);
    QTranslator translator;
    QVERIFY(translator.load(s(":/trans/") + QString::fromUtf8(QTest::currentDataTag())));
    QCoreApplication::installTranslator(&translator);
    WindowUnderTest window;
    const QString text = told(window);
    QVERIFY2(text.contains(words) && text.contains(s("SQLite")), qPrintable(text));
}

void TestMissingLibrary::statusBarSaysItInTheLanguageOfTheProgram()
{
    const WindowUnderTest window;
    const auto *const label = window.child<QLabel>("missingLibraryLabel");
    QVERIFY(label->isVisible());
    QCOMPARE(label->text(), s("La lista delle song non è disponibile"));
    {
        const GermanTexts german;
        QCOMPARE(label->text(), s("Die Songliste ist nicht verfügbar"));
    }
    QCOMPARE(label->text(), s("La lista delle song non è disponibile"));
}

void TestMissingLibrary::choosingSongsIsAnsweredToo()
{
    const WindowUnderTest window;
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QTRY_COMPARE(user.messages().size(), 1);
}

void TestMissingLibrary::windowStaysUsableAfterwards()
{
    WindowUnderTest window;
    QVERIFY(!told(window).isEmpty());
    QVERIFY(window.isVisible());
    ModalAnswers user;
    int windows = 0;
    user.add([&](QWidget *modal) {
        ++windows;
        return modal->close();
    });
    window.action("actionAbout")->trigger();
    QCOMPARE(windows, 1);
    QVERIFY(window.close());
}

void TestMissingLibrary::catalogueThatCannotBeOpenedIsTold()
{
    QCoreApplication::setLibraryPaths(m_libraryPaths);
    QVERIFY(QSqlDatabase::isDriverAvailable(s("QSQLITE")));
    const NoTemporaryFiles failing;
    WindowUnderTest window;
    QVERIFY(window.table()->model() == nullptr);
    const QString text = told(window);
    QVERIFY2(text.contains(s("Il database delle song non può essere aperto")), qPrintable(text));
    QVERIFY2(text.contains(s("(/dev/null)")), qPrintable(text));
    const GermanTexts german;
    QVERIFY(told(window).contains(s("lässt sich nicht öffnen")));
}

void TestMissingLibrary::nothingIsToldWhenTheListIsThere()
{
    WindowUnderTest window;
    QVERIFY(window.table()->model() != nullptr);
    QCOMPARE(told(window), QString());
    QVERIFY(window.child<QLabel>("missingLibraryLabel") == nullptr);
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication application(argc, argv);
    TestMissingLibrary test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_missinglibrary.moc"
