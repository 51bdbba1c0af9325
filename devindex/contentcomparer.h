// Whether two files hold the same bytes.
#pragma once

#include "library/keepalive.h"

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>

#include <optional>

/**
 * One object serves many comparisons, which need not read a file more than twice: the first one of
 * a file goes byte by byte and ends at the first difference, further ones by digests that are kept.
 */
class ContentComparer
{
public:
    enum class Result {
        Same,
        Different, ///< also when the second one is no regular file, or cannot be read
        Unreadable ///< the first one
    };

    /** Where the bytes of the second file of a comparison come from. */
    enum class Source {
        Anywhere,
        Medium ///< not from the computer's memory, as far as the system can be asked for that
    };

    explicit ContentComparer(Source second = Source::Anywhere);

    /** Compares the sizes first; the bytes are read only where these are equal. */
    Result compare(const QString &first, const QString &second);

private:
    Result compareBytes(const QString &first, const QString &second);
    std::optional<QByteArray> digestOf(const QString &path);

    const Source m_source;
    QSet<QString> m_compared; ///< files whose bytes were read once
    QHash<QString, QByteArray> m_digests;
    QByteArray m_first;
    QByteArray m_second;
    KeepAlive m_keepAlive;
};
