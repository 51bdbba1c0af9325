#include "cli/editcommand.h"

#include "cli/givenpath.h"
#include "cli/songpaths.h"
#include "devindex/severalrenamer.h"
#include "formats/metasong.h"
#include "library/severaleditor.h"
#include "library/unreadablefile.h"

#include <utility>

ExitStatus EditCommand::run()
{
    if (!load())
        return m_terminal.status();
    if (!m_request.steps.isEmpty())
        edit();
    if (m_request.newNames && !m_isRefused && !m_terminal.isStopped())
        rename();
    return m_terminal.status();
}

/** Reads all songs; false when the user stopped it. */
bool EditCommand::load()
{
    const std::optional<QList<QByteArray>> paths = SongPaths::given(m_request, m_terminal);
    if (!paths)
        return false;
    const auto progress =
        m_terminal.openProgress({}, tr("Lettura"), static_cast<int>(paths->size()));
    int done = 0;
    for (const QByteArray &bytes : *paths) {
        if (m_terminal.isStopped())
            return false;
        progress->setValue(++done);
        const std::optional<QString> path = SongPaths::decode(bytes, m_terminal);
        if (!path)
            continue;
        MetaSong song;
        if (!song.importFile(*path)) {
            tellFailure(*path, UnreadableFile::examine(*path, song.wasInUse()).reasonText());
            continue;
        }
        SongInfo info;
        song.getSongInfo(info);
        info.fileName = CommandHistory::absolute(*path);
        if (m_given.contains(info.fileName))
            continue;
        m_given.insert(info.fileName, *path);
        m_songs.append(info);
    }
    return true;
}

void EditCommand::edit()
{
    SeveralPreview preview(m_songs);
    preview.setSteps(m_request.steps);
    if (!preview.problem().isEmpty()) {
        m_terminal.refuse(preview.problem());
        m_isRefused = true;
        return;
    }
    QHash<QString, SongInfo> now;
    QHash<QString, QString> problems;
    SeveralEditor::Report report;
    if (m_request.apply) {
        SeveralEditor editor(
            [&now](const SongInfo &info, SaveFailure) { now.insert(info.fileName, info); });
        editor.setHistory(m_history.history().opener());
        const auto progress = m_terminal.openProgress({}, tr("Modifica"), preview.changed());
        report = editor.run({preview.songs().cbegin(), preview.songs().cend()}, *progress);
        for (const SongFinding &finding : report.problems.findings())
            problems.insert(finding.path, finding.reason);
    }
    QList<SongInfo> edited;
    for (const SeveralSong &song : preview.songs()) {
        const QString &path = song.before.fileName;
        tellFit(song);
        if (problems.contains(path)) {
            tellFailure(given(path), problems.value(path));
            continue;
        }
        const bool isSkipped = m_request.apply && song.isChanged() && !now.contains(path);
        if (isSkipped)
            continue;
        tellChanges(song);
        if (!song.reason.isEmpty())
            continue;
        edited.append(m_request.apply ? now.value(path, song.before) : song.after);
        edited.last().fileName = path;
    }
    // A song that is not as the steps want it would get a name made of its old data.
    m_songs = edited;
    m_isRefused = report.stopped;
    if (report.stopped && !m_terminal.isStopped())
        m_history.tellRefused();
}

/** A song that a step does not fit is a failure, whatever the other steps do with it. */
void EditCommand::tellFit(const SeveralSong &song)
{
    if (!song.reason.isEmpty())
        tellFailure(given(song.before.fileName), song.reason);
}

void EditCommand::tellChanges(const SeveralSong &song)
{
    const QString path = given(song.before.fileName);
    const QList<ChangePreview::Change> changes = song.changes();
    m_writer.changes(path, true, changes, CatalogueSource::Only);
    if (!m_request.apply || song.isChanged() || song.reason.isEmpty())
        m_terminal.countDone();
    for (const ChangePreview::Change &change : changes) {
        if (song.isCut(change.field))
            m_terminal.note(tr("%1: %2 accorciato a %3 caratteri: %4")
                                .arg(givenpath::shown(path), ChangePreview::fieldName(change.field))
                                .arg(change.after.size())
                                .arg(change.after));
        if (!change.lost.isEmpty())
            m_terminal.note(
                givenpath::shown(path) + QStringLiteral(": ") +
                RunReport::text({SongFinding::Kind::LostCharacters, path, change.lost}));
    }
}

void EditCommand::tellFailure(const QString &path, const QString &reason)
{
    m_terminal.fail(path, reason);
    m_writer.unreadable(path, reason);
}

void EditCommand::rename()
{
    SeveralRenames renames(m_songs);
    renames.setPattern(*m_request.newNames, m_request.shortNames);
    QHash<QString, QString> done;
    QHash<QString, QString> problems;
    SeveralRenamer::Report report;
    if (m_request.apply) {
        SeveralRenamer renamer(
            [&done](const QString &path, const QString &newPath) { done.insert(path, newPath); });
        renamer.setHistory(m_history.history().opener());
        const auto progress = m_terminal.openProgress({}, tr("Nomi nuovi"), renames.renamed());
        report = renamer.run({renames.songs().cbegin(), renames.songs().cend()}, *progress);
        for (const SongFinding &finding : std::as_const(report.problems))
            problems.insert(finding.path, finding.reason);
    }
    for (const SeveralRename &song : renames.songs()) {
        const QString &path = song.info.fileName;
        const QString reason = song.reason.isEmpty() ? problems.value(path) : song.reason;
        if (!reason.isEmpty())
            tellFailure(given(path), reason);
        const bool isShown = m_request.apply ? done.contains(path) : song.isRenamed();
        if (isShown)
            m_writer.renamed(given(path), song.newPath.section(QLatin1Char('/'), -1));
        if (isShown || (reason.isEmpty() && !song.isRenamed()))
            m_terminal.countDone();
    }
    if (report.stopped && !m_terminal.isStopped())
        m_history.tellRefused();
}
