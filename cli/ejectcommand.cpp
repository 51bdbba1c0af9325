#include "cli/ejectcommand.h"

#include "cli/songpaths.h"
#include "devindex/eject.h"

ExitStatus EjectCommand::run()
{
    const std::optional<QString> root = SongPaths::memory(m_request.paths.constFirst(), m_terminal);
    if (!root)
        return ExitStatus::NothingDone;
    const std::unique_ptr<Ejector> ejector = Ejector::ofSystem();
    const Eject::Report report = Eject(*ejector).run(*root);
    m_writer.ejected(*root, report.isEjected, report.text);
    if (!report.isEjected)
        return m_terminal.refuse(*root, report.text);
    m_terminal.note(report.text);
    return ExitStatus::Done;
}
