// Does the program's jobs on songs and memories below a folder, one in each child process, while
// the library beside it lets calls to the system fail. It is led by run_faults.py, one line of
// words for each job on the standard input:
//
//   JOB ROOT AT MODE GONE LIMIT
//
// JOB: make, save:NAME:TITLE, sync, histsync (a synchronisation that is kept in a history),
// histundo (which takes it back), create, rebuild, update, transfer, inline (which brings a
// folder of the memory in line with the library), backup or import. ROOT holds the folders
// "library", "mnt/CARD" (the memory) and "backup". AT, MODE and GONE are what FAULTS_AT and so on
// are set to. LIMIT is the size beyond which no file can grow, -1 for none. For each job it answers
// with a line, "exit N" or "signal N". What the program said lies in the file "report".
#include "devindex/filecopier.h"
#include "devindex/index.h"
#include "devindex/songchanges.h"
#include "devindex/transfer.h"
#include "faults/historyjobs.h"
#include "formats/metasong.h"
#include "library/answer.h"
#include "library/database.h"
#include "library/librarybackup.h"
#include "library/synchronisation.h"
#include "support/catalogue.h"
#include "support/faults.h"
#include "support/recordedprogress.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"
#include "windows/backupdialog.h"
#include "windows/usersongsreltablemodel.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

using namespace songbytes;

namespace
{

constexpr unsigned longestJob = 30; // seconds
constexpr int midiSongs = 14;

/** What the program says, a line each: what kind it is, then the text. */
QStringList &report()
{
    static QStringList lines;
    return lines;
}

void say(const QString &kind, const QString &text)
{
    report().append(kind + QLatin1Char(' ') + QString(text).replace(QLatin1Char('\n'), QChar()));
    using Note = void (*)(const char *);
    static const auto note = reinterpret_cast<Note>(dlsym(RTLD_DEFAULT, "faults_note"));
    if (note != nullptr)
        note(report().constLast().toUtf8().constData());
}

void saveLog(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    say(type == QtDebugMsg ? QStringLiteral("log") : QStringLiteral("warning"), text);
}

/** The folders of one run. */
struct Folders {
    QString root;
    QString library() const { return root + QStringLiteral("/library"); }
    QString card() const { return root + QStringLiteral("/mnt/CARD"); }
    QString backup() const { return root + QStringLiteral("/backup"); }
    QString history() const { return root + QStringLiteral("/data/history.sqlite"); }

    /** A song that needs a folder of its own in a backup. */
    static QString namesake(const QString &library)
    {
        return library + QStringLiteral("/sub/s00.mid");
    }

    QStringList songs() const
    {
        QStringList paths;
        const QStringList filter{QStringLiteral("*.mid"), QStringLiteral("*.mf?"),
                                 QStringLiteral("*.mp3")};
        for (const QString &name : QDir(library()).entryList(filter, QDir::Files, QDir::Name))
            paths.append(library() + QLatin1Char('/') + name);
        return paths;
    }
};

/** The user, who wants everything done. */
class WillingUser : public TransferUser
{
public:
    explicit WillingUser(QString destination)
        : m_destination(std::move(destination))
    {
    }
    QString chooseFolder(const QString &, const QString &) override { return m_destination; }
    Answer askReplace(const QString &) override { return Answer::Yes; }
    Answer askRename(const QString &, const QString &) override { return Answer::Yes; }
    bool askAnyway(const QString &, const QString &) override { return true; }
    void warn(const QString &, const QString &text) override { say(failure, text); }
    void inform(const QString &, const QString &text) override
    {
        say(QStringLiteral("told"), text);
    }
    void showFailure(const QString &, const QString &text) override { say(failure, text); }
    void tellCounts(const QString &, const QString &text, const QStringList &,
                    const QStringList &) override
    {
        say(QStringLiteral("told"), text);
    }

    static inline const QString failure = QStringLiteral("failure");

private:
    QString m_destination;
};

// The songs and the memory that the jobs work on --------------------------------------------------

QByteArray midiSong(const QByteArray &title, int number)
{
    return midiFile(
        {track(metaEvent(0x03, title) + metaEvent(0x02, "(c) K-Ravo") + notes()),
         track(metaEvent(0x01, QByteArray(qsizetype{20} * (number % 5), 'x')) + notes())},
        1);
}

QByteArray mp3Song(const QByteArray &title, int audio)
{
    QByteArray bytes = id3Tag(id3Frame("TIT2", title) + id3Frame("TCOP", "K-Ravo"));
    for (int i = 0; i < audio; ++i)
        bytes.append(static_cast<char>((i * 31 + i / 251) & 0x7F));
    return bytes;
}

void write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    if (!samplesongs::writeFile(path, bytes))
        qFatal("cannot make the songs");
}

void makeLibrary(const QString &folder)
{
    const auto name = [&folder](const char *pattern, int number) {
        return folder + QLatin1Char('/') + QString::asprintf(pattern, number);
    };
    for (int i = 0; i < midiSongs; ++i)
        write(name("s%02d.mid", i), midiSong("Song " + QByteArray::number(i), i));
    write(name("s%02d.mid", 4), midiSong("A title that is longer than all that a save adds", 4));
    for (int i = 3; i <= 5; ++i)
        write(name("p%d.mf", i) + QString::number(i),
              samplesongs::mfxBytes("_MF" + QByteArray::number(i), midiSong("Packed", i),
                                    {QStringLiteral("Packed %1").arg(i), QString(), QString()}));
    write(name("a%d.mp3", 0), mp3Song("Sound 0", 5000));
    write(name("a%d.cdg", 0), QByteArray(3000, 'g'));
    write(name("a%d.mp3", 1), mp3Song("Sound 1", 100));
    write(name("a%d.mp3", 2), mp3Song("Sound 2", 300000));
    write(Folders::namesake(folder), midiSong("Another song of this name", 26));
}

void makeCatalogue()
{
    QList<catalogue::Row> rows;
    for (const QString &song :
         {QStringLiteral("S%1"), QStringLiteral("P%1"), QStringLiteral("A%1")}) {
        for (int i = 0; i < midiSongs; ++i) {
            catalogue::Row row;
            row.filename = song.arg(i, song.startsWith(QLatin1Char('S')) ? 2 : 1, 10, QChar(u'0'));
            row.title = QStringLiteral("Song %1 as the catalogue calls it").arg(i);
            row.artist = QStringLiteral("Artist %1").arg(i);
            row.genre = QStringLiteral("Waltz");
            row.author = QStringLiteral("Author");
            row.length = 100;
            row.bpm = 120;
            row.key = QStringLiteral("C");
            row.markers = QStringLiteral("1;Intro;9;Verse;");
            rows.append(row);
        }
    }
    QFile::remove(catalogue::overrideFile);
    if (!catalogue::write(catalogue::overrideFile, rows))
        qFatal("cannot make the catalogue");
}

/** A memory with an index that is out of date: a song is new, one is gone, one has changed. */
void makeMemory(const QString &card)
{
    const auto path = [&card](const char *name) {
        return card + QLatin1Char('/') + QString::fromUtf8(name);
    };
    write(path("songs/s00.mid"), midiSong("Other bytes", 20));
    write(path("songs/a0.mp3"), mp3Song("Other sound", 400));
    write(path("songs/a0.cdg"), QByteArray(500, 'h'));
    write(path("own.mid"), midiSong("Only on the memory", 21));
    write(path("sub/pack.mf4"), samplesongs::mfxBytes("_MF4", midiSong("Packed too", 22), {}));
    write(path("gone.mid"), midiSong("Soon gone", 23));
    write(path("changed.mid"), midiSong("Before", 24));
    write(path("playlist/playlist.dat"), QByteArray("\x01", 1) + QByteArray(31, '\0'));
    write(path("playlist/play0001.dat"),
          QByteArray(32, '\0') + bigEndian(3, 4) + QByteArray(28, 'p'));
    if (!Index().createIndex(card))
        qFatal("cannot make the index");
    QFile::remove(path("gone.mid"));
    write(path("changed.mid"), midiSong("Changed and longer", 25));
    QFile changed(path("changed.mid"));
    if (!changed.open(QFile::ReadWrite) ||
        !changed.setFileTime(QDateTime(QDate(2013, 5, 27), QTime(9, 30, 5)),
                             QFile::FileModificationTime))
        qFatal("cannot change a song");
    write(path("A long song name.mp3"), mp3Song("Long", 200));
    write(path("A long song name.cdg"), QByteArray(100, 'i'));
    write(path("sub/extra.mp3"), mp3Song("Not in the library", 300));
    write(path("sub/extra.cdg"), QByteArray(200, 'j'));
}

// The jobs
// -----------------------------------------------------------------------------------------

bool save(const QString &path, const QString &title)
{
    MetaSong song;
    if (!song.importFile(path))
        return false;
    SongInfo info;
    song.getSongInfo(info);
    info.title = title;
    song.setSongInfo(info, true);
    return song.saveToFile(path);
}

bool importSongs(const Folders &folders)
{
    bool good = true;
    for (const QString &path : folders.songs())
        good = MetaSong().importFile(path) && good;
    return good;
}

/** What a job needs before the faults begin. */
class Library
{
public:
    explicit Library(const QStringList &songs)
    {
        if (!m_database.init())
            qFatal("cannot open the catalogue");
        m_model.emplace(nullptr, m_database.userLibraryDb());
        for (const QString &path : songs) {
            SongInfo info;
            info.fileName = path;
            info.shortName = path.section(QLatin1Char('/'), -1);
            if (!m_model->addSong(info))
                qFatal("cannot fill the table");
        }
    }

    bool synchronise(const OpenHistory &history = {})
    {
        Synchronisation synchronisation(
            m_database, *m_model, [] { return true; }, [](const QString &) { return Answer::Yes; },
            recordedBy(m_record));
        synchronisation.setHistory(history);
        return synchronisation.run(false);
    }

private:
    Database m_database;
    std::optional<UserSongsRelTableModel> m_model;
    ProgressRecord m_record;
};

bool indexMemory(const QString &card, bool (Index::*build)(const QString &))
{
    Index index;
    index.setRenameQuestion([](const QString &, const QString &) { return Answer::Yes; });
    QObject::connect(&index, &Index::errorFromIndex, &index,
                     [](const QString &text) { say(WillingUser::failure, text); });
    return (index.*build)(card);
}

bool transfer(const Folders &folders, const QStringList &songs)
{
    WillingUser user(folders.card());
    ProgressRecord record;
    return Transfer(user, recordedBy(record)).transferFiles(songs) == Transfer::Outcome::Complete;
}

/** The songs in the folder that are not in the library go. */
bool bringInLine(const Folders &folders, const QStringList &songs)
{
    WillingUser user(folders.card() + QStringLiteral("/sub"));
    ProgressRecord record;
    Transfer job(user, recordedBy(record));
    std::optional<TransferPlan> plan = job.planTransfer(songs, true);
    if (!plan)
        return false;
    for (TransferPlan::Item &item : plan->items) {
        if (item.state == TransferPlan::State::Remove)
            item.remedy = TransferPlan::Remedy::Remove;
    }
    return job.carryOut(*plan) == Transfer::Outcome::Complete;
}

bool tellOutcome(const SongChanges::Report &report)
{
    if (!report.isComplete())
        say(WillingUser::failure, report.refusal);
    for (const SongChanges::Failure &failure : report.failed)
        say(WillingUser::failure, failure.path + QStringLiteral(": ") + failure.reason);
    return report.isComplete();
}

bool renameSong(const Folders &folders)
{
    ProgressRecord record;
    return tellOutcome(SongChanges(folders.card(), recordedBy(record))
                           .rename(QStringLiteral("/own.mid"), QStringLiteral("mine.mid")));
}

/** Removes songs with and without karaoke pictures, indexed and new ones. */
bool removeSongs(const Folders &folders)
{
    ProgressRecord record;
    const SongChanges::Report report =
        SongChanges(folders.card(), recordedBy(record))
            .remove({QStringLiteral("/own.mid"), QStringLiteral("/sub/extra.mp3"),
                     QStringLiteral("/songs/s00.mid")});
    return tellOutcome(report);
}

bool backUp(const Folders &folders, const QStringList &songs)
{
    ProgressRecord record;
    bool complete = false;
    const LibraryBackup backup(
        [&] {
            return LibraryBackup::Choice{LibraryBackup::Wish::Backup, folders.backup()};
        },
        [&](const QString &destination, int &copied) {
            RecordedProgress progress(record, {}, {}, 0);
            const auto copyList = [](const QStringList &files, const QString &folder, int &arrived,
                                     Progress &part) {
                return FileCopier([](const QString &) { return Answer::Yes; })
                    .copyFiles(files, folder, arrived, part);
            };
            return LibraryBackup::copyFiles(songs, destination, copied, progress, copyList);
        },
        [&](bool succeeded) {
            complete = succeeded;
            if (!succeeded)
                say(WillingUser::failure, QStringLiteral("Backup FALLITO !!!"));
        },
        recordedBy(record));
    return backup.suggest(static_cast<int>(songs.size())) && complete;
}

struct Request {
    std::string job, root, at, mode, gone;
    qint64 limit = -1;
};

/** From here on the library that was loaded before this program counts, and lets calls fail. */
void armFaults(const Request &request)
{
    setenv("FAULTS_ROOT", request.root.c_str(), 1);
    setenv("FAULTS_AT", request.at.c_str(), 1);
    setenv("FAULTS_MODE", request.mode.c_str(), 1);
    setenv("FAULTS_GONE", request.gone.c_str(), 1);
    setenv("FAULTS_TRACE", "trace", 1);
    using Reader = void (*)();
    const auto read = reinterpret_cast<Reader>(dlsym(RTLD_DEFAULT, "faults_read_environment"));
    if (read == nullptr)
        qFatal("the library of faults is not loaded");
    read();
}

bool run(const Request &request, std::optional<Library> &library)
{
    const Folders folders{QString::fromStdString(request.root)};
    const QStringList job = QString::fromStdString(request.job).split(QLatin1Char(':'));
    const QStringList songs = folders.songs();
    if (job.constFirst() == QLatin1String("make")) {
        makeCatalogue();
        makeLibrary(folders.library());
        makeMemory(folders.card());
        return QDir().mkpath(folders.backup());
    }
    armFaults(request);
    std::optional<faults::FileSizeLimit> limit;
    if (request.limit >= 0)
        limit.emplace(static_cast<quint64>(request.limit));
    if (job.constFirst() == QLatin1String("save"))
        return save(folders.library() + QLatin1Char('/') + job.at(1), job.at(2));
    if (job.constFirst() == QLatin1String("sync"))
        return library->synchronise();
    if (job.constFirst() == QLatin1String("histsync")) {
        HistoryStore store(folders.history());
        return library->synchronise(
            [&store](HistoryJob::Kind kind) { return historyjobs::recorder(store, kind, &say); });
    }
    if (job.constFirst() == QLatin1String("histundo"))
        return historyjobs::takeLastBack(folders.history(), &say);
    if (job.constFirst() == QLatin1String("create") || job.constFirst() == QLatin1String("rebuild"))
        return indexMemory(folders.card(), &Index::createIndex);
    if (job.constFirst() == QLatin1String("update"))
        return indexMemory(folders.card(), &Index::updateIndex);
    if (job.constFirst() == QLatin1String("transfer"))
        return transfer(folders, songs);
    if (job.constFirst() == QLatin1String("inline"))
        return bringInLine(folders, songs);
    if (job.constFirst() == QLatin1String("remove"))
        return removeSongs(folders);
    if (job.constFirst() == QLatin1String("rename"))
        return renameSong(folders);
    if (job.constFirst() == QLatin1String("backup"))
        return backUp(folders, songs + QStringList(Folders::namesake(folders.library())));
    if (job.constFirst() == QLatin1String("import"))
        return importSongs(folders);
    qFatal("unknown job");
}

[[noreturn]] void runInChild(const Request &request, std::optional<Library> &library)
{
    alarm(longestJob);
    setenv("KAVENA_MOUNT_DIRS", (request.root + "/mnt").c_str(), 1);
    qInstallMessageHandler(&saveLog);
    const bool succeeded = run(request, library);
    say(QStringLiteral("result"), QString::number(succeeded ? 1 : 0));
    unsetenv("FAULTS_ROOT");
    samplesongs::writeFile(QStringLiteral("report"),
                           report().join(QLatin1Char('\n')).toUtf8() + '\n');
    _exit(EXIT_SUCCESS);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    std::string line;
    std::string libraryRoot;
    std::optional<Library> library; // every child starts with the same one
    while (std::getline(std::cin, line)) {
        Request request;
        std::istringstream(line) >> request.job >> request.root >> request.at >> request.mode >>
            request.gone >> request.limit;
        if ((request.job == "sync" || request.job == "histsync") && request.root != libraryRoot) {
            libraryRoot = request.root;
            library.reset();
            library.emplace(Folders{QString::fromStdString(request.root)}.songs());
        }
        const pid_t child = fork();
        if (child == 0)
            runInChild(request, library);
        int status = 0;
        if (child < 0 || waitpid(child, &status, 0) != child)
            return EXIT_FAILURE;
        if (WIFSIGNALED(status))
            std::cout << "signal " << WTERMSIG(status) << std::endl;
        else
            std::cout << "exit " << WEXITSTATUS(status) << std::endl;
    }
    return EXIT_SUCCESS;
}
