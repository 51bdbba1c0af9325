// MP3 files with tags by TagLib: prepared for the player, mutagen finds every other frame as it
// was, and TagLib the texts that were written.
#include "formats/mp3preparation.h"
#include "support/mp3judges.h"
#include "support/samplesongs.h"

#include <QTemporaryDir>
#include <QTest>

#include <taglib/apetag.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/commentsframe.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>
#include <taglib/textidentificationframe.h>

using mp3judges::run;
using samplesongs::readFile;

namespace
{

TagLib::String unicode(const char *text)
{
    return TagLib::String(text, TagLib::String::UTF8);
}

void addFrames(TagLib::ID3v2::Tag &tag, TagLib::String::Type encoding, int pictureSize)
{
    TagLib::ID3v2::FrameFactory::instance()->setDefaultTextEncoding(encoding);
    tag.setTitle(unicode("Čárový “zvon”"));
    tag.setArtist(unicode("Ζορμπάς"));
    tag.setAlbum(unicode("Čárový album"));
    tag.setGenre("Polka");
    tag.setYear(1987);
    auto *const author = new TagLib::ID3v2::TextIdentificationFrame("TCOM", encoding);
    author->setText(unicode("Чайковский"));
    tag.addFrame(author);
    auto *const picture = new TagLib::ID3v2::AttachedPictureFrame;
    picture->setTextEncoding(encoding);
    picture->setMimeType("image/jpeg");
    picture->setDescription(unicode("vorne ž"));
    QByteArray bytes(pictureSize, '\0');
    for (int i = 0; i < pictureSize; ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 251);
    picture->setPicture(
        TagLib::ByteVector(bytes.constData(), static_cast<unsigned int>(bytes.size())));
    tag.addFrame(picture);
    auto *const comment = new TagLib::ID3v2::CommentsFrame(encoding);
    comment->setLanguage("ita");
    comment->setDescription(unicode("ž"));
    comment->setText(unicode("Città").substr(0, 200));
    tag.addFrame(comment);
}

} // namespace

class TestTagLibMp3 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyOtherFrameStays_data();
    void everyOtherFrameStays();
    void tagsBehindTheAudioAreBroughtToTheFront_data();
    void tagsBehindTheAudioAreBroughtToTheFront();

private:
    QString path(const char *name) const { return m_dir.filePath(QString::fromLatin1(name)); }

    QTemporaryDir m_dir;
    QByteArray m_audio;
};

void TestTagLibMp3::initTestCase()
{
    QVERIFY2(mp3judges::hasMutagen(), "mutagen is missing");
    QVERIFY2(samplesongs::makeMp3(path("plain.mp3"), {}, 1), "lame is missing");
    m_audio = mp3judges::audioOf(readFile(path("plain.mp3")));
    QVERIFY(m_audio.size() > 1000);
}

void TestTagLibMp3::everyOtherFrameStays_data()
{
    QTest::addColumn<int>("version");
    QTest::addColumn<int>("encoding");
    QTest::addColumn<int>("pictureSize");
    QTest::newRow("version 3") << 3 << int{TagLib::String::UTF16} << 5000;
    QTest::newRow("version 4, UTF-8") << 4 << int{TagLib::String::UTF8} << 5000;
    QTest::newRow("version 4, UTF-16") << 4 << int{TagLib::String::UTF16} << 5000;
    QTest::newRow("version 4, big-endian") << 4 << int{TagLib::String::UTF16BE} << 5000;
    QTest::newRow("version 3, large picture") << 3 << int{TagLib::String::UTF16} << 2000000;
    QTest::newRow("version 4, large picture") << 4 << int{TagLib::String::UTF8} << 2000000;
}

void TestTagLibMp3::everyOtherFrameStays()
{
    QFETCH(int, version);
    QFETCH(int, encoding);
    QFETCH(int, pictureSize);
    const QString song = path("song.mp3");
    QVERIFY(samplesongs::writeFile(song, m_audio));
    {
        TagLib::MPEG::File file(QFile::encodeName(song).constData(), false);
        addFrames(*file.ID3v2Tag(true), static_cast<TagLib::String::Type>(encoding), pictureSize);
        QVERIFY(file.save(TagLib::MPEG::File::ID3v2, TagLib::File::StripNone,
                          version == 3 ? TagLib::ID3v2::v3 : TagLib::ID3v2::v4));
    }
    QCOMPARE(mp3judges::audioOf(readFile(song)), m_audio);
    QVERIFY(samplesongs::writeFile(path("before.mp3"), readFile(song)));

    const auto preparation = Mp3Preparation::of(song);
    QVERIFY(preparation);
    QVERIFY(preparation->troubles().testFlag(TagTrouble::Encoding));
    QCOMPARE(preparation->said().title, QString::fromUtf8("Čárový “zvon”"));
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::None);
    QCOMPARE(mp3judges::audioOf(readFile(song)), m_audio);
    QCOMPARE(Mp3Preparation::of(song)->troubles(), TagTroubles());

    QStringList arguments{QFINDTESTDATA("tools/same_frames.py"), path("before.mp3"), song};
    for (const char *id : {"TIT2", "TPE1", "TCON", "TCOM"})
        arguments.append(QString::fromLatin1(id));
    const mp3judges::ToolResult same = run(QStringLiteral("/usr/bin/python3"), arguments);
    QVERIFY2(same.ok, same.output.constData());

    TagLib::MPEG::File file(QFile::encodeName(song).constData(), false);
    const TagLib::ID3v2::Tag &tag = *file.ID3v2Tag();
    QCOMPARE(tag.header()->majorVersion(), 3U);
    QCOMPARE(QString::fromStdString(tag.title().to8Bit(true)),
             QString::fromUtf8("Cárový \"zvon\""));
    QCOMPARE(QString::fromStdString(tag.artist().to8Bit(true)), QString::fromUtf8("Zormpás"));
    QCOMPARE(QString::fromStdString(tag.album().to8Bit(true)), QString::fromUtf8("Čárový album"));
    QCOMPARE(tag.frameList("APIC").size(), 1U);
    QCOMPARE(static_cast<int>(dynamic_cast<const TagLib::ID3v2::AttachedPictureFrame *>(
                                  tag.frameList("APIC").front())
                                  ->picture()
                                  .size()),
             pictureSize);
}

void TestTagLibMp3::tagsBehindTheAudioAreBroughtToTheFront_data()
{
    QTest::addColumn<int>("kinds");
    QTest::addColumn<QString>("title");
    QTest::newRow("ID3v1") << int{TagLib::MPEG::File::ID3v1} << QString::fromUtf8("Città");
    QTest::newRow("APE") << int{TagLib::MPEG::File::APE} << QString::fromUtf8("Carovy zvon è");
    QTest::newRow("both") << (TagLib::MPEG::File::APE | TagLib::MPEG::File::ID3v1)
                          << QString::fromUtf8("Carovy zvon è");
}

void TestTagLibMp3::tagsBehindTheAudioAreBroughtToTheFront()
{
    QFETCH(int, kinds);
    const QString song = path("song.mp3");
    QVERIFY(samplesongs::writeFile(song, m_audio));
    {
        TagLib::MPEG::File file(QFile::encodeName(song).constData(), false);
        if ((kinds & TagLib::MPEG::File::APE) != 0)
            file.APETag(true)->setTitle(unicode("Čarový zvon è").substr(0, 4) +
                                        unicode("vy zvon è"));
        if ((kinds & TagLib::MPEG::File::ID3v1) != 0)
            file.ID3v1Tag(true)->setTitle(unicode("Città"));
        QVERIFY(file.save(kinds, TagLib::File::StripNone, TagLib::ID3v2::v4,
                          TagLib::File::DoNotDuplicate));
    }
    const QByteArray before = readFile(song);
    QVERIFY(before.size() > m_audio.size());
    const auto preparation = Mp3Preparation::of(song);
    QVERIFY(preparation);
    QTEST(preparation->proposed().title, "title");
    QCOMPARE(preparation->write(preparation->proposed()), SaveFailure::None);
    QCOMPARE(mp3judges::audioOf(readFile(song)), before);
}

QTEST_APPLESS_MAIN(TestTagLibMp3)
#include "test_taglibmp3.moc"
