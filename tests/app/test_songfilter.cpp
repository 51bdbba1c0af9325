// The field above the list: what it hides, and that nothing else notices.
#include "support/catalogue.h"
#include "support/ownfolders.h"
#include "support/samplesongs.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"
#include "windows/dataeditdialog.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QProgressDialog>

namespace
{

QLineEdit *field(const WindowUnderTest &window)
{
    return window.child<QLineEdit>("filterLineEdit");
}

/** Types the text into the emptied field, key by key. */
void type(const WindowUnderTest &window, const QString &text)
{
    field(window)->clear();
    for (const QChar &letter : text)
        QTest::sendKeyEvent(QTest::Click, field(window), Qt::Key_unknown, letter, {});
}

/** The file names of the rows that can be seen, from top to bottom. */
QString visible(const WindowUnderTest &window)
{
    QStringList names;
    for (int row = 0; row < window.model()->goodRowCount(); ++row) {
        if (!window.table()->isRowHidden(row) &&
            !window.table()->visualRect(window.model()->index(row, 2)).isEmpty())
            names << window.model()->shortName(row);
    }
    return names.join(QLatin1Char(' '));
}

QString s(const char *text)
{
    return QString::fromUtf8(text);
}

/** Three songs: a.mid "Alpha", b.mid "Beta", c.mid "Alphabet". */
struct ThreeSongs {
    ThreeSongs()
    {
        window.setSelectedFiles({songs.midi(s("a.mid"), "Alpha"), songs.midi(s("b.mid"), "Beta"),
                                 songs.midi(s("c.mid"), "Alphabet")});
        window.importUserLibrary();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }

    const SongFolder songs;
    WindowUnderTest window;
};

} // namespace

class TestSongFilter : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        OwnSettings::clear();
        m_work.reset(new OwnWorkingFolder);
    }
    void cleanup() { m_work.reset(); }

    void typingNarrowsTheList();
    void eachFieldIsSearched_data();
    void eachFieldIsSearched();
    void folderOfTheFileIsNotSearched();
    void textIsNoPattern_data();
    void textIsNoPattern();
    void blanksAroundTheTextDoNotCount();
    void rowNumbersStay();
    void synchronisationReachesHiddenRows();
    void transferTakesHiddenSongs();
    void editingForAllReachesHiddenRows();

    void shortcutFocusesTheField();
    void escapeClearsAndThenLeaves();
    void returnGoesToTheFirstSongShown();
    void mnemonicFocusesTheField();

    void hiddenSongIsNoLongerChosen();
    void shownSongStaysChosen();
    void nextSongShownIsChosenAfterARemoval();
    void removingTheLastSongShownLeavesNothingChosen();
    void arrowKeysSkipHiddenRows();
    void typingInTheListNeverEndsOnAHiddenRow();
    void rowMenuActsOnTheRowThatIsSeen();

    void importIsFiltered();
    void rowsThatArriveAreFiltered();
    void changedSongIsLookedAtAgain();
    void sortingKeepsWhatIsHidden();
    void workflowIsNotDisturbed();
    void failedDatabaseLeavesTheFieldDisabled();

private:
    QScopedPointer<OwnWorkingFolder> m_work;
};

void TestSongFilter::typingNarrowsTheList()
{
    const ThreeSongs three;
    QCOMPARE(visible(three.window), s("a.mid b.mid c.mid"));
    QTest::keyClicks(field(three.window), s("alpha"));
    QCOMPARE(visible(three.window), s("a.mid c.mid"));
    QTest::keyClicks(field(three.window), s("BET"));
    QCOMPARE(visible(three.window), s("c.mid"));
    QTest::keyClicks(field(three.window), s("x"));
    QCOMPARE(visible(three.window), QString());
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(field(three.window), Qt::Key_Backspace);
    QCOMPARE(visible(three.window), s("a.mid c.mid"));
    field(three.window)->clear();
    QCOMPARE(visible(three.window), s("a.mid b.mid c.mid"));
}

void TestSongFilter::eachFieldIsSearched_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("found");
    QTest::newRow("title") << s("sole mio") << true;
    QTest::newRow("artist") << s("caruso") << true;
    QTest::newRow("genre") << s("napol") << true;
    QTest::newRow("author") << s("capua") << true;
    QTest::newRow("file name") << s("song1.m") << true;
    QTest::newRow("umlaut in the other case") << s("für") << true;
    QTest::newRow("format") << s("MP3x") << false;
    QTest::newRow("key") << s("F#-") << false;
    QTest::newRow("length") << s("02:05") << false;
}

void TestSongFilter::eachFieldIsSearched()
{
    QFETCH(QString, text);
    QFETCH(bool, found);
    WindowUnderTest window;
    SongInfo info;
    info.format = s("MP3x");
    info.title = s("O Sole Mio FÜR alle");
    info.artist = s("Enrico Caruso");
    info.genre = s("NAPOLETANA");
    info.author = s("Di Capua");
    info.length = 125;
    info.key = s("F#-");
    info.fileName = s("/home/song1.mid");
    info.shortName = s("Song1.mid");
    QVERIFY(window.model()->addSong(info));
    type(window, text);
    QCOMPARE(visible(window), found ? s("Song1.mid") : QString());
}

void TestSongFilter::folderOfTheFileIsNotSearched()
{
    const ThreeSongs three;
    type(three.window, three.songs.path().section(QLatin1Char('/'), -1));
    QCOMPARE(visible(three.window), QString());
}

void TestSongFilter::textIsNoPattern_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    QTest::newRow("dot") << s("l.v") << QString();
    QTest::newRow("star") << s("*") << s("star.mid");
    QTest::newRow("question mark") << s("?") << s("question.mid");
    QTest::newRow("percent") << s("0%") << s("percent.mid");
    QTest::newRow("underscore") << s("_") << QString();
    QTest::newRow("bracket") << s("[live") << s("bracket.mid");
    QTest::newRow("parentheses") << s("(x)") << s("question.mid");
    QTest::newRow("quote") << s("\"s") << s("quote.mid");
    QTest::newRow("apostrophe") << s("'") << s("apostrophe.mid");
    QTest::newRow("backslash") << s("\\") << s("backslash.mid");
    QTest::newRow("ampersand") << s("&") << s("apostrophe.mid");
}

void TestSongFilter::textIsNoPattern()
{
    QFETCH(QString, text);
    QFETCH(QString, shown);
    const SongFolder songs;
    WindowUnderTest window;
    window.setSelectedFiles(
        {songs.midi(s("star.mid"), "Love*"), songs.midi(s("question.mid"), "Why? (x)"),
         songs.midi(s("percent.mid"), "100% love"), songs.midi(s("bracket.mid"), "Song [live]"),
         songs.midi(s("quote.mid"), "The \"song\""),
         songs.midi(s("apostrophe.mid"), "L'amour & moi"),
         songs.midi(s("backslash.mid"), "AC\\DC")});
    window.importUserLibrary();
    type(window, text);
    QCOMPARE(visible(window), shown);
}

void TestSongFilter::blanksAroundTheTextDoNotCount()
{
    const ThreeSongs three;
    type(three.window, s("  beta "));
    QCOMPARE(visible(three.window), s("b.mid"));
    type(three.window, s("   "));
    QCOMPARE(visible(three.window), s("a.mid b.mid c.mid"));
}

void TestSongFilter::rowNumbersStay()
{
    const ThreeSongs three;
    type(three.window, s("beta"));
    QCOMPARE(three.window.model()->goodRowCount(), 3);
    QCOMPARE(three.window.table()->model()->rowCount(), 3);
    QCOMPARE(three.window.model()->shortName(1), s("b.mid"));
}

void TestSongFilter::synchronisationReachesHiddenRows()
{
    catalogue::Row row;
    row.filename = s("A");
    row.title = s("FOUND");
    QVERIFY(catalogue::write(catalogue::overrideFile, {row}));
    const ThreeSongs three;
    type(three.window, s("beta"));
    ModalAnswers user;
    user.click<BackupDialog>(s("exitPushButton"));
    QTest::mouseClick(three.window.updateButton(), Qt::LeftButton);
    const QList<int> expected{Database::StatusSynced, Database::StatusNotSynced,
                              Database::StatusNotSynced};
    for (int i = 0; i < 3; ++i)
        QCOMPARE(three.window.model()->status(i), expected.at(i));
    QCOMPARE(visible(three.window), s("b.mid"));
}

void TestSongFilter::transferTakesHiddenSongs()
{
    ThreeSongs three;
    type(three.window, s("beta"));
    int copied = 0;
    QVERIFY(three.window.copyFiles(m_work->path(), copied));
    QCOMPARE(copied, 3);
}

void TestSongFilter::editingForAllReachesHiddenRows()
{
    const ThreeSongs three;
    type(three.window, s("beta"));
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Yes);
    user.add([](QWidget *modal) {
        auto *const dialog = qobject_cast<DataEditDialog *>(modal);
        if (dialog == nullptr)
            return false;
        if (dialog->isApplyToAllAuthor()) {
            clickLater(child<QPushButton>(dialog, "savePushButton"));
        } else {
            child<QLineEdit>(dialog, "authorLineEdit")->setText(s("Everybody"));
            clickLater(child<QWidget>(dialog, "checkBoxToAllAuthor"));
        }
        return true;
    });
    three.window.table()->selectRow(1);
    three.window.action("actionEditSong")->trigger();
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(three.window.model()->index(row, 5).data().toString(), s("Everybody"));
        QCOMPARE(three.window.model()->status(row), int(Database::StatusEdited));
    }
    QCOMPARE(visible(three.window), s("b.mid"));
}

// ---------------------------------------------------------------- keys

void TestSongFilter::shortcutFocusesTheField()
{
    const ThreeSongs three;
    type(three.window, s("beta"));
    three.window.table()->setFocus();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(field(three.window)->hasFocus());
    QCOMPARE(field(three.window)->selectedText(), s("beta"));
}

void TestSongFilter::escapeClearsAndThenLeaves()
{
    const ThreeSongs three;
    type(three.window, s("beta"));
    field(three.window)->setFocus();
    QTest::keyClick(field(three.window), Qt::Key_Escape);
    QCOMPARE(field(three.window)->text(), QString());
    QCOMPARE(visible(three.window), s("a.mid b.mid c.mid"));
    QVERIFY(field(three.window)->hasFocus());
    QTest::keyClick(field(three.window), Qt::Key_Escape);
    QVERIFY(three.window.table()->hasFocus());
}

void TestSongFilter::returnGoesToTheFirstSongShown()
{
    const ThreeSongs three;
    type(three.window, s("bet"));
    field(three.window)->setFocus();
    QTest::keyClick(field(three.window), Qt::Key_Return);
    QVERIFY(three.window.table()->hasFocus());
    QCOMPARE(three.window.table()->currentIndex().row(), 1);
    QVERIFY(three.window.action("actionEditSong")->isEnabled());
}

void TestSongFilter::mnemonicFocusesTheField()
{
    const ThreeSongs three;
    const auto *const label = three.window.child<QLabel>("filterLabel");
    QCOMPARE(label->buddy(), static_cast<QWidget *>(field(three.window)));
    QTest::keyClick(three.window.windowHandle(), Qt::Key_C, Qt::AltModifier);
    QVERIFY(field(three.window)->hasFocus());
}

// ---------------------------------------------------------------- choice

void TestSongFilter::hiddenSongIsNoLongerChosen()
{
    const ThreeSongs three;
    three.window.table()->selectRow(0);
    QVERIFY(three.window.action("actionRemoveSong")->isEnabled());
    type(three.window, s("beta"));
    QVERIFY(!three.window.table()->currentIndex().isValid());
    QVERIFY(three.window.table()->selectionModel()->selectedRows().isEmpty());
    for (const char *name : {"actionEditSong", "actionRemoveSong", "actionDeleteSongFile"})
        QVERIFY2(!three.window.action(name)->isEnabled(), name);
    three.window.table()->setFocus();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCOMPARE(three.window.model()->goodRowCount(), 3);
    field(three.window)->clear();
    QVERIFY(three.window.table()->selectionModel()->selectedRows().isEmpty());
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCOMPARE(three.window.model()->goodRowCount(), 3);
}

void TestSongFilter::shownSongStaysChosen()
{
    const ThreeSongs three;
    three.window.table()->selectRow(1);
    type(three.window, s("bet"));
    QCOMPARE(three.window.table()->currentIndex().row(), 1);
    QVERIFY(three.window.action("actionRemoveSong")->isEnabled());
}

void TestSongFilter::nextSongShownIsChosenAfterARemoval()
{
    const ThreeSongs three;
    type(three.window, s("alpha"));
    three.window.table()->selectRow(0);
    three.window.table()->setFocus();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCoreApplication::processEvents();
    QCOMPARE(three.window.shownNames(), (QStringList{s("b.mid"), s("c.mid")}));
    QCOMPARE(three.window.table()->currentIndex().row(), 1); // and not the hidden b.mid
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCOMPARE(three.window.shownNames(), QStringList{s("b.mid")});
}

void TestSongFilter::removingTheLastSongShownLeavesNothingChosen()
{
    const ThreeSongs three;
    type(three.window, s("beta"));
    three.window.table()->selectRow(1);
    three.window.table()->setFocus();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QVERIFY(!three.window.action("actionRemoveSong")->isEnabled()); // at once
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCoreApplication::processEvents();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Delete);
    QCOMPARE(three.window.shownNames(), (QStringList{s("a.mid"), s("c.mid")}));
    QVERIFY(!three.window.table()->currentIndex().isValid());
}

void TestSongFilter::arrowKeysSkipHiddenRows()
{
    const ThreeSongs three;
    type(three.window, s("alpha"));
    three.window.table()->selectRow(0);
    three.window.table()->setFocus();
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Down);
    QCOMPARE(three.window.table()->currentIndex().row(), 2);
    QTest::keyClick(three.window.windowHandle(), Qt::Key_Up);
    QCOMPARE(three.window.table()->currentIndex().row(), 0);
}

void TestSongFilter::typingInTheListNeverEndsOnAHiddenRow()
{
    const ThreeSongs three;
    type(three.window, s("alpha"));
    three.window.table()->setCurrentIndex(three.window.model()->index(0, 2));
    three.window.table()->setFocus();
    QTest::keyClicks(three.window.table(), s("b")); // "Beta" is hidden
    QCoreApplication::processEvents();
    QVERIFY(!three.window.table()->isRowHidden(three.window.table()->currentIndex().row()));
}

void TestSongFilter::rowMenuActsOnTheRowThatIsSeen()
{
    const ThreeSongs three;
    type(three.window, s("alphabet"));
    QTimer chooser;
    QObject::connect(&chooser, &QTimer::timeout, &chooser, [&] {
        auto *const menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        chooser.stop();
        menu->setActiveAction(menu->actions().first());
        QTest::keyClick(menu, Qt::Key_Return);
    });
    chooser.start(5);
    emit three.window.table()->customContextMenuRequested(QPoint(20, 5)); // the first row seen
    QCOMPARE(three.window.shownNames(), (QStringList{s("a.mid"), s("b.mid")}));
}

// ---------------------------------------------------------------- changing rows

void TestSongFilter::importIsFiltered()
{
    const SongFolder songs;
    WindowUnderTest window;
    type(window, s("special"));
    QStringList files;
    for (int i = 0; i < 600; ++i)
        files << songs.midi(s("%1.mid").arg(i), i % 100 == 7 ? "A special one" : "Plain");
    window.setSelectedFiles(files);
    for (int i = 0; i < 2; ++i) { // the second import replaces rows that are hidden
        window.importUserLibrary();
        QCOMPARE(window.model()->goodRowCount(), 600);
        QCOMPARE(visible(window), s("7.mid 107.mid 207.mid 307.mid 407.mid 507.mid"));
    }
    field(window)->clear();
    for (int row = 0; row < 600; ++row)
        QVERIFY(!window.table()->isRowHidden(row));
}

void TestSongFilter::rowsThatArriveAreFiltered()
{
    ThreeSongs three;
    three.songs.midi(s("d.mid"), "Delta");
    three.songs.midi(s("e.mid"), "Alpha the second");
    type(three.window, s("alpha"));
    int valid = 0;
    int kravo = 0;
    int bad = 0;
    three.window.scanDir(three.songs.path(), valid, kravo, bad);
    QCOMPARE(valid, 5);
    QCOMPARE(visible(three.window), s("a.mid c.mid a.mid c.mid e.mid"));
    SongInfo info;
    info.title = s("No match");
    three.window.model()->addSong(info);
    QTRY_VERIFY(three.window.table()->isRowHidden(8));
}

void TestSongFilter::changedSongIsLookedAtAgain()
{
    const ThreeSongs three;
    type(three.window, s("beta"));
    SongInfo info;
    info.title = s("Beta too");
    three.window.model()->updateRow(0, info);
    QTRY_COMPARE(visible(three.window), s("a.mid b.mid"));
    info.title = s("Gamma");
    three.window.model()->updateRow(1, info);
    QTRY_COMPARE(visible(three.window), s("a.mid"));
}

void TestSongFilter::sortingKeepsWhatIsHidden()
{
    const ThreeSongs three;
    type(three.window, s("alpha"));
    three.window.table()->sortByColumn(2, Qt::DescendingOrder); // Beta, Alphabet, Alpha
    QCoreApplication::processEvents();
    QCOMPARE(visible(three.window), s("c.mid a.mid"));
    QCOMPARE(three.window.shownNames(), (QStringList{s("b.mid"), s("c.mid"), s("a.mid")}));
    three.window.table()->sortByColumn(-1, Qt::AscendingOrder);
    QCoreApplication::processEvents();
    QCOMPARE(visible(three.window), s("a.mid c.mid"));
}

void TestSongFilter::workflowIsNotDisturbed()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 200; ++i)
        files << songs.midi(s("%1.mid").arg(i), "Plain");
    WindowUnderTest window;
    window.setSelectedFiles(files);
    ModalAnswers user;
    int hidden = -1;
    user.add([&](QWidget *modal) {
        if (qobject_cast<QProgressDialog *>(modal) == nullptr || hidden >= 0)
            return false;
        window.action("actionFindSong")->trigger();
        field(window)->setText(s("199.mid"));
        QTest::qWait(20);
        hidden = 0;
        for (int row = 0; row < window.model()->goodRowCount(); ++row)
            hidden += window.table()->isRowHidden(row) ? 1 : 0;
        return true;
    });
    window.importUserLibrary();
    QCOMPARE(hidden, 0); // it waits until nothing runs any more
    QCOMPARE(visible(window), s("199.mid"));
}

void TestSongFilter::failedDatabaseLeavesTheFieldDisabled()
{
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/dev/null");
    const WindowUnderTest window;
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    QVERIFY(window.table()->model() == nullptr);
    QVERIFY(!field(window)->isEnabled());
    QVERIFY(!window.action("actionFindSong")->isEnabled());
}

int main(int argc, char *argv[])
{
    const OwnSettings ownSettings;
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    TestSongFilter test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_songfilter.moc"
