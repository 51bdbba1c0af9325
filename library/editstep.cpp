#include "library/editstep.h"

#include <algorithm>
#include <array>
#include <utility>

namespace
{

/**
 * The matcher gives up after so many steps on one text, some milliseconds: there are expressions
 * that would keep it busy for years. The settings stand in front of the user's expression.
 */
constexpr char matchLimits[] = "(*LIMIT_MATCH=20000)(*LIMIT_DEPTH=2000)";

constexpr qsizetype maxExpression = 500; ///< characters

QString capitalised(const QString &text, const QLocale &locale)
{
    if (text.isEmpty())
        return text;
    const qsizetype first = text.at(0).isHighSurrogate() ? 2 : 1;
    return locale.toUpper(text.left(first)) + text.mid(first);
}

/** In Italian and French a word can begin behind an apostrophe: "L'Amore"; elsewhere "Don't". */
bool beginsBehindApostrophe(const QLocale &locale)
{
    return locale.language() == QLocale::Italian || locale.language() == QLocale::French;
}

bool isApostrophe(QChar character)
{
    return character == QLatin1Char('\'') || character == QChar(0x2019);
}

QString inTitleCase(const QString &text, const QLocale &locale)
{
    const QString lower = locale.toLower(text);
    QString result;
    qsizetype wordStart = -1;
    for (qsizetype i = 0; i <= lower.size(); ++i) {
        const QChar unit = i < lower.size() ? lower.at(i) : QChar(QLatin1Char(' '));
        const bool isInner =
            wordStart >= 0 && isApostrophe(unit) && !beginsBehindApostrophe(locale);
        const bool isWord =
            unit.isLetterOrNumber() || unit.isMark() || unit.isSurrogate() || isInner;
        if (isWord && wordStart < 0)
            wordStart = i;
        if (isWord)
            continue;
        if (wordStart >= 0)
            result += capitalised(lower.mid(wordStart, i - wordStart), locale);
        wordStart = -1;
        if (i < lower.size())
            result += unit;
    }
    return result;
}

/** The text with the captured groups in place of "\\1" to "\\9". */
QString replacement(const QString &text, const QRegularExpressionMatch &match)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const int group = text.at(i) == QLatin1Char('\\') && i + 1 < text.size()
                              ? text.at(i + 1).unicode() - '0'
                              : 0;
        const bool isGroup = group >= 1 && group <= 9;
        result += isGroup ? match.captured(group) : QString(text.at(i));
        i += isGroup ? 1 : 0;
    }
    return result;
}

QString inCase(const QString &text, const EditStep::LetterCase &step)
{
    switch (step.kind) {
    case EditStep::LetterCase::Kind::Title:
        return inTitleCase(text, step.locale);
    case EditStep::LetterCase::Kind::Upper:
        return step.locale.toUpper(text);
    case EditStep::LetterCase::Kind::Lower:
        return step.locale.toLower(text);
    case EditStep::LetterCase::Kind::FirstLetter:
        return capitalised(step.locale.toLower(text), step.locale);
    }
    return text;
}

} // namespace

EditStep::EditStep(What what)
    : m_what(std::make_shared<const What>(std::move(what)))
{
    std::visit([this](const auto &step) { prepare(step); }, *m_what);
}

EditStep::Result EditStep::apply(SongInfo &info, const QString &path) const
{
    if (!m_problem.isEmpty())
        return {};
    return std::visit([&](const auto &step) { return run(step, info, path); }, *m_what);
}

void EditStep::prepare(const Value &value)
{
    SongInfo info;
    if (value.text.size() > maxText)
        m_problem = tr("il testo supera %1 caratteri").arg(maxText);
    else if (!songfields::setText(info, value.field, value.text))
        m_problem = tr("valore non valido per %1: %2")
                        .arg(ChangePreview::fieldName(value.field), value.text);
}

void EditStep::prepare(const FromName &step)
{
    m_problem = NamePattern::problemOf(step.pattern, NamePattern::Use::ReadNames);
    m_pattern = NamePattern::parse(step.pattern, NamePattern::Use::ReadNames);
}

void EditStep::prepare(const Replace &step)
{
    if (step.fields.isEmpty())
        m_problem = tr("non è scelto nessun campo");
    else if (step.from.isEmpty())
        m_problem = tr("manca il testo da cercare");
    else if (step.from.size() > maxExpression || step.to.size() > maxExpression)
        m_problem = tr("il testo supera %1 caratteri").arg(maxExpression);
    if (!m_problem.isEmpty() || !step.isRegex)
        return;
    m_expression.setPattern(QLatin1String(matchLimits) + step.from);
    m_expression.setPatternOptions(QRegularExpression::UseUnicodePropertiesOption |
                                   (step.heedsCase ? QRegularExpression::NoPatternOption
                                                   : QRegularExpression::CaseInsensitiveOption));
    if (!m_expression.isValid())
        m_problem = tr("l'espressione non è valida: %1").arg(m_expression.errorString());
}

void EditStep::prepare(const LetterCase &step)
{
    if (step.fields.isEmpty())
        m_problem = tr("non è scelto nessun campo");
}

void EditStep::prepare(const Swap &step)
{
    if (step.first == step.second)
        m_problem = tr("i due campi sono lo stesso");
}

void EditStep::prepare(const Strip &step)
{
    if (step.fields.isEmpty())
        m_problem = tr("non è scelto nessun campo");
}

void EditStep::prepare(const FromList &step)
{
    m_problem = step.list.problem;
}

EditStep::Result EditStep::run(const Value &value, SongInfo &info, const QString &) const
{
    songfields::setText(info, value.field, value.text);
    return {};
}

EditStep::Result EditStep::run(const FromName &, SongInfo &info, const QString &path) const
{
    const std::optional<NamePattern::Values> values = m_pattern->read(path);
    if (!values)
        return {Outcome::DoesNotFit, tr("il nome non corrisponde al modello")};
    SongInfo changed = info;
    for (auto value = values->cbegin(); value != values->cend(); ++value) {
        if (!songfields::setText(changed, value.key(), value.value()))
            return {Outcome::DoesNotFit,
                    tr("valore non valido per %1: %2")
                        .arg(ChangePreview::fieldName(value.key()), value.value())};
    }
    info = changed;
    return {};
}

/** False when the expression takes too long. */
bool EditStep::replaceIn(QString &text, const Replace &step) const
{
    if (!step.isRegex) {
        text.replace(step.from, step.to, step.heedsCase ? Qt::CaseSensitive : Qt::CaseInsensitive);
        return true;
    }
    // QString::replace() would stop where the matcher gives up, as if nothing more were found.
    QString result;
    qsizetype place = 0;
    while (place <= text.size() && result.size() <= maxText) {
        const QRegularExpressionMatch match = m_expression.match(text, place);
        if (!match.isValid())
            return false;
        if (!match.hasMatch())
            break;
        result += QStringView(text).mid(place, match.capturedStart() - place);
        result += replacement(step.to, match);
        place = match.capturedEnd();
        if (match.capturedLength() > 0)
            continue;
        const qsizetype character = place < text.size() && text.at(place).isHighSurrogate() ? 2 : 1;
        result += QStringView(text).mid(place, character);
        place += character;
    }
    text = result + text.mid(std::min(place, text.size()));
    return true;
}

EditStep::Result EditStep::run(const Replace &step, SongInfo &info, const QString &) const
{
    SongInfo changed = info;
    for (const Field field : step.fields) {
        QString text = songfields::text(info, field);
        const QString before = text;
        if (text.size() > maxText)
            return {Outcome::DoesNotFit, tr("il testo supera %1 caratteri").arg(maxText)};
        if (!replaceIn(text, step))
            return {Outcome::TooHard, tr("l'espressione è troppo complessa")};
        if (text == before)
            continue;
        if (text.size() > maxText)
            return {Outcome::DoesNotFit, tr("il testo supera %1 caratteri").arg(maxText)};
        if (!songfields::setText(changed, field, text))
            return {Outcome::DoesNotFit,
                    tr("valore non valido per %1: %2").arg(ChangePreview::fieldName(field), text)};
    }
    info = changed;
    return {};
}

EditStep::Result EditStep::run(const LetterCase &step, SongInfo &info, const QString &) const
{
    for (const Field field : step.fields) {
        if (songfields::texts().contains(field))
            songfields::setText(info, field, inCase(songfields::text(info, field), step));
    }
    return {};
}

EditStep::Result EditStep::run(const Swap &step, SongInfo &info, const QString &) const
{
    SongInfo changed = info;
    const std::array exchanges{std::pair(step.first, step.second),
                               std::pair(step.second, step.first)};
    for (const auto &[to, from] : exchanges) {
        const QString text = songfields::text(info, from);
        if (!songfields::setText(changed, to, text))
            return {Outcome::DoesNotFit,
                    tr("valore non valido per %1: %2").arg(ChangePreview::fieldName(to), text)};
    }
    info = changed;
    return {};
}

EditStep::Result EditStep::run(const Strip &step, SongInfo &info, const QString &) const
{
    for (const Field field : step.fields) {
        if (!songfields::texts().contains(field))
            continue;
        QString text = songfields::text(info, field);
        if (step.underscores)
            text.replace(QLatin1Char('_'), QLatin1Char(' '));
        songfields::setText(info, field, text.simplified());
    }
    return {};
}

EditStep::Result EditStep::run(const FromList &step, SongInfo &info, const QString &path) const
{
    const CsvList::Found found = step.list.list.find(path);
    if (found.result == CsvList::Found::Result::Missing)
        return {Outcome::DoesNotFit, tr("l'elenco non ha questo file")};
    if (found.result == CsvList::Found::Result::Ambiguous)
        return {Outcome::DoesNotFit, tr("l'elenco ha questo file più volte, con dati diversi")};
    SongInfo changed = info;
    for (auto value = found.values.cbegin(); value != found.values.cend(); ++value) {
        if (!songfields::setText(changed, value.key(), value.value()))
            return {Outcome::DoesNotFit,
                    tr("valore non valido per %1: %2")
                        .arg(ChangePreview::fieldName(value.key()), value.value())};
    }
    info = changed;
    return {};
}
