#include "cli/editarguments.h"

#include "devindex/severalrenames.h"
#include "storage/shownname.h"

#include <QLocale>

#include <algorithm>
#include <array>

namespace
{

std::optional<EditStep::LetterCase::Kind> letterCase(const QString &word)
{
    using Kind = EditStep::LetterCase::Kind;
    if (word == QLatin1String("title"))
        return Kind::Title;
    if (word == QLatin1String("upper"))
        return Kind::Upper;
    if (word == QLatin1String("lower"))
        return Kind::Lower;
    if (word == QLatin1String("first"))
        return Kind::FirstLetter;
    return std::nullopt;
}

} // namespace

struct EditArguments::Option {
    enum class Kind { Pattern, Value, Replace, Regex, Case, Swap, Strip, FromCsv, Rename };

    Kind kind;
    const char *name;
    int values;
};

EditArguments::EditArguments(const QList<QByteArray> &arguments)
    : m_isEdit(!arguments.isEmpty() && arguments.constFirst() == "edit")
{
    static constexpr std::array options{
        Option{Option::Kind::Pattern, "--pattern", 1},
        Option{Option::Kind::Value, "--value", 2},
        Option{Option::Kind::Replace, "--replace", 3},
        Option{Option::Kind::Regex, "--regex", 3},
        Option{Option::Kind::Case, "--case", 2},
        Option{Option::Kind::Swap, "--swap", 2},
        Option{Option::Kind::Strip, "--strip", 1},
        Option{Option::Kind::FromCsv, "--from-csv", 1},
        Option{Option::Kind::Rename, "--rename", 1},
    };
    if (!m_isEdit) {
        others = arguments;
        return;
    }
    m_ignoresCase = arguments.mid(0, arguments.indexOf("--")).contains("--ignore-case");
    for (qsizetype place = 0; place < arguments.size(); ++place) {
        const QByteArray &argument = arguments.at(place);
        if (argument == "--") {
            others += arguments.mid(place);
            return;
        }
        const qsizetype equals = argument.startsWith("--") ? argument.indexOf('=') : -1;
        const QByteArray name = equals < 0 ? argument : argument.first(equals);
        const auto *const option =
            std::find_if(options.cbegin(), options.cend(),
                         [&name](const Option &known) { return name == known.name; });
        if (option == options.cend()) {
            if (argument == "--apply")
                apply = true;
            else if (argument == "--short")
                shortNames = true;
            else if (argument != "--ignore-case")
                others.append(argument);
            continue;
        }
        QList<QByteArray> values =
            equals < 0 ? QList<QByteArray>() : QList<QByteArray>{argument.sliced(equals + 1)};
        while (values.size() < option->values && place + 1 < arguments.size())
            values.append(arguments.at(++place));
        if (error.isEmpty())
            take(*option, values);
    }
}

void EditArguments::take(const Option &option, const QList<QByteArray> &bytes)
{
    const QString name = QString::fromUtf8(option.name);
    if (bytes.size() < option.values) {
        error = tr("A %1 manca un valore").arg(name);
        return;
    }
    QStringList values;
    for (const QByteArray &value : bytes) {
        values.append(QString::fromUtf8(value));
        if (!value.isValidUtf8()) {
            error = tr("Valore non valido per %1: %2").arg(name, shownName(value));
            return;
        }
    }
    const QString &first = values.constFirst();
    const QList<EditStep::Field> fields = fieldsOf(option, first);
    if (!error.isEmpty())
        return;
    switch (option.kind) {
    case Option::Kind::Pattern:
        return add(option, EditStep::FromName{first});
    case Option::Kind::Value:
        return add(option, EditStep::Value{fields.value(0), values.at(1)});
    case Option::Kind::Replace:
    case Option::Kind::Regex:
        return add(option, EditStep::Replace{fields, values.at(1), values.at(2),
                                             option.kind == Option::Kind::Regex, !m_ignoresCase});
    case Option::Kind::Case:
        if (const auto kind = letterCase(values.at(1)))
            return add(option, EditStep::LetterCase{fields, *kind, QLocale::system()});
        error = tr("Valore non valido per %1: %2").arg(name, values.at(1));
        return;
    case Option::Kind::Swap: {
        const auto second = songfields::fromWord(values.at(1));
        if (second)
            return add(option, EditStep::Swap{fields.value(0), *second});
        error = tr("Valore non valido per %1: %2").arg(name, values.at(1));
        return;
    }
    case Option::Kind::Strip:
        return add(option, EditStep::Strip{fields, true});
    case Option::Kind::FromCsv:
        steps.append(EditStep(EditStep::FromList{CsvList::fromFile(first)}));
        return;
    case Option::Kind::Rename:
        newNames = first;
        const QString problem = NamePattern::problemOf(first, NamePattern::Use::MakeNames);
        if (!problem.isEmpty())
            error = QStringLiteral("%1: %2").arg(name, problem);
        return;
    }
}

void EditArguments::add(const Option &option, EditStep::What what)
{
    steps.append(EditStep(std::move(what)));
    const QString problem = steps.constLast().problem();
    if (!problem.isEmpty())
        error = QStringLiteral("%1: %2").arg(QString::fromUtf8(option.name), problem);
}

/** The fields that the text names, where it has to: several with commas, or "all" the texts. */
QList<EditStep::Field> EditArguments::fieldsOf(const Option &option, const QString &text)
{
    QList<EditStep::Field> fields;
    if (option.kind == Option::Kind::Pattern || option.kind == Option::Kind::FromCsv ||
        option.kind == Option::Kind::Rename)
        return fields;
    const bool takesSeveral =
        option.kind != Option::Kind::Value && option.kind != Option::Kind::Swap;
    if (takesSeveral && text == QLatin1String("all"))
        return songfields::texts();
    for (const QString &word : text.split(QLatin1Char(','))) {
        const auto field = songfields::fromWord(word);
        if (field && !fields.contains(*field))
            fields.append(*field);
        if (!field || (!takesSeveral && fields.size() > 1))
            error = tr("Valore non valido per %1: %2").arg(QString::fromUtf8(option.name), text);
    }
    return fields;
}
