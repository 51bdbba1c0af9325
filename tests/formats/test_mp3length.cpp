// The length of MP3 streams put together by hand, frame by frame.
#include "formats/metasong.h"
#include "formats/mp3frame.h"
#include "formats/mp3length.h"
#include "support/songbytes.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace songbytes;

namespace
{

// MPEG 1, Layer III, 44100 samples a second, stereo: FF FB, then bit rate and padding, then mode.
constexpr int bitRate32 = 0x10;
constexpr int bitRate128 = 0x90;
constexpr qsizetype size32 = 104;
constexpr qsizetype size128 = 417;
constexpr double frameSeconds = 1152.0 / 44100;

QByteArray frame(int bitRate, qsizetype size)
{
    const char header[] = {'\xFF', '\xFB', static_cast<char>(bitRate), '\0'};
    QByteArray bytes(header, sizeof header);
    bytes.append(size - bytes.size(), '\x55');
    return bytes;
}

QByteArray frames(int count)
{
    return frame(bitRate128, size128).repeated(count);
}

/** A frame with "Xing" or "Info" behind the side information of two channels. */
QByteArray xingFrame(const QByteArray &magic, quint32 flags, const QByteArray &numbers)
{
    const QByteArray header = magic + bigEndian(flags, 4) + numbers;
    return frame(bitRate128, size128).replace(36, header.size(), header);
}

QByteArray vbriFrame(quint32 bytes, quint32 count)
{
    const QByteArray header =
        "VBRI" + QByteArray("\0\1\0\0\0\x4B", 6) + bigEndian(bytes, 4) + bigEndian(count, 4);
    return frame(bitRate128, size128).replace(36, header.size(), header);
}

QByteArray id3v1()
{
    return "TAG" + QByteArray(125, ' ');
}

QByteArray apeTag(const QByteArray &value)
{
    const QByteArray item = littleEndian(static_cast<quint32>(value.size()), 4) +
                            QByteArray(4, '\0') + "Cover\0" + value;
    const QByteArray head = "APETAGEX" + littleEndian(2000, 4) +
                            littleEndian(static_cast<quint32>(item.size() + 32), 4) +
                            littleEndian(1, 4);
    return head + littleEndian(0xA0000000, 4) + QByteArray(8, '\0') + item + head +
           littleEndian(0x80000000, 4) + QByteArray(8, '\0');
}

} // namespace

class TestMp3Length : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_folder.isValid()); }
    void framesSayWhatTheyAre_data();
    void framesSayWhatTheyAre();
    void whatIsNoFrameIsNone_data();
    void whatIsNoFrameIsNone();
    void framesAreCounted();
    void bitRatesMayChange();
    void theNumberInTheFirstFrameCounts_data();
    void theNumberInTheFirstFrameCounts();
    void aFileThatIsNotAsItsHeaderSaysIsCounted_data();
    void aFileThatIsNotAsItsHeaderSaysIsCounted();
    void freeFormatIsAsLongAsItsHeaderSays();
    void freeFormatWithoutHeaderIsCounted();
    void tagsAreNoAudio();
    void framesWithinATagBehindAreNotCounted();
    void otherBytesBetweenFramesArePassedOver();
    void aLastFrameThatIsCutOffIsNotCounted();
    void bytesWithoutFramesHaveNoLength();
    void aSongGivesItsLengthAndNothingElse();

private:
    double seconds(const QByteArray &bytes, qint64 audioStart = 0)
    {
        QFile file(write(bytes));
        return file.open(QFile::ReadOnly) ? mp3length::of(file, audioStart) : -1;
    }

    QString write(const QByteArray &bytes)
    {
        QFile file(m_folder.filePath(QStringLiteral("song.mp3")));
        if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the song");
        return file.fileName();
    }

    QTemporaryDir m_folder;
};

void TestMp3Length::framesSayWhatTheyAre_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<int>("sampleRate");
    QTest::addColumn<int>("samples");
    QTest::addColumn<qsizetype>("size");
    const auto row = [](const char *name, const char *hex, int rate, int samples, int size) {
        QTest::newRow(name) << QByteArray::fromHex(hex) << rate << samples << qsizetype(size);
    };
    row("128 kbit/s", "fffb9000", 44100, 1152, 417);
    row("128 kbit/s, padded", "fffb9200", 44100, 1152, 418);
    row("320 kbit/s, 48 kHz, with check sum", "fffae400", 48000, 1152, 960);
    row("MPEG 2, 64 kbit/s, 22.05 kHz", "fff38000", 22050, 576, 208);
    row("MPEG 2.5, 8 kbit/s, 8 kHz", "ffe318c0", 8000, 576, 72);
    row("Layer II, 192 kbit/s", "fffda000", 44100, 1152, 626);
    row("Layer I, 32 kbit/s, padded", "ffff1200", 44100, 384, 36);
}

void TestMp3Length::framesSayWhatTheyAre()
{
    QFETCH(QByteArray, header);
    const auto frame = Mp3Frame::at(header);
    QVERIFY(frame);
    QTEST(frame->sampleRate, "sampleRate");
    QTEST(frame->samples, "samples");
    QTEST(frame->size, "size");
}

void TestMp3Length::whatIsNoFrameIsNone_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::newRow("too short") << QByteArray::fromHex("fffb90");
    QTest::newRow("no sync") << QByteArray::fromHex("ffdb9000");
    QTest::newRow("reserved version") << QByteArray::fromHex("ffeb9000");
    QTest::newRow("reserved layer") << QByteArray::fromHex("fff99000");
    QTest::newRow("free format") << QByteArray::fromHex("fffb0000");
    QTest::newRow("no bit rate") << QByteArray::fromHex("fffbf000");
    QTest::newRow("no sampling rate") << QByteArray::fromHex("fffb9c00");
}

void TestMp3Length::whatIsNoFrameIsNone()
{
    QFETCH(QByteArray, header);
    QVERIFY(!Mp3Frame::at(header));
}

void TestMp3Length::framesAreCounted()
{
    QCOMPARE(seconds(frames(100)), 100 * frameSeconds);
    QCOMPARE(seconds(frames(10000)), 10000 * frameSeconds); // more than is read at a time
    QCOMPARE(seconds(frames(1)), frameSeconds);
}

void TestMp3Length::bitRatesMayChange()
{
    const QByteArray both = frame(bitRate32, size32) + frame(bitRate128, size128);
    QCOMPARE(seconds(both.repeated(50)), 100 * frameSeconds);
}

void TestMp3Length::theNumberInTheFirstFrameCounts_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray music = frames(40);
    const auto size = static_cast<quint32>(music.size() + size128);
    // It is a number that counting would not give.
    const QByteArray numbers = bigEndian(50, 4) + bigEndian(size, 4);
    QTest::newRow("Xing") << xingFrame("Xing", 0x0F, numbers) + music;
    QTest::newRow("Info") << xingFrame("Info", 3, numbers) + music;
    QTest::newRow("VBRI") << vbriFrame(size, 50) + music;
    QTest::newRow("in front of ID3v1") << xingFrame("Xing", 3, numbers) + music + id3v1();
}

void TestMp3Length::theNumberInTheFirstFrameCounts()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(seconds(bytes), 50 * frameSeconds);
}

void TestMp3Length::aFileThatIsNotAsItsHeaderSaysIsCounted_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray music = frames(40);
    const auto size = static_cast<quint32>(music.size() + size128);
    const QByteArray numbers = bigEndian(50, 4) + bigEndian(size + 1, 4);
    QTest::newRow("cut off") << xingFrame("Xing", 3, numbers) + music;
    QTest::newRow("longer") << xingFrame("Xing", 3, bigEndian(50, 4) + bigEndian(9000, 4)) + music;
    QTest::newRow("no size") << xingFrame("Info", 1, bigEndian(50, 4)) + music;
    QTest::newRow("no number") << xingFrame("Info", 2, bigEndian(size, 4)) + music;
    QTest::newRow("number is 0") << xingFrame("Info", 3, bigEndian(0, 4) + bigEndian(size, 4)) +
                                        music;
    const QByteArray sizeField = bigEndian(size, 4);
    QTest::newRow("more than the file can hold")
        << xingFrame("Xing", 3, bigEndian(0x7FFFFFFF, 4) + sizeField) + music;
    QTest::newRow("bit rate too low")
        << xingFrame("Xing", 3, bigEndian(700, 4) + sizeField) + music; // 7.3 kbit/s
    QTest::newRow("bit rate too low for MPEG 1")
        << xingFrame("Xing", 3, bigEndian(200, 4) + sizeField) + music; // 25.5 kbit/s
    QTest::newRow("bit rate too high")
        << xingFrame("Xing", 3, bigEndian(15, 4) + sizeField) + music; // 340 kbit/s
    QTest::newRow("VBRI, more than the file can hold") << vbriFrame(size, 0x7FFFFFFF) + music;
    QTest::newRow("nothing") << xingFrame("Info", 0, {}) + music;
    QTest::newRow("VBRI, cut off") << vbriFrame(size + 1, 50) + music;
}

void TestMp3Length::aFileThatIsNotAsItsHeaderSaysIsCounted()
{
    QFETCH(QByteArray, bytes);
    QCOMPARE(seconds(bytes), 40 * frameSeconds); // without the frame that has no sound
}

void TestMp3Length::freeFormatIsAsLongAsItsHeaderSays()
{
    constexpr int freeFormat = 0;
    constexpr qsizetype size400 = 1306;
    const QByteArray music = frame(freeFormat, size400).repeated(40);
    const auto withHeader = [&music](quint32 count) {
        const QByteArray numbers =
            bigEndian(count, 4) + bigEndian(static_cast<quint32>(music.size() + size400), 4);
        const QByteArray header = "Info" + bigEndian(3, 4) + numbers;
        return frame(freeFormat, size400).replace(36, header.size(), header) + music;
    };
    QCOMPARE(seconds(withHeader(40)), 40 * frameSeconds);
    QCOMPARE(seconds("ID3" + withHeader(40) + id3v1(), 3), 40 * frameSeconds);
    QCOMPARE(seconds(withHeader(0x7FFFFFFF)), 40 * frameSeconds); // its number cannot be true
}

void TestMp3Length::freeFormatWithoutHeaderIsCounted()
{
    constexpr int freeFormat = 0;
    constexpr int padded = 2;
    constexpr qsizetype size400 = 1306;
    const QByteArray pair = frame(freeFormat, size400) + frame(freeFormat | padded, size400 + 1);
    QCOMPARE(seconds(pair.repeated(20)), 40 * frameSeconds);
    QCOMPARE(seconds(pair.mid(size400) + pair.repeated(19)), 39 * frameSeconds);
    QCOMPARE(seconds("tag" + pair.repeated(20) + id3v1(), 3), 40 * frameSeconds);
    QCOMPARE(seconds(pair.repeated(20).chopped(1)), 39 * frameSeconds);
    QCOMPARE(seconds(pair.repeated(20) + "other bytes" + pair), 40 * frameSeconds);
    // Two frames may be so by chance, and bytes between them are nothing to go by.
    QCOMPARE(seconds(pair), 0.0);
    QCOMPARE(seconds(pair + "x" + pair), 0.0);
    QCOMPARE(seconds(frame(freeFormat, 10000).repeated(5)), 0.0); // longer than frames can be
}

void TestMp3Length::tagsAreNoAudio()
{
    const QByteArray picture = frames(5000); // looks like audio
    const QByteArray tag = id3Tag(id3Frame("APIC", picture));
    QVERIFY(tag.size() > 2000000);
    QCOMPARE(seconds(tag + frames(70), tag.size()), 70 * frameSeconds);
    QCOMPARE(seconds(frames(70) + id3v1()), 70 * frameSeconds);
    QCOMPARE(seconds(frames(70) + apeTag("x")), 70 * frameSeconds);
}

void TestMp3Length::framesWithinATagBehindAreNotCounted()
{
    QCOMPARE(seconds(frames(70) + apeTag(frames(30))), 70 * frameSeconds);
    QCOMPARE(seconds(frames(70) + apeTag(frames(30)) + id3v1()), 70 * frameSeconds);
}

void TestMp3Length::otherBytesBetweenFramesArePassedOver()
{
    const QByteArray other = QByteArray(5000, '\xFF') + QByteArray(20000, '\0');
    QCOMPARE(seconds(other + frames(10) + other + frames(20) + other), 30 * frameSeconds);
    const QByteArray tooMuch(mp3length::mostOtherBytes + 1, '\0');
    QCOMPARE(seconds(frames(10) + tooMuch + frames(20)), 10 * frameSeconds);
}

void TestMp3Length::aLastFrameThatIsCutOffIsNotCounted()
{
    QCOMPARE(seconds(frames(10).chopped(1)), 9 * frameSeconds);
}

void TestMp3Length::bytesWithoutFramesHaveNoLength()
{
    QCOMPARE(seconds({}), 0.0);
    QCOMPARE(seconds(QByteArray(3000000, '\xFF')), 0.0);
    QCOMPARE(seconds(QByteArray("\xFF\xFB\x90\0\x11", 5).repeated(500000)), 0.0);
    QCOMPARE(seconds(frames(10), 1000000), 0.0);
}

void TestMp3Length::aSongGivesItsLengthAndNothingElse()
{
    const QString path = write(id3Tag(id3Frame("TIT2", "Title")) + frames(100) + id3v1());
    MetaSong song;
    QVERIFY(song.importFile(path));
    const SongMeasure measure = song.measure();
    QCOMPARE(measure.length, 100 * frameSeconds);
    QCOMPARE(measure.bpm, 0);
    QCOMPARE(measure.key, QString());
    QVERIFY(QFile::remove(path));
    QCOMPARE(song.measure().length, 0.0);
    QCOMPARE(MetaSong().measure().length, 0.0);
}

QTEST_APPLESS_MAIN(TestMp3Length)
#include "test_mp3length.moc"
