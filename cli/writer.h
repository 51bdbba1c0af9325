// The data that the commands give, whatever the form in which they are written.
#pragma once

#include "devindex/memorycheck.h"
#include "devindex/memorysongs.h"
#include "devindex/songinfoindex.h"
#include "devindex/transferplan.h"
#include "formats/mp3preparation.h"
#include "formats/songinfo.h"
#include "formats/songmeasure.h"
#include "library/changepreview.h"
#include "library/history.h"
#include "library/songsdbrecord.h"

#include <QList>
#include <QString>

class Writer
{
public:
    Writer() = default;
    virtual ~Writer() = default;
    Q_DISABLE_COPY_MOVE(Writer)

    /** What a song file holds. */
    virtual void song(const QString &path, const SongInfo &info) = 0;

    /** A file that cannot be shown, and why. */
    virtual void unreadable(const QString &path, const QString &reason) = 0;

    /** What a catalogue changes in a song; found: whether one knows it, and which. */
    virtual void changes(const QString &path, bool found,
                         const QList<ChangePreview::Change> &changes, CatalogueSource source) = 0;

    /** The new name of a file, without its folder. */
    virtual void renamed(const QString &path, const QString &newName) = 0;

    /** What the tags of an MP3 file say, and whether it was written as the player shows it. */
    virtual void tags(const Mp3Preparation &preparation, bool isWritten) = 0;

    /** What the music of a song says of itself, and what of it was written into the song. */
    virtual void measured(const QString &path, const SongMeasure &measure,
                          const QList<ChangePreview::Change> &written) = 0;

    /** Before the songs of a memory's index. */
    virtual void beginList() {}

    /** A song of a memory's index. */
    virtual void listed(const SongInfoIndex &song) = 0;

    /** How the songs of a group are the same. */
    enum class Same { Bytes, TitleAndArtist };

    /** A song that lies on the memory more than once; the numbers of the groups ascend. */
    virtual void duplicate(int group, Same same, const MemorySong &song) = 0;

    /** A song that was removed from the memory; or was not, or not wholly, with the reason. */
    virtual void removed(const QString &path, const QString &reason) = 0;

    /** Whether a memory may be unplugged, and what the user has to know. */
    virtual void ejected(const QString &memory, bool isEjected, const QString &text) = 0;

    /** What is wrong with a memory. */
    virtual void finding(const MemoryCheck::Finding &finding) = 0;

    /** What a transfer would do with a song, or with one on the memory that is not in the list. */
    virtual void planned(const TransferPlan::Item &item) = 0;

    /** What the plan comes to; behind its songs. */
    virtual void planSum(const TransferPlan &plan) = 0;

    /** A job of the history. */
    virtual void job(const HistoryJob &job, bool isTakenBack) = 0;

    /** A song that is as before a job; or is not, with the reason. */
    virtual void takenBack(const QString &path, const QString &reason) = 0;

    /** A song of a catalogue. */
    virtual void catalogueSong(const SongsDbRecord &song, CatalogueSource source) = 0;
};

/** The name of a type that the index tells, as in SongInfo::format. */
QString formatName(const SongInfoIndex &song);
