// Any bytes as a list of songs and as a table of catalogue entries: what was read comes back from
// what is written of it.
#include "fuzzing.h"
#include "library/cataloguetsv.h"
#include "library/m3ulist.h"
#include "library/markertexts.h"
#include "library/owncatalogue.h"

#include <QDir>
#include <QSet>

namespace
{

void readList(const QByteArray &bytes)
{
    const QString folder = QStringLiteral("/m/sub");
    const M3uList list = M3uList::parse(bytes, folder);
    FUZZ_REQUIRE(QSet<QString>(list.songs.cbegin(), list.songs.cend()).size() == list.songs.size());
    for (const QString &song : list.songs) {
        FUZZ_REQUIRE(song.startsWith(QLatin1Char('/')) && QDir::cleanPath(song) == song);
        FUZZ_REQUIRE(!song.contains(QChar(u'\0')));
    }
    for (const auto paths : {M3uList::Paths::Absolute, M3uList::Paths::Relative}) {
        const M3uList again = M3uList::parse(M3uList::text(list.songs, folder, paths), folder);
        FUZZ_REQUIRE(again.songs == list.songs);
        FUZZ_REQUIRE(again.strange.isEmpty());
    }
}

void requireSame(const SongsDbRecord &one, const SongsDbRecord &other)
{
    FUZZ_REQUIRE(one.title == other.title && one.artist == other.artist);
    FUZZ_REQUIRE(one.altartist == other.altartist && one.genre == other.genre);
    FUZZ_REQUIRE(one.author == other.author && one.key == other.key);
    FUZZ_REQUIRE(one.length == other.length && one.bpm == other.bpm);
    FUZZ_REQUIRE(one.filename == other.filename);
    FUZZ_REQUIRE(markertexts::toText(one.markers) == markertexts::toText(other.markers));
}

void readTable(const QByteArray &bytes)
{
    const CatalogueTsv table = CatalogueTsv::parse(bytes);
    for (const SongsDbRecord &entry : table.entries)
        FUZZ_REQUIRE(OwnCatalogue::isValid(entry));
    const CatalogueTsv again = CatalogueTsv::parse(CatalogueTsv::text(table.entries));
    FUZZ_REQUIRE(again.problems.isEmpty());
    FUZZ_REQUIRE(again.entries.size() == table.entries.size());
    for (qsizetype place = 0; place < table.entries.size(); ++place)
        requireSame(table.entries.at(place), again.entries.at(place));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = fuzzing::Input(data, size).rest();
    readList(bytes);
    readTable(bytes);
    return 0;
}
