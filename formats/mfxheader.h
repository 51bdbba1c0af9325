// Header of an MFX song file.
#pragma once

#include "formats/songinfo.h"

#include <QByteArray>
#include <QString>

class MfxHeader
{
public:
    enum FlagsEnum { MarkersFlag = 0x01 };

    bool loadHeader(const QByteArray &bytes);
    const QByteArray &header() const;
    SongInfo::fileTypeEnum fileType() const;

    QString title() const;
    QString author() const;
    QString artist() const;
    QString genre() const;
    QString editor() const;
    QString copyright() const;
    QString longName() const;
    bool hasTitle() const;
    bool hasAuthor() const;
    bool hasArtist() const;
    bool hasGenre() const;
    bool hasLongName() const;
    void setTitle(const QString &title);
    void setAuthor(const QString &author);
    void setArtist(const QString &artist);
    void setGenre(const QString &genre);

    int tempo() const;
    void setTempo(int bpm);
    bool hasValidTempo() const;
    qint8 flags() const;
    void setFlag(FlagsEnum flag);
    void setSize(unsigned int size);
    void setOrigSize(unsigned int size);
};
