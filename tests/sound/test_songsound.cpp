// Which song files can be heard, and why not.
#include "sound/songsound.h"
#include "sound/soundsource.h"
#include "support/fakesound.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using samplesongs::writeFile;

namespace
{

const QByteArray midi = songbytes::midiFile(
    {songbytes::track(songbytes::markerEvent(1, "Intro") + songbytes::notes())});

} // namespace

class TestSongSound : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void midiSongTellsLengthAndSections();
    void mfxSongIsExpanded();
    void mp3SongTellsItsLength();
    void whatIsNoSongIsTold();
    void damagedSongIsTold();
    void pipeIsNotWaitedFor();
    void mp3FileThatIsTooLargeIsTold();
    void missingAndBrokenSoundFontsAreTold();
    void theFileIsClosed();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    SoundProblem::Kind problemOf(const QString &name, const QByteArray &bytes) const
    {
        return writeFile(path(name), bytes) ? SongSound().load(path(name)) : SoundProblem::NotBuilt;
    }

    QScopedPointer<QTemporaryDir> m_folder;
};

void TestSongSound::init()
{
    m_folder.reset(new QTemporaryDir);
}

void TestSongSound::midiSongTellsLengthAndSections()
{
    QVERIFY(writeFile(path(QStringLiteral("a.mid")), midi));
    SongSound song;
    QCOMPARE(song.load(path(QStringLiteral("a.mid"))), SoundProblem::None);
    QVERIFY(song.isMidi());
    QCOMPARE(song.length(), 1.0);
    QCOMPARE(song.sections().size(), 1);
    QCOMPARE(song.sections().constFirst().name, QStringLiteral("Intro"));
}

void TestSongSound::mfxSongIsExpanded()
{
    for (const char *const magic : {"_MF3", "_MF4", "_MF5"}) {
        const QByteArray bytes = samplesongs::mfxBytes(magic, midi, {});
        QVERIFY(writeFile(path(QStringLiteral("a.mfx")), bytes));
        SongSound song;
        QCOMPARE(song.load(path(QStringLiteral("a.mfx"))), SoundProblem::None);
        QVERIFY(song.isMidi());
        QCOMPARE(song.length(), 1.0);
    }
}

void TestSongSound::mp3SongTellsItsLength()
{
    QVERIFY(samplesongs::makeMp3(path(QStringLiteral("a.mp3")), {}, 3));
    SongSound song;
    QCOMPARE(song.load(path(QStringLiteral("a.mp3"))), SoundProblem::None);
    QVERIFY(!song.isMidi());
    QVERIFY2(qAbs(song.length() - 3) < 0.1, qPrintable(QString::number(song.length())));
}

void TestSongSound::whatIsNoSongIsTold()
{
    QCOMPARE(problemOf(QStringLiteral("a.txt"), "hello, world"), SoundProblem::NoSong);
    QCOMPARE(problemOf(QStringLiteral("b.mp3"), "RIFF...."), SoundProblem::NoSong);
    QCOMPARE(problemOf(QStringLiteral("c.mid"), {}), SoundProblem::NoSong);
    QCOMPARE(SongSound().load(path(QStringLiteral("gone.mid"))), SoundProblem::Unreadable);
    QCOMPARE(SongSound().load(m_folder->path()), SoundProblem::Unreadable);
}

void TestSongSound::damagedSongIsTold()
{
    QCOMPARE(problemOf(QStringLiteral("a.mid"), "MThd"), SoundProblem::Damaged);
    QCOMPARE(problemOf(QStringLiteral("b.mf3"), "_MF3" + QByteArray(600, 'x')),
             SoundProblem::Damaged);
    QCOMPARE(problemOf(QStringLiteral("c.mid"), midi.left(22)), SoundProblem::Damaged);
    // All of it is a tag.
    QCOMPARE(
        problemOf(QStringLiteral("d.mp3"), songbytes::id3Tag(songbytes::id3Frame("TIT2", "A"))),
        SoundProblem::NoMusic);
}

void TestSongSound::pipeIsNotWaitedFor()
{
    const QString pipe = path(QStringLiteral("pipe.mid"));
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QCOMPARE(SongSound().load(pipe), SoundProblem::Unreadable);
}

void TestSongSound::mp3FileThatIsTooLargeIsTold()
{
    QFile file(path(QStringLiteral("a.mp3")));
    QVERIFY(file.open(QFile::WriteOnly));
    QCOMPARE(file.write("ID3"), 3);
    QVERIFY(file.resize(SongSound::largestMp3 + 1));
    file.close();
    QCOMPARE(SongSound().load(file.fileName()), SoundProblem::TooLarge);
}

void TestSongSound::missingAndBrokenSoundFontsAreTold()
{
    fakesound::Parts parts;
    QVERIFY(writeFile(path(QStringLiteral("a.mid")), midi));
    QVERIFY(writeFile(path(QStringLiteral("my.sf2")), "RIFF"));
    SongSound song;
    QCOMPARE(song.load(path(QStringLiteral("a.mid"))), SoundProblem::None);
    SoundProblem::Kind problem = SoundProblem::None;
    parts.refusesFonts = true;
    QVERIFY(!song.open(parts, path(QStringLiteral("my.sf2")), problem));
    QCOMPARE(problem, SoundProblem::BadSoundFont);
    parts.refusesFonts = false;
    QVERIFY(song.open(parts, path(QStringLiteral("my.sf2")), problem));
    QCOMPARE(problem, SoundProblem::None);
    QCOMPARE(parts.fonts.constLast(), path(QStringLiteral("my.sf2")));
}

void TestSongSound::theFileIsClosed()
{
    const QString file = path(QStringLiteral("a.mp3"));
    QVERIFY(samplesongs::makeMp3(file, {}, 1));
    SongSound song;
    QCOMPARE(song.load(file), SoundProblem::None);
    fakesound::Parts parts;
    SoundProblem::Kind problem = SoundProblem::None;
    const auto source = song.open(parts, {}, problem);
    QVERIFY(source);
    const QFileInfoList open =
        QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::Files | QDir::System);
    QVERIFY(!open.isEmpty());
    for (const QFileInfo &handle : open)
        QVERIFY(handle.symLinkTarget() != QFileInfo(file).canonicalFilePath());
}

QTEST_APPLESS_MAIN(TestSongSound)
#include "test_songsound.moc"
