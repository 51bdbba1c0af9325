// Characters that a format cannot hold are told before and after they are lost.
#include "library/answer.h"
#include "library/changepreview.h"
#include "library/lostcharacters.h"
#include "library/songeditor.h"
#include "library/synchronisation.h"
#include "support/librarytable.h"
#include "support/recordedprogress.h"
#include "support/songbytes.h"

#include <QFileInfo>
#include <QTest>

namespace
{

QByteArray mp3(const QByteArray &frames)
{
    return songbytes::id3Tag(frames) + QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(300, 'a');
}

QByteArray midi()
{
    return songbytes::midiFile({songbytes::track(songbytes::notes())});
}

std::optional<ChangePreview> previewOf(LibraryTable &library)
{
    ProgressRecord progress;
    return ChangePreview::compute(library.database, library.model(), recordedBy(progress));
}

/** "Field: new value [lost characters]" for each change of texts. */
QStringList textChanges(const ChangePreview::Song &song)
{
    const QMap<ChangePreview::Field, QString> names = {
        {ChangePreview::Field::Title, QStringLiteral("title")},
        {ChangePreview::Field::Artist, QStringLiteral("artist")},
        {ChangePreview::Field::Genre, QStringLiteral("genre")},
        {ChangePreview::Field::Author, QStringLiteral("author")}};
    QStringList lines;
    for (const ChangePreview::Change &change : song.changes) {
        if (names.contains(change.field))
            lines.append(QStringLiteral("%1: %2 [%3]")
                             .arg(names.value(change.field), change.after, change.lost));
    }
    return lines;
}

} // namespace

class TestLostCharacters : public QObject
{
    Q_OBJECT

private slots:
    void charactersAreListed_data();
    void charactersAreListed();
    void previewTellsThem();
    void previewTellsOnlyWhatIsWritten();
    void synchronisingReportsThem();
    void editForAllSongsReportsThem();
};

void TestLostCharacters::charactersAreListed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("list");
    QTest::newRow("none") << QStringLiteral("Città") << QString();
    QTest::newRow("one") << QStringLiteral("Dvořák") << QStringLiteral("ř");
    QTest::newRow("each once") << QStringLiteral("Łódź Ł") << QStringLiteral("Ł, ź");
    QTest::newRow("accent of its own") << QStringLiteral("e\u0301") << QStringLiteral("U+0301");
    QTest::newRow("without a picture") << QStringLiteral("a\u200Bb") << QStringLiteral("U+200B");
    QTest::newRow("space") << QStringLiteral("a\u2003b") << QStringLiteral("U+2003");
    QTest::newRow("two units") << QStringLiteral("\U0001F3B5") << QStringLiteral("\U0001F3B5");
    QTest::newRow("half a character") << QString(QChar(0xD83C)) << QStringLiteral("U+D83C");
}

void TestLostCharacters::charactersAreListed()
{
    QFETCH(QString, text);
    QFETCH(QString, list);
    QCOMPARE(lostCharacters(text), list);
}

void TestLostCharacters::previewTellsThem()
{
    catalogue::Row row;
    row.filename = QStringLiteral("SONG");
    row.title = QStringLiteral("RŮŽE – 1");
    row.artist = QStringLiteral("DVOŘÁK A");
    row.altartist = QStringLiteral("A DVOŘÁK’S");
    row.genre = QStringLiteral("SWING");
    row.author = QStringLiteral("Ł");
    LibraryTable library({row});
    QVERIFY(library.isGood());
    QVERIFY(library.add(QStringLiteral("song.mid"), midi()));
    QVERIFY(library.add(QStringLiteral("song.mp3"), mp3(QByteArray())));
    QVERIFY(library.add(QStringLiteral("song.mf3"), samplesongs::mfxBytes("_MF3", midi(), {})));
    const auto preview = previewOf(library);
    QVERIFY(preview.has_value());
    QCOMPARE(preview->changed.size(), 3);
    for (const ChangePreview::Song &song : preview->changed)
        QCOMPARE(textChanges(song),
                 QStringList({QStringLiteral("title: R??E ? 1 [Ů, Ž, –]"),
                              QStringLiteral("artist: A DVO?ÁK?S [Ř, ’]"),
                              QStringLiteral("genre: SWING []"), QStringLiteral("author: ? [Ł]")}));
}

void TestLostCharacters::previewTellsOnlyWhatIsWritten()
{
    catalogue::Row row;
    row.filename = QStringLiteral("SONG");
    row.title = QString(31, QLatin1Char('T')) + QStringLiteral("ŁŻ");
    row.artist = QStringLiteral("DOE?");
    row.genre = QStringLiteral("Ł");
    LibraryTable library({row});
    QVERIFY(library.isGood());
    // The genre stands in the file, where it stays; of the title 32 characters are written.
    QVERIFY(library.add(
        QStringLiteral("song.mf3"),
        samplesongs::mfxBytes("_MF3", midi(), {QString(), QString(), QStringLiteral("Pop")})));
    const auto preview = previewOf(library);
    QVERIFY(preview.has_value());
    QCOMPARE(preview->changed.size(), 1);
    QCOMPARE(textChanges(preview->changed.first()),
             QStringList({QStringLiteral("title: ") + QString(31, QLatin1Char('T')) +
                              QStringLiteral("? [Ł]"),
                          QStringLiteral("artist: DOE? []")}));
}

void TestLostCharacters::synchronisingReportsThem()
{
    catalogue::Row row;
    row.filename = QStringLiteral("A");
    row.title = QStringLiteral("RŮŽE");
    row.artist = QStringLiteral("DVOŘÁK");
    catalogue::Row plain;
    plain.filename = QStringLiteral("B");
    plain.title = QStringLiteral("AZZURRO");
    LibraryTable library({row, plain});
    QVERIFY(library.isGood());
    QVERIFY(library.add(QStringLiteral("a.mid"), midi()));
    QVERIFY(library.add(QStringLiteral("b.mid"), midi()));
    ProgressRecord progress;
    Synchronisation run(
        library.database, library.model(), [] { return true; },
        [](const QString &) { return Answer::Yes; }, recordedBy(progress));
    QVERIFY(run.run(false));
    QCOMPARE(run.report().findings().size(), 1);
    const SongFinding finding = run.report().findings().first();
    QCOMPARE(finding.kind, SongFinding::Kind::LostCharacters);
    QCOMPARE(finding.path, library.path(QStringLiteral("a.mid")));
    QCOMPARE(RunReport::text(finding), QStringLiteral("\"?\" al posto di: Ů, Ž, Ř"));
    QCOMPARE(run.report().summary(),
             QStringLiteral("In 1 song ci sono caratteri che il player mostra come \"?\"."));
    QVERIFY(library.song(QStringLiteral("a.mid")).title == QStringLiteral("R??E"));
}

void TestLostCharacters::editForAllSongsReportsThem()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mp3", "c.mf3"}) {
        const QByteArray bytes = QByteArray(name).endsWith("mid") ? midi()
                                 : QByteArray(name).endsWith("mp3")
                                     ? mp3(QByteArray())
                                     : samplesongs::mfxBytes("_MF3", midi(), {});
        QVERIFY(library.add(QString::fromLatin1(name), bytes));
    }
    for (const bool toAll : {false, true}) {
        ProgressRecord progress;
        SongEditor editor(
            library.model(),
            [toAll](const SongInfo &info) {
                SongEdit edit;
                edit.info = info;
                edit.info.artist = QStringLiteral("Dvořák");
                edit.artistToAll = toAll;
                return std::optional<SongEdit>(edit);
            },
            [] { return false; }, recordedBy(progress));
        QVERIFY(editor.edit(1));
        QStringList told;
        for (const SongFinding &finding : editor.report().findings())
            told.append(QFileInfo(finding.path).fileName() + QStringLiteral(": ") +
                        RunReport::text(finding));
        told.sort();
        // Of a single song the dialog has told it while it was typed.
        const QString lost = QStringLiteral(": \"?\" al posto di: ř");
        QCOMPARE(told, toAll ? QStringList({QStringLiteral("a.mid") + lost,
                                            QStringLiteral("b.mp3") + lost,
                                            QStringLiteral("c.mf3") + lost})
                             : QStringList());
        QCOMPARE(library.song(QStringLiteral("b.mp3")).artist, QStringLiteral("Dvo?ák"));
    }
}

QTEST_MAIN(TestLostCharacters)

#include "test_lostcharacters.moc"
