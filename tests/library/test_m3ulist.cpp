// Lists of songs in files: what is read from good and from hostile ones, and what is written.
#include "library/chosenfiles.h"
#include "library/m3ulist.h"
#include "library/recentplaces.h"
#include "library/userfile.h"
#include "support/shorttext.h"
#include "support/songfolder.h"

#include <QSettings>
#include <QTest>

#include <sys/stat.h>

namespace
{

QStringList songsOf(const QByteArray &text)
{
    return M3uList::parse(text, s("/m")).songs;
}

} // namespace

class TestM3uList : public QObject
{
    Q_OBJECT

private slots:
    void linesAreRead_data();
    void linesAreRead();
    void strangeLinesAreNamed_data();
    void strangeLinesAreNamed();
    void endlessListIsCutAndSaysSo();
    void eachSongIsTakenOnce();
    void backslashesOfWindowsLeadToTheFile();
    void unusableFilesAreNamed_data();
    void unusableFilesAreNamed();
    void listComesBackAsItWas_data();
    void listComesBackAsItWas();
    void relativeListMovesWithItsSongs();
    void listIsNeverWrittenOverASong();
    void listIsWrittenThroughALink();
    void failedWriteLeavesTheOldList();

    void addedFilesStandBehindTheOthersOnce();
    void recentPlacesAreFewAndTheLastOneIsFirst();
};

void TestM3uList::linesAreRead_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("songs");
    QTest::newRow("absolute") << QByteArray("/a/b.mid\n") << QStringList{s("/a/b.mid")};
    QTest::newRow("relative") << QByteArray("b.mid\nsub/c.mp3\n../d.kar")
                              << QStringList{s("/m/b.mid"), s("/m/sub/c.mp3"), s("/d.kar")};
    QTest::newRow("comments") << QByteArray("#EXTM3U\n#EXTINF:3,A\nb.mid\n\n  \n#c.mid")
                              << QStringList{s("/m/b.mid")};
    QTest::newRow("byte order mark")
        << QByteArray("\xEF\xBB\xBF#EXTM3U\r\nb.mid\r\n") << QStringList{s("/m/b.mid")};
    QTest::newRow("mark before a song") << QByteArray("\xEF\xBB\xBF"
                                                      "b.mid")
                                        << QStringList{s("/m/b.mid")};
    QTest::newRow("lines of old Macs")
        << QByteArray("b.mid\rc.mid\r") << QStringList{s("/m/b.mid"), s("/m/c.mid")};
    QTest::newRow("UTF-8") << QByteArray("Für Elise.mid") << QStringList{s("/m/Für Elise.mid")};
    QTest::newRow("Latin-1") << QByteArray("F\xFCr.mid") << QStringList{s("/m/Für.mid")};
    QTest::newRow("blanks belong to the name")
        << QByteArray(" b.mid ") << QStringList{s("/m/ b.mid ")};
    QTest::newRow("address") << QByteArray("file:///a/F%C3%BCr%20Elise%0A.mid")
                             << QStringList{s("/a/Für Elise\n.mid")};
    QTest::newRow("address of this computer")
        << QByteArray("FILE://localhost/a/b.mid") << QStringList{s("/a/b.mid")};
    QTest::newRow("nothing inside the program")
        << QByteArray(":/db/songsdb") << QStringList{s("/m/:/db/songsdb")};
    QTest::newRow("empty") << QByteArray() << QStringList();
    QTest::newRow("only a mark") << QByteArray("\xEF\xBB\xBF") << QStringList();
}

void TestM3uList::linesAreRead()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, songs);
    const M3uList list = M3uList::parse(text, s("/m"));
    QCOMPARE(list.songs, songs);
    QCOMPARE(list.strange, QStringList());
    QVERIFY(!list.isCut);
}

void TestM3uList::strangeLinesAreNamed_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("page") << QByteArray("https://example.org/a.mp3");
    QTest::newRow("other computer") << QByteArray("file://server/share/a.mp3");
    QTest::newRow("no path") << QByteArray("file://");
    QTest::newRow("zero byte") << QByteArray("a\0b.mid", 7);
    QTest::newRow("zero byte in an address") << QByteArray("file:///a%00b.mid");
    QTest::newRow("huge") << QByteArray(M3uList::longestLine + 1, 'x');
    QTest::newRow("huger") << QByteArray(20 << 20, 'x');
}

void TestM3uList::strangeLinesAreNamed()
{
    QFETCH(QByteArray, line);
    const M3uList list = M3uList::parse("a.mid\n" + line + "\nb.mid\n", s("/m"));
    QCOMPARE(list.songs, (QStringList{s("/m/a.mid"), s("/m/b.mid")}));
    QCOMPARE(list.strange.size(), 1);
    QVERIFY(list.strange.constFirst().size() <= 100);
}

void TestM3uList::endlessListIsCutAndSaysSo()
{
    QByteArray text;
    for (int song = 0; song <= M3uList::mostSongs; ++song)
        text += QByteArray::number(song) + ".mid\n";
    const M3uList list = M3uList::parse(text, s("/m"));
    QCOMPARE(list.songs.size(), M3uList::mostSongs);
    QVERIFY(list.isCut);
}

void TestM3uList::eachSongIsTakenOnce()
{
    QCOMPARE(songsOf("a.mid\nb.mid\n./a.mid\nx/../b.mid\n/m/a.mid"),
             (QStringList{s("/m/a.mid"), s("/m/b.mid")}));
}

void TestM3uList::backslashesOfWindowsLeadToTheFile()
{
    const SongFolder folder;
    QVERIFY(QDir(folder.path()).mkdir(s("sub")));
    const QString song = folder.midi(s("sub/a.mid"), "A");
    const QString odd = folder.midi(s("b\\c.mid"), "B");
    const QString list = folder.write(s("l.m3u8"), "sub\\a.mid\nb\\c.mid\nno\\d.mid\n");
    QString problem;
    QCOMPARE(M3uList::read(list, problem).songs,
             (QStringList{song, odd, folder.filePath(s("no\\d.mid"))}));
    QCOMPARE(problem, QString());
}

void TestM3uList::unusableFilesAreNamed_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"missing.m3u8", "folder.m3u8", "pipe.m3u8", "huge.m3u8", "lost.m3u8"})
        QTest::newRow(name) << s(name);
}

void TestM3uList::unusableFilesAreNamed()
{
    QFETCH(QString, name);
    const SongFolder folder;
    QVERIFY(QDir(folder.path()).mkdir(s("folder.m3u8")));
    QCOMPARE(mkfifo(QFile::encodeName(folder.filePath(s("pipe.m3u8"))).constData(), 0600), 0);
    QFile huge(folder.filePath(s("huge.m3u8")));
    QVERIFY(huge.open(QFile::WriteOnly) && huge.resize(M3uList::mostBytes + 1));
    QVERIFY(QFile::link(s("/nowhere"), folder.filePath(s("lost.m3u8"))));
    QString problem;
    QVERIFY(M3uList::read(folder.filePath(name), problem).songs.isEmpty());
    QVERIFY(!problem.isEmpty());
}

void TestM3uList::listComesBackAsItWas_data()
{
    QTest::addColumn<M3uList::Paths>("paths");
    QTest::newRow("absolute") << M3uList::Paths::Absolute;
    QTest::newRow("relative") << M3uList::Paths::Relative;
}

void TestM3uList::listComesBackAsItWas()
{
    QFETCH(M3uList::Paths, paths);
    QStringList songs;
    for (const char *name :
         {"/m/a.mid", "/m/#b.mid", "/m/sub/c d.mp3", "/other/ü€.mid", "/m/two\nlines.mid",
          "/m/carriage\rreturn.mid", "/m/ ", "/m/:x.mid", "/m/100%41.mid", "/m/back\\slash.mid",
          "/m/http:/x.mid", "/m/\xEF\xBB\xBFmark.mid", "/x.mid", "/m/~/y.mid"})
        songs.append(s(name));
    const QByteArray text = M3uList::text(songs, s("/m"), paths);
    const M3uList list = M3uList::parse(text, s("/m"));
    QCOMPARE(list.songs, songs);
    QCOMPARE(list.strange, QStringList());
    QCOMPARE(text.contains("\na.mid\n"), paths == M3uList::Paths::Relative);
    QCOMPARE(text.contains("\n/m/a.mid\n"), paths == M3uList::Paths::Absolute);
}

void TestM3uList::relativeListMovesWithItsSongs()
{
    const QStringList songs{s("/old/set/a.mid"), s("/old/b.mid")};
    const QByteArray text = M3uList::text(songs, s("/old/set"), M3uList::Paths::Relative);
    QCOMPARE(M3uList::parse(text, s("/new/set")).songs,
             (QStringList{s("/new/set/a.mid"), s("/new/b.mid")}));
}

void TestM3uList::listIsNeverWrittenOverASong()
{
    const SongFolder folder;
    const QString song = folder.midi(s("a.mid"), "A");
    const QString named = folder.midi(s("a.m3u8"), "a song under another name");
    QFile file(song);
    QVERIFY(file.open(QFile::ReadOnly));
    const QByteArray before = file.readAll();
    const QString link = folder.filePath(s("link.m3u8"));
    QVERIFY(QFile::link(song, link));
    for (const QString &path : {song, named, link, folder.filePath(s("new.MP3"))})
        QVERIFY2(!M3uList::write(path, {song}, M3uList::Paths::Absolute).isEmpty(),
                 qPrintable(path));
    QVERIFY(file.seek(0));
    QCOMPARE(file.readAll(), before);
    QVERIFY(!QFile::exists(folder.filePath(s("new.MP3"))));
}

void TestM3uList::listIsWrittenThroughALink()
{
    const SongFolder folder;
    const QString list = folder.write(s("list.m3u8"), "old");
    const QString link = folder.filePath(s("link.m3u8"));
    QVERIFY(QFile::link(list, link));
    QCOMPARE(M3uList::write(link, {s("/a.mid")}, M3uList::Paths::Absolute), QString());
    QVERIFY(QFileInfo(link).isSymLink());
    QFile file(list);
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("#EXTM3U\n/a.mid\n"));

    const QString lost = folder.filePath(s("lost.m3u8"));
    QVERIFY(QFile::link(folder.filePath(s("nowhere")), lost));
    QVERIFY(!M3uList::write(lost, {s("/a.mid")}, M3uList::Paths::Absolute).isEmpty());
}

void TestM3uList::failedWriteLeavesTheOldList()
{
    const SongFolder folder;
    QVERIFY(!M3uList::write(folder.filePath(s("missing/l.m3u8")), {s("/a.mid")},
                            M3uList::Paths::Absolute)
                 .isEmpty());
    QVERIFY(QDir(folder.path()).mkdir(s("folder.m3u8")));
    QVERIFY(
        !M3uList::write(folder.filePath(s("folder.m3u8")), {s("/a.mid")}, M3uList::Paths::Absolute)
             .isEmpty());
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList{s("folder.m3u8")});
}

void TestM3uList::addedFilesStandBehindTheOthersOnce()
{
    ChosenFiles files;
    files.set({s("/b"), s("/a"), s("/b")}); // as the user chose them
    files.add({s("/c"), s("/a"), s("/d"), s("/c")});
    QCOMPARE(files.paths(), (QStringList{s("/b"), s("/a"), s("/b"), s("/c"), s("/d")}));
    files.remove(s("/b"));
    QCOMPARE(files.paths(), (QStringList{s("/a"), s("/c"), s("/d")}));
}

void TestM3uList::recentPlacesAreFewAndTheLastOneIsFirst()
{
    const SongFolder folder;
    QSettings settings(folder.filePath(s("settings.ini")), QSettings::IniFormat);
    RecentPlaces places(settings, s("places"));
    QCOMPARE(places.paths(), QStringList());
    for (int place = 0; place < RecentPlaces::most + 3; ++place)
        places.add(s("/%1").arg(place));
    places.add(s("/5"));
    QCOMPARE(places.paths().size(), RecentPlaces::most);
    QCOMPARE(places.paths().mid(0, 2), (QStringList{s("/5"), s("/10")}));
    QCOMPARE(places.paths().count(s("/5")), 1);
    settings.setValue(s("places"), QStringList{s("relative"), QString(), s("/a"), s("/a")});
    QCOMPARE(places.paths(), QStringList{s("/a")});
}

QTEST_GUILESS_MAIN(TestM3uList)
#include "test_m3ulist.moc"
