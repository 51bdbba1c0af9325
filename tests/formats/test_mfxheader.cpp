// The header of MFX song files: variants, fields, and what happens to bytes nobody knows.
#include "formats/mfxheader.h"
#include "support/songbytes.h"

#include <QTest>

namespace
{

/** A header of the size in which every byte behind the magic is different from its neighbours. */
QByteArray filledHeader(const QByteArray &magic, qsizetype size)
{
    QByteArray bytes = magic;
    for (qsizetype i = bytes.size(); i < size; ++i)
        bytes.append(static_cast<char>(i * 7 + 3));
    return bytes;
}

QByteArray zeroHeader(const QByteArray &magic = "_MF3", qsizetype size = 512)
{
    return magic + QByteArray(size - magic.size(), '\0');
}

/** A header with these bytes at the offset. */
MfxHeader headerWith(qsizetype offset, const QByteArray &bytes)
{
    MfxHeader header;
    if (!header.loadHeader(zeroHeader().replace(offset, bytes.size(), bytes)))
        qFatal("The header of the test was refused");
    return header;
}

} // namespace

Q_DECLARE_METATYPE(SongInfo::fileTypeEnum)

class TestMfxHeader : public QObject
{
    Q_OBJECT

private slots:
    void newHeaderIsEmptyAndOfNoType()
    {
        const MfxHeader header;
        QVERIFY(header.header().isEmpty());
        QCOMPARE(header.fileType(), SongInfo::FileUnknown);
        QVERIFY(!header.hasTitle());
        QVERIFY(!header.hasLongName());
        QCOMPARE(header.editor(), QString());
        QCOMPARE(header.tempo(), 0);
        QVERIFY(!header.hasValidTempo());
        QCOMPARE(header.flags(), qint8(0));
    }

    void magicAndLengthDecide_data()
    {
        QTest::addColumn<QByteArray>("magic");
        QTest::addColumn<int>("length");
        QTest::addColumn<SongInfo::fileTypeEnum>("type");
        QTest::addColumn<int>("kept");
        QTest::newRow("mf3, 511") << QByteArray("_MF3") << 511 << SongInfo::FileUnknown << 0;
        QTest::newRow("mf3, 512") << QByteArray("_MF3") << 512 << SongInfo::FileMf3 << 512;
        QTest::newRow("mf3, 800") << QByteArray("_MF3") << 800 << SongInfo::FileMf3 << 512;
        QTest::newRow("mf4, 511") << QByteArray("_MF4") << 511 << SongInfo::FileUnknown << 0;
        QTest::newRow("mf4, 512") << QByteArray("_MF4") << 512 << SongInfo::FileMf4 << 512;
        QTest::newRow("mf4, 1024") << QByteArray("_MF4") << 1024 << SongInfo::FileMf4 << 512;
        QTest::newRow("mf5, 512") << QByteArray("_MF5") << 512 << SongInfo::FileUnknown << 0;
        QTest::newRow("mf5, 800") << QByteArray("_MF5") << 800 << SongInfo::FileUnknown << 0;
        QTest::newRow("mf5, 1023") << QByteArray("_MF5") << 1023 << SongInfo::FileUnknown << 0;
        QTest::newRow("mf5, 1024") << QByteArray("_MF5") << 1024 << SongInfo::FileMf5 << 1024;
        QTest::newRow("mf5, 2000") << QByteArray("_MF5") << 2000 << SongInfo::FileMf5 << 1024;
        QTest::newRow("mf6") << QByteArray("_MF6") << 2000 << SongInfo::FileUnknown << 0;
        QTest::newRow("midi") << QByteArray("MThd") << 2000 << SongInfo::FileUnknown << 0;
        QTest::newRow("lower case") << QByteArray("_mf3") << 2000 << SongInfo::FileUnknown << 0;
        QTest::newRow("magic only") << QByteArray("_MF3") << 4 << SongInfo::FileUnknown << 0;
        QTest::newRow("cut magic") << QByteArray("_MF") << 3 << SongInfo::FileUnknown << 0;
        QTest::newRow("nothing") << QByteArray() << 0 << SongInfo::FileUnknown << 0;
    }
    void magicAndLengthDecide()
    {
        QFETCH(QByteArray, magic);
        QFETCH(int, length);
        QFETCH(SongInfo::fileTypeEnum, type);
        QFETCH(int, kept);
        const QByteArray bytes = filledHeader(magic, length);
        MfxHeader header;
        QCOMPARE(header.loadHeader(bytes), type != SongInfo::FileUnknown);
        QCOMPARE(header.fileType(), type);
        QCOMPARE(header.header(), bytes.left(kept));
    }

    void failingLoadForgetsTheHeaderBefore_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("unknown magic") << QByteArray(1024, 'x');
        QTest::newRow("too short") << QByteArray("_MF5") + QByteArray(796, '\0');
        QTest::newRow("empty") << QByteArray();
    }
    void failingLoadForgetsTheHeaderBefore()
    {
        QFETCH(QByteArray, bytes);
        MfxHeader header;
        QVERIFY(header.loadHeader(filledHeader("_MF4", 512)));
        QVERIFY(!header.loadHeader(bytes));
        QVERIFY(header.header().isEmpty());
        QCOMPARE(header.fileType(), SongInfo::FileUnknown);
        QVERIFY(!header.hasTitle());
    }

    void textsAreReadFromTheirPlaces()
    {
        QByteArray bytes = zeroHeader("_MF5", 1024);
        bytes.replace(42, 8, "LONGNAME");
        bytes.replace(90, 9, "Copyright");
        bytes.replace(122, 5, "Title");
        bytes.replace(154, 6, "Editor");
        bytes.replace(186, 6, "Author");
        bytes.replace(218, 6, "Artist");
        bytes.replace(250, 5, "Genre");
        MfxHeader header;
        QVERIFY(header.loadHeader(bytes));
        QCOMPARE(header.longName(), QStringLiteral("LONGNAME"));
        QCOMPARE(header.copyright(), QStringLiteral("Copyright"));
        QCOMPARE(header.title(), QStringLiteral("Title"));
        QCOMPARE(header.editor(), QStringLiteral("Editor"));
        QCOMPARE(header.author(), QStringLiteral("Author"));
        QCOMPARE(header.artist(), QStringLiteral("Artist"));
        QCOMPARE(header.genre(), QStringLiteral("Genre"));
        QVERIFY(header.hasLongName());
        QVERIFY(header.hasTitle());
        QVERIFY(header.hasAuthor());
        QVERIFY(header.hasArtist());
        QVERIFY(header.hasGenre());
    }

    void fullFieldsEndWhereTheNextByteBegins()
    {
        QByteArray bytes = "_MF3" + QByteArray(508, 'x'); // no terminator anywhere
        MfxHeader header;
        QVERIFY(header.loadHeader(bytes));
        QCOMPARE(header.longName(), QString(13, QLatin1Char('x')));
        QCOMPARE(header.copyright(), QString(20, QLatin1Char('x')));
        QCOMPARE(header.title(), QString(32, QLatin1Char('x')));
        QCOMPARE(header.editor(), QString(31, QLatin1Char('x')));
        QCOMPARE(header.author(), QString(32, QLatin1Char('x')));
        QCOMPARE(header.artist(), QString(32, QLatin1Char('x')));
        QCOMPARE(header.genre(), QString(32, QLatin1Char('x')));
    }

    void flagsBehindAFullEditorAreNoText()
    {
        MfxHeader header = headerWith(154, QByteArray(31, 'e') + 'F');
        QCOMPARE(header.editor(), QString(31, QLatin1Char('e')));
        QCOMPARE(header.flags(), qint8('F'));
    }

    void textsEndAtTheFirstZeroByte()
    {
        const MfxHeader header = headerWith(122, QByteArray("My\0old title", 12));
        QCOMPARE(header.title(), QStringLiteral("My"));
    }

    void textsLoseOuterWhiteSpace()
    {
        const MfxHeader header = headerWith(122, " \t My song \r\n");
        QCOMPARE(header.title(), QStringLiteral("My song"));
    }

    void blankTextIsNotThere()
    {
        const MfxHeader header = headerWith(122, QByteArray(32, ' '));
        QVERIFY(!header.hasTitle());
    }

    void textsAreLatin1BothWays()
    {
        MfxHeader header = headerWith(122, "Perch\xE9");
        QCOMPARE(header.title(), QStringLiteral("Perch\u00E9"));
        header.setTitle(QStringLiteral("Citt\u00E0 \u20AC"));
        QCOMPARE(header.header().mid(122, 8), QByteArray("Citt\xE0 ?\0", 8));
    }

    void writersChangeTheirFieldOnly_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<int>("offset");
        QTest::newRow("title") << 0 << 122;
        QTest::newRow("author") << 1 << 186;
        QTest::newRow("artist") << 2 << 218;
        QTest::newRow("genre") << 3 << 250;
    }
    void writersChangeTheirFieldOnly()
    {
        QFETCH(int, field);
        QFETCH(int, offset);
        const QByteArray before = filledHeader("_MF5", 1024);
        MfxHeader header;
        QVERIFY(header.loadHeader(before));
        switch (field) {
        case 0:
            header.setTitle(QStringLiteral("abc"));
            break;
        case 1:
            header.setAuthor(QStringLiteral("abc"));
            break;
        case 2:
            header.setArtist(QStringLiteral("abc"));
            break;
        default:
            header.setGenre(QStringLiteral("abc"));
        }
        QCOMPARE(header.header(),
                 before.left(offset) + "abc" + QByteArray(29, '\0') + before.mid(offset + 32));
    }

    void titleIsCutAt32Characters()
    {
        MfxHeader header = headerWith(154, "Editor");
        const QString title = QStringLiteral("0123456789012345678901234567890123456789");
        QCOMPARE(title.size(), 40);
        header.setTitle(title);
        QCOMPARE(header.title(), title.left(32));
        QCOMPARE(header.header().mid(122, 32), title.left(32).toLatin1());
        QCOMPARE(header.editor(), QStringLiteral("Editor"));
        QCOMPARE(header.header().size(), 512);
    }

    void titleOf32CharactersHasNoTerminator()
    {
        MfxHeader header = headerWith(154, "E");
        header.setTitle(QString(32, QLatin1Char('t')));
        QCOMPARE(header.header().mid(122, 33), QByteArray(32, 't') + 'E');
        QCOMPARE(header.title(), QString(32, QLatin1Char('t')));
    }

    void shortTitleLeavesNothingOfALongerOne()
    {
        MfxHeader header = headerWith(122, QByteArray(32, 'o'));
        header.setTitle(QStringLiteral("new"));
        QCOMPARE(header.header().mid(122, 32), "new" + QByteArray(29, '\0'));
    }

    void emptyTitleClearsTheField()
    {
        MfxHeader header = headerWith(122, "Title");
        header.setTitle(QString());
        QCOMPARE(header.header(), zeroHeader());
        QVERIFY(!header.hasTitle());
    }

    void titleOfManyWideCharactersStaysInItsField()
    {
        MfxHeader header = headerWith(154, "Editor");
        header.setTitle(QString(40, QChar(0x4E2D)));
        QCOMPARE(header.header().mid(122, 32), QByteArray(32, '?'));
        QCOMPARE(header.editor(), QStringLiteral("Editor"));
    }

    void tempoIsLittleEndian()
    {
        MfxHeader header = headerWith(38, "\x2C\x01");
        QCOMPARE(header.tempo(), 300);
        header.setTempo(0x1234);
        QCOMPARE(header.header().mid(37, 4), QByteArray("\0\x34\x12\0", 4));
        header.setTempo(65535);
        QCOMPARE(header.tempo(), 65535);
    }

    void tempoKeepsItsLow16Bits()
    {
        MfxHeader header = headerWith(40, "\x55");
        header.setTempo(0x12345678);
        QCOMPARE(header.header().mid(38, 3), QByteArray("\x78\x56\x55"));
        header.setTempo(-1);
        QCOMPARE(header.header().mid(38, 3), QByteArray("\xFF\xFF\x55"));
    }

    void validTempoIs1To499_data()
    {
        QTest::addColumn<int>("tempo");
        QTest::addColumn<bool>("valid");
        QTest::newRow("0") << 0 << false;
        QTest::newRow("1") << 1 << true;
        QTest::newRow("120") << 120 << true;
        QTest::newRow("499") << 499 << true;
        QTest::newRow("500") << 500 << false;
        QTest::newRow("65535") << 65535 << false;
    }
    void validTempoIs1To499()
    {
        QFETCH(int, tempo);
        QFETCH(bool, valid);
        MfxHeader header = headerWith(38, songbytes::littleEndian(static_cast<quint32>(tempo), 2));
        QCOMPARE(header.tempo(), tempo);
        QCOMPARE(header.hasValidTempo(), valid);
    }

    void flagsAreSigned()
    {
        QCOMPARE(headerWith(185, "\x80").flags(), qint8(-128));
        QCOMPARE(headerWith(185, "\x7F").flags(), qint8(127));
    }

    void flagsAreAddedNeverCleared()
    {
        MfxHeader header = headerWith(184, "e\x84g");
        header.setFlag(MfxHeader::MarkersFlag);
        QCOMPARE(header.header().mid(184, 3), QByteArray("e\x85g"));
        header.setFlag(MfxHeader::MarkersFlag);
        QCOMPARE(header.header().mid(184, 3), QByteArray("e\x85g"));
    }

    void sizesAreLittleEndianInTheirPlaces()
    {
        const QByteArray before = filledHeader("_MF3", 512);
        MfxHeader header;
        QVERIFY(header.loadHeader(before));
        header.setSize(0x89ABCDEFU);
        header.setOrigSize(0x01020304U);
        QCOMPARE(header.header(), "_MF3" + QByteArray("\xEF\xCD\xAB\x89") + before.mid(8, 4) +
                                      QByteArray("\x04\x03\x02\x01") + before.mid(16));
    }

    void writersMakeAnEmptyHeaderLongEnough()
    {
        MfxHeader header;
        header.setOrigSize(1);
        QCOMPARE(header.header(), QByteArray(12, '\0') + QByteArray("\1\0\0\0", 4));
        header.setTempo(120);
        QCOMPARE(header.header().size(), 40);
        QCOMPARE(header.tempo(), 120);
        header.setGenre(QStringLiteral("Pop"));
        QCOMPARE(header.header().size(), 282);
        QCOMPARE(header.genre(), QStringLiteral("Pop"));
        QCOMPARE(header.header().mid(40, 210), QByteArray(210, '\0'));
    }

    void flagGrowsAnEmptyHeaderToItsByte()
    {
        MfxHeader header;
        header.setFlag(MfxHeader::MarkersFlag);
        QCOMPARE(header.header(), QByteArray(185, '\0') + '\1');
    }

    void copiesAreIndependent()
    {
        MfxHeader header = headerWith(122, "One");
        MfxHeader copy = header;
        copy.setTitle(QStringLiteral("Two"));
        QCOMPARE(header.title(), QStringLiteral("One"));
        QCOMPARE(copy.title(), QStringLiteral("Two"));
        QCOMPARE(copy.fileType(), SongInfo::FileMf3);
    }
};

QTEST_GUILESS_MAIN(TestMfxHeader)
#include "test_mfxheader.moc"
