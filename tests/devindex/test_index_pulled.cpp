// A memory that is pulled while its mount point stays: nothing is written to the system disk there.
#include "devindex/index.h"
#include "devindex/memorydevice.h"
#include "devindex/songchanges.h"
#include "support/planfixture.h"
#include "support/transferfixture.h"

using namespace planfixture;
using transferfixture::ScriptedQuestions;

class TestIndexPulled : public PlanFixture
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void updateWritesNothing();
    void buildWritesNothing();
    void changeOfSongsWritesNothing();
    void removalOfSongsWritesNothing();
    void changesOfAPulledMemoryAreNotBegun();
    void memoryThatOnlyLooksEmptyHasNoTrueIndex();
    void oneIndexServesSeveralMemories();
    void transferWritesNothing();
    void planWritesNothing();

private:
    static QString s(const char *text) { return QString::fromUtf8(text); }
    QString root() const { return m_link + s("/CARD"); }
    void pull();
    bool isMountPointEmpty() const;
    OpenProgress pullingAt(int step);

    QString m_link; ///< leads to the mount directory, first with the memory, then without it
    std::unique_ptr<QTemporaryDir> m_systemDisk;
    std::unique_ptr<ScriptedQuestions> m_user;
    bool m_isPulled = false;
};

void TestIndexPulled::init()
{
    PlanFixture::init();
    m_systemDisk = std::make_unique<QTemporaryDir>(s("/dev/shm/disk-XXXXXX"));
    m_user = std::make_unique<ScriptedQuestions>();
    m_isPulled = false;
    if (!m_systemDisk->isValid() || !QDir(m_systemDisk->path()).mkdir(s("CARD")) ||
        memoryDevice(m_systemDisk->path()) == memoryDevice(m_card->root()))
        QSKIP("needs two file systems");
    m_link = m_card->music() + s("/mounts");
    QVERIFY(QFile::link(m_card->mountDirectory(), m_link));
    qputenv("KAVENA_MOUNT_DIRS", QFile::encodeName(m_link));
    m_folder = root() + s("/pop");
    onCard(s("pop/a.mid"), "A");
    onCard(s("pop/b.mid"), "B");
    QVERIFY(Index().createIndex(m_card->root()));
    onCard(s("pop/new.mid"), "NEW");
    m_card->isLeftBroken(); // nobody brings it up to date once it is pulled
}

void TestIndexPulled::cleanup()
{
    m_user.reset();
    m_systemDisk.reset();
    PlanFixture::cleanup();
}

void TestIndexPulled::pull()
{
    m_isPulled = true;
    QVERIFY(QFile::remove(m_link));
    QVERIFY(QFile::link(m_systemDisk->path(), m_link));
}

bool TestIndexPulled::isMountPointEmpty() const
{
    return QDir(m_systemDisk->path() + s("/CARD"))
        .isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

/** Each progress pulls the memory at the step, once. */
OpenProgress TestIndexPulled::pullingAt(int step)
{
    return [this, step](const QString &, const QString &, int) {
        auto progress = std::make_unique<CopyingProgress>();
        progress->onUpdate = [this, step](int done) {
            if (done == step && !m_isPulled)
                pull();
        };
        return std::unique_ptr<Progress>(std::move(progress));
    };
}

void TestIndexPulled::updateWritesNothing()
{
    Index index;
    connect(&index, &Index::fileFoundChanged, this, [this] {
        if (!m_isPulled)
            pull();
    });
    QVERIFY(!index.updateIndex(root()));
    QVERIFY(m_isPulled);
    QVERIFY(isMountPointEmpty());
}

void TestIndexPulled::buildWritesNothing()
{
    for (const int percent : {10, 20, 60, 90}) {
        Index index;
        bool isWriting = false;
        connect(&index, &Index::progressMaxSetup, this, [&](int most) { isWriting = most == 100; });
        connect(&index, &Index::progressValueChanged, this, [&](int value) {
            if (isWriting && value == percent && !m_isPulled)
                pull();
        });
        QVERIFY(!index.createIndex(root()));
        QVERIFY(m_isPulled);
        QVERIFY(isMountPointEmpty());
        QVERIFY(QFile::remove(m_link));
        QVERIFY(QFile::link(m_card->mountDirectory(), m_link));
        m_isPulled = false;
    }
}

void TestIndexPulled::changeOfSongsWritesNothing()
{
    Index index;
    QCOMPARE(index.changeSongs(root(),
                               [this](QList<SongInfoIndex> &) {
                                   pull();
                                   return true;
                               }),
             Index::Change::NoIndex);
    QVERIFY(isMountPointEmpty());
    QVERIFY(QFile::remove(m_link));
    QVERIFY(QFile::link(m_card->mountDirectory(), m_link));
    QVERIFY(!Index().updateIndexAfter(root(), [this] {
        pull();
        return true;
    }));
    QVERIFY(isMountPointEmpty());
}

void TestIndexPulled::removalOfSongsWritesNothing()
{
    const SongChanges::Report report =
        SongChanges(root(), pullingAt(1)).remove({s("/pop/a.mid"), s("/pop/b.mid")});
    QVERIFY(m_isPulled);
    QVERIFY(!report.isComplete());
    QVERIFY(isMountPointEmpty());
}

void TestIndexPulled::changesOfAPulledMemoryAreNotBegun()
{
    SongChanges before(root(), pullingAt(1));
    SongChanges later(root(), pullingAt(1));
    later.setDevice(memoryDevice(root()));
    pull();
    for (SongChanges *const changes : {&before, &later}) {
        for (const SongChanges::Report &report :
             {changes->remove({s("/pop/a.mid")}), changes->updateIndex(), changes->rebuildIndex(),
              changes->rewrite(s("/pop/a.mid"), [] { return QString(); })}) {
            QVERIFY(!report.isComplete());
            QVERIFY(report.done.isEmpty());
        }
    }
    QCOMPARE(before.updateIndex().refusal, s("La memoria non è più collegata."));
    // Songs of the same names on the computer are not touched either.
    const QString same = m_systemDisk->path() + s("/CARD/pop/a.mid");
    m_card->write(same, "not on the memory");
    const SongChanges::Report report = later.remove({s("/pop/a.mid")});
    QCOMPARE(report.refusal, s("La memoria non è più collegata."));
    QVERIFY(QFile::remove(same));
    QVERIFY(QDir(m_systemDisk->path() + s("/CARD")).rmdir(s("pop")));
    QVERIFY(isMountPointEmpty());
}

void TestIndexPulled::memoryThatOnlyLooksEmptyHasNoTrueIndex()
{
    const QString counts = m_card->root() + QLatin1Char('/') + s("fsinfos.idx");
    QVERIFY(QFile::exists(counts));
    Index index;
    const Index::Change changed = index.changeSongs(m_card->root(), [&](QList<SongInfoIndex> &) {
        // What lies there cannot be removed, like the file of a memory that is gone.
        return QDir(m_folder).removeRecursively() && QDir().mkpath(counts + s("/kept"));
    });
    QCOMPARE(changed, Index::Change::NoIndex);
    QVERIFY(QDir(counts).removeRecursively());
}

void TestIndexPulled::oneIndexServesSeveralMemories()
{
    const QString other = m_systemDisk->path() + s("/CARD");
    QVERIFY(QDir().mkpath(other + s("/songs")));
    QVERIFY(QFile::copy(m_folder + s("/a.mid"), other + s("/songs/a.mid")));
    Index index;
    QVERIFY(index.updateIndex(m_card->root()));
    QVERIFY(index.updateIndex(other));
    QVERIFY(index.updateIndex(m_card->root()));
}

void TestIndexPulled::transferWritesNothing()
{
    m_user->folder = m_folder;
    const QStringList files = {song(s("c.mid"), "C"), song(s("d.mid"), "D")};
    QCOMPARE(Transfer(*m_user, pullingAt(2)).transferFiles(files), Transfer::Outcome::Incomplete);
    QVERIFY(m_isPulled);
    QVERIFY(
        m_user->counts.first().contains(s("Il database della memoria non è stato aggiornato.")));
    QVERIFY(isMountPointEmpty());
}

void TestIndexPulled::planWritesNothing()
{
    m_user->folder = m_folder;
    for (const int step : {1, 2}) {
        const QStringList files = {song(s("c.mid"), "C")};
        Transfer transfer(*m_user, pullingAt(step));
        std::optional<TransferPlan> made = transfer.planTransfer(files, true);
        QVERIFY(made.has_value());
        for (TransferPlan::Item &item : made->items) {
            if (item.state == State::Remove)
                item.remedy = Remedy::Remove;
        }
        QCOMPARE(transfer.carryOut(*made), Transfer::Outcome::Incomplete);
        QVERIFY(m_isPulled);
        QVERIFY(isMountPointEmpty());
        QVERIFY(QFile::remove(m_link));
        QVERIFY(QFile::link(m_card->mountDirectory(), m_link));
        m_isPulled = false;
    }
}

QTEST_GUILESS_MAIN(TestIndexPulled)
#include "test_index_pulled.moc"
