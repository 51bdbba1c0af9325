// The sounds of the instruments, by which MIDI songs are played.
#pragma once

#include <QString>
#include <QStringList>

namespace soundfont
{
/** The folders in which sound fonts are installed, the preferred ones first. */
QStringList folders();

/**
 * The chosen sound font, as long as it is there; else an installed one. Of these the system's
 * default comes first, then the order of the names. Empty when there is none.
 */
QString find(const QString &chosen = {});

/** The same in these folders. */
QString findIn(const QStringList &folders, const QString &chosen);
} // namespace soundfont
