// What is compressed comes back to the byte; damaged bytes harm nothing.
#include "storage/quickcompression.h"

#include <QRandomGenerator>
#include <QTest>

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

} // namespace

class TestQuickCompression : public QObject
{
    Q_OBJECT

private slots:
    void bytesComeBack_data();
    void bytesComeBack();
    void anyBytesComeBack();
    void handWrittenPiecesAreRead();
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

void TestQuickCompression::handWrittenPiecesAreRead()
{
    // Two literals, six bytes from two back; then one literal and the end.
    QCOMPARE(plain(QByteArray("\0\0\0\x09\x22"
                              "ab\x02\0\x10"
                              "c",
                              11),
                   enough),
             QByteArray("ababababc"));
    // 15 + 255 + 3 literals.
    const QByteArray many(273, 'm');
    QCOMPARE(plain(QByteArray("\0\0\x01\x11\xF0\xFF\x03", 7) + many, enough), many);
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
    QTest::newRow("size only") << QByteArray("\0\0\0\0", 4);
    QTest::newRow("fewer than it says") << QByteArray("\0\0\0\5\x10"
                                                      "a",
                                                      6);
    QTest::newRow("more than it says") << QByteArray("\0\0\0\1\x20"
                                                     "ab",
                                                     7);
    QTest::newRow("literals cut off") << QByteArray("\0\0\0\5\x50"
                                                    "abc",
                                                    8);
    QTest::newRow("length cut off") << QByteArray("\0\0\xFF\0\xF0\xFF", 6);
    QTest::newRow("distance cut off") << QByteArray("\0\0\0\5\x10"
                                                    "a\1",
                                                    7);
    QTest::newRow("distance of nothing") << QByteArray("\0\0\0\x06\x10"
                                                       "a\0\0\x10"
                                                       "b",
                                                       10);
    QTest::newRow("before the beginning") << QByteArray("\0\0\0\x06\x10"
                                                        "a\2\0\x10"
                                                        "b",
                                                        10);
    QTest::newRow("repeats too much") << QByteArray("\0\0\0\x04\x11"
                                                    "a\1\0\0",
                                                    9);
    QTest::newRow("no last piece") << QByteArray("\0\0\0\x05\x10"
                                                 "a\1\0",
                                                 8);
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
    QVERIFY(!plain("\xFF\xFF\xFF\xFF\x10"
                   "a",
                   enough));
}

QTEST_GUILESS_MAIN(TestQuickCompression)
#include "test_quickcompression.moc"
