#include "cli/peoplewriter.h"

#include "cli/givenpath.h"
#include "cli/standardoutput.h"
#include "devindex/indexrecords.h"
#include "devindex/sizetext.h"
#include "library/historytexts.h"
#include "library/songtable.h"
#include "library/tagremarks.h"
#include "storage/shownname.h"

namespace
{

using Field = ChangePreview::Field;

constexpr int labelWidth = 15; // a longer label stands out, with its space
constexpr int idWidth = 6;
constexpr int formatWidth = 4;

} // namespace

void PeopleWriter::song(const QString &path, const SongInfo &info)
{
    line(givenpath::shown(path));
    item(tr("Formato"), info.format);
    item(ChangePreview::fieldName(Field::Title), info.title);
    item(ChangePreview::fieldName(Field::Artist), info.artist);
    item(ChangePreview::fieldName(Field::Genre), info.genre);
    item(ChangePreview::fieldName(Field::Author), info.author);
    item(ChangePreview::fieldName(Field::Length),
         info.length > 0 ? SongTable::lengthText(info.length) : QString());
    number(ChangePreview::fieldName(Field::Tempo), info.userBpm);
    item(ChangePreview::fieldName(Field::Key), info.key);
    item(tr("Firma"), info.isKravo ? tr("sì") : tr("no"));
    markers(info.markers);
    line({});
}

void PeopleWriter::unreadable(const QString &, const QString &) {}

void PeopleWriter::changes(const QString &path, bool found,
                           const QList<ChangePreview::Change> &changes, CatalogueSource source)
{
    if (!found)
        line(tr("%1: non è nel catalogo").arg(givenpath::shown(path)));
    else if (changes.isEmpty())
        line(tr("%1: nessuna modifica").arg(givenpath::shown(path)));
    else
        line(givenpath::shown(path));
    changeLines(changes);
    if (!changes.isEmpty())
        item(tr("Catalogo"), ChangePreview::sourceName(source));
}

void PeopleWriter::changeLines(const QList<ChangePreview::Change> &changes)
{
    for (const ChangePreview::Change &change : changes) {
        const auto shown = [](const QString &text) {
            return text.isEmpty() ? ChangePreview::emptyValue() : text;
        };
        item(ChangePreview::fieldName(change.field),
             shown(change.before) + QStringLiteral(" -> ") + shown(change.after));
    }
}

void PeopleWriter::renamed(const QString &path, const QString &newName)
{
    line(givenpath::shown(path) + QStringLiteral(" -> ") + newName);
}

void PeopleWriter::tags(const Mp3Preparation &preparation, bool /*isWritten*/)
{
    if (preparation.troubles() == TagTroubles()) {
        line(tr("%1: nessuna modifica").arg(givenpath::shown(preparation.path())));
        return;
    }
    line(givenpath::shown(preparation.path()) + QStringLiteral(": ") +
         tagremarks::reasonText(preparation.troubles()));
    changeLines(ChangePreview::changes(preparation.shown(), preparation.proposed()));
}

void PeopleWriter::measured(const QString &path, const SongMeasure &measure,
                            const QList<ChangePreview::Change> &written)
{
    line(givenpath::shown(path));
    item(ChangePreview::fieldName(Field::Length),
         measure.length > 0 ? SongTable::lengthText(qRound(measure.length)) : QString());
    number(ChangePreview::fieldName(Field::Tempo), measure.bpm);
    item(ChangePreview::fieldName(Field::Key),
         measure.isKeyGuessed ? tr("%1 (stimata)").arg(measure.key) : measure.key);
    markers(measure.markers);
    QStringList fields;
    for (const ChangePreview::Change &change : written)
        fields.append(ChangePreview::fieldName(change.field));
    item(tr("Scritti"), fields.join(QStringLiteral(", ")));
    line({});
}

void PeopleWriter::listed(const SongInfoIndex &song)
{
    line(QStringList{QString::number(song.id).rightJustified(idWidth),
                     formatName(song).leftJustified(formatWidth),
                     song.title.leftJustified(SongRecord::titleSize),
                     song.artist.leftJustified(GroupHeader::textSize),
                     song.genre.leftJustified(GroupHeader::textSize), song.path}
             .join(QStringLiteral("  ")));
}

void PeopleWriter::duplicate(int group, Same same, const MemorySong &song)
{
    if (group != m_group) {
        m_group = group;
        line(same == Same::Bytes ? tr("Gli stessi byte:") : tr("Stesso titolo e interprete:"));
    }
    line(QStringLiteral("  ") + song.info.path);
}

// What was done is told by silence, and failures on standard error.
void PeopleWriter::removed(const QString &, const QString &) {}

void PeopleWriter::ejected(const QString &, bool, const QString &) {}

void PeopleWriter::finding(const MemoryCheck::Finding &finding)
{
    line(finding.path + QStringLiteral(": ") + finding.text);
}

void PeopleWriter::planned(const TransferPlan::Item &item)
{
    const QString destination = item.destination();
    const QString place = destination.isEmpty() ? item.target : destination;
    // Other reasons are told with the failures.
    const bool isExplained = item.state == TransferPlan::State::Differs && !item.reason.isEmpty();
    line(stateLabel(item.state) + QStringLiteral(": ") + givenpath::shown(item.path) +
         (place.isEmpty() ? place : QStringLiteral(" -> ") + place) +
         (isExplained ? QStringLiteral(" (") + item.reason + QLatin1Char(')') : QString()));
}

void PeopleWriter::planSum(const TransferPlan &plan)
{
    line(tr("Da copiare: %1; liberi: %2; song nella memoria dopo: %3")
             .arg(sizeText(plan.bytesNeeded()),
                  plan.freeBytes < 0 ? QStringLiteral("?") : sizeText(plan.freeBytes),
                  QString::number(plan.songsAfter())));
}

void PeopleWriter::job(const HistoryJob &job, bool isTakenBack)
{
    QString text = QStringLiteral("%1  %2  %3, %4")
                       .arg(QString::number(job.number).rightJustified(idWidth),
                            job.time.toString(QStringLiteral("yyyy-MM-dd hh:mm")),
                            historytexts::kindName(job.kind), tr("%n song", nullptr, job.songs));
    if (job.takesBack != 0)
        text += QStringLiteral(" (%1)").arg(job.takesBack);
    line(isTakenBack ? tr("%1, annullato").arg(text) : text);
}

void PeopleWriter::takenBack(const QString &, const QString &) {}

void PeopleWriter::catalogueSong(const SongsDbRecord &song, CatalogueSource source)
{
    line(song.title);
    item(tr("File"), song.filename);
    item(ChangePreview::fieldName(Field::Artist),
         song.altartist.isEmpty() ? song.artist : song.altartist);
    item(ChangePreview::fieldName(Field::Genre), song.genre);
    item(ChangePreview::fieldName(Field::Author), song.author);
    item(ChangePreview::fieldName(Field::Length),
         song.length > 0 ? SongTable::lengthText(song.length) : QString());
    number(ChangePreview::fieldName(Field::Tempo), song.bpm);
    item(ChangePreview::fieldName(Field::Key), song.key);
    markers(song.markers);
    item(tr("Catalogo"), ChangePreview::sourceName(source));
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
        line(QStringLiteral("  ") + (label + QLatin1Char(':')).leftJustified(labelWidth) +
             QLatin1Char(' ') + text);
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
    item(ChangePreview::fieldName(Field::Markers), texts.join(QStringLiteral(", ")));
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
