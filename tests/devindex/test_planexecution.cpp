// A plan of a transfer that is carried out: copies, names, and what is told.
#include "devindex/songchanges.h"
#include "devindex/transfer.h"
#include "support/faults.h"
#include "support/logcapture.h"
#include "support/planfixture.h"
#include "support/transferfixture.h"

using namespace planfixture;
using transferfixture::ScriptedQuestions;

namespace
{

/** A user to whom plans are shown. */
class ReviewingUser : public ScriptedQuestions
{
public:
    bool reviewsPlans() const override { return true; }
    Review reviewPlan(TransferPlan &plan) override
    {
        ++reviews;
        if (change)
            change(plan);
        return review;
    }

    Review review = Review::CarryOut;
    std::function<void(TransferPlan &)> change;
    int reviews = 0;
};

} // namespace

class TestPlanExecution : public PlanFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { PlanFixture::cleanup(); }

    void songsArriveUnderTheirChosenNames();
    void secondTransferCopiesNothing();
    void skippedAndFailedSongsAreNamedWithTheReason();
    void fileThatCameMeanwhileStays();
    void songThatWentMeanwhileIsToldAsMissing();
    void songThatVanishesIsNamedAndTheOthersArrive();
    void fullMemoryIsTold();
    void stopLeavesTheRestAlone();
    void rootStandsForTheSongsFolder();
    void lockedMemoryIsLeftAlone();
    void indexThatCannotBeReadIsTold();

    void planIsShownOnlyWhenSongsWouldBeLostOrDoubled();
    void withoutReviewEverythingIsAsAlways();
    void songsThatAreThereAreLeftOutWhenTheUserWantsThat();
    void songsThatAreThereAreNamed();
    void canceledReviewTouchesNothing();
    void answersOfAReviewAreCarriedOut();
    void planThatOpensByItselfReplacesNothing();
    void replacedSongsAreNamed();
    void picturesOfAReplacedSongGo();
    void picturesThatStayAreTold();
    void usersWithoutReviewGetNoPlan();

    void copiesThatCannotBeReadBackHaveFailed_data();
    void copiesThatCannotBeReadBackHaveFailed();
    void goodCopiesAreReadBack();

private:
    OpenProgress progress();
    Transfer::Outcome carryOut(const TransferPlan &made);
    Transfer::Outcome transfer(const QStringList &files);

    std::unique_ptr<ReviewingUser> m_user;
    std::function<void(CopyingProgress &, int)> m_onUpdate;
    QStringList m_opened;
};

void TestPlanExecution::init()
{
    PlanFixture::init();
    m_user = std::make_unique<ReviewingUser>();
    m_user->folder = m_folder;
    m_onUpdate = {};
    m_opened.clear();
    QVERIFY(QDir().mkdir(m_folder));
}

OpenProgress TestPlanExecution::progress()
{
    return [this](const QString &, const QString &label, int) {
        m_opened.append(label);
        auto progress = std::make_unique<CopyingProgress>();
        CopyingProgress *const raw = progress.get();
        progress->onUpdate = [this, raw](int done) {
            if (m_onUpdate)
                m_onUpdate(*raw, done);
        };
        return std::unique_ptr<Progress>(std::move(progress));
    };
}

Transfer::Outcome TestPlanExecution::carryOut(const TransferPlan &made)
{
    return Transfer(*m_user, progress()).carryOut(made);
}

Transfer::Outcome TestPlanExecution::transfer(const QStringList &files)
{
    return Transfer(*m_user, progress()).transferFiles(files);
}

void TestPlanExecution::songsArriveUnderTheirChosenNames()
{
    onCard(QStringLiteral("pop/b.mid"), "OLD");
    m_card->writeMusic(QStringLiteral("z/k.mp3"), "music");
    m_card->writeMusic(QStringLiteral("z/k.cdg"), "pictures");
    TransferPlan made =
        plan({song(QStringLiteral("x/a.mid"), "ONE"), song(QStringLiteral("y/a.mid"), "OTHER"),
              song(QStringLiteral("b.mid"), "NEW"), m_card->music() + QStringLiteral("/z/k.mp3"),
              song(QStringLiteral("w/a.mid"), "THIRD")});
    made.items[3].remedy = Remedy::SubFolder;
    made.items[4].remedy = Remedy::SubFolder;
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/a.mid")), MountedCard::midi("ONE"));
    QCOMPARE(m_card->read(QStringLiteral("pop/a-1.mid")), MountedCard::midi("OTHER"));
    QCOMPARE(m_card->read(QStringLiteral("pop/b.mid")), MountedCard::midi("NEW"));
    QCOMPARE(m_card->read(QStringLiteral("pop/z/k.mp3")), QByteArray("music"));
    QCOMPARE(m_card->read(QStringLiteral("pop/z/k.cdg")), QByteArray("pictures"));
    QCOMPARE(m_card->read(QStringLiteral("pop/w/a.mid")), MountedCard::midi("THIRD"));
    QCOMPARE(m_card->indexedPaths().size(), 5);
    QVERIFY(m_user->replaceAsked.isEmpty());
    QCOMPARE(m_opened, QStringList({QStringLiteral("Trasferimento file..."),
                                    QStringLiteral("Aggiornamento database...")}));
    QCOMPARE(m_user->counts,
             QStringList(QStringLiteral("Trasferimento: Song copiate: 5\nSong già presenti: 0\n"
                                        "Song saltate: 0\nSong rimosse: 0\nErrori: 0")));
}

void TestPlanExecution::secondTransferCopiesNothing()
{
    m_user->renameAnswer = Answer::YesToAll;
    m_card->writeMusic(QStringLiteral("My long karaoke.mp3"), "music");
    m_card->writeMusic(QStringLiteral("My long karaoke.cdg"), "pictures");
    const QStringList files = {song(QStringLiteral("x/a.mid"), "ONE"),
                               song(QStringLiteral("y/a.mid"), "OTHER"),
                               song(QStringLiteral("My long song.mid"), "LONG"),
                               m_card->music() + QStringLiteral("/My long karaoke.mp3")};
    QCOMPARE(carryOut(plan(files)), Transfer::Outcome::Complete);
    QCOMPARE(m_user->renameAsked.size(), 1); // yes to all
    const auto before = snapshot();
    const TransferPlan second = plan(files, true);
    QCOMPARE(second.count(State::Same), 1);
    QCOMPARE(second.count(State::Renamed), 3);
    QCOMPARE(second.count(State::Remove), 0);
    QCOMPARE(second.bytesNeeded(), qint64(0));
    QCOMPARE(carryOut(second), Transfer::Outcome::Complete);
    QCOMPARE(snapshot(), before);
    QVERIFY(m_user->counts.last().contains(QStringLiteral("Song già presenti: 4")));
}

void TestPlanExecution::skippedAndFailedSongsAreNamedWithTheReason()
{
    onCard(QStringLiteral("pop/b.mid"), "OLD");
    TransferPlan made =
        plan({song(QStringLiteral("a.mid"), "A"), song(QStringLiteral("x/a.mid"), "OTHER"),
              song(QStringLiteral("b.mid"), "NEW"), song(QStringLiteral("c.mid"), "C"),
              song(QStringLiteral("y/c.mid"), "C"), m_card->music() + QStringLiteral("/gone.mid")});
    for (const int item : {0, 1, 2})
        made.items[item].remedy = Remedy::Skip;
    QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    QCOMPARE(m_user->skippedLines,
             QStringList({QStringLiteral("music/a.mid: saltata come scelto nel piano"),
                          QStringLiteral("x/a.mid: un'altra song dell'elenco ha lo stesso nome"),
                          QStringLiteral("b.mid: esisteva già e non è stata sostituita"),
                          QStringLiteral("y/c.mid: è la stessa song, scelta due volte")}));
    QCOMPARE(m_user->failedNames, QStringList(QStringLiteral("gone.mid: il file non c'è più")));
    QCOMPARE(m_card->read(QStringLiteral("pop/b.mid")), MountedCard::midi("OLD"));
    QVERIFY(!QFileInfo::exists(inFolder(QStringLiteral("a.mid"))));
    QCOMPARE(m_user->failures.size(), 1);
    QVERIFY(m_user->successes.isEmpty());
}

void TestPlanExecution::fileThatCameMeanwhileStays()
{
    const TransferPlan made = plan({song(QStringLiteral("a.mid"), "A")});
    onCard(QStringLiteral("pop/a.mid"), "CAME MEANWHILE");
    QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    QCOMPARE(m_card->read(QStringLiteral("pop/a.mid")), MountedCard::midi("CAME MEANWHILE"));
    QCOMPARE(m_user->failedNames,
             QStringList(QStringLiteral("a.mid: nel frattempo un altro file ha questo nome")));
}

void TestPlanExecution::songThatWentMeanwhileIsToldAsMissing()
{
    const QString there = onCard(QStringLiteral("pop/a.mid"), "A");
    const TransferPlan made = plan({song(QStringLiteral("a.mid"), "A")});
    QVERIFY(QFile::remove(there));
    QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    QCOMPARE(m_user->failedNames, QStringList(QStringLiteral("a.mid: non è più sulla memoria")));
}

void TestPlanExecution::songThatVanishesIsNamedAndTheOthersArrive()
{
    const TransferPlan made =
        plan({song(QStringLiteral("a.mid"), "A"), song(QStringLiteral("b.mid"), "B")});
    QVERIFY(QFile::remove(made.items.first().path));
    QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    QCOMPARE(m_user->failedNames, QStringList(QStringLiteral("a.mid: il file non c'è più")));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/b.mid")));
}

void TestPlanExecution::fullMemoryIsTold()
{
    const QString big = m_card->writeMusic(QStringLiteral("big.mid"), QByteArray(5000, 'x'));
    const TransferPlan made = plan({song(QStringLiteral("a.mid"), "A"), big});
    {
        const faults::FileSizeLimit limit(1000);
        const LogCapture log;
        QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    }
    QCOMPARE(m_user->failedNames.size(), 1);
    QVERIFY(m_user->failedNames.first().startsWith(QStringLiteral("big.mid: ")));
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/a.mid")));
}

void TestPlanExecution::stopLeavesTheRestAlone()
{
    TransferPlan made =
        plan({song(QStringLiteral("a.mid"), "A"), song(QStringLiteral("b.mid"), "B"),
              song(QStringLiteral("c.mid"), "C")});
    made.items[2].remedy = Remedy::SubFolder;
    m_onUpdate = [](CopyingProgress &progress, int done) { progress.canceled = done == 1; };
    QCOMPARE(carryOut(made), Transfer::Outcome::Incomplete);
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/pop/a.mid")));
    QVERIFY(!QFileInfo::exists(inFolder(QStringLiteral("music"))));
    QVERIFY(m_user->counts.first().contains(
        QStringLiteral("Song non più copiate dopo l'interruzione: 2")));
}

void TestPlanExecution::rootStandsForTheSongsFolder()
{
    m_user->folder = m_card->root();
    Transfer job(*m_user, progress());
    const auto made = job.planTransfer({song(QStringLiteral("a.mid"), "A")}, false);
    QCOMPARE(made->folder, m_card->path(QStringLiteral("songs")));
    QVERIFY(!QFileInfo::exists(made->folder));
    QCOMPARE(job.carryOut(*made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->indexedPaths(), QStringList(QStringLiteral("/songs/a.mid")));

    m_user->folder = m_card->music();
    QVERIFY(!job.planTransfer({}, false).has_value());
    m_user->folder = m_card->path(QStringLiteral("playlist"));
    QVERIFY(!job.planTransfer({}, false).has_value());
    QCOMPARE(m_user->warnings.size(), 2);
}

void TestPlanExecution::lockedMemoryIsLeftAlone()
{
    const TransferPlan made = plan({song(QStringLiteral("a.mid"), "A")});
    MemoryLock other(m_card->root());
    QVERIFY(other.take());
    QCOMPARE(carryOut(made), Transfer::Outcome::NotStarted);
    QCOMPARE(m_user->warnings.size(), 1);
    QVERIFY(!QFileInfo::exists(inFolder(QStringLiteral("a.mid"))));
}

void TestPlanExecution::indexThatCannotBeReadIsTold()
{
    QCOMPARE(carryOut(plan({song(QStringLiteral("a.mid"), "A")})), Transfer::Outcome::Complete);
    m_card->isLeftBroken();
    for (const char *name : {"index.idx", "title.idx"})
        m_card->writeOnCard(QString::fromUtf8(name), QByteArray(100000, '\xFF'));
    const LogCapture log;
    QCOMPARE(carryOut(plan({song(QStringLiteral("b.mid"), "B")})), Transfer::Outcome::Incomplete);
    QVERIFY(QFileInfo::exists(inFolder(QStringLiteral("b.mid"))));
    QVERIFY(m_user->counts.last().contains(
        QStringLiteral("Il database della memoria non è stato aggiornato.\n") +
        SongChanges::damagedText()));
}

void TestPlanExecution::planIsShownOnlyWhenSongsWouldBeLostOrDoubled()
{
    onCard(QStringLiteral("pop/a.mid"), "OLD");
    m_user->replaceAnswer = Answer::Yes;
    QCOMPARE(transfer({song(QStringLiteral("a.mid"), "NEW"), song(QStringLiteral("b.mid"), "B")}),
             Transfer::Outcome::Complete);
    QCOMPARE(m_user->reviews, 0);
    QCOMPARE(m_user->replaceAsked, QStringList(inFolder(QStringLiteral("a.mid"))));
    QCOMPARE(m_user->successes, QStringList(transferfixture::successText));
    QCOMPARE(m_user->counts, QStringList(transferfixture::countsText(2, 0, 0)));

    m_user->review = TransferUser::Review::CarryOut;
    QCOMPARE(transfer({song(QStringLiteral("x/c.mid"), "C"), song(QStringLiteral("y/c.mid"), "D")}),
             Transfer::Outcome::Complete);
    QCOMPARE(m_user->reviews, 1);
    QCOMPARE(m_user->replaceAsked.size(), 1);
    QVERIFY(QFileInfo::exists(inFolder(QStringLiteral("c-1.mid"))));
}

void TestPlanExecution::withoutReviewEverythingIsAsAlways()
{
    m_user->review = TransferUser::Review::AsAlways;
    m_user->replaceAnswer = Answer::Yes;
    QCOMPARE(transfer({song(QStringLiteral("x/a.mid"), "A"), song(QStringLiteral("y/a.mid"), "B")}),
             Transfer::Outcome::Complete);
    QCOMPARE(m_user->reviews, 1);
    QCOMPARE(m_user->replaceAsked, QStringList(inFolder(QStringLiteral("a.mid"))));
    QCOMPARE(m_card->read(QStringLiteral("pop/a.mid")), MountedCard::midi("B"));
}

void TestPlanExecution::songsThatAreThereAreLeftOutWhenTheUserWantsThat()
{
    m_user->review = TransferUser::Review::OnlyMissing;
    m_user->replaceAnswer = Answer::Yes;
    onCard(QStringLiteral("pop/Averyl-1.mid"), "LONG");
    onCard(QStringLiteral("pop/b.mid"), "OLD");
    const QStringList files = {song(QStringLiteral("A very long name.mid"), "LONG"),
                               song(QStringLiteral("b.mid"), "NEW")};
    QCOMPARE(transfer(files), Transfer::Outcome::Complete);
    QCOMPARE(m_card->indexedPaths(),
             QStringList({QStringLiteral("/pop/Averyl-1.mid"), QStringLiteral("/pop/b.mid")}));
    QCOMPARE(m_user->replaceAsked, QStringList(inFolder(QStringLiteral("b.mid")))); // as always
    QCOMPARE(m_user->counts,
             QStringList(QStringLiteral("Trasferimento: Song copiate: 1\nSong già presenti: 1\n"
                                        "Song saltate: 0\nSong non copiate (errori): 0")));
    QCOMPARE(m_user->presentLines,
             QStringList(QStringLiteral(
                 "A very long name.mid: è già nella memoria come /pop/Averyl-1.mid")));
}

void TestPlanExecution::songsThatAreThereAreNamed()
{
    onCard(QStringLiteral("pop/Averyl-1.mid"), "LONG");
    onCard(QStringLiteral("pop/b.mid"), "B");
    QCOMPARE(carryOut(plan({song(QStringLiteral("A very long name.mid"), "LONG"),
                            song(QStringLiteral("b.mid"), "B")})),
             Transfer::Outcome::Complete);
    QCOMPARE(m_user->presentLines,
             QStringList({QStringLiteral(
                              "A very long name.mid: è già nella memoria come /pop/Averyl-1.mid"),
                          QStringLiteral("b.mid: è già nella memoria")}));
}

void TestPlanExecution::canceledReviewTouchesNothing()
{
    m_user->review = TransferUser::Review::Cancel;
    m_user->folder = m_card->root();
    const auto before = snapshot();
    QCOMPARE(transfer({song(QStringLiteral("x/a.mid"), "A"), song(QStringLiteral("y/a.mid"), "B")}),
             Transfer::Outcome::NotStarted);
    QCOMPARE(snapshot(), before);
    QVERIFY(m_user->saidNothing());
}

void TestPlanExecution::answersOfAReviewAreCarriedOut()
{
    m_user->change = [](TransferPlan &made) { made.items[1].remedy = Remedy::SubFolder; };
    QCOMPARE(transfer({song(QStringLiteral("x/a.mid"), "A"), song(QStringLiteral("y/a.mid"), "B")}),
             Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/y/a.mid")), MountedCard::midi("B"));
}

void TestPlanExecution::planThatOpensByItselfReplacesNothing()
{
    onCard(QStringLiteral("pop/b.mid"), "OLD");
    const QStringList files = {song(QStringLiteral("x/a.mid"), "ONE"),
                               song(QStringLiteral("y/a.mid"), "OTHER"),
                               song(QStringLiteral("b.mid"), "NEWER")};
    m_user->review = TransferUser::Review::CarryOut;
    QCOMPARE(transfer(files), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/b.mid")), MountedCard::midi("OLD"));
    QCOMPARE(m_card->read(QStringLiteral("pop/a-1.mid")), MountedCard::midi("OTHER"));
    QVERIFY(m_user->skippedLines.contains(
        QStringLiteral("b.mid: esisteva già e non è stata sostituita")));
    // A plan that was asked for proposes it.
    const std::optional<TransferPlan> asked =
        Transfer(*m_user, progress()).planTransfer(files, false);
    QVERIFY(asked.has_value());
    QCOMPARE(asked->items.at(2).remedy, Remedy::Replace);
}

void TestPlanExecution::replacedSongsAreNamed()
{
    onCard(QStringLiteral("pop/b.mid"), "OLD");
    const TransferPlan made =
        plan({song(QStringLiteral("a.mid"), "NEW"), song(QStringLiteral("b.mid"), "NEWER")});
    QCOMPARE(carryOut(made), Transfer::Outcome::Complete);
    QCOMPARE(m_user->skippedLines, QStringList(QStringLiteral("b.mid: sostituita")));
}

void TestPlanExecution::picturesOfAReplacedSongGo()
{
    const QString source = m_card->writeMusic(QStringLiteral("k.mp3"), "other music");
    const QString same = m_card->writeMusic(QStringLiteral("same.mp3"), "same music");
    const QString own = m_card->writeMusic(QStringLiteral("own.mp3"), "new music of its own");
    m_card->writeMusic(QStringLiteral("own.cdg"), "new pictures");
    for (const char *const name : {"k", "same", "own"}) {
        m_card->writeOnCard(QStringLiteral("pop/%1.mp3").arg(QLatin1String(name)), "same music");
        m_card->writeOnCard(QStringLiteral("pop/%1.cdg").arg(QLatin1String(name)), "pictures");
    }
    QCOMPARE(carryOut(plan({source, same, own})), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/k.mp3")), QByteArray("other music"));
    QVERIFY(!QFileInfo::exists(m_card->path(QStringLiteral("pop/k.cdg"))));
    QCOMPARE(m_card->read(QStringLiteral("pop/same.cdg")), QByteArray("pictures"));
    QCOMPARE(m_card->read(QStringLiteral("pop/own.cdg")), QByteArray("new pictures"));
    QCOMPARE(m_user->skippedLines, QStringList({QStringLiteral("k.mp3: sostituita"),
                                                QStringLiteral("own.mp3: sostituita"),
                                                QStringLiteral("k.cdg: rimossa")}));
}

void TestPlanExecution::picturesThatStayAreTold()
{
    const QString source = m_card->writeMusic(QStringLiteral("k.mp3"), "other music");
    const QString elsewhere = m_card->writeMusic(QStringLiteral("pictures"), "pictures");
    m_card->writeOnCard(QStringLiteral("pop/k.mp3"), "music");
    QVERIFY(QFile::link(elsewhere, m_card->path(QStringLiteral("pop/k.cdg"))));
    QCOMPARE(carryOut(plan({source})), Transfer::Outcome::Incomplete);
    QVERIFY(QFileInfo::exists(elsewhere));
    QCOMPARE(m_user->failedNames,
             QStringList(
                 QStringLiteral("k.cdg: restano le immagini della song che è stata sostituita")));
}

void TestPlanExecution::usersWithoutReviewGetNoPlan()
{
    ScriptedQuestions user;
    user.folder = m_folder;
    QCOMPARE(Transfer(user, progress())
                 .transferFiles(
                     {song(QStringLiteral("x/a.mid"), "A"), song(QStringLiteral("y/a.mid"), "B")}),
             Transfer::Outcome::Complete);
    QCOMPARE(user.replaceAsked.size(), 1);
    QCOMPARE(m_opened, QStringList({QStringLiteral("Trasferimento file..."),
                                    QStringLiteral("Aggiornamento database...")}));
}

void TestPlanExecution::copiesThatCannotBeReadBackHaveFailed_data()
{
    QTest::addColumn<bool>("verify");
    QTest::newRow("verified") << true;
    QTest::newRow("not verified") << false;
}

void TestPlanExecution::copiesThatCannotBeReadBackHaveFailed()
{
    QFETCH(bool, verify);
    const QByteArray old = MountedCard::midi("OLD");
    onCard(QStringLiteral("pop/a.mid"), "OLD");
    // A worn memory: the size is right, a byte is not.
    m_onUpdate = [this](CopyingProgress &, int) {
        const QDir folder(m_folder);
        for (const QString &name :
             folder.entryList({QStringLiteral(".a.mid.*")}, QDir::Files | QDir::Hidden)) {
            QFile part(folder.filePath(name));
            QVERIFY(part.open(QFile::ReadWrite) && part.seek(30) && part.write("?") == 1);
        }
    };
    TransferPlan made =
        plan({song(QStringLiteral("a.mid"), "NEW"), song(QStringLiteral("b.mid"), "B")});
    made.readBack = verify;
    const LogCapture log;
    QCOMPARE(carryOut(made), verify ? Transfer::Outcome::Incomplete : Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/a.mid")) == old, verify); // it stays
    QVERIFY(QFileInfo::exists(inFolder(QStringLiteral("b.mid"))));
    QCOMPARE(QDir(m_folder).entryList(QDir::Files | QDir::Hidden).size(), 2);
    if (verify)
        QCOMPARE(m_user->failedNames,
                 QStringList(QStringLiteral(
                     "a.mid: la memoria restituisce byte diversi da quelli scritti")));
}

void TestPlanExecution::goodCopiesAreReadBack()
{
    QStringList files;
    for (int i = 0; i < 250; ++i) // more than one batch
        files.append(song(QStringLiteral("s%1.mid").arg(i), QByteArray::number(i)));
    Transfer job(*m_user, progress());
    job.setReadBack(true);
    QCOMPARE(job.transferFiles(files), Transfer::Outcome::Complete);
    QCOMPARE(m_card->indexedPaths().size(), 250);
    QVERIFY(job.planTransfer(files, false)->readBack);
}

QTEST_GUILESS_MAIN(TestPlanExecution)
#include "test_planexecution.moc"
