// LZHUF codec of the MIDI payload in MFX song files.
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <array>

/**
 * The published LZHUF algorithm (LZSS with a binary search tree, adaptive Huffman codes for
 * literals and match lengths, fixed codes for match positions) with a look-ahead of 29 bytes.
 *
 * A stream is the uncompressed size as four bytes, little-endian, and the coded bits, most
 * significant bit first. The tables lie in the object, which serves any number of calls; equal
 * inputs give equal bytes, whatever was coded before.
 *
 * The steps of the algorithm stand here under their published names. They work on the run that
 * begin() starts: its input, its output, the ring buffer and the bit buffers.
 */
class LzHuff
{
public:
    static constexpr int N = 4096;                     ///< size of the ring buffer
    static constexpr int F = 29;                       ///< look-ahead, the longest match
    static constexpr int THRESHOLD = 2;                ///< a match is longer than this
    static constexpr int N_CHAR = 256 - THRESHOLD + F; ///< literals and match lengths
    static constexpr int T = 2 * N_CHAR - 1;           ///< nodes of the Huffman tree
    static constexpr int R = T - 1;                    ///< root of the Huffman tree
    static constexpr int MAX_FREQ = 0x8000;            ///< root frequency that forces a rebuild
    static constexpr quint32 maxTextSize = 500000;     ///< the longest text that is expanded

    /** Code of the upper six bits of a position: its length, and its bits left-aligned. */
    static const std::array<quint8, 64> p_len;
    static const std::array<quint8, 64> p_code;
    /** The inverse: upper six bits and length of the code that the next eight bits begin with. */
    static const std::array<quint8, 256> d_code;
    static const std::array<quint8, 256> d_len;

    LzHuff();
    ~LzHuff() = default;
    Q_DISABLE_COPY_MOVE(LzHuff)

    /**
     * Replaces `out` by the stream of the text `in`; they may be the same array. An empty text
     * gives the four zero bytes of its size. A text above maxTextSize could not be expanded again.
     */
    void compress(const QByteArray &in, QByteArray &out);

    /**
     * Replaces `out` by the text of the stream `in`; they may be the same array. A truncated stream
     * gives filler, and the last match may exceed the stated size, by 28 bytes at most. Returns
     * false and leaves `out` empty if the stated size is 0 or above maxTextSize, and for a stream
     * of less than four bytes.
     */
    bool expand(const QByteArray &in, QByteArray &out);

    /** Starts a run: nothing read, nothing written, trees and ring buffer in their first state. */
    void begin(const QByteArray &in);
    /** What the run has written so far. */
    QByteArray output() const { return m_out.left(m_outUsed); }

    /** Writes the stream of the whole input. */
    void encode();
    /** Writes the text of the stream that the input is; false for a size that is not accepted. */
    bool decode();

    /** Empties the search tree. */
    void initTree();
    /** Reads up to F bytes into the ring buffer behind its blanks; returns how many there were. */
    int readLookAhead();
    /**
     * Inserts the string at ring position r (0 to N - 1) and notes its longest match among the
     * strings that it passes, the nearest of these. A string equal over F bytes is replaced.
     */
    void insertNode(int r);
    /** Removes the string at ring position p (0 to N - 1) from the tree, if it is there. */
    void deleteNode(int p);
    /** Bytes that the last string inserted shares with its match; below 3 there is none. */
    int matchLength() const { return m_matchLength; }
    /** How far that match lies behind, less one. */
    int matchPosition() const { return m_matchPosition; }

    /** Builds the initial Huffman tree, with every symbol counted once. */
    void startHuff();
    /** Halves the counts of the symbols, rounded up, and rebuilds the Huffman tree over them. */
    void reconst();
    /** Counts a symbol (0 to N_CHAR - 1) once more and keeps the Huffman tree in order. */
    void update(int c);

    /** Writes a symbol (0 to N_CHAR - 1) and counts it. */
    void encodeChar(int c);
    /** Writes a match position, 0 to N - 1. */
    void encodePosition(int position);
    /** Fills the last byte up with zero bits and writes it. */
    void encodeEnd();
    /** Writes the low bits of the code, 32 at most, the most significant of them first. */
    void putcode(int length, quint32 code);
    /** Appends a byte to the output. */
    void putOutByte(quint8 byte);

    /** Reads a symbol (0 to N_CHAR - 1) and counts it. */
    int decodeChar();
    /** Reads a match position, 0 to N - 1. */
    int decodePosition();
    /** Reads one bit; behind the end of the input there are zeros. */
    int getBit();
    /** Reads eight bits; behind the end of the input there are zeros. */
    int getByte();
    /** Takes the next whole byte of the input, 0 to 255; -1 at its end. */
    int getInByte();

private:
    using Sons = std::array<quint16, 2>; ///< links to the lesser [0] and the greater string [1]

    bool replacesNextTwin(int r);
    void replaceNode(int p, int r);
    void setMatch(int r, int p, int length);
    void putIntoRing(int position, quint8 byte);
    int takeBits(int count);
    void fillBits();
    quint32 readSize();

    // The Huffman tables have room for an alphabet with a look-ahead of up to 1024 bytes.
    static constexpr int maxSymbols = 256 - THRESHOLD + 1024;
    static constexpr int maxNodes = 2 * maxSymbols - 1;
    // Strings are compared in words of eight bytes, the last of which ends behind the string.
    static constexpr int ringSize = N + F - 1 + 8;

    QByteArray m_in;
    qsizetype m_inUsed = 0;
    QByteArray m_out;
    qsizetype m_outUsed = 0;
    quint64 m_getBits = 0; ///< bits read ahead, left-aligned
    int m_getCount = 0;
    quint64 m_putBits = 0; ///< bits still to be written, right-aligned
    int m_putCount = 0;    ///< less than eight between two calls

    std::array<quint16, maxNodes + 1> m_freq;          ///< ascending; a sentinel behind the root
    std::array<quint16, maxNodes + maxSymbols> m_prnt; ///< from T on, the nodes of the symbols
    std::array<quint16, maxNodes> m_son;               ///< first of two sons, or T plus a symbol

    std::array<quint8, ringSize> m_textBuf; ///< the first F - 1 bytes stand behind the N-th again
    std::array<Sons, N + 257> m_sons;       ///< from N + 1 on, the roots of the 256 trees
    std::array<quint16, N + 1> m_dad;       ///< N: the string is not in a tree
    int m_matchPosition = 0;
    int m_matchLength = 0;
    int m_twin = N;   ///< the string that was replaced last, because it was equal
    int m_twinOf = N; ///< to this one
};
