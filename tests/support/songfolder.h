// A folder of small song files, good and bad ones.
#pragma once

#include "support/songbytes.h"

#include <QFile>
#include <QTemporaryDir>

class SongFolder
{
public:
    QString path() const { return m_folder.path(); }
    QString filePath(const QString &name) const { return m_folder.filePath(name); }

    /** Writes a file and returns its path; an empty path when that failed. */
    QString write(const QString &name, const QByteArray &bytes) const
    {
        QFile file(filePath(name));
        const bool written =
            file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
        return written ? file.fileName() : QString();
    }

    /** A MIDI file with this title. */
    QString midi(const QString &name, const QByteArray &title) const
    {
        using namespace songbytes;
        return write(name, midiFile({track(metaEvent(0x03, title) + notes())}));
    }

    /** A MIDI file with this title that carries the maker's signature. */
    QString signedMidi(const QString &name, const QByteArray &title) const
    {
        using namespace songbytes;
        return write(name, midiFile({track(metaEvent(0x03, title) +
                                           metaEvent(0x02, "(c) 2011 K-Ravo") + notes())}));
    }

    /** An MP3 file with this title: a tag and something that stands for audio. */
    QString mp3(const QString &name, const QByteArray &title) const
    {
        using namespace songbytes;
        return write(name, id3Tag(id3Frame("TIT2", title)) + QByteArray(2000, '\x55'));
    }

    /** A file that is no song. */
    QString bad(const QString &name) const { return write(name, "this is no song at all"); }

private:
    QTemporaryDir m_folder;
};
