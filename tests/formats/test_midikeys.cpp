// Key signatures of MIDI files: the table of names, reading and writing.
#include "formats/rawmidifile.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QTest>

using songbytes::kravoEvent;
using songbytes::metaEvent;
using songbytes::midiFile;
using songbytes::notes;
using songbytes::track;

namespace
{

constexpr int eventsPos = 22;

QByteArray keyEvent(int sharps, int minor)
{
    return metaEvent(0x59, QByteArray(1, static_cast<char>(sharps)) + static_cast<char>(minor));
}

QByteArray songFile(const QByteArray &events)
{
    return midiFile({track(events + notes())});
}

RawMidiFile loaded(const QByteArray &file)
{
    RawMidiFile midi;
    if (!midi.loadData(file))
        qFatal("a test file was refused");
    return midi;
}

void addRegularKeys()
{
    QTest::addColumn<int>("sharps");
    QTest::addColumn<int>("minor");
    QTest::addColumn<QString>("name");
    const auto rows = [](int sharps, const char *major, const char *minor) {
        QTest::newRow(major) << sharps << 0 << QString::fromLatin1(major);
        QTest::newRow(minor) << sharps << 1 << QString::fromLatin1(minor);
    };
    rows(7, "C#", "A#-");
    rows(6, "F#", "D#-");
    rows(5, "B", "G#-");
    rows(4, "E", "C#-");
    rows(3, "A", "F#-");
    rows(2, "D", "B-");
    rows(1, "G", "E-");
    rows(0, "C", "A-");
    rows(-1, "F", "D-");
    rows(-2, "Bb", "G-");
    rows(-3, "Eb", "C-");
    rows(-4, "Ab", "F-");
    rows(-5, "Db", "Bb-");
    rows(-6, "Gb", "Eb-");
    rows(-7, "Cb", "Ab-");
}

} // namespace

class TestMidiKeys : public QObject
{
    Q_OBJECT

private slots:
    void keysListIsInOrderOfTheValues();
    void populateKeyMapsCanBeRepeated();
    void regularKeysAreRead_data();
    void regularKeysAreRead();
    void regularKeysAreWritten_data();
    void regularKeysAreWritten();
    void furtherNamesAreWrittenAsRegularKeys_data();
    void furtherNamesAreWrittenAsRegularKeys();
    void blanksInTheNameDoNotCount();
    void unknownNamesRemoveTheKey_data();
    void unknownNamesRemoveTheKey();
    void emptyNameRemovesTheKeyWithoutWarning();
    void allKeysOfTheFirstTrackAreReplaced();
    void keysOfLaterTracksAreReadAndKept();
    void unknownSignatureReadsAsEmptyKey();
    void unknownSignatureIsLogged_data();
    void unknownSignatureIsLogged();
    void lengthByteOfASignatureIsNotChecked();
    void truncatedSignatureReadsAsEmptyKey();
    void extractKeyReturnsThePosition();
};

void TestMidiKeys::keysListIsInOrderOfTheValues()
{
    const QString expected = QStringLiteral("C A- G E- D B- A F#- E C#- B G#- F# D#- C# A#- Cb Ab- "
                                            "Gb Eb- Db Bb- Ab F- Eb C- Bb G- F D-");
    QCOMPARE(RawMidiFile().getKeysList(), expected.split(QLatin1Char(' ')));
}

void TestMidiKeys::populateKeyMapsCanBeRepeated()
{
    RawMidiFile midi = loaded(songFile(keyEvent(-6, 1)));
    midi.populateKeyMaps();
    QCOMPARE(midi.getKeysList().size(), 30);
    QCOMPARE(midi.key(), QStringLiteral("Eb-"));
    midi.setKey(QStringLiteral("D#"));
    QCOMPARE(midi.stream(), songFile(keyEvent(-3, 0)));
}

void TestMidiKeys::regularKeysAreRead_data()
{
    addRegularKeys();
}

void TestMidiKeys::regularKeysAreRead()
{
    QFETCH(int, sharps);
    QFETCH(int, minor);
    QFETCH(QString, name);
    const LogCapture log;
    const RawMidiFile midi = loaded(songFile(keyEvent(sharps, minor)));
    QCOMPARE(midi.key(), name);
    QVERIFY(midi.hasKey());
    QVERIFY(LogCapture::lines().isEmpty());
}

void TestMidiKeys::regularKeysAreWritten_data()
{
    addRegularKeys();
}

void TestMidiKeys::regularKeysAreWritten()
{
    QFETCH(int, sharps);
    QFETCH(int, minor);
    QFETCH(QString, name);
    RawMidiFile midi = loaded(songFile(metaEvent(0x03, "T")));
    midi.setKey(name);
    QCOMPARE(midi.stream(), songFile(keyEvent(sharps, minor) + metaEvent(0x03, "T")));
    QCOMPARE(midi.key(), name);
}

void TestMidiKeys::furtherNamesAreWrittenAsRegularKeys_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("event");
    QTest::addColumn<QString>("readsAs");
    QTest::newRow("G#") << QStringLiteral("G#") << keyEvent(4, 0) << QStringLiteral("E");
    QTest::newRow("Db-") << QStringLiteral("Db-") << keyEvent(4, 1) << QStringLiteral("C#-");
    QTest::newRow("D#") << QStringLiteral("D#") << keyEvent(-3, 0) << QStringLiteral("Eb");
}

void TestMidiKeys::furtherNamesAreWrittenAsRegularKeys()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, event);
    QFETCH(QString, readsAs);
    const LogCapture log;
    RawMidiFile midi = loaded(songFile(QByteArray()));
    midi.setKey(name);
    QCOMPARE(midi.stream(), songFile(event));
    QCOMPARE(midi.key(), readsAs);
    QVERIFY(!midi.getKeysList().contains(name));
    QVERIFY(LogCapture::lines().isEmpty());
}

void TestMidiKeys::blanksInTheNameDoNotCount()
{
    for (const QString &name :
         {QStringLiteral("A -"), QStringLiteral(" A-"), QStringLiteral(" A  - ")}) {
        RawMidiFile midi = loaded(songFile(QByteArray()));
        midi.setKey(name);
        QCOMPARE(midi.key(), QStringLiteral("A-"));
    }
}

void TestMidiKeys::unknownNamesRemoveTheKey_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("logged");
    QTest::newRow("lower case") << QStringLiteral("a-") << QStringLiteral("a-");
    QTest::newRow("blank inside") << QStringLiteral("H moll") << QStringLiteral("Hmoll");
    QTest::newRow("upper-case flat") << QStringLiteral("BB") << QStringLiteral("BB");
    QTest::newRow("blanks only") << QStringLiteral("  ") << QString();
}

void TestMidiKeys::unknownNamesRemoveTheKey()
{
    QFETCH(QString, name);
    QFETCH(QString, logged);
    const LogCapture log;
    RawMidiFile midi = loaded(songFile(keyEvent(1, 0) + metaEvent(0x03, "T")));
    midi.setKey(name);
    QCOMPARE(midi.stream(), songFile(metaEvent(0x03, "T")));
    QVERIFY(!midi.hasKey());
    QCOMPARE(LogCapture::lines(),
             QStringList{QStringLiteral("[RawMidiFile::setKey] WARNING: unknown key: \"%1\" . "
                                        "Metaevent not added !!! ")
                             .arg(logged)});
}

void TestMidiKeys::emptyNameRemovesTheKeyWithoutWarning()
{
    const LogCapture log;
    RawMidiFile midi = loaded(songFile(metaEvent(0x03, "T") + keyEvent(1, 0)));
    midi.setKey(QString());
    QCOMPARE(midi.stream(), songFile(metaEvent(0x03, "T")));
    QVERIFY(!midi.hasKey());
    QVERIFY(LogCapture::lines().isEmpty());
}

void TestMidiKeys::allKeysOfTheFirstTrackAreReplaced()
{
    RawMidiFile midi =
        loaded(midiFile({track(keyEvent(1, 0) + keyEvent(1, 0) + notes() + keyEvent(2, 0))}));
    midi.setKey(QStringLiteral("F"));
    QCOMPARE(midi.stream(), midiFile({track(keyEvent(-1, 0) + notes())}));
}

void TestMidiKeys::keysOfLaterTracksAreReadAndKept()
{
    const QByteArray second = track(keyEvent(3, 1));
    RawMidiFile midi = loaded(midiFile({track(notes()), second}, 1));
    QCOMPARE(midi.key(), QStringLiteral("F#-"));
    midi.setKey(QString());
    QCOMPARE(midi.stream(), midiFile({track(notes()), second}, 1));
    QVERIFY(midi.hasKey());
}

void TestMidiKeys::unknownSignatureReadsAsEmptyKey()
{
    const LogCapture log;
    const RawMidiFile midi = loaded(songFile(keyEvent(8, 0)));
    QVERIFY(midi.key().isEmpty());
    QVERIFY(midi.hasKey());
    QCOMPARE(LogCapture::lines(),
             QStringList{QStringLiteral("[RawMidiFile::extractKey] WARNING: unknown key metaevent "
                                        "\"[sf=08|mi=00]\" in MIDI file. ")});
}

void TestMidiKeys::unknownSignatureIsLogged_data()
{
    QTest::addColumn<int>("sharps");
    QTest::addColumn<int>("minor");
    QTest::addColumn<QString>("logged");
    QTest::newRow("sf lower, mi upper case") << 0xAB << 0xCD << QStringLiteral("[sf=ab|mi=CD]");
    QTest::newRow("two digits each") << 0x0A << 0x0B << QStringLiteral("[sf=0a|mi=0B]");
    QTest::newRow("known sf, unknown mi") << 0 << 2 << QStringLiteral("[sf=00|mi=02]");
    QTest::newRow("minus eight") << 0xF8 << 1 << QStringLiteral("[sf=f8|mi=01]");
}

void TestMidiKeys::unknownSignatureIsLogged()
{
    QFETCH(int, sharps);
    QFETCH(int, minor);
    QFETCH(QString, logged);
    const LogCapture log;
    QString key = QStringLiteral("old");
    QCOMPARE(loaded(songFile(keyEvent(sharps, minor))).extractKey(key), eventsPos + 1);
    QVERIFY(key.isEmpty());
    QCOMPARE(LogCapture::lines(),
             QStringList{QStringLiteral("[RawMidiFile::extractKey] WARNING: unknown key metaevent "
                                        "\"%1\" in MIDI file. ")
                             .arg(logged)});
}

void TestMidiKeys::lengthByteOfASignatureIsNotChecked()
{
    for (const char length : {'\x00', '\x05', '\xFF'}) {
        const QByteArray event = QByteArray("\x00\xFF\x59", 3) + length + QByteArray("\x01\x00", 2);
        QCOMPARE(loaded(songFile(event)).key(), QStringLiteral("G"));
    }
}

void TestMidiKeys::truncatedSignatureReadsAsEmptyKey()
{
    const QByteArray event = keyEvent(1, 0);
    for (qsizetype size = 3; size < event.size(); ++size) {
        const QByteArray file = midiFile({"MTrk" + songbytes::bigEndian(6, 4) + event.left(size)});
        const RawMidiFile midi = loaded(file);
        QVERIFY(midi.hasKey());
        QVERIFY(midi.key().isEmpty());
    }
}

void TestMidiKeys::extractKeyReturnsThePosition()
{
    QString key;
    QCOMPARE(loaded(songFile(metaEvent(0x03, "ab") + keyEvent(2, 1))).extractKey(key),
             eventsPos + 7);
    QCOMPARE(key, QStringLiteral("B-"));
    QVERIFY(loaded(songFile(kravoEvent(2, "ab"))).extractKey(key) < 0);
    QVERIFY(key.isEmpty());
}

QTEST_APPLESS_MAIN(TestMidiKeys)
#include "test_midikeys.moc"
