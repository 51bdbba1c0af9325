// What surrounds the list at 10,000 songs: adding them to the window with its status bar and with a
// filter, and narrowing the list by one more key. The targets: adding them takes at most 1.5 times
// as long as in a bare view (see bench_librarytable), one key at most 100 ms.
#include "app/mainwindow.h"
#include "app/messagehandler.h"
#include "support/ownfolders.h"
#include "windows/usersongsreltablemodel.h"

#include <QApplication>
#include <QLineEdit>
#include <QTableView>

#include <benchmark/benchmark.h>

namespace
{

constexpr int songs = 10000;

struct Window {
    Window() { window.show(); }

    void addAll() const
    {
        for (int i = 0; i < songs; ++i) {
            SongInfo info;
            info.title = QStringLiteral("Song title %1").arg(i);
            info.artist = QStringLiteral("Artist %1").arg(i % 700);
            info.genre = QStringLiteral("POP");
            info.author = QStringLiteral("Composer - Lyricist");
            info.shortName = QStringLiteral("song%1.mid").arg(i);
            model->addSong(info);
        }
    }

    MainWindow window;
    QTableView *const table =
        window.findChild<QTableView *>(QStringLiteral("userLibraryTableView"));
    QLineEdit *const field = window.findChild<QLineEdit *>(QStringLiteral("filterLineEdit"));
    UserSongsRelTableModel *const model = qobject_cast<UserSongsRelTableModel *>(table->model());
};

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
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
