// The preview of a synchronisation: it says what synchronising then does, and does nothing itself.
#include "formats/mfxheader.h"
#include "library/answer.h"
#include "library/changepreview.h"
#include "library/synchronisation.h"
#include "support/librarytable.h"
#include "support/recordedprogress.h"
#include "support/songbytes.h"

#include <QDateTime>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QTest>

namespace
{

using Field = ChangePreview::Field;
using Change = ChangePreview::Change;

const QByteArray signature = songbytes::metaEvent(0x02, "(c) K-Ravo 2011");

QByteArray midi(const QByteArray &events = QByteArray())
{
    return songbytes::midiFile({songbytes::track(events + songbytes::notes())});
}

QByteArray mp3(const QByteArray &frames)
{
    return songbytes::id3Tag(frames) + QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(300, 'a');
}

catalogue::Row row(const QString &filename, const QString &title)
{
    catalogue::Row row;
    row.filename = filename;
    row.title = title;
    row.artist = QStringLiteral("DOE JOHN");
    row.altartist = QStringLiteral("JOHN DOE");
    row.genre = QStringLiteral("SWING");
    row.author = QStringLiteral("SMITH");
    row.length = 200;
    row.bpm = 96;
    row.key = QStringLiteral("A -");
    row.markers = QStringLiteral("1;Intro;19;Verse1;");
    return row;
}

ChangePreview previewOf(LibraryTable &library)
{
    ProgressRecord progress;
    const auto preview =
        ChangePreview::compute(library.database, library.model(), recordedBy(progress));
    if (!preview)
        qFatal("The preview was stopped");
    return *preview;
}

bool synchronise(LibraryTable &library)
{
    ProgressRecord progress;
    Synchronisation run(
        library.database, library.model(), [] { return true; },
        [](const QString &) { return Answer::Yes; }, recordedBy(progress));
    return run.run(false);
}

QString shown(const Change &change)
{
    return QStringLiteral("%1: '%2' -> '%3'")
        .arg(static_cast<int>(change.field))
        .arg(change.before, change.after);
}

QStringList shown(const QList<Change> &changes)
{
    QStringList lines;
    for (const Change &change : changes)
        lines.append(shown(change));
    return lines;
}

/** The preview's lines for a song; none when it would not change. */
QStringList shown(const ChangePreview &preview, const QString &fileName)
{
    for (const ChangePreview::Song &song : preview.changed) {
        if (song.fileName == fileName)
            return shown(song.changes);
    }
    return {};
}

/** What differs between two readings of a file, put down without the code under test. */
QStringList differences(const SongInfo &before, const SongInfo &after)
{
    const auto length = [](qint32 seconds) {
        return seconds > 0 ? QStringLiteral("%1:%2")
                                 .arg(seconds / 60, 2, 10, QLatin1Char('0'))
                                 .arg(seconds % 60, 2, 10, QLatin1Char('0'))
                           : QString();
    };
    const auto tempo = [](qint32 bpm) { return bpm > 0 ? QString::number(bpm) : QString(); };
    const auto markers = [](const SongInfo &info) {
        QString text;
        for (const Marker &marker : info.markers) {
            text += text.isEmpty() ? QString() : QStringLiteral(", ");
            text += QStringLiteral("%1 %2").arg(marker.bar).arg(marker.text);
        }
        return text;
    };
    const auto shownMarkers = [](const SongInfo &info) {
        return (info.mfxFlags & 1) != 0 ? QStringLiteral("sì") : QStringLiteral("no");
    };
    const QList<Change> all = {{Field::Title, before.title, after.title},
                               {Field::Artist, before.artist, after.artist},
                               {Field::Genre, before.genre, after.genre},
                               {Field::Author, before.author, after.author},
                               {Field::Length, length(before.length), length(after.length)},
                               {Field::Tempo, tempo(before.userBpm), tempo(after.userBpm)},
                               {Field::Key, before.key, after.key},
                               {Field::Markers, markers(before), markers(after)},
                               {Field::MarkersShown, shownMarkers(before), shownMarkers(after)}};
    QStringList lines;
    for (const Change &change : all) {
        if (change.before != change.after)
            lines.append(shown(change));
    }
    return lines;
}

struct FileState {
    QByteArray bytes;
    QDateTime modified;

    bool operator==(const FileState &other) const
    {
        return bytes == other.bytes && modified == other.modified;
    }
};

/** All that lies in the folder, with its contents and times. */
QMap<QString, FileState> filesOf(const LibraryTable &library)
{
    QMap<QString, FileState> files;
    const QFileInfoList infos =
        QDir(library.path()).entryInfoList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QFileInfo &info : infos)
        files[info.fileName()] = {samplesongs::readFile(info.filePath()), info.lastModified()};
    return files;
}

QStringList cells(LibraryTable &library)
{
    QStringList texts;
    for (int row = 0; row < library.model().rowCount(); ++row) {
        for (int column = 0; column < library.model().columnCount(); ++column)
            texts.append(library.model().index(row, column).data().toString());
    }
    return texts;
}

/** Adds the song, and makes it an old file: a write would show in its time. */
bool add(LibraryTable &library, const QString &name, const QByteArray &bytes)
{
    if (!library.add(name, bytes))
        return false;
    QFile file(library.path(name));
    return file.open(QIODevice::ReadWrite) &&
           file.setFileTime(QDateTime::currentDateTime().addDays(-3),
                            QFileDevice::FileModificationTime);
}

QByteArray oneOf(QRandomGenerator &random, const QList<QByteArray> &choices)
{
    return choices.at(random.bounded(choices.size()));
}

const QList<QByteArray> titles = {"", "-", "--", "La", "LA SONG", "la song", "Another", "Caff\xE8"};
const QList<QByteArray> people = {"", "-", "--", "JOHN DOE", "DOE JOHN", "Somebody Else"};
const QList<QByteArray> genres = {"", "-", "Beat"};

QByteArray randomMidi(QRandomGenerator &random)
{
    using namespace songbytes;
    const auto sometimes = [&random](const QByteArray &event) {
        return random.bounded(2) == 0 ? event : QByteArray();
    };
    return midi(sometimes(signature) + sometimes(metaEvent(0x03, oneOf(random, titles))) +
                sometimes(kravoEvent(2, oneOf(random, people))) +
                sometimes(kravoEvent(1, oneOf(random, genres))) +
                sometimes(kravoEvent(3, oneOf(random, people))) + sometimes(kravoEvent(4, "100")) +
                sometimes(kravoEvent(5, "120")) + sometimes(metaEvent(0x59, QByteArray(2, '\0'))) +
                sometimes(markerEvent(7, "Coda")));
}

QByteArray randomMfx(QRandomGenerator &random)
{
    samplesongs::Tags tags;
    tags.title = QString::fromLatin1(oneOf(random, titles));
    tags.artist = QString::fromLatin1(oneOf(random, people));
    tags.genre = QString::fromLatin1(oneOf(random, genres));
    QByteArray bytes =
        samplesongs::mfxBytes(oneOf(random, {"_MF3", "_MF4", "_MF5"}), randomMidi(random), tags);
    constexpr int tempoPosition = 38;
    if (random.bounded(2) == 0)
        bytes.replace(tempoPosition, 2, QByteArray(2, '\0')); // no valid tempo
    return bytes;
}

QByteArray randomMp3(QRandomGenerator &random)
{
    using namespace songbytes;
    const auto sometimes = [&random](const QByteArray &id, const QByteArray &text) {
        return random.bounded(2) == 0 ? id3Frame(id, text) : QByteArray();
    };
    return mp3(sometimes("TCOP", "K-Ravo") + sometimes("TIT2", oneOf(random, titles)) +
               sometimes("TPE1", oneOf(random, people)) + sometimes("TCON", oneOf(random, genres)) +
               sometimes("TCOM", oneOf(random, people)) + sometimes("TBPM", "120") +
               sometimes("TKEY", "C") + sometimes("TLEN", "100000"));
}

} // namespace

class TestChangePreview : public QObject
{
    Q_OBJECT

private slots:
    void everyItemThatWouldChangeIsListed();
    void markersOfAnMfxFileAreListed();
    void emptyTagOfAnMp3IsFilled();
    void songThatHasEverythingIsNotListed();
    void equalsWhatIsThenWritten();
    void changesNothing();
    void othersAreCounted();
    void unsignedSongsAreTold();
    void songThatCannotBeSavedDoesNotChange();
    void stoppingGivesNoPreview();
    void progressCountsEverySong();
};

void TestChangePreview::everyItemThatWouldChangeIsListed()
{
    using namespace songbytes;
    LibraryTable library({row(QStringLiteral("SONG"), QStringLiteral("LA SONG NUOVA"))});
    QVERIFY(library.add(QStringLiteral("song.mid"),
                        midi(signature + metaEvent(0x03, "La song") + kravoEvent(2, "DOE JOHN") +
                             kravoEvent(1, "Beat"))));
    const ChangePreview preview = previewOf(library);
    QCOMPARE(preview.songs, 1);
    QCOMPARE(preview.changed.size(), 1);
    QCOMPARE(preview.changed.first().fileName, library.path(QStringLiteral("song.mid")));
    QCOMPARE(preview.changed.first().title, QStringLiteral("La song"));
    QCOMPARE(shown(preview.changed.first().changes),
             shown({{Field::Title, QStringLiteral("La song"), QStringLiteral("LA SONG NUOVA")},
                    {Field::Artist, QStringLiteral("DOE JOHN"), QStringLiteral("JOHN DOE")},
                    {Field::Author, QString(), QStringLiteral("SMITH")},
                    {Field::Length, QString(), QStringLiteral("03:20")},
                    {Field::Tempo, QString(), QStringLiteral("96")},
                    {Field::Key, QString(), QStringLiteral("A-")},
                    {Field::Markers, QString(), QStringLiteral("1 Intro, 19 Verse1")}}));
}

void TestChangePreview::markersOfAnMfxFileAreListed()
{
    LibraryTable library({row(QStringLiteral("OLD"), QStringLiteral("X")),
                          row(QStringLiteral("NEW"), QStringLiteral("Y"))});
    // One has its markers already, but its header does not say so.
    const QByteArray withMarkers = midi(songbytes::markerEvent(7, "Coda"));
    const samplesongs::Tags tags{QStringLiteral("T"), QStringLiteral("JOHN DOE"),
                                 QStringLiteral("G")};
    QVERIFY(
        library.add(QStringLiteral("old.mf3"), samplesongs::mfxBytes("_MF3", withMarkers, tags)));
    QVERIFY(library.add(QStringLiteral("new.mf5"), samplesongs::mfxBytes("_MF5", midi(), tags)));
    const ChangePreview preview = previewOf(library);
    const QString flag = shown({Field::MarkersShown, QStringLiteral("no"), QStringLiteral("sì")});
    const QString markers =
        shown({Field::Markers, QString(), QStringLiteral("1 Intro, 19 Verse1")});
    const QStringList old = shown(preview, library.path(QStringLiteral("old.mf3")));
    const QStringList fresh = shown(preview, library.path(QStringLiteral("new.mf5")));
    QVERIFY2(old.contains(flag) && !old.contains(markers), qPrintable(old.join(QLatin1Char('\n'))));
    QVERIFY2(fresh.contains(flag) && fresh.contains(markers),
             qPrintable(fresh.join(QLatin1Char('\n'))));
}

void TestChangePreview::emptyTagOfAnMp3IsFilled()
{
    LibraryTable library({row(QStringLiteral("SONG"), QStringLiteral("LA SONG"))});
    QVERIFY(library.add(QStringLiteral("song.mp3"), mp3(QByteArray())));
    // Length, tempo and key go into signed files only, and no MP3 holds markers.
    QCOMPARE(shown(previewOf(library), library.path(QStringLiteral("song.mp3"))),
             shown({{Field::Title, QString(), QStringLiteral("LA SONG")},
                    {Field::Artist, QString(), QStringLiteral("JOHN DOE")},
                    {Field::Genre, QString(), QStringLiteral("SWING")},
                    {Field::Author, QString(), QStringLiteral("SMITH")}}));
}

void TestChangePreview::songThatHasEverythingIsNotListed()
{
    LibraryTable library({row(QStringLiteral("SONG"), QStringLiteral("LA SONG"))});
    QVERIFY(library.add(QStringLiteral("song.mid"), midi(signature)));
    QVERIFY(synchronise(library));
    const ChangePreview preview = previewOf(library);
    QVERIFY(preview.changed.isEmpty());
    QCOMPARE(preview.songs, 1);
    QCOMPARE(preview.unknown + preview.unreadable, 0);
}

void TestChangePreview::equalsWhatIsThenWritten()
{
    constexpr int songsOfAKind = 120;
    QRandomGenerator random(20110704);
    QList<catalogue::Row> rows;
    QMap<QString, QByteArray> songs;
    for (int i = 0; i < 3 * songsOfAKind; ++i) {
        const QString name = QStringLiteral("S%1").arg(i);
        catalogue::Row known = row(name, QStringLiteral("LA SONG %1").arg(i));
        if (random.bounded(3) == 0)
            known.altartist.clear();
        if (random.bounded(3) == 0)
            known.markers = QVariant();
        if (random.bounded(4) == 0)
            known.bpm = QStringLiteral("fast");
        if (random.bounded(4) == 0)
            known.key = QString();
        if (random.bounded(4) == 0)
            known.title = QStringLiteral("LONG ").repeated(40);
        if (random.bounded(4) == 0)
            known.author = QStringLiteral("DVOŘÁK");
        if (random.bounded(8) != 0)
            rows.append(known);
        switch (i % 3) {
        case 0:
            songs[name + QStringLiteral(".mid")] = randomMidi(random);
            break;
        case 1:
            songs[name + QStringLiteral(".mf3")] = randomMfx(random);
            break;
        default:
            songs[name + QStringLiteral(".mp3")] = randomMp3(random);
        }
    }
    LibraryTable library(rows);
    QVERIFY(library.isGood());
    QMap<QString, SongInfo> before;
    for (auto song = songs.cbegin(); song != songs.cend(); ++song) {
        QVERIFY2(library.add(song.key(), song.value()), qPrintable(song.key()));
        before[song.key()] = library.song(song.key());
    }

    const ChangePreview preview = previewOf(library);
    QVERIFY(synchronise(library));
    qsizetype changed = 0;
    QMap<QString, int> fields;
    for (auto song = before.cbegin(); song != before.cend(); ++song) {
        const QStringList written = differences(song.value(), library.song(song.key()));
        QCOMPARE(shown(preview, library.path(song.key())), written);
        changed += written.isEmpty() ? 0 : 1;
        for (const QString &line : written)
            ++fields[song.value().format.left(2) + line.left(1)];
    }
    QCOMPARE(preview.changed.size(), changed);
    QCOMPARE(preview.songs, 3 * songsOfAKind);
    QCOMPARE(preview.unknown, 3 * songsOfAKind - static_cast<int>(rows.size()));
    // Every item of every kind of song was among the changes.
    for (const char *const kind : {"MI", "MF", "MP"}) {
        for (int field = 0; field <= 8; ++field) {
            const bool isMissing = (field == 7 && kind[1] == 'P') ||
                                   (field == 8 && kind[1] != 'F') ||
                                   // An MFX file never counts as signed: its length and key stay.
                                   ((field == 4 || field == 6) && kind[1] == 'F');
            const QString name = QString::fromLatin1(kind) + QString::number(field);
            QVERIFY2(fields.contains(name) != isMissing, qPrintable(name));
        }
    }
}

void TestChangePreview::changesNothing()
{
    LibraryTable library({row(QStringLiteral("A"), QStringLiteral("A")),
                          row(QStringLiteral("B"), QStringLiteral("B")),
                          row(QStringLiteral("C"), QStringLiteral("C"))});
    QVERIFY(add(library, QStringLiteral("a.mid"), midi(signature)));
    QVERIFY(add(library, QStringLiteral("b.mf4"), samplesongs::mfxBytes("_MF4", midi(), {})));
    QVERIFY(add(library, QStringLiteral("c.mp3"), mp3(QByteArray())));
    library.model().setStatus(1, Database::StatusEdited);
    const auto files = filesOf(library);
    const QStringList table = cells(library);
    QCOMPARE(previewOf(library).changed.size(), 3);
    QVERIFY(filesOf(library) == files);
    QCOMPARE(cells(library), table);
    QVERIFY(synchronise(library));
    QVERIFY(filesOf(library) != files); // which shows that a write would have been seen
    QVERIFY(cells(library) != table);
}

void TestChangePreview::othersAreCounted()
{
    LibraryTable library({row(QStringLiteral("A"), QStringLiteral("A"))});
    for (const char *const name : {"a.mid", "other.mid", "gone.mid", "broken.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), midi()));
    QVERIFY(QFile::remove(library.path(QStringLiteral("gone.mid"))));
    QVERIFY(samplesongs::writeFile(library.path(QStringLiteral("broken.mid")), "no song"));
    const ChangePreview preview = previewOf(library);
    QCOMPARE(preview.songs, 4);
    QCOMPARE(preview.changed.size(), 1);
    QCOMPARE(preview.unknown, 1);
    QCOMPARE(preview.unreadable, 2);
}

void TestChangePreview::unsignedSongsAreTold()
{
    LibraryTable library({row(QStringLiteral("A"), QStringLiteral("A")),
                          row(QStringLiteral("B"), QStringLiteral("B"))});
    QVERIFY(library.add(QStringLiteral("a.mid"), midi(signature)));
    QVERIFY(library.add(QStringLiteral("b.mid"), midi()));
    const ChangePreview preview = previewOf(library);
    QCOMPARE(preview.changed.size(), 2);
    QVERIFY(preview.changed.at(0).isSigned);
    QVERIFY(!preview.changed.at(1).isSigned);
}

/** The tag would outgrow the part of a file that is searched for it; such a song is left alone. */
void TestChangePreview::songThatCannotBeSavedDoesNotChange()
{
    LibraryTable library({row(QStringLiteral("SONG"), QStringLiteral("LA SONG"))});
    const QByteArray picture(1000000 - 60, 'p');
    const QByteArray bytes = mp3(songbytes::id3Frame("APIC", picture));
    QVERIFY(library.add(QStringLiteral("song.mp3"), bytes));
    QVERIFY(previewOf(library).changed.isEmpty());
    QVERIFY(synchronise(library));
    QVERIFY(library.bytes(QStringLiteral("song.mp3")) == bytes);
}

void TestChangePreview::stoppingGivesNoPreview()
{
    LibraryTable library({row(QStringLiteral("A"), QStringLiteral("A"))});
    for (const char *const name : {"a.mid", "b.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), midi()));
    ProgressRecord progress;
    progress.onUpdate = [&progress](int done) { progress.canceled = done == 2; };
    QVERIFY(!ChangePreview::compute(library.database, library.model(), recordedBy(progress)));
    QCOMPARE(progress.updates, QList<int>({1, 2}));
    QVERIFY(!progress.isOpen);
}

void TestChangePreview::progressCountsEverySong()
{
    LibraryTable library({row(QStringLiteral("A"), QStringLiteral("A"))});
    for (const char *const name : {"a.mid", "b.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), midi()));
    ProgressRecord progress;
    QVERIFY(ChangePreview::compute(library.database, library.model(), recordedBy(progress)));
    QCOMPARE(progress.opened, 1);
    QCOMPARE(progress.maximum, 3);
    QCOMPARE(progress.updates, QList<int>({1, 2, 3}));
    QCOMPARE(progress.title, QStringLiteral("Anteprima delle modifiche"));
}

QTEST_MAIN(TestChangePreview)
#include "test_changepreview.moc"
