// The list of a memory's songs as a text table.
#include "devindex/index.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>
#include <unistd.h>

using namespace songbytes;

namespace
{

QByteArray midi(const QByteArray &title, const QByteArray &artist, const QByteArray &genre)
{
    return midiFile(
        {track(metaEvent(3, title) + kravoEvent(2, artist) + kravoEvent(1, genre) + notes())});
}

const QByteArray headerLine = "TITOLO;ARTISTA;GENERE;FILE;\n";

/** A memory of four songs and a place for lists beside it. */
class ExportMemory : public DeviceMemory
{
public:
    ExportMemory()
    {
        add(QStringLiteral("pop/c.mid"), midi("Zingara", "Morandi", "Pop"));
        add(QStringLiteral("a.mid"), midi("Perch\xE9;no", "Zanicchi", "Ballo"));
        add(QStringLiteral("b.mid"), midi("Azzurro", "Morandi", "Canzone"));
        add(QStringLiteral("città/d.mid"), midi("Ciao", "Battisti", "Pop"));
        if (!Index().createIndex(root()))
            qFatal("no index");
    }

    QString list() const { return m_lists.filePath(QStringLiteral("list.csv")); }
    QString lists() const { return m_lists.path(); }
    QByteArray listed() const
    {
        QFile file(list());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }

private:
    QTemporaryDir m_lists;
};

} // namespace

class TestIndexExport : public QObject
{
    Q_OBJECT

private slots:
    // The log of many builds would bury what a failing test says.
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    void songsAreListedInTheChosenOrder_data();
    void songsAreListedInTheChosenOrder();
    void emptyIndexGivesTheHeaderLine();
    void incompleteIndexWritesNoFile_data();
    void incompleteIndexWritesNoFile();
    void damagedIndexWritesNoFile();
    void fileThatCannotBeMadeGivesZero();
    void fullDiskLeavesNoPartOfAList();
    void existingListIsReplaced();
    void listThatMayNotBeWrittenStays();
    void rootMayEndInASlash();
    void progressFollowsTheSongs();
    void memoryItselfStaysAsItIs();

private:
    std::optional<LogCapture> m_log;
};

void TestIndexExport::songsAreListedInTheChosenOrder_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("letters");
    QTest::newRow("title") << 0 << "bdac";
    QTest::newRow("artist, then title") << 1 << "dbca";
    QTest::newRow("genre, then title") << 2 << "abdc";
    QTest::newRow("anything else is title") << 3 << "bdac";
    QTest::newRow("no choice is title") << -1 << "bdac";
}

void TestIndexExport::songsAreListedInTheChosenOrder()
{
    QFETCH(int, mode);
    QFETCH(QString, letters);
    const QMap<QChar, QByteArray> lines{
        {QLatin1Char('a'), "PERCH\xC3\x89;NO;ZANICCHI;BALLO;/a.mid;\n"},
        {QLatin1Char('b'), "AZZURRO;MORANDI;CANZONE;/b.mid;\n"},
        {QLatin1Char('c'), "ZINGARA;MORANDI;POP;/pop/c.mid;\n"},
        {QLatin1Char('d'), "CIAO;BATTISTI;POP;/citt\xC3\xA0/d.mid;\n"}};
    QByteArray expected = headerLine;
    for (const QChar letter : letters)
        expected += lines.value(letter);
    const ExportMemory memory;
    Index index;
    QCOMPARE(index.saveSongsList(memory.root(), memory.list(), static_cast<Index::SORT_MODE>(mode)),
             1);
    QCOMPARE(memory.listed(), expected);
}

void TestIndexExport::emptyIndexGivesTheHeaderLine()
{
    const ExportMemory memory;
    memory.isLeftBroken();
    for (const QString &name : DeviceMemory::indexFiles())
        memory.add(name, {});
    Index index;
    const QSignalSpy maxima(&index, &Index::progressMaxSetup);
    QCOMPARE(index.saveSongsList(memory.root(), memory.list(), Index::SortByArtist), 1);
    QCOMPARE(memory.listed(), headerLine);
    QCOMPARE(maxima.size(), 1);
    QCOMPARE(maxima.first().first().toInt(), 0);
}

void TestIndexExport::incompleteIndexWritesNoFile_data()
{
    QTest::addColumn<QString>("missing");
    for (const QString &name : DeviceMemory::indexFiles())
        QTest::newRow(qPrintable(name)) << name;
}

void TestIndexExport::incompleteIndexWritesNoFile()
{
    QFETCH(QString, missing);
    const ExportMemory memory;
    memory.remove(missing);
    Index index;
    QCOMPARE(index.saveSongsList(memory.root(), memory.list(), Index::SortByTitle), -1);
    QVERIFY(!QFileInfo::exists(memory.list()));
}

void TestIndexExport::damagedIndexWritesNoFile()
{
    const ExportMemory memory;
    memory.isLeftBroken();
    memory.add(QStringLiteral("artist.idx"), "short");
    Index index;
    QCOMPARE(index.saveSongsList(memory.root(), memory.list(), Index::SortByTitle), 0);
    QVERIFY(!QFileInfo::exists(memory.list()));
}

void TestIndexExport::fileThatCannotBeMadeGivesZero()
{
    const ExportMemory memory;
    Index index;
    QCOMPARE(index.saveSongsList(memory.root(), QStringLiteral("/nowhere/at/all.csv"),
                                 Index::SortByTitle),
             0);
    QCOMPARE(index.saveSongsList(memory.root(), memory.lists(), Index::SortByTitle), 0);
    QCOMPARE(index.saveSongsList(memory.root(), QString(), Index::SortByTitle), 0);
    QVERIFY(QDir(memory.lists()).isEmpty());
}

void TestIndexExport::fullDiskLeavesNoPartOfAList()
{
    const ExportMemory memory;
    const DeviceMemory disk;
    if (QProcess::execute(QStringLiteral("mount"),
                          {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                           QStringLiteral("size=8k"), QStringLiteral("none"), disk.root()}) != 0)
        QSKIP("needs the right to mount a small disk");
    const auto unmount =
        qScopeGuard([&disk] { QProcess::execute(QStringLiteral("umount"), {disk.root()}); });
    disk.add(QStringLiteral("full"), QByteArray(8192, 'x'));
    Index index;
    const QString list = disk.path(QStringLiteral("list.csv"));
    QCOMPARE(index.saveSongsList(memory.root(), list, Index::SortByTitle), 0);
    QVERIFY(!QFileInfo::exists(list));
    if (QFileInfo::exists(QStringLiteral("/dev/full"))) {
        QCOMPARE(
            index.saveSongsList(memory.root(), QStringLiteral("/dev/full"), Index::SortByTitle), 0);
        QVERIFY(QFileInfo::exists(QStringLiteral("/dev/full")));
    }
}

void TestIndexExport::existingListIsReplaced()
{
    const ExportMemory memory;
    QFile old(memory.list());
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(5000, 'x'));
    old.close();
    Index index;
    QCOMPARE(index.saveSongsList(memory.root(), memory.list(), Index::SortByTitle), 1);
    QVERIFY(memory.listed().startsWith(headerLine));
    QVERIFY(!memory.listed().contains('x'));
}

void TestIndexExport::listThatMayNotBeWrittenStays()
{
    const ExportMemory memory;
    QFile old(memory.list());
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("the user's own");
    old.close();
    const auto everyone = QFile::Permissions(0x7777);
    for (const QString &folder : {memory.root(), memory.lists()})
        QVERIFY(QFile::setPermissions(folder, everyone));
    QVERIFY(old.setPermissions(QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
    // Nothing is write-protected for root.
    const uid_t user = geteuid();
    constexpr uid_t nobody = 65534;
    QVERIFY(user != 0 || seteuid(nobody) == 0);
    Index index;
    const int result = index.saveSongsList(memory.root(), memory.list(), Index::SortByTitle);
    QVERIFY(user != 0 || seteuid(user) == 0);
    QCOMPARE(result, 0);
    QCOMPARE(memory.listed(), QByteArray("the user's own"));
}

void TestIndexExport::rootMayEndInASlash()
{
    const ExportMemory memory;
    for (const char *tail : {"/", "\\"}) {
        Index index;
        QCOMPARE(index.saveSongsList(memory.root() + QString::fromUtf8(tail), memory.list(),
                                     Index::SortByTitle),
                 1);
        QVERIFY(memory.listed().contains(";/b.mid;\n"));
    }
}

void TestIndexExport::progressFollowsTheSongs()
{
    const ExportMemory memory;
    Index index;
    QStringList events;
    connect(&index, &Index::progressMaxSetup, this,
            [&events](int maximum) { events.append(QStringLiteral("max %1").arg(maximum)); });
    connect(&index, &Index::progressValueChanged, this,
            [&events](int value) { events.append(QStringLiteral("value %1").arg(value)); });
    connect(&index, &Index::currentPathChanged, this,
            [&](const QString &path) { events.append(path.mid(memory.root().size())); });
    QCOMPARE(index.saveSongsList(memory.root(), memory.list(), Index::SortByTitle), 1);
    QCOMPARE(events.join(QLatin1Char(' ')),
             QStringLiteral(
                 "max 4 /b.mid value 1 /città/d.mid value 2 /a.mid value 3 /pop/c.mid value 4"));
}

void TestIndexExport::memoryItselfStaysAsItIs()
{
    const ExportMemory memory;
    memory.ageIndex();
    const auto before = memory.snapshot();
    Index index;
    QCOMPARE(index.saveSongsList(memory.root(), memory.list(), Index::SortByGenre), 1);
    QCOMPARE(memory.snapshot(), before);
}

QTEST_GUILESS_MAIN(TestIndexExport)
#include "test_index_export.moc"
