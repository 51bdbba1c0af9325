// How songs of a list stand to a memory, and what a plan comes to.
#include "support/planfixture.h"

using namespace planfixture;

class TestTransferPlan : public PlanFixture
{
    Q_OBJECT

private slots:
    void init() { PlanFixture::init(); }
    void cleanup() { PlanFixture::cleanup(); }

    void songsAreNewSameOrDifferent();
    void planTouchesNothing();
    void karaokePicturesBelongToTheirSong();
    void picturesThatDifferMakeTheSongDiffer();
    void picturesInTheWayMakeTheSongDiffer();
    void equalNamesInTheListCollide();
    void equalNamesOfEqualBytesAreNoLoss();
    void sameSongAtItsOwnPlaceIsTheSame();

    void shortenedSongIsFoundAgain_data();
    void shortenedSongIsFoundAgain();
    void shortenedSongIsFoundOncePerSong();
    void shortNameOfAnotherSongIsNotTaken();
    void songInASubFolderIsFoundAgain();

    void remediesLoseAndDoubleNothing();
    void freeNamesAreNeverGivenTwice();
    void subFolderIsNamedAfterTheSongsOwn();
    void remediesChangeWhatIsNeeded();

    void roomIsCountedInClusters();
    void replacedSongsGiveTheirRoomBack();
    void indexCountsWhatItWouldHold();
    void reviewIsNeededOnlyWhenSongsWouldBeLostOrDoubled();
    void quickLookReadsNothingUnderASongsOwnName();
};

void TestTransferPlan::songsAreNewSameOrDifferent()
{
    onCard(QStringLiteral("pop/same.mid"), "SAME");
    onCard(QStringLiteral("pop/size.mid"), "ANOTHER SIZE");
    onCard(QStringLiteral("pop/bytes.mid"), "BYTEX");
    const TransferPlan made =
        plan({song(QStringLiteral("new.mid"), "NEW"), song(QStringLiteral("same.mid"), "SAME"),
              song(QStringLiteral("size.mid"), "SIZE"), song(QStringLiteral("bytes.mid"), "BYTES"),
              m_card->music() + QStringLiteral("/gone.mid"), m_card->music()});
    QList<State> states;
    for (const TransferPlan::Item &item : made.items)
        states.append(item.state);
    QCOMPARE(states, QList<State>({State::New, State::Same, State::Differs, State::Differs,
                                   State::Unreadable, State::Unreadable}));
    QCOMPARE(made.items.at(0).target, inFolder(QStringLiteral("new.mid")));
    QCOMPARE(made.items.at(0).destination(), inFolder(QStringLiteral("new.mid")));
    QCOMPARE(made.items.at(1).destination(), QString());
    QCOMPARE(made.items.at(3).destination(), inFolder(QStringLiteral("bytes.mid")));
    QCOMPARE(made.items.at(4).reason, QStringLiteral("il file non c'è più"));
    QCOMPARE(made.items.at(5).reason, QStringLiteral("il file non può essere letto"));
}

void TestTransferPlan::planTouchesNothing()
{
    onCard(QStringLiteral("pop/a.mid"), "OLD");
    onCard(QStringLiteral("pop/a very long name.mid"), "LONG");
    const auto before = snapshot();
    m_folder = m_card->path(QStringLiteral("songs")); // is not there
    QCOMPARE(plan({song(QStringLiteral("a.mid"), "NEW")}, true).count(State::New), 1);
    m_folder = m_card->path(QStringLiteral("pop"));
    QCOMPARE(plan({song(QStringLiteral("a.mid"), "NEW")}, true).count(State::Remove), 1);
    QCOMPARE(snapshot(), before);
}

void TestTransferPlan::karaokePicturesBelongToTheirSong()
{
    m_room = fatRoom();
    const QString path = m_card->writeMusic(QStringLiteral("a.mp3"), QByteArray(40000, 'a'));
    const QString pictures = m_card->writeMusic(QStringLiteral("a.cdg"), QByteArray(10, 'g'));
    const TransferPlan made = plan({path});
    QCOMPARE(made.items.first().companion, pictures);
    QCOMPARE(made.items.first().growth(), qint64(3 * 32768));
}

void TestTransferPlan::picturesThatDifferMakeTheSongDiffer()
{
    const QString path = m_card->writeMusic(QStringLiteral("a.mp3"), "music");
    m_card->writeMusic(QStringLiteral("a.cdg"), "pictures");
    m_card->writeOnCard(QStringLiteral("pop/a.mp3"), "music");
    QCOMPARE(plan({path}).items.first().state, State::Differs);
    m_card->writeOnCard(QStringLiteral("pop/a.CDG"), "picturez");
    QCOMPARE(plan({path}).items.first().state, State::Differs);
    m_card->writeOnCard(QStringLiteral("pop/a.CDG"), "pictures");
    QCOMPARE(plan({path}).items.first().state, State::Same);
}

void TestTransferPlan::picturesInTheWayMakeTheSongDiffer()
{
    const QString path = m_card->writeMusic(QStringLiteral("a.mp3"), "music");
    m_card->writeMusic(QStringLiteral("a.cdg"), "pictures");
    m_card->writeOnCard(QStringLiteral("pop/a.cdg"), "of another song");
    const TransferPlan made = plan({path});
    QCOMPARE(made.items.first().state, State::Differs);
    QCOMPARE(made.songsAfter(), qint64(1));
}

void TestTransferPlan::equalNamesInTheListCollide()
{
    const TransferPlan made =
        plan({song(QStringLiteral("x/a.mid"), "ONE"), song(QStringLiteral("y/A.MID"), "OTHER"),
              song(QStringLiteral("z/a.mid"), "THIRD")});
    QCOMPARE(made.items.at(0).state, State::New);
    QCOMPARE(made.items.at(1).state, State::Collides); // a memory knows no letter case
    QCOMPARE(made.items.at(2).state, State::Collides);
    QCOMPARE(made.items.at(1).destination(), inFolder(QStringLiteral("A-1.MID")));
    QCOMPARE(made.items.at(2).destination(), inFolder(QStringLiteral("a-2.mid")));
    QVERIFY(made.needsReview());
}

void TestTransferPlan::equalNamesOfEqualBytesAreNoLoss()
{
    const TransferPlan made =
        plan({song(QStringLiteral("x/a.mid"), "ONE"), song(QStringLiteral("y/a.mid"), "ONE")});
    QCOMPARE(made.items.at(1).state, State::Collides);
    QVERIFY(made.items.at(1).isTwin);
    QCOMPARE(made.items.at(1).remedy, Remedy::Skip);
    QVERIFY(!made.needsReview());

    // Its pictures would be lost.
    m_card->writeMusic(QStringLiteral("x/b.mp3"), "music");
    m_card->writeMusic(QStringLiteral("y/b.mp3"), "music");
    m_card->writeMusic(QStringLiteral("y/b.cdg"), "pictures");
    const TransferPlan withPictures = plan({m_card->music() + QStringLiteral("/x/b.mp3"),
                                            m_card->music() + QStringLiteral("/y/b.mp3")});
    QVERIFY(!withPictures.items.at(1).isTwin);
    QVERIFY(withPictures.needsReview());
}

void TestTransferPlan::sameSongAtItsOwnPlaceIsTheSame()
{
    const QString there = onCard(QStringLiteral("pop/a.mid"), "HERE");
    QCOMPARE(plan({there}).items.first().state, State::Same);
    QVERIFY(plan({there}, true).count(State::Remove) == 0);
}

void TestTransferPlan::shortenedSongIsFoundAgain_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("there");
    QTest::addColumn<bool>("isFound");
    const auto row = [](const char *name, const char *there, bool isFound) {
        QTest::addRow("%s as %s", name, there)
            << QString::fromUtf8(name) << QString::fromUtf8(there) << isFound;
    };
    row("My Long Song.mid", "MyLong-1.mid", true);
    row("My Long Song.mid", "mylong-9.MID", true);
    row("My Long Song.mid", "MyLon-10.mid", true);
    row("My Long Song.mid", "MyLo-123.mid", true);
    row("My Long Song.mid", "MyLo-1000.mid", false);
    row("My Long Song.mid", "MyLong-0.mid", false);
    row("My Long Song.mid", "MyLo-1.mid", false);
    row("My Long Song.mid", "MyLong-1.kar", false);
    row("My Long Song.mid", "Other-1.mid", false);
    row("a.mid", "a-1.mid", true);
    row("è una canzone.mid", "èunaca-2.mid", true);
}

void TestTransferPlan::shortenedSongIsFoundAgain()
{
    QFETCH(QString, name);
    QFETCH(QString, there);
    QFETCH(bool, isFound);
    const QString path = onCard(QStringLiteral("pop/") + there, "BYTES");
    const TransferPlan made = plan({song(name, "BYTES")}, true);
    QCOMPARE(made.items.first().state, isFound ? State::Renamed : State::New);
    QCOMPARE(made.items.first().destination().isEmpty(), isFound);
    QCOMPARE(made.count(State::Remove), isFound ? 0 : 1);
    QCOMPARE(made.needsReview(), isFound);
    if (isFound)
        QCOMPARE(made.items.first().target, path);
}

void TestTransferPlan::shortenedSongIsFoundOncePerSong()
{
    onCard(QStringLiteral("pop/MyLong-1.mid"), "ONE");
    onCard(QStringLiteral("pop/MyLong-2.mid"), "OTHER");
    onCard(QStringLiteral("pop/MyLong-3.mid"), "OTHER");
    const TransferPlan made = plan({song(QStringLiteral("My Long Song A.mid"), "OTHER"),
                                    song(QStringLiteral("My Long Song B.mid"), "OTHER"),
                                    song(QStringLiteral("My Long Song C.mid"), "OTHER")},
                                   true);
    QCOMPARE(made.items.at(0).target, inFolder(QStringLiteral("MyLong-2.mid")));
    QCOMPARE(made.items.at(1).target, inFolder(QStringLiteral("MyLong-3.mid")));
    QCOMPARE(made.items.at(2).state, State::New);
    QCOMPARE(made.items.at(3).path, inFolder(QStringLiteral("MyLong-1.mid")));
}

void TestTransferPlan::shortNameOfAnotherSongIsNotTaken()
{
    // The file is what the first song has become; the second one would replace it by its own name.
    onCard(QStringLiteral("pop/a-1.mid"), "FIRST");
    const TransferPlan made = plan(
        {song(QStringLiteral("x/a-1.mid"), "SECOND"), song(QStringLiteral("y/a.mid"), "FIRST")});
    QCOMPARE(made.items.at(1).state, State::Renamed);
    QCOMPARE(made.items.at(0).state, State::Collides);
    QCOMPARE(made.items.at(0).destination(), inFolder(QStringLiteral("a1-1.mid")));
}

void TestTransferPlan::songInASubFolderIsFoundAgain()
{
    const QString there = onCard(QStringLiteral("pop/rock/a.mid"), "ROCK");
    onCard(QStringLiteral("other/a.mid"), "ELSEWHERE"); // not below the folder
    const TransferPlan made = plan({song(QStringLiteral("rock/a.mid"), "ROCK"),
                                    song(QStringLiteral("else/a.mid"), "ELSEWHERE")});
    QCOMPARE(made.items.at(0).state, State::Renamed);
    QCOMPARE(made.items.at(0).target, there);
    QCOMPARE(made.items.at(1).state, State::New);
}

void TestTransferPlan::remediesLoseAndDoubleNothing()
{
    onCard(QStringLiteral("pop/same.mid"), "SAME");
    onCard(QStringLiteral("pop/other.mid"), "OLD");
    onCard(QStringLiteral("pop/long-1.mid"), "LONG");
    onCard(QStringLiteral("pop/extra.mid"), "EXTRA");
    const TransferPlan made =
        plan({song(QStringLiteral("same.mid"), "SAME"), song(QStringLiteral("other.mid"), "NEW"),
              song(QStringLiteral("long.mid"), "LONG"), song(QStringLiteral("new.mid"), "NEW"),
              song(QStringLiteral("x/new.mid"), "NEW TOO")},
             true);
    QList<Remedy> remedies;
    for (const TransferPlan::Item &item : made.items) {
        remedies.append(item.remedy);
        QVERIFY(item.remedies().contains(item.remedy));
        QVERIFY(item.remedies().contains(Remedy::Skip));
    }
    QCOMPARE(remedies, QList<Remedy>({Remedy::Skip, Remedy::Replace, Remedy::Skip, Remedy::Copy,
                                      Remedy::KeepBoth, Remedy::Skip}));
    QCOMPARE(made.items.last().state, State::Remove);
    QCOMPARE(made.items.last().remedies(), QList<Remedy>({Remedy::Remove, Remedy::Skip}));
}

void TestTransferPlan::freeNamesAreNeverGivenTwice()
{
    onCard(QStringLiteral("pop/a-1.mid"), "THERE");
    QStringList files;
    for (int i = 0; i < 20; ++i)
        files.append(song(QStringLiteral("d%1/a.mid").arg(i), QByteArray::number(i)));
    files.append(song(QStringLiteral("d0/a-3.mid"), "A NAME LIKE THIS"));
    files.append(song(QStringLiteral("e/d5/a.mid"), "THE SAME FOLDER NAME"));
    TransferPlan made = plan(files);
    QSet<QString> destinations;
    for (TransferPlan::Item &item : made.items) {
        destinations.insert(item.destination());
        destinations.insert(item.subFolderTarget);
    }
    QCOMPARE(destinations.size(), 2 * files.size());
    QVERIFY(!destinations.contains(inFolder(QStringLiteral("a-1.mid"))));
}

void TestTransferPlan::subFolderIsNamedAfterTheSongsOwn()
{
    const auto folderFor = [this](const QString &own) {
        const TransferPlan made = plan({song(own + QStringLiteral("/a.mid"), "A")});
        const QString target = made.items.first().subFolderTarget;
        return target.isEmpty() ? target : target.mid(m_folder.size());
    };
    QCOMPARE(folderFor(QStringLiteral("rock")), QStringLiteral("/rock/a.mid"));
    QCOMPARE(folderFor(QStringLiteral("My Long Folder")), QStringLiteral("/MyLong-1/a.mid"));
    QCOMPARE(folderFor(QStringLiteral("Bridge")), QStringLiteral("/Bridge-1/a.mid"));
    QCOMPARE(folderFor(QStringLiteral("playlist")), QStringLiteral("/playli-1/a.mid"));
    QCOMPARE(folderFor(QStringLiteral(".hidden")), QStringLiteral("/hidden/a.mid"));
    m_card->writeOnCard(QStringLiteral("pop/file"), "no folder");
    QCOMPARE(folderFor(QStringLiteral("file")), QString());
    QVERIFY(QFile::link(m_card->music(), inFolder(QStringLiteral("link"))));
    QCOMPARE(folderFor(QStringLiteral("link")), QString());
}

void TestTransferPlan::remediesChangeWhatIsNeeded()
{
    m_room = fatRoom();
    onCard(QStringLiteral("pop/a.mid"), "OLD");
    TransferPlan made = plan({song(QStringLiteral("a.mid"), "NEW AND LONGER")}, true);
    TransferPlan::Item &item = made.items.first();
    QCOMPARE(made.bytesNeeded(), qint64(0)); // the room of the old one
    item.remedy = Remedy::KeepBoth;
    QCOMPARE(made.bytesNeeded(), qint64(32768));
    QCOMPARE(item.destination(), inFolder(QStringLiteral("a-1.mid")));
    QCOMPARE(made.songsAfter(), qint64(2));
    item.remedy = Remedy::SubFolder;
    QCOMPARE(item.destination(), inFolder(QStringLiteral("music/a.mid")));
    item.remedy = Remedy::Skip;
    QCOMPARE(made.bytesNeeded(), qint64(0));
    QCOMPARE(made.songsAfter(), qint64(1));
}

void TestTransferPlan::roomIsCountedInClusters()
{
    m_room = fatRoom(2 * 4096, 4096);
    const QString small = m_card->writeMusic(QStringLiteral("a.mid"), "x");
    const QString empty = m_card->writeMusic(QStringLiteral("b.mid"), "");
    const QString more = m_card->writeMusic(QStringLiteral("c.mid"), QByteArray(4097, 'x'));
    QCOMPARE(plan({small, empty}).bytesNeeded(), qint64(4096));
    QVERIFY(!plan({small, empty}).needsReview());
    const TransferPlan tight = plan({small, empty, more});
    QCOMPARE(tight.bytesNeeded(), qint64(3 * 4096));
    QVERIFY(!tight.fits());
    QVERIFY(tight.needsReview());
    m_room->freeBytes = -1; // unknown
    QVERIFY(plan({small, empty, more}).fits());
    m_room.reset();
    const TransferPlan real = plan({small});
    QVERIFY(real.freeBytes > 0 && real.totalBytes >= real.freeBytes);
    QCOMPARE(real.bytesNeeded(), QStorageInfo(m_card->root()).blockSize());
}

void TestTransferPlan::replacedSongsGiveTheirRoomBack()
{
    m_room = fatRoom();
    m_card->writeOnCard(QStringLiteral("pop/a.mp3"), QByteArray(70000, 'o'));
    m_card->writeOnCard(QStringLiteral("pop/a.cdg"), QByteArray(70000, 'o'));
    const QString path = m_card->writeMusic(QStringLiteral("a.mp3"), "small");
    QCOMPARE(plan({path}).items.first().growth(), qint64(32768 - 3 * 32768));
    QCOMPARE(plan({path}).bytesNeeded(), qint64(0));
    m_card->writeMusic(QStringLiteral("a.cdg"), "small");
    QCOMPARE(plan({path}).items.first().growth(), qint64(2 * 32768 - 6 * 32768));
}

void TestTransferPlan::indexCountsWhatItWouldHold()
{
    onCard(QStringLiteral("elsewhere/x.mid"), "X");
    onCard(QStringLiteral("bridge/no.mid"), "THE PLAYER'S OWN");
    onCard(QStringLiteral("pop/a.mid"), "OLD");
    onCard(QStringLiteral("pop/extra.mid"), "EXTRA");
    TransferPlan made =
        plan({song(QStringLiteral("a.mid"), "NEW"), song(QStringLiteral("b.mid"), "B")}, true);
    QCOMPARE(made.songsThere, qint64(3));
    QCOMPARE(made.songsAfter(), qint64(4));
    made.items.last().remedy = Remedy::Remove;
    QCOMPARE(made.songsAfter(), qint64(3));
    made.songsThere = 65535;
    QVERIFY(made.canBeIndexed());
    made.items.last().remedy = Remedy::Skip;
    QVERIFY(!made.canBeIndexed());
    QVERIFY(made.needsReview());
}

void TestTransferPlan::reviewIsNeededOnlyWhenSongsWouldBeLostOrDoubled()
{
    onCard(QStringLiteral("pop/same.mid"), "SAME");
    onCard(QStringLiteral("pop/other.mid"), "OLD");
    QVERIFY(!plan({song(QStringLiteral("same.mid"), "SAME"),
                   song(QStringLiteral("other.mid"), "NEW"), song(QStringLiteral("new.mid"), "N")})
                 .needsReview());
}

void TestTransferPlan::quickLookReadsNothingUnderASongsOwnName()
{
    onCard(QStringLiteral("pop/same.mid"), "OTHER BYTES");
    onCard(QStringLiteral("pop/longer.mid"), "LONGER THAN IT");
    TransferPlanner planner(m_card->root(), m_folder);
    planner.trustNames();
    const auto made = planner.plan({song(QStringLiteral("same.mid"), "THESE BYTES"),
                                    song(QStringLiteral("longer.mid"), "SHORTER")},
                                   *m_progress);
    QVERIFY(made);
    QCOMPARE(made->items.at(0).state, State::Same);
    QCOMPARE(made->items.at(1).state, State::Differs);
    QVERIFY(!made->needsReview());
}

QTEST_GUILESS_MAIN(TestTransferPlan)
#include "test_transferplan.moc"
