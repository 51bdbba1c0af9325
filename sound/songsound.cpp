#include "sound/songsound.h"

#include "formats/mfxfile.h"
#include "formats/midisong.h"
#include "formats/mp3length.h"
#include "formats/mp3song.h"
#include "formats/songreading.h"
#include "sound/midisource.h"
#include "sound/mp3source.h"
#include "sound/pcm.h"
#include "sound/soundfont.h"
#include "storage/songfilewriter.h"
#include "storage/songlayout.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

SoundProblem::Kind SongSound::load(const QString &path)
{
    *this = SongSound();
    if (SongFileWriter::isBeingSaved(path))
        return SoundProblem::InUse;
    QFile file(path);
    if (!songreading::openSong(file))
        return QFileInfo(path).isFile() && file.isOpen() ? SoundProblem::NoSong
                                                         : SoundProblem::Unreadable;
    const QByteArray start = file.peek(songlayout::magicSize);
    if (Mp3Song::isMp3(path, start))
        return loadMp3(file);
    const bool isMfx = start.startsWith(songlayout::mfxMagic);
    if (!isMfx && start != songlayout::midiMagic)
        return SoundProblem::NoSong;
    if (file.size() > songreading::largestFileInMemory)
        return SoundProblem::TooLarge;
    m_isMidi = true;
    return isMfx ? loadMidi<MfxFile>(file) : loadMidi<MidiSong>(file);
}

template <typename Song>
SoundProblem::Kind SongSound::loadMidi(QFile &file)
{
    Song song;
    if (!song.load(file))
        return SoundProblem::Damaged;
    const SoundProblem::Kind problem = m_score.read(song.midi());
    if (problem != SoundProblem::None)
        return problem;
    m_length = m_score.length();
    QList<Marker> markers = song.midi().markersList();
    if (markers.isEmpty())
        markers = song.measure().markers;
    m_sections = m_score.sections(song.midi(), markers);
    return SoundProblem::None;
}

SoundProblem::Kind SongSound::loadMp3(QFile &file)
{
    if (file.size() > largestMp3)
        return SoundProblem::TooLarge;
    const auto start = Mp3Song::audioStart(file);
    if (!start)
        return SoundProblem::Damaged;
    m_audioStart = *start;
    m_length = mp3length::of(file, *start);
    if (m_length > pcm::longestSeconds)
        return SoundProblem::TooLong;
    if (!file.seek(0))
        return SoundProblem::Unreadable;
    m_mp3 = file.read(largestMp3);
    if (m_mp3.size() != file.size())
        return SoundProblem::Unreadable;
    return m_audioStart < m_mp3.size() ? SoundProblem::None : SoundProblem::NoMusic;
}

std::unique_ptr<SoundSource> SongSound::open(SoundParts &parts, const QString &soundFont,
                                             SoundProblem::Kind &problem)
{
    problem = SoundProblem::None;
    if (!m_isMidi)
        return std::make_unique<Mp3Source>(parts, std::exchange(m_mp3, {}), m_audioStart);
    const QString font = soundfont::find(soundFont);
    if (font.isEmpty()) {
        problem = SoundProblem::NoSoundFont;
        return nullptr;
    }
    auto synthesizer = parts.makeSynthesizer(font);
    if (!synthesizer) {
        problem = SoundProblem::BadSoundFont;
        return nullptr;
    }
    return std::make_unique<MidiSource>(std::exchange(m_score, {}), std::move(synthesizer));
}

bool SongSound::isMidiName(const QString &path)
{
    return !path.endsWith(QLatin1String(".mp3"), Qt::CaseInsensitive);
}
