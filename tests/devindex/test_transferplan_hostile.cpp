// Plans for memories and lists that are not as they should be.
#include "support/faults.h"
#include "support/planfixture.h"

#include <QElapsedTimer>

#include <sys/stat.h>

using namespace planfixture;

class TestTransferPlanHostile : public PlanFixture
{
    Q_OBJECT

private slots:
    void init() { PlanFixture::init(); }
    void cleanup() { PlanFixture::cleanup(); }

    void namesThatTheMemoryCannotHoldGetOthers_data();
    void namesThatTheMemoryCannotHoldGetOthers();
    void longNamesAreJudgedByTheMemory();
    void pathsThatThePlayerCannotHoldAreTold();
    void filesThatCannotBeReadAreNamed();
    void pipesAreNotWaitedFor();

    void othersAreListedButNeverTicked();
    void othersBehindLinksAreNotListed();
    void othersInFoldersOfThePlayerAreNotListed();
    void othersOutsideTheFolderAreNotListed();
    void copiesOfUnreadableSongsAreNotListed();
    void otherSpellingOfASongIsNotListed();

    void folderInTheSongsPlaceIsGoneAround();
    void allShortNamesTakenGoesIntoASubFolder();
    void loopsOfLinksEnd();
    void stopEndsThePlanning();
    void songListedTwiceIsOneSong();
    void emptyListAndMissingMemoryAreNoProblem();
    void moreSongsThanThePlayerCountsAreTold();
    void manyAlikeAreComparedInAReasonableTime();
};

void TestTransferPlanHostile::namesThatTheMemoryCannotHoldGetOthers_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("proposed");
    QTest::newRow("question mark") << QStringLiteral("Why?.mid") << QStringLiteral("Why_-1.mid");
    QTest::newRow("colon") << QStringLiteral("a: b.mid") << QStringLiteral("a_b-1.mid");
    QTest::newRow("device") << QStringLiteral("con.mid") << QStringLiteral("con-1.mid");
    QTest::newRow("control character") << QStringLiteral("a\tb.mid") << QStringLiteral("a_b-1.mid");
}

void TestTransferPlanHostile::namesThatTheMemoryCannotHoldGetOthers()
{
    QFETCH(QString, name);
    QFETCH(QString, proposed);
    const QString path = song(name, "BYTES");
    m_room = fatRoom();
    TransferPlan::Item item = plan({path}).items.first();
    QCOMPARE(item.state, State::TooLong);
    QCOMPARE(item.remedy, Remedy::Skip);
    QVERIFY(!item.reason.isEmpty());
    QCOMPARE(item.keepBothTarget, inFolder(proposed));
    QCOMPARE(item.remedies(), QList<Remedy>({Remedy::KeepBoth, Remedy::Skip}));
    // The next time it is found by that name.
    onCard(QStringLiteral("pop/") + proposed, "BYTES");
    QCOMPARE(plan({path}).items.first().state, State::Renamed);
    m_room->medium.fileSystem = "ext4";
    QCOMPARE(plan({song(QStringLiteral("new") + name, "NEW")}).items.first().state, State::New);
}

void TestTransferPlanHostile::longNamesAreJudgedByTheMemory()
{
    const QString longest = QString(251, QLatin1Char('n')) + QStringLiteral(".mid");
    QCOMPARE(plan({song(longest, "LONG")}).items.first().state, State::New);
    // 255 characters are more than 255 bytes: a card can hold that name, other file systems cannot.
    const QString accents = QString(251, QChar(u'è')) + QStringLiteral(".mid");
    WriteProblem::Medium medium;
    medium.fileSystem = "vfat";
    QVERIFY(WriteProblem::whyNotNamed(accents, medium).isEmpty());
    QVERIFY(!WriteProblem::whyNotNamed(accents + QLatin1Char('x'), medium).isEmpty());
    medium.fileSystem = "ext4";
    QVERIFY(!WriteProblem::whyNotNamed(accents, medium).isEmpty());
}

void TestTransferPlanHostile::pathsThatThePlayerCannotHoldAreTold()
{
    // "/" and 8 characters for each folder; a name of 8 and ".mid" takes 13: 45 is the limit.
    const QString exact = QStringLiteral("/12345678/12345678/12345678/1234");
    QCOMPARE(exact.size() + QStringLiteral("/song1234.mid").size(), 45);
    m_folder = m_card->root() + exact;
    QCOMPARE(plan({song(QStringLiteral("song1234.mid"), "S")}).items.first().state, State::New);
    m_folder += QLatin1Char('5');
    const TransferPlan::Item item = plan({song(QStringLiteral("song1234.mid"), "S")}).items.first();
    QCOMPARE(item.state, State::TooLong);
    QCOMPARE(item.reason, QStringLiteral("il percorso è troppo lungo per il player"));
    QVERIFY(item.subFolderTarget.isEmpty());
    QCOMPARE(item.remedies(), QList<Remedy>({Remedy::Skip})); // no name is short enough
    QCOMPARE(plan({song(QStringLiteral("s.mid"), "S")}).items.first().state, State::New);
    // Long names are shortened when the index is updated, so that they do not count in full.
    m_folder = m_card->path(QStringLiteral("A folder with a very long name indeed"));
    QCOMPARE(plan({song(QStringLiteral("A song with a long name.mid"), "S")}).items.first().state,
             State::New);
}

void TestTransferPlanHostile::filesThatCannotBeReadAreNamed()
{
    if (!faults::canBecomeAnotherUser())
        QSKIP("only root can become a user who may not read a file");
    const QString path = song(QStringLiteral("a.mid"), "A");
    const QString locked = song(QStringLiteral("locked.mid"), "L");
    QVERIFY(QFile::setPermissions(locked, QFile::Permissions()));
    QVERIFY(QFile::link(m_card->music() + QStringLiteral("/nothing"),
                        m_card->music() + QStringLiteral("/dangling.mid")));
    // The folders of the test belong to root.
    for (QString folder = m_card->music(); folder.size() > 5; folder = QFileInfo(folder).path())
        ::chmod(QFile::encodeName(folder).constData(), 0755);
    TransferPlan made;
    {
        const faults::AnotherUser user;
        made = plan({path, locked, m_card->music() + QStringLiteral("/dangling.mid")});
    }
    QCOMPARE(made.items.at(0).state, State::New);
    QCOMPARE(made.items.at(1).state, State::Unreadable);
    QCOMPARE(made.items.at(1).growth(), qint64(0));
    QCOMPARE(made.items.at(2).state, State::Unreadable);
}

void TestTransferPlanHostile::pipesAreNotWaitedFor()
{
    const QString source = m_card->music() + QStringLiteral("/pipe.mid");
    QCOMPARE(::mkfifo(QFile::encodeName(source).constData(), 0600), 0);
    onCard(QStringLiteral("pop/x.mid"), "X");
    QCOMPARE(::mkfifo(QFile::encodeName(inFolder(QStringLiteral("a.mid"))).constData(), 0600), 0);
    const TransferPlan made = plan({source, song(QStringLiteral("a.mid"), "A")}, true);
    QCOMPARE(made.items.at(0).state, State::Unreadable);
    QCOMPARE(made.items.at(1).state, State::Differs);
    QCOMPARE(made.items.size(), 3); // the pipe is no song
}

void TestTransferPlanHostile::othersAreListedButNeverTicked()
{
    onCard(QStringLiteral("pop/in.mid"), "IN");
    const QString other = onCard(QStringLiteral("pop/sub/other.mid"), "OTHER");
    m_card->writeOnCard(QStringLiteral("pop/notes.txt"), "no song");
    const QString withPictures = m_card->writeOnCard(QStringLiteral("pop/p.mp3"), "music");
    const QString pictures = m_card->writeOnCard(QStringLiteral("pop/p.cdg"), "pictures");
    const TransferPlan made = plan({song(QStringLiteral("in.mid"), "IN")}, true);
    QCOMPARE(made.items.size(), 3);
    QCOMPARE(made.count(Remedy::Remove), 0);
    QCOMPARE(made.items.at(1).path, withPictures);
    QCOMPARE(made.items.at(1).companion, pictures);
    QCOMPARE(made.items.at(2).path, other);
    QCOMPARE(made.items.at(2).growth(), qint64(0));
    QCOMPARE(plan({song(QStringLiteral("in.mid"), "IN")}).items.size(), 1);
}

void TestTransferPlanHostile::othersBehindLinksAreNotListed()
{
    onCard(QStringLiteral("pop/in.mid"), "IN");
    const QString outside = song(QStringLiteral("outside.mid"), "OUTSIDE");
    onCard(QStringLiteral("elsewhere/e.mid"), "E");
    QVERIFY(QFile::link(m_card->music(), inFolder(QStringLiteral("music"))));
    QVERIFY(
        QFile::link(m_card->path(QStringLiteral("elsewhere")), inFolder(QStringLiteral("inside"))));
    QVERIFY(QFile::link(outside, inFolder(QStringLiteral("link.mid"))));
    QCOMPARE(plan({song(QStringLiteral("in.mid"), "IN")}, true).count(State::Remove), 0);
    // The folder itself may be a link to the computer.
    QVERIFY(QFile::link(m_card->music(), m_card->path(QStringLiteral("way"))));
    m_folder = m_card->path(QStringLiteral("way"));
    QCOMPARE(plan({}, true).items.size(), 0);
}

void TestTransferPlanHostile::othersInFoldersOfThePlayerAreNotListed()
{
    m_folder = m_card->root();
    for (const char *folder : {"bridge", "SFX", "Playlist", "pop/playlist", "FOUND.000", ".trash"})
        onCard(QString::fromUtf8(folder) + QStringLiteral("/a.mid"), "A");
    onCard(QStringLiteral(".hidden.mid"), "HIDDEN");
    QCOMPARE(plan({}, true).items.size(), 0);
}

void TestTransferPlanHostile::othersOutsideTheFolderAreNotListed()
{
    onCard(QStringLiteral("pop2/a.mid"), "A");
    onCard(QStringLiteral("b.mid"), "B");
    onCard(QStringLiteral("pop/c.mid"), "C");
    const TransferPlan made = plan({}, true);
    QCOMPARE(made.items.size(), 1);
    QCOMPARE(made.items.first().path, inFolder(QStringLiteral("c.mid")));
}

void TestTransferPlanHostile::copiesOfUnreadableSongsAreNotListed()
{
    onCard(QStringLiteral("pop/gone.mid"), "THE LAST COPY");
    onCard(QStringLiteral("pop/MyLong-7.mid"), "THE LAST COPY OF ANOTHER");
    onCard(QStringLiteral("pop/sub/gone.mid"), "COULD BE IT");
    onCard(QStringLiteral("pop/other.mid"), "OTHER");
    const TransferPlan made = plan({m_card->music() + QStringLiteral("/gone.mid"),
                                    m_card->music() + QStringLiteral("/My Long Song.mid")},
                                   true);
    QCOMPARE(made.count(State::Unreadable), 2);
    QCOMPARE(made.count(State::Remove), 1);
    QCOMPARE(made.items.last().path, inFolder(QStringLiteral("other.mid")));
}

void TestTransferPlanHostile::otherSpellingOfASongIsNotListed()
{
    const QString there = onCard(QStringLiteral("pop/SONG.MID"), "SONG");
    onCard(QStringLiteral("pop/") + QStringLiteral("e\u0300.mid"), "ACCENT");
    const TransferPlan made = plan({song(QStringLiteral("song.mid"), "SONG"),
                                    song(QStringLiteral("\u00e8.mid"), "ACCENT"),
                                    song(QStringLiteral("strasse.mid"), "S")},
                                   true);
    QCOMPARE(made.count(State::Same), 2);
    QCOMPARE(made.count(State::Remove), 0);
    QCOMPARE(made.items.first().target, there);
    // These are two names on a card, unlike upper and lower case.
    onCard(QStringLiteral("pop/stra\u00dfe.mid"), "OTHER");
    QCOMPARE(plan({song(QStringLiteral("strasse.mid"), "S")}).items.first().state, State::New);
}

void TestTransferPlanHostile::folderInTheSongsPlaceIsGoneAround()
{
    QVERIFY(QDir().mkpath(inFolder(QStringLiteral("a.mid"))));
    const TransferPlan::Item item = plan({song(QStringLiteral("a.mid"), "A")}).items.first();
    QCOMPARE(item.state, State::Differs);
    QCOMPARE(item.destination(), inFolder(QStringLiteral("a-1.mid")));
}

void TestTransferPlanHostile::allShortNamesTakenGoesIntoASubFolder()
{
    for (int i = 1; i <= 999; ++i)
        m_card->writeOnCard(QStringLiteral("pop/a-%1.mid").arg(i), "taken");
    const TransferPlan made =
        plan({song(QStringLiteral("x/a.mid"), "ONE"), song(QStringLiteral("y/a.mid"), "OTHER")});
    QCOMPARE(made.items.at(1).destination(), inFolder(QStringLiteral("y/a.mid")));
}

void TestTransferPlanHostile::loopsOfLinksEnd()
{
    onCard(QStringLiteral("pop/a.mid"), "A");
    QVERIFY(QFile::link(m_card->root(), inFolder(QStringLiteral("loop"))));
    QVERIFY(QFile::link(m_folder, inFolder(QStringLiteral("self"))));
    QCOMPARE(plan({song(QStringLiteral("a.mid"), "A")}, true).items.size(), 1);
}

void TestTransferPlanHostile::stopEndsThePlanning()
{
    onCard(QStringLiteral("pop/a.mid"), "A");
    m_progress->canceled = true;
    QVERIFY(!tryPlan({song(QStringLiteral("a.mid"), "A")}).has_value());
    m_progress->canceled = false;
    QVERIFY(tryPlan({song(QStringLiteral("a.mid"), "A")}).has_value());
    QCOMPARE(m_progress->values, QList<int>({1}));
    QCOMPARE(m_progress->maximum, 1);
}

void TestTransferPlanHostile::songListedTwiceIsOneSong()
{
    const QString path = song(QStringLiteral("a.mid"), "A");
    const TransferPlan made = plan({path, path});
    QCOMPARE(made.items.at(0).state, State::New);
    QCOMPARE(made.items.at(1).remedy, Remedy::Skip);
    QVERIFY(!made.needsReview());
}

void TestTransferPlanHostile::emptyListAndMissingMemoryAreNoProblem()
{
    QVERIFY(plan({}).items.isEmpty());
    QVERIFY(!plan({}).needsReview());
    TransferPlanner planner(m_card->mountDirectory() + QStringLiteral("/PULLED"),
                            m_card->mountDirectory() + QStringLiteral("/PULLED/songs"));
    const auto made = planner.plan({song(QStringLiteral("a.mid"), "A")}, *m_progress);
    QCOMPARE(made->items.first().state, State::New);
    QCOMPARE(made->songsThere, qint64(0));
    QVERIFY(!QFileInfo::exists(m_card->mountDirectory() + QStringLiteral("/PULLED")));
}

void TestTransferPlanHostile::moreSongsThanThePlayerCountsAreTold()
{
    const QString one = song(QStringLiteral("new.mid"), "NEW");
    for (int i = 0; i < 65535; ++i) {
        const QString folder = inFolder(QString::number(i / 1000));
        if (i % 1000 == 0)
            QVERIFY(QDir().mkpath(folder));
        QFile file(folder + QStringLiteral("/%1.mid").arg(i));
        QVERIFY(file.open(QFile::WriteOnly));
    }
    QVERIFY(plan({}).canBeIndexed());
    QElapsedTimer timer;
    timer.start();
    const TransferPlan made = plan({one}, true);
    QCOMPARE(made.songsAfter(), qint64(65536));
    QVERIFY(!made.canBeIndexed());
    QVERIFY(made.needsReview());
    QCOMPARE(made.count(State::Remove), 65535);
    QVERIFY2(timer.elapsed() < 60000, "such a memory must not take minutes");
}

void TestTransferPlanHostile::manyAlikeAreComparedInAReasonableTime()
{
    // Equal sizes and names that could all have come from each other.
    QStringList files;
    for (int i = 0; i < 400; ++i) {
        const QString number = QString::number(i + 1);
        const QString stem = QStringLiteral("Karaok").left(7 - number.size());
        m_card->writeOnCard(QStringLiteral("pop/%1-%2.mid").arg(stem, number),
                            QByteArray(20000, 'x') + QByteArray::number(1000 + i));
        files.append(m_card->writeMusic(QStringLiteral("Karaoke %1.mid").arg(i),
                                        QByteArray(20000, 'x') + QByteArray::number(5000 + i)));
    }
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(plan(files).count(State::New), 400);
    QVERIFY2(timer.elapsed() < 60000, "each file must not be read for each other one");
}

QTEST_GUILESS_MAIN(TestTransferPlanHostile)
#include "test_transferplan_hostile.moc"
