#include "formats/id3walk.h"

#include "formats/id3frame.h"
#include "formats/mp3header.h"
#include "storage/songlayout.h"

#include <QtEndian>

#include <algorithm>

namespace
{

constexpr qsizetype walkVersionPos = 3;
constexpr qsizetype walkFlagsPos = 5;
constexpr quint8 unsynchronisedFlag = 0x80;
constexpr quint8 extendedHeaderFlag = 0x40;

// A frame of version 2: identifier, size (3 bytes), content.
constexpr qsizetype shortIdSize = 3;
constexpr qsizetype shortHeaderSize = 6;

quint32 bigEndian(QByteArrayView bytes)
{
    quint32 number = 0;
    for (const char byte : bytes)
        number = number << 8 | static_cast<quint8>(byte);
    return number;
}

bool isName(QByteArrayView bytes)
{
    return std::all_of(bytes.cbegin(), bytes.cend(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

/** Whether another frame, padding or the end can begin here. */
bool canFollow(QByteArrayView rest)
{
    if (rest.isEmpty() || rest.front() == '\0')
        return true;
    return rest.size() >= Id3FrameLayout::idSize && isName(rest.first(Id3FrameLayout::idSize));
}

} // namespace

Id3Walk::Id3Walk(QByteArrayView tag)
{
    if (tag.size() < Mp3Header::headerSize || !tag.startsWith(songlayout::id3Magic))
        return;
    const auto major = static_cast<quint8>(tag[walkVersionPos]);
    if (major < 2 || major > 4)
        return;
    m_version = major;
    const QByteArray head = tag.first(Mp3Header::headerSize).toByteArray();
    const auto flags = static_cast<quint8>(head.at(walkFlagsPos));
    const qsizetype size = Mp3Header().getId3TagSize(head);
    QByteArrayView content = tag.sliced(Mp3Header::headerSize);
    content = content.first(std::min(size, content.size()));
    m_hasFlag = (flags & unsynchronisedFlag) != 0;
    if (m_hasFlag) {
        const auto freed = withoutUnsynchronisation(content);
        m_isUnsynchronised = freed && freed->size() < content.size();
        if (m_isUnsynchronised && m_version < 4) {
            m_freed = *freed;
            content = m_freed;
        }
    }
    if (m_version == 2 && (flags & extendedHeaderFlag) != 0)
        return; // compressed in a way that was never defined
    walk(content.sliced(extendedHeader(content, flags)));
}

const Id3Walk::Frame *Id3Walk::first(QByteArrayView id) const
{
    const auto found = std::find_if(m_frames.cbegin(), m_frames.cend(),
                                    [id](const Frame &frame) { return frame.id == id; });
    return found == m_frames.cend() ? nullptr : &*found;
}

void Id3Walk::walk(QByteArrayView frames)
{
    while (!frames.isEmpty() && frames.front() != '\0') {
        const std::optional<Frame> frame = frameAt(frames);
        if (!frame)
            return;
        m_frames.append(*frame);
        frames = frames.sliced(frame->whole.size());
    }
    m_isSound = true;
}

std::optional<Id3Walk::Frame> Id3Walk::frameAt(QByteArrayView rest) const
{
    const qsizetype idSize = m_version == 2 ? shortIdSize : Id3FrameLayout::idSize;
    const qsizetype headerSize = m_version == 2 ? shortHeaderSize : Id3FrameLayout::headerSize;
    if (rest.size() < headerSize || !isName(rest.first(idSize)))
        return {};
    Frame frame;
    frame.id = rest.first(idSize);
    const quint32 plain = bigEndian(rest.sliced(idSize, idSize));
    const qsizetype room = rest.size() - headerSize;
    qsizetype size = plain;
    if (m_version == 4) {
        // Some programs write plain numbers here as well.
        const qsizetype grouped = sizeInGroups(plain);
        if (grouped <= room && canFollow(rest.sliced(headerSize + grouped)))
            size = grouped;
        frame.sizeIsOdd = size != qsizetype{plain};
        if (size > room || !canFollow(rest.sliced(headerSize + size)))
            return {};
    }
    if (size > room)
        return {};
    if (m_version > 2) {
        frame.status = static_cast<quint8>(rest[headerSize - 2]);
        frame.format = static_cast<quint8>(rest[headerSize - 1]);
    }
    frame.content = rest.sliced(headerSize, size);
    frame.whole = rest.first(headerSize + size);
    return frame;
}

/** The size of a sound extended header in front of the frames; 0 when there is none. */
qsizetype Id3Walk::extendedHeader(QByteArrayView frames, quint8 flags) const
{
    constexpr qsizetype sizeField = 4;
    if (m_version < 3 || (flags & extendedHeaderFlag) == 0 || frames.size() < sizeField)
        return 0;
    const quint32 plain = bigEndian(frames.first(sizeField));
    qsizetype size = 0;
    if (m_version == 3 && (plain == 6 || plain == 10))
        size = qsizetype{plain} + sizeField; // it does not count itself, in version 4 it does
    else if (m_version == 4 && sizeInGroups(plain) >= 6)
        size = sizeInGroups(plain);
    return size <= frames.size() ? size : 0;
}
