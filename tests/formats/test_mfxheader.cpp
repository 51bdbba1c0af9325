// The MFX header, judged by bytes laid out by hand.
#include "formats/mfxheader.h"

#include <QTest>

namespace
{

QByteArray headerBytes(const QByteArray &magic, int size)
{
    return magic.leftJustified(size, '\xA5', true);
}

QByteArray withField(int offset, const QByteArray &field)
{
    QByteArray bytes = headerBytes("_MF3", 512);
    return bytes.replace(offset, field.size(), field);
}

MfxHeader loaded(const QByteArray &bytes)
{
    MfxHeader header;
    if (!header.loadHeader(bytes))
        qFatal("the test's header was refused");
    return header;
}

using TextReader = QString (MfxHeader::*)() const;
using TextWriter = void (MfxHeader::*)(const QString &);
using Presence = bool (MfxHeader::*)() const;

struct TextField {
    const char *name;
    int offset;
    int size;
    TextReader read;
    Presence has;
    TextWriter write;
};

const TextField textFields[] = {
    {"long name", 42, 13, &MfxHeader::longName, &MfxHeader::hasLongName, nullptr},
    {"copyright", 90, 20, &MfxHeader::copyright, nullptr, nullptr},
    {"title", 122, 32, &MfxHeader::title, &MfxHeader::hasTitle, &MfxHeader::setTitle},
    {"editor", 154, 31, &MfxHeader::editor, nullptr, nullptr},
    {"author", 186, 32, &MfxHeader::author, &MfxHeader::hasAuthor, &MfxHeader::setAuthor},
    {"artist", 218, 32, &MfxHeader::artist, &MfxHeader::hasArtist, &MfxHeader::setArtist},
    {"genre", 250, 32, &MfxHeader::genre, &MfxHeader::hasGenre, &MfxHeader::setGenre}};

} // namespace

class TestMfxHeader : public QObject
{
    Q_OBJECT

private slots:
    void loadsByMagicAndSize_data();
    void loadsByMagicAndSize();
    void failedLoadForgetsTheOldHeader();
    void textFieldsAreReadFromTheirPlaces();
    void fullFieldHasNoTerminator();
    void textIsCutAtTheFirstZeroByteAndTrimmed();
    void textIsLatin1BothWays();
    void textWritersPadWithZerosAndCutAt32();
    void writersChangeOnlyTheirField();
    void tempoIsLittleEndian();
    void validTempoIs1To499_data();
    void validTempoIs1To499();
    void flagsAreSignedAndOnlyAdded();
    void sizesAreLittleEndian();
    void writersGrowAnEmptyHeader();
    void emptyHeaderReadsAsNothing();
};

void TestMfxHeader::loadsByMagicAndSize_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("kept");
    QTest::newRow("MF3") << headerBytes("_MF3", 512) << 3 << 512;
    QTest::newRow("MF4") << headerBytes("_MF4", 512) << 4 << 512;
    QTest::newRow("MF5") << headerBytes("_MF5", 1024) << 5 << 1024;
    QTest::newRow("MF3 of 800 bytes") << headerBytes("_MF3", 800) << 3 << 512;
    QTest::newRow("MF5 of 800 bytes") << headerBytes("_MF5", 800) << 0 << 0;
    QTest::newRow("MF5 of 5000 bytes") << headerBytes("_MF5", 5000) << 5 << 1024;
    QTest::newRow("one byte missing") << headerBytes("_MF4", 511) << 0 << 0;
    QTest::newRow("MF5, one byte missing") << headerBytes("_MF5", 1023) << 0 << 0;
    QTest::newRow("other magic") << headerBytes("_MF6", 2000) << 0 << 0;
    QTest::newRow("lower case") << headerBytes("_mf3", 2000) << 0 << 0;
    QTest::newRow("magic only") << QByteArray("_MF3") << 0 << 0;
    QTest::newRow("part of the magic") << QByteArray("_MF") << 0 << 0;
    QTest::newRow("empty") << QByteArray() << 0 << 0;
}

void TestMfxHeader::loadsByMagicAndSize()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, type);
    QFETCH(int, kept);
    MfxHeader header;
    QCOMPARE(header.loadHeader(bytes), type != 0);
    QCOMPARE(static_cast<int>(header.fileType()), type);
    QCOMPARE(header.header(), bytes.left(kept));
}

void TestMfxHeader::failedLoadForgetsTheOldHeader()
{
    for (const QByteArray &bad : {QByteArray("nothing"), headerBytes("_MF5", 800)}) {
        MfxHeader header = loaded(headerBytes("_MF4", 512));
        QVERIFY(!header.loadHeader(bad));
        QVERIFY(header.header().isEmpty());
        QCOMPARE(header.fileType(), SongInfo::FileUnknown);
    }
}

void TestMfxHeader::textFieldsAreReadFromTheirPlaces()
{
    for (const TextField &field : textFields) {
        const QByteArray bytes =
            withField(field.offset, QByteArray(field.name).leftJustified(field.size, '\0', true));
        const MfxHeader header = loaded(bytes);
        QCOMPARE((header.*field.read)(), QString::fromLatin1(field.name));
        if (field.has != nullptr)
            QVERIFY((header.*field.has)());
        const MfxHeader blank = loaded(withField(field.offset, QByteArray(field.size, ' ')));
        QCOMPARE((blank.*field.read)(), QString());
        if (field.has != nullptr)
            QVERIFY(!(blank.*field.has)());
    }
}

void TestMfxHeader::fullFieldHasNoTerminator()
{
    for (const TextField &field : textFields) {
        const MfxHeader header = loaded(withField(field.offset, QByteArray(field.size, 'x')));
        QCOMPARE((header.*field.read)(), QString(field.size, QLatin1Char('x')));
    }
    // The flags byte right behind a full editor is no part of its text.
    QByteArray bytes = withField(154, QByteArray(31, 'e'));
    bytes[185] = 'F';
    QCOMPARE(loaded(bytes).editor(), QString(31, QLatin1Char('e')));
}

void TestMfxHeader::textIsCutAtTheFirstZeroByteAndTrimmed()
{
    const MfxHeader header = loaded(withField(122, QByteArray(" \tA song \0rest", 14)));
    QCOMPARE(header.title(), QStringLiteral("A song"));
}

void TestMfxHeader::textIsLatin1BothWays()
{
    MfxHeader header = loaded(withField(218, QByteArray("Jos\xE9\0", 5)));
    QCOMPARE(header.artist(), QStringLiteral("José"));
    header.setArtist(QStringLiteral("Ñandú €"));
    QCOMPARE(header.header().mid(218, 8), QByteArray("\xD1"
                                                     "and\xFA ?\0",
                                                     8));
}

void TestMfxHeader::textWritersPadWithZerosAndCutAt32()
{
    const QByteArray before = headerBytes("_MF3", 512);
    for (const TextField &field : textFields) {
        if (field.write == nullptr)
            continue;
        MfxHeader header = loaded(before);
        (header.*field.write)(QStringLiteral("abc"));
        QCOMPARE(header.header().mid(field.offset, 32), "abc" + QByteArray(29, '\0'));
        (header.*field.write)(QString(40, QLatin1Char('t')));
        QCOMPARE(header.header().mid(field.offset, 32), QByteArray(32, 't'));
        (header.*field.write)(QString());
        QCOMPARE(header.header().mid(field.offset, 32), QByteArray(32, '\0'));
    }
}

void TestMfxHeader::writersChangeOnlyTheirField()
{
    const QByteArray before = headerBytes("_MF5", 1024);
    for (const TextField &field : textFields) {
        if (field.write == nullptr)
            continue;
        MfxHeader header = loaded(before);
        (header.*field.write)(QStringLiteral("abc"));
        QCOMPARE(header.header().left(field.offset), before.left(field.offset));
        QCOMPARE(header.header().mid(field.offset + 32), before.mid(field.offset + 32));
    }
}

void TestMfxHeader::tempoIsLittleEndian()
{
    QCOMPARE(loaded(withField(38, QByteArray("\x78\x01", 2))).tempo(), 376);
    MfxHeader header = loaded(headerBytes("_MF3", 512));
    header.setTempo(0x1234);
    QCOMPARE(header.header().mid(37, 4), QByteArray("\xA5\x34\x12\xA5", 4));
    header.setTempo(-1);
    QCOMPARE(header.tempo(), 65535);
}

void TestMfxHeader::validTempoIs1To499_data()
{
    QTest::addColumn<int>("tempo");
    QTest::addColumn<bool>("valid");
    QTest::newRow("0") << 0 << false;
    QTest::newRow("1") << 1 << true;
    QTest::newRow("499") << 499 << true;
    QTest::newRow("500") << 500 << false;
    QTest::newRow("65535") << 65535 << false;
}

void TestMfxHeader::validTempoIs1To499()
{
    QFETCH(int, tempo);
    MfxHeader header = loaded(headerBytes("_MF3", 512));
    header.setTempo(tempo);
    QTEST(header.hasValidTempo(), "valid");
}

void TestMfxHeader::flagsAreSignedAndOnlyAdded()
{
    MfxHeader header = loaded(withField(185, QByteArray("\x80", 1)));
    QCOMPARE(header.flags(), qint8(-128));
    header.setFlag(MfxHeader::MarkersFlag);
    QCOMPARE(header.header().mid(184, 3), QByteArray("\xA5\x81\xA5", 3));
    header.setFlag(MfxHeader::MarkersFlag);
    QCOMPARE(header.flags(), qint8(-127));
}

void TestMfxHeader::sizesAreLittleEndian()
{
    const QByteArray before = headerBytes("_MF4", 512);
    MfxHeader header = loaded(before);
    header.setSize(0x01020304);
    header.setOrigSize(0xFFFEFDFC);
    QCOMPARE(header.header().mid(4, 4), QByteArray("\x04\x03\x02\x01", 4));
    QCOMPARE(header.header().mid(8, 4), before.mid(8, 4));
    QCOMPARE(header.header().mid(12, 4), QByteArray("\xFC\xFD\xFE\xFF", 4));
    QCOMPARE(header.header().mid(16), before.mid(16));
}

void TestMfxHeader::writersGrowAnEmptyHeader()
{
    MfxHeader header;
    header.setOrigSize(7);
    QCOMPARE(header.header(), QByteArray(12, '\0') + QByteArray("\x07\0\0\0", 4));
    header.setGenre(QStringLiteral("FOLK"));
    QCOMPARE(header.header().size(), 282);
    QCOMPARE(header.genre(), QStringLiteral("FOLK"));
}

void TestMfxHeader::emptyHeaderReadsAsNothing()
{
    const MfxHeader header;
    for (const TextField &field : textFields)
        QCOMPARE((header.*field.read)(), QString());
    QCOMPARE(header.tempo(), 0);
    QVERIFY(!header.hasValidTempo());
    QCOMPARE(header.flags(), qint8(0));
    QCOMPARE(header.fileType(), SongInfo::FileUnknown);
}

QTEST_APPLESS_MAIN(TestMfxHeader)
#include "test_mfxheader.moc"
