// Importing songs through the main window beside a bare loop that reads the same files whole and
// inserts as many plain rows, in the same run: 2,000 files, 60 % MIDI, 30 % MP3, 10 % MFX. "ratio"
// is the median of the one by the median of the other, and is to stay below 3.
#include "app/mainwindow.h"
#include "app/messagehandler.h"
#include "formats/lzhuff.h"
#include "support/ownfolders.h"
#include "support/songbytes.h"
#include "windows/usersongsreltablemodel.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTableView>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace
{

constexpr int songs = 2000;
constexpr int mp3Bytes = 3000000; // three minutes of music at 128 kbit/s
constexpr int differentMp3s = 20;
constexpr int mfxHeaderBytes = 512;
constexpr double limit = 3.0;

bool limitHeld = false; ///< set by a run to its end

QByteArray randomBytes(QRandomGenerator &random, int size)
{
    QByteArray bytes(size, '\0');
    std::generate(bytes.begin(), bytes.end(),
                  [&random] { return static_cast<char>(random.bounded(0x80)); });
    return bytes;
}

/** Notes of a few instruments, which repeat as music does. */
QByteArray music(QRandomGenerator &random, int size)
{
    QByteArray bytes;
    while (bytes.size() < size) {
        QByteArray bar;
        for (int note = 0; note < 16; ++note) {
            const char key = static_cast<char>(48 + random.bounded(24));
            bar += QByteArray("\x18\x90", 2) + key + QByteArray("\x64\x18\x80", 3) + key + '\x40';
        }
        bytes += bar.repeated(random.bounded(1, 4));
    }
    return bytes.left(size);
}

QByteArray midiBytes(QRandomGenerator &random)
{
    using namespace songbytes;
    const QByteArray head = metaEvent(0x03, "A song without a name") +
                            metaEvent(0x02, "(c) K-Ravo") + kravoEvent(1, "Pop") +
                            markerEvent(1, "Intro") + markerEvent(9, "Verse") +
                            markerEvent(25, "Chorus");
    return midiFile({track(head), track(music(random, random.bounded(10000, 60000)))}, 1);
}

QByteArray mfxBytes(QRandomGenerator &random)
{
    const QByteArray midi = midiBytes(random);
    QByteArray stream;
    LzHuff().compress(midi, stream);
    QByteArray header(mfxHeaderBytes, '\0');
    header.replace(0, 4, "_MF3");
    header.replace(4, 4,
                   songbytes::littleEndian(static_cast<quint32>(header.size() + stream.size()), 4));
    header.replace(12, 4, songbytes::littleEndian(static_cast<quint32>(midi.size()), 4));
    return header + stream;
}

QByteArray mp3Tag(int number)
{
    using namespace songbytes;
    return id3Tag(id3Frame("TIT2", "Song " + QByteArray::number(number)) +
                  id3Frame("TPE1", "Nobody"));
}

/** The songs, in a folder that goes with them. */
class Songs
{
public:
    Songs()
    {
        QRandomGenerator random(1);
        const QByteArray audio = randomBytes(random, mp3Bytes);
        for (int i = 0; i < differentMp3s; ++i)
            write(path(QStringLiteral("original%1.mp3").arg(i)), mp3Tag(i) + audio);
        for (int i = 0; i < songs; ++i) {
            const int kind = i % 10;
            if (kind < 6)
                add(QStringLiteral("%1.mid").arg(i), midiBytes(random));
            else if (kind < 9)
                addLink(QStringLiteral("%1.mp3").arg(i), i % differentMp3s);
            else
                add(QStringLiteral("%1.mf3").arg(i), mfxBytes(random));
        }
    }

    const QStringList &paths() const { return m_paths; }

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("Cannot write the songs");
    }

    void add(const QString &name, const QByteArray &bytes)
    {
        write(path(name), bytes);
        m_paths.append(path(name));
    }

    /** One of the MP3s under another name, so that they do not fill the disk. */
    void addLink(const QString &name, int number)
    {
        const QString original = path(QStringLiteral("original%1.mp3").arg(number));
        std::filesystem::create_hard_link(original.toStdString(), path(name).toStdString());
        m_paths.append(path(name));
    }

    QTemporaryDir m_folder;
    QStringList m_paths;
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

/** Reads all files whole and inserts a row of the library's shape for each. */
void readAndInsert(const QStringList &paths, QSqlDatabase &database)
{
    QSqlQuery query(database);
    query.exec(QStringLiteral("delete from plain"));
    query.prepare(
        QStringLiteral("insert into plain values (null, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"));
    for (const QString &path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("Cannot read the songs");
        benchmark::DoNotOptimize(file.readAll());
        const QString text = QStringLiteral("A song without a name");
        const QVariantList values{
            QStringLiteral("MIDI"), text, text, text, text, QStringLiteral("03:20"), 120,
            QStringLiteral("A-"),   path, text, 0};
        for (int i = 0; i < values.size(); ++i)
            query.bindValue(i, values.at(i));
        if (!query.exec())
            qFatal("Cannot insert a row");
    }
}

QSqlDatabase plainDatabase()
{
    QSqlDatabase database =
        QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("plain"));
    database.setDatabaseName(QStringLiteral(":memory:"));
    if (!database.open() ||
        !QSqlQuery(database).exec(QStringLiteral(
            "create table plain (id integer primary key, type varchar, title varchar, artist "
            "varchar, genre varchar, author varchar, length varchar, userbpm int, key varchar, "
            "filename varchar, shortname varchar, status int)")))
        qFatal("Cannot make the plain table");
    return database;
}

/** Each round times both, one after the other, so that a busy machine slows both alike. */
void importBesideReadingAndInserting(benchmark::State &state)
{
    const Songs library;
    QSqlDatabase database = plainDatabase();
    MainWindow window;
    window.show();
    window.setSelectedFiles(library.paths());
    const auto *const table =
        window.findChild<QTableView *>(QStringLiteral("userLibraryTableView"))->model();

    QList<double> bare;
    QList<double> imports;
    for (auto _ : state) {
        bare.append(milliseconds([&] { readAndInsert(library.paths(), database); }));
        imports.append(milliseconds([&] { window.importUserLibrary(); }));
        state.SetIterationTime(imports.constLast() / 1e3);
        if (table->rowCount() != songs) {
            state.SkipWithError("Not every file became a row");
            return;
        }
    }
    const double ratio = median(imports) / median(bare);
    limitHeld = ratio <= limit;
    state.SetItemsProcessed(state.iterations() * songs);
    state.counters["bare_ms"] = median(bare);
    state.counters["import_ms"] = median(imports);
    state.counters["ratio"] = ratio;
}
BENCHMARK(importBesideReadingAndInserting)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(7);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const OwnSettings ownSettings;
    installSilentHandler();
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::printf("%s\n", limitHeld ? "ok" : "TOO SLOW");
    return limitHeld ? EXIT_SUCCESS : EXIT_FAILURE;
}
