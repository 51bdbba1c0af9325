// The field that narrows the list of songs.
#include "support/apptest.h"
#include "support/catalogue.h"
#include "support/filterdriver.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"
#include "windows/dataeditdialog.h"

#include <QLabel>
#include <QTest>

using namespace filterdriver;

class TestSongFilter : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

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

int main(int argc, char *argv[])
{
    return runAppTest<TestSongFilter>(argc, argv);
}

#include "test_songfilter.moc"
