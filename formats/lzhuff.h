// LZHUF codec of the MIDI payload in MFX song files.
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <array>

/**
 * The published LZHUF algorithm (LZSS with a search tree, adaptive Huffman codes for literals and
 * match lengths, fixed codes for match positions) with a look-ahead of 29 bytes.
 *
 * A stream is the uncompressed size as four bytes, little-endian, and the coded bits, most
 * significant bit first. The tables lie in the object, which can be used for any number of calls;
 * equal inputs give equal bytes whatever was coded before.
 *
 * The steps of the algorithm are public under their published names. They work on the run that
 * begin() starts: its input, its output, the bit buffers and the tables.
 */
class LzHuff
{
public:
    static constexpr int N = 4096;                            ///< size of the ring buffer
    static constexpr int F = 29;                              ///< look-ahead: the longest match
    static constexpr int THRESHOLD = 2;                       ///< a match is longer than this
    static constexpr int N_CHAR = 256 - THRESHOLD + F;        ///< literals and match lengths
    static constexpr int T = 2 * N_CHAR - 1;                  ///< nodes of the Huffman tree
    static constexpr int R = T - 1;                           ///< root of the Huffman tree
    static constexpr int MAX_FREQ = 0x8000;                   ///< root frequency of a rebuild
    static constexpr quint32 MaxTextSize = 500000;            ///< the longest text of a stream

    /** Codes of the upper six bits of a position: length in bits, and bits left-aligned. */
    static const std::array<quint8, 64> p_len;
    static const std::array<quint8, 64> p_code;
    /** Their inverse: the upper six bits, and the code's length, by the next eight input bits. */
    static const std::array<quint8, 256> d_code;
    static const std::array<quint8, 256> d_len;

    LzHuff();
    ~LzHuff() = default;
    Q_DISABLE_COPY_MOVE(LzHuff)

    /**
     * Replaces `out` by the compressed stream of `in`, which may be the same array. An empty input
     * gives a stream of size 0. Streams of more than MaxTextSize bytes cannot be expanded again.
     */
    void compress(const QByteArray &in, QByteArray &out);

    /**
     * Replaces `out` by the text of the stream `in`, which may be the same array. A truncated
     * stream gives filler; the last match may run past the stated size, by 28 bytes at most.
     * Returns false and leaves `out` empty if the stated size is 0 or above MaxTextSize, as it is
     * for a stream of less than four bytes.
     */
    bool expand(const QByteArray &in, QByteArray &out);

    /** Starts a run over this input: nothing read, nothing written, the ring in its first state. */
    void begin(const QByteArray &in);
    /** What the run has written so far. */
    QByteArray output() const { return m_out.left(m_outUsed); }

    /** Compresses the whole input of the run: size, then bits. */
    void encode();
    /** Expands the whole input of the run; false for a stated size that cannot be. */
    bool decode();

    /** Empties the search tree. */
    void initTree();
    /**
     * Inserts the string at ring position r and finds its longest match on the way: see
     * matchLength() and matchPosition(). A string that matches over F bytes replaces the old one.
     */
    void insertNode(int r);
    /** Takes the string at ring position p out of the search tree, if it is there. */
    void deleteNode(int p);
    /** Length found by the last insertNode(); up to THRESHOLD there is no match to speak of. */
    int matchLength() const { return m_matchLength; }
    /** Position found by the last insertNode(): the distance back from r, less one. */
    int matchPosition() const { return m_matchPosition; }

    /** Builds the first Huffman tree: every symbol once. */
    void startHuff();
    /** Halves the frequencies of the leaves, rounded up, and rebuilds the tree over them. */
    void reconst();
    /** Counts one occurrence of the symbol (0 to N_CHAR - 1) and moves its nodes accordingly. */
    void update(int c);

    /** Writes the code of a symbol (0 to N_CHAR - 1) and counts the symbol. */
    void encodeChar(int c);
    /** Writes a match position, 0 to N - 1. */
    void encodePosition(int position);
    /** Writes the bits of a partly filled last byte, zeros behind them. */
    void encodeEnd();
    /** Writes the low `length` bits of the code, at most 32, most significant bit first. */
    void putcode(int length, quint32 code);

    /** Reads a symbol, 0 to N_CHAR - 1, and counts it. */
    int decodeChar();
    /** Reads a match position, 0 to N - 1. */
    int decodePosition();
    /** Reads one bit; zero behind the end of the input. */
    int getBit();
    /** Reads eight bits; zeros behind the end of the input. */
    int getByte();
    /** Takes the next whole byte of the input, 0 to 255, or -1 at its end. */
    int getInByte();
    /** Appends a byte to the output. */
    void putOutByte(quint8 byte);

private:
    using Sons = std::array<quint16, 2>;
    void replaceNode(int p, int r);

    void writeSize(quint32 size);
    quint32 readSize();
    void fillBits();
    int takeBits(int count);
    int fillLookAhead();
    int matchBytes(int distance, int length);

    // The tables have room for the largest alphabet that the stream format was laid out for.
    static constexpr int MaxSymbols = 1278;
    static constexpr int MaxTree = 2 * MaxSymbols - 1;
    static constexpr int ComparedPastEnd = 8; ///< strings are compared eight bytes at a time

    QByteArray m_in;
    qsizetype m_inUsed = 0;
    QByteArray m_out;
    qsizetype m_outUsed = 0;

    quint64 m_getBits = 0; ///< bits read ahead, left-aligned, zeros below
    int m_getCount = 0;    ///< how many of them are there
    quint64 m_putBits = 0; ///< bits not written yet, right-aligned
    int m_putCount = 0;    ///< how many of them are there, less than eight between calls

    int m_matchPosition = 0;
    int m_matchLength = 0;

    std::array<quint16, MaxTree + 1> m_freq;
    std::array<quint16, MaxTree + MaxSymbols> m_prnt; ///< from T on: the place of each leaf
    std::array<quint16, MaxTree> m_hson;               ///< first of two sons, or T plus a symbol
    std::array<quint8, N + F - 1 + ComparedPastEnd> m_textBuf;
    std::array<Sons, N + 257> m_son;
    std::array<quint16, N + 257> m_dad;
    int m_fullMatch;
    std::array<quint16, 4096> m_top;
};
