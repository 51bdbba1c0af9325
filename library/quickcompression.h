// Compression that costs next to no time, for bytes that are kept in thousands and seldom read.
#pragma once

#include <QByteArray>
#include <QFuture>

#include <optional>

/** One frame of Zstandard (RFC 8878), which tells the size of the plain bytes. */
namespace quickcompression
{

/** The bytes compressed; empty only when there is no memory for that. */
QByteArray compressed(const QByteArray &plain);

/** The same on another thread, while this one reads the next bytes. */
QFuture<QByteArray> compressedMeanwhile(const QByteArray &plain);

/** The plain bytes; nothing when they are damaged or would be more than largest. */
std::optional<QByteArray> plain(const QByteArray &compressed, qsizetype largest);

} // namespace quickcompression
