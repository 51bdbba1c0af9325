// What is wrong with a memory, as far as a reader wants to know it.
#pragma once

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QString>

struct CheckFinding {
    enum class Kind {
        NoIndex,      ///< an index file is missing or cannot be read
        WrongSize,    ///< a file does not end with a record, or its size does not fit
        TooManySongs, ///< more than the player counts
        BadRecord,    ///< a record that the player cannot use
        ListedTwice,  ///< a path, a song or a group stands there a second time
        MissingSong,  ///< the index lists a file that is not there
        ChangedSong,  ///< the file was changed after it was indexed
        OtherSong,    ///< the lists say other things of the song than its file
        UnlistedSong, ///< a song file that the index does not list
        TooLongPath,  ///< the player cannot find a song under it
        UnreadFolder, ///< its songs cannot be looked for
        UnusableName, ///< of a song or folder: no program finds it under its name
        WrongOrder,   ///< the player searches in another order
        WrongSongs,   ///< a list does not hold each song that belongs there
        WrongGroup,   ///< the counts or the text of a group of songs
        WrongLetter,  ///< a first letter leads to another place
        WrongCounts,  ///< the file of counts
        UnknownSongInPlaylist,
        MissingPlaylist ///< a playlist is listed, but its songs cannot be read
    };

    Kind kind;
    QString path;     ///< the song's path on the memory, or the file of the index
    QString text;     ///< what is wrong with it, for the user
    qint64 count = 1; ///< more than 1 for one that stands for others of its kind as well

    /** A name for the kind that never changes, such as "missing-song". */
    static const char *nameOf(Kind kind);
};

/** Keeps a limited number of each kind and counts the others: files may come from a stranger. */
class CheckFindings
{
    Q_DECLARE_TR_FUNCTIONS(CheckFindings)

public:
    static constexpr int mostOfAKind = 1000;

    void add(CheckFinding::Kind kind, const QString &path, const QString &text);

    /** In the order in which they were added; the last one of a kind tells how many more there are.
     */
    QList<CheckFinding> all() const;

private:
    QList<CheckFinding> m_findings;
    QHash<int, qint64> m_counts;       ///< by kind
    QHash<int, qsizetype> m_lastPlace; ///< by kind, in m_findings
};
