#include "library/changepreview.h"

#include "formats/bytetext.h"
#include "formats/metasong.h"
#include "formats/mfxheader.h"
#include "library/cataloguemerge.h"
#include "library/keepalive.h"
#include "library/lostcharacters.h"
#include "library/songupdate.h"
#include "storage/diagnostics.h"

#include <QStringList>

namespace
{

QString numberText(int number)
{
    return number > 0 ? QString::number(number) : QString();
}

QString lengthText(qint32 seconds)
{
    return seconds > 0 ? SongTable::lengthText(seconds) : QString();
}

/** The catalogue's texts that can be written into the field. */
QStringList sourcesOf(ChangePreview::Field field, const SongInfo &record)
{
    switch (field) {
    case ChangePreview::Field::Title:
        return {record.title};
    case ChangePreview::Field::Artist:
        return {record.altArtist, record.artist};
    case ChangePreview::Field::Genre:
        return {record.genre};
    case ChangePreview::Field::Author:
        return {record.author};
    default:
        return {};
    }
}

/**
 * The part of the record's text that was written into the field: an MFX file holds only the
 * beginning of a long text.
 */
QString keptPart(const ChangePreview::Change &change, const SongInfo &record)
{
    for (const QString &source : sourcesOf(change.field, record)) {
        QString kept = source.trimmed().left(change.after.size());
        if (textFromBytes(bytesFromText(kept)) == change.after)
            return kept;
    }
    return {};
}

bool showsMarkers(const SongInfo &info)
{
    return (info.mfxFlags & MfxHeader::MarkersFlag) != 0;
}

} // namespace

std::optional<ChangePreview> ChangePreview::compute(const Database &database, SongTable &model,
                                                    const OpenProgress &openProgress)
{
    const CatalogueMerge catalogue(database);
    ChangePreview preview;
    preview.problem = catalogue.problem();
    const int rows = model.goodRowCount();
    const auto progress = openProgress(tr("Anteprima delle modifiche"),
                                       tr("Confronto le song con il database..."), rows);
    for (int row = 0; row < rows; ++row) {
        if (progress->wasCanceled())
            return std::nullopt;
        if (MetaSong::takesLongToImport(model.fileName(row)))
            progress->catchUp();
        preview.addSong(catalogue, model.fileName(row), model.shortName(row));
        progress->updateProgress(row + 1);
        KeepAlive::processEventsNow();
    }
    return preview;
}

void ChangePreview::addSong(const CatalogueMerge &catalogue, const QString &fileName,
                            const QString &shortName)
{
    logDebug() << "[ChangePreview::addSong] file:" << fileName;
    ++songs;
    SongUpdate update(fileName);
    if (!update.load()) {
        ++unreadable;
        return;
    }
    if (!update.merge(catalogue, shortName)) {
        ++unknown;
        return;
    }
    if (!update.canBeSaved())
        return;
    const QList<Change> found = update.changes();
    if (!found.isEmpty())
        changed.append(
            {fileName, update.before().title, update.before().isKravo, found, update.source()});
}

QList<ChangePreview::Change> ChangePreview::changes(const SongInfo &before, const SongInfo &after)
{
    QList<Change> found;
    const auto compare = [&found](Field field, const QString &old, const QString &changed) {
        if (old != changed)
            found.append({field, old, changed});
    };
    compare(Field::Title, before.title, after.title);
    compare(Field::Artist, before.artist, after.artist);
    compare(Field::Genre, before.genre, after.genre);
    compare(Field::Author, before.author, after.author);
    compare(Field::Length, lengthText(before.length), lengthText(after.length));
    compare(Field::Tempo, numberText(before.userBpm), numberText(after.userBpm));
    compare(Field::Key, before.key, after.key);
    compare(Field::Markers, markersText(before.markers), markersText(after.markers));
    if (showsMarkers(before) != showsMarkers(after))
        found.append({Field::MarkersShown, showsMarkers(before) ? tr("sì") : tr("no"),
                      showsMarkers(after) ? tr("sì") : tr("no")});
    return found;
}

void ChangePreview::nameLostCharacters(QList<Change> &changes, const SongInfo &record)
{
    for (Change &change : changes)
        change.lost = ::lostCharacters(keptPart(change, record));
}

QString ChangePreview::lostCharacters(const std::optional<SongInfo> &before, const SongInfo &after,
                                      const SongInfo &record)
{
    QString texts;
    for (const Change &change : changes(before.value_or(SongInfo()), after))
        texts += keptPart(change, record);
    return ::lostCharacters(texts);
}

QString ChangePreview::fieldName(Field field)
{
    switch (field) {
    case Field::Title:
        return tr("Titolo");
    case Field::Artist:
        return tr("Interprete");
    case Field::Genre:
        return tr("Genere");
    case Field::Author:
        return tr("Autore");
    case Field::Length:
        return tr("Durata");
    case Field::Tempo:
        return tr("BPM");
    case Field::Key:
        return tr("Tonalità");
    case Field::Markers:
        return tr("Marker");
    case Field::MarkersShown:
        return tr("Marker attivi");
    }
    return {};
}

QString ChangePreview::markersText(const QList<Marker> &markers)
{
    QStringList texts;
    for (const Marker &marker : markers)
        texts.append(QString::number(marker.bar) + QLatin1Char(' ') + marker.text);
    return texts.join(QStringLiteral(", "));
}

QString ChangePreview::sourceName(CatalogueSource source)
{
    switch (source) {
    case CatalogueSource::Own:
        return tr("il mio catalogo");
    case CatalogueSource::BuiltIn:
        return tr("catalogo del programma");
    case CatalogueSource::Only:
        break;
    }
    return {};
}

QString ChangePreview::emptyValue()
{
    return tr("(vuoto)");
}
