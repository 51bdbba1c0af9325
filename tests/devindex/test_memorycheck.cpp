// The program's own check finds what the independent checker finds, and changes nothing.
#include "devindex/index.h"
#include "devindex/memorycheck.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QTest>

#include <optional>

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
    void lostPlaylistSongsAreNamed();
    void hugeFilesAreNotRead();

private:
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
    const QList<MemoryCheck::Finding> findings = MemoryCheck(memory.root()).run();
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
        QCOMPARE(MemoryCheck::nameOf(findings.constFirst().kind), "no-index");
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
    memory.add(QStringLiteral("A.MID"), "the same name to the player");
    memory.remove(QStringLiteral("d.mp3"));
    QStringList found;
    for (const MemoryCheck::Finding &finding : MemoryCheck(memory.root()).run())
        found.append(QString::fromUtf8(MemoryCheck::nameOf(finding.kind)) + finding.path);
    found.sort();
    QCOMPARE(found, QStringList({QStringLiteral("changed-song/a.mid"),
                                 QStringLiteral("missing-song/d.mp3"),
                                 QStringLiteral("unlisted-song/x/new.kar")}));
    compareWithTwin(memory, "songs");
}

void TestMemoryCheck::lostPlaylistSongsAreNamed()
{
    const DeviceMemory memory;
    memory.isLeftBroken();
    fill(memory);
    memory.add(QStringLiteral("playlist/play0001.dat"), QByteArray(40, '\x01'));
    const QList<MemoryCheck::Finding> findings = MemoryCheck(memory.root()).run();
    QCOMPARE(findings.size(), 2);
    QCOMPARE(MemoryCheck::nameOf(findings.at(0).kind), "wrong-size");
    QCOMPARE(MemoryCheck::nameOf(findings.at(1).kind), "unknown-song-in-playlist");
    QCOMPARE(findings.at(1).path, QStringLiteral("playlist/play0001.dat"));
    compareWithTwin(memory, "playlist");
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

QTEST_GUILESS_MAIN(TestMemoryCheck)
#include "test_memorycheck.moc"
