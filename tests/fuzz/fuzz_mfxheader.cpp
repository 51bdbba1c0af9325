// Any bytes as an MFX header: each writer changes its own field and no other byte.
#include "formats/mfxheader.h"
#include "fuzzing.h"

namespace
{

void requireOnlyChanged(const QByteArray &before, const QByteArray &after, qsizetype offset,
                        qsizetype size)
{
    FUZZ_REQUIRE(after.size() == std::max(before.size(), offset + size));
    const QByteArray padded = before.leftJustified(after.size(), '\0');
    FUZZ_REQUIRE(after.left(offset) == padded.left(offset));
    FUZZ_REQUIRE(after.mid(offset + size) == padded.mid(offset + size));
}

void writeText(MfxHeader &header, void (MfxHeader::*write)(const QString &),
               QString (MfxHeader::*read)() const, const QString &text, qsizetype offset)
{
    const QByteArray before = header.header();
    (header.*write)(text);
    requireOnlyChanged(before, header.header(), offset, 32);
    QByteArray stored = text.left(32).toLatin1();
    if (stored.contains('\0'))
        stored.truncate(stored.indexOf('\0'));
    FUZZ_REQUIRE((header.*read)() == QString::fromLatin1(stored).trimmed());
}

void writeNumbers(MfxHeader &header, qint32 number)
{
    QByteArray before = header.header();
    header.setTempo(number);
    requireOnlyChanged(before, header.header(), 38, 2);
    FUZZ_REQUIRE(header.tempo() == (number & 0xFFFF));
    FUZZ_REQUIRE(header.hasValidTempo() == (header.tempo() >= 1 && header.tempo() <= 499));

    before = header.header();
    const qint8 flags = header.flags();
    header.setFlag(MfxHeader::MarkersFlag);
    requireOnlyChanged(before, header.header(), 185, 1);
    FUZZ_REQUIRE(header.flags() == (flags | 1));

    before = header.header();
    header.setSize(static_cast<quint32>(number));
    requireOnlyChanged(before, header.header(), 4, 4);
    before = header.header();
    header.setOrigSize(static_cast<quint32>(number));
    requireOnlyChanged(before, header.header(), 12, 4);
}

void readAll(const MfxHeader &header)
{
    FUZZ_REQUIRE(header.hasTitle() == !header.title().isEmpty());
    FUZZ_REQUIRE(header.hasArtist() == !header.artist().isEmpty());
    FUZZ_REQUIRE(header.hasAuthor() == !header.author().isEmpty());
    FUZZ_REQUIRE(header.hasGenre() == !header.genre().isEmpty());
    FUZZ_REQUIRE(header.hasLongName() == !header.longName().isEmpty());
    FUZZ_REQUIRE(header.editor().size() <= 31 && header.copyright().size() <= 20);
    FUZZ_REQUIRE(header.longName().size() <= 13);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzing::Input input(data, size);
    const bool unloaded = (input.byte() & 1) != 0; // writers make even an empty header long enough
    const qint32 number = input.number();
    const QString texts[] = {input.text(), input.text(), input.text(), input.text()};
    const QByteArray bytes = input.rest();

    MfxHeader header;
    const bool loaded = header.loadHeader(bytes);
    FUZZ_REQUIRE(loaded == !header.header().isEmpty());
    FUZZ_REQUIRE(bytes.startsWith(header.header()));
    if (!loaded && !unloaded)
        return 0;

    readAll(header);
    writeText(header, &MfxHeader::setTitle, &MfxHeader::title, texts[0], 122);
    writeText(header, &MfxHeader::setAuthor, &MfxHeader::author, texts[1], 186);
    writeText(header, &MfxHeader::setArtist, &MfxHeader::artist, texts[2], 218);
    writeText(header, &MfxHeader::setGenre, &MfxHeader::genre, texts[3], 250);
    writeNumbers(header, number);
    readAll(header);
    return 0;
}
