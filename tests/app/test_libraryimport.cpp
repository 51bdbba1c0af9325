// The import through the main window: which songs become rows.
#include "support/apptest.h"
#include "support/importdriver.h"
#include "support/logcapture.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QProgressBar>
#include <QProgressDialog>
#include <QSqlQuery>
#include <QTest>

#include <algorithm>

using namespace importdriver;

namespace
{

QString shown(const WindowUnderTest &window, int row, int column)
{
    return window.model()->index(row, column).data().toString();
}

} // namespace

class TestLibraryImport : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void dialogAsksForSongs();
    void upperCaseExtensionsCanBePicked();
    void cancelledSelectionChangesNothing();
    void songsBecomeRowsInTheOrderPicked();
    void emptyLibraryIsNotCleared();
    void secondImportReplacesTheRows();
    void importBringsBackTheOrderPicked();
    void onlyCorruptedFilesLeaveTheTableEmpty();
    void logTellsWhatWasFound();
    void progressReachesTheNumberOfFiles();
    void cancelButtonIsNotConsulted();
    void tableThatCannotBeClearedKeepsItsRows();
    void importAgainReadsTheSameFiles();
};

void TestLibraryImport::dialogAsksForSongs()
{
    WindowUnderTest window;
    QString title;
    QStringList filters;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<QFileDialog *>(modal);
        if (dialog == nullptr)
            return false;
        title = dialog->windowTitle();
        filters = dialog->nameFilters();
        dialog->reject();
        return true;
    });
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QCOMPARE(title, QStringLiteral("Seleziona i file da importare"));
    QCOMPARE(filters, QStringList{QStringLiteral("Songs (*.mid *.kar *.mp3 *.mf3 *.mf4 *.mf5)")});
}

void TestLibraryImport::upperCaseExtensionsCanBePicked()
{
    const SongFolder songs;
    songs.midi(QStringLiteral("UPPER.MID"), "Upper");
    songs.midi(QStringLiteral("lower.mid"), "Lower");
    songs.mp3(QStringLiteral("Mixed.Mp3"), "Mixed");
    songs.bad(QStringLiteral("other.txt"));
    WindowUnderTest window;
    QStringList offered;
    ModalAnswers user;
    user.add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<QFileDialog *>(modal);
        if (dialog == nullptr)
            return false;
        dialog->setDirectory(songs.path());
        const auto *const list = dialog->findChild<QListView *>(QStringLiteral("listView"));
        const QModelIndex root = list->rootIndex();
        if (list->model()->rowCount(root) < 3)
            return true; // still reading the folder
        for (int row = 0; row < list->model()->rowCount(root); ++row)
            offered << list->model()->index(row, 0, root).data().toString();
        dialog->reject();
        return true;
    });
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    offered.sort();
    QCOMPARE(offered, (QStringList{QStringLiteral("Mixed.Mp3"), QStringLiteral("UPPER.MID"),
                                   QStringLiteral("lower.mid")}));
}

void TestLibraryImport::cancelledSelectionChangesNothing()
{
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    importThrough(window, user, {songs.midi(QStringLiteral("a.mid"), "A")});
    window.updateButton()->setEnabled(false);
    QTest::mouseClick(window.selectButton(), Qt::LeftButton);
    QCOMPARE(window.shownNames(), QStringList{QStringLiteral("a.mid")});
    QVERIFY(!window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
}

void TestLibraryImport::songsBecomeRowsInTheOrderPicked()
{
    const SongFolder songs;
    const QStringList files{songs.midi(QStringLiteral("z.mid"), "Last"),
                            songs.mp3(QStringLiteral("m.mp3"), "Middle"),
                            songs.midi(QStringLiteral("a.kar"), "First")};
    WindowUnderTest window;
    UserDriver user;
    importThrough(window, user, files);
    QCOMPARE(window.shownNames(), (QStringList{QStringLiteral("z.mid"), QStringLiteral("m.mp3"),
                                               QStringLiteral("a.kar")}));
    QCOMPARE(window.model()->fileName(1), files.at(1));
    QCOMPARE(window.model()->status(1), int(Database::StatusNew));
    QCOMPARE(shown(window, 0, 1), QStringLiteral("MIDI"));
    QCOMPARE(shown(window, 0, 2), QStringLiteral("Last"));
    QCOMPARE(shown(window, 1, 1), QStringLiteral("MP3"));
    QCOMPARE(shown(window, 1, 2), QStringLiteral("Middle"));
    QVERIFY(window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
}

void TestLibraryImport::emptyLibraryIsNotCleared()
{
    const SongFolder songs;
    WindowUnderTest window;
    // Not even a table that could not be cleared stands in the way of the first import.
    QSqlQuery trigger(QSqlDatabase::database(QStringLiteral("con_mem")));
    QVERIFY(trigger.exec(QStringLiteral("create trigger keep before delete on usersongs begin "
                                        "select raise(abort, 'kept'); end")));
    UserDriver user;
    importThrough(window, user, {songs.midi(QStringLiteral("a.mid"), "A")});
    QCOMPARE(window.shownNames(), QStringList{QStringLiteral("a.mid")});
}

void TestLibraryImport::secondImportReplacesTheRows()
{
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    importThrough(
        window, user,
        {songs.midi(QStringLiteral("a.mid"), "A"), songs.midi(QStringLiteral("b.mid"), "B")});
    importThrough(window, user, {songs.midi(QStringLiteral("c.mid"), "C")});
    QCOMPARE(window.shownNames(), QStringList{QStringLiteral("c.mid")});
}

void TestLibraryImport::importBringsBackTheOrderPicked()
{
    const SongFolder songs;
    const QStringList files{songs.midi(QStringLiteral("a.mid"), "A"),
                            songs.midi(QStringLiteral("b.mid"), "B"),
                            songs.midi(QStringLiteral("c.mid"), "C")};
    const QStringList inOrder{QStringLiteral("a.mid"), QStringLiteral("b.mid"),
                              QStringLiteral("c.mid")};
    WindowUnderTest window;
    UserDriver user;
    importThrough(window, user, files);
    window.table()->sortByColumn(2, Qt::DescendingOrder);
    QCOMPARE(window.shownNames().first(), QStringLiteral("c.mid"));
    importThrough(window, user, files);
    QCOMPARE(window.shownNames(), inOrder);
    QCOMPARE(window.table()->horizontalHeader()->sortIndicatorSection(), -1);
}

void TestLibraryImport::onlyCorruptedFilesLeaveTheTableEmpty()
{
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    importThrough(window, user,
                  {songs.bad(QStringLiteral("a.mid")), songs.bad(QStringLiteral("b.mp3"))});
    QCOMPARE(window.model()->goodRowCount(), 0);
    QVERIFY(window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
}

void TestLibraryImport::logTellsWhatWasFound()
{
    const SongFolder songs;
    const QString good = songs.midi(QStringLiteral("a.mid"), "A");
    const QString bad = songs.bad(QStringLiteral("b.mid"));
    WindowUnderTest window;
    UserDriver user;
    const LogCapture log;
    importThrough(window, user, {good, bad});
    const QStringList lines = LogCapture::lines();
    const QString bar = QStringLiteral("============================================ ");
    const auto start = lines.indexOf(bar);
    QVERIFY(start >= 0);
    QCOMPARE(lines.mid(start, 5),
             (QStringList{bar, QStringLiteral("          IMPORT USER LIBRARY "), bar,
                          QStringLiteral("Found file: \"%1\" ").arg(good),
                          QStringLiteral("Song Index: 1 ")}));
    QVERIFY(lines.contains(QStringLiteral("Title      : \"A\" ")));
    QVERIFY(lines.contains(QStringLiteral("Filename   : \"%1\" ").arg(good)));
    QVERIFY(lines.contains(QStringLiteral("Shortname  : \"a.mid\" ")));
    const auto second = lines.indexOf(QStringLiteral("Found file: \"%1\" ").arg(bad));
    QVERIFY(second > start);
    QCOMPARE(lines.value(second + 1), QStringLiteral("Unknown/corrupted file \"%1\" ").arg(bad));
}

void TestLibraryImport::progressReachesTheNumberOfFiles()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 300; ++i)
        files << songs.midi(QStringLiteral("%1.mid").arg(i), "A");
    files << songs.bad(QStringLiteral("bad.mid"));
    WindowUnderTest window;
    UserDriver user;
    QString title;
    QString label;
    QString button;
    int maximum = 0;
    Qt::WindowModality modality = Qt::NonModal;
    QList<int> values;
    user.add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<QProgressDialog *>(modal);
        if (dialog == nullptr)
            return false;
        if (values.isEmpty()) {
            connect(dialog->findChild<QProgressBar *>(), &QProgressBar::valueChanged, dialog,
                    [&](int value) { values << value; });
        }
        title = dialog->windowTitle();
        label = dialog->labelText();
        button = dialog->findChild<QPushButton *>()->text();
        maximum = dialog->maximum();
        modality = dialog->windowModality();
        return true;
    });
    importThrough(window, user, files);
    QCOMPARE(title, QStringLiteral("Lettura file"));
    QCOMPARE(label, QStringLiteral("Importo la libreria..."));
    QCOMPARE(button, QStringLiteral("Interrompi"));
    QCOMPARE(modality, Qt::WindowModal);
    QCOMPARE(maximum, 301);
    QCOMPARE(values.last(), 301);
    QVERIFY(std::is_sorted(values.cbegin(), values.cend()));
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void TestLibraryImport::cancelButtonIsNotConsulted()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 200; ++i)
        files << songs.midi(QStringLiteral("%1.mid").arg(i), "A");
    WindowUnderTest window;
    UserDriver user;
    bool pressed = false;
    user.add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<QProgressDialog *>(modal);
        if (dialog == nullptr)
            return false;
        QTest::mouseClick(dialog->findChild<QPushButton *>(), Qt::LeftButton);
        pressed = true;
        return true;
    });
    importThrough(window, user, files);
    QVERIFY(pressed);
    QCOMPARE(window.model()->goodRowCount(), 200);
}

void TestLibraryImport::tableThatCannotBeClearedKeepsItsRows()
{
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    importThrough(window, user, {songs.midi(QStringLiteral("a.mid"), "A")});
    QSqlQuery trigger(QSqlDatabase::database(QStringLiteral("con_mem")));
    QVERIFY(trigger.exec(QStringLiteral("create trigger keep before delete on usersongs begin "
                                        "select raise(abort, 'kept'); end")));
    const LogCapture log;
    importThrough(window, user, {songs.midi(QStringLiteral("b.mid"), "B")});
    QVERIFY(LogCapture::contains(QStringLiteral(
        "[importUserLibrary] WARNING: impossible to CLEAR table. Aborting import !!! ")));
    QCOMPARE(window.shownNames(), QStringList{QStringLiteral("a.mid")});
    QVERIFY(!window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
}

void TestLibraryImport::importAgainReadsTheSameFiles()
{
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    importThrough(window, user, {songs.midi(QStringLiteral("a.mid"), "Old")});
    songs.midi(QStringLiteral("a.mid"), "New");
    window.pressDebug("dbgImportPushButton");
    QCOMPARE(window.shownNames(), QStringList{QStringLiteral("a.mid")});
    QCOMPARE(shown(window, 0, 2), QStringLiteral("New"));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestLibraryImport>(argc, argv);
}

#include "test_libraryimport.moc"
