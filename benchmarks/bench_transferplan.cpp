// Planning a transfer of 3,000 songs onto a memory that holds them all, beside comparing the pairs
// in the same run: by a process of cmp for each, and by the least that any program has to do. Every
// third song has a shortened name there. The limit: at most 2 times as long as cmp.
#include "benchmarks/songtree.h"
#include "devindex/shortname.h"
#include "devindex/transferplanner.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace
{

constexpr int songs = 3000;
constexpr int mp3Files = 20;
constexpr double limit = 2;

class SilentProgress : public Progress
{
public:
    void setMaximum(int) override {}
    void setValue(int) override {}
    void updateProgress(int) override {}
    bool wasCanceled() const override { return false; }
};

/** A library, and a memory with the same songs. */
class Pairs
{
public:
    Pairs()
    {
        QDir().mkpath(card());
        SongTree::fill(library(), songs - mp3Files);
        for (int i = 0; i < mp3Files; ++i)
            write(library() + QStringLiteral("/track%1.mp3").arg(i),
                  QByteArray(4000000, static_cast<char>('a' + i)));
        QDirIterator files(library(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext())
            add(files.next());
        if (m_files.size() != songs)
            qFatal("not all songs could be made");
    }

    QString root() const { return m_folder.path() + QStringLiteral("/memory"); }
    QString card() const { return root() + QStringLiteral("/songs"); }
    const QStringList &files() const { return m_files; }
    const QList<std::pair<QByteArray, QByteArray>> &pairs() const { return m_pairs; }

private:
    QString library() const { return m_folder.path() + QStringLiteral("/library"); }

    void add(const QString &path)
    {
        QString source = path;
        QString target = card() + QLatin1Char('/') + QFileInfo(path).fileName();
        if (m_files.size() % 3 == 0) {
            source = QFileInfo(path).path() + QStringLiteral("/A long name %1.%2")
                                                  .arg(m_files.size())
                                                  .arg(QFileInfo(path).suffix());
            if (!QFile::rename(path, source))
                qFatal("cannot rename a song");
            // So many names do not fit into one folder.
            const QString folder =
                card() + QStringLiteral("/d%1").arg(m_files.size() / songsPerFolder);
            QDir().mkpath(folder);
            target = m_shortNames.candidateFor(
                QFileInfo(folder + QLatin1Char('/') + QFileInfo(source).fileName()));
        }
        if (!QFile::copy(source, target))
            qFatal("cannot fill the memory");
        m_files.append(source);
        m_pairs.append({QFile::encodeName(source), QFile::encodeName(target)});
    }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot make the songs: is the disk full?");
    }

    static constexpr int songsPerFolder = 900;

    QTemporaryDir m_folder;
    ShortNames m_shortNames;
    QStringList m_files;
    QList<std::pair<QByteArray, QByteArray>> m_pairs;
};

Pairs &pairs()
{
    static Pairs all;
    return all;
}

template <typename Work>
double milliseconds(const Work &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

double timeOfPlan(benchmark::State &state)
{
    return milliseconds([&] {
        SilentProgress progress;
        TransferPlanner planner(pairs().root(), pairs().card());
        const auto plan = planner.plan(pairs().files(), progress);
        const int there =
            plan->count(TransferPlan::State::Same) + plan->count(TransferPlan::State::Renamed);
        if (there != songs)
            state.SkipWithError("the plan misses songs that are there");
    });
}

double timeOfCmp(benchmark::State &state)
{
    QByteArray list;
    for (const auto &[first, second] : pairs().pairs())
        list += first + '\n' + second + '\n';
    return milliseconds([&] {
        QProcess shell;
        shell.start(QStringLiteral("sh"),
                    {QStringLiteral("-c"),
                     QStringLiteral("while read -r a && read -r b; do cmp -s \"$a\" \"$b\" || "
                                    "exit 1; done")});
        shell.write(list);
        shell.closeWriteChannel();
        if (!shell.waitForFinished(-1) || shell.exitCode() != 0)
            state.SkipWithError("cmp finds a difference");
    });
}

/** No more than the system calls of cmp and the comparison, in one process. */
double timeOfBareCompare(benchmark::State &state)
{
    static std::array<char, 262144> one{};
    static std::array<char, 262144> other{};
    return milliseconds([&] {
        for (const auto &[first, second] : pairs().pairs()) {
            const int a = open(first.constData(), O_RDONLY | O_CLOEXEC);
            const int b = open(second.constData(), O_RDONLY | O_CLOEXEC);
            for (ssize_t count = 1; count > 0;) {
                count = read(a, one.data(), one.size());
                if (read(b, other.data(), other.size()) != count ||
                    (count > 0 &&
                     std::memcmp(one.data(), other.data(), static_cast<std::size_t>(count)) != 0))
                    state.SkipWithError("the pairs differ");
            }
            close(a);
            close(b);
        }
    });
}

bool limitIsHeld = true;

void planBesideCmp(benchmark::State &state)
{
    QList<double> plan;
    QList<double> cmp;
    QList<double> bare;
    for (auto _ : state) {
        plan.append(timeOfPlan(state));
        cmp.append(timeOfCmp(state));
        bare.append(timeOfBareCompare(state));
        state.SetIterationTime(plan.constLast() / 1e3);
    }
    const double ratio = median(plan) / median(cmp);
    limitIsHeld = limitIsHeld && ratio <= limit;
    state.counters["plan_ms"] = median(plan);
    state.counters["cmp_ms"] = median(cmp);
    state.counters["bare_ms"] = median(bare);
    state.counters["ratio"] = ratio;
    state.counters["ratio_bare"] = median(plan) / median(bare);
}
BENCHMARK(planBesideCmp)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::printf("limit: ratio <= %.1f: %s\n", limit, limitIsHeld ? "held" : "MISSED");
    return limitIsHeld ? EXIT_SUCCESS : EXIT_FAILURE;
}
