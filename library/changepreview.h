// Finds what a synchronisation of the library would change, without changing anything.
#pragma once

#include "formats/songinfo.h"
#include "library/cataloguesource.h"
#include "library/database.h"
#include "library/progress.h"
#include "library/songtable.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>

class CatalogueMerge;

/**
 * The changes of each song. They are found by the same merge that the synchronisation does, but on
 * copies in memory: no file is written, and the table stays as it is.
 */
class ChangePreview
{
    Q_DECLARE_TR_FUNCTIONS(ChangePreview)

public:
    enum class Field { Title, Artist, Genre, Author, Length, Tempo, Key, Markers, MarkersShown };

    struct Change {
        Field field;
        QString before; ///< as the user reads it; empty where the song has no such item
        QString after;
        QString lost = {}; ///< characters that the player will show as "?", as the user reads them
    };

    struct Song {
        QString fileName; ///< full path
        QString title;    ///< as it stands in the file
        bool isSigned;    ///< files without the publisher's signature may be asked about
        QList<Change> changes;
        CatalogueSource source = CatalogueSource::Only; ///< where all the new values come from
    };

    /**
     * Compares all songs of the table with the catalogue. Returns nothing when the user stopped
     * it. Of a file that stands in the table twice, each row shows the change from the file as it
     * is now.
     */
    static std::optional<ChangePreview> compute(const Database &database, SongTable &model,
                                                const OpenProgress &openProgress);

    /** The items that differ, in the order of Field. */
    static QList<Change> changes(const SongInfo &before, const SongInfo &after);

    /**
     * The characters of the record that a song has lost, as a list to be shown: those of the texts
     * that differ from before, or of all texts when before is not given. Empty when no character is
     * lost.
     */
    static QString lostCharacters(const std::optional<SongInfo> &before, const SongInfo &after,
                                  const SongInfo &record);

    /**
     * Notes for each changed text which characters of the catalogue's record it loses, because no
     * song file can hold them.
     */
    static void nameLostCharacters(QList<Change> &changes, const SongInfo &record);

    /** The field in the user's words. */
    static QString fieldName(Field field);

    /** Bars and texts in one line. */
    static QString markersText(const QList<Marker> &markers);

    /** The catalogue in the user's words; empty when there is only one. */
    static QString sourceName(CatalogueSource source);

    /** What stands in place of a value that is not there. */
    static QString emptyValue();

    QList<Song> changed; ///< the songs with changes, in the order of the table
    int songs = 0;       ///< all that were looked at
    int unknown = 0;     ///< those that the catalogue does not know
    int unreadable = 0;  ///< those whose file cannot be read
    QString problem;     ///< why the user's own catalogue was passed over; empty when it was not

private:
    void addSong(const CatalogueMerge &catalogue, const QString &fileName,
                 const QString &shortName);
};
