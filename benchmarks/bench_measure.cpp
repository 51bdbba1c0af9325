// Measuring 5,000 MIDI files beside reading them, each of the two in every round: "ratio" is the
// one by the other, and is to stay below 4. Reading is what the program does to load a song; what
// it takes to get the bytes of the files and no more is shown as well.
//
//   bench_measure [--songs=5000] [--rounds=5] [--folder=DIR]
#include "formats/metasong.h"
#include "support/songbytes.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace
{

constexpr double limit = 4.0;

/** Notes of a few instruments, with changes of tempo and places that are marked. */
QByteArray midiBytes(QRandomGenerator &random)
{
    using namespace songbytes;
    QByteArray conductor = metaEvent(0x03, "A song without a name");
    for (int section = 0; section < 8; ++section)
        conductor += "\x8C" + metaEvent(0x51, bigEndian(400000 + random.bounded(200000), 3)) +
                     metaEvent(0x06, "Section " + QByteArray::number(section));
    QList<QByteArray> tracks{track(conductor)};
    for (int channel = 0; channel < 8; ++channel) {
        QByteArray notes;
        const char on = static_cast<char>(0x90 | channel);
        const char off = static_cast<char>(0x80 | channel);
        const int count = random.bounded(150, 800);
        for (int note = 0; note < count; ++note) {
            const char key = static_cast<char>(48 + random.bounded(24));
            const char events[] = {0x18, on, key, 0x64, 0x18, off, key, 0x40};
            notes.append(events, sizeof events);
        }
        tracks.append(track(notes));
    }
    return midiFile(tracks, 1);
}

QStringList writeSongs(const QString &folder, int songs)
{
    QRandomGenerator random(1);
    QStringList paths;
    for (int song = 0; song < songs; ++song) {
        paths.append(QStringLiteral("%1/%2.mid").arg(folder).arg(song));
        QFile file(paths.constLast());
        const QByteArray bytes = midiBytes(random);
        if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
            qFatal("cannot make the songs: is the disk full?");
    }
    return paths;
}

/** Milliseconds for all files. */
template <typename Job>
double milliseconds(const QStringList &paths, Job job)
{
    QElapsedTimer timer;
    timer.start();
    for (const QString &path : paths)
        job(path);
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void read(const QString &path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly) || file.readAll().isEmpty())
        qFatal("a song cannot be read");
}

void load(const QString &path)
{
    MetaSong song;
    if (!song.importFile(path))
        qFatal("a song cannot be loaded");
}

void measure(const QString &path)
{
    MetaSong song;
    if (!song.importFile(path) || song.measure().length <= 0)
        qFatal("a song cannot be measured");
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("songs"), {}, QStringLiteral("n"), QStringLiteral("5000")});
    parser.addOption({QStringLiteral("rounds"), {}, QStringLiteral("n"), QStringLiteral("5")});
    parser.addOption({QStringLiteral("folder"), {}, QStringLiteral("dir"), QDir::tempPath()});
    parser.process(application);
    const QTemporaryDir folder(parser.value(QStringLiteral("folder")) +
                               QStringLiteral("/bench_measure"));
    const QStringList paths =
        writeSongs(folder.path(), parser.value(QStringLiteral("songs")).toInt());
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &, const QString &message) {
        if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(message));
    });
    double best = -1;
    for (int round = 0; round < parser.value(QStringLiteral("rounds")).toInt(); ++round) {
        const double reading = milliseconds(paths, read);
        const double loading = milliseconds(paths, load);
        const double measuring = milliseconds(paths, measure);
        std::printf("bytes %7.1f ms, reading %7.1f ms, measuring %7.1f ms, ratio %.2f\n", reading,
                    loading, measuring, measuring / loading);
        best = best < 0 ? measuring / loading : std::min(best, measuring / loading);
    }
    const bool isQuick = best >= 0 && best < limit;
    std::printf("%lld songs measured in %.2f times the time of reading them (limit %.0f) %s\n",
                static_cast<long long>(paths.size()), best, limit, isQuick ? "ok" : "TOO SLOW");
    return isQuick ? 0 : 1;
}
