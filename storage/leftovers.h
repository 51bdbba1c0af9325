// What programs that were killed left in the folders of songs.
#pragma once

#include <QLatin1String>
#include <QSet>
#include <QString>

/**
 * One object cleans the folders of one job, each folder once. It removes hidden files that end in
 * one of the suffixes below, and the new version of an MP3 under its usual name, "song.tmp" beside
 * "song.mp3", if it is an ID3 tag and behind it the song's own audio from its first byte on, whole
 * or in part: no music is lost with it. Only files that no running program holds go; a program that
 * makes such a file holds it until the file is renamed or removed. Links, folders and anything else
 * with such a name stay.
 */
class Leftovers
{
public:
    /** A copy that is not whole yet. */
    static constexpr QLatin1String partSuffix{"kavena-part"};

    /** The new version of an MP3 before it replaces the old one, where the usual name is taken. */
    static constexpr QLatin1String temporarySuffix{"kavena-tmp"};

    /** The same where that name is free, behind the song's name without its own suffix. */
    static constexpr QLatin1String usualTemporarySuffix{".tmp"};

    /** True for a name that only such a file has. */
    static bool isLeftover(const QString &name);

    /** True for a name that such a file can have, and other files, too. */
    static bool mayBeLeftover(const QString &name);

    /** Removes one, if it is provably one; else it stays, without a message. */
    static void remove(const QString &path);

    /**
     * Removes the leftovers from the folder. A file that cannot be removed stays, without a
     * message.
     */
    void tidy(const QString &folder);

    /** The same for the folder of a song. */
    void tidyBeside(const QString &song);

private:
    QSet<QString> m_tidied;
};
