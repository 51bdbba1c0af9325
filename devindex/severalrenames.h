// Finds names for the files of many songs, made of the songs' data, without renaming anything.
#pragma once

#include "devindex/mountedvolumes.h"
#include "devindex/shortname.h"
#include "formats/songinfo.h"
#include "library/namepattern.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <vector>

/** A file, and the name that it gets. */
struct SeveralRename {
    SongInfo info;   ///< with its fileName
    QString newPath; ///< in the same folder; empty when the file keeps its name
    QString reason;  ///< why it has to keep its name, in a few words for the user; else empty

    bool isRenamed() const { return !newPath.isEmpty(); }
};

/**
 * Each name is free: no file in the folder has it now, in whatever letter case, none gets it, and
 * no karaoke pictures lie there that would then belong to another song. A name that is taken gets a
 * number behind it. So files can be renamed one by one, in any order, and none is ever replaced.
 */
class SeveralRenames
{
    Q_DECLARE_TR_FUNCTIONS(SeveralRenames)

public:
    SeveralRenames() = default;

    /** The songs as they are now, each with its path. */
    explicit SeveralRenames(const QList<SongInfo> &songs);

    /**
     * Finds all names anew. With isShort each is one that the player can show: at most eight
     * characters of its character set in front of the suffix.
     */
    void setPattern(const QString &pattern, bool isShort);

    /** What is wrong with the pattern, for the user; empty when it can be used. */
    const QString &problem() const { return m_problem; }

    const std::vector<SeveralRename> &songs() const { return m_songs; }

    /** How many files get another name, and how many have to keep theirs. */
    int renamed() const { return m_renamed; }
    int unfit() const { return m_unfit; }

    /** The text as the base of a file's name that any file system takes; empty for none. */
    static QString cleaned(const QString &text);

private:
    struct Folder {
        QSet<QString> names;        ///< that are there or will be, as nameKey()
        QHash<QString, int> counts; ///< by name: how often it was wanted so far
    };

    void findName(SeveralRename &song, const NamePattern &pattern, bool isShort);
    QString freeName(const QString &path, const QString &base);
    QString shortName(const QString &path, const QString &base, QString &reason);
    bool isFree(const QString &path, const QString &newPath);
    Folder &folderOf(const QString &path);

    std::vector<SeveralRename> m_songs;
    MountedVolumes m_volumes;
    QHash<QString, Folder> m_folders;
    ShortNames m_shortNames;
    QString m_problem;
    int m_renamed = 0;
    int m_unfit = 0;
};
