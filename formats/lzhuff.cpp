#include "formats/lzhuff.h"

#include "formats/diagnostics.h"

#include <QtAlgorithms>
#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace
{


quint32 prefixOf(const quint8 *text)
{
    return qFromBigEndian<quint32>(text) >> 8;
}
size_t slotOf(quint32 prefix) { return (prefix * 2654435761U) >> 20; }
static quint64 load(const quint8*p){quint64 w;memcpy(&w,p,8);return w;}
constexpr int none = LzHuff::N; // the link that leads to no string
constexpr int firstWrite = LzHuff::N - LzHuff::F;
constexpr int firstLengthSymbol = 256 - LzHuff::THRESHOLD - 1;

/** The fixed code of the upper six bits of a position, in increasing order of bits and length. */
struct PositionCode {
    std::array<quint8, 64> length{};
    std::array<quint8, 64> bits{};
    std::array<quint8, 256> inverse{};
    std::array<quint8, 256> inverseLength{};

    constexpr PositionCode()
    {
        constexpr std::array<unsigned, 6> codesOfLength = {1, 3, 8, 12, 24, 16};
        unsigned value = 0;
        unsigned firstByte = 0;
        for (unsigned group = 0; group < codesOfLength.size(); ++group) {
            const unsigned codeLength = 3 + group;
            const unsigned bytesOfCode = 256U >> codeLength;
            for (unsigned i = 0; i < codesOfLength[group]; ++i, ++value) {
                length[value] = static_cast<quint8>(codeLength);
                bits[value] = static_cast<quint8>(firstByte);
                for (unsigned end = firstByte + bytesOfCode; firstByte < end; ++firstByte) {
                    inverse[firstByte] = static_cast<quint8>(value);
                    inverseLength[firstByte] = static_cast<quint8>(codeLength);
                }
            }
        }
    }
};

constexpr PositionCode positionCode;

} // namespace

const std::array<quint8, 64> LzHuff::p_len = positionCode.length;
const std::array<quint8, 64> LzHuff::p_code = positionCode.bits;
const std::array<quint8, 256> LzHuff::d_code = positionCode.inverse;
const std::array<quint8, 256> LzHuff::d_len = positionCode.inverseLength;

LzHuff::LzHuff()
{
    begin(QByteArray());
    initTree();
    startHuff();
}

void LzHuff::compress(const QByteArray &in, QByteArray &out)
{
    begin(in);
    encode();
    out = output();
    logDebug() << "Compress: " << qint64(m_in.size()) << " --> " << qint64(out.size());
}

bool LzHuff::expand(const QByteArray &in, QByteArray &out)
{
    begin(in);
    const bool expanded = decode();
    m_out.truncate(m_outUsed);
    out.swap(m_out);
    m_out.clear();
    if (!expanded) {
        logDebug() << "Expand: ERROR";
        return false;
    }
    logDebug() << "Expand: " << qint64(m_in.size()) << " --> " << qint64(out.size());
    return true;
}

void LzHuff::begin(const QByteArray &in)
{
    m_in = in;
    m_inUsed = 0;
    m_out.clear();
    m_outUsed = 0;
    m_getBits = 0;
    m_getCount = 0;
    m_putBits = 0;
    m_putCount = 0;
    m_matchPosition = 0;
    m_matchLength = 0;
    m_textBuf.fill(0);
    std::fill_n(m_textBuf.begin(), firstWrite, quint8(' '));
}

// ---------------------------------------------------------------- search tree

void LzHuff::initTree()
{
    m_son.fill({none, none});
    m_dad.fill(none);
    m_top.fill(none);
    m_fullMatch = none;
}

void LzHuff::insertNode(int r)
{
    const quint8 *const key = &m_textBuf[static_cast<size_t>(r)];
    const size_t next = static_cast<size_t>(m_fullMatch + 1);
    if (m_fullMatch != none && m_dad[next & (N-1)] != none && key[F-1] == m_textBuf[(next & (N-1)) + F - 1]) {
        m_fullMatch = static_cast<int>(next & (N-1));
        m_matchLength = F;
        m_matchPosition = ((r - m_fullMatch) & (N - 1)) - 1;
        replaceNode(m_fullMatch, r);
        return;
    }
    m_fullMatch = none;
    m_son[r] = {none, none};
    const quint32 prefix = prefixOf(key);
    const size_t slot = slotOf(prefix);
    size_t p = m_top[slot];
    if (p == none || prefixOf(&m_textBuf[p]) != prefix) {
        p = static_cast<size_t>(N + 1 + key[0]);
        size_t side = 1;
        for (;;) {
            const size_t next = m_son[p][side];
            if (next == none) {
                m_son[p][side] = static_cast<quint16>(r);
                m_dad[r] = static_cast<quint16>(p);
                m_matchLength = 0;
                m_top[slot] = static_cast<quint16>(r);
                return;
            }
            p = next;
            const quint32 other = prefixOf(&m_textBuf[p]);
            if (other == prefix)
                break;
            side = prefix > other;
        }
        m_top[slot] = static_cast<quint16>(p);
    }
    const quint64 keyWord = load(key + 1);
    int best = 0;
    size_t side = 1;
    size_t next_ = p;
    while (next_ != none) {
        p = next_;
        const quint16 left = m_son[p][0];
        const quint16 right = m_son[p][1];
        const quint8 *const text = &m_textBuf[p];
        const quint64 textWord = load(text + 1);
        quint64 x = keyWord ^ textWord;
        int length = 1;
        side = qFromBigEndian(keyWord) > qFromBigEndian(textWord);
        if (x == 0) {
            int i = 9;
            for (; i < F; i += 8) {
                const quint64 a = load(key + i);
                const quint64 b = load(text + i);
                x = a ^ b;
                side = qFromBigEndian(a) > qFromBigEndian(b);
                if (x != 0)
                    break;
            }
            length = i;
        }
        length += static_cast<int>(__builtin_ctzll(x) / 8);
        if (length >= F) {
            m_matchLength = F;
            m_fullMatch = static_cast<int>(p);
            m_matchPosition = ((r - m_fullMatch) & (N - 1)) - 1;
            replaceNode(m_fullMatch, r);
            return;
        }
        const int score = (length << 12) | ((static_cast<int>(p) - r) & (N - 1));
        best = std::max(best, score);
        next_ = left ^ ((left ^ right) & (0 - side));
    }
    m_son[p][side] = static_cast<quint16>(r);
    m_dad[r] = static_cast<quint16>(p);
    m_matchLength = best >> 12;
    m_matchPosition = N - 1 - (best & (N - 1));
}

void LzHuff::replaceNode(int p, int r)
{
    m_son[r] = m_son[p];
    m_dad[r] = m_dad[p];
    m_dad[m_son[p][0]] = static_cast<quint16>(r);
    m_dad[m_son[p][1]] = static_cast<quint16>(r);
    Sons &dad = m_son[m_dad[p]];
    dad[dad[1] == p ? 1 : 0] = static_cast<quint16>(r);
    m_dad[p] = none;
    quint16 &top = m_top[slotOf(prefixOf(&m_textBuf[r]))];
    if (top == p)
        top = static_cast<quint16>(r);
}

void LzHuff::deleteNode(int p)
{
    if (m_dad[p] == none)
        return;
    const Sons node = m_son[p];
    quint16 &top = m_top[slotOf(prefixOf(&m_textBuf[p]))];
    if (top == p)
        top = none;
    size_t q;
    if (node[1] == none) {
        q = node[0];
    } else if (node[0] == none) {
        q = node[1];
    } else {
        q = node[0];
        if (m_son[q][1] != none) {
            do
                q = m_son[q][1];
            while (m_son[q][1] != none);
            m_son[m_dad[q]][1] = m_son[q][0];
            m_dad[m_son[q][0]] = m_dad[q];
            m_son[q][0] = node[0];
            m_dad[node[0]] = static_cast<quint16>(q);
        }
        m_top[slotOf(prefixOf(&m_textBuf[q]))] = none;
        m_son[q][1] = node[1];
        m_dad[node[1]] = static_cast<quint16>(q);
    }
    m_dad[q] = m_dad[p];
    Sons &dad = m_son[m_dad[p]];
    dad[dad[1] == p ? 1 : 0] = static_cast<quint16>(q);
    m_dad[p] = none;
}

// ---------------------------------------------------------------- Huffman

void LzHuff::startHuff()
{
    for (int i = 0; i < N_CHAR; ++i) {
        m_freq[i] = 1;
        m_hson[i] = static_cast<quint16>(i + T);
        m_prnt[i + T] = static_cast<quint16>(i);
    }
    for (int i = 0, j = N_CHAR; j <= R; i += 2, ++j) {
        m_freq[j] = static_cast<quint16>(m_freq[i] + m_freq[i + 1]);
        m_hson[j] = static_cast<quint16>(i);
        m_prnt[i] = m_prnt[i + 1] = static_cast<quint16>(j);
    }
    m_freq[T] = 0xFFFF;
    m_prnt[R] = 0;
}

void LzHuff::reconst()
{
    int leaves = 0;
    for (int i = 0; i < T; ++i) {
        if (m_hson[i] < T)
            continue;
        m_freq[leaves] = static_cast<quint16>((m_freq[i] + 1) / 2);
        m_hson[leaves] = m_hson[i];
        ++leaves;
    }
    for (int i = 0, j = N_CHAR; j < T; i += 2, ++j) {
        const quint16 sum = static_cast<quint16>(m_freq[i] + m_freq[i + 1]);
        const auto first = m_freq.begin();
        const auto place = std::upper_bound(first, first + j, sum) - first;
        std::move_backward(first + place, first + j, first + j + 1);
        m_freq[place] = sum;
        std::move_backward(m_hson.begin() + place, m_hson.begin() + j, m_hson.begin() + j + 1);
        m_hson[place] = static_cast<quint16>(i);
    }
    for (int i = 0; i < T; ++i) {
        const int son = m_hson[i];
        m_prnt[son] = static_cast<quint16>(i);
        if (son < T)
            m_prnt[son + 1] = static_cast<quint16>(i);
    }
}

void LzHuff::update(int symbol)
{
    if (m_freq[R] == MAX_FREQ)
        reconst();
    size_t c = m_prnt[symbol + T];
    do {
        const quint16 frequency = ++m_freq[c];
        if (frequency > m_freq[c + 1]) {
            size_t last = c + 1;
            while (frequency > m_freq[last + 1])
                ++last;
            std::swap(m_freq[c], m_freq[last]);
            std::swap(m_hson[c], m_hson[last]);
            const size_t i = m_hson[c];
            m_prnt[i] = static_cast<quint16>(c);
            if (i < T)
                m_prnt[i + 1] = static_cast<quint16>(c);
            const size_t j = m_hson[last];
            m_prnt[j] = static_cast<quint16>(last);
            if (j < T)
                m_prnt[j + 1] = static_cast<quint16>(last);
            c = last;
        }
        c = m_prnt[c];
    } while (c != 0);
}

// ---------------------------------------------------------------- writing

void LzHuff::encodeChar(int c)
{
    quint32 code = 0;
    int length = 0;
    for (unsigned k = m_prnt[c + T]; k != R; k = m_prnt[k]) {
        code |= (k & 1U) << length;
        ++length;
    }
    putcode(length, code);
    update(c);
}

void LzHuff::encodePosition(int position)
{
    const size_t upper = static_cast<size_t>(position) >> 6;
    putcode(p_len[upper], quint32(p_code[upper]) >> (8 - p_len[upper]));
    putcode(6, static_cast<quint32>(position) & 0x3F);
}

void LzHuff::encodeEnd()
{
    if (m_putCount > 0)
        putcode(8 - m_putCount, 0);
}

void LzHuff::putcode(int length, quint32 code)
{
    m_putBits = (m_putBits << length) | code;
    m_putCount += length;
    while (m_putCount >= 8) {
        m_putCount -= 8;
        putOutByte(static_cast<quint8>(m_putBits >> m_putCount));
    }
}

void LzHuff::putOutByte(quint8 byte)
{
    if (m_outUsed == m_out.size())
        m_out.resize(m_outUsed * 2 + 64);
    m_out[m_outUsed] = static_cast<char>(byte);
    ++m_outUsed;
}

void LzHuff::encode()
{
    const quint32 size = static_cast<quint32>(m_in.size());
    m_out.resize(m_in.size() / 2 + 64);
    for (int shift = 0; shift < 32; shift += 8)
        putOutByte(static_cast<quint8>(size >> shift));
    if (size == 0)
        return;
    startHuff();
    initTree();
    int s = 0;
    int r = firstWrite;
    int len = 0;
    for (int c; len < F && (c = getInByte()) >= 0; ++len)
        m_textBuf[r + len] = static_cast<quint8>(c);
    for (int i = 1; i <= F; ++i)
        insertNode(r - i);
    insertNode(r);
    while (len > 0) {
        int length = std::min(m_matchLength, len);
        if (length <= THRESHOLD) {
            length = 1;
            encodeChar(m_textBuf[r]);
        } else {
            encodeChar(firstLengthSymbol + length);
            encodePosition(m_matchPosition);
        }
        for (int i = 0; i < length; ++i) {
            const int c = getInByte();
            deleteNode(s);
            if (c >= 0) {
                m_textBuf[s] = static_cast<quint8>(c);
                if (s < F - 1)
                    m_textBuf[s + N] = static_cast<quint8>(c);
            } else {
                --len;
            }
            s = (s + 1) & (N - 1);
            r = (r + 1) & (N - 1);
            if (len > 0)
                insertNode(r);
        }
    }
    encodeEnd();
}

// ---------------------------------------------------------------- reading

int LzHuff::getInByte()
{
    return m_inUsed < m_in.size() ? static_cast<quint8>(m_in.at(m_inUsed++)) : -1;
}

void LzHuff::fillBits()
{
    if (m_in.size() - m_inUsed >= 8) {
        const int bytes = (64 - m_getCount) / 8;
        const quint64 word = qFromBigEndian<quint64>(m_in.constData() + m_inUsed);
        m_getBits |= (word >> (64 - 8 * bytes)) << (64 - 8 * bytes - m_getCount);
        m_getCount += 8 * bytes;
        m_inUsed += bytes;
        return;
    }
    while (m_getCount <= 56) {
        const int byte = std::max(getInByte(), 0);
        m_getBits |= static_cast<quint64>(byte) << (56 - m_getCount);
        m_getCount += 8;
    }
}

int LzHuff::takeBits(int count)
{
    if (m_getCount < count)
        fillBits();
    const int bits = static_cast<int>(m_getBits >> (64 - count));
    m_getBits <<= count;
    m_getCount -= count;
    return bits;
}

int LzHuff::getBit()
{
    return takeBits(1);
}

int LzHuff::getByte()
{
    return takeBits(8);
}

int LzHuff::decodeChar()
{
    if (m_getCount < 32)
        fillBits();
    quint64 bits = m_getBits;
    int length = 0;
    size_t c = m_hson[R];
    while (c < T) {
        c = m_hson[c + (bits >> 63)];
        bits <<= 1;
        ++length;
    }
    m_getBits = bits;
    m_getCount -= length;
    const int symbol = static_cast<int>(c) - T;
    update(symbol);
    return symbol;
}

int LzHuff::decodePosition()
{
    if (m_getCount < 14)
        fillBits();
    const size_t next = m_getBits >> 56;
    const int upper = d_code[next];
    takeBits(d_len[next]);
    return upper << 6 | takeBits(6);
}

quint32 LzHuff::readSize()
{
    quint32 size = 0;
    for (int shift = 0; shift < 32; shift += 8)
        size |= static_cast<quint32>(getInByte() & 0xFF) << shift;
    return size;
}

bool LzHuff::decode()
{
    const quint32 size = readSize();
    if (size > MaxTextSize) {
        logDebug() << "=====================================================================";
        logDebug() << "WARNING: skipping file, compressed stream corrupted/wrong size !!!";
        logDebug() << "Text size: " << size;
        logDebug() << "=====================================================================";
        return false;
    }
    if (size == 0)
        return false;
    startHuff();
    m_out.resize(static_cast<qsizetype>(size) + F - 1);
    while (m_outUsed < size) {
        const int c = decodeChar();
        if (c < 256)
            putOutByte(static_cast<quint8>(c));
        else {
            const int position = decodePosition();
            matchBytes(position + 1, c - firstLengthSymbol);
        }
    }
    return true;
}

int LzHuff::matchBytes(int distance, int length)
{
    char *to = m_out.data() + m_outUsed;
    if (distance <= m_outUsed) {
        for (int i = 0; i < length; ++i)
            to[i] = to[i - distance];
    } else {
        const qsizetype start = m_outUsed - distance;
        for (int i = 0; i < length; ++i) {
            const qsizetype at = start + i;
            to[i] = at >= 0 ? m_out[at] : at >= -firstWrite ? ' ' : '\0';
        }
    }
    m_outUsed += length;
    return length;
}
