// A file that the import could not read, and why.
#pragma once

#include <QCoreApplication>
#include <QString>

class UnreadableFile
{
    Q_DECLARE_TR_FUNCTIONS(UnreadableFilesDialog)

public:
    enum class Reason {
        Missing,       ///< gone, or never there
        NoFile,        ///< a folder or a device
        Locked,        ///< may not be read
        InUse,         ///< another program was saving it
        Empty,         ///< holds not one byte
        UnknownFormat, ///< does not begin as a song does
        Damaged        ///< begins as a song does, but cannot be read as one
    };

    QString path;
    Reason reason = Reason::Missing;

    /**
     * Finds the reason why the file at the path could not be imported. What another program saved
     * meanwhile looks sound by now: isInUse says that this was the reason (MetaSong::wasInUse).
     */
    static UnreadableFile examine(const QString &path, bool isInUse = false);

    /** The reason in the user's words. */
    QString reasonText() const;
};
