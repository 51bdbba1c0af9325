// The import of files, and of a folder with all folders in it.
#include "library/libraryimport.h"
#include "support/countingprogress.h"
#include "support/librarytable.h"
#include "support/logcapture.h"
#include "support/songfolder.h"

#include <QTest>

namespace
{

QStringList namesIn(LibraryTable &library)
{
    QStringList names;
    for (int row = 0; row < library.model().goodRowCount(); ++row)
        names << library.model().shortName(row);
    return names;
}

} // namespace

class TestImportedFiles : public QObject
{
    Q_OBJECT

private slots:
    void hostileFilesAreCountedAsBad();
    void whatKilledProgramsLeftIsRemoved();
    void scanGoesThroughFoldersFirst();
    void scanStopsWhenCancelled();
    void scanEndsInLinkedFolders();
};

void TestImportedFiles::hostileFilesAreCountedAsBad()
{
    using namespace songbytes;
    const SongFolder songs;
    const QStringList files{
        songs.write(QStringLiteral("empty.mid"), QByteArray()),
        songs.write(QStringLiteral("threebytes.mid"), "MTh"),
        songs.write(QStringLiteral("notrack.mid"), "MThd" + bigEndian(6, 4) + QByteArray(6, '\0')),
        songs.write(QStringLiteral("headeronly.mf5"), "_MF5" + QByteArray(200, '\xFF')),
        songs.write(QStringLiteral("nopayload.mf3"), "_MF3" + QByteArray(508, '\0')),
    };
    LibraryTable library(QList<catalogue::Row>{});
    // What no file dialog lets through: a folder with a song's name, and what is gone meanwhile.
    QVERIFY(QDir(songs.path()).mkdir(QStringLiteral("folder.mid")));
    CountingProgress progress;
    const LibraryImport::Counts counts =
        LibraryImport(library.model(), progress)
            .importFiles(files + QStringList{songs.filePath(QStringLiteral("folder.mid")),
                                             songs.filePath(QStringLiteral("missing.mid"))});
    QCOMPARE(counts.valid, 0);
    QCOMPARE(counts.kravo, 0);
    QCOMPARE(counts.bad, 7);
    QCOMPARE(library.model().goodRowCount(), 0);
    QCOMPARE(progress.values, (QList<int>{1, 2, 3, 4, 5, 6, 7}));
}

void TestImportedFiles::whatKilledProgramsLeftIsRemoved()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkdir(QStringLiteral("below")));
    const QString song = songs.midi(QStringLiteral("a.mid"), "A");
    songs.midi(QStringLiteral("below/b.mid"), "B");
    const QString left = songs.write(QStringLiteral(".a.mp3.0123abcd.kavena-tmp"), "half");
    const QString below = songs.write(QStringLiteral("below/.b.mid.kavena-part"), "half");
    const QString users = songs.write(QStringLiteral("a.tmp"), "a file of the user's");
    LibraryTable library(QList<catalogue::Row>{});
    CountingProgress progress;
    QCOMPARE(LibraryImport(library.model(), progress).importFiles({song}).valid, 1);
    QVERIFY(!QFileInfo::exists(left));
    QVERIFY(QFileInfo::exists(below));

    LibraryImport::Counts counts;
    QVERIFY(LibraryImport(library.model(), progress).scanDir(songs.path(), counts));
    QVERIFY(!QFileInfo::exists(below));
    QVERIFY(QFileInfo::exists(users));
}

void TestImportedFiles::scanGoesThroughFoldersFirst()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkpath(QStringLiteral("sub/deeper")));
    songs.signedMidi(QStringLiteral("a.mid"), "A");
    songs.bad(QStringLiteral("sub/x.mid"));
    songs.midi(QStringLiteral("sub/b.mid"), "B");
    songs.midi(QStringLiteral("sub/deeper/c.mid"), "C");
    LibraryTable library(QList<catalogue::Row>{});
    CountingProgress progress;
    LibraryImport::Counts counts;
    const LogCapture log;
    QVERIFY(LibraryImport(library.model(), progress).scanDir(songs.path(), counts));
    QCOMPARE(namesIn(library), (QStringList{QStringLiteral("c.mid"), QStringLiteral("b.mid"),
                                            QStringLiteral("a.mid")}));
    QCOMPARE(counts.valid, 3);
    QCOMPARE(counts.kravo, 1);
    QCOMPARE(counts.bad, 1);
    QCOMPARE(progress.values.last(), 4);

    const QStringList lines = LogCapture::lines();
    QCOMPARE(lines.first(),
             QStringLiteral("[scanDir] Analyzing directory: \"%1\" ").arg(songs.path()));
    QCOMPARE(lines.at(1), QStringLiteral("[scanDir] Found directory: \"%1\" ")
                              .arg(songs.filePath(QStringLiteral("sub"))));
    QVERIFY(lines.contains(QStringLiteral("[scanDir] Found file: \"%1\" ")
                               .arg(songs.filePath(QStringLiteral("a.mid")))));
    QVERIFY(lines.contains(QStringLiteral("[scanDir] Unknown/corrupted file \"%1\" ")
                               .arg(songs.filePath(QStringLiteral("sub/x.mid")))));
    QCOMPARE(lines.at(lines.size() - 2), QString(74, QLatin1Char('=')) + QLatin1Char(' '));
    QCOMPARE(lines.last(), QStringLiteral(" "));
}

void TestImportedFiles::scanStopsWhenCancelled()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkdir(QStringLiteral("sub")));
    songs.midi(QStringLiteral("sub/a.mid"), "A");
    songs.midi(QStringLiteral("sub/b.mid"), "B");
    songs.midi(QStringLiteral("c.mid"), "C");
    LibraryTable library(QList<catalogue::Row>{});
    CountingProgress progress;
    progress.cancelAt = 1;
    LibraryImport::Counts counts;
    QVERIFY(!LibraryImport(library.model(), progress).scanDir(songs.path(), counts));
    QCOMPARE(namesIn(library), QStringList{QStringLiteral("a.mid")});
    QCOMPARE(counts.valid, 1);
}

void TestImportedFiles::scanEndsInLinkedFolders()
{
    const SongFolder songs;
    QVERIFY(QDir(songs.path()).mkdir(QStringLiteral("sub")));
    QVERIFY(QFile::link(songs.path(), songs.filePath(QStringLiteral("sub/back"))));
    songs.midi(QStringLiteral("sub/a.mid"), "A");
    LibraryTable library(QList<catalogue::Row>{});
    CountingProgress progress;
    LibraryImport::Counts counts;
    QVERIFY(LibraryImport(library.model(), progress).scanDir(songs.path(), counts));
    QCOMPARE(counts.valid, 1);
}

QTEST_GUILESS_MAIN(TestImportedFiles)
#include "test_importedfiles.moc"
