// Texts and streams for the tests of the LZHUF coder, and the published coder itself.
#pragma once

#include "formats/lzhuff.h"
#include "support/logcapture.h"
#include "support/lzhufreference.h"
#include "support/midilike.h"
#include "support/songbytes.h"

#include <QTest>

#include <map>
#include <memory>
#include <random>

namespace lzhuffchecks
{

inline constexpr qsizetype longestText = 500000;
inline constexpr qsizetype longestExcess = 28;

inline QByteArray randomBytes(qsizetype size, quint32 seed, quint32 kinds = 256)
{
    std::mt19937 random(seed);
    QByteArray bytes;
    while (bytes.size() < size)
        bytes.append(static_cast<char>(random() % kinds));
    return bytes;
}

inline QByteArray repeated(const QByteArray &pattern, qsizetype size)
{
    return pattern.repeated(size / pattern.size() + 1).left(size);
}

inline QByteArray compressed(const QByteArray &text)
{
    LzHuff codec;
    QByteArray stream;
    codec.compress(text, stream);
    return stream;
}

inline QByteArray sized(qsizetype size, const QByteArray &bits)
{
    return songbytes::littleEndian(static_cast<quint32>(size), 4) + bits;
}

/** What the expander makes of a stream that it has to accept. */
inline QByteArray expanded(const QByteArray &stream)
{
    LzHuff codec;
    QByteArray text("left over");
    if (!codec.expand(stream, text))
        qFatal("A stream of the test was refused");
    return text;
}

inline QByteArray referenceText(const QByteArray &bits, qsizetype size)
{
    return lzhufreference::decode(bits, size, lzhufreference::mfxLookAhead).text;
}

/** The codec logs each call; tests that look at the lines have a capture of their own. */
class QuietLzHuffFixture : public QObject
{
protected:
    // The codec logs each call; tests that look at the lines have a capture of their own.
    void init() { m_quiet = std::make_unique<LogCapture>(); }
    void cleanup() { m_quiet.reset(); }

    /** Sends the symbols through both coders; codes must get longer than `longerThan` bits. */
    static void checkSymbols(const std::vector<int> &symbols, std::size_t longerThan, int rebuilds)
    {
        lzhufreference::AdaptiveTree tree(LzHuff::N_CHAR);
        lzhufreference::BitString bits;
        std::size_t longest = 0;
        LzHuff writer;
        writer.begin(QByteArray());
        for (const int symbol : symbols) {
            writer.encodeChar(symbol);
            const std::vector<bool> code = tree.code(symbol);
            longest = std::max(longest, code.size());
            for (const bool bit : code)
                bits.put(bit);
            tree.count(symbol);
        }
        writer.encodeEnd();
        QVERIFY(longest > longerThan);
        QVERIFY(tree.rebuilds() >= rebuilds);
        QCOMPARE(writer.output(), bits.bytes());
        LzHuff reader;
        reader.begin(bits.bytes());
        for (const int symbol : symbols)
            QCOMPARE(reader.decodeChar(), symbol);
    }

    /** Compares the codes of all symbols, each in turn after those before it were counted. */
    static void compareCodes(LzHuff &codec, lzhufreference::AdaptiveTree &tree)
    {
        lzhufreference::BitString bits;
        for (int symbol = 0; symbol < LzHuff::N_CHAR; ++symbol) {
            codec.encodeChar(symbol);
            for (const bool bit : tree.code(symbol))
                bits.put(bit);
            tree.count(symbol);
        }
        codec.encodeEnd();
        QCOMPARE(codec.output(), bits.bytes());
    }

    std::unique_ptr<LogCapture> m_quiet;
};

} // namespace lzhuffchecks
