// Any bytes as a song's journal: what is taken from it keeps to its bounds, and a song is put back
// only when every byte of it is an old or a new one, or lies behind the whole old song.
#include "fuzzing.h"
#include "storage/songjournal.h"

#include <QCryptographicHash>

#include <algorithm>

namespace
{

using Verdict = SongJournal::Verdict;

void require(const SongJournal::Content &content, const QByteArray &song)
{
    FUZZ_REQUIRE(content.judge(content.oldBytes) == Verdict::Old);
    const QByteArray &written = content.newBytes;
    FUZZ_REQUIRE(written.size() <= SongJournal::largestSong);
    FUZZ_REQUIRE(content.judge(written) ==
                 (written == content.oldBytes ? Verdict::Old : Verdict::New));
    const auto again = SongJournal::Content::decode(content.encode());
    FUZZ_REQUIRE(again && again->oldBytes == content.oldBytes && again->newBytes == written);
    if (content.judge(song) != Verdict::CutOff || song.startsWith(content.oldBytes))
        return;
    FUZZ_REQUIRE(song.size() <= std::max(content.oldBytes.size(), written.size()));
    for (qsizetype i = 0; i < song.size(); ++i) {
        const bool isOld = i < content.oldBytes.size() && content.oldBytes.at(i) == song.at(i);
        const bool isNew = i < written.size() && written.at(i) == song.at(i);
        FUZZ_REQUIRE(isOld || isNew);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzing::Input input(data, size);
    const QByteArray song = input.longBytes();
    const QByteArray bytes = input.rest();
    if (const auto content = SongJournal::Content::decode(bytes))
        require(*content, song);

    // With the checksum that belongs to it, or the numbers would never be looked at.
    constexpr qsizetype headSize = 28;
    const QByteArray head = bytes.left(headSize);
    const QByteArray body = bytes.mid(headSize);
    const QByteArray sealed =
        head + QCryptographicHash::hash(head + body, QCryptographicHash::Sha256) + body;
    if (const auto content = SongJournal::Content::decode(sealed))
        require(*content, song);
    return 0;
}
