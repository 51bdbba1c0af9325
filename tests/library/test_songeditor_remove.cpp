// Rows that are removed, and files that are deleted.
#include "support/editfixture.h"
#include "support/journalbytes.h"
#include "support/librarytable.h"

#include <QTest>

using namespace editfixture;

class TestSongEditorRemove : public QObject
{
    Q_OBJECT

private slots:
    void removedRowLeavesTheFile();
    void removingARowThatDoesNotExistChangesNothing();
    void deletingAsksFirst();
    void deletedFileAndItsRowAreGone();
    void deletedFileTakesItsJournalAlong();
    void fileThatABinTookLeavesNothingBehind();
    void fileThatNoBinTakesIsDeleted();
    void journalStaysBesideAFileThatCannotBeDeleted();
    void deletingWithoutARowDoesNotAsk();
    void rowGoesAlsoWhenTheFileCannotBeDeleted();
    void fileThatVanishedBeforeIsReportedAsGone();
};

void TestSongEditorRemove::removedRowLeavesTheFile()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), fullMidi(name)));
    Editing editing(library);
    editing.editor.removeFromList(1);
    QCOMPARE(library.model().goodRowCount(), 2);
    QCOMPARE(library.model().shortName(0), QStringLiteral("a.mid"));
    QCOMPARE(library.model().shortName(1), QStringLiteral("c.mid"));
    QVERIFY(QFile::exists(library.path(QStringLiteral("b.mid"))));
    QCOMPARE(editing.deleteQuestions, 0);
}

void TestSongEditorRemove::removingARowThatDoesNotExistChangesNothing()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    editing.editor.removeFromList(-1);
    editing.editor.removeFromList(1);
    QCOMPARE(library.model().goodRowCount(), 1);
}

void TestSongEditorRemove::deletingAsksFirst()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    editing.deleteAnswer = false;
    QCOMPARE(editing.editor.deleteFile(0), QString());
    QCOMPARE(editing.deleteQuestions, 1);
    QCOMPARE(library.model().goodRowCount(), 1);
    QCOMPARE(library.bytes(QStringLiteral("a.mid")), fullMidi("A"));
}

void TestSongEditorRemove::deletedFileAndItsRowAreGone()
{
    LibraryTable library(QList<catalogue::Row>{});
    for (const char *name : {"a.mid", "b.mid", "c.mid"})
        QVERIFY(library.add(QString::fromLatin1(name), fullMidi(name)));
    Editing editing(library);
    editing.deleteAnswer = true;
    QCOMPARE(editing.editor.deleteFile(0), library.path(QStringLiteral("a.mid")));
    QVERIFY(!QFile::exists(library.path(QStringLiteral("a.mid"))));
    QCOMPARE(library.model().goodRowCount(), 2);
    QCOMPARE(library.model().shortName(0), QStringLiteral("b.mid"));
    QVERIFY(QFile::exists(library.path(QStringLiteral("b.mid"))));
}

// A song that is put there later must not be taken for one whose save was cut off.
void TestSongEditorRemove::deletedFileTakesItsJournalAlong()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    const QString journal = library.path(QStringLiteral(".a.mid.kavena-journal"));
    const QString others = library.path(QStringLiteral(".b.mid.kavena-journal"));
    for (const QString &path : {journal, others})
        journalbytes::makeFile(path, journalbytes::journalOf(fullMidi("A"), fullMidi("B")));
    Editing editing(library);
    editing.deleteAnswer = true;
    QCOMPARE(editing.editor.deleteFile(0), library.path(QStringLiteral("a.mid")));
    QVERIFY(!QFile::exists(journal));
    QVERIFY(QFile::exists(others));
}

void TestSongEditorRemove::fileThatABinTookLeavesNothingBehind()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("a")));
    const QString path = library.path(QStringLiteral("a.mid"));
    const QString bin = library.path(QStringLiteral("bin"));
    Editing editing(library);
    editing.deleteAnswer = true;
    editing.editor.setBin([&](const QString &file) { return QFile::rename(file, bin); });
    QCOMPARE(editing.editor.deleteFile(0), path);
    QVERIFY(!QFile::exists(path));
    QCOMPARE(samplesongs::readFile(bin), fullMidi("a"));
    QCOMPARE(library.model().goodRowCount(), 0);
    QCOMPARE(editing.deleteQuestions, 1);
}

void TestSongEditorRemove::fileThatNoBinTakesIsDeleted()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("a")));
    Editing editing(library);
    editing.deleteAnswer = true;
    editing.editor.setBin([](const QString &) { return false; });
    QCOMPARE(editing.editor.deleteFile(0), library.path(QStringLiteral("a.mid")));
    QVERIFY(!QFile::exists(library.path(QStringLiteral("a.mid"))));
}

void TestSongEditorRemove::journalStaysBesideAFileThatCannotBeDeleted()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    const QString path = library.path(QStringLiteral("a.mid"));
    const QString journal = library.path(QStringLiteral(".a.mid.kavena-journal"));
    journalbytes::makeFile(journal, journalbytes::journalOf(fullMidi("A"), fullMidi("B")));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/inside")));
    Editing editing(library);
    editing.deleteAnswer = true;
    QCOMPARE(editing.editor.deleteFile(0), QString());
    QVERIFY(QFile::exists(journal));
}

void TestSongEditorRemove::deletingWithoutARowDoesNotAsk()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    Editing editing(library);
    editing.deleteAnswer = true;
    QCOMPARE(editing.editor.deleteFile(-1), QString());
    QCOMPARE(editing.editor.deleteFile(7), QString());
    QCOMPARE(editing.deleteQuestions, 0);
    QCOMPARE(library.model().goodRowCount(), 1);
    QVERIFY(QFile::exists(library.path(QStringLiteral("a.mid"))));
}

void TestSongEditorRemove::rowGoesAlsoWhenTheFileCannotBeDeleted()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    const QString path = library.path(QStringLiteral("a.mid"));
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkpath(path + QStringLiteral("/inside")));
    Editing editing(library);
    editing.deleteAnswer = true;
    QCOMPARE(editing.editor.deleteFile(0), QString());
    QCOMPARE(library.model().goodRowCount(), 0);
    QVERIFY(QFileInfo(path).isDir());
}

void TestSongEditorRemove::fileThatVanishedBeforeIsReportedAsGone()
{
    LibraryTable library(QList<catalogue::Row>{});
    QVERIFY(library.add(QStringLiteral("a.mid"), fullMidi("A")));
    const QString path = library.path(QStringLiteral("a.mid"));
    QVERIFY(QFile::remove(path));
    Editing editing(library);
    editing.deleteAnswer = true;
    QCOMPARE(editing.editor.deleteFile(0), path);
    QCOMPARE(library.model().goodRowCount(), 0);
}

QTEST_MAIN(TestSongEditorRemove)

#include "test_songeditor_remove.moc"
