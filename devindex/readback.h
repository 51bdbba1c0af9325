// Whether a copy that was flushed can be read from the medium as it was written.
#pragma once

#include <QString>

/**
 * Reads both files to their end; the copy from the medium and not from the computer's memory, as
 * far as the system can be asked for that. The copy must be flushed. False when a byte differs, or
 * when one of the files cannot be read.
 */
bool readBackMatches(const QString &copy, const QString &source);
