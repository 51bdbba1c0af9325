// MP3 files made by lame: edited by our facade, judged by id3v2 (the tag) and by lame (the audio).
#include "formats/metasong.h"
#include "support/mp3judges.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

using mp3judges::audioOf;
using mp3judges::run;
using samplesongs::readFile;

namespace
{

/** One second of a rising tone, 44100 Hz, 16 bits, mono, as a WAV file. */
QByteArray waveFile()
{
    constexpr int rate = 44100;
    QByteArray samples;
    for (int i = 0; i < rate; ++i) {
        const double time = static_cast<double>(i) / rate;
        const auto value = static_cast<int>(9000 * std::sin(2 * M_PI * (300 + 400 * time) * time));
        samples += songbytes::littleEndian(static_cast<quint32>(value) & 0xFFFF, 2);
    }
    const auto size = static_cast<quint32>(samples.size());
    return "RIFF" + songbytes::littleEndian(36 + size, 4) + "WAVEfmt " +
           songbytes::littleEndian(16, 4) + songbytes::littleEndian(1, 2) +
           songbytes::littleEndian(1, 2) + songbytes::littleEndian(rate, 4) +
           songbytes::littleEndian(2 * rate, 4) + songbytes::littleEndian(2, 2) +
           songbytes::littleEndian(16, 2) + "data" + songbytes::littleEndian(size, 4) + samples;
}

/** The smallest PNG picture there is: one grey dot. */
const QByteArray picture = QByteArray::fromHex(
    "89504e470d0a1a0a0000000d49484452000000010000000108000000003a7e9b550000000a494441"
    "54789c636000000002000148afa4710000000049454e44ae426082");

SongInfo infoOf(const QString &path)
{
    MetaSong song;
    SongInfo info;
    if (song.importFile(path))
        song.getSongInfo(info);
    return info;
}

} // namespace

class TestRealMp3 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void tagsOfLameAreRead();
    void editKeepsAudioAndForeignFrames_data();
    void editKeepsAudioAndForeignFrames();
    void everyFrameIsSeenById3v2();
    void frameEditedById3v2IsReadBack();
    void emptiedItemsAreGoneForId3v2();

private:
    QString path(const char *name) const { return m_dir->filePath(QString::fromLatin1(name)); }
    bool encode(const QStringList &tagOptions) const
    {
        return run(QStringLiteral("lame"), QStringList{QStringLiteral("--quiet")} + tagOptions +
                                               QStringList{path("tone.wav"), path("song.mp3")})
            .ok;
    }
    QStringList id3v2Frames() const { return mp3judges::id3v2Frames(path("song.mp3")); }
    QByteArray decoded() const { return mp3judges::decoded(path("song.mp3")); }
    bool edit(const SongInfo &info) const
    {
        MetaSong song;
        if (!song.importFile(path("song.mp3")))
            return false;
        song.setSongInfo(info, true);
        return song.saveToFile(path("song.mp3"));
    }

    QScopedPointer<QTemporaryDir> m_dir;
};

void TestRealMp3::initTestCase()
{
    QVERIFY2(run(QStringLiteral("lame"), {QStringLiteral("--version")}).ok, "lame is missing");
    QVERIFY2(run(QStringLiteral("id3v2"), {QStringLiteral("--version")}).ok, "id3v2 is missing");
}

void TestRealMp3::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    QVERIFY(samplesongs::writeFile(path("tone.wav"), waveFile()));
    QVERIFY(samplesongs::writeFile(path("dot.png"), picture));
}

void TestRealMp3::tagsOfLameAreRead()
{
    QVERIFY(encode({QStringLiteral("--id3v2-only"), QStringLiteral("--id3v2-latin1"),
                    QStringLiteral("--tt"), QStringLiteral("Blue Moon"), QStringLiteral("--ta"),
                    QStringLiteral("The Band"), QStringLiteral("--tg"), QStringLiteral("Rock"),
                    QStringLiteral("--tv"), QStringLiteral("TCOM=Bach"), QStringLiteral("--tv"),
                    QStringLiteral("TKEY=E-"), QStringLiteral("--tv"), QStringLiteral("TBPM=96"),
                    QStringLiteral("--tv"), QStringLiteral("TCOP=(c) k-ravo")}));
    const SongInfo info = infoOf(path("song.mp3"));
    QCOMPARE(info.format, QStringLiteral("MP3"));
    QCOMPARE(info.title, QStringLiteral("Blue Moon"));
    QCOMPARE(info.artist, QStringLiteral("The Band"));
    QCOMPARE(info.genre, QStringLiteral("Rock"));
    QCOMPARE(info.author, QStringLiteral("Bach"));
    QCOMPARE(info.key, QStringLiteral("E-"));
    QCOMPARE(info.userBpm, 96);
    QCOMPARE(info.length, 1);
    QVERIFY(info.isKravo);
}

void TestRealMp3::editKeepsAudioAndForeignFrames_data()
{
    QTest::addColumn<QStringList>("tagOptions");
    QTest::addColumn<QStringList>("foreignFrames");
    const QString v2 = QStringLiteral("--id3v2-only");
    const QString latin1 = QStringLiteral("--id3v2-latin1");
    const QString title = QStringLiteral("--tt");
    QTest::newRow("no tag") << QStringList{QStringLiteral("-t")} << QStringList();
    QTest::newRow("tag of version 1 behind the audio")
        << QStringList{QStringLiteral("--id3v1-only"), title, QStringLiteral("Old")}
        << QStringList();
    QTest::newRow("tags of both versions")
        << QStringList{QStringLiteral("--add-id3v2"), title, QStringLiteral("Old")}
        << QStringList();
    QTest::newRow("Latin-1 and padding")
        << QStringList{v2,
                       latin1,
                       title,
                       QStringLiteral("Old"),
                       QStringLiteral("--tl"),
                       QStringLiteral("Album"),
                       QStringLiteral("--tc"),
                       QStringLiteral("a comment"),
                       QStringLiteral("--pad-id3v2-size"),
                       QStringLiteral("1000")}
        << QStringList{QStringLiteral("TALB: Album"), QStringLiteral("COMM: ()[eng]: a comment")};
    QTest::newRow("UTF-16") << QStringList{v2,
                                           QStringLiteral("--id3v2-utf16"),
                                           title,
                                           QStringLiteral("Old"),
                                           QStringLiteral("--tl"),
                                           QStringLiteral("Album")}
                            << QStringList{QStringLiteral("TALB: Album")};
    QTest::newRow("picture, and frame names in a text")
        << QStringList{v2,
                       latin1,
                       QStringLiteral("--tl"),
                       QStringLiteral("TIT2 TKEY TBPM"),
                       QStringLiteral("--ti"),
                       QStringLiteral("dot.png")}
        << QStringList{QStringLiteral("TALB: TIT2 TKEY TBPM"),
                       QStringLiteral("APIC: ()[, 0]: image/png, 67 bytes")};
}

void TestRealMp3::editKeepsAudioAndForeignFrames()
{
    QFETCH(QStringList, tagOptions);
    QFETCH(QStringList, foreignFrames);
    tagOptions.replaceInStrings(QStringLiteral("dot.png"), path("dot.png"));
    QVERIFY(encode(tagOptions));
    const QByteArray audio = audioOf(readFile(path("song.mp3")));
    const QByteArray samples = decoded();
    QVERIFY(audio.size() > 1000);
    QVERIFY(samples.size() > 44100);

    SongInfo info;
    info.title = QStringLiteral("Blue Moon");
    info.userBpm = 128;
    info.key = QStringLiteral("F#-");
    // Longer, shorter and longer again: the audio moves each time.
    for (const int authorLength : {40, 3, 500}) {
        info.author = QString(authorLength, QLatin1Char('a'));
        QVERIFY(edit(info));
        QCOMPARE(audioOf(readFile(path("song.mp3"))), audio);
        QCOMPARE(decoded(), samples);
        const QStringList seen = id3v2Frames();
        QVERIFY(seen.contains(QStringLiteral("TIT2: Blue Moon")));
        QVERIFY(seen.contains(QStringLiteral("TCOM: ") + info.author));
        QVERIFY(seen.contains(QStringLiteral("TBPM: 128")));
        QVERIFY(seen.contains(QStringLiteral("TKEY: F#-")));
        for (const QString &frame : foreignFrames)
            QVERIFY2(seen.contains(frame), qPrintable(frame));
    }
    QCOMPARE(QDir(m_dir->path()).entryList({QStringLiteral("*.tmp")}), QStringList());
}

void TestRealMp3::everyFrameIsSeenById3v2()
{
    QVERIFY(encode({QStringLiteral("-t")}));
    SongInfo info;
    info.title = QStringLiteral("Citt") + QChar(0xE0);
    info.artist = QStringLiteral("The Band");
    info.author = QStringLiteral("Bach");
    info.genre = QStringLiteral("Polka");
    info.key = QStringLiteral("Bb");
    info.userBpm = 128;
    info.length = 215;
    QVERIFY(edit(info));
    QStringList seen = id3v2Frames();
    QCOMPARE(seen.filter(QStringLiteral("TIT2")),
             QStringList(QStringLiteral("TIT2: ") + info.title));
    QCOMPARE(seen.filter(QStringLiteral("TPE1")), QStringList(QStringLiteral("TPE1: The Band")));
    QCOMPARE(seen.filter(QStringLiteral("TCOM")), QStringList(QStringLiteral("TCOM: Bach")));
    QCOMPARE(seen.filter(QStringLiteral("TCON")), QStringList(QStringLiteral("TCON: Polka (75)")));
    QCOMPARE(seen.filter(QStringLiteral("TKEY")), QStringList(QStringLiteral("TKEY: Bb")));
    QCOMPARE(seen.filter(QStringLiteral("TBPM")), QStringList(QStringLiteral("TBPM: 128")));
    QCOMPARE(seen.filter(QStringLiteral("TLEN")), QStringList(QStringLiteral("TLEN: 215000")));
}

void TestRealMp3::frameEditedById3v2IsReadBack()
{
    QVERIFY(encode({QStringLiteral("-t")}));
    SongInfo info;
    info.title = QStringLiteral("Ours");
    info.length = 215;
    QVERIFY(edit(info));
    QVERIFY(run(QStringLiteral("id3v2"),
                {QStringLiteral("-2"), QStringLiteral("--TIT2"), QStringLiteral("Theirs"),
                 QStringLiteral("--TCOM"), QStringLiteral("Bach"), path("song.mp3")})
                .ok);
    const SongInfo after = infoOf(path("song.mp3"));
    QCOMPARE(after.title, QStringLiteral("Theirs"));
    QCOMPARE(after.author, QStringLiteral("Bach"));
    QCOMPARE(after.length, 215);
}

void TestRealMp3::emptiedItemsAreGoneForId3v2()
{
    QVERIFY(encode({QStringLiteral("--id3v2-only"), QStringLiteral("--id3v2-latin1"),
                    QStringLiteral("--tt"), QStringLiteral("Old"), QStringLiteral("--ta"),
                    QStringLiteral("Old"), QStringLiteral("--tl"), QStringLiteral("Album")}));
    const QByteArray samples = decoded();
    QVERIFY(edit(SongInfo()));
    const QStringList seen = id3v2Frames();
    QVERIFY(seen.filter(QStringLiteral("TIT2")).isEmpty());
    QVERIFY(seen.filter(QStringLiteral("TPE1")).isEmpty());
    QVERIFY(seen.filter(QStringLiteral("TLEN")).isEmpty());
    QCOMPARE(seen.filter(QStringLiteral("TALB")), QStringList(QStringLiteral("TALB: Album")));
    QCOMPARE(decoded(), samples);
}

QTEST_APPLESS_MAIN(TestRealMp3)
#include "test_realmp3.moc"
