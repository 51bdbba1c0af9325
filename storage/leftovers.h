// What programs that were killed left in the folders of songs.
#pragma once

#include <QLatin1String>
#include <QSet>
#include <QString>

/**
 * One object tidies the folders of one job, each of them once. Only hidden files that carry a
 * suffix of ours go, and only while no running program holds them: who makes such a file holds it
 * until it is renamed or removed. Links, folders and whatever else has such a name stay.
 */
class Leftovers
{
public:
    /** A copy that is not whole yet. */
    static constexpr QLatin1String partSuffix{"kavena-part"};

    /** The successor of an MP3, before it takes its place; where the usual name is taken. */
    static constexpr QLatin1String temporarySuffix{"kavena-tmp"};

    /** Removes the leftovers from the folder. What cannot be removed stays, without a word. */
    void tidy(const QString &folder);

    /** The same for the folder of a song. */
    void tidyBeside(const QString &song);

private:
    QSet<QString> m_tidied;
};
