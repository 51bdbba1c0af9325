#include "cli/program.h"

#include "cli/arguments.h"
#include "cli/cataloguecommand.h"
#include "cli/csvwriter.h"
#include "cli/editcommand.h"
#include "cli/ejectcommand.h"
#include "cli/help.h"
#include "cli/historycommand.h"
#include "cli/indexcommand.h"
#include "cli/jsonwriter.h"
#include "cli/listcommand.h"
#include "cli/measurecommand.h"
#include "cli/peoplewriter.h"
#include "cli/playcommand.h"
#include "cli/removecommand.h"
#include "cli/rendercommand.h"
#include "cli/setcommand.h"
#include "cli/showcommand.h"
#include "cli/standardoutput.h"
#include "cli/synccommand.h"
#include "cli/tagscommand.h"
#include "cli/transfercommand.h"
#include "library/version.h"

#include <memory>

namespace
{

std::unique_ptr<Writer> writerFor(Request::Form form, StandardOutput &output)
{
    switch (form) {
    case Request::Form::Json:
        return std::make_unique<JsonWriter>(output);
    case Request::Form::Csv:
        return std::make_unique<CsvWriter>(output);
    case Request::Form::People:
        break;
    }
    return std::make_unique<PeopleWriter>(output);
}

std::unique_ptr<Command> commandFor(const CommandContext &context)
{
    switch (context.request.command) {
    case Request::Command::Show:
        return std::make_unique<ShowCommand>(context);
    case Request::Command::Set:
        return std::make_unique<SetCommand>(context);
    case Request::Command::Sync:
        return std::make_unique<SyncCommand>(context);
    case Request::Command::Transfer:
        return std::make_unique<TransferCommand>(context);
    case Request::Command::IndexUpdate:
    case Request::Command::IndexRebuild:
    case Request::Command::IndexCheck:
        return std::make_unique<IndexCommand>(context);
    case Request::Command::List:
        return std::make_unique<ListCommand>(context);
    case Request::Command::Remove:
        return std::make_unique<RemoveCommand>(context);
    case Request::Command::Eject:
        return std::make_unique<EjectCommand>(context);
    case Request::Command::CatalogueFind:
    case Request::Command::CatalogueAdd:
    case Request::Command::CatalogueExport:
    case Request::Command::CatalogueImport:
        return std::make_unique<CatalogueCommand>(context);
    case Request::Command::History:
    case Request::Command::Undo:
        return std::make_unique<HistoryCommand>(context);
    case Request::Command::Edit:
        return std::make_unique<EditCommand>(context);
    case Request::Command::Tags:
        return std::make_unique<TagsCommand>(context);
    case Request::Command::Measure:
        return std::make_unique<MeasureCommand>(context);
    case Request::Command::Play:
        return std::make_unique<PlayCommand>(context);
    case Request::Command::Render:
        return std::make_unique<RenderCommand>(context);
    case Request::Command::None:
        break;
    }
    return nullptr;
}

} // namespace

ExitStatus Program::run(const QList<QByteArray> &arguments)
{
    Terminal terminal;
    const auto [request, error] = Arguments::read(arguments);
    if (!error.isEmpty()) {
        const QString words = Arguments::words(request.command);
        terminal.note(error);
        terminal.note(
            tr("aiuto: kavena %1--help").arg(words.isEmpty() ? words : words + QLatin1Char(' ')));
        return ExitStatus::WrongUse;
    }
    StandardOutput output;
    ExitStatus status = ExitStatus::Done;
    if (request.help) {
        output.write(Help::text(request.command).toUtf8());
    } else if (request.version) {
        output.write(QByteArray("kavena ") + version::number + '\n');
    } else {
        const auto writer = writerFor(request.form, output);
        status = commandFor({request, terminal, *writer})->run();
    }
    if (!output.finish()) {
        terminal.fail(tr("Non tutti i dati hanno potuto essere scritti sullo standard output"));
        status = ExitStatus::WithFailures;
    }
    return status;
}
