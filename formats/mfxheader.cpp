#include "formats/mfxheader.h"

#include "formats/bytetext.h"

/** Where a field stands in the header, in bytes; numbers are little-endian. */
struct MfxHeader::Field {
    int offset;
    int size;

    static const Field fileSize;
    static const Field midiSize;
    static const Field tempo;
    static const Field longName;
    static const Field copyright;
    static const Field title;
    static const Field editor;
    static const Field flags;
    static const Field author;
    static const Field artist;
    static const Field genre;
};

constexpr MfxHeader::Field MfxHeader::Field::fileSize{4, 4};
constexpr MfxHeader::Field MfxHeader::Field::midiSize{12, 4};
constexpr MfxHeader::Field MfxHeader::Field::tempo{38, 2};
constexpr MfxHeader::Field MfxHeader::Field::longName{42, 13};
constexpr MfxHeader::Field MfxHeader::Field::copyright{90, 20};
constexpr MfxHeader::Field MfxHeader::Field::title{122, 32};
constexpr MfxHeader::Field MfxHeader::Field::editor{154, 31};
constexpr MfxHeader::Field MfxHeader::Field::flags{185, 1};
constexpr MfxHeader::Field MfxHeader::Field::author{186, 32};
constexpr MfxHeader::Field MfxHeader::Field::artist{218, 32};
constexpr MfxHeader::Field MfxHeader::Field::genre{250, 32};

namespace
{

struct Variant {
    const char *magic;
    qsizetype headerSize;
    SongInfo::fileTypeEnum fileType;
};

constexpr Variant variants[] = {{"_MF3", 512, SongInfo::FileMf3},
                                {"_MF4", 512, SongInfo::FileMf4},
                                {"_MF5", 1024, SongInfo::FileMf5}};

constexpr int lowestTempo = 1;
constexpr int highestTempo = 499;

} // namespace

bool MfxHeader::loadHeader(const QByteArray &bytes)
{
    *this = MfxHeader();
    for (const Variant &variant : variants) {
        if (!bytes.startsWith(variant.magic))
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
    return text(Field::title);
}

QString MfxHeader::author() const
{
    return text(Field::author);
}

QString MfxHeader::artist() const
{
    return text(Field::artist);
}

QString MfxHeader::genre() const
{
    return text(Field::genre);
}

QString MfxHeader::editor() const
{
    return text(Field::editor);
}

QString MfxHeader::copyright() const
{
    return text(Field::copyright);
}

QString MfxHeader::longName() const
{
    return text(Field::longName);
}

void MfxHeader::setTitle(const QString &title)
{
    setText(Field::title, title);
}

void MfxHeader::setAuthor(const QString &author)
{
    setText(Field::author, author);
}

void MfxHeader::setArtist(const QString &artist)
{
    setText(Field::artist, artist);
}

void MfxHeader::setGenre(const QString &genre)
{
    setText(Field::genre, genre);
}

int MfxHeader::tempo() const
{
    return static_cast<int>(number(Field::tempo));
}

void MfxHeader::setTempo(int bpm)
{
    setNumber(Field::tempo, static_cast<unsigned int>(bpm));
}

bool MfxHeader::hasValidTempo() const
{
    return tempo() >= lowestTempo && tempo() <= highestTempo;
}

qint8 MfxHeader::flags() const
{
    return static_cast<qint8>(number(Field::flags));
}

void MfxHeader::setFlag(FlagsEnum flag)
{
    setNumber(Field::flags, number(Field::flags) | static_cast<unsigned int>(flag));
}

void MfxHeader::setSize(unsigned int size)
{
    setNumber(Field::fileSize, size);
}

void MfxHeader::setOrigSize(unsigned int size)
{
    setNumber(Field::midiSize, size);
}

QString MfxHeader::text(const Field &field) const
{
    return textFromBytes(m_header.mid(field.offset, field.size));
}

void MfxHeader::setText(const Field &field, const QString &text)
{
    makeRoomFor(field);
    const QByteArray bytes = bytesFromText(text).leftJustified(field.size, '\0', true);
    m_header.replace(field.offset, field.size, bytes);
}

unsigned int MfxHeader::number(const Field &field) const
{
    unsigned int value = 0;
    for (int i = field.size - 1; i >= 0; --i) {
        const int at = field.offset + i;
        const char byte = at < m_header.size() ? m_header.at(at) : '\0';
        value = (value << 8) | static_cast<quint8>(byte);
    }
    return value;
}

void MfxHeader::setNumber(const Field &field, unsigned int value)
{
    makeRoomFor(field);
    for (int i = 0; i < field.size; ++i)
        m_header[field.offset + i] = static_cast<char>((value >> (8 * i)) & 0xFF);
}

void MfxHeader::makeRoomFor(const Field &field)
{
    const qsizetype end = field.offset + field.size;
    if (m_header.size() < end)
        m_header.append(end - m_header.size(), '\0');
}
