// Expands whatever comes: no stream may crash, and no more comes out than it states and a match.
#include "formats/lzhuff.h"
#include "fuzzing.h"

#include <QtEndian>

namespace
{

quint32 statedSize(const QByteArray &stream)
{
    return stream.size() < 4 ? 0 : qFromLittleEndian<quint32>(stream.constData());
}

/**
 * Long texts teach little and take their time: most sizes are brought down to a few kB, a few to
 * what it takes until the Huffman tree is rebuilt.
 */
void shorten(QByteArray &stream)
{
    const quint32 stated = statedSize(stream);
    const bool isLargest = stated == LzHuff::maxTextSize && stream.size() == 4;
    if (stated <= 8000 || stated > LzHuff::maxTextSize || isLargest)
        return;
    const quint32 limit = stated % 256 == 0 ? 80000 : 8000;
    qToLittleEndian<quint32>(stated % limit, stream.data());
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static LzHuff codec; // its tables carry over from run to run, as in the program
    QByteArray stream = fuzzing::Input(data, size).rest();
    shorten(stream);
    QByteArray text;
    const bool expanded = codec.expand(stream, text);

    const quint32 stated = statedSize(stream);
    FUZZ_REQUIRE(expanded == (stated > 0 && stated <= LzHuff::maxTextSize));
    FUZZ_REQUIRE(expanded || text.isEmpty());
    if (!expanded)
        return 0;
    FUZZ_REQUIRE(text.size() >= stated && text.size() <= stated + LzHuff::F - 1);

    QByteArray again;
    FUZZ_REQUIRE(LzHuff().expand(stream, again) && again == text);
    return 0;
}
