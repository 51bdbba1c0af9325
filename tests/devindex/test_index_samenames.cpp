// Files whose names are one in the index: they keep their entries, and none appears twice.
#include "devindex/index.h"
#include "library/answer.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QSignalSpy>
#include <QTest>
#include <QtEndian>

#include <optional>

using namespace songbytes;

namespace
{

QByteArray song(const QByteArray &title)
{
    return midiFile({track(metaEvent(3, title) + notes())});
}

/** Every song of the index as "id title", in the order of the ids. */
QStringList titles(const DeviceMemory &memory)
{
    QMap<quint32, QString> found;
    const QByteArray records = memory.read(QStringLiteral("title.idx"));
    for (qsizetype at = 0; at + 32 <= records.size(); at += 32)
        found.insert(qFromBigEndian<quint32>(records.constData() + at),
                     QString::fromLatin1(records.mid(at + 4, 26).constData()));
    QStringList lines;
    for (auto it = found.cbegin(); it != found.cend(); ++it)
        lines.append(QStringLiteral("%1 %2").arg(it.key()).arg(it.value()));
    return lines;
}

QStringList lines(const char *text)
{
    return QString::fromUtf8(text).split(QLatin1Char(','));
}

} // namespace

class TestIndexSameNames : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    void unchangedUpdateAddsNoEntry();
    void songsOfOneRecordKeepTheirIds_data();
    void songsOfOneRecordKeepTheirIds();
    void changedSongOfASharedRecordIsReadAgain();
    void equalSongsOfOneRecordStayInTheirOrder();
    void secondNameOfOtherCaseIsReported();
    void shortNamesDifferInMoreThanCase();
    void exactNameKeepsItsEntry();
    void sameFileUnderTwoNamesIsNoSecondSong();

private:
    std::optional<LogCapture> m_log;
};

void TestIndexSameNames::unchangedUpdateAddsNoEntry()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("?.mid"), song("Question"));
    memory.add(QStringLiteral("α.mid"), song("Alpha"));
    memory.add(QStringLiteral("Я/?.mid"), song("Other"));
    QVERIFY(Index().createIndex(memory.root()));
    memory.ageIndex();
    const auto before = memory.snapshot();
    for (int round = 0; round < 3; ++round) {
        QVERIFY(Index().updateIndex(memory.root()));
        QCOMPARE(memory.snapshot(), before);
    }
}

void TestIndexSameNames::songsOfOneRecordKeepTheirIds_data()
{
    QTest::addColumn<QString>("removed");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("question mark") << "?.mid" << lines("1 ALPHA,2 BETA,3 ZHE");
    QTest::newRow("alpha") << "α.mid" << lines("0 QUESTION,2 BETA,3 ZHE");
    QTest::newRow("beta") << "ε.mid" << lines("0 QUESTION,1 ALPHA,3 ZHE");
    QTest::newRow("last") << "Ж.mid" << lines("0 QUESTION,1 ALPHA,2 BETA");
}

void TestIndexSameNames::songsOfOneRecordKeepTheirIds()
{
    QFETCH(QString, removed);
    QFETCH(QStringList, left);
    const DeviceMemory memory;
    memory.add(QStringLiteral("?.mid"), song("Question"));
    memory.add(QStringLiteral("α.mid"), song("Alpha"));
    memory.add(QStringLiteral("ε.mid"), song("Beta"));
    memory.add(QStringLiteral("Ж.mid"), song("Zhe"));
    QVERIFY(Index().createIndex(memory.root()));
    QCOMPARE(titles(memory), lines("0 QUESTION,1 ALPHA,2 BETA,3 ZHE"));
    memory.remove(removed);
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(titles(memory), left);
}

void TestIndexSameNames::changedSongOfASharedRecordIsReadAgain()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("α.mid"), song("Alpha"));
    memory.add(QStringLiteral("ε.mid"), song("Beta"));
    QVERIFY(Index().createIndex(memory.root()));
    memory.add(QStringLiteral("α.mid"), song("New"), DeviceMemory::defaultTime().addDays(1));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(titles(memory), lines("0 NEW,1 BETA"));
    // Another song in place of one that is gone, with its time of change.
    memory.remove(QStringLiteral("ε.mid"));
    memory.add(QStringLiteral("Ж.mid"), song("Zhe"));
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(titles(memory), lines("0 NEW,1 ZHE"));
    QCOMPARE(memory.faults(), QString());
}

void TestIndexSameNames::equalSongsOfOneRecordStayInTheirOrder()
{
    const DeviceMemory memory;
    for (const char *name : {"α.mid", "?.mid", "Ж.mid"})
        memory.add(QString::fromUtf8(name), song("Equal"));
    QVERIFY(Index().createIndex(memory.root()));
    memory.ageIndex();
    const auto before = memory.snapshot();
    QVERIFY(Index().updateIndex(memory.root()));
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexSameNames::secondNameOfOtherCaseIsReported()
{
    const DeviceMemory memory;
    const QString lower = memory.add(QStringLiteral("Song.mid"), song("Lower"));
    const QString upper = memory.add(QStringLiteral("SONG.mid"), song("Upper"));
    if (QDir(memory.root()).entryList(QDir::Files).size() != 2)
        QSKIP("this file system knows no letter case");
    for (int round = 0; round < 2; ++round) {
        Index index;
        const QSignalSpy errors(&index, &Index::errorFromIndex);
        QVERIFY(round == 0 ? index.createIndex(memory.root()) : index.updateIndex(memory.root()));
        QCOMPARE(titles(memory).size(), 1);
        const QString leftOut =
            titles(memory).first().endsWith(QStringLiteral("UPPER")) ? lower : upper;
        QCOMPARE(errors.size(), 1);
        QCOMPARE(errors.first().first().toString(),
                 QStringLiteral("File non importato, il nome differisce da un altro solo per le "
                                "maiuscole: ") +
                     leftOut);
        QCOMPARE(memory.faults(), QString());
    }
}

/** Else one of two songs would be hidden from the player where letter case counts. */
void TestIndexSameNames::shortNamesDifferInMoreThanCase()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("LONGNA-1.mid"), song("There"));
    memory.add(QStringLiteral("Long name of one.mid"), song("One"));
    memory.add(QStringLiteral("LONG NAME OF ANOTHER.mid"), song("Another"));
    memory.add(QStringLiteral("long/name of a folder.x/a.mid"), song("A"));
    Index index;
    index.setRenameQuestion([](const QString &, const QString &) { return Answer::YesToAll; });
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(errors.size(), 0);
    QCOMPARE(titles(memory).size(), 4);
    QStringList names = QDir(memory.root()).entryList({QStringLiteral("*.mid")}, QDir::Files);
    for (QString &name : names)
        name = name.toLower();
    names.sort();
    QCOMPARE(names, lines("longna-1.mid,longna-2.mid,longna-3.mid"));
}

void TestIndexSameNames::exactNameKeepsItsEntry()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("Song.mid"), song("First"));
    QVERIFY(Index().createIndex(memory.root()));
    const QString later = memory.add(QStringLiteral("SONG.mid"), song("Later"));
    Index index;
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.updateIndex(memory.root()));
    QCOMPARE(titles(memory), lines("0 FIRST"));
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().first().toString().endsWith(later));
}

void TestIndexSameNames::sameFileUnderTwoNamesIsNoSecondSong()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("Song.mid"), song("First"));
    QVERIFY(QFile::link(QStringLiteral("Song.mid"), memory.path(QStringLiteral("SONG.mid"))));
    Index index;
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    QVERIFY(index.createIndex(memory.root()));
    QCOMPARE(titles(memory), lines("0 FIRST"));
    QCOMPARE(errors.size(), 0);
}

QTEST_GUILESS_MAIN(TestIndexSameNames)
#include "test_index_samenames.moc"
