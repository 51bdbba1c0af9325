#include "cli/setcommand.h"

#include "cli/givenpath.h"
#include "cli/songpaths.h"
#include "formats/bytetext.h"
#include "formats/metasong.h"
#include "library/changepreview.h"
#include "library/runreport.h"
#include "library/unreadablefile.h"

namespace
{

SongInfo edited(SongInfo info, const Request::Edit &edit)
{
    info.title = edit.title.value_or(info.title);
    info.artist = edit.artist.value_or(info.artist);
    info.genre = edit.genre.value_or(info.genre);
    info.author = edit.author.value_or(info.author);
    info.key = edit.key.value_or(info.key);
    info.userBpm = edit.bpm.value_or(info.userBpm);
    info.length = edit.length.value_or(info.length);
    return info;
}

} // namespace

ExitStatus SetCommand::run()
{
    const std::optional<QList<QByteArray>> paths = SongPaths::given(m_request, m_terminal);
    if (!paths)
        return m_terminal.status();
    const auto progress =
        m_terminal.openProgress({}, tr("Modifica"), static_cast<int>(paths->size()));
    m_history.begin(HistoryJob::Kind::Edit);
    int done = 0;
    for (const QByteArray &bytes : *paths) {
        if (m_terminal.isStopped() || m_isRefused || !keepNext(*paths, done))
            break;
        if (const std::optional<QString> path = SongPaths::decode(bytes, m_terminal))
            set(*path);
        progress->setValue(++done);
    }
    m_history.end();
    return m_terminal.status();
}

/** Keeps several songs for one wait for the disk; false to stop. */
bool SetCommand::keepNext(const QList<QByteArray> &paths, qsizetype place)
{
    if (place % HistoryRecorder::songsAtOnce != 0)
        return true;
    QStringList songs;
    for (const QByteArray &path : paths.mid(place, HistoryRecorder::songsAtOnce)) {
        if (path.isValidUtf8())
            songs.append(SongPaths::decode(path, m_terminal).value_or(QString()));
    }
    if (m_history.keep(songs))
        return true;
    m_history.tellRefused();
    return false;
}

void SetCommand::set(const QString &path)
{
    m_leftovers.tidyBeside(path);
    MetaSong song;
    if (!song.importFile(path)) {
        m_terminal.fail(path, UnreadableFile::examine(path, song.wasInUse()).reasonText());
        return;
    }
    SongInfo before;
    song.getSongInfo(before);
    const SongInfo wanted = edited(before, m_request.edit);
    const auto saved = m_history.save(song, path, before, wanted);
    m_isRefused = !saved;
    if (!saved)
        return;
    if (saved->failure != SaveFailure::None) {
        m_terminal.fail(path, RunReport::reasonText(saved->failure));
        return;
    }
    m_terminal.countDone();
    if (!saved->now)
        return;
    tellCutTexts(path, *saved->now);
    const QString lost = ChangePreview::lostCharacters(before, *saved->now, wanted);
    if (!lost.isEmpty())
        m_terminal.note(givenpath::shown(path) + QStringLiteral(": ") +
                        RunReport::text({SongFinding::Kind::LostCharacters, path, lost}));
}

/** Names the texts of which the song's format holds only the beginning. */
void SetCommand::tellCutTexts(const QString &path, const SongInfo &saved)
{
    const auto tell = [&](ChangePreview::Field field, const std::optional<QString> &wanted,
                          const QString &kept) {
        const QString whole = textFromBytes(bytesFromText(wanted.value_or(QString())));
        if (kept.size() < whole.size() && whole.startsWith(kept))
            m_terminal.note(tr("%1: %2 accorciato a %3 caratteri: %4")
                                .arg(givenpath::shown(path), ChangePreview::fieldName(field))
                                .arg(kept.size())
                                .arg(kept));
    };
    const Request::Edit &edit = m_request.edit;
    tell(ChangePreview::Field::Title, edit.title, saved.title);
    tell(ChangePreview::Field::Artist, edit.artist, saved.artist);
    tell(ChangePreview::Field::Genre, edit.genre, saved.genre);
    tell(ChangePreview::Field::Author, edit.author, saved.author);
}
