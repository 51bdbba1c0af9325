#include "cli/synccommand.h"

#include "cli/givenpath.h"
#include "cli/songpaths.h"
#include "devindex/filecopier.h"
#include "formats/metasong.h"
#include "library/cataloguemerge.h"
#include "library/database.h"
#include "library/librarybackup.h"
#include "library/owncatalogue.h"
#include "library/runreport.h"
#include "library/songupdate.h"
#include "library/unreadablefile.h"

#include <QFileInfo>

namespace
{

/** Empty for a file that cannot be read as a song. */
QString titleOf(const QString &path)
{
    MetaSong song;
    SongInfo info;
    if (song.importFile(path))
        song.getSongInfo(info);
    return info.title;
}

} // namespace

ExitStatus SyncCommand::run()
{
    const std::optional<QStringList> songs = SongPaths::songs(m_request, m_terminal);
    if (!songs)
        return ExitStatus::NothingDone;
    Database database;
    if (!database.init())
        return m_terminal.refuse(tr("Il catalogo non può essere aperto"));
    const CatalogueMerge catalogue(database);
    if (!goesOnWith(catalogue))
        return ExitStatus::NothingDone;
    if (!m_request.dryRun && m_request.backup && !backUp(*songs))
        return ExitStatus::NothingDone;
    const auto progress =
        m_terminal.openProgress({}, tr("Sincronizzazione"), static_cast<int>(songs->size()));
    m_history.begin(HistoryJob::Kind::Synchronise);
    int done = 0;
    for (const QString &song : *songs) {
        if (m_terminal.isStopped() || m_isRefused || !keepNext(*songs, done, catalogue))
            break;
        sync(song, catalogue);
        progress->setValue(++done);
    }
    m_history.end();
    return m_terminal.status();
}

/** The built-in catalogue may know other data of a song than the user's own one, so he decides. */
bool SyncCommand::goesOnWith(const CatalogueMerge &catalogue)
{
    if (catalogue.problem().isEmpty())
        return true;
    const QString path = OwnCatalogue::defaultPath();
    m_terminal.fail(path, catalogue.problem());
    if (m_request.dryRun)
        return true;
    const Answer answer = m_terminal.ask(
        path,
        QCoreApplication::translate("SongSync", "Continuare con il solo catalogo del programma?"),
        nullptr, std::nullopt);
    return answer == Answer::Yes || answer == Answer::YesToAll;
}

/** Keeps those of the next songs that the catalogue is going to change; false to stop. */
bool SyncCommand::keepNext(const QStringList &songs, qsizetype place,
                           const CatalogueMerge &catalogue)
{
    if (m_request.dryRun || place % HistoryRecorder::songsAtOnce != 0)
        return true;
    QStringList known;
    for (const QString &path : songs.mid(place, HistoryRecorder::songsAtOnce)) {
        const QString name = QFileInfo(path).fileName();
        // The file is read only where its name does not tell.
        if (catalogue.knows({}, name) || catalogue.knows(titleOf(path), name))
            known.append(path);
    }
    if (m_history.keep(known))
        return true;
    m_history.tellRefused();
    return false;
}

/** False when not every song is in the backup: then no song is changed. */
bool SyncCommand::backUp(const QStringList &songs)
{
    const QString failed = QCoreApplication::translate("MainWindow", "Backup FALLITO !!!");
    const std::optional<QString> folder = SongPaths::decode(*m_request.backup, m_terminal);
    if (!folder)
        return false;
    QStringList files;
    for (const QString &song : songs) {
        if (QFileInfo(song).isFile())
            files.append(QFileInfo(song).absoluteFilePath());
    }
    bool isWhole = true;
    const auto ask = [&folder] {
        return LibraryBackup::Choice{LibraryBackup::Wish::Backup,
                                     QFileInfo(*folder).absoluteFilePath()};
    };
    const auto copyList = [](const QStringList &list, const QString &destination, int &copied,
                             Progress &progress) {
        return FileCopier([](const QString &) { return Answer::No; })
            .copyFiles(list, destination, copied, progress);
    };
    const auto copy = [&](const QString &destination, int &copied) {
        const auto progress =
            m_terminal.openProgress({}, tr("Backup"), static_cast<int>(files.size()));
        return LibraryBackup::copyFiles(files, destination, copied, *progress, copyList);
    };
    const auto report = [&isWhole](bool succeeded) { isWhole = succeeded; };
    const bool goesOn = LibraryBackup(ask, copy, report, m_terminal.progressOpener())
                            .suggest(static_cast<int>(files.size()));
    if (goesOn && isWhole && !m_terminal.isStopped())
        return true;
    m_terminal.refuse(*folder, failed);
    return false;
}

void SyncCommand::sync(const QString &path, const CatalogueMerge &catalogue)
{
    if (!m_request.dryRun)
        m_leftovers.tidyBeside(path);
    SongUpdate update(path);
    if (!update.load()) {
        const QString reason = UnreadableFile::examine(path, update.wasInUse()).reasonText();
        m_terminal.fail(path, reason);
        m_writer.unreadable(path, reason);
        return;
    }
    const auto ask = [&] {
        return m_terminal.ask(path, tr("La song non ha la firma del produttore. Modificarla?"),
                              "--unsigned", m_request.changeUnsigned);
    };
    // A dry run does not ask; it shows what a yes would do.
    const bool isSigned = update.before().isKravo;
    const bool mayChange = isSigned || (m_request.dryRun ? m_request.changeUnsigned.value_or(true)
                                                         : m_changeUnsigned.isYes(ask));
    const bool isKnown = update.merge(catalogue, QFileInfo(path).fileName());
    if (isKnown && mayChange && !(m_request.dryRun && update.canBeSaved())) {
        save(path, update);
        return;
    }
    const QList<ChangePreview::Change> changes =
        isKnown && mayChange ? update.changes() : QList<ChangePreview::Change>();
    m_writer.changes(path, isKnown, changes, update.source());
    if (!mayChange)
        m_terminal.note(
            tr("%1: non modificata, senza la firma del produttore").arg(givenpath::shown(path)));
    else if (!isSigned && !changes.isEmpty() && !m_request.changeUnsigned)
        m_terminal.note(tr("%1: senza la firma del produttore, viene modificata solo se la "
                           "risposta è sì (%2)")
                            .arg(givenpath::shown(path), QStringLiteral("--unsigned yes")));
    if (m_request.dryRun)
        m_terminal.countDone();
}

void SyncCommand::save(const QString &path, SongUpdate &update)
{
    const QList<ChangePreview::Change> changes = update.changes();
    if (!m_history.keepOne(path)) {
        m_isRefused = true;
        m_history.tellRefused();
        return;
    }
    const SaveFailure failure = update.canBeSaved() ? update.save() : SaveFailure::TooLarge;
    MetaSong saved;
    SongInfo after;
    if (saved.importFile(path))
        saved.getSongInfo(after);
    m_history.written(path, update.before(), after);
    if (failure != SaveFailure::None) {
        m_terminal.fail(path, RunReport::reasonText(failure));
        m_writer.unreadable(path, RunReport::reasonText(failure));
        return;
    }
    m_terminal.countDone();
    m_writer.changes(path, true, changes, update.source());
    for (const ChangePreview::Change &change : changes) {
        if (!change.lost.isEmpty())
            m_terminal.note(
                givenpath::shown(path) + QStringLiteral(": ") +
                RunReport::text({SongFinding::Kind::LostCharacters, path, change.lost}));
    }
}
