// The checker that judges every memory must itself see each kind of damage.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QTest>

#include <array>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>

using namespace songbytes;

class TestMemoryChecker : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    void wholeIndexPasses();
    void timeJustBeforeASecondIsNotRoundedUp();
    void missingFileIsNoIndex();
    void everyChangedByteIsSeen_data();
    void everyChangedByteIsSeen();
    void shortAndLongFilesAreSeen_data();
    void shortAndLongFilesAreSeen();
    void removedChangedAndUnlistedSongsAreSeen();
    void lostPlaylistSongsAreSeen();
    void cutOffPlaylistsAreSeen();
    void playlistsThatMeanOtherSongsAreSeen();

private:
    static void fill(const DeviceMemory &memory);

    std::optional<LogCapture> m_log;
};

void TestMemoryChecker::fill(const DeviceMemory &memory)
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

void TestMemoryChecker::wholeIndexPasses()
{
    const DeviceMemory memory;
    fill(memory);
    QCOMPARE(memory.faults(), QString());
}

void TestMemoryChecker::timeJustBeforeASecondIsNotRoundedUp()
{
    const DeviceMemory memory;
    fill(memory);
    const timespec almost{1795334084, 999999999};
    const std::array times{almost, almost};
    const QByteArray path = QFile::encodeName(memory.path(QStringLiteral("a.mid")));
    QCOMPARE(::utimensat(AT_FDCWD, path.constData(), times.data(), 0), 0);
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.faults(), QString());
}

void TestMemoryChecker::missingFileIsNoIndex()
{
    for (const QString &name : DeviceMemory::indexFiles()) {
        const DeviceMemory memory;
        fill(memory);
        memory.remove(name);
        QCOMPARE(memory.faults(), QStringLiteral("exit 2: no complete index\n"));
    }
}

void TestMemoryChecker::everyChangedByteIsSeen_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("size");
    const auto rows = [](const char *name, int size) {
        QTest::newRow(name) << QString::fromUtf8(name) << size;
    };
    // Four songs, one of them an MP3; three artists and one genre. A changed tempo or a marker flag
    // in the title file shows by the copies of the record in the other files.
    rows("index.idx", 4 * 64);
    rows("ordfile.idx", 4 * 2);
    rows("fsinfos.idx", 12);
    rows("title.idx", 4 * 32);
    rows("artist.idx", (4 + 3) * 32);
    rows("genre.idx", (4 + 1) * 32);
    rows("title3.idx", 32);
    rows("artist3.idx", 2 * 32);
    rows("genre3.idx", 2 * 32);
    for (const char *name :
         {"atitle.idx", "aartist.idx", "agenre.idx", "atitle3.idx", "aartist3.idx", "agenre3.idx"})
        rows(name, 256);
}

void TestMemoryChecker::everyChangedByteIsSeen()
{
    QFETCH(QString, name);
    QFETCH(int, size);
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    const QByteArray bytes = memory.read(name);
    QCOMPARE(bytes.size(), size);
    // The text of a group stands nowhere else, except where an MP3 is in the group.
    const QList<qsizetype> unseen = name == QLatin1String("artist.idx")
                                        ? QList<qsizetype>{5, 6, 7, 165, 166, 167}
                                        : QList<qsizetype>();
    // The tables of first letters are all alike; every fifth byte is one of each kind.
    const int step = name.startsWith(QLatin1Char('a')) && size == 256 ? 5 : 1;
    for (qsizetype position = 0; position < bytes.size(); position += step) {
        if (unseen.contains(position))
            continue;
        QByteArray changed = bytes;
        changed[position] = static_cast<char>(bytes.at(position) ^ 0x10);
        memory.add(name, changed);
        QVERIFY2(memory.faults().startsWith(QStringLiteral("exit 1")),
                 qPrintable(QStringLiteral("at %1").arg(position)));
    }
}

void TestMemoryChecker::shortAndLongFilesAreSeen_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : DeviceMemory::indexFiles())
        QTest::newRow(qPrintable(name)) << name;
}

void TestMemoryChecker::shortAndLongFilesAreSeen()
{
    QFETCH(QString, name);
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    const QByteArray bytes = memory.read(name);
    for (const QByteArray &changed : {bytes.chopped(1), bytes + bytes}) {
        memory.add(name, changed);
        QVERIFY(memory.faults().startsWith(QStringLiteral("exit 1")));
    }
}

void TestMemoryChecker::removedChangedAndUnlistedSongsAreSeen()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    memory.setTime(QStringLiteral("a.mid"), QDateTime(QDate(2020, 1, 1), QTime(0, 0)));
    QVERIFY(memory.faults().contains(QStringLiteral("/a.mid): changed at")));
    QCOMPARE(memory.faults({QStringLiteral("--allow-changed")}), QString());
    memory.add(QStringLiteral("new.kar"), "song");
    QVERIFY(memory.faults().contains(QStringLiteral("/new.kar: a song that is not listed")));
    memory.remove(QStringLiteral("d.mp3"));
    QVERIFY(memory.faults().contains(QStringLiteral("/d.mp3): no such file")));
}

void TestMemoryChecker::lostPlaylistSongsAreSeen()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    memory.add(QStringLiteral("playlist/play0001.dat"), QByteArray(32, '\x01'));
    QVERIFY(memory.faults().contains(QStringLiteral("play0001.dat song 0: id 16843009")));
    QCOMPARE(memory.faults({QStringLiteral("--allow-lost-songs")}), QString());
}

void TestMemoryChecker::cutOffPlaylistsAreSeen()
{
    for (const char *name : {"playlist/playlist.dat", "playlist/play0001.dat"}) {
        const DeviceMemory memory;
        memory.isLeftBroken();
        fill(memory);
        const QString file = QString::fromUtf8(name);
        memory.add(file, memory.read(file).chopped(1));
        QVERIFY(memory.faults().contains(file + QStringLiteral(": 31 bytes are no whole records")));
    }
}

void TestMemoryChecker::playlistsThatMeanOtherSongsAreSeen()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    const QString file = QStringLiteral("playlist/play0001.dat");
    const auto record = [](int id) { return bigEndian(id, 4) + QByteArray(28, '\0'); };
    memory.add(file, record(0) + record(2));
    memory.notePlaylists();
    QCOMPARE(memory.playlistFaults(), QString());
    // Ids 2 and 3 are songs as well, but others.
    for (const QByteArray &changed : {record(0) + record(3), record(2) + record(0), record(0)}) {
        memory.add(file, changed);
        QCOMPARE(memory.faults(), QString());
        QVERIFY(memory.playlistFaults().contains(file + QLatin1Char(':')));
    }
    memory.remove(file);
    QVERIFY(memory.playlistFaults().contains(QStringLiteral("the playlist is gone")));
}

QTEST_GUILESS_MAIN(TestMemoryChecker)
#include "test_memorychecker.moc"
