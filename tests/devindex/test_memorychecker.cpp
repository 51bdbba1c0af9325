// The checker that judges every memory must itself see each kind of damage.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QTest>

#include <optional>

using namespace songbytes;

class TestMemoryChecker : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    void wholeIndexPasses();
    void missingFileIsNoIndex();
    void everyChangedByteIsSeen_data();
    void everyChangedByteIsSeen();
    void shortAndLongFilesAreSeen_data();
    void shortAndLongFilesAreSeen();
    void removedChangedAndUnlistedSongsAreSeen();
    void lostPlaylistSongsAreSeen();

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
    QTest::addColumn<int>("position");
    const auto rows = [](const char *name, const QList<int> &positions) {
        for (const int position : positions)
            QTest::addRow("%s at %d", name, position) << QString::fromUtf8(name) << position;
    };
    rows("index.idx", {3, 4, 6, 30, 50, 63, 64, 200});
    rows("ordfile.idx", {0, 1, 6});
    rows("fsinfos.idx", {0, 11});
    for (const char *name : {"title.idx", "title3.idx"})
        rows(name, {3, 4, 30, 31});
    // The first record is a group's header: counts, padding and mark, then a song.
    for (const char *name : {"artist.idx", "genre.idx", "artist3.idx", "genre3.idx"})
        rows(name, {1, 3, 29, 31, 36, 63});
    for (const char *name :
         {"atitle.idx", "aartist.idx", "agenre.idx", "atitle3.idx", "aartist3.idx", "agenre3.idx"})
        rows(name, {0, 4 * 0x21 + 3});
}

void TestMemoryChecker::everyChangedByteIsSeen()
{
    QFETCH(QString, name);
    QFETCH(int, position);
    const DeviceMemory memory;
    fill(memory);
    QByteArray bytes = memory.read(name);
    QVERIFY(position < bytes.size());
    bytes[position] = static_cast<char>(bytes.at(position) ^ 0x10);
    memory.add(name, bytes);
    QVERIFY(memory.faults().startsWith(QStringLiteral("exit 1")));
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
    fill(memory);
    memory.add(QStringLiteral("playlist/play0001.dat"), QByteArray(32, '\x01'));
    QVERIFY(memory.faults().contains(QStringLiteral("play0001.dat song 0: id 16843009")));
    QCOMPARE(memory.faults({QStringLiteral("--allow-lost-songs")}), QString());
}

QTEST_GUILESS_MAIN(TestMemoryChecker)
#include "test_memorychecker.moc"
