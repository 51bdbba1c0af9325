// Holds every row of the built-in catalogue to the catalogue's conventions.
//
// Nothing of the library's code is used here: that the resource is found all the same shows that it
// does not get lost when the static library is linked.
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryFile>
#include <QTest>
#include <QVariant>

#include <algorithm>

namespace
{
struct Song {
    QString title;
    QString artist;
    QString genre;
    QString author;
    QVariant length;
    QVariant bpm;
    QString key;
    QString fileName;
    QVariant markers;
    QString altArtist;
};

QString str(const char *text)
{
    return QString::fromUtf8(text);
}

/** The spellings that keys have in the catalogue, the irregular ones last. */
const QSet<QString> &keySpellings()
{
    static const QStringList spellings =
        str("|C|C#|Db|D|D#|Eb|E|F|F#|Gb|G|G#|Ab|A|Bb|B|C -|C# -|D -|D# -|Db -|Eb -|E -|F -|F# -|"
            "G -|G# -|Ab -|A -|A# -|Bb -|B -|C#-|D-|G #| D")
            .split(QLatin1Char('|'));
    static const QSet<QString> set(spellings.begin(), spellings.end());
    return set;
}

/** The words of a name, sorted: the same for "CARUSO ENRICO" and "ENRICO CARUSO". */
QStringList sortedWords(const QString &names)
{
    QStringList words = names.toUpper().split(QLatin1Char(' '));
    words.sort();
    return words;
}

/** Upper case, one blank between words, nothing that a song file cannot hold. */
bool isTidy(const QString &text)
{
    return text == text.toUpper() && text == text.simplified() &&
           text == QString::fromLatin1(text.toLatin1()) && !text.contains(QLatin1Char('"'));
}

/** Several names are joined by a hyphen between blanks, none of them empty. */
bool isListOfNames(const QString &text)
{
    static const QRegularExpression form(str("^[^ -].*[^ -]$|^[^ -]$"));
    return form.match(text).hasMatch() && !text.contains(str(" - -")) &&
           !text.contains(QLatin1Char(';')) && !text.contains(QLatin1Char('/'));
}
} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void tableHasItsColumns();
    void textsAreUpperCaseAndTidy();
    void titlesAreNeverEmpty();
    void namesAreJoinedByHyphens();
    void displayedArtistHasTheSameNames();
    void genresAreASmallClosedSet();
    void lengthsAndTempiAreInRange();
    void keysAreSpelledAsListed();
    void fileNamesAreUniqueBaseNames();
    void markersAreBarsAndTexts();
    void halfOfTheSongsHaveMarkers();
    void someTitlesAreShared();
    void someMarkersAreNull();

private:
    QStringList m_columns;
    QList<Song> m_songs;
};

void TestCatalogue::initTestCase()
{
    QFile resource(str(":/db/songsdb"));
    QVERIFY(resource.open(QIODevice::ReadOnly));
    QTemporaryFile copy;
    QVERIFY(copy.open());
    QVERIFY(copy.write(resource.readAll()) > 0);
    QVERIFY(copy.flush());
    {
        QSqlDatabase file = QSqlDatabase::addDatabase(str("QSQLITE"), str("catalogue"));
        file.setDatabaseName(copy.fileName());
        QVERIFY(file.open());
        QSqlQuery query(file);
        QVERIFY(query.exec(str("select * from songs")));
        for (int i = 0; i < query.record().count(); ++i)
            m_columns.append(query.record().fieldName(i));
        while (query.next()) {
            const auto text = [&query](const char *column) {
                return query.value(str(column)).toString();
            };
            m_songs.append({text("title"), text("artist"), text("genre"), text("author"),
                            query.value(str("length")), query.value(str("bpm")), text("key"),
                            text("filename"), query.value(str("markers")), text("altartist")});
        }
    }
    QSqlDatabase::removeDatabase(str("catalogue"));
    QVERIFY2(m_songs.size() >= 30, qPrintable(QString::number(m_songs.size())));
}

void TestCatalogue::tableHasItsColumns()
{
    QCOMPARE(m_columns.join(QLatin1Char(' ')),
             str("title artist genre author length bpm key filename markers altartist"));
}

void TestCatalogue::textsAreUpperCaseAndTidy()
{
    for (const Song &song : std::as_const(m_songs)) {
        for (const QString &text : {song.title, song.artist, song.genre, song.author})
            QVERIFY2(isTidy(text), qPrintable(song.fileName + str(": ") + text));
        QVERIFY2(isTidy(song.altArtist.toUpper()), qPrintable(song.fileName));
    }
}

void TestCatalogue::titlesAreNeverEmpty()
{
    for (const Song &song : std::as_const(m_songs))
        QVERIFY2(!song.title.isEmpty(), qPrintable(song.fileName));
}

void TestCatalogue::namesAreJoinedByHyphens()
{
    for (const Song &song : std::as_const(m_songs)) {
        for (const QString &names : {song.artist, song.altArtist, song.author})
            QVERIFY2(isListOfNames(names), qPrintable(song.fileName + str(": ") + names));
    }
}

void TestCatalogue::displayedArtistHasTheSameNames()
{
    for (const Song &song : std::as_const(m_songs)) {
        QVERIFY2(sortedWords(song.artist) == sortedWords(song.altArtist),
                 qPrintable(song.fileName + str(": ") + song.altArtist));
    }
}

void TestCatalogue::genresAreASmallClosedSet()
{
    QSet<QString> genres;
    for (const Song &song : std::as_const(m_songs))
        genres.insert(song.genre);
    genres.remove(QString());
    QVERIFY2(genres.size() >= 5 && genres.size() <= 24,
             qPrintable(QStringList(genres.values()).join(str(", "))));
}

void TestCatalogue::lengthsAndTempiAreInRange()
{
    const auto isNumberIn = [](const QVariant &value, int least, int most) {
        return value.typeId() == QMetaType::LongLong && value.toInt() >= least &&
               value.toInt() <= most;
    };
    for (const Song &song : std::as_const(m_songs)) {
        QVERIFY2(isNumberIn(song.length, 32, 631), qPrintable(song.fileName));
        QVERIFY2(isNumberIn(song.bpm, 45, 240), qPrintable(song.fileName));
    }
}

void TestCatalogue::keysAreSpelledAsListed()
{
    for (const Song &song : std::as_const(m_songs)) {
        QVERIFY2(keySpellings().contains(song.key),
                 qPrintable(song.fileName + str(": ") + song.key));
    }
}

void TestCatalogue::fileNamesAreUniqueBaseNames()
{
    static const QRegularExpression form(str("^[A-Z0-9_-]{1,8}\\z"));
    QSet<QString> names;
    for (const Song &song : std::as_const(m_songs)) {
        QVERIFY2(form.match(song.fileName).hasMatch(), qPrintable(song.fileName));
        QVERIFY2(!names.contains(song.fileName), qPrintable(song.fileName));
        names.insert(song.fileName);
    }
}

void TestCatalogue::markersAreBarsAndTexts()
{
    static const QRegularExpression form(str("^([1-9][0-9]{0,4};[^; ]([^;]*[^; ])?;)+\\z"));
    for (const Song &song : std::as_const(m_songs)) {
        if (song.markers.isNull())
            continue;
        const QString markers = song.markers.toString();
        QVERIFY2(form.match(markers).hasMatch(), qPrintable(song.fileName + str(": ") + markers));
        const QStringList parts = markers.split(QLatin1Char(';'), Qt::SkipEmptyParts);
        int lastBar = 0;
        for (int i = 0; i < parts.size(); i += 2) {
            QVERIFY2(parts.at(i).toInt() > lastBar && parts.at(i).toInt() <= 65535,
                     qPrintable(song.fileName + str(": ") + markers));
            lastBar = parts.at(i).toInt();
        }
    }
}

void TestCatalogue::halfOfTheSongsHaveMarkers()
{
    const auto withMarkers = std::count_if(m_songs.cbegin(), m_songs.cend(),
                                           [](const Song &song) { return !song.markers.isNull(); });
    QVERIFY2(withMarkers * 2 >= m_songs.size(), qPrintable(QString::number(withMarkers)));
}

void TestCatalogue::someTitlesAreShared()
{
    QHash<QString, int> songsByTitle;
    for (const Song &song : std::as_const(m_songs))
        ++songsByTitle[song.title];
    const QList<int> counts = songsByTitle.values();
    QVERIFY(*std::max_element(counts.cbegin(), counts.cend()) > 1);
    QVERIFY2(songsByTitle.size() * 10 >= m_songs.size() * 9, "most titles stand alone");
}

void TestCatalogue::someMarkersAreNull()
{
    QVERIFY(std::any_of(m_songs.cbegin(), m_songs.cend(),
                        [](const Song &song) { return song.markers.isNull(); }));
}

QTEST_GUILESS_MAIN(TestCatalogue)
#include "test_catalogue.moc"
