// The reference catalogue and the in-memory table of the user's songs.
#pragma once

#include "formats/marker.h"
#include "library/songsdbrecord.h"
#include "library/sqlconnection.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QTemporaryFile>
#include <QtGlobal>

#include <memory>
#include <optional>

/**
 * Owns the connections "con_songsdb" (the catalogue, read only) and "con_mem" (the user's songs, in
 * memory). Their names are taken for the whole process, so only one Database may be initialised at
 * a time, and what was built on a connection must be destroyed before it.
 */
class Database
{
public:
    /** What was last done to a row of the user's songs; the numbers are stored. */
    enum statusEnum { StatusNew = 0, StatusSynced = 1, StatusEdited = 2, StatusNotSynced = 3 };

    Database() = default;
    Q_DISABLE_COPY_MOVE(Database)

    /**
     * Creates the table `usersongs` in memory, opens the catalogue and fills the lists. A file
     * "songsdb_debug" in the working directory takes the place of the built-in catalogue; it is not
     * checked: if it is no catalogue, the lists stay empty and lookups find nothing. False when one
     * of the two connections does not open or the private copy cannot be written.
     */
    bool init();

    /** The connection that holds `usersongs`; invalid before init(). */
    QSqlDatabase userLibraryDb() const;

    /** Performers as displayed, each once, in the catalogue's order. */
    QStringList artistsList() const { return m_artists; }

    /** Genres, each once, in the catalogue's order. */
    QStringList genresList() const { return m_genres; }

    /**
     * Looks a song up by the base name of its file. ASCII letters match in either case; "%" and
     * "_" are wild cards, and the first match counts. Nothing is found, and the record is left as
     * it is, when there is no match or the name holds a double quote.
     */
    bool getRecordByFilename(const QString &filename, SongsDbRecord &record) const;

    /** As getRecordByFilename, by title; nothing is found when several songs share the title. */
    bool getRecordByTitle(const QString &title, SongsDbRecord &record) const;

    /**
     * The songs in whose title, artist, author or file name the text stands, in whatever case, by
     * title; with an empty text all songs.
     */
    QList<SongsDbRecord> find(const QString &text) const;

    /** Deletes all rows of `usersongs`; a model on them has to be refreshed by its select(). */
    bool clearUserLibraryDb();

    /** Reads artistsList() from the catalogue again. */
    void populateArtistsList();

    /** Reads genresList() from the catalogue again. */
    void populateGenresList();

    /**
     * Replaces the list by the markers of a text "bar;text;bar;text;". A pair whose bar is no
     * number from 0 to 65535, and a part without its pair, are left out.
     */
    static void splitMarkers(const QString &text, QList<Marker> &markers);

private:
    bool openCatalogue();
    bool copyCatalogue();
    void indexCatalogue();
    QStringList distinctTexts(const QString &statement) const;
    bool isOnlyTitle(const QString &title) const;

    // The connections stand behind the file, so that they are closed before it is deleted.
    std::unique_ptr<QTemporaryFile> m_temporaryFile; ///< what SQLite opens as the catalogue
    std::optional<SqlConnection> m_catalogue;
    std::optional<SqlConnection> m_userLibrary;
    QStringList m_genres;
    QStringList m_artists;
};
