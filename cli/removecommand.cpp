#include "cli/removecommand.h"

#include "cli/songpaths.h"
#include "devindex/songchanges.h"

#include <QDir>
#include <QFileInfo>

namespace
{

/**
 * The path on the memory of what the user named: a path on the computer that leads below the root,
 * or the path as the list of songs shows it.
 */
QString pathOnMemory(const QString &root, const QString &given)
{
    const QString clean = QDir::cleanPath(given);
    if (clean.startsWith(root + QLatin1Char('/')))
        return clean.mid(root.size());
    return clean.startsWith(QLatin1Char('/')) ? clean : QLatin1Char('/') + clean;
}

} // namespace

ExitStatus RemoveCommand::run()
{
    const QByteArray &given = m_request.paths.constFirst();
    const std::optional<QString> folder = SongPaths::folder(given, m_terminal);
    if (!folder)
        return ExitStatus::NothingDone;
    std::optional<QString> root = SongPaths::memory(given, m_terminal);
    if (!root)
        return ExitStatus::NothingDone;
    root = QDir::cleanPath(*root);
    // The names of the songs could be meant from this folder or from the root.
    if (QDir::cleanPath(*folder) != root)
        return m_terminal.refuse(
            *folder, tr("La cartella è dentro una memoria: indicare la memoria, %1").arg(*root));
    if (!SongPaths::mayChange(*root, m_request, m_terminal))
        return ExitStatus::NothingDone;
    const std::optional<QStringList> paths = songs(*root);
    if (!paths)
        return ExitStatus::NothingDone;
    if (paths->isEmpty() || !isConfirmed(*root, *paths))
        return m_terminal.failures() > 0 ? ExitStatus::WithFailures : ExitStatus::NothingDone;

    SongChanges changes(*root, m_terminal.progressOpener());
    const SongChanges::Report report = changes.remove(*paths);
    if (!report.refusal.isEmpty())
        return m_terminal.refuse(*root, report.refusal);
    for (const QString &path : report.done) {
        m_writer.removed(path, {});
        m_terminal.countDone();
    }
    for (const SongChanges::Failure &failure : report.failed) {
        m_writer.removed(failure.path, failure.reason);
        m_terminal.fail(failure.path, failure.reason);
    }
    for (const QString &problem : report.indexProblems)
        m_terminal.fail(problem);
    if (!report.isIndexTrue)
        m_terminal.fail(*root,
                        QCoreApplication::translate(
                            "MainWindow", "Il database della memoria non è stato aggiornato."));
    m_terminal.isStopped(); // says so
    return m_terminal.status();
}

/** The songs that are to be removed, as paths on the memory; nothing when a name is no text. */
std::optional<QStringList> RemoveCommand::songs(const QString &root)
{
    QStringList paths;
    const std::optional<QList<QByteArray>> given = SongPaths::given(m_request, m_terminal);
    if (!given)
        return {};
    for (const QByteArray &argument : given->mid(1)) {
        const std::optional<QString> path = SongPaths::decode(argument, m_terminal);
        if (!path)
            return {};
        paths.append(pathOnMemory(root, *path));
    }
    paths.removeDuplicates();
    return paths;
}

bool RemoveCommand::isConfirmed(const QString &root, const QStringList &songs)
{
    const QString question =
        tr("%n song verranno eliminate dalla memoria con le loro immagini karaoke. Procedere?", "",
           static_cast<int>(songs.size()));
    const Answer answer = m_terminal.ask(root, question, "--confirm", m_request.confirm);
    return answer == Answer::Yes || answer == Answer::YesToAll;
}
