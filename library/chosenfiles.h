// The files that the user chose, which backup and transfer work on.
#pragma once

#include <QStringList>

/** The order is that of the choice. */
class ChosenFiles
{
public:
    const QStringList &paths() const { return m_paths; }

    /** Replaces all files by these, as they are. */
    void set(const QStringList &paths) { m_paths = paths; }

    /** Puts those behind the others that are not there yet, each once. */
    void add(const QStringList &paths);

    /** The file has another name now; it keeps its place. */
    void rename(const QString &path, const QString &newPath);

    /** Takes the file out, however often it is there. */
    void remove(const QString &path) { m_paths.removeAll(path); }

private:
    QStringList m_paths;
};
