// What is compressed expands to the same text, of any size that a song may have.
#include "formats/lzhuff.h"
#include "fuzzing.h"

#include <QtEndian>

namespace
{

constexpr qsizetype usualSize = 8000;

/**
 * A text from a short input: the pattern repeated, each time with one byte changed, so that matches
 * of all lengths and distances come up. Only few are grown to the largest size, which takes long.
 */
QByteArray grownText(const QByteArray &pattern, quint8 repeats, quint8 step)
{
    const bool isLargest = repeats == 0xFF && pattern.endsWith("LARGEST");
    const qsizetype size = isLargest ? qsizetype{LzHuff::maxTextSize} : usualSize;
    QByteArray text;
    QByteArray part = pattern;
    for (int i = 0; text.size() < size && (i <= repeats || isLargest); ++i) {
        text += part;
        const qsizetype place = i * qsizetype{step} % part.size();
        part[place] = static_cast<char>(part.at(place) + step);
    }
    return text.left(size);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static LzHuff codec;
    fuzzing::Input input(data, size);
    const quint8 repeats = input.byte();
    const quint8 step = input.byte();
    const QByteArray pattern = input.rest();
    if (pattern.isEmpty())
        return 0;

    const QByteArray text = grownText(pattern, repeats, step);
    QByteArray stream;
    codec.compress(text, stream);
    FUZZ_REQUIRE(qFromLittleEndian<quint32>(stream.constData()) ==
                 static_cast<quint32>(text.size()));
    QByteArray expanded;
    FUZZ_REQUIRE(codec.expand(stream, expanded));
    FUZZ_REQUIRE(expanded == text);
    return 0;
}
