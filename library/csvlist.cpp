#include "library/csvlist.h"

#include <QFile>
#include <QFileInfo>
#include <QStringConverter>
#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace
{

using Field = songfields::Field;

struct ColumnName {
    QLatin1String name; ///< in lower case
    std::optional<Field> field;
};

/** What a first line can call the columns; without a field it is the one of the file names. */
const std::array columnNames{
    ColumnName{QLatin1String("titolo"), Field::Title},
    ColumnName{QLatin1String("title"), Field::Title},
    ColumnName{QLatin1String("titel"), Field::Title},
    ColumnName{QLatin1String("artista"), Field::Artist},
    ColumnName{QLatin1String("artist"), Field::Artist},
    ColumnName{QLatin1String("interprete"), Field::Artist},
    ColumnName{QLatin1String("interpret"), Field::Artist},
    ColumnName{QLatin1String("genere"), Field::Genre},
    ColumnName{QLatin1String("genere musicale"), Field::Genre},
    ColumnName{QLatin1String("genre"), Field::Genre},
    ColumnName{QLatin1String("musikrichtung"), Field::Genre},
    ColumnName{QLatin1String("autore"), Field::Author},
    ColumnName{QLatin1String("author"), Field::Author},
    ColumnName{QLatin1String("composer"), Field::Author},
    ColumnName{QLatin1String("autor"), Field::Author},
    ColumnName{QLatin1String("komponist"), Field::Author},
    ColumnName{QLatin1String("durata"), Field::Length},
    ColumnName{QLatin1String("length"), Field::Length},
    ColumnName{QLatin1String("dauer"), Field::Length},
    ColumnName{QLatin1String("bpm"), Field::Tempo},
    ColumnName{QLatin1String("tempo"), Field::Tempo},
    ColumnName{QLatin1String("tonalita"), Field::Key},
    ColumnName{QLatin1String("tonalita'"), Field::Key},
    ColumnName{QLatin1String("key"), Field::Key},
    ColumnName{QLatin1String("tonart"), Field::Key},
    ColumnName{QLatin1String("file"), std::nullopt},
    ColumnName{QLatin1String("datei"), std::nullopt},
    ColumnName{QLatin1String("nome file"), std::nullopt},
    ColumnName{QLatin1String("file name"), std::nullopt},
    ColumnName{QLatin1String("filename"), std::nullopt},
    ColumnName{QLatin1String("dateiname"), std::nullopt},
    ColumnName{QLatin1String("path"), std::nullopt},
};

QString decoded(const QByteArray &bytes)
{
    const auto marked = QStringConverter::encodingForData(bytes);
    if (marked && *marked != QStringConverter::Utf32 && *marked != QStringConverter::Utf32BE &&
        *marked != QStringConverter::Utf32LE)
        return QStringDecoder(*marked)(bytes);
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QString text = decoder(bytes);
    return decoder.hasError() ? QString::fromLatin1(bytes) : text;
}

/** The separator that the first line has most of, those in quotes not counted. */
QChar separatorOf(const QString &text)
{
    constexpr std::array candidates{QLatin1Char(';'), QLatin1Char(','), QLatin1Char('\t')};
    std::array<int, candidates.size()> counts{};
    bool isQuoted = false;
    for (const QChar character : text) {
        if (character == QLatin1Char('"'))
            isQuoted = !isQuoted;
        if (!isQuoted && (character == QLatin1Char('\n') || character == QLatin1Char('\r')))
            break;
        for (size_t i = 0; i < candidates.size() && !isQuoted; ++i)
            counts[i] += character == candidates[i] ? 1 : 0;
    }
    return candidates[static_cast<size_t>(std::max_element(counts.cbegin(), counts.cend()) -
                                          counts.cbegin())];
}

/** The name without an accent on its last letter, as a first line may have it. */
QString columnKey(const QString &cell)
{
    return cell.toLower().replace(QChar(0xE0), QLatin1Char('a'));
}

/** What the cell of a first line calls; null for a column that is not read. */
const ColumnName *columnNamed(const QString &cell)
{
    const QString key = columnKey(cell);
    const auto *const known =
        std::find_if(columnNames.cbegin(), columnNames.cend(),
                     [&key](const ColumnName &name) { return key == name.name; });
    return known == columnNames.cend() ? nullptr : known;
}

/** True for the list that the memory's window saves: its texts stand there as they are. */
bool isOurOwn(const QString &text)
{
    constexpr std::array<std::optional<Field>, 4> own{Field::Title, Field::Artist, Field::Genre,
                                                      std::nullopt};
    const auto isBreak = [](QChar character) {
        return character == QLatin1Char('\n') || character == QLatin1Char('\r');
    };
    const auto *const begin = std::find_if_not(text.cbegin(), text.cend(), isBreak);
    const auto *const end = std::find_if(begin, text.cend(), isBreak);
    const QStringList cells =
        text.mid(begin - text.cbegin(), std::min<qsizetype>(end - begin, CsvList::maxCell))
            .split(QLatin1Char(';'));
    if (cells.size() != static_cast<qsizetype>(own.size()) + 1 || !cells.constLast().isEmpty())
        return false;
    for (size_t i = 0; i < own.size(); ++i) {
        const ColumnName *const name = columnNamed(cells.at(static_cast<qsizetype>(i)));
        if (!name || name->field != own[i])
            return false;
    }
    return true;
}

/** Splits the text into lines of cells, up to a limit. */
class Splitter
{
public:
    explicit Splitter(const QString &text)
        : m_text(text)
        , m_separator(separatorOf(text))
        , m_mayQuote(!isOurOwn(text))
    {
    }

    /** False when a limit is passed, or when quotes do not enclose a whole cell. */
    bool run()
    {
        for (; m_place < m_text.size(); ++m_place) {
            if (!take(m_text.at(m_place)))
                return false;
        }
        return endLine() && !m_isQuoted;
    }

    QList<QStringList> lines;

private:
    bool take(QChar character)
    {
        const QChar quote = QLatin1Char('"');
        if (m_isQuoted && character == quote && next() == quote) {
            ++m_place;
            return add(quote);
        }
        if (m_isQuoted && character == quote) {
            m_isQuoted = false;
            m_wasQuoted = true;
            return true;
        }
        if (m_isQuoted)
            return add(character);
        // A quote in the middle of a cell is one: not every program quotes.
        if (character == quote && m_mayQuote && m_cell.isEmpty() && !m_wasQuoted) {
            m_isQuoted = true;
            return true;
        }
        if (character == m_separator)
            return endCell();
        if (character == QLatin1Char('\n') || character == QLatin1Char('\r'))
            return endLine();
        // Then the first quote was a character, and what follows it belongs to other cells or rows.
        if (m_wasQuoted)
            return character == QLatin1Char(' ');
        return add(character);
    }

    QChar next() const { return m_place + 1 < m_text.size() ? m_text.at(m_place + 1) : QChar(); }

    bool add(QChar character)
    {
        m_cell += character;
        return m_cell.size() <= CsvList::maxCell;
    }

    bool endCell()
    {
        m_line.append(m_cell.trimmed());
        m_cell.clear();
        m_wasQuoted = false;
        return m_line.size() <= CsvList::maxColumns;
    }

    bool endLine()
    {
        if (m_line.isEmpty() && m_cell.trimmed().isEmpty()) {
            m_cell.clear();
            m_wasQuoted = false;
            return true; // an empty one, or the second half of a line break
        }
        if (!endCell() || lines.size() > CsvList::maxRows)
            return false;
        lines.append(m_line);
        m_line.clear();
        return true;
    }

    const QString &m_text;
    const QChar m_separator;
    const bool m_mayQuote;
    qsizetype m_place = 0;
    bool m_isQuoted = false;
    bool m_wasQuoted = false; ///< the cell stood in quotes, which have been closed
    QString m_cell;
    QStringList m_line;
};

QString nameKeyOf(const QString &path)
{
    return path.section(QLatin1Char('/'), -1)
        .normalized(QString::NormalizationForm_C)
        .toCaseFolded();
}

/** True when the parts of the first path are the last ones of the second. */
bool isEndOf(const QString &end, const QString &path)
{
    const QString whole = end.startsWith(QLatin1Char('/')) ? end : QLatin1Char('/') + end;
    return (QLatin1Char('/') + path)
        .normalized(QString::NormalizationForm_C)
        .endsWith(whole.normalized(QString::NormalizationForm_C), Qt::CaseInsensitive);
}

} // namespace

CsvList::Read CsvList::fromBytes(const QByteArray &bytes)
{
    Read read;
    if (bytes.size() > maxBytes) {
        read.problem = tr("l'elenco è troppo grande");
        return read;
    }
    const QString text = decoded(bytes);
    Splitter splitter(text);
    read.problem = splitter.run() ? read.list.addRows(splitter.lines)
                                  : tr("l'elenco è troppo grande o danneggiato");
    if (!read.problem.isEmpty())
        read.list = CsvList();
    return read;
}

CsvList::Read CsvList::fromFile(const QString &path)
{
    Read read;
    QFile file(path);
    // Nobody waits for the other end of a pipe.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        read.problem = tr("l'elenco non è leggibile");
        return read;
    }
    const QByteArray bytes = file.read(maxBytes + 1);
    if (file.error() == QFileDevice::NoError)
        return fromBytes(bytes);
    read.problem = tr("l'elenco non è leggibile");
    return read;
}

/** Why the lines are no list of songs; empty when they are one. */
QString CsvList::addRows(const QList<QStringList> &lines)
{
    if (lines.isEmpty())
        return tr("l'elenco è vuoto");
    const QStringList &names = lines.constFirst();
    QHash<Field, qsizetype> columns;
    qsizetype fileColumn = -1;
    for (qsizetype column = 0; column < names.size(); ++column) {
        const ColumnName *const known = columnNamed(names.at(column));
        if (!known)
            continue;
        if (!known->field)
            fileColumn = fileColumn < 0 ? column : fileColumn;
        else if (!columns.contains(*known->field))
            columns.insert(*known->field, column);
    }
    if (fileColumn < 0)
        return tr("all'elenco manca la colonna con i nomi dei file");
    if (columns.isEmpty())
        return tr("l'elenco non ha colonne con dati di song");
    for (const Field field : songfields::all()) {
        if (columns.contains(field))
            m_fields.append(field);
    }
    // Behind a ";" in a text of our own list the cells are one too far to the right: such a row
    // cannot be told from a right one with certainty, so it is left out.
    const qsizetype most = names.size();
    for (const QStringList &cells : lines.mid(1)) {
        const bool isTooLong = cells.size() > most && !cells.mid(most).join(QString()).isEmpty();
        const bool isShifted =
            names.constLast().isEmpty() && cells.size() >= most && !cells.at(most - 1).isEmpty();
        if (cells.size() <= fileColumn || isTooLong || isShifted || cells.at(fileColumn).isEmpty())
            continue;
        Row row;
        row.path = cells.at(fileColumn);
        row.path.replace(QLatin1Char('\\'), QLatin1Char('/'));
        for (const Field field : std::as_const(m_fields)) {
            const QString cell = cells.value(columns.value(field));
            if (!cell.isEmpty())
                row.values.insert(field, cell);
        }
        m_byName.insert(nameKeyOf(row.path), static_cast<int>(m_rows.size()));
        m_rows.append(row);
    }
    return {};
}

CsvList::Found CsvList::find(const QString &path) const
{
    QList<int> found = m_byName.values(nameKeyOf(path));
    if (found.size() > 1) {
        QList<int> ends;
        for (const int row : std::as_const(found)) {
            const QString &given = m_rows.at(row).path;
            if (given.contains(QLatin1Char('/')) && isEndOf(given, path))
                ends.append(row);
        }
        if (!ends.isEmpty())
            found = ends;
    }
    if (found.isEmpty())
        return {};
    const Values &first = m_rows.at(found.constFirst()).values;
    const bool isOne = std::all_of(found.cbegin(), found.cend(),
                                   [&](int row) { return m_rows.at(row).values == first; });
    return isOne ? Found{Found::Result::Row, first} : Found{Found::Result::Ambiguous};
}
