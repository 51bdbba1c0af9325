// Small files that are read and written as a whole.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/**
 * The bytes of a regular file, or of the one that a link leads to. Nothing when there is none, when
 * it cannot be read or when it has more than maxBytes.
 */
std::optional<QByteArray> readWholeFile(const QString &path, qint64 maxBytes);

/**
 * Gives a file these bytes in one step: the path leads to the old bytes or to the new ones at any
 * time, and with true the new ones are on the medium. A link stays, and the file that it leads to
 * is replaced. False, with the file as it was, for a link that leads nowhere, for anything else
 * that is no regular file, and when the medium refuses.
 */
bool writeWholeFile(const QString &path, const QByteArray &bytes);
