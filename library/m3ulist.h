// Lists of songs in M3U8 files, as most programs that play music read and write them.
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

/**
 * A line holds the path of a song, absolute or from the list's own folder, or a "file://" address;
 * lines that begin with "#" and empty ones mean nothing here. Lists are taken for what a stranger
 * may have written: lines and lists without end are cut off, and no line is lost in silence.
 */
class M3uList
{
    Q_DECLARE_TR_FUNCTIONS(M3uList)

public:
    /** A list has no more songs, and a line no more bytes. */
    static constexpr qsizetype mostSongs = 100000;
    static constexpr qsizetype longestLine = 16384;

    static constexpr qint64 mostBytes = qint64{64} << 20;

    QStringList songs;   ///< absolute paths, each once, in the order of the list
    QStringList strange; ///< the beginnings of lines that can lead to no file
    bool isCut = false;  ///< the list had more songs than it may have

    /**
     * The songs of a list that lies in this folder. UTF-8, with or without a byte order mark; a
     * line that is none is Latin-1, as in the lists of old.
     */
    static M3uList parse(const QByteArray &bytes, const QString &folder);

    /**
     * Reads a list; problem says why there is none, or is empty. A path with backslashes, as lists
     * from Windows have them, is taken for one with slashes where no file has that name.
     */
    static M3uList read(const QString &path, QString &problem);

    enum class Paths { Absolute, Relative };

    /**
     * The list of these absolute paths for a file in this folder. A relative path may lead upwards;
     * a name that would not survive in a line is written as a "file://" address.
     */
    static QByteArray text(const QStringList &songs, const QString &folder, Paths paths);

    /** Writes the list; why it could not, for the user, or empty. See UserFile::write(). */
    static QString write(const QString &path, const QStringList &songs, Paths paths);
};
