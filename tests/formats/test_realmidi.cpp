// Real songs, judged by midicsv: it finds what we wrote, and the music as it was.
#include "formats/rawmidifile.h"
#include "support/samplesongs.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace
{

/** One line of midicsv: track, time, record type, the rest. */
struct Record {
    QByteArray track;
    qint64 time = 0;
    QByteArray type;
    QByteArray rest;

    bool operator==(const Record &other) const
    {
        return track == other.track && time == other.time && type == other.type &&
               rest == other.rest;
    }
    QByteArray line() const
    {
        return track + ", " + QByteArray::number(time) + ", " + type + ", " + rest;
    }
};

using Records = QList<Record>;

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** What midicsv prints of a file; nothing when it fails or complains. */
Records csvRecords(const QString &path)
{
    QProcess process;
    process.start(QStringLiteral("midicsv"), {path});
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0 || !process.readAllStandardError().isEmpty())
        return {};
    Records records;
    for (const QByteArray &line : process.readAllStandardOutput().split('\n')) {
        const QList<QByteArray> fields = line.split(',');
        if (fields.size() < 3)
            continue;
        qsizetype restPos = fields.at(0).size() + fields.at(1).size() + fields.at(2).size() + 3;
        records.append({fields.at(0).trimmed(), fields.at(1).trimmed().toLongLong(),
                        fields.at(2).trimmed(), line.mid(restPos).trimmed()});
    }
    return records;
}

/** The text between the quotes, midicsv's escapes undone. */
QString csvText(const QByteArray &quoted)
{
    QByteArray text;
    for (qsizetype i = 1; i < quoted.size() - 1; ++i) {
        if (quoted.at(i) == '\\' && quoted.at(i + 1) != '\\') {
            text += static_cast<char>(quoted.mid(i + 1, 3).toInt(nullptr, 8));
            i += 3;
            continue;
        }
        text += quoted.at(i);
        if (quoted.at(i) == '"' || quoted.at(i) == '\\')
            ++i; // both are doubled
    }
    return QString::fromLatin1(text).trimmed();
}

/** Our name of a key signature as midicsv prints it. */
QString keyName(const QByteArray &signature)
{
    static const QStringList majors =
        QStringLiteral("Cb Gb Db Ab Eb Bb F C G D A E B F# C#").split(QLatin1Char(' '));
    static const QStringList minors =
        QStringLiteral("Ab- Eb- Bb- F- C- G- D- A- E- B- F#- C#- G#- D#- A#-")
            .split(QLatin1Char(' '));
    const qsizetype comma = signature.indexOf(',');
    const int sharps = signature.left(comma).toInt();
    return signature.endsWith("\"minor\"") ? minors.value(sharps + 7) : majors.value(sharps + 7);
}

/** The first record of a type, wherever it stands. */
QByteArray firstOf(const Records &records, const QByteArray &type, bool &found)
{
    for (const Record &record : records) {
        if (record.type == type) {
            found = true;
            return record.rest;
        }
    }
    found = false;
    return QByteArray();
}

/** The maker's event as midicsv prints it: its type, its length, its bytes. */
Record kravoRecord(int subType, const QByteArray &payload)
{
    QByteArray rest =
        "75, " + QByteArray::number(payload.size() + 1) + ", " + QByteArray::number(subType);
    for (const char byte : payload)
        rest += ", " + QByteArray::number(static_cast<quint8>(byte));
    return {"1", 0, "Unknown_meta_event", rest};
}

/** The records with the first track's metadata at delta time 0 replaced by the head. */
Records withHead(const Records &original, const Records &head)
{
    Records expected;
    qint64 timeBefore = 0;
    for (const Record &record : original) {
        const bool ours = record.type == "Title_t" || record.type == "Key_signature" ||
                          (record.type == "Unknown_meta_event" && record.rest.startsWith("75,"));
        const bool atDeltaZero = record.time == timeBefore;
        timeBefore = record.time;
        if (record.track == "1" && ours && atDeltaZero)
            continue;
        expected.append(record);
        if (record.track == "1" && record.type == "Start_track")
            expected += head;
    }
    return expected;
}

void compareRecords(const Records &found, const Records &expected)
{
    for (qsizetype i = 0; i < qMin(found.size(), expected.size()); ++i)
        QCOMPARE(found.at(i).line(), expected.at(i).line());
    QCOMPARE(found.size(), expected.size());
}

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

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
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
    const Records records = csvRecords(path);
    QVERIFY(records.size() > 100);

    bool found = false;
    const QByteArray title = firstOf(records, "Title_t", found);
    QCOMPARE(midi.hasTitle(), found);
    QCOMPARE(midi.title(), csvText(title));
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
    const Records original = csvRecords(path);
    RawMidiFile midi;
    QVERIFY(midi.loadData(readFile(path)));
    const QString edited = m_folder.filePath(QStringLiteral("edited.mid"));

    writeEverything(midi, QStringLiteral("F#-"), 97);
    QVERIFY(writeFile(edited, midi.stream()));
    compareRecords(csvRecords(edited), withHead(original, writtenHead("3, \"minor\"", 97)));

    // Once more, over what we wrote ourselves: the same again, but for markers, which stay.
    QVERIFY(midi.loadData(readFile(edited)));
    midi.removeHeadMetaevent(RawMidiFile::KravoMarker, false);
    writeEverything(midi, QStringLiteral("Db"), 5);
    QVERIFY(writeFile(edited, midi.stream()));
    compareRecords(csvRecords(edited), withHead(original, writtenHead("-5, \"major\"", 5)));
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
        QCOMPARE(keyName(firstOf(csvRecords(edited), "Key_signature", found)), name);
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
    const Records original = csvRecords(path);
    QVERIFY(!original.isEmpty());
    RawMidiFile midi;
    QVERIFY(midi.loadData(song));
    midi.setKey(QStringLiteral("C"));
    QVERIFY(writeFile(path, midi.stream()));
    compareRecords(csvRecords(path),
                   withHead(original, {{"1", 0, "Key_signature", "0, \"major\""}}));
}

QTEST_GUILESS_MAIN(TestRealMidi)
#include "test_realmidi.moc"
