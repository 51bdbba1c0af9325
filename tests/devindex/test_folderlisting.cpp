// What a scan sees of a folder. The ids of a memory's songs follow the order of the entries, which
// has always been that of QDir: it judges here.
#include "devindex/folderlisting.h"
#include "devindex/index.h"
#include "devindex/memorywalk.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

namespace
{

QByteArray encoded(const QTemporaryDir &folder, const QByteArray &name)
{
    return QFile::encodeName(folder.path()) + '/' + name;
}

void makeFile(const QTemporaryDir &folder, const QByteArray &name)
{
    QFile file(folder.filePath(QString::fromUtf8(name)));
    QVERIFY2(file.open(QFile::WriteOnly), name.constData());
}

QStringList namesIn(const QTemporaryDir &folder)
{
    QStringList names;
    for (const FolderItem &item : FolderListing::of(folder.path()).items)
        names.append(item.name);
    return names;
}

QStringList namesByQDir(const QTemporaryDir &folder)
{
    return QDir(folder.path())
        .entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
}

const FolderItem *itemOf(const FolderListing &listing, const QString &name)
{
    for (const FolderItem &item : listing.items) {
        if (item.name == name)
            return &item;
    }
    return nullptr;
}

} // namespace

class TestFolderListing : public QObject
{
    Q_OBJECT

private slots:
    void oddNamesStandAsQDirSortsThem();
    void byteOrderMarkIsPartOfTheName();
    void whatNoScanSeesIsLeftOut();
    void namesThatDifferInCaseHaveOneOrder();
    void songsCarryTheirTimeAndFoldersNone();
    void anUnreadableFolderHasNoIdentity();
    void identitiesAreThoseOfFoldersNotOfPaths();
    void treeOf900LevelsIsScannedInSeconds();
};

void TestFolderListing::oddNamesStandAsQDirSortsThem()
{
    const QTemporaryDir folder;
    const QByteArrayList names{"a.mid",
                               "B.mid",
                               "_c.mid",
                               "Z.mid",
                               "[x].mid",
                               "z 1.mid",
                               "z-1.mid",
                               "z1.mid",
                               "10.mid",
                               "9.mid",
                               "\xC3\xA0.mid",
                               "\xC3\x80z.mid",
                               "\xC3\xB1.mid",
                               "\xC3\x9F.mid",
                               "ss.mid",
                               "\xC4\xB0.mid", // capital I with a dot
                               "i.mid",
                               "\xCE\xA3.mid",
                               "\xCF\x82z.mid", // both sigmas
                               "\xEF\xBF\xBD.mid",
                               "\xF0\x9F\x8E\xB5.mid", // above and beyond the surrogates
                               "\xF0\x90\x90\x80.mid",
                               "\xF0\x90\x90\xA8z.mid", // a letter pair of two units
                               "e\xCC\x81.mid",
                               "\xC3\xA9.mid",
                               "a",
                               "A b",
                               "a\tb.mid",
                               "a\nb.mid",
                               "~.mid",
                               "a.MID2"};
    for (const QByteArray &name : names)
        makeFile(folder, name);
    for (const char *const name : {"folder", "Folder2", "folder 3", "\xC3\x88"})
        QVERIFY(QDir(folder.path()).mkdir(QString::fromUtf8(name)));

    QCOMPARE(namesIn(folder).size(), names.size() + 4);
    QCOMPARE(namesIn(folder), namesByQDir(folder));
}

void TestFolderListing::byteOrderMarkIsPartOfTheName()
{
    const QTemporaryDir folder;
    QFile marked(folder.filePath(QChar(0xFEFF) + QStringLiteral("a.mid")));
    QVERIFY(marked.open(QFile::WriteOnly) && marked.write("12345") == 5);
    marked.close();
    QVERIFY(::access(encoded(folder, "\xEF\xBB\xBF"
                                     "a.mid")
                         .constData(),
                     F_OK) == 0);
    const QStringList names = namesIn(folder);
    QCOMPARE(names.size(), 1);
    QCOMPARE(QFileInfo(folder.filePath(names.constFirst())).size(), 5);
}

void TestFolderListing::whatNoScanSeesIsLeftOut()
{
    const QTemporaryDir folder;
    for (const char *const name : {"song.mid", "text.txt", ".hidden.mid"})
        makeFile(folder, name);
    QVERIFY(::mkfifo(encoded(folder, "pipe.mid").constData(), 0600) == 0);
    QVERIFY(::symlink("nowhere", encoded(folder, "broken.mid").constData()) == 0);
    QVERIFY(::symlink("song.mid", encoded(folder, "link.mid").constData()) == 0);
    QVERIFY(::symlink(".", encoded(folder, "loop").constData()) == 0);
    QVERIFY(::mkdir(encoded(folder, "bad\xFF").constData(), 0700) == 0); // no valid UTF-8

    QCOMPARE(namesIn(folder),
             (QStringList{QStringLiteral("link.mid"), QStringLiteral("loop"),
                          QStringLiteral("song.mid"), QStringLiteral("text.txt")}));
    QCOMPARE(namesIn(folder), namesByQDir(folder));
}

void TestFolderListing::namesThatDifferInCaseHaveOneOrder()
{
    const QTemporaryDir folder;
    for (const char *const name : {"song.mid", "Song.mid", "SONG.mid"})
        makeFile(folder, name);
    QCOMPARE(namesIn(folder), (QStringList{QStringLiteral("SONG.mid"), QStringLiteral("Song.mid"),
                                           QStringLiteral("song.mid")}));
}

void TestFolderListing::songsCarryTheirTimeAndFoldersNone()
{
    const QTemporaryDir folder;
    makeFile(folder, "song.mid");
    makeFile(folder, "text.txt");
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("folder.mid")));
    QVERIFY(::symlink("song.mid", encoded(folder, "link.kar").constData()) == 0);
    QVERIFY(::symlink("folder.mid", encoded(folder, "link.mp3").constData()) == 0);

    const FolderListing listing = FolderListing::of(folder.path());
    const FolderItem *const song = itemOf(listing, QStringLiteral("song.mid"));
    const FolderItem *const link = itemOf(listing, QStringLiteral("link.kar"));
    const FolderItem *const linkedFolder = itemOf(listing, QStringLiteral("link.mp3"));
    QVERIFY(song != nullptr && link != nullptr && linkedFolder != nullptr);
    const auto stamp = FileStamp::of(folder.filePath(QStringLiteral("song.mid")));
    QVERIFY(stamp.has_value());
    QVERIFY(song->stamp.has_value() && !song->isLink && !song->isFolder);
    QCOMPARE(song->stamp->date, stamp->date);
    QCOMPARE(song->stamp->time, stamp->time);
    QVERIFY(link->stamp.has_value() && link->isLink && !link->isFolder);
    QVERIFY(!linkedFolder->stamp && linkedFolder->isLink && linkedFolder->isFolder);
    QVERIFY(!itemOf(listing, QStringLiteral("text.txt"))->stamp);
    QVERIFY(!itemOf(listing, QStringLiteral("folder.mid"))->stamp);
    QVERIFY(itemOf(listing, QStringLiteral("folder.mid"))->isFolder);
}

void TestFolderListing::anUnreadableFolderHasNoIdentity()
{
    const QTemporaryDir folder;
    makeFile(folder, "song.mid");
    for (const char *const name : {"/nothing", "/song.mid"}) {
        const QString path = folder.path() + QString::fromUtf8(name);
        QVERIFY(FolderListing::of(path).id.isEmpty());
        QVERIFY(FolderListing::of(path).items.isEmpty());
        QVERIFY(folderIdOf(path).isEmpty());
    }
}

void TestFolderListing::identitiesAreThoseOfFoldersNotOfPaths()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("one")));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("two")));
    QVERIFY(::symlink("one", encoded(folder, "link").constData()) == 0);
    const auto idOf = [&folder](const char *name) {
        return folderIdOf(folder.filePath(QString::fromUtf8(name)));
    };
    QVERIFY(!idOf("one").isEmpty());
    QCOMPARE(idOf("link"), idOf("one"));
    QCOMPARE(FolderListing::of(folder.filePath(QStringLiteral("link"))).id, idOf("one"));
    QVERIFY(idOf("one") != idOf("two"));
}

/** One look at the whole path for each level would take 18 s. */
void TestFolderListing::treeOf900LevelsIsScannedInSeconds()
{
    const QTemporaryDir memory;
    QString deepest = memory.path();
    for (int level = 0; level < 900; ++level) {
        deepest += QLatin1String("/d");
        QVERIFY(::mkdir(QFile::encodeName(deepest).constData(), 0700) == 0);
    }
    QFile song(deepest + QLatin1String("/song.mid"));
    QVERIFY(song.open(QFile::WriteOnly));
    Index index;
    index.rootPath = memory.path();
    QElapsedTimer timer;
    timer.start();
    index.scan_files(memory.path());
    QCOMPARE(index.filesFound, 1U);
    QCOMPARE(memorywalk::songs(memory.path()).songs.size(), 1); // the check's walk
    const qint64 elapsed = timer.elapsed();
    QVERIFY2(elapsed < 5000, qPrintable(QString::number(elapsed)));
}

QTEST_GUILESS_MAIN(TestFolderListing)
#include "test_folderlisting.moc"
