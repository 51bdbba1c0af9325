// The table of the user's songs at 10,000 rows, with the view shown, and the catalogue's lookups
// over 10,000 rows. The targets: all rows added within 1 s; all rows rewritten and coloured within
// 3 s; 3,000 lookups a second. It fails when one is missed.
#include "benchmarks/besttimes.h"
#include "library/database.h"
#include "support/debugcatalogue.h"
#include "support/scratchfolder.h"
#include "windows/statusrowdelegate.h"
#include "windows/usersongsreltablemodel.h"

#include <QApplication>
#include <QTableView>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <memory>

namespace
{
const int rows = 10000;

SongInfo song(int number)
{
    SongInfo info;
    info.format = QStringLiteral("MIDI");
    info.title = QStringLiteral("Song title %1").arg(number);
    info.artist = QStringLiteral("Artist %1").arg(number % 700);
    info.genre = QStringLiteral("POP");
    info.author = QStringLiteral("Composer - Lyricist");
    info.length = 60 + number % 500;
    info.userBpm = 120;
    info.key = QStringLiteral("F#-");
    info.shortName = QStringLiteral("song%1.mid").arg(number);
    info.fileName = QStringLiteral("/home/user/music/") + info.shortName;
    return info;
}

/** The library as the main window shows it. */
struct ShownLibrary {
    ShownLibrary()
    {
        database.init();
        model = std::make_unique<UserSongsRelTableModel>(nullptr, database.userLibraryDb());
        view.setSortingEnabled(true);
        view.setModel(model.get());
        view.setItemDelegate(
            new StatusRowDelegate(model->colIdxStatus(), model->colIdxType(), &view));
        view.resize(1000, 700);
        view.show();
        QCoreApplication::processEvents();
    }

    void addAll()
    {
        for (int i = 0; i < rows; ++i)
            model->addSong(song(i));
    }

    Database database;
    std::unique_ptr<UserSongsRelTableModel> model;
    QTableView view;
};

void addSongs(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        ShownLibrary library;
        state.ResumeTiming();
        library.addAll();
        QCoreApplication::processEvents();
        state.PauseTiming();
        if (library.model->goodRowCount() != rows)
            state.SkipWithError("rows are missing");
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(addSongs)->Unit(benchmark::kMillisecond);

/** As the synchronisation does: after each row the events are processed. */
void updateRowsAndSetStatus(benchmark::State &state)
{
    ShownLibrary library;
    library.addAll();
    library.model->sort(library.model->fieldIndex(QStringLiteral("title")), Qt::AscendingOrder);
    int round = 0;
    for (auto _ : state) {
        ++round;
        for (int row = 0; row < rows; ++row) {
            library.model->updateRow(row, song(row + round));
            library.model->setStatus(row, Database::StatusSynced);
            QCoreApplication::processEvents();
        }
    }
    if (library.model->status(rows - 1) != Database::StatusSynced)
        state.SkipWithError("the last row was not written");
    state.SetItemsProcessed(state.iterations() * rows);
}
BENCHMARK(updateRowsAndSetStatus)->Unit(benchmark::kMillisecond);

void sortByTitle(benchmark::State &state)
{
    ShownLibrary library;
    library.addAll();
    const int title = library.model->fieldIndex(QStringLiteral("title"));
    Qt::SortOrder order = Qt::DescendingOrder;
    for (auto _ : state) {
        order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
        library.model->sort(title, order);
    }
}
BENCHMARK(sortByTitle)->Unit(benchmark::kMillisecond);

/** Half of the lookups find a song. */
template <typename Lookup>
void lookUp(benchmark::State &state, const QString &pattern, int width, Lookup lookup)
{
    const ScratchFolder folder;
    debugcatalogue::createMany(rows);
    Database database;
    database.init();
    int number = 0;
    int found = 0;
    for (auto _ : state) {
        number = (number + 7919) % (2 * rows);
        SongsDbRecord record;
        found +=
            (database.*lookup)(pattern.arg(number, width, 10, QLatin1Char('0')), record) ? 1 : 0;
    }
    if (found == 0)
        state.SkipWithError("nothing was found");
    state.SetItemsProcessed(state.iterations());
}

void lookUpByFilename(benchmark::State &state)
{
    lookUp(state, QStringLiteral("SNG%1"), 5, &Database::getRecordByFilename);
}
BENCHMARK(lookUpByFilename);

void lookUpByTitle(benchmark::State &state)
{
    lookUp(state, QStringLiteral("SONG TITLE %1"), 0, &Database::getRecordByTitle);
}
BENCHMARK(lookUpByTitle);

/** What the start of the program pays for the catalogue. */
void openCatalogue(benchmark::State &state)
{
    const ScratchFolder folder;
    debugcatalogue::createMany(rows);
    for (auto _ : state) {
        Database database;
        if (!database.init() || database.artistsList().isEmpty())
            state.SkipWithError("the catalogue did not open");
    }
}
BENCHMARK(openCatalogue)->Unit(benchmark::kMillisecond);
} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    BestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    const std::array held{
        !times.hasFailed(), times.printTime("all rows added", "addSongs", 1.0),
        times.printTime("all rows rewritten and coloured", "updateRowsAndSetStatus", 3.0),
        times.printTime("one lookup by file name", "lookUpByFilename", 1.0 / 3000),
        times.printTime("one lookup by title", "lookUpByTitle", 1.0 / 3000)};
    return std::all_of(held.begin(), held.end(), [](bool isHeld) { return isHeld; }) ? 0 : 1;
}
