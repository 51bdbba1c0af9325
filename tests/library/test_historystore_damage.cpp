// Kept bytes that were damaged are never written into a song.
#include "library/quickcompression.h"
#include "support/historyfixture.h"

#include <QSqlQuery>
#include <QTest>

using namespace historyfixture;

namespace
{

QString pathIn(const KeptLibrary &kept)
{
    return kept.library.path(QStringLiteral("data/history.sqlite"));
}

/** Replaces the bytes, which must occur, in what is kept of the MP3 song. */
bool damage(const KeptLibrary &library, const QByteArray &bytes, const QByteArray &by)
{
    SqlConnection connection(QStringLiteral("test_damage"));
    if (!connection.open(pathIn(library)))
        return false;
    QSqlQuery query(connection.database());
    if (!query.exec(QStringLiteral("SELECT song, bytes FROM kept JOIN songs ON id = song WHERE "
                                   "is_tag")) ||
        !query.next())
        return false;
    const qint64 song = query.value(0).toLongLong();
    std::optional<QByteArray> kept = quickcompression::plain(query.value(1).toByteArray(), 1000);
    query.finish();
    if (!kept || kept->count(bytes) != 1)
        return false;
    kept->replace(bytes, by);
    query.prepare(QStringLiteral("UPDATE kept SET bytes = ? WHERE song = ?"));
    query.addBindValue(quickcompression::compressed(*kept));
    query.addBindValue(song);
    return query.exec();
}

} // namespace

class TestHistoryStoreDamage : public QObject
{
    Q_OBJECT

private slots:
    void keptTagWithAnotherByteIsNotWritten_data();
    void keptTagWithAnotherByteIsNotWritten();
    void keptTagThatReachesIntoTheAudioIsNeverWritten();
};

void TestHistoryStoreDamage::keptTagWithAnotherByteIsNotWritten_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("by");
    QTest::newRow("text") << QByteArray("second") << QByteArray("Second");
    const QByteArray tag = mp3("second").left(10);
    QByteArray longer = tag;
    longer[9] = static_cast<char>(longer.at(9) + 0x30);
    QTest::newRow("size of the tag") << tag << longer;
}

void TestHistoryStoreDamage::keptTagWithAnotherByteIsNotWritten()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, by);
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const QByteArray synchronised = kept.library.bytes(QStringLiteral("b.mp3"));
    QVERIFY(damage(kept, bytes, by));
    const HistoryUndo::Report report = kept.takeBack(kept.store.jobs().constFirst());
    QCOMPARE(report.failed.size(), 1);
    QCOMPARE(report.failed.constFirst().path, kept.library.path(QStringLiteral("b.mp3")));
    QCOMPARE(report.failed.constFirst().reason,
             QStringLiteral("la cronologia non la conserva più, o è danneggiata"));
    QCOMPARE(kept.library.bytes(QStringLiteral("b.mp3")), synchronised);
}

/** The audio has changed since, so that nothing but the tag itself can tell. */
void TestHistoryStoreDamage::keptTagThatReachesIntoTheAudioIsNeverWritten()
{
    KeptLibrary kept;
    QVERIFY(kept.synchronise());
    const QByteArray changed = kept.library.bytes(QStringLiteral("b.mp3")) + "more";
    QVERIFY(samplesongs::writeFile(kept.library.path(QStringLiteral("b.mp3")), changed));
    const QByteArray tag = mp3("second").left(10);
    QByteArray longer = tag;
    longer[9] = static_cast<char>(longer.at(9) + 0x30);
    QVERIFY(damage(kept, tag, longer));
    QCOMPARE(kept.takeBack(kept.store.jobs().constFirst(), true).failed.size(), 1);
    QCOMPARE(kept.library.bytes(QStringLiteral("b.mp3")), changed);
}

QTEST_GUILESS_MAIN(TestHistoryStoreDamage)
#include "test_historystore_damage.moc"
