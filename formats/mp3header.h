// Metadata of an MP3 file, read and written in its ID3v2 tag.
#pragma once

#include "formats/songinfo.h"

#include <QByteArray>
#include <QString>

class Mp3Header
{
public:
    bool loadHeader(const QByteArray &bytes);
    unsigned int getId3TagSize(const QByteArray &bytes) const;
    unsigned int getAudioDataStartPos() const;
    const QByteArray &stream() const;
    SongInfo::fileTypeEnum fileType() const;

    QString title() const;
    QString artist() const;
    QString genre() const;
    QString author() const;
    QString key() const;
    int userBpm() const;
    int length() const;
    bool hasTitle() const;
    bool hasArtist() const;
    bool hasGenre() const;
    bool hasAuthor() const;
    bool hasKey() const;
    bool hasUserBpm() const;
    bool hasLength() const;
    bool hasKavenaEditParam() const;
    bool isKravo() const;

    void setTitle(const QString &title);
    void setArtist(const QString &artist);
    void setGenre(const QString &genre);
    void setAuthor(const QString &author);
    void setKey(const QString &key);
    void setUserBpm(int bpm);
    void setLength(int seconds);
    void setKavenaEditParam();

    unsigned int getSingleFrameLength(int pos) const;
    int extractId3Frame(QString &text, const QString &id) const;
    int insertId3Frame(const QByteArray &content, const QString &id, int pos);
    int removeId3Frame(const QString &id);
    void updateId3TagSize();
};
