#include "cli/rendercommand.h"

#include "cli/songpaths.h"
#include "library/userfile.h"
#include "sound/pcm.h"
#include "sound/rendering.h"
#include "sound/songsound.h"
#include "sound/soundmodule.h"

#include <QFileInfo>

ExitStatus RenderCommand::run()
{
    constexpr qint64 bytesInSecond = pcm::sampleRate * pcm::bytesInFrame;
    const std::optional<QString> path = SongPaths::decode(m_request.paths.constFirst(), m_terminal);
    const std::optional<QString> wave = SongPaths::decode(m_request.to, m_terminal);
    const std::optional<QString> soundFont = SongPaths::decode(m_request.soundFont, m_terminal);
    if (!path || !wave || !soundFont)
        return ExitStatus::NothingDone;
    if (!soundFont->isEmpty() && !QFileInfo(*soundFont).isFile())
        return m_terminal.refuse(*soundFont, SoundProblem::text(SoundProblem::BadSoundFont));
    SongSound song;
    const SoundProblem::Kind problem = song.load(*path);
    if (problem != SoundProblem::None)
        return m_terminal.refuse(*path, SoundProblem::text(problem));
    SoundParts *const parts = soundmodule::parts();
    if (parts == nullptr)
        return m_terminal.refuse(SoundProblem::text(soundmodule::problem() == SoundProblem::None
                                                        ? SoundProblem::NoModule
                                                        : soundmodule::problem()));
    if (!mayWrite(*wave))
        return ExitStatus::NothingDone;

    const auto progress =
        m_terminal.openProgress({}, QFileInfo(*path).fileName(), qRound(song.length()));
    const rendering::Result result =
        rendering::toWave(song, *parts, *soundFont, *wave, [&](double seconds) {
            progress->setValue(qRound(seconds));
            return !m_terminal.isStopped();
        });
    switch (result.outcome) {
    case rendering::Outcome::CannotPlay:
        return m_terminal.refuse(*path, SoundProblem::text(result.problem));
    case rendering::Outcome::CannotWrite:
        return m_terminal.refuse(
            *wave, UserFile::whyNotWritten(*wave, qint64(song.length()) * bytesInSecond));
    case rendering::Outcome::Done:
        m_terminal.countDone();
        break;
    case rendering::Outcome::Stopped:
        break;
    }
    return m_terminal.status();
}

/** False, after the terminal was told, when the file must stay as it is. */
bool RenderCommand::mayWrite(const QString &wave)
{
    const QString refusal = UserFile::whyKept(wave);
    if (!refusal.isEmpty()) {
        m_terminal.refuse(wave, refusal);
        return false;
    }
    if (!QFileInfo::exists(wave))
        return true;
    const Answer answer = m_terminal.ask(wave, tr("Il file esiste già. Sostituirlo?"), "--replace",
                                         m_request.replace);
    return answer == Answer::Yes || answer == Answer::YesToAll;
}
