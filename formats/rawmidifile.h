// Metadata of a Standard MIDI File, read and written in the file's bytes.
#pragma once

#include "formats/marker.h"
#include "formats/songinfo.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

class RawMidiFile
{
public:
    enum kRavoMetaTypeEnum {
        KravoGenre = 1,
        KravoArtist = 2,
        KravoAuthor = 3,
        KravoLength = 4,
        KravoUserBpm = 5,
        KravoMarker = 6
    };

    RawMidiFile();
    bool loadData(const QByteArray &bytes);
    const QByteArray &stream() const;
    SongInfo::fileTypeEnum fileType() const;

    QString title() const;
    QString genre() const;
    QString artist() const;
    QString author() const;
    int length() const;
    int userBpm() const;
    QList<Marker> markersList() const;
    QString key() const;
    bool hasTitle() const;
    bool hasGenre() const;
    bool hasArtist() const;
    bool hasAuthor() const;
    bool hasLength() const;
    bool hasUserBpm() const;
    bool hasMarkers() const;
    bool hasKey() const;
    bool isKravo() const;

    void setTitle(const QString &title);
    void setGenre(const QString &genre);
    void setArtist(const QString &artist);
    void setAuthor(const QString &author);
    void setLength(int seconds);
    void setUserBpm(int bpm);
    void setMarkersList(const QList<Marker> &markers);
    void setKey(const QString &key);

    int extractMetaevent(QString &text, char type) const;
    int extractMetaevent(QString &text, kRavoMetaTypeEnum type) const;
    int indexOfKravoMetaevent(const QByteArray &bytes, int from, kRavoMetaTypeEnum type) const;
    int insertMetaevent(const QByteArray &payload, char type, int pos);
    int insertMetaevent(const QByteArray &payload, kRavoMetaTypeEnum type, int pos);
    int removeHeadMetaevent(char type, bool onlyFirst);
    int removeHeadMetaevent(kRavoMetaTypeEnum type, bool onlyFirst);
    int insertMarker(const QString &text, unsigned short bar);
    int dbgInsertMarker(const QString &text, unsigned short bar);
    int extractMarkersList(QList<Marker> &markers) const;
    void updateTrackSize();
    void populateKeyMaps();
    QStringList getKeysList() const;
    int extractKey(QString &key) const;
};
