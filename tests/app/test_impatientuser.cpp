// A user who closes, sorts, filters, drops, deletes and starts other jobs while one runs: the job
// does what it was asked for, and nothing else happens.
#include "support/apptest.h"
#include "support/catalogue.h"
#include "support/interfacelanguage.h"
#include "support/shorttext.h"
#include "support/songfolder.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"
#include "windows/changepreviewdialog.h"
#include "windows/dataeditdialog.h"
#include "windows/nocopyrightdialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include <memory>

namespace
{

constexpr int songs = 8;

catalogue::Row knownSong(int number)
{
    catalogue::Row row;
    row.filename = s("SONG%1").arg(number);
    row.title = s("KNOWN %1").arg(number);
    row.artist = s("DOE JOHN");
    row.altartist = s("JOHN DOE");
    row.genre = s("SWING");
    row.length = 200;
    row.bpm = 96;
    return row;
}

SongInfo songInfo(const QString &path)
{
    MetaSong song;
    SongInfo info;
    if (song.importFile(path))
        song.getSongInfo(info);
    return info;
}

} // namespace

class TestImpatientUser : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void editOfAllSongs();
    void synchronisation();
    void transferAndBackup();
    void importOfSongs();

private:
    void pester();
    void checkWindow() const;

    std::unique_ptr<OwnWorkingFolder> m_work;
    std::unique_ptr<SongFolder> m_songs;
    std::unique_ptr<WindowUnderTest> m_window;
    std::unique_ptr<QTimer> m_timer;
    QStringList m_files;
    QString m_other; ///< a song that is dropped again and again
    int m_tries = 0;
};

void TestImpatientUser::init()
{
    OwnSettings::clear();
    m_work = std::make_unique<OwnWorkingFolder>();
    QList<catalogue::Row> rows;
    for (int number = 0; number < songs; ++number)
        rows << knownSong(number);
    QVERIFY(catalogue::write(catalogue::overrideFile, rows));
    m_songs = std::make_unique<SongFolder>();
    m_other = m_songs->midi(s("other.mid"), "Other");
    m_files.clear();
    for (int number = 0; number < songs; ++number)
        m_files << m_songs->signedMidi(s("song%1.mid").arg(number),
                                       "Title " + QByteArray::number(number));
    m_window = std::make_unique<WindowUnderTest>();
    m_window->setSelectedFiles(m_files);
    m_window->importUserLibrary();
    QCOMPARE(m_window->model()->goodRowCount(), songs);
    m_tries = 0;
    m_timer = std::make_unique<QTimer>();
    connect(m_timer.get(), &QTimer::timeout, this, &TestImpatientUser::pester);
}

void TestImpatientUser::cleanup()
{
    m_timer.reset();
    m_window.reset();
    backToItalian();
    m_songs.reset();
    m_work.reset();
}

/** One thing after the other, whatever window is open; some of it goes around modal windows. */
void TestImpatientUser::pester()
{
    QTableView *const table = m_window->table();
    auto *const field = m_window->child<QLineEdit>("filterLineEdit");
    switch (m_tries++ % 11) {
    case 0:
        m_window->close();
        break;
    case 1:
        if (QApplication::activeModalWidget() == nullptr) // as the headings can be clicked then
            table->sortByColumn(m_tries % 12, Qt::DescendingOrder);
        break;
    case 2:
        field->setText(s("1"));
        break;
    case 3:
        m_window->action("actionGerman")->trigger();
        break;
    case 4:
        table->selectRow(0);
        m_window->action("actionRemoveSong")->trigger();
        m_window->action("actionDeleteSongFile")->trigger();
        m_window->action("actionEditSong")->trigger();
        break;
    case 5: {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(m_other)});
        QDropEvent drop(QPointF(60, 60), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(m_window.get(), &drop);
        break;
    }
    case 6:
        m_window->updateButton()->click();
        m_window->transferButton()->click();
        m_window->selectButton()->click();
        break;
    case 7:
        m_window->action("actionEnglish")->trigger();
        break;
    case 8:
        m_window->action("actionQuit")->trigger();
        break;
    case 9:
        m_window->action("actionSongsList")->trigger();
        m_window->action("actionAbout")->trigger();
        emit table->customContextMenuRequested(QPoint(5, 5));
        break;
    default:
        field->clear();
    }
}

void TestImpatientUser::checkWindow() const
{
    QVERIFY(m_tries > 0);
    QVERIFY(m_window->isVisible());
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(QFile::exists(m_other));
    const QStringList hidden =
        QDir(m_songs->path()).entryList(QDir::Files | QDir::Hidden).filter(s("kavena"));
    QCOMPARE(hidden, QStringList());
    UserSongsRelTableModel *const model = m_window->model();
    QCOMPARE(model->goodRowCount(), songs);
    for (int row = 0; row < songs; ++row) {
        const SongInfo info = songInfo(model->fileName(row));
        QCOMPARE(model->index(row, 2).data().toString(), info.title);
        QCOMPARE(model->index(row, 3).data().toString(), info.artist);
    }
    m_window->child<QLineEdit>("filterLineEdit")->clear();
    QTRY_VERIFY(m_window->child<QLabel>("summaryLabel")->text().contains(s("8 ")));
    for (int row = 0; row < songs; ++row)
        QVERIFY(!m_window->table()->isRowHidden(row));
}

void TestImpatientUser::editOfAllSongs()
{
    UserDriver user;
    user.add([this](QWidget *window) {
        if (qobject_cast<DataEditDialog *>(window) == nullptr)
            return false;
        switch (nextStep(window)) {
        case 0:
            child<QLineEdit>(window, "titleLineEdit")->setText(s("My own"));
            child<QComboBox>(window, "artistComboBox")->setEditText(s("Friends"));
            clickLater(child<QCheckBox>(window, "checkBoxToAllArtist"));
            break;
        case 1:
            clickLater(child<QPushButton>(window, "savePushButton"));
            m_timer->start(0);
            break;
        }
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Yes);
    emit m_window->table()->doubleClicked(m_window->model()->index(2, 2));
    m_timer->stop();
    for (int number = 0; number < songs; ++number) {
        const SongInfo info = songInfo(m_files.at(number));
        QCOMPARE(info.title, number == 2 ? s("My own") : s("Title %1").arg(number));
        QCOMPARE(info.artist, s("Friends"));
    }
    checkWindow();
}

void TestImpatientUser::synchronisation()
{
    OwnSettings::set(settings::previewChanges, true);
    UserDriver user;
    user.click<ChangePreviewDialog>(s("synchronisePushButton"));
    user.click<BackupDialog>(s("exitPushButton"));
    user.click<NoCopyrightDialog>(s("yesPushButton"));
    m_timer->start(0);
    QVERIFY(m_window->updateUserLibrary());
    m_timer->stop();
    for (int number = 0; number < songs; ++number) {
        QCOMPARE(songInfo(m_files.at(number)).artist, s("JOHN DOE"));
        QCOMPARE(m_window->model()->status(number), int{Database::StatusSynced});
    }
    checkWindow();
}

void TestImpatientUser::transferAndBackup()
{
    QVERIFY(QDir().mkpath(m_work->path() + s("/target")));
    int copied = 0;
    m_timer->start(0);
    QVERIFY(m_window->copyFiles(m_work->path() + s("/target"), copied));
    m_timer->stop();
    QCOMPARE(copied, songs);
    QCOMPARE(QDir(m_work->path() + s("/target")).entryList(QDir::Files | QDir::Hidden).size(),
             songs);
    checkWindow();
}

void TestImpatientUser::importOfSongs()
{
    m_timer->start(0);
    m_window->importUserLibrary();
    m_timer->stop();
    checkWindow();
}

int main(int argc, char *argv[])
{
    return runAppTest<TestImpatientUser>(argc, argv);
}

#include "test_impatientuser.moc"
