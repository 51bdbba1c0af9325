// Folders that cannot be read and names that cannot be used are reported, and their songs stay.
#include "devindex/index.h"
#include "devindex/memorycheck.h"
#include "devindex/memorysongs.h"
#include "support/faults.h"
#include "support/indexedmemory.h"
#include "support/recordedprogress.h"

#include <QSignalSpy>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace indexedmemory;

namespace
{

/** A memory of another user, on which one folder has these permissions while this lives. */
class Locked
{
public:
    Locked(const DeviceMemory &memory, const QString &folder, mode_t mode)
        : m_path(QFile::encodeName(memory.path(folder)))
    {
        for (const QString &item : memory.snapshot().keys())
            QVERIFY2(::chmod(QFile::encodeName(item).constData(), 0777) == 0, qPrintable(item));
        QVERIFY(::chmod(QFile::encodeName(memory.root()).constData(), 0777) == 0);
        QVERIFY(::chmod(m_path.constData(), mode) == 0);
    }
    ~Locked() { ::chmod(m_path.constData(), 0777); }
    Q_DISABLE_COPY_MOVE(Locked)

private:
    const QByteArray m_path;
};

struct Run {
    bool isWhole = false;
    QStringList errors;
};

Run runAsNobody(const QString &root, bool (Index::*operation)(const QString &))
{
    Run run;
    Index index;
    QObject::connect(&index, &Index::errorFromIndex, &index,
                     [&run](const QString &message) { run.errors.append(message); });
    const faults::AnotherUser nobody;
    run.isWhole = (index.*operation)(root);
    return run;
}

void makeFile(const DeviceMemory &memory, const QByteArray &name, const QByteArray &bytes)
{
    const QByteArray path = QFile::encodeName(memory.root()) + '/' + name;
    const int handle = ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL, 0666);
    QVERIFY(handle >= 0);
    QCOMPARE(::write(handle, bytes.constData(), static_cast<std::size_t>(bytes.size())),
             static_cast<ssize_t>(bytes.size()));
    QCOMPARE(::close(handle), 0);
}

} // namespace

class TestIndexUnreadable : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void songsOfAnUnreadableFolderStayInTheIndex_data();
    void songsOfAnUnreadableFolderStayInTheIndex();
    void songsThatNobodyReadsAreNamedByABuild_data();
    void songsThatNobodyReadsAreNamedByABuild();
    void repairFolderOfTheFileSystemIsNotReported();
    void namesThatAreNoUtf8AreReported();
    void linksThatLeadNowhereAreNoFault();
    void checkNamesThem();
};

void TestIndexUnreadable::songsOfAnUnreadableFolderStayInTheIndex_data()
{
    QTest::addColumn<uint>("mode");
    QTest::newRow("not_listed") << 0u;
    QTest::newRow("listed_but_not_entered") << 0444u;
}

void TestIndexUnreadable::songsOfAnUnreadableFolderStayInTheIndex()
{
    QFETCH(uint, mode);
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root");
    const DeviceMemory memory;
    const int count = fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    const QStringList before = pathRecords(memory);
    QCOMPARE(before.size(), count);
    memory.add(QStringLiteral("New.mid"), midi("New"));
    memory.isLeftBroken();
    {
        const Locked locked(memory, QStringLiteral("pop"), mode);
        const Run run = runAsNobody(memory.root(), &Index::updateIndex);
        QVERIFY(run.isWhole);
        QCOMPARE(run.errors.size(), 1);
        QVERIFY2(run.errors.constFirst().endsWith(memory.path(QStringLiteral("pop"))),
                 qPrintable(run.errors.constFirst()));
        QCOMPARE(pathRecords(memory).mid(0, count), before);
        QCOMPARE(pathRecords(memory).size(), count + 1);

        MemorySongs songs(memory.root());
        ProgressRecord record;
        RecordedProgress progress(record, {}, {}, 0);
        const faults::AnotherUser nobody;
        QCOMPARE(songs.read(progress), MemorySongs::Outcome::Done);
        QCOMPARE(songs.unreadableFolders(), QStringList(QStringLiteral("/pop")));
        QCOMPARE(songs.count(MemorySong::State::Unreadable), 3);
        QCOMPARE(songs.count(MemorySong::State::Gone), 0);
    }
    // Once it can be read, what has really gone is dropped.
    memory.remove(QStringLiteral("pop/Volare.kar"));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(pathRecords(memory).size(), count);
}

void TestIndexUnreadable::songsThatNobodyReadsAreNamedByABuild_data()
{
    songsOfAnUnreadableFolderStayInTheIndex_data();
}

void TestIndexUnreadable::songsThatNobodyReadsAreNamedByABuild()
{
    QFETCH(uint, mode);
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root");
    const DeviceMemory memory;
    const int count = fill(memory);
    {
        const Locked locked(memory, QStringLiteral("pop"), mode);
        const Run run = runAsNobody(memory.root(), &Index::createIndex);
        QVERIFY(run.isWhole);
        QVERIFY(!run.errors.isEmpty());
        for (const QString &error : run.errors)
            QVERIFY2(error.contains(memory.path(QStringLiteral("pop"))), qPrintable(error));
        QCOMPARE(pathRecords(memory).size(), count - 3);
    }
    memory.isLeftBroken();
}

void TestIndexUnreadable::repairFolderOfTheFileSystemIsNotReported()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root");
    const DeviceMemory memory;
    const int count = fill(memory);
    QVERIFY(QDir(memory.root()).mkdir(QStringLiteral("lost+found")));
    const Locked locked(memory, QStringLiteral("lost+found"), 0);
    const Run run = runAsNobody(memory.root(), &Index::createIndex);
    QVERIFY(run.isWhole);
    QCOMPARE(run.errors, QStringList());
    QCOMPARE(pathRecords(memory).size(), count);
    const faults::AnotherUser nobody;
    QVERIFY(MemoryCheck(memory.root()).run().isEmpty());
}

void TestIndexUnreadable::namesThatAreNoUtf8AreReported()
{
    const DeviceMemory memory;
    const int count = fill(memory);
    memory.isLeftBroken(); // the judge misses the song whose name is no UTF-8
    makeFile(memory, "Caff\xE8.mid", midi("Coffee"));
    makeFile(memory, "Caff\xE8.txt", "no song");
    QVERIFY(::mkdir(QFile::encodeName(memory.path(QStringLiteral("pop/"))) + "Pi\xF9", 0777) == 0);
    for (const auto operation : {&Index::createIndex, &Index::updateIndex}) {
        Index index;
        const QSignalSpy errors(&index, &Index::errorFromIndex);
        QVERIFY((index.*operation)(memory.root()));
        QStringList told;
        for (const QList<QVariant> &error : errors)
            told.append(error.constFirst().toString());
        QCOMPARE(told.size(), 2);
        QVERIFY2(told.at(0).endsWith(memory.path(QStringLiteral("Caff\\xe8.mid"))),
                 qPrintable(told.at(0)));
        QVERIFY2(told.at(1).endsWith(memory.path(QStringLiteral("pop/Pi\\xf9"))),
                 qPrintable(told.at(1)));
        QCOMPARE(pathRecords(memory).size(), count);
    }
    QStringList found;
    for (const MemoryCheck::Finding &finding : MemoryCheck(memory.root()).run())
        found.append(QLatin1String(CheckFinding::nameOf(finding.kind)) + finding.path);
    QCOMPARE(found, QStringList({QStringLiteral("unusable-name/Caff\\xe8.mid"),
                                 QStringLiteral("unusable-name/pop/Pi\\xf9")}));
}

void TestIndexUnreadable::linksThatLeadNowhereAreNoFault()
{
    const DeviceMemory memory;
    fill(memory);
    QVERIFY(QFile::link(QStringLiteral("nowhere"), memory.path(QStringLiteral("broken.mid"))));
    QVERIFY(QFile::link(QStringLiteral("loop.mid"), memory.path(QStringLiteral("loop.mid"))));
    QVERIFY(QFile::link(QStringLiteral("Azzurro.mid/x"), memory.path(QStringLiteral("in.mid"))));
    Index index;
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(errors.size(), 0);
    QVERIFY(MemoryCheck(memory.root()).run().isEmpty());
}

void TestIndexUnreadable::checkNamesThem()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root");
    const DeviceMemory memory;
    fill(memory);
    QVERIFY(Index().createIndex(memory.root()));
    const Locked locked(memory, QStringLiteral("pop"), 0);
    const faults::AnotherUser nobody;
    QStringList found;
    for (const MemoryCheck::Finding &finding : MemoryCheck(memory.root()).run())
        found.append(QLatin1String(CheckFinding::nameOf(finding.kind)) + finding.path);
    QCOMPARE(found, QStringList(QStringLiteral("unread-folder/pop")));
}

QTEST_GUILESS_MAIN(TestIndexUnreadable)
#include "test_index_unreadable.moc"
