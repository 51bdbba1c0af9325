#include "formats/mp3header.h"

#include "formats/bytetext.h"
#include "formats/id3frame.h"
#include "formats/id3version2.h"
#include "formats/publisher.h"
#include "storage/songlayout.h"

#include <QtEndian>

#include <algorithm>
#include <optional>

namespace
{

// The tag: "ID3", version, revision, flags, four size bytes of seven bits, then the frames.
constexpr int tagVersionPos = 3;
constexpr int tagFlagsPos = 5;
constexpr int tagSizePos = 6;
constexpr int tagSizeBytes = 4;
constexpr int tagHeaderSize = Mp3Header::headerSize;
static_assert(tagSizePos + tagSizeBytes == tagHeaderSize);
constexpr quint32 largestTagSize = 0x0FFFFFFF;
constexpr char shortNamesVersion = 2; ///< its frames have names of three letters
constexpr char writtenVersion = 3;
constexpr char groupedSizesVersion = 4; ///< its frame sizes are in seven-bit groups, too
constexpr int framesStart = tagHeaderSize;

// Flags of the tag.
constexpr int unsynchronised = 0x80; ///< a zero byte was put behind every FF
constexpr int compressed = 0x40;     ///< of version 2; no compression was ever defined
constexpr int hasExtendedHeader = 0x40;
constexpr int hasFooter = 0x10; ///< of version 4: the header again, behind the frames

constexpr char footerMagic[] = "3DI";

QByteArray tagSizeField(quint32 size)
{
    QByteArray field;
    for (int shift = 7 * (tagSizeBytes - 1); shift >= 0; shift -= 7)
        field.append(static_cast<char>((size >> shift) & 0x7FU));
    return field;
}

/** The bytes from the position on, as many of them as there are. */
QByteArrayView view(const QByteArray &bytes, qsizetype pos, qsizetype size)
{
    const qsizetype start = std::min(pos, bytes.size());
    return QByteArrayView(bytes).sliced(start, std::min(size, bytes.size() - start));
}

/** Zeros behind the last frame, or the end of the tag. */
bool isPadding(QByteArrayView bytes)
{
    return std::all_of(bytes.cbegin(), bytes.cend(), [](char c) { return c == 0; });
}

} // namespace

bool Mp3Header::loadHeader(const QByteArray &bytes)
{
    *this = Mp3Header();
    if (bytes.size() < tagHeaderSize)
        return false;
    if (!bytes.startsWith(songlayout::id3Magic)) {
        m_tag = QByteArray(songlayout::id3Magic) + writtenVersion;
        m_tag.append(tagHeaderSize - m_tag.size(), '\0');
        return true;
    }
    const quint32 size = getId3TagSize(bytes);
    if (size > largestTagSize || bytes.size() < static_cast<qsizetype>(size))
        return false;
    const auto wholeSize = static_cast<qsizetype>(size) + tagHeaderSize;
    m_tag = bytes.left(wholeSize);
    m_tag.append(wholeSize - m_tag.size(), '\0');
    m_tagSize = size;
    m_audioStart = size + tagHeaderSize;
    leaveOutFooter(view(bytes, wholeSize, footerSize));
    undoUnsynchronisation();
    renewFrames();
    return true;
}

unsigned int Mp3Header::getId3TagSize(const QByteArray &bytes) const
{
    if (bytes.size() < tagHeaderSize)
        return 0;
    quint32 size = 0;
    for (int i = 0; i < tagSizeBytes; ++i) {
        const auto group = static_cast<quint8>(bytes.at(tagSizePos + i));
        if (group > 0x80)
            return 0;
        size = (size << 7) + group;
    }
    return size;
}

QString Mp3Header::title() const
{
    return frameText(Id3FrameId::title);
}

QString Mp3Header::artist() const
{
    return frameText(Id3FrameId::artist);
}

QString Mp3Header::genre() const
{
    return frameText(Id3FrameId::genre);
}

QString Mp3Header::author() const
{
    return frameText(Id3FrameId::author);
}

QString Mp3Header::key() const
{
    return frameText(Id3FrameId::key);
}

int Mp3Header::userBpm() const
{
    return countFromText(frameText(Id3FrameId::userBpm));
}

int Mp3Header::length() const
{
    return countFromText(frameText(Id3FrameId::length)) / millisecondsPerSecond;
}

bool Mp3Header::hasTitle() const
{
    return hasFrame(Id3FrameId::title);
}

bool Mp3Header::hasArtist() const
{
    return hasFrame(Id3FrameId::artist);
}

bool Mp3Header::hasGenre() const
{
    return hasFrame(Id3FrameId::genre);
}

bool Mp3Header::hasAuthor() const
{
    return hasFrame(Id3FrameId::author);
}

bool Mp3Header::hasKey() const
{
    return hasFrame(Id3FrameId::key);
}

bool Mp3Header::hasUserBpm() const
{
    return hasFrame(Id3FrameId::userBpm);
}

bool Mp3Header::hasLength() const
{
    return hasFrame(Id3FrameId::length);
}

bool Mp3Header::hasKavenaEditParam() const
{
    return hasFrame(Id3FrameId::edit);
}

bool Mp3Header::isKravo() const
{
    return publisher::isNamedIn(frameText(Id3FrameId::copyright), publisher::name);
}

void Mp3Header::setTitle(const QString &title)
{
    replaceFrame(Id3FrameId::title, bytesFromText(title));
}

void Mp3Header::setArtist(const QString &artist)
{
    replaceFrame(Id3FrameId::artist, bytesFromText(artist));
}

void Mp3Header::setGenre(const QString &genre)
{
    replaceFrame(Id3FrameId::genre, bytesFromText(genre));
}

void Mp3Header::setAuthor(const QString &author)
{
    replaceFrame(Id3FrameId::author, bytesFromText(author));
}

void Mp3Header::setKey(const QString &key)
{
    replaceFrame(Id3FrameId::key, bytesFromText(key));
}

void Mp3Header::setUserBpm(int bpm)
{
    replaceFrame(Id3FrameId::userBpm, bpm >= 1 ? QByteArray::number(bpm) : QByteArray());
}

void Mp3Header::setLength(int seconds)
{
    const qint64 milliseconds = qint64{seconds} * millisecondsPerSecond;
    replaceFrame(Id3FrameId::length,
                 seconds >= 1 ? QByteArray::number(milliseconds) : QByteArray());
}

void Mp3Header::setKavenaEditParam()
{
    prepareForFrames();
    insertId3Frame(QByteArray(3, '\0'), QLatin1String(Id3FrameId::edit), framesStart);
}

unsigned int Mp3Header::getSingleFrameLength(int pos) const
{
    const qsizetype fieldStart = qsizetype{pos} + Id3FrameLayout::sizePos;
    if (pos < 0 || fieldStart + qsizetype{sizeof(quint32)} > m_tag.size())
        return 0;
    return qFromBigEndian<quint32>(m_tag.constData() + fieldStart);
}

int Mp3Header::extractId3Frame(QString &text, const QString &id) const
{
    text.clear();
    const int pos = indexOfFrame(bytesFromText(id));
    if (pos < 0)
        return pos;
    const qsizetype textSize = qsizetype{frameSize(pos)} - 1;
    if (textSize > 0)
        text = textFromBytes(m_tag.mid(qsizetype{pos} + Id3FrameLayout::textPos, textSize));
    return pos;
}

QByteArrayView Mp3Header::firstFrame(const QString &id) const
{
    const int pos = indexOfFrame(bytesFromText(id));
    return pos < 0 ? QByteArrayView() : frameAt(pos);
}

int Mp3Header::insertId3Frame(const QByteArray &content, const QString &id, int pos)
{
    const QByteArray idBytes = bytesFromText(id);
    if (content.isEmpty() || idBytes.size() != Id3FrameLayout::idSize)
        return 0;
    if (pos < framesStart || pos > m_tag.size())
        return 0;
    if (content.size() > qsizetype{largestTagSize} - m_tagSize - Id3FrameLayout::textPos)
        return 0;
    const bool groupsSize = m_tag.at(tagVersionPos) == groupedSizesVersion;
    const QByteArray frame = encodedTextFrame(idBytes, content, groupsSize);
    m_tag.insert(pos, frame);
    m_tagSize += static_cast<quint32>(frame.size());
    updateId3TagSize();
    return static_cast<int>(frame.size());
}

int Mp3Header::removeId3Frame(const QString &id)
{
    const int pos = indexOfFrame(bytesFromText(id));
    if (pos < 0)
        return 0;
    const qsizetype removed = frameAt(pos).size();
    m_tag.remove(pos, removed);
    m_tagSize -= static_cast<quint32>(removed);
    updateId3TagSize();
    return static_cast<int>(removed);
}

void Mp3Header::updateId3TagSize()
{
    if (m_tag.size() >= tagHeaderSize)
        m_tag.replace(tagSizePos, tagSizeBytes, tagSizeField(m_tagSize));
}

/**
 * The position of the first frame with the identifier, or -1. Its bytes may also stand inside
 * another frame, in a title or a cover picture; taking them there for a frame would cut that frame
 * to pieces. So sound frames are stepped over one by one, and only what follows the last of them
 * is searched byte by byte.
 */
int Mp3Header::indexOfFrame(const QByteArray &id) const
{
    if (id.size() != Id3FrameLayout::idSize)
        return -1;
    int pos = framesStart + extendedHeaderSize();
    for (int end = endOfSoundFrame(pos); end > pos; end = endOfSoundFrame(pos)) {
        if (view(m_tag, pos, Id3FrameLayout::idSize) == id)
            return pos;
        pos = end;
    }
    return static_cast<int>(m_tag.indexOf(id, pos));
}

/**
 * The size of the frame at the position, without its header. Version 4 writes it in groups of seven
 * bits, which differs from 128 bytes on; but there are programs, this one among them, that write
 * plain numbers there as well. So the groups count if they lead to where a frame can end. Taken for
 * a plain number, they would reach into the frames behind, which would go when this one is removed.
 */
quint32 Mp3Header::frameSize(int pos) const
{
    const quint32 plain = getSingleFrameLength(pos);
    const quint32 grouped = sizeInGroups(plain);
    if (grouped == plain || m_tag.at(tagVersionPos) != groupedSizesVersion)
        return plain;
    const qsizetype end = qsizetype{pos} + Id3FrameLayout::headerSize + grouped;
    if (end > m_tag.size())
        return plain;
    const QByteArrayView next = view(m_tag, end, Id3FrameLayout::idSize);
    if (isPadding(next))
        return grouped;
    // Text can look like an identifier, but is then not followed by a size that fits.
    const quint32 nextSize = sizeInGroups(getSingleFrameLength(static_cast<int>(end)));
    const bool fits = end + Id3FrameLayout::headerSize + nextSize <= m_tag.size();
    return isFrameId(next) && fits ? grouped : plain;
}

/**
 * Where the frame at the position ends, or the position itself when no sound frame stands there:
 * an identifier, a size within the tag, and behind it the next identifier, padding or the tag's
 * end. In other versions than 3 a plain size of 128 or more is not relied upon.
 */
int Mp3Header::endOfSoundFrame(int pos) const
{
    if (!isFrameId(view(m_tag, pos, Id3FrameLayout::idSize)))
        return pos;
    const quint32 size = frameSize(pos);
    const bool isPlain = size == getSingleFrameLength(pos);
    if (size >= 0x80 && isPlain && m_tag.at(tagVersionPos) != writtenVersion)
        return pos;
    const qsizetype end = qsizetype{pos} + Id3FrameLayout::headerSize + size;
    if (end > m_tag.size())
        return pos;
    const QByteArrayView next = view(m_tag, end, Id3FrameLayout::idSize);
    return isPadding(next) || isFrameId(next) ? static_cast<int>(end) : pos;
}

bool Mp3Header::hasFrame(const char *id) const
{
    return indexOfFrame(id) >= 0;
}

QString Mp3Header::frameText(const char *id) const
{
    QString text;
    extractId3Frame(text, QLatin1String(id));
    return text;
}

/** The whole frame at the position; one that claims more than the tag holds ends with the tag. */
QByteArrayView Mp3Header::frameAt(int pos) const
{
    return view(m_tag, pos, qsizetype{frameSize(pos)} + Id3FrameLayout::headerSize);
}

void Mp3Header::setFlags(int flags)
{
    m_tag[tagFlagsPos] = static_cast<char>(flags);
}

int Mp3Header::flags() const
{
    return m_tag.size() > tagFlagsPos ? static_cast<quint8>(m_tag.at(tagFlagsPos)) : 0;
}

void Mp3Header::setFrames(const QByteArray &frames)
{
    m_tag.replace(framesStart, m_tag.size() - framesStart, frames);
    m_tagSize = static_cast<quint32>(frames.size());
    updateId3TagSize();
}

/**
 * A footer repeats the header for those who read the file from behind. It would go wrong with the
 * first edit; left in the file, it would stand between the new tag and the audio.
 */
void Mp3Header::leaveOutFooter(QByteArrayView behind)
{
    if (m_tag.at(tagVersionPos) != groupedSizesVersion || (flags() & hasFooter) == 0)
        return;
    setFlags(flags() & ~hasFooter);
    if (behind.size() == footerSize && behind.startsWith(footerMagic))
        m_audioStart += footerSize;
}

/**
 * Where a tag of version 2 or 3 is unsynchronised, it is so as a whole, and what is written into it
 * would have to be. No reader of today needs it. Version 4 has it in each frame, where it stays.
 */
void Mp3Header::undoUnsynchronisation()
{
    const char version = m_tag.at(tagVersionPos);
    if ((version != shortNamesVersion && version != writtenVersion) ||
        (flags() & unsynchronised) == 0)
        return;
    const auto frames = withoutUnsynchronisation(QByteArrayView(m_tag).sliced(framesStart));
    if (!frames)
        return;
    setFlags(flags() & ~unsynchronised);
    setFrames(*frames);
}

/** Gives a tag of version 2 the frames of version 3, in which the song's data can be found. */
void Mp3Header::renewFrames()
{
    if (m_tag.at(tagVersionPos) != shortNamesVersion || (flags() & compressed) != 0)
        return;
    const QByteArrayView frames = QByteArrayView(m_tag).sliced(framesStart);
    const std::optional<QByteArray> renewed = framesOfVersion3(frames);
    if (!renewed || isPadding(frames) || renewed->size() > qsizetype{largestTagSize})
        return;
    m_tag[tagVersionPos] = writtenVersion;
    setFlags(0);
    setFrames(*renewed);
}

/** Of a sound extended header in front of the frames; 0 when there is none. */
int Mp3Header::extendedHeaderSize() const
{
    if ((flags() & hasExtendedHeader) == 0)
        return 0;
    const char version = m_tag.at(tagVersionPos);
    const quint32 plain = getSingleFrameLength(framesStart - Id3FrameLayout::sizePos);
    qsizetype size = 0;
    if (version == writtenVersion && (plain == 6 || plain == 10))
        size = qsizetype{plain} + 4; // it does not count itself, in version 4 it does
    else if (version == groupedSizesVersion && sizeInGroups(plain) >= 6)
        size = sizeInGroups(plain);
    return size <= m_tag.size() - framesStart ? static_cast<int>(size) : 0;
}

/**
 * A frame inserted before an extended header would be taken for it, and the whole tag for damaged.
 * The header holds a checksum and the size of the padding, which an edit makes wrong anyway.
 */
void Mp3Header::removeExtendedHeader()
{
    const int size = extendedHeaderSize();
    if (size == 0)
        return;
    m_tag.remove(framesStart, size);
    setFlags(flags() & ~hasExtendedHeader);
    m_tagSize -= static_cast<quint32>(size);
    updateId3TagSize();
}

/**
 * Frames are written as they are. A tag of version 2 or 3 that still says of itself that it is
 * unsynchronised is not: bytes in it proved that, but they may stand in the frame that goes now,
 * and the next reader would then believe the flag and take bytes out of the other frames.
 */
void Mp3Header::prepareForFrames()
{
    removeExtendedHeader();
    if ((flags() & unsynchronised) != 0 && m_tag.at(tagVersionPos) != groupedSizesVersion)
        setFlags(flags() & ~unsynchronised);
}

void Mp3Header::replaceFrame(const char *id, const QByteArray &content)
{
    prepareForFrames();
    removeId3Frame(QLatin1String(id));
    insertId3Frame(content, QLatin1String(id), framesStart);
}
