// Metadata of a Standard MIDI File, read and written in the file's bytes.
#pragma once

#include "formats/marker.h"
#include "formats/songinfo.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

/**
 * A Standard MIDI File (format 0 or 1) as one byte array. The song's metadata are meta events at
 * the head of the first track, each at delta time 0; only they are read and written here, the
 * music is carried through as it is.
 *
 * Texts are Latin-1 without terminator, numbers are decimal texts. Readers never fail: what is
 * missing or damaged reads as an empty text or 0. They search to the end of the data, so an event
 * in a later track is found as well; writers touch the first track only. With no file loaded
 * there is nothing to read, and writers do nothing.
 */
class RawMidiFile
{
public:
    /** Sub-types of the maker's meta event 4B. */
    enum kRavoMetaTypeEnum {
        KravoGenre = 1,
        KravoArtist = 2,
        KravoAuthor = 3,
        KravoLength = 4,  ///< seconds
        KravoUserBpm = 5, ///< beats per minute
        KravoMarker = 6   ///< bar (2 bytes, big-endian), then the marker's text
    };

    RawMidiFile();

    /**
     * Takes the bytes of a whole file: "MThd" at their start, a format word of 0 or 1, a first
     * "MTrk" with its length field. Anything else, or data of 2 GB and more, changes nothing and
     * gives false. The track length is taken as it stands in the file, however wrong.
     */
    bool loadData(const QByteArray &bytes);

    /** The bytes of the file as they are now. */
    const QByteArray &stream() const { return m_data; }

    /** FileMidi0 or FileMidi1; FileUnknown until a file was loaded. */
    SongInfo::fileTypeEnum fileType() const { return m_fileType; }

    /** Value of the first track's length field, in bytes. */
    quint32 trackLength() const { return m_trackLength; }

    /** Position of the first track's first event. */
    quint32 trackStart() const { return m_trackStart; }

    /** Position of the first track's length field (4 bytes, big-endian). */
    quint32 trackLengthPos() const { return m_trackLengthPos; }

    /** Number of tracks, as the file's header gives it. */
    quint32 trackCount() const { return m_trackCount; }

    /** The track name (meta event 03). */
    QString title() const;
    QString genre() const;
    QString artist() const;
    QString author() const;

    /** Seconds; 0 when absent, no number or negative. */
    int length() const;

    /** Beats per minute; 0 when absent, no number or negative. */
    int userBpm() const;

    /** The section markers in the order of the file. */
    QList<Marker> markersList() const;

    /** The key's name, such as "E" or "A-"; empty when absent or not a key that we know. */
    QString key() const;

    // True when the event is there, be its content empty or unusable.
    bool hasTitle() const;
    bool hasGenre() const;
    bool hasArtist() const;
    bool hasAuthor() const;
    bool hasLength() const;
    bool hasUserBpm() const;
    bool hasMarkers() const;
    bool hasKey() const;

    /** True when the copyright notice (meta event 02) names the publisher, in any case. */
    bool isKravo() const;

    // Each text writer replaces all events of its kind by one with the text's first 125 characters,
    // an empty text too. A character outside Latin-1 is stored as "?".
    void setTitle(const QString &title);
    void setGenre(const QString &genre);
    void setArtist(const QString &artist);
    void setAuthor(const QString &author);

    // Each number writer replaces all events of its kind by one with the number as it is.
    void setLength(int seconds);
    void setUserBpm(int bpm);

    /**
     * Inserts the markers at the head of the first track, in list order. Marker events that are
     * there already stay; it is the author events that are removed, as in every file written so
     * far. Set the author after the markers.
     */
    void setMarkersList(const QList<Marker> &markers);

    /**
     * Replaces the key signature. Blanks in the name do not count ("A -" is "A-"). An empty name
     * leaves the file without a key; so does an unknown one, which is logged.
     */
    void setKey(const QString &key);

    /**
     * Finds the first meta event of this type and delivers its text, stripped. A length byte of
     * 80 or above counts as negative and takes all up to the next zero byte.
     * @return position of the event's FF byte, or a negative number when there is none
     */
    int extractMetaevent(QString &text, char type) const;

    /** The same for the maker's event of this sub-type. */
    int extractMetaevent(QString &text, kRavoMetaTypeEnum type) const;

    /** Position of the next FF 4B with this sub-type in the bytes, from a position on; or -1. */
    int indexOfKravoMetaevent(const QByteArray &bytes, int from, kRavoMetaTypeEnum type) const;

    /**
     * Inserts a meta event at delta time 0 and lengthens the first track by it. Nothing is inserted
     * before trackStart() or beyond the end of the data, nor when the payload does not fit the
     * length byte or the track's new length does not fit its field.
     * @return number of bytes inserted
     */
    int insertMetaevent(const QByteArray &payload, char type, int pos);

    /** The same for the maker's event of this sub-type. */
    int insertMetaevent(const QByteArray &payload, kRavoMetaTypeEnum type, int pos);

    /**
     * Removes the meta events of this type, or the first one only, that stand at delta time 0 in
     * the first track, and shortens the track by them. Left as they are: an event whose length
     * byte is 80 or above, one that runs past the track or the data, and bytes within another
     * event that look like one.
     * @return number of bytes removed
     */
    int removeHeadMetaevent(char type, bool onlyFirst);

    /** The same for the maker's events of this sub-type. */
    int removeHeadMetaevent(kRavoMetaTypeEnum type, bool onlyFirst);

    /**
     * Inserts a marker at the head of the first track; its text is cut at 125 characters.
     * @return number of bytes inserted
     */
    int insertMarker(const QString &text, unsigned short bar);

    /** insertMarker() for the debug panel. */
    int dbgInsertMarker(const QString &text, unsigned short bar);

    /**
     * Delivers the markers in the order of the file.
     * @return position of the first one's FF byte, or a negative number when there is none
     */
    int extractMarkersList(QList<Marker> &markers) const;

    /** Writes the track length into its field, big-endian. */
    void updateTrackSize();

    /** Fills the two maps between key names and the data bytes of a key signature. */
    void populateKeyMaps();

    /** The names that key() can give, in ascending order of their key signature values. */
    QStringList getKeysList() const;

    /**
     * Delivers the key's name; empty, with a line in the log, when its two data bytes are unknown.
     * @return position of the key signature's FF byte, or a negative number when there is none
     */
    int extractKey(QString &key) const;

private:
    bool has(kRavoMetaTypeEnum type) const;
    QString kravoText(kRavoMetaTypeEnum type) const;
    void replaceKravoText(kRavoMetaTypeEnum type, const QString &text);
    int insertEvents(const QByteArray &events, qsizetype pos);
    int removeHeadEvents(quint8 type, int subType, bool onlyFirst);

    QByteArray m_data;
    quint32 m_trackLength = 0;
    quint32 m_trackStart = 0;
    quint32 m_trackLengthPos = 0;
    quint32 m_trackCount = 0;
    SongInfo::fileTypeEnum m_fileType = SongInfo::FileUnknown;
    QMap<QString, quint16> m_keyValues; ///< key name to key signature value
    QMap<quint16, QString> m_keyNames;  ///< and back, regular names only
};
