// The user's own catalogue: his own arrangements, in the table that the built-in catalogue has.
#pragma once

#include "formats/songinfo.h"
#include "library/songsdbrecord.h"
#include "library/sqlconnection.h"

#include <QCoreApplication>
#include <QHash>
#include <QList>
#include <QSqlQuery>
#include <QString>
#include <QStringList>

#include <optional>

/**
 * An SQLite file in the folder of the user's data, which several programs may use at a time. It is
 * taken for what a stranger may have written: one with another layout, or one that is too large for
 * a catalogue, is refused, and no number or text in it is relied on. An entry is named by the base
 * name of the song's file, in capitals, of which there is one only.
 */
class OwnCatalogue
{
    Q_DECLARE_TR_FUNCTIONS(OwnCatalogue)

public:
    enum class State {
        Absent, ///< there is none, as with a user who made none
        Ready,
        Unwritable, ///< the folder or the file cannot be made or written
        Unreadable,
        InUse,   ///< another program kept it for itself for as long as was waited
        Damaged, ///< it is no catalogue of this program
        Newer    ///< a later version of this program made it
    };

    static constexpr qsizetype mostEntries = 100000;
    static constexpr qsizetype longestText = 1000;
    static constexpr qsizetype longestMarkers = 65536;
    static constexpr qint32 longestSong = 99 * 60 + 59; ///< seconds
    static constexpr qint32 fastestTempo = 999;         ///< beats per minute

    /** Where the user's catalogue lies, whichever of the programs asks. */
    static QString defaultPath();

    explicit OwnCatalogue(const QString &path = defaultPath());

    /** Opens the file where there is one. */
    State open();

    /** The same, and makes the file where there is none. */
    State openOrMake();

    State state() const { return m_state; }
    QString path() const { return m_path; }

    /** Why the catalogue cannot be used, for the user; empty when it can, or is absent. */
    QString problem() const { return problem(m_state); }
    static QString problem(State state);

    /**
     * All entries by title; those that make no sense are left out. None, and problem() says why,
     * where they cannot all be read: only open() was no proof that they can.
     */
    QList<SongsDbRecord> entries();

    /** The entries in whose texts this stands, in whatever case; with an empty text all. */
    QList<SongsDbRecord> find(const QString &text);

    /** Those of the names of files that have an entry. */
    QStringList known(const QStringList &filenames);

    /**
     * Adds the entries, in place of those with the same names of files; all of them or, with false,
     * none.
     */
    bool put(const QList<SongsDbRecord> &entries);

    /** Puts the changed entry in place of the one with this name of a file. */
    bool change(const QString &filename, const SongsDbRecord &entry);

    /** Removes these entries; all of them or, with false, none. */
    bool remove(const QStringList &filenames);

    /** True for an entry with a title and a file name, and no text without end. */
    static bool isValid(const SongsDbRecord &entry);

    /**
     * The key as the player names it, or as MP3 tags do, "F#m"; empty for none. Nothing for a text
     * that is no key.
     */
    static std::optional<QString> key(const QString &text);

    /** What the catalogue holds of a song; numbers and keys that no entry can have are left out. */
    static SongsDbRecord entryOf(const SongInfo &song);

private:
    State prepare(bool mayMake);
    State stateOfTables();
    bool putAll(const QList<SongsDbRecord> &entries);
    bool removeAll(const QStringList &filenames);
    template <typename Work>
    bool inOneStep(const Work &work);
    bool execute(const QString &statement);

    QString m_path;
    SqlConnection m_connection;
    State m_state = State::Absent;
};

/** The entries of a catalogue, as they stood when the object was made, for lookups by the thousand.
 */
class OwnEntries
{
public:
    OwnEntries() = default;

    explicit OwnEntries(OwnCatalogue &catalogue);

    bool isEmpty() const { return m_entries.isEmpty(); }

    /** By the base name of a file in whatever case; null when there is none. */
    const SongsDbRecord *byFilename(const QString &filename) const;

    /** By title in whatever case; null when there is none or when several songs share it. */
    const SongsDbRecord *byTitle(const QString &title) const;

private:
    const SongsDbRecord *at(const QHash<QString, qsizetype> &places, const QString &key) const;

    QList<SongsDbRecord> m_entries;
    QHash<QString, qsizetype> m_filenames;
    QHash<QString, qsizetype> m_titles; ///< negative: several
};
