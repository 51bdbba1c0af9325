// What is compressed comes back to the byte; damaged bytes harm nothing.
#include "library/quickcompression.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <cstddef>

using quickcompression::compressed;
using quickcompression::plain;

namespace
{

constexpr qsizetype enough = 1 << 20;

/** Bytes of which some come again, some lie far away and some run on. */
QByteArray somethingLike(QRandomGenerator &random, qsizetype size)
{
    QByteArray bytes;
    while (bytes.size() < size) {
        const int kind = random.bounded(4);
        const int count = random.bounded(1, 600);
        if (kind == 0) {
            for (int i = 0; i < count; ++i)
                bytes.append(static_cast<char>(random.bounded(256)));
        } else if (kind == 1) {
            bytes.append(count, static_cast<char>(random.bounded(3)));
        } else if (!bytes.isEmpty()) {
            bytes.append(bytes.mid(random.bounded(static_cast<int>(bytes.size())), count));
        }
    }
    return bytes.left(size);
}

/** With the magic of a frame before it. */
template <std::size_t size>
QByteArray frame(const char (&bytes)[size])
{
    return QByteArray("\x28\xB5\x2F\xFD", 4) + QByteArray(bytes, size - 1);
}

} // namespace

class TestQuickCompression : public QObject
{
    Q_OBJECT

private slots:
    void bytesComeBack_data();
    void bytesComeBack();
    void anyBytesComeBack();
    void handWrittenFramesAreRead();
    void zstdReadsAndWritesIt();
    void repetitionsGetSmall();
    void damagedBytesAreRefused_data();
    void damagedBytesAreRefused();
    void anyDamageIsSurvived();
    void moreThanAllowedIsRefused();
};

void TestQuickCompression::bytesComeBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("none") << QByteArray();
    for (const int size : {1, 3, 4, 5, 14, 15, 16, 17, 18, 19, 20, 269, 270, 271, 524, 525, 526}) {
        QByteArray counting;
        for (int i = 0; i < size; ++i)
            counting.append(static_cast<char>(i * 7 + i / 256));
        QTest::addRow("%d different", size) << counting;
        QTest::addRow("%d alike", size) << QByteArray(size, 'x');
        QTest::addRow("%d twice", size) << counting + counting;
    }
    QRandomGenerator random(1);
    for (const qsizetype distance : {65534, 65535, 65536, 65537, 200000})
        QTest::addRow("again after %d", static_cast<int>(distance))
            << "once more" + somethingLike(random, distance - 9) + "once more";
}

void TestQuickCompression::bytesComeBack()
{
    QFETCH(QByteArray, bytes);
    const auto again = plain(compressed(bytes), enough);
    QVERIFY(again);
    QCOMPARE(*again, bytes);
}

void TestQuickCompression::anyBytesComeBack()
{
    QRandomGenerator random(2);
    for (int i = 0; i < 2000; ++i) {
        const QByteArray bytes = somethingLike(random, random.bounded(i < 1950 ? 3000 : 200000));
        const auto again = plain(compressed(bytes), enough);
        QVERIFY(again && *again == bytes);
    }
}

/** A frame by hand: magic, one segment with its size, the last block as it is or as one byte. */
void TestQuickCompression::handWrittenFramesAreRead()
{
    QCOMPARE(plain(frame("\x20\x03\x19\0\0"
                         "abc"),
                   enough),
             QByteArray("abc"));
    QCOMPARE(plain(frame("\x20\xC8\x43\x06\0"
                         "m"),
                   enough),
             QByteArray(200, 'm'));
}

/** The program of others packs and unpacks the same. */
void TestQuickCompression::zstdReadsAndWritesIt()
{
    QRandomGenerator random(5);
    const QByteArray bytes = somethingLike(random, 50000);
    const auto piped = [](const QStringList &options, const QByteArray &in) {
        QProcess zstd;
        zstd.start(QStringLiteral("zstd"), options);
        zstd.write(in);
        zstd.closeWriteChannel();
        return zstd.waitForFinished() && zstd.exitCode() == 0 ? zstd.readAllStandardOutput()
                                                              : QByteArray("failed");
    };
    QCOMPARE(piped({QStringLiteral("-d")}, compressed(bytes)), bytes);
    QCOMPARE(plain(piped({QStringLiteral("--stream-size=50000")}, bytes), enough), bytes);
}

void TestQuickCompression::repetitionsGetSmall()
{
    QVERIFY(compressed(QByteArray(100000, 'x')).size() < 500);
    QRandomGenerator random(3);
    QByteArray noise;
    for (int i = 0; i < 100000; ++i)
        noise.append(static_cast<char>(random.bounded(256)));
    QVERIFY(compressed(noise).size() < 100500);
    QByteArray bars;
    for (int bar = 0; bar < 100; ++bar)
        bars += noise.left(64) + static_cast<char>(bar);
    QVERIFY(compressed(bars).size() < bars.size() / 5);
}

void TestQuickCompression::damagedBytesAreRefused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("other magic") << QByteArray("\x27\xB5\x2F\xFD\x20\x03\x19\0\0"
                                               "abc",
                                               12);
    QTest::newRow("magic only") << frame("");
    QTest::newRow("size only") << frame("\x20\x03");
    QTest::newRow("size unknown") << frame("\0\0\x19\0\0"
                                           "abc");
    QTest::newRow("fewer than it says") << frame("\x20\x04\x19\0\0"
                                                 "abc");
    QTest::newRow("more than it says") << frame("\x20\x02\x19\0\0"
                                                "abc");
    QTest::newRow("cut off") << frame("\x20\x03\x19\0\0"
                                      "ab");
    QTest::newRow("something behind it") << frame("\x20\x03\x19\0\0"
                                                  "abcd");
    QTest::newRow("no last block") << frame("\x20\x03\x18\0\0"
                                            "abc");
    QTest::newRow("block of no kind") << frame("\x20\x03\x1F\0\0"
                                               "abc");
}

void TestQuickCompression::damagedBytesAreRefused()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(!plain(bytes, enough));
}

void TestQuickCompression::anyDamageIsSurvived()
{
    QRandomGenerator random(4);
    const QByteArray good = compressed(somethingLike(random, 20000));
    int different = 0;
    for (int i = 0; i < 3000; ++i) {
        QByteArray bad = good.left(random.bounded(static_cast<int>(good.size())) + 1);
        for (int changes = random.bounded(4); changes > 0; --changes)
            bad[random.bounded(static_cast<int>(bad.size()))] =
                static_cast<char>(random.bounded(256));
        const auto bytes = plain(bad, enough);
        QVERIFY(!bytes || bytes->size() <= enough);
        different += bytes ? 0 : 1;
    }
    QVERIFY(different > 0);
}

void TestQuickCompression::moreThanAllowedIsRefused()
{
    const QByteArray bytes = compressed(QByteArray(100, 'x'));
    QVERIFY(plain(bytes, 100));
    QVERIFY(!plain(bytes, 99));
    // One segment of nearly 2^64 bytes.
    QVERIFY(!plain(frame("\xE0\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x19\0\0"
                         "abc"),
                   enough));
}

QTEST_GUILESS_MAIN(TestQuickCompression)
#include "test_quickcompression.moc"
