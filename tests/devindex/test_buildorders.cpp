// The orders of a build against entries that are sorted anew for each file, one after the other.
#include "devindex/entrysort.h"

#include <QRandomGenerator>
#include <QTest>

namespace
{

using Ids = QList<quint32>;

Ids idsOf(const EntryList &list)
{
    Ids ids;
    for (const SongInfoIndex *const entry : list)
        ids.append(entry->id);
    return ids;
}

/** Few texts, so that many are equal, some but for their case. */
QList<SongInfoIndex> randomEntries(quint32 seed, int count)
{
    const QStringList texts{
        QStringLiteral("A"),      QStringLiteral("a"),      QStringLiteral("À"),
        QStringLiteral("à"),      QStringLiteral(""),       QStringLiteral("STRAßE"),
        QStringLiteral("Z long"), QStringLiteral("z LONG"), QStringLiteral("Z longer")};
    QRandomGenerator random(seed);
    QList<SongInfoIndex> entries;
    for (int i = 0; i < count; ++i) {
        SongInfoIndex entry;
        entry.title = texts.at(random.bounded(int(texts.size())));
        entry.artist = texts.at(random.bounded(int(texts.size())));
        entry.genre = texts.at(random.bounded(int(texts.size())));
        entry.fileType = static_cast<quint8>(random.bounded(3));
        entry.id = quint32(1000 + i);
        entry.posidx = static_cast<quint16>((i * 7919) % count);
        entries.append(entry);
    }
    return entries;
}

} // namespace

class TestBuildOrders : public QObject
{
    Q_OBJECT

private slots:
    void equalTextsStandInTheOrderOfTheFileBefore();
    void anEmptyIndexHasEmptyOrders();
    void theMostSongsThatAMemoryHoldsAreAllThere();
};

void TestBuildOrders::equalTextsStandInTheOrderOfTheFileBefore()
{
    for (quint32 seed = 0; seed < 20; ++seed) {
        const QList<SongInfoIndex> entries = randomEntries(seed, 997); // a prime
        const BuildOrders orders(entries);

        QList<SongInfoIndex> sorted = entries;
        sortByPosidx(sorted);
        QCOMPARE(idsOf(orders.byNumber()), idsOf(listOf(sorted)));
        sortByTitle(sorted);
        QCOMPARE(idsOf(orders.byTitle()), idsOf(listOf(sorted)));
        sortByArtist(sorted);
        QCOMPARE(idsOf(orders.byArtist()), idsOf(listOf(sorted)));
        sortByGenre(sorted);
        QCOMPARE(idsOf(orders.byGenre()), idsOf(listOf(sorted)));

        sorted.removeIf(
            [](const SongInfoIndex &entry) { return entry.fileType != SongInfoIndex::Mp3; });
        QVERIFY(!sorted.isEmpty());
        sortByTitle(sorted);
        QCOMPARE(idsOf(orders.mp3ByTitle()), idsOf(listOf(sorted)));
        sortByArtist(sorted);
        QCOMPARE(idsOf(orders.mp3ByArtist()), idsOf(listOf(sorted)));
        sortByGenre(sorted);
        QCOMPARE(idsOf(orders.mp3ByGenre()), idsOf(listOf(sorted)));
    }
}

void TestBuildOrders::anEmptyIndexHasEmptyOrders()
{
    const BuildOrders orders{QList<SongInfoIndex>()};
    QVERIFY(orders.byNumber().empty());
    QVERIFY(orders.byGenre().empty());
    QVERIFY(orders.mp3ByTitle().empty());
}

void TestBuildOrders::theMostSongsThatAMemoryHoldsAreAllThere()
{
    QList<SongInfoIndex> entries;
    for (int i = 0; i < SongInfoIndex::maxSongs; ++i) {
        SongInfoIndex entry;
        entry.title = QString::number(100000 + i);
        entry.id = quint32(i);
        entry.posidx = static_cast<quint16>(i);
        entries.prepend(entry);
    }
    const EntryList list = BuildOrders(entries).byTitle();
    QCOMPARE(list.size(), std::size_t(SongInfoIndex::maxSongs));
    for (std::size_t i = 0; i < list.size(); ++i)
        QCOMPARE(list[i]->id, quint32(i));
}

QTEST_GUILESS_MAIN(TestBuildOrders)
#include "test_buildorders.moc"
