// The rules about mount directories: what is a memory, and where is its root.
#include "devindex/mountedvolumes.h"

#include <QDir>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTest>

class TestMountedVolumes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void volumesIsAlwaysAMountDirectory();
    void usersMediaFoldersAreMountDirectories();
    void userNameThatIsNoPlainNameAddsNothing_data();
    void userNameThatIsNoPlainNameAddsNothing();
    void listedFoldersAreMountDirectories_data();
    void listedFoldersAreMountDirectories();
    void onlyPathsInsideAMemoryAreOffTheSystemDisk_data();
    void onlyPathsInsideAMemoryAreOffTheSystemDisk();
    void rootIsTheTextBeforeTheSecondSlash_data();
    void rootIsTheTextBeforeTheSecondSlash();
    void onlyAMemorysRootIsARoot_data();
    void onlyAMemorysRootIsARoot();
    void anyFolderInAMemoryLeadsToItsRoot_data();
    void anyFolderInAMemoryLeadsToItsRoot();
    void longestMountDirectoryDecides();
    void choosersStartInTheFirstMountDirectoryThatExists();
    void foldersInTheMountDirectoriesAreTheMemories();
    void memoriesTellTheirSpace();
    void volumesOnNoDeviceAreKnown_data();
    void volumesOnNoDeviceAreKnown();
};

/** Every test starts with one mount directory beside "/Volumes": "/mnt/cards". */
void TestMountedVolumes::init()
{
    qunsetenv("USER");
    qputenv("KAVENA_MOUNT_DIRS", "/mnt/cards");
}

void TestMountedVolumes::volumesIsAlwaysAMountDirectory()
{
    qunsetenv("KAVENA_MOUNT_DIRS");
    QCOMPARE(MountedVolumes().mountDirectories(), QStringList(QStringLiteral("/Volumes")));
}

void TestMountedVolumes::usersMediaFoldersAreMountDirectories()
{
#ifdef Q_OS_MACOS
    QSKIP("macOS mounts under /Volumes only");
#endif
    qputenv("USER", "anna");
    qunsetenv("KAVENA_MOUNT_DIRS");
    const MountedVolumes volumes;
    QCOMPARE(volumes.mountDirectories(),
             QStringList({QStringLiteral("/Volumes"), QStringLiteral("/media/anna"),
                          QStringLiteral("/run/media/anna")}));
    QVERIFY(!volumes.isSystemDisk(QStringLiteral("/media/anna/STICK/songs")));
    QVERIFY(volumes.isSystemDisk(QStringLiteral("/media/anna")));
    QVERIFY(volumes.isSystemDisk(QStringLiteral("/media/otto/STICK")));
    QCOMPARE(volumes.getRoot(QStringLiteral("/run/media/anna/STICK/songs/pop")),
             QStringLiteral("/run/media/anna/STICK"));
}

void TestMountedVolumes::userNameThatIsNoPlainNameAddsNothing_data()
{
    QTest::addColumn<QByteArray>("user");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("parent folder") << QByteArray("..");
    QTest::newRow("this folder") << QByteArray(".");
    QTest::newRow("path") << QByteArray("../etc");
}

void TestMountedVolumes::userNameThatIsNoPlainNameAddsNothing()
{
    QFETCH(QByteArray, user);
    qputenv("USER", user);
    qunsetenv("KAVENA_MOUNT_DIRS");
    QCOMPARE(MountedVolumes().mountDirectories(), QStringList(QStringLiteral("/Volumes")));
}

void TestMountedVolumes::listedFoldersAreMountDirectories_data()
{
    QTest::addColumn<QByteArray>("listed");
    QTest::addColumn<QStringList>("directories");
    const QString a = QStringLiteral("/mnt/a");
    const QString b = QStringLiteral("/mnt/b");
    QTest::newRow("two folders") << QByteArray("/mnt/a:/mnt/b") << QStringList({a, b});
    QTest::newRow("slash at the end") << QByteArray("/mnt/a/") << QStringList(a);
    QTest::newRow("doubled slashes") << QByteArray("//mnt///a//") << QStringList(a);
    QTest::newRow("dots") << QByteArray("/mnt/./x/../a") << QStringList(a);
    QTest::newRow("empty parts") << QByteArray("::/mnt/a::/mnt/b:") << QStringList({a, b});
    QTest::newRow("relative parts") << QByteArray("mnt/x:/mnt/a:.:..") << QStringList(a);
    QTest::newRow("twice the same") << QByteArray("/mnt/a:/mnt/a/") << QStringList(a);
    QTest::newRow("the system disk") << QByteArray("/:///:/mnt/a:/..") << QStringList(a);
    QTest::newRow("volumes again") << QByteArray("/Volumes/") << QStringList();
    QTest::newRow("nothing") << QByteArray("") << QStringList();
}

void TestMountedVolumes::listedFoldersAreMountDirectories()
{
    QFETCH(QByteArray, listed);
    QFETCH(QStringList, directories);
    qputenv("KAVENA_MOUNT_DIRS", listed);
    QCOMPARE(MountedVolumes().mountDirectories(),
             QStringList(QStringLiteral("/Volumes")) + directories);
}

void TestMountedVolumes::onlyPathsInsideAMemoryAreOffTheSystemDisk_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("systemDisk");
    QTest::newRow("memory") << "/Volumes/CARD" << false;
    QTest::newRow("folder of a memory") << "/Volumes/CARD/songs" << false;
    QTest::newRow("shortest name") << "/Volumes/C" << false;
    QTest::newRow("other letter case") << "/vOLUMES/CARD" << false;
    QTest::newRow("mount directory") << "/Volumes" << true;
    QTest::newRow("mount directory and slash") << "/Volumes/" << true;
    QTest::newRow("mount directory and slashes") << "/Volumes///" << true;
    QTest::newRow("name goes on") << "/VolumesX/CARD" << true;
    QTest::newRow("home") << "/home/anna" << true;
    QTest::newRow("root") << "/" << true;
    QTest::newRow("empty") << "" << true;
    QTest::newRow("relative") << "Volumes/CARD" << true;
    QTest::newRow("way out of the mount directory") << "/Volumes/../home" << true;
    QTest::newRow("way out through a memory") << "/Volumes/CARD/../../etc" << true;
    QTest::newRow("way out to the mount directory") << "/Volumes/CARD/.." << true;
    QTest::newRow("way in") << "/home/../Volumes/CARD" << false;
    QTest::newRow("doubled slashes") << "//Volumes//CARD" << false;
    QTest::newRow("above the root folder") << "/../../Volumes/CARD" << false;
    QTest::newRow("far out of the memory") << "/Volumes/CARD/../../../home" << true;
    QTest::newRow("listed: memory") << "/mnt/cards/CARD" << false;
    QTest::newRow("listed: other letter case") << "/MNT/Cards/CARD/songs" << false;
    QTest::newRow("listed: mount directory") << "/mnt/cards" << true;
    QTest::newRow("listed: above it") << "/mnt" << true;
    QTest::newRow("listed: beside it") << "/mnt/cards2/CARD" << true;
}

void TestMountedVolumes::onlyPathsInsideAMemoryAreOffTheSystemDisk()
{
    QFETCH(QString, path);
    QFETCH(bool, systemDisk);
    QCOMPARE(MountedVolumes().isSystemDisk(path), systemDisk);
}

void TestMountedVolumes::rootIsTheTextBeforeTheSecondSlash_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("root");
    QTest::newRow("folder of a memory") << "/Volumes/CARD/songs/pop"
                                        << "/Volumes/CARD";
    QTest::newRow("memory and slash") << "/Volumes/CARD/"
                                      << "/Volumes/CARD";
    QTest::newRow("memory: no second slash") << "/Volumes/CARD"
                                             << "";
    QTest::newRow("other letter case stays") << "/volumes/Card/songs"
                                             << "/volumes/Card";
    QTest::newRow("doubled slashes") << "/Volumes//CARD//songs"
                                     << "/Volumes/CARD";
    QTest::newRow("dots") << "/Volumes/./X/../CARD/songs"
                          << "/Volumes/CARD";
    QTest::newRow("elsewhere") << "/home/anna/music"
                               << "/home/anna";
    QTest::newRow("elsewhere: no second slash") << "/home/anna"
                                                << "";
    QTest::newRow("one component") << "/home"
                                   << "/";
    QTest::newRow("one component and slash") << "/home/"
                                             << "";
    QTest::newRow("root folder") << "/"
                                 << "/";
    QTest::newRow("listed: folder of a memory") << "/mnt/cards/CARD/songs"
                                                << "/mnt/cards/CARD";
    QTest::newRow("listed: memory") << "/mnt/cards/CARD"
                                    << "/mnt/cards/CARD";
    QTest::newRow("listed: mount directory") << "/mnt/cards"
                                             << "";
    QTest::newRow("listed: beside it") << "/mnt/other/CARD"
                                       << "/mnt/other";
}

void TestMountedVolumes::rootIsTheTextBeforeTheSecondSlash()
{
    QFETCH(QString, path);
    QFETCH(QString, root);
    QCOMPARE(MountedVolumes().getRoot(path), root);
}

void TestMountedVolumes::onlyAMemorysRootIsARoot_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("root");
    QTest::newRow("memory") << "/Volumes/CARD" << true;
    QTest::newRow("memory and slash") << "/Volumes/CARD/" << true;
    QTest::newRow("memory and slashes") << "/Volumes//CARD//" << true;
    QTest::newRow("back to the memory") << "/Volumes/CARD/songs/.." << true;
    QTest::newRow("folder of a memory") << "/Volumes/CARD/songs" << false;
    QTest::newRow("folder and slash") << "/Volumes/CARD/songs/" << false;
    QTest::newRow("mount directory") << "/Volumes" << false;
    QTest::newRow("listed: memory") << "/mnt/cards/CARD" << true;
    QTest::newRow("listed: memory and slash") << "/mnt/cards/CARD/" << true;
    QTest::newRow("listed: folder") << "/mnt/cards/CARD/songs" << false;
    QTest::newRow("listed: mount directory") << "/mnt/cards" << false;
    QTest::newRow("elsewhere") << "/home/anna" << false;
    QTest::newRow("root folder") << "/" << true;
    QTest::newRow("empty") << "" << false;
}

void TestMountedVolumes::onlyAMemorysRootIsARoot()
{
    QFETCH(QString, path);
    QFETCH(bool, root);
    QCOMPARE(MountedVolumes().isRoot(path), root);
}

void TestMountedVolumes::anyFolderInAMemoryLeadsToItsRoot_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("root");
    QTest::newRow("deep folder") << "/Volumes/CARD/music/pop"
                                 << "/Volumes/CARD";
    QTest::newRow("memory") << "/Volumes/CARD"
                            << "/Volumes/CARD";
    QTest::newRow("memory and slash") << "/Volumes/CARD/"
                                      << "/Volumes/CARD";
    QTest::newRow("name of one letter") << "/Volumes/C/x"
                                        << "/Volumes/C";
    QTest::newRow("other letter case") << "/VOLUMES/CARD/x"
                                       << "/VOLUMES/CARD";
    QTest::newRow("mount directory") << "/Volumes/"
                                     << "";
    QTest::newRow("elsewhere") << "/home/anna/music"
                               << "";
    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("doubled slash in front of the name") << "/Volumes//x"
                                                        << "/Volumes//x";
    QTest::newRow("doubled slash and a folder") << "/Volumes//x/songs"
                                                << "/Volumes//x";
    QTest::newRow("doubled slash behind the name") << "/Volumes/CARD//songs"
                                                   << "/Volumes/CARD";
    QTest::newRow("dots behind the name") << "/Volumes/CARD/../../home/anna"
                                          << "/Volumes/CARD";
    QTest::newRow("dots for a name") << "/Volumes/../home/anna"
                                     << "";
    QTest::newRow("a dot for a name") << "/Volumes/./CARD"
                                      << "";
    QTest::newRow("slashes for a name") << "/Volumes//"
                                        << "";
    QTest::newRow("way in") << "/home/../Volumes/CARD"
                            << "";
    QTest::newRow("listed") << "/mnt/cards/CARD/music/pop"
                            << "/mnt/cards/CARD";
}

void TestMountedVolumes::anyFolderInAMemoryLeadsToItsRoot()
{
    QFETCH(QString, path);
    QFETCH(QString, root);
    QCOMPARE(MountedVolumes().getRootDrivePath(path), root);
}

void TestMountedVolumes::longestMountDirectoryDecides()
{
    qputenv("KAVENA_MOUNT_DIRS", "/mnt:/mnt/cards/deep:/mnt/cards:/Volumes/pool");
    const MountedVolumes volumes;
    QCOMPARE(volumes.getRootDrivePath(QStringLiteral("/mnt/cards/deep/A/x")),
             QStringLiteral("/mnt/cards/deep/A"));
    QCOMPARE(volumes.getRootDrivePath(QStringLiteral("/mnt/cards/A/x")),
             QStringLiteral("/mnt/cards/A"));
    QCOMPARE(volumes.getRootDrivePath(QStringLiteral("/mnt/A/x")), QStringLiteral("/mnt/A"));
    QCOMPARE(volumes.getRoot(QStringLiteral("/Volumes/pool/A/x")),
             QStringLiteral("/Volumes/pool/A"));
    QCOMPARE(volumes.getRoot(QStringLiteral("/Volumes/A/x")), QStringLiteral("/Volumes/A"));
    // What holds memories is none itself, although it lies in another mount directory.
    QVERIFY(volumes.isSystemDisk(QStringLiteral("/mnt/cards")));
    QVERIFY(!volumes.isRoot(QStringLiteral("/mnt/cards")));
    QVERIFY(volumes.isSystemDisk(QStringLiteral("/Volumes/pool/")));
}

void TestMountedVolumes::choosersStartInTheFirstMountDirectoryThatExists()
{
    QTemporaryDir folder;
    QVERIFY(folder.isValid());
    const QString existing = folder.filePath(QStringLiteral("mounts"));
    const QString gone = folder.filePath(QStringLiteral("gone"));
    const QString file = folder.filePath(QStringLiteral("file"));
    QVERIFY(QDir().mkdir(existing));
    QVERIFY(QFile(file).open(QIODevice::WriteOnly));
    if (QFileInfo::exists(QStringLiteral("/Volumes")))
        QSKIP("This machine mounts under /Volumes");

    qputenv("KAVENA_MOUNT_DIRS",
            QFile::encodeName(gone + QLatin1Char(':') + file + QLatin1Char(':') + existing));
    QCOMPARE(MountedVolumes().startFolder(), existing);
    qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(gone));
    QCOMPARE(MountedVolumes().startFolder(), QStringLiteral("/Volumes"));
}

void TestMountedVolumes::foldersInTheMountDirectoriesAreTheMemories()
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    for (const char *const name :
         {"b/STICK", "b/CARD/songs", "b/card2", "b/.hidden", "a/USB", "b/c/X"})
        QVERIFY(dir.mkpath(QString::fromLatin1(name)));
    QVERIFY(QFile::link(QStringLiteral("/"), dir.filePath(QStringLiteral("b/System disk"))));
    QFile file(dir.filePath(QStringLiteral("b/file")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const QByteArray path = QFile::encodeName(folder.path());
    qputenv("KAVENA_MOUNT_DIRS", path + "/b:" + path + "/gone:" + path + "/a:" + path + "/b/c");

    QStringList names;
    QStringList paths;
    for (const MountedMemory &memory : MountedVolumes().memories()) {
        names.append(memory.name);
        paths.append(memory.path);
    }
    // A mount directory inside another one is no memory.
    QCOMPARE(names,
             QStringList({QStringLiteral("CARD"), QStringLiteral("card2"), QStringLiteral("STICK"),
                          QStringLiteral("USB"), QStringLiteral("X")}));
    QCOMPARE(paths.first(), dir.filePath(QStringLiteral("b/CARD")));
    QCOMPARE(paths.last(), dir.filePath(QStringLiteral("b/c/X")));
}

void TestMountedVolumes::memoriesTellTheirSpace()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("CARD")));
    qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(folder.path()));
    const QList<MountedMemory> memories = MountedVolumes().memories();
    QCOMPARE(memories.size(), 1);
    const QStorageInfo storage(folder.path());
    QCOMPARE(memories.first().totalBytes, storage.bytesTotal());
    QVERIFY(memories.first().freeBytes > 0);
    QVERIFY(memories.first().freeBytes <= memories.first().totalBytes);
}

void TestMountedVolumes::volumesOnNoDeviceAreKnown_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QStringList>("mountPoints");
    QTest::newRow("no table") << QByteArray() << QStringList();
    QTest::newRow("stick") << QByteArray("/dev/sdb1 /media/anna/CARD vfat rw 0 0\n")
                           << QStringList();
    QTest::newRow("server") << QByteArray("nas:/music /media/anna/NAS nfs4 rw 0 0\n"
                                          "//nas/music /media/anna/SMB cifs rw 0 0\n")
                            << QStringList({QStringLiteral("/media/anna/NAS"),
                                            QStringLiteral("/media/anna/SMB")});
    QTest::newRow("name with a blank, a backslash and an umlaut")
        << QByteArray("nas:/m /media/anna/My\\040\\134040\xC3\xBC nfs rw 0 0")
        << QStringList(QStringLiteral("/media/anna/My \\040ü"));
    QTest::newRow("lines cut short") << QByteArray("nas:/m\n\n \nnas:/m /mnt/x")
                                     << QStringList({QString(), QStringLiteral("/mnt/x")});
}

void TestMountedVolumes::volumesOnNoDeviceAreKnown()
{
    QFETCH(QByteArray, table);
    QFETCH(QStringList, mountPoints);
    QCOMPARE(MountedVolumes::mountPointsWithoutDevice(table), mountPoints);
}

QTEST_GUILESS_MAIN(TestMountedVolumes)
#include "test_mountedvolumes.moc"
