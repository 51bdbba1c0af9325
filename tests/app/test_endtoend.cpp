// The whole job through the real main window: import, transfer, update of the player's memory, then
// synchronisation with a backup, editing, rebuilding, export and the change of language.
#include "app/mainwindow.h"
#include "library/database.h"
#include "support/memorychecker.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"
#include "support/userdriver.h"
#include "windows/backupdialog.h"
#include "windows/dataeditdialog.h"
#include "windows/indexdialog.h"
#include "windows/nocopyrightdialog.h"
#include "windows/songslistdialog.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

namespace
{

const QStringList indexFiles = {
    QStringLiteral("index.idx"),    QStringLiteral("ordfile.idx"), QStringLiteral("title.idx"),
    QStringLiteral("artist.idx"),   QStringLiteral("genre.idx"),   QStringLiteral("atitle.idx"),
    QStringLiteral("aartist.idx"),  QStringLiteral("agenre.idx"),  QStringLiteral("title3.idx"),
    QStringLiteral("artist3.idx"),  QStringLiteral("genre3.idx"),  QStringLiteral("atitle3.idx"),
    QStringLiteral("aartist3.idx"), QStringLiteral("agenre3.idx"), QStringLiteral("fsinfos.idx")};

// The columns of the library table.
constexpr int columnTitle = 2;
constexpr int columnArtist = 3;
constexpr int columnShortName = 10;
constexpr int columnStatus = 11;

quint32 bigEndian32(const QByteArray &bytes, qsizetype offset)
{
    quint32 value = 0;
    for (qsizetype i = 0; i < 4; ++i)
        value = value << 8 | static_cast<quint8>(bytes[offset + i]);
    return value;
}

QByteArray cutAtZero(const QByteArray &field)
{
    const qsizetype end = field.indexOf('\0');
    return end < 0 ? field : field.left(end);
}

/** Path and identifier of each record of "index.idx", read from its bytes. */
QMap<QByteArray, quint32> idsByPath(const QString &card)
{
    const QByteArray bytes = samplesongs::readFile(card + QStringLiteral("/index.idx"));
    QMap<QByteArray, quint32> ids;
    for (qsizetype at = 0; at + 64 <= bytes.size(); at += 64)
        ids.insert(cutAtZero(bytes.mid(at + 4, 46)), bigEndian32(bytes, at));
    return ids;
}

/** Title of each identifier, from the 32-byte records of "title.idx". */
QMap<quint32, QByteArray> titlesById(const QString &card)
{
    const QByteArray bytes = samplesongs::readFile(card + QStringLiteral("/title.idx"));
    QMap<quint32, QByteArray> titles;
    for (qsizetype at = 0; at + 32 <= bytes.size(); at += 32)
        titles.insert(bigEndian32(bytes, at), cutAtZero(bytes.mid(at + 4, 26)));
    return titles;
}

QByteArray abcTune(const QByteArray &title)
{
    return "X:1\nT:" + title + "\nM:4/4\nL:1/4\nK:C\nCDEF|GABc|cBAG|FEDC|]\n";
}

} // namespace

class TestEndToEnd : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup() { MemoryChecker::judgeLeftBehind(m_card, m_judgedWith); }
    void importsFortySongsAndSkipsTenBrokenFiles();
    void transferToTheRootLandsInSongsAndBuildsTheIndex();
    void secondTransferWithNoToAllKeepsWhatIsThere();
    void removedAndTouchedFilesAreFollowed();
    void playlistIsPointedAtTheSameSongs();
    void synchronisesWithABackup();
    void editsOneSongAndGivesItsArtistToAll();
    void rebuildsTheMemory();
    void exportsTheSongListSortedThreeWays();
    void switchesToEnglishAndBack();

private:
    void makeSongs();
    void makeBrokenFiles();
    void import(const QStringList &files);
    void transfer(const QString &destination);
    void rewrite(const QString &path, const QByteArray &title);
    void clickWhenEnabled(const QString &button);
    void trigger(const char *action);
    int rows() const;
    QString cell(int row, int column) const;
    int rowOf(const QString &shortName) const;

    QTemporaryDir m_dir;
    QString m_card;
    QStringList m_judgedWith; ///< what the judge of the memory lets pass
    QStringList m_songs;
    QStringList m_broken;
    QStringList m_later;
    std::unique_ptr<MainWindow> m_window;
};

void TestEndToEnd::initTestCase()
{
    QVERIFY(m_dir.isValid());
    qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(m_dir.filePath(QStringLiteral("mnt"))));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_dir.filePath(QStringLiteral("config"))));
    m_card = m_dir.filePath(QStringLiteral("mnt/CARD"));
    QVERIFY(QDir().mkpath(m_card));
    QVERIFY(QDir().mkpath(m_dir.filePath(QStringLiteral("music"))));
    QVERIFY(QDir::setCurrent(m_dir.path()));
    makeSongs();
    makeBrokenFiles();
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void TestEndToEnd::makeSongs()
{
    const QString music = m_dir.filePath(QStringLiteral("music/"));
    const QStringList midi = samplesongs::installedMidiFiles();
    QVERIFY2(midi.size() >= 30, "the MIDI files of openttd-openmsx are needed");
    for (int i = 0; i < 28; ++i) {
        m_songs << music + QStringLiteral("SONG%1.MID").arg(i, 2, 10, QLatin1Char('0'));
        QVERIFY(QFile::copy(midi[i], m_songs.last()));
    }
    for (const QString &longName : {midi[28], midi[29]}) {
        m_songs << music + QStringLiteral("A long name ") + QFileInfo(longName).fileName();
        QVERIFY(QFile::copy(longName, m_songs.last()));
    }
    for (int i = 0; i < 4; ++i) {
        m_songs << music + QStringLiteral("SOUND%1.mp3").arg(i);
        QVERIFY(samplesongs::makeMp3(m_songs.last(),
                                     {QStringLiteral("Città %1").arg(i),
                                      QStringLiteral("Traditional"), QStringLiteral("Folk")}));
    }
    int number = 0;
    for (const char *magic : {"_MF3", "_MF4", "_MF5"}) {
        m_songs << music + QStringLiteral("PACK%1.mf%2").arg(number).arg(number + 3);
        QVERIFY(samplesongs::writeFile(
            m_songs.last(),
            samplesongs::mfxBytes(magic, samplesongs::readFile(midi[number]),
                                  {QStringLiteral("Packed %1").arg(number),
                                   QStringLiteral("Artist"), QStringLiteral("Waltz")})));
        ++number;
    }
    for (const char *title : {"Greensleeves", "Santa Lucia", "Amazing Grace"}) {
        m_songs << music + QStringLiteral("ABC%1.mid").arg(number++);
        QVERIFY(samplesongs::makeMidi(m_songs.last(), abcTune(title)));
    }
    QCOMPARE(m_songs.size(), 40);
    for (int i = 0; i < 6; ++i) {
        m_later << music + QStringLiteral("LATER%1.mid").arg(i);
        QVERIFY(samplesongs::makeMidi(m_later.last(), abcTune("Later " + QByteArray::number(i))));
    }
}

void TestEndToEnd::makeBrokenFiles()
{
    const QByteArray noTrack = songbytes::midiFile({});
    const QByteArray format2 = songbytes::midiFile({songbytes::track({})}, 2);
    const QList<QPair<QString, QByteArray>> files = {
        {QStringLiteral("empty.mid"), QByteArray()},
        {QStringLiteral("text.kar"), QByteArray("only words, no music")},
        {QStringLiteral("magiconly.mid"), QByteArray("MThd")},
        {QStringLiteral("notrack.mid"), noTrack},
        {QStringLiteral("format2.mid"), format2},
        {QStringLiteral("shorthead.mf5"), QByteArray("_MF5").leftJustified(800, '\0')},
        {QStringLiteral("hugesize.mf3"),
         QByteArray("_MF3").leftJustified(512, '\0') + QByteArray(64, '\xFF')},
        {QStringLiteral("nomidi.mf4"), QByteArray("_MF4").leftJustified(512, '\0') +
                                           songbytes::littleEndian(5000, 4) +
                                           QByteArray(300, '\x55')},
        {QStringLiteral("nosync.mp3"), QByteArray("\xFF\xE0").leftJustified(4000, 'x')},
        {QStringLiteral("hugetag.mp3"),
         QByteArray("ID3\x03\x00\x00\x7F\x7F\x7F\x7F", 10) + QByteArray(4000, '\0')}};
    for (const auto &[name, bytes] : files) {
        m_broken << m_dir.filePath(QStringLiteral("music/") + name);
        QVERIFY(samplesongs::writeFile(m_broken.last(), bytes));
    }
    QCOMPARE(m_broken.size(), 10);
}

void TestEndToEnd::clickWhenEnabled(const QString &button)
{
    auto *const tool = m_window->findChild<QToolButton *>(button);
    QVERIFY(tool != nullptr);
    QVERIFY(tool->isEnabled());
    const QPoint centre = tool->mapTo(m_window.get(), tool->rect().center());
    QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, {}, centre);
}

void TestEndToEnd::import(const QStringList &files)
{
    UserDriver user;
    user.pick(files);
    clickWhenEnabled(QStringLiteral("selectDirToolButton"));
    QVERIFY(user.allPicked());
}

void TestEndToEnd::transfer(const QString &destination)
{
    UserDriver user;
    user.pick({destination});
    int overwriteQuestions = 0;
    // Names that are too long are shortened, files that exist are kept.
    user.add([&overwriteQuestions](QWidget *window) {
        auto *const question = qobject_cast<NoCopyrightDialog *>(window);
        if (question == nullptr)
            return false;
        const bool overwrite = question->findChild<QLabel *>(QStringLiteral("label_2"))->text() ==
                               QStringLiteral("esiste già, vuoi sostituirlo?");
        overwriteQuestions += overwrite ? 1 : 0;
        const QString button =
            overwrite ? QStringLiteral("noAllPushButton") : QStringLiteral("yesAllPushButton");
        QTest::mouseClick(question->findChild<QPushButton *>(button), Qt::LeftButton);
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Ok);
    clickWhenEnabled(QStringLiteral("transferFilesToolButton"));
    QVERIFY(user.allPicked());
    QVERIFY(overwriteQuestions <= 1);
    QCOMPARE(user.messages().size(), 2);
    QCOMPARE(user.messages().first(), QStringLiteral("Trasferimento: Tutti i file sono stati "
                                                     "copiati correttamente"));
    QVERIFY(user.messages().last().startsWith(QStringLiteral("Trasferimento: Song copiate: ")));
    QVERIFY(user.messages().last().endsWith(QStringLiteral("\nSong non copiate (errori): 0")));
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

/** Puts another song into the file, at another second: the index knows no finer times. */
void TestEndToEnd::rewrite(const QString &path, const QByteArray &title)
{
    QVERIFY(samplesongs::writeFile(
        path, songbytes::midiFile({songbytes::track(songbytes::metaEvent(3, title))})));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addDays(-3),
                             QFileDevice::FileModificationTime));
}

void TestEndToEnd::trigger(const char *action)
{
    m_window->findChild<QAction *>(QString::fromLatin1(action))->trigger();
}

QString TestEndToEnd::cell(int row, int column) const
{
    return child<QTableView>(m_window.get(), "userLibraryTableView")
        ->model()
        ->index(row, column)
        .data()
        .toString();
}

int TestEndToEnd::rowOf(const QString &shortName) const
{
    for (int row = 0; row < rows(); ++row) {
        if (cell(row, columnShortName) == shortName)
            return row;
    }
    return -1;
}

int TestEndToEnd::rows() const
{
    const auto *view = m_window->findChild<QTableView *>(QStringLiteral("userLibraryTableView"));
    QAbstractItemModel *const model = view->model();
    while (model->canFetchMore({}))
        model->fetchMore({});
    return model->rowCount();
}

void TestEndToEnd::importsFortySongsAndSkipsTenBrokenFiles()
{
    QList<QByteArray> before;
    for (const QString &file : m_songs + m_broken)
        before << samplesongs::readFile(file);
    QStringList mixed;
    for (int i = 0; i < 40; ++i) {
        mixed << m_songs[i];
        if (i % 4 == 0)
            mixed << m_broken[i / 4];
    }
    import(mixed);
    QCOMPARE(rows(), 40);
    int i = 0;
    for (const QString &file : m_songs + m_broken)
        QCOMPARE(samplesongs::readFile(file), before[i++]);
}

void TestEndToEnd::transferToTheRootLandsInSongsAndBuildsTheIndex()
{
    import(m_songs);
    QCOMPARE(rows(), 40);
    transfer(m_card);

    QCOMPARE(QDir(m_card + QStringLiteral("/songs")).entryList(QDir::Files).size(), 40);
    for (const QString &name : indexFiles)
        QVERIFY2(QFile::exists(m_card + QLatin1Char('/') + name), qPrintable(name));
    QVERIFY(QFile::exists(m_card + QStringLiteral("/sfx")));
    QVERIFY(QFile::exists(m_card + QStringLiteral("/bridge")));

    const QMap<QByteArray, quint32> ids = idsByPath(m_card);
    QCOMPARE(ids.size(), 40);
    QVERIFY(ids.contains("/songs/SONG00.MID"));
    QVERIFY(ids.contains("/songs/Alongn-1.mid"));
    QVERIFY(ids.contains("/songs/Alongn-2.mid"));
    const QList<QByteArray> titles = titlesById(m_card).values();
    QVERIFY(titles.contains("GREENSLEEVES"));
    QVERIFY(titles.contains("CITT\xC0 2"));
}

void TestEndToEnd::secondTransferWithNoToAllKeepsWhatIsThere()
{
    const QMap<QByteArray, quint32> before = idsByPath(m_card);
    const QString kept = m_card + QStringLiteral("/songs/SONG05.MID");
    rewrite(kept, "My own take");
    const QByteArray mine = samplesongs::readFile(kept);

    import(m_songs.mid(0, 28));
    transfer(m_card + QStringLiteral("/songs"));

    QCOMPARE(samplesongs::readFile(kept), mine);
    QCOMPARE(idsByPath(m_card), before);
    QCOMPARE(titlesById(m_card).value(before.value("/songs/SONG05.MID")),
             QByteArray("MY OWN TAKE"));
}

void TestEndToEnd::removedAndTouchedFilesAreFollowed()
{
    const QMap<QByteArray, quint32> before = idsByPath(m_card);
    const quint32 highest = *std::max_element(before.cbegin(), before.cend());
    for (const char *gone : {"/songs/SONG03.MID", "/songs/SONG07.MID"})
        QVERIFY(QFile::remove(m_card + QString::fromLatin1(gone)));
    rewrite(m_card + QStringLiteral("/songs/SONG09.MID"), "Touched");

    import(m_later.mid(0, 5));
    transfer(m_card);

    const QMap<QByteArray, quint32> after = idsByPath(m_card);
    QCOMPARE(after.size(), before.size() - 2 + 5);
    for (auto song = after.cbegin(); song != after.cend(); ++song) {
        if (before.contains(song.key()))
            QCOMPARE(song.value(), before.value(song.key()));
        else
            QVERIFY(song.value() > highest && song.value() <= highest + 5);
    }
    QVERIFY(!after.contains("/songs/SONG03.MID"));
    QCOMPARE(titlesById(m_card).value(after.value("/songs/SONG09.MID")), QByteArray("TOUCHED"));
    // Record numbers are closed up: the order file holds each of 0 to n - 1 once.
    const QByteArray order = samplesongs::readFile(m_card + QStringLiteral("/ordfile.idx"));
    QCOMPARE(order.size(), 2 * after.size());
    QSet<int> numbers;
    for (qsizetype at = 0; at < order.size(); at += 2)
        numbers.insert(static_cast<quint8>(order[at]) + 256 * static_cast<quint8>(order[at + 1]));
    QCOMPARE(numbers.size(), after.size());
    QCOMPARE(*std::max_element(numbers.cbegin(), numbers.cend()),
             static_cast<int>(after.size()) - 1);
}

void TestEndToEnd::playlistIsPointedAtTheSameSongs()
{
    const QMap<QByteArray, quint32> before = idsByPath(m_card);
    const QList<QByteArray> wanted = {"/songs/SONG20.MID", "/songs/SOUND1.mp3", "/songs/PACK2.mf5"};
    QByteArray playlist;
    for (const QByteArray &path : wanted) {
        QVERIFY(before.contains(path));
        playlist += songbytes::bigEndian(before.value(path), 4) + QByteArray(28, 'p');
    }
    QVERIFY(QDir().mkpath(m_card + QStringLiteral("/playlist")));
    QVERIFY(samplesongs::writeFile(m_card + QStringLiteral("/playlist/playlist.dat"),
                                   QByteArray("\x01\x00", 2) + QByteArray(30, ' ')));
    const QString file = m_card + QStringLiteral("/playlist/play0001.dat");
    QVERIFY(samplesongs::writeFile(file, playlist));

    import(m_later.mid(5));
    transfer(m_card);

    const QMap<QByteArray, quint32> after = idsByPath(m_card);
    const QByteArray pointed = samplesongs::readFile(file);
    QCOMPARE(pointed.size(), playlist.size());
    for (int i = 0; i < wanted.size(); ++i) {
        QCOMPARE(bigEndian32(pointed, 32 * i), after.value(wanted[i]));
        QCOMPARE(pointed.mid(32 * i + 4, 28), QByteArray(28, 'p'));
    }
    QVERIFY(after.value(wanted[0]) != before.value(wanted[0]));
}

void TestEndToEnd::synchronisesWithABackup()
{
    import(m_songs);
    const QString backups = m_dir.filePath(QStringLiteral("backups"));
    QVERIFY(QDir().mkpath(backups));
    QList<QByteArray> before;
    for (const QString &song : std::as_const(m_songs))
        before << samplesongs::readFile(song);

    UserDriver user;
    user.add([&](QWidget *window) {
        if (qobject_cast<BackupDialog *>(window) == nullptr)
            return false;
        auto *const start = child<QPushButton>(window, "doBackupPushButton");
        if (start->isEnabled()) {
            clickLater(start);
        } else if (nextStep(window) == 0) {
            user.pick({backups});
            clickLater(child<QPushButton>(window, "browsePushButton"));
        }
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Ok);
    clickWhenEnabled(QStringLiteral("updateDataToolButton"));

    QCOMPARE(user.messages(), QStringList{QStringLiteral("Backup: Backup eseguito correttamente")});
    const QStringList made = QDir(backups).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    QCOMPARE(made.size(), 1);
    QVERIFY(made[0].startsWith(QStringLiteral("backup_kravo_")));
    for (int i = 0; i < m_songs.size(); ++i) {
        const QString copy = backups + QLatin1Char('/') + made[0] + QLatin1Char('/') +
                             QFileInfo(m_songs[i]).fileName();
        QCOMPARE(samplesongs::readFile(copy), before[i]);
    }
    // The catalogue knows the carol by its title, and nothing of the game music.
    const int known = rowOf(QStringLiteral("ABC3.mid"));
    const int unknown = rowOf(QStringLiteral("SONG00.MID"));
    QVERIFY(known >= 0 && unknown >= 0);
    QCOMPARE(cell(known, columnStatus).toInt(), int(Database::StatusSynced));
    QCOMPARE(cell(known, columnTitle), QStringLiteral("GREENSLEEVES"));
    QVERIFY(samplesongs::readFile(m_songs[37]).contains("GREENSLEEVES"));
    QCOMPARE(cell(unknown, columnStatus).toInt(), int(Database::StatusNotSynced));
    QCOMPARE(samplesongs::readFile(m_songs[0]), before[0]);
    QVERIFY(!child<QToolButton>(m_window.get(), "updateDataToolButton")->isEnabled());
}

void TestEndToEnd::editsOneSongAndGivesItsArtistToAll()
{
    UserDriver user;
    user.add([](QWidget *window) {
        if (qobject_cast<DataEditDialog *>(window) == nullptr)
            return false;
        switch (nextStep(window)) {
        case 0:
            child<QLineEdit>(window, "titleLineEdit")->setText(QStringLiteral("Perché no"));
            child<QComboBox>(window, "artistComboBox")->setEditText(QStringLiteral("Gli Amici"));
            clickLater(child<QCheckBox>(window, "checkBoxToAllArtist"));
            break;
        case 1:
            clickLater(child<QPushButton>(window, "savePushButton"));
            break;
        }
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Yes);
    auto *const view = child<QTableView>(m_window.get(), "userLibraryTableView");
    emit view->doubleClicked(view->model()->index(5, columnTitle));

    QCOMPARE(user.messages().size(), 1);
    QVERIFY(user.messages()[0].startsWith(QStringLiteral("ATTENZIONE: L'interprete inserito")));
    QCOMPARE(cell(5, columnTitle), QStringLiteral("Perché no"));
    for (int row = 0; row < rows(); ++row) {
        QCOMPARE(cell(row, columnArtist), QStringLiteral("Gli Amici"));
        QCOMPARE(cell(row, columnStatus).toInt(), int(Database::StatusEdited));
    }
    QVERIFY(cell(6, columnTitle) != QStringLiteral("Perché no"));
    for (const QString &song : std::as_const(m_songs)) {
        if (!song.contains(QStringLiteral(".mf"), Qt::CaseInsensitive))
            QVERIFY2(samplesongs::readFile(song).contains("Gli Amici"), qPrintable(song));
    }
}

void TestEndToEnd::rebuildsTheMemory()
{
    // The player has not taken away the playlist's path file, so a rebuild leaves its old ids.
    m_judgedWith = QStringList{QStringLiteral("--allow-lost-songs")};
    QVERIFY(QFile::remove(m_card + QStringLiteral("/title.idx")));
    const qsizetype songs = idsByPath(m_card).size();

    UserDriver user;
    user.add([this](QWidget *window) {
        if (qobject_cast<IndexDialog *>(window) == nullptr)
            return false;
        auto *const start = child<QPushButton>(window, "pushButtonStart");
        if (!start->isEnabled())
            return true;
        if (nextStep(window) == 0) {
            child<QLineEdit>(window, "lineEditPath")->setText(m_card + QStringLiteral("/songs"));
            child<QRadioButton>(window, "radioButtonRebuild")->click();
            clickLater(start);
        } else if (!child<QPlainTextEdit>(window, "plainTextReport")->toPlainText().isEmpty()) {
            clickLater(child<QPushButton>(window, "pushButtonClose"));
        }
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Ok);
    trigger("optimizeMemory");

    QCOMPARE(user.messages(),
             QStringList{QStringLiteral("Ottimizza memoria: Operazione completata con successo")});
    QCOMPARE(idsByPath(m_card).size(), songs);
    QCOMPARE(titlesById(m_card).size(), songs);
}

void TestEndToEnd::exportsTheSongListSortedThreeWays()
{
    const auto fileFor = [this](int mode) {
        return m_dir.filePath(QStringLiteral("list%1.csv").arg(mode));
    };
    UserDriver user;
    user.add([&](QWidget *window) {
        if (qobject_cast<SongsListDialog *>(window) == nullptr)
            return false;
        auto *const save = child<QPushButton>(window, "pushButtonSave");
        if (!save->isEnabled())
            return true;
        const int mode = nextStep(window);
        if (mode < 3) {
            child<QLineEdit>(window, "lineEditPath")->setText(m_card);
            child<QLineEdit>(window, "lineEditFile")->setText(fileFor(mode));
            child<QComboBox>(window, "comboBoxSort")->setCurrentIndex(mode);
            clickLater(save);
        } else {
            clickLater(child<QPushButton>(window, "pushButtonClose"));
        }
        return true;
    });
    user.pressInMessageBoxes(QMessageBox::Ok);
    trigger("actionSongsList");

    QCOMPARE(user.messages().size(), 3);
    const qsizetype songs = idsByPath(m_card).size();
    for (int mode = 0; mode < 3; ++mode) {
        QStringList lines = QString::fromUtf8(samplesongs::readFile(fileFor(mode)))
                                .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.takeFirst(), QStringLiteral("TITOLO;ARTISTA;GENERE;FILE;"));
        QCOMPARE(lines.size(), songs);
        QStringList keys;
        for (const QString &line : std::as_const(lines))
            keys << line.split(QLatin1Char(';'))[mode];
        QVERIFY(std::is_sorted(keys.cbegin(), keys.cend(), [](const auto &a, const auto &b) {
            return QString::compare(a, b, Qt::CaseInsensitive) < 0;
        }));
    }
}

void TestEndToEnd::switchesToEnglishAndBack()
{
    const auto *view = child<QTableView>(m_window.get(), "userLibraryTableView");
    const auto heading = [view] {
        return view->model()->headerData(columnTitle, Qt::Horizontal).toString();
    };
    trigger("actionEnglish");
    QTRY_COMPARE(heading(), QStringLiteral("Title"));
    QCOMPARE(m_window->windowTitle(), QStringLiteral("RB27 Utility"));
    trigger("actionGerman");
    QTRY_COMPARE(heading(), QStringLiteral("Titel"));
    const QSettings settings(QStringLiteral("kavena_pc"), QStringLiteral("kravo"));
    QCOMPARE(settings.value(QStringLiteral("language")).toString(), QStringLiteral("de"));
}

int main(int argc, char **argv)
{
    qputenv("LC_ALL", "C.UTF-8");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    TestEndToEnd test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_endtoend.moc"
