// What the window tells after a run that could not save every song.
#include "support/apptest.h"
#include "support/catalogue.h"
#include "support/germantexts.h"
#include "support/samplesongs.h"
#include "support/shorttext.h"
#include "support/smallmedium.h"
#include "support/songbytes.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"
#include "windows/dataeditdialog.h"
#include "windows/filelistdialog.h"
#include "windows/runreportbox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

#include <memory>

namespace
{

constexpr int songsOnTheCard = 200;

QString nameOf(int song)
{
    return s("s%1.mid").arg(song, 3, 10, QLatin1Char('0'));
}

QByteArray midi(const QByteArray &title)
{
    using namespace songbytes;
    return midiFile({track(metaEvent(0x03, title) + notes())});
}

} // namespace

class TestHonestResults : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void fullMemoryIsToldAfterSynchronising();
    void writeProtectedMemoryIsToldAfterSynchronising();
    void nothingIsToldWhenEverySongWasSaved();
    void boxTellsInTheLanguageOfTheProgram();
    void failedEditIsTold();
    void failedEditOfAllIsTold();
    void stoppedRunTellsWhatItCouldNotSave();
    void marksFollowTheFilterAndTheSorting();

private:
    QList<int> markedRows() const;
    void openList();
    void editSong(bool genreToAll);
    void synchronise() { QTest::mouseClick(m_window->updateButton(), Qt::LeftButton); }

    std::unique_ptr<OwnWorkingFolder> m_work;
    std::unique_ptr<SmallMedium> m_card;
    std::unique_ptr<WindowUnderTest> m_window;
    std::unique_ptr<UserDriver> m_user;
    QStringList m_told; ///< text of each box, "name: text" of each line of the lists
};

/** Every test starts with 200 songs that the catalogue knows, on a card of their own. */
void TestHonestResults::init()
{
    OwnSettings::clear();
    m_work = std::make_unique<OwnWorkingFolder>();
    m_card = std::make_unique<SmallMedium>(2048);
    if (!m_card->isMounted())
        QSKIP("Only root can mount a small medium");
    QList<catalogue::Row> rows;
    QStringList files;
    for (int song = 0; song < songsOnTheCard; ++song) {
        catalogue::Row row;
        row.filename = nameOf(song).toUpper().chopped(4);
        row.title = s("KNOWN SONG %1").arg(song);
        row.artist = s("DOE JOHN");
        row.genre = s("SWING");
        row.length = 200;
        row.bpm = 96;
        rows << row;
        files << m_card->path(nameOf(song));
        QVERIFY(samplesongs::writeFile(files.last(), midi("T")));
    }
    QVERIFY(catalogue::write(catalogue::overrideFile, rows));
    m_window = std::make_unique<WindowUnderTest>();
    m_window->setSelectedFiles(files);
    m_window->importUserLibrary();
    QCOMPARE(m_window->model()->goodRowCount(), songsOnTheCard);
    m_told.clear();
    m_user = std::make_unique<UserDriver>();
    m_user->click<BackupDialog>(s("exitPushButton"));
    openList();
}

void TestHonestResults::cleanup()
{
    m_user.reset();
    m_window.reset();
    m_card.reset();
    m_work.reset();
}

/** Asks each box for its list, and writes both down. */
void TestHonestResults::openList()
{
    m_user->add([this](QWidget *modal) {
        auto *const box = qobject_cast<RunReportBox *>(modal);
        if (box == nullptr)
            return false;
        m_told << box->text();
        QTest::mouseClick(child<QPushButton>(box, "detailsPushButton"), Qt::LeftButton);
        return true;
    });
    m_user->add([this](QWidget *modal) {
        auto *const list = qobject_cast<FileListDialog *>(modal);
        if (list == nullptr)
            return false;
        const auto *const files = child<QTreeWidget>(list, "filesTreeWidget");
        for (int line = 0; line < files->topLevelItemCount(); ++line)
            m_told << files->topLevelItem(line)->text(0) + s(": ") +
                          files->topLevelItem(line)->text(1);
        return list->close();
    });
}

/** Opens the first row's dialog, changes the genre, for all songs if wanted, and saves. */
void TestHonestResults::editSong(bool genreToAll)
{
    m_user->pressInMessageBoxes(QMessageBox::Yes);
    m_user->add([genreToAll](QWidget *modal) {
        auto *const dialog = qobject_cast<DataEditDialog *>(modal);
        if (dialog == nullptr)
            return false;
        auto *const toAll = child<QCheckBox>(dialog, "checkBoxToAllGenre");
        if (genreToAll && !toAll->isChecked()) {
            QMetaObject::invokeMethod(toAll, "click", Qt::QueuedConnection);
            return true;
        }
        child<QLineEdit>(dialog, "titleLineEdit")->setText(QString(120, QLatin1Char('x')));
        child<QComboBox>(dialog, "genreComboBox")->setEditText(QString(60, QLatin1Char('g')));
        QTest::mouseClick(child<QPushButton>(dialog, "savePushButton"), Qt::LeftButton);
        return true;
    });
    QMetaObject::invokeMethod(m_window.get(), "onSongsTableViewDoubleClicked",
                              Q_ARG(QModelIndex, m_window->model()->rowIndex(0)));
}

QList<int> TestHonestResults::markedRows() const
{
    QList<int> rows;
    for (int row = 0; row < m_window->model()->goodRowCount(); ++row) {
        if (m_window->model()->saveFailure(row) != SaveFailure::None)
            rows << row;
    }
    return rows;
}

void TestHonestResults::fullMemoryIsToldAfterSynchronising()
{
    m_card->fill();
    synchronise();
    QCOMPARE(m_told.size(), songsOnTheCard + 1);
    QCOMPARE(m_told.at(0), s("200 song non sono state salvate."));
    QCOMPARE(m_told.at(1), s("s000.mid: Non salvata: Non c'è più spazio"));
    QCOMPARE(m_told.last(), s("s199.mid: Non salvata: Non c'è più spazio"));
    QCOMPARE(markedRows().size(), songsOnTheCard);
    QCOMPARE(m_window->model()->status(0), int{Database::StatusSynced});
    QCOMPARE(samplesongs::readFile(m_card->path(nameOf(0))), midi("T"));
    QVERIFY(m_window->transferButton()->isEnabled());
}

void TestHonestResults::writeProtectedMemoryIsToldAfterSynchronising()
{
    QVERIFY(m_card->setReadOnly(true));
    synchronise();
    QCOMPARE(m_told.value(0), s("200 song non sono state salvate."));
    QCOMPARE(m_told.value(1), s("s000.mid: Non salvata: La memoria è protetta da scrittura"));
    QCOMPARE(markedRows().size(), songsOnTheCard);
}

void TestHonestResults::nothingIsToldWhenEverySongWasSaved()
{
    synchronise();
    QCOMPARE(m_told, QStringList());
    QCOMPARE(markedRows(), QList<int>());
    editSong(true);
    QCOMPARE(m_told, QStringList());
    QCOMPARE(m_window->model()->status(199), int{Database::StatusEdited});
}

void TestHonestResults::boxTellsInTheLanguageOfTheProgram()
{
    const GermanTexts german;
    QVERIFY(QFile::remove(m_card->path(nameOf(7))));
    synchronise();
    QCOMPARE(m_told, QStringList({s("1 Song konnte nicht gespeichert werden."),
                                  s("s007.mid: Nicht gespeichert: Die Datei ist nicht mehr da")}));
    QCOMPARE(markedRows(), QList<int>({7}));
}

void TestHonestResults::failedEditIsTold()
{
    m_card->fill();
    editSong(false);
    QCOMPARE(m_told.size(), 2);
    QCOMPARE(m_told.at(1), s("s000.mid: Non salvata: Non c'è più spazio"));
    QCOMPARE(markedRows(), QList<int>({0}));
}

void TestHonestResults::failedEditOfAllIsTold()
{
    m_card->fill();
    editSong(true);
    QCOMPARE(m_told.value(0), s("200 song non sono state salvate."));
    QCOMPARE(markedRows().size(), songsOnTheCard);
}

void TestHonestResults::stoppedRunTellsWhatItCouldNotSave()
{
    m_card->fill();
    m_user->add([this](QWidget *modal) {
        const bool isProgress = modal->inherits("QProgressDialog");
        if (isProgress && !markedRows().isEmpty())
            QTest::mouseClick(modal->findChild<QPushButton *>(), Qt::LeftButton);
        return isProgress;
    });
    synchronise();
    const QList<int> marked = markedRows();
    QVERIFY(!marked.isEmpty() && marked.size() < songsOnTheCard);
    QCOMPARE(m_told.size(), marked.size() + 1);
    QVERIFY(m_window->updateButton()->isEnabled());
}

void TestHonestResults::marksFollowTheFilterAndTheSorting()
{
    QVERIFY(QFile::remove(m_card->path(nameOf(42))));
    synchronise();
    QCOMPARE(markedRows(), QList<int>({42}));
    const int column = m_window->model()->fieldIndex(s("shortname"));
    m_window->table()->sortByColumn(column, Qt::DescendingOrder);
    QCOMPARE(markedRows(), QList<int>({songsOnTheCard - 1 - 42}));
    m_window->child<QLineEdit>("filterLineEdit")->setText(s("s04"));
    const int row = markedRows().value(0);
    QTRY_VERIFY(m_window->table()->isRowHidden(0));
    QVERIFY(!m_window->table()->isRowHidden(row));
    const QModelIndex cell = m_window->model()->index(row, m_window->model()->colIdxType());
    QVERIFY(!m_window->table()->visualRect(cell).isEmpty());
    QCOMPARE(cell.data(Qt::ToolTipRole).toString(), s("Non salvata: Il file non c'è più"));
}

int main(int argc, char *argv[])
{
    return runAppTest<TestHonestResults>(argc, argv);
}

#include "test_honestresults.moc"
