// What the memory window changes in songs is in the history and can be taken back.
#include "devindex/jobundo.h"
#include "library/userhistory.h"
#include "support/countingprogress.h"
#include "support/openmemorywindow.h"
#include "windows/dataeditdialog.h"
#include "windows/renamesongdialog.h"

using namespace openmemorywindow;

namespace
{

/** Edits the title of the song that the dialog shows. */
void enterTitle(ModalAnswers &user, const QString &title)
{
    user.add([title](QWidget *window) {
        auto *const dialog = qobject_cast<DataEditDialog *>(window);
        if (dialog == nullptr)
            return false;
        child<QLineEdit>(dialog, "titleLineEdit")->setText(title);
        QTest::mouseClick(child<QPushButton>(dialog, "savePushButton"), Qt::LeftButton);
        return true;
    });
}

/** Takes the last job back, as the command line does it; what was not possible. */
QStringList takeLastBack()
{
    UserHistory history([](const QString &) { return false; }, {});
    if (history.open() != HistoryStore::State::Ready)
        return {text("no history")};
    const QList<HistoryJob> jobs = history.store().jobs();
    if (jobs.isEmpty())
        return {text("no job")};
    JobUndo undo(history.store(), [](const QString &, const QString &, int) {
        return std::make_unique<CountingProgress>();
    });
    const auto recorder = history.recorder(HistoryJob::Kind::TakeBack, jobs.constFirst().number);
    CountingProgress progress;
    const HistoryUndo::Report report =
        undo.takeBack(jobs.constFirst(), history.store().songs(jobs.constFirst().number), false,
                      *recorder, progress);
    QStringList failed;
    for (const HistoryUndo::Failure &failure : report.failed)
        failed.append(failure.path + text(": ") + failure.reason);
    return failed;
}

QList<HistoryJob> jobs()
{
    UserHistory history([](const QString &) { return false; }, {});
    history.open();
    return history.store().jobs();
}

} // namespace

class TestMemoryWindowHistory : public MemoryWindowFixture
{
    Q_OBJECT

private slots:
    void init() { MemoryWindowFixture::init(); }
    void cleanup() { MemoryWindowFixture::cleanup(); }

    void editIsKeptAndTakenBack();
    void renameIsKeptAndTakenBack();
    void nothingIsChangedWithoutAHistoryUnlessTheUserWishes_data();
    void nothingIsChangedWithoutAHistoryUnlessTheUserWishes();
};

void TestMemoryWindowHistory::editIsKeptAndTakenBack()
{
    open();
    const QByteArray before = m_card->read(text("songs/Volare.kar"));
    choose({text("/songs/Volare.kar")});
    ModalAnswers user;
    enterTitle(user, text("Nel blu dipinto"));
    click("pushButtonEdit");
    QCOMPARE(message(), text("1 song salvate."));
    QCOMPARE(jobs().size(), 1);
    QCOMPARE(jobs().constFirst().kind, HistoryJob::Kind::Edit);
    QCOMPARE(takeLastBack(), QStringList());
    QCOMPARE(m_card->read(text("songs/Volare.kar")), before);
    QVERIFY(m_card->read(text("title.idx")).contains("VOLARE"));
}

void TestMemoryWindowHistory::renameIsKeptAndTakenBack()
{
    open();
    choose({text("/songs/Volare.kar")});
    const quint32 id = filledmemory::idOf(*m_card, text("/songs/Volare.kar"));
    ModalAnswers user;
    user.add([](QWidget *window) {
        auto *const dialog = qobject_cast<RenameSongDialog *>(window);
        if (dialog == nullptr)
            return false;
        child<QLineEdit>(dialog, "nameLineEdit")->setText(text("Nelblu"));
        QTest::mouseClick(child<QPushButton>(dialog, "renamePushButton"), Qt::LeftButton);
        return true;
    });
    click("pushButtonRename");
    QVERIFY(has("songs/Nelblu.kar"));
    QCOMPARE(jobs().size(), 1);
    QCOMPARE(jobs().constFirst().kind, HistoryJob::Kind::Rename);
    QCOMPARE(takeLastBack(), QStringList());
    QVERIFY(has("songs/Volare.kar") && !has("songs/Nelblu.kar"));
    QCOMPARE(filledmemory::idOf(*m_card, text("/songs/Volare.kar")), id);
}

void TestMemoryWindowHistory::nothingIsChangedWithoutAHistoryUnlessTheUserWishes_data()
{
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("no") << false;
    QTest::newRow("yes") << true;
}

void TestMemoryWindowHistory::nothingIsChangedWithoutAHistoryUnlessTheUserWishes()
{
    QFETCH(bool, goesOn);
    const QString store = HistoryStore::defaultPath();
    QVERIFY(QDir().mkpath(QFileInfo(store).path()));
    QFile file(store);
    QVERIFY(file.open(QFile::WriteOnly) && file.write(QByteArray(5000, 'x')) == 5000);
    file.close();
    open();
    const QByteArray before = m_card->read(text("songs/Volare.kar"));
    choose({text("/songs/Volare.kar")});
    ModalAnswers user;
    enterTitle(user, text("Nel blu dipinto"));
    user.add([goesOn](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        auto *const yes = box->button(QMessageBox::Yes);
        QTest::mouseClick(yes == nullptr ? box->button(QMessageBox::Ok)
                          : goesOn       ? yes
                                         : box->button(QMessageBox::No),
                          Qt::LeftButton);
        return true;
    });
    click("pushButtonEdit");
    QCOMPARE(m_card->read(text("songs/Volare.kar")) == before, !goesOn);
    QCOMPARE(updates(), goesOn ? 1 : 0);
}

int main(int argc, char *argv[])
{
    return runAppTest<TestMemoryWindowHistory>(argc, argv);
}
#include "test_memorywindow_history.moc"
