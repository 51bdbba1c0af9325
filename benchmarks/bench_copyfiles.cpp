// Copying songs beside "cp" and "sync -f" of the same files in the same run: a library of small
// MIDI files and some MP3s, from the page cache, to the medium. "ratio" is the median of the one by
// the median of the other.
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
#include <cstdlib>

namespace
{

constexpr int midiFiles = 1200;
constexpr int mp3Files = 8;

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

double timeOfCp(benchmark::State &state)
{
    const QString dest = songs().emptyDest();
    const double time = milliseconds([&] {
        if (QProcess::execute(QStringLiteral("cp"), songs().files() + QStringList(dest)) != 0 ||
            QProcess::execute(QStringLiteral("sync"), {QStringLiteral("-f"), dest}) != 0)
            state.SkipWithError("cp failed");
    });
    if (!songs().arrivedIn(dest))
        state.SkipWithError("cp lost a song");
    return time;
}

/** With the progress window on screen, as in the program. */
double timeOfCopyFiles(benchmark::State &state)
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
    const double time = milliseconds([&] {
        int copied = 0;
        if (!copier.copyFiles(songs().files(), dest, copied, progress))
            state.SkipWithError("copyFiles failed");
    });
    if (!songs().arrivedIn(dest))
        state.SkipWithError("copyFiles lost a song");
    return time;
}

/**
 * Each round times both, so that a busy machine slows both alike; they take turns in going first,
 * because the second one meets the disk still busy with what the first has written.
 */
void copyFilesBesideCp(benchmark::State &state)
{
    QList<double> cp;
    QList<double> copyFiles;
    for (auto _ : state) {
        const bool cpFirst = cp.size() % 2 == 0;
        if (cpFirst)
            cp.append(timeOfCp(state));
        copyFiles.append(timeOfCopyFiles(state));
        if (!cpFirst)
            cp.append(timeOfCp(state));
        state.SetIterationTime(copyFiles.constLast() / 1e3);
    }
    state.SetBytesProcessed(state.iterations() * songs().bytes());
    state.counters["cp_ms"] = median(cp);
    state.counters["copyFiles_ms"] = median(copyFiles);
    state.counters["ratio"] = median(copyFiles) / median(cp);
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
    return EXIT_SUCCESS;
}
