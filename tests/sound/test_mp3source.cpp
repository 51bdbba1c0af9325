// Frames of an MP3 file in memory, and its sound by a decoder that only counts.
#include "sound/mp3frames.h"
#include "sound/mp3source.h"
#include "support/fakesound.h"

#include <QTest>

namespace
{

// Version 1, Layer III, 128 kbit/s, 44100 Hz: 417 bytes and 1152 samples.
constexpr int frameSize = 417;
constexpr double frameSeconds = 1152.0 / 44100;

QByteArray frames(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += QByteArray("\xFF\xFB\x90\x00", 4) + QByteArray(frameSize - 4, '\0');
    return bytes;
}

} // namespace

class TestMp3Source : public QObject
{
    Q_OBJECT

private slots:
    void framesAreCounted();
    void bytesBetweenFramesAreSkipped();
    void bytesWithoutFramesHaveNoLength();
    void seekingBeginsALittleEarlier();
    void soundIsReadToItsEnd();
    void brokenSongIsTold();
};

void TestMp3Source::framesAreCounted()
{
    const QByteArray bytes = "tag" + frames(100);
    QVERIFY(qAbs(Mp3Frames(bytes, 3).length() - 100 * frameSeconds) < 1e-6);
}

void TestMp3Source::bytesBetweenFramesAreSkipped()
{
    const QByteArray bytes = frames(10) + "something else" + frames(10) + "tail";
    QVERIFY(qAbs(Mp3Frames(bytes, 0).length() - 20 * frameSeconds) < 1e-6);
}

void TestMp3Source::bytesWithoutFramesHaveNoLength()
{
    const QByteArray bytes(100'000, '\xFF');
    const Mp3Frames none(bytes, 5);
    QCOMPARE(none.length(), 0.0);
    QCOMPARE(none.before(100).offset, 5);
    QCOMPARE(Mp3Frames(QByteArrayView(), 7).before(1).offset, 0);
}

void TestMp3Source::seekingBeginsALittleEarlier()
{
    fakesound::Parts parts;
    const QByteArray bytes = frames(200);
    Mp3Source source(parts, bytes, 0);
    constexpr qint64 wanted = 100 * 1152;
    source.seek(wanted);
    QCOMPARE(source.position(), wanted);
    const qsizetype begun = bytes.size() - parts.decoded.constLast().size();
    QCOMPARE(begun % frameSize, 0);
    const qsizetype frame = begun / frameSize;
    QVERIFY2(frame >= 84 && frame <= 98, qPrintable(QString::number(frame)));
    // The frames before the place are decoded but not heard.
    parts.decodedFrames = 0;
    QList<qint16> samples(2 * 1000);
    QCOMPARE(source.read(samples.data(), 1000, 0), 1000);
    QCOMPARE(source.position(), wanted + 1000);
    qint64 heard = 1000;
    while (const qsizetype count = source.read(samples.data(), 1000, 0))
        heard += count;
    QCOMPARE(heard, 441000 - (wanted - frame * 1152));
}

void TestMp3Source::soundIsReadToItsEnd()
{
    fakesound::Parts parts;
    Mp3Source source(parts, frames(3), 0);
    QList<qint16> samples(2 * 10000);
    qint64 heard = 0;
    while (const qsizetype count = source.read(samples.data(), 10000, 0))
        heard += count;
    QCOMPARE(heard, 441000);
    QVERIFY(!source.isBroken());
}

void TestMp3Source::brokenSongIsTold()
{
    fakesound::Parts parts;
    parts.decodedFrames = 0;
    Mp3Source source(parts, frames(3), 0);
    QList<qint16> samples(2 * 100);
    QCOMPARE(source.read(samples.data(), 100, 0), 0);
    QVERIFY(source.isBroken());
}

QTEST_APPLESS_MAIN(TestMp3Source)
#include "test_mp3source.moc"
