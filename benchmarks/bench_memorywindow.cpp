// How long it takes until the memory window shows all songs of a full memory, and to narrow and to
// sort them, measured through the window and its table.
//
//   bench_memorywindow [--songs=65535] [--rounds=5] [--folder=DIR]
//
// Fails when the best round of opening takes longer than a second, or the best one of any key
// longer than 50 ms. The time that the processor needed stands beside the time on the clock.
#include "benchmarks/songtree.h"
#include "devindex/index.h"
#include "support/ownfolders.h"
#include "windows/memorywindow.h"
#include "windows/shownprogress.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace
{

constexpr double openLimit = 1000;
constexpr double keyLimit = 50;

struct Times {
    double clock = -1;
    double processor = -1;
};

double processorMilliseconds()
{
    return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

template <typename Job>
Times best(int rounds, Job job)
{
    Times least;
    for (int round = 0; round < rounds; ++round) {
        const double before = processorMilliseconds();
        QElapsedTimer timer;
        timer.start();
        job(round);
        QCoreApplication::processEvents(); // what is painted belongs to it
        const double clock = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        const double processor = processorMilliseconds() - before;
        least.clock = least.clock < 0 ? clock : std::min(least.clock, clock);
        least.processor = least.processor < 0 ? processor : std::min(least.processor, processor);
    }
    return least;
}

bool judge(const char *what, const Times &times, double limit)
{
    const bool isQuick = times.clock <= limit;
    std::printf("%-36s %8.1f ms, processor %8.1f ms (limit %.0f) %s\n", what, times.clock,
                times.processor, limit, isQuick ? "ok" : "TOO SLOW");
    return isQuick;
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const OwnSettings ownSettings;
    const QApplication application(argc, argv);
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
    if (!Index().createIndex(tree.root()))
        qFatal("createIndex failed");
    std::printf("songs: %d\n", tree.songs());

    MemoryWindow window;
    window.show();
    auto *const table = window.findChild<QTableView *>(QStringLiteral("songsTableView"));
    auto *const filter = window.findChild<QLineEdit *>(QStringLiteral("filterLineEdit"));
    const auto open = [&](int) {
        NoProgress progress;
        const auto contents = std::make_shared<MemoryContents>(tree.root());
        if (!contents->read(progress).isEmpty())
            qFatal("the memory was not read");
        window.setContents(contents);
        if (table->model()->rowCount() != tree.songs())
            qFatal("not all songs are shown");
    };
    bool isQuick = judge("open", best(rounds, open), openLimit);

    // Each round narrows key by key from all songs to a few and widens back. The best round counts
    // for each of the keys, and the slowest of them for the limit.
    const QString typed = QStringLiteral("song 1234");
    const auto slowestKey = [&](const auto &prepare) {
        Times slowest;
        for (qsizetype step = 0; step < 2 * typed.size(); ++step) {
            const auto shownAfter = [&typed](qsizetype keys) {
                return typed.left(keys <= typed.size() ? keys : 2 * typed.size() - keys);
            };
            Times least;
            for (int round = 0; round < rounds; ++round) {
                filter->setText(shownAfter(step));
                prepare();
                QCoreApplication::processEvents();
                const Times key = best(1, [&](int) { filter->setText(shownAfter(step + 1)); });
                if (round == 0 || key.clock < least.clock)
                    least = key;
            }
            if (least.clock > slowest.clock)
                slowest = least;
        }
        filter->clear();
        return slowest;
    };
    isQuick = judge("a key of the filter, slowest", slowestKey([] {}), keyLimit) && isQuick;
    isQuick = judge("the same while all are selected", slowestKey([table] { table->selectAll(); }),
                    keyLimit) &&
              isQuick;
    const Times sorting = best(rounds, [&](int round) {
        table->horizontalHeader()->setSortIndicator(round % 2, Qt::DescendingOrder);
    });
    std::printf("%-36s %8.1f ms, processor %8.1f ms\n", "sort", sorting.clock, sorting.processor);
    return isQuick ? 0 : 1;
}
