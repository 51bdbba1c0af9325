// Any file in the place of the history: its jobs are listed, and songs are found and taken from it.
#include "fuzzing.h"
#include "library/historyrecorder.h"
#include "library/historyundo.h"

#include <QCoreApplication>
#include <QFile>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>

namespace
{

QString historyPath()
{
    return fuzzing::memoryFolder() + QStringLiteral("/history.sqlite");
}

/** What SQLite keeps beside the file belongs to the one before. */
void removeHistory()
{
    for (const char *suffix : {"", "-wal", "-shm", "-journal"})
        QFile::remove(historyPath() + QLatin1String(suffix));
}

/** A history of two jobs, as the program makes it, in one file. */
QByteArray makeHistory()
{
    static int argc = 1;
    static char name[] = "fuzz_history";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
    const QString song = fuzzing::memoryFolder() + QStringLiteral("/song.mid");
    removeHistory();
    {
        HistoryStore store(historyPath());
        SongInfo info;
        info.title = QStringLiteral("Blue Moon");
        info.length = 215;
        for (const char *bytes : {"MThd one", "MThd two"}) {
            HistoryRecorder recorder(store, HistoryJob::Kind::Edit,
                                     [](const QString &) { return false; });
            fuzzing::writeFile(song, bytes);
            FUZZ_REQUIRE(recorder.keep({song}));
            fuzzing::writeFile(song, "MThd after");
            recorder.written(song, info, info);
        }
        FUZZ_REQUIRE(store.jobs().size() == 2);
    }
    return fuzzing::readFile(historyPath());
}

/** Some bytes of the good file are others. */
QByteArray patched(QByteArray file, fuzzing::Input &input)
{
    for (int left = input.byte() % 32; left > 0; --left) {
        const auto place = static_cast<qsizetype>(quint32(input.number()) % quint32(file.size()));
        const QByteArray bytes = input.shortBytes();
        file.replace(place, std::min(bytes.size(), file.size() - place),
                     bytes.first(std::min(bytes.size(), file.size() - place)));
    }
    return file;
}

/** A sound file with any values in a song's row. */
void setValues(fuzzing::Input &input)
{
    SqlConnection connection(QStringLiteral("fuzz_history"));
    FUZZ_REQUIRE(connection.open(historyPath()));
    QSqlQuery song(connection.database());
    song.prepare(QStringLiteral("UPDATE songs SET is_tag = ?, new_size = ?, path = ?, new_path = "
                                "?, before = ?, after = ?, old_digest = ?, new_digest = ?"));
    song.addBindValue(input.byte() % 2);
    song.addBindValue(input.number());
    // Nothing but the folder of the fuzzer is looked at.
    const auto inFolder = [](const QByteArray &name) {
        return fuzzing::memoryFolder() + QLatin1Char('/') +
               QString::fromLatin1(name.toHex().first(std::min(name.size(), qsizetype{100})));
    };
    song.addBindValue(inFolder(input.shortBytes()));
    song.addBindValue(input.byte() % 2 == 0 ? QString() + QLatin1String("")
                                            : inFolder(input.shortBytes()));
    song.addBindValue(input.text());
    song.addBindValue(input.text());
    song.addBindValue(input.shortBytes());
    song.addBindValue(input.shortBytes());
    song.exec();
    QSqlQuery kept(connection.database());
    kept.prepare(QStringLiteral("UPDATE kept SET bytes = ?"));
    kept.addBindValue(input.rest());
    kept.exec();
}

void look(HistoryStore &store)
{
    constexpr qsizetype enough = 20;
    HistoryUndo undo(store);
    const QList<HistoryJob> jobs = store.jobs();
    for (const HistoryJob &job : jobs.first(std::min(jobs.size(), enough))) {
        const QList<HistorySong> songs = store.songs(job.number);
        for (const HistorySong &song : songs.first(std::min(songs.size(), enough))) {
            const auto snapshot = store.snapshot(song);
            FUZZ_REQUIRE(!snapshot || snapshot->isSound());
            if (song.path.startsWith(fuzzing::memoryFolder()))
                undo.find(song);
        }
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QByteArray good = makeHistory();
    fuzzing::Input input(data, size);
    const int kind = input.byte() % 3;
    removeHistory();
    const QByteArray file = kind == 0 ? input.rest() : kind == 1 ? patched(good, input) : good;
    fuzzing::writeFile(historyPath(), file);
    if (kind == 2)
        setValues(input);
    HistoryStore store(historyPath());
    const HistoryStore::State state = store.open();
    if (state == HistoryStore::State::Ready)
        look(store);
    else if (state != HistoryStore::State::Unwritable)
        FUZZ_REQUIRE(fuzzing::readFile(historyPath()) == file);
    FUZZ_REQUIRE(kind != 2 || state == HistoryStore::State::Ready);
    return 0;
}
