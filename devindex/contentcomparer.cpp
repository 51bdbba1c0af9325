#include "devindex/contentcomparer.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#endif

namespace
{

/** Read at once; between two of these the windows get their turn. */
constexpr qsizetype comparedAtOnce = 262144;

/** Only regular files get here: a pipe would be waited for. */
bool open(QFile &file)
{
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

/**
 * What this handle reads comes from the medium: what the computer keeps of the file's bytes is
 * given up, or passed over. The file must be flushed.
 */
void leaveMemoryOut(const QFile &file)
{
#if defined(Q_OS_LINUX)
    ::posix_fadvise(file.handle(), 0, 0, POSIX_FADV_DONTNEED);
#elif defined(Q_OS_MACOS)
    ::fcntl(file.handle(), F_NOCACHE, 1); // holds for this handle alone
#else
    Q_UNUSED(file)
#endif
}

/**
 * Fills the buffer up to its end, or the file's, but not beyond so many bytes: some files have a
 * size and can be read for ever. The bytes read, negative after a failure.
 */
qint64 readChunk(QFile &file, QByteArray &buffer, qint64 most)
{
    qint64 filled = 0;
    const qint64 wanted = std::min<qint64>(buffer.size(), most);
    while (filled < wanted) {
        const qint64 count = file.read(buffer.data() + filled, wanted - filled);
        if (count < 0)
            return -1;
        if (count == 0)
            break;
        filled += count;
    }
    return filled;
}

} // namespace

ContentComparer::ContentComparer(Source second)
    : m_source(second)
    , m_first(comparedAtOnce, Qt::Uninitialized)
    , m_second(comparedAtOnce, Qt::Uninitialized)
{
}

ContentComparer::Result ContentComparer::compare(const QString &first, const QString &second)
{
    const auto known = m_digests.constFind(first);
    const auto knownOther = m_digests.constFind(second);
    if (known != m_digests.constEnd() && knownOther != m_digests.constEnd())
        return *known == *knownOther ? Result::Same : Result::Different;
    const QFileInfo one(first);
    const QFileInfo other(second);
    if (!one.isFile())
        return Result::Unreadable;
    if (!other.isFile() || one.size() != other.size())
        return Result::Different;
    const bool again = m_compared.contains(first) || m_compared.contains(second);
    m_compared.insert(first);
    m_compared.insert(second);
    if (!again)
        return compareBytes(first, second);
    const std::optional<QByteArray> digest = digestOf(first);
    if (!digest)
        return Result::Unreadable;
    return digestOf(second) == digest ? Result::Same : Result::Different;
}

ContentComparer::Result ContentComparer::compareBytes(const QString &first, const QString &second)
{
    QFile one(first);
    QFile other(second);
    if (!open(one))
        return Result::Unreadable;
    if (!open(other))
        return Result::Different;
    if (m_source == Source::Medium)
        leaveMemoryOut(other);
    for (qint64 left = one.size(); left > 0; m_keepAlive.processEvents()) {
        const qint64 count = readChunk(one, m_first, left);
        if (count <= 0)
            return Result::Unreadable;
        if (readChunk(other, m_second, count) != count ||
            QByteArrayView(m_first).first(count) != QByteArrayView(m_second).first(count))
            return Result::Different;
        left -= count;
    }
    return Result::Same;
}

std::optional<QByteArray> ContentComparer::digestOf(const QString &path)
{
    const auto known = m_digests.constFind(path);
    if (known != m_digests.constEnd())
        return *known;
    QFile file(path);
    if (!open(file))
        return std::nullopt;
    QCryptographicHash hash(QCryptographicHash::Blake2b_256);
    for (qint64 left = file.size(); left > 0; m_keepAlive.processEvents()) {
        const qint64 count = readChunk(file, m_first, left);
        if (count <= 0)
            return std::nullopt;
        hash.addData(QByteArrayView(m_first).first(count));
        left -= count;
    }
    return m_digests.insert(path, hash.result()).value();
}
