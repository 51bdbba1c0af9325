#include "library/cataloguetsv.h"

#include "library/markertexts.h"
#include "library/owncatalogue.h"

#include <QHash>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <optional>

namespace
{

constexpr char tsvByteOrderMark[] = "\xEF\xBB\xBF";

/** In the order of the catalogue's table. */
struct Cell {
    enum Number {
        Title,
        Artist,
        Genre,
        Author,
        Length,
        Bpm,
        Key,
        FileName,
        Markers,
        AltArtist,
        Count
    };
};

const std::array<QLatin1String, Cell::Count> cellNames{
    QLatin1String("title"),    QLatin1String("artist"),   QLatin1String("genre"),
    QLatin1String("author"),   QLatin1String("length"),   QLatin1String("bpm"),
    QLatin1String("key"),      QLatin1String("filename"), QLatin1String("markers"),
    QLatin1String("altartist")};

static_assert(Cell::Count == CatalogueTsv::columns);

using Places = std::array<qsizetype, CatalogueTsv::columns>; ///< where each cell stands in a line

QString lineText(const QByteArray &line)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(line);
    return decoder.hasError() ? QString::fromLatin1(line) : text;
}

QString escaped(QString text)
{
    return text.replace(QLatin1String("\\"), QLatin1String("\\\\"))
        .replace(QLatin1Char('\t'), QLatin1String("\\t"))
        .replace(QLatin1Char('\n'), QLatin1String("\\n"))
        .replace(QLatin1Char('\r'), QLatin1String("\\r"));
}

QString unescaped(const QString &text)
{
    QString plain;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const QChar next = place + 1 < text.size() ? text.at(place + 1) : QChar();
        const bool isEscape = text.at(place) == QLatin1Char('\\');
        const QString letters = QStringLiteral("tnr\\");
        const qsizetype letter = isEscape && !next.isNull() ? letters.indexOf(next) : -1;
        plain += letter < 0 ? text.at(place) : QChar(QLatin1Char("\t\n\r\\"[letter]));
        place += letter < 0 ? 0 : 1;
    }
    return plain;
}

/** The places that a line of names gives; nothing for a line that is none. */
std::optional<Places> placesOf(const QStringList &cells)
{
    Places places{};
    for (std::size_t cell = 0; cell < cellNames.size(); ++cell) {
        places[cell] = cells.indexOf(QString(cellNames[cell]));
        if (places[cell] < 0)
            return std::nullopt;
    }
    return places;
}

/** The table of the built-in catalogue has this word where a song has no value. */
QString noValue(const QString &cell)
{
    return cell == QLatin1String("NULL") ? QString() : cell;
}

/** An empty cell is no number; nothing for one that is not empty and no number either. */
std::optional<qint32> numberIn(const QString &cell)
{
    const QString text = cell.trimmed();
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (text.isEmpty() || text == QLatin1String("NULL"))
        return -1;
    return isNumber && number >= -1 ? std::optional<qint32>(number) : std::nullopt;
}

} // namespace

/** Reads the cells of a line; why they are no entry, or empty. */
QString CatalogueTsv::read(const QStringList &cells, const std::array<qsizetype, columns> &places,
                           SongsDbRecord &entry)
{
    if (cells.size() <= *std::max_element(places.cbegin(), places.cend()))
        return tr("mancano delle colonne");
    const auto cell = [&](Cell::Number number) {
        return unescaped(cells.at(places[number])).trimmed();
    };
    const std::optional<qint32> length = numberIn(cell(Cell::Length));
    const std::optional<qint32> bpm = numberIn(cell(Cell::Bpm));
    if (!length || !bpm)
        return tr("durata e tempo devono essere numeri");
    if (*length > OwnCatalogue::longestSong || *bpm > OwnCatalogue::fastestTempo)
        return tr("la durata va fino a 5999 secondi, il tempo fino a 999");
    const std::optional<QString> key = OwnCatalogue::key(noValue(cell(Cell::Key)));
    if (!key)
        return tr("la tonalità non esiste");
    entry.title = cell(Cell::Title);
    entry.artist = cell(Cell::Artist);
    entry.altartist = cell(Cell::AltArtist);
    entry.genre = cell(Cell::Genre);
    entry.author = cell(Cell::Author);
    entry.length = *length;
    entry.bpm = *bpm;
    entry.key = *key;
    entry.filename = cell(Cell::FileName).toUpper();
    const QString markers = unescaped(cells.at(places[Cell::Markers]));
    entry.markers = markertexts::fromText(noValue(markers));
    if (entry.markers.isEmpty() && !noValue(markers).trimmed().isEmpty())
        return tr("i marker non sono scritti nella forma battuta;testo;");
    if (!OwnCatalogue::isValid(entry))
        return tr("mancano il titolo o il nome del file, o un testo è troppo lungo");
    return {};
}

CatalogueTsv CatalogueTsv::parse(const QByteArray &bytes)
{
    CatalogueTsv table;
    QHash<QString, qsizetype> known;
    Places places{};
    for (std::size_t cell = 0; cell < places.size(); ++cell)
        places[cell] = static_cast<qsizetype>(cell);
    qsizetype start =
        bytes.startsWith(tsvByteOrderMark) ? qsizetype(sizeof tsvByteOrderMark) - 1 : 0;
    for (int number = 1; start < bytes.size() && table.problems.size() < mostProblems; ++number) {
        const qsizetype end =
            std::min(bytes.size(),
                     static_cast<qsizetype>(std::find(bytes.cbegin() + start, bytes.cend(), '\n') -
                                            bytes.cbegin()));
        QByteArray line = bytes.mid(start, std::min(end - start, longestLine + 1));
        start = end + 1;
        if (line.endsWith('\r'))
            line.chop(1);
        if (line.trimmed().isEmpty())
            continue;
        const auto refuse = [&table, number](const QString &reason) {
            table.problems.append(tr("riga %1: %2").arg(number).arg(reason));
        };
        if (line.size() > longestLine || line.contains('\0')) {
            refuse(tr("non è testo"));
            continue;
        }
        const QStringList cells = lineText(line).split(QLatin1Char('\t'));
        if (number == 1) {
            if (const auto named = placesOf(cells)) {
                places = *named;
                continue;
            }
        }
        SongsDbRecord entry;
        const QString wrong = read(cells, places, entry);
        if (!wrong.isEmpty()) {
            refuse(wrong);
            continue;
        }
        if (known.contains(entry.filename)) {
            table.entries[known.value(entry.filename)] = entry;
            continue;
        }
        if (table.entries.size() == OwnCatalogue::mostEntries) {
            refuse(tr("ci sono troppe voci"));
            break;
        }
        known.insert(entry.filename, table.entries.size());
        table.entries.append(entry);
    }
    return table;
}

QByteArray CatalogueTsv::text(const QList<SongsDbRecord> &entries)
{
    QStringList names;
    for (const QLatin1String name : cellNames)
        names.append(QString(name));
    const QLatin1Char tab('\t');
    QByteArray text = names.join(tab).toUtf8() + '\n';
    const auto number = [](qint32 value) { return value < 0 ? QString() : QString::number(value); };
    for (const SongsDbRecord &entry : entries)
        text += QStringList{escaped(entry.title),
                            escaped(entry.artist),
                            escaped(entry.genre),
                            escaped(entry.author),
                            number(entry.length),
                            number(entry.bpm),
                            escaped(entry.key),
                            escaped(entry.filename),
                            escaped(markertexts::toText(entry.markers)),
                            escaped(entry.altartist)}
                    .join(tab)
                    .toUtf8() +
                '\n';
    return text;
}
