// What the music of songs offers for them, and that it is written as it was shown.
#include "library/musicoffer.h"
#include "library/severaleditor.h"
#include "support/countingprogress.h"
#include "support/midievents.h"
#include "support/samplesongs.h"
#include "support/songfolder.h"

#include <QElapsedTimer>
#include <QTest>

using namespace midievents;
using namespace songbytes;

namespace
{

const QByteArray key = metaEvent(0x59, QByteArray("\x02\x00", 2)); // D major

/** Ten seconds of music. */
QByteArray tenSeconds()
{
    return bpm(60) + pause(10 * quarter);
}

/** Notes that make C major likely. */
QByteArray tune()
{
    QByteArray bytes;
    for (const int pitch : {60, 64, 67, 72, 65, 69, 72, 67, 60})
        bytes += note(0, pitch, quarter);
    return bytes;
}

QByteArray song(const QByteArray &events)
{
    return midiFile({track(events)});
}

QString markersOf(const MusicOffer &offer)
{
    return offer.longTextFound(MusicOffer::Markers);
}

MusicOffer::Values all()
{
    return MusicOffer::Length | MusicOffer::Tempo | MusicOffer::Key | MusicOffer::Markers;
}

SongInfo infoOf(const QString &path)
{
    MetaSong file;
    SongInfo info;
    if (file.importFile(path))
        file.getSongInfo(info);
    return info;
}

} // namespace

class TestMusicOffer : public QObject
{
    Q_OBJECT

private slots:
    void whatTheSongLacksIsAdvised();
    void whatTheSongSaysIsOfferedButNotAdvised();
    void guessedKeyIsOfferedButNotAdvised();
    void valuesAreShownAsTheUserReadsThem();
    void markersAndCuesHaveTheirBars();
    void barsFollowTheMetresOfAnotherTrack();
    void noMarkerStandsBeforeTheFirstBar();
    void aBarHasOneMarker();
    void anyTextIsAMarkerOfOneLine();
    void manyMarkersAreNotAdvised();
    void moreMarkersThanCanBeReadAreTold();
    void anMp3OffersItsLengthAlone();
    void songsThatCannotBeMeasuredSayWhy_data();
    void songsThatCannotBeMeasuredSayWhy();
    void hugeTempoMapsAreMeasuredInBoundedTime();
    void measuringStopsBetweenSongs();
    void tickedValuesAreWrittenAndNoOthers();
    void markersAreReplacedOnlyWhenTicked();
    void markersLeaveTheAuthorAndTheMusic();
    void packedSongGetsMarkersAndTheirFlag();
    void songWhoseMarkersChangedSinceIsLeftAlone();

private:
    MusicOffer offerOf(const QByteArray &bytes)
    {
        m_path = m_songs.write(QStringLiteral("song.mid"), bytes);
        return MusicOffer::of(m_path);
    }

    /** Writes these values of the offer; the song then, or what kept it from being written. */
    static QString write(const MusicOffer &offer, MusicOffer::Values values)
    {
        CountingProgress progress;
        const SeveralEditor::Report report =
            SeveralEditor().run({offer.with(values, SongStandIn())}, progress);
        return report.problems.isEmpty() ? QString()
                                         : report.problems.findings().constFirst().reason;
    }

    SongFolder m_songs;
    QString m_path;
};

void TestMusicOffer::whatTheSongLacksIsAdvised()
{
    const MusicOffer offer = offerOf(song(text(6, "Intro") + tune()));
    QCOMPARE(offer.filling(), all());
    QCOMPARE(offer.replacing(), MusicOffer::Values());
    const MusicOffer signedOne = offerOf(song(kravoEvent(4, "10") + key + tenSeconds()));
    QCOMPARE(signedOne.filling(), MusicOffer::Values(MusicOffer::Tempo));
    QCOMPARE(signedOne.advised(), MusicOffer::Values(MusicOffer::Tempo));
    QCOMPARE(signedOne.replacing(), MusicOffer::Values());
    QCOMPARE(signedOne.note(), QString());
}

void TestMusicOffer::whatTheSongSaysIsOfferedButNotAdvised()
{
    const MusicOffer offer =
        offerOf(song(kravoEvent(4, "200") + kravoEvent(5, "77") + markerEvent(3, "Verse") +
                     text(6, "Intro") + key + tenSeconds()));
    QCOMPARE(offer.filling(), MusicOffer::Values());
    QCOMPARE(offer.replacing(), MusicOffer::Length | MusicOffer::Tempo | MusicOffer::Markers);
    QCOMPARE(offer.advised(), MusicOffer::Values());
}

void TestMusicOffer::guessedKeyIsOfferedButNotAdvised()
{
    const MusicOffer offer = offerOf(song(tune()));
    QVERIFY(offer.isGuess(MusicOffer::Key));
    QVERIFY(!offer.isGuess(MusicOffer::Length));
    QCOMPARE(offer.textFound(MusicOffer::Key), QStringLiteral("C"));
    QCOMPARE(offer.advised(), MusicOffer::Length | MusicOffer::Tempo);
}

void TestMusicOffer::valuesAreShownAsTheUserReadsThem()
{
    const MusicOffer offer =
        offerOf(song(kravoEvent(4, "200") + text(6, "Intro") + bpm(90) + pause(96 * 90)));
    QCOMPARE(offer.textBefore(MusicOffer::Length), QStringLiteral("03:20"));
    QCOMPARE(offer.textFound(MusicOffer::Length), QStringLiteral("01:00"));
    QCOMPARE(offer.textBefore(MusicOffer::Tempo), QString());
    QCOMPARE(offer.textFound(MusicOffer::Tempo), QStringLiteral("90"));
    QCOMPARE(offer.textFound(MusicOffer::Markers), QStringLiteral("1: 1 Intro"));
}

void TestMusicOffer::markersAndCuesHaveTheirBars()
{
    const MusicOffer offer = offerOf(song(text(6, "Intro") + after(8 * quarter, text(7, "Verse")) +
                                          after(4 * quarter, text(6, "Coda"))));
    QCOMPARE(markersOf(offer), QStringLiteral("1 Intro, 3 Verse, 4 Coda"));
}

void TestMusicOffer::barsFollowTheMetresOfAnotherTrack()
{
    // Two bars of 3/4, then 6/8.
    const QByteArray metres = metre(3, 2) + after(6 * quarter, metre(6, 3));
    const QByteArray marks = text(6, "A") + after(3 * quarter, text(6, "B")) +
                             after(3 * quarter, text(6, "C")) + after(3 * quarter, text(6, "D"));
    const MusicOffer offer = offerOf(midiFile({track(metres), track(marks)}, 1));
    QCOMPARE(markersOf(offer), QStringLiteral("1 A, 2 B, 3 C, 4 D"));
}

void TestMusicOffer::noMarkerStandsBeforeTheFirstBar()
{
    // An upbeat of one quarter has a metre of its own; it is the first bar.
    const QByteArray events = text(6, "Upbeat") + metre(1, 2) + after(quarter, metre(4, 2)) +
                              text(6, "Intro") + pause(4 * quarter);
    QCOMPARE(markersOf(offerOf(song(events))), QStringLiteral("1 Upbeat, 2 Intro"));
}

void TestMusicOffer::aBarHasOneMarker()
{
    const QByteArray events = text(6, "Verse") + text(7, "Lights") +
                              after(quarter, text(6, "Fill")) +
                              after(3 * quarter, text(6, "Chorus")) + pause(quarter);
    QCOMPARE(markersOf(offerOf(song(events))), QStringLiteral("1 Verse, 2 Chorus"));
}

void TestMusicOffer::anyTextIsAMarkerOfOneLine()
{
    const QByteArray longText(120, 'x');
    const QByteArray events = text(6, "Ponte\r\n 2\t") + after(4 * quarter, text(6, "\x07\x1B")) +
                              after(4 * quarter, text(6, "Stra\xDF\x65")) +
                              after(4 * quarter, text(6, "1;2")) +
                              after(4 * quarter, text(6, longText + "1234 6"));
    QCOMPARE(markersOf(offerOf(song(events))), QString::fromUtf8("1 Ponte 2, 3 Straße, 4 1;2, 5 ") +
                                                   QString::fromLatin1(longText) +
                                                   QStringLiteral("1234"));
}

void TestMusicOffer::manyMarkersAreNotAdvised()
{
    QByteArray events = text(6, "word");
    for (int i = 0; i < 100; ++i)
        events += after(4 * quarter, text(6, "word"));
    const MusicOffer offer = offerOf(song(key + events));
    QVERIFY(offer.filling().testFlag(MusicOffer::Markers));
    QVERIFY(!offer.advised().testFlag(MusicOffer::Markers));
    QVERIFY(offer.textFound(MusicOffer::Markers).startsWith(QLatin1String("101: 1 word, 2 word")));
    QVERIFY(offer.textFound(MusicOffer::Markers).size() < 100);
    QCOMPARE(offer.note(), QString());
    QCOMPARE(write(offer, MusicOffer::Markers), QString());
    QCOMPARE(infoOf(m_path).markers.size(), 101);
}

void TestMusicOffer::moreMarkersThanCanBeReadAreTold()
{
    QByteArray events = text(6, "word");
    for (int i = 0; i < 1500; ++i)
        events += after(4 * quarter, text(6, "word"));
    const MusicOffer offer = offerOf(song(key + events));
    QVERIFY(!offer.note().isEmpty());
    QCOMPARE(write(offer, MusicOffer::Markers), QString());
    QCOMPARE(infoOf(m_path).markers.size(), 1000);
    QCOMPARE(infoOf(m_path).key, QStringLiteral("D"));
}

void TestMusicOffer::anMp3OffersItsLengthAlone()
{
    const QString path = m_songs.filePath(QStringLiteral("song.mp3"));
    QVERIFY(samplesongs::makeMp3(path, {QStringLiteral("Title"), {}, {}}, 3));
    const MusicOffer offer = MusicOffer::of(path);
    QCOMPARE(offer.filling(), MusicOffer::Values(MusicOffer::Length));
    QCOMPARE(offer.textFound(MusicOffer::Length), QStringLiteral("00:03"));
    QCOMPARE(offer.note(), QString());
    QCOMPARE(write(offer, all()), QString());
    QCOMPARE(infoOf(path).length, 3);
    QCOMPARE(infoOf(path).userBpm, 0);
}

void TestMusicOffer::songsThatCannotBeMeasuredSayWhy_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<MusicOffer::Values>("unmeasurable");
    QTest::addColumn<QString>("note");
    const auto row = [](const char *name, const QByteArray &bytes, MusicOffer::Values values) {
        QTest::newRow(name) << bytes << values << QString();
    };
    const auto unreadable = [](const char *name, const QByteArray &bytes,
                               UnreadableFile::Reason reason) {
        QTest::newRow(name) << bytes << MusicOffer::Values()
                            << UnreadableFile{{}, reason}.reasonText();
    };
    row("fourHours", song(key + bpm(60) + pause(4 * 3600 * quarter)), MusicOffer::Length);
    QByteArray undivided = song(key + tenSeconds());
    undivided[12] = 0;
    undivided[13] = 0;
    row("noDivision", undivided, MusicOffer::Length);
    row("tooFast", song(key + kravoEvent(4, "1") + bpm(1500) + pause(9600)), MusicOffer::Tempo);
    row("noNotes", song(tenSeconds()), MusicOffer::Key);
    row("tempoZero", song(key + tempo(0) + pause(10 * quarter)), MusicOffer::Values());
    unreadable("empty", QByteArray(), UnreadableFile::Reason::Empty);
    unreadable("damaged", "MThd and no more", UnreadableFile::Reason::Damaged);
    unreadable("noSong", "a shopping list", UnreadableFile::Reason::UnknownFormat);
}

void TestMusicOffer::songsThatCannotBeMeasuredSayWhy()
{
    QFETCH(QByteArray, bytes);
    const MusicOffer offer = offerOf(bytes);
    QTEST(offer.unmeasurable(), "unmeasurable");
    QTEST(offer.note(), "note");
    QCOMPARE(offer.before().fileName, m_path);
}

void TestMusicOffer::hugeTempoMapsAreMeasuredInBoundedTime()
{
    QByteArray tempos;
    for (quint32 i = 0; i < 1000000; ++i)
        tempos += "\x01\xFF\x51\x03" + bigEndian(500000 + i % 1000, 3);
    QElapsedTimer timer;
    timer.start();
    const MusicOffer offer = offerOf(song(key + tempos));
    QVERIFY2(timer.elapsed() < 30000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(offer.textFound(MusicOffer::Length), QStringLiteral("86:54"));
}

void TestMusicOffer::measuringStopsBetweenSongs()
{
    QStringList paths;
    for (int i = 0; i < 3000; ++i)
        paths << m_songs.filePath(QStringLiteral("none %1.mid").arg(i));
    CountingProgress progress;
    progress.cancelAt = 1;
    const qsizetype before = MusicOffer::ofSongs(paths, progress).size();
    QVERIFY(before > 0);
    QCOMPARE(progress.values, QList<int>{static_cast<int>(before)});
    progress.cancelAt = 0;
    QVERIFY(MusicOffer::ofSongs(paths, progress).isEmpty());
    progress.cancelAt = -1;
    const QList<MusicOffer> offers = MusicOffer::ofSongs(paths, progress);
    QCOMPARE(offers.size(), paths.size());
    QCOMPARE(offers.constLast().before().fileName, paths.constLast());
    QCOMPARE(progress.values.constLast(), 3000);
}

void TestMusicOffer::tickedValuesAreWrittenAndNoOthers()
{
    const MusicOffer offer =
        offerOf(song(metaEvent(3, "Title") + kravoEvent(5, "77") + text(6, "Intro") + tune()));
    QCOMPARE(write(offer, MusicOffer::Length | MusicOffer::Key), QString());
    SongInfo now = infoOf(m_path);
    QCOMPARE(now.title, QStringLiteral("Title"));
    QCOMPARE(now.length, 5);
    QCOMPARE(now.userBpm, 77);
    QCOMPARE(now.key, QStringLiteral("C"));
    QVERIFY(now.markers.isEmpty());
    QCOMPARE(write(MusicOffer::of(m_path), MusicOffer::Tempo | MusicOffer::Markers), QString());
    now = infoOf(m_path);
    QCOMPARE(now.userBpm, 120);
    QCOMPARE(now.markers, QList<Marker>({{1, QStringLiteral("Intro")}}));
    QCOMPARE(now.length, 5);
}

void TestMusicOffer::markersAreReplacedOnlyWhenTicked()
{
    const QByteArray bytes = song(markerEvent(3, "Old") + markerEvent(9, "Older") + key +
                                  text(6, "Intro") + tenSeconds());
    const MusicOffer offer = offerOf(bytes);
    QCOMPARE(write(offer, MusicOffer::Length), QString());
    QCOMPARE(infoOf(m_path).markers, offer.before().markers);
    QCOMPARE(write(MusicOffer::of(m_path), MusicOffer::Markers), QString());
    QCOMPARE(infoOf(m_path).markers, QList<Marker>({{1, QStringLiteral("Intro")}}));
    // Behind the first track's head no event of the maker's is removed, so nothing is written.
    const QByteArray far =
        song(text(1, "words") + after(5, markerEvent(3, "Far")) + text(6, "Intro") + tenSeconds());
    QVERIFY(!write(offerOf(far), MusicOffer::Markers).isEmpty());
    QCOMPARE(samplesongs::readFile(m_path), far);
}

void TestMusicOffer::markersLeaveTheAuthorAndTheMusic()
{
    const QByteArray music = text(6, "Intro") + tune();
    const MusicOffer offer = offerOf(song(kravoEvent(3, "The author") + music));
    QCOMPARE(write(offer, MusicOffer::Markers), QString());
    QCOMPARE(infoOf(m_path).author, QStringLiteral("The author"));
    QVERIFY(samplesongs::readFile(m_path).contains(music));
    QVERIFY(samplesongs::readFile(m_path).contains(markerEvent(1, "Intro")));
}

void TestMusicOffer::packedSongGetsMarkersAndTheirFlag()
{
    for (const char *magic : {"_MF3", "_MF4", "_MF5"}) {
        const MusicOffer offer = offerOf(samplesongs::mfxBytes(
            magic, song(text(6, "Intro") + after(8 * quarter, text(7, "Verse")) + tune()), {}));
        QVERIFY2(offer.advised().testFlag(MusicOffer::Markers), magic);
        QCOMPARE(write(offer, MusicOffer::Markers), QString());
        const SongInfo now = infoOf(m_path);
        QCOMPARE(now.markers,
                 QList<Marker>({{1, QStringLiteral("Intro")}, {3, QStringLiteral("Verse")}}));
        QCOMPARE(now.mfxFlags & 1, 1);
    }
}

void TestMusicOffer::songWhoseMarkersChangedSinceIsLeftAlone()
{
    const QByteArray music = key + text(6, "Intro") + tenSeconds();
    const MusicOffer offer = offerOf(song(music));
    const QByteArray other = song(markerEvent(5, "By hand") + music);
    QVERIFY(samplesongs::writeFile(m_path, other));
    QVERIFY(!write(offer, MusicOffer::Markers).isEmpty());
    QCOMPARE(samplesongs::readFile(m_path), other);
    QCOMPARE(write(offer, MusicOffer::Length), QString());
    QCOMPARE(infoOf(m_path).markers.size(), 1);
}

QTEST_GUILESS_MAIN(TestMusicOffer)
#include "test_musicoffer.moc"
