#include "formats/mp3examination.h"

#include "formats/id3frame.h"
#include "formats/id3walk.h"
#include "formats/mp3header.h"
#include "formats/trailingtags.h"

#include <algorithm>
#include <iterator>

namespace
{

struct ShownFrame {
    const char *id;
    const char *shortId; ///< in version 2
};

/** The frames whose texts the player shows. */
constexpr ShownFrame shownFrames[] = {{Id3FrameId::title, "TT2"}, {Id3FrameId::artist, "TP1"},
                                      {Id3FrameId::genre, "TCO"}, {Id3FrameId::author, "TCM"},
                                      {Id3FrameId::key, "TKE"},   {Id3FrameId::userBpm, "TBP"},
                                      {Id3FrameId::length, "TLE"}};

/** True for a text that reads wrong, or not at all, when its bytes are taken for ISO-8859-1. */
bool readsWrong(QByteArrayView content)
{
    constexpr char utf8 = 3;
    if (content.isEmpty() || content.front() == '\0')
        return false;
    const QByteArrayView text = content.sliced(1);
    if (content.front() == utf8)
        return std::any_of(text.cbegin(), text.cend(),
                           [](char c) { return static_cast<quint8>(c) >= 0x80; });
    return std::any_of(text.cbegin(), text.cend(), [](char c) { return c != '\0'; });
}

bool readsWrong(const Id3Walk::Frame &frame)
{
    return frame.format != 0 || readsWrong(frame.content);
}

/** Version 4 has it frame by frame, in the others it moves all that follows. */
bool isUnsynchronised(const Id3Walk &tag, const Id3Walk::Frame &frame)
{
    return tag.isUnsynchronised() &&
           (tag.version() < 4 || frame.content.contains(QByteArrayView("\xFF\0", 2)));
}

const Id3Walk::Frame *frameOf(const Id3Walk &tag, const ShownFrame &shown)
{
    return tag.first(tag.version() == 2 ? shown.shortId : shown.id);
}

} // namespace

TagTroubles examineTags(QByteArrayView start, const Mp3Header &tag, QFile &file)
{
    const Id3Walk walk(start);
    TagTroubles troubles;
    for (const ShownFrame &shown : shownFrames) {
        const Id3Walk::Frame *const frame = frameOf(walk, shown);
        if (frame == nullptr)
            continue;
        if (readsWrong(*frame))
            troubles |= TagTrouble::Encoding;
        if (frame->sizeIsOdd || walk.version() == 2)
            troubles |= TagTrouble::Version;
        if (isUnsynchronised(walk, *frame))
            troubles |= TagTrouble::Unsynchronised;
    }
    if (troubles != TagTroubles() || !tag.title().isEmpty() || !tag.artist().isEmpty())
        return troubles;
    const TrailingTags behind = TrailingTags::read(file);
    if (behind.hasApeTexts())
        troubles |= TagTrouble::OnlyApe;
    if (behind.hasId3v1Texts())
        troubles |= TagTrouble::OnlyId3v1;
    return troubles;
}

bool frameReadsWrong(const Id3Walk &tag, const char *id)
{
    const auto *const shown =
        std::find_if(std::begin(shownFrames), std::end(shownFrames),
                     [id](const ShownFrame &known) { return qstrcmp(known.id, id) == 0; });
    if (shown == std::end(shownFrames))
        return false;
    const Id3Walk::Frame *const frame = frameOf(tag, *shown);
    return frame != nullptr && readsWrong(*frame);
}
