// How long indexing a memory takes, held against bare loops over the same files in the same run.
//
//   bench_index [--songs=20000] [--small=5000] [--large=60000] [--rounds=5] [--folder=DIR]
//
// The songs are made below DIR (by default the folder for temporary files): 60 % MIDI, 30 % MP3 and
// 10 % MFX. Besides Google Benchmark's own table it prints the ratios and the peak memory. It fails
// when a limit is missed in processor time or, in each round, in real time: run it on a machine
// that does nothing else.
#include "benchmarks/besttimes.h"
#include "benchmarks/peakmemory.h"
#include "benchmarks/songtree.h"
#include "devindex/index.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

constexpr int headSize = 3072;

/** The least that reading every song's head can take: system calls, no Qt. */
qint64 bareRead(const std::string &root)
{
    qint64 sum = 0;
    std::array<char, headSize> head{};
    for (const auto &item : std::filesystem::recursive_directory_iterator(root)) {
        if (!item.is_regular_file())
            continue;
        const int file = open(item.path().c_str(), O_RDONLY | O_CLOEXEC);
        sum += read(file, head.data(), head.size());
        close(file);
    }
    return sum;
}

/** The least that looking at every song's time of change can take. */
qint64 bareStat(const std::string &root)
{
    qint64 sum = 0;
    for (const auto &item : std::filesystem::recursive_directory_iterator(root)) {
        struct stat status {
        };
        if (stat(item.path().c_str(), &status) == 0)
            sum += status.st_mtime;
    }
    return sum;
}

void require(bool ok, const char *what)
{
    if (!ok)
        qFatal("%s failed", what);
}

void create(const QString &root)
{
    require(Index().createIndex(root), "createIndex");
}

void update(const QString &root)
{
    Index index;
    require(index.updateIndex(root) && index.indexChanged == 0, "updateIndex");
}

void load(const QString &root)
{
    Index index;
    index.rootPath = root;
    require(index.loadAllIndexFile() == 0, "loadAllIndexFile");
}

void exportList(const QString &root, const QString &file)
{
    require(Index().saveSongsList(root, file, Index::SortByArtist) == 1, "saveSongsList");
}

template <typename Job>
void add(const std::string &name, Job job)
{
    benchmark::RegisterBenchmark(name.c_str(),
                                 [job](benchmark::State &state) {
                                     for ([[maybe_unused]] auto _ : state)
                                         job();
                                 })
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

/** Builds an index in a process of its own, so that nothing else counts. */
double peakMemoryOfIndexing(const QString &root)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--index-once"), root});
    require(child.waitForFinished(-1) && child.exitCode() == 0, "indexing in a process of its own");
    return child.readAllStandardOutput().toDouble();
}

void dropMessages(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

int option(const QCommandLineParser &parser, const char *name)
{
    return parser.value(QString::fromUtf8(name)).toInt();
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    qInstallMessageHandler(dropMessages);

    QCommandLineParser parser;
    parser.addHelpOption();
    const auto add_option = [&parser](const char *name, const QString &value) {
        parser.addOption({QString::fromUtf8(name), QString(), QStringLiteral("value"), value});
    };
    add_option("songs", QStringLiteral("20000"));
    add_option("small", QStringLiteral("5000"));
    add_option("large", QStringLiteral("60000"));
    add_option("rounds", QStringLiteral("5"));
    add_option("folder", QDir::tempPath());
    add_option("index-once", QString());
    add_option("update-once", QString());
    parser.process(application);

    if (parser.isSet(QStringLiteral("index-once"))) {
        create(parser.value(QStringLiteral("index-once")));
        std::printf("%.1f\n", peakMemory());
        return 0;
    }

    if (parser.isSet(QStringLiteral("update-once"))) { // for a profiler
        update(parser.value(QStringLiteral("update-once")));
        return 0;
    }

    const QString place = parser.value(QStringLiteral("folder"));
    const SongTree tree(place, option(parser, "songs"));
    const SongTree small(place, option(parser, "small"));
    const SongTree large(place, option(parser, "large"));
    const QTemporaryDir lists(place + QStringLiteral("/bench_index"));
    const QString list = lists.filePath(QStringLiteral("list.csv"));
    const std::string root = tree.root().toStdString();

    add("bare read", [&] { benchmark::DoNotOptimize(bareRead(root)); });
    add("create", [&] { create(tree.root()); });
    add("bare stat", [&] { benchmark::DoNotOptimize(bareStat(root)); });
    add("update", [&] { update(tree.root()); });
    add("load", [&] { load(tree.root()); });
    add("export", [&] { exportList(tree.root(), list); });
    add("create small", [&] { create(small.root()); });
    add("create large", [&] { create(large.root()); });
    add("update small", [&] { update(small.root()); });
    add("update large", [&] { update(large.root()); });

    // Round by round, so that whatever else the machine does meets all of them alike.
    BestTimes times;
    for (int round = 0; round < option(parser, "rounds"); ++round)
        benchmark::RunSpecifiedBenchmarks(&times);

    std::printf("\n");
    const double sizes = double(large.songs()) / small.songs();
    const std::array held{
        times.printRatio("create / bare read of the heads", "create", "bare read", 2.0),
        times.printRatio("update of an unchanged memory / bare stat", "update", "bare stat", 1.6),
        times.printRatio("export / load", "export", "load", 3.0),
        times.printRatio("create, by song: large / small", "create large", "create small", 1.3,
                         sizes),
        times.printRatio("update, by song: large / small", "update large", "update small", 1.3,
                         sizes)};
    const double peak = peakMemoryOfIndexing(large.root());
    std::printf("peak memory of indexing %d songs: %.1f MB (limit 60) %s\n", large.songs(), peak,
                peak < 60 ? "ok" : "TOO MUCH");
    const bool allHeld = std::all_of(held.begin(), held.end(), [](bool isHeld) { return isHeld; });
    return allHeld && peak < 60 && !times.hasFailed() ? 0 : 1;
}
