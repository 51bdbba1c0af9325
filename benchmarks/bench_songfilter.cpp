// What surrounds the list at 10,000 songs: adding them to the window with its status bar and with a
// filter, and narrowing the list by one more key. The targets: adding them takes at most 1.5 times
// as long as in a bare view, one key at most 100 ms. It fails when one is missed.
#include "app/mainwindow.h"
#include "app/messagehandler.h"
#include "benchmarks/besttimes.h"
#include "library/database.h"
#include "support/ownfolders.h"
#include "windows/statusrowdelegate.h"
#include "windows/usersongsreltablemodel.h"

#include <QApplication>
#include <QLineEdit>
#include <QTableView>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <memory>

namespace
{

constexpr int songs = 10000;

void addAllTo(UserSongsRelTableModel &model)
{
    for (int i = 0; i < songs; ++i) {
        SongInfo info;
        info.title = QStringLiteral("Song title %1").arg(i);
        info.artist = QStringLiteral("Artist %1").arg(i % 700);
        info.genre = QStringLiteral("POP");
        info.author = QStringLiteral("Composer - Lyricist");
        info.shortName = QStringLiteral("song%1.mid").arg(i);
        model.addSong(info);
    }
}

/** The table alone, as the window shows it. */
struct BareView {
    BareView()
    {
        database.init();
        model = std::make_unique<UserSongsRelTableModel>(nullptr, database.userLibraryDb());
        view.setSortingEnabled(true);
        view.setModel(model.get());
        view.setItemDelegate(
            new StatusRowDelegate(model->colIdxStatus(), model->colIdxType(), &view));
        view.resize(1000, 700);
        view.show();
    }

    Database database;
    std::unique_ptr<UserSongsRelTableModel> model;
    QTableView view;
};

struct Window {
    Window() { window.show(); }

    void addAll() const { addAllTo(*model); }

    MainWindow window;
    QTableView *const table =
        window.findChild<QTableView *>(QStringLiteral("userLibraryTableView"));
    QLineEdit *const field = window.findChild<QLineEdit *>(QStringLiteral("filterLineEdit"));
    UserSongsRelTableModel *const model = qobject_cast<UserSongsRelTableModel *>(table->model());
};

void addToABareView(benchmark::State &state)
{
    for (auto _ : state) {
        state.PauseTiming();
        const BareView shown;
        QCoreApplication::processEvents();
        state.ResumeTiming();
        addAllTo(*shown.model);
        QCoreApplication::processEvents();
        state.PauseTiming();
        if (shown.model->goodRowCount() != songs)
            state.SkipWithError("rows are missing");
        state.ResumeTiming();
    }
}
BENCHMARK(addToABareView)->Unit(benchmark::kMillisecond);

void addSongs(benchmark::State &state, const QString &filter)
{
    for (auto _ : state) {
        state.PauseTiming();
        const Window shown;
        shown.field->setText(filter);
        QCoreApplication::processEvents();
        state.ResumeTiming();
        shown.addAll();
        QCoreApplication::processEvents();
        state.PauseTiming();
        if (shown.table->isRowHidden(songs - 1) == filter.isEmpty())
            state.SkipWithError("the filter was not applied");
        state.ResumeTiming();
    }
}

void addToTheWindow(benchmark::State &state)
{
    addSongs(state, QString());
}
BENCHMARK(addToTheWindow)->Unit(benchmark::kMillisecond);

void addWhileFiltered(benchmark::State &state)
{
    addSongs(state, QStringLiteral("nothing holds this"));
}
BENCHMARK(addWhileFiltered)->Unit(benchmark::kMillisecond);

/** Almost all rows are hidden and shown in turn. */
void typeOneKey(benchmark::State &state)
{
    const Window shown;
    shown.addAll();
    QCoreApplication::processEvents();
    bool narrow = false;
    for (auto _ : state) {
        narrow = !narrow;
        shown.field->setText(narrow ? QStringLiteral("title 99") : QStringLiteral("title "));
        QCoreApplication::processEvents();
    }
}
BENCHMARK(typeOneKey)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const OwnSettings ownSettings;
    installSilentHandler();
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    constexpr int rounds = 3;
    BestTimes times;
    for (int round = 0; round < rounds; ++round)
        benchmark::RunSpecifiedBenchmarks(&times);
    const std::array held{
        !times.hasFailed(),
        times.printRatio("add to the window / to a bare view", "addToTheWindow", "addToABareView",
                         1.5),
        times.printRatio("the same with a filter", "addWhileFiltered", "addToABareView", 1.5),
        times.printTime("one key in the filter", "typeOneKey", 0.1)};
    return std::all_of(held.begin(), held.end(), [](bool isHeld) { return isHeld; }) ? 0 : 1;
}
