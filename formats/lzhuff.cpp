#include "formats/lzhuff.h"

#include "storage/diagnostics.h"

#include <QtAlgorithms>
#include <QtEndian>

#include <algorithm>
#include <utility>

namespace
{

constexpr int ringMask = LzHuff::N - 1;
constexpr int nil = LzHuff::N; // a link of the search tree that leads nowhere
constexpr int firstWrite = LzHuff::N - LzHuff::F;
constexpr int lengthSymbols = 255 - LzHuff::THRESHOLD; // plus a match length: its symbol

/** The fixed code of a position's upper six bits: the codes ascend with the values. */
struct PositionCode {
    std::array<quint8, 64> length{};
    std::array<quint8, 64> bits{};
    std::array<quint8, 256> value{};
    std::array<quint8, 256> lengthOfByte{};

    constexpr PositionCode()
    {
        constexpr std::array<size_t, 6> codesOfLength = {1, 3, 8, 12, 24, 16}; // 3 to 8 bits
        size_t next = 0;
        size_t byte = 0;
        for (size_t group = 0; group < codesOfLength.size(); ++group) {
            const size_t codeLength = group + 3;
            for (size_t i = 0; i < codesOfLength[group]; ++i, ++next) {
                length[next] = static_cast<quint8>(codeLength);
                bits[next] = static_cast<quint8>(byte);
                for (const size_t end = byte + (256U >> codeLength); byte < end; ++byte) {
                    value[byte] = static_cast<quint8>(next);
                    lengthOfByte[byte] = static_cast<quint8>(codeLength);
                }
            }
        }
    }
};

constexpr PositionCode positionCode;

/** Eight bytes of a string; the order of the bytes in memory is that from the lowest bits up. */
inline quint64 wordAt(const quint8 *bytes)
{
    return qFromLittleEndian<quint64>(bytes);
}

/** Whether the first of two words stands behind the second one in the order of the strings. */
inline size_t isGreater(quint64 a, quint64 b)
{
    return qbswap(a) > qbswap(b) ? 1 : 0;
}

/** How many leading bytes two words share, 8 at most. */
inline int sharedBytes(quint64 a, quint64 b)
{
    return static_cast<int>(qCountTrailingZeroBits(a ^ b) / 8);
}

} // namespace

const std::array<quint8, 64> LzHuff::p_len = positionCode.length;
const std::array<quint8, 64> LzHuff::p_code = positionCode.bits;
const std::array<quint8, 256> LzHuff::d_code = positionCode.value;
const std::array<quint8, 256> LzHuff::d_len = positionCode.lengthOfByte;

LzHuff::LzHuff()
{
    begin(QByteArray());
}

void LzHuff::compress(const QByteArray &in, QByteArray &out)
{
    begin(in);
    encode();
    m_out.truncate(m_outUsed);
    out = std::exchange(m_out, {});
    logDebug() << "Compress: " << qint64(m_in.size()) << " --> " << qint64(out.size());
    m_in.clear();
}

bool LzHuff::expand(const QByteArray &in, QByteArray &out)
{
    begin(in);
    const bool expanded = decode();
    m_out.truncate(m_outUsed);
    out = std::exchange(m_out, {});
    if (expanded)
        logDebug() << "Expand: " << qint64(m_in.size()) << " --> " << qint64(out.size());
    else
        logDebug() << "Expand: ERROR";
    m_in.clear();
    return expanded;
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
    // The bytes behind the blanks take part in comparisons before they are written for the first
    // time: they are the same in every run, so that the same text gives the same stream.
    m_textBuf.fill(0);
    std::fill_n(m_textBuf.begin(), firstWrite, quint8(' '));
    initTree();
    startHuff();
}

void LzHuff::encode()
{
    const auto size = static_cast<quint32>(m_in.size());
    m_out.resize(m_in.size() / 2 + 64);
    for (int shift = 0; shift < 32; shift += 8)
        putOutByte(static_cast<quint8>(size >> shift));
    if (size == 0)
        return;

    int lookAhead = readLookAhead();
    int oldest = 0;
    int r = firstWrite;
    for (int i = 1; i <= F; ++i)
        insertNode(r - i);
    insertNode(r);
    while (lookAhead > 0) {
        int length = std::min(m_matchLength, lookAhead);
        if (length > THRESHOLD) {
            encodeChar(lengthSymbols + length);
            encodePosition(m_matchPosition);
        } else {
            length = 1;
            encodeChar(m_textBuf[r]);
        }
        for (; length > 0; --length) {
            deleteNode(oldest);
            const int byte = getInByte();
            if (byte >= 0)
                putIntoRing(oldest, static_cast<quint8>(byte));
            else
                --lookAhead;
            oldest = (oldest + 1) & ringMask;
            r = (r + 1) & ringMask;
            if (lookAhead > 0)
                insertNode(r);
        }
    }
    encodeEnd();
}

bool LzHuff::decode()
{
    const quint32 size = readSize();
    if (size > maxTextSize) {
        logDebug() << "=====================================================================";
        logDebug() << "WARNING: skipping file, compressed stream corrupted/wrong size !!!";
        logDebug() << "Text size: " << size;
        logDebug() << "=====================================================================";
        return false;
    }
    if (size == 0)
        return false;

    m_out = QByteArray(static_cast<qsizetype>(size) + F - 1, Qt::Uninitialized);
    int r = firstWrite;
    const auto write = [this, &r](quint8 byte) {
        putOutByte(byte);
        m_textBuf[r] = byte;
        r = (r + 1) & ringMask;
    };
    while (m_outUsed < static_cast<qsizetype>(size)) {
        const int c = decodeChar();
        if (c < 256) {
            write(static_cast<quint8>(c));
            continue;
        }
        int from = r - decodePosition() - 1;
        for (int length = c - lengthSymbols; length > 0; --length)
            write(m_textBuf[from++ & ringMask]);
    }
    return true;
}

void LzHuff::initTree()
{
    m_sons.fill({nil, nil});
    m_dad.fill(nil);
    m_matchPosition = 0;
    m_matchLength = 0;
    m_twin = nil;
    m_twinOf = nil;
}

int LzHuff::readLookAhead()
{
    int length = 0;
    for (int byte = 0; length < F && (byte = getInByte()) >= 0; ++length)
        m_textBuf[firstWrite + length] = static_cast<quint8>(byte);
    return length;
}

void LzHuff::putIntoRing(int position, quint8 byte)
{
    m_textBuf[position] = byte;
    if (position < F - 1)
        m_textBuf[position + N] = byte;
}

void LzHuff::insertNode(int r)
{
    if (replacesNextTwin(r))
        return;
    m_twinOf = nil;
    m_sons[r] = {nil, nil};
    const quint8 *const key = &m_textBuf[r];
    const quint64 keyWord = wordAt(key + 1);
    size_t p = N + size_t(1) + key[0];
    size_t greater = 1;
    int best = 0;
    for (size_t next = m_sons[p][1]; next != nil;) {
        p = next;
        const quint8 *const text = &m_textBuf[p];
        const quint64 word = wordAt(text + 1);
        int length = 1 + sharedBytes(keyWord, word);
        greater = isGreater(keyWord, word);
        for (int at = 9; length == at && at < F; at += 8) {
            length += sharedBytes(wordAt(key + at), wordAt(text + at));
            greater = isGreater(wordAt(key + at), wordAt(text + at));
        }
        if (length >= F) {
            replaceNode(static_cast<int>(p), r);
            return;
        }
        // Neither the better match nor the way down can be predicted, so both are chosen without a
        // branch.
        const size_t lesserSon = m_sons[p][0];
        const size_t greaterSon = m_sons[p][1];
        best = std::max(best, length * N + ((static_cast<int>(p) - r) & ringMask));
        next = lesserSon ^ ((lesserSon ^ greaterSon) & (0 - greater));
    }
    m_sons[p][greater] = static_cast<quint16>(r);
    m_dad[r] = static_cast<quint16>(p);
    setMatch(r, r + best % N, best / N);
}

bool LzHuff::replacesNextTwin(int r)
{
    // The string before r replaced its twin. If the twins go on alike, the string behind the old
    // one equals r, and the tree holds no other one that does: no need to search for it.
    const int p = (m_twin + 1) & ringMask;
    if (m_twinOf != ((r - 1) & ringMask) || m_dad[p] == nil ||
        m_textBuf[r + F - 1] != m_textBuf[p + F - 1])
        return false;
    replaceNode(p, r);
    return true;
}

void LzHuff::replaceNode(int p, int r)
{
    const Sons sons = m_sons[p];
    m_sons[r] = sons;
    m_dad[sons[0]] = static_cast<quint16>(r);
    m_dad[sons[1]] = static_cast<quint16>(r);
    Sons &siblings = m_sons[m_dad[p]];
    siblings[siblings[1] == p] = static_cast<quint16>(r);
    m_dad[r] = m_dad[p];
    m_dad[p] = nil;
    setMatch(r, p, F);
    m_twin = p;
    m_twinOf = r;
}

void LzHuff::setMatch(int r, int p, int length)
{
    m_matchLength = length;
    m_matchPosition = (r - p - 1) & ringMask;
}

void LzHuff::deleteNode(int p)
{
    if (m_dad[p] == nil)
        return;
    const Sons sons = m_sons[p];
    int q = sons[1] == nil ? sons[0] : sons[1];
    if (sons[0] != nil && sons[1] != nil) {
        // The greatest of the lesser strings takes the place.
        q = sons[0];
        while (m_sons[q][1] != nil)
            q = m_sons[q][1];
        if (q != sons[0]) {
            m_sons[m_dad[q]][1] = m_sons[q][0];
            m_dad[m_sons[q][0]] = m_dad[q];
            m_sons[q][0] = sons[0];
            m_dad[sons[0]] = static_cast<quint16>(q);
        }
        m_sons[q][1] = sons[1];
        m_dad[sons[1]] = static_cast<quint16>(q);
    }
    Sons &siblings = m_sons[m_dad[p]];
    siblings[siblings[1] == p] = static_cast<quint16>(q);
    m_dad[q] = m_dad[p];
    m_dad[p] = nil;
}

void LzHuff::startHuff()
{
    for (int i = 0; i < N_CHAR; ++i) {
        m_freq[i] = 1;
        m_son[i] = static_cast<quint16>(T + i);
        m_prnt[T + i] = static_cast<quint16>(i);
    }
    for (int i = 0, j = N_CHAR; j < T; i += 2, ++j) {
        m_freq[j] = static_cast<quint16>(m_freq[i] + m_freq[i + 1]);
        m_son[j] = static_cast<quint16>(i);
        m_prnt[i] = m_prnt[i + 1] = static_cast<quint16>(j);
    }
    m_freq[T] = 0xFFFF;
    m_prnt[R] = 0;
}

void LzHuff::reconst()
{
    int leaves = 0;
    for (int i = 0; i < T; ++i) {
        if (m_son[i] < T)
            continue;
        m_freq[leaves] = static_cast<quint16>((m_freq[i] + 1) / 2);
        m_son[leaves] = m_son[i];
        ++leaves;
    }
    const auto freq = m_freq.begin();
    const auto son = m_son.begin();
    for (int i = 0, j = N_CHAR; j < T; i += 2, ++j) {
        const auto sum = static_cast<quint16>(freq[i] + freq[i + 1]);
        const auto place = std::upper_bound(freq, freq + j, sum) - freq;
        std::move_backward(freq + place, freq + j, freq + j + 1);
        std::move_backward(son + place, son + j, son + j + 1);
        freq[place] = sum;
        son[place] = static_cast<quint16>(i);
    }
    for (int i = 0; i < T; ++i) {
        m_prnt[m_son[i]] = static_cast<quint16>(i);
        if (m_son[i] < T)
            m_prnt[m_son[i] + 1] = static_cast<quint16>(i);
    }
}

void LzHuff::update(int c)
{
    if (m_freq[R] == MAX_FREQ)
        reconst();
    const auto adopt = [this](int node) {
        const int son = m_son[node];
        m_prnt[son] = static_cast<quint16>(node);
        if (son < T)
            m_prnt[son + 1] = static_cast<quint16>(node);
    };
    int node = m_prnt[T + c];
    do {
        const int frequency = ++m_freq[node];
        if (frequency > m_freq[node + 1]) {
            int last = node + 1;
            while (frequency > m_freq[last + 1])
                ++last;
            std::swap(m_freq[node], m_freq[last]);
            std::swap(m_son[node], m_son[last]);
            adopt(node);
            adopt(last);
            node = last;
        }
        node = m_prnt[node];
    } while (node != 0);
}

void LzHuff::encodeChar(int c)
{
    // A code of k bits takes a root frequency of at least the (k + 2)-th Fibonacci number: below
    // MAX_FREQ codes grow to 21 bits at most.
    quint32 code = 0;
    int length = 0;
    for (int node = m_prnt[T + c]; node != R; node = m_prnt[node])
        code |= static_cast<quint32>(node & 1) << length++;
    putcode(length, code);
    update(c);
}

void LzHuff::encodePosition(int position)
{
    const int upper = position >> 6;
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
    m_putBits = m_putBits << length | (code & ((quint64(1) << length) - 1));
    m_putCount += length;
    while (m_putCount >= 8) {
        m_putCount -= 8;
        putOutByte(static_cast<quint8>(m_putBits >> m_putCount));
    }
}

void LzHuff::putOutByte(quint8 byte)
{
    if (m_outUsed == m_out.size())
        m_out.resize(2 * m_outUsed + 64);
    m_out[m_outUsed] = static_cast<char>(byte);
    ++m_outUsed;
}

int LzHuff::decodeChar()
{
    int node = m_son[R];
    while (node < T)
        node = m_son[node + getBit()];
    const int c = node - T;
    update(c);
    return c;
}

int LzHuff::decodePosition()
{
    const int byte = getByte();
    const int moreBits = d_len[byte] - 2; // of the lower six, 8 - d_len are in the byte
    const int lower = byte << moreBits | takeBits(moreBits);
    return d_code[byte] << 6 | (lower & 0x3F);
}

int LzHuff::getBit()
{
    return takeBits(1);
}

int LzHuff::getByte()
{
    return takeBits(8);
}

int LzHuff::takeBits(int count)
{
    if (m_getCount < count)
        fillBits();
    const auto bits = static_cast<int>(m_getBits >> (64 - count));
    m_getBits <<= count;
    m_getCount -= count;
    return bits;
}

void LzHuff::fillBits()
{
    while (m_getCount <= 56) {
        const auto byte = static_cast<quint64>(std::max(getInByte(), 0));
        m_getBits |= byte << (56 - m_getCount);
        m_getCount += 8;
    }
}

int LzHuff::getInByte()
{
    return m_inUsed < m_in.size() ? static_cast<quint8>(m_in.at(m_inUsed++)) : -1;
}

quint32 LzHuff::readSize()
{
    quint32 size = 0;
    for (int shift = 0; shift < 32; shift += 8)
        size |= static_cast<quint32>(getInByte() & 0xFF) << shift;
    return size;
}
