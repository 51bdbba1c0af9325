#include "formats/mfxheader.h"

#include "formats/bytetext.h"

namespace
{

/** Where a field lies in the header, in bytes. */
struct Field {
    qsizetype offset;
    qsizetype size;
};

constexpr Field magicField = {0, 4};
constexpr Field sizeField = {4, 4};
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

/** A variant of the format, told apart by the magic. */
struct Variant {
    const char *magic;
    SongInfo::fileTypeEnum fileType;
    qsizetype headerSize;
};

constexpr Variant variants[] = {
    {"_MF3", SongInfo::FileMf3, 512},
    {"_MF4", SongInfo::FileMf4, 512},
    {"_MF5", SongInfo::FileMf5, 1024},
};

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

bool MfxHeader::loadHeader(const QByteArray &bytes)
{
    m_header.clear();
    m_fileType = SongInfo::FileUnknown;
    const QByteArray magic = bytesOf(bytes, magicField);
    for (const Variant &variant : variants) {
        if (magic != variant.magic)
            continue;
        if (bytes.size() < variant.headerSize)
            return false;
        m_header = bytes.left(variant.headerSize);
        m_fileType = variant.fileType;
        return true;
    }
    return false;
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
