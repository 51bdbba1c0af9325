// Links on a memory never let a transfer write to the computer's disk.
#include "devindex/memorydevice.h"
#include "support/planfixture.h"
#include "support/transferfixture.h"

using namespace planfixture;
using transferfixture::ScriptedQuestions;
using transferfixture::systemDiskText;

class TestTransferLinks : public PlanFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void linkToTheSystemDiskIsRefused_data();
    void linkToTheSystemDiskIsRefused();
    void songsFolderThatLeadsOutsideIsRefused_data();
    void songsFolderThatLeadsOutsideIsRefused();
    void linkWithinTheMemoryStandsForItsTarget();
    void linkToAReservedFolderIsRefused();
    void linkOnTheComputerStandsForTheMemory();
    void planWhoseFolderBecameALinkWritesNothing();
    void subFolderThatLeadsOutsideGetsNothing();
    void foldersOnAMemory();

private:
    QString s(const char *text) const { return QString::fromUtf8(text); }
    OpenProgress progress() const;
    QString outside(const QString &name = QStringLiteral("outside")) const;
    QByteArray bytesOutside() const;
    void link(const QString &target, const QString &path) const;

    std::unique_ptr<ScriptedQuestions> m_user;
};

void TestTransferLinks::init()
{
    PlanFixture::init();
    m_user = std::make_unique<ScriptedQuestions>();
    m_user->replaceAnswer = Answer::YesToAll;
    QVERIFY(QDir().mkdir(m_folder));
    // A song on the computer that must not be touched.
    m_card->writeMusic(s("outside/a.mid"), "ORIGINAL");
}

void TestTransferLinks::cleanup()
{
    m_user.reset();
    PlanFixture::cleanup();
}

OpenProgress TestTransferLinks::progress() const
{
    return [](const QString &, const QString &, int) {
        return std::unique_ptr<Progress>(std::make_unique<CopyingProgress>());
    };
}

QString TestTransferLinks::outside(const QString &name) const
{
    return m_card->music() + QLatin1Char('/') + name;
}

QByteArray TestTransferLinks::bytesOutside() const
{
    QFile file(outside(s("outside/a.mid")));
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

void TestTransferLinks::link(const QString &target, const QString &path) const
{
    QVERIFY(QFile::link(target, path));
}

void TestTransferLinks::linkToTheSystemDiskIsRefused_data()
{
    QTest::addColumn<QString>("chosen"); // on the card; "link" leads outside
    QTest::newRow("the link") << "pop/link";
    QTest::newRow("slash at the end") << "pop/link/";
    QTest::newRow("below the link") << "pop/link/deep";
    QTest::newRow("a link that leads nowhere") << "pop/broken";
}

void TestTransferLinks::linkToTheSystemDiskIsRefused()
{
    QFETCH(QString, chosen);
    QVERIFY(QDir().mkdir(outside(s("outside/deep"))));
    link(outside(), m_card->path(s("pop/link")));
    link(outside(s("nothing")), m_card->path(s("pop/broken")));
    m_user->folder = m_card->path(chosen);
    const QString source = song(s("a.mid"), "NEW");
    QCOMPARE(Transfer(*m_user, progress()).transferFiles({source}), Transfer::Outcome::NotStarted);
    QVERIFY(!Transfer(*m_user, progress()).planTransfer({source}, true).has_value());
    QCOMPARE(m_user->warnings, QStringList({systemDiskText, systemDiskText}));
    QCOMPARE(bytesOutside(), QByteArray("ORIGINAL"));
    QVERIFY(QDir(outside(s("outside/deep"))).isEmpty());
}

void TestTransferLinks::songsFolderThatLeadsOutsideIsRefused_data()
{
    QTest::addColumn<QString>("target"); // %1 is the computer's folder, %2 the mount directory
    QTest::newRow("to the system disk") << "%1";
    QTest::newRow("to another memory") << "%2/OTHER";
    QTest::newRow("to a folder of the player") << "%2/CARD/sfx";
    QTest::newRow("to the root of all") << "/";
    QTest::newRow("nowhere") << "%1/nothing";
}

void TestTransferLinks::songsFolderThatLeadsOutsideIsRefused()
{
    QFETCH(QString, target);
    target.replace(s("%1"), outside()).replace(s("%2"), m_card->mountDirectory());
    QVERIFY(QDir().mkpath(m_card->mountDirectory() + s("/OTHER")));
    QVERIFY(QDir().mkpath(m_card->path(s("sfx"))));
    link(target, m_card->path(s("songs")));
    m_user->folder = m_card->root();
    const QString source = song(s("a.mid"), "NEW");
    const auto before = snapshot();
    QCOMPARE(Transfer(*m_user, progress()).transferFiles({source}), Transfer::Outcome::NotStarted);
    QVERIFY(!Transfer(*m_user, progress()).planTransfer({source}, true).has_value());
    const QString text =
        s("Trasferimento: La cartella %1 è un collegamento a un'altra cartella, dove le song non "
          "possono essere copiate")
            .arg(m_card->path(s("songs")));
    QCOMPARE(m_user->warnings, QStringList({text, text}));
    QCOMPARE(bytesOutside(), QByteArray("ORIGINAL"));
    QCOMPARE(snapshot(), before);
    QVERIFY(QDir(m_card->mountDirectory() + s("/OTHER")).isEmpty());
}

void TestTransferLinks::linkWithinTheMemoryStandsForItsTarget()
{
    m_card->isLeftBroken(); // the judge follows no links, the index does
    link(m_folder, m_card->path(s("songs")));
    m_user->folder = m_card->root();
    const QString source = song(s("a.mid"), "NEW");
    const std::optional<TransferPlan> made =
        Transfer(*m_user, progress()).planTransfer({source}, false);
    QVERIFY(made.has_value());
    QCOMPARE(made->folder, m_folder);
    QCOMPARE(made->root, m_card->root());
    QCOMPARE(Transfer(*m_user, progress()).carryOut(*made), Transfer::Outcome::Complete);
    QCOMPARE(m_card->read(s("pop/a.mid")), MountedCard::midi("NEW"));
    QVERIFY(m_user->warnings.isEmpty());
}

void TestTransferLinks::linkToAReservedFolderIsRefused()
{
    QVERIFY(QDir().mkpath(m_card->path(s("sfx"))));
    link(m_card->path(s("sfx")), m_card->path(s("mine")));
    m_user->folder = m_card->path(s("mine"));
    QCOMPARE(Transfer(*m_user, progress()).transferFiles({song(s("a.mid"), "NEW")}),
             Transfer::Outcome::NotStarted);
    QCOMPARE(m_user->warnings, QStringList(transferfixture::reservedText));
    QVERIFY(QDir(m_card->path(s("sfx"))).isEmpty());
}

void TestTransferLinks::linkOnTheComputerStandsForTheMemory()
{
    link(m_folder, outside(s("shortcut")));
    m_user->folder = outside(s("shortcut"));
    QCOMPARE(Transfer(*m_user, progress()).transferFiles({song(s("a.mid"), "NEW")}),
             Transfer::Outcome::Complete);
    QCOMPARE(m_card->indexedPaths(), QStringList(s("/pop/a.mid")));
}

void TestTransferLinks::planWhoseFolderBecameALinkWritesNothing()
{
    onCard(s("pop/a.mid"), "OLD");
    TransferPlan made = plan({song(s("a.mid"), "NEW")});
    QCOMPARE(made.items.first().remedy, Remedy::Replace);
    QVERIFY(QDir(m_folder).removeRecursively());
    link(outside(), m_folder);
    m_card->isLeftBroken(); // the index follows the link
    QCOMPARE(Transfer(*m_user, progress()).carryOut(made), Transfer::Outcome::Incomplete);
    QCOMPARE(bytesOutside(), QByteArray("ORIGINAL"));
    QCOMPARE(m_user->failedNames.first(),
             s("a.mid: la sua cartella è un collegamento che porta fuori dalla memoria"));
}

void TestTransferLinks::subFolderThatLeadsOutsideGetsNothing()
{
    m_card->isLeftBroken(); // the index follows the link
    TransferPlan made = plan({song(s("x/b.mid"), "NEW"), song(s("y/c.mid"), "NEW")});
    made.items[0].remedy = Remedy::SubFolder;
    made.items[1].target = m_card->path(s("pop/x/deep/c.mid"));
    link(outside(), m_card->path(s("pop/x")));
    QCOMPARE(Transfer(*m_user, progress()).carryOut(made), Transfer::Outcome::Incomplete);
    QCOMPARE(QDir(outside()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(s("a.mid")));
    QVERIFY(m_user->failedNames.contains(
        s("b.mid: la sua cartella è un collegamento che porta fuori dalla memoria")));
}

void TestTransferLinks::foldersOnAMemory()
{
    link(outside(), m_card->path(s("link")));
    link(m_folder, m_card->path(s("within")));
    QVERIFY(QDir().mkpath(m_card->root() + s("2/pop")));
    QVERIFY(isOnMemory(m_card->root(), m_card->root()));
    QVERIFY(isOnMemory(m_folder, m_card->root()));
    QVERIFY(isOnMemory(m_card->path(s("within")), m_card->root()));
    QVERIFY(!isOnMemory(m_card->path(s("link")), m_card->root()));
    QVERIFY(!isOnMemory(m_card->root() + s("2/pop"), m_card->root()));
    QVERIFY(!isOnMemory(m_card->path(s("nothing")), m_card->root()));
    QVERIFY(!isOnMemory(m_folder, m_card->path(s("nothing"))));
}

QTEST_GUILESS_MAIN(TestTransferLinks)
#include "test_transfer_links.moc"
