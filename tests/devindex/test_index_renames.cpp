// What is renamed on a memory and what is left alone, and that nothing loses what belongs to it.
#include "devindex/index.h"
#include "library/answer.h"
#include "storage/songfilewriter.h"
#include "storage/songjournal.h"
#include "support/devicememory.h"
#include "support/logcapture.h"
#include "support/songbytes.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace songbytes;

namespace
{

const QByteArray plainSong = midiFile({track(metaEvent(3, "Song") + notes())});

/** An index of this memory that renames whatever it may. */
class RenamingIndex : public Index
{
public:
    explicit RenamingIndex(const DeviceMemory &memory)
    {
        rootPath = memory.root();
        setRenameQuestion([this](const QString &path, const QString &) {
            asked.append(path);
            return Answer::Yes;
        });
    }

    QStringList paths() const
    {
        QStringList all;
        for (const SongInfoIndex &entry : entries)
            all.append(entry.path);
        return all;
    }

    QStringList asked;
};

/** Leaves a song as a save does that was cut off: a part of the new bytes, and the journal. */
void cutSaveOff(const QString &song, const QByteArray &oldBytes, const QByteArray &newBytes)
{
    {
        SongJournal journal(song);
        SongJournal::Content content;
        content.oldBytes = oldBytes;
        content.newBytes = newBytes;
        QVERIFY(journal.write(content));
    }
    QFile file(song);
    QVERIFY(file.open(QFile::ReadWrite) && file.write(newBytes.left(30)) == 30);
}

} // namespace

class TestIndexRenames : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_log.emplace(); }
    void cleanup() { m_log.reset(); }

    void cutOffSaveIsUndoneBeforeTheSongIsRenamed();
    void songInUseIsLeftAloneAndReported();
    void remainsOfAJournalGoBeforeTheSongIsRenamed();
    void linkIsRenamedWithoutTouchingItsSong();

    void picturesAndSongGetABaseThatIsFreeForBoth_data();
    void picturesAndSongGetABaseThatIsFreeForBoth();
    void songWithoutPicturesGetsNotThoseOfAnother();
    void picturesThatCannotBeRenamedKeepTheSongsName();

    void systemFoldersAreNeitherScannedNorRenamed_data();
    void systemFoldersAreNeitherScannedNorRenamed();
    void foldersThatOnlyLookLikeThoseAreScanned();
    void nothingIsRenamedThroughALinkOutOfTheMemory();
    void linkWithinTheMemoryIsRenamedThrough();
    void filesWithoutASizeAreNotRead();

private:
    std::optional<LogCapture> m_log;
};

void TestIndexRenames::cutOffSaveIsUndoneBeforeTheSongIsRenamed()
{
    const DeviceMemory memory;
    const QByteArray newBytes = midiFile({track(metaEvent(3, "Other title") + notes())});
    const QString song = memory.add(QStringLiteral("My Long Song.mid"), plainSong);
    cutSaveOff(song, plainSong, newBytes);
    QVERIFY(memory.read(QStringLiteral("My Long Song.mid")) != plainSong);
    RenamingIndex index(memory);
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    index.scan_files(memory.root());
    QCOMPARE(index.paths(), QStringList{QStringLiteral("/MyLong-1.mid")});
    QCOMPARE(memory.read(QStringLiteral("MyLong-1.mid")), plainSong);
    QCOMPARE(errors.size(), 0);
    QVERIFY(!QFileInfo::exists(SongJournal(song).path()));
}

void TestIndexRenames::songInUseIsLeftAloneAndReported()
{
    const DeviceMemory memory;
    const QString song = memory.add(QStringLiteral("My Long Song.mid"), plainSong);
    SongJournal held(song); // as another program that saves the song
    SongJournal::Content content;
    content.oldBytes = plainSong;
    content.newBytes = plainSong;
    QVERIFY(held.write(content));
    RenamingIndex index(memory);
    const QSignalSpy errors(&index, &Index::errorFromIndex);
    index.scan_files(memory.root());
    QCOMPARE(index.paths(), QStringList{QStringLiteral("/My Long Song.mid")});
    QVERIFY(QFileInfo::exists(held.path()));
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().first().toString(),
             QStringLiteral("File non rinominato, l'ultimo salvataggio non è stato completato: ") +
                 song);
}

void TestIndexRenames::remainsOfAJournalGoBeforeTheSongIsRenamed()
{
    const DeviceMemory memory;
    const QString song = memory.add(QStringLiteral("My Long Song.mid"), plainSong);
    memory.add(QStringLiteral(".My Long Song.mid.kavena-journal"), "no journal");
    RenamingIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(index.paths(), QStringList{QStringLiteral("/MyLong-1.mid")});
    QVERIFY(!QFileInfo::exists(SongJournal(song).path()));
}

void TestIndexRenames::linkIsRenamedWithoutTouchingItsSong()
{
    const DeviceMemory memory;
    const DeviceMemory computer;
    const QByteArray newBytes = midiFile({track(metaEvent(3, "Other title") + notes())});
    const QString song = computer.add(QStringLiteral("song.mid"), plainSong);
    cutSaveOff(song, plainSong, newBytes);
    QVERIFY(QFile::link(song, memory.path(QStringLiteral("A long link.mid"))));
    const auto before = computer.snapshot();
    RenamingIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(index.paths(), QStringList{QStringLiteral("/Alongl-1.mid")});
    QCOMPARE(computer.snapshot(), before);
}

void TestIndexRenames::picturesAndSongGetABaseThatIsFreeForBoth_data()
{
    QTest::addColumn<QString>("taken");
    QTest::newRow("song") << QStringLiteral("MyLong-1.mp3");
    QTest::newRow("pictures") << QStringLiteral("MyLong-1.cdg");
    QTest::newRow("pictures in upper case") << QStringLiteral("MyLong-1.CDG");
}

void TestIndexRenames::picturesAndSongGetABaseThatIsFreeForBoth()
{
    QFETCH(QString, taken);
    const DeviceMemory memory;
    memory.add(QStringLiteral("My Long Song.mp3"), plainSong);
    memory.add(QStringLiteral("My Long Song.cdg"), "pictures");
    memory.add(taken, "other");
    RenamingIndex index(memory);
    index.scan_files(memory.root());
    QVERIFY(index.paths().contains(QStringLiteral("/MyLong-2.mp3")));
    QCOMPARE(memory.read(QStringLiteral("MyLong-2.cdg")), QByteArray("pictures"));
    QCOMPARE(memory.read(taken), QByteArray("other"));
}

void TestIndexRenames::songWithoutPicturesGetsNotThoseOfAnother()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("My Long Song.mp3"), plainSong);
    memory.add(QStringLiteral("My Long Tune.mid"), plainSong);
    memory.add(QStringLiteral("MyLong-1.cdg"), "other pictures");
    RenamingIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(index.paths(),
             (QStringList{QStringLiteral("/MyLong-1.mid"), QStringLiteral("/MyLong-2.mp3")}));
}

void TestIndexRenames::picturesThatCannotBeRenamedKeepTheSongsName()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("My Long Song.mp3"), plainSong);
    memory.add(QStringLiteral("My Long Song.cdg"), "pictures");
    Index index;
    index.rootPath = memory.root();
    // The name is taken between the question and the answer.
    index.setRenameQuestion([&memory](const QString &, const QString &) {
        memory.add(QStringLiteral("MyLong-1.cdg"), "other pictures");
        return Answer::Yes;
    });
    index.scan_files(memory.root());
    QCOMPARE(memory.read(QStringLiteral("My Long Song.mp3")), plainSong);
    QCOMPARE(memory.read(QStringLiteral("My Long Song.cdg")), QByteArray("pictures"));
    QVERIFY(!QFileInfo::exists(memory.path(QStringLiteral("MyLong-1.mp3"))));
}

void TestIndexRenames::systemFoldersAreNeitherScannedNorRenamed_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"System Volume Information", "$RECYCLE.BIN", "$Recycle.Bin",
                             "FOUND.000", "found.017", "LOST.DIR", "RECYCLER", "Recycler"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void TestIndexRenames::systemFoldersAreNeitherScannedNorRenamed()
{
    QFETCH(QString, name);
    const DeviceMemory memory;
    memory.add(QStringLiteral("a.mid"), plainSong);
    memory.add(name + QStringLiteral("/A long deleted song.mid"), plainSong);
    const auto before = memory.snapshot();
    RenamingIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(index.paths(), QStringList{QStringLiteral("/a.mid")});
    QCOMPARE(index.asked, QStringList());
    QCOMPARE(memory.snapshot(), before);
}

void TestIndexRenames::foldersThatOnlyLookLikeThoseAreScanned()
{
    const DeviceMemory memory;
    for (const char *name : {"FOUND.1", "FOUND.abc", "FOUND", "LOST", "RECYCLE"})
        memory.add(QString::fromUtf8(name) + QStringLiteral("/a.mid"), plainSong);
    memory.add(QStringLiteral("lost.dir.mid"), plainSong);
    RenamingIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(index.paths().size(), 6);
}

void TestIndexRenames::nothingIsRenamedThroughALinkOutOfTheMemory()
{
    const DeviceMemory memory;
    const DeviceMemory computer;
    computer.add(QStringLiteral("My Music Folder/A long song name.mp3"), plainSong);
    computer.add(QStringLiteral("My Music Folder/A long song name.cdg"), "pictures");
    QVERIFY(QFile::link(computer.root(), memory.path(QStringLiteral("music"))));
    const auto before = computer.snapshot();
    RenamingIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(computer.snapshot(), before);
    QCOMPARE(index.asked, QStringList());
    QCOMPARE(index.paths(),
             QStringList{QStringLiteral("/music/My Music Folder/A long song name.mp3")});
}

void TestIndexRenames::linkWithinTheMemoryIsRenamedThrough()
{
    const DeviceMemory memory;
    memory.add(QStringLiteral("sfx/A long song name.mid"), plainSong);
    QVERIFY(QFile::link(memory.path(QStringLiteral("sfx")), memory.path(QStringLiteral("best"))));
    RenamingIndex index(memory);
    index.scan_files(memory.root());
    QCOMPARE(index.paths(), QStringList{QStringLiteral("/best/Alongs-1.mid")});
}

void TestIndexRenames::filesWithoutASizeAreNotRead()
{
    // Such files of the kernel can be read for ever, or make their reader wait for ever.
    const QString endless = QStringLiteral("/proc/kmsg");
    const QString full = QStringLiteral("/proc/self/status");
    const DeviceMemory memory;
    memory.isJudgedWith({QStringLiteral("--allow-changed")});
    memory.add(QStringLiteral("a.mid"), plainSong);
    QVERIFY(QFile::link(full, memory.path(QStringLiteral("b.mid"))));
    QVERIFY(QFile::link(endless, memory.path(QStringLiteral("c.mid"))));
    SongInfoIndex entry;
    entry.fullPath = memory.path(QStringLiteral("b.mid"));
    QCOMPARE(Index().setSongInfo(entry), 0);
    QVERIFY(Index().createIndex(memory.root())); // would not end if the kernel's messages were read
}

QTEST_MAIN(TestIndexRenames)
#include "test_index_renames.moc"
