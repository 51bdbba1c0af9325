// Songs of a plan that want a place which another song has, or other karaoke pictures: what is
// offered for them and what comes of it.
#include "devindex/transfer.h"
#include "support/planfixture.h"
#include "support/transferfixture.h"

using namespace planfixture;
using transferfixture::ScriptedQuestions;

class TestTransferPlanPlaces : public PlanFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { PlanFixture::cleanup(); }

    void picturesOfNoSongAreTold();
    void picturesOfNoSongGoWithTheReplacing();
    void picturesOfNoSongStayWhenTheSongIsSkipped();
    void picturesOfNoSongAreNotShownInASubFolder();
    void picturesThatAreReplacedAreToldAsSuch();
    void folderNamedLikePicturesIsNone();

    void songThatReplacesAnotherOfTheListTakesItsPlace();
    void lastOfSeveralReplacingSongsHasThePlace();
    void twinReplacesNothing();
    void songThatIsThereIsNotToldAsPresentAfterItWasReplaced();
    void songWhoseReplacementFailedIsToldAsPresent();
    void shortenedSongCanBeWrittenAnew();
    void picturesOfTheSameSongStay();
    void folderIsNotMadeWhenTheUserSaysNo();
    void songsForWhichNoShortNameIsLeftAreTold();
    void shortNamesThatTheIndexWillGiveAreNotProposed();

private:
    Transfer::Outcome carryOut(const TransferPlan &made);
    QString mp3(const QString &name, const QByteArray &bytes) const
    {
        return m_card->writeMusic(name, bytes);
    }

    std::unique_ptr<ScriptedQuestions> m_user;
};

void TestTransferPlanPlaces::init()
{
    PlanFixture::init();
    m_user = std::make_unique<ScriptedQuestions>();
    QVERIFY(QDir().mkdir(m_folder));
}

Transfer::Outcome TestTransferPlanPlaces::carryOut(const TransferPlan &made)
{
    return Transfer(*m_user,
                    [](const QString &, const QString &, int) {
                        return std::unique_ptr<Progress>(std::make_unique<CopyingProgress>());
                    })
        .carryOut(made);
}

void TestTransferPlanPlaces::picturesOfNoSongAreTold()
{
    m_card->writeOnCard(QStringLiteral("pop/a.cdg"), "of another song");
    m_card->writeOnCard(QStringLiteral("pop/b.CDG"), "of another song");
    m_card->writeOnCard(QStringLiteral("pop/c.cdg"), "of another song");
    const TransferPlan made =
        plan({mp3(QStringLiteral("a.mp3"), "A"), mp3(QStringLiteral("b.mp3"), "B"),
              song(QStringLiteral("c.mid"), "C")});
    for (const int number : {0, 1}) {
        const TransferPlan::Item &item = made.items.at(number);
        QCOMPARE(item.state, State::Differs);
        QCOMPARE(item.remedy, Remedy::Replace);
        QCOMPARE(item.reason,
                 QStringLiteral("nella memoria ci sono altre immagini karaoke con il suo nome"));
        QCOMPARE(item.remedies(), QList<Remedy>({Remedy::Replace, Remedy::KeepBoth,
                                                 Remedy::SubFolder, Remedy::Skip}));
        QVERIFY(!item.isThere);
    }
    QCOMPARE(made.items.at(2).state, State::New); // a MIDI song has no pictures
    QCOMPARE(made.songsAfter(), qint64(3));
}

void TestTransferPlanPlaces::picturesOfNoSongGoWithTheReplacing()
{
    m_card->writeOnCard(QStringLiteral("pop/a.cdg"), "of another song");
    QCOMPARE(carryOut(plan({mp3(QStringLiteral("a.mp3"), "A")})), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/a.mp3")), QByteArray("A"));
    QVERIFY(!QFile::exists(inFolder(QStringLiteral("a.cdg"))));
    QCOMPARE(m_user->skippedLines, QStringList(QStringLiteral("a.cdg: rimossa")));
}

void TestTransferPlanPlaces::picturesOfNoSongStayWhenTheSongIsSkipped()
{
    m_card->writeOnCard(QStringLiteral("pop/a.cdg"), "of another song");
    TransferPlan made =
        plan({mp3(QStringLiteral("a.mp3"), "A"), song(QStringLiteral("b.mid"), "")});
    made.choose({0}, Remedy::Skip);
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QVERIFY(!QFile::exists(inFolder(QStringLiteral("a.mp3"))));
    QCOMPARE(m_card->read(QStringLiteral("pop/a.cdg")), QByteArray("of another song"));
    QCOMPARE(m_user->skippedLines,
             QStringList(QStringLiteral(
                 "a.mp3: nella memoria ci sono altre immagini karaoke con il suo nome")));
}

void TestTransferPlanPlaces::picturesOfNoSongAreNotShownInASubFolder()
{
    m_card->writeOnCard(QStringLiteral("pop/rock/a.cdg"), "of another song");
    TransferPlan made = plan({mp3(QStringLiteral("rock/a.mp3"), "A")});
    QCOMPARE(made.items.first().state, State::New);
    QCOMPARE(made.items.first().subFolderTarget, inFolder(QStringLiteral("rock/a-1.mp3")));
}

void TestTransferPlanPlaces::picturesThatAreReplacedAreToldAsSuch()
{
    m_card->writeOnCard(QStringLiteral("pop/a.cdg"), "of another song");
    mp3(QStringLiteral("a.cdg"), "its own");
    const TransferPlan made = plan({mp3(QStringLiteral("a.mp3"), "A")});
    QCOMPARE(made.items.first().state, State::Differs);
    QCOMPARE(made.items.first().reason,
             QStringLiteral("nella memoria ci sono altre immagini karaoke con il suo nome"));
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/a.cdg")), QByteArray("its own"));
}

void TestTransferPlanPlaces::folderNamedLikePicturesIsNone()
{
    m_card->writeOnCard(QStringLiteral("pop/a.cdg/b.mid"), MountedCard::midi("B"));
    const TransferPlan made = plan({mp3(QStringLiteral("a.mp3"), "A")});
    QCOMPARE(made.items.first().state, State::New);
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QVERIFY(QFile::exists(inFolder(QStringLiteral("a.cdg/b.mid"))));
}

void TestTransferPlanPlaces::songThatReplacesAnotherOfTheListTakesItsPlace()
{
    TransferPlan made =
        plan({song(QStringLiteral("x/a.mid"), "ONE"), song(QStringLiteral("y/a.mid"), "OTHER")});
    QVERIFY(made.items.at(1).remedies().contains(Remedy::Replace));
    made.choose({1}, Remedy::Replace);
    QCOMPARE(made.items.at(0).remedy, Remedy::Skip);
    QCOMPARE(made.songsAfter(), qint64(1));
    made.choose({0}, Remedy::Copy); // and back again
    QCOMPARE(made.items.at(1).remedy, Remedy::Skip);
    made.choose({1}, Remedy::Replace);
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/a.mid")), MountedCard::midi("OTHER"));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/a.mid")));
    QCOMPARE(
        m_user->skippedLines,
        QStringList(QStringLiteral("x/a.mid: un'altra song dell'elenco ha preso il suo posto")));
}

void TestTransferPlanPlaces::lastOfSeveralReplacingSongsHasThePlace()
{
    QStringList files;
    for (int i = 0; i < 4; ++i)
        files.append(song(QStringLiteral("d%1/A.mid").arg(i), QByteArray::number(i)));
    files.append(song(QStringLiteral("d5/b.mid"), "B"));
    TransferPlan made = plan(files);
    made.choose({0, 1, 2, 3, 4}, Remedy::Replace); // none for the first and for "b"
    QList<Remedy> remedies;
    for (const TransferPlan::Item &item : made.items)
        remedies.append(item.remedy);
    QCOMPARE(remedies, QList<Remedy>({Remedy::Skip, Remedy::Skip, Remedy::Skip, Remedy::Replace,
                                      Remedy::Copy}));
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/A.mid")), MountedCard::midi("3"));
}

void TestTransferPlanPlaces::twinReplacesNothing()
{
    const TransferPlan made =
        plan({song(QStringLiteral("x/a.mid"), "ONE"), song(QStringLiteral("y/a.mid"), "ONE")});
    QVERIFY(made.items.at(1).isTwin);
    QVERIFY(!made.items.at(1).remedies().contains(Remedy::Replace));
}

void TestTransferPlanPlaces::songThatIsThereIsNotToldAsPresentAfterItWasReplaced()
{
    onCard(QStringLiteral("pop/A.mid"), "ONE");
    TransferPlan made =
        plan({song(QStringLiteral("x/A.mid"), "ONE"), song(QStringLiteral("y/a.mid"), "OTHER")});
    QCOMPARE(made.items.at(0).state, State::Same);
    QCOMPARE(made.items.at(1).target, inFolder(QStringLiteral("A.mid"))); // as it is spelled there
    made.choose({1}, Remedy::Replace);
    QCOMPARE(made.songsAfter(), qint64(1));
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/A.mid")), MountedCard::midi("OTHER"));
    QVERIFY(m_user->skippedLines.contains(
        QStringLiteral("x/A.mid: un'altra song dell'elenco ha preso il suo posto")));
    QVERIFY(m_user->counts.first().contains(QStringLiteral("Song già presenti: 0")));
}

void TestTransferPlanPlaces::songWhoseReplacementFailedIsToldAsPresent()
{
    onCard(QStringLiteral("pop/a.mid"), "ONE");
    const QString other = song(QStringLiteral("y/a.mid"), "OTHER");
    TransferPlan made = plan({song(QStringLiteral("x/a.mid"), "ONE"), other});
    made.choose({1}, Remedy::Replace);
    QVERIFY(QFile::remove(other));
    QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    QCOMPARE(m_card->read(QStringLiteral("pop/a.mid")), MountedCard::midi("ONE"));
    QVERIFY(m_user->counts.first().contains(QStringLiteral("Song già presenti: 1")));
}

void TestTransferPlanPlaces::shortenedSongCanBeWrittenAnew()
{
    onCard(QStringLiteral("pop/Averyl-1.mid"), "LONG");
    TransferPlan made = plan({song(QStringLiteral("A very long name.mid"), "LONG")});
    QCOMPARE(made.items.first().state, State::Renamed);
    QCOMPARE(made.items.first().remedy, Remedy::Skip);
    made.choose({0}, Remedy::Replace);
    QCOMPARE(made.items.first().destination(), inFolder(QStringLiteral("Averyl-1.mid")));
    QCOMPARE(made.bytesNeeded(), qint64(0));
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/Averyl-1.mid")));
    QCOMPARE(m_card->read(QStringLiteral("pop/Averyl-1.mid")), MountedCard::midi("LONG"));
}

void TestTransferPlanPlaces::picturesOfTheSameSongStay()
{
    m_card->writeOnCard(QStringLiteral("pop/Averyl-1.mp3"), "music");
    m_card->writeOnCard(QStringLiteral("pop/Averyl-1.cdg"), "its pictures");
    TransferPlan made = plan({mp3(QStringLiteral("A very long name.mp3"), "music")});
    QCOMPARE(made.items.first().state, State::Renamed);
    made.choose({0}, Remedy::Replace);
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/Averyl-1.cdg")), QByteArray("its pictures"));
}

void TestTransferPlanPlaces::folderIsNotMadeWhenTheUserSaysNo()
{
    m_user->folder = m_card->root(); // stands for the folder "songs"
    Transfer job(
        *m_user,
        [](const QString &, const QString &, int) {
            return std::unique_ptr<Progress>(std::make_unique<CopyingProgress>());
        },
        [](const QString &) { return qint64(1); });
    const QStringList files = {song(QStringLiteral("a.mid"), "A")};
    QCOMPARE(job.transferFiles(files), Transfer::Outcome::NotStarted);
    QCOMPARE(m_user->roomAsked.size(), 1);
    QVERIFY(!QFile::exists(m_card->path(QStringLiteral("songs"))));
    m_user->anyway = true;
    QCOMPARE(job.transferFiles(files), Transfer::Outcome::Complete);
    QVERIFY(QFile::exists(m_card->path(QStringLiteral("songs/a.mid"))));
}

/** There are 999 short names for names that begin alike, and the player finds no longer ones. */
void TestTransferPlanPlaces::songsForWhichNoShortNameIsLeftAreTold()
{
    m_room = fatRoom();
    QStringList files;
    for (int i = 0; i < 1001; ++i)
        files.append(song(QStringLiteral("rock/Karaoke %1.mid").arg(i, 4, 10, QLatin1Char('0')),
                          QByteArray::number(i)));
    onCard(QStringLiteral("pop/Karaok-1.mid"), "ANOTHER");
    TransferPlan made = plan(files);
    QCOMPARE(made.count(State::New), 998);
    QCOMPARE(made.count(State::TooLong), 3);
    QCOMPARE(made.songsAfter(), qint64(999));
    const TransferPlan::Item &last = made.items.constLast();
    QCOMPARE(last.remedy, Remedy::Skip);
    QCOMPARE(last.reason,
             QStringLiteral("per i nomi che iniziano così il player non ha più nomi brevi"));
    QCOMPARE(last.remedies(), QList<Remedy>({Remedy::SubFolder, Remedy::Skip}));
    QVERIFY(last.subFolderTarget.startsWith(inFolder(QStringLiteral("rock/"))));
    made.choose({998, 999, 1000}, Remedy::SubFolder);
    QCOMPARE(made.songsAfter(), qint64(1002));
}

void TestTransferPlanPlaces::shortNamesThatTheIndexWillGiveAreNotProposed()
{
    const TransferPlan made = plan({song(QStringLiteral("x/Karaoke song.mid"), "ONE"),
                                    song(QStringLiteral("y/Karaoke song.mid"), "OTHER")});
    QCOMPARE(made.items.at(1).keepBothTarget, inFolder(QStringLiteral("Karaok-2.mid")));
}

QTEST_GUILESS_MAIN(TestTransferPlanPlaces)
#include "test_transferplan_places.moc"
