// Any bytes as a song on a memory: what the index takes from its head.
#include "devindex/devicetext.h"
#include "devindex/index.h"
#include "fuzzing.h"

#include <array>

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QString folder = fuzzing::memoryFolder();
    static const std::array<const char *, 4> names{"/a.mid", "/a.MP3", "/a.mf4", "/a"};
    fuzzing::Input input(data, size);
    const std::size_t kind = input.byte() % names.size();
    const QByteArray bytes = input.rest();

    const Index index;
    SongInfoIndex entry;
    entry.id = 7;
    entry.posidx = 9;
    entry.path = QStringLiteral("/kept");
    entry.fullPath = folder + QLatin1String(names.at(kind));
    fuzzing::writeFile(entry.fullPath, bytes);
    FUZZ_REQUIRE(index.setSongInfo(entry) == (bytes.size() >= 5 ? 1 : 0));

    FUZZ_REQUIRE(entry.id == 7 && entry.posidx == 9 && entry.path == QLatin1String("/kept"));
    FUZZ_REQUIRE(entry.fileType <= SongInfoIndex::Mf5 && entry.hasMarkers <= 1);
    FUZZ_REQUIRE(entry.reserved == 0);
    FUZZ_REQUIRE((entry.fileType == SongInfoIndex::Mp3) == (kind == 1 && bytes.size() >= 5));
    if (bytes.size() < 5)
        return 0;
    for (const QString &text : {entry.title, entry.artist, entry.genre}) {
        FUZZ_REQUIRE(text.size() <= 26);
        FUZZ_REQUIRE(text == stringToUpper(text).trimmed());
    }
    return 0;
}
