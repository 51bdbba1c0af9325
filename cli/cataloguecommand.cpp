#include "cli/cataloguecommand.h"

#include "cli/songpaths.h"
#include "library/cataloguetsv.h"
#include "library/database.h"
#include "library/songentries.h"
#include "library/userfile.h"

#include <QFileInfo>
#include <QSet>

ExitStatus CatalogueCommand::run()
{
    switch (m_request.command) {
    case Request::Command::CatalogueAdd:
        return add();
    case Request::Command::CatalogueExport:
        return exportTsv();
    case Request::Command::CatalogueImport:
        return importTsv();
    default:
        return find();
    }
}

ExitStatus CatalogueCommand::find()
{
    Database database;
    if (!database.init())
        return m_terminal.refuse(tr("Il catalogo non può essere aperto"));
    m_own.open();
    const QList<SongsDbRecord> own = m_own.find(m_request.text);
    if (!m_own.problem().isEmpty())
        m_terminal.note(m_own.problem());
    const QList<SongsDbRecord> songs = database.find(m_request.text);
    for (const SongsDbRecord &song : own)
        m_writer.catalogueSong(song, CatalogueSource::Own);
    const auto source =
        m_own.entries().isEmpty() ? CatalogueSource::Only : CatalogueSource::BuiltIn;
    for (const SongsDbRecord &song : songs)
        m_writer.catalogueSong(song, source);
    if (own.isEmpty() && songs.isEmpty())
        return m_terminal.refuse(m_request.text, tr("Non è nel catalogo"));
    return ExitStatus::Done;
}

ExitStatus CatalogueCommand::add()
{
    const std::optional<QStringList> songs = SongPaths::songs(m_request, m_terminal);
    if (!songs)
        return ExitStatus::NothingDone;
    const auto progress =
        m_terminal.openProgress({}, tr("Catalogo"), static_cast<int>(songs->size()));
    const SongEntries read = SongEntries::read(*songs, *progress);
    for (const SongEntries::Failure &failure : read.failures)
        m_terminal.fail(failure.path, failure.reason);
    return read.isStopped || m_terminal.isStopped() ? ExitStatus::NothingDone : put(read.entries);
}

ExitStatus CatalogueCommand::importTsv()
{
    const std::optional<QString> path = file();
    if (!path)
        return ExitStatus::NothingDone;
    const UserFile::Reading reading = UserFile::read(*path, CatalogueTsv::mostBytes);
    if (!reading.problem.isEmpty())
        return m_terminal.refuse(*path, reading.problem);
    const CatalogueTsv table = CatalogueTsv::parse(reading.bytes);
    for (const QString &problem : table.problems)
        m_terminal.fail(*path, problem);
    if (table.entries.isEmpty() && table.problems.isEmpty())
        return m_terminal.refuse(*path, tr("Non contiene voci"));
    return put(table.entries);
}

/** Puts the entries into the catalogue; those that are there already, as the user decides. */
ExitStatus CatalogueCommand::put(const QList<SongsDbRecord> &entries)
{
    if (entries.isEmpty())
        return m_terminal.status();
    if (m_own.openOrMake() != OwnCatalogue::State::Ready)
        return m_terminal.refuse(m_own.path(), m_own.problem());
    QStringList names;
    for (const SongsDbRecord &entry : entries)
        names.append(entry.filename);
    const QStringList known = m_own.known(names);
    // Without them nobody could be asked before they are replaced.
    if (!m_own.problem().isEmpty())
        return m_terminal.refuse(m_own.path(), m_own.problem());
    const QSet<QString> kept(known.cbegin(), known.cend());
    RememberedAnswer replace;
    QList<SongsDbRecord> wanted;
    for (const SongsDbRecord &entry : entries) {
        if (kept.contains(entry.filename) && !replace.isYes([&] {
                return m_terminal.ask(entry.filename,
                                      tr("La voce è già nel catalogo. Sostituirla?"), "--replace",
                                      m_request.replace);
            }))
            continue;
        wanted.append(entry);
    }
    if (!m_own.put(wanted))
        return m_terminal.refuse(m_own.path(),
                                 OwnCatalogue::problem(OwnCatalogue::State::Unwritable));
    for (qsizetype done = 0; done < wanted.size(); ++done)
        m_terminal.countDone();
    return wanted.isEmpty() && m_terminal.failures() == 0 ? ExitStatus::NothingDone
                                                          : m_terminal.status();
}

ExitStatus CatalogueCommand::exportTsv()
{
    const std::optional<QString> path = file();
    if (!path)
        return ExitStatus::NothingDone;
    m_own.open();
    if (m_own.state() == OwnCatalogue::State::Absent)
        return m_terminal.refuse(m_own.path(), tr("Non c'è ancora un catalogo"));
    const QList<SongsDbRecord> entries = m_own.entries();
    if (!m_own.problem().isEmpty())
        return m_terminal.refuse(m_own.path(), m_own.problem());
    if (QFileInfo::exists(*path)) {
        const Answer answer = m_terminal.ask(*path, tr("Il file esiste già. Sostituirlo?"),
                                             "--replace", m_request.replace);
        if (answer != Answer::Yes && answer != Answer::YesToAll)
            return ExitStatus::NothingDone;
    }
    const QString problem = UserFile::write(*path, CatalogueTsv::text(entries));
    if (!problem.isEmpty())
        return m_terminal.refuse(*path, problem);
    return ExitStatus::Done;
}

/** The file that the argument names; nothing after the terminal was told why not. */
std::optional<QString> CatalogueCommand::file()
{
    return SongPaths::decode(m_request.paths.constFirst(), m_terminal);
}
