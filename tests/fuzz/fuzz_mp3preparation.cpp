// Any bytes as an MP3 file whose tags are prepared for the player: the audio and the other frames
// stay, and the file says what was written.
#include "formats/bytetext.h"
#include "formats/mp3preparation.h"
#include "fuzzing.h"

#include <algorithm>
#include <optional>

namespace
{

using fuzzing::readFile;

constexpr qsizetype tagHeader = 10;

qsizetype startOfAudio(const QByteArray &file)
{
    if (!file.startsWith("ID3") || file.size() < tagHeader)
        return 0;
    qsizetype size = 0;
    for (qsizetype i = 6; i < tagHeader; ++i) {
        const auto byte = static_cast<quint8>(file.at(i));
        if (byte > 0x80)
            return tagHeader;
        size = size * 128 + byte;
    }
    const bool hasFooter = file.at(3) == 4 && (file.at(5) & 0x10) != 0;
    const QByteArray footer = file.mid(tagHeader + size, 10);
    if (hasFooter && footer.size() == 10 && footer.startsWith("3DI"))
        size += 10;
    return std::min(tagHeader + size, file.size());
}

/** The frames of a sound tag of version 3 without flags that the player does not read. */
std::optional<QList<QByteArray>> otherFrames(const QByteArray &file)
{
    if (!file.startsWith(QByteArray("ID3\3", 4)) || file.size() < tagHeader || file.at(5) != 0)
        return std::nullopt;
    const QByteArray tag = file.left(startOfAudio(file));
    QList<QByteArray> frames;
    qsizetype pos = tagHeader;
    while (pos < tag.size() && tag.at(pos) != '\0') {
        const QByteArray id = tag.mid(pos, 4);
        const bool isId = id.size() == 4 && std::all_of(id.cbegin(), id.cend(), [](char c) {
                              return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
                          });
        if (!isId || pos + tagHeader > tag.size())
            return std::nullopt;
        const qsizetype whole = tagHeader + qsizetype{fuzzing::bigEndianAt(tag, pos + 4)};
        if (pos + whole > tag.size())
            return std::nullopt;
        const QList<QByteArray> shown{"TIT2", "TPE1", "TCON", "TCOM", "TKEY", "TBPM", "TLEN"};
        if (!shown.contains(id))
            frames.append(tag.mid(pos, whole));
        pos += whole;
    }
    const QByteArray padding = tag.mid(pos);
    return padding.count('\0') == padding.size() ? std::optional(frames) : std::nullopt;
}

/** The text as a tag holds it. */
QString held(const QString &text)
{
    return textFromBytes(bytesFromText(text));
}

void write(const Mp3Preparation &preparation, const SongInfo &texts)
{
    const QString path = preparation.path();
    const QByteArray before = readFile(path);
    const SaveFailure failure = preparation.write(texts);
    const QByteArray after = readFile(path);
    if (failure != SaveFailure::None) {
        FUZZ_REQUIRE(after == before);
        return;
    }
    FUZZ_REQUIRE(after.mid(startOfAudio(after)) == before.mid(startOfAudio(before)));
    if (const auto others = otherFrames(before))
        FUZZ_REQUIRE(otherFrames(after) == others);
    const auto again = Mp3Preparation::of(path);
    FUZZ_REQUIRE(again.has_value());
    const SongInfo &shown = again->shown();
    FUZZ_REQUIRE(shown.title == held(texts.title) && shown.artist == held(texts.artist));
    FUZZ_REQUIRE(shown.genre == held(texts.genre) && shown.author == held(texts.author));
    FUZZ_REQUIRE(shown.key == held(texts.key));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzing::Input input(data, size);
    const SongInfo info = input.songInfo();
    const QString path = fuzzing::memoryFolder() + QStringLiteral("/song.mp3");
    const QByteArray file = input.rest();
    fuzzing::writeFile(path, file);

    const auto preparation = Mp3Preparation::of(path);
    if (!preparation)
        return 0;
    FUZZ_REQUIRE(readFile(path) == file);
    const SongInfo &offered = preparation->proposed();
    for (const QString &text :
         {offered.title, offered.artist, offered.genre, offered.author, offered.key})
        FUZZ_REQUIRE(charactersOutsideLatin1(text).isEmpty());
    FUZZ_REQUIRE(offered.userBpm >= 0 && offered.length >= 0);
    write(*preparation, offered);
    if (const auto again = Mp3Preparation::of(path))
        write(*again, info);
    return 0;
}
