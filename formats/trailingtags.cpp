#include "formats/trailingtags.h"

#include "formats/bytetext.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>

namespace
{

// ID3v1: "TAG", then fields of fixed size, the title and the artist first.
constexpr qsizetype id3v1Size = 128;
constexpr char id3v1Magic[] = "TAG";
constexpr qsizetype id3v1TitlePos = 3;
constexpr qsizetype id3v1FieldSize = 30;

// The footer of an APE tag: magic, version, size with the footer, number of items, flags, eight
// bytes without a meaning; all numbers are little-endian.
constexpr qsizetype apeFooterSize = 32;
constexpr char apeMagic[] = "APETAGEX";
constexpr qsizetype apeSizePos = 12;

// An item: size of its value, flags, the name with a zero, the value.
constexpr qsizetype apeNamePos = 8;

QByteArray bytesAt(QFile &file, qint64 pos, qint64 size)
{
    if (pos < 0 || !file.seek(pos))
        return {};
    const QByteArray bytes = file.read(size);
    return bytes.size() == size ? bytes : QByteArray();
}

quint32 littleEndianAt(const QByteArray &bytes, qsizetype pos)
{
    return qFromLittleEndian<quint32>(bytes.constData() + pos);
}

} // namespace

TrailingTags TrailingTags::read(QFile &file)
{
    constexpr qint64 both = apeFooterSize + id3v1Size;
    TrailingTags tags;
    qint64 end = file.size();
    const qint64 known = std::min<qint64>(end, both);
    const QByteArray last = bytesAt(file, end - known, known);
    QByteArray footer = last;
    if (last.size() >= id3v1Size && last.last(id3v1Size).startsWith(id3v1Magic)) {
        tags.id3v1 = last.last(id3v1Size);
        footer.chop(id3v1Size);
        end -= id3v1Size;
    }
    if (footer.size() < apeFooterSize)
        return tags;
    footer = footer.last(apeFooterSize);
    if (!footer.startsWith(apeMagic))
        return tags;
    const qint64 size = littleEndianAt(footer, apeSizePos);
    if (size >= apeFooterSize && size <= largestApe)
        tags.ape = bytesAt(file, end - size, size);
    return tags;
}

bool TrailingTags::hasId3v1Texts() const
{
    const auto has = [this](qsizetype pos) {
        return !textFromBytes(id3v1.mid(pos, id3v1FieldSize)).isEmpty();
    };
    return has(id3v1TitlePos) || has(id3v1TitlePos + id3v1FieldSize);
}

bool TrailingTags::hasApeTexts() const
{
    const qsizetype end = ape.size() - apeFooterSize;
    qsizetype pos = 0;
    while (pos + apeNamePos < end) {
        const qint64 valueSize = littleEndianAt(ape, pos);
        const qsizetype nameEnd = ape.indexOf('\0', pos + apeNamePos);
        if (nameEnd < 0 || nameEnd + 1 + valueSize > end)
            return false;
        const QByteArray name = ape.mid(pos + apeNamePos, nameEnd - pos - apeNamePos).toLower();
        if (valueSize > 0 && (name == "title" || name == "artist"))
            return true;
        pos = nameEnd + 1 + valueSize;
    }
    return false;
}
