// Brings what the tags of an MP3 file say into the form that the player shows.
#pragma once

#include "formats/savefailure.h"
#include "formats/songinfo.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

class Mp3Header;

/**
 * What would be written into one file, and the writing of it. The file's title, artist, genre,
 * author, key, tempo and length become frames in ISO-8859-1 of a synchronised tag of ID3v2.3. All
 * other frames, pictures and tags behind the audio stay, and so does the audio, bit for bit.
 */
class Mp3Preparation
{
public:
    /** Of the file at the path, which stays as it is. Nothing when it is no MP3 file, when its tag
     * cannot be read, or while another program saves it.
     */
    static std::optional<Mp3Preparation> of(const QString &path);

    const QString &path() const { return m_path; }

    /** Why the player cannot show the texts; none when it can. */
    TagTroubles troubles() const { return m_shown.troubles; }

    /** What the player shows now. */
    const SongInfo &shown() const { return m_shown; }

    /** What the tags say, with all their characters. */
    const SongInfo &said() const { return m_said; }

    /** What the player would show, close to what the tags say. */
    const SongInfo &proposed() const { return m_proposed; }

    /** Frames of ID3v2.2, by their names, that no later version has: they would go. */
    const QStringList &lostFrames() const { return m_lostFrames; }

    /** Frames, by their names, whose texts are not understood: they stay as they are. */
    const QStringList &keptFrames() const { return m_keptFrames; }

    /**
     * True when the tag would stay one of ID3v2.4, since it has frames that version 3 cannot hold.
     * The player reads the texts in it all the same.
     */
    bool keepsVersion() const { return m_keepsVersion; }

    /**
     * False for a damaged tag that would not say what was written into it, and for one of whose
     * texts none is understood.
     */
    bool canBeWritten() const { return m_canBeWritten; }

    /**
     * Writes title, artist, genre, author, key, tempo and length of the record; characters outside
     * ISO-8859-1 become "?". Unreadable for a damaged tag that would not say so, and when the tag
     * would stay the same although the player cannot show it; InUse, with the
     * file as it is, when the file is another one than the one that was looked at; TooLarge when
     * the program could not read the song any more.
     */
    SaveFailure write(const SongInfo &texts) const;

private:
    Mp3Preparation() = default;
    void propose(const QByteArray &start, const Mp3Header &tag, const Mp3Header &newTag);

    QString m_path;
    QByteArray m_digest; ///< of the tags that were looked at
    SongInfo m_shown;
    SongInfo m_said;
    SongInfo m_proposed;
    QStringList m_lostFrames;
    QStringList m_keptFrames;
    bool m_keepsVersion = false;
    bool m_canBeWritten = true;
};
