// Compares the player's index, the playlists and the songs on a memory with each other.
#pragma once

#include "devindex/checkfindings.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>

/**
 * Reads only: nothing on the memory is changed. A memory without a complete index has one finding,
 * since the player then finds no songs at all. Files that are larger than an index can make them
 * are not read to their end.
 */
class MemoryCheck
{
    Q_DECLARE_TR_FUNCTIONS(MemoryCheck)

public:
    using Kind = CheckFinding::Kind;
    using Finding = CheckFinding;

    /** The memory with this root folder. */
    explicit MemoryCheck(const QString &root);

    /**
     * All that is wrong with the memory, as far as CheckFindings keeps it; empty when it is in
     * order, and when isStopped, asked between folders and records, says yes.
     */
    QList<Finding> run(const std::function<bool()> &isStopped = {});

private:
    struct Song {
        quint32 id = 0;
        QByteArray path; ///< as it stands in the path file
    };

    struct Initial {
        QString text;
        quint32 offset = 0;
    };

    void runChecks();
    bool stops() { return m_wasStopped = m_wasStopped || (m_isStopped && m_isStopped()); }
    void add(Kind kind, const QString &path, const QString &text);
    QByteArray read(const QString &name);
    QByteArray records(const QString &name, int size);
    bool isReadable(const QString &name) const;
    bool isComplete();

    void checkPaths();
    void checkPath(int number, const char *record);
    void findSongFiles();
    bool isHidden(const QString &path) const;
    void checkUnlisted();
    void checkOrder();
    void checkTitles(bool mp3Only);
    int checkGroups(QLatin1String kind, QLatin1String name, QLatin1String letters);
    void checkGroupHeader(const QString &name, int number, const char *record);
    void checkGroupedSong(const QString &name, int number, const char *record);
    void checkSongBytes(const QString &name, int number, const char *record);
    void checkSorted(const QString &name, int number, const QString &first, const QString &second);
    void checkLetters(const QString &name, const QList<Initial> &initials);
    void checkHeads();
    void checkCounts(const QList<int> &counts);
    void checkPlaylists();
    void checkPlaylist(const QString &name);

    const QString m_root;
    std::function<bool()> m_isStopped;
    bool m_wasStopped = false;
    CheckFindings m_findings;
    QHash<QByteArray, QList<QByteArray>> m_files; ///< times of change by path
    QStringList m_filePaths;                      ///< in the order in which they were found
    QStringList m_unread;                         ///< folders, as their paths stand in an index
    QList<Song> m_songs;                          ///< by record number
    QSet<quint32> m_ids;
    QSet<QByteArray> m_paths;
    QList<Song> m_unchanged; ///< that lie there as they were indexed
    qint64 m_lastId = -1;
    QHash<quint32, QByteArray> m_titleRecords; ///< of all songs
    QSet<quint32> m_expected;                  ///< the songs of the lists that are being checked
    QHash<QString, QHash<quint32, QString>> m_groupOf;

    /** The group file that is being read. */
    struct GroupState {
        QString kind;
        QString group;
        bool hasGroup = false;
        QString title;
        bool hasTitle = false;
        int groups = 0;
        int lastCount = 0;
        int left = 0;
        QSet<quint32> seen;
        QList<Initial> initials;
    };
    GroupState m_state;
};
