// The published LZHUF coder, written down plainly: what our own coder's speed is held against.
//
// LZSS with one binary search tree for each first byte, adaptive Huffman codes for literals and
// match lengths, fixed codes for positions; with the look-ahead of our streams. Arrays of int and
// byte by byte, as the program of 1988 has it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

class PlainLzhuf
{
public:
    std::vector<uint8_t> compress(const uint8_t *in, std::size_t size)
    {
        m_in = in;
        m_end = in + size;
        m_out.clear();
        m_bits = 0;
        m_bitCount = 0;
        for (int shift = 0; shift < 32; shift += 8)
            m_out.push_back(static_cast<uint8_t>(size >> shift));
        if (size > 0)
            encode();
        return m_out;
    }

private:
    static constexpr int ringSize = 4096;
    static constexpr int lookAhead = 29;
    static constexpr int threshold = 2;
    static constexpr int symbols = 256 - threshold + lookAhead;
    static constexpr int nodes = 2 * symbols - 1;
    static constexpr int root = nodes - 1;
    static constexpr unsigned maxFrequency = 0x8000;
    static constexpr int none = ringSize;

    // The search tree

    void startTree()
    {
        for (int i = ringSize + 1; i <= ringSize + 256; ++i)
            m_right[i] = none;
        for (int i = 0; i < ringSize; ++i)
            m_parent[i] = none;
    }

    void insertNode(int r)
    {
        const uint8_t *const key = m_text + r;
        int order = 1;
        int p = ringSize + 1 + key[0];
        m_right[r] = m_left[r] = none;
        m_matchLength = 0;
        for (;;) {
            int *const child = order >= 0 ? m_right : m_left;
            if (child[p] == none) {
                child[p] = r;
                m_parent[r] = p;
                return;
            }
            p = child[p];
            int i = 1;
            for (; i < lookAhead; ++i) {
                order = key[i] - m_text[p + i];
                if (order != 0)
                    break;
            }
            if (i <= threshold)
                continue;
            const int position = ((r - p) & (ringSize - 1)) - 1;
            if (i > m_matchLength) {
                m_matchPosition = position;
                m_matchLength = i;
                if (i >= lookAhead)
                    break;
            } else if (i == m_matchLength && position < m_matchPosition) {
                m_matchPosition = position;
            }
        }
        // The same text stands there already: the new one takes its place.
        m_parent[r] = m_parent[p];
        m_left[r] = m_left[p];
        m_right[r] = m_right[p];
        m_parent[m_left[p]] = r;
        m_parent[m_right[p]] = r;
        if (m_right[m_parent[p]] == p)
            m_right[m_parent[p]] = r;
        else
            m_left[m_parent[p]] = r;
        m_parent[p] = none;
    }

    void deleteNode(int p)
    {
        if (m_parent[p] == none)
            return;
        int q = 0;
        if (m_right[p] == none) {
            q = m_left[p];
        } else if (m_left[p] == none) {
            q = m_right[p];
        } else {
            q = m_left[p];
            if (m_right[q] != none) {
                do {
                    q = m_right[q];
                } while (m_right[q] != none);
                m_right[m_parent[q]] = m_left[q];
                m_parent[m_left[q]] = m_parent[q];
                m_left[q] = m_left[p];
                m_parent[m_left[p]] = q;
            }
            m_right[q] = m_right[p];
            m_parent[m_right[p]] = q;
        }
        m_parent[q] = m_parent[p];
        if (m_right[m_parent[p]] == p)
            m_right[m_parent[p]] = q;
        else
            m_left[m_parent[p]] = q;
        m_parent[p] = none;
    }

    // The Huffman codes

    void startHuffman()
    {
        for (int i = 0; i < symbols; ++i) {
            m_frequency[i] = 1;
            m_son[i] = i + nodes;
            m_above[i + nodes] = i;
        }
        for (int i = 0, j = symbols; j <= root; i += 2, ++j) {
            m_frequency[j] = m_frequency[i] + m_frequency[i + 1];
            m_son[j] = i;
            m_above[i] = m_above[i + 1] = j;
        }
        m_frequency[nodes] = 0xFFFF;
        m_above[root] = 0;
    }

    void rebuild()
    {
        int leaves = 0;
        for (int i = 0; i < nodes; ++i) {
            if (m_son[i] >= nodes) {
                m_frequency[leaves] = (m_frequency[i] + 1) / 2;
                m_son[leaves++] = m_son[i];
            }
        }
        for (int i = 0, j = symbols; j < nodes; i += 2, ++j) {
            const unsigned sum = m_frequency[j] = m_frequency[i] + m_frequency[i + 1];
            int k = j - 1;
            while (sum < m_frequency[k])
                --k;
            ++k;
            const std::size_t moved = static_cast<std::size_t>(j - k);
            std::memmove(m_frequency + k + 1, m_frequency + k, moved * sizeof *m_frequency);
            m_frequency[k] = sum;
            std::memmove(m_son + k + 1, m_son + k, moved * sizeof *m_son);
            m_son[k] = i;
        }
        for (int i = 0; i < nodes; ++i) {
            const int son = m_son[i];
            m_above[son] = i;
            if (son < nodes)
                m_above[son + 1] = i;
        }
    }

    void update(int symbol)
    {
        if (m_frequency[root] == maxFrequency)
            rebuild();
        int node = m_above[symbol + nodes];
        do {
            const unsigned frequency = ++m_frequency[node];
            int last = node + 1;
            if (frequency > m_frequency[last]) {
                while (frequency > m_frequency[last + 1])
                    ++last;
                m_frequency[node] = m_frequency[last];
                m_frequency[last] = frequency;
                const int one = m_son[node];
                m_above[one] = last;
                if (one < nodes)
                    m_above[one + 1] = last;
                const int other = m_son[last];
                m_son[last] = one;
                m_above[other] = node;
                if (other < nodes)
                    m_above[other + 1] = node;
                m_son[node] = other;
                node = last;
            }
            node = m_above[node];
        } while (node != 0);
    }

    // The bits

    /** Writes the upper bits of a code of 16; the buffer's upper bits are those that wait. */
    void putCode(int count, unsigned code)
    {
        m_bits |= code >> m_bitCount;
        m_bitCount += count;
        if (m_bitCount < 8)
            return;
        m_out.push_back(static_cast<uint8_t>(m_bits >> 8));
        m_bitCount -= 8;
        if (m_bitCount < 8) {
            m_bits = m_bits << 8 & 0xFFFF;
            return;
        }
        m_out.push_back(static_cast<uint8_t>(m_bits));
        m_bitCount -= 8;
        m_bits = code << (count - m_bitCount) & 0xFFFF;
    }

    void encodeSymbol(int symbol)
    {
        unsigned code = 0;
        int count = 0;
        int node = m_above[symbol + nodes];
        do {
            code >>= 1;
            if ((node & 1) != 0)
                code += 0x8000;
            ++count;
            node = m_above[node];
        } while (node != root);
        putCode(count, code);
        update(symbol);
    }

    /** The upper six bits of a position have codes of three to eight bits, in increasing order. */
    void startPositions()
    {
        static constexpr int countOfLength[] = {0, 0, 0, 1, 3, 8, 12, 24, 16};
        unsigned code = 0;
        int next = 0;
        for (int length = 3; length <= 8; ++length) {
            for (int i = 0; i < countOfLength[length]; ++i, code += 1U << (8 - length)) {
                m_positionCode[next] = code << 8;
                m_positionLength[next++] = length;
            }
        }
    }

    void encodePosition(unsigned position)
    {
        putCode(m_positionLength[position >> 6], m_positionCode[position >> 6]);
        putCode(6, (position & 0x3F) << 10);
    }

    void encode()
    {
        startPositions();
        startHuffman();
        startTree();
        int s = 0;
        int r = ringSize - lookAhead;
        std::memset(m_text, ' ', static_cast<std::size_t>(r));
        int length = 0;
        while (length < lookAhead && m_in != m_end)
            m_text[r + length++] = *m_in++;
        for (int i = 1; i <= lookAhead; ++i)
            insertNode(r - i);
        insertNode(r);
        do {
            if (m_matchLength > length)
                m_matchLength = length;
            if (m_matchLength <= threshold) {
                m_matchLength = 1;
                encodeSymbol(m_text[r]);
            } else {
                encodeSymbol(255 - threshold + m_matchLength);
                encodePosition(static_cast<unsigned>(m_matchPosition));
            }
            const int used = m_matchLength;
            int i = 0;
            for (; i < used && m_in != m_end; ++i) {
                deleteNode(s);
                m_text[s] = *m_in++;
                if (s < lookAhead - 1)
                    m_text[s + ringSize] = m_text[s];
                s = (s + 1) & (ringSize - 1);
                r = (r + 1) & (ringSize - 1);
                insertNode(r);
            }
            for (; i < used; ++i) {
                deleteNode(s);
                s = (s + 1) & (ringSize - 1);
                r = (r + 1) & (ringSize - 1);
                if (--length > 0)
                    insertNode(r);
            }
        } while (length > 0);
        if (m_bitCount > 0)
            m_out.push_back(static_cast<uint8_t>(m_bits >> 8));
    }

    const uint8_t *m_in = nullptr;
    const uint8_t *m_end = nullptr;
    std::vector<uint8_t> m_out;
    unsigned m_bits = 0;
    int m_bitCount = 0;
    int m_matchPosition = 0;
    int m_matchLength = 0;
    uint8_t m_text[ringSize + lookAhead - 1] = {};
    int m_left[ringSize + 1] = {};
    int m_right[ringSize + 257] = {};
    int m_parent[ringSize + 1] = {};
    unsigned m_frequency[nodes + 1] = {};
    int m_above[nodes + symbols] = {};
    int m_son[nodes] = {};
    unsigned m_positionCode[64] = {};
    int m_positionLength[64] = {};
};
