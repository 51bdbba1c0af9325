// Short names for the songs of a list, by which the user can still tell them apart.
#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

/**
 * Of most songs the file's name is enough. Where songs of several folders have one name, in any
 * letter case, the folder is told as well: "Pop/song.mid"; where that is no difference either, the
 * whole path.
 */
class ShownNames
{
public:
    /** The paths of all songs that may be told of, those that went well among them. */
    explicit ShownNames(const QStringList &paths);

    /** How the path is called; one that is not of the list, too. */
    QString of(const QString &path) const;

private:
    QHash<QString, QSet<QString>> m_paths; ///< by the case-folded short forms
};
