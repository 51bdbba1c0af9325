#include "cli/arguments.h"

#include "cli/editarguments.h"
#include "cli/values.h"
#include "storage/shownname.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace
{

using Command = Request::Command;

struct CommandWords {
    Command command;
    const char *first;
    const char *second; ///< of a command of two words
};

constexpr std::array commandWords{
    CommandWords{Command::Show, "show", nullptr},
    CommandWords{Command::Set, "set", nullptr},
    CommandWords{Command::Sync, "sync", nullptr},
    CommandWords{Command::Transfer, "transfer", nullptr},
    CommandWords{Command::IndexUpdate, "index", "update"},
    CommandWords{Command::IndexRebuild, "index", "rebuild"},
    CommandWords{Command::IndexCheck, "index", "check"},
    CommandWords{Command::List, "list", nullptr},
    CommandWords{Command::Remove, "remove", nullptr},
    CommandWords{Command::Eject, "eject", nullptr},
    CommandWords{Command::CatalogueFind, "catalogue", "find"},
    CommandWords{Command::CatalogueAdd, "catalogue", "add"},
    CommandWords{Command::CatalogueExport, "catalogue", "export"},
    CommandWords{Command::CatalogueImport, "catalogue", "import"},
    CommandWords{Command::History, "history", nullptr},
    CommandWords{Command::Undo, "undo", nullptr},
    CommandWords{Command::Edit, "edit", nullptr},
    CommandWords{Command::Tags, "tags", nullptr},
    CommandWords{Command::Measure, "measure", nullptr},
    CommandWords{Command::Play, "play", nullptr},
    CommandWords{Command::Render, "render", nullptr},
};

/** Stands in front of each argument that is no option, so that CLI11 does not look into it. */
constexpr char plainMark = '\x01';

/** What CLI11 found, as text. */
struct Texts {
    bool help = false;
    bool version = false;
    bool json = false;
    bool csv = false;
    bool zero = false;
    bool dryRun = false;
    bool apply = false;
    bool duplicates = false;
    bool verify = false;
    bool inLine = false;
    bool remove = false;
    bool anyFolder = false;
    std::string title;
    std::string artist;
    std::string genre;
    std::string author;
    std::string key;
    std::string bpm;
    std::string length;
    std::string backup;
    std::string to;
    std::string soundFont;
    std::string replace;
    std::string rename;
    std::string changeUnsigned;
    std::string sort;
    std::string confirm;
    std::string withoutHistory;
    std::string changed;
    std::vector<std::string> paths;
};

/** The arguments as CLI11 gets them, and those behind "--", which it does not get. */
struct Split {
    std::vector<std::string> marked; ///< in reverse order, as CLI11 wants them
    QList<QByteArray> behindDashes;
};

bool isCommandWord(const QList<QByteArray> &arguments, qsizetype place)
{
    for (const CommandWords &command : commandWords) {
        if (place == 0 && arguments.at(0) == command.first)
            return true;
        if (place == 1 && command.second != nullptr && arguments.at(0) == command.first &&
            arguments.at(1) == command.second)
            return true;
    }
    return false;
}

Split split(const QList<QByteArray> &arguments)
{
    Split parts;
    for (qsizetype place = 0; place < arguments.size(); ++place) {
        const QByteArray &argument = arguments.at(place);
        if (argument == "--") {
            parts.behindDashes = arguments.mid(place + 1);
            break;
        }
        // "--title=" is an empty text; the parser would take the next argument for it.
        if (argument.startsWith("--") && argument.indexOf('=') == argument.size() - 1) {
            parts.marked.push_back(argument.chopped(1).toStdString());
            parts.marked.emplace_back(1, plainMark);
            continue;
        }
        const bool isOption = argument.startsWith('-') && argument != "-";
        if (isOption || isCommandWord(arguments, place))
            parts.marked.push_back(argument.toStdString());
        else
            parts.marked.push_back(plainMark + argument.toStdString());
    }
    std::reverse(parts.marked.begin(), parts.marked.end());
    return parts;
}

QByteArray plain(const std::string &text)
{
    QByteArray bytes = QByteArray::fromStdString(text);
    if (bytes.startsWith(plainMark))
        bytes.remove(0, 1);
    return bytes;
}

QString plainText(const std::string &text)
{
    return shownName(plain(text));
}

} // namespace

/** The options and arguments of each command; the texts must outlive the application. */
class Arguments::Grammar
{
public:
    Grammar()
    {
        m_app.set_help_flag();
        m_app.require_subcommand(0, 1);
        m_app.add_flag("--help,-h", m_texts.help);
        m_app.add_flag("--version", m_texts.version);
        for (const CommandWords &words : commandWords) {
            CLI::App *parser = subcommand(m_app, words.first);
            if (words.second != nullptr)
                parser = subcommand(*parser, words.second);
            parser->add_flag("--help,-h", m_texts.help);
            parser->add_option("paths", m_texts.paths);
            addOptions(*parser, words.command);
        }
    }

    /** Throws a CLI::ParseError. */
    void parse(std::vector<std::string> reversed) { m_app.parse(std::move(reversed)); }

    const Texts &texts() const { return m_texts; }

    /** What nobody asked for, in the order in which it was given. */
    std::vector<std::string> extras() const { return m_app.remaining(true); }

    /** True for the name of an option that stands alone, such as "--json". */
    bool isFlag(const std::string &name) const { return isFlagOf(m_app, name); }

    Command command() const
    {
        for (const CommandWords &words : commandWords) {
            const CLI::App *const first = m_app.get_subcommand(words.first);
            if (!first->parsed())
                continue;
            if (words.second == nullptr || first->get_subcommand(words.second)->parsed())
                return words.command;
        }
        return Command::None;
    }

    bool has(const char *option) const
    {
        const CLI::App *const found = parsedCommand();
        return found != nullptr && found->get_option_no_throw(option) != nullptr &&
               found->count(option) > 0;
    }

private:
    static bool isFlagOf(const CLI::App &app, const std::string &name)
    {
        const CLI::Option *const option = app.get_option_no_throw(name);
        const auto commands = app.get_subcommands([](const CLI::App *) { return true; });
        return (option != nullptr && option->get_expected_max() == 0) ||
               std::any_of(commands.begin(), commands.end(),
                           [&name](const CLI::App *command) { return isFlagOf(*command, name); });
    }

    static CLI::App *subcommand(CLI::App &parent, const char *name)
    {
        for (CLI::App *const known : parent.get_subcommands({})) {
            if (known->get_name() == name)
                return known;
        }
        CLI::App *const added = parent.add_subcommand(name);
        added->set_help_flag();
        parent.require_subcommand(0, 1);
        return added;
    }

    const CLI::App *parsedCommand() const
    {
        const CLI::App *found = nullptr;
        for (const CLI::App *next = &m_app; !next->get_subcommands().empty();)
            found = next = next->get_subcommands().front();
        return found;
    }

    void addOptions(CLI::App &command, Command kind)
    {
        const auto isOneOf = [kind](std::initializer_list<Command> kinds) {
            return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
        };
        if (isOneOf({Command::Show, Command::Sync, Command::Transfer, Command::IndexCheck,
                     Command::List, Command::Remove, Command::Eject, Command::CatalogueFind,
                     Command::History, Command::Undo, Command::Edit, Command::Tags,
                     Command::Measure}))
            command.add_flag("--json", m_texts.json);
        if (isOneOf({Command::Show, Command::Set, Command::Sync, Command::Transfer, Command::Remove,
                     Command::CatalogueAdd, Command::Undo, Command::Edit, Command::Tags,
                     Command::Measure}))
            command.add_flag("-0", m_texts.zero);
        if (isOneOf({Command::Set})) {
            command.add_option("--title", m_texts.title);
            command.add_option("--artist", m_texts.artist);
            command.add_option("--genre", m_texts.genre);
            command.add_option("--author", m_texts.author);
            command.add_option("--key", m_texts.key);
            command.add_option("--bpm", m_texts.bpm);
            command.add_option("--length", m_texts.length);
        }
        if (isOneOf({Command::Set, Command::Sync, Command::Undo, Command::Edit, Command::Tags,
                     Command::Measure}))
            command.add_option("--without-history", m_texts.withoutHistory);
        if (isOneOf({Command::Tags, Command::Measure}))
            command.add_flag("--apply", m_texts.apply);
        if (isOneOf({Command::Undo}))
            command.add_option("--changed", m_texts.changed);
        if (isOneOf({Command::Sync})) {
            command.add_option("--backup", m_texts.backup);
            command.add_option("--unsigned", m_texts.changeUnsigned);
        }
        if (isOneOf({Command::Sync, Command::Transfer}))
            command.add_flag("--dry-run", m_texts.dryRun);
        if (isOneOf({Command::Transfer})) {
            command.add_flag("--verify", m_texts.verify);
            command.add_flag("--in-line", m_texts.inLine);
            command.add_flag("--remove", m_texts.remove);
        }
        if (isOneOf({Command::Transfer, Command::Render}))
            command.add_option("--to", m_texts.to);
        if (isOneOf({Command::Play, Command::Render}))
            command.add_option("--sound-font", m_texts.soundFont);
        if (isOneOf({Command::Transfer, Command::CatalogueAdd, Command::CatalogueExport,
                     Command::CatalogueImport, Command::Render}))
            command.add_option("--replace", m_texts.replace);
        if (isOneOf({Command::Transfer, Command::IndexUpdate, Command::IndexRebuild}))
            command.add_option("--rename", m_texts.rename);
        if (isOneOf({Command::IndexUpdate, Command::IndexRebuild, Command::Remove}))
            command.add_flag("--any-folder", m_texts.anyFolder);
        if (isOneOf({Command::Remove}))
            command.add_option("--confirm", m_texts.confirm);
        if (isOneOf({Command::List})) {
            command.add_flag("--csv", m_texts.csv);
            command.add_option("--sort", m_texts.sort);
            command.add_flag("--duplicates", m_texts.duplicates);
        }
    }

    Texts m_texts;
    CLI::App m_app;
};

namespace
{

bool takesOneArgument(Command command)
{
    switch (command) {
    case Command::IndexUpdate:
    case Command::IndexRebuild:
    case Command::IndexCheck:
    case Command::List:
    case Command::Eject:
    case Command::CatalogueFind:
    case Command::CatalogueExport:
    case Command::CatalogueImport:
    case Command::Play:
    case Command::Render:
        return true;
    default:
        return false;
    }
}

} // namespace

QString Arguments::words(Request::Command command)
{
    for (const CommandWords &known : commandWords) {
        if (known.command != command)
            continue;
        QString text = QString::fromUtf8(known.first);
        if (known.second != nullptr)
            text += QLatin1Char(' ') + QString::fromUtf8(known.second);
        return text;
    }
    return {};
}

/** The first flag that was given a value, such as "--json=x"; empty when there is none. */
QString Arguments::flagWithValue(const Grammar &grammar, const QList<QByteArray> &arguments)
{
    for (const QByteArray &argument : arguments) {
        const QByteArray name = argument.left(argument.indexOf('='));
        if (argument == "--")
            break;
        if (argument.startsWith("--") && name.size() < argument.size() &&
            grammar.isFlag(name.toStdString()))
            return QString::fromUtf8(name);
    }
    return {};
}

/** What CLI11 has to say about the arguments; empty when it accepts them. */
QString Arguments::parse(Grammar &grammar, std::vector<std::string> reversed)
{
    try {
        grammar.parse(std::move(reversed));
    } catch (const CLI::ExtrasError &) {
        QStringList extras;
        for (const std::string &extra : grammar.extras())
            extras.append(plainText(extra));
        return tr("Argomento sconosciuto: %1").arg(extras.join(QLatin1Char(' ')));
    } catch (const CLI::ArgumentMismatch &error) {
        const QString what = QString::fromUtf8(error.what());
        return tr("L'opzione vuole un solo valore: %1").arg(what.section(QLatin1Char(':'), 0, 0));
    } catch (const CLI::ParseError &) {
        return tr("Argomenti non validi");
    }
    return {};
}

/** Reads the options' values; what is wrong with the first bad one. */
QString Arguments::readValues(const Grammar &grammar, Request &request)
{
    QString wrong;
    const auto decide = [&](const char *option, const std::string &text, auto read, auto &target) {
        if (!grammar.has(option) || !wrong.isEmpty())
            return;
        const auto value = read(plainText(text));
        if (value && plain(text).isValidUtf8())
            target = *value;
        else
            wrong =
                tr("Valore non valido per %1: %2").arg(QString::fromUtf8(option), plainText(text));
    };
    const auto anyText = [](const QString &text) { return std::optional(text.trimmed()); };
    const Texts &texts = grammar.texts();
    decide("--title", texts.title, anyText, request.edit.title);
    decide("--artist", texts.artist, anyText, request.edit.artist);
    decide("--genre", texts.genre, anyText, request.edit.genre);
    decide("--author", texts.author, anyText, request.edit.author);
    decide("--key", texts.key, values::key, request.edit.key);
    decide("--bpm", texts.bpm, values::tempo, request.edit.bpm);
    decide("--length", texts.length, values::length, request.edit.length);
    decide("--unsigned", texts.changeUnsigned, values::yesOrNo, request.changeUnsigned);
    decide("--replace", texts.replace, values::yesOrNo, request.replace);
    decide("--rename", texts.rename, values::yesOrNo, request.rename);
    decide("--confirm", texts.confirm, values::yesOrNo, request.confirm);
    decide("--without-history", texts.withoutHistory, values::yesOrNo, request.withoutHistory);
    decide("--changed", texts.changed, values::yesOrNo, request.changed);
    decide("--sort", texts.sort, values::sortMode, request.sort);
    return wrong;
}

/** What the request lacks, or has too much of; empty when it can be carried out. */
QString Arguments::whatIsWrong(const Request &request)
{
    if (request.command == Command::None)
        return tr("Manca il comando");
    if (request.command == Command::Set && request.edit.isEmpty())
        return tr("Manca il dato da modificare, per esempio --title");
    if (request.command == Command::Edit && request.steps.isEmpty() && !request.newNames)
        return tr("Manca un passo, per esempio --pattern");
    const bool namesFiles = request.command != Command::CatalogueFind;
    if ((namesFiles && request.paths.contains(QByteArray())) ||
        (request.backup && request.backup->isEmpty()))
        return tr("Un nome è vuoto");
    if (request.command == Command::Transfer && request.to.isEmpty())
        return tr("Manca la cartella di destinazione: --to CARTELLA");
    if (request.command == Command::Render && request.to.isEmpty())
        return tr("Manca il file da scrivere: --to WAV");
    if (request.remove && !request.inLine)
        return tr("%1 vale solo con %2")
            .arg(QStringLiteral("--remove"), QStringLiteral("--in-line"));
    if (request.command == Command::Transfer && request.form == Request::Form::Json &&
        !request.dryRun && !request.inLine && !request.verify)
        return tr("%1 vale solo con %2")
            .arg(QStringLiteral("--json"), QStringLiteral("--dry-run, --in-line, --verify"));
    if (request.command == Command::History)
        return request.paths.isEmpty() ? QString() : tr("Troppi argomenti");
    if (request.command == Command::Undo)
        return {};
    const bool takesOne = takesOneArgument(request.command);
    if (request.paths.isEmpty() && !request.pathsFromStandardInput)
        return takesOne ? tr("Manca un argomento") : tr("Mancano i file");
    if (request.command == Command::Remove && request.paths.isEmpty())
        return tr("Manca un argomento");
    if (request.command == Command::Remove && request.paths.size() < 2 &&
        !request.pathsFromStandardInput)
        return tr("Mancano i file");
    if (request.duplicates && request.form == Request::Form::Csv)
        return tr("--csv e --duplicates non vanno insieme");
    return takesOne && request.paths.size() > 1 ? tr("Troppi argomenti") : QString();
}

Arguments::Result Arguments::read(const QList<QByteArray> &arguments)
{
    const EditArguments edit(arguments);
    Split parts = split(edit.others);
    Grammar grammar;
    Result result;
    Request &request = result.request;
    result.error = parse(grammar, std::move(parts.marked));
    const QString flag = flagWithValue(grammar, edit.others);
    if (!flag.isEmpty())
        result.error = tr("L'opzione non vuole un valore: %1").arg(flag);
    request.command = grammar.command();
    const Texts &texts = grammar.texts();
    request.help = texts.help;
    request.version = texts.version;
    if (result.error.isEmpty() && !request.help)
        result.error = edit.error;
    if (!result.error.isEmpty() || request.help || request.version)
        return result;

    for (const std::string &path : texts.paths)
        request.paths.append(plain(path));
    request.paths += parts.behindDashes;
    request.pathsFromStandardInput = texts.zero;
    request.dryRun = texts.dryRun;
    request.apply = texts.apply;
    request.duplicates = texts.duplicates;
    request.verify = texts.verify;
    request.inLine = texts.inLine;
    request.remove = texts.remove;
    request.anyFolder = texts.anyFolder;
    request.to = plain(texts.to);
    request.soundFont = plain(texts.soundFont);
    request.steps = edit.steps;
    request.newNames = edit.newNames;
    request.shortNames = edit.shortNames;
    request.apply = request.apply || edit.apply;
    if (grammar.has("--backup"))
        request.backup = plain(texts.backup);
    if (texts.json || texts.csv)
        request.form = texts.json ? Request::Form::Json : Request::Form::Csv;

    result.error = texts.json && texts.csv ? tr("--json e --csv non vanno insieme")
                                           : readValues(grammar, request);
    if (result.error.isEmpty())
        result.error = whatIsWrong(request);
    if (request.command == Command::Undo && !texts.paths.empty()) {
        // A file of such a name is given with its folder, "./12", or behind "--".
        bool isNumber = false;
        const qint64 number = request.paths.constFirst().toLongLong(&isNumber);
        if (isNumber && number > 0) {
            request.job = number;
            request.paths.removeFirst();
        }
    }
    if (request.command == Command::CatalogueFind && result.error.isEmpty() &&
        !request.paths.constFirst().isValidUtf8())
        result.error = tr("Valore non valido per %1: %2")
                           .arg(QStringLiteral("TEXT"), shownName(request.paths.constFirst()));
    if (request.command == Command::CatalogueFind && result.error.isEmpty())
        request.text = QString::fromUtf8(request.paths.constFirst());
    return result;
}
