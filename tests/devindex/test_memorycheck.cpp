// The program's own check finds what the independent checker finds, and changes nothing.
#include "devindex/index.h"
#include "devindex/memorycheck.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QTest>

#include <optional>
#include <sys/stat.h>

using namespace songbytes;

class TestMemoryCheck : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    void memoryInOrderHasNoFinding();
    void nothingIsChanged();
    void missingFileIsNoIndex();
    void everyChangedByteIsSeenAsTheTwinDoes_data();
    void everyChangedByteIsSeenAsTheTwinDoes();
    void shortAndLongFilesAreSeenAsTheTwinDoes();
    void removedChangedAndUnlistedSongsAreNamed();
    void songsWhoseNamesTheIndexHoldsOnceAreNamed();
    void lostPlaylistSongsAreNamed();
    void listedPlaylistWithoutAFileIsNamed();
    void playlistThatIsListedOftenIsCheckedOnce();
    void findingsOfAKindAreLimited();
    void stopIsAskedWithinALongPlaylist();
    void hugeFilesAreNotRead();
    void songWithOtherContentAndTheOldTimeIsNamed();
    void songThatThePlayerCannotFindIsNamed();
    void pipeInPlaceOfAPlaylistIsNotRead();
    void foldersThatSeveralLinksLeadToAreInOrder();

private:
    static QStringList findingsOf(const DeviceMemory &memory);
    static void fill(const DeviceMemory &memory);
    static QStringList twinFindings(const DeviceMemory &memory);
    static void compareWithTwin(const DeviceMemory &memory, const QByteArray &where);

    std::optional<LogCapture> m_log;
};

void TestMemoryCheck::fill(const DeviceMemory &memory)
{
    const auto song = [](const char *title, const char *artist) {
        return midiFile({track(metaEvent(3, title) + kravoEvent(2, artist) + notes())});
    };
    memory.add(QStringLiteral("a.mid"), song("Alpha", "One"));
    memory.add(QStringLiteral("x/b.mid"), song("Beta", "Two"));
    memory.add(QStringLiteral("x/é.mid"), song("Gamma", "One"));
    const QByteArray tag = id3Tag(id3Frame("TIT2", "Delta") + id3Frame("TPE1", "Three"));
    memory.add(QStringLiteral("d.mp3"), tag + QByteArray(100, 'x'));
    memory.add(QStringLiteral("playlist/playlist.dat"),
               QByteArray("\x01", 1) + QByteArray(31, '\0'));
    memory.add(QStringLiteral("playlist/play0001.dat"), QByteArray(32, '\0'));
    QVERIFY(Index().createIndex(memory.root()));
}

/** The lines of the independent checker. */
QStringList TestMemoryCheck::twinFindings(const DeviceMemory &memory)
{
    QString faults = memory.faults();
    if (faults.isEmpty())
        return {};
    faults.remove(0, faults.indexOf(QStringLiteral(": ")) + 2);
    return faults.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

/** As many findings, and each of them about something that the twin names as well. */
void TestMemoryCheck::compareWithTwin(const DeviceMemory &memory, const QByteArray &where)
{
    const QStringList lines = twinFindings(memory);
    QList<MemoryCheck::Finding> findings = MemoryCheck(memory.root()).run();
    // The twin does not read songs.
    findings.removeIf([](const MemoryCheck::Finding &finding) {
        return finding.kind == MemoryCheck::Kind::OtherSong;
    });
    // The twin prints its first hundred lines only.
    QVERIFY2(lines.size() == qMin(findings.size(), qsizetype{100}),
             where + ": " + QByteArray::number(findings.size()) + " findings for " +
                 lines.join(QStringLiteral(" | ")).toUtf8());
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString &path = findings.at(i).path;
        const bool isNamed = std::any_of(lines.cbegin(), lines.cend(),
                                         [&](const QString &line) { return line.contains(path); });
        QVERIFY2(isNamed, where + ": " + path.toUtf8() + " is not in " +
                              lines.join(QStringLiteral(" | ")).toUtf8());
    }
}

void TestMemoryCheck::memoryInOrderHasNoFinding()
{
    const DeviceMemory memory;
    fill(memory);
    QCOMPARE(memory.faults(), QString());
    QVERIFY(MemoryCheck(memory.root()).run().isEmpty());
    QVERIFY(MemoryCheck(memory.root() + QLatin1Char('/')).run().isEmpty());
}

void TestMemoryCheck::nothingIsChanged()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    memory.add(QStringLiteral("new.mid"), "song");
    const auto before = memory.snapshot();
    QVERIFY(!MemoryCheck(memory.root()).run().isEmpty());
    QCOMPARE(memory.snapshot(), before);
}

void TestMemoryCheck::missingFileIsNoIndex()
{
    for (const QString &name : DeviceMemory::indexFiles()) {
        const DeviceMemory memory;
        fill(memory);
        memory.remove(name);
        const QList<MemoryCheck::Finding> findings = MemoryCheck(memory.root()).run();
        QCOMPARE(findings.size(), 1);
        QCOMPARE(CheckFinding::nameOf(findings.constFirst().kind), "no-index");
        QCOMPARE(findings.constFirst().path, name);
    }
}

void TestMemoryCheck::everyChangedByteIsSeenAsTheTwinDoes_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : DeviceMemory::indexFiles())
        QTest::newRow(qPrintable(name)) << name;
}

void TestMemoryCheck::everyChangedByteIsSeenAsTheTwinDoes()
{
    QFETCH(QString, name);
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    const QByteArray bytes = memory.read(name);
    // The tables of first letters are all alike; every fifth byte is one of each kind.
    const int step = name.startsWith(QLatin1Char('a')) && bytes.size() == 256 ? 5 : 1;
    for (qsizetype position = 0; position < bytes.size(); position += step) {
        const char change = "\x10\xFF\x01"[position % 3];
        QByteArray changed = bytes;
        changed[position] = static_cast<char>(bytes.at(position) ^ change);
        memory.add(name, changed);
        compareWithTwin(memory, name.toUtf8() + " at " + QByteArray::number(position));
        if (QTest::currentTestFailed())
            return;
    }
}

void TestMemoryCheck::shortAndLongFilesAreSeenAsTheTwinDoes()
{
    for (const QString &name : DeviceMemory::indexFiles()) {
        const DeviceMemory memory;
        memory.isLeftBroken();
        fill(memory);
        const QByteArray bytes = memory.read(name);
        for (const QByteArray &changed :
             {bytes.chopped(1), bytes + bytes, bytes.left(bytes.size() / 2), QByteArray("x")}) {
            memory.add(name, changed);
            QVERIFY(!MemoryCheck(memory.root()).run().isEmpty());
            compareWithTwin(memory, name.toUtf8());
        }
    }
}

void TestMemoryCheck::removedChangedAndUnlistedSongsAreNamed()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    memory.setTime(QStringLiteral("a.mid"), QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
    memory.add(QStringLiteral("x/new.kar"), "song");
    memory.add(QStringLiteral("sfx/effect.mid"), "of the player");
    memory.add(QStringLiteral(".Trash/gone.mid"), "deleted");
    memory.remove(QStringLiteral("d.mp3"));
    QStringList found;
    for (const MemoryCheck::Finding &finding : MemoryCheck(memory.root()).run())
        found.append(QString::fromUtf8(CheckFinding::nameOf(finding.kind)) + finding.path);
    found.sort();
    QCOMPARE(found, QStringList({QStringLiteral("changed-song/a.mid"),
                                 QStringLiteral("missing-song/d.mp3"),
                                 QStringLiteral("unlisted-song/x/new.kar")}));
    compareWithTwin(memory, "songs");
}

/** Where letter case counts, files can lie side by side that are one song to the player. */
void TestMemoryCheck::songsWhoseNamesTheIndexHoldsOnceAreNamed()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    memory.add(QStringLiteral("A.MID"), "another song");
    memory.add(QStringLiteral("a.MID"), "a third one");
    memory.add(QStringLiteral("X/B.mid"), "in a folder of the same name");
    if (QDir(memory.root()).entryList({QStringLiteral("a.mid")}, QDir::Files).size() != 3)
        QSKIP("this file system knows no letter case");
    QVERIFY(QFile::link(QStringLiteral("d.mp3"), memory.path(QStringLiteral("D.mp3"))));
    QStringList expected{QStringLiteral("unlisted-song /A.MID"),
                         QStringLiteral("unlisted-song /X/B.mid"),
                         QStringLiteral("unlisted-song /a.MID")};
    QStringList found = findingsOf(memory);
    found.sort();
    QCOMPARE(found, expected);
    QVERIFY(
        MemoryCheck(memory.root()).run().constFirst().text.contains(QStringLiteral("maiuscole")));

    // The one that the index holds got another spelling: one file is missing, one is its own.
    QVERIFY(
        QFile::rename(memory.path(QStringLiteral("a.mid")), memory.path(QStringLiteral("a.Mid"))));
    found = findingsOf(memory);
    QCOMPARE(found.filter(QStringLiteral("missing-song /a.mid")).size(), 1);
    QCOMPARE(found.filter(QStringLiteral("unlisted-song")).size(), 3);

    memory.add(QStringLiteral("α.kar"), "Greek");
    QVERIFY(Index().createIndex(memory.root()));
    memory.add(QStringLiteral("β.kar"), "another one that is ?.kar in the index");
    QCOMPARE(findingsOf(memory).filter(QStringLiteral("unlisted-song /?.kar")).size(), 1);
}

void TestMemoryCheck::lostPlaylistSongsAreNamed()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    memory.add(QStringLiteral("playlist/play0001.dat"), QByteArray(40, '\x01'));
    const QList<MemoryCheck::Finding> findings = MemoryCheck(memory.root()).run();
    QCOMPARE(findings.size(), 2);
    QCOMPARE(CheckFinding::nameOf(findings.at(0).kind), "wrong-size");
    QCOMPARE(CheckFinding::nameOf(findings.at(1).kind), "unknown-song-in-playlist");
    QCOMPARE(findings.at(1).path, QStringLiteral("playlist/play0001.dat"));
    compareWithTwin(memory, "playlist");
}

void TestMemoryCheck::listedPlaylistWithoutAFileIsNamed()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    memory.add(QStringLiteral("playlist/playlist.dat"),
               QByteArray("\x01", 1) + QByteArray(31, '\0') + "\x02" + QByteArray(31, '\0'));
    QCOMPARE(findingsOf(memory),
             QStringList(QStringLiteral("missing-playlist playlist/play0002.dat")));
    compareWithTwin(memory, "playlist without a file");
}

void TestMemoryCheck::playlistThatIsListedOftenIsCheckedOnce()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    memory.add(QStringLiteral("playlist/playlist.dat"),
               (QByteArray("\x01", 1) + QByteArray(31, '\0')).repeated(50));
    memory.add(QStringLiteral("playlist/play0001.dat"), QByteArray(qsizetype{32} * 3, '\x01'));
    QCOMPARE(findingsOf(memory).size(), 3);
    compareWithTwin(memory, "playlist that is listed often");
}

void TestMemoryCheck::findingsOfAKindAreLimited()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    constexpr int songs = 200000;
    memory.add(QStringLiteral("playlist/play0001.dat"), QByteArray(qsizetype{32} * songs, '\x01'));
    memory.add(QStringLiteral("index.idx"), QByteArray(qsizetype{64} * 5000, '\x02'));
    QHash<CheckFinding::Kind, int> kept;
    QHash<CheckFinding::Kind, qint64> meant;
    QString last;
    for (const MemoryCheck::Finding &finding : MemoryCheck(memory.root()).run()) {
        ++kept[finding.kind];
        meant[finding.kind] += finding.count;
        if (finding.kind == CheckFinding::Kind::UnknownSongInPlaylist)
            last = finding.text;
    }
    for (const int count : std::as_const(kept))
        QVERIFY(count <= CheckFindings::mostOfAKind);
    QCOMPARE(kept.value(CheckFinding::Kind::UnknownSongInPlaylist), CheckFindings::mostOfAKind);
    QCOMPARE(meant.value(CheckFinding::Kind::UnknownSongInPlaylist), qint64{songs});
    QVERIFY(meant.value(CheckFinding::Kind::BadRecord) > 5000);
    QVERIFY2(last.contains(QString::number(songs - CheckFindings::mostOfAKind)), qPrintable(last));
}

void TestMemoryCheck::stopIsAskedWithinALongPlaylist()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    memory.add(QStringLiteral("playlist/play0001.dat"), QByteArray(qsizetype{32} * 900, '\x01'));
    int asked = 0;
    MemoryCheck(memory.root()).run([&asked] {
        ++asked;
        return false;
    });
    const int all = asked;
    asked = 0;
    const auto findings = MemoryCheck(memory.root()).run([&] { return ++asked > all - 400; });
    QVERIFY(findings.isEmpty());
    QCOMPARE(asked, all - 399); // once it was stopped it does not ask again
}

void TestMemoryCheck::hugeFilesAreNotRead()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    // Without blocks on the disk, but too large for the computer's memory.
    QFile file(memory.path(QStringLiteral("title.idx")));
    QVERIFY(file.open(QFile::ReadWrite) && file.resize(qint64{1} << 36));
    file.close();
    QVERIFY(!MemoryCheck(memory.root()).run().isEmpty());
}

/** Kind and path of each. */
QStringList TestMemoryCheck::findingsOf(const DeviceMemory &memory)
{
    QStringList found;
    const QList<MemoryCheck::Finding> findings = MemoryCheck(memory.root()).run();
    for (const MemoryCheck::Finding &finding : findings)
        found.append(QString::fromLatin1(CheckFinding::nameOf(finding.kind)) + QLatin1Char(' ') +
                     finding.path);
    return found;
}

void TestMemoryCheck::songWithOtherContentAndTheOldTimeIsNamed()
{
    const DeviceMemory memory;
    fill(memory);
    const QString path = memory.path(QStringLiteral("x/b.mid"));
    const QDateTime time = QFileInfo(path).lastModified();
    memory.add(QStringLiteral("x/b.mid"), midiFile({track(metaEvent(3, "Other") + notes())}));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(findingsOf(memory), QStringList(QStringLiteral("other-song /x/b.mid")));
}

void TestMemoryCheck::songThatThePlayerCannotFindIsNamed()
{
    const DeviceMemory memory;
    fill(memory);
    const QString name =
        QStringLiteral("folder12/folder34/folder56/folder78/folder90/song.mid"); // 53 with "/"
    memory.add(name, midiFile({track(notes())}));
    QCOMPARE(findingsOf(memory), QStringList(QStringLiteral("too-long-path /") + name));
}

void TestMemoryCheck::pipeInPlaceOfAPlaylistIsNotRead()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    const QString playlist = memory.path(QStringLiteral("playlist/play0001.dat"));
    QVERIFY(QFile::remove(playlist));
    QCOMPARE(::mkfifo(QFile::encodeName(playlist).constData(), 0600), 0);
    QCOMPARE(findingsOf(memory),
             QStringList(QStringLiteral("missing-playlist playlist/play0001.dat")));
}

void TestMemoryCheck::foldersThatSeveralLinksLeadToAreInOrder()
{
    DeviceMemory memory;
    memory.isJudgedWith({QStringLiteral("--follow-links")});
    fill(memory);
    constexpr int folders = 12;
    for (int i = 0; i < folders; ++i)
        memory.add(QStringLiteral("f%1/s%1.mid").arg(i), midiFile({track(notes())}));
    for (int from = 0; from < folders; ++from) {
        for (int to = 0; to < folders; ++to)
            QVERIFY(QFile::link(memory.path(QStringLiteral("f%1").arg(to)),
                                memory.path(QStringLiteral("f%1/l%2").arg(from).arg(to))));
    }
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(findingsOf(memory), QStringList());
}

QTEST_GUILESS_MAIN(TestMemoryCheck)
#include "test_memorycheck.moc"
