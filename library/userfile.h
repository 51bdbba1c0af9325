// Files that the user saves under names of his own choice.
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

class UserFile
{
    Q_DECLARE_TR_FUNCTIONS(UserFile)

public:
    struct Reading {
        QByteArray bytes;
        QString problem; ///< why there are no bytes, for the user; empty when all were read
    };

    /** Reads the file, which may have so many bytes at most. */
    static Reading read(const QString &path, qint64 maxBytes);

    /**
     * Writes the file in one step; see writeWholeFile(). Never over a song, nor under the name of
     * one: the next import would take it for a damaged song. Nor over a database, such as the
     * history or the user's own catalogue, nor under the name of a song's picture (.cdg). Why it
     * was not written, for the user; empty when it was.
     */
    static QString write(const QString &path, const QByteArray &bytes);

    /** Why write() leaves what lies at the path as it is; empty when it would replace it. */
    static QString whyKept(const QString &path);

    /** The most likely reason why a file of so many bytes could not be written there. */
    static QString whyNotWritten(const QString &path, qint64 size);
};
