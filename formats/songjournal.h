// The rollback journal of a song that is being rewritten in place.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QtGlobal>

#include <optional>

/**
 * While a song is rewritten in place, its old bytes lie in a hidden file beside it. What a crash or
 * a power cut leaves of the song can be put back from there.
 *
 * Layout, numbers big-endian: magic "KvSongJr" (8 bytes), version (4), size of the old song (4),
 * size of the new one (4), SHA-256 of the two sizes and the old bytes (32), the old bytes. A
 * journal that was not written whole does not fit its checksum.
 *
 * The object holds the journal that it wrote or read until it removes it or goes itself, so that
 * another program does not take a save that still runs for one that was cut off.
 */
class SongJournal
{
public:
    /** What a journal tells. */
    struct Content {
        QByteArray oldBytes;
        qint64 newSize = 0; ///< of the song, once the rewrite is done

        QByteArray encode() const;

        /** Nothing when the bytes are no journal, or not a whole one. */
        static std::optional<Content> decode(const QByteArray &bytes);
    };

    enum class State {
        Missing,    ///< no journal; links, folders and devices of its name are none
        InUse,      ///< the song is being saved at this moment, by another program
        Unreadable, ///< there is one, but the medium or its rights do not let it be read
        Invalid,    ///< cut off while it was written, or no journal at all
        Valid
    };

    /** No song that is rewritten in place is larger; nor is the old song in a journal. */
    static constexpr qint64 LargestSong = qint64{65} * 1024 * 1024;

    /** The journal of this song, which must be no symbolic link. */
    explicit SongJournal(const QString &song);

    QString path() const { return m_file.fileName(); }

    /**
     * Makes the journal and brings it to the medium. False when that cannot be done, or when
     * something of its name is there already; nothing of it is left behind then.
     */
    bool write(const Content &content);

    /** Reads the journal; the content is filled when it is valid. No more is read than it can be.
     */
    State read(Content &content);

    /**
     * Takes the journal away, or at least its meaning, on the medium as well. False when neither is
     * possible.
     */
    bool remove();

private:
    QFile m_file;
};
