// Header of an MFX song file: the fixed-size block in front of the compressed MIDI data.
#pragma once

#include "formats/songinfo.h"

#include <QByteArray>
#include <QString>

/**
 * The header bytes of an MFX file, with its fields read and written in place. All other bytes are
 * carried through unchanged. A value type.
 */
class MfxHeader
{
public:
    /** Bits of the flags byte. */
    enum FlagsEnum {
        MarkersFlag = 0x01 ///< the song carries section markers
    };

    /**
     * Takes the header from the beginning of a file: 512 bytes for the magic "_MF3" and "_MF4",
     * 1024 for "_MF5"; what follows is ignored. False, with an empty header of type 0, for any
     * other magic or for too few bytes.
     */
    bool loadHeader(const QByteArray &bytes);

    /** The header bytes; empty before a successful load. */
    const QByteArray &header() const { return m_header; }

    /** FileMf3, FileMf4 or FileMf5; FileUnknown before a successful load. */
    SongInfo::fileTypeEnum fileType() const { return m_fileType; }

    // The readers give a field's text up to its first zero byte, without white space at both ends;
    // a field that is full has no terminator. Text is Latin-1.
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

    // The writers cut a text at 32 characters, or pad it with zero bytes.
    void setTitle(const QString &title);
    void setAuthor(const QString &author);
    void setArtist(const QString &artist);
    void setGenre(const QString &genre);

    /** Beats per minute, 0 to 65535; 0 when nothing is loaded. */
    int tempo() const;

    /** Writes the low 16 bits of the tempo. */
    void setTempo(int bpm);

    /** True for a tempo of 1 to 499 beats per minute. */
    bool hasValidTempo() const;

    /** The flags byte, a set of FlagsEnum bits; 0 when nothing is loaded. */
    qint8 flags() const;

    /** Sets the flag; flags are never cleared. */
    void setFlag(FlagsEnum flag);

    /** Writes the size of the whole file, header and compressed stream, in bytes. */
    void setSize(unsigned int size);

    /** Writes the size of the MIDI data before compression, in bytes. */
    void setOrigSize(unsigned int size);

private:
    struct Field;

    QString text(const Field &field) const;
    void setText(const Field &field, const QString &text);
    unsigned int number(const Field &field) const;
    void setNumber(const Field &field, unsigned int value);
    void makeRoomFor(const Field &field);

    QByteArray m_header;
    SongInfo::fileTypeEnum m_fileType = SongInfo::FileUnknown;
};
