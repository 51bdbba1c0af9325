// Metadata of an MP3 file, read and written in its ID3v2 tag.
#pragma once

#include "formats/songinfo.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/**
 * The ID3v2 tag at the start of an MP3 file, held as its bytes and edited in them.
 *
 * The frames written are those of ID3v2.3 (id3.org, "ID3 tag version 2.3.0") with ISO-8859-1 text;
 * every other frame of the tag is carried through unchanged. The tag in memory is always as long
 * as its size field says; whatever a hostile file claims, nothing outside it is read or removed.
 */
class Mp3Header
{
public:
    /** Bytes of a tag in front of its frames. */
    static constexpr int headerSize = 10;

    /** Bytes of a footer, which may follow a tag of version 4. */
    static constexpr int footerSize = 10;

    /** The tag counts the length of a song in milliseconds. */
    static constexpr int millisecondsPerSecond = 1000;

    /**
     * Takes the tag from the beginning of a file; a file without "ID3" gets a new, empty tag.
     * False, with an empty tag, for fewer than 10 bytes and for a tag that claims more than was
     * given. Up to 10 bytes that a tag lacks at its very end (its size does not count its own
     * header) are filled with zeros, which is padding to every reader. A sound tag of ID3v2.2 is
     * brought into the form of version 3. A tag that is unsynchronised as a whole (version 2 or 3)
     * is freed of it, and a footer (version 4) is left out: stream() is the tag without them.
     */
    bool loadHeader(const QByteArray &bytes);

    /**
     * The size in bytes 6 to 9 of a tag: seven bits each, most significant first, not counting
     * the tag's own 10-byte header. A byte of 0x81 or more makes it 0, and so do fewer than 10
     * bytes; the byte 0x80 is taken as it is.
     */
    unsigned int getId3TagSize(const QByteArray &bytes) const;

    /**
     * Position of the first audio byte in the file that was loaded; 0 when it had no tag. A footer
     * is counted only where the bytes given to loadHeader reach footerSize beyond the tag.
     */
    unsigned int getAudioDataStartPos() const { return m_audioStart; }

    /** The tag as it is now: its header and its frames. */
    const QByteArray &stream() const { return m_tag; }

    SongInfo::fileTypeEnum fileType() const { return SongInfo::FileMp3; }

    /** @name The song's data; empty text or 0 when the frame is missing or holds no number. */
    ///@{
    QString title() const;
    QString artist() const;
    QString genre() const;
    QString author() const;
    QString key() const;
    int userBpm() const; ///< beats per minute
    int length() const;  ///< whole seconds; the tag counts milliseconds
    ///@}

    /** @name True when the frame is there, even if it is empty. */
    ///@{
    bool hasTitle() const;
    bool hasArtist() const;
    bool hasGenre() const;
    bool hasAuthor() const;
    bool hasKey() const;
    bool hasUserBpm() const;
    bool hasLength() const;
    bool hasKavenaEditParam() const; ///< the mark of a file that this program has edited
    ///@}

    /** True when the copyright frame names the publisher "K-RAVO", in whatever case. */
    bool isKravo() const;

    /** @name Replace the first frame of the kind by a new one at the head of the tag.
     * An empty text, or a number below 1, leaves the frame removed. Characters outside
     * ISO-8859-1 become "?".
     */
    ///@{
    void setTitle(const QString &title);
    void setArtist(const QString &artist);
    void setGenre(const QString &genre);
    void setAuthor(const QString &author);
    void setKey(const QString &key); ///< stored as given, known key name or not
    void setUserBpm(int bpm);
    void setLength(int seconds);
    ///@}

    /** Adds the edit mark; one that is there already stays. */
    void setKavenaEditParam();

    /**
     * The size field (32 bits, big-endian, without the 10-byte frame header) of the frame at the
     * position in the tag; 0 when it lies outside the tag.
     */
    unsigned int getSingleFrameLength(int pos) const;

    /**
     * Delivers the text of the first frame with the identifier: ISO-8859-1, cut at the first zero
     * byte, trimmed. A frame that claims more than the tag holds reaches to the tag's end; in a tag
     * of version 4 its size may also be written in groups of seven bits. Returns the frame's
     * position in the tag, or -1, with an empty text, when there is none.
     */
    int extractId3Frame(QString &text, const QString &id) const;

    /**
     * The first frame with the identifier, header included; one that claims more than the tag holds
     * ends with the tag. Empty when there is none. Valid until the tag changes.
     */
    QByteArrayView firstFrame(const QString &id) const;

    /**
     * Inserts a text frame at the position in the tag and returns the number of bytes inserted: 0
     * when the content is empty, the position lies outside the frames, the identifier has not 4
     * characters, or the tag would outgrow the 28 bits of its size field.
     */
    int insertId3Frame(const QByteArray &content, const QString &id, int pos);

    /** Removes the first frame with the identifier; returns the number of bytes removed. */
    int removeId3Frame(const QString &id);

    /** Writes the size of the frames into bytes 6 to 9 of the tag. */
    void updateId3TagSize();

private:
    int indexOfFrame(const QByteArray &id) const;
    quint32 frameSize(int pos) const;
    int endOfSoundFrame(int pos) const;
    bool hasFrame(const char *id) const;
    QString frameText(const char *id) const;
    QByteArrayView frameAt(int pos) const;
    int flags() const;
    void setFlags(int flags);
    void setFrames(const QByteArray &frames);
    void leaveOutFooter(QByteArrayView behind);
    void undoUnsynchronisation();
    void renewFrames();
    int extendedHeaderSize() const;
    void removeExtendedHeader();
    void prepareForFrames();
    void replaceFrame(const char *id, const QByteArray &content);

    QByteArray m_tag;
    unsigned int m_tagSize = 0;
    unsigned int m_audioStart = 0;
};
