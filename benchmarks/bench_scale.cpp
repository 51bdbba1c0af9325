// A big library and a full memory in the real windows: how long each job takes, how much memory,
// and the longest time for which the program did not look at its events. Beside it stands how much
// it worked in such a time at most: where that is far less, other work on the machine or the disk
// made the time long.
//
//   bench_scale [--library=10000] [--memory=50000] [--folder=DIR]
//
// The library is 10,000 songs: MIDI of 40 kB with twenty of 500 kB among them, MP3, MFX, and one
// MP3 of 200 MB whose tag has 900 kB. The memory holds 50,000 songs before the library joins them.
#include "app/messagehandler.h"
#include "benchmarks/peakmemory.h"
#include "benchmarks/songtree.h"
#include "library/database.h"
#include "support/midilike.h"
#include "support/ownfolders.h"
#include "support/samplesongs.h"
#include "support/userdriver.h"
#include "support/windowundertest.h"
#include "windows/backupdialog.h"
#include "windows/dataeditdialog.h"
#include "windows/indexdialog.h"
#include "windows/nocopyrightdialog.h"
#include "windows/songslistdialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCommandLineParser>
#include <QHeaderView>
#include <QProgressBar>
#include <QRadioButton>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>

namespace
{

constexpr int longestGap = 200; // ms; more than that, and a window feels stuck
constexpr int differentSongs = 20;
constexpr int bigMp3Bytes = 200'000'000;
constexpr int bigTagBytes = 900'000;

/** A beat that can only be kept while events are processed. */
class Heartbeat
{
public:
    Heartbeat()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { beat(); });
        m_timer.start(2);
    }

    void restart()
    {
        m_longest = 0;
        m_longestWork = 0;
        m_worked = processorMilliseconds();
        m_sawProgress = false;
        m_last.start();
    }

    /** Milliseconds, up to now. */
    qint64 longest()
    {
        noteGap(m_last.elapsed());
        return m_longest;
    }

    /** What of a gap this thread worked, at most: the rest it waited for the disk or other work. */
    qint64 longestWork() const { return m_longestWork; }

    /** Whether a bar was on screen at any beat. */
    bool sawProgress() const { return m_sawProgress; }

private:
    static qint64 processorMilliseconds()
    {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return qint64{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
    }

    void noteGap(qint64 milliseconds)
    {
        const qint64 worked = processorMilliseconds();
        m_longest = std::max(m_longest, milliseconds);
        m_longestWork = std::max(m_longestWork, worked - m_worked);
        m_worked = worked;
    }

    void beat()
    {
        noteGap(m_last.restart());
        const QWidget *const window = QApplication::activeModalWidget();
        if (window == nullptr)
            return;
        for (const auto *const bar : window->findChildren<QProgressBar *>())
            m_sawProgress = m_sawProgress || (bar->isVisible() && bar->value() > bar->minimum());
    }

    QTimer m_timer;
    QElapsedTimer m_last;
    qint64 m_longest = 0;
    qint64 m_longestWork = 0;
    qint64 m_worked = 0; ///< processor time of this thread at the last beat
    bool m_sawProgress = false;
};

void write(const QString &path, const QByteArray &bytes)
{
    if (!samplesongs::writeFile(path, bytes))
        qFatal("cannot make the songs: is the disk full?");
}

QByteArray bigMp3()
{
    using namespace songbytes;
    const QByteArray frames =
        id3Frame("TIT2", "GREENSLEEVES") + id3Frame("APIC", QByteArray(bigTagBytes, '\x42'));
    return id3Tag(frames) + QByteArray(bigMp3Bytes, '\xAA');
}

/** The songs of the library; the catalogue knows the title of each. */
QStringList makeLibrary(const QString &folder, int songs)
{
    const QByteArray title = songbytes::metaEvent(3, "GREENSLEEVES");
    const auto midi = [&title](int number, qsizetype size) {
        const QByteArray music = midilike::bytes(size, static_cast<quint32>(number));
        return songbytes::midiFile({songbytes::track(title), songbytes::track(music.mid(22))}, 1);
    };
    const QByteArray mp3 =
        songbytes::id3Tag(songbytes::id3Frame("TIT2", "GREENSLEEVES")) + QByteArray(100000, '\xAA');
    QList<QByteArray> midis;
    QList<QByteArray> packed;
    for (int i = 0; i < differentSongs; ++i) {
        midis.append(midi(i, 40000));
        packed.append(samplesongs::mfxBytes(
            "_MF4", midis.last(), {QStringLiteral("Greensleeves"), QString(), QString()}));
    }
    QStringList paths;
    for (int i = 0; i < songs; ++i) {
        const QString path = QStringLiteral("%1/S%2").arg(folder).arg(i);
        const int kind = i % 10;
        if (i == 0) {
            paths.append(path + QStringLiteral(".mp3"));
            write(paths.last(), bigMp3());
        } else if (i % 500 == 1) {
            paths.append(path + QStringLiteral(".mid"));
            write(paths.last(), midi(i, 500000));
        } else if (kind < 6) {
            paths.append(path + QStringLiteral(".mid"));
            write(paths.last(), midis.at(i % differentSongs));
        } else if (kind < 9) {
            paths.append(path + QStringLiteral(".mp3"));
            write(paths.last(), mp3);
        } else {
            paths.append(path + QStringLiteral(".mf4"));
            write(paths.last(), packed.at(i % differentSongs));
        }
    }
    return paths;
}

class Scale
{
public:
    Scale(const QString &place, int librarySongs, int memorySongs)
        : m_folder(place + QStringLiteral("/bench_scale"))
    {
        qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(m_folder.filePath(QStringLiteral("mnt"))));
        for (const QString &name :
             {QStringLiteral("mnt/CARD"), QStringLiteral("music"), QStringLiteral("backups")})
            QDir().mkpath(m_folder.filePath(name));
        SongTree::fill(card(), memorySongs);
        m_songs = makeLibrary(m_folder.filePath(QStringLiteral("music")), librarySongs);
        m_user.add([](QWidget *window) {
            const auto *const box = qobject_cast<QMessageBox *>(window);
            if (box == nullptr)
                return false;
            QAbstractButton *const yes = box->button(QMessageBox::Yes);
            clickLater(yes != nullptr ? yes : box->button(QMessageBox::Ok));
            return true;
        });
    }

    /** Runs every job; true when each was quick enough to answer. */
    bool run()
    {
        std::printf("%-48s %9s %13s %13s %11s\n", "job", "seconds", "longest gap", "work in a gap",
                    "peak memory");
        job("start", false, [this] {
            m_window = std::make_unique<WindowUnderTest>();
            QApplication::processEvents();
        });
        job("import the library", true, [this] {
            m_window->setSelectedFiles(m_songs);
            m_window->importUserLibrary();
        });
        require(m_window->model()->goodRowCount() == m_songs.size(), "every song became a row");
        for (const int column : {2, 3, 10})
            job("sort by a header", false, [this, column] { sortBy(column); });
        job("synchronise with a backup", true, [this] { synchronise(); });
        job("edit one song, artist and genre to all", true, [this] { editAll(); });
        job("transfer the library, update the index", true, [this] { transfer(); });
        job("rebuild the index", true, [this] { optimise("radioButtonRebuild"); });
        job("update the unchanged index", true, [this] { optimise("radioButtonUpdate"); });
        job("save the song list", false, [this] { saveList(); });
        job("change the language", false, [this] {
            m_window->action("actionEnglish")->trigger();
            QApplication::processEvents();
        });
        return m_held;
    }

private:
    QString card() const { return m_folder.filePath(QStringLiteral("mnt/CARD")); }

    static void require(bool held, const char *what)
    {
        if (held)
            return;
        std::fprintf(stderr, "not so: %s\n", what);
        std::exit(EXIT_FAILURE);
    }

    template <typename Work>
    void job(const char *name, bool watched, const Work &work)
    {
        QApplication::processEvents();
        forgetPeak();
        m_heartbeat.restart();
        QElapsedTimer timer;
        timer.start();
        work();
        const double seconds = static_cast<double>(timer.elapsed()) / 1000;
        QApplication::processEvents(); // what is still to be painted belongs to the job
        const qint64 gap = m_heartbeat.longest();
        const bool shown = !watched || m_heartbeat.sawProgress();
        const bool held = gap <= longestGap && shown;
        std::printf("%-48s %9.2f %10lld ms %10lld ms %8.1f MB %s%s\n", name, seconds,
                    static_cast<long long>(gap), static_cast<long long>(m_heartbeat.longestWork()),
                    peakMemory(), gap <= longestGap ? "ok" : "TOO LONG",
                    shown ? "" : " NO PROGRESS");
        std::fflush(stdout);
        m_held = m_held && held;
    }

    void sortBy(int column)
    {
        QHeaderView *const header = m_window->table()->horizontalHeader();
        const int x = header->sectionViewportPosition(column) + 5;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, 5));
        QApplication::processEvents();
        require(header->sortIndicatorSection() == column, "the click sorted the table");
    }

    void synchronise()
    {
        m_user.add([this](QWidget *window) {
            if (qobject_cast<BackupDialog *>(window) == nullptr)
                return false;
            auto *const start = child<QPushButton>(window, "doBackupPushButton");
            if (start->isEnabled()) {
                clickLater(start);
            } else if (nextStep(window) == 0) {
                m_user.pick({m_folder.filePath(QStringLiteral("backups"))});
                clickLater(child<QPushButton>(window, "browsePushButton"));
            }
            return true;
        });
        QTest::mouseClick(m_window->updateButton(), Qt::LeftButton);
        for (int row = 0; row < m_songs.size(); ++row)
            require(m_window->model()->status(row) == Database::StatusSynced, "a song is synced");
    }

    void editAll()
    {
        m_user.add([](QWidget *window) {
            if (qobject_cast<DataEditDialog *>(window) == nullptr)
                return false;
            switch (nextStep(window)) {
            case 0:
                child<QComboBox>(window, "artistComboBox")
                    ->setEditText(QStringLiteral("Gli Amici"));
                clickLater(child<QCheckBox>(window, "checkBoxToAllArtist"));
                break;
            case 1:
                clickLater(child<QPushButton>(window, "savePushButton"));
                break;
            }
            return true;
        });
        emit m_window->table()->doubleClicked(m_window->model()->index(5, 2));
        for (int row = 0; row < m_songs.size(); ++row)
            require(m_window->model()->status(row) == Database::StatusEdited, "a song is edited");
    }

    void transfer()
    {
        m_user.pick({card()});
        m_user.add([](QWidget *window) {
            auto *const question = qobject_cast<NoCopyrightDialog *>(window);
            if (question != nullptr)
                clickLater(child<QPushButton>(question, "yesAllPushButton"));
            return question != nullptr;
        });
        QTest::mouseClick(m_window->transferButton(), Qt::LeftButton);
        require(m_user.allPicked(), "a folder was asked for");
        require(QDir(card() + QStringLiteral("/songs")).entryList(QDir::Files).size() ==
                    m_songs.size(),
                "every song arrived");
    }

    void optimise(const char *button)
    {
        m_user.add([this, button](QWidget *window) {
            if (qobject_cast<IndexDialog *>(window) == nullptr)
                return false;
            auto *const start = child<QPushButton>(window, "pushButtonStart");
            auto *const kind = child<QRadioButton>(window, button);
            if (kind == nullptr || !start->isEnabled())
                return true;
            switch (nextStep(window)) {
            case 0:
                child<QLineEdit>(window, "lineEditPath")->setText(card());
                kind->click();
                clickLater(start);
                break;
            case 1:
                clickLater(child<QPushButton>(window, "pushButtonClose"));
                break;
            }
            return true;
        });
        m_window->action("optimizeMemory")->trigger();
    }

    void saveList()
    {
        m_user.add([this](QWidget *window) {
            if (qobject_cast<SongsListDialog *>(window) == nullptr)
                return false;
            auto *const save = child<QPushButton>(window, "pushButtonSave");
            if (!save->isEnabled())
                return true;
            switch (nextStep(window)) {
            case 0:
                child<QLineEdit>(window, "lineEditPath")->setText(card());
                child<QLineEdit>(window, "lineEditFile")
                    ->setText(m_folder.filePath(QStringLiteral("list.csv")));
                clickLater(save);
                break;
            case 1:
                clickLater(child<QPushButton>(window, "pushButtonClose"));
                break;
            }
            return true;
        });
        m_window->action("actionSongsList")->trigger();
        require(QFileInfo(m_folder.filePath(QStringLiteral("list.csv"))).size() > 0,
                "there is a list");
    }

    QTemporaryDir m_folder;
    QStringList m_songs;
    std::unique_ptr<WindowUnderTest> m_window;
    UserDriver m_user;
    Heartbeat m_heartbeat;
    bool m_held = true;
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const OwnSettings ownSettings;
    installSilentHandler();
    const QApplication application(argc, argv);

    QCommandLineParser parser;
    parser.addHelpOption();
    const QString library = QStringLiteral("library");
    const QString memory = QStringLiteral("memory");
    const QString folder = QStringLiteral("folder");
    parser.addOption({library, QString(), QStringLiteral("songs"), QStringLiteral("10000")});
    parser.addOption({memory, QString(), QStringLiteral("songs"), QStringLiteral("50000")});
    parser.addOption({folder, QString(), QStringLiteral("folder"), QDir::tempPath()});
    parser.process(application);

    Scale scale(parser.value(folder), parser.value(library).toInt(), parser.value(memory).toInt());
    const bool held = scale.run();
    std::printf("every window answers within %d ms: %s\n", longestGap, held ? "ok" : "TOO SLOW");
    return held ? EXIT_SUCCESS : EXIT_FAILURE;
}
