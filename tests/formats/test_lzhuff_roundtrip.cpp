// The LZHUF coder: what was packed comes back, and any bytes are refused or bounded.
#include "formats/lzhuff.h"
#include "support/logcapture.h"
#include "support/lzhuffchecks.h"
#include "support/lzhufreference.h"
#include "support/midilike.h"
#include "support/songbytes.h"

#include <QTest>

#include <map>
#include <random>

using namespace lzhuffchecks;

namespace
{

/**
 * A text whose match lengths occur as often as Fibonacci numbers, so that the codes of the symbols
 * that were never needed grow as long as they can; its last bytes need these symbols.
 */
QByteArray textWithLongCodes()
{
    std::mt19937 random(1);
    std::vector<int> lengths;
    int length = 6;
    for (const std::size_t count : {265, 430, 690, 1120, 1820, 2940, 4760, 7700, 12400})
        lengths.insert(lengths.end(), count, length++);
    for (std::size_t i = lengths.size(); i > 1; --i)
        std::swap(lengths[i - 1], lengths[random() % i]);

    QByteArray text;
    for (int byte = 0; byte < 64; ++byte)
        text.append(static_cast<char>(byte));
    QByteArray last;
    for (const int matchLength : lengths) {
        const QByteArray window = text.right(3000);
        QByteArray match;
        int tries = 0; // to find one that does not prolong the match before it
        do {
            const auto places = static_cast<std::size_t>(window.size() - matchLength);
            match = window.mid(static_cast<qsizetype>(random() % places), matchLength);
        } while (++tries < 50 && !last.isEmpty() && window.contains(last + match.at(0)));
        text += match;
        last = match;
    }
    for (int byte = 200; byte < 256; ++byte)
        text.append(static_cast<char>(byte));
    return text;
}

} // namespace

class TestLzHuffRoundTrip : public QuietLzHuffFixture
{
    Q_OBJECT

private slots:
    void init() { QuietLzHuffFixture::init(); }
    void cleanup() { QuietLzHuffFixture::cleanup(); }

    void everyShortLengthComesBack_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("blanks") << QByteArray(2000, ' ');
        QTest::newRow("zeros") << QByteArray(2000, '\0');
        QTest::newRow("two kinds") << randomBytes(2000, 21, 2);
        QTest::newRow("random") << randomBytes(2000, 22);
        QTest::newRow("periodic") << repeated("MTrk and so on; ", 2000);
        QTest::newRow("MIDI") << midilike::bytes(2000, 23);
    }
    void everyShortLengthComesBack()
    {
        QFETCH(QByteArray, text);
        LzHuff codec;
        QByteArray stream;
        QByteArray back;
        for (qsizetype length = 1; length <= text.size(); ++length) {
            const QByteArray part = text.left(length);
            codec.compress(part, stream);
            QVERIFY(codec.expand(stream, back));
            if (back != part)
                QFAIL(qPrintable(QStringLiteral("Length %1 does not come back").arg(length)));
            if (length <= 64 || length % 37 == 0)
                QCOMPARE(referenceText(stream.mid(4), length), part);
        }
    }

    void longTextsComeBack_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("around the ring") << randomBytes(4096 + 29, 31, 4);
        QTest::newRow("blanks") << QByteArray(longestText, ' ');
        QTest::newRow("zeros") << QByteArray(longestText, '\0');
        QTest::newRow("two kinds") << randomBytes(longestText, 32, 2);
        QTest::newRow("random") << randomBytes(longestText, 33);
        QTest::newRow("periodic") << repeated(randomBytes(5000, 34), longestText);
        QTest::newRow("MIDI") << midilike::bytes(longestText, 35);
        QTest::newRow("499999") << midilike::bytes(longestText - 1, 36);
        QTest::newRow("long codes") << repeated(textWithLongCodes(), longestText);
    }
    void longTextsComeBack()
    {
        QFETCH(QByteArray, text);
        const QByteArray stream = compressed(text);
        QCOMPARE(expanded(stream), text);
        QCOMPARE(referenceText(stream.mid(4), text.size()), text);
    }

    void codesLongerThan16BitsComeBack()
    {
        const QByteArray text = textWithLongCodes();
        const QByteArray stream = compressed(text);
        const lzhufreference::Decoded decoded =
            lzhufreference::decode(stream.mid(4), text.size(), LzHuff::F);
        QVERIFY(decoded.longestCode > 16);
        QCOMPARE(decoded.text, text);
        QCOMPARE(expanded(stream), text);
    }

    void rebuiltTreesComeBack()
    {
        const QByteArray text = randomBytes(100000, 41); // nearly each byte is a symbol
        const QByteArray stream = compressed(text);
        const lzhufreference::Decoded decoded =
            lzhufreference::decode(stream.mid(4), text.size(), LzHuff::F);
        QVERIFY(decoded.rebuilds >= 3);
        QCOMPARE(decoded.text, text);
        QCOMPARE(expanded(stream), text);
    }

    void truncatedStreamGivesFillerBehindWhatIsThere()
    {
        const QByteArray text = midilike::bytes(1500, 51);
        const QByteArray stream = compressed(text);
        LzHuff codec;
        QByteArray out;
        for (qsizetype length = 4; length < stream.size(); ++length) {
            QVERIFY(codec.expand(stream.left(length), out));
            QVERIFY(out.size() >= text.size());
            QVERIFY(out.size() <= text.size() + longestExcess);
            QCOMPARE(out, referenceText(stream.mid(4, length - 4), text.size()));
        }
    }

    void randomStreamsAreBounded()
    {
        std::mt19937 random(61);
        LzHuff codec;
        QByteArray out;
        for (quint32 i = 0; i < 1000; ++i) {
            const auto size = static_cast<qsizetype>(1 + random() % 3000);
            const QByteArray bits = randomBytes(static_cast<qsizetype>(random() % 800), i);
            QVERIFY(codec.expand(sized(size, bits), out));
            QVERIFY(out.size() >= size);
            QVERIFY(out.size() <= size + longestExcess);
            if (i % 10 == 0)
                QCOMPARE(out, referenceText(bits, size));
        }
    }

    void anyBytesAreRefusedOrBounded()
    {
        LzHuff codec;
        QByteArray out;
        for (quint32 i = 0; i < 2000; ++i) {
            QByteArray bytes = randomBytes(i % 64, i);
            if (i % 2 == 0 && bytes.size() > 3)
                bytes[3] = bytes[2] = '\0';
            if (!codec.expand(bytes, out))
                QVERIFY(out.isEmpty());
            else
                QVERIFY(out.size() <= longestText + longestExcess);
        }
    }

    void streamOfOnesIsBounded()
    {
        const QByteArray ones(70000, '\xFF');
        const QByteArray out = expanded(sized(longestText, ones));
        QVERIFY(out.size() >= longestText);
        QVERIFY(out.size() <= longestText + longestExcess);
        QCOMPARE(out, referenceText(ones, longestText));
    }
};

QTEST_GUILESS_MAIN(TestLzHuffRoundTrip)

#include "test_lzhuff_roundtrip.moc"
