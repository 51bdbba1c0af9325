// Replaces the bytes of a song file in such a way that a failure loses nothing.
#pragma once

#include "storage/songjournal.h"

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QtGlobal>

/**
 * The only place in the program that writes song files. Afterwards the file holds either the new
 * bytes or the old ones, unchanged; a file that did not exist before does not exist after a failure
 * either. The permissions stay, except that the owner may write afterwards.
 *
 * That holds for a crash or a power cut as well: a rewrite in place keeps the old bytes in a
 * SongJournal until the new ones are on the medium, and recover() puts them back. So a song is only
 * rewritten in a folder in which files can be made.
 *
 * A symbolic link is followed: the file that it leads to is written, the link stays. Only regular
 * files are written, never a folder or a device.
 */
class SongFileWriter
{
public:
    /** Where a rewrite through a temporary file ended. */
    enum class Outcome {
        Done,
        CannotOpen,   ///< no temporary file could be made beside the song
        CannotWrite,  ///< the head could not be written
        CannotSeek,   ///< the source ends before the position from which it is to be copied
        CannotCopy,   ///< the rest of the source could not be copied whole
        CannotReplace ///< the finished file could not take the old one's place on the medium
    };

    explicit SongFileWriter(const QString &path);

    /** Removes a file that was created and did not get its bytes. */
    ~SongFileWriter();
    Q_DISABLE_COPY_MOVE(SongFileWriter)

    /**
     * Opens the file for a rewrite in place, without changing its content, and holds it; creates it
     * when there is none. False when it cannot be opened for writing, is no regular file, or when
     * another program has opened it like this.
     */
    bool open();

    /**
     * Gives the opened file these bytes, brings them to the medium and closes it. False when they
     * could not be written: the old ones have been put back then, or can be restored from the
     * journal. False, too, when the medium did not confirm that the journal is gone: the song is
     * whole then, but a power cut may make it the old one again.
     */
    bool replaceBytes(const QByteArray &bytes);

    /**
     * Gives the file this head, followed by all bytes of the source from the position on (the
     * source may be the same file; it is closed afterwards). They are gathered in a temporary file
     * beside the song, which then takes the song's place in one step; after a failure the temporary
     * file is removed.
     */
    Outcome replaceThroughTemporary(const QByteArray &head, QFile &source, qint64 sourcePos);

    /**
     * Undoes a rewrite in place that was cut off: a song gets its old bytes back when it is
     * provably made of the old and of the new ones that its journal knows. Any other song stays as
     * it is, and the journal goes; so does one that was cut off itself, since its song was not
     * touched yet. Only a journal of the program's first version, which does not know the new
     * bytes, stays beside a song that is not the old one. False when the song cannot be put back,
     * or when its journal cannot be read, or while another program saves the song: what the song
     * holds is of no use then.
     */
    static bool recover(const QString &path) { return tryToRecover(path) == Recovery::Done; }

    /** How recover() ended. */
    enum class Recovery {
        Done,
        InUse, ///< another program saves the song
        Failed
    };

    /** The same as recover(), which says why not. */
    static Recovery tryToRecover(const QString &path);

    /** True while another program saves the song, as its journal tells; changes nothing. */
    static bool isBeingSaved(const QString &path);

    /** The errno of the first step that failed; 0 when none did or the system gave no number. */
    int systemError() const { return m_systemError; }

private:
    bool noted(bool succeeded) const;
    bool recoverFirst();
    bool openExisting();
    bool isAsOpened();
    bool replaceJournalled(const QByteArray &bytes, const SongJournal::Content &old);
    bool overwrite(const QByteArray &bytes);
    bool writeAt(qint64 pos, const QByteArray &bytes);
    bool putBack(const QByteArray &oldBytes);
    bool resolve(SongJournal &journal, const SongJournal::Content &content);
    bool openTemporary(QFile &temporary) const;

    QString m_path; ///< of the file itself, where the given path was a link to it
    QFile m_file;
    qint64 m_oldSize = 0;
    qint64 m_overwritten = 0; ///< how many of the old bytes have been written over
    bool m_created = false;   ///< the file did not exist and has not got its bytes yet
    mutable int m_systemError = 0;
};
