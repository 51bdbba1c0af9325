// A small LZHUF coder, written for clarity and independently of formats/lzhuff: the streams of the
// one are judged by the other. Its look-ahead is a parameter, so that it also speaks -lh1- (60).
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <algorithm>
#include <array>
#include <deque>
#include <utility>
#include <vector>

namespace lzhufreference
{

constexpr int windowSize = 4096;
constexpr int shortestMatch = 3;
constexpr int mfxLookAhead = 29;

/** Adaptive Huffman tree of linked nodes: rank 0 is the lightest node, the last one the root. */
class AdaptiveTree
{
public:
    explicit AdaptiveTree(int symbols)
    {
        for (int symbol = 0; symbol < symbols; ++symbol) {
            m_leaves.push_back(&m_nodes.emplace_back());
            m_leaves.back()->symbol = symbol;
            m_leaves.back()->weight = 1;
        }
        build(m_leaves);
    }

    /** The bits from the root down to the symbol's leaf. */
    std::vector<bool> code(int symbol) const
    {
        std::vector<bool> bits;
        for (const Node *node = leaf(symbol); node->parent != nullptr; node = node->parent)
            bits.push_back(node->parent->child[1] == node);
        std::reverse(bits.begin(), bits.end());
        return bits;
    }

    /** Follows the bits that the function yields, from the root to a leaf. */
    template <typename NextBit>
    int symbolFrom(NextBit nextBit) const
    {
        const Node *node = m_order.back();
        while (node->symbol < 0)
            node = node->child[nextBit() ? 1 : 0];
        return node->symbol;
    }

    /** Counts one more occurrence of the symbol. */
    void count(int symbol)
    {
        if (m_order.back()->weight == 0x8000)
            rebuild();
        for (Node *node = leaf(symbol); node != nullptr; node = node->parent) {
            exchange(node, lastOfWeight(node));
            ++node->weight;
        }
    }

    /** How often the tree was rebuilt because its root had become too heavy. */
    int rebuilds() const { return m_rebuilds; }

private:
    struct Node {
        int symbol = -1;
        unsigned weight = 0;
        std::size_t rank = 0;
        Node *parent = nullptr;
        std::array<Node *, 2> child = {};
    };

    Node *leaf(int symbol) const { return m_leaves[static_cast<std::size_t>(symbol)]; }

    void build(std::vector<Node *> order)
    {
        const auto lighter = [](unsigned weight, const Node *node) {
            return weight < node->weight;
        };
        for (std::size_t i = 0; i + 1 < order.size(); i += 2) {
            Node *const inner = &m_nodes.emplace_back();
            inner->child = {order[i], order[i + 1]};
            inner->weight = order[i]->weight + order[i + 1]->weight;
            order.insert(std::upper_bound(order.begin(), order.end(), inner->weight, lighter),
                         inner);
        }
        m_order = std::move(order);
        for (std::size_t rank = 0; rank < m_order.size(); ++rank) {
            m_order[rank]->rank = rank;
            for (Node *child : m_order[rank]->child) {
                if (child != nullptr)
                    child->parent = m_order[rank];
            }
        }
        m_order.back()->parent = nullptr;
    }

    void rebuild()
    {
        ++m_rebuilds;
        std::vector<Node *> leavesByRank;
        for (Node *node : m_order) {
            if (node->symbol < 0)
                continue;
            node->weight = (node->weight + 1) / 2;
            leavesByRank.push_back(node);
        }
        build(leavesByRank);
    }

    Node *lastOfWeight(const Node *node) const
    {
        std::size_t rank = node->rank;
        while (rank + 1 < m_order.size() && m_order[rank + 1]->weight == node->weight)
            ++rank;
        return m_order[rank];
    }

    /** Two nodes of one weight change places, each with all that hangs below it. */
    void exchange(Node *a, Node *b)
    {
        if (a == b)
            return;
        Node **const placeOfA = &a->parent->child[a->parent->child[1] == a ? 1 : 0];
        Node **const placeOfB = &b->parent->child[b->parent->child[1] == b ? 1 : 0];
        std::swap(*placeOfA, *placeOfB);
        std::swap(a->parent, b->parent);
        std::swap(m_order[a->rank], m_order[b->rank]);
        std::swap(a->rank, b->rank);
    }

    std::deque<Node> m_nodes;
    std::vector<Node *> m_leaves;
    std::vector<Node *> m_order;
    int m_rebuilds = 0;
};

/** The code of the upper six bits of a position: canonical, 3 to 8 bits long. */
struct PositionCode {
    unsigned bits = 0;
    int length = 0;
};

inline std::array<PositionCode, 64> positionCodes()
{
    constexpr std::array<std::pair<int, int>, 6> groups = {
        {{3, 1}, {4, 3}, {5, 8}, {6, 12}, {7, 24}, {8, 16}}};
    std::array<PositionCode, 64> codes;
    std::size_t value = 0;
    unsigned next = 0;
    int previousLength = 3;
    for (const auto &[length, members] : groups) {
        next <<= length - previousLength;
        previousLength = length;
        for (int i = 0; i < members; ++i)
            codes[value++] = {next++, length};
    }
    return codes;
}

/** Bits, most significant first; writes them or reads them back (zeros behind the end). */
class BitString
{
public:
    BitString() = default;
    explicit BitString(QByteArray bytes)
        : m_bytes(std::move(bytes))
    {
    }

    void put(bool bit)
    {
        if (m_position % 8 == 0)
            m_bytes.append('\0');
        if (bit)
            m_bytes.back() = static_cast<char>(m_bytes.back() | (0x80 >> (m_position % 8)));
        ++m_position;
    }
    void put(unsigned bits, int length)
    {
        for (int shift = length - 1; shift >= 0; --shift)
            put(((bits >> shift) & 1U) != 0);
    }
    bool take()
    {
        const qsizetype position = m_position++;
        return position / 8 < m_bytes.size() &&
               (m_bytes.at(position / 8) & (0x80 >> (position % 8))) != 0;
    }
    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray m_bytes;
    qsizetype m_position = 0;
};

/** Puts a stream together symbol by symbol. */
class StreamWriter
{
public:
    explicit StreamWriter(int lookAhead)
        : m_tree(256 - shortestMatch + 1 + lookAhead)
    {
    }

    void literal(quint8 byte) { symbol(byte); }

    /** A match of the length that ends `position` + 1 bytes before the write position. */
    void match(int length, int position)
    {
        symbol(256 - shortestMatch + length);
        const PositionCode upper = m_codes[static_cast<std::size_t>(position) >> 6];
        m_bits.put(upper.bits, upper.length);
        m_bits.put(static_cast<unsigned>(position) & 0x3FU, 6);
    }

    const QByteArray &bytes() const { return m_bits.bytes(); }
    std::size_t longestCode() const { return m_longestCode; }
    int rebuilds() const { return m_tree.rebuilds(); }

private:
    void symbol(int value)
    {
        const std::vector<bool> code = m_tree.code(value);
        m_longestCode = std::max(m_longestCode, code.size());
        for (const bool bit : code)
            m_bits.put(bit);
        m_tree.count(value);
    }

    AdaptiveTree m_tree;
    std::array<PositionCode, 64> m_codes = positionCodes();
    BitString m_bits;
    std::size_t m_longestCode = 0;
};

/** The text before the first byte: what the ring holds before anything is written into it. */
inline QByteArray blankHistory(int lookAhead)
{
    return QByteArray(lookAhead, '\0') + QByteArray(windowSize - lookAhead, ' ');
}

/** Compresses the text, without a size in front: the longest match, the nearest one of these. */
inline void encode(const QByteArray &text, int lookAhead, StreamWriter &writer)
{
    const QByteArray history = blankHistory(lookAhead) + text;
    const char *const all = history.constData();
    for (qsizetype at = windowSize; at < history.size();) {
        const qsizetype room = std::min<qsizetype>(lookAhead, history.size() - at);
        qsizetype best = 0;
        qsizetype bestDistance = 0;
        for (qsizetype distance = 1; distance <= windowSize - lookAhead && best < room;
             ++distance) {
            const char *const candidate = all + at - distance;
            if (candidate[best] != all[at + best])
                continue;
            const qsizetype same =
                std::mismatch(candidate, candidate + room, all + at).first - candidate;
            if (same > best) {
                best = same;
                bestDistance = distance;
            }
        }
        if (best < shortestMatch) {
            writer.literal(static_cast<quint8>(all[at]));
            ++at;
        } else {
            writer.match(static_cast<int>(best), static_cast<int>(bestDistance) - 1);
            at += best;
        }
    }
}

/** What a decoder found in a stream. */
struct Decoded {
    QByteArray text;
    std::size_t longestCode = 0; ///< bits of the longest Huffman code
    int rebuilds = 0;            ///< of the Huffman tree
};

/** Expands bits that have no size in front until at least `size` bytes are there. */
inline Decoded decode(const QByteArray &bits, qsizetype size, int lookAhead)
{
    const std::array<PositionCode, 64> codes = positionCodes();
    AdaptiveTree tree(256 - shortestMatch + 1 + lookAhead);
    BitString input(bits);
    QByteArray history = blankHistory(lookAhead);
    Decoded result;
    while (history.size() - windowSize < size) {
        std::size_t codeLength = 0;
        const int symbol = tree.symbolFrom([&input, &codeLength] {
            ++codeLength;
            return input.take();
        });
        result.longestCode = std::max(result.longestCode, codeLength);
        tree.count(symbol);
        if (symbol < 256) {
            history.append(static_cast<char>(symbol));
            continue;
        }
        PositionCode read;
        const auto matches = [&read](const PositionCode &code) {
            return code.length == read.length && code.bits == read.bits;
        };
        auto found = codes.end();
        while (found == codes.end()) {
            read = {read.bits * 2 + (input.take() ? 1U : 0U), read.length + 1};
            found = std::find_if(codes.begin(), codes.end(), matches);
        }
        qsizetype position = found - codes.begin();
        for (int i = 0; i < 6; ++i)
            position = position * 2 + (input.take() ? 1 : 0);
        for (int i = 0; i < symbol - 256 + shortestMatch; ++i)
            history.append(history.at(history.size() - position - 1));
    }
    result.text = history.mid(windowSize);
    result.rebuilds = tree.rebuilds();
    return result;
}

} // namespace lzhufreference
