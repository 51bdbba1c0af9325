// The window in which MP3 tags are prepared: nothing without "Apply", only what is ticked, with the
// texts that stand there.
#include "library/historystore.h"
#include "support/modalanswers.h"
#include "support/tagsofothers.h"
#include "windows/filelistdialog.h"
#include "windows/preparetagsdialog.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

using samplesongs::readFile;

namespace
{

QString text(const char *words)
{
    return QString::fromUtf8(words);
}

} // namespace

class TestPrepareTagsDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void textsNowAndThenAreShownAndNothingIsWritten();
    void tickedSongsAreWrittenAndLeaveTheList();
    void editedTextIsSpelledAndWritten();
    void numbersAndOldTextsCannotBeEdited();
    void allSongsAreTickedAtOnce();
    void whatIsWrittenIsInTheHistory();
    void withoutHistoryNothingIsWrittenUnlessWished();
    void songThatChangedSinceIsNamedAndStays();
    void whatGoesIsSaidBeforehand();
    void damagedTagCannotBeTicked();
    void userStopsBetweenSongs();

private:
    QString path(const char *name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    void write(const char *name, const QByteArray &bytes)
    {
        QVERIFY(samplesongs::writeFile(path(name), bytes));
        const auto preparation = Mp3Preparation::of(path(name));
        QVERIFY(preparation);
        m_songs.append(*preparation);
    }
    static QTreeWidget *tree(const QWidget &dialog)
    {
        return dialog.findChild<QTreeWidget *>(QStringLiteral("songsTreeWidget"));
    }
    static QPushButton *button(const QWidget &dialog, const char *name)
    {
        return dialog.findChild<QPushButton *>(QString::fromLatin1(name));
    }
    static void apply(const QWidget &dialog)
    {
        QTest::mouseClick(button(dialog, "applyPushButton"), Qt::LeftButton);
    }
    OpenHistory history(bool goesOnWithout = false)
    {
        m_store.reset(new HistoryStore(path("history.sqlite")));
        return [this, goesOnWithout](HistoryJob::Kind kind) {
            return std::make_unique<HistoryRecorder>(
                *m_store, kind, [goesOnWithout](const QString &) { return goesOnWithout; });
        };
    }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<HistoryStore> m_store;
    QList<Mp3Preparation> m_songs;
};

void TestPrepareTagsDialog::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
    m_store.reset();
    m_songs.clear();
    write("a.mp3", tagsofothers::song(text("Čárový zvon"), text("Řehoř")));
    write("b.mp3", tagsofothers::song(text("Катюша")));
}

void TestPrepareTagsDialog::textsNowAndThenAreShownAndNothingIsWritten()
{
    const QByteArray before = readFile(path("a.mp3"));
    PrepareTagsDialog dialog(m_songs, OpenHistory());
    dialog.show();
    QCOMPARE(tree(dialog)->topLevelItemCount(), 2);
    const QTreeWidgetItem *const song = tree(dialog)->topLevelItem(0);
    QCOMPARE(song->text(0), QStringLiteral("a.mp3"));
    QVERIFY(!song->text(1).isEmpty());
    QCOMPARE(song->checkState(0), Qt::Checked);
    QVERIFY(song->isExpanded());
    QCOMPARE(song->childCount(), 2);
    QCOMPARE(song->child(0)->text(1), QString::fromLatin1("\xFF\xFE\x0C\x01\xE1"));
    QCOMPARE(song->child(0)->text(2), text("Čárový zvon"));
    QCOMPARE(song->child(0)->text(3), text("Cárový zvon"));
    QCOMPARE(song->child(1)->text(3), text("Rehor"));
    QTest::mouseClick(button(dialog, "closePushButton"), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(readFile(path("a.mp3")), before);
}

void TestPrepareTagsDialog::tickedSongsAreWrittenAndLeaveTheList()
{
    const QByteArray other = readFile(path("b.mp3"));
    PrepareTagsDialog dialog(m_songs, OpenHistory());
    QSignalSpy written(&dialog, &PrepareTagsDialog::written);
    dialog.show();
    tree(dialog)->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    apply(dialog);
    QCOMPARE(written.count(), 1);
    QCOMPARE(written.at(0).at(0).toStringList(), QStringList(path("a.mp3")));
    QCOMPARE(user.messages().size(), 1);
    QCOMPARE(tree(dialog)->topLevelItemCount(), 1);
    QCOMPARE(readFile(path("b.mp3")), other);
    const auto after = Mp3Preparation::of(path("a.mp3"));
    QCOMPARE(after->troubles(), TagTroubles());
    QCOMPARE(after->shown().title, text("Cárový zvon"));
    QVERIFY(readFile(path("a.mp3")).endsWith(tagsofothers::audio()));

    QVERIFY(dialog.isVisible());
    tree(dialog)->topLevelItem(0)->setCheckState(0, Qt::Checked);
    apply(dialog);
    QVERIFY(!dialog.isVisible()); // no song is left
    QCOMPARE(dialog.result(), int{QDialog::Accepted});
    QCOMPARE(Mp3Preparation::of(path("b.mp3"))->shown().title, QStringLiteral("Katyusha"));
}

void TestPrepareTagsDialog::editedTextIsSpelledAndWritten()
{
    PrepareTagsDialog dialog(m_songs, OpenHistory());
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTreeWidgetItem *const title = tree(dialog)->topLevelItem(0)->child(0);
    tree(dialog)->setCurrentItem(title, 3);
    tree(dialog)->setFocus();
    QTest::keyClick(tree(dialog), Qt::Key_Return);
    auto *const editor = tree(dialog)->findChild<QLineEdit *>();
    QVERIFY(editor != nullptr);
    editor->setText(text("Zvon „č“"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(title->text(3), text("Zvon ,,c\""));
    apply(dialog);
    QCOMPARE(Mp3Preparation::of(path("a.mp3"))->shown().title, text("Zvon ,,c\""));
}

void TestPrepareTagsDialog::numbersAndOldTextsCannotBeEdited()
{
    m_songs.clear();
    write("n.mp3", QByteArray("ID3\3\0\0\0\0\0\x27", 10) +
                       tagsofothers::frame("TIT2", tagsofothers::utf16(text("A"))) +
                       tagsofothers::frame("TBPM", tagsofothers::utf16(text("96"))) +
                       tagsofothers::audio().prepend(QByteArray(7, '\0')));
    PrepareTagsDialog dialog(m_songs, OpenHistory());
    const QTreeWidgetItem *const song = tree(dialog)->topLevelItem(0);
    QCOMPARE(song->childCount(), 2);
    QVERIFY((song->child(0)->flags() & Qt::ItemIsEditable) != 0);
    QCOMPARE(song->child(1)->text(3), QStringLiteral("96"));
    QVERIFY((song->child(1)->flags() & Qt::ItemIsEditable) == 0);
    QVERIFY((song->flags() & Qt::ItemIsEditable) == 0);
    QCOMPARE(tree(dialog)->editTriggers(), QAbstractItemView::NoEditTriggers);
}

void TestPrepareTagsDialog::allSongsAreTickedAtOnce()
{
    PrepareTagsDialog dialog(m_songs, OpenHistory());
    dialog.show();
    auto *const all = dialog.findChild<QCheckBox *>(QStringLiteral("allCheckBox"));
    QVERIFY(all->isChecked());
    all->click();
    for (int row = 0; row < 2; ++row)
        QCOMPARE(tree(dialog)->topLevelItem(row)->checkState(0), Qt::Unchecked);
    QVERIFY(!button(dialog, "applyPushButton")->isEnabled());
    tree(dialog)->topLevelItem(0)->setCheckState(0, Qt::Checked);
    QVERIFY(!all->isChecked());
    QVERIFY(button(dialog, "applyPushButton")->isEnabled());
    all->click();
    QCOMPARE(tree(dialog)->topLevelItem(1)->checkState(0), Qt::Checked);
}

void TestPrepareTagsDialog::whatIsWrittenIsInTheHistory()
{
    PrepareTagsDialog dialog(m_songs, history());
    dialog.show();
    apply(dialog);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(m_store->open(), HistoryStore::State::Ready);
    const QList<HistoryJob> jobs = m_store->jobs();
    QCOMPARE(jobs.size(), 1);
    QCOMPARE(jobs.at(0).kind, HistoryJob::Kind::Tags);
    QCOMPARE(jobs.at(0).songs, 2);
    const QList<HistorySong> songs = m_store->songs(jobs.at(0).number);
    QCOMPARE(songs.at(0).after.title, text("Cárový zvon"));
}

void TestPrepareTagsDialog::withoutHistoryNothingIsWrittenUnlessWished()
{
    const QByteArray before = readFile(path("a.mp3"));
    QVERIFY(samplesongs::writeFile(path("history.sqlite"), QByteArray(5000, 'x')));
    ModalAnswers user;
    user.pressInMessageBoxes(QMessageBox::Ok);
    PrepareTagsDialog dialog(m_songs, history());
    dialog.show();
    apply(dialog);
    QCOMPARE(readFile(path("a.mp3")), before);
    QCOMPARE(tree(dialog)->topLevelItemCount(), 2);
    QCOMPARE(user.messages().size(), 1);
    PrepareTagsDialog goesOn(m_songs, history(true));
    goesOn.show();
    apply(goesOn);
    QVERIFY(readFile(path("a.mp3")) != before);
}

void TestPrepareTagsDialog::songThatChangedSinceIsNamedAndStays()
{
    PrepareTagsDialog dialog(m_songs, OpenHistory());
    dialog.show();
    const QByteArray other = tagsofothers::song(text("Š"));
    QVERIFY(samplesongs::writeFile(path("a.mp3"), other));
    QStringList named;
    ModalAnswers user;
    user.add([&named](QWidget *window) {
        auto *const list = qobject_cast<FileListDialog *>(window);
        if (list == nullptr)
            return false;
        named.append(list->findChild<QTreeWidget *>()->topLevelItem(0)->text(0));
        list->close();
        return true;
    });
    user.add([](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        for (QAbstractButton *const candidate : box->buttons()) {
            if (box->buttonRole(candidate) == QMessageBox::ActionRole)
                candidate->click();
        }
        return true;
    });
    apply(dialog);
    QCOMPARE(named, QStringList(QStringLiteral("a.mp3")));
    QCOMPARE(readFile(path("a.mp3")), other);
    QCOMPARE(tree(dialog)->topLevelItemCount(), 1);
    const QTreeWidgetItem *const song = tree(dialog)->topLevelItem(0);
    QCOMPARE(song->text(0), QStringLiteral("a.mp3"));
    // The list shows it as it is now, and so it can be written.
    QCOMPARE(song->child(0)->text(2), text("Š"));
    apply(dialog);
    QCOMPARE(Mp3Preparation::of(path("a.mp3"))->shown().title, QStringLiteral("S"));
}

void TestPrepareTagsDialog::whatGoesIsSaidBeforehand()
{
    m_songs.clear();
    write("old.mp3", tagsofothers::oldSong());
    PrepareTagsDialog dialog(m_songs, OpenHistory());
    QVERIFY(tree(dialog)->topLevelItem(0)->child(0)->text(0).contains(QStringLiteral("CRM")));
}

void TestPrepareTagsDialog::damagedTagCannotBeTicked()
{
    write("bad.mp3", QByteArray("ID3\2\0\0\0\0\0\x0ETT2\0\0\2\0AXX\xFF\xFF\xFF\xFF", 24) +
                         tagsofothers::audio());
    PrepareTagsDialog dialog(m_songs, OpenHistory());
    dialog.show();
    const QTreeWidgetItem *const bad = tree(dialog)->topLevelItem(2);
    QCOMPARE(bad->checkState(0), Qt::Unchecked);
    QVERIFY(bad->isDisabled());
    auto *const all = dialog.findChild<QCheckBox *>(QStringLiteral("allCheckBox"));
    all->click();
    QCOMPARE(bad->checkState(0), Qt::Unchecked);
}

void TestPrepareTagsDialog::userStopsBetweenSongs()
{
    m_songs.clear();
    for (int number = 0; number < 200; ++number)
        write(QByteArray::number(number).append(".mp3").constData(), tagsofothers::song(text("Č")));
    PrepareTagsDialog dialog(m_songs, OpenHistory());
    QSignalSpy written(&dialog, &PrepareTagsDialog::written);
    dialog.show();
    ModalAnswers user;
    user.add([](QWidget *window) {
        auto *const progress = qobject_cast<QProgressDialog *>(window);
        if (progress == nullptr)
            return false;
        progress->cancel();
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Ok);
    apply(dialog);
    const int left = tree(dialog)->topLevelItemCount();
    QVERIFY(left > 0);
    const qsizetype done = written.isEmpty() ? 0 : written.at(0).at(0).toStringList().size();
    QCOMPARE(done + left, 200);
    int concerned = 0;
    for (const Mp3Preparation &song : std::as_const(m_songs))
        concerned += Mp3Preparation::of(song.path())->troubles() == TagTroubles() ? 0 : 1;
    QCOMPARE(concerned, left);
}

QTEST_MAIN(TestPrepareTagsDialog)
#include "test_preparetagsdialog.moc"
