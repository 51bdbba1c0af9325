// Synchronising a library beside a bare loop that imports and saves the same files, in the same
// run: 2,000 songs of which the catalogue of 10,000 rows knows every other one. The table is shown
// and the progress window is on screen, as in the program. "ratio" is the median of the one by the
// median of the other; it fails when that is 2.5 or more.
#include "benchmarks/besttimes.h"
#include "formats/metasong.h"
#include "library/answer.h"
#include "library/database.h"
#include "library/synchronisation.h"
#include "support/catalogue.h"
#include "support/songbytes.h"
#include "windows/progresswindow.h"
#include "windows/usersongsreltablemodel.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTableView>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>

namespace
{

constexpr int songs = 2000;
constexpr int catalogueRows = 10000;
constexpr int mp3Every = 20;
constexpr int mp3Bytes = 300000;

QString key(int number)
{
    return QStringLiteral("SNG%1").arg(number, 5, 10, QLatin1Char('0'));
}

bool isMp3(int song)
{
    return song % mp3Every == 0;
}

/** Every other song has a name that stands in the catalogue. */
QString songName(int song)
{
    const QString name = song % 2 == 0 ? key(song * (catalogueRows / songs)) : key(-song);
    return name.toLower() + (isMp3(song) ? QStringLiteral(".mp3") : QStringLiteral(".mid"));
}

QByteArray randomBytes(QRandomGenerator &random, int size)
{
    QByteArray bytes(size, '\0');
    std::generate(bytes.begin(), bytes.end(),
                  [&random] { return static_cast<char>(random.bounded(0x80)); });
    return bytes;
}

QByteArray songBytes(int song, QRandomGenerator &random)
{
    using namespace songbytes;
    if (isMp3(song))
        return id3Tag(id3Frame("TCOP", "K-Ravo")) + randomBytes(random, mp3Bytes);
    return midiFile({track(metaEvent(0x02, "(c) K-Ravo") + metaEvent(0x03, "Song without a name")),
                     track(randomBytes(random, random.bounded(10000, 60000)))},
                    1);
}

QList<catalogue::Row> catalogueContent()
{
    QList<catalogue::Row> rows;
    for (int i = 0; i < catalogueRows; ++i) {
        catalogue::Row row;
        row.filename = key(i);
        row.title = QStringLiteral("TITLE OF SONG %1").arg(i);
        row.artist = QStringLiteral("SURNAME NAME %1").arg(i % 700);
        row.altartist = QStringLiteral("NAME SURNAME %1").arg(i % 700);
        row.genre = QStringLiteral("GENRE %1").arg(i % 20);
        row.author = QStringLiteral("AUTHOR %1").arg(i % 900);
        row.length = 60 + i % 400;
        row.bpm = 60 + i % 120;
        row.key = QStringLiteral("A -");
        row.markers = QStringLiteral("1;Intro;9;Verse1;25;Chorus;");
        rows.append(row);
    }
    return rows;
}

/** The songs in a folder, which is the working directory, with the catalogue beside them. */
class Library
{
public:
    Library()
    {
        QDir::setCurrent(m_folder.path());
        if (!catalogue::write(catalogue::overrideFile, catalogueContent()) || !m_database.init())
            qFatal("Cannot make the catalogue");
        QRandomGenerator random(1);
        for (int i = 0; i < songs; ++i) {
            m_paths.append(m_folder.filePath(songName(i)));
            m_bytes.append(songBytes(i, random));
        }
    }

    const QStringList &paths() const { return m_paths; }
    const Database &database() const { return m_database; }

    /** Puts all files back to what they were. */
    void restoreFiles() const
    {
        for (int i = 0; i < songs; ++i) {
            QFile file(m_paths.at(i));
            if (!file.open(QIODevice::WriteOnly) ||
                file.write(m_bytes.at(i)) != m_bytes.at(i).size())
                qFatal("Cannot write the songs");
        }
    }

    /** A new table with a row for each song. */
    std::unique_ptr<UserSongsRelTableModel> table()
    {
        m_database.clearUserLibraryDb();
        auto model = std::make_unique<UserSongsRelTableModel>(nullptr, m_database.userLibraryDb());
        for (const QString &path : m_paths) {
            SongInfo info;
            info.title = QStringLiteral("Song without a name");
            info.fileName = path;
            info.shortName = path.section(QLatin1Char('/'), -1);
            if (!model->addSong(info))
                qFatal("Cannot fill the table");
        }
        return model;
    }

private:
    QTemporaryDir m_folder;
    Database m_database;
    QStringList m_paths;
    QList<QByteArray> m_bytes;
};

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

double timeOfBareLoop(const Library &library, benchmark::State &state)
{
    library.restoreFiles();
    return milliseconds([&] {
        for (const QString &path : library.paths()) {
            MetaSong song;
            if (!song.importFile(path) || !song.saveToFile(path))
                state.SkipWithError("The bare loop failed");
        }
    });
}

double timeOfSynchronisation(Library &library, benchmark::State &state)
{
    library.restoreFiles();
    const auto model = library.table();
    QTableView view;
    view.setModel(model.get());
    view.resize(900, 600);
    view.show();
    QCoreApplication::processEvents();
    Synchronisation synchronisation(
        library.database(), *model, [] { return true; },
        [](const QString &) { return Answer::Yes; },
        [&view](const QString &title, const QString &label, int maximum) {
            return std::make_unique<ProgressWindow>(title, label, maximum, &view);
        });
    const double time = milliseconds([&] {
        if (!synchronisation.run(false))
            state.SkipWithError("The synchronisation failed");
    });
    int synced = 0;
    for (int row = 0; row < songs; ++row)
        synced += model->status(row) == Database::StatusSynced ? 1 : 0;
    if (synced != songs / 2)
        state.SkipWithError("Not just every other song was found");
    return time;
}

constexpr double limit = 2.5;
double measuredRatio = 0; ///< 0 while nothing was measured

/** Each round times both, one after the other, so that a busy machine slows both alike. */
void synchronisationBesideABareLoop(benchmark::State &state)
{
    Library library;
    QList<double> bare;
    QList<double> synchronisation;
    for (auto _ : state) {
        bare.append(timeOfBareLoop(library, state));
        synchronisation.append(timeOfSynchronisation(library, state));
        state.SetIterationTime(synchronisation.constLast() / 1e3);
    }
    state.SetItemsProcessed(state.iterations() * songs);
    state.counters["bare_ms"] = median(bare);
    state.counters["synchronisation_ms"] = median(synchronisation);
    measuredRatio = median(synchronisation) / median(bare);
    state.counters["ratio"] = measuredRatio;
}
BENCHMARK(synchronisationBesideABareLoop)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(5);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    // The log is off, as it is for users.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    benchmark::Initialize(&argc, argv);
    BestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    const bool isHeld = !times.hasFailed() && measuredRatio > 0 && measuredRatio < limit;
    std::printf("synchronisation / bare loop (limit %.2f) %.2f %s\n", limit, measuredRatio,
                isHeld ? "ok" : "TOO SLOW");
    return isHeld ? EXIT_SUCCESS : EXIT_FAILURE;
}
