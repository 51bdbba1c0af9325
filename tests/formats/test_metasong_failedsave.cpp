// What a save that fails or is cut off leaves on the disk, and what damaged files do.
#include "formats/metasong.h"
#include "storage/songjournal.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/lzhufreference.h"
#include "support/samplesongs.h"
#include "support/songbytes.h"
#include "support/songfilemaker.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <random>
#include <sys/stat.h>

using samplesongs::readFile;
using songbytes::id3Frame;
using songbytes::id3Tag;
using songbytes::markerEvent;
using songbytes::metaEvent;
using namespace songfilemaker;

class TestMetaSongFailedSave : public SongFileFixture
{
    Q_OBJECT

private slots:
    void init() { SongFileFixture::init(); }

    // Saving
    void nothingLoadedIsNotSaved();
    void saveToAFolderFails_data();
    void saveToAFolderFails();
    void saveWithoutRightsFails();
    void vanishedMp3SourceFails();
    void shrunkMp3SourceFails();
    void failedSaveKeepsTheOldFile_data();
    void failedSaveKeepsTheOldFile();
    void importUndoesASaveThatWasCutOff();
    void songThatCannotBePutBackIsNotImported();
    void filesBesideASongThatIsSavedAreNoSongs();

    void debugMarker();
    void readOnlyFlagIsQuietElsewhere();
    void damagedFilesNeverDoHarm();
};

void TestMetaSongFailedSave::nothingLoadedIsNotSaved()
{
    const QString file = make("song.mid", midi(QByteArray()));
    const LogCapture log;
    QVERIFY(!MetaSong().saveToFile(file));
    QCOMPARE(LogCapture::lines(), QStringList(latin1(unknownFormat)));
    QCOMPARE(readFile(file), midi(QByteArray()));
}

void TestMetaSongFailedSave::saveToAFolderFails_data()
{
    everyFormat();
}

void TestMetaSongFailedSave::saveToAFolderFails()
{
    QFETCH(QString, format);
    const QString file = make(fileNameFor(format), songFile(format, Items()));
    MetaSong song = imported(file);
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder.mp3")));
    for (const char *target : {"folder.mp3", "missing/song.mp3"}) {
        const LogCapture log;
        QVERIFY(!song.saveToFile(path(latin1(target))));
        QCOMPARE(LogCapture::lines(), QStringList(latin1(writeProtected)));
    }
    QCOMPARE(files().size(), 2);
    QVERIFY(QDir(path(QStringLiteral("folder.mp3"))).isEmpty());
}

void TestMetaSongFailedSave::saveWithoutRightsFails()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("needs root, to own files that the test's user may not write");
    QCOMPARE(chmod(QFile::encodeName(m_dir->path()).constData(), 0755), 0);
    for (const char *format : {"MIDI", "MF5", "MP3"}) {
        const QByteArray bytes = songFile(latin1(format), Items());
        const QString file = make(fileNameFor(latin1(format)), bytes);
        QCOMPARE(chmod(QFile::encodeName(file).constData(), 0644), 0);
        MetaSong song = imported(file);
        {
            const LogCapture log;
            const faults::AnotherUser user;
            QVERIFY(!song.saveToFile(file));
            QCOMPARE(LogCapture::lines(), QStringList(latin1(writeProtected)));
        }
        QCOMPARE(readFile(file), bytes);
    }
    QCOMPARE(files().size(), 3);
}

void TestMetaSongFailedSave::vanishedMp3SourceFails()
{
    const QString file = make("song.mp3", audio);
    MetaSong song = imported(file);
    QVERIFY(QFile::remove(file));
    for (const char *target : {"song.mp3", "other.mp3"}) {
        const LogCapture log;
        QVERIFY(!song.saveToFile(path(latin1(target))));
        QVERIFY(logged("[MetaSong::saveToFile] Impossible to read from file. "));
    }
    QCOMPARE(files(), QStringList());
}

void TestMetaSongFailedSave::shrunkMp3SourceFails()
{
    const QByteArray tag = id3Tag(id3Frame("TIT2", "A title of some length"));
    const QString file = make("song.mp3", tag + audio);
    for (const qsizetype size : {tag.size() - 1, tag.size() - 20, qsizetype{3}, qsizetype{0}}) {
        make("song.mp3", tag + audio);
        MetaSong song = imported(file);
        make("song.mp3", tag.left(size));
        const LogCapture log;
        QVERIFY(!song.saveToFile(file));
        QCOMPARE(LogCapture::lines(),
                 QStringList(QStringLiteral("[MetaSong::saveToFile] Impossible to seek file. ")));
        QCOMPARE(readFile(file), tag.left(size));
        QCOMPARE(files().size(), 1);
    }
}

void TestMetaSongFailedSave::failedSaveKeepsTheOldFile_data()
{
    everyFormat();
}

void TestMetaSongFailedSave::failedSaveKeepsTheOldFile()
{
    QFETCH(QString, format);
    const QString file = make(fileNameFor(format), songFile(format, Items()));
    QVERIFY(imported(file).saveToFile(file));
    const QByteArray before = readFile(file);
    // The first record leaves an MFX file as long as it was, the second one lets it grow.
    SongInfo sameSize;
    sameSize.title = QStringLiteral("Changed");
    for (const bool manual : {false, true}) {
        MetaSong song = imported(file);
        song.setSongInfo(manual ? fullRecord() : sameSize, manual);
        QVERIFY(song.saveToFile(path(QStringLiteral("whole"))));
        const qsizetype newSize = readFile(path(QStringLiteral("whole"))).size();
        QVERIFY(QFile::remove(path(QStringLiteral("whole"))));
        for (qsizetype writable = 0; writable < newSize; writable += 7) {
            bool saved = true;
            const LogCapture log;
            {
                const faults::FileSizeLimit limit(static_cast<quint64>(writable));
                saved = song.saveToFile(file);
            }
            QVERIFY(!saved);
            QVERIFY(logged(cannotWrite) ||
                    logged("[MetaSong::saveToFile] Impossible to copy part of file. "));
            QCOMPARE(readFile(file), before);
            QCOMPARE(files().size(), 1);
        }
    }
}

void TestMetaSongFailedSave::importUndoesASaveThatWasCutOff()
{
    const QByteArray old = midi(metaEvent(0x03, "Old title"));
    const QByteArray written = midi(metaEvent(0x03, "New title"));
    const QString file = make("song.mid", written.left(27) + old.mid(27));
    const SongJournal::Content journal{old, written};
    make(".song.mid.kavena-journal", journal.encode());
    const LogCapture log;
    QCOMPARE(infoOf(imported(file)).title, QStringLiteral("Old title"));
    QCOMPARE(readFile(file), old);
    QCOMPARE(files().size(), 1);
    const QStringList told = LogCapture::lines().filter(file);
    QCOMPARE(told.size(), 1);
    QVERIFY(told.constFirst().contains(QStringLiteral("The last save was cut off")));
}

void TestMetaSongFailedSave::songThatCannotBePutBackIsNotImported()
{
    const QByteArray old = midi(metaEvent(0x03, "Old title"));
    const QByteArray written = midi(metaEvent(0x03, "New title"));
    const QString file = make("song.mid", written.left(27) + old.mid(27));
    const SongJournal::Content journal{old, written};
    make(".song.mid.kavena-journal", journal.encode());
    const LogCapture log;
    {
        const faults::FileSizeLimit limit(10);
        QVERIFY(!MetaSong().importFile(file));
    }
    QCOMPARE(LogCapture::lines().filter(QStringLiteral("Impossible to put the old bytes")).size(),
             1);
    QCOMPARE(files().size(), 2);
    QVERIFY(MetaSong().importFile(file));
    QCOMPARE(readFile(file), old);
    QCOMPARE(files().size(), 1);
}

void TestMetaSongFailedSave::filesBesideASongThatIsSavedAreNoSongs()
{
    const SongJournal::Content journal{midi(metaEvent(0x03, "Old title")), QByteArray()};
    const QString hidden = make(".song.mid.kavena-journal", journal.encode());
    QVERIFY(!MetaSong().importFile(hidden));
    const QString temporary = make("song.tmp", songFile(QStringLiteral("MP3"), Items()));
    QVERIFY(!MetaSong().importFile(temporary));
    QCOMPARE(files().size(), 2);
}

void TestMetaSongFailedSave::debugMarker()
{
    const QString file = make("song.mid", midi(QByteArray()));
    MetaSong song = imported(file);
    {
        const LogCapture log;
        song.dbgAddMarker(QStringLiteral("Solo"), 300);
        QCOMPARE(LogCapture::lines(),
                 QStringList({QStringLiteral("[MetaSong] addMarker "),
                              QStringLiteral("Marker added, len=  11 "),
                              QStringLiteral("----------------------------------- "),
                              QStringLiteral(" ")}));
    }
    QVERIFY(song.saveToFile(file));
    QCOMPARE(readFile(file), midi(markerEvent(300, "Solo")));

    MetaSong mp3 = imported(make("song.mp3", audio));
    const LogCapture log;
    mp3.dbgAddMarker(QStringLiteral("Solo"), 300);
    QVERIFY(logged("Marker added, len=  0 "));
}

void TestMetaSongFailedSave::readOnlyFlagIsQuietElsewhere()
{
#ifdef Q_OS_MACOS
    QSKIP("macOS runs chflags");
#endif
    const QString file = make("song.mid", midi(QByteArray()));
    const LogCapture log;
    MetaSong::removeReadOnlyFlag(file);
    QCOMPARE(LogCapture::lines(), QStringList());
    QCOMPARE(readFile(file), midi(QByteArray()));
}

void TestMetaSongFailedSave::damagedFilesNeverDoHarm()
{
    std::mt19937 random(4711);
    Items items;
    items.title = "Blue";
    items.author = "Bach";
    items.userBpm = "128";
    int importedCount = 0;
    for (int round = 0; round < 400; ++round) {
        const QString format =
            QStringList{QStringLiteral("MIDI"), QStringLiteral("MF3"), QStringLiteral("MF4"),
                        QStringLiteral("MF5"), QStringLiteral("MP3")}
                .at(round % 5);
        QByteArray bytes = songFile(format, items);
        if (round % 3 == 0)
            bytes.truncate(static_cast<qsizetype>(random() % bytes.size()));
        for (auto i = random() % 12; i > 0 && bytes.size() > 4; --i)
            bytes[4 + static_cast<qsizetype>(random() % (bytes.size() - 4))] =
                static_cast<char>(random());
        const QString file = make("song.mp3", bytes);
        const LogCapture log;
        MetaSong song;
        if (!song.importFile(file))
            continue;
        ++importedCount;
        song.setSongInfo(fullRecord(), round % 2 == 0);
        if (song.saveToFile(file)) {
            QVERIFY(MetaSong().importFile(file));
            QCOMPARE(infoOf(imported(file)).title, infoOf(song).title);
            QCOMPARE(infoOf(imported(file)).length, infoOf(song).length);
        } else {
            QCOMPARE(readFile(file), bytes);
        }
        QCOMPARE(files().size(), 1);
    }
    QVERIFY(importedCount > 100);
}

QTEST_APPLESS_MAIN(TestMetaSongFailedSave)

#include "test_metasong_failedsave.moc"
