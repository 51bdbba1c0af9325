// Why a song cannot be heard.
#pragma once

#include <QCoreApplication>
#include <QString>

class SoundProblem
{
    Q_DECLARE_TR_FUNCTIONS(SoundProblem)

public:
    enum Kind {
        None,
        NotBuilt,     ///< the program was built without sound
        NoModule,     ///< the part that makes the sound is not installed
        NoSoundFont,  ///< none is installed, or the chosen one is gone
        BadSoundFont, ///< it cannot be read
        NoDevice,     ///< nothing is there that could sound
        DeviceFailed, ///< the system's sound refuses, or has gone
        Unreadable,   ///< the song's file is gone or may not be read
        InUse,        ///< another program is saving the song
        NoSong,       ///< the file is in no format that is known
        Damaged,
        TooLarge,
        TooLong,
        NoMusic ///< the song has nothing that sounds
    };

    /** In the user's words; empty for None. */
    static QString text(Kind kind);

    /** True for what concerns every song, so that there is no use in trying another one. */
    static bool concernsAll(Kind kind);

    /** True for what may have passed when the user tries again. */
    static bool mayPass(Kind kind);
};
