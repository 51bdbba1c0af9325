// Header of an MFX song file.
#pragma once

#include "formats/mfxlayout.h"
#include "formats/songinfo.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/**
 * The bytes in front of the compressed MIDI data of an MFX file, with access to the known fields;
 * all other bytes are carried through as they are. Numbers are little-endian, texts are Latin-1,
 * padded with zero bytes.
 *
 * Readers give an empty text or 0 for what the header does not hold. Writers first make the header
 * long enough for their field.
 */
class MfxHeader
{
public:
    enum FlagsEnum {
        MarkersFlag = 0x01 ///< the song carries section markers
    };

    static constexpr qsizetype largestSize = mfxlayout::longHeaderSize; ///< no header is longer

    /** FileMf3, FileMf4 or FileMf5 for bytes that begin with the magic; FileUnknown for others. */
    static SongInfo::fileTypeEnum typeOf(QByteArrayView start);

    /**
     * Takes the header from the beginning of these bytes: 512 of them after the magic "_MF3" or
     * "_MF4", 1024 after "_MF5"; what follows is left out. Returns false for any other magic and
     * for too few bytes; the header is then empty and its type 0.
     */
    bool loadHeader(const QByteArray &bytes);
    /** The header as it goes into a file. */
    const QByteArray &header() const { return m_header; }
    /** FileMf3, FileMf4 or FileMf5; FileUnknown without a header. */
    SongInfo::fileTypeEnum fileType() const { return m_fileType; }

    /** True for a header that is as long as its type demands. */
    bool isWhole() const;

    /** Texts up to their first zero byte or the end of their field, without outer white space. */
    QString title() const;
    QString author() const;
    QString artist() const;
    QString genre() const;
    QString editor() const;
    QString copyright() const;
    QString longName() const;
    bool hasTitle() const { return !title().isEmpty(); }
    bool hasAuthor() const { return !author().isEmpty(); }
    bool hasArtist() const { return !artist().isEmpty(); }
    bool hasGenre() const { return !genre().isEmpty(); }
    bool hasLongName() const { return !longName().isEmpty(); }
    /** Texts are cut at 32 characters; a character outside Latin-1 becomes "?". */
    void setTitle(const QString &title);
    void setAuthor(const QString &author);
    void setArtist(const QString &artist);
    void setGenre(const QString &genre);

    /** Beats per minute, 0 to 65535. */
    int tempo() const;
    /** Stores the low 16 bits of the beats per minute. */
    void setTempo(int bpm);
    /** Whether the tempo is one that a song can have: 1 to 499. */
    bool hasValidTempo() const;

    /** The set of FlagsEnum values. */
    qint8 flags() const;
    /** Adds a flag; flags are never taken away. */
    void setFlag(FlagsEnum flag);

    /** Stores the size of the whole file in bytes, header included. */
    void setSize(unsigned int size);
    /** Stores the size of the MIDI data in bytes before their compression. */
    void setOrigSize(unsigned int size);

private:
    QByteArray m_header;
    SongInfo::fileTypeEnum m_fileType = SongInfo::FileUnknown;
};
