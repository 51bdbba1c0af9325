// The edit of several songs at 10,000 songs: the target is that all new values are on the screen
// within 1 s after a press of a key, whatever the steps, and the new names of the files likewise.
// It fails when one is missed.
#include "app/messagehandler.h"
#include "benchmarks/besttimes.h"
#include "support/ownfolders.h"
#include "windows/editseveraldialog.h"
#include "windows/renameseveraldialog.h"
#include "windows/severalsongsmodel.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QTreeWidget>

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>

namespace
{

constexpr int songs = 10000;

QList<SongInfo> manySongs()
{
    const std::array formats{QStringLiteral("MIDI"), QStringLiteral("MP3"), QStringLiteral("MF5")};
    QList<SongInfo> all;
    for (int i = 0; i < songs; ++i) {
        SongInfo info;
        info.format = formats[static_cast<size_t>(i) % formats.size()];
        info.fileName = QStringLiteral("/music/Artist %1 - Title %2.%3")
                            .arg(i % 700)
                            .arg(i)
                            .arg(info.format.toLower());
        info.title = QStringLiteral("song_title %1").arg(i);
        info.artist = QStringLiteral("Artist %1").arg(i % 700);
        info.genre = QStringLiteral("POP");
        info.author = QStringLiteral("Composer - Lyricist");
        info.length = 200;
        info.userBpm = 120;
        all.append(info);
    }
    return all;
}

/** The pattern gets one more character and loses it again; all songs change. */
void typeInPattern(benchmark::State &state)
{
    EditSeveralDialog dialog(manySongs(), OpenHistory());
    dialog.show();
    auto *const pattern = dialog.findChild<QComboBox *>(QStringLiteral("patternComboBox"));
    bool isLonger = false;
    for (auto _ : state) {
        isLonger = !isLonger;
        pattern->setEditText(isLonger ? QStringLiteral("%artist - Title%title")
                                      : QStringLiteral("%artist - %title"));
        QCoreApplication::processEvents();
    }
    if (dialog.model().preview().changed() != songs)
        state.SkipWithError("songs are missing");
}
BENCHMARK(typeInPattern)->Unit(benchmark::kMillisecond);

/** Five steps, the last of which is typed into. */
void typeInLastOfFiveSteps(benchmark::State &state)
{
    EditSeveralDialog dialog(manySongs(), OpenHistory());
    dialog.show();
    for (const auto kind : {EditStepForm::Kind::Strip, EditStepForm::Kind::LetterCase,
                            EditStepForm::Kind::Swap, EditStepForm::Kind::Replace})
        dialog.addStep(kind);
    QLineEdit *from = nullptr;
    const QList<EditStepForm *> forms = dialog.findChildren<EditStepForm *>();
    for (const EditStepForm *form : forms) {
        if (form->kind() == EditStepForm::Kind::Replace)
            from = form->findChild<QLineEdit *>(QStringLiteral("fromLineEdit"));
    }
    bool isLonger = false;
    for (auto _ : state) {
        isLonger = !isLonger;
        from->setText(isLonger ? QStringLiteral("it") : QStringLiteral("i"));
        QCoreApplication::processEvents();
    }
    if (dialog.model().preview().changed() != songs)
        state.SkipWithError("songs are missing");
}
BENCHMARK(typeInLastOfFiveSteps)->Unit(benchmark::kMillisecond);

void typeInNames(benchmark::State &state)
{
    RenameSeveralDialog dialog(manySongs(), OpenHistory());
    dialog.show();
    auto *const pattern = dialog.findChild<QComboBox *>(QStringLiteral("patternComboBox"));
    bool isLonger = false;
    for (auto _ : state) {
        isLonger = !isLonger;
        pattern->setEditText(isLonger ? QStringLiteral("%title x") : QStringLiteral("%title"));
        QCoreApplication::processEvents();
    }
    const auto *const tree = dialog.findChild<QTreeWidget *>();
    if (tree->topLevelItem(songs - 1)->text(1).isEmpty())
        state.SkipWithError("names are missing");
}
BENCHMARK(typeInNames)->Unit(benchmark::kMillisecond);

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
    constexpr double limit = 1;
    const std::array held{
        !times.hasFailed(), times.printTime("one key in a pattern", "typeInPattern", limit),
        times.printTime("one key in the last of five steps", "typeInLastOfFiveSteps", limit),
        times.printTime("one key in the pattern of names", "typeInNames", limit)};
    return std::all_of(held.begin(), held.end(), [](bool isHeld) { return isHeld; }) ? 0 : 1;
}
