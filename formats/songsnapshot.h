// What has to be kept of a song file so that any change of its data can be taken back to the byte.
#pragma once

#include "formats/savefailure.h"
#include "formats/songinfo.h"

#include <QByteArray>
#include <QString>

#include <optional>

/**
 * Of an MP3 file its tag, since no change touches the audio behind it; of a MIDI or MFX file all
 * bytes. The digest tells the file as it was from any other state of it. Of an MP3 file's audio
 * only the length and the two ends count for it: reading hundreds of megabytes would take longer
 * than the change itself. So a file whose audio alone was changed in its middle counts as
 * unchanged; restore() takes nothing of that away, since it gives back the tag only.
 */
struct SongSnapshot {
    QByteArray bytes;
    bool isTag = false; ///< audio stood behind the bytes
    qint64 size = 0;    ///< of the whole file
    QByteArray digest;

    /** Nothing for a file that is no song, that cannot be read, or whose last save was cut off. */
    static std::optional<SongSnapshot> of(const QString &path);

    /**
     * What the song said of itself; the name gives its kind. Empty when that cannot be read.
     */
    SongInfo info(const QString &name) const;

    /** False for kept bytes that have been damaged, as far as they tell. */
    bool isSound() const;

    /**
     * True when the kept bytes and the audio of the file at the path are together what the digest
     * was made of. Of a file whose audio has changed since this is false, too; nothing when the
     * file cannot be read.
     */
    std::optional<bool> fitsAudioOf(const QString &path) const;

    /** False for a kept tag that says it is longer than what was kept: audio would count for it. */
    bool holdsItsTag() const;

    /**
     * Gives the song at the path the kept bytes; an MP3 file keeps the audio that it has. None when
     * the file holds them. A failure leaves the file as it was, and so does a file that has become
     * an MP3 file, or is one no more.
     */
    SaveFailure restore(const QString &path) const;
};
