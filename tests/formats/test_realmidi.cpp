// Real songs, judged by midicsv: it finds what we wrote, and the music as it was.
#include "formats/rawmidifile.h"
#include "support/midicsv.h"
#include "support/samplesongs.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace midicsv;
using samplesongs::readFile;
using samplesongs::writeFile;

namespace
{

void writeEverything(RawMidiFile &midi, const QString &key, int number)
{
    midi.setTitle(QStringLiteral("La città, \"nr.\" %1").arg(number));
    midi.setArtist(QStringLiteral("Artist %1").arg(number));
    midi.setGenre(QStringLiteral("Café %1").arg(number));
    midi.setUserBpm(number);
    midi.setKey(key);
    midi.setLength(number * 10);
    midi.setMarkersList(
        {Marker{1, QStringLiteral("Intro")}, Marker{0x1234, QString(124, QLatin1Char('m'))}});
    midi.setAuthor(QStringLiteral("Größe"));
}

Records writtenHead(const QByteArray &signature, int number)
{
    const QByteArray digits = QByteArray::number(number);
    return {kravoRecord(3, "Gr\xF6\xDF"
                           "e"),
            kravoRecord(6, QByteArray("\x00\x01", 2) + "Intro"),
            kravoRecord(6, QByteArray("\x12\x34", 2) + QByteArray(124, 'm')),
            kravoRecord(4, digits + "0"),
            {"1", 0, "Key_signature", signature},
            kravoRecord(5, digits),
            kravoRecord(1, "Caf\xE9 " + digits),
            kravoRecord(2, "Artist " + digits),
            {"1", 0, "Title_t", "\"La citt\xE0, \"\"nr.\"\" " + digits + "\""}};
}

} // namespace

class TestRealMidi : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void titleAndKeyAreWhatMidicsvFinds_data();
    void titleAndKeyAreWhatMidicsvFinds();
    void writtenMetadataAreFoundAndTheMusicIsUntouched_data();
    void writtenMetadataAreFoundAndTheMusicIsUntouched();
    void everyKeyIsWhatMidicsvFinds();
    void musicKeepsItsTimeWhenAKeyChangeFollowsALongPause();

private:
    void addSongs();

    QTemporaryDir m_folder;
};

void TestRealMidi::initTestCase()
{
    if (QStandardPaths::findExecutable(QStringLiteral("midicsv")).isEmpty())
        QSKIP("midicsv is not installed");
    QVERIFY(m_folder.isValid());
    QVERIFY2(samplesongs::installedMidiFiles().size() > 20, "openttd-openmsx is not installed");
}

void TestRealMidi::addSongs()
{
    QTest::addColumn<QString>("path");
    for (const QString &path : samplesongs::installedMidiFiles())
        QTest::newRow(qPrintable(QFileInfo(path).fileName())) << path;
}

void TestRealMidi::titleAndKeyAreWhatMidicsvFinds_data()
{
    addSongs();
}

void TestRealMidi::titleAndKeyAreWhatMidicsvFinds()
{
    QFETCH(QString, path);
    RawMidiFile midi;
    QVERIFY(midi.loadData(readFile(path)));
    const Records records = recordsOf(path);
    QVERIFY(records.size() > 100);

    bool found = false;
    const QByteArray title = firstOf(records, "Title_t", found);
    QCOMPARE(midi.hasTitle(), found);
    QCOMPARE(midi.title(), textOf(title));
    const QByteArray key = firstOf(records, "Key_signature", found);
    QCOMPARE(midi.hasKey(), found);
    QCOMPARE(midi.key(), found ? keyName(key) : QString());
    QVERIFY(!midi.hasArtist());
    QVERIFY(!midi.hasMarkers());
    QCOMPARE(QByteArray::number(midi.trackCount()),
             records.first().rest.split(',').at(1).trimmed());
}

void TestRealMidi::writtenMetadataAreFoundAndTheMusicIsUntouched_data()
{
    addSongs();
}

void TestRealMidi::writtenMetadataAreFoundAndTheMusicIsUntouched()
{
    QFETCH(QString, path);
    const Records original = recordsOf(path);
    RawMidiFile midi;
    QVERIFY(midi.loadData(readFile(path)));
    const QString edited = m_folder.filePath(QStringLiteral("edited.mid"));

    writeEverything(midi, QStringLiteral("F#-"), 97);
    QVERIFY(writeFile(edited, midi.stream()));
    compareRecords(recordsOf(edited), withHead(original, writtenHead("3, \"minor\"", 97)));

    // Once more, over what we wrote ourselves: the same again, but for markers, which stay.
    QVERIFY(midi.loadData(readFile(edited)));
    midi.removeHeadMetaevent(RawMidiFile::KravoMarker, false);
    writeEverything(midi, QStringLiteral("Db"), 5);
    QVERIFY(writeFile(edited, midi.stream()));
    compareRecords(recordsOf(edited), withHead(original, writtenHead("-5, \"major\"", 5)));
}

void TestRealMidi::everyKeyIsWhatMidicsvFinds()
{
    const QString path = samplesongs::installedMidiFiles().constFirst();
    const QString edited = m_folder.filePath(QStringLiteral("key.mid"));
    RawMidiFile midi;
    QVERIFY(midi.loadData(readFile(path)));
    for (const QString &name : midi.getKeysList()) {
        midi.setKey(name);
        QVERIFY(writeFile(edited, midi.stream()));
        bool found = false;
        QCOMPARE(keyName(firstOf(recordsOf(edited), "Key_signature", found)), name);
    }
}

void TestRealMidi::musicKeepsItsTimeWhenAKeyChangeFollowsALongPause()
{
    // The delta time 83 00 ends in the 00 by which metadata are found.
    const QByteArray song("MThd\x00\x00\x00\x06\x00\x00\x00\x01\x00\x60"
                          "MTrk\x00\x00\x00\x1E"
                          "\x00\xFF\x59\x02\x01\x00"
                          "\x00\x90\x3C\x64"
                          "\x83\x00\xFF\x59\x02\x02\x00"
                          "\x85\x00\x80\x3C\x40"
                          "\x00\xC0\x05"
                          "\x81\x00\xFF\x2F\x00",
                          22 + 30);
    const QString path = m_folder.filePath(QStringLiteral("pause.mid"));
    QVERIFY(writeFile(path, song));
    const Records original = recordsOf(path);
    QVERIFY(!original.isEmpty());
    RawMidiFile midi;
    QVERIFY(midi.loadData(song));
    midi.setKey(QStringLiteral("C"));
    QVERIFY(writeFile(path, midi.stream()));
    compareRecords(recordsOf(path),
                   withHead(original, {{"1", 0, "Key_signature", "0, \"major\""}}));
}

QTEST_GUILESS_MAIN(TestRealMidi)
#include "test_realmidi.moc"
