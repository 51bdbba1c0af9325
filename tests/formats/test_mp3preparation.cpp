// Which tags the player cannot show, what is offered for them, and what is written: by bytes that
// are put together here.
#include "formats/metasong.h"
#include "formats/mp3preparation.h"
#include "formats/songsnapshot.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QTemporaryDir>
#include <QTest>

using samplesongs::readFile;
using songbytes::bigEndian;

namespace
{

const QByteArray audio = QByteArray("\xFF\xFB\x90\x44", 4) + QByteArray(2000, 'a');

QByteArray sizeOfTag(qsizetype size)
{
    QByteArray field;
    for (int shift = 21; shift >= 0; shift -= 7)
        field.append(static_cast<char>(size >> shift & 0x7F));
    return field;
}

QByteArray tag(int version, const QByteArray &frames, int flags = 0)
{
    return "ID3" + bigEndian(static_cast<quint64>(version), 1) + '\0' +
           bigEndian(static_cast<quint64>(flags), 1) + sizeOfTag(frames.size()) + frames;
}

QByteArray frame3(const QByteArray &id, const QByteArray &content, int format = 0)
{
    return id + bigEndian(static_cast<quint64>(content.size()), 4) +
           bigEndian(static_cast<quint64>(format), 2) + content;
}

QByteArray frame4(const QByteArray &id, const QByteArray &content, int format = 0)
{
    return id + sizeOfTag(content.size()) + bigEndian(static_cast<quint64>(format), 2) + content;
}

QByteArray frame2(const QByteArray &id, const QByteArray &content)
{
    return id + bigEndian(static_cast<quint64>(content.size()), 3) + content;
}

QByteArray latin1(const QByteArray &text)
{
    return '\0' + text;
}

QByteArray utf8(const char *text)
{
    return QByteArray(1, '\3') + text;
}

QByteArray utf16(const QString &text)
{
    QByteArray bytes("\1\xFF\xFE", 3);
    for (const QChar c : text)
        bytes += songbytes::littleEndian(c.unicode(), 2);
    return bytes;
}

QByteArray id3v1(const QByteArray &title, const QByteArray &artist)
{
    return "TAG" + title.leftJustified(30, '\0') + artist.leftJustified(30, '\0') +
           QByteArray(64, '\0') + '\x11'; // genre 17 is Rock
}

QByteArray apeItem(const QByteArray &name, const QByteArray &value)
{
    return songbytes::littleEndian(static_cast<quint64>(value.size()), 4) + QByteArray(4, '\0') +
           name + '\0' + value;
}

QByteArray ape(const QByteArray &items, int count)
{
    return items + "APETAGEX" + songbytes::littleEndian(2000, 4) +
           songbytes::littleEndian(static_cast<quint64>(items.size()) + 32, 4) +
           songbytes::littleEndian(static_cast<quint64>(count), 4) + QByteArray(12, '\0');
}

QString text(const char *words)
{
    return QString::fromUtf8(words);
}

} // namespace

Q_DECLARE_METATYPE(TagTroubles)

class TestMp3Preparation : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void troublesAreFound_data();
    void troublesAreFound();
    void importTellsTroubles();
    void whatTheTagSaysIsOffered_data();
    void whatTheTagSaysIsOffered();
    void whatReadsRightStays();
    void artistsAreJoined();
    void offeredTextsAreWritten();
    void otherFramesStayBitForBit();
    void framesOfVersion4BecomeThoseOfVersion3_data();
    void framesOfVersion4BecomeThoseOfVersion3();
    void tagStaysVersion4WhereVersion3HasNoSuchFrame_data();
    void tagStaysVersion4WhereVersion3HasNoSuchFrame();
    void framesWithoutSuccessorAreNamed();
    void damagedOldTagIsNotWritten();
    void damagedFramesThatWouldChangeOneAnotherAreNotWritten();
    void fileChangedSinceIsLeftAlone();
    void tagThatWouldBecomeTooLargeIsNotWritten();
    void tagTooLargeForTheImportIsPreparedAndKept();
    void smallPackedTextIsRead();
    void packedTextsCannotEatMemory();
    void otherFilesHaveNoPreparation();

private:
    QString path() const { return m_dir->filePath(QStringLiteral("song.mp3")); }
    std::optional<Mp3Preparation> prepared(const QByteArray &bytes) const
    {
        samplesongs::writeFile(path(), bytes);
        return Mp3Preparation::of(path());
    }

    /** The file after what is offered has been written. */
    QByteArray afterWriting(const QByteArray &bytes) const
    {
        const auto preparation = prepared(bytes);
        if (!preparation || preparation->write(preparation->proposed()) != SaveFailure::None)
            return {};
        return readFile(path());
    }

    QScopedPointer<QTemporaryDir> m_dir;
};

void TestMp3Preparation::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
}

void TestMp3Preparation::troublesAreFound_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<TagTroubles>("troubles");
    const TagTroubles none;
    const auto row = [](const char *name, const QByteArray &file, TagTroubles troubles) {
        QTest::newRow(name) << file << troubles;
    };
    const QByteArray album16 = frame3("TALB", utf16(text("Città")));
    row("no tag", audio, none);
    row("ISO-8859-1", tag(3, frame3("TIT2", latin1("Citt\xE0"))) + audio, none);
    row("another frame in UTF-16", tag(3, frame3("TIT2", latin1("A")) + album16) + audio, none);
    row("title in UTF-16", tag(3, frame3("TIT2", utf16(text("A")))) + audio, TagTrouble::Encoding);
    row("tempo in UTF-16", tag(3, frame3("TBPM", utf16(text("128")))) + audio,
        TagTrouble::Encoding);
    row("UTF-16 with nothing but its mark", tag(3, frame3("TIT2", utf16({}))) + audio,
        TagTrouble::Encoding);
    row("UTF-8", tag(4, frame4("TIT2", utf8("Città"))) + audio, TagTrouble::Encoding);
    row("UTF-8 that is ASCII", tag(4, frame4("TIT2", utf8("Blue Moon"))) + audio, none);
    row("version 4, a frame that is longer for version 3",
        tag(4, frame4("TIT2", latin1(QByteArray(200, 'x')))) + audio, TagTrouble::Version);
    row("version 4, a packed title",
        tag(4, frame4("TIT2", sizeOfTag(4) + qCompress(latin1("Zo\xEB")).mid(4), 9)) + audio,
        TagTrouble::Encoding);
    row("version 2", tag(2, frame2("TT2", latin1("A"))) + audio, TagTrouble::Version);
    row("version 2 without any of the texts", tag(2, frame2("TAL", latin1("A"))) + audio, none);
    row("unsynchronised",
        tag(3, frame3("TIT2", utf16(text("A"))).replace("\xFF\xFE", QByteArray("\xFF\0\xFE", 3)),
            0x80) +
            audio,
        TagTrouble::Encoding | TagTrouble::Unsynchronised);
    row("the flag of version 4, and another frame with zeros behind FF",
        tag(4, frame4("TIT2", latin1("A")) + frame4("PRIV", QByteArray("x\0\xFF\0\xFB", 5)), 0x80) +
            audio,
        none);
    row("the flag alone", tag(3, frame3("TIT2", latin1("A")), 0x80) + audio, none);
    row("ID3v1 only", audio + id3v1("A", "B"), TagTrouble::OnlyId3v1);
    row("ID3v1 without texts", audio + id3v1("", ""), none);
    row("ID3v1 beside a tag", tag(3, frame3("TIT2", latin1("A"))) + audio + id3v1("A", "B"), none);
    row("ID3v1 beside a tag without title and artist",
        tag(3, frame3("TSSE", latin1("Lavf"))) + audio + id3v1("A", ""), TagTrouble::OnlyId3v1);
    row("APE only", audio + ape(apeItem("Title", "A"), 1), TagTrouble::OnlyApe);
    row("APE without title and artist", audio + ape(apeItem("Year", "1"), 1), none);
    row("APE and ID3v1", audio + ape(apeItem("Title", "A"), 1) + id3v1("A", "B"),
        TagTrouble::OnlyApe | TagTrouble::OnlyId3v1);
    row("APE whose item runs past its end",
        audio + ape(bigEndian(0x10000000, 4) + bigEndian(0, 4) + QByteArray("Title\0A", 7), 1),
        none);
}

void TestMp3Preparation::troublesAreFound()
{
    QFETCH(QByteArray, file);
    const auto preparation = prepared(file);
    QVERIFY(preparation);
    QTEST(preparation->troubles(), "troubles");
}

void TestMp3Preparation::importTellsTroubles()
{
    QVERIFY(samplesongs::writeFile(path(), tag(3, frame3("TIT2", utf16(text("A")))) + audio));
    MetaSong song;
    SongInfo info;
    QVERIFY(song.importFile(path()));
    song.getSongInfo(info);
    QCOMPARE(info.troubles, TagTrouble::Encoding);
    QVERIFY(samplesongs::writeFile(path(), audio + id3v1("A", "B")));
    QVERIFY(song.importFile(path()));
    song.getSongInfo(info);
    QCOMPARE(info.troubles, TagTrouble::OnlyId3v1);
    QCOMPARE(info.title, QString());
}

void TestMp3Preparation::whatTheTagSaysIsOffered_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("said");
    QTest::addColumn<QString>("offered");
    const auto row = [](const char *name, const QByteArray &file, const char *said,
                        const char *offered) {
        QTest::newRow(name) << file << text(said) << text(offered);
    };
    row("UTF-16", tag(3, frame3("TIT2", utf16(text("Čárový")))) + audio, "Čárový", "Cárový");
    row("UTF-16 without a mark", tag(4, frame4("TIT2", QByteArray("\2\x01\x0C\0a", 5))) + audio,
        "Ča", "Ca");
    row("UTF-8", tag(4, frame4("TIT2", utf8("Città vecchia"))) + audio, "Città vecchia",
        "Città vecchia");
    row("version 2", tag(2, frame2("TT2", utf16(text("Ζορμπάς")))) + audio, "Ζορμπάς", "Zormpás");
    row("unsynchronised",
        tag(3, frame3("TIT2", utf16(text("A"))).replace("\xFF\xFE", QByteArray("\xFF\0\xFE", 3)),
            0x80) +
            audio,
        "A", "A");
    row("ID3v1", audio + id3v1("Caff\xE8", ""), "Caffè", "Caffè");
    row("APE", audio + ape(apeItem("TITLE", "Łukasz"), 1), "Łukasz", "Lukasz");
    row("APE before ID3v1", audio + ape(apeItem("Title", "long title"), 1) + id3v1("long", ""),
        "long title", "long title");
}

void TestMp3Preparation::whatTheTagSaysIsOffered()
{
    QFETCH(QByteArray, file);
    const auto preparation = prepared(file);
    QVERIFY(preparation);
    QTEST(preparation->said().title, "said");
    QTEST(preparation->proposed().title, "offered");
}

void TestMp3Preparation::whatReadsRightStays()
{
    const auto preparation =
        prepared(tag(4, frame4("TIT2", utf8("Città")) + frame4("TPE1", latin1("\x8C-band")) +
                            frame4("TCON", latin1("17")) + frame4("TBPM", latin1("96"))) +
                 audio);
    QVERIFY(preparation);
    QCOMPARE(preparation->shown().title, QString::fromLatin1("Citt\xC3"));
    QCOMPARE(preparation->proposed().title, text("Città"));
    QCOMPARE(preparation->proposed().artist, QString::fromLatin1("\x8C-band"));
    QCOMPARE(preparation->proposed().genre, QStringLiteral("Rock"));
    QCOMPARE(preparation->proposed().userBpm, 96);
}

void TestMp3Preparation::artistsAreJoined()
{
    QByteArray artists = utf8("Łukasz");
    artists += '\0';
    artists += QByteArray("Zoë");
    const auto preparation = prepared(tag(4, frame4("TPE1", artists)) + audio);
    QVERIFY(preparation);
    QCOMPARE(preparation->said().artist, text("Łukasz/Zoë"));
    QCOMPARE(preparation->proposed().artist, text("Lukasz/Zoë"));
}

void TestMp3Preparation::offeredTextsAreWritten()
{
    const QByteArray file =
        afterWriting(tag(4, frame4("TIT2", utf8("Č")) + frame4("TBPM", utf16(text("96"))) +
                                frame4("TLEN", utf16(text("215999")))) +
                     audio + id3v1("old", "old"));
    const QByteArray frames = frame3("TLEN", latin1("215000")) + frame3("TBPM", latin1("96")) +
                              frame3("TIT2", latin1("C"));
    QCOMPARE(file, tag(3, frames) + audio + id3v1("old", "old"));
    QCOMPARE(Mp3Preparation::of(path())->troubles(), TagTroubles());
}

void TestMp3Preparation::otherFramesStayBitForBit()
{
    const QByteArray others =
        frame3("APIC", latin1("image/png") + QByteArray("\0\3\0\xFF\xFE", 5)) +
        frame3("TALB", utf16(text("Città"))) + frame3("XYZW", QByteArray("\xFF\0\1", 3));
    const QByteArray file = afterWriting(tag(3, frame3("TIT2", utf16(text("Ž"))) + others) + audio);
    QCOMPARE(file, tag(3, frame3("TIT2", latin1("Z")) + others) + audio);
}

void TestMp3Preparation::framesOfVersion4BecomeThoseOfVersion3_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QByteArray>("expected");
    const auto row = [](const char *name, const QByteArray &frame, const QByteArray &expected) {
        QTest::newRow(name) << frame << expected;
    };
    const QByteArray picture = QByteArray("\x89PNG\0\xFF\xFE\xFF\0", 9) + QByteArray(300, 'p');
    const QByteArray longText(300, 'x');
    const auto latin1Picture = [&picture](const QByteArray &description) {
        return latin1("image/png") + '\0' + '\3' + description + '\0' + picture;
    };
    row("size", frame4("TALB", latin1(longText)), frame3("TALB", latin1(longText)));
    row("UTF-16 stays", frame4("TALB", utf16(text("Č"))), frame3("TALB", utf16(text("Č"))));
    row("UTF-8 that Latin-1 holds", frame4("TALB", utf8("Città")),
        frame3("TALB", latin1("Citt\xE0")));
    row("UTF-8 that it does not hold", frame4("TALB", utf8("Č")), frame3("TALB", utf16(text("Č"))));
    row("UTF-16 without a mark", frame4("TALB", QByteArray("\2\x01\x0C", 3)),
        frame3("TALB", utf16(text("Č"))));
    row("several texts", frame4("TXXX", QByteArray("\3a\0\xC4\x8C\0", 6)),
        frame3("TXXX", utf16(text("a")) + QByteArray("\0\0", 2) + utf16(text("Č")).mid(1) +
                           QByteArray("\0\0", 2)));
    row("comment", frame4("COMM", QByteArray("\3ita\0\xC3\xA0", 7)),
        frame3("COMM", QByteArray("\0ita\0\xE0", 6)));
    row("address", frame4("WXXX", QByteArray("\3\xC3\xA0\0http://x", 12)),
        frame3("WXXX", QByteArray("\0\xE0\0http://x", 11)));
    row("picture", frame4("APIC", QByteArray("\3image/png\0\3\xC3\xA0\0", 15) + picture),
        frame3("APIC", latin1Picture("\xE0")));
    row("object", frame4("GEOB", QByteArray("\3text/x\0n\0\xC4\x8C\0", 13) + picture),
        frame3("GEOB", QByteArray("\1text/x\0", 8) + utf16(text("n")).mid(1) +
                           QByteArray("\0\0", 2) + utf16(text("Č")).mid(1) + QByteArray("\0\0", 2) +
                           picture));
    row("year", frame4("TDRC", utf8("1987")), frame3("TYER", latin1("1987")));
    row("day in UTF-16", frame4("TDRC", utf16(text("1987-06-05"))),
        frame3("TYER", latin1("1987")) + frame3("TDAT", latin1("0506")));
    row("day", frame4("TDRC", utf8("1987-06-05")),
        frame3("TYER", latin1("1987")) + frame3("TDAT", latin1("0506")));
    row("year of the original", frame4("TDOR", latin1("1961")), frame3("TORY", latin1("1961")));
    row("people", frame4("TIPL", QByteArray("\0mix\0Anna", 9)),
        frame3("IPLS", QByteArray("\0mix\0Anna", 9)));
    row("data length", frame4("TALB", sizeOfTag(3) + latin1("ab"), 1),
        frame3("TALB", latin1("ab")));
    row("unsynchronised frame", frame4("PRIV", QByteArray("x\0\xFF\0\xFB\xFF\0\0", 8), 2),
        frame3("PRIV", QByteArray("x\0\xFF\xFB\xFF\0", 6)));
    row("packed frame", frame4("TALB", sizeOfTag(301) + qCompress(latin1(longText)).mid(4), 9),
        frame3("TALB", latin1(longText)));
    row("read only", frame4("TALB", latin1("a"), 0x1000),
        "TALB" + bigEndian(2, 4) + QByteArray("\x20\0", 2) + latin1("a"));
}

void TestMp3Preparation::framesOfVersion4BecomeThoseOfVersion3()
{
    QFETCH(QByteArray, frame);
    QFETCH(QByteArray, expected);
    const QByteArray file = afterWriting(tag(4, frame4("TIT2", utf8("Č")) + frame) + audio);
    QCOMPARE(file, tag(3, frame3("TIT2", latin1("C")) + expected) + audio);
}

void TestMp3Preparation::tagStaysVersion4WhereVersion3HasNoSuchFrame_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::newRow("unknown") << frame4("XYZW", "abc");
    QTest::newRow("mood") << frame4("TMOO", utf8("happy"));
    QTest::newRow("a month") << frame4("TDRC", utf8("1987-06"));
    QTest::newRow("a time of day") << frame4("TDRC", utf8("1987-06-05T10:00"));
    QTest::newRow("encrypted") << frame4("PRIV", "abc", 4);
    QTest::newRow("of a group") << frame4("PRIV", "abc", 0x40);
    QTest::newRow("no UTF-8") << frame4("TALB", utf8("a\xFF"
                                                     "b"));
    QTest::newRow("packed, but not so long")
        << frame4("TALB", sizeOfTag(9) + qCompress(latin1("ab")).mid(4), 9);
    QTest::newRow("chapter") << frame4("CHAP", QByteArray("1\0", 2) + QByteArray(16, '\0') +
                                                   frame4("TIT2", utf8("Č")));
}

void TestMp3Preparation::tagStaysVersion4WhereVersion3HasNoSuchFrame()
{
    QFETCH(QByteArray, frame);
    const auto preparation = prepared(tag(4, frame4("TIT2", utf8("Č")) + frame) + audio);
    QVERIFY(preparation && preparation->keepsVersion());
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::None);
    QCOMPARE(readFile(path()), tag(4, frame4("TIT2", latin1("C")) + frame) + audio);
    QCOMPARE(Mp3Preparation::of(path())->troubles(), TagTroubles());
}

void TestMp3Preparation::framesWithoutSuccessorAreNamed()
{
    const auto preparation = prepared(
        tag(2, frame2("TT2", latin1("A")) + frame2("CRM", "abc") + frame2("TAL", latin1("B"))) +
        audio);
    QVERIFY(preparation);
    QCOMPARE(preparation->lostFrames(), QStringList(QStringLiteral("CRM")));
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::None);
    QCOMPARE(readFile(path()),
             tag(3, frame3("TIT2", latin1("A")) + frame3("TALB", latin1("B"))) + audio);
}

void TestMp3Preparation::damagedOldTagIsNotWritten()
{
    const QByteArray file =
        tag(2, frame2("TT2", latin1("A")) + "XX" + QByteArray("\xFF\xFF\xFF\xFF", 4)) + audio;
    const auto preparation = prepared(file);
    QVERIFY(preparation);
    QVERIFY(!preparation->canBeWritten());
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::Unreadable);
    QCOMPARE(readFile(path()), file);
}

void TestMp3Preparation::damagedFramesThatWouldChangeOneAnotherAreNotWritten()
{
    // The size of the title reaches over the artist.
    const QByteArray packed = qCompress(latin1("abc")).mid(4);
    const QByteArray file = tag(4, "TIT2" + QByteArray(2, '\0') + "TPE1" + QByteArray("\0\x10", 2) +
                                       QByteArray("\0\x09", 2) + sizeOfTag(4) + packed) +
                            audio + id3v1("A", "B");
    const auto preparation = prepared(file);
    QVERIFY(preparation);
    SongInfo texts = preparation->shown();
    texts.artist = QStringLiteral("B");
    QCOMPARE(preparation->write(texts), SaveFailure::Unreadable);
    QCOMPARE(readFile(path()), file);
}

void TestMp3Preparation::fileChangedSinceIsLeftAlone()
{
    const auto preparation = prepared(tag(3, frame3("TIT2", utf16(text("Č")))) + audio);
    const QByteArray other = tag(3, frame3("TIT2", utf16(text("Š")))) + audio;
    QVERIFY(samplesongs::writeFile(path(), other));
    QVERIFY(preparation);
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::InUse);
    QCOMPARE(readFile(path()), other);
}

void TestMp3Preparation::tagThatWouldBecomeTooLargeIsNotWritten()
{
    const QByteArray file =
        tag(3, frame3("TIT2", utf16(text("Č"))) + frame3("PRIV", QByteArray(999900, 'x'))) + audio;
    const auto preparation = prepared(file);
    QVERIFY(preparation);
    SongInfo texts = preparation->proposed();
    texts.title = QString(500, QLatin1Char('a'));
    QCOMPARE(preparation->write(texts), SaveFailure::TooLarge);
    QCOMPARE(readFile(path()), file);
}

void TestMp3Preparation::tagTooLargeForTheImportIsPreparedAndKept()
{
    const QByteArray picture = frame3("APIC", latin1("image/jpeg") + QByteArray("\0\3\0", 3) +
                                                  QByteArray(2000000, '\xFF'));
    const QByteArray file = tag(3, picture + frame3("TIT2", utf16(text("Č")))) + audio;
    const auto preparation = prepared(file);
    QVERIFY(preparation);
    const auto snapshot = SongSnapshot::of(path());
    QVERIFY(snapshot);
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::None);
    QCOMPARE(readFile(path()), tag(3, frame3("TIT2", latin1("C")) + picture) + audio);
    QCOMPARE(snapshot->restore(path()), SaveFailure::None);
    QCOMPARE(readFile(path()), file);
}

void TestMp3Preparation::smallPackedTextIsRead()
{
    const QByteArray title = utf16(text("Čárový"));
    const QByteArray packed = qCompress(title); // the length, big-endian, is in front already
    const auto preparation = prepared(tag(3, frame3("TIT2", packed, 0x80)) + audio);
    QVERIFY(preparation);
    QCOMPARE(preparation->troubles(), TagTrouble::Encoding);
    QCOMPARE(preparation->proposed().title, text("Cárový"));
}

void TestMp3Preparation::packedTextsCannotEatMemory()
{
    // 64 MiB of zeros in 65 kB, more than is unpacked: as text in front, as other frame behind it.
    const QByteArray bomb = qCompress(QByteArray(128 * 1024 * 1024, '\0'), 9).mid(4);
    const QByteArray file = tag(4, frame4("TIT2", sizeOfTag(0x08000000) + bomb, 9) +
                                       frame4("TALB", sizeOfTag(0x08000000) + bomb, 9)) +
                            audio;
    const auto preparation = prepared(file);
    QVERIFY(preparation);
    QVERIFY(preparation->keepsVersion());
    QCOMPARE(preparation->said().title, QString());
}

void TestMp3Preparation::otherFilesHaveNoPreparation()
{
    QVERIFY(!Mp3Preparation::of(path()));
    QVERIFY(!prepared({}));
    QVERIFY(!prepared("plain text"));
    QVERIFY(!prepared(tag(3, frame3("TIT2", latin1("A long title"))).left(22)));
    QVERIFY(!Mp3Preparation::of(m_dir->path()));
}

QTEST_APPLESS_MAIN(TestMp3Preparation)
#include "test_mp3preparation.moc"
