// Names short enough for the player.
#pragma once

#include "devindex/foldernames.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

class QFileInfo;

/** True when the last name in a path, without its last suffix, is short enough as it is. */
bool isShortName(const QString &path);

/**
 * The short name that a name gets where none is taken: "My Long Song Name.mid" becomes
 * "MyLong-1.mid". The suffix of a folder's name goes.
 */
QString firstShortName(const QString &name, bool isFolder);

/**
 * A text that two names have in common, ignoring case, exactly when one is the short name that the
 * other can have got: for a short name its own, for a long one those of the numbers of one, two
 * and three digits. Empty for a name that is nobody's short name.
 */
QString shortNameKey(const QString &shortName);
QStringList keysOfShortNames(const QString &name);

/**
 * Finds short names for long ones: the first characters of the name, "-" and a number ("My Long
 * Song Name.mid" becomes "MyLong-1.mid"). It remembers which numbers it found taken, so that a
 * folder full of names that begin alike is not searched from 1 on for each of them.
 */
class ShortNames
{
public:
    /**
     * The path of the first short name that no file or folder has, in whatever letter case, in the
     * item's own folder; empty when all are taken. The short name of an MP3 is free for its karaoke
     * pictures, too.
     */
    QString candidateFor(const QFileInfo &item);

    /** The same for a song at a path at which anything may lie, or nothing. */
    QString candidateForSong(const QString &path);

    /** No song gets this path, nor an MP3 one beside pictures of that name. */
    void keepFree(const QString &path);

private:
    QString find(const QString &path, bool isFolder);
    bool isFree(const QString &candidate, bool isFolder, const FolderNames &names) const;

    QSet<QString> m_keptFree; ///< as nameKey()
    QHash<QString, FolderNames> m_names;
    QHash<QString, int> m_firstFree; ///< by folder, beginning of the name and suffix
};
