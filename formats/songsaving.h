// Writing song files so that no song is lost, with a line in the log for what goes wrong.
#pragma once

#include "formats/savefailure.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <functional>

namespace songsaving
{
/**
 * Gives the file at the path new bytes, in place; a file that is not there is made. The bytes are
 * asked for when the file is open.
 */
SaveFailure rewrite(const QString &path, const std::function<QByteArray()> &bytes);

/**
 * Replaces the file at the path by one that begins with the head and goes on with what the source,
 * which is open for reading and is closed here, holds from a position to its end.
 */
SaveFailure replaceHead(const QString &path, const QByteArray &head, QFile &source,
                        qint64 sourcePos);
} // namespace songsaving
