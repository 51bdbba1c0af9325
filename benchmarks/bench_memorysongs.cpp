// How long it takes until all songs of a full memory can be shown, with and without changes since
// its index was made.
//
//   bench_memorysongs [--songs=65535] [--rounds=5] [--folder=DIR]
//
// Fails when the best round takes longer than a second.
#include "benchmarks/songtree.h"
#include "devindex/index.h"
#include "devindex/memoryduplicates.h"
#include "devindex/memorysongs.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>

namespace
{

constexpr double limitMilliseconds = 1000;

class NoProgress : public Progress
{
public:
    void setMaximum(int) override {}
    void setValue(int) override {}
    void updateProgress(int) override {}
    bool wasCanceled() const override { return false; }
};

template <typename Job>
double bestMilliseconds(int rounds, Job job)
{
    double best = -1;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        job();
        const double taken = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        best = best < 0 ? taken : std::min(best, taken);
    }
    return best;
}

/** Prints the time; false when it is too long. */
bool judge(const char *what, double milliseconds)
{
    const bool isQuick = milliseconds <= limitMilliseconds;
    std::printf("%-44s %8.1f ms (limit %.0f) %s\n", what, milliseconds, limitMilliseconds,
                isQuick ? "ok" : "TOO SLOW");
    return isQuick;
}

void readAll(MemorySongs &songs, int expected)
{
    NoProgress progress;
    if (songs.read(progress) != MemorySongs::Outcome::Done || songs.songs().size() != expected)
        qFatal("not all songs were read");
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("songs"), {}, QStringLiteral("n"), QStringLiteral("65535")});
    parser.addOption({QStringLiteral("rounds"), {}, QStringLiteral("n"), QStringLiteral("5")});
    parser.addOption({QStringLiteral("folder"), {}, QStringLiteral("dir"), QDir::tempPath()});
    parser.process(application);
    const int rounds = parser.value(QStringLiteral("rounds")).toInt();
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &message) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(message));
    });

    const SongTree tree(parser.value(QStringLiteral("folder")),
                        parser.value(QStringLiteral("songs")).toInt());
    MemorySongs songs(tree.root());
    std::printf("songs: %d\n", tree.songs());
    const double withoutIndex = bestMilliseconds(1, [&] { readAll(songs, tree.songs()); });
    std::printf("%-44s %8.1f ms (each song's head is read)\n", "open, without an index",
                withoutIndex);
    if (!Index().createIndex(tree.root()))
        qFatal("createIndex failed");
    bool isQuick = judge("open", bestMilliseconds(rounds, [&] { readAll(songs, tree.songs()); }));
    qsizetype groups = 0;
    isQuick =
        judge("same title and artist",
              bestMilliseconds(
                  rounds, [&] { groups = memoryduplicates::sameTitle(songs.songs()).size(); })) &&
        isQuick;
    std::printf("groups with one title and artist: %lld\n", static_cast<long long>(groups));
    return isQuick ? 0 : 1;
}
