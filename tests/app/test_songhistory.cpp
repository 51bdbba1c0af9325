// Taking back through the main window: the last job by a key, jobs and songs in a window.
#include "library/settings.h"
#include "library/userhistory.h"
#include "support/apptest.h"
#include "support/mainwindowdriver.h"
#include "support/modalanswers.h"
#include "support/samplesongs.h"
#include "windows/backupdialog.h"
#include "windows/historydialog.h"

#include <QCheckBox>
#include <QRandomGenerator>
#include <QSpinBox>
#include <QStatusBar>
#include <QTreeWidget>

class TestSongHistory : public AppFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void lastJobIsTakenBackByAKeyAfterAQuestion();
    void secondTimeTheJobBeforeIsTakenBack();
    void decliningLeavesTheSongs();
    void nothingToTakeBackIsSaid();
    void unusableHistoryIsAskedAboutAndNoIsTheDefault_data();
    void unusableHistoryIsAskedAboutAndNoIsTheDefault();
    void windowShowsJobsAndSongsWithTheirValues();
    void chosenSongIsTakenBackAlone();
    void songThatWasChangedSinceIsNamedAndStaysUnlessTicked();
    void songThatIsGoneAndOneThatWasMovedAreShown();
    void limitIsSetInTheWindow();
    void droppedJobsAreToldInTheStatusBar();
    void thousandsOfSongsDoNotKeepTheWindowWaiting();

private:
    bool synchronise();
    void inWindow(const std::function<void(HistoryDialog *)> &look);
    QByteArray bytes(const QString &path) const { return samplesongs::readFile(path); }
    int rowOf(const QString &name) const
    {
        return static_cast<int>(m_window->shownNames().indexOf(name));
    }

    std::unique_ptr<SongFolder> m_songs;
    std::unique_ptr<WindowUnderTest> m_window;
    std::unique_ptr<ModalAnswers> m_answers;
    QString m_known;
    QString m_tagged;
};

namespace
{

QTreeWidget *tree(const QWidget *dialog, const char *name)
{
    return dialog->findChild<QTreeWidget *>(QLatin1String(name));
}

void press(const QWidget *dialog, const char *name)
{
    QTest::mouseClick(dialog->findChild<QPushButton *>(QLatin1String(name)), Qt::LeftButton);
}

} // namespace

/** Two songs are listed; the catalogue knows both by their names. */
void TestSongHistory::init()
{
    AppFixture::init();
    QVERIFY(mainwindowdriver::writeCatalogue());
    m_songs = std::make_unique<SongFolder>();
    m_known = m_songs->midi(QStringLiteral("known.mid"), "KNOWN");
    m_tagged = m_songs->mp3(QStringLiteral("known.mp3"), "tagged");
    m_window = std::make_unique<WindowUnderTest>();
    m_window->setSelectedFiles({m_known, m_tagged});
    m_window->importUserLibrary();
    QCOMPARE(m_window->model()->goodRowCount(), 2);
    m_answers = std::make_unique<ModalAnswers>();
    m_answers->click<BackupDialog>(QStringLiteral("exitPushButton"));
}

void TestSongHistory::cleanup()
{
    m_answers.reset();
    m_window.reset();
    m_songs.reset();
    AppFixture::cleanup();
}

bool TestSongHistory::synchronise()
{
    return m_window->updateUserLibrary();
}

/** Opens the window of the history, looks at it and closes it. */
void TestSongHistory::inWindow(const std::function<void(HistoryDialog *)> &look)
{
    bool looked = false;
    // Not from the timer of the answers, which are needed meanwhile.
    QTimer::singleShot(0, m_window.get(), [&] {
        auto *const dialog = qobject_cast<HistoryDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog != nullptr);
        looked = true;
        look(dialog);
        dialog->close();
    });
    m_window->action("actionHistory")->trigger();
    QVERIFY(looked);
}

void TestSongHistory::lastJobIsTakenBackByAKeyAfterAQuestion()
{
    const QByteArray before = bytes(m_known);
    const QByteArray taggedBefore = bytes(m_tagged);
    QVERIFY(synchronise());
    QVERIFY(bytes(m_known) != before);
    const int row = rowOf(QStringLiteral("known.mid"));
    QCOMPARE(m_window->model()->title(row), QStringLiteral("KNOWN TITLE"));

    bool asked = false;
    m_answers = std::make_unique<ModalAnswers>();
    m_answers->add([&asked](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr || box->button(QMessageBox::Yes) == nullptr)
            return false;
        asked = box->text().contains(QStringLiteral("Sincronizzazione")) &&
                box->text().contains(QStringLiteral("2 song"));
        QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
        return true;
    });
    m_answers->pressInMessageBoxes(QMessageBox::Ok);
    QCOMPARE(m_window->action("actionTakeBack")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Z));
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window->table(), Qt::Key_Z, Qt::ControlModifier);
    QTRY_VERIFY(asked);
    QTRY_COMPARE(m_answers->messages(),
                 QStringList(QStringLiteral("Cronologia: 2 song sono di nuovo come prima.")));
    QCOMPARE(bytes(m_known), before);
    QCOMPARE(bytes(m_tagged), taggedBefore);
    QCOMPARE(m_window->model()->title(row), QStringLiteral("KNOWN"));
    QCOMPARE(m_window->model()->status(row), static_cast<int>(Database::StatusNew));
}

void TestSongHistory::secondTimeTheJobBeforeIsTakenBack()
{
    const QByteArray before = bytes(m_known);
    QVERIFY(synchronise());
    MetaSong song;
    QVERIFY(song.importFile(m_known));
    SongInfo info;
    info.title = QStringLiteral("Mine");
    m_window->manualModifySong(song, info, m_known, rowOf(QStringLiteral("known.mid")));

    m_answers->add([](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        auto *const yes = box->button(QMessageBox::Yes);
        QTest::mouseClick(yes != nullptr ? yes : box->button(QMessageBox::Ok), Qt::LeftButton);
        return true;
    });
    m_window->action("actionTakeBack")->trigger();
    QCOMPARE(m_window->model()->title(rowOf(QStringLiteral("known.mid"))),
             QStringLiteral("KNOWN TITLE"));
    m_window->action("actionTakeBack")->trigger();
    QCOMPARE(bytes(m_known), before);
}

void TestSongHistory::decliningLeavesTheSongs()
{
    QVERIFY(synchronise());
    const QByteArray synchronised = bytes(m_known);
    m_answers->pressInMessageBoxes(QMessageBox::No);
    m_window->action("actionTakeBack")->trigger();
    QCOMPARE(m_answers->messages().size(), 1);
    QCOMPARE(bytes(m_known), synchronised);
}

void TestSongHistory::nothingToTakeBackIsSaid()
{
    m_answers->pressInMessageBoxes(QMessageBox::Ok);
    m_window->action("actionTakeBack")->trigger();
    QCOMPARE(m_answers->messages(),
             QStringList(QStringLiteral("Cronologia: Non c'è niente da annullare.")));
    QVERIFY(!QFile::exists(HistoryStore::defaultPath()));
}

void TestSongHistory::unusableHistoryIsAskedAboutAndNoIsTheDefault_data()
{
    QTest::addColumn<bool>("goOn");
    QTest::newRow("no") << false;
    QTest::newRow("yes") << true;
}

void TestSongHistory::unusableHistoryIsAskedAboutAndNoIsTheDefault()
{
    QFETCH(bool, goOn);
    const QString path = HistoryStore::defaultPath();
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QVERIFY(samplesongs::writeFile(path, QByteArray(5000, 'x')));
    const QByteArray before = bytes(m_known);
    QString text;
    bool isNoDefault = false;
    m_answers->add([&](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        text = box->text();
        isNoDefault = box->defaultButton() == box->button(QMessageBox::No);
        QTest::mouseClick(box->button(goOn ? QMessageBox::Yes : QMessageBox::No), Qt::LeftButton);
        return true;
    });
    QCOMPARE(synchronise(), goOn);
    QVERIFY(isNoDefault);
    QVERIFY(text.contains(QStringLiteral("La cronologia è danneggiata.")));
    QCOMPARE(bytes(m_known) == before, !goOn);
    QCOMPARE(bytes(path), QByteArray(5000, 'x'));
}

void TestSongHistory::windowShowsJobsAndSongsWithTheirValues()
{
    QVERIFY(synchronise());
    inWindow([](const HistoryDialog *dialog) {
        const QTreeWidget *const jobs = tree(dialog, "jobsTreeWidget");
        QCOMPARE(jobs->topLevelItemCount(), 1);
        QCOMPARE(jobs->topLevelItem(0)->text(1), QStringLiteral("Sincronizzazione"));
        QCOMPARE(jobs->topLevelItem(0)->text(2), QStringLiteral("2"));
        QCOMPARE(jobs->topLevelItem(0)->text(3), QString());
        const QTreeWidget *const songs = tree(dialog, "songsTreeWidget");
        QCOMPARE(songs->topLevelItemCount(), 2);
        const QTreeWidgetItem *const song = songs->topLevelItem(0);
        QCOMPARE(song->text(0), QStringLiteral("known.mid"));
        QVERIFY(song->childCount() >= 3);
        QCOMPARE(song->child(0)->text(1), QStringLiteral("KNOWN"));
        QCOMPARE(song->child(0)->text(2), QStringLiteral("KNOWN TITLE"));
        QVERIFY(song->child(0)->font(2).bold());
        QTRY_COMPARE(song->text(3), QStringLiteral("come il lavoro l'ha lasciata"));
    });
}

void TestSongHistory::chosenSongIsTakenBackAlone()
{
    const QByteArray before = bytes(m_tagged);
    QVERIFY(synchronise());
    const QByteArray synchronised = bytes(m_known);
    m_answers->pressInMessageBoxes(QMessageBox::Ok);
    inWindow([](const HistoryDialog *dialog) {
        auto *const button =
            dialog->findChild<QPushButton *>(QStringLiteral("takeBackChosenPushButton"));
        QVERIFY(!button->isEnabled());
        tree(dialog, "songsTreeWidget")->topLevelItem(1)->setCheckState(0, Qt::Checked);
        QVERIFY(button->isEnabled());
        press(dialog, "takeBackChosenPushButton");
        const QTreeWidget *const jobs = tree(dialog, "jobsTreeWidget");
        QCOMPARE(jobs->topLevelItemCount(), 2);
        QCOMPARE(jobs->topLevelItem(0)->text(1), QStringLiteral("Annullamento"));
        QVERIFY(jobs->topLevelItem(0)->text(3).contains(QStringLiteral("Sincronizzazione")));
        QCOMPARE(jobs->currentItem(), jobs->topLevelItem(1));
        QCOMPARE(jobs->topLevelItem(1)->text(3), QStringLiteral("annullato in parte"));
        const QTreeWidget *const songs = tree(dialog, "songsTreeWidget");
        QTRY_COMPARE(songs->topLevelItem(1)->text(3), QStringLiteral("è già come prima"));
    });
    QCOMPARE(bytes(m_tagged), before);
    QCOMPARE(bytes(m_known), synchronised);
    QCOMPARE(m_window->model()->title(rowOf(QStringLiteral("known.mp3"))),
             QStringLiteral("tagged"));
}

void TestSongHistory::songThatWasChangedSinceIsNamedAndStaysUnlessTicked()
{
    const QByteArray before = bytes(m_known);
    QVERIFY(synchronise());
    const QByteArray changed = bytes(m_known) + "more";
    QVERIFY(samplesongs::writeFile(m_known, changed));
    m_answers->pressInMessageBoxes(QMessageBox::Ok);
    inWindow([&](const HistoryDialog *dialog) {
        const QTreeWidget *const songs = tree(dialog, "songsTreeWidget");
        QTRY_COMPARE(songs->topLevelItem(0)->text(3), QStringLiteral("cambiata dopo"));
        press(dialog, "takeBackPushButton");
        QCOMPARE(bytes(m_known), changed);
        auto *const also = dialog->findChild<QCheckBox *>(QStringLiteral("changedCheckBox"));
        also->setChecked(true);
        press(dialog, "takeBackPushButton");
        QCOMPARE(bytes(m_known), before);
        QVERIFY(!also->isChecked());
    });
    QCOMPARE(m_answers->messages().size(), 2);
    QVERIFY(m_answers->messages().at(0).contains(QStringLiteral("1 song sono rimaste come sono")));
    QVERIFY(m_answers->messages().at(1).contains(QStringLiteral("1 song erano già come prima")));
}

void TestSongHistory::songThatIsGoneAndOneThatWasMovedAreShown()
{
    QVERIFY(synchronise());
    const QString moved = m_songs->filePath(QStringLiteral("moved.mp3"));
    QVERIFY(QFile::rename(m_tagged, moved));
    QVERIFY(QFile::remove(m_known));
    m_window->setSelectedFiles({moved});
    m_window->importUserLibrary();
    inWindow([](const HistoryDialog *dialog) {
        const QTreeWidget *const songs = tree(dialog, "songsTreeWidget");
        QTRY_COMPARE(songs->topLevelItem(0)->text(3), QStringLiteral("non c'è più"));
        QTRY_COMPARE(songs->topLevelItem(1)->text(3), QStringLiteral("spostata"));
    });
}

void TestSongHistory::limitIsSetInTheWindow()
{
    inWindow([](const HistoryDialog *dialog) {
        auto *const limit = dialog->findChild<QSpinBox *>(QStringLiteral("limitSpinBox"));
        QCOMPARE(limit->value(), 1024);
        limit->selectAll();
        QTest::keyClicks(limit, QStringLiteral("300"));
    });
    QCOMPARE(OwnSettings::value(settings::historyLimit).toInt(), 300);
}

void TestSongHistory::droppedJobsAreToldInTheStatusBar()
{
    OwnSettings::set(settings::historyLimit, 10);
    UserHistory old([](const QString &) { return false; }, {});
    QCOMPARE(old.store().open(), HistoryStore::State::Ready);
    const auto job = old.store().addJob(HistoryJob::Kind::Edit);
    SongSnapshot large;
    large.digest = "digest";
    QRandomGenerator random(1);
    large.bytes.resize(11 << 20);
    for (char &byte : large.bytes)
        byte = static_cast<char>(random.bounded(256));
    const QList<qint64> ids = old.store().addSongs(*job, {{QStringLiteral("/x.mid"), {}, large}});
    QCOMPARE(ids.size(), 1);
    QVERIFY(old.store().end({{ids.constFirst(), {}, {}, 1, QByteArray(32, 'd')}}));
    QVERIFY(synchronise());
    QCOMPARE(m_window->statusBar()->currentMessage(),
             QStringLiteral("La cronologia è piena: 1 lavori più vecchi non possono più essere "
                            "annullati."));
}

void TestSongHistory::thousandsOfSongsDoNotKeepTheWindowWaiting()
{
    UserHistory history([](const QString &) { return false; }, {});
    QCOMPARE(history.store().open(), HistoryStore::State::Ready);
    const auto job = history.store().addJob(HistoryJob::Kind::Synchronise);
    SongSnapshot snapshot;
    snapshot.digest = "digest";
    QList<HistoryStore::Entry> entries;
    constexpr int many = 3000;
    for (int i = 0; i < many; ++i)
        entries.append({m_known, {}, snapshot});
    const QList<qint64> ids = history.store().addSongs(*job, entries);
    QCOMPARE(ids.size(), many);
    QList<HistoryStore::Ending> endings;
    for (const qint64 id : ids)
        endings.append({id, {}, {}, snapshot.size, snapshot.digest});
    QVERIFY(history.store().end(endings));
    inWindow([](const HistoryDialog *dialog) {
        const QTreeWidget *const songs = tree(dialog, "songsTreeWidget");
        QCOMPARE(songs->topLevelItemCount(), many);
        // It is on the screen before all songs have been looked for.
        QCOMPARE(songs->topLevelItem(many - 1)->text(3), QString());
        QTRY_COMPARE_WITH_TIMEOUT(songs->topLevelItem(many - 1)->text(3),
                                  QStringLiteral("cambiata dopo"), 20000);
    });
}

int main(int argc, char *argv[])
{
    return runAppTest<TestSongHistory>(argc, argv);
}
#include "test_songhistory.moc"
