// Songs are removed from a memory whose index can be read, but is not true: it is true afterwards.
#include "devindex/memorycheck.h"
#include "support/listedmemory.h"

#include <QTest>

using namespace listedmemory;

namespace
{

constexpr qsizetype recordSize = 32;

QByteArray without(const QByteArray &bytes, qsizetype record)
{
    return bytes.left(record * recordSize) + bytes.mid((record + 1) * recordSize);
}

} // namespace

class TestSongChangesUntrue : public QuietIndexFixture
{
    Q_OBJECT

private slots:
    void init() { QuietIndexFixture::init(); }
    void cleanup() { QuietIndexFixture::cleanup(); }

    void indexIsTrueAfterARemoval_data();
    void indexIsTrueAfterARemoval();
    void trueIndexIsNotReadAgain();
    void fileThatIsListedTwiceIsListedOnce();
};

/** The last song of each list loses its record; or two records change places. */
void TestSongChangesUntrue::indexIsTrueAfterARemoval_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("isCut");
    for (const char *file : {"title.idx", "artist.idx", "genre.idx"}) {
        QTest::addRow("cut %s", file) << text(file) << true;
        QTest::addRow("other %s", file) << text(file) << false;
    }
}

void TestSongChangesUntrue::indexIsTrueAfterARemoval()
{
    QFETCH(QString, file);
    QFETCH(bool, isCut);
    const ListedMemory memory;
    QVERIFY(QFile::remove(memory.path(text("playlist/playlist.dat")))); // would miss the song
    const QByteArray bytes = memory.read(file);
    QByteArray other = bytes;
    other[bytes.size() - recordSize + 4] = 'Z'; // begins the title of the last song
    other[bytes.size() - recordSize + 5] = '!';
    memory.add(file, isCut ? without(bytes, bytes.size() / recordSize - 1) : other);
    QVERIFY(!MemoryCheck(memory.root()).run().isEmpty());
    Job job{{}, memory.root()};
    QVERIFY(job.changes().remove({text("/Azzurro.mid")}).isComplete());
    QCOMPARE(memory.faults(), QString());
    QCOMPARE(MemoryCheck(memory.root()).run().size(), qsizetype(0));
}

void TestSongChangesUntrue::trueIndexIsNotReadAgain()
{
    const ListedMemory memory;
    QVERIFY(QFile::remove(memory.path(text("playlist/playlist.dat"))));
    // The same length and time, another title: only who reads the file again finds it.
    const QString path = memory.path(text("pop/Ciao.mp3"));
    const QDateTime changed = QFileInfo(path).lastModified();
    const QByteArray index = memory.read(text("title.idx"));
    memory.add(text("pop/Ciao.mp3"), QByteArray(QFileInfo(path).size(), 'x'));
    QFile file(path);
    QVERIFY(file.open(QFile::ReadWrite));
    QVERIFY(file.setFileTime(changed, QFileDevice::FileModificationTime));
    file.close();
    Job job{{}, memory.root()};
    QVERIFY(job.changes().remove({text("/Azzurro.mid")}).isComplete());
    QCOMPARE(memory.read(text("title.idx")).count("CIAO"), index.count("CIAO"));
    memory.isLeftBroken();
}

void TestSongChangesUntrue::fileThatIsListedTwiceIsListedOnce()
{
    const ListedMemory memory;
    QVERIFY(QFile::remove(memory.path(text("playlist/playlist.dat"))));
    QByteArray paths = memory.read(text("index.idx"));
    const qsizetype last = paths.size() - 64;
    paths.replace(last + 4, 60, paths.mid(last - 64 + 4, 60)); // keeps its id
    memory.add(text("index.idx"), paths);
    Job job{{}, memory.root()};
    QVERIFY(job.changes().remove({text("/Azzurro.mid")}).isComplete());
    QCOMPARE(memory.faults(), QString());
    const QStringList indexed = memory.indexed();
    QCOMPARE(QSet<QString>(indexed.cbegin(), indexed.cend()).size(), indexed.size());
}

QTEST_GUILESS_MAIN(TestSongChangesUntrue)
#include "test_songchanges_untrue.moc"
