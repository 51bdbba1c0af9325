#include "cli/peoplewriter.h"

#include "cli/shownname.h"
#include "cli/standardoutput.h"
#include "devindex/indexrecords.h"
#include "devindex/sizetext.h"
#include "library/songtable.h"

namespace
{

constexpr int labelWidth = 13;
constexpr int idWidth = 6;
constexpr int formatWidth = 4;

} // namespace

void PeopleWriter::song(const QString &path, const SongInfo &info)
{
    line(path);
    item(tr("Formato"), info.format);
    item(tr("Titolo"), info.title);
    item(tr("Interprete"), info.artist);
    item(tr("Genere"), info.genre);
    item(tr("Autore"), info.author);
    item(tr("Durata"), info.length > 0 ? SongTable::lengthText(info.length) : QString());
    number(tr("BPM"), info.userBpm);
    item(tr("Tonalità"), info.key);
    item(tr("Firma"), info.isKravo ? tr("sì") : tr("no"));
    markers(info.markers);
    line({});
}

void PeopleWriter::unreadable(const QString &, const QString &) {}

void PeopleWriter::changes(const QString &path, bool found,
                           const QList<ChangePreview::Change> &changes)
{
    if (!found)
        line(tr("%1: non è nel catalogo").arg(path));
    else if (changes.isEmpty())
        line(tr("%1: nessuna modifica").arg(path));
    else
        line(path);
    for (const ChangePreview::Change &change : changes) {
        const auto shown = [](const QString &text) {
            return text.isEmpty() ? tr("(vuoto)") : text;
        };
        item(fieldLabel(change.field),
             shown(change.before) + QStringLiteral(" -> ") + shown(change.after));
    }
}

void PeopleWriter::listed(const SongInfoIndex &song)
{
    line(QStringList{QString::number(song.id).rightJustified(idWidth),
                     formatName(song).leftJustified(formatWidth),
                     song.title.leftJustified(SongRecord::TitleSize),
                     song.artist.leftJustified(GroupHeader::TextSize),
                     song.genre.leftJustified(GroupHeader::TextSize), song.path}
             .join(QStringLiteral("  ")));
}

void PeopleWriter::finding(const MemoryCheck::Finding &finding)
{
    line(finding.path + QStringLiteral(": ") + finding.text);
}

void PeopleWriter::planned(const TransferPlan::Item &item)
{
    const QString destination = item.destination();
    const QString place = destination.isEmpty() ? item.target : destination;
    line(stateLabel(item.state) + QStringLiteral(": ") + item.path +
         (place.isEmpty() ? place : QStringLiteral(" -> ") + place));
}

void PeopleWriter::planSum(const TransferPlan &plan)
{
    line(tr("Da copiare: %1; liberi: %2; song nella memoria dopo: %3")
             .arg(sizeText(plan.bytesNeeded()),
                  plan.freeBytes < 0 ? QStringLiteral("?") : sizeText(plan.freeBytes),
                  QString::number(plan.songsAfter())));
}

void PeopleWriter::catalogueSong(const SongsDbRecord &song)
{
    line(song.title);
    item(tr("File"), song.filename);
    item(tr("Interprete"), song.altartist.isEmpty() ? song.artist : song.altartist);
    item(tr("Genere"), song.genre);
    item(tr("Autore"), song.author);
    item(tr("Durata"), song.length > 0 ? SongTable::lengthText(song.length) : QString());
    number(tr("BPM"), song.bpm);
    item(tr("Tonalità"), song.key);
    markers(song.markers);
    line({});
}

void PeopleWriter::line(const QString &text)
{
    m_output.write(onOneLine(text).toUtf8() + '\n');
}

/** Items that the song does not have are left out. */
void PeopleWriter::item(const QString &label, const QString &text)
{
    if (!text.isEmpty())
        line(QStringLiteral("  ") + (label + QLatin1Char(':')).leftJustified(labelWidth) + text);
}

void PeopleWriter::number(const QString &label, qint32 number)
{
    if (number > 0)
        item(label, QString::number(number));
}

void PeopleWriter::markers(const QList<Marker> &markers)
{
    QStringList texts;
    for (const Marker &marker : markers)
        texts.append(QString::number(marker.bar) + QLatin1Char(' ') + marker.text);
    item(tr("Marker"), texts.join(QStringLiteral(", ")));
}

QString PeopleWriter::stateLabel(TransferPlan::State state)
{
    switch (state) {
    case TransferPlan::State::New:
        return tr("nuova");
    case TransferPlan::State::Same:
        return tr("già presente");
    case TransferPlan::State::Differs:
        return tr("diversa");
    case TransferPlan::State::Renamed:
        return tr("già presente con un altro nome");
    case TransferPlan::State::Collides:
        return tr("stesso nome di un'altra song");
    case TransferPlan::State::Unreadable:
        return tr("illeggibile");
    case TransferPlan::State::TooLong:
        return tr("nome non possibile sulla memoria");
    case TransferPlan::State::Remove:
        return tr("non è nell'elenco");
    }
    return {};
}

QString PeopleWriter::fieldLabel(ChangePreview::Field field)
{
    switch (field) {
    case ChangePreview::Field::Title:
        return tr("Titolo");
    case ChangePreview::Field::Artist:
        return tr("Interprete");
    case ChangePreview::Field::Genre:
        return tr("Genere");
    case ChangePreview::Field::Author:
        return tr("Autore");
    case ChangePreview::Field::Length:
        return tr("Durata");
    case ChangePreview::Field::Tempo:
        return tr("BPM");
    case ChangePreview::Field::Key:
        return tr("Tonalità");
    case ChangePreview::Field::Markers:
        return tr("Marker");
    case ChangePreview::Field::MarkersShown:
        return tr("Marker attivi");
    }
    return {};
}
