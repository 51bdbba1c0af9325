// The import through the main window: its summary, its table, and the search through folders.
#include "support/apptest.h"
#include "support/importdriver.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"
#include "windows/proceeddialog.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QProgressDialog>
#include <QTest>

using namespace importdriver;

class TestLibraryImportSummary : public AppFixture
{
    Q_OBJECT

private slots:
    void init() { AppFixture::init(); }
    void cleanup() { AppFixture::cleanup(); }

    void summaryCountsTheFiles();
    void tickedSummaryIsNotShownAgain();
    void summaryLeftUntickedKeepsAsking();
    void acceptedSummarySynchronises();
    void acceptedSummaryWithoutSynchronisingEnablesTheButton();
    void columnsFollowTheirContentsExceptThePath();
    void nothingElseStartsDuringAnImport();

    void scanOfTheWindowAddsToTheCounts();
};

void TestLibraryImportSummary::summaryCountsTheFiles()
{
    OwnSettings::set(settings::copyrightAsk, true);
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    QString counts;
    user.add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<ProceedDialog *>(modal);
        if (dialog == nullptr)
            return false;
        counts = dialog->findChild<QLabel *>(QStringLiteral("msgLabel"))->text();
        QTest::keyClick(dialog, Qt::Key_Escape);
        return true;
    });
    importThrough(window, user,
                  {songs.midi(QStringLiteral("a.mid"), "A"), songs.bad(QStringLiteral("b.mid")),
                   songs.signedMidi(QStringLiteral("c.mid"), "C"),
                   songs.bad(QStringLiteral("d.mp3")), songs.mp3(QStringLiteral("e.mp3"), "E")});
    QCOMPARE(counts, QStringLiteral("Sono stati esaminti 5 files, trovate 3 songs di cui 1 di "
                                    "(c)K-Ravo"));
    QVERIFY(window.updateButton()->isEnabled());
}

void TestLibraryImportSummary::tickedSummaryIsNotShownAgain()
{
    OwnSettings::set(settings::copyrightAsk, true);
    const SongFolder songs;
    const QString song = songs.midi(QStringLiteral("a.mid"), "A");
    WindowUnderTest window;
    UserDriver user;
    int summaries = 0;
    user.add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<ProceedDialog *>(modal);
        if (dialog == nullptr)
            return false;
        ++summaries;
        dialog->findChild<QCheckBox *>(QStringLiteral("checkBoxShowAgain"))->click();
        dialog->close();
        return true;
    });
    importThrough(window, user, {song});
    QCOMPARE(summaries, 1);
    QCOMPARE(OwnSettings::value(settings::copyrightAsk), QVariant(false));
    QVERIFY(window.action("actionCopyrightNo")->isChecked());
    QVERIFY(!window.action("actionCopyrightYes")->isChecked());
    importThrough(window, user, {song});
    QCOMPARE(summaries, 1);
}

void TestLibraryImportSummary::summaryLeftUntickedKeepsAsking()
{
    OwnSettings::set(settings::copyrightAsk, true);
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.add([](QWidget *modal) {
        return qobject_cast<ProceedDialog *>(modal) != nullptr && modal->close();
    });
    importThrough(window, user, {songs.midi(QStringLiteral("a.mid"), "A")});
    QCOMPARE(OwnSettings::value(settings::copyrightAsk), QVariant(true));
    QVERIFY(window.action("actionCopyrightYes")->isChecked());
}

void TestLibraryImportSummary::acceptedSummarySynchronises()
{
    OwnSettings::set(settings::copyrightAsk, true);
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.add([](QWidget *modal) {
        auto *const dialog = qobject_cast<ProceedDialog *>(modal);
        if (dialog != nullptr)
            dialog->accept();
        return dialog != nullptr;
    });
    user.click<BackupDialog>(QStringLiteral("exitPushButton"));
    importThrough(window, user, {songs.signedMidi(QStringLiteral("a.mid"), "Unknown to all")});
    QCOMPARE(window.model()->status(0), int(Database::StatusNotSynced));
    QVERIFY(!window.updateButton()->isEnabled());
    QVERIFY(window.transferButton()->isEnabled());
}

void TestLibraryImportSummary::acceptedSummaryWithoutSynchronisingEnablesTheButton()
{
    OwnSettings::set(settings::copyrightAsk, true);
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    user.add([](QWidget *modal) {
        auto *const dialog = qobject_cast<ProceedDialog *>(modal);
        if (dialog != nullptr)
            dialog->accept();
        return dialog != nullptr;
    });
    user.click<BackupDialog>(QStringLiteral("abortPushButton"));
    importThrough(window, user, {songs.signedMidi(QStringLiteral("a.mid"), "Unknown to all")});
    QCOMPARE(window.model()->status(0), int(Database::StatusNew));
    QVERIFY(window.updateButton()->isEnabled());
}

void TestLibraryImportSummary::columnsFollowTheirContentsExceptThePath()
{
    const SongFolder songs;
    WindowUnderTest window;
    UserDriver user;
    QTableView *const table = window.table();
    const int path = window.model()->colIdxFilename();
    QCOMPARE(path, 9);
    table->showColumn(path);
    table->setColumnWidth(path, 33);
    for (const int column : {2, 10})
        table->setColumnWidth(column, 500);
    importThrough(window, user,
                  {songs.midi(QStringLiteral("a.mid"), "A title that is longer than its heading")});
    QCOMPARE(table->columnWidth(path), 33);
    for (const int column : {1, 2, 3, 4, 5, 6, 7, 8, 10}) {
        const int wanted = qMax(static_cast<QAbstractItemView *>(table)->sizeHintForColumn(column),
                                table->horizontalHeader()->sectionSizeHint(column));
        QVERIFY2(qAbs(table->columnWidth(column) - wanted) <= 1, QByteArray::number(column));
    }
}

void TestLibraryImportSummary::nothingElseStartsDuringAnImport()
{
    const SongFolder songs;
    QStringList files;
    for (int i = 0; i < 100; ++i)
        files << songs.midi(QStringLiteral("%1.mid").arg(i), "A");
    WindowUnderTest window;
    UserDriver user;
    int tries = 0;
    user.add([&](QWidget *modal) {
        if (qobject_cast<QProgressDialog *>(modal) == nullptr)
            return false;
        if (tries++ > 0)
            return true;
        // Each of these would open a dialog, or import the files once more.
        window.selectButton()->click();
        window.action("actionAbout")->trigger();
        window.action("optimizeMemory")->trigger();
        window.action("actionSongsList")->trigger();
        window.pressDebug("dbgImportPushButton");
        window.pressDebug("dbgBackupPushButton");
        window.action("actionQuit")->trigger();
        return true;
    });
    user.add([&](QWidget *modal) {
        qWarning("unexpected window %s", modal->metaObject()->className());
        modal->close();
        tries = 1000;
        return true;
    });
    importThrough(window, user, files);
    QVERIFY(tries > 0 && tries < 1000);
    QVERIFY(window.isVisible());
    QCOMPARE(window.model()->goodRowCount(), 100);
}

void TestLibraryImportSummary::scanOfTheWindowAddsToTheCounts()
{
    const SongFolder songs;
    songs.signedMidi(QStringLiteral("a.mid"), "A");
    songs.bad(QStringLiteral("b.mid"));
    WindowUnderTest window;
    int valid = 10;
    int kravo = 20;
    int bad = 30;
    window.scanDir(songs.path(), valid, kravo, bad);
    QCOMPARE(valid, 11);
    QCOMPARE(kravo, 21);
    QCOMPARE(bad, 31);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestLibraryImportSummary>(argc, argv);
}

#include "test_libraryimport_summary.moc"
