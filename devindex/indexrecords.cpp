#include "devindex/indexrecords.h"

#include "devindex/devicetext.h"
#include "formats/bytetext.h"

#include <QtEndian>

#include <algorithm>

namespace
{

// Offsets inside the records. The id stands first wherever there is one.
constexpr int dateDigits = 8;
constexpr int timeOffset = PathRecord::digitsOffset + dateDigits;
constexpr int timeDigits = PathRecord::digitsSize - dateDigits;

constexpr int bpmOffset = 30;
constexpr int markerBit = 0x08;

constexpr int groupCountOffset = 2;
constexpr char groupMark = '\xFF'; // in the place of the type, where no song has it

constexpr ushort lastAlphaCode = 0x5F;

void putText(char *field, int size, const QByteArray &text)
{
    std::copy_n(text.constData(), std::min<qsizetype>(size, text.size()), field);
}

void putDigits(char *field, int digits, quint32 value)
{
    for (int i = digits - 1; i >= 0; --i) {
        field[i] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
}

quint32 digitsAt(const char *field, int digits)
{
    quint32 value = 0;
    for (int i = 0; i < digits; ++i) {
        if (field[i] < '0' || field[i] > '9')
            return 0;
        value = value * 10 + static_cast<quint32>(field[i] - '0');
    }
    return value;
}

QByteArray untilZero(const char *field, int size)
{
    return {field, std::find(field, field + size, '\0') - field};
}

} // namespace

PathRecord::Bytes PathRecord::encode() const
{
    Bytes bytes{};
    qToBigEndian(id, bytes.data());
    putText(bytes.data() + textOffset, maxPathLength, ibm850FromText(path));
    putDigits(bytes.data() + digitsOffset, dateDigits, date);
    putDigits(bytes.data() + timeOffset, timeDigits, time);
    return bytes;
}

PathRecord PathRecord::decode(const char *bytes)
{
    PathRecord record;
    record.id = qFromBigEndian<quint32>(bytes);
    record.path = textFromIbm850(untilZero(bytes + textOffset, textSize));
    record.date = digitsAt(bytes + digitsOffset, dateDigits);
    record.time = digitsAt(bytes + timeOffset, timeDigits);
    return record;
}

SongRecord::Bytes SongRecord::encode() const
{
    Bytes bytes{};
    qToBigEndian(id, bytes.data());
    putBytesFromText(title, bytes.data() + titleOffset, titleSize);
    bytes[bpmOffset] = static_cast<char>(bpm);
    bytes[typeOffset] = static_cast<char>((fileType & typeMask) | (hasMarkers ? markerBit : 0));
    return bytes;
}

SongRecord SongRecord::decode(const char *bytes)
{
    SongRecord record;
    record.id = idOf(bytes);
    record.title = textFromBytes(QByteArrayView(bytes + titleOffset, titleSize));
    record.bpm = static_cast<quint8>(bytes[bpmOffset]);
    record.fileType = static_cast<quint8>(bytes[typeOffset] & typeMask);
    record.hasMarkers = (bytes[typeOffset] & markerBit) != 0;
    return record;
}

quint32 SongRecord::idOf(const char *bytes)
{
    return qFromBigEndian<quint32>(bytes);
}

GroupHeader::Bytes GroupHeader::encode() const
{
    Bytes bytes{};
    qToBigEndian(previousCount, bytes.data());
    qToBigEndian(count, bytes.data() + groupCountOffset);
    putBytesFromText(text, bytes.data() + textOffset, textSize);
    bytes[SongRecord::typeOffset] = groupMark;
    return bytes;
}

GroupHeader GroupHeader::decode(const char *bytes)
{
    GroupHeader header;
    header.previousCount = qFromBigEndian<quint16>(bytes);
    header.count = qFromBigEndian<quint16>(bytes + groupCountOffset);
    header.text = textFromBytes(QByteArrayView(bytes + textOffset, textSize));
    return header;
}

bool GroupHeader::isHeader(const char *bytes)
{
    return bytes[SongRecord::typeOffset] == groupMark;
}

quint16 PlaylistListRecord::number(const char *bytes)
{
    constexpr int signBit = 0x80;
    const int number = qFromLittleEndian<quint16>(bytes);
    return static_cast<quint16>((number & signBit) != 0 ? number - 0x100 : number);
}

quint32 PlaylistSongRecord::id(const char *bytes)
{
    return qFromBigEndian<quint32>(bytes);
}

void PlaylistSongRecord::setId(char *bytes, quint32 id)
{
    qToBigEndian(id, bytes);
}

PlaylistPathRecord::Bytes PlaylistPathRecord::encode(const QString &path)
{
    Bytes bytes{};
    putText(bytes.data(), size - 1, bytesFromText(path));
    return bytes;
}

QString PlaylistPathRecord::decode(const char *bytes)
{
    return QString::fromLatin1(untilZero(bytes, size));
}

CountRecord::Bytes CountRecord::encode() const
{
    Bytes bytes{};
    char *field = bytes.data();
    for (const quint32 value : values) {
        qToLittleEndian(static_cast<quint16>(value), field);
        field += sizeof(quint16);
    }
    return bytes;
}

void OrderValue::encode(char *bytes, quint16 posidx)
{
    qToLittleEndian(posidx, bytes);
}

void AlphaTable::clear()
{
    bytes.fill('\xFF');
}

void AlphaTable::add(const QString &text, qint64 offset)
{
    if (text.isEmpty())
        return;
    const ushort code = text.front().toUpper().unicode();
    if (code < firstCode || code > lastAlphaCode)
        return;
    char *const slot = bytes.data() + (code - firstCode) * sizeof(emptySlot);
    if (qFromBigEndian<quint32>(slot) == emptySlot)
        qToBigEndian(static_cast<quint32>(offset), slot);
}
