// Adding to the list, saving and opening lists, and what backup and transfer make of it.
#include "app/songdrop.h"
#include "library/settings.h"
#include "support/apptest.h"
#include "support/samplesongs.h"
#include "support/shorttext.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/filelistdialog.h"

#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QProgressDialog>
#include <QStatusBar>
#include <QTreeWidget>

class TestSongLists : public AppFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void addedFilesStandBehindTheOthers();
    void addingKeepsRowsStatusesAndMarks();
    void addedFolderIsSearched();
    void nothingNewIsSaid();
    void songRemovedFromTheListComesBack();
    void stoppedAdditionChoosesOnlyWhatWasRead();
    void addedUnreadableFilesJoinTheOthers();
    void dropWithCtrlAdds();
    void dropWithoutCtrlReplaces();
    void transferFollowsAdditionsAndDeletedFiles();
    void addingToAnEmptyListEnablesTheButtons();

    void savedListIsOpenedAgain_data();
    void savedListIsOpenedAgain();
    void missingFilesOfAListAreNamedAndNotTransferred();
    void listWithoutSongsLeavesTheRows_data();
    void listWithoutSongsLeavesTheRows();
    void listIsNotSavedOverASong();
    void emptyListIsNotSaved();
    void lastListIsReopenedInTheNextRun();
    void replacedListIsReopened();
    void recentListsAndFoldersAreOffered();
    void entriesAreDisabledWhileWorkRuns();

private:
    void choose(const QStringList &files)
    {
        m_window->setSelectedFiles(files);
        m_window->importUserLibrary();
    }
    void trigger(const char *action) { m_window->action(action)->trigger(); }
    QString message() const { return m_window->child<QStatusBar>("statusBar")->currentMessage(); }
    QString rowStates() const;
    void drop(const QStringList &paths, Qt::KeyboardModifiers keys);
    QStringList transferred();
    QList<QAction *> recentEntries();
    QStringList saveAs(const QString &path, bool isAbsolute = false);

    std::unique_ptr<SongFolder> m_songs;
    std::unique_ptr<WindowUnderTest> m_window;
    std::unique_ptr<UserDriver> m_user;
    QString m_a;
    QString m_b;
    QString m_c;
};

void TestSongLists::init()
{
    AppFixture::init();
    m_songs = std::make_unique<SongFolder>();
    m_a = m_songs->midi(s("a.mid"), "A");
    m_b = m_songs->midi(s("b.mid"), "B");
    m_c = m_songs->mp3(s("c.mp3"), "C");
    m_window = std::make_unique<WindowUnderTest>();
    m_user = std::make_unique<UserDriver>();
}

void TestSongLists::cleanup()
{
    m_user.reset();
    m_window.reset();
    m_songs.reset();
    AppFixture::cleanup();
}

QString TestSongLists::rowStates() const
{
    QStringList states;
    for (int row = 0; row < m_window->model()->goodRowCount(); ++row)
        states << s("%1 %2 %3")
                      .arg(m_window->model()->shortName(row))
                      .arg(m_window->model()->status(row))
                      .arg(static_cast<int>(m_window->model()->saveFailure(row)));
    return states.join(s(", "));
}

void TestSongLists::drop(const QStringList &paths, Qt::KeyboardModifiers keys)
{
    QList<QUrl> urls;
    for (const QString &path : paths)
        urls << QUrl::fromLocalFile(path);
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, keys);
    QCoreApplication::sendEvent(m_window.get(), &enter);
    QDropEvent event(QPointF(60, 60), Qt::CopyAction, &data, Qt::LeftButton, keys);
    QCoreApplication::sendEvent(m_window.get(), &event);
    QVERIFY(event.isAccepted());
}

/** The names of what a transfer copies; an empty list as well when it failed. */
QStringList TestSongLists::transferred()
{
    const QTemporaryDir folder;
    int copied = 0;
    if (!m_window->copyFiles(folder.path(), copied))
        return {};
    return QDir(folder.path()).entryList(QDir::Files, QDir::Name);
}

QList<QAction *> TestSongLists::recentEntries()
{
    auto *const menu = m_window->child<QMenu>("menuRecent");
    emit menu->aboutToShow();
    QList<QAction *> entries;
    for (QAction *const entry : menu->actions()) {
        if (!entry->isSeparator())
            entries << entry;
    }
    return entries;
}

/** Saves the list under the name, over a file that is there; what else is said is returned. */
QStringList TestSongLists::saveAs(const QString &path, bool isAbsolute)
{
    m_user.reset(); // it would cancel the file dialog
    QStringList said;
    ModalAnswers answers;
    answers.add([&said](QWidget *modal) {
        auto *const box = qobject_cast<QMessageBox *>(modal);
        if (box == nullptr)
            return false;
        QAbstractButton *button = box->button(QMessageBox::Yes); // to replace the file
        if (button == nullptr) {
            said << box->text();
            button = box->button(QMessageBox::Ok);
        }
        QTest::mouseClick(button, Qt::LeftButton);
        return true;
    });
    QTimer::singleShot(0, m_window.get(), [&] {
        auto *const dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog != nullptr);
        dialog->selectNameFilter(dialog->nameFilters().at(isAbsolute ? 1 : 0));
        child<QLineEdit>(dialog, "fileNameEdit")->setText(path);
        QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
    });
    trigger("actionSaveList");
    m_user = std::make_unique<UserDriver>();
    return said;
}

void TestSongLists::addedFilesStandBehindTheOthers()
{
    choose({m_b});
    m_user->pick({m_c, m_a});
    trigger("actionAddFiles");
    QVERIFY(m_user->allPicked());
    QCOMPARE(m_window->shownNames(), (QStringList{s("b.mid"), s("c.mp3"), s("a.mid")}));
    QVERIFY(message().contains(QLatin1Char('2')));
}

void TestSongLists::addingKeepsRowsStatusesAndMarks()
{
    choose({m_a, m_b});
    m_window->model()->setStatus(0, Database::StatusEdited);
    m_window->model()->setSaveFailure(1, SaveFailure::DiskFull);
    m_window->table()->selectRow(1);
    const QString before = rowStates();
    QFile::remove(m_a); // its row must not be read again
    m_user->pick({m_b, m_c});
    trigger("actionAddFiles");
    QCOMPARE(rowStates(), before + s(", c.mp3 0 0"));
    QCOMPARE(m_window->table()->currentIndex().row(), 1);
}

void TestSongLists::addedFolderIsSearched()
{
    choose({m_b});
    QVERIFY(QDir(m_songs->path()).mkdir(s("sub")));
    m_songs->midi(s("sub/d.KAR"), "D");
    m_songs->bad(s("cover.jpg"));
    m_user->pick({m_songs->path()});
    trigger("actionAddFolder");
    QCOMPARE(m_window->shownNames(), (QStringList{s("b.mid"), s("d.KAR"), s("a.mid"), s("c.mp3")}));
}

void TestSongLists::nothingNewIsSaid()
{
    choose({m_a, m_b});
    m_window->updateButton()->setEnabled(false); // as after a synchronisation
    m_user->pick({m_b, m_a});
    trigger("actionAddFiles");
    QCOMPARE(message(), s("Queste song sono già nella lista"));
    QCOMPARE(m_window->model()->goodRowCount(), 2);
    QVERIFY(!m_window->updateButton()->isEnabled());
    QVERIFY(QDir(m_songs->path()).mkdir(s("empty")));
    m_user->pick({m_songs->filePath(s("empty"))});
    trigger("actionAddFolder");
    QCOMPARE(message(), s("Nessuna song trovata"));
    trigger("actionAddFiles"); // cancelled
    QCOMPARE(m_window->model()->goodRowCount(), 2);
}

void TestSongLists::songRemovedFromTheListComesBack()
{
    choose({m_a, m_b});
    m_window->table()->selectRow(0);
    trigger("actionRemoveSong");
    QCOMPARE(m_window->shownNames(), QStringList{s("b.mid")});
    QCOMPARE(transferred(), (QStringList{s("a.mid"), s("b.mid")}));
    m_user->pick({m_a});
    trigger("actionAddFiles");
    QCOMPARE(m_window->shownNames(), (QStringList{s("b.mid"), s("a.mid")}));
    QCOMPARE(transferred(), (QStringList{s("a.mid"), s("b.mid")}));
}

void TestSongLists::stoppedAdditionChoosesOnlyWhatWasRead()
{
    choose({m_a});
    QVERIFY(QDir(m_songs->path()).mkdir(s("many")));
    for (int i = 0; i < 800; ++i)
        m_songs->midi(s("many/%1.mid").arg(i), "X");
    m_user->add([](QWidget *modal) {
        auto *const progress = qobject_cast<QProgressDialog *>(modal);
        if (progress == nullptr || progress->value() < 5)
            return progress != nullptr;
        QTest::mouseClick(progress->findChild<QPushButton *>(), Qt::LeftButton);
        return true;
    });
    m_user->pick({m_songs->filePath(s("many"))});
    trigger("actionAddFolder");
    const int rows = m_window->model()->goodRowCount();
    QVERIFY2(rows > 1 && rows < 801, qPrintable(QString::number(rows)));
    m_user.reset();
    QCOMPARE(transferred().size(), rows);
}

void TestSongLists::addedUnreadableFilesJoinTheOthers()
{
    const QString bad = m_songs->bad(s("bad.mid"));
    const QString worse = m_songs->bad(s("worse.mid"));
    choose({m_a, bad});
    m_user->pick({worse, m_b});
    trigger("actionAddFiles");
    auto *const button = m_window->child<QPushButton>("unreadablePushButton");
    QCOMPARE(button->text().section(QLatin1Char(' '), 0, 0), s("2"));
    m_songs->midi(s("bad.mid"), "good now");
    m_user->pick({bad});
    trigger("actionAddFiles");
    QCOMPARE(button->text().section(QLatin1Char(' '), 0, 0), s("1"));
    QCOMPARE(m_window->model()->goodRowCount(), 3);
}

void TestSongLists::dropWithCtrlAdds()
{
    choose({m_a});
    drop({m_b, m_a}, Qt::ControlModifier);
    QTRY_COMPARE(m_window->shownNames(), (QStringList{s("a.mid"), s("b.mid")}));
    QCOMPARE(transferred(), (QStringList{s("a.mid"), s("b.mid")}));
}

void TestSongLists::dropWithoutCtrlReplaces()
{
    choose({m_a});
    drop({m_b}, Qt::ControlModifier);
    QTRY_COMPARE(m_window->model()->goodRowCount(), 2);
    drop({m_c}, Qt::NoModifier);
    QTRY_COMPARE(m_window->shownNames(), QStringList{s("c.mp3")});
    QCOMPARE(transferred(), QStringList{s("c.mp3")});
}

void TestSongLists::transferFollowsAdditionsAndDeletedFiles()
{
    choose({m_a});
    m_user->pick({m_b, m_c});
    trigger("actionAddFiles");
    QCOMPARE(transferred(), (QStringList{s("a.mid"), s("b.mid"), s("c.mp3")}));
    m_window->table()->selectRow(1);
    m_user->pressInMessageBoxes(QMessageBox::Yes);
    trigger("actionDeleteSongFile");
    QVERIFY(!QFile::exists(m_b));
    QCOMPARE(transferred(), (QStringList{s("a.mid"), s("c.mp3")}));
}

void TestSongLists::addingToAnEmptyListEnablesTheButtons()
{
    QVERIFY(!m_window->updateButton()->isEnabled());
    m_user->pick({m_a});
    trigger("actionAddFiles");
    QCOMPARE(m_window->shownNames(), QStringList{s("a.mid")});
    QVERIFY(m_window->updateButton()->isEnabled());
    QVERIFY(m_window->transferButton()->isEnabled());
}

void TestSongLists::savedListIsOpenedAgain_data()
{
    QTest::addColumn<bool>("isAbsolute");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("relative") << false << QByteArray("\nb.mid\n");
    QTest::newRow("absolute") << true << QByteArray("/b.mid\n");
}

void TestSongLists::savedListIsOpenedAgain()
{
    QFETCH(bool, isAbsolute);
    QFETCH(QByteArray, line);
    choose({m_b, m_a, m_c});
    const QString list = m_songs->filePath(s("set.m3u8"));
    QCOMPARE(saveAs(m_songs->filePath(s("set")), isAbsolute), QStringList());
    const QByteArray text = samplesongs::readFile(list);
    QVERIFY2(text.contains(line), text.constData());
    QCOMPARE(text.contains(m_songs->path().toUtf8()), isAbsolute);
    choose({m_c});
    m_user->pick({list});
    trigger("actionOpenList");
    QCOMPARE(m_window->shownNames(), (QStringList{s("b.mid"), s("a.mid"), s("c.mp3")}));
    QCOMPARE(transferred().size(), 3);
    QVERIFY(m_window->updateButton()->isEnabled());
}

void TestSongLists::missingFilesOfAListAreNamedAndNotTransferred()
{
    const QString list = m_songs->write(s("l.m3u8"), "gone.mid\na.mid\nhttp://example.org/x.mp3\n");
    QStringList lines;
    m_user->add([&](QWidget *modal) {
        auto *const dialog = qobject_cast<FileListDialog *>(modal);
        if (dialog == nullptr)
            return false;
        const auto *const tree = dialog->findChild<QTreeWidget *>();
        for (int row = 0; row < tree->topLevelItemCount(); ++row)
            lines << tree->topLevelItem(row)->text(0);
        dialog->close();
        return true;
    });
    m_user->pick({list});
    trigger("actionOpenList");
    QCOMPARE(lines, (QStringList{s("gone.mid"), s("x.mp3")}));
    QCOMPARE(transferred(), QStringList{s("a.mid")});
    // A song that is only out of reach is not lost from the list.
    m_user->pick({m_songs->filePath(s("again.m3u8"))});
    trigger("actionSaveList");
    QCOMPARE(samplesongs::readFile(m_songs->filePath(s("again.m3u8"))),
             QByteArray("#EXTM3U\na.mid\ngone.mid\n"));
}

void TestSongLists::listWithoutSongsLeavesTheRows_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("comments") << QByteArray("#EXTM3U\n");
    QTest::newRow("zero bytes") << QByteArray(5000, '\0');
}

void TestSongLists::listWithoutSongsLeavesTheRows()
{
    QFETCH(QByteArray, bytes);
    choose({m_a});
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    m_user->pick({m_songs->write(s("l.m3u8"), bytes)});
    trigger("actionOpenList");
    QCOMPARE(m_user->messages().size(), 1);
    QVERIFY(m_user->messages().constFirst().contains(s("La lista non contiene song")));
    QCOMPARE(m_window->shownNames(), QStringList{s("a.mid")});
    QCOMPARE(recentEntries().size(), 1);
    QVERIFY(!recentEntries().constFirst()->isEnabled());
}

void TestSongLists::listIsNotSavedOverASong()
{
    choose({m_a});
    const QString song = m_songs->midi(s("named.m3u8"), "a song");
    const QByteArray before = samplesongs::readFile(song);
    QCOMPARE(saveAs(song).size(), 1);
    QCOMPARE(samplesongs::readFile(song), before);
}

void TestSongLists::emptyListIsNotSaved()
{
    trigger("actionSaveList");
    QCOMPARE(message(), s("La lista è vuota"));
    QVERIFY(!m_window->action("actionReopenList")->isEnabled());
}

void TestSongLists::lastListIsReopenedInTheNextRun()
{
    choose({m_b, m_a});
    m_user->pick({m_c});
    trigger("actionAddFiles");
    m_window->close();
    m_window.reset();
    m_window = std::make_unique<WindowUnderTest>();
    QCOMPARE(m_window->model()->goodRowCount(), 0); // only on request
    QVERIFY(m_window->action("actionReopenList")->isEnabled());
    trigger("actionReopenList");
    QCOMPARE(m_window->shownNames(), (QStringList{s("b.mid"), s("a.mid"), s("c.mp3")}));
    QCOMPARE(transferred().size(), 3);
}

void TestSongLists::replacedListIsReopened()
{
    choose({m_a, m_b});
    m_user->pick({m_c});
    m_window->selectButton()->click();
    QCOMPARE(m_window->shownNames(), QStringList{s("c.mp3")});
    trigger("actionReopenList");
    QCOMPARE(m_window->shownNames(), (QStringList{s("a.mid"), s("b.mid")}));
    trigger("actionReopenList");
    QCOMPARE(m_window->shownNames(), QStringList{s("c.mp3")});
}

void TestSongLists::recentListsAndFoldersAreOffered()
{
    const QString list = m_songs->write(s("one & two.m3u8"), "a.mid\n");
    m_user->pick({list});
    trigger("actionOpenList");
    QVERIFY(QDir(m_songs->path()).mkdir(s("sub")));
    m_songs->midi(s("sub/d.mid"), "D");
    m_user->pick({m_songs->filePath(s("sub"))});
    trigger("actionAddFolder");
    QCOMPARE(m_window->shownNames(), (QStringList{s("a.mid"), s("d.mid")}));
    choose({m_c});
    QCOMPARE(recentEntries().size(), 2);
    QVERIFY(recentEntries().constFirst()->text().endsWith(s("one && two.m3u8")));
    recentEntries().constLast()->trigger(); // the folder is added
    QCOMPARE(m_window->shownNames(), (QStringList{s("c.mp3"), s("d.mid")}));
    recentEntries().constFirst()->trigger(); // the list is opened
    QCOMPARE(m_window->shownNames(), QStringList{s("a.mid")});
    QVERIFY(QFile::remove(list));
    QVERIFY(QDir(m_songs->filePath(s("sub"))).removeRecursively());
    for (const QAction *const entry : recentEntries())
        QVERIFY(!entry->isEnabled());
}

void TestSongLists::entriesAreDisabledWhileWorkRuns()
{
    choose({m_a});
    int looked = 0;
    int enabled = 0;
    m_user->add([&](QWidget *modal) {
        ++looked;
        for (const char *name : {"actionAddFiles", "actionAddFolder", "actionOpenList",
                                 "actionSaveList", "actionReopenList"})
            enabled += m_window->action(name)->isEnabled() ? 1 : 0;
        return modal->close();
    });
    trigger("actionAbout");
    QVERIFY(looked > 0);
    QCOMPARE(enabled, 0);
    QVERIFY(m_window->action("actionAddFiles")->isEnabled());
}

int main(int argc, char *argv[])
{
    return runAppTest<TestSongLists>(argc, argv);
}

#include "test_songlists.moc"
