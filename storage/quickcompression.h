// Compression that costs next to no time, for bytes that are kept in thousands and seldom read.
#pragma once

#include <QByteArray>
#include <QFuture>

#include <optional>

/**
 * Bytes that come again within 64 KiB are named by their distance (LZ77); nothing is coded bit by
 * bit. Several times as quick as the quickest level of qCompress(), and songs, whose bars repeat,
 * get almost as small.
 *
 * The size of the plain bytes, 32 bits, big-endian; then pieces: a byte with the number of literals
 * in its upper and the length of the repetition less 4 in its lower half, where 15 says that bytes
 * to be added follow, up to the first that is not 255; the literals; the distance, 16 bits,
 * little-endian, and the bytes to be added to the length. The last piece ends behind its literals.
 */
namespace quickcompression
{

/** The bytes, of which there are fewer than 2 GiB, compressed. */
QByteArray compressed(const QByteArray &plain);

/** The same on another thread, while this one reads the next bytes. */
QFuture<QByteArray> compressedMeanwhile(const QByteArray &plain);

/** The plain bytes; nothing when they are damaged or would be more than largest. */
std::optional<QByteArray> plain(const QByteArray &compressed, qsizetype largest);

} // namespace quickcompression
