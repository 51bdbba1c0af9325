// Whole batches of real songs, synchronised and edited, judged by programs of others: midicsv reads
// the MIDI files and MFX payloads, id3v2 and mutagen the tags, lame the audio.
#include "library/answer.h"
#include "library/songeditor.h"
#include "library/synchronisation.h"
#include "support/librarytable.h"
#include "support/lzhufreference.h"
#include "support/midicsv.h"
#include "support/mp3judges.h"
#include "support/recordedprogress.h"
#include "support/songbytes.h"

#include <QTest>
#include <QtEndian>

using namespace songbytes;

namespace
{

const QStringList ourFrames =
    QStringLiteral("TIT2 TPE1 TCON TCOM TKEY TBPM TLEN").split(QLatin1Char(' '));

/** The song with the publisher's signature, which lets key, length and tempo be written. */
QByteArray signedMidi(QByteArray midi)
{
    const QByteArray signature = metaEvent(0x02, "(c) 2012 K-Ravo");
    const qsizetype lengthPos = midi.indexOf("MTrk") + 4;
    const auto length = qFromBigEndian<quint32>(midi.constData() + lengthPos);
    midi.replace(lengthPos, 4, bigEndian(length + static_cast<quint32>(signature.size()), 4));
    return midi.insert(lengthPos + 4, signature);
}

/** The MIDI data in an MFX file, expanded by the reference coder. */
QByteArray mfxPayload(const QByteArray &file)
{
    const qsizetype headerSize = file.startsWith("_MF5") ? 1024 : 512;
    const auto size = qFromLittleEndian<quint32>(file.constData() + headerSize);
    QByteArray midi =
        lzhufreference::decode(file.mid(headerSize + 4), size, lzhufreference::mfxLookAhead).text;
    if (file.startsWith("_MF4"))
        midi.remove(midi.indexOf("MTrk") + 8, 3);
    return midi;
}

// Tags that lame does not write, in front of its audio.

/** A tag size or, in version 4, a frame size: seven bits in each of four bytes. */
QByteArray grouped(qsizetype size)
{
    QByteArray out;
    for (int shift = 21; shift >= 0; shift -= 7)
        out.append(static_cast<char>((size >> shift) & 0x7F));
    return out;
}

QByteArray tagOf(int version, int flags, const QByteArray &frames)
{
    return QByteArray("ID3") + static_cast<char>(version) + '\0' + static_cast<char>(flags) +
           grouped(frames.size()) + frames;
}

QByteArray version2Frame(const QByteArray &id, const QByteArray &content)
{
    return id + bigEndian(static_cast<quint32>(content.size()), 3) + content;
}

QByteArray version4Frame(const QByteArray &id, const QByteArray &content)
{
    return id + grouped(content.size()) + QByteArray(2, '\0') + content;
}

/** Bytes that stand for a picture; names of frames are among them. */
QByteArray picture(qsizetype size)
{
    return ("\x89PNG TIT2 TPE1 " + QByteArray(200, '\xA5')).repeated(size / 200).left(size);
}

const QByteArray version2Tag =
    tagOf(2, 0,
          version2Frame("TT2", QByteArray("\0Old title", 10)) +
              version2Frame("TP1", QByteArray("\0Old artist", 11)) +
              version2Frame("TAL", QByteArray("\0Old album", 10)) +
              version2Frame("COM", QByteArray("\0eng\0a comment", 14)) +
              version2Frame("PIC", QByteArray("\0PNG\3cover\0", 11) + picture(5000)) +
              QByteArray(100, '\0'));

const QByteArray version4Tag = tagOf(
    4, 0,
    version4Frame("TIT2", "\3Old title") + version4Frame("TALB", "\3" + QByteArray(300, 'a')) +
        version4Frame("TDRC", "\3"
                              "2004-05-06") +
        version4Frame("APIC", QByteArray("\3image/png\0\3cover\0", 18) + picture(5000)));

const QByteArray extendedTag =
    tagOf(3, 0x40,
          bigEndian(6, 4) + QByteArray(6, '\0') + id3Frame("TIT2", "Old title") +
              id3Frame("TALB", "Old album"));

const QByteArray picturesTag = tagOf(
    3, 0,
    id3Frame("TALB", "Old album") + "APIC" + bigEndian(700018, 4) + QByteArray(2, '\0') +
        QByteArray("\0image/png\0\3cover\0", 18) + picture(700000) + id3Frame("TIT2", "Old title"));

struct Mp3 {
    QString name;
    QStringList lameOptions;
    QByteArray ownTag; ///< in front of what lame wrote
};

QList<Mp3> mp3s()
{
    const auto options = [](const char *text) {
        return QString::fromLatin1(text).split(QLatin1Char('|'));
    };
    const QStringList none{QStringLiteral("-t")};
    return {
        {QStringLiteral("none.mp3"), none, {}},
        {QStringLiteral("latin1.mp3"),
         options("--id3v2-only|--id3v2-latin1|--tt|Old|--tl|Album|--tc|a comment|--tv|TCOP=K-Ravo"),
         {}},
        {QStringLiteral("utf16.mp3"),
         options("--id3v2-only|--id3v2-utf16|--tt|Old|--tl|Album"),
         {}},
        {QStringLiteral("v1.mp3"), options("--id3v1-only|--tt|Old|--ta|Old artist"), {}},
        {QStringLiteral("both.mp3"), options("--add-id3v2|--tt|Old|--tl|Album|--ty|1999"), {}},
        {QStringLiteral("version2.mp3"), none, version2Tag},
        {QStringLiteral("version4.mp3"), none, version4Tag},
        {QStringLiteral("extended.mp3"), none, extendedTag},
        {QStringLiteral("pictures.mp3"), options("--id3v1-only|--tt|Old"), picturesTag},
    };
}

catalogue::Row rowFor(const QString &fileName)
{
    catalogue::Row row;
    row.filename = fileName.left(fileName.lastIndexOf(QLatin1Char('.'))).toUpper();
    row.title = QStringLiteral("CITTÀ, \"NR. 1\"");
    row.artist = QStringLiteral("DOE JOHN");
    row.altartist = QStringLiteral("JOHN DOE");
    row.genre = QStringLiteral("CAFÉ");
    row.author = QStringLiteral("GRÖSSE - ÉTÉ");
    row.length = 215;
    row.bpm = 97;
    row.key = QStringLiteral("F# -");
    row.markers = QStringLiteral("1;Intro;19;Strophe 1;4660;Coda;");
    return row;
}

} // namespace

class TestSavedSongs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void judgesAgreeAfterEachPass();

private:
    bool addSongs(LibraryTable &library);
    void judgeMidi(const QByteArray &before, const QByteArray &now, const SongInfo &song);
    void judgeMp3(const QString &path, const SongInfo &song);
    void judge(LibraryTable &library);

    struct Mp3Before {
        QByteArray audio;
        QByteArray samples;
        mp3judges::MutagenTag tag;
    };
    QMap<QString, QByteArray> m_midis; ///< as they were before anything was saved
    QMap<QString, Mp3Before> m_mp3s;
    QTemporaryDir m_folder;
};

void TestSavedSongs::initTestCase()
{
    QVERIFY(m_folder.isValid());
    QVERIFY2(samplesongs::installedMidiFiles().size() > 20, "openttd-openmsx is missing");
    for (const char *tool : {"lame", "id3v2"}) {
        QVERIFY2(mp3judges::run(QString::fromLatin1(tool), {QStringLiteral("--version")}).ok, tool);
    }
    QVERIFY2(mp3judges::hasMutagen(), "python3-mutagen is missing");
}

bool TestSavedSongs::addSongs(LibraryTable &library)
{
    const QStringList installed = samplesongs::installedMidiFiles();
    bool added = true;
    for (int i = 0; i < 8; ++i) {
        const QByteArray song = samplesongs::readFile(installed.at(i));
        const QByteArray bytes = i % 2 == 0 ? song : signedMidi(song);
        const QString name = QStringLiteral("midi%1.mid").arg(i);
        m_midis.insert(name, bytes);
        added = added && library.add(name, bytes);
    }
    for (const char *magic : {"_MF3", "_MF4", "_MF5"}) {
        const QByteArray midi = samplesongs::readFile(installed.at(magic[3] - '0'));
        const QString name = QStringLiteral("mfx.%1").arg(QLatin1String(magic + 1)).toLower();
        m_midis.insert(name, midi);
        added = added && library.add(name, samplesongs::mfxBytes(magic, midi, {}));
    }
    const QString tune = m_folder.filePath(QStringLiteral("tune.mp3"));
    const QString wave = tune + QStringLiteral(".wav");
    added = added && samplesongs::makeMp3(tune, {}) &&
            mp3judges::run(QStringLiteral("lame"),
                           {QStringLiteral("--quiet"), QStringLiteral("--decode"), tune, wave})
                .ok;
    for (const Mp3 &mp3 : mp3s()) {
        added = added && mp3judges::run(QStringLiteral("lame"),
                                        QStringList{QStringLiteral("--quiet")} + mp3.lameOptions +
                                            QStringList{wave, tune})
                             .ok;
        added = added && library.add(mp3.name, mp3.ownTag + samplesongs::readFile(tune));
        const QString path = library.path(mp3.name);
        m_mp3s.insert(mp3.name, {mp3judges::audioOf(library.bytes(mp3.name)),
                                 mp3judges::decoded(path), mp3judges::mutagenTag(path)});
    }
    return added;
}

void TestSavedSongs::judgeMidi(const QByteArray &before, const QByteArray &now,
                               const SongInfo &song)
{
    const QString path = m_folder.filePath(QStringLiteral("judged.mid"));
    QVERIFY(samplesongs::writeFile(path, before));
    const midicsv::Records music = midicsv::withHead(midicsv::recordsOf(path));
    QVERIFY(music.size() > 100);
    QVERIFY(samplesongs::writeFile(path, now));
    const midicsv::Records records = midicsv::recordsOf(path);
    midicsv::compareRecords(midicsv::withHead(records), music);

    bool found = false;
    const QByteArray title = midicsv::firstOf(records, "Title_t", found);
    if (song.format == QLatin1String("MIDI"))
        QCOMPARE(midicsv::textOf(title), song.title);
    const QByteArray key = midicsv::firstOf(records, "Key_signature", found);
    QCOMPARE(found ? midicsv::keyName(key) : QString(), song.key);
    QCOMPARE(song.markers.size(), 3);
    for (const Marker &marker : song.markers) {
        const QByteArray payload = bigEndian(marker.bar, 2) + marker.text.toLatin1();
        QVERIFY(records.contains(midicsv::kravoRecord(6, payload)));
    }
}

void TestSavedSongs::judgeMp3(const QString &path, const SongInfo &song)
{
    const Mp3Before &before = m_mp3s[song.shortName];
    QCOMPARE(mp3judges::audioOf(samplesongs::readFile(path)), before.audio);
    QVERIFY(before.samples.size() > 44100);
    QCOMPARE(mp3judges::decoded(path), before.samples);

    const mp3judges::MutagenTag tag = mp3judges::mutagenTag(path);
    QCOMPARE(tag.version, before.tag.version == 4 ? 4 : 3);
    QCOMPARE(tag.unread, 1); // our mark of an edited file
    for (auto frame = before.tag.frames.begin(); frame != before.tag.frames.end(); ++frame) {
        if (!ourFrames.contains(frame.key()))
            QCOMPARE(tag.frames.value(frame.key()), frame.value());
    }
    const QMap<QString, QString> ours = {
        {QStringLiteral("TIT2"), song.title},
        {QStringLiteral("TPE1"), song.artist},
        {QStringLiteral("TCON"), song.genre},
        {QStringLiteral("TCOM"), song.author},
        {QStringLiteral("TKEY"), song.key},
        {QStringLiteral("TBPM"), song.userBpm > 0 ? QString::number(song.userBpm) : QString()}};
    // Milliseconds that a file had before are not rounded.
    QCOMPARE(tag.frames.value(QStringLiteral("TLEN")).toInt() / 1000, song.length);
    const QStringList seen = mp3judges::id3v2Frames(path);
    for (auto item = ours.begin(); item != ours.end(); ++item) {
        // A UTF-16 text that was there before shows as the bytes of its mark to us; it stays.
        const bool isOld = item.value().startsWith(QStringLiteral("\u00FF\u00FE"));
        const QString text = isOld ? before.tag.frames.value(item.key()) : item.value();
        QCOMPARE(tag.frames.value(item.key()), text);
        // id3v2 knows nothing of version 4; behind a genre it adds the number of the kind.
        const QString line = item.key() + QStringLiteral(": ") + text;
        if (tag.version == 3 && !text.isEmpty())
            QVERIFY2(!seen.filter(line).isEmpty(), qPrintable(line));
    }
}

void TestSavedSongs::judge(LibraryTable &library)
{
    for (auto midi = m_midis.cbegin(); midi != m_midis.cend(); ++midi) {
        const QByteArray file = library.bytes(midi.key());
        const QByteArray now = file.startsWith("_MF") ? mfxPayload(file) : file;
        judgeMidi(*midi, now, library.song(midi.key()));
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(midi.key()));
    }
    for (const QString &name : m_mp3s.keys()) {
        judgeMp3(library.path(name), library.song(name));
        QVERIFY2(!QTest::currentTestFailed(), qPrintable(name));
    }
}

void TestSavedSongs::judgesAgreeAfterEachPass()
{
    QList<catalogue::Row> rows;
    for (const Mp3 &mp3 : mp3s())
        rows.append(rowFor(mp3.name));
    for (int i = 0; i < 8; ++i)
        rows.append(rowFor(QStringLiteral("midi%1.mid").arg(i)));
    rows.append(rowFor(QStringLiteral("mfx.mf3")));
    LibraryTable library(rows);
    QVERIFY(library.isGood() && addSongs(library));
    QCOMPARE(m_midis.size() + m_mp3s.size(), 20);

    ProgressRecord progress;
    Synchronisation synchronisation(
        library.database, library.model(), [] { return true; },
        [](const QString &) -> Answer { return Answer::YesToAll; }, recordedBy(progress));
    QVERIFY(synchronisation.run(false));
    QCOMPARE(library.statuses(), QList<int>(20, Database::StatusSynced));
    QCOMPARE(library.song(QStringLiteral("midi1.mid")).userBpm, 97);
    QCOMPARE(library.song(QStringLiteral("latin1.mp3")).key, QStringLiteral("F# -"));
    QCOMPARE(library.song(QStringLiteral("none.mp3")).artist, QStringLiteral("JOHN DOE"));
    QCOMPARE(library.song(QStringLiteral("latin1.mp3")).userBpm, 97);
    judge(library);

    SongEdit edit;
    SongEditor editor(
        library.model(),
        [&edit](const SongInfo &info) {
            edit.info = info;
            edit.info.title = QStringLiteral("Ein \"neuer\" Titel");
            edit.info.artist = QStringLiteral("Größer, Ärger & Co.");
            edit.info.genre = QStringLiteral("Canção");
            edit.info.author = QStringLiteral("Anonyme");
            edit.info.key = QStringLiteral("Bb");
            edit.info.length = 0x7FFF;
            edit.info.userBpm = 255;
            edit.titleToAll = edit.artistToAll = edit.genreToAll = edit.authorToAll = true;
            return edit;
        },
        [] { return false; }, recordedBy(progress));
    QVERIFY(editor.edit(0));
    QCOMPARE(library.statuses(), QList<int>(20, Database::StatusEdited));
    for (const QString &name : m_midis.keys() + m_mp3s.keys()) {
        QCOMPARE(library.song(name).artist, edit.info.artist);
        QCOMPARE(library.song(name).author, edit.info.author);
    }
    judge(library);

    QVERIFY(synchronisation.run(true));
    judge(library);
}

QTEST_MAIN(TestSavedSongs)
#include "test_savedsongs.moc"
