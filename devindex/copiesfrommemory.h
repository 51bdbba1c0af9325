// Copies songs from a memory to the computer.
#pragma once

#include "devindex/filecopier.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

class CopiesFromMemory
{
    Q_DECLARE_TR_FUNCTIONS(CopiesFromMemory)

public:
    /** The memory with this root folder. */
    CopiesFromMemory(const QString &root, FileCopier::AskReplace askReplace);

    /** Why songs are not copied into this folder, for the user; empty when they can be. */
    QString whyNotInto(const QString &folder) const;

    /**
     * Copies the songs of these paths on the memory into the folder, an MP3 with its karaoke
     * pictures. Of songs that have one name in different folders only the first is copied: one
     * would replace the other. They are among the failures.
     */
    FileCopier::Report copy(const QStringList &paths, const QString &folder, Progress &progress);

private:
    const QString m_root;
    FileCopier m_copier;
};
