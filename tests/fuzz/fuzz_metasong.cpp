// Any bytes as a song file: what is imported, edited and saved is imported again with the same
// data.
#include "formats/lzhuff.h"
#include "formats/metasong.h"
#include "fuzzing.h"

#include <algorithm>

namespace
{

using fuzzing::readFile;

SongInfo infoOf(const MetaSong &song)
{
    SongInfo info;
    song.getSongInfo(info);
    return info;
}

void requireSame(const SongInfo &a, const SongInfo &b)
{
    FUZZ_REQUIRE(a.title == b.title && a.artist == b.artist && a.genre == b.genre);
    FUZZ_REQUIRE(a.author == b.author && a.length == b.length && a.userBpm == b.userBpm);
    FUZZ_REQUIRE(a.key == b.key && a.isKravo == b.isKravo && a.format == b.format);
    FUZZ_REQUIRE(a.mfxLongName == b.mfxLongName && a.mfxFlags == b.mfxFlags);
    FUZZ_REQUIRE(a.markers.size() == b.markers.size());
    for (qsizetype i = 0; i < a.markers.size(); ++i) {
        FUZZ_REQUIRE(a.markers.at(i).bar == b.markers.at(i).bar);
        FUZZ_REQUIRE(a.markers.at(i).text == b.markers.at(i).text);
    }
}

bool isPrintable(const QString &text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7F; });
}

/** After a manual edit with plain texts, the texts are what the file tells. */
void requireWritten(const SongInfo &written, const SongInfo &read)
{
    if (read.format == QLatin1String("MIDI")) {
        FUZZ_REQUIRE(read.title == written.title.left(125).trimmed());
        FUZZ_REQUIRE(read.genre == written.genre.left(125).trimmed());
        FUZZ_REQUIRE(read.author == written.author.left(125).trimmed());
        FUZZ_REQUIRE(read.userBpm == std::max(written.userBpm, 0));
    } else if (read.format.startsWith(QLatin1String("MF"))) {
        FUZZ_REQUIRE(read.title == written.title.left(32).trimmed());
        FUZZ_REQUIRE(read.artist == written.artist.left(32).trimmed());
        FUZZ_REQUIRE(read.userBpm == (written.userBpm & 0xFFFF));
    }
}

/** The first byte of the audio, by the tag's size field; a footer goes when the song is saved. */
qsizetype audioStart(const QByteArray &file)
{
    if (!file.startsWith("ID3") || file.size() < 10)
        return 0;
    qsizetype size = 0;
    for (qsizetype i = 6; i < 10; ++i) {
        const auto byte = static_cast<quint8>(file.at(i));
        if (byte > 0x80)
            return 10;
        size = size * 128 + byte;
    }
    const bool hasFooter = file.at(3) == 4 && (file.at(5) & 0x10) != 0;
    const QByteArray footer = file.mid(10 + size, 10);
    if (hasFooter && footer.size() == 10 && footer.startsWith("3DI"))
        size += 10;
    return std::min(10 + size, file.size());
}

void requireFileIsWhole(const QByteArray &before, const QByteArray &after, const SongInfo &info)
{
    if (info.format == QLatin1String("MP3")) {
        FUZZ_REQUIRE(after.mid(audioStart(after)) == before.mid(audioStart(before)));
    } else if (info.format.startsWith(QLatin1String("MF"))) {
        const qsizetype headerSize = info.format == QLatin1String("MF5") ? 1024 : 512;
        FUZZ_REQUIRE(before.left(4) == after.left(4));
        FUZZ_REQUIRE(before.mid(8, 4) == after.mid(8, 4));
        FUZZ_REQUIRE(before.mid(16, 22) == after.mid(16, 22));
        FUZZ_REQUIRE(before.mid(40, 82) == after.mid(40, 82));
        FUZZ_REQUIRE(before.mid(154, 31) == after.mid(154, 31));
        FUZZ_REQUIRE(before.mid(282, headerSize - 282) == after.mid(282, headerSize - 282));
        QByteArray payload;
        FUZZ_REQUIRE(LzHuff().expand(after.mid(headerSize), payload));
        FUZZ_REQUIRE(payload.startsWith("MThd"));
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QString folder = fuzzing::memoryFolder();
    fuzzing::Input input(data, size);
    const quint8 options = input.byte();
    const bool manual = (options & 1) != 0;
    const QString path = folder + QLatin1String((options & 2) != 0 ? "/song.mp3" : "/song.mid");
    const SongInfo record = input.songInfo();
    const QByteArray bytes = input.rest();
    fuzzing::writeFile(path, bytes);

    MetaSong song;
    const bool loaded = song.importFile(path);
    FUZZ_REQUIRE(loaded == (infoOf(song).format != QLatin1String("UNKNOWN")));
    if (!loaded) {
        FUZZ_REQUIRE(!song.saveToFile(path));
        FUZZ_REQUIRE(readFile(path) == bytes);
        return 0;
    }

    song.setSongInfo(record, manual);
    const SongInfo merged = infoOf(song);
    // Where the track's length cannot grow any more, nothing is written.
    const bool plain = isPrintable(record.title) && isPrintable(record.artist) &&
                       isPrintable(record.genre) && isPrintable(record.author);
    if (manual && plain && !bytes.contains(QByteArray("MTrk\xFF", 5)))
        requireWritten(record, merged);

    if (!song.saveToFile(path)) {
        FUZZ_REQUIRE(readFile(path) == bytes);
        return 0;
    }
    const QByteArray saved = readFile(path);
    requireFileIsWhole(bytes, saved, merged);

    MetaSong again;
    FUZZ_REQUIRE(again.importFile(path));
    requireSame(infoOf(again), merged);
    FUZZ_REQUIRE(again.saveToFile(path));
    FUZZ_REQUIRE(readFile(path) == saved);
    // Saving once more what was saved before, as the program does after a second edit.
    FUZZ_REQUIRE(song.saveToFile(path));
    FUZZ_REQUIRE(readFile(path) == saved);
    return 0;
}
