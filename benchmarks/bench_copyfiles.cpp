// Copying songs beside "cp" and "sync -f" of the same files in the same run: a library of small
// MIDI files and some MP3s, from the page cache, to the medium. Fails when the median of the one is
// above the limit times the median of the other in real time. Processor time is shown beside it: it
// tells what the machine's other work does to the figures.
#include "devindex/filecopier.h"
#include "windows/shownprogress.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>

namespace
{

constexpr int midiFiles = 1200;
constexpr int mp3Files = 8;
constexpr double limit = 1.15;

bool limitHeld = false; ///< set by a run to its end

class Songs
{
public:
    Songs()
    {
        QRandomGenerator random(1);
        for (int i = 0; i < midiFiles; ++i)
            add(QStringLiteral("song%1.mid").arg(i), random.bounded(5000, 80000));
        for (int i = 0; i < mp3Files; ++i)
            add(QStringLiteral("track%1.mp3").arg(i), 5000000);
    }

    const QStringList &files() const { return m_files; }
    qint64 bytes() const { return m_bytes; }

    /** A new, empty folder on the same file system. */
    QString emptyDest()
    {
        const QString dest = m_folder.filePath(QStringLiteral("dest"));
        QDir(dest).removeRecursively();
        if (!QDir().mkdir(dest))
            qFatal("Cannot make the destination");
        return dest;
    }

    bool arrivedIn(const QString &dest) const
    {
        for (const QString &source : m_files) {
            const QFileInfo target(QDir(dest), QFileInfo(source).fileName());
            if (target.size() != QFileInfo(source).size())
                return false;
        }
        return true;
    }

private:
    void add(const QString &name, int size)
    {
        QFile file(m_folder.filePath(name));
        const QByteArray bytes(size, static_cast<char>(m_files.size()));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != size)
            qFatal("Cannot write the songs");
        m_files.append(file.fileName());
        m_bytes += size;
    }

    QTemporaryDir m_folder;
    QStringList m_files;
    qint64 m_bytes = 0;
};

Songs &songs()
{
    static Songs all;
    return all;
}

/** Of this process and of those that it has started and waited for, in milliseconds. */
double processorMilliseconds()
{
    double sum = 0;
    for (const auto who : {RUSAGE_SELF, RUSAGE_CHILDREN}) {
        rusage usage = {};
        getrusage(who, &usage);
        for (const timeval &time : {usage.ru_utime, usage.ru_stime})
            sum +=
                1e3 * static_cast<double>(time.tv_sec) + 1e-3 * static_cast<double>(time.tv_usec);
    }
    return sum;
}

struct Times {
    QList<double> real; ///< in milliseconds, as the other
    QList<double> processor;

    template <typename Work>
    void measure(const Work &work)
    {
        QElapsedTimer timer;
        timer.start();
        const double before = processorMilliseconds();
        work();
        processor.append(processorMilliseconds() - before);
        real.append(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
};

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

void measureCp(benchmark::State &state, Times &times)
{
    const QString dest = songs().emptyDest();
    times.measure([&] {
        if (QProcess::execute(QStringLiteral("cp"), songs().files() + QStringList(dest)) != 0 ||
            QProcess::execute(QStringLiteral("sync"), {QStringLiteral("-f"), dest}) != 0)
            state.SkipWithError("cp failed");
    });
    if (!songs().arrivedIn(dest))
        state.SkipWithError("cp lost a song");
}

/** With the progress window on screen, as in the program. */
void measureCopyFiles(benchmark::State &state, Times &times)
{
    const QString dest = songs().emptyDest();
    QWidget window;
    window.show();
    Progress *shown = nullptr;
    ShownProgress progress(shown, QStringLiteral("Trasferimento"),
                           QStringLiteral("Trasferimento file..."),
                           static_cast<int>(songs().files().size()), &window);
    QCoreApplication::processEvents();
    FileCopier copier([](const QString &) { return Answer::Yes; });
    times.measure([&] {
        int copied = 0;
        if (!copier.copyFiles(songs().files(), dest, copied, progress))
            state.SkipWithError("copyFiles failed");
    });
    if (!songs().arrivedIn(dest))
        state.SkipWithError("copyFiles lost a song");
}

/**
 * Each round times both, so that a busy machine slows both alike; they take turns in going first,
 * because the second one meets the disk still busy with what the first has written.
 */
void copyFilesBesideCp(benchmark::State &state)
{
    Times cp;
    Times copyFiles;
    for (auto _ : state) {
        const bool cpFirst = cp.real.size() % 2 == 0;
        if (cpFirst)
            measureCp(state, cp);
        measureCopyFiles(state, copyFiles);
        if (!cpFirst)
            measureCp(state, cp);
        state.SetIterationTime(copyFiles.real.constLast() / 1e3);
    }
    state.SetBytesProcessed(state.iterations() * songs().bytes());
    state.counters["cp_ms"] = median(cp.real);
    state.counters["copyFiles_ms"] = median(copyFiles.real);
    const double ratio = median(copyFiles.real) / median(cp.real);
    state.counters["ratio"] = ratio;
    state.counters["processor_ratio"] = median(copyFiles.processor) / median(cp.processor);
    limitHeld = ratio <= limit;
}
BENCHMARK(copyFilesBesideCp)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    // The log is off, as it is for users; what is not shown costs no time.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::printf("copyFiles / cp and sync -f (limit %.2f) %s\n", limit,
                limitHeld ? "ok" : "TOO SLOW");
    return limitHeld ? EXIT_SUCCESS : EXIT_FAILURE;
}
