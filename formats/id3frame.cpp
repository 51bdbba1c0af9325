#include "formats/id3frame.h"

#include "formats/bytetext.h"

#include <QtEndian>

#include <algorithm>

namespace
{

using namespace Id3FrameLayout;

/** The second flag byte tells of everything that changes the form of the content. */
constexpr qsizetype formatFlagsPos = 9;

constexpr char latin1Encoding = 0;
constexpr char utf8Encoding = 3;

/** From here on a byte behind FF makes the start of an MPEG frame. */
constexpr quint8 firstSyncByte = 0xE0;

quint32 groupsOfSize(quint32 size)
{
    return (size & 0x0FE00000U) << 3 | (size & 0x001FC000U) << 2 | (size & 0x00003F80U) << 1 |
           (size & 0x0000007FU);
}

QByteArrayView withoutTerminator(QByteArrayView text)
{
    while (!text.isEmpty() && text.back() == '\0')
        text.chop(1);
    return text;
}

bool isAscii(QByteArrayView text)
{
    return std::all_of(text.cbegin(), text.cend(),
                       [](char c) { return static_cast<quint8>(c) < 0x80; });
}

} // namespace

quint32 sizeInGroups(quint32 plain)
{
    if ((plain & 0x80808080U) != 0)
        return plain;
    return (plain >> 3 & 0x0FE00000U) | (plain >> 2 & 0x001FC000U) | (plain >> 1 & 0x00003F80U) |
           (plain & 0x0000007FU);
}

bool isFrameId(QByteArrayView bytes)
{
    return bytes.size() == idSize && std::all_of(bytes.cbegin(), bytes.cend(), [](char c) {
               return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
           });
}

QByteArray encodedTextFrame(const QByteArray &id, const QByteArray &text, bool groupsSize)
{
    const auto size = static_cast<quint32>(text.size() + 1);
    QByteArray frame(textPos, '\0');
    frame.replace(0, idSize, id);
    qToBigEndian(groupsSize ? groupsOfSize(size) : size, frame.data() + sizePos);
    frame[encodingPos] = latin1Encoding;
    return frame + text;
}

bool isPlainText(QByteArrayView frame)
{
    if (frame.size() <= textPos)
        return frame.size() <= formatFlagsPos || frame[formatFlagsPos] == 0;
    const QByteArrayView text = withoutTerminator(frame.sliced(textPos));
    const char encoding = frame[encodingPos];
    const bool isReadable =
        encoding == latin1Encoding || (encoding == utf8Encoding && isAscii(text));
    return isReadable && frame[formatFlagsPos] == 0 && !text.contains('\0');
}

bool isPlainNumber(QByteArrayView frame, int unit)
{
    if (!isPlainText(frame))
        return false;
    const QString text = frame.size() > textPos ? textFromBytes(frame.sliced(textPos)) : QString();
    bool ok = false;
    const int number = text.toInt(&ok, 10);
    return text.isEmpty() || (ok && number >= 0 && number % unit == 0);
}

std::optional<QByteArray> withoutUnsynchronisation(QByteArrayView bytes)
{
    QByteArray freed;
    freed.reserve(bytes.size());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        freed.append(bytes[i]);
        if (bytes[i] != '\xFF' || i + 1 == bytes.size())
            continue;
        if (static_cast<quint8>(bytes[i + 1]) >= firstSyncByte)
            return std::nullopt;
        if (bytes[i + 1] == '\0')
            ++i;
    }
    return freed;
}
