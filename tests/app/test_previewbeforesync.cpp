// The preview before a synchronisation, through the main window: switched on in the menu, shown
// before anything else, and nothing happens without its consent.
#include "library/settings.h"
#include "support/apptest.h"
#include "support/catalogue.h"
#include "support/samplesongs.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"
#include "windows/changepreviewdialog.h"
#include "windows/nocopyrightdialog.h"

#include <QApplication>
#include <QMenu>
#include <QProgressDialog>
#include <QTest>
#include <QTreeWidget>

#include <memory>

namespace
{

catalogue::Row knownSong()
{
    catalogue::Row row;
    row.filename = QStringLiteral("A");
    row.title = QStringLiteral("KNOWN SONG");
    row.artist = QStringLiteral("DOE JOHN");
    row.altartist = QStringLiteral("JOHN DOE");
    row.genre = QStringLiteral("SWING");
    row.author = QStringLiteral("SMITH");
    row.length = 200;
    row.bpm = 96;
    return row;
}

} // namespace

class TestPreviewBeforeSync : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void isOffAndLeavesNoKeyByDefault();
    void entryStandsInTheToolsMenuAndIsRemembered();
    void withoutItNothingElseIsAsked();
    void comesBeforeTheBackup();
    void decliningLeavesEverythingAsItWas();
    void stoppingLeavesEverythingAsItWas();
    void emptyLibraryShowsNone();
    void songsThatWillBeAskedAboutAreMarked();

private:
    void import();
    void synchronise() { QTest::mouseClick(m_window->updateButton(), Qt::LeftButton); }
    QByteArray bytes() const { return samplesongs::readFile(m_song); }
    void noteWindows();

    std::unique_ptr<OwnWorkingFolder> m_work;
    std::unique_ptr<SongFolder> m_songs;
    std::unique_ptr<WindowUnderTest> m_window;
    std::unique_ptr<UserDriver> m_user;
    QString m_song;
    QStringList m_seen; ///< the windows that asked something, in their order
};

/** Every test starts with two songs in the table; the catalogue knows the first. */
void TestPreviewBeforeSync::init()
{
    OwnSettings::clear();
    m_work = std::make_unique<OwnWorkingFolder>();
    QVERIFY(catalogue::write(catalogue::overrideFile, {knownSong()}));
    m_songs = std::make_unique<SongFolder>();
    m_window = std::make_unique<WindowUnderTest>();
    m_user = std::make_unique<UserDriver>();
    m_seen.clear();
    m_song = m_songs->midi(QStringLiteral("a.mid"), "A");
    import();
}

void TestPreviewBeforeSync::cleanup()
{
    m_user.reset();
    m_window.reset();
    m_songs.reset();
    m_work.reset();
}

void TestPreviewBeforeSync::import()
{
    m_user->pick({m_song, m_songs->mp3(QStringLiteral("b.mp3"), "B")});
    QTest::mouseClick(m_window->selectButton(), Qt::LeftButton);
    QCOMPARE(m_window->model()->goodRowCount(), 2);
}

/** Writes down each window that asks; goes on from all of them. */
void TestPreviewBeforeSync::noteWindows()
{
    const auto note = [this](auto *const window, const char *button) {
        if (window == nullptr)
            return false;
        m_seen.append(QString::fromLatin1(window->metaObject()->className()));
        QTest::mouseClick(child<QPushButton>(window, button), Qt::LeftButton);
        return true;
    };
    m_user->add([note](QWidget *window) {
        return note(qobject_cast<ChangePreviewDialog *>(window), "synchronisePushButton") ||
               note(qobject_cast<BackupDialog *>(window), "exitPushButton") ||
               note(qobject_cast<NoCopyrightDialog *>(window), "yesPushButton");
    });
}

void TestPreviewBeforeSync::isOffAndLeavesNoKeyByDefault()
{
    QVERIFY(m_window->action("actionPreviewChanges")->isCheckable());
    QVERIFY(!m_window->action("actionPreviewChanges")->isChecked());
    QVERIFY(!OwnSettings::value(settings::previewChanges).isValid());
}

void TestPreviewBeforeSync::entryStandsInTheToolsMenuAndIsRemembered()
{
    for (const bool on : {true, false}) {
        QAction *const entry = m_window->action("actionPreviewChanges");
        QVERIFY(m_window->child<QMenu>("menuStrumenti")->actions().contains(entry));
        entry->trigger();
        QCOMPARE(OwnSettings::value(settings::previewChanges).toBool(), on);
        m_window.reset(); // there may be one only
        m_window = std::make_unique<WindowUnderTest>();
        QCOMPARE(m_window->action("actionPreviewChanges")->isChecked(), on);
    }
}

void TestPreviewBeforeSync::withoutItNothingElseIsAsked()
{
    noteWindows();
    synchronise();
    QCOMPARE(m_seen, QStringList(QStringLiteral("BackupDialog")));
    QCOMPARE(m_window->model()->status(0), int{Database::StatusSynced});
}

void TestPreviewBeforeSync::comesBeforeTheBackup()
{
    m_window->action("actionPreviewChanges")->trigger();
    const QByteArray before = bytes();
    QStringList listed;
    QByteArray whileShown;
    m_user->add([&](QWidget *window) {
        auto *const dialog = qobject_cast<ChangePreviewDialog *>(window);
        if (dialog == nullptr)
            return false;
        const QTreeWidgetItem *const song =
            child<QTreeWidget>(dialog, "changesTreeWidget")->topLevelItem(0);
        for (int i = 0; i < song->childCount(); ++i)
            listed.append(song->child(i)->text(2));
        whileShown = bytes();
        return false; // and on to the answer below
    });
    noteWindows();
    synchronise();
    QCOMPARE(m_seen,
             QStringList({QStringLiteral("ChangePreviewDialog"), QStringLiteral("BackupDialog")}));
    QCOMPARE(listed, QStringList({QStringLiteral("JOHN DOE"), QStringLiteral("SWING"),
                                  QStringLiteral("SMITH")}));
    QCOMPARE(whileShown, before);
    QVERIFY(bytes() != before);
    QCOMPARE(m_window->model()->status(0), int{Database::StatusSynced});
    QCOMPARE(m_window->model()->status(1), int{Database::StatusNotSynced});
    QVERIFY(!m_window->updateButton()->isEnabled());
    QVERIFY(m_window->transferButton()->isEnabled());
}

void TestPreviewBeforeSync::decliningLeavesEverythingAsItWas()
{
    m_window->action("actionPreviewChanges")->trigger();
    const QByteArray before = bytes();
    m_user->click<ChangePreviewDialog>(QStringLiteral("cancelPushButton"));
    noteWindows();
    synchronise();
    QVERIFY(m_seen.isEmpty());
    QCOMPARE(bytes(), before);
    QCOMPARE(m_window->model()->status(0), int{Database::StatusNew});
    QVERIFY(m_window->updateButton()->isEnabled());
    QVERIFY(m_window->transferButton()->isEnabled());
}

void TestPreviewBeforeSync::stoppingLeavesEverythingAsItWas()
{
    QStringList many;
    for (int i = 0; i < 300; ++i)
        many << m_songs->midi(QStringLiteral("s%1.mid").arg(i), "S");
    m_user->pick(many);
    QTest::mouseClick(m_window->selectButton(), Qt::LeftButton);
    m_window->action("actionPreviewChanges")->trigger();
    int stops = 0;
    m_user->add([&stops](QWidget *window) {
        auto *const progress = qobject_cast<QProgressDialog *>(window);
        if (progress == nullptr || progress->wasCanceled())
            return false;
        ++stops;
        QTest::mouseClick(progress->findChild<QPushButton *>(), Qt::LeftButton);
        return true;
    });
    noteWindows();
    synchronise();
    QCOMPARE(stops, 1);
    QVERIFY(m_seen.isEmpty());
    QCOMPARE(m_window->model()->status(0), int{Database::StatusNew});
    QVERIFY(m_window->updateButton()->isEnabled());
}

void TestPreviewBeforeSync::emptyLibraryShowsNone()
{
    m_window->action("actionPreviewChanges")->trigger();
    QVERIFY(m_window->model()->removeRows(0, 2));
    noteWindows();
    synchronise();
    QVERIFY(m_seen.isEmpty());
    QVERIFY(m_window->updateButton()->isEnabled());
}

void TestPreviewBeforeSync::songsThatWillBeAskedAboutAreMarked()
{
    m_window->action("actionPreviewChanges")->trigger();
    m_window->enableCopyrightMessage(true);
    QString name;
    m_user->add([&name](QWidget *window) {
        auto *const dialog = qobject_cast<ChangePreviewDialog *>(window);
        if (dialog != nullptr)
            name = child<QTreeWidget>(dialog, "changesTreeWidget")->topLevelItem(0)->text(0);
        return false;
    });
    noteWindows();
    synchronise();
    QCOMPARE(name, QStringLiteral("A – a.mid (verrà chiesta conferma)"));
    // The one that the catalogue does not know is asked about as well, as ever.
    QCOMPARE(
        m_seen,
        QStringList({QStringLiteral("ChangePreviewDialog"), QStringLiteral("BackupDialog"),
                     QStringLiteral("NoCopyrightDialog"), QStringLiteral("NoCopyrightDialog")}));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestPreviewBeforeSync>(argc, argv);
}
#include "test_previewbeforesync.moc"
