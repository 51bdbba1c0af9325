// Two programs that save one song at the same time: one of them does it, the other one is refused.
#include "formats/savefailure.h"
#include "storage/safefile.h"
#include "storage/songfilewriter.h"
#include "support/journalbytes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <filesystem>

using namespace journalbytes;

class TestRacingSaves : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void songThatIsOpenForASaveIsInUse();
    void songWhoseSaveHasJustEndedWasInUse_data();
    void songWhoseSaveHasJustEndedWasInUse();
    void songIsFreeWhenItsSaveIsOver();
    void songThatWasReplacedMeanwhileIsNotReportedAsSaved();
    void songThatGrewMeanwhileStaysWhole();

private:
    QString songPath() const { return m_dir->filePath(QStringLiteral("song.mid")); }
    QStringList files() const
    {
        return QDir(m_dir->path())
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
    }

    QScopedPointer<QTemporaryDir> m_dir;
};

void TestRacingSaves::init()
{
    m_dir.reset(new QTemporaryDir);
    QVERIFY(m_dir->isValid());
    makeFile(songPath(), song(3000, 'a'));
}

// Packing a long song takes seconds between its opening and its writing.
void TestRacingSaves::songThatIsOpenForASaveIsInUse()
{
    SongFileWriter first(songPath());
    QVERIFY(first.open());
    SongFileWriter second(songPath());
    QVERIFY(!second.open());
    QCOMPARE(saveFailureFrom(second.systemError(), songPath()), SaveFailure::InUse);

    QVERIFY(first.replaceBytes(song(2000, '0')));
    QVERIFY(contentOf(songPath()) == song(2000, '0'));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
}

void TestRacingSaves::songWhoseSaveHasJustEndedWasInUse_data()
{
    QTest::addColumn<bool>("throughTemporary");
    QTest::newRow("rewritten in place") << false;
    QTest::newRow("replaced") << true;
}

// Why it was refused is asked when the other program may be done.
void TestRacingSaves::songWhoseSaveHasJustEndedWasInUse()
{
    QFETCH(const bool, throughTemporary);
    const QString journalPath = m_dir->filePath(QStringLiteral(".song.mid.kavena-journal"));
    makeFile(journalPath, "being written");
    QFile journal(journalPath);
    QVERIFY(journal.open(QFile::ReadWrite) && holdFile(journal));
    SongFileWriter second(songPath());
    if (throughTemporary) {
        QFile source(songPath());
        QVERIFY(source.open(QFile::ReadOnly));
        QCOMPARE(second.replaceThroughTemporary("head", source, 0),
                 SongFileWriter::Outcome::CannotOpen);
    } else {
        QVERIFY(!second.open());
    }
    QVERIFY(journal.remove());
    QCOMPARE(saveFailureFrom(second.systemError(), songPath()), SaveFailure::InUse);
    QVERIFY(contentOf(songPath()) == song(3000, 'a'));
}

void TestRacingSaves::songIsFreeWhenItsSaveIsOver()
{
    {
        SongFileWriter givenUp(songPath());
        QVERIFY(givenUp.open());
    }
    SongFileWriter first(songPath());
    QVERIFY(first.open() && first.replaceBytes(song(2000, '0')));
    SongFileWriter second(songPath());
    QVERIFY(second.open() && second.replaceBytes(song(4000, 'x')));
    QVERIFY(contentOf(songPath()) == song(4000, 'x'));
}

// A transfer gives the name to another file; what is written into the old one goes with it.
void TestRacingSaves::songThatWasReplacedMeanwhileIsNotReportedAsSaved()
{
    SongFileWriter writer(songPath());
    QVERIFY(writer.open());
    const QString other = m_dir->filePath(QStringLiteral("other"));
    makeFile(other, song(500, 'n'));
    std::filesystem::rename(other.toStdString(), songPath().toStdString());

    QVERIFY(!writer.replaceBytes(song(2000, '0')));
    QVERIFY(contentOf(songPath()) == song(500, 'n'));
    QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
}

void TestRacingSaves::songThatGrewMeanwhileStaysWhole()
{
    SongFileWriter writer(songPath());
    QVERIFY(writer.open());
    const QByteArray longer = song(5000, 'n');
    makeFile(songPath(), longer); // by a program that knows nothing of our holds

    QVERIFY(!writer.replaceBytes(song(4000, '0')));
    QVERIFY(contentOf(songPath()) == longer);
    QCOMPARE(files(), QStringList(QStringLiteral("song.mid")));
}

QTEST_GUILESS_MAIN(TestRacingSaves)
#include "test_racingsaves.moc"
