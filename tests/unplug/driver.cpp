// Does the program's jobs on a stick that is taken away in the middle, and says what the program
// reports to its user at the moment when it does. It is led by unplug.py:
//
//   make FOLDER           makes in FOLDER the folder "library" (songs), the catalogue, and a folder
//                         with the content of the stick that each job begins with
//   empty LIBRARY STICK   transfers the library's songs onto the stick, to the folder "songs"
//   over LIBRARY STICK    the same; songs of these names are there
//   sync LIBRARY STICK    synchronises the songs in the stick's folder "songs" with the catalogue
//   update LIBRARY STICK  brings the index of the stick up to date
//   remove LIBRARY STICK  removes every third song of the stick
//   inline LIBRARY STICK  brings the stick's folder "songs" in line with the library
//   recover STICK         reads all songs, as a user does who wants to know what is left
//
// The catalogue must lie in the working directory. Lines that begin with "CLAIM" are promises:
// "CLAIM copied NAME", "CLAIM saved NAME", "CLAIM removed NAME", "CLAIM all-copied", "CLAIM
// index-written".
#include "devindex/index.h"
#include "devindex/songchanges.h"
#include "devindex/transfer.h"
#include "formats/metasong.h"
#include "library/answer.h"
#include "library/database.h"
#include "library/synchronisation.h"
#include "support/catalogue.h"
#include "support/recordedprogress.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"
#include "windows/usersongsreltablemodel.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <sys/resource.h>

using namespace songbytes;

namespace
{

constexpr int midiSongs = 36;
constexpr int packedSongs = 6;
constexpr int soundSongs = 14;
constexpr int companions = 4; ///< so many of the MP3s have karaoke pictures beside them

// What is said --------------------------------------------------------------------------------

/** A line at once, before the program goes on. */
void say(const QString &line)
{
    std::fputs(qPrintable(line + QLatin1Char('\n')), stdout);
    std::fflush(stdout);
}

QString nameOf(const QString &path)
{
    return path.section(QLatin1Char('/'), -1);
}

/** A failure stands in the log, whatever the windows show of it. */
void noteFailures(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtDebugMsg && !text.contains(QLatin1String("Impossible")))
        return;
    say(QStringLiteral("WARNING ") + QString(text).replace(QLatin1Char('\n'), QLatin1Char(' ')));
}

/** The user, who wants everything done. */
class WillingUser : public TransferUser
{
public:
    WillingUser(QString destination, QStringList songs)
        : m_destination(std::move(destination))
        , m_songs(std::move(songs))
    {
    }
    QString chooseFolder(const QString &, const QString &) override { return m_destination; }
    Answer askReplace(const QString &) override { return Answer::Yes; }
    Answer askRename(const QString &, const QString &) override { return Answer::Yes; }
    bool askAnyway(const QString &, const QString &) override { return true; }
    void warn(const QString &, const QString &text) override { tell(text); }
    void inform(const QString &, const QString &) override
    {
        say(QStringLiteral("CLAIM all-copied"));
    }
    void showFailure(const QString &, const QString &text) override { tell(text); }
    void tellCounts(const QString &, const QString &text, const QStringList &failed,
                    const QStringList &others) override
    {
        tell(text);
        const QString removed = QStringLiteral(": rimossa");
        for (const QString &line : others) {
            if (line.endsWith(removed))
                say(QStringLiteral("CLAIM removed ") + line.chopped(removed.size()));
        }
        for (const QString &song : std::as_const(m_songs)) {
            const QString name = nameOf(song);
            // Behind the name of a song stands why it was not copied.
            const auto isOfSong = [&name](const QString &line) {
                return line.startsWith(name + QLatin1Char(':'));
            };
            if (std::none_of(failed.cbegin(), failed.cend(), isOfSong))
                say(QStringLiteral("CLAIM copied ") + name);
        }
    }

private:
    static void tell(const QString &text)
    {
        say(QStringLiteral("TOLD ") + QString(text).replace(QLatin1Char('\n'), QLatin1Char(';')));
    }
    QString m_destination;
    QStringList m_songs;
};

// The songs ---------------------------------------------------------------------------------------

QByteArray music(int size, int number)
{
    QByteArray bytes;
    for (int i = 0; bytes.size() < size; ++i)
        bytes += QByteArray("\x10\x90", 2) + static_cast<char>(20 + (i * number + i / 7) % 100) +
                 QByteArray("\x40", 1);
    return bytes;
}

QByteArray midiSong(const QString &title, int number)
{
    return midiFile({track(metaEvent(0x03, title.toLatin1()) + metaEvent(0x02, "(c) K-Ravo")),
                     track(music(1000 + 1500 * number, number + 1))},
                    1);
}

QByteArray packedSong(int magic, const QString &title, int number)
{
    return samplesongs::mfxBytes("_MF" + QByteArray::number(magic), midiSong(title, number),
                                 {title, QString(), QString()});
}

QByteArray soundSong(const QString &title, int number)
{
    QByteArray bytes = id3Tag(id3Frame("TIT2", title.toLatin1()) + id3Frame("TCOP", "K-Ravo"));
    const int end = 3000 + 40000 * number;
    for (int i = 0; bytes.size() < end; ++i)
        bytes.append(static_cast<char>((i * (31 + 2 * number) + i / 251) & 0x7F));
    return bytes;
}

/** Writes a file whose time of change a FAT can keep. */
void write(const QString &path, const QByteArray &bytes, int minute = 30)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    const QDateTime changed(QDate(2013, 5, 27), QTime(9, minute, 4), Qt::UTC);
    if (!samplesongs::writeFile(path, bytes) || !file.open(QFile::ReadWrite) ||
        !file.setFileTime(changed, QFile::FileModificationTime))
        qFatal("cannot make the songs");
}

/** All songs in a folder; those of another edition have the same names, but other bytes. */
void makeSongs(const QString &folder, int edition)
{
    const QString title = QStringLiteral("Song %1, edition %2");
    const auto path = [&folder](const char *pattern, int number) {
        return folder + QLatin1Char('/') + QString::asprintf(pattern, number);
    };
    for (int i = 0; i < midiSongs; ++i)
        write(path("s%02d.mid", i), midiSong(title.arg(i).arg(edition), (i + edition) % midiSongs));
    for (int i = 0; i < packedSongs; ++i) {
        const int magic = 3 + i % 3;
        write(path("p%02d.mf", i) + QString::number(magic),
              packedSong(magic, title.arg(i).arg(edition), 5 * i + edition));
    }
    for (int i = 0; i < soundSongs; ++i)
        write(path("a%02d.mp3", i),
              soundSong(title.arg(i).arg(edition), (i + 3 * edition) % soundSongs));
    for (int i = 0; i < companions; ++i)
        write(path("a%02d.cdg", i), QByteArray(30000 + 9000 * i, static_cast<char>('g' + edition)));
}

QStringList songsIn(const QString &folder)
{
    QStringList paths;
    const QStringList filter{QStringLiteral("*.mid"), QStringLiteral("*.mf?"),
                             QStringLiteral("*.mp3")};
    for (const QString &name : QDir(folder).entryList(filter, QDir::Files, QDir::Name))
        paths.append(folder + QLatin1Char('/') + name);
    return paths;
}

void makeCatalogue()
{
    QList<catalogue::Row> rows;
    for (const char *kind : {"S", "P", "A"}) {
        for (int i = 0; i < midiSongs; ++i) {
            catalogue::Row row;
            row.filename = QString::asprintf("%s%02d", kind, i);
            row.title = QStringLiteral("%1 as the catalogue calls it").arg(row.filename);
            row.artist = QStringLiteral("Artist %1").arg(i % 7);
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

void makeIndex(const QString &root)
{
    write(root + QStringLiteral("/playlist/playlist.dat"),
          QByteArray("\x01", 1) + QByteArray(31, '\0'));
    write(root + QStringLiteral("/playlist/play0001.dat"),
          QByteArray(32, '\0') + bigEndian(3, 4) + QByteArray(28, 'p'));
    if (!Index().createIndex(root))
        qFatal("cannot make an index");
}

/** Songs are new, changed or gone since the index was made, or have names that are too long. */
void makeOutdated(const QString &root)
{
    const QString songs = root + QStringLiteral("/songs");
    makeSongs(songs, 1);
    makeIndex(root);
    QFile::remove(songs + QStringLiteral("/s30.mid"));
    QFile::remove(songs + QStringLiteral("/a09.mp3"));
    write(songs + QStringLiteral("/s31.mid"), midiSong(QStringLiteral("Changed"), 20), 40);
    for (int i = 0; i < midiSongs; ++i)
        write(root + QString::asprintf("/new/n%02d.mid", i), midiSong(QStringLiteral("New"), i));
    for (int i = 0; i < packedSongs; ++i) {
        const QString name = QString::asprintf("/songs/%02d A song with a long name", i);
        write(root + name + QStringLiteral(".mp3"), soundSong(QStringLiteral("Long"), i));
        write(root + name + QStringLiteral(".cdg"), QByteArray(20000 + i, 'i'));
        write(root + name + QStringLiteral(".mid"), midiSong(QStringLiteral("Long"), i));
    }
}

/** Songs that the library does not have. */
void makeOthers(const QString &folder)
{
    for (int i = 0; i < companions; ++i) {
        const QString name = folder + QString::asprintf("/x%02d", i);
        write(name + QStringLiteral(".mid"), midiSong(QStringLiteral("Other"), i));
        write(name + QStringLiteral("s.mp3"), soundSong(QStringLiteral("Other"), i));
        write(name + QStringLiteral("s.cdg"), QByteArray(25000 + i, 'o'));
    }
}

void make(const QString &folder)
{
    QDir().mkpath(folder + QStringLiteral("/empty"));
    makeSongs(folder + QStringLiteral("/library"), 0);
    for (const char *stick : {"/over", "/sync", "/remove", "/inline"}) {
        const QString songs = folder + QLatin1String(stick) + QStringLiteral("/songs");
        makeSongs(songs, 1);
        if (QLatin1String(stick) == QLatin1String("/inline"))
            makeOthers(songs);
        makeIndex(folder + QLatin1String(stick));
    }
    makeOutdated(folder + QStringLiteral("/update"));
    QDir::setCurrent(folder);
    makeCatalogue();
}

// The jobs ----------------------------------------------------------------------------------------

bool transfer(const QStringList &songs, const QString &stick)
{
    WillingUser user(stick, songs);
    ProgressRecord record;
    record.onUpdate = [&songs](int done) {
        say(QStringLiteral("STEP ") + nameOf(songs.at(done - 1)));
    };
    return Transfer(user, recordedBy(record)).transferFiles(songs) == Transfer::Outcome::Complete;
}

/** A song counts as saved when its row says so and the log says nothing else. */
bool synchronise(const QStringList &songs)
{
    Database database;
    if (!database.init())
        qFatal("cannot open the catalogue");
    UserSongsRelTableModel model(nullptr, database.userLibraryDb());
    for (const QString &path : songs) {
        SongInfo info;
        info.fileName = path;
        info.shortName = nameOf(path);
        if (!model.addSong(info))
            qFatal("cannot fill the table");
    }
    ProgressRecord record;
    record.onUpdate = [&](int done) {
        const QString name = nameOf(songs.at(done - 1));
        if (model.saveFailure(done - 1) == SaveFailure::None &&
            model.status(done - 1) == Database::StatusSynced)
            say(QStringLiteral("CLAIM saved ") + name);
        say(QStringLiteral("STEP ") + name);
    };
    Synchronisation synchronisation(
        database, model, [] { return true; }, [](const QString &) { return Answer::Yes; },
        recordedBy(record));
    return synchronisation.run(false);
}

bool updateIndex(const QString &stick)
{
    Index index;
    index.setRenameQuestion([](const QString &, const QString &) { return Answer::Yes; });
    QObject::connect(&index, &Index::progressValueChanged, &index,
                     [](int done) { say(QStringLiteral("STEP %1").arg(done)); });
    if (!index.updateIndex(stick))
        return false;
    say(QStringLiteral("CLAIM index-written"));
    return true;
}

bool removeSongs(const QStringList &songs, const QString &stick)
{
    constexpr int everyOne = 3;
    QStringList paths;
    for (qsizetype i = 0; i < songs.size(); i += everyOne)
        paths.append(songs.at(i).mid(stick.size()));
    ProgressRecord record;
    record.onUpdate = [](int done) { say(QStringLiteral("STEP %1").arg(done)); };
    const SongChanges::Report report = SongChanges(stick, recordedBy(record)).remove(paths);
    for (const QString &path : report.done)
        say(QStringLiteral("CLAIM removed ") + nameOf(path));
    if (report.isIndexTrue && !report.done.isEmpty())
        say(QStringLiteral("CLAIM index-written"));
    return report.isComplete();
}

bool bringInLine(const QStringList &songs, const QString &stick)
{
    WillingUser user(stick + QStringLiteral("/songs"), songs);
    ProgressRecord record;
    record.onUpdate = [](int done) { say(QStringLiteral("STEP %1").arg(done)); };
    Transfer transfer(user, recordedBy(record));
    std::optional<TransferPlan> plan = transfer.planTransfer(songs, true);
    if (!plan)
        return false;
    for (TransferPlan::Item &item : plan->items) {
        if (item.state == TransferPlan::State::Remove)
            item.remedy = TransferPlan::Remedy::Remove;
    }
    return transfer.carryOut(*plan) == Transfer::Outcome::Complete;
}

bool recover(const QString &stick)
{
    bool good = true;
    QDirIterator folders(stick, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (folders.hasNext()) {
        for (const QString &path : songsIn(folders.next()))
            good = MetaSong().importFile(path) && good;
    }
    return good;
}

bool run(const QString &job, const QString &folder, const QString &stick)
{
    if (job == QLatin1String("recover"))
        return recover(folder);
    if (job == QLatin1String("empty") || job == QLatin1String("over"))
        return transfer(songsIn(folder), stick);
    if (job == QLatin1String("sync"))
        return synchronise(songsIn(stick + QStringLiteral("/songs")));
    if (job == QLatin1String("update"))
        return updateIndex(stick);
    if (job == QLatin1String("remove"))
        return removeSongs(songsIn(stick + QStringLiteral("/songs")), stick);
    if (job == QLatin1String("inline"))
        return bringInLine(songsIn(folder), stick);
    qFatal("unknown job");
}

/** The songs of a transfer get their names in several groups, as those of a large library do. */
void limitHandles()
{
    rlimit limit = {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0)
        qFatal("Cannot read the limit of open files");
    limit.rlim_cur = 64;
    if (::setrlimit(RLIMIT_NOFILE, &limit) != 0)
        qFatal("Cannot set the limit of open files");
}

} // namespace

int main(int argc, char **argv)
{
    limitHandles();
    const QCoreApplication app(argc, argv);
    const QStringList words = app.arguments();
    if (words.size() < 3)
        qFatal("usage: JOB FOLDER [STICK]");
    if (words.at(1) == QLatin1String("make")) {
        make(words.at(2));
        return EXIT_SUCCESS;
    }
    qInstallMessageHandler(&noteFailures);
    return run(words.at(1), words.at(2), words.value(3)) ? EXIT_SUCCESS : EXIT_FAILURE;
}
