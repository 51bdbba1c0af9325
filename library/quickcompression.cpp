#include "library/quickcompression.h"

#include <QPromise>
#include <QThreadPool>

#include <memory>
#include <zstd.h>

namespace
{

/** Quicker than those above, and of a song little more is left. */
constexpr int level = -1;

struct ContextDeleter {
    void operator()(ZSTD_CCtx *context) const { ZSTD_freeCCtx(context); }
};

} // namespace

QByteArray quickcompression::compressed(const QByteArray &plain)
{
    // Making one takes as long as a song.
    thread_local const std::unique_ptr<ZSTD_CCtx, ContextDeleter> context(ZSTD_createCCtx());
    const auto length = static_cast<size_t>(plain.size());
    QByteArray out(static_cast<qsizetype>(ZSTD_compressBound(length)), Qt::Uninitialized);
    const size_t size = context == nullptr ? 0
                                           : ZSTD_compressCCtx(context.get(), out.data(),
                                                               static_cast<size_t>(out.size()),
                                                               plain.constData(), length, level);
    if (ZSTD_isError(size) != 0)
        return {};
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
