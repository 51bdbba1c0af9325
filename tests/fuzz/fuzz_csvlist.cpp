// Any bytes as a list of songs, any text as a pattern and as an expression over a file's name.
#include "fuzzing.h"
#include "library/editstep.h"

namespace
{

void requireBounded(const CsvList &list)
{
    FUZZ_REQUIRE(list.rows() <= CsvList::maxRows);
    for (const char *name : {"/m/a.mid", "a", ""}) {
        const CsvList::Found found = list.find(QString::fromUtf8(name));
        for (const QString &value : found.values)
            FUZZ_REQUIRE(!value.isEmpty() && value.size() <= CsvList::maxCell);
    }
}

void requireFields(const QString &pattern, const QString &path)
{
    const auto parsed = NamePattern::parse(pattern, NamePattern::Use::ReadNames);
    FUZZ_REQUIRE(parsed.has_value() ==
                 NamePattern::problemOf(pattern, NamePattern::Use::ReadNames).isEmpty());
    const auto values = parsed ? parsed->read(path) : std::nullopt;
    if (!values)
        return;
    FUZZ_REQUIRE(values->size() == parsed->fields().size());
    for (const QString &value : *values)
        FUZZ_REQUIRE(!value.isEmpty() && path.contains(value));
}

void requireShortTexts(const QString &expression, const QString &to, const QString &title)
{
    const EditStep step(EditStep::Replace{{EditStep::Field::Title}, expression, to, true, false});
    SongInfo info;
    info.title = title;
    const bool isDone = step.apply(info, QString()).outcome == EditStep::Outcome::Done;
    FUZZ_REQUIRE(info.title == title || (isDone && info.title.size() <= EditStep::maxText));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzing::Input input(data, size);
    const QString first = input.text();
    const QString second = input.text();
    const QString third = input.text();
    requireFields(first, QLatin1Char('/') + second);
    requireShortTexts(first, second, third);
    const CsvList::Read read = CsvList::fromBytes(input.rest());
    FUZZ_REQUIRE(read.problem.isEmpty() || read.list.rows() == 0);
    requireBounded(read.list);
    return 0;
}
