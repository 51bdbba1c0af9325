// MP3 files as people have them, made by lame, ffmpeg and mutagen: after each edit, ffprobe,
// mutagen and id3v2 find every other frame, every picture and the audio as they were.
#include "formats/metasong.h"
#include "support/mp3judges.h"
#include "support/samplesongs.h"

#include <QJsonArray>
#include <QTemporaryDir>
#include <QTest>

#include <functional>

using mp3judges::run;
using samplesongs::readFile;

namespace
{

/** The smallest PNG picture there is: one grey dot. */
const QByteArray dot = QByteArray::fromHex(
    "89504e470d0a1a0a0000000d49484452000000010000000108000000003a7e9b550000000a494441"
    "54789c636000000002000148afa4710000000049454e44ae426082");

using Texts = QMap<QString, QString>;

Texts textsOf(const QJsonObject &object)
{
    Texts texts;
    for (auto item = object.begin(); item != object.end(); ++item)
        texts.insert(item.key(), item.value().toString());
    return texts;
}

/** What the judges see in a file. */
struct Seen {
    int version = 0;    ///< of the tag, by mutagen
    Texts frames;       ///< by mutagen, by their identifiers and descriptions
    QStringList id3v2;  ///< by id3v2, "TIT2: text"; of tags up to version 3
    Texts probed;       ///< the tags by ffprobe
    QByteArray streams; ///< the streams by ffprobe: codecs, sizes of pictures
    QByteArray packets; ///< check sums by ffmpeg of audio and pictures
};

QByteArray output(const QString &program, const QStringList &arguments)
{
    const mp3judges::ToolResult result = run(program, arguments);
    if (!result.ok)
        qWarning() << program << arguments << "failed";
    return result.output;
}

Seen seenIn(const QString &path)
{
    Seen seen;
    const QJsonObject tag =
        QJsonDocument::fromJson(output(QStringLiteral("/usr/bin/python3"),
                                       {QFINDTESTDATA("tools/tag_frames.py"), path}))
            .object();
    seen.version = tag.value(QStringLiteral("version")).toInt();
    seen.frames = textsOf(tag.value(QStringLiteral("frames")).toObject());
    if (seen.version == 3)
        seen.id3v2 = mp3judges::id3v2Frames(path);
    const QByteArray probed =
        output(QStringLiteral("ffprobe"),
               {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_entries"),
                QStringLiteral("format_tags:stream_tags:stream=codec_name,width,height,"
                               "sample_rate,channels"),
                QStringLiteral("-of"), QStringLiteral("json"), path});
    const QJsonObject probe = QJsonDocument::fromJson(probed).object();
    seen.probed = textsOf(
        probe.value(QStringLiteral("format")).toObject().value(QStringLiteral("tags")).toObject());
    seen.streams = QJsonDocument(probe.value(QStringLiteral("streams")).toArray()).toJson();
    seen.packets = output(QStringLiteral("ffmpeg"),
                          {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"),
                           path, QStringLiteral("-map"), QStringLiteral("0"), QStringLiteral("-c"),
                           QStringLiteral("copy"), QStringLiteral("-f"),
                           QStringLiteral("streamhash"), QStringLiteral("-")});
    return seen;
}

/** Without the frames of these identifiers and our own mark. */
Seen without(Seen seen, const QStringList &ids)
{
    const QMap<QString, QString> names = {{QStringLiteral("TCON"), QStringLiteral("genre")},
                                          {QStringLiteral("TIT2"), QStringLiteral("title")}};
    for (const QString &id : ids + QStringList(QStringLiteral("MEDT"))) {
        seen.frames.remove(id);
        seen.probed.remove(names.value(id));
        for (const QString &line : seen.id3v2.filter(id + QLatin1Char(':')))
            seen.id3v2.removeAll(line);
    }
    seen.id3v2.sort();
    return seen;
}

} // namespace

class TestFoundMp3 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void editKeepsWhatItDoesNotChange_data();
    void editKeepsWhatItDoesNotChange();

private:
    QString path(const char *name) const { return m_dir.filePath(QString::fromLatin1(name)); }
    bool make(const QString &maker, const QStringList &arguments) const;
    bool edit(const std::function<void(SongInfo &)> &change) const;

    QTemporaryDir m_dir;
    QByteArray m_audio;
};

void TestFoundMp3::initTestCase()
{
    for (const char *tool : {"ffmpeg", "ffprobe"})
        QVERIFY2(run(QString::fromLatin1(tool), {QStringLiteral("-version")}).ok, tool);
    QVERIFY2(run(QStringLiteral("id3v2"), {QStringLiteral("--version")}).ok, "id3v2 is missing");
    QVERIFY2(mp3judges::hasMutagen(), "mutagen is missing");
    QVERIFY2(samplesongs::makeMp3(path("plain.mp3"), {}, 1), "lame is missing");
    m_audio = mp3judges::audioOf(readFile(path("plain.mp3")));
    QVERIFY(m_audio.startsWith('\xFF') && m_audio.size() > 1000);
    QVERIFY(samplesongs::writeFile(path("plain.mp3"), m_audio));
    QVERIFY(samplesongs::writeFile(path("dot.png"), dot));
}

void TestFoundMp3::cleanup()
{
    QFile::remove(path("song.mp3"));
}

bool TestFoundMp3::make(const QString &maker, const QStringList &arguments) const
{
    if (maker == QLatin1String("mutagen"))
        return run(QStringLiteral("/usr/bin/python3"),
                   QStringList{QFINDTESTDATA("tools/make_tag.py")} + arguments +
                       QStringList{path("plain.mp3"), path("song.mp3")})
            .ok;
    if (maker == QLatin1String("ffmpeg"))
        return run(maker,
                   QStringList{QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"),
                               path("plain.mp3"), QStringLiteral("-i"), path("dot.png"),
                               QStringLiteral("-map"), QStringLiteral("0"), QStringLiteral("-map"),
                               QStringLiteral("1"), QStringLiteral("-c"), QStringLiteral("copy")} +
                       arguments + QStringList(path("song.mp3")))
            .ok;
    return run(maker, QStringList{QStringLiteral("--quiet"), QStringLiteral("--mp3input")} +
                          arguments +
                          QStringList{QStringLiteral("--ti"), path("dot.png"), path("plain.mp3"),
                                      path("song.mp3")})
        .ok;
}

bool TestFoundMp3::edit(const std::function<void(SongInfo &)> &change) const
{
    MetaSong song;
    if (!song.importFile(path("song.mp3")))
        return false;
    SongInfo info;
    song.getSongInfo(info);
    change(info);
    song.setSongInfo(info, true);
    return song.saveToFile(path("song.mp3"));
}

void TestFoundMp3::editKeepsWhatItDoesNotChange_data()
{
    QTest::addColumn<QString>("maker");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("frames");        ///< how many mutagen sees at least
    QTest::addColumn<QString>("reference"); ///< the same frames in a form that ffprobe reads
    const auto words = [](const char *text) {
        return QString::fromUtf8(text).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    };
    const auto mutagen = [&words](const char *kind, int frames, const char *reference = nullptr) {
        QTest::newRow(kind) << QStringLiteral("mutagen") << words(kind) << frames
                            << QString::fromLatin1(reference == nullptr ? kind : reference);
    };
    for (const char *kind : {"v23-utf16", "v24-utf8", "v24-utf16", "v23-extended", "v24-extended"})
        mutagen(kind, 14);
    mutagen("v24-special", 5);
    mutagen("v24-footer", 5);
    mutagen("v22", 5);
    mutagen("v22-podcast", 5, "v22");
    // In tags of these versions ffprobe takes the inserted zeros for a part of the frames.
    mutagen("v23-unsynchronised", 14, "v23-utf16");
    mutagen("v22-unsynchronised", 5, "v22");

    const auto row = [](const char *name, const char *maker, const QStringList &arguments,
                        int frames) {
        QTest::newRow(name) << QString::fromLatin1(maker) << arguments << frames << QString();
    };
    const char metadata[] = "-metadata|title=Caffè nero|-metadata|artist=Łukasz|-metadata|"
                            "TBPM=128.00|-metadata|TKEY=Am|-metadata|album=Città|-metadata|"
                            "comment=nota|-metadata|date=1987";
    row("ffmpeg, version 3", "ffmpeg", words("-id3v2_version|3|-write_id3v1|1") + words(metadata),
        7);
    row("ffmpeg, version 4", "ffmpeg", words("-id3v2_version|4") + words(metadata), 7);
    row("lame, UTF-16", "lame",
        words("--add-id3v2|--id3v2-utf16|--tt|Caffè nero|--ta|Łukasz|--tl|Città|--tv|"
              "TBPM=128.00|--tv|TKEY=Am|--tc|nota"),
        6);
    row("lame, Latin-1 and padding", "lame",
        words("--id3v2-only|--id3v2-latin1|--tt|Nero|--ta|Zoe|--tl|Album|--tv|TBPM=128.00|"
              "--pad-id3v2-size|500"),
        4);
}

void TestFoundMp3::editKeepsWhatItDoesNotChange()
{
    QFETCH(QString, maker);
    QFETCH(QStringList, arguments);
    QFETCH(int, frames);
    QFETCH(QString, reference);
    Seen before;
    if (!reference.isEmpty()) {
        QVERIFY(make(maker, {reference}));
        before = seenIn(path("song.mp3"));
    }
    if (reference.isEmpty() || reference != arguments.first()) {
        QVERIFY(make(maker, arguments));
        const Seen made = seenIn(path("song.mp3"));
        before.version = made.version;
        before.frames = made.frames;
        before.id3v2 = made.id3v2;
        if (reference.isEmpty())
            before = made;
    }
    // Version 3 has no frames of the layouts that these have in version 2.
    for (const QString &name : before.frames.keys()) {
        if (name.startsWith(QLatin1String("PCS")) || name.startsWith(QLatin1String("LINK")))
            before.frames.remove(name);
    }
    QVERIFY(before.frames.size() >= frames);
    QVERIFY(before.frames.keys().filter(QStringLiteral("APIC")).size() >= 1);
    QCOMPARE(before.packets.count(",a,"), 1);
    QVERIFY(before.packets.count(",v,") >= 1);
    const QByteArray audio = maker == QLatin1String("mutagen")
                                 ? m_audio
                                 : mp3judges::audioOf(readFile(path("song.mp3")));
    QVERIFY(audio.size() > 1000);

    struct Edit {
        QString id;
        QString tag;
        QString text;
    };
    const QString longTitle = QStringLiteral("Ancora più nero ").repeated(20).trimmed();
    const Edit edits[] = {
        {QStringLiteral("TCON"), QStringLiteral("genre"), QStringLiteral("Zouk lento")},
        {QStringLiteral("TIT2"), QStringLiteral("title"), longTitle},
        {QStringLiteral("TIT2"), QStringLiteral("title"), QString()}};
    QStringList changed;
    for (const Edit &made : edits) {
        QVERIFY(edit([&made](SongInfo &info) {
            (made.id == QLatin1String("TCON") ? info.genre : info.title) = made.text;
        }));
        changed.append(made.id);
        const Seen after = seenIn(path("song.mp3"));
        QVERIFY(after.frames.contains(QStringLiteral("MEDT")));
        QVERIFY(after.frames.value(made.id).contains(made.text));
        QCOMPARE(after.frames.contains(made.id), !made.text.isEmpty());
        QCOMPARE(after.probed.value(made.tag), made.text);

        const Seen kept = without(after, changed);
        const Seen expected = without(before, changed);
        QCOMPARE(after.version, before.version == 2 ? 3 : before.version);
        QCOMPARE(kept.frames, expected.frames);
        if (before.version == 3)
            QCOMPARE(kept.id3v2, expected.id3v2);
        QCOMPARE(kept.probed, expected.probed);
        QCOMPARE(kept.streams, expected.streams);
        QCOMPARE(kept.packets, expected.packets);
        QCOMPARE(mp3judges::audioOf(readFile(path("song.mp3"))), audio);
    }
}

QTEST_APPLESS_MAIN(TestFoundMp3)
#include "test_foundmp3.moc"
