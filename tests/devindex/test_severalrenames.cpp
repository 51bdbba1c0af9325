// Files get names made of their songs' data.
#include "devindex/severalrenamer.h"
#include "devindex/severalrenames.h"
#include "library/historyundo.h"
#include "storage/songjournal.h"
#include "support/countingprogress.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

namespace
{

QByteArray mp3(const QByteArray &title)
{
    return songbytes::id3Tag(songbytes::id3Frame("TIT2", title)) +
           QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(700, '\x5A');
}

/** A folder of songs whose data are not read from the files. */
class Songs
{
public:
    Songs() { OK(m_folder.isValid()); }

    void add(const char *name, const char *title, const char *artist = "Mina",
             const QByteArray &bytes = {})
    {
        SongInfo info;
        info.fileName = path(QString::fromUtf8(name));
        info.title = QString::fromUtf8(title);
        info.artist = QString::fromUtf8(artist);
        OK(QDir().mkpath(QFileInfo(info.fileName).path()));
        OK(samplesongs::writeFile(
            info.fileName,
            bytes.isEmpty() ? songbytes::midiFile({songbytes::track(songbytes::notes())}) : bytes));
        m_songs.append(info);
    }

    void addFile(const char *name, const QByteArray &bytes = "pictures") const
    {
        OK(samplesongs::writeFile(path(QString::fromUtf8(name)), bytes));
    }

    QString path(const QString &name) const { return m_folder.filePath(name); }

    SeveralRenames plan(const char *pattern, bool isShort = false) const
    {
        SeveralRenames renames(m_songs);
        renames.setPattern(QString::fromUtf8(pattern), isShort);
        return renames;
    }

    /** The new name of the song of this number; "-" when it keeps its own. */
    QString newName(const SeveralRenames &renames, size_t number) const
    {
        const QString path = renames.songs().at(number).newPath;
        return path.isEmpty() ? QStringLiteral("-") : QDir(m_folder.path()).relativeFilePath(path);
    }

    QStringList files() const { return QDir(m_folder.path()).entryList(QDir::Files, QDir::Name); }

private:
    static void OK(bool isGood)
    {
        if (!isGood)
            qFatal("cannot make a file for a test");
    }

    QTemporaryDir m_folder;
    QList<SongInfo> m_songs;
};

QList<SeveralRename> all(const SeveralRenames &renames)
{
    return {renames.songs().cbegin(), renames.songs().cend()};
}

SeveralRenamer::Report run(const SeveralRenames &renames)
{
    CountingProgress progress;
    return SeveralRenamer().run(all(renames), progress);
}

} // namespace

class TestSeveralRenames : public QObject
{
    Q_OBJECT

private slots:
    void namesAreMadeOfTheData();
    void nameIsCleaned_data();
    void nameIsCleaned();
    void nameThatIsTakenGetsANumber();
    void letterCaseDoesNotMakeANameFree();
    void songsInOtherFoldersMayHaveTheSameName();
    void songWithoutTheDataKeepsItsName();
    void badPatternRenamesNothing();
    void rightNameStays();
    void picturesOfAnotherSongKeepTheNameFromBeingUsed();
    void picturesGoWithTheSong();
    void shortNamesAreThoseOfThePlayer();
    void shortNameStaysTheSame();
    void characterThatThePlayerLacksIsNamed();
    void nothingIsReplacedWhenTheNameWasTakenSince();
    void fileThatIsGoneIsNamed();
    void songThatIsBeingSavedKeepsItsName();
    void stopsBetweenFiles();
    void historyTakesTheNamesBack();
    void songOnAMemoryKeepsItsName();
    void manySongsOfOneNameAreNamedInTime();
};

void TestSeveralRenames::namesAreMadeOfTheData()
{
    Songs songs;
    songs.add("1.mid", "Volare");
    songs.add("2.KAR", "Città vuota");
    const SeveralRenames renames = songs.plan("%artist - %title");
    QCOMPARE(renames.problem(), QString());
    QCOMPARE(renames.renamed(), 2);
    QCOMPARE(run(renames).renamed, 2);
    QCOMPARE(songs.files(), QStringList({QStringLiteral("Mina - Città vuota.KAR"),
                                         QStringLiteral("Mina - Volare.mid")}));
}

void TestSeveralRenames::nameIsCleaned_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::newRow("slash") << "AC/DC"
                           << "AC-DC";
    QTest::newRow("forbidden") << "a\"*:<>?\\|b"
                               << "a--------b";
    QTest::newRow("control") << "a\tb\nc\x7F"
                             << "a-b-c-";
    QTest::newRow("dots and blanks at the ends") << " ..R.E.M.. "
                                                 << "R.E.M";
    QTest::newRow("up") << ".."
                        << "";
    QTest::newRow("device") << "con"
                            << "con_";
    QTest::newRow("device with a dot") << "COM1.live"
                                       << "COM1.live_";
    QTest::newRow("long") << QString(300, QLatin1Char('x')) << QString(200, QLatin1Char('x'));
    QTest::newRow("long, two bytes each") << QString(300, QChar(0xE9)) << QString(100, QChar(0xE9));
    QTest::newRow("long, pairs") << QStringLiteral("🎵").repeated(100)
                                 << QStringLiteral("🎵").repeated(50);
}

void TestSeveralRenames::nameIsCleaned()
{
    QFETCH(QString, text);
    QFETCH(QString, name);
    QCOMPARE(SeveralRenames::cleaned(text), name);
}

void TestSeveralRenames::nameThatIsTakenGetsANumber()
{
    Songs songs;
    songs.add("1.mid", "Volare");
    songs.add("2.mid", "Volare");
    songs.add("3.mid", "Other");
    songs.addFile("Other.mid", "no song");
    songs.addFile("Other (2).mid", "no song");
    const SeveralRenames renames = songs.plan("%title");
    QCOMPARE(songs.newName(renames, 0), QStringLiteral("Volare.mid"));
    QCOMPARE(songs.newName(renames, 1), QStringLiteral("Volare (2).mid"));
    QCOMPARE(songs.newName(renames, 2), QStringLiteral("Other (3).mid"));
    QCOMPARE(run(renames).renamed, 3);
    QCOMPARE(songs.files().size(), 5);
    QCOMPARE(samplesongs::readFile(songs.path(QStringLiteral("Other.mid"))), QByteArray("no song"));
}

void TestSeveralRenames::letterCaseDoesNotMakeANameFree()
{
    Songs songs;
    songs.add("1.mid", "VOLARE");
    songs.add("2.mid", "volare");
    songs.add("3.mid", "Citta\u0300");
    songs.add("4.mid", "Città");
    const SeveralRenames renames = songs.plan("%title");
    QCOMPARE(songs.newName(renames, 1), QStringLiteral("volare (2).mid"));
    QCOMPARE(songs.newName(renames, 3), QStringLiteral("Città (2).mid"));
}

void TestSeveralRenames::songsInOtherFoldersMayHaveTheSameName()
{
    Songs songs;
    songs.add("a/1.mid", "Volare");
    songs.add("b/1.mid", "Volare");
    const SeveralRenames renames = songs.plan("%title");
    QCOMPARE(songs.newName(renames, 0), QStringLiteral("a/Volare.mid"));
    QCOMPARE(songs.newName(renames, 1), QStringLiteral("b/Volare.mid"));
}

void TestSeveralRenames::songWithoutTheDataKeepsItsName()
{
    Songs songs;
    songs.add("1.mid", "Volare", "");
    songs.add("2.mid", "...", "...");
    const SeveralRenames renames = songs.plan("%artist%title");
    QCOMPARE(renames.renamed(), 0);
    QCOMPARE(renames.unfit(), 2);
    QVERIFY(!renames.songs().at(0).reason.isEmpty());
}

void TestSeveralRenames::badPatternRenamesNothing()
{
    Songs songs;
    songs.add("1.mid", "Volare");
    const SeveralRenames renames = songs.plan("../%title");
    QVERIFY(!renames.problem().isEmpty());
    QCOMPARE(renames.renamed(), 0);
}

void TestSeveralRenames::rightNameStays()
{
    Songs songs;
    songs.add("Volare.mid", "Volare");
    songs.add("1.mid", "Volare");
    const SeveralRenames renames = songs.plan("%title");
    QCOMPARE(songs.newName(renames, 0), QStringLiteral("-"));
    QVERIFY(renames.songs().at(0).reason.isEmpty());
    QCOMPARE(songs.newName(renames, 1), QStringLiteral("Volare (2).mid"));
}

void TestSeveralRenames::picturesOfAnotherSongKeepTheNameFromBeingUsed()
{
    Songs songs;
    songs.add("1.mp3", "Volare", "Mina", mp3("Volare"));
    songs.addFile("Volare.CDG");
    const SeveralRenames renames = songs.plan("%title");
    QCOMPARE(songs.newName(renames, 0), QStringLiteral("Volare (2).mp3"));
}

void TestSeveralRenames::picturesGoWithTheSong()
{
    Songs songs;
    songs.add("1.mp3", "Volare", "Mina", mp3("Volare"));
    songs.addFile("1.cdg");
    songs.add("2.mp3", "Volare", "Mina", mp3("Volare"));
    songs.addFile("2.CDG");
    QCOMPARE(run(songs.plan("%title")).renamed, 2);
    QCOMPARE(songs.files(),
             QStringList({QStringLiteral("Volare (2).CDG"), QStringLiteral("Volare (2).mp3"),
                          QStringLiteral("Volare.cdg"), QStringLiteral("Volare.mp3")}));
}

void TestSeveralRenames::shortNamesAreThoseOfThePlayer()
{
    Songs songs;
    songs.add("1.mid", "Nel blu dipinto");
    songs.add("2.mid", "Nel blu dipinto di blu");
    songs.add("3.mid", "Volare");
    songs.addFile("Nelblu-1.mid");
    const SeveralRenames renames = songs.plan("%title", true);
    QCOMPARE(songs.newName(renames, 0), QStringLiteral("Nelblu-2.mid"));
    QCOMPARE(songs.newName(renames, 1), QStringLiteral("Nelblu-3.mid"));
    QCOMPARE(songs.newName(renames, 2), QStringLiteral("Volare.mid"));
}

void TestSeveralRenames::shortNameStaysTheSame()
{
    Songs songs;
    songs.add("Nelblu-1.mid", "Nel blu dipinto");
    const SeveralRenames renames = songs.plan("%title", true);
    QCOMPARE(renames.renamed(), 0);
    QCOMPARE(renames.unfit(), 0);
}

void TestSeveralRenames::characterThatThePlayerLacksIsNamed()
{
    Songs songs;
    songs.add("1.mid", "Звезда");
    QCOMPARE(songs.plan("%title", true).unfit(), 1);
    QCOMPARE(songs.plan("%title", false).renamed(), 1);
}

void TestSeveralRenames::nothingIsReplacedWhenTheNameWasTakenSince()
{
    Songs songs;
    songs.add("1.mid", "Volare");
    const SeveralRenames renames = songs.plan("%title");
    songs.addFile("Volare.mid", "somebody else's");
    const SeveralRenamer::Report report = run(renames);
    QCOMPARE(report.renamed, 0);
    QCOMPARE(report.problems.size(), 1);
    QCOMPARE(samplesongs::readFile(songs.path(QStringLiteral("Volare.mid"))),
             QByteArray("somebody else's"));
    QVERIFY(songs.files().contains(QStringLiteral("1.mid")));
}

void TestSeveralRenames::fileThatIsGoneIsNamed()
{
    Songs songs;
    songs.add("1.mid", "Volare");
    songs.add("2.mid", "Aida");
    const SeveralRenames renames = songs.plan("%title");
    QVERIFY(QFile::remove(songs.path(QStringLiteral("1.mid"))));
    const SeveralRenamer::Report report = run(renames);
    QCOMPARE(report.renamed, 1);
    QCOMPARE(report.problems.size(), 1);
    QCOMPARE(songs.files(), QStringList({QStringLiteral("Aida.mid")}));
}

void TestSeveralRenames::songThatIsBeingSavedKeepsItsName()
{
    Songs songs;
    songs.add("1.mid", "Volare");
    const SeveralRenames renames = songs.plan("%title");
    const QString path = songs.path(QStringLiteral("1.mid"));
    SongJournal journal(path);
    QVERIFY(journal.write({samplesongs::readFile(path), "other"}));
    const SeveralRenamer::Report report = run(renames);
    QCOMPARE(report.renamed, 0);
    QCOMPARE(report.problems.size(), 1);
    QVERIFY(QFile::exists(path));
}

void TestSeveralRenames::stopsBetweenFiles()
{
    Songs songs;
    for (const char *name : {"1.mid", "2.mid", "3.mid"})
        songs.add(name, "Volare");
    CountingProgress progress;
    progress.cancelAt = 2;
    QStringList renamed;
    const SeveralRenamer::Report report =
        SeveralRenamer([&renamed](const QString &, const QString &path) {
            renamed << path;
        }).run(all(songs.plan("%title")), progress);
    QVERIFY(report.stopped);
    QCOMPARE(report.renamed, 2);
    QCOMPARE(renamed.size(), 2);
    QVERIFY(songs.files().contains(QStringLiteral("3.mid")));
}

void TestSeveralRenames::historyTakesTheNamesBack()
{
    Songs songs;
    songs.add("1.mid", "Volare");
    songs.add("2.mp3", "Aida", "Verdi", mp3("Aida"));
    songs.addFile("2.cdg");
    const QStringList before = songs.files();
    HistoryStore store(songs.path(QStringLiteral("data/history.sqlite")));
    const auto refuse = [](const QString &) { return false; };
    SeveralRenamer renamer;
    renamer.setHistory([&](HistoryJob::Kind kind) {
        return std::make_unique<HistoryRecorder>(store, kind, refuse);
    });
    CountingProgress progress;
    QCOMPARE(renamer.run(all(songs.plan("%artist - %title")), progress).renamed, 2);
    const QList<HistoryJob> jobs = store.jobs();
    QCOMPARE(jobs.size(), 1);
    QCOMPARE(jobs.at(0).kind, HistoryJob::Kind::Rename);
    QCOMPARE(jobs.at(0).songs, 2);
    HistoryRecorder recorder(store, HistoryJob::Kind::TakeBack, refuse, jobs.at(0).number);
    const HistoryUndo::Report report =
        HistoryUndo(store).takeBack(store.songs(jobs.at(0).number), false, recorder, progress);
    QVERIFY(report.failed.isEmpty());
    QCOMPARE(songs.files(), before);
}

void TestSeveralRenames::songOnAMemoryKeepsItsName()
{
    Songs songs;
    songs.add("CARD/1.mid", "Volare");
    qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(songs.path(QString())));
    const SeveralRenames renames = songs.plan("%title");
    qunsetenv("KAVENA_MOUNT_DIRS");
    QCOMPARE(renames.renamed(), 0);
    QCOMPARE(renames.unfit(), 1);
}

void TestSeveralRenames::manySongsOfOneNameAreNamedInTime()
{
    constexpr int count = 3000;
    Songs songs;
    for (int i = 0; i < count; ++i)
        songs.add(QByteArray::number(i).append(".mid").constData(), "Volare");
    const SeveralRenames renames = songs.plan("%title");
    QCOMPARE(renames.renamed(), count);
    QCOMPARE(songs.newName(renames, count - 1), QStringLiteral("Volare (3000).mid"));
}

QTEST_GUILESS_MAIN(TestSeveralRenames)
#include "test_severalrenames.moc"
