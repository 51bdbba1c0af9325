// The songs that the arguments name.
#pragma once

#include "cli/request.h"
#include "library/progress.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class Terminal;

class SongPaths
{
    Q_DECLARE_TR_FUNCTIONS(SongPaths)

public:
    /** A path in bytes that Qt cannot open, since they are no valid UTF-8. */
    static QString notUtf8();

    /**
     * The arguments, and those that standard input lists when the request says so. Nothing when the
     * user stopped it, or when the list cannot be read to its end, which the terminal is told.
     */
    static std::optional<QList<QByteArray>> given(const Request &request, Terminal &terminal);

    /** Of a memory that was pulled while it was read: what was found on it is worth nothing. */
    static QString memoryHasGone();

    /** The path of bytes that are valid UTF-8; else nothing, after the terminal named the failure.
     */
    static std::optional<QString> decode(const QByteArray &path, Terminal &terminal);

    /** The absolute path of a folder; else nothing, after the terminal told why. */
    static std::optional<QString> folder(const QByteArray &path, Terminal &terminal);

    /**
     * The root of the memory that a folder lies on; a folder on none is taken for one itself.
     * Nothing where folder() gives none.
     */
    static std::optional<QString> memory(const QByteArray &path, Terminal &terminal);

    /**
     * True when the root may be changed: it is a connected memory or has a part of an index, or the
     * request takes any folder. Else the terminal is told: a folder of the computer that was named
     * by mistake must not get files nor lose songs.
     */
    static bool mayChange(const QString &root, const Request &request, Terminal &terminal);

    /**
     * The songs of a request whose arguments may be folders, each once: files as they were given,
     * of folders the files that are named as songs. Names that cannot be used and folders that
     * cannot be read are failures. Nothing when the user stopped the search or given() gives
     * nothing.
     */
    static std::optional<QStringList> songs(const Request &request, Terminal &terminal);

private:
    static void nameUnusable(const QString &folder, Terminal &terminal);
};
