#include "library/historytexts.h"

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

} // namespace

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
