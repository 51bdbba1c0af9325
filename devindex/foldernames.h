// The names in a folder as the player tells them apart, which knows no letter case.
#pragma once

#include <QMultiHash>
#include <QString>

class FolderNames
{
public:
    /** Lists the folder; what is made there later must be added. */
    explicit FolderNames(QString folder);

    /**
     * The path of what lies in the folder under the name of this path, which must be one of the
     * folder: the path itself, or one that differs from it in letter case only. Empty when nothing
     * lies there now.
     */
    QString existing(const QString &path) const;

    /** Something may lie at this path of the folder from now on. */
    void add(const QString &path);

private:
    void addName(const QString &name);

    QString m_folder;
    QMultiHash<QString, QString> m_names; ///< by nameKey()
};
