#include "library/historytexts.h"

#include "library/runreport.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLatin1String>

namespace
{

constexpr QLatin1String titleKey("title");
constexpr QLatin1String artistKey("artist");
constexpr QLatin1String genreKey("genre");
constexpr QLatin1String authorKey("author");
constexpr QLatin1String keyKey("key");
constexpr QLatin1String bpmKey("bpm");
constexpr QLatin1String lengthKey("length");

/** Longer than what any song holds; a stranger's file could fill the screen. */
constexpr qsizetype longestText = 10000;

QString textOf(const QJsonObject &object, QLatin1String key)
{
    return object.value(key).toString().left(longestText);
}

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(History)
};

} // namespace

QString historytexts::kindName(HistoryJob::Kind kind)
{
    switch (kind) {
    case HistoryJob::Kind::Synchronise:
        return Texts::tr("Sincronizzazione");
    case HistoryJob::Kind::Edit:
        return Texts::tr("Modifica");
    case HistoryJob::Kind::EditSeveral:
        return Texts::tr("Modifica di più song");
    case HistoryJob::Kind::Tags:
        return Texts::tr("Preparazione dei tag MP3");
    case HistoryJob::Kind::Rename:
        return Texts::tr("Nuovi nomi");
    case HistoryJob::Kind::TakeBack:
        return Texts::tr("Annullamento");
    case HistoryJob::Kind::Measure:
        return Texts::tr("Misura");
    }
    return {};
}

QString historytexts::problem(HistoryStore::State state)
{
    switch (state) {
    case HistoryStore::State::Newer:
        return Texts::tr("La cronologia è di una versione più recente del programma.");
    case HistoryStore::State::Damaged:
        return Texts::tr("La cronologia è danneggiata.");
    case HistoryStore::State::Unwritable:
        return Texts::tr("La cronologia non può essere scritta: il disco è pieno o guasto.");
    case HistoryStore::State::Closed:
    case HistoryStore::State::Ready:
        break;
    }
    return {};
}

QString historytexts::stateName(HistoryUndo::State state)
{
    switch (state) {
    case HistoryUndo::State::AsLeft:
        return Texts::tr("come il lavoro l'ha lasciata");
    case HistoryUndo::State::Moved:
        return Texts::tr("spostata");
    case HistoryUndo::State::AlreadyOld:
        return Texts::tr("è già come prima");
    case HistoryUndo::State::Changed:
        return Texts::tr("cambiata dopo");
    case HistoryUndo::State::Unreadable:
        return RunReport::reasonText(SaveFailure::Unreadable);
    case HistoryUndo::State::Missing:
        return Texts::tr("non c'è più");
    }
    return {};
}

QString historytexts::dropped(int jobs)
{
    return Texts::tr(
        "La cronologia è piena: %n lavori più vecchi non possono più essere annullati.", nullptr,
        jobs);
}

QString historytexts::toText(const SongInfo &info)
{
    const QJsonObject object{{titleKey, info.title},  {artistKey, info.artist},
                             {genreKey, info.genre},  {authorKey, info.author},
                             {keyKey, info.key},      {bpmKey, info.userBpm},
                             {lengthKey, info.length}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

SongInfo historytexts::fromText(const QString &text)
{
    const QJsonObject object = QJsonDocument::fromJson(text.toUtf8()).object();
    SongInfo info;
    info.title = textOf(object, titleKey);
    info.artist = textOf(object, artistKey);
    info.genre = textOf(object, genreKey);
    info.author = textOf(object, authorKey);
    info.key = textOf(object, keyKey);
    info.userBpm = object.value(bpmKey).toInt();
    info.length = object.value(lengthKey).toInt();
    return info;
}
