// Names short enough for the player.
#pragma once

#include <QHash>
#include <QString>

class QFileInfo;

/** True when the last name in a path, without its last suffix, is short enough as it is. */
bool isShortName(const QString &path);

/**
 * Finds short names for long ones: the first characters of the name, "-" and a number ("My Long
 * Song Name.mid" becomes "MyLong-1.mid"). It remembers which numbers it found taken, so that a
 * folder full of names that begin alike is not searched from 1 on for each of them.
 */
class ShortNames
{
public:
    /**
     * The path of the first short name that no file or folder has, in the item's own folder; empty
     * when all are taken. The short name of an MP3 is free for its karaoke pictures, too.
     */
    QString candidateFor(const QFileInfo &item);

private:
    QHash<QString, int> m_firstFree; ///< by folder, beginning of the name and suffix
};
