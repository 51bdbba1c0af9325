// Tags of MP3 files as they are found: an edit keeps what it does not change, byte for byte.
#include "formats/metasong.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QTemporaryDir>
#include <QTest>

#include <functional>

using samplesongs::readFile;
using songbytes::bigEndian;
using songbytes::id3Frame;
using songbytes::id3Tag;

namespace
{

const QByteArray audio = QByteArray("\xFF\xFB\x90\x64", 4) + QByteArray(700, '\x5A') + "the end";
const QByteArray mark = id3Frame("MEDT", QByteArray(3, '\0'));
const QByteArray album = id3Frame("TALB", "Album");

/** A frame whose content begins with the encoding byte; flags are the second of its flag bytes. */
QByteArray frame(const QByteArray &id, const QByteArray &content, int flags = 0)
{
    return id + bigEndian(static_cast<quint32>(content.size()), 4) + '\0' +
           static_cast<char>(flags) + content;
}

/** Bytes with a size of four groups of seven bits in front, as version 4 writes it. */
QByteArray groupedSize(quint32 size)
{
    QByteArray bytes;
    for (int shift = 21; shift >= 0; shift -= 7)
        bytes.append(static_cast<char>((size >> shift) & 0x7F));
    return bytes;
}

QByteArray tagOf(int version, const QByteArray &frames, int flags = 0)
{
    QByteArray tag = id3Tag(frames);
    tag[3] = static_cast<char>(version);
    tag[5] = static_cast<char>(flags);
    return tag;
}

/** What unsynchronisation makes of bytes: a zero behind each FF that is followed by E0 to FF, 0. */
QByteArray unsynchronised(const QByteArray &bytes)
{
    QByteArray out;
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        out.append(bytes.at(i));
        const auto next = i + 1 < bytes.size() ? static_cast<quint8>(bytes.at(i + 1)) : quint8{0};
        if (bytes.at(i) == '\xFF' && (next >= 0xE0 || next == 0))
            out.append('\0');
    }
    return out;
}

QByteArray utf16(const QString &text, bool bigEndianUnits = false)
{
    QByteArray out = bigEndianUnits ? QByteArray() : QByteArray("\xFF\xFE", 2);
    for (const QChar unit : text) {
        const auto high = static_cast<char>(unit.unicode() >> 8);
        const auto low = static_cast<char>(unit.unicode() & 0xFF);
        out.append(bigEndianUnits ? high : low).append(bigEndianUnits ? low : high);
    }
    return out;
}

const QString coffee = QStringLiteral("Caffè nero");
/** A picture's bytes as a camera writes them: they look like MPEG audio in places. */
const QByteArray picture = frame("APIC", QByteArray("\0image/jpeg\0\x03\0\xFF\xD8\xFF\xE0\0\x10JFIF"
                                                    "\0\xFF\xFF\0\xFF\0\x00TIT2 and so on\xFF\xD9",
                                                    47));

} // namespace

class TestMp3Edit : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void itemThatWasNotEditedStaysAsItsFrameSaysIt_data();
    void itemThatWasNotEditedStaysAsItsFrameSaysIt();
    void editedItemReplacesItsFrame_data();
    void editedItemReplacesItsFrame();
    void itemThatTheFormCanSayIsWrittenAnew_data();
    void itemThatTheFormCanSayIsWrittenAnew();
    void catalogueIsMergedAsBefore();
    void unsynchronisationIsUndone_data();
    void unsynchronisationIsUndone();
    void flagWithoutUnsynchronisationGoesAlone();
    void flagWithoutUnsynchronisationGoesWithItsProof();
    void unsynchronisedFramesOfVersion4Stay();
    void oldFrameWithoutSuccessorIsLeftOut_data();
    void oldFrameWithoutSuccessorIsLeftOut();
    void tagOfOnlyLeftOutFramesBecomesVersion3();
    void sizesInAVersion4TagAreInGroups_data();
    void sizesInAVersion4TagAreInGroups();
    void footerGoesWithItsTag_data();
    void footerGoesWithItsTag();
    void footerBehindALargeTagIsFound();
    void flagWithoutFooterTakesNoAudio();
    void framesBehindAnExtendedHeaderAreFoundInTheirPlaces();

private:
    QString path() const { return m_dir->filePath(QStringLiteral("song.mp3")); }

    SongInfo info(const QByteArray &file) const
    {
        SongInfo info;
        MetaSong song;
        if (samplesongs::writeFile(path(), file) && song.importFile(path()))
            song.getSongInfo(info);
        return info;
    }

    /** The file after an edit of the song; nothing when it could not be loaded or saved. */
    QByteArray edited(const QByteArray &file, const std::function<void(SongInfo &)> &edit,
                      bool manual = true) const
    {
        MetaSong song;
        if (!samplesongs::writeFile(path(), file) || !song.importFile(path()))
            return {};
        SongInfo info;
        song.getSongInfo(info);
        edit(info);
        song.setSongInfo(info, manual);
        return song.saveToFile(path()) ? readFile(path()) : QByteArray();
    }

    QByteArray genreEdited(const QByteArray &file) const
    {
        return edited(file, [](SongInfo &info) { info.genre = QStringLiteral("Pop"); });
    }

    QScopedPointer<QTemporaryDir> m_dir;
};

void TestMp3Edit::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
}

void TestMp3Edit::itemThatWasNotEditedStaysAsItsFrameSaysIt_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("kept");
    const auto row = [](const char *name, int version, const QByteArray &frame) {
        QTest::newRow(name) << version << frame;
    };
    const QByteArray utf8 = '\x03' + coffee.toUtf8();
    row("title in UTF-16", 3, frame("TIT2", '\x01' + utf16(coffee)));
    row("title in UTF-16, ASCII only", 3, frame("TIT2", '\x01' + utf16(QStringLiteral("Song"))));
    row("title in UTF-16 without a mark", 4, frame("TIT2", '\x02' + utf16(coffee, true)));
    row("title in UTF-8", 4, frame("TIT2", utf8));
    row("title in UTF-8, zero behind it", 4, frame("TIT2", utf8 + '\0'));
    row("artist in UTF-8", 4, frame("TPE1", utf8));
    row("author in UTF-16", 3, frame("TCOM", '\x01' + utf16(coffee)));
    row("title of unknown encoding", 3, frame("TIT2", "\x07Song"));
    row("several artists", 4, frame("TPE1", QByteArray("\0One\0Two", 8)));
    row("several artists, UTF-8", 4, frame("TPE1", QByteArray("\x03One\0Two", 8)));
    row("tempo with decimals", 3, id3Frame("TBPM", "128.00"));
    row("tempo in words", 3, id3Frame("TBPM", "fast"));
    row("tempo in UTF-16", 3, frame("TBPM", '\x01' + utf16(QStringLiteral("128"))));
    row("length with milliseconds", 3, id3Frame("TLEN", "215999"));
    row("length below one second", 3, id3Frame("TLEN", "999"));
    row("length beyond all numbers", 3, id3Frame("TLEN", "99999999999999999999"));
    row("compressed title", 3, frame("TIT2", QByteArray("\0\0\0\x05\x78\x9C\x63\x08", 8), 0x80));
    row("compressed title, version 4", 4,
        frame("TIT2", QByteArray("\0\0\0\x05\x78\x9C\x63\x08", 8), 0x09));
    row("encrypted title", 3, frame("TIT2", "\x41Secret", 0x40));
    row("grouped title", 3, frame("TIT2", QByteArray("\x11\0Song", 6), 0x20));
    row("title with a data length", 4, frame("TIT2", QByteArray("\0\0\0\x05\0Song", 9), 0x01));
    row("unsynchronised title", 4, frame("TIT2", QByteArray("\0\xFF\0\xE0", 4), 0x02));
    row("key that the player does not know", 3, id3Frame("TKEY", "8A"));
    row("key in another notation", 3, id3Frame("TKEY", "F#m"));
    row("key in UTF-16", 3, frame("TKEY", '\x01' + utf16(QStringLiteral("Am"))));
}

void TestMp3Edit::itemThatWasNotEditedStaysAsItsFrameSaysIt()
{
    QFETCH(int, version);
    QFETCH(QByteArray, kept);
    const QByteArray frames = album + kept + picture;
    const QByteArray file = tagOf(version, frames) + audio;
    QCOMPARE(genreEdited(file), tagOf(version, mark + id3Frame("TCON", "Pop") + frames) + audio);
    // The next edit finds it again.
    QCOMPARE(edited(readFile(path()), [](SongInfo &info) { info.genre.clear(); }),
             tagOf(version, mark + frames) + audio);
}

void TestMp3Edit::editedItemReplacesItsFrame_data()
{
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QByteArray>("fresh");
    QTest::newRow("title") << frame("TIT2", '\x01' + utf16(coffee)) << id3Frame("TIT2", "New");
    QTest::newRow("artist") << frame("TPE1", QByteArray("\0One\0Two", 8))
                            << id3Frame("TPE1", "New");
    QTest::newRow("author") << frame("TCOM", "\x41Secret", 0x40) << id3Frame("TCOM", "New");
    QTest::newRow("tempo") << id3Frame("TBPM", "128.00") << id3Frame("TBPM", "128");
    QTest::newRow("length") << id3Frame("TLEN", "215999") << id3Frame("TLEN", "216000");
    QTest::newRow("key") << id3Frame("TKEY", "8A") << id3Frame("TKEY", "E-");
    QTest::newRow("key, emptied") << id3Frame("TKEY", "8A") << QByteArray();
    QTest::newRow("title, emptied") << frame("TIT2", '\x01' + utf16(coffee)) << QByteArray();
}

void TestMp3Edit::editedItemReplacesItsFrame()
{
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, fresh);
    const QByteArray id = old.left(4);
    const QByteArray file = edited(tagOf(3, old + album) + audio, [&](SongInfo &info) {
        const QString text = fresh.isEmpty() ? QString() : QStringLiteral("New");
        if (id == "TIT2")
            info.title = text;
        else if (id == "TPE1")
            info.artist = text;
        else if (id == "TCOM")
            info.author = text;
        else if (id == "TKEY")
            info.key = fresh.isEmpty() ? QString() : QStringLiteral("E-");
        else if (id == "TBPM")
            info.userBpm = 128;
        else
            info.length = 216;
    });
    QCOMPARE(file, tagOf(3, mark + fresh + album) + audio);
}

void TestMp3Edit::itemThatTheFormCanSayIsWrittenAnew_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<QByteArray>("old");
    QTest::addColumn<QByteArray>("fresh");
    const auto row = [](const char *name, int version, const QByteArray &old,
                        const QByteArray &fresh) {
        QTest::newRow(name) << version << old << fresh;
    };
    row("title", 3, id3Frame("TIT2", "Song"), id3Frame("TIT2", "Song"));
    row("title, zero behind it", 3, id3Frame("TIT2", QByteArray("Song\0", 5)),
        id3Frame("TIT2", "Song"));
    row("title, blanks around it", 3, id3Frame("TIT2", " Song "), id3Frame("TIT2", "Song"));
    row("title in UTF-8 that is ASCII", 4, frame("TIT2", "\x03Song"), id3Frame("TIT2", "Song"));
    row("empty title", 3, id3Frame("TIT2", ""), QByteArray());
    row("empty title of two bytes", 3, id3Frame("TIT2", QByteArray(2, '\0')), QByteArray());
    row("tempo", 3, id3Frame("TBPM", "+096 "), id3Frame("TBPM", "96"));
    row("tempo of zero", 3, id3Frame("TBPM", "0"), QByteArray());
    row("length of whole seconds", 3, id3Frame("TLEN", "215000"), id3Frame("TLEN", "215000"));
    row("length of zero", 3, id3Frame("TLEN", "0"), QByteArray());
    row("key", 3, id3Frame("TKEY", "F#-"), id3Frame("TKEY", "F#-"));
    row("read-only title", 3, QByteArray(id3Frame("TIT2", "Song")).replace(8, 1, "\x20"),
        id3Frame("TIT2", "Song"));
}

void TestMp3Edit::itemThatTheFormCanSayIsWrittenAnew()
{
    QFETCH(int, version);
    QFETCH(QByteArray, old);
    QFETCH(QByteArray, fresh);
    QCOMPARE(edited(tagOf(version, album + old) + audio, [](SongInfo &) {}),
             tagOf(version, mark + fresh + album) + audio);
}

void TestMp3Edit::catalogueIsMergedAsBefore()
{
    const QByteArray title = frame("TIT2", '\x01' + utf16(coffee));
    const QByteArray artist = frame("TPE1", QByteArray("\0One\0Two", 8));
    const QByteArray file = edited(
        tagOf(3, title + artist) + audio,
        [](SongInfo &info) {
            info.title = QStringLiteral("CAFFE NERO");
            info.altArtist = QStringLiteral("John One");
        },
        false);
    QCOMPARE(file, tagOf(3, mark + id3Frame("TPE1", "John One") + title) + audio);
}

void TestMp3Edit::unsynchronisationIsUndone_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QByteArray>("extended");
    QTest::newRow("plain tag") << 0x80 << QByteArray();
    QTest::newRow("experimental") << 0xA0 << QByteArray();
    QTest::newRow("extended header")
        << 0xC0 << bigEndian(10, 4) + QByteArray("\x80\0\0\0\0\0\xFF\xE6\x56\xFF", 10);
}

void TestMp3Edit::unsynchronisationIsUndone()
{
    QFETCH(int, flags);
    QFETCH(QByteArray, extended);
    const QByteArray comment = frame("COMM", '\x01' + QByteArray("eng") + utf16(QString()) +
                                                 QByteArray(2, '\0') + utf16(coffee));
    const QByteArray frames = picture + id3Frame("TALB", "\xFF\xFE Album") + comment;
    const QByteArray title = frame("TIT2", '\x01' + utf16(coffee));
    const QByteArray body = unsynchronised(extended + id3Frame("TPE1", "Someone") + frames + title);
    QVERIFY(body.size() > extended.size() + frames.size() + title.size() + 15);
    const QByteArray file = tagOf(3, body + QByteArray(50, '\0'), flags) + audio;
    QCOMPARE(info(file).artist, QStringLiteral("Someone"));
    QCOMPARE(genreEdited(file), tagOf(3,
                                      mark + id3Frame("TCON", "Pop") + id3Frame("TPE1", "Someone") +
                                          frames + title + QByteArray(50, '\0'),
                                      flags & 0x20) +
                                    audio);
}

void TestMp3Edit::flagWithoutUnsynchronisationGoesAlone()
{
    // FF E0 cannot stand in a tag that really is unsynchronised: nothing may be taken out of it.
    const QByteArray file = tagOf(3, album + picture, 0x80) + audio;
    QCOMPARE(genreEdited(file), tagOf(3, mark + id3Frame("TCON", "Pop") + album + picture) + audio);
}

void TestMp3Edit::flagWithoutUnsynchronisationGoesWithItsProof()
{
    // Only the genre's byte order mark proves the flag wrong. Without it the next reader would take
    // the zero out of the other frame.
    const QByteArray genre = frame("TCON", '\x01' + utf16(QStringLiteral("Rock")));
    const QByteArray other = frame("PRIV", QByteArray("maker\0\xFF\0data", 12));
    const QByteArray file = tagOf(3, genre + other, 0x80) + audio;
    QCOMPARE(genreEdited(file), tagOf(3, mark + id3Frame("TCON", "Pop") + other) + audio);
}

void TestMp3Edit::unsynchronisedFramesOfVersion4Stay()
{
    const QByteArray content = picture.mid(10);
    const QByteArray stuffed = unsynchronised(content);
    const QByteArray frames = "APIC" + groupedSize(static_cast<quint32>(stuffed.size() + 4)) +
                              QByteArray("\0\3", 2) +
                              groupedSize(static_cast<quint32>(content.size())) + stuffed + album;
    const QByteArray file = tagOf(4, frames, 0x80) + audio;
    QCOMPARE(genreEdited(file), tagOf(4, mark + id3Frame("TCON", "Pop") + frames, 0x80) + audio);
}

void TestMp3Edit::oldFrameWithoutSuccessorIsLeftOut_data()
{
    QTest::addColumn<QByteArray>("frame");
    const auto row = [](const char *id, const QByteArray &content) {
        QTest::newRow(id) << id + bigEndian(static_cast<quint32>(content.size()), 3) + content;
    };
    row("LNK", QByteArray("ULThttp://x\0", 12));
    row("CRM", QByteArray("me\0what\0\x12\x34", 10));
    row("PCS", QByteArray(4, '\0'));
    row("TDS", QByteArray("\0About it", 9));
    row("WFD", "http://x");
    row("XYZ", QByteArray());
}

void TestMp3Edit::oldFrameWithoutSuccessorIsLeftOut()
{
    QFETCH(QByteArray, frame);
    const QByteArray title = QByteArray("TT2\0\0\5\0Song", 11);
    const QByteArray artist = QByteArray("TP1\0\0\4\0One", 10);
    for (const QByteArray &frames :
         {frame + title + artist, title + frame + artist, title + artist + frame}) {
        const QByteArray file = tagOf(2, frames + QByteArray(20, '\0')) + audio;
        QCOMPARE(info(file).title, QStringLiteral("Song"));
        QCOMPARE(info(file).artist, QStringLiteral("One"));
        QCOMPARE(genreEdited(file),
                 tagOf(3, mark + id3Frame("TCON", "Pop") + id3Frame("TPE1", "One") +
                              id3Frame("TIT2", "Song")) +
                     audio);
    }
}

void TestMp3Edit::tagOfOnlyLeftOutFramesBecomesVersion3()
{
    const QByteArray file = tagOf(2, QByteArray("PCS\0\0\4\0\0\0\0", 10)) + audio;
    QCOMPARE(genreEdited(file), tagOf(3, mark + id3Frame("TCON", "Pop")) + audio);
}

void TestMp3Edit::sizesInAVersion4TagAreInGroups_data()
{
    QTest::addColumn<int>("length");
    for (const int length : {1, 126, 127, 128, 254, 255, 256, 300, 16383, 20000})
        QTest::addRow("%d", length) << length;
}

void TestMp3Edit::sizesInAVersion4TagAreInGroups()
{
    QFETCH(int, length);
    const QByteArray text(length, 'x');
    const QByteArray title =
        "TIT2" + groupedSize(static_cast<quint32>(length + 1)) + QByteArray(3, '\0') + text;
    const QByteArray file = tagOf(4, album + picture) + audio;
    const auto edit = [&](SongInfo &info) { info.title = QString::fromLatin1(text); };
    QCOMPARE(edited(file, edit), tagOf(4, mark + title + album + picture) + audio);
    QCOMPARE(info(readFile(path())).title, QString::fromLatin1(text));
    QCOMPARE(edited(readFile(path()), [](SongInfo &info) { info.title.clear(); }),
             tagOf(4, mark + album + picture) + audio);
}

void TestMp3Edit::footerGoesWithItsTag_data()
{
    QTest::addColumn<int>("otherFlags");
    QTest::newRow("footer alone") << 0;
    QTest::newRow("unsynchronised frames") << 0x80;
}

void TestMp3Edit::footerGoesWithItsTag()
{
    QFETCH(int, otherFlags);
    const QByteArray tag = tagOf(4, id3Frame("TIT2", "Song") + album, 0x10 | otherFlags);
    const QByteArray footer = "3DI" + tag.mid(3, 7);
    const QByteArray saved = genreEdited(tag + footer + audio);
    QCOMPARE(saved, tagOf(4, mark + id3Frame("TCON", "Pop") + id3Frame("TIT2", "Song") + album,
                          otherFlags) +
                        audio);
}

void TestMp3Edit::footerBehindALargeTagIsFound()
{
    // The tag ends where the part of the file ends that is searched for it.
    const qsizetype searched = 1000000;
    for (const qsizetype tagSize :
         {searched - 11, searched - 10, searched - 5, searched, searched + 10}) {
        const qsizetype filler = tagSize - 10 - 20 - 15;
        const QByteArray frames = "APIC" + groupedSize(static_cast<quint32>(filler + 10)) +
                                  QByteArray(2, '\0') + QByteArray(filler + 10, 'p') +
                                  id3Frame("TIT2", "Song");
        const QByteArray tag = tagOf(4, frames, 0x10);
        const QByteArray file = tag + "3DI" + tag.mid(3, 7) + audio;
        const QByteArray saved = edited(file, [](SongInfo &info) { info.title.clear(); });
        QVERIFY2(saved.endsWith(audio), qPrintable(QString::number(tagSize)));
        QCOMPARE(saved.size(), tag.size() - 15 + mark.size() + audio.size());
    }
}

void TestMp3Edit::flagWithoutFooterTakesNoAudio()
{
    const QByteArray frames = id3Frame("TIT2", "Song") + album;
    QCOMPARE(edited(tagOf(4, frames, 0x10) + audio, [](SongInfo &) {}),
             tagOf(4, mark + frames) + audio);
    // Cut off behind the tag: nothing is left to copy.
    QCOMPARE(edited(tagOf(4, frames, 0x10) + "3DI", [](SongInfo &) {}),
             tagOf(4, mark + frames) + "3DI");
    // Other versions have no footer; the flag means nothing there.
    const QByteArray old = tagOf(3, frames, 0x10);
    const QByteArray like = "3DI" + old.mid(3, 7) + audio;
    QCOMPARE(edited(old + like, [](SongInfo &) {}), tagOf(3, mark + frames, 0x10) + like);
}

void TestMp3Edit::framesBehindAnExtendedHeaderAreFoundInTheirPlaces()
{
    const QByteArray misleading = id3Frame("TALB", "TIT2 TPE1 TCON");
    const QByteArray title = frame("TIT2", '\x01' + utf16(coffee));
    const QByteArray extended = bigEndian(6, 4) + QByteArray(6, '\0');
    const QByteArray file = tagOf(3, extended + misleading + title + picture, 0x40) + audio;
    QCOMPARE(genreEdited(file),
             tagOf(3, mark + id3Frame("TCON", "Pop") + misleading + title + picture) + audio);
}

QTEST_APPLESS_MAIN(TestMp3Edit)
#include "test_mp3edit.moc"
