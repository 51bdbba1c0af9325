// The LZHUF codec: its stream layout, its limits, its steps, and round trips of everything. Streams
// are judged by a second coder (support/lzhufreference.h) and by bits written out by hand.
#include "formats/lzhuff.h"
#include "support/logcapture.h"
#include "support/lzhufreference.h"
#include "support/midilike.h"
#include "support/songbytes.h"

#include <QTest>

#include <map>
#include <memory>
#include <random>

namespace
{

constexpr qsizetype longestText = 500000;
constexpr qsizetype longestExcess = 28;

QByteArray randomBytes(qsizetype size, quint32 seed, quint32 kinds = 256)
{
    std::mt19937 random(seed);
    QByteArray bytes;
    while (bytes.size() < size)
        bytes.append(static_cast<char>(random() % kinds));
    return bytes;
}

QByteArray repeated(const QByteArray &pattern, qsizetype size)
{
    return pattern.repeated(size / pattern.size() + 1).left(size);
}

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

QByteArray compressed(const QByteArray &text)
{
    LzHuff codec;
    QByteArray stream;
    codec.compress(text, stream);
    return stream;
}

QByteArray sized(qsizetype size, const QByteArray &bits)
{
    return songbytes::littleEndian(static_cast<quint32>(size), 4) + bits;
}

/** What the expander makes of a stream that it has to accept. */
QByteArray expanded(const QByteArray &stream)
{
    LzHuff codec;
    QByteArray text("left over");
    if (!codec.expand(stream, text))
        qFatal("A stream of the test was refused");
    return text;
}

QByteArray referenceText(const QByteArray &bits, qsizetype size)
{
    return lzhufreference::decode(bits, size, lzhufreference::mfxLookAhead).text;
}

/**
 * The published tree search over a whole text, on strings instead of a ring: what is found depends
 * on which strings the search passes, so the shape of the tree must be the published one.
 */
class PublishedSearch
{
public:
    struct Match {
        int length = 0;
        int position = 0;
    };

    explicit PublishedSearch(const QByteArray &text)
        : m_text(text)
    {
    }

    /** Inserts the string at the place (counted like the ring, text from N - F on). */
    Match insert(int place)
    {
        Match match;
        const QByteArray key = keyAt(place);
        Node *const node = &m_nodes[place];
        *node = Node{key, place, nullptr, {nullptr, nullptr}, true};
        Node **link = &m_roots[static_cast<quint8>(key.at(0))];
        Node *parent = nullptr;
        while (*link != nullptr) {
            parent = *link;
            int shared = 1;
            while (shared < LzHuff::F && parent->key.at(shared) == key.at(shared))
                ++shared;
            const int position = place - parent->place - 1;
            if (shared > LzHuff::THRESHOLD &&
                (shared > match.length || (shared == match.length && position < match.position)))
                match = {shared, position};
            if (shared == LzHuff::F) {
                takeThePlaceOf(parent, node, link);
                return match;
            }
            link = &parent->son[static_cast<quint8>(key.at(shared)) >
                                static_cast<quint8>(parent->key.at(shared))];
        }
        *link = node;
        node->parent = parent;
        return match;
    }

    void remove(int place)
    {
        const auto found = m_nodes.find(place);
        if (found == m_nodes.end())
            return;
        if (found->second.inTree)
            takeOut(&found->second);
        m_nodes.erase(found);
    }

private:
    struct Node {
        QByteArray key;
        int place;
        Node *parent;
        std::array<Node *, 2> son;
        bool inTree;
    };

    /** F bytes from the place on; behind the text stands what the ring held before. */
    QByteArray keyAt(int place) const
    {
        QByteArray key;
        for (int i = 0; i < LzHuff::F; ++i)
            key.append(byteAt(place + i, place % LzHuff::N + i >= LzHuff::N));
        return key;
    }

    char byteAt(int place, bool mirrored) const
    {
        constexpr int start = LzHuff::N - LzHuff::F;
        if (place - start >= m_text.size())
            place -= LzHuff::N;
        if (place >= start)
            return m_text.at(place - start);
        return place >= 0 && !mirrored ? ' ' : '\0';
    }

    Node **linkTo(Node *node)
    {
        if (node->parent == nullptr)
            return &m_roots[static_cast<quint8>(node->key.at(0))];
        return &node->parent->son[node->parent->son[1] == node ? 1 : 0];
    }

    static void adopt(Node *parent, int side, Node *son)
    {
        parent->son[static_cast<std::size_t>(side)] = son;
        if (son != nullptr)
            son->parent = parent;
    }

    static void takeThePlaceOf(Node *old, Node *node, Node **link)
    {
        *link = node;
        node->parent = old->parent;
        adopt(node, 0, old->son[0]);
        adopt(node, 1, old->son[1]);
        old->inTree = false;
    }

    void takeOut(Node *node)
    {
        Node *heir = node->son[0] != nullptr ? node->son[0] : node->son[1];
        if (node->son[0] != nullptr && node->son[1] != nullptr) {
            while (heir->son[1] != nullptr)
                heir = heir->son[1];
            if (heir != node->son[0]) {
                adopt(heir->parent, 1, heir->son[0]);
                adopt(heir, 0, node->son[0]);
            }
            adopt(heir, 1, node->son[1]);
        }
        *linkTo(node) = heir;
        if (heir != nullptr)
            heir->parent = node->parent;
    }

    QByteArray m_text;
    std::map<int, Node> m_nodes;
    std::array<Node *, 256> m_roots{};
};

/** The stream that the published program makes of the text. */
QByteArray publishedStream(const QByteArray &text)
{
    constexpr int start = LzHuff::N - LzHuff::F;
    lzhufreference::StreamWriter writer(LzHuff::F);
    PublishedSearch search(text);
    for (int place = start - 1; place >= start - LzHuff::F; --place)
        search.insert(place);
    const int end = start + static_cast<int>(text.size());
    PublishedSearch::Match match = search.insert(start);
    for (int place = start; place < end;) {
        int length = std::min(match.length, end - place);
        if (length <= LzHuff::THRESHOLD) {
            length = 1;
            writer.literal(static_cast<quint8>(text.at(place - start)));
        } else {
            writer.match(length, match.position);
        }
        for (; length > 0; --length) {
            search.remove(place - start);
            ++place;
            if (place < end)
                match = search.insert(place);
        }
    }
    return sized(text.size(), writer.bytes());
}

} // namespace

class TestLzHuff : public QObject
{
    Q_OBJECT

private slots:
    // The codec logs each call; tests that look at the lines have a capture of their own.
    void init() { m_quiet = std::make_unique<LogCapture>(); }
    void cleanup() { m_quiet.reset(); }

    // ---- the stream

    void emptyTextIsItsSizeOnly() { QCOMPARE(compressed(QByteArray()), QByteArray(4, '\0')); }

    void streamOfSizeZeroIsRefused()
    {
        LzHuff codec;
        QByteArray text("left over");
        const LogCapture log;
        QVERIFY(!codec.expand(QByteArray(4, '\0'), text));
        QVERIFY(text.isEmpty());
        QCOMPARE(LogCapture::lines(), QStringList(QStringLiteral("Expand: ERROR ")));
        QVERIFY(!codec.expand(QByteArray(100, '\0'), text));
        QVERIFY(text.isEmpty());
    }

    void literalIsACodeOfTheFirstTree()
    {
        // Node k of the first tree hangs below node 283 + k / 2, so "A" (65) leads over 315, 440,
        // 503, 534, 550, 558 and 562 to the root 564: odd are 65, 315 and 503.
        const QByteArray stream("\x01\0\0\0\x0B", 5);
        QCOMPARE(compressed("A"), stream);
        QCOMPARE(expanded(stream), QByteArray("A"));
    }

    void leadingBlanksAreAMatch()
    {
        // Length 3 is symbol 256: over 411, 488, 527, 546, 556, 561 and 563, of which 411, 527,
        // 561 and 563 are odd. Then position 0: the code 000 and six zero bits.
        const QByteArray stream("\x03\0\0\0\xCA\0\0", 7);
        QCOMPARE(compressed("   "), stream);
        QCOMPARE(expanded(stream), QByteArray("   "));
    }

    void longestMatchIs29Bytes()
    {
        // Length 29 is symbol 282: over 424, 495, 530, 548, 557, 561 and 563. Of the 29 strings of
        // blanks the tree keeps the one inserted last, 29 bytes behind: position 28.
        const QByteArray stream("\x1D\0\0\0\xE4\x0E\0", 7);
        QCOMPARE(compressed(QByteArray(29, ' ')), stream);
        QCOMPARE(expanded(stream), QByteArray(29, ' '));
    }

    void sizeIsLittleEndian()
    {
        QCOMPARE(compressed(QByteArray(0x012345, 'x')).left(4), QByteArray("\x45\x23\x01\0", 4));
    }

    void callsAreLogged()
    {
        LzHuff codec;
        QByteArray stream;
        QByteArray text;
        const LogCapture log;
        codec.compress("A", stream);
        QVERIFY(codec.expand(stream, text));
        QCOMPARE(LogCapture::lines(), QStringList({QStringLiteral("Compress:  1  -->  5 "),
                                                   QStringLiteral("Expand:  5  -->  1 ")}));
    }

    void tooLargeSizeIsRefused_data()
    {
        QTest::addColumn<QByteArray>("stream");
        QTest::addColumn<QString>("size");
        QTest::newRow("500001") << sized(500001, "bits") << QStringLiteral("500001");
        QTest::newRow("largest") << sized(0xFFFFFFFF, "bits") << QStringLiteral("4294967295");
        QTest::newRow("nothing") << QByteArray() << QStringLiteral("4294967295");
        QTest::newRow("one byte") << QByteArray("\x05") << QStringLiteral("4294967045");
        QTest::newRow("two bytes") << QByteArray("\x05\0", 2) << QStringLiteral("4294901765");
        QTest::newRow("three bytes") << QByteArray("\x05\0\0", 3) << QStringLiteral("4278190085");
    }
    void tooLargeSizeIsRefused()
    {
        QFETCH(QByteArray, stream);
        QFETCH(QString, size);
        LzHuff codec;
        QByteArray text("left over");
        const LogCapture log;
        QVERIFY(!codec.expand(stream, text));
        QVERIFY(text.isEmpty());
        const QString rule(69, QLatin1Char('='));
        QCOMPARE(LogCapture::lines(),
                 QStringList({rule + QLatin1Char(' '),
                              QStringLiteral("WARNING: skipping file, compressed stream "
                                             "corrupted/wrong size !!! "),
                              QStringLiteral("Text size:  %1 ").arg(size), rule + QLatin1Char(' '),
                              QStringLiteral("Expand: ERROR ")}));
    }

    void size500000IsAccepted()
    {
        LzHuff codec;
        QByteArray text;
        QVERIFY(codec.expand(sized(longestText, QByteArray()), text));
        QVERIFY(text.size() >= longestText);
        QVERIFY(text.size() <= longestText + longestExcess);
        QVERIFY(text.capacity() <= longestText + longestExcess);
        QCOMPARE(text, referenceText(QByteArray(), longestText));
    }

    void excessOfTheLastMatchStays()
    {
        lzhufreference::StreamWriter writer(LzHuff::F);
        writer.literal('a');
        writer.match(29, 0);
        QCOMPARE(expanded(sized(2, writer.bytes())), QByteArray(30, 'a'));
        QCOMPARE(expanded(sized(30, writer.bytes())), QByteArray(30, 'a'));
    }

    void handMadeStreamsExpand()
    {
        lzhufreference::StreamWriter writer(LzHuff::F);
        writer.literal('a');
        writer.literal('b');
        writer.match(5, 1);         // overlaps what it writes
        writer.match(3, 500);       // blanks before the text
        writer.match(4, 4066 + 10); // the first blank lies 4067 bytes before the text
        writer.match(3, 4095);      // before the blanks there are zero bytes
        const QByteArray text = QByteArray("abababa   ") + QByteArray(4, ' ');
        const QByteArray out = expanded(sized(17, writer.bytes()));
        QCOMPARE(out.left(14), text);
        QCOMPARE(out, referenceText(writer.bytes(), 17));
    }

    void matchMayReachBackOverTheWholeRing()
    {
        lzhufreference::StreamWriter writer(LzHuff::F);
        const QByteArray start = randomBytes(4096, 7);
        for (const char byte : start)
            writer.literal(static_cast<quint8>(byte));
        writer.match(29, 4095);
        QCOMPARE(expanded(sized(4125, writer.bytes())), start + start.left(29));
    }

    void streamOfTheReferenceEncoderExpands()
    {
        const QByteArray text = midilike::bytes(20000, 3);
        lzhufreference::StreamWriter writer(LzHuff::F);
        lzhufreference::encode(text, LzHuff::F, writer);
        QCOMPARE(expanded(sized(text.size(), writer.bytes())), text);
    }

    void matchesAreThoseOfThePublishedTreeSearch_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("one byte") << QByteArray("x");
        QTest::newRow("words") << QByteArray("she sells sea shells by the sea shore, the shells");
        QTest::newRow("blanks") << QByteArray(100, ' ');
        QTest::newRow("zeros") << QByteArray(5000, '\0');
        QTest::newRow("two kinds") << randomBytes(12000, 1, 2);
        QTest::newRow("few kinds") << randomBytes(12000, 2, 5);
        QTest::newRow("random") << randomBytes(9000, 3);
        QTest::newRow("periodic") << repeated(randomBytes(333, 4), 9000);
        QTest::newRow("MIDI") << midilike::bytes(40000, 5);
    }
    void matchesAreThoseOfThePublishedTreeSearch()
    {
        QFETCH(QByteArray, text);
        QCOMPARE(compressed(text), publishedStream(text));
    }

    void shortTextsAreCodedAsPublished()
    {
        LzHuff codec;
        QByteArray stream;
        for (int length = 1; length <= 300; ++length) {
            const QByteArray text = randomBytes(length, static_cast<quint32>(length), 3);
            codec.compress(text, stream);
            QCOMPARE(stream, publishedStream(text));
        }
    }

    // ---- calls

    void equalTextsGiveEqualStreamsWhateverWasBefore()
    {
        LzHuff used;
        QByteArray stream;
        for (const QByteArray &text : {QByteArray("abc"), randomBytes(17, 1, 3),
                                       midilike::bytes(6000, 2), QByteArray(40, ' ')}) {
            const QByteArray fresh = compressed(text);
            used.compress(text, stream);
            QCOMPARE(stream, fresh);
            used.compress(randomBytes(70000, 9, 7), stream);
            used.compress(text, stream);
            QCOMPARE(stream, fresh);
            QByteArray other;
            QVERIFY(used.expand(sized(3000, randomBytes(500, 4)), other));
            used.compress(text, stream);
            QCOMPARE(stream, fresh);
        }
    }

    void expandingDoesNotDependOnWhatWasBefore()
    {
        const QByteArray stream = sized(5000, randomBytes(600, 11)); // reaches before the text
        const QByteArray fresh = expanded(stream);
        LzHuff used;
        QByteArray other;
        used.compress(randomBytes(20000, 12), other);
        QByteArray text;
        QVERIFY(used.expand(stream, text));
        QCOMPARE(text, fresh);
    }

    void inputAndOutputMayBeTheSameArray()
    {
        const QByteArray text = midilike::bytes(3000, 1);
        LzHuff codec;
        QByteArray bytes = text;
        codec.compress(bytes, bytes);
        QCOMPARE(bytes, compressed(text));
        QVERIFY(codec.expand(bytes, bytes));
        QCOMPARE(bytes, text);
    }

    // ---- round trips

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

    // ---- bad streams

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

    // ---- the steps, one by one

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

private:
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

QTEST_GUILESS_MAIN(TestLzHuff)
#include "test_lzhuff.moc"
