// Synchronising a library with and without a history, in pairs one after the other: 2,000 songs,
// all of which the catalogue knows. The limit: with a history it takes at most 15 % longer. Its
// processor time, which users wait for only in part since it is spent on another core as well, has
// a limit of its own.
#include "formats/metasong.h"
#include "library/answer.h"
#include "library/database.h"
#include "library/historyrecorder.h"
#include "library/synchronisation.h"
#include "support/catalogue.h"
#include "support/countingprogress.h"
#include "support/songbytes.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <unistd.h>
#include <utility>

namespace
{

constexpr int songs = 2000;
constexpr int mp3Every = 20;
constexpr int mp3Bytes = 3000000;
constexpr int pairs = 5;
constexpr double limit = 1.15;
constexpr double processorLimit = 1.35;

QString key(int number)
{
    return QStringLiteral("SNG%1").arg(number, 5, 10, QLatin1Char('0'));
}

bool isMp3(int song)
{
    return song % mp3Every == 0;
}

QByteArray randomBytes(QRandomGenerator &random, int size)
{
    QByteArray bytes(size, '\0');
    std::generate(bytes.begin(), bytes.end(),
                  [&random] { return static_cast<char>(random.bounded(0x80)); });
    return bytes;
}

/**
 * Notes of a drum kit in four bars that repeat, of which every sixth is struck otherwise than
 * before: the files of real songs get as small, a fifth of their size.
 */
QByteArray notesOf(QRandomGenerator &random, int count)
{
    constexpr int notesOfBars = 64;
    constexpr int otherwise = 6;
    constexpr char drums[] = {36, 42, 38, 46, 36, 36, 38, 49};
    const auto struck = [&random] {
        return std::pair(static_cast<char>(random.bounded(20, 28)),
                         static_cast<char>(random.bounded(80, 100)));
    };
    std::array<std::pair<char, char>, notesOfBars> bars;
    std::generate(bars.begin(), bars.end(), struck);
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        const bool isOther = random.bounded(otherwise) == 0;
        const auto [deltaTime, velocity] =
            isOther ? struck() : bars.at(static_cast<size_t>(i % notesOfBars));
        bytes += deltaTime;
        bytes += '\x99';
        bytes += drums[i % 8];
        bytes += velocity;
    }
    return bytes;
}

QByteArray songBytes(int song, QRandomGenerator &random)
{
    using namespace songbytes;
    if (isMp3(song))
        return id3Tag(id3Frame("TCOP", "K-Ravo")) + randomBytes(random, mp3Bytes);
    return midiFile({track(metaEvent(0x02, "(c) K-Ravo") + metaEvent(0x03, "Song without a name")),
                     track(notesOf(random, random.bounded(2500, 15000)))},
                    1);
}

QList<catalogue::Row> catalogueContent()
{
    QList<catalogue::Row> rows;
    for (int i = 0; i < songs; ++i) {
        catalogue::Row row;
        row.filename = key(i);
        row.title = QStringLiteral("TITLE OF SONG %1").arg(i);
        row.artist = QStringLiteral("SURNAME NAME %1").arg(i % 700);
        row.altartist = QStringLiteral("NAME SURNAME %1").arg(i % 700);
        row.genre = QStringLiteral("GENRE %1").arg(i % 20);
        row.author = QStringLiteral("AUTHOR %1").arg(i % 900);
        row.length = 60 + i % 400;
        row.bpm = 60 + i % 120;
        rows.append(row);
    }
    return rows;
}

struct Time {
    double clock = 0;
    double processor = 0;
};

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/** The songs in a folder, which is the working directory, with the catalogue beside them. */
class Library
{
public:
    Library()
        : m_folder(QDir::current().filePath(QStringLiteral("bench-history.XXXXXX")))
    {
        QDir::setCurrent(m_folder.path());
        if (!catalogue::write(catalogue::overrideFile, catalogueContent()) || !m_database.init())
            qFatal("Cannot make the catalogue");
        QRandomGenerator random(1);
        for (int i = 0; i < songs; ++i) {
            m_paths.append(m_folder.filePath(
                key(i).toLower() + (isMp3(i) ? QStringLiteral(".mp3") : QStringLiteral(".mid"))));
            m_bytes.append(songBytes(i, random));
        }
    }

    /** Every run begins with the same files, on the disk, and without a history. */
    Time synchronise(bool withHistory)
    {
        restoreFiles();
        m_database.clearUserLibraryDb();
        SongTable model(nullptr, m_database.userLibraryDb());
        for (const QString &path : std::as_const(m_paths)) {
            SongInfo info;
            info.fileName = path;
            info.shortName = path.section(QLatin1Char('/'), -1);
            if (!model.addSong(info))
                qFatal("Cannot fill the table");
        }
        Synchronisation synchronisation(
            m_database, model, [] { return true; }, [](const QString &) { return Answer::Yes; },
            [](const QString &, const QString &, int) {
                return std::make_unique<CountingProgress>();
            });
        QDir(m_folder.filePath(QStringLiteral("data"))).removeRecursively();
        HistoryStore store(m_folder.filePath(QStringLiteral("data/history.sqlite")));
        if (withHistory) {
            synchronisation.setHistory([&store](HistoryJob::Kind kind) {
                return std::make_unique<HistoryRecorder>(store, kind,
                                                         [](const QString &) { return false; });
            });
        }
        sync();
        QElapsedTimer timer;
        const std::clock_t before = std::clock();
        timer.start();
        if (!synchronisation.run(false))
            qFatal("The synchronisation failed");
        const Time time{static_cast<double>(timer.nsecsElapsed()) / 1e9,
                        static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC};
        if (withHistory && store.jobs().value(0).songs != songs)
            qFatal("Not all songs are in the history");
        return time;
    }

private:
    void restoreFiles() const
    {
        for (int i = 0; i < songs; ++i) {
            QFile file(m_paths.at(i));
            if (!file.open(QIODevice::WriteOnly) ||
                file.write(m_bytes.at(i)) != m_bytes.at(i).size())
                qFatal("Cannot write the songs");
        }
    }

    QTemporaryDir m_folder;
    Database m_database;
    QStringList m_paths;
    QList<QByteArray> m_bytes;
};

bool isMissed = false;

void historyOfASynchronisation(benchmark::State &state)
{
    Library library;
    library.synchronise(true); // warms the caches
    QList<double> clock;
    QList<double> processor;
    QList<double> seconds;
    for (auto _ : state) {
        // Whichever comes second finds the disk busier; so they take turns.
        const bool isFirst = clock.size() % 2 == 0;
        const Time one = library.synchronise(isFirst);
        const Time other = library.synchronise(!isFirst);
        const Time &with = isFirst ? one : other;
        const Time &without = isFirst ? other : one;
        clock.append(with.clock / without.clock);
        processor.append(with.processor / without.processor);
        seconds.append(with.clock);
        state.SetIterationTime(with.clock);
    }
    state.counters["seconds"] = median(seconds);
    state.counters["clock_ratio"] = median(clock);
    state.counters["processor_ratio"] = median(processor);
    isMissed = median(clock) > limit || median(processor) > processorLimit;
    if (isMissed)
        std::fprintf(stderr, "The history costs too much: %.2f by the clock, %.2f of processor\n",
                     median(clock), median(processor));
}
BENCHMARK(historyOfASynchronisation)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(pairs);

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return isMissed ? EXIT_FAILURE : EXIT_SUCCESS;
}
