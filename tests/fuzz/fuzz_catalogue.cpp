// Any text as a markers column, as a title and as a file name that is looked up.
#include "fuzzing.h"
#include "library/database.h"

#include <QCoreApplication>

namespace
{

/** The built-in catalogue, opened once. */
const Database &catalogue()
{
    static int argc = 1;
    static char name[] = "fuzz_catalogue";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
    static Database &database = *new Database; // never closed: at exit Qt's drivers may be gone
    static const bool opened = database.init();
    FUZZ_REQUIRE(opened && !database.genresList().isEmpty());
    return database;
}

void splitMarkers(const QString &text)
{
    QList<Marker> markers{{1, QStringLiteral("old")}};
    Database::splitMarkers(text, markers);
    QString joined;
    for (const Marker &marker : markers) {
        FUZZ_REQUIRE(!marker.text.isEmpty() && !marker.text.contains(QLatin1Char(';')));
        joined += QStringLiteral("%1;%2;").arg(marker.bar).arg(marker.text);
    }
    QList<Marker> again;
    Database::splitMarkers(joined, again);
    FUZZ_REQUIRE(again.size() == markers.size());
    for (qsizetype i = 0; i < markers.size(); ++i) {
        FUZZ_REQUIRE(again.at(i).bar == markers.at(i).bar);
        FUZZ_REQUIRE(again.at(i).text == markers.at(i).text);
    }
}

void requireTrimmed(const SongsDbRecord &record)
{
    for (const QString &text :
         {record.title, record.artist, record.altartist, record.genre, record.author, record.key})
        FUZZ_REQUIRE(text == text.trimmed());
    FUZZ_REQUIRE(!record.title.isEmpty());
}

void lookUp(const QString &text)
{
    const QString untouched = QStringLiteral("untouched");
    SongsDbRecord record;
    record.title = untouched;
    if (catalogue().getRecordByTitle(text, record))
        requireTrimmed(record);
    else
        FUZZ_REQUIRE(record.title == untouched);
    const bool isWild = text.contains(QLatin1Char('%')) || text.contains(QLatin1Char('_'));
    FUZZ_REQUIRE(isWild || record.title == untouched ||
                 record.title.compare(text.trimmed(), Qt::CaseInsensitive) == 0);

    record.title = untouched;
    if (catalogue().getRecordByFilename(text, record))
        requireTrimmed(record);
    else
        FUZZ_REQUIRE(record.title == untouched);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzzing::Input input(data, size);
    const QString name = input.text(); // a file name has 255 bytes at most
    const QByteArray rest = input.rest();
    splitMarkers(QString::fromUtf8(rest));
    splitMarkers(QString::fromLatin1(rest));
    lookUp(name);
    lookUp(QString::fromLatin1(rest.left(127))); // what a song's own title can hold
    return 0;
}
