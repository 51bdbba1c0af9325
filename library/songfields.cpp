#include "library/songfields.h"

#include "formats/metasong.h"
#include "library/songtable.h"

#include <algorithm>

namespace
{

struct FieldWord {
    songfields::Field field;
    QLatin1String word;
};

constexpr FieldWord fieldWords[] = {
    {songfields::Field::Title, QLatin1String("title")},
    {songfields::Field::Artist, QLatin1String("artist")},
    {songfields::Field::Genre, QLatin1String("genre")},
    {songfields::Field::Author, QLatin1String("author")},
    {songfields::Field::Length, QLatin1String("length")},
    {songfields::Field::Tempo, QLatin1String("bpm")},
    {songfields::Field::Key, QLatin1String("key")},
};

/** The record's text of a field whose values are any text; null for the other fields. */
QString *textItem(SongInfo &info, songfields::Field field)
{
    using Field = songfields::Field;
    switch (field) {
    case Field::Title:
        return &info.title;
    case Field::Artist:
        return &info.artist;
    case Field::Genre:
        return &info.genre;
    case Field::Author:
        return &info.author;
    default:
        return nullptr;
    }
}

/** A number of at most so many decimal digits, and nothing else. */
std::optional<qint32> digits(const QString &text, qsizetype most)
{
    const auto isDigit = [](QChar character) {
        return character >= QLatin1Char('0') && character <= QLatin1Char('9');
    };
    if (text.isEmpty() || text.size() > most || !std::all_of(text.cbegin(), text.cend(), isDigit))
        return std::nullopt;
    return text.toInt();
}

} // namespace

const QList<songfields::Field> &songfields::all()
{
    static const QList<Field> fields{Field::Title,  Field::Artist, Field::Genre, Field::Author,
                                     Field::Length, Field::Tempo,  Field::Key};
    return fields;
}

const QList<songfields::Field> &songfields::texts()
{
    static const QList<Field> fields{Field::Title, Field::Artist, Field::Genre, Field::Author};
    return fields;
}

QString songfields::text(const SongInfo &info, Field field)
{
    switch (field) {
    case Field::Title:
        return info.title;
    case Field::Artist:
        return info.artist;
    case Field::Genre:
        return info.genre;
    case Field::Author:
        return info.author;
    case Field::Length:
        return info.length > 0 ? SongTable::lengthText(info.length) : QString();
    case Field::Tempo:
        return info.userBpm > 0 ? QString::number(info.userBpm) : QString();
    case Field::Key:
        return info.key;
    default:
        return {};
    }
}

bool songfields::setText(SongInfo &info, Field field, const QString &text)
{
    const QString value = text.trimmed();
    if (QString *const item = textItem(info, field); item != nullptr) {
        *item = value;
        return true;
    }
    if (field == Field::Key) {
        const auto name = key(value);
        info.key = name.value_or(info.key);
        return name.has_value();
    }
    const auto number = value.isEmpty()          ? std::optional<qint32>(0)
                        : field == Field::Length ? length(value)
                                                 : tempo(value);
    if (field == Field::Length)
        info.length = number.value_or(info.length);
    else if (field == Field::Tempo)
        info.userBpm = number.value_or(info.userBpm);
    else
        return false;
    return number.has_value();
}

std::optional<songfields::Field> songfields::fromWord(const QString &word)
{
    for (const FieldWord &known : fieldWords) {
        if (word == known.word)
            return known.field;
    }
    return std::nullopt;
}

QString songfields::word(Field field)
{
    for (const FieldWord &known : fieldWords) {
        if (field == known.field)
            return known.word;
    }
    return {};
}

std::optional<QString> songfields::key(const QString &text)
{
    QString name = text;
    name.remove(QLatin1Char(' '));
    if (name.isEmpty() || MetaSong::getKeysList().contains(name))
        return name;
    return std::nullopt;
}

std::optional<qint32> songfields::tempo(const QString &text)
{
    return digits(text, 3);
}

std::optional<qint32> songfields::length(const QString &text)
{
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    const auto minutes = digits(text.left(colon), 2);
    const auto seconds = digits(text.mid(colon + 1), 2);
    if (colon < 0 || text.size() != colon + 3 || !minutes || !seconds || *seconds > 59)
        return std::nullopt;
    return *minutes * 60 + *seconds;
}
