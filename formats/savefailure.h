// Why a song could not be saved.
#pragma once

#include <QString>

enum class SaveFailure {
    None,         ///< it was saved
    ReadOnly,     ///< the medium is write-protected
    DiskFull,     ///< no room for the new bytes
    FileGone,     ///< the song, its folder or its medium is not there (any more)
    NoPermission, ///< this user may not write the file or into its folder
    InUse,        ///< another program holds the file
    MediumFailed, ///< the medium gives errors
    TooLarge,     ///< more data than a file of the format can hold
    Unreadable,   ///< the file is no song that can be loaded (any more)
    Other
};

/**
 * The reason behind a system call on the path that failed with this errno. With 0, or an errno that
 * has no reason of its own here, the state of the file and of its medium decides; never None.
 */
SaveFailure saveFailureFrom(int systemError, const QString &path);

/** The reason why the song at the path could not be loaded, and so not be changed; never None. */
SaveFailure loadFailureOf(const QString &path);
