#include "cli/jsonwriter.h"

#include "cli/givenpath.h"
#include "cli/standardoutput.h"
#include "devindex/songinfoindex.h"

#include <QByteArray>

namespace
{

/**
 * The text in quotes. Half of a character of two UTF-16 units is escaped, since no UTF-8 holds it,
 * and so are control characters.
 */
QByteArray quoted(const QString &text)
{
    QByteArray json("\"");
    const auto escape = [&json](QChar unit) {
        json += "\\u" + QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
    };
    for (qsizetype place = 0; place < text.size(); ++place) {
        const QChar unit = text.at(place);
        if (unit.isHighSurrogate() && place + 1 < text.size() &&
            text.at(place + 1).isLowSurrogate()) {
            json += QStringView(text).mid(place, 2).toUtf8();
            ++place;
        } else if (unit == QLatin1Char('"') || unit == QLatin1Char('\\')) {
            json += '\\';
            json += static_cast<char>(unit.unicode());
        } else if (unit.category() == QChar::Other_Control || unit.isSurrogate()) {
            escape(unit);
        } else if (unit.unicode() < 0x80) {
            json += static_cast<char>(unit.unicode());
        } else {
            json += QStringView(&unit, 1).toUtf8();
        }
    }
    return json + '"';
}

/** An object, member by member in the order given. */
class Object
{
public:
    Object &add(const char *name, const QString &text) { return raw(name, quoted(text)); }
    Object &add(const char *name, qint64 number) { return raw(name, QByteArray::number(number)); }
    Object &addDecimal(const char *name, double number)
    {
        constexpr int decimals = 3;
        return raw(name, QByteArray::number(number, 'f', decimals));
    }
    Object &addBool(const char *name, bool value) { return raw(name, value ? "true" : "false"); }

    Object &addList(const char *name, const QList<QByteArray> &items)
    {
        return raw(name, '[' + items.join(", ") + ']');
    }

    QByteArray json() const { return m_json + '}'; }

private:
    Object &raw(const char *name, const QByteArray &value)
    {
        m_json += (m_json.size() > 1 ? ", \"" : "\"") + QByteArray(name) + "\": " + value;
        return *this;
    }

    QByteArray m_json{"{"};
};

QList<QByteArray> markerObjects(const QList<Marker> &markers)
{
    QList<QByteArray> objects;
    for (const Marker &marker : markers)
        objects.append(Object().add("bar", marker.bar).add("text", marker.text).json());
    return objects;
}

/** Where there is only one catalogue, nothing is said about it. */
void addSource(Object &line, CatalogueSource source)
{
    if (source != CatalogueSource::Only)
        line.add("catalogue", source == CatalogueSource::Own ? QStringLiteral("own")
                                                             : QStringLiteral("built-in"));
}

/** The same in every language. */
QString valueOf(const ChangePreview::Change &change, const QString &text)
{
    if (change.field != ChangePreview::Field::MarkersShown)
        return text;
    return text == ChangePreview::tr("sì") ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

void JsonWriter::song(const QString &path, const SongInfo &info)
{
    m_output.write(Object()
                       .add("path", givenpath::shown(path))
                       .add("format", info.format)
                       .add("title", info.title)
                       .add("artist", info.artist)
                       .add("genre", info.genre)
                       .add("author", info.author)
                       .add("length", info.length)
                       .add("bpm", info.userBpm)
                       .add("key", info.key)
                       .addBool("signed", info.isKravo)
                       .addList("markers", markerObjects(info.markers))
                       .json() +
                   '\n');
}

void JsonWriter::unreadable(const QString &path, const QString &reason)
{
    m_output.write(Object().add("path", givenpath::shown(path)).add("error", reason).json() + '\n');
}

void JsonWriter::changes(const QString &path, bool found,
                         const QList<ChangePreview::Change> &changes, CatalogueSource source)
{
    QList<QByteArray> objects;
    for (const ChangePreview::Change &change : changes)
        objects.append(Object()
                           .add("field", QString::fromUtf8(fieldName(change.field)))
                           .add("old", valueOf(change, change.before))
                           .add("new", valueOf(change, change.after))
                           .json());
    Object line;
    line.add("path", givenpath::shown(path)).addBool("found", found).addList("changes", objects);
    if (found)
        addSource(line, source);
    m_output.write(line.json() + '\n');
}

void JsonWriter::renamed(const QString &path, const QString &newName)
{
    m_output.write(Object().add("path", givenpath::shown(path)).add("newName", newName).json() +
                   '\n');
}

void JsonWriter::tags(const Mp3Preparation &preparation, bool isWritten)
{
    const struct {
        TagTrouble trouble;
        const char *name;
    } troubleNames[] = {{TagTrouble::Encoding, "encoding"},
                        {TagTrouble::Version, "version"},
                        {TagTrouble::Unsynchronised, "unsynchronised"},
                        {TagTrouble::OnlyId3v1, "id3v1"},
                        {TagTrouble::OnlyApe, "ape"}};
    QList<QByteArray> troubles;
    for (const auto &known : troubleNames) {
        if (preparation.troubles().testFlag(known.trouble))
            troubles.append(quoted(QString::fromUtf8(known.name)));
    }
    QList<QByteArray> objects;
    for (const ChangePreview::Change &change :
         ChangePreview::changes(preparation.shown(), preparation.proposed()))
        objects.append(Object()
                           .add("field", QString::fromUtf8(fieldName(change.field)))
                           .add("old", change.before)
                           .add("new", change.after)
                           .json());
    QList<QByteArray> lost;
    for (const QString &frame : preparation.lostFrames())
        lost.append(quoted(frame));
    const SongInfo &said = preparation.said();
    m_output.write(Object()
                       .add("path", givenpath::shown(preparation.path()))
                       .addList("troubles", troubles)
                       .addList("changes", objects)
                       .add("title", said.title)
                       .add("artist", said.artist)
                       .add("genre", said.genre)
                       .add("author", said.author)
                       .addList("lostFrames", lost)
                       .addBool("written", isWritten)
                       .json() +
                   '\n');
}

void JsonWriter::measured(const QString &path, const SongMeasure &measure,
                          const QList<ChangePreview::Change> &written)
{
    QList<QByteArray> filled;
    for (const ChangePreview::Change &change : written)
        filled.append(quoted(QString::fromUtf8(fieldName(change.field))));
    m_output.write(Object()
                       .add("path", givenpath::shown(path))
                       .addDecimal("length", measure.length)
                       .add("bpm", measure.bpm)
                       .add("key", measure.key)
                       .addBool("guess", measure.isKeyGuessed)
                       .addList("markers", markerObjects(measure.markers))
                       .addList("filled", filled)
                       .json() +
                   '\n');
}

void JsonWriter::listed(const SongInfoIndex &song)
{
    m_output.write(Object()
                       .add("id", song.id)
                       .add("path", song.path)
                       .add("title", song.title)
                       .add("artist", knownText(song.artist))
                       .add("genre", knownText(song.genre))
                       .add("format", formatName(song))
                       .add("bpm", song.bpm)
                       .addBool("markers", song.hasMarkers != 0)
                       .json() +
                   '\n');
}

void JsonWriter::duplicate(int group, Same same, const MemorySong &song)
{
    m_output.write(Object()
                       .add("group", group)
                       .add("same", same == Same::Bytes ? QStringLiteral("bytes")
                                                        : QStringLiteral("title-and-artist"))
                       .add("path", song.info.path)
                       .add("title", song.info.title)
                       .add("artist", knownText(song.info.artist))
                       .add("bytes", song.size)
                       .json() +
                   '\n');
}

void JsonWriter::removed(const QString &path, const QString &reason)
{
    Object object;
    object.add("path", givenpath::shown(path)).addBool("removed", reason.isEmpty());
    if (!reason.isEmpty())
        object.add("error", reason);
    m_output.write(object.json() + '\n');
}

void JsonWriter::ejected(const QString &memory, bool isEjected, const QString &text)
{
    m_output.write(
        Object().add("memory", memory).addBool("ejected", isEjected).add("text", text).json() +
        '\n');
}

void JsonWriter::finding(const MemoryCheck::Finding &finding)
{
    m_output.write(Object()
                       .add("finding", QString::fromUtf8(CheckFinding::nameOf(finding.kind)))
                       .add("path", finding.path)
                       .add("text", finding.text)
                       .json() +
                   '\n');
}

void JsonWriter::planned(const TransferPlan::Item &item)
{
    const bool isRemoval = item.state == TransferPlan::State::Remove;
    const QString destination = item.destination();
    m_output.write(Object()
                       .add("path", givenpath::shown(item.path))
                       .add("target", destination.isEmpty() ? item.target : destination)
                       .add("state", QString::fromUtf8(stateName(item.state)))
                       .add("bytes", isRemoval ? item.room : qMax<qint64>(item.growth(), 0))
                       .json() +
                   '\n');
}

void JsonWriter::planSum(const TransferPlan &plan)
{
    m_output.write(Object()
                       .add("needed", plan.bytesNeeded())
                       .add("free", qMax<qint64>(plan.freeBytes, 0))
                       .add("songs", plan.songsAfter())
                       .json() +
                   '\n');
}

void JsonWriter::job(const HistoryJob &job, bool isTakenBack)
{
    Object line;
    line.add("job", job.number)
        .add("time", job.time.toUTC().toString(Qt::ISODate))
        .add("kind", QString::fromUtf8(kindName(job.kind)))
        .add("songs", job.songs)
        .addBool("takenBack", isTakenBack);
    if (job.takesBack != 0)
        line.add("takesBack", job.takesBack);
    m_output.write(line.json() + '\n');
}

void JsonWriter::takenBack(const QString &path, const QString &reason)
{
    Object line;
    line.add("path", path).addBool("takenBack", reason.isEmpty());
    if (!reason.isEmpty())
        line.add("error", reason);
    m_output.write(line.json() + '\n');
}

const char *JsonWriter::kindName(HistoryJob::Kind kind)
{
    switch (kind) {
    case HistoryJob::Kind::Synchronise:
        return "synchronise";
    case HistoryJob::Kind::Edit:
        return "edit";
    case HistoryJob::Kind::EditSeveral:
        return "edit-several";
    case HistoryJob::Kind::Tags:
        return "tags";
    case HistoryJob::Kind::Rename:
        return "rename";
    case HistoryJob::Kind::TakeBack:
        return "take-back";
    case HistoryJob::Kind::Measure:
        return "measure";
    }
    return "";
}

void JsonWriter::catalogueSong(const SongsDbRecord &song, CatalogueSource source)
{
    Object line;
    line.add("title", song.title)
        .add("artist", song.artist)
        .add("altartist", song.altartist)
        .add("genre", song.genre)
        .add("author", song.author)
        .add("length", qMax(song.length, 0))
        .add("bpm", qMax(song.bpm, 0))
        .add("key", song.key)
        .add("filename", song.filename)
        .addList("markers", markerObjects(song.markers));
    addSource(line, source);
    m_output.write(line.json() + '\n');
}

const char *JsonWriter::stateName(TransferPlan::State state)
{
    switch (state) {
    case TransferPlan::State::New:
        return "new";
    case TransferPlan::State::Same:
        return "same";
    case TransferPlan::State::Differs:
        return "differs";
    case TransferPlan::State::Renamed:
        return "renamed";
    case TransferPlan::State::Collides:
        return "collides";
    case TransferPlan::State::Unreadable:
        return "unreadable";
    case TransferPlan::State::TooLong:
        return "too-long";
    case TransferPlan::State::Remove:
        return "remove";
    }
    return "";
}

const char *JsonWriter::fieldName(ChangePreview::Field field)
{
    switch (field) {
    case ChangePreview::Field::Title:
        return "title";
    case ChangePreview::Field::Artist:
        return "artist";
    case ChangePreview::Field::Genre:
        return "genre";
    case ChangePreview::Field::Author:
        return "author";
    case ChangePreview::Field::Length:
        return "length";
    case ChangePreview::Field::Tempo:
        return "bpm";
    case ChangePreview::Field::Key:
        return "key";
    case ChangePreview::Field::Markers:
        return "markers";
    case ChangePreview::Field::MarkersShown:
        return "markersShown";
    }
    return "";
}
