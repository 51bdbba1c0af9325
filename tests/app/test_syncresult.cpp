// What is told after a synchronisation, and the next steps that are offered.
#include "library/owncatalogue.h"
#include "support/apptest.h"
#include "support/mainwindowdriver.h"
#include "support/modalanswers.h"
#include "support/shorttext.h"
#include "windows/aboutdialog.h"
#include "windows/backupdialog.h"
#include "windows/editseveraldialog.h"
#include "windows/filelistdialog.h"
#include "windows/nocopyrightdialog.h"
#include "windows/severalsongsmodel.h"
#include "windows/syncsummarybar.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>

using namespace mainwindowdriver;

class TestSyncResult : public AppFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void nothingIsToldBefore();
    void foundAndUnknownSongsAreCounted();
    void whenAllWereFoundNothingIsOffered();
    void songsThatTheUserDeclinedAreNotCalledUnknown();
    void refusedBackupTellsNothing();
    void unknownSongsAreEdited();
    void unknownSongsBecomeEntries();
    void songThatIsNoEntryStaysUnknown();
    void songAddedByItsMenuEntryIsNoLongerUnknown();
    void editedSongThatBecomesAnEntryStaysEdited();
    void otherListTakesTheBarAway();
    void barGoesWhenNoUnknownSongIsLeft();
    void barCanBeClosed();
    void textsFollowTheLanguage();

    void chosenOrderIsAppliedAgain();
    void orderOfTheImportStays();

private:
    SyncSummaryBar *bar() const { return m_window->findChild<SyncSummaryBar *>(); }
    QString told() const
    {
        return bar()->isVisible() ? m_window->child<QLabel>("syncSummaryLabel")->text() : QString();
    }
    QPushButton *button(const char *name) const { return m_window->child<QPushButton>(name); }
    void import(const QStringList &files)
    {
        m_window->setSelectedFiles(files);
        m_window->importUserLibrary();
    }
    void synchronise() { QTest::mouseClick(m_window->updateButton(), Qt::LeftButton); }

    std::unique_ptr<SongFolder> m_songs;
    std::unique_ptr<WindowUnderTest> m_window;
    std::unique_ptr<ModalAnswers> m_answers;
    QString m_known;
    QString m_a;
    QString m_z;
};

void TestSyncResult::init()
{
    AppFixture::init();
    QFile::remove(OwnCatalogue::defaultPath());
    QVERIFY(writeCatalogue());
    m_songs = std::make_unique<SongFolder>();
    m_known = m_songs->signedMidi(s("known.mid"), "Zorro");
    m_a = m_songs->midi(s("a.mid"), "Aria");
    m_z = m_songs->midi(s("z.mid"), "Xenia");
    m_window = std::make_unique<WindowUnderTest>();
    m_answers = std::make_unique<ModalAnswers>();
    m_answers->click<BackupDialog>(s("exitPushButton"));
}

void TestSyncResult::cleanup()
{
    m_answers.reset();
    m_window.reset();
    m_songs.reset();
    AppFixture::cleanup();
    backToItalian();
}

void TestSyncResult::nothingIsToldBefore()
{
    import({m_a, m_known, m_z});
    QCOMPARE(told(), QString());
}

void TestSyncResult::foundAndUnknownSongsAreCounted()
{
    import({m_a, m_known, m_z});
    synchronise();
    QCOMPARE(told(), s("1 di 3 trovate; 2 non nel catalogo"));
    QVERIFY(button("editUnknownPushButton")->isVisible());
    QVERIFY(button("addUnknownPushButton")->isVisible());
}

void TestSyncResult::whenAllWereFoundNothingIsOffered()
{
    import({m_known});
    synchronise();
    QCOMPARE(told(), s("1 di 1 trovate"));
    QVERIFY(!button("editUnknownPushButton")->isVisible());
    QVERIFY(!button("addUnknownPushButton")->isVisible());
}

void TestSyncResult::songsThatTheUserDeclinedAreNotCalledUnknown()
{
    import({m_songs->midi(s("known.mid"), "Zorro"), m_a});
    m_window->enableCopyrightMessage(true);
    m_answers->click<NoCopyrightDialog>(s("noAllPushButton"));
    synchronise();
    QCOMPARE(told(), s("0 di 2 trovate; 2 senza modifiche"));
    QVERIFY(!button("editUnknownPushButton")->isVisible());
}

void TestSyncResult::refusedBackupTellsNothing()
{
    import({m_a});
    m_answers = std::make_unique<ModalAnswers>();
    m_answers->add([](QWidget *modal) {
        if (qobject_cast<BackupDialog *>(modal) == nullptr)
            return false;
        QMetaObject::invokeMethod(modal, "reject");
        return true;
    });
    synchronise();
    QCOMPARE(m_window->model()->status(0), int{Database::StatusNew});
    QCOMPARE(told(), QString());
}

void TestSyncResult::unknownSongsAreEdited()
{
    import({m_a, m_known, m_z});
    synchronise();
    m_window->child<QLineEdit>("filterLineEdit")->setText(s("known")); // shows none of them
    QStringList offered;
    m_answers->add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<EditSeveralDialog *>(modal);
        if (dialog == nullptr)
            return false;
        const auto &model = dialog->model();
        for (int row = 0; row < model.rowCount(); ++row) {
            for (int column = 0; column < model.columnCount(); ++column) {
                const QString text = model.index(row, column).data().toString();
                if (text.endsWith(s(".mid")))
                    offered << text.section(QLatin1Char('/'), -1);
            }
        }
        return modal->close();
    });
    QTest::mouseClick(button("editUnknownPushButton"), Qt::LeftButton);
    QCOMPARE(offered, (QStringList{s("a.mid"), s("z.mid")}));
}

void TestSyncResult::unknownSongsBecomeEntries()
{
    import({m_a, m_known, m_z});
    synchronise();
    QTest::mouseClick(button("addUnknownPushButton"), Qt::LeftButton);
    OwnCatalogue own;
    own.open();
    QStringList titles;
    const QList<SongsDbRecord> entries = own.entries();
    for (const SongsDbRecord &entry : entries)
        titles << entry.title;
    titles.sort();
    QCOMPARE(titles, (QStringList{s("Aria"), s("Xenia")}));
    QCOMPARE(told(), s("1 di 3 trovate; 2 nel mio catalogo"));
    QVERIFY(!button("addUnknownPushButton")->isVisible());
    QVERIFY(!button("editUnknownPushButton")->isVisible());
    for (int row = 0; row < 3; ++row)
        QCOMPARE(m_window->model()->status(row), int{Database::StatusSynced});
}

void TestSyncResult::songThatIsNoEntryStaysUnknown()
{
    import({m_a, m_songs->midi(s("untitled.mid"), ""), m_known});
    synchronise();
    m_answers->add([](QWidget *modal) { // says which song could not be added
        return qobject_cast<FileListDialog *>(modal) != nullptr && modal->close();
    });
    QTest::mouseClick(button("addUnknownPushButton"), Qt::LeftButton);
    QCOMPARE(told(), s("1 di 3 trovate; 1 nel mio catalogo; 1 non nel catalogo"));
    QVERIFY(button("addUnknownPushButton")->isVisible());
    QCOMPARE(m_window->model()->status(0), int{Database::StatusSynced});
    QCOMPARE(m_window->model()->status(1), int{Database::StatusNotSynced});
}

void TestSyncResult::songAddedByItsMenuEntryIsNoLongerUnknown()
{
    import({m_a, m_known, m_z});
    synchronise();
    m_window->table()->selectRow(2);
    m_window->action("actionAddToCatalogue")->trigger();
    QCOMPARE(told(), s("1 di 3 trovate; 1 nel mio catalogo; 1 non nel catalogo"));
    QCOMPARE(m_window->model()->status(2), int{Database::StatusSynced});
}

void TestSyncResult::editedSongThatBecomesAnEntryStaysEdited()
{
    import({m_a});
    synchronise();
    m_window->model()->setStatus(0, Database::StatusEdited);
    m_window->table()->selectRow(0);
    m_window->action("actionAddToCatalogue")->trigger();
    QCOMPARE(m_window->model()->status(0), int{Database::StatusEdited});
}

void TestSyncResult::otherListTakesTheBarAway()
{
    import({m_a, m_known});
    synchronise();
    QVERIFY(bar()->isVisible());
    import({m_z});
    QVERIFY(!bar()->isVisible());
}

void TestSyncResult::barGoesWhenNoUnknownSongIsLeft()
{
    import({m_a, m_known, m_z});
    synchronise();
    m_answers->add([](QWidget *modal) {
        return qobject_cast<AboutDialog *>(modal) != nullptr && modal->close();
    });
    m_window->model()->setStatus(0, Database::StatusEdited);
    m_window->action("actionAbout")->trigger(); // some work that ends
    QVERIFY(bar()->isVisible());
    QVERIFY(m_window->model()->removeRow(2));
    m_window->action("actionAbout")->trigger();
    QVERIFY(!bar()->isVisible());
}

void TestSyncResult::barCanBeClosed()
{
    import({m_a});
    synchronise();
    QTest::mouseClick(m_window->child<QToolButton>("closeSummaryToolButton"), Qt::LeftButton);
    QVERIFY(!bar()->isVisible());
}

void TestSyncResult::textsFollowTheLanguage()
{
    import({m_a, m_known, m_z});
    synchronise();
    changeLanguage(*m_window, "actionGerman");
    QCOMPARE(told(), s("1 von 3 gefunden; 2 nicht im Katalog"));
    changeLanguage(*m_window, "actionEnglish");
    QCOMPARE(told(), s("1 of 3 found; 2 not in the catalogue"));
}

// ---------------------------------------------------------------- order of the rows

void TestSyncResult::chosenOrderIsAppliedAgain()
{
    import({m_z, m_known, m_a});
    const int artist = m_window->model()->columnNumber(songcolumns::Artist);
    QHeaderView *const header = m_window->table()->horizontalHeader();
    const QPoint heading(header->sectionViewportPosition(artist) + 5, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, heading);
    QCOMPARE(m_window->shownNames(), (QStringList{s("z.mid"), s("known.mid"), s("a.mid")}));
    m_window->table()->selectRow(1);
    synchronise(); // gives the known song its artist
    QCOMPARE(m_window->shownNames(), (QStringList{s("z.mid"), s("a.mid"), s("known.mid")}));
    QCOMPARE(header->sortIndicatorSection(), artist);
    QCOMPARE(m_window->table()->currentIndex().row(), 2); // the same song is chosen
}

void TestSyncResult::orderOfTheImportStays()
{
    import({m_z, m_known, m_a});
    synchronise();
    QCOMPARE(m_window->shownNames(), (QStringList{s("z.mid"), s("known.mid"), s("a.mid")}));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestSyncResult>(argc, argv);
}

#include "test_syncresult.moc"
