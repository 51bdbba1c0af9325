// Texts of a tag that cannot be understood stay as they are: by bytes that are put together here.
#include "formats/mp3preparation.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QTemporaryDir>
#include <QTest>

using samplesongs::readFile;
using songbytes::bigEndian;

namespace
{

const QByteArray sound = QByteArray("\xFF\xFB\x90\x44", 4) + QByteArray(2000, 'a');

QByteArray inGroups(qsizetype size)
{
    QByteArray field;
    for (int shift = 21; shift >= 0; shift -= 7)
        field.append(static_cast<char>(size >> shift & 0x7F));
    return field;
}

QByteArray song(int version, const QByteArray &frames)
{
    return "ID3" + bigEndian(static_cast<quint64>(version), 1) + QByteArray(2, '\0') +
           inGroups(frames.size()) + frames + sound;
}

QByteArray frame(int version, const QByteArray &id, const QByteArray &content, int format = 0)
{
    const QByteArray size = version == 4 ? inGroups(content.size())
                                         : bigEndian(static_cast<quint64>(content.size()), 4);
    return id + size + bigEndian(static_cast<quint64>(format), 2) + content;
}

QByteArray utf16(const char *latin1)
{
    QByteArray bytes("\1\xFF\xFE", 3);
    for (const char *c = latin1; *c != '\0'; ++c)
        bytes += *c + QByteArray(1, '\0');
    return bytes;
}

} // namespace

class TestMp3PreparationKept : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }
    void textsBehindAnEmptyFrameAreRead_data();
    void textsBehindAnEmptyFrameAreRead();
    void aTextThatIsNotUnderstoodStays_data();
    void aTextThatIsNotUnderstoodStays();
    void aLongTextThatIsConvertedKeepsItsCharacters();
    void aTagOfWhichNothingIsUnderstoodIsNotWritten();
    void anEmptyTextInUtf16Goes();

private:
    std::optional<Mp3Preparation> prepared(const QByteArray &bytes) const
    {
        samplesongs::writeFile(path(), bytes);
        return Mp3Preparation::of(path());
    }
    QString path() const { return m_dir.filePath(QStringLiteral("song.mp3")); }

    QTemporaryDir m_dir;
};

void TestMp3PreparationKept::textsBehindAnEmptyFrameAreRead_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("version 3") << song(3, frame(3, "TIT2", utf16("Halo")) + frame(3, "TCOM", {}) +
                                              frame(3, "TPE1", utf16("Beyonc\xE9")));
    QTest::newRow("version 4") << song(4,
                                       frame(4, "TIT2", {}) + frame(4, "TPE1", "\3Beyonc\xC3\xA9"));
    QTest::newRow("version 4, with a length of data")
        << song(4, frame(4, "TIT2", QByteArray(4, '\0'), 1) + frame(4, "TPE1", "\3Beyonc\xC3\xA9"));
}

void TestMp3PreparationKept::textsBehindAnEmptyFrameAreRead()
{
    QFETCH(QByteArray, file);
    const auto preparation = prepared(file);
    QVERIFY(preparation);
    QCOMPARE(preparation->proposed().artist, QString::fromLatin1("Beyonc\xE9"));
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::None);
    QVERIFY(readFile(path()).contains(QByteArray("\0Beyonc\xE9", 8)));
}

void TestMp3PreparationKept::aTextThatIsNotUnderstoodStays_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("kept");
    const auto row = [](const char *name, int version, const QByteArray &kept) {
        QTest::newRow(name) << version << kept;
    };
    row("UTF-16 without a mark", 3, frame(3, "TPE1", QByteArray("\1\0Z\0o", 5)));
    row("no UTF-8", 4, frame(4, "TPE1", "\3Canci\xF3n"));
    row("long", 3, frame(3, "TPE1", utf16(QByteArray(40000, 'x').constData())));
    row("encrypted, version 3", 3, frame(3, "TPE1", "\x80\x12\x34\x56", 0x40));
    row("encrypted, version 4", 4, frame(4, "TPE1", "\x80\x12\x34\x56", 4));
    row("of a group, version 3", 3, frame(3, "TPE1", "\x80" + utf16("Zo\xEB"), 0x20));
    row("of a group, version 4", 4, frame(4, "TPE1", "\x80" + utf16("Zo\xEB"), 0x40));
    row("of a group whose number is 1", 4, frame(4, "TPE1", "\1\3Zo\xC3\xAB", 0x40));
}

void TestMp3PreparationKept::aTextThatIsNotUnderstoodStays()
{
    QFETCH(int, version);
    QFETCH(QByteArray, kept);
    const auto preparation = prepared(song(version, frame(version, "TIT2", utf16("Halo")) + kept));
    QVERIFY(preparation);
    QCOMPARE(preparation->proposed().title, QStringLiteral("Halo"));
    QCOMPARE(preparation->proposed().artist, preparation->shown().artist);
    QCOMPARE(preparation->keptFrames(), QStringList(QStringLiteral("TPE1")));
    QVERIFY(preparation->canBeWritten());
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::None);
    QCOMPARE(readFile(path()),
             song(version, frame(version, "TIT2", QByteArray("\0Halo", 5)) + kept));
}

void TestMp3PreparationKept::aLongTextThatIsConvertedKeepsItsCharacters()
{
    const QByteArray letters(70000, 'x');
    const auto preparation = prepared(
        song(4, frame(4, "TIT2", utf16("Halo")) + frame(4, "TPE1", "\3\xC3\xA9" + letters)));
    QVERIFY(preparation);
    QCOMPARE(preparation->keptFrames(), QStringList(QStringLiteral("TPE1")));
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::None);
    QVERIFY(readFile(path()).contains(QByteArray("\0\xE9", 2) + letters));
}

void TestMp3PreparationKept::aTagOfWhichNothingIsUnderstoodIsNotWritten()
{
    const QByteArray file = song(4, frame(4, "TIT2", "\3Canci\xF3n"));
    const auto preparation = prepared(file);
    QVERIFY(preparation);
    QCOMPARE(preparation->keptFrames(), QStringList(QStringLiteral("TIT2")));
    QVERIFY(!preparation->canBeWritten());
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::Unreadable);
    QCOMPARE(readFile(path()), file);
}

void TestMp3PreparationKept::anEmptyTextInUtf16Goes()
{
    const QByteArray title = frame(3, "TIT2", QByteArray("\0Halo", 5));
    const auto preparation =
        prepared(song(3, title + frame(3, "TPE1", QByteArray("\1\xFF\xFE\0\0", 5))));
    QVERIFY(preparation);
    QCOMPARE(preparation->keptFrames(), QStringList());
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::None);
    QCOMPARE(readFile(path()), song(3, title));
}

QTEST_APPLESS_MAIN(TestMp3PreparationKept)
#include "test_mp3preparation_kept.moc"
