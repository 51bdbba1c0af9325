// A song that is to be heard: everything that is needed of its file, which is closed again.
#pragma once

#include "sound/midiscore.h"
#include "sound/soundproblem.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <memory>

class QFile;
class SoundParts;
class SoundSource;

class SongSound
{
public:
    /** MP3 files are held in memory whole and may have so many bytes. */
    static constexpr qint64 largestMp3 = qint64{256} * 1024 * 1024;

    /**
     * Reads a song file of any format; what was loaded before is forgotten. Changes nothing on the
     * disk. None, or why the song cannot be played. May take a second for a large file.
     */
    SoundProblem::Kind load(const QString &path);

    /** Seconds; 0 for an MP3 file that does not tell. */
    double length() const { return m_length; }

    /** The places that the song's markers, or else the marked texts in its music, name. */
    const QList<SongSection> &sections() const { return m_sections; }

    /** True for a song that a sound font is needed for. */
    bool isMidi() const { return m_isMidi; }

    /**
     * The song as sound, to be called once. Null when its synthesizer cannot be made, with the
     * reason. The sound font is the user's choice; empty for an installed one.
     */
    std::unique_ptr<SoundSource> open(SoundParts &parts, const QString &soundFont,
                                      SoundProblem::Kind &problem);

    /** True for the name of a song that a sound font is needed for, without opening it. */
    static bool isMidiName(const QString &path);

private:
    template <typename Song>
    SoundProblem::Kind loadMidi(QFile &file);
    SoundProblem::Kind loadMp3(QFile &file);

    bool m_isMidi = false;
    double m_length = 0;
    QList<SongSection> m_sections;
    MidiScore m_score;
    QByteArray m_mp3;
    qsizetype m_audioStart = 0;
};
