// The LZHUF coder: its stream and its calls.
#include "formats/lzhuff.h"
#include "support/logcapture.h"
#include "support/lzhuffchecks.h"
#include "support/lzhufreference.h"
#include "support/midilike.h"
#include "support/songbytes.h"

#include <QTest>

#include <map>

using namespace lzhuffchecks;

namespace
{

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

class TestLzHuff : public QuietLzHuffFixture
{
    Q_OBJECT

private slots:
    void init() { QuietLzHuffFixture::init(); }
    void cleanup() { QuietLzHuffFixture::cleanup(); }

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
};

QTEST_GUILESS_MAIN(TestLzHuff)

#include "test_lzhuff.moc"
