#include "library/quickcompression.h"

#include <QPromise>
#include <QThreadPool>

#include <memory>
#include <zstd.h>

namespace
{
constexpr int level = 1; // the quickest that still codes the letters, which halves songs
} // namespace

QByteArray quickcompression::compressed(const QByteArray &plain)
{
    QByteArray out(static_cast<qsizetype>(ZSTD_compressBound(static_cast<size_t>(plain.size()))),
                   Qt::Uninitialized);
    // There is room for all, so that it cannot fail.
    const size_t size = ZSTD_compress(out.data(), static_cast<size_t>(out.size()),
                                      plain.constData(), static_cast<size_t>(plain.size()), level);
    out.truncate(static_cast<qsizetype>(size));
    return out;
}

QFuture<QByteArray> quickcompression::compressedMeanwhile(const QByteArray &plain)
{
    const auto promise = std::make_shared<QPromise<QByteArray>>();
    promise->start();
    QThreadPool::globalInstance()->start([promise, plain] {
        promise->addResult(compressed(plain));
        promise->finish();
    });
    return promise->future();
}

std::optional<QByteArray> quickcompression::plain(const QByteArray &compressed, qsizetype largest)
{
    const auto length = static_cast<size_t>(compressed.size());
    // Two large numbers stand for a size that is unknown and for bytes that are no frame.
    const unsigned long long size = ZSTD_getFrameContentSize(compressed.constData(), length);
    if (size > static_cast<unsigned long long>(largest))
        return {};
    QByteArray out(static_cast<qsizetype>(size), Qt::Uninitialized);
    if (ZSTD_decompress(out.data(), static_cast<size_t>(size), compressed.constData(), length) !=
        size)
        return {};
    return out;
}
