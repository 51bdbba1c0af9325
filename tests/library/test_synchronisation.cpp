// Synchronisation: how a song is found, and what is written.
#include "support/librarytable.h"
#include "support/logcapture.h"
#include "support/songbytes.h"
#include "support/syncfixture.h"

#include <QTest>

using namespace syncfixture;

namespace
{

/** An MFX file with this long name in its header; no MFX file counts as signed. */
QByteArray mfxWithLongName(const QByteArray &longName, const QString &title)
{
    samplesongs::Tags tags;
    tags.title = title;
    QByteArray bytes = samplesongs::mfxBytes("_MF3", midi(), tags);
    constexpr int longNamePosition = 42;
    return bytes.replace(longNamePosition, longName.size(), longName);
}

/** The lines that synchronisation writes itself, without those of the files and the record. */
QStringList ownLines()
{
    QStringList own;
    for (const QString &line : LogCapture::lines()) {
        if (line.startsWith(QStringLiteral("[UPDATE]")) || line.startsWith(QLatin1Char('=')) ||
            line.startsWith(QStringLiteral("Record ")) || line.trimmed().isEmpty() ||
            line.startsWith(QStringLiteral("Found in DB")) ||
            line.startsWith(QStringLiteral("          UPDATE")))
            own.append(line);
    }
    return own;
}

const QString bannerLine = QString(44, QLatin1Char('=')) + QLatin1Char(' ');
const QString endOfRowLine = QString(74, QLatin1Char('=')) + QLatin1Char(' ');

} // namespace

class TestSynchronisation : public QObject
{
    Q_OBJECT

private slots:
    void emptyLibraryIsRefusedBeforeTheBackupOffer();
    void refusedBackupChangesNothing();
    void everyStepIsLogged();
    void fileKeyLosesAnExtensionOfThreeWordCharacters_data();
    void fileKeyLosesAnExtensionOfThreeWordCharacters();
    void whatKilledProgramsLeftIsRemovedByEachRun();
    void isFoundByFileNameFirst();
    void isFoundByLongNameBeforeTitle();
    void emptyLongNameIsNotLookedUp();
    void isFoundByTitleLast();
    void titleOfTwoSongsIsNotTaken();
    void catalogueDataAreWrittenIntoTheFile();
    void mp3AndMfxAreWrittenToo();
    void rowShowsWhatTheFileHoldsAfterwards();
    void emptyCatalogueKeyKeepsTheFilesOwnKey();
    void missingCatalogueNumbersAreNotWritten();
};

void TestSynchronisation::emptyLibraryIsRefusedBeforeTheBackupOffer()
{
    LibraryTable library({row("SONG", "SONG")});
    QVERIFY(library.isGood());
    Run run(library);
    const LogCapture log;
    QVERIFY(!run.synchronisation.run(false));
    QCOMPARE(LogCapture::lines(),
             QStringList({bannerLine, QStringLiteral("          UPDATE USER LIBRARY "), bannerLine,
                          QStringLiteral("[UPDATE] WARNING: Empty table. Aborting update !!! ")}));
    QCOMPARE(run.backupOffers, 0);
    QCOMPARE(run.progress.opened, 0);
}

void TestSynchronisation::refusedBackupChangesNothing()
{
    LibraryTable library({row("SONG", "SONG")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi()));
    const QByteArray before = library.bytes(QStringLiteral("song.mid"));
    Run run(library);
    run.backupAnswer = false;
    QVERIFY(!run.synchronisation.run(false));
    QCOMPARE(run.backupOffers, 1);
    QCOMPARE(run.progress.opened, 0);
    QCOMPARE(library.bytes(QStringLiteral("song.mid")), before);
    QCOMPARE(library.statuses(), QList<int>({isNew}));
}

void TestSynchronisation::everyStepIsLogged()
{
    LibraryTable library({row("SONG", "LA SONG")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi()));
    QVERIFY(library.add(QStringLiteral("other.mid"), signedMidi(titled("The other"))));
    Run run(library);
    const LogCapture log;
    QVERIFY(run.synchronisation.run(false));
    const QStringList expected = {
        bannerLine,
        QStringLiteral("          UPDATE USER LIBRARY "),
        bannerLine,
        QStringLiteral("[UPDATE] rowIdx:  0 "),
        QStringLiteral("[UPDATE] updating file:  \"%1\" ")
            .arg(library.path(QStringLiteral("song.mid"))),
        QStringLiteral("Found in DB by:  \"FILENAME: SONG\" "),
        endOfRowLine,
        QStringLiteral(" "),
        QStringLiteral("[UPDATE] rowIdx:  1 "),
        QStringLiteral("[UPDATE] updating file:  \"%1\" ")
            .arg(library.path(QStringLiteral("other.mid"))),
        QStringLiteral("Record  \"OTHER/THE OTHER\" NOT found in DB "),
        endOfRowLine,
        QStringLiteral(" "),
    };
    QCOMPARE(ownLines(), expected);
    QVERIFY(LogCapture::contains(QStringLiteral("  Title     : \"LA SONG\" ")));
}

void TestSynchronisation::fileKeyLosesAnExtensionOfThreeWordCharacters_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("key");
    QTest::newRow("three letters") << "song.mid"
                                   << "SONG";
    QTest::newRow("letter and digit") << "Song.mf3"
                                      << "SONG";
    QTest::newRow("underscore") << "song.m_3"
                                << "SONG";
    QTest::newRow("four letters") << "song.midi"
                                  << "SONG.MIDI";
    QTest::newRow("two letters") << "song.mi"
                                 << "SONG.MI";
    QTest::newRow("no extension") << "song"
                                  << "SONG";
    QTest::newRow("hyphen") << "song.m-3"
                            << "SONG.M-3";
    QTest::newRow("only the last one") << "song.kar.mid"
                                       << "SONG.KAR";
    QTest::newRow("one dot only") << "song..mid"
                                  << "SONG.";
    QTest::newRow("nothing else") << ".mid"
                                  << "";
    QTest::newRow("letters of any script") << "song.жéñ"
                                           << "SONG";
    QTest::newRow("combining mark") << QStringLiteral("song.me\u0301") << "SONG";
    QTest::newRow("upper case is longer") << "song.aß"
                                          << "SONG";
    QTest::newRow("upper case is too long") << "song.maß"
                                            << "SONG.MASS";
    QTest::newRow("line end behind") << "song.mid\n"
                                     << "SONG.MID\n";
}

void TestSynchronisation::fileKeyLosesAnExtensionOfThreeWordCharacters()
{
    QFETCH(QString, name);
    QFETCH(QString, key);
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.isGood());
    QVERIFY(library.add(name, signedMidi(titled("Title"))));
    Run run(library);
    const LogCapture log;
    QVERIFY(!run.synchronisation.updateFileWithDb(0));
    QVERIFY(LogCapture::contains(QStringLiteral("Record  \"%1/TITLE\" NOT found in DB ").arg(key)));
}

void TestSynchronisation::whatKilledProgramsLeftIsRemovedByEachRun()
{
    LibraryTable library({row("SONG", "TITLE")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(titled("Title"))));
    Run run(library);
    const LogCapture log;
    const QString left = library.path(QStringLiteral(".song.mp3.0123abcd.kavena-tmp"));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(samplesongs::writeFile(left, "half"));
        QVERIFY(run.synchronisation.run(false));
        QVERIFY(!QFileInfo::exists(left));
    }
}

void TestSynchronisation::isFoundByFileNameFirst()
{
    LibraryTable library(
        {row("TITLED", "MY TITLE"), row("LONG", "BY LONG NAME"), row("SONG", "BY FILE NAME")});
    QVERIFY(library.add(QStringLiteral("song.mf3"),
                        mfxWithLongName("LONG.MF3", QStringLiteral("My title"))));
    Run run(library);
    const LogCapture log;
    QVERIFY(run.synchronisation.run(false));
    QVERIFY(LogCapture::contains(QStringLiteral("Found in DB by:  \"FILENAME: SONG\" ")));
}

void TestSynchronisation::isFoundByLongNameBeforeTitle()
{
    LibraryTable library({row("TITLED", "MY TITLE"), row("LONG", "BY LONG NAME")});
    QVERIFY(library.add(QStringLiteral("song.mf3"),
                        mfxWithLongName("Long.mf3", QStringLiteral("My title"))));
    Run run(library);
    const LogCapture log;
    QVERIFY(run.synchronisation.run(false));
    QVERIFY(LogCapture::contains(QStringLiteral("Found in DB by:  \"MFXLONGNAME: LONG\" ")));
    QVERIFY(LogCapture::contains(QStringLiteral("  Title     : \"BY LONG NAME\" ")));
}

void TestSynchronisation::emptyLongNameIsNotLookedUp()
{
    LibraryTable library({row("", "WITHOUT A NAME")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(titled("My title"))));
    QVERIFY(library.add(QStringLiteral("none.mf3"), mfxWithLongName("", QStringLiteral("Two"))));
    QVERIFY(library.add(QStringLiteral("dot.mf3"), mfxWithLongName(".MF3", QStringLiteral("3"))));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isNotSynced, isNotSynced, isNotSynced}));
}

void TestSynchronisation::isFoundByTitleLast()
{
    LibraryTable library({row("TITLED", "MY TITLE")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(titled("My title"))));
    Run run(library);
    const LogCapture log;
    QVERIFY(run.synchronisation.run(false));
    QVERIFY(LogCapture::contains(QStringLiteral("Found in DB by:  \"TITLE: MY TITLE\" ")));
    QCOMPARE(library.statuses(), QList<int>({isSynced}));
}

void TestSynchronisation::titleOfTwoSongsIsNotTaken()
{
    LibraryTable library({row("ONE", "MY TITLE"), row("TWO", "MY TITLE")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(titled("My title"))));
    const QByteArray before = library.bytes(QStringLiteral("song.mid"));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isNotSynced}));
    QCOMPARE(library.bytes(QStringLiteral("song.mid")), before);
}

void TestSynchronisation::catalogueDataAreWrittenIntoTheFile()
{
    LibraryTable library({row("SONG", "LA SONG")});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi()));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));

    const SongInfo song = library.song(QStringLiteral("song.mid"));
    QCOMPARE(song.title, QStringLiteral("LA SONG"));
    QCOMPARE(song.artist, QStringLiteral("JOHN DOE"));
    QCOMPARE(song.genre, QStringLiteral("SWING"));
    QCOMPARE(song.author, QStringLiteral("SMITH"));
    QCOMPARE(song.length, 200);
    QCOMPARE(song.userBpm, 96);
    QCOMPARE(song.key, QStringLiteral("A-"));
    QCOMPARE(song.markers.size(), 2);
    QCOMPARE(song.markers.at(1).bar, quint16{19});
    QCOMPARE(song.markers.at(1).text, QStringLiteral("Verse1"));
    QVERIFY(library.bytes(QStringLiteral("song.mid")).contains(songbytes::notes()));
}

void TestSynchronisation::mp3AndMfxAreWrittenToo()
{
    LibraryTable library({row("SONG", "LA SONG"), row("PACKED", "PACKED SONG")});
    const QByteArray audio = QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(300, 'a');
    QVERIFY(library.add(QStringLiteral("song.mp3"), songbytes::id3Tag(QByteArray()) + audio));
    QVERIFY(library.add(QStringLiteral("packed.mf3"), mfxWithLongName("OTHER", QString())));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isSynced, isSynced}));
    QCOMPARE(library.song(QStringLiteral("song.mp3")).title, QStringLiteral("LA SONG"));
    QCOMPARE(library.song(QStringLiteral("song.mp3")).artist, QStringLiteral("JOHN DOE"));
    QVERIFY(library.bytes(QStringLiteral("song.mp3")).endsWith(audio));
    QCOMPARE(library.song(QStringLiteral("packed.mf3")).title, QStringLiteral("PACKED SONG"));
    QCOMPARE(library.song(QStringLiteral("packed.mf3")).markers.size(), 2);
    QCOMPARE(library.song(QStringLiteral("packed.mf3")).mfxLongName, QStringLiteral("OTHER"));
}

void TestSynchronisation::rowShowsWhatTheFileHoldsAfterwards()
{
    // The file's own genre stays, so the row must show it and not the catalogue's.
    LibraryTable library({row("SONG", "LA SONG")});
    const QByteArray genre = songbytes::kravoEvent(1, "Polka");
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(genre)));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.cell(0, "title"), QStringLiteral("LA SONG"));
    QCOMPARE(library.cell(0, "artist"), QStringLiteral("JOHN DOE"));
    QCOMPARE(library.cell(0, "genre"), QStringLiteral("Polka"));
    QCOMPARE(library.cell(0, "author"), QStringLiteral("SMITH"));
    QCOMPARE(library.cell(0, "length"), QStringLiteral("03:20"));
    QCOMPARE(library.cell(0, "userbpm"), QStringLiteral("96"));
    QCOMPARE(library.cell(0, "key"), QStringLiteral("A-"));
    QCOMPARE(library.cell(0, "filename"), library.path(QStringLiteral("song.mid")));
    QCOMPARE(library.cell(0, "shortname"), QStringLiteral("song.mid"));
}

void TestSynchronisation::emptyCatalogueKeyKeepsTheFilesOwnKey()
{
    catalogue::Row keyless = row("SONG", "LA SONG");
    keyless.key.clear();
    catalogue::Row other = keyless;
    other.filename = QStringLiteral("OTHER");
    LibraryTable library({keyless, other});
    const QByteArray keyOfD = songbytes::metaEvent(0x59, QByteArray("\x02\x00", 2));
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi(keyOfD)));
    QVERIFY(library.add(QStringLiteral("other.mid"), signedMidi()));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isSynced, isSynced}));
    QCOMPARE(library.song(QStringLiteral("song.mid")).key, QStringLiteral("D"));
    QCOMPARE(library.song(QStringLiteral("other.mid")).key, QString());
    QVERIFY(!library.bytes(QStringLiteral("other.mid")).contains(QByteArray("\xFF\x59", 2)));
}

void TestSynchronisation::missingCatalogueNumbersAreNotWritten()
{
    catalogue::Row numberless = row("SONG", "LA SONG");
    numberless.length = QStringLiteral("long");
    numberless.bpm = QVariant();
    LibraryTable library({numberless});
    QVERIFY(library.add(QStringLiteral("song.mid"), signedMidi()));
    Run run(library);
    QVERIFY(run.synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>({isSynced}));
    QCOMPARE(library.song(QStringLiteral("song.mid")).length, 0);
}

QTEST_GUILESS_MAIN(TestSynchronisation)

#include "test_synchronisation.moc"
