// Holds every row of the built-in catalogue to the catalogue's conventions.
//
// Nothing of the library's code is used here: that the resource is found all the same shows that it
// does not get lost when the static library is linked.
#include "support/shorttext.h"

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

/** The spellings that keys have in the catalogue, the irregular ones last. */
const QSet<QString> &keySpellings()
{
    static const QStringList spellings =
        s("|C|C#|Db|D|D#|Eb|E|F|F#|Gb|G|G#|Ab|A|Bb|B|C -|C# -|D -|D# -|Db -|Eb -|E -|F -|F# -|"
          "G -|G# -|Ab -|A -|A# -|Bb -|B -|C#-|D-|G #| D")
            .split(QLatin1Char('|'));
    static const QSet<QString> set(spellings.begin(), spellings.end());
    return set;
}

/** True for "ENRICO CARUSO" and "CARUSO ENRICO", and for a group, which is the same in both. */
bool isSurnameMovedToTheFront(const QString &displayed, const QString &inOrder)
{
    QStringList words = displayed.split(QLatin1Char(' '));
    for (qsizetype i = 0; i < words.size(); ++i) {
        if (words.join(QLatin1Char(' ')) == inOrder)
            return true;
        words.append(words.takeFirst());
    }
    return false;
}

/** The seconds from the start of the song to a bar, were its bars as short as two beats. */
int earliestStart(int bar, int bpm)
{
    return (bar - 1) * 2 * 60 / bpm;
}

/** Upper case, one blank between words, nothing that a song file or a lookup cannot hold. */
bool isTidy(const QString &text)
{
    static const QRegularExpression unwanted(s("[\"%_\\x00-\\x1F]"));
    return text == text.toUpper() && text == text.simplified() &&
           text == QString::fromLatin1(text.toLatin1()) && !text.contains(unwanted);
}

/** Several names are joined by a hyphen between blanks, none of them empty. */
bool isListOfNames(const QString &text)
{
    static const QRegularExpression form(s("^[^ -].*[^ -]$|^[^ -]$"));
    return form.match(text).hasMatch() && !text.contains(s(" - -")) &&
           !text.contains(QLatin1Char(';')) && !text.contains(QLatin1Char('/'));
}
} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void tableHasItsColumns();
    void tableHoldsEnoughSongs();
    void wellKnownSongsAreIn_data();
    void wellKnownSongsAreIn();
    void textsAreUpperCaseAndTidy();
    void titlesAreNeverEmpty();
    void namesAreJoinedByHyphens();
    void displayedArtistHasTheSameNames();
    void genresAreASmallClosedSet();
    void lengthsAndTempiAreInRange();
    void lengthsAndTempiVary();
    void keysAreSpelledAsListed();
    void everyKeySpellingOccurs();
    void fileNamesAreUniqueBaseNames();
    void markersAreBarsAndTexts();
    void markersLieWithinTheSong();
    void halfOfTheSongsHaveMarkers();
    void someTitlesAreShared();
    void songsOfOneTitleDiffer();
    void someMarkersAreNull();

private:
    QStringList m_columns;
    QList<Song> m_songs;
};

void TestCatalogue::initTestCase()
{
    QFile resource(s(":/db/songsdb"));
    QVERIFY(resource.open(QIODevice::ReadOnly));
    QTemporaryFile copy;
    QVERIFY(copy.open());
    QVERIFY(copy.write(resource.readAll()) > 0);
    QVERIFY(copy.flush());
    {
        QSqlDatabase file = QSqlDatabase::addDatabase(s("QSQLITE"), s("catalogue"));
        file.setDatabaseName(copy.fileName());
        QVERIFY(file.open());
        QSqlQuery query(file);
        QVERIFY(query.exec(s("select * from songs")));
        for (int i = 0; i < query.record().count(); ++i)
            m_columns.append(query.record().fieldName(i));
        while (query.next()) {
            const auto text = [&query](const char *column) {
                return query.value(s(column)).toString();
            };
            m_songs.append({text("title"), text("artist"), text("genre"), text("author"),
                            query.value(s("length")), query.value(s("bpm")), text("key"),
                            text("filename"), query.value(s("markers")), text("altartist")});
        }
    }
    QSqlDatabase::removeDatabase(s("catalogue"));
    QVERIFY(!m_songs.isEmpty());
}

void TestCatalogue::tableHasItsColumns()
{
    QCOMPARE(m_columns.join(QLatin1Char(' ')),
             s("title artist genre author length bpm key filename markers altartist"));
}

void TestCatalogue::tableHoldsEnoughSongs()
{
    QVERIFY2(m_songs.size() >= 400, qPrintable(QString::number(m_songs.size())));
}

void TestCatalogue::wellKnownSongsAreIn_data()
{
    QTest::addColumn<QString>("author");
    QTest::newRow("SILENT NIGHT") << "GRUBER FRANZ XAVER";
    QTest::newRow("GREENSLEEVES") << "TRADIZIONALE";
    QTest::newRow("AMAZING GRACE") << "NEWTON JOHN";
    QTest::newRow("JINGLE BELLS") << "PIERPONT JAMES LORD";
    QTest::newRow("O SOLE MIO") << "DI CAPUA EDUARDO";
    QTest::newRow("SANTA LUCIA") << "COTTRAU TEODORO";
    QTest::newRow("FÜR ELISE") << "BEETHOVEN LUDWIG VAN";
    QTest::newRow("AULD LANG SYNE") << "BURNS ROBERT";
    QTest::newRow("LA CUMPARSITA") << "MATOS RODRÍGUEZ GERARDO";
    QTest::newRow("MAPLE LEAF RAG") << "JOPLIN SCOTT";
    QTest::newRow("VESTI LA GIUBBA") << "LEONCAVALLO RUGGERO";
}

void TestCatalogue::wellKnownSongsAreIn()
{
    QFETCH(QString, author);
    const QString title = s(QTest::currentDataTag());
    QStringList authors;
    for (const Song &song : std::as_const(m_songs)) {
        if (song.title == title)
            authors.append(song.author.split(s(" - ")).first());
    }
    QCOMPARE(authors, QStringList(author));
}

void TestCatalogue::textsAreUpperCaseAndTidy()
{
    for (const Song &song : std::as_const(m_songs)) {
        for (const QString &text :
             {song.title, song.artist, song.genre, song.author, song.altArtist})
            QVERIFY2(isTidy(text), qPrintable(song.fileName + s(": ") + text));
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
            QVERIFY2(isListOfNames(names), qPrintable(song.fileName + s(": ") + names));
    }
}

void TestCatalogue::displayedArtistHasTheSameNames()
{
    for (const Song &song : std::as_const(m_songs)) {
        const QStringList inOrder = song.artist.split(s(" - "));
        const QStringList displayed = song.altArtist.split(s(" - "));
        QVERIFY2(inOrder.size() == displayed.size(), qPrintable(song.fileName));
        for (qsizetype i = 0; i < inOrder.size(); ++i)
            QVERIFY2(isSurnameMovedToTheFront(displayed.at(i), inOrder.at(i)),
                     qPrintable(song.fileName + s(": ") + song.altArtist));
    }
}

void TestCatalogue::genresAreASmallClosedSet()
{
    QHash<QString, int> songsByGenre;
    for (const Song &song : std::as_const(m_songs))
        ++songsByGenre[song.genre];
    songsByGenre.remove(QString());
    QVERIFY2(songsByGenre.size() >= 16 && songsByGenre.size() <= 24,
             qPrintable(QStringList(songsByGenre.keys()).join(s(", "))));
    // A genre of its own for a song or two is a slip of the pen.
    for (auto genre = songsByGenre.cbegin(); genre != songsByGenre.cend(); ++genre)
        QVERIFY2(genre.value() >= 10, qPrintable(genre.key()));
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

void TestCatalogue::lengthsAndTempiVary()
{
    QSet<int> lengths;
    QSet<int> tempi;
    for (const Song &song : std::as_const(m_songs)) {
        lengths.insert(song.length.toInt());
        tempi.insert(song.bpm.toInt());
    }
    QVERIFY(lengths.contains(32) && lengths.contains(631));
    QVERIFY(tempi.contains(45) && tempi.contains(240));
    QVERIFY2(lengths.size() >= 100, qPrintable(QString::number(lengths.size())));
    QVERIFY2(tempi.size() >= 30, qPrintable(QString::number(tempi.size())));
}

void TestCatalogue::everyKeySpellingOccurs()
{
    QSet<QString> missing = keySpellings();
    for (const Song &song : std::as_const(m_songs))
        missing.remove(song.key);
    QVERIFY2(missing.isEmpty(), qPrintable(QStringList(missing.values()).join(s(", "))));
}

void TestCatalogue::keysAreSpelledAsListed()
{
    for (const Song &song : std::as_const(m_songs)) {
        QVERIFY2(keySpellings().contains(song.key), qPrintable(song.fileName + s(": ") + song.key));
    }
}

void TestCatalogue::fileNamesAreUniqueBaseNames()
{
    static const QRegularExpression form(s("^[A-Z0-9_-]{1,8}\\z"));
    QSet<QString> names;
    for (const Song &song : std::as_const(m_songs)) {
        QVERIFY2(form.match(song.fileName).hasMatch(), qPrintable(song.fileName));
        QVERIFY2(!names.contains(song.fileName), qPrintable(song.fileName));
        names.insert(song.fileName);
    }
}

void TestCatalogue::markersAreBarsAndTexts()
{
    static const QRegularExpression form(s("^([1-9][0-9]{0,4};[^; ]([^;]*[^; ])?;)+\\z"));
    for (const Song &song : std::as_const(m_songs)) {
        if (song.markers.isNull())
            continue;
        const QString markers = song.markers.toString();
        QVERIFY2(form.match(markers).hasMatch(), qPrintable(song.fileName + s(": ") + markers));
        const QStringList parts = markers.split(QLatin1Char(';'), Qt::SkipEmptyParts);
        int lastBar = 0;
        for (int i = 0; i < parts.size(); i += 2) {
            QVERIFY2(parts.at(i).toInt() > lastBar && parts.at(i).toInt() <= 65535,
                     qPrintable(song.fileName + s(": ") + markers));
            lastBar = parts.at(i).toInt();
        }
    }
}

void TestCatalogue::markersLieWithinTheSong()
{
    for (const Song &song : std::as_const(m_songs)) {
        if (song.markers.isNull())
            continue;
        const QString markers = song.markers.toString();
        const QStringList parts = markers.split(QLatin1Char(';'), Qt::SkipEmptyParts);
        QVERIFY2(parts.size() >= 4, qPrintable(song.fileName + s(": ") + markers));
        QVERIFY2(parts.first() == s("1"), qPrintable(song.fileName + s(": ") + markers));
        const int lastBar = parts.at(parts.size() - 2).toInt();
        QVERIFY2(earliestStart(lastBar, song.bpm.toInt()) < song.length.toInt(),
                 qPrintable(song.fileName + s(": ") + markers));
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
    const auto shared = std::count_if(songsByTitle.cbegin(), songsByTitle.cend(),
                                      [](int songs) { return songs > 1; });
    QVERIFY2(shared >= 5, qPrintable(QString::number(shared)));
    QVERIFY2(songsByTitle.size() * 10 >= m_songs.size() * 9, "most titles stand alone");
}

void TestCatalogue::songsOfOneTitleDiffer()
{
    QSet<QString> songs;
    for (const Song &song : std::as_const(m_songs)) {
        const QString titleAndAuthor = song.title + QLatin1Char('\n') + song.author;
        QVERIFY2(!songs.contains(titleAndAuthor), qPrintable(song.fileName));
        songs.insert(titleAndAuthor);
    }
}

void TestCatalogue::someMarkersAreNull()
{
    const auto withoutMarkers = std::count_if(
        m_songs.cbegin(), m_songs.cend(), [](const Song &song) { return song.markers.isNull(); });
    QVERIFY2(withoutMarkers >= 10, qPrintable(QString::number(withoutMarkers)));
}

QTEST_GUILESS_MAIN(TestCatalogue)
#include "test_catalogue.moc"
