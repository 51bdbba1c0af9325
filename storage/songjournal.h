// The rollback journal of a song that is being rewritten in place.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QtGlobal>

#include <optional>

/**
 * While a song is rewritten in place, its old bytes lie in a hidden file beside it. After a crash
 * or a power cut the song is restored from it.
 *
 * Layout, numbers big-endian: magic "KvSongJr" (8 bytes), version 2 (4), size of the old song (4),
 * size of the new one (4), how many bytes both have in common at their start (4) and at their end
 * (4), SHA-256 of all that with the bytes that follow it (32), the old bytes, and those of the new
 * ones that lie between the common ones. A journal that was not written whole does not fit its
 * checksum; one of version 1, which knew nothing of the new bytes, counts as none either.
 *
 * The object holds the journal that it wrote or read until the journal is removed or the object is
 * destroyed, so that another program does not take a running save for one that was cut off.
 */
class SongJournal
{
public:
    /** What a song is, compared with the two states between which its journal leads. */
    enum class Verdict {
        Old,
        New,
        CutOff, ///< on the way from the one to the other
        NotOurs ///< neither of the two, nor made of them
    };

    /** What a journal tells. */
    struct Content {
        QByteArray oldBytes;
        QByteArray newBytes;

        /** The bytes of the journal. */
        QByteArray encode() const;

        /** Nothing when the bytes are no journal, or not a whole one. */
        static std::optional<Content> decode(const QByteArray &bytes);

        /**
         * The state of a song with these bytes. Of a longer song, one byte more than the longer of
         * the two states has is enough.
         */
        Verdict judge(const QByteArray &song) const;
    };

    enum class State {
        Missing,       ///< nothing of that name
        SomethingElse, ///< a link, a file with several hard links, a folder, a pipe or a device
        InUse,         ///< the song is being saved at this moment, by another program
        Unreadable,    ///< there is one, but the medium or its rights do not let it be read
        Invalid,       ///< cut off while it was written, or no journal at all
        Valid
    };

    /** No song that is rewritten in place is larger; nor are the songs in a journal. */
    static constexpr qint64 largestSong = qint64{65} * 1024 * 1024;

    /**
     * How many names a journal may have: the next one is used where something else has the first.
     * All of them are looked up for each song that is read, which takes time on a slow stick.
     */
    static constexpr int maxNames = 4;

    /** The journal of this song, which must be no symbolic link, at the first or a later name. */
    explicit SongJournal(const QString &song, int number = 0);

    QString path() const { return m_path; }

    /**
     * Makes the journal, at the first name from its own on where nothing is, and brings it to the
     * medium. False when that cannot be done; nothing of it is left behind then.
     */
    bool write(const Content &content);

    /**
     * Reads the journal; the content is filled when the journal is valid. Reads at most the size of
     * the largest journal, follows no link and never waits for the other end of a pipe.
     */
    State read(Content &content);

    /**
     * Removes the journal or, where that fails, empties it so that it is no longer valid; on the
     * medium as well. False when neither is possible.
     */
    bool remove();

    /**
     * Removes the journals that earlier saves left beside a song which another file has replaced. A
     * journal in use stays, and so does anything but a regular file.
     */
    static void removeAllOf(const QString &song);

private:
    QString m_song;
    int m_number;
    QString m_path;
    QFile m_file;
};
