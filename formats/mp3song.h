// An MP3 file as a song: the tag in memory, the audio in the file.
#pragma once

#include "formats/mp3header.h"
#include "formats/savefailure.h"
#include "formats/songmeasure.h"
#include "formats/songmerge.h"

#include <QtGlobal>

#include <optional>

class QFile;

/** The functions, but for isMp3, are those that each class of MetaSong's variant has; see there. */
class Mp3Song
{
public:
    /** True for the name and the first bytes of an MP3 file. */
    static bool isMp3(const QString &path, const QByteArray &start);

    /**
     * The position of the first byte of the audio in a file that is open for reading, from whose
     * start on it is read; nothing when its tag cannot be read, but also of one that is too large
     * for load(). A file without a tag begins with its audio.
     */
    static std::optional<qint64> audioStart(QFile &file);

    bool load(QFile &file);
    SongInfo::fileTypeEnum fileType() const { return m_tag.fileType(); }
    void read(SongInfo &info) const;
    SongMeasure measure() const;
    void merge(const SongMerge &merge) { merge.into(m_tag); }
    void setMarkers(const QList<Marker> & /*markers*/) {}
    int addMarker(const QString & /*text*/, quint16 /*bar*/) { return 0; }
    bool isComplete() const { return true; }
    bool canBeReadAgain() const;
    SaveFailure save(const QString &path) const;

private:
    QString m_path;
    Mp3Header m_tag;
    TagTroubles m_troubles;
};
