// The steps of the LZHUF coder, one by one.
#include "formats/lzhuff.h"
#include "support/lzhuffchecks.h"
#include "support/lzhufreference.h"
#include "support/midilike.h"
#include "support/songbytes.h"

#include <QTest>

#include <map>
#include <random>

using namespace lzhuffchecks;

class TestLzHuffSteps : public QuietLzHuffFixture
{
    Q_OBJECT

private slots:
    void init() { QuietLzHuffFixture::init(); }
    void cleanup() { QuietLzHuffFixture::cleanup(); }

    void positionTablesAreTheStandardOnes()
    {
        const std::array<int, 64> codes = {
            0x00, 0x20, 0x30, 0x40, 0x50, 0x58, 0x60, 0x68, 0x70, 0x78, 0x80, 0x88, 0x90,
            0x94, 0x98, 0x9C, 0xA0, 0xA4, 0xA8, 0xAC, 0xB0, 0xB4, 0xB8, 0xBC, 0xC0, 0xC2,
            0xC4, 0xC6, 0xC8, 0xCA, 0xCC, 0xCE, 0xD0, 0xD2, 0xD4, 0xD6, 0xD8, 0xDA, 0xDC,
            0xDE, 0xE0, 0xE2, 0xE4, 0xE6, 0xE8, 0xEA, 0xEC, 0xEE, 0xF0, 0xF1, 0xF2, 0xF3,
            0xF4, 0xF5, 0xF6, 0xF7, 0xF8, 0xF9, 0xFA, 0xFB, 0xFC, 0xFD, 0xFE, 0xFF};
        for (std::size_t i = 0; i < codes.size(); ++i) {
            QCOMPARE(int(LzHuff::p_code[i]), codes[i]);
            const int length = i < 1 ? 3 : i < 4 ? 4 : i < 12 ? 5 : i < 24 ? 6 : i < 48 ? 7 : 8;
            QCOMPARE(int(LzHuff::p_len[i]), length);
            const int end = i + 1 < codes.size() ? codes[i + 1] : 256;
            for (int byte = codes[i]; byte < end; ++byte) {
                QCOMPARE(int(LzHuff::d_code[static_cast<std::size_t>(byte)]), int(i));
                QCOMPARE(int(LzHuff::d_len[static_cast<std::size_t>(byte)]), length);
            }
        }
    }

    void bytesAreReadOneByOneUpToTheEnd()
    {
        LzHuff codec;
        codec.begin("\x01\xFF");
        QCOMPARE(codec.getInByte(), 1);
        QCOMPARE(codec.getInByte(), 255);
        QCOMPARE(codec.getInByte(), -1);
        QCOMPARE(codec.getInByte(), -1);
    }

    void bitsAreReadFromTheMostSignificantOn()
    {
        LzHuff codec;
        codec.begin("\xA5\x0F\xF0");
        for (const int bit : {1, 0, 1, 0})
            QCOMPARE(codec.getBit(), bit);
        QCOMPARE(codec.getByte(), 0x50);
        QCOMPARE(codec.getByte(), 0xFF);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(codec.getBit(), 0);
    }

    void bitsBehindTheEndAreZero()
    {
        LzHuff codec;
        codec.begin("\xFF");
        QCOMPARE(codec.getByte(), 0xFF);
        for (int i = 0; i < 200; ++i) {
            QCOMPARE(codec.getBit(), 0);
            QCOMPARE(codec.getByte(), 0);
        }
    }

    void everyBytePassesThroughTheBitBuffer()
    {
        const QByteArray bytes = randomBytes(1000, 71);
        LzHuff codec;
        codec.begin(bytes);
        for (const char byte : bytes)
            QCOMPARE(codec.getByte(), int(static_cast<quint8>(byte)));
    }

    void bytesAreAppendedToTheOutput()
    {
        LzHuff codec;
        codec.begin(QByteArray());
        QVERIFY(codec.output().isEmpty());
        const QByteArray bytes = randomBytes(3000, 72);
        for (const char byte : bytes)
            codec.putOutByte(static_cast<quint8>(byte));
        QCOMPARE(codec.output(), bytes);
        codec.begin(QByteArray());
        QVERIFY(codec.output().isEmpty());
    }

    void codesArePackedMostSignificantBitFirst()
    {
        LzHuff codec;
        codec.begin(QByteArray());
        codec.putcode(1, 1);
        codec.putcode(3, 2);
        QVERIFY(codec.output().isEmpty());
        codec.putcode(6, 0x3F);
        QCOMPARE(codec.output(), QByteArray("\xAF"));
        codec.encodeEnd();
        QCOMPARE(codec.output(), QByteArray("\xAF\xC0"));
        codec.encodeEnd();
        QCOMPARE(codec.output(), QByteArray("\xAF\xC0"));
    }

    void codesOfMoreThan16BitsAreSentWhole()
    {
        LzHuff codec;
        codec.begin(QByteArray());
        codec.putcode(7, 0x7F);
        codec.putcode(21, 0x100001);
        codec.putcode(32, 0x80000001);
        codec.putcode(4, 0xFFFFFFF5); // only the low bits count
        QCOMPARE(codec.output(), QByteArray("\xFF\x00\x00\x18\x00\x00\x00\x15", 8));
    }

    void positionsAreCodedByTheTables()
    {
        const auto codes = lzhufreference::positionCodes();
        LzHuff writer;
        writer.begin(QByteArray());
        lzhufreference::BitString bits;
        for (int position = 0; position < LzHuff::N; ++position) {
            writer.encodePosition(position);
            const auto &upper = codes[static_cast<std::size_t>(position) >> 6];
            bits.put(upper.bits, upper.length);
            bits.put(static_cast<unsigned>(position) & 0x3FU, 6);
        }
        writer.encodeEnd();
        QCOMPARE(writer.output(), bits.bytes());
        LzHuff reader;
        reader.begin(bits.bytes());
        for (int position = 0; position < LzHuff::N; ++position)
            QCOMPARE(reader.decodePosition(), position);
    }

    void symbolsAreCodedByTheAdaptiveTree()
    {
        std::mt19937 random(81);
        std::vector<int> symbols;
        for (int symbol = 0; symbol < LzHuff::N_CHAR; ++symbol)
            symbols.push_back(symbol);
        for (int i = 0; i < 80000; ++i) // beyond two rebuilds, every code length
            symbols.push_back(static_cast<int>(random() % (1U << random() % 9)) % LzHuff::N_CHAR);
        checkSymbols(symbols, 0, 2);
    }

    void symbolsWithLongCodesPass()
    {
        std::vector<int> symbols;
        unsigned count = 265;
        unsigned next = 430;
        for (int symbol = 0; symbol < 9; ++symbol) {
            symbols.insert(symbols.end(), count, symbol);
            count = std::exchange(next, count + next);
        }
        for (int symbol = LzHuff::N_CHAR - 1; symbol > 9; --symbol)
            symbols.push_back(symbol);
        checkSymbols(symbols, 16, 0);
    }

    void countedSymbolsChangeTheCodes()
    {
        LzHuff codec;
        lzhufreference::AdaptiveTree tree(LzHuff::N_CHAR);
        codec.begin(QByteArray());
        for (int i = 0; i < 1000; ++i) {
            codec.update(i % 7);
            tree.count(i % 7);
        }
        compareCodes(codec, tree);
    }

    void startHuffForgetsTheCounts()
    {
        LzHuff codec;
        codec.begin(QByteArray());
        for (int i = 0; i < 1000; ++i)
            codec.update(65);
        codec.startHuff();
        codec.encodeChar(65);
        codec.encodeEnd();
        QCOMPARE(codec.output(), QByteArray("\x0B"));
    }

    void reconstKeepsTheCountsInProportion()
    {
        // The root starts at 283 and is rebuilt when it has reached 32768.
        LzHuff codec;
        lzhufreference::AdaptiveTree tree(LzHuff::N_CHAR);
        codec.begin(QByteArray());
        for (int i = 0; i < 32768 - LzHuff::N_CHAR; ++i) {
            codec.update(i * i % 31);
            tree.count(i * i % 31);
        }
        QCOMPARE(tree.rebuilds(), 0);
        codec.reconst();
        codec.update(200);
        tree.count(200);
        QCOMPARE(tree.rebuilds(), 1);
        compareCodes(codec, tree);
    }

    void lookAheadHoldsUpTo29Bytes()
    {
        LzHuff codec;
        codec.begin("abc");
        QCOMPARE(codec.readLookAhead(), 3);
        codec.begin(QByteArray(100, 'x'));
        QCOMPARE(codec.readLookAhead(), 29);
        QCOMPARE(codec.getInByte(), int('x'));
    }

    void insertedStringIsFoundAgain()
    {
        LzHuff codec;
        codec.begin("abcdeXabcdeY");
        QCOMPARE(codec.readLookAhead(), 12);
        codec.insertNode(4067);
        QVERIFY(codec.matchLength() <= LzHuff::THRESHOLD);
        codec.insertNode(4073);
        QCOMPARE(codec.matchLength(), 5);
        QCOMPARE(codec.matchPosition(), 5);
    }

    void nearestOfEqualMatchesIsTaken()
    {
        LzHuff codec;
        codec.begin("abcQabcRabcS");
        codec.readLookAhead();
        codec.insertNode(4067); // ...Q
        codec.insertNode(4071); // ...R, passed on the way of
        codec.insertNode(4075); // ...S
        QCOMPARE(codec.matchLength(), 3);
        QCOMPARE(codec.matchPosition(), 3);
    }

    void deletedStringIsNotFound()
    {
        LzHuff codec;
        codec.begin("abcdeXabcdeYabcZ");
        codec.readLookAhead();
        codec.insertNode(4067);
        codec.deleteNode(4067);
        codec.insertNode(4073);
        QVERIFY(codec.matchLength() <= LzHuff::THRESHOLD);
        codec.deleteNode(4067); // is not there any more
        codec.insertNode(4079);
        QCOMPARE(codec.matchLength(), 3);
        QCOMPARE(codec.matchPosition(), 5);
    }

    void equalStringReplacesTheOldOne()
    {
        LzHuff codec;
        codec.begin(QByteArray());
        codec.insertNode(0); // 29 blanks each
        QVERIFY(codec.matchLength() <= LzHuff::THRESHOLD);
        codec.insertNode(100);
        QCOMPARE(codec.matchLength(), 29);
        QCOMPARE(codec.matchPosition(), 99);
        codec.insertNode(200);
        QCOMPARE(codec.matchPosition(), 99);
        codec.deleteNode(200);
        codec.insertNode(300); // 0 and 100 went when they were replaced
        QVERIFY(codec.matchLength() <= LzHuff::THRESHOLD);
    }

    void initTreeForgetsAllStrings()
    {
        LzHuff codec;
        codec.begin(QByteArray());
        codec.insertNode(0);
        codec.initTree();
        codec.insertNode(100);
        QVERIFY(codec.matchLength() <= LzHuff::THRESHOLD);
    }

    void encodeAndDecodeWorkOnTheRun()
    {
        LzHuff codec;
        codec.begin("A");
        codec.encode();
        QCOMPARE(codec.output(), QByteArray("\x01\0\0\0\x0B", 5));
        codec.begin(codec.output());
        QVERIFY(codec.decode());
        QCOMPARE(codec.output(), QByteArray("A"));
        codec.begin(QByteArray());
        QVERIFY(!codec.decode());
    }
};

QTEST_GUILESS_MAIN(TestLzHuffSteps)

#include "test_lzhuff_steps.moc"
