// What an edit of several songs shows before it is written.
#include "library/severalpreview.h"
#include "support/songfilemaker.h"

#include <QTest>

using Field = songfields::Field;

namespace
{

SongInfo song(const QString &path, const QString &title, const QString &format)
{
    SongInfo info;
    info.fileName = path;
    info.title = title;
    info.format = format;
    return info;
}

QList<SongInfo> threeSongs()
{
    return {
        song(QStringLiteral("/m/Mina - Volare.mid"), QStringLiteral("one"), QStringLiteral("MIDI")),
        song(QStringLiteral("/m/Other.mp3"), QStringLiteral("two"), QStringLiteral("MP3")),
        song(QStringLiteral("/m/Verdi - Aida.mf5"), QStringLiteral("Aida"), QStringLiteral("MF5"))};
}

EditStep titleStep(const QString &text)
{
    return EditStep(EditStep::Value{Field::Title, text});
}

} // namespace

class TestSeveralPreview : public QObject
{
    Q_OBJECT

private slots:
    void withoutStepsNothingChanges();
    void stepsFollowEachOther();
    void songThatDoesNotFitIsListed();
    void stepWithAProblemChangesNoSong();
    void stepThatTakesTooLongChangesNoSong();
    void previewShowsWhatTheFormatHolds_data();
    void previewShowsWhatTheFormatHolds();
    void standInHoldsWhatARealSongHolds_data();
    void standInHoldsWhatARealSongHolds();
    void lostCharactersAreNamed();
};

void TestSeveralPreview::withoutStepsNothingChanges()
{
    SeveralPreview preview(threeSongs());
    preview.setSteps({});
    QCOMPARE(preview.changed(), 0);
    QCOMPARE(preview.unfit(), 0);
    QCOMPARE(preview.songs().size(), size_t{3});
}

void TestSeveralPreview::stepsFollowEachOther()
{
    SeveralPreview preview(threeSongs());
    preview.setSteps(
        {titleStep(QStringLiteral("nel_blu")), EditStep(EditStep::Strip{{Field::Title}, true}),
         EditStep(EditStep::LetterCase{
             {Field::Title}, EditStep::LetterCase::Kind::Upper, QLocale(QLocale::English)})});
    QCOMPARE(preview.changed(), 3);
    for (const SeveralSong &each : preview.songs())
        QCOMPARE(each.after.title, QStringLiteral("NEL BLU"));
    preview.setSteps({});
    QCOMPARE(preview.changed(), 0);
}

void TestSeveralPreview::songThatDoesNotFitIsListed()
{
    SeveralPreview preview(threeSongs());
    preview.setSteps({EditStep(EditStep::FromName{QStringLiteral("%artist - %title")}),
                      EditStep(EditStep::Value{Field::Genre, QStringLiteral("POP")})});
    QCOMPARE(preview.unfit(), 1);
    QVERIFY(!preview.songs().at(1).reason.isEmpty());
    QVERIFY(preview.songs().at(0).reason.isEmpty());
    QCOMPARE(preview.songs().at(0).after.title, QStringLiteral("Volare"));
    QCOMPARE(preview.songs().at(1).after.title, QStringLiteral("two"));
    QCOMPARE(preview.songs().at(1).after.genre, QStringLiteral("POP"));
    QCOMPARE(preview.changed(), 3);
}

void TestSeveralPreview::stepWithAProblemChangesNoSong()
{
    SeveralPreview preview(threeSongs());
    preview.setSteps(
        {titleStep(QStringLiteral("x")), EditStep(EditStep::FromName{QStringLiteral("%nothing")})});
    QVERIFY(!preview.problem().isEmpty());
    QCOMPARE(preview.problemStep(), 1);
    QCOMPARE(preview.changed(), 0);
    preview.setSteps({titleStep(QStringLiteral("x"))});
    QCOMPARE(preview.problem(), QString());
    QCOMPARE(preview.problemStep(), -1);
    QCOMPARE(preview.changed(), 3);
}

void TestSeveralPreview::stepThatTakesTooLongChangesNoSong()
{
    QList<SongInfo> songs = threeSongs();
    songs[2].title = QString(400, QLatin1Char('a')) + QLatin1Char('!');
    SeveralPreview preview(songs);
    preview.setSteps({EditStep(EditStep::Replace{
        {Field::Title}, QStringLiteral("o|(a+)+$"), QStringLiteral("x"), true, true})});
    QVERIFY(!preview.problem().isEmpty());
    QCOMPARE(preview.changed(), 0);
    QCOMPARE(preview.songs().at(0).after.title, QStringLiteral("one"));
}

void TestSeveralPreview::previewShowsWhatTheFormatHolds_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("held");
    const QString longText(200, QLatin1Char('x'));
    QTest::newRow("MIDI, long") << "MIDI" << longText << longText.left(125);
    QTest::newRow("MFX, long") << "MF5" << longText << longText.left(32);
    QTest::newRow("MP3, long") << "MP3" << longText << longText;
    for (const char *format : {"MIDI", "MF3", "MF4", "MF5", "MP3"}) {
        QTest::addRow("%s, not Latin-1", format)
            << format << QStringLiteral("Вера é") << QStringLiteral("???? é");
        QTest::addRow("%s, zero byte", format)
            << format << QString::fromLatin1("ab\0cd", 5) << QStringLiteral("ab");
    }
}

void TestSeveralPreview::previewShowsWhatTheFormatHolds()
{
    QFETCH(QString, format);
    QFETCH(QString, text);
    QFETCH(QString, held);
    SeveralPreview preview({song(QStringLiteral("/m/a.x"), QStringLiteral("old"), format)});
    preview.setSteps({titleStep(text)});
    QCOMPARE(preview.songs().at(0).after.title, held);
    QCOMPARE(preview.songs().at(0).isCut(Field::Title),
             held.size() < text.size() && held.size() > 2);
}

void TestSeveralPreview::standInHoldsWhatARealSongHolds_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("variant");
    for (const char *format : {"MIDI", "MF3", "MF4", "MF5", "MP3"}) {
        for (int variant = 0; variant < 6; ++variant)
            QTest::addRow("%s %d", format, variant) << format << variant;
    }
}

void TestSeveralPreview::standInHoldsWhatARealSongHolds()
{
    QFETCH(QString, format);
    QFETCH(int, variant);
    const songfilemaker::Items items{"Title \xE9", "Artist", "Author", "Genre", "120", {}, "100"};
    const QTemporaryDir folder;
    const QString path = folder.filePath(songfilemaker::fileNameFor(format));
    QVERIFY(samplesongs::writeFile(path, songfilemaker::songFile(format, items)));
    MetaSong real;
    QVERIFY(real.importFile(path));
    const SongInfo before = songfilemaker::infoOf(real);
    SongInfo wanted = before;
    wanted.title = variant == 1 ? QString(300, QChar(0xE9)) : wanted.title;
    wanted.artist = variant == 2 ? QString() : wanted.artist;
    wanted.genre = variant == 3 ? QStringLiteral("Шансон “x”") : wanted.genre;
    wanted.key = variant == 4 ? QStringLiteral("Bb") : wanted.key;
    wanted.userBpm = variant == 5 ? 0 : 999;
    wanted.length = variant == 5 ? 0 : 301;
    const SongInfo held = SongStandIn().held(before, wanted);
    real.setSongInfo(wanted, true);
    QVERIFY(SongStandIn::isSame(held, songfilemaker::infoOf(real)));
    QVERIFY(!SongStandIn::isSame(held, before));
}

void TestSeveralPreview::lostCharactersAreNamed()
{
    SeveralPreview preview(
        {song(QStringLiteral("/m/a.mid"), QStringLiteral("old"), QStringLiteral("MIDI"))});
    preview.setSteps({titleStep(QStringLiteral("Dvořák"))});
    const QList<ChangePreview::Change> changes = preview.songs().at(0).changes();
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).after, QStringLiteral("Dvo?ák"));
    QCOMPARE(changes.at(0).lost, QStringLiteral("ř"));
}

QTEST_GUILESS_MAIN(TestSeveralPreview)
#include "test_severalpreview.moc"
