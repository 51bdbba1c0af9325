// Journals that lie in the folder into which songs are copied.
#include "devindex/filecopier.h"
#include "support/copyingprogress.h"
#include "support/journalbytes.h"
#include "support/smallmemory.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TestFileCopierJournals : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void journalOfASongThatWasDeletedGoesWithItsSuccessor();
    void journalOfASongThatLeftItsPlaceFirstGoes();
    void songWhoseSaveWasCutOffIsCopiedWhole();

private:
    bool copy(const QByteArray &song);

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_dest;
    QString m_journal;
};

void TestFileCopierJournals::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_dest = m_folder->filePath(QStringLiteral("dest"));
    m_journal = m_dest + QStringLiteral("/.a.mid.kavena-journal");
    QVERIFY(QDir().mkdir(m_dest));
}

/** Copies a song "a.mid" into the folder, over one that may be there. */
bool TestFileCopierJournals::copy(const QByteArray &song)
{
    const QString source = m_folder->filePath(QStringLiteral("a.mid"));
    journalbytes::makeFile(source, song);
    CopyingProgress progress;
    int copied = 0;
    return FileCopier([](const QString &) { return Answer::Yes; })
        .copyFiles({source}, m_dest, copied, progress);
}

void TestFileCopierJournals::journalOfASongThatWasDeletedGoesWithItsSuccessor()
{
    journalbytes::makeFile(m_journal, journalbytes::journalOf(journalbytes::song(90, 'a'),
                                                              journalbytes::song(95, '0')));
    const QByteArray song = journalbytes::song(120, 'A');
    QVERIFY(copy(song));
    QVERIFY(!QFileInfo::exists(m_journal));
    QCOMPARE(journalbytes::contentOf(m_dest + QStringLiteral("/a.mid")), song);
}

void TestFileCopierJournals::journalOfASongThatLeftItsPlaceFirstGoes()
{
    const SmallMemory memory(m_dest, 0, "size=1m");
    if (!memory.isMounted())
        QSKIP("No memory can be mounted here");
    journalbytes::makeFile(m_journal, journalbytes::journalOf(journalbytes::song(90, 'a'),
                                                              journalbytes::song(95, '0')));
    journalbytes::makeFile(m_dest + QStringLiteral("/a.mid"), journalbytes::song(600000, 'a'));
    const QByteArray song = journalbytes::song(700000, 'A');
    QVERIFY(copy(song));
    QVERIFY(!QFileInfo::exists(m_journal));
    QVERIFY(journalbytes::contentOf(m_dest + QStringLiteral("/a.mid")) == song);
}

void TestFileCopierJournals::songWhoseSaveWasCutOffIsCopiedWhole()
{
    const QByteArray old = journalbytes::song(2000, 'a');
    const QByteArray written = journalbytes::song(2000, '0');
    journalbytes::makeFile(m_folder->filePath(QStringLiteral(".a.mid.kavena-journal")),
                           journalbytes::journalOf(old, written));
    QVERIFY(copy(written.left(1024) + old.mid(1024)));
    QCOMPARE(journalbytes::contentOf(m_dest + QStringLiteral("/a.mid")), old);
}

QTEST_GUILESS_MAIN(TestFileCopierJournals)
#include "test_filecopier_journals.moc"
