#include "library/namepattern.h"

#include "formats/songnames.h"

#include <algorithm>
#include <vector>

namespace
{

bool isDigit(QChar character)
{
    return character >= QLatin1Char('0') && character <= QLatin1Char('9');
}

/** The last parts of the path, without the suffix of the last one. */
QString endOf(const QString &path, qsizetype folders)
{
    QString name = songnames::titleFromFileName(path);
    qsizetype slash = path.lastIndexOf(QLatin1Char('/'));
    for (qsizetype done = 0; done < folders && slash > 0; ++done) {
        const qsizetype before = path.lastIndexOf(QLatin1Char('/'), slash - 1);
        name.prepend(path.mid(before + 1, slash - before));
        slash = before;
    }
    return name;
}

} // namespace

/** A name that is being held against the pattern. */
struct NamePattern::Matching {
    QString name;
    QList<QStringView> texts;     ///< of the parts so far
    std::vector<bool> isHopeless; ///< by part and position: tried before, without success
};

/** The field that the text, which begins with "%", begins with; nothing for an unknown one. */
std::optional<NamePattern::Part> NamePattern::partAt(QStringView text)
{
    const auto end = std::find_if(text.cbegin() + 1, text.cend(), [](QChar character) {
        return character < QLatin1Char('a') || character > QLatin1Char('z');
    });
    const QString word = text.mid(1, end - text.cbegin() - 1).toString();
    Part part;
    if (word == QLatin1String("track"))
        part.kind = Part::Kind::Track;
    else if (word == QLatin1String("any"))
        part.kind = Part::Kind::Any;
    else if (word == QLatin1String("name"))
        part.kind = Part::Kind::Name;
    else if (const auto field = songfields::fromWord(word);
             field && *field != songfields::Field::Length) {
        part.kind = Part::Kind::Field;
        part.field = *field;
    } else {
        return std::nullopt;
    }
    part.literal = word; // its length tells where the pattern goes on
    return part;
}

/** What is wrong with the pattern; the parts are filled as far as they are right. */
QString NamePattern::takeApart(const QString &text, Use use, QList<Part> &parts)
{
    if (text.trimmed().isEmpty())
        return tr("il modello è vuoto");
    if (text.size() > maxLength)
        return tr("il modello supera %1 caratteri").arg(maxLength);
    for (qsizetype place = 0; place < text.size();) {
        const bool isPercent = text.at(place) == QLatin1Char('%');
        const bool isDouble = isPercent && text.mid(place + 1, 1) == QLatin1String("%");
        if (!isPercent || isDouble) {
            if (parts.isEmpty() || parts.constLast().kind != Part::Kind::Literal)
                parts.append(Part());
            parts.last().literal += text.at(place);
            place += isDouble ? 2 : 1;
            continue;
        }
        const std::optional<Part> part = partAt(QStringView(text).mid(place));
        if (!part)
            return tr("questo campo non c'è: %1")
                .arg(text.mid(place).section(QLatin1Char(' '), 0, 0));
        const bool isForOther = use == Use::ReadNames ? part->kind == Part::Kind::Name
                                                      : part->kind == Part::Kind::Track ||
                                                            part->kind == Part::Kind::Any;
        if (isForOther)
            return tr("qui questo campo non vale: %1").arg(QLatin1Char('%') + part->literal);
        if (use == Use::ReadNames && !parts.isEmpty() &&
            parts.constLast().kind != Part::Kind::Literal)
            return tr("tra due campi ci vuole un testo");
        const bool isTwice =
            use == Use::ReadNames && part->kind == Part::Kind::Field &&
            std::any_of(parts.cbegin(), parts.cend(), [&part](const Part &other) {
                return other.kind == Part::Kind::Field && other.field == part->field;
            });
        if (isTwice)
            return tr("il campo c'è due volte: %1").arg(QLatin1Char('%') + part->literal);
        parts.append(*part);
        place += 1 + part->literal.size();
    }
    const bool hasField = std::any_of(parts.cbegin(), parts.cend(), [use](const Part &part) {
        return use == Use::MakeNames ? part.kind != Part::Kind::Literal
                                     : part.kind == Part::Kind::Field;
    });
    if (!hasField)
        return tr("manca un campo, per esempio %1").arg(QStringLiteral("%title"));
    if (use == Use::MakeNames && text.contains(QLatin1Char('/')))
        return tr("un nome non può contenere \"/\"");
    return {};
}

QString NamePattern::problemOf(const QString &text, Use use)
{
    QList<Part> parts;
    return takeApart(text, use, parts);
}

std::optional<NamePattern> NamePattern::parse(const QString &text, Use use)
{
    NamePattern pattern;
    if (!takeApart(text, use, pattern.m_parts).isEmpty())
        return std::nullopt;
    pattern.m_folders = text.count(QLatin1Char('/'));
    return pattern;
}

QList<songfields::Field> NamePattern::fields() const
{
    QList<songfields::Field> fields;
    for (const Part &part : m_parts) {
        if (part.kind == Part::Kind::Field)
            fields.append(part.field);
    }
    return fields;
}

std::optional<NamePattern::Values> NamePattern::read(const QString &path) const
{
    Matching matching;
    matching.name = endOf(path, m_folders);
    matching.isHopeless.resize(static_cast<size_t>(m_parts.size() * (matching.name.size() + 1)));
    if (matching.name.count(QLatin1Char('/')) != m_folders || !match(matching, 0, 0))
        return std::nullopt;
    Values values;
    for (qsizetype i = 0; i < m_parts.size(); ++i) {
        if (m_parts.at(i).kind == Part::Kind::Field)
            values.insert(m_parts.at(i).field, matching.texts.at(i).trimmed().toString());
    }
    return values;
}

/**
 * True when the parts from this one on fit the name from the position on. No pair of the two is
 * tried twice, so that no pattern takes longer than the square of the name's length.
 */
bool NamePattern::match(Matching &matching, qsizetype part, qsizetype position) const
{
    const QStringView rest = QStringView(matching.name).mid(position);
    if (part == m_parts.size())
        return rest.isEmpty();
    const auto cell = static_cast<size_t>(part * (matching.name.size() + 1) + position);
    if (matching.isHopeless[cell])
        return false;
    const auto goOn = [&](qsizetype size) {
        matching.texts.append(rest.first(size));
        if (match(matching, part + 1, position + size))
            return true;
        matching.texts.removeLast();
        return false;
    };
    const Part &wanted = m_parts.at(part);
    bool fits = false;
    if (wanted.kind == Part::Kind::Literal) {
        fits = rest.startsWith(wanted.literal, Qt::CaseInsensitive) && goOn(wanted.literal.size());
    } else {
        for (qsizetype size = 1; size <= rest.size() && !fits; ++size) {
            const QChar last = rest.at(size - 1);
            const bool isTrack = wanted.kind == Part::Kind::Track;
            if (last == QLatin1Char('/') || (isTrack && !isDigit(last)))
                break;
            const bool isBlank =
                wanted.kind == Part::Kind::Field && rest.first(size).trimmed().isEmpty();
            fits = !isBlank && goOn(size);
        }
    }
    if (!fits)
        matching.isHopeless[cell] = true;
    return fits;
}

std::optional<QString> NamePattern::make(const SongInfo &info, const QString &path) const
{
    QString name;
    for (const Part &part : m_parts) {
        QString text = part.literal;
        if (part.kind == Part::Kind::Field)
            text = songfields::text(info, part.field).trimmed();
        else if (part.kind == Part::Kind::Name)
            text = songnames::titleFromFileName(path);
        if (text.isEmpty())
            return std::nullopt;
        name += text;
    }
    return name;
}
