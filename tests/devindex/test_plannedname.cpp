// What a user may change in a plan: remedies, and the names that songs are kept under. And that a
// plan outlives its memory without harm.
#include "devindex/memorydevice.h"
#include "devindex/plannedname.h"
#include "devindex/transfer.h"
#include "support/planfixture.h"
#include "support/smallmemory.h"
#include "support/transferfixture.h"

using namespace planfixture;

class TestPlannedName : public PlanFixture
{
    Q_OBJECT

private slots:
    void init() { PlanFixture::init(); }
    void cleanup() { PlanFixture::cleanup(); }

    void proposedNameCanBeKept();
    void nameMustKeepThePlayersRules_data();
    void nameMustKeepThePlayersRules();
    void nameOnTheMemoryIsTaken();
    void nameInThePlanIsTakenWhateverIsChosenNow();
    void chosenNameIsCarriedOut();
    void remedyGoesToThoseThatCanHaveIt();
    void planKnowsWhetherItsMemoryIsThere();
    void anotherFileSystemAtTheSamePlaceIsAnotherMemory();
    void nothingIsWrittenWhereTheMemoryWas();

private:
    QStringList twoOfOneName(const QString &name = QStringLiteral("same.mid")) const
    {
        return {song(QStringLiteral("one/") + name, "ONE"),
                song(QStringLiteral("two/") + name, "TWO")};
    }
};

void TestPlannedName::proposedNameCanBeKept()
{
    TransferPlan made = plan(twoOfOneName());
    QCOMPARE(made.items.at(1).keepBothTarget, inFolder(QStringLiteral("same-1.mid")));
    QCOMPARE(PlannedName::whyNot(made, 1, QStringLiteral("same-1.mid")), QString());
    QVERIFY(PlannedName::set(made, 1, QStringLiteral("same-1.mid")));
    QCOMPARE(made.items.at(1).keepBothTarget, inFolder(QStringLiteral("same-1.mid")));
}

void TestPlannedName::nameMustKeepThePlayersRules_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isAllowed");
    QTest::newRow("eight characters") << QStringLiteral("12345678.mid") << true;
    QTest::newRow("nine characters") << QStringLiteral("123456789.mid") << false;
    QTest::newRow("another suffix") << QStringLiteral("a.mp3") << false;
    QTest::newRow("no suffix") << QStringLiteral("a") << false;
    QTest::newRow("nothing") << QString() << false;
    QTest::newRow("only a suffix") << QStringLiteral(".mid") << false;
    QTest::newRow("another folder") << QStringLiteral("../a.mid") << false;
    QTest::newRow("colon") << QStringLiteral("a:b.mid") << false;
    QTest::newRow("not in the player's letters") << QStringLiteral("Ωμέγα.mid") << false;
}

void TestPlannedName::nameMustKeepThePlayersRules()
{
    QFETCH(QString, name);
    QFETCH(bool, isAllowed);
    TransferPlan made = plan(twoOfOneName());
    QCOMPARE(PlannedName::whyNot(made, 1, name).isEmpty(), isAllowed);
    QCOMPARE(PlannedName::set(made, 1, name), isAllowed);
    QCOMPARE(made.items.at(1).keepBothTarget,
             inFolder(isAllowed ? name : QStringLiteral("same-1.mid")));
}

void TestPlannedName::nameOnTheMemoryIsTaken()
{
    onCard(QStringLiteral("pop/There.mid"), "THERE");
    const TransferPlan made = plan(twoOfOneName());
    QCOMPARE(PlannedName::whyNot(made, 1, QStringLiteral("tHERE.mid")),
             QStringLiteral("un altro file ha già questo nome"));
}

void TestPlannedName::nameInThePlanIsTakenWhateverIsChosenNow()
{
    QStringList files = twoOfOneName();
    files.append(song(QStringLiteral("three/same.mid"), "THREE"));
    files.append(song(QStringLiteral("Other.mid"), "OTHER"));
    TransferPlan made = plan(files);
    const QString taken = QStringLiteral("un'altra song del piano ha questo nome");
    made.choose({0, 2, 3}, Remedy::Skip);
    QCOMPARE(made.items.at(2).keepBothTarget, inFolder(QStringLiteral("same-2.mid")));
    for (const char *name : {"SAME.mid", "same-2.mid", "other.MID"})
        QCOMPARE(PlannedName::whyNot(made, 1, QString::fromLatin1(name)), taken);
    QVERIFY(PlannedName::set(made, 1, QStringLiteral("free.mid")));
    QCOMPARE(PlannedName::whyNot(made, 2, QStringLiteral("FREE.mid")), taken);
    // The name that was proposed first is free for others now.
    QVERIFY(PlannedName::set(made, 2, QStringLiteral("same-1.mid")));
}

void TestPlannedName::chosenNameIsCarriedOut()
{
    TransferPlan made = plan(twoOfOneName());
    QVERIFY(PlannedName::set(made, 1, QStringLiteral("live.mid")));
    transferfixture::ScriptedQuestions user;
    Transfer job(user, [](const QString &, const QString &, int) {
        return std::make_unique<CopyingProgress>();
    });
    QVERIFY(QDir().mkpath(m_folder));
    QCOMPARE(job.carryOut(made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(QStringLiteral("pop/same.mid")), MountedCard::midi("ONE"));
    QCOMPARE(m_card->read(QStringLiteral("pop/live.mid")), MountedCard::midi("TWO"));
    QCOMPARE(m_card->indexedPaths().size(), 2);
}

void TestPlannedName::remedyGoesToThoseThatCanHaveIt()
{
    onCard(QStringLiteral("pop/differs.mid"), "OLD");
    onCard(QStringLiteral("pop/there.mid"), "THERE");
    TransferPlan made =
        plan({song(QStringLiteral("new.mid"), "NEW"), song(QStringLiteral("differs.mid"), "NEWER"),
              song(QStringLiteral("there.mid"), "THERE")});
    const auto remedies = [&made] {
        QList<Remedy> all;
        for (const TransferPlan::Item &item : std::as_const(made.items))
            all.append(item.remedy);
        return all;
    };
    QCOMPARE(remedies(), QList<Remedy>({Remedy::Copy, Remedy::Replace, Remedy::Skip}));
    made.choose({0, 1, 2}, Remedy::KeepBoth);
    QCOMPARE(remedies(), QList<Remedy>({Remedy::Copy, Remedy::KeepBoth, Remedy::Skip}));
    made.choose({0, 1, 2}, Remedy::Remove);
    QCOMPARE(remedies(), QList<Remedy>({Remedy::Copy, Remedy::KeepBoth, Remedy::Skip}));
    made.choose({0}, Remedy::Skip);
    QCOMPARE(remedies(), QList<Remedy>({Remedy::Skip, Remedy::KeepBoth, Remedy::Skip}));
}

void TestPlannedName::planKnowsWhetherItsMemoryIsThere()
{
    const TransferPlan made = plan({song(QStringLiteral("a.mid"), "A")});
    QCOMPARE(made.device, memoryDevice(m_card->root()));
    QVERIFY(made.isMemoryThere());
    const QString elsewhere = m_card->root() + QStringLiteral("-pulled");
    QVERIFY(QDir().rename(m_card->root(), elsewhere));
    QVERIFY(!made.isMemoryThere());
    QVERIFY(QDir().rename(elsewhere, m_card->root()));
    QVERIFY(made.isMemoryThere());
    QCOMPARE(memoryDevice(made.items.first().path), QByteArray()); // a file holds no memory
}

void TestPlannedName::anotherFileSystemAtTheSamePlaceIsAnotherMemory()
{
    const TransferPlan made = plan({song(QStringLiteral("a.mid"), "A")});
    const SmallMemory other(m_card->root(), 0, "size=64k");
    if (!other.isMounted())
        QSKIP("only root may mount a file system");
    QVERIFY(!made.isMemoryThere());
}

void TestPlannedName::nothingIsWrittenWhereTheMemoryWas()
{
    const SmallMemory behind(m_card->root(), 0, "size=1m");
    if (!behind.isMounted())
        QSKIP("only root may mount a file system");
    m_folder = m_card->path(QStringLiteral("songs"));
    const TransferPlan made = plan({song(QStringLiteral("a.mid"), "A")});
    const SmallMemory other(m_card->root(), 0, "size=1m");
    QVERIFY(other.isMounted());
    transferfixture::ScriptedQuestions user;
    Transfer job(user, [](const QString &, const QString &, int) {
        return std::make_unique<CopyingProgress>();
    });
    QCOMPARE(job.carryOut(made), Transfer::Outcome::NotStarted);
    QCOMPARE(user.warnings, QStringList(QStringLiteral(
                                "Trasferimento: La memoria non c'è più. È stata estratta?")));
    QVERIFY(snapshot().isEmpty());
}

QTEST_GUILESS_MAIN(TestPlannedName)

#include "test_plannedname.moc"
