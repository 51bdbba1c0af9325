// Speed of the LZHUF codec in processor time: expanding against lhasa, which tests -lh1- archives
// of the same data (the same method with a longer look-ahead), compressing against the published
// coder written down plainly, which must make the same bytes. Exits with 1 when a limit is missed.
#include "benchmarks/plainlzhuf.h"
#include "formats/lzhuff.h"
#include "support/lzhufreference.h"
#include "support/midilike.h"
#include "support/songbytes.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <ctime>
#include <functional>
#include <sys/resource.h>

namespace
{

constexpr double leastExpandToLhasa = 1.0;
constexpr double leastCompressToPlain = 1.5;

constexpr qsizetype songSize = 84000;
constexpr int songCount = 8;
constexpr int passes = 60; // over all songs: 40 MB, so that starting lhasa does not count
constexpr int rounds = 5;

const QList<QByteArray> &songs()
{
    static const QList<QByteArray> all = [] {
        QList<QByteArray> made;
        for (quint32 seed = 0; seed < songCount; ++seed)
            made.append(midilike::bytes(songSize, seed));
        return made;
    }();
    return all;
}

QList<QByteArray> streams()
{
    LzHuff codec;
    QList<QByteArray> made;
    for (const QByteArray &song : songs()) {
        QByteArray stream;
        codec.compress(song, stream);
        made.append(stream);
    }
    return made;
}

void compressSong(benchmark::State &state)
{
    LzHuff codec;
    QByteArray stream;
    qsizetype next = 0;
    for (auto unused : state) {
        codec.compress(songs().at(next++ % songCount), stream);
        benchmark::DoNotOptimize(stream.data());
    }
    state.SetBytesProcessed(state.iterations() * songSize);
}
BENCHMARK(compressSong);

void expandSong(benchmark::State &state)
{
    const QList<QByteArray> all = streams();
    LzHuff codec;
    QByteArray song;
    qsizetype next = 0;
    for (auto unused : state) {
        codec.expand(all.at(next++ % songCount), song);
        benchmark::DoNotOptimize(song.data());
    }
    state.SetBytesProcessed(state.iterations() * songSize);
}
BENCHMARK(expandSong);

/** The CRC-16 of LHA archives (polynomial 0x8005, reflected). */
quint16 crc16(const QByteArray &bytes)
{
    unsigned crc = 0;
    for (const char byte : bytes) {
        crc ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xA001U : 0U);
    }
    return static_cast<quint16>(crc);
}

/** A member of an LHA archive: level-0 header and -lh1- data. */
QByteArray archiveMember(const QByteArray &name, const QByteArray &content)
{
    constexpr int lookAhead = 60;
    lzhufreference::StreamWriter writer(lookAhead);
    lzhufreference::encode(content, lookAhead, writer);
    const auto little = [](qsizetype value, int bytes) {
        return songbytes::littleEndian(static_cast<quint32>(value), bytes);
    };
    const QByteArray dosTime = little(0x40210000, 4); // the first of January 2012
    const QByteArray attributesAndLevel("\x20\0", 2);
    const QByteArray header = "-lh1-" + little(writer.bytes().size(), 4) +
                              little(content.size(), 4) + dosTime + attributesAndLevel +
                              little(name.size(), 1) + name + little(crc16(content), 2);
    unsigned checksum = 0;
    for (const char byte : header)
        checksum += static_cast<quint8>(byte);
    return little(header.size(), 1) + little(checksum & 0xFF, 1) + header + writer.bytes();
}

bool writeArchive(const QString &path)
{
    QByteArray members;
    for (const QByteArray &song : songs())
        members += archiveMember("song.mid", song);
    QFile file(path);
    const QByteArray all = members.repeated(passes) + '\0';
    return file.open(QIODevice::WriteOnly) && file.write(all) == all.size() && file.flush();
}

/** Lets lhasa expand the archive and compare the checksums. */
bool lhasaAccepts(const QString &archive)
{
    QProcess lhasa;
    lhasa.setStandardOutputFile(QProcess::nullDevice());
    lhasa.start(QStringLiteral("lhasa"), {QStringLiteral("tq2"), archive});
    return lhasa.waitForFinished(-1) && lhasa.exitStatus() == QProcess::NormalExit &&
           lhasa.exitCode() == 0;
}

double ownSeconds()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

double childSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/** Megabytes of songs a second of processor time, in the best of the rounds. */
class Speed
{
public:
    explicit Speed(double (*clock)())
        : m_clock(clock)
    {
    }

    void measure(const std::function<void()> &work)
    {
        const double start = m_clock();
        work();
        m_seconds = std::min(m_seconds, m_clock() - start);
    }
    double megabytes() const { return songSize * songCount * passes / m_seconds / 1e6; }

private:
    double (*m_clock)();
    double m_seconds = 1e9;
};

bool report(const char *what, double speed, const char *other, double otherSpeed, double least)
{
    const double ratio = speed / otherSpeed;
    const bool met = ratio >= least;
    std::printf("%-9s %6.1f MB/s  %s %6.1f MB/s  ratio %.2f  (at least %.2f)  %s\n", what, speed,
                other, otherSpeed, ratio, least, met ? "ok" : "MISSED");
    return met;
}

QByteArray plainStream(PlainLzhuf &coder, const QByteArray &song)
{
    const std::vector<uint8_t> stream = coder.compress(
        reinterpret_cast<const uint8_t *>(song.constData()), static_cast<std::size_t>(song.size()));
    return {reinterpret_cast<const char *>(stream.data()), static_cast<qsizetype>(stream.size())};
}

bool limitsAreMet()
{
    const QTemporaryDir folder;
    const QString archive = folder.filePath(QStringLiteral("songs.lzh"));
    if (!writeArchive(archive) || !lhasaAccepts(archive)) {
        std::printf("lhasa (package lhasa) is missing or refuses the archive: MISSED\n");
        return false;
    }
    const QList<QByteArray> compressed = streams();
    LzHuff codec;
    PlainLzhuf plainCoder;
    QByteArray out;
    bool right = true;
    Speed lhasa(childSeconds);
    Speed expand(ownSeconds);
    Speed compress(ownSeconds);
    Speed plain(ownSeconds);
    for (int round = 0; round < rounds; ++round) {
        lhasa.measure([&] { right = lhasaAccepts(archive) && right; });
        expand.measure([&] {
            for (int i = 0; i < passes * songCount; ++i)
                right = codec.expand(compressed.at(i % songCount), out) && right;
        });
        compress.measure([&] {
            for (int i = 0; i < passes * songCount; ++i)
                codec.compress(songs().at(i % songCount), out);
        });
        plain.measure([&] {
            for (int i = 0; i < passes * songCount; ++i)
                out = plainStream(plainCoder, songs().at(i % songCount));
        });
    }
    for (int i = 0; i < songCount; ++i)
        right = codec.expand(compressed.at(i), out) && out == songs().at(i) && right;
    if (!right)
        std::printf("A song did not come back: MISSED\n");
    bool same = true;
    for (int i = 0; i < songCount; ++i)
        same = plainStream(plainCoder, songs().at(i)) == compressed.at(i) && same;
    if (!same)
        std::printf("The plain coder makes other bytes: MISSED\n");
    const bool fastExpand =
        report("expand", expand.megabytes(), "lhasa t", lhasa.megabytes(), leastExpandToLhasa);
    const bool fastCompress = report("compress", compress.megabytes(), "plain  ", plain.megabytes(),
                                     leastCompressToPlain);
    return right && same && fastExpand && fastCompress;
}

} // namespace

int main(int argc, char **argv)
{
    // The program without its log: diagnostic lines are dropped.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return limitsAreMet() ? 0 : 1;
}
