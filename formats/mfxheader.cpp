#include "formats/mfxheader.h"

#include "formats/bytetext.h"
#include "storage/songlayout.h"

#include <algorithm>
#include <iterator>

namespace
{

/** Where a field lies in the header, in bytes. */
struct Field {
    qsizetype offset;
    qsizetype size;
};

constexpr Field sizeField = {songlayout::mfxFileSizePos, 4};
constexpr Field origSizeField = {12, 4};
constexpr Field tempoField = {38, 2};
constexpr Field longNameField = {42, 13};
constexpr Field copyrightField = {90, 20};
constexpr Field titleField = {122, 32};
constexpr Field editorField = {154, 31};
constexpr Field flagsField = {185, 1};
constexpr Field authorField = {186, 32};
constexpr Field artistField = {218, 32};
constexpr Field genreField = {250, 32};

/** A variant of the format, told apart by the digit behind the common magic. */
struct Variant {
    char digit;
    SongInfo::fileTypeEnum fileType;
    qsizetype headerSize;
};

constexpr Variant variants[] = {
    {'3', SongInfo::FileMf3, 512},
    {'4', SongInfo::FileMf4, 512},
    {'5', SongInfo::FileMf5, MfxHeader::largestSize},
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
    return textOf(m_header, titleField);
}

QString MfxHeader::author() const
{
    return textOf(m_header, authorField);
}

QString MfxHeader::artist() const
{
    return textOf(m_header, artistField);
}

QString MfxHeader::genre() const
{
    return textOf(m_header, genreField);
}

QString MfxHeader::editor() const
{
    return textOf(m_header, editorField);
}

QString MfxHeader::copyright() const
{
    return textOf(m_header, copyrightField);
}

QString MfxHeader::longName() const
{
    return textOf(m_header, longNameField);
}

void MfxHeader::setTitle(const QString &title)
{
    writeText(m_header, titleField, title);
}

void MfxHeader::setAuthor(const QString &author)
{
    writeText(m_header, authorField, author);
}

void MfxHeader::setArtist(const QString &artist)
{
    writeText(m_header, artistField, artist);
}

void MfxHeader::setGenre(const QString &genre)
{
    writeText(m_header, genreField, genre);
}

int MfxHeader::tempo() const
{
    return static_cast<int>(numberOf(m_header, tempoField));
}

void MfxHeader::setTempo(int bpm)
{
    writeNumber(m_header, tempoField, static_cast<quint32>(bpm));
}

bool MfxHeader::hasValidTempo() const
{
    const int bpm = tempo();
    return bpm >= 1 && bpm <= 499;
}

qint8 MfxHeader::flags() const
{
    return static_cast<qint8>(numberOf(m_header, flagsField));
}

void MfxHeader::setFlag(FlagsEnum flag)
{
    writeNumber(m_header, flagsField, numberOf(m_header, flagsField) | static_cast<quint32>(flag));
}

void MfxHeader::setSize(unsigned int size)
{
    writeNumber(m_header, sizeField, size);
}

void MfxHeader::setOrigSize(unsigned int size)
{
    writeNumber(m_header, origSizeField, size);
}
