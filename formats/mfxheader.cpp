#include "formats/mfxheader.h"

#include "formats/bytetext.h"
#include "formats/mfxlayout.h"
#include "storage/songlayout.h"

#include <algorithm>
#include <iterator>

namespace
{

using mfxlayout::Field;

/** A variant of the format, told apart by the digit behind the common magic. */
struct Variant {
    char digit;
    SongInfo::fileTypeEnum fileType;
    qsizetype headerSize;
};

constexpr Variant variants[] = {
    {'3', SongInfo::FileMf3, mfxlayout::headerSize},
    {'4', SongInfo::FileMf4, mfxlayout::headerSize},
    {'5', SongInfo::FileMf5, mfxlayout::longHeaderSize},
};

/** The variant that the bytes begin with, or null. */
const Variant *variantOf(QByteArrayView start)
{
    const qsizetype digitPos = qsizetype{sizeof songlayout::mfxMagic} - 1;
    if (start.size() <= digitPos || !start.startsWith(songlayout::mfxMagic))
        return nullptr;
    const auto *const found = std::find_if(
        std::begin(variants), std::end(variants),
        [digit = start.at(digitPos)](const Variant &variant) { return variant.digit == digit; });
    return found == std::end(variants) ? nullptr : found;
}

/** The bytes of the field; fewer if the header ends before the field does. */
QByteArray bytesOf(const QByteArray &header, Field field)
{
    return header.mid(field.offset, field.size);
}

quint32 numberOf(const QByteArray &header, Field field)
{
    const QByteArray bytes = bytesOf(header, field);
    quint32 number = 0;
    for (qsizetype i = bytes.size(); i > 0; --i)
        number = number << 8 | static_cast<quint8>(bytes.at(i - 1));
    return number;
}

QString textOf(const QByteArray &header, Field field)
{
    return textFromBytes(bytesOf(header, field));
}

/** Puts bytes into the field, cut or padded with zeros to its size. */
void writeBytes(QByteArray &header, Field field, const QByteArray &bytes)
{
    const qsizetype missing = field.offset + field.size - header.size();
    if (missing > 0)
        header.append(missing, '\0');
    header.replace(field.offset, field.size, bytes.leftJustified(field.size, '\0', true));
}

void writeNumber(QByteArray &header, Field field, quint32 number)
{
    QByteArray bytes;
    for (qsizetype i = 0; i < field.size; ++i)
        bytes.append(static_cast<char>(number >> (8 * i) & 0xFF));
    writeBytes(header, field, bytes);
}

void writeText(QByteArray &header, Field field, const QString &text)
{
    writeBytes(header, field, bytesFromText(text.left(field.size)));
}

} // namespace

SongInfo::fileTypeEnum MfxHeader::typeOf(QByteArrayView start)
{
    const Variant *const variant = variantOf(start);
    return variant == nullptr ? SongInfo::FileUnknown : variant->fileType;
}

bool MfxHeader::loadHeader(const QByteArray &bytes)
{
    m_header.clear();
    m_fileType = SongInfo::FileUnknown;
    const Variant *const variant = variantOf(bytes);
    if (variant == nullptr || bytes.size() < variant->headerSize)
        return false;
    m_header = bytes.left(variant->headerSize);
    m_fileType = variant->fileType;
    return true;
}

bool MfxHeader::isWhole() const
{
    const Variant *const variant = variantOf(m_header);
    return variant != nullptr && m_header.size() == variant->headerSize;
}

QString MfxHeader::title() const
{
    return textOf(m_header, mfxlayout::title);
}

QString MfxHeader::author() const
{
    return textOf(m_header, mfxlayout::author);
}

QString MfxHeader::artist() const
{
    return textOf(m_header, mfxlayout::artist);
}

QString MfxHeader::genre() const
{
    return textOf(m_header, mfxlayout::genre);
}

QString MfxHeader::editor() const
{
    return textOf(m_header, mfxlayout::editor);
}

QString MfxHeader::copyright() const
{
    return textOf(m_header, mfxlayout::copyright);
}

QString MfxHeader::longName() const
{
    return textOf(m_header, mfxlayout::longName);
}

void MfxHeader::setTitle(const QString &title)
{
    writeText(m_header, mfxlayout::title, title);
}

void MfxHeader::setAuthor(const QString &author)
{
    writeText(m_header, mfxlayout::author, author);
}

void MfxHeader::setArtist(const QString &artist)
{
    writeText(m_header, mfxlayout::artist, artist);
}

void MfxHeader::setGenre(const QString &genre)
{
    writeText(m_header, mfxlayout::genre, genre);
}

int MfxHeader::tempo() const
{
    return static_cast<int>(numberOf(m_header, mfxlayout::tempo));
}

void MfxHeader::setTempo(int bpm)
{
    writeNumber(m_header, mfxlayout::tempo, static_cast<quint32>(bpm));
}

bool MfxHeader::hasValidTempo() const
{
    const int bpm = tempo();
    return bpm >= 1 && bpm <= 499;
}

qint8 MfxHeader::flags() const
{
    return static_cast<qint8>(numberOf(m_header, mfxlayout::flags));
}

void MfxHeader::setFlag(FlagsEnum flag)
{
    writeNumber(m_header, mfxlayout::flags,
                numberOf(m_header, mfxlayout::flags) | static_cast<quint32>(flag));
}

void MfxHeader::setSize(unsigned int size)
{
    writeNumber(m_header, mfxlayout::fileSize, size);
}

void MfxHeader::setOrigSize(unsigned int size)
{
    writeNumber(m_header, mfxlayout::originalSize, size);
}
