// Why nothing could be written to a memory, in words that its owner understands.
#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

/**
 * Looks for the cause after something could not be written. Only causes that can be proved are
 * named; anything else is Unknown.
 */
class WriteProblem
{
    Q_DECLARE_TR_FUNCTIONS(WriteProblem)

public:
    enum Kind { Unknown, Gone, ReadOnly, Full, NotPermitted };

    /** What a folder and its file system say about themselves. */
    struct Medium {
        bool exists = false; ///< the folder is there
        bool readOnly = false;
        bool permitted = false; ///< this user may write into the folder
        qint64 available = -1;  ///< in bytes; negative when unknown
        QByteArray fileSystem;  ///< its type, as the system calls it

        static Medium of(const QString &folder);
    };

    /** What keeps this many bytes from being written there. */
    static Kind find(const Medium &medium, qint64 bytes = 1);

    /** A whole sentence for a message. */
    static QString sentence(Kind kind);

    /** A few words that stand behind a song's name. */
    static QString fewWords(Kind kind);

    /** Why the source was not copied to the target; a few words that stand behind the song's name.
     */
    static QString whyNotCopied(const QString &source, const QString &target, const Medium &medium);

    /** Why no file on the medium can have this name, in a few words; empty when one can. */
    static QString whyNotNamed(const QString &name, const Medium &medium);

    /** As above, for the folder of the target as it is now. */
    static QString whyNotCopied(const QString &source, const QString &target);

private:
    static QString whyNotNamed(const QString &name);
};
