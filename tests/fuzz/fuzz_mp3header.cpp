// Any bytes as the start of an MP3 file: the tag keeps its size field, its other frames, its place.
#include "formats/mp3header.h"
#include "fuzzing.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace
{

constexpr qsizetype tagHeaderSize = 10;
constexpr qsizetype frameHeaderSize = 10;

quint8 at(const QByteArray &bytes, qsizetype pos)
{
    return pos < bytes.size() ? static_cast<quint8>(bytes.at(pos)) : quint8(0);
}

/** Four bytes of seven bits each. */
qsizetype groupedSize(const QByteArray &bytes, qsizetype pos)
{
    qsizetype size = 0;
    for (int i = 0; i < 4; ++i)
        size = size * 128 + at(bytes, pos + i);
    return size;
}

/** A frame as it is written into a tag: sizes of version 4 have seven bits a byte. */
QByteArray frameOf(const QByteArray &tag, const QByteArray &id, const QByteArray &text)
{
    const qsizetype size = text.size() + 1;
    const int bits = at(tag, 3) == 4 ? 7 : 8;
    QByteArray frame = id;
    for (int shift = 3 * bits; shift >= 0; shift -= bits)
        frame.append(static_cast<char>(size >> shift & ((1 << bits) - 1)));
    return frame + QByteArray(3, '\0') + text;
}

/** The frames of a sound version 3 tag, if it is one: ids, sizes, and zeros behind the last. */
std::optional<QList<QByteArray>> soundFrames(const QByteArray &tag)
{
    if (at(tag, 3) != 3)
        return std::nullopt;
    QList<QByteArray> frames;
    qsizetype pos = tagHeaderSize;
    while (pos < tag.size() && at(tag, pos) != 0) {
        for (int i = 0; i < 4; ++i) {
            const char c = static_cast<char>(at(tag, pos + i));
            if (!(c >= 'A' && c <= 'Z') && !(c >= '0' && c <= '9'))
                return std::nullopt;
        }
        if (pos + frameHeaderSize > tag.size())
            return std::nullopt;
        const qsizetype whole = frameHeaderSize + fuzzing::bigEndianAt(tag, pos + 4);
        if (pos + whole > tag.size())
            return std::nullopt;
        frames.append(tag.mid(pos, whole));
        pos += whole;
    }
    const QByteArray padding = tag.mid(pos);
    if (padding.count('\0') != padding.size())
        return std::nullopt;
    frames.append(padding);
    return frames;
}

void requireSizeField(const Mp3Header &header)
{
    const QByteArray &tag = header.stream();
    FUZZ_REQUIRE(tag.startsWith("ID3") && tag.size() >= tagHeaderSize);
    // Only a tag that was never changed may still have bytes that are no size; it counts as empty.
    const QByteArray field = tag.mid(6, 4);
    const bool isSize = std::all_of(field.begin(), field.end(),
                                    [](char byte) { return static_cast<quint8>(byte) <= 0x80; });
    FUZZ_REQUIRE((isSize ? groupedSize(tag, 6) : 0) == tag.size() - tagHeaderSize);
}

/** True when the new frames are the old ones, or lack one piece that begins with the id. */
bool lacksOneFrame(const QByteArray &before, const QByteArray &after, const QByteArray &id)
{
    if (before == after)
        return true;
    const qsizetype removed = before.size() - after.size();
    for (qsizetype pos = before.indexOf(id); pos >= 0; pos = before.indexOf(id, pos + 1)) {
        const qsizetype toEnd = before.size() - pos;
        const qsizetype plain =
            frameHeaderSize + (toEnd >= 8 ? qsizetype{fuzzing::bigEndianAt(before, pos + 4)} : 0);
        const qsizetype grouped = frameHeaderSize + groupedSize(before, pos + 4);
        const bool rightSize = removed == std::min(plain, toEnd) || removed == grouped;
        if (rightSize && before.left(pos) == after.left(pos) &&
            before.mid(pos + removed) == after.mid(pos))
            return true;
    }
    return false;
}

/** Runs a writer that replaces the frame by one with the text, or by none. */
void runWriter(Mp3Header &header, const QByteArray &id, const QByteArray &text,
               const std::function<void()> &write)
{
    const QByteArray old = header.stream();
    write();
    requireSizeField(header);
    const QByteArray &tag = header.stream();
    // The first write removes an extended header, which would stand behind the new frame.
    const bool hadExtendedHeader = (at(old, 5) & 0x40) != 0 && (at(tag, 5) & 0x40) == 0;
    qsizetype extended = 0;
    if (hadExtendedHeader)
        extended = at(old, 3) == 3 ? fuzzing::bigEndianAt(old, 10) + 4 : groupedSize(old, 10);
    const QByteArray before = old.mid(tagHeaderSize + extended);
    // A tag that is written into is not unsynchronised any more; version 4 has it in each frame.
    const int mayGo = 0x40 | (at(old, 3) != 4 ? 0x80 : 0);
    FUZZ_REQUIRE(tag.left(5) == old.left(5) && (at(tag, 5) | (at(old, 5) & mayGo)) == at(old, 5));

    const QByteArray inserted = text.isEmpty() ? QByteArray() : frameOf(old, id, text);
    QByteArray after = tag.mid(tagHeaderSize);
    FUZZ_REQUIRE(after.startsWith(inserted));
    after.remove(0, inserted.size());
    FUZZ_REQUIRE(lacksOneFrame(before, after, id));

    std::optional<QList<QByteArray>> expected = soundFrames(old.left(tagHeaderSize) + before);
    if (!expected)
        return;
    for (qsizetype i = 0; i < expected->size() - 1; ++i) {
        if (expected->at(i).startsWith(id)) {
            expected->removeAt(i);
            break;
        }
    }
    if (!inserted.isEmpty())
        expected->prepend(inserted);
    FUZZ_REQUIRE(soundFrames(tag) == expected);
}

void readAll(const Mp3Header &header)
{
    FUZZ_REQUIRE(header.hasTitle() || header.title().isEmpty());
    FUZZ_REQUIRE(header.hasArtist() || header.artist().isEmpty());
    FUZZ_REQUIRE(header.hasGenre() || header.genre().isEmpty());
    FUZZ_REQUIRE(header.hasAuthor() || header.author().isEmpty());
    FUZZ_REQUIRE(header.hasKey() || header.key().isEmpty());
    FUZZ_REQUIRE(header.userBpm() >= 0 && (header.hasUserBpm() || header.userBpm() == 0));
    FUZZ_REQUIRE(header.length() >= 0 && (header.hasLength() || header.length() == 0));
    header.isKravo();
}

QByteArray numberText(qint64 number)
{
    return number >= 1 ? QByteArray::number(number) : QByteArray();
}

void writeAll(Mp3Header &header, const SongInfo &info)
{
    runWriter(header, "TIT2", info.title.toLatin1(), [&] { header.setTitle(info.title); });
    runWriter(header, "TPE1", info.artist.toLatin1(), [&] { header.setArtist(info.artist); });
    runWriter(header, "TCON", info.genre.toLatin1(), [&] { header.setGenre(info.genre); });
    runWriter(header, "TCOM", info.author.toLatin1(), [&] { header.setAuthor(info.author); });
    runWriter(header, "TKEY", info.key.toLatin1(), [&] { header.setKey(info.key); });
    runWriter(header, "TBPM", numberText(info.userBpm), [&] { header.setUserBpm(info.userBpm); });
    runWriter(header, "TLEN", numberText(qint64{info.length} * 1000),
              [&] { header.setLength(info.length); });
    // The newest frame comes first, so it is the one that is read.
    if (info.length >= 1)
        FUZZ_REQUIRE(header.length() ==
                     (qint64{info.length} * 1000 <= 0x7FFFFFFF ? info.length : 0));
    const QByteArray old = header.stream();
    const bool hadMark = header.hasKavenaEditParam();
    header.setKavenaEditParam();
    requireSizeField(header);
    FUZZ_REQUIRE(hadMark || header.hasKavenaEditParam());
    FUZZ_REQUIRE(header.stream().mid(tagHeaderSize) ==
                 frameOf(old, "MEDT", QByteArray(3, '\0')) + old.mid(tagHeaderSize));
}

/** The single steps, with whatever identifier and place. */
void runSteps(Mp3Header &header, const QString &id, qint32 pos, const QByteArray &content)
{
    header.getSingleFrameLength(pos);
    QString text;
    const int found = header.extractId3Frame(text, id);
    FUZZ_REQUIRE(found < header.stream().size() && (found >= 0 || text.isEmpty()));
    qsizetype before = header.stream().size();
    const int inserted = header.insertId3Frame(content, id, pos);
    FUZZ_REQUIRE(header.stream().size() == before + inserted);
    requireSizeField(header);
    before = header.stream().size();
    const int removed = header.removeId3Frame(id);
    FUZZ_REQUIRE(header.stream().size() == before - removed);
    requireSizeField(header);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzing::Input input(data, size);
    const SongInfo info = input.songInfo();
    const QString id = input.text();
    const qint32 pos = input.number();
    const QByteArray content = input.shortBytes();
    const QByteArray file = input.rest();

    Mp3Header header;
    if (!header.loadHeader(file)) {
        FUZZ_REQUIRE(header.stream().isEmpty());
        readAll(header);
        return 0;
    }
    const bool hadTag = file.startsWith("ID3");
    FUZZ_REQUIRE(hadTag ||
                 (header.stream().size() == tagHeaderSize && header.getAudioDataStartPos() == 0));
    const bool isRenewed = hadTag && at(file, 3) == 2 && at(header.stream(), 3) == 3;
    // Unsynchronisation is undone, which shortens the tag; a footer goes and was in front of the
    // audio.
    const bool isFreed = hadTag && (at(file, 3) == 2 || at(file, 3) == 3) &&
                         (at(file, 5) & 0x80) != 0 && (at(header.stream(), 5) & 0x80) == 0;
    const bool hadFooter = hadTag && at(file, 3) == 4 && (at(file, 5) & 0x10) != 0;
    if (hadTag && !isRenewed && !isFreed) {
        const qsizetype audioStart = header.getAudioDataStartPos();
        const qsizetype tagSize = header.stream().size();
        FUZZ_REQUIRE(audioStart == tagSize || (hadFooter && audioStart == tagSize + 10));
        FUZZ_REQUIRE(audioStart == tagSize || file.mid(tagSize, 3) == "3DI");
        QByteArray start = file.left(tagSize);
        if (hadFooter)
            start[5] = static_cast<char>(at(start, 5) & ~0x10);
        FUZZ_REQUIRE(header.stream().startsWith(start));
    }
    // Renewed frames have longer headers, which can be more than what was freed.
    const bool isNoLonger = header.stream().size() <= qsizetype{header.getAudioDataStartPos()};
    FUZZ_REQUIRE(!isFreed || isRenewed || isNoLonger);
    FUZZ_REQUIRE(!isRenewed || soundFrames(header.stream()));
    readAll(header);
    writeAll(header, info);
    readAll(header);
    runSteps(header, id, pos, content);
    readAll(header);
    return 0;
}
